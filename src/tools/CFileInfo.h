#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/DateTime.h"

namespace tavrin {

/// One file on the disk: its names, sizes, times and attributes. Filled by one search in the directory; reading a
/// property never touches the disk again. An unknown file leaves everything empty, zero and false.
class CFileInfo {
 public:
  [[nodiscard]] const std::string& FullPathName() const { return fullPathName_; }
  /// Stores the path and runs Refresh.
  void FullPathName(std::string_view path);
  void Refresh();

  [[nodiscard]] const std::string& FileName() const { return fileName_; }
  [[nodiscard]] const DateTime& CreationTime() const { return creationTime_; }

  [[nodiscard]] static std::string FormatFileDate(const DateTime& date);
  [[nodiscard]] static std::string FormatFileSize(std::int32_t size);

 private:
  std::string fullPathName_;
  std::string fileName_;
  DateTime creationTime_;
};

}  // namespace tavrin
