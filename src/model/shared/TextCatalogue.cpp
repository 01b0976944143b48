#include "model/shared/TextCatalogue.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>

#include "model/shared/modMain.h"
#include "platform/CodePage.h"
#include "platform/RuntimeError.h"

namespace tavrin {
namespace {

/// No catalogue comes near this size in bytes; a larger file is something else and is not read into memory.
constexpr std::uint64_t kLargestFile = 1 << 20;

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

constexpr auto kByNumber = [](const CatalogueText& left, const CatalogueText& right) {
  return left.number < right.number;
};

/// The first line without its end; `rest` then starts with the next one.
std::string_view TakeLine(std::string_view& rest) {
  const std::size_t end = rest.find('\n');
  std::string_view line = rest.substr(0, end);
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  return line;
}

std::string Unescape(std::string_view raw) {
  std::string text;
  text.reserve(raw.size());
  for (std::size_t at = 0; at < raw.size(); ++at) {
    const char next = raw[at] == '\\' && at + 1 < raw.size() ? raw[at + 1] : '\0';
    const bool escape = next == 'n' || next == '\\';
    text += next == 'n' ? '\n' : raw[at];
    if (escape) ++at;
  }
  return text;
}

/// Nothing for a comment and for a line that is not NUMBER=TEXT.
std::optional<CatalogueText> ParseLine(std::string_view line) {
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) return std::nullopt;
  CatalogueText entry;
  const char* const numberEnd = line.data() + equals;
  const auto [stop, error] = std::from_chars(line.data(), numberEnd, entry.number);
  if (error != std::errc() || stop != numberEnd || entry.number < 0) return std::nullopt;
  entry.text = Unescape(line.substr(equals + 1));
  return entry;
}

/// Length of the first character in bytes; a byte that is no part of a character counts alone.
std::size_t CharacterLength(std::string_view utf8) {
  const auto isContinuation = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; };
  if (static_cast<unsigned char>(utf8.front()) < 0xC0U) return 1;
  const auto end = std::find_if_not(utf8.begin() + 1, utf8.end(), isContinuation);
  return static_cast<std::size_t>(end - utf8.begin());
}

std::string InCodePage(std::string_view utf8) {
  if (auto whole = FromUtf8(utf8)) return *std::move(whole);
  std::string text;
  while (!utf8.empty()) {
    const std::size_t length = CharacterLength(utf8);
    text += FromUtf8(utf8.substr(0, length)).value_or("?");
    utf8.remove_prefix(length);
  }
  return text;
}

}  // namespace

std::vector<CatalogueText> ParseCatalogue(std::string_view file) {
  if (file.substr(0, kByteOrderMark.size()) == kByteOrderMark) file.remove_prefix(kByteOrderMark.size());
  std::vector<CatalogueText> texts;
  while (!file.empty()) {
    if (auto entry = ParseLine(TakeLine(file))) texts.push_back(*std::move(entry));
  }
  std::stable_sort(texts.begin(), texts.end(), kByNumber);
  const auto sameNumber = [](const CatalogueText& left, const CatalogueText& right) {
    return left.number == right.number;
  };
  texts.erase(std::unique(texts.begin(), texts.end(), sameNumber), texts.end());
  return texts;
}

void TextCatalogue::Init() {
  const bool german = !Texts(kGerman).empty();
  const bool english = !Texts(kEnglish).empty();
  if (!german && !english) throw RuntimeError(ErrorNumber::FileNotFound);
}

std::string TextCatalogue::LoadText(int number, int language) {
  const std::vector<CatalogueText>& texts = Texts(language);
  const auto found = std::lower_bound(texts.begin(), texts.end(), CatalogueText{number, {}}, kByNumber);
  if (found == texts.end() || found->number != number) return {};
  return InCodePage(found->text);
}

const std::vector<CatalogueText>& TextCatalogue::Texts(int language) {
  const auto known = languages_.find(language);
  if (known != languages_.end()) return known->second;
  return languages_.emplace(language, Read(language)).first->second;
}

std::vector<CatalogueText> TextCatalogue::Read(int language) const {
  std::vector<CatalogueText> texts;
  // A file that cannot be read leaves its language without texts, as if it were missing.
  modMain::IgnoreErrors([&] {
    const std::string path = directory_ + std::to_string(language) + ".txt";
    const std::optional<FileStatus> status = files_.Status(path);
    if (!status || status->directory || status->stamp.size > kLargestFile) return;
    texts = ParseCatalogue(files_.ReadAll(path));
  });
  return texts;
}

}  // namespace tavrin
