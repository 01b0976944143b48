#pragma once

#include <string>

#include "platform/controls/Button.h"
#include "platform/controls/ControlArray.h"
#include "platform/controls/Form.h"
#include "platform/controls/Label.h"
#include "platform/controls/Picture.h"

namespace tavrin {

/// The about box: whose program it is and how that firm is reached.
class frmInfo : public Form {
 public:
  /// Opened modally by its user (Desktop::ShowModal).
  frmInfo();

  Picture Picture1;  ///< logo of ZELKAR
  Picture Picture2;  ///< logo of QORVANE
  Label lblVersion;
  ControlArray<Label> Label1;  ///< 0 to 3 firm and address; 8 to 11 the ways to reach it, 4 to 7 what each of them is
  ControlArray<Button> cmdAction;  ///< 0 OK

  void cmdAction_Click(int index);

 private:
  void Form_Load();
  void GUI_Init();
  [[nodiscard]] static std::string GetOPCVersion();
};

}  // namespace tavrin
