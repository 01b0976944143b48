#pragma once

namespace tavrin {

class frmOPC;

/// The menu Extras: the warning lists and the options.
class Extras {
 public:
  explicit Extras(frmOPC& form);

  void mnuExtras_Click(int index);

 private:
  frmOPC& form_;
};

}  // namespace tavrin
