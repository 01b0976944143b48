#pragma once

namespace tavrin {

class frmOPC;

/// The menu Help: the manual, the about box, the system's own report and that of the file versions.
class Help {
 public:
  explicit Help(frmOPC& form);

  static void mnuHelp_Click(int index);

 private:
  static void OpenManual();
};

}  // namespace tavrin
