#pragma once

#include <string_view>

namespace tavrin {

class frmOPC;

/// The menu Edit: what changes the shape of the project.
class StructureCommands {
 public:
  /// Wires the menu.
  explicit StructureCommands(frmOPC& form);

  /// 1 add network, 2 delete network, 3 add device, 4 delete device, 5 rename, 6 test run.
  void mnuEdit_Click(int index);

 private:
  void AddNetwork();
  void DeleteNetwork();
  void AddDevice();
  void DeleteDevice();
  void Test();

  frmOPC& form_;
};

}  // namespace tavrin
