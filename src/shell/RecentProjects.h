#pragma once

#include <string>
#include <string_view>

namespace tavrin {

class frmOPC;

/// The list of the four projects used last, shown at the end of the file menu.
class RecentProjects {
 public:
  explicit RecentProjects(frmOPC& form) : form_(form) {}

  /// Enters the open project as the newest unless `szPath` is in the list already, in any case; then nothing changes.
  void SetNewMRU(std::string_view szPath);
  /// Brings the menu in line with the list.
  void ShowMRU();

 private:
  frmOPC& form_;
};

}  // namespace tavrin
