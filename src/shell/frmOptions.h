#pragma once

#include "platform/controls/Button.h"
#include "platform/controls/ControlArray.h"
#include "platform/controls/Form.h"

namespace tavrin {

/// The options: before what the program asks. They reach the settings store when the program ends.
class frmOptions : public Form {
 public:
  /// Opened modally by its user (Desktop::ShowModal).
  frmOptions();

  CheckBox chkMessageBoxOnDelete;
  CheckBox chkMessageBoxOnSave;
  ControlArray<Button> cmdAction;  ///< 0 OK, 1 Cancel

  void cmdAction_Click(int index);

 private:
  void GUI_Init();
};

}  // namespace tavrin
