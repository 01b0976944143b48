#pragma once

namespace tavrin {

class frmOPC;

/// The menu Extras: the warning lists, the programs that administer the machine, the tools around the project and the
/// options. Its entries for languages, font size and log files only open their menus.
class Extras {
 public:
  explicit Extras(frmOPC& form);

  void mnuExtras_Click(int index);

 private:
  void ShowWarnings(int index);
  static void Administrate(int index);
  static void Reconfigure();
  static void CleanUp();

  frmOPC& form_;
};

}  // namespace tavrin
