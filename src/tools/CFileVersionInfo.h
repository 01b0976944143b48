#pragma once

#include <string>
#include <string_view>

namespace tavrin {

/// The version resource of one file as texts.
class CFileVersionInfo {
 public:
  [[nodiscard]] const std::string& FullPathName() const { return fullPathName_; }
  /// Stores the path and runs Refresh.
  void FullPathName(std::string_view path);
  void Refresh();

  /// True when the file has a version resource.
  [[nodiscard]] bool Available() const { return available_; }
  [[nodiscard]] const std::string& FileVersion() const { return fileVersion_; }

 private:
  std::string fullPathName_;
  bool available_ = false;
  std::string fileVersion_;
};

}  // namespace tavrin
