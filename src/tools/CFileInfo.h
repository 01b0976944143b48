#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/DateTime.h"
#include "platform/FileProperties.h"

namespace tavrin {

/// One file on the disk: its names, sizes, times and attributes. Filled by one search in the directory; reading a
/// property never touches the disk again. An unknown file leaves everything empty, zero and false.
class CFileInfo {
 public:
  [[nodiscard]] const std::string& FullPathName() const { return fullPathName_; }
  /// Stores the path and runs Refresh.
  void FullPathName(std::string_view path);
  /// Reads everything anew. FullPathName then has the file system's spelling, also in its folders.
  void Refresh();

  [[nodiscard]] const std::string& FileName() const { return names_.fileName; }
  /// The folder, with a separator at its end.
  [[nodiscard]] const std::string& FilePath() const { return names_.filePath; }
  /// What stands behind the last point of the name.
  [[nodiscard]] const std::string& FileExtension() const { return names_.fileExtension; }
  /// Names of eight and three characters; where the disk has none, ShortName is the name in upper case and the paths
  /// are the long ones. Paths of more than 259 characters have no short form.
  [[nodiscard]] const std::string& ShortPathName() const { return names_.shortPathName; }
  [[nodiscard]] const std::string& ShortName() const { return names_.shortName; }
  [[nodiscard]] const std::string& ShortPath() const { return names_.shortPath; }
  [[nodiscard]] const std::string& DisplayName() const { return names_.displayName; }
  [[nodiscard]] const std::string& TypeName() const { return names_.typeName; }

  [[nodiscard]] bool FileExists() const { return exists_; }
  [[nodiscard]] bool PathExists() const { return exists_; }

  /// Lower and upper half of a size in bytes. The lower half of a file of more than 2 GB is negative.
  [[nodiscard]] std::int32_t FileSize() const { return LowHalf(record_.size); }
  [[nodiscard]] std::int32_t FileSizeHigh() const { return LowHalf(record_.size >> 32); }
  [[nodiscard]] std::int32_t CompressedFileSize() const { return LowHalf(record_.compressedSize); }
  [[nodiscard]] std::int32_t CompressedFileSizeHigh() const { return LowHalf(record_.compressedSize >> 32); }

  /// Local time. Setting changes that time of the file alone; a time that the disk does not take stays what it was.
  [[nodiscard]] const DateTime& CreationTime() const { return creationTime_; }
  void CreationTime(const DateTime& time) { SetTime(FileTime::Creation, time, creationTime_); }
  [[nodiscard]] const DateTime& LastAccessTime() const { return lastAccessTime_; }
  void LastAccessTime(const DateTime& time) { SetTime(FileTime::LastAccess, time, lastAccessTime_); }
  [[nodiscard]] const DateTime& ModifyTime() const { return modifyTime_; }
  void ModifyTime(const DateTime& time) { SetTime(FileTime::Modification, time, modifyTime_); }

  /// Bits of FileAttribute. Setting changes the file, when there is one, and reads everything anew.
  [[nodiscard]] std::int32_t Attributes() const { return LowHalf(record_.attributes); }
  void Attributes(std::int32_t attributes);
  [[nodiscard]] bool attrReadOnly() const { return Has(kReadOnly); }
  void attrReadOnly(bool value) { SetAttribute(kReadOnly, value); }
  [[nodiscard]] bool attrHidden() const { return Has(kHidden); }
  void attrHidden(bool value) { SetAttribute(kHidden, value); }
  [[nodiscard]] bool attrSystem() const { return Has(kSystem); }
  void attrSystem(bool value) { SetAttribute(kSystem, value); }
  [[nodiscard]] bool attrArchive() const { return Has(kArchive); }
  void attrArchive(bool value) { SetAttribute(kArchive, value); }
  /// Setting the last two does nothing: no attribute word makes a file temporary or compressed.
  [[nodiscard]] bool attrTemporary() const { return Has(kTemporary); }
  void attrTemporary(bool) {}
  [[nodiscard]] bool attrCompressed() const { return Has(kCompressed); }
  void attrCompressed(bool) {}

  /// The desktop's picture of the file: always 0, there is none without a desktop that keeps such numbers.
  [[nodiscard]] std::int32_t hIcon() const { return 0; }

  /// Date and time of day as the user writes them.
  [[nodiscard]] static std::string FormatFileDate(const DateTime& date);
  /// E.g. "1,00KB (1.024 bytes)". Steps of a thousand, shown in units of 1024: a file is "0.98MB", never "1000KB".
  [[nodiscard]] static std::string FormatFileSize(std::int32_t size);

 private:
  struct Names {
    std::string fileName;
    std::string filePath;
    std::string fileExtension;
    std::string shortPathName;
    std::string shortName;
    std::string shortPath;
    std::string displayName;
    std::string typeName;
  };

  [[nodiscard]] static std::int32_t LowHalf(std::uint64_t value) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
  }
  [[nodiscard]] bool Has(FileAttribute bit) const { return (record_.attributes & bit) != 0; }
  void SetAttribute(FileAttribute bit, bool value);
  void SetTime(FileTime which, const DateTime& time, DateTime& kept);
  void TakeTimes();
  void TakeNames();
  void TakeShortNames();

  std::string fullPathName_;
  bool exists_ = false;
  FileRecord record_;
  Names names_;
  DateTime creationTime_;
  DateTime lastAccessTime_;
  DateTime modifyTime_;
};

}  // namespace tavrin
