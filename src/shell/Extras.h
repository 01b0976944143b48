#pragma once

namespace tavrin {

class frmOPC;

/// The menu Extras: the warning lists, the tools around the project and the options.
class Extras {
 public:
  explicit Extras(frmOPC& form);

  void mnuExtras_Click(int index);

 private:
  static void Reconfigure();

  frmOPC& form_;
};

}  // namespace tavrin
