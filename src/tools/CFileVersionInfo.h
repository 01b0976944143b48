#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/version/VersionBlock.h"

namespace tavrin {

/// The version resource of one file as texts: what its author typed (FileVersion, CompanyName, ...) and, apart from
/// that, what the fixed block of numbers says (VerFile, FileOS, ...). A file without a resource leaves all texts as
/// they were; nothing fails visibly.
class CFileVersionInfo {
 public:
  [[nodiscard]] const std::string& FullPathName() const { return fullPathName_; }
  /// Stores the path and runs Refresh.
  void FullPathName(std::string_view path);
  void Refresh();

  /// True when the file has a version resource.
  [[nodiscard]] bool Available() const { return available_; }

  /// Versions from the fixed block: of the block itself, of the file, of the product.
  [[nodiscard]] const std::string& VerStructure() const { return verStructure_; }
  [[nodiscard]] const std::string& VerFile() const { return verFile_; }
  [[nodiscard]] const std::string& VerProduct() const { return verProduct_; }
  /// "Debug", "PreRel", "Patched", "Private", "Info" and "Special", separated by blanks.
  [[nodiscard]] const std::string& FileFlags() const { return fileFlags_; }
  [[nodiscard]] const std::string& FileOS() const { return fileOS_; }
  [[nodiscard]] const std::string& FileType() const { return fileType_; }
  [[nodiscard]] const std::string& FileSubType() const { return fileSubType_; }

  /// English name of the language of the first translation.
  [[nodiscard]] const std::string& Language() const { return values_[0]; }
  [[nodiscard]] const std::string& Comments() const { return values_[1]; }
  [[nodiscard]] const std::string& CompanyName() const { return values_[2]; }
  [[nodiscard]] const std::string& FileDescription() const { return values_[3]; }
  [[nodiscard]] const std::string& FileVersion() const { return values_[4]; }
  [[nodiscard]] const std::string& InternalName() const { return values_[5]; }
  [[nodiscard]] const std::string& LegalCopyright() const { return values_[6]; }
  [[nodiscard]] const std::string& LegalTrademarks() const { return values_[7]; }
  [[nodiscard]] const std::string& OriginalFilename() const { return values_[8]; }
  [[nodiscard]] const std::string& ProductName() const { return values_[9]; }
  [[nodiscard]] const std::string& ProductVersion() const { return values_[10]; }
  [[nodiscard]] const std::string& PrivateBuild() const { return values_[11]; }
  [[nodiscard]] const std::string& SpecialBuild() const { return values_[12]; }

  /// The standard fields by number, 0 to 14; empty outside.
  [[nodiscard]] static std::string PredefinedName(std::int32_t index);
  [[nodiscard]] std::string PredefinedValue(std::int32_t index) const;

  /// Upper-case hexadecimal with zeros in front, cut to its last `digits` characters.
  [[nodiscard]] static std::string FmtHex(std::int32_t value, std::size_t digits);
  /// The text at a path of the resource, up to its first NUL; empty when there is none.
  [[nodiscard]] static std::string GetStdValue(const VersionBlock& buffer, std::string_view path);

 private:
  void TakeFixedBlock(std::string_view block);
  void TakeStrings(const VersionBlock& buffer, std::uint16_t language, std::uint16_t codePage);

  std::string fullPathName_;
  bool available_ = false;
  std::string verStructure_;
  std::string verFile_;
  std::string verProduct_;
  std::string fileFlags_;
  std::string fileOS_;
  std::string fileType_;
  std::string fileSubType_;
  std::array<std::string, 15> values_;  ///< by number
};

}  // namespace tavrin
