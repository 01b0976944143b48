#include "tools/CFileVersionInfo.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <span>

#include <fmt/format.h>

#include "model/shared/modMain.h"
#include "platform/Files.h"
#include "platform/LanguageTable.h"
#include "platform/Regional.h"
#include "platform/version/Bytes.h"
#include "platform/version/VersionResource.h"

namespace tavrin {
namespace {

struct Field {
  std::string_view name;  ///< for people
  std::string_view key;   ///< in the string table; empty for the language, which is not in it
};
constexpr std::array<Field, 15> kFields = {{{"Language", ""},
                                            {"Comments", "Comments"},
                                            {"Company Name", "CompanyName"},
                                            {"File Description", "FileDescription"},
                                            {"File Version", "FileVersion"},
                                            {"Internal Name", "InternalName"},
                                            {"Legal Copyright", "LegalCopyright"},
                                            {"Legal Trademarks", "LegalTrademarks"},
                                            {"Original Filename", "OriginalFilename"},
                                            {"Product Name", "ProductName"},
                                            {"Product Version", "ProductVersion"},
                                            {"Private Build", "PrivateBuild"},
                                            {"Special Build", "SpecialBuild"},
                                            {"LegalTrademarks1", "LegalTrademarks1"},
                                            {"LegalTrademarks2", "LegalTrademarks2"}}};
constexpr std::size_t kLanguage = 0;
constexpr std::size_t kCompanyName = 2;
constexpr std::uint16_t kUsEnglish = 1033;

// VS_FIXEDFILEINFO, as Microsoft publishes it: offsets of its numbers.
constexpr std::size_t kFixedSize = 52;
constexpr std::size_t kStructureVersion = 4;
constexpr std::size_t kFileVersion = 8;  // its upper half, then the lower one
constexpr std::size_t kProductVersion = 16;
constexpr std::size_t kFlags = 28;
constexpr std::size_t kSystem = 32;
constexpr std::size_t kType = 36;
constexpr std::size_t kSubtype = 40;

struct Word {
  std::uint32_t value;
  std::string_view text;
};
constexpr std::array<Word, 6> kFlagWords = {
    {{1, "Debug "}, {2, "PreRel "}, {4, "Patched "}, {8, "Private "}, {16, "Info "}, {32, "Special "}}};
constexpr std::array<Word, 5> kSystems = {{{0x10001, "DOS-Win16"},
                                           {0x10004, "DOS-Win32"},
                                           {0x20002, "OS/2-16 PM-16"},
                                           {0x30003, "OS/2-16 PM-32"},
                                           {0x40004, "NT-Win32"}}};
constexpr std::uint32_t kDriver = 3;
constexpr std::uint32_t kFont = 4;
constexpr std::array<Word, 6> kTypes = {
    {{1, "Application"}, {2, "DLL"}, {kDriver, "Driver"}, {kFont, "Font"}, {5, "VxD"}, {7, "Lib"}}};
constexpr std::array<Word, 11> kDriverTypes = {{{0, "Unknown"},
                                                {1, "Printer drv"},
                                                {2, "Keyboard drv"},
                                                {3, "Language drv"},
                                                {4, "Display drv"},
                                                {5, "Mouse drv"},
                                                {6, "Network drv"},
                                                {7, "System drv"},
                                                {8, "Installable"},
                                                {9, "Sound drv"},
                                                {10, "Comm drv"}}};
constexpr std::array<Word, 3> kFontTypes = {{{1, "Raster Font"}, {2, "Vector Font"}, {3, "TrueType Font"}}};

std::optional<std::string_view> TextOf(std::span<const Word> words, std::uint32_t value) {
  const auto found =
      std::find_if(words.begin(), words.end(), [value](const Word& word) { return word.value == value; });
  return found == words.end() ? std::nullopt : std::optional(found->text);
}

std::optional<std::string_view> SubtypeOf(std::uint32_t type, std::uint32_t subtype) {
  if (type == kDriver) return TextOf(kDriverTypes, subtype);
  if (type == kFont) return TextOf(kFontTypes, subtype);
  return std::nullopt;
}

std::uint32_t High(std::uint32_t number) { return number >> 16; }
std::uint32_t Low(std::uint32_t number) { return number & 0xFFFF; }

/// Three groups, as users know the versions of these programs: a fourth number joins the third without a point.
std::string VersionText(std::uint32_t upper, std::uint32_t lower) {
  const std::string last =
      High(lower) > 0 ? fmt::format("{:02}{:02}", High(lower), Low(lower)) : fmt::format("{:04}", Low(lower));
  return fmt::format("{:02}.{:02}.{}", High(upper), Low(upper), last);
}

std::string TablePath(std::uint16_t language, std::uint16_t codePage) {
  return "\\StringFileInfo\\" + CFileVersionInfo::FmtHex(language, 4) + CFileVersionInfo::FmtHex(codePage, 4) + "\\";
}

std::optional<VersionBlock> ReadBlock(std::string_view path) {
  std::optional<VersionBlock> block;
  modMain::IgnoreErrors([&] {
    const Services& services = modMain::Platform();
    const std::unique_ptr<InputFile> file = services.files.Open(path);
    auto bytes = ReadVersionResource(*file, services.around.regional.LanguageId());
    if (bytes) block.emplace(std::move(*bytes));
  });
  return block;
}

}  // namespace

void CFileVersionInfo::FullPathName(std::string_view path) {
  fullPathName_ = path;
  Refresh();
}

void CFileVersionInfo::Refresh() {
  const std::optional<VersionBlock> buffer = ReadBlock(fullPathName_);
  available_ = buffer.has_value();
  if (!buffer) return;
  const auto fixed = buffer->Query("\\");
  if (fixed && fixed->size() >= kFixedSize) TakeFixedBlock(*fixed);
  auto translation = buffer->Query("\\VarFileInfo\\Translation");
  if (!translation || translation->empty()) return;
  translation->resize(4);
  TakeStrings(*buffer, WordAt(*translation, 0), WordAt(*translation, 2));
}

void CFileVersionInfo::TakeFixedBlock(std::string_view block) {
  const auto number = [block](std::size_t at) { return DoubleWordAt(block, at); };
  const std::uint32_t structure = number(kStructureVersion);
  verStructure_ = fmt::format("{:02}.{:02}", High(structure), Low(structure));
  verFile_ = VersionText(number(kFileVersion), number(kFileVersion + 4));
  verProduct_ = VersionText(number(kProductVersion), number(kProductVersion + 4));
  std::string flags;
  for (const Word& word : kFlagWords) {
    if ((number(kFlags) & word.value) != 0) flags += word.text;
  }
  fileFlags_ = modMain::TrimBlanks(flags);
  fileOS_ = TextOf(kSystems, number(kSystem)).value_or("Unknown");
  fileType_ = TextOf(kTypes, number(kType)).value_or("Unknown");
  fileSubType_ = SubtypeOf(number(kType), number(kSubtype)).value_or(fileSubType_);
}

void CFileVersionInfo::TakeStrings(const VersionBlock& buffer, std::uint16_t language, std::uint16_t codePage) {
  values_[kLanguage] = LanguageName(language);
  std::string path = TablePath(language, codePage);
  const auto value = [&buffer](const std::string& table, std::size_t field) {
    return GetStdValue(buffer, table + std::string(kFields[field].key));
  };
  // The company's name alone decides whether the English table is the better one: every maker fills it in.
  if (value(path, kCompanyName).empty()) {
    const std::string english = TablePath(kUsEnglish, codePage);
    if (!value(english, kCompanyName).empty()) path = english;
  }
  for (std::size_t field = kLanguage + 1; field < kFields.size(); ++field) values_[field] = value(path, field);
}

std::string CFileVersionInfo::PredefinedName(std::int32_t index) {
  const auto field = static_cast<std::size_t>(index);
  return field < kFields.size() ? std::string(kFields[field].name) : std::string{};
}

std::string CFileVersionInfo::PredefinedValue(std::int32_t index) const {
  const auto field = static_cast<std::size_t>(index);
  return field < values_.size() ? values_[field] : std::string{};
}

std::string CFileVersionInfo::FmtHex(std::int32_t value, std::size_t digits) {
  const std::string all = std::string(digits, '0') + fmt::format("{:X}", static_cast<std::uint32_t>(value));
  return all.substr(all.size() - digits);
}

std::string CFileVersionInfo::GetStdValue(const VersionBlock& buffer, std::string_view path) {
  const auto value = buffer.Query(path);
  return value ? value->substr(0, value->find('\0')) : std::string{};
}

}  // namespace tavrin
