#pragma once

#include "platform/controls/Button.h"
#include "platform/controls/ControlArray.h"
#include "platform/controls/Form.h"
#include "platform/controls/Label.h"

namespace tavrin {

/// Reminds the user that the server reads a project only when it starts. Nothing in the program opens it; whether it
/// is wanted is kept among the settings all the same.
class frmHinweis : public Form {
 public:
  /// Opened modally by its user (Desktop::ShowModal).
  frmHinweis();

  ControlArray<Label> Label1;      ///< the two lines of the hint
  CheckBox chkShow;                ///< stands for modMain::State::gbShowHint: shows it, and each tick sets it
  ControlArray<Button> cmdAction;  ///< 0 OK, 1 Cancel

  /// True when the user has chosen Cancel.
  [[nodiscard]] bool bCancel() const { return bCancel_; }

  void chkShow_Click();
  void cmdAction_Click(int index);

 private:
  void GUI_Init();

  bool bCancel_ = false;
};

}  // namespace tavrin
