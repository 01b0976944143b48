#pragma once

#include <cstdint>
#include <string>

#include "platform/controls/Button.h"
#include "platform/controls/ControlArray.h"
#include "platform/controls/Form.h"
#include "platform/controls/Label.h"
#include "platform/controls/TextBox.h"

namespace tavrin {

/// Name and, for a network, type of a new object. Opened modally (Desktop::ShowModal) by its user, who then reads the
/// result. It closes with OK only when the name is free and a type is chosen.
class frmCreate : public Form {
 public:
  enum Mode : std::int32_t { kNetwork = 0, kDevice = 1 };

  /// @param mode what is to be created
  explicit frmCreate(Mode mode);

  std::int32_t nMode;      ///< 0 new network, 1 new device
  std::string szName;      ///< the accepted name, trimmed
  std::int32_t nType = 0;  ///< the chosen type of the network
  bool bCancel = false;    ///< left without OK

  ControlArray<Label> lbl;  ///< 0 name, 1 type
  TextBox txtName;
  ControlArray<RadioButton> rbType;  ///< by type of the network; H1 and IPK are not offered
  ControlArray<Button> cmdAction;    ///< 0 OK, 1 Cancel

  void txtName_KeyPress(int& key) const;
  void cmdAction_Click(int index);

 private:
  void GUI_Init();
  void Arrange();
  /// @return false when the dialog must stay, after telling why
  [[nodiscard]] bool TakeType();
  [[nodiscard]] bool TakeName();
};

}  // namespace tavrin
