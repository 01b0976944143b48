#pragma once

namespace tavrin {

class frmOPC;

/// The menu of the tag grid: what is done online with the tag of the current row.
class OnlineCommands {
 public:
  /// Wires the menu.
  explicit OnlineCommands(frmOPC& form);

  /// 1 watch the tag. A row without a tag is passed over.
  void mnuTest_Click(int index);

 private:
  frmOPC& form_;
};

}  // namespace tavrin
