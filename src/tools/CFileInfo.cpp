#include "tools/CFileInfo.h"

#include <array>
#include <optional>

#include "model/shared/modMain.h"
#include "platform/CodePage.h"
#include "platform/Files.h"
#include "platform/Regional.h"
#include "tools/PathSpelling.h"

namespace tavrin {
namespace {

/// Characters that the platform's short paths have room for.
constexpr std::size_t kLongestShortPath = 259;

const Surroundings& Around() { return modMain::Platform().around; }

/// The text up to its first NUL.
std::string UpToNul(const std::string& text) { return text.substr(0, text.find('\0')); }

/// "#,##0" in the user's form.
std::string Grouped(std::int64_t number) {
  std::string digits = std::to_string(number);
  const std::string separator = Around().regional.GroupSeparator();
  const std::size_t first = number < 0 ? 1 : 0;
  for (std::size_t at = digits.size(); at > first + 3;) digits.insert(at -= 3, separator);
  return digits;
}

/// A unit of file sizes, for those below a number of kilobytes.
struct SizeRow {
  std::int64_t below;
  std::int64_t unit;  ///< bytes
  int decimals;
  std::string_view name;
};

constexpr std::int64_t kKilobyte = 1024;
constexpr std::int64_t kMegabyte = 1024 * kKilobyte;
constexpr std::int64_t kGigabyte = 1024 * kMegabyte;
constexpr std::array<SizeRow, 7> kSizeRows = {{{10, kKilobyte, 2, "KB"},
                                               {100, kKilobyte, 1, "KB"},
                                               {1000, kKilobyte, 0, "KB"},
                                               {10'000, kMegabyte, 2, "MB"},
                                               {100'000, kMegabyte, 1, "MB"},
                                               {1'000'000, kMegabyte, 0, "MB"},
                                               {INT64_MAX / kKilobyte, kGigabyte, 2, "GB"}}};

/// A quotient of positive numbers with so many decimals, half away from zero.
std::string Quotient(std::int64_t number, std::int64_t divisor, int decimals) {
  std::int64_t scale = 1;
  for (int at = 0; at < decimals; ++at) scale *= 10;
  const std::int64_t scaled = (2 * number * scale + divisor) / (2 * divisor);
  std::string text = std::to_string(scaled / scale);
  if (decimals > 0) text += Around().regional.DecimalSeparator() + std::to_string(scale + scaled % scale).substr(1);
  return text;
}

}  // namespace

void CFileInfo::FullPathName(std::string_view path) {
  fullPathName_ = path;
  Refresh();
}

void CFileInfo::Refresh() {
  std::string path = std::move(fullPathName_);
  *this = CFileInfo{};
  fullPathName_ = std::move(path);
  std::optional<FileRecord> found = Around().fileProperties.Find(fullPathName_);
  if (!found) return;
  record_ = std::move(*found);
  exists_ = true;
  TakeTimes();
  TakeNames();
  TakeShortNames();
}

void CFileInfo::TakeTimes() {
  Regional& regional = Around().regional;
  creationTime_ = regional.ToLocal(record_.creation);
  lastAccessTime_ = regional.ToLocal(record_.lastAccess);
  modifyTime_ = regional.ToLocal(record_.modification);
}

void CFileInfo::TakeNames() {
  names_.fileName = UpToNul(record_.name);
  const std::string_view path = fullPathName_;
  // A name alone lies in the current folder; its path must not become one from the root.
  const std::size_t folder = FolderLength(path);
  names_.filePath = folder == 0 ? "." : AsSpelledOnDisk(path.substr(0, folder));
  if (!names_.filePath.ends_with(kPathSeparator)) names_.filePath += kPathSeparator;
  fullPathName_ = names_.filePath + names_.fileName;
  const std::size_t point = names_.fileName.rfind('.');
  if (point != std::string::npos) names_.fileExtension = names_.fileName.substr(point + 1);
  names_.displayName = names_.fileName;
  names_.typeName = Around().fileProperties.TypeName(fullPathName_);
  if (names_.typeName.empty()) {
    names_.typeName = modMain::TrimBlanks(UpperCase(names_.fileExtension) + " File");
  }
}

void CFileInfo::TakeShortNames() {
  const std::string alternate = UpToNul(record_.alternateName);
  names_.shortName = alternate.empty() ? UpperCase(names_.fileName) : alternate;
  names_.shortPathName = Around().fileProperties.ShortPath(fullPathName_);
  if (names_.shortPathName.size() > kLongestShortPath) names_.shortPathName.clear();
  names_.shortPath = names_.shortPathName.substr(0, FolderLength(names_.shortPathName));
}

void CFileInfo::Attributes(std::int32_t attributes) {
  if (!exists_) return;
  static_cast<void>(Around().fileProperties.SetAttributes(fullPathName_, static_cast<std::uint32_t>(attributes)));
  Refresh();
}

void CFileInfo::SetAttribute(FileAttribute bit, bool value) {
  const std::uint32_t others = record_.attributes & ~std::uint32_t{bit};
  Attributes(LowHalf(value ? others | bit : others));
}

void CFileInfo::SetTime(FileTime which, const DateTime& time, DateTime& kept) {
  if (Around().fileProperties.SetTime(fullPathName_, which, Around().regional.FromLocal(time))) kept = time;
}

std::string CFileInfo::FormatFileDate(const DateTime& date) {
  Regional& regional = Around().regional;
  return regional.ShortDate(date) + " " + regional.LongTime(date);
}

std::string CFileInfo::FormatFileSize(std::int32_t size) {
  std::string bytes = Grouped(size) + " bytes";
  if (size < kKilobyte) return bytes;
  const SizeRow* row = kSizeRows.data();
  while (size >= row->below * kKilobyte) ++row;
  return Quotient(size, row->unit, row->decimals) + std::string(row->name) + " (" + bytes + ")";
}

}  // namespace tavrin
