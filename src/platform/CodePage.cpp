#include "platform/CodePage.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace tavrin {
namespace {

constexpr std::size_t Index(char byte) { return static_cast<unsigned char>(byte); }
constexpr char Byte(std::size_t index) { return static_cast<char>(static_cast<unsigned char>(index)); }

/// Windows-1252 from 0x80 to 0x9F; the rest of the page is Latin-1. It stands here so that a program has its usual
/// page before it has asked the system for anything.
constexpr std::array<char32_t, 32> k1252 = {0x20AC, 0x81,   0x201A, 0x192,  0x201E, 0x2026, 0x2020, 0x2021,
                                            0x2C6,  0x2030, 0x160,  0x2039, 0x152,  0x8D,   0x17D,  0x8F,
                                            0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                            0x2DC,  0x2122, 0x161,  0x203A, 0x153,  0x9D,   0x17E,  0x178};

struct CasePair {
  std::uint8_t upper;
  std::uint8_t lower;
};
/// Letters of 1252 whose cases are not 32 apart.
constexpr std::array<CasePair, 4> k1252Pairs = {{{0x8A, 0x9A}, {0x8C, 0x9C}, {0x8E, 0x9E}, {0x9F, 0xFF}}};

constexpr bool IsUpperOf1252(std::size_t byte) {
  return (byte >= 'A' && byte <= 'Z') || (byte >= 0xC0 && byte <= 0xDE && byte != 0xD7);
}

constexpr CodePage Make1252() {
  CodePage page;
  for (std::size_t byte = 0; byte < 256; ++byte) {
    page.unicode[byte] = byte >= 0x80 && byte < 0xA0 ? k1252[byte - 0x80] : static_cast<char32_t>(byte);
    page.upper[byte] = page.lower[byte] = Byte(byte);
  }
  const auto pair = [&page](std::size_t upper, std::size_t lower) {
    page.lower[upper] = Byte(lower);
    page.upper[lower] = Byte(upper);
  };
  for (std::size_t byte = 0; byte < 256; ++byte) {
    if (IsUpperOf1252(byte)) pair(byte, byte + 32);
  }
  for (const CasePair& letters : k1252Pairs) pair(letters.upper, letters.lower);
  return page;
}

/// The page in use with its way back from Unicode, sorted by character.
struct PageInUse {
  explicit PageInUse(const CodePage& newPage) : page(newPage) {
    for (std::size_t byte = 0; byte < 256; ++byte) bytes[byte] = {page.unicode[byte], Byte(byte)};
    std::stable_sort(bytes.begin(), bytes.end(),
                     [](const auto& left, const auto& right) { return left.first < right.first; });
  }

  [[nodiscard]] std::optional<char> ByteOf(char32_t character) const {
    const auto found = std::lower_bound(bytes.begin(), bytes.end(), character,
                                        [](const auto& entry, char32_t wanted) { return entry.first < wanted; });
    if (found == bytes.end() || found->first != character) return std::nullopt;
    return found->second;
  }

  CodePage page;
  std::array<std::pair<char32_t, char>, 256> bytes;
};

PageInUse& InUse() {
  static PageInUse inUse(Make1252());
  return inUse;
}

std::string Mapped(std::string_view text, const std::array<char, 256>& table) {
  std::string result(text);
  for (char& c : result) c = table[Index(c)];
  return result;
}

char Continuation(char32_t character, int shift) { return static_cast<char>(0x80 | ((character >> shift) & 0x3F)); }

void AppendUtf8(std::string& out, char32_t c) {
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += {static_cast<char>(0xC0 | (c >> 6)), Continuation(c, 0)};
  } else if (c < 0x10000) {
    out += {static_cast<char>(0xE0 | (c >> 12)), Continuation(c, 6), Continuation(c, 0)};
  } else {
    out += {static_cast<char>(0xF0 | (c >> 18)), Continuation(c, 12), Continuation(c, 6), Continuation(c, 0)};
  }
}

/// How a UTF-8 sequence starts: the marked bits of its first byte, its length and the first character that needs it.
struct Utf8Form {
  unsigned mask;
  unsigned mark;
  std::size_t length;
  char32_t lowest;
};
constexpr std::array<Utf8Form, 4> kUtf8Forms = {
    {{0x80, 0x00, 1, 0}, {0xE0, 0xC0, 2, 0x80}, {0xF0, 0xE0, 3, 0x800}, {0xF8, 0xF0, 4, 0x10000}}};

/// Takes the first character off; nothing when the text does not start with a valid one (a shorter form exists, a
/// surrogate, behind the last character, cut off).
std::optional<char32_t> TakeUtf8(std::string_view& text) {
  const auto first = static_cast<unsigned char>(text.front());
  const auto* form = std::find_if(kUtf8Forms.begin(), kUtf8Forms.end(),
                                  [first](const Utf8Form& f) { return (first & f.mask) == f.mark; });
  if (form == kUtf8Forms.end() || text.size() < form->length) return std::nullopt;
  char32_t character = first & ~form->mask;
  for (std::size_t at = 1; at < form->length; ++at) {
    const auto next = static_cast<unsigned char>(text[at]);
    if ((next & 0xC0U) != 0x80U) return std::nullopt;
    character = (character << 6) | (next & 0x3FU);
  }
  if (character < form->lowest || character > 0x10FFFF) return std::nullopt;
  if (character >= 0xD800 && character < 0xE000) return std::nullopt;
  text.remove_prefix(form->length);
  return character;
}

}  // namespace

const CodePage& ActiveCodePage() { return InUse().page; }

void UseCodePage(const CodePage& page) { InUse() = PageInUse(page); }

std::string UpperCase(std::string_view text) { return Mapped(text, ActiveCodePage().upper); }

std::string LowerCase(std::string_view text) { return Mapped(text, ActiveCodePage().lower); }

bool EqualIgnoringCase(std::string_view left, std::string_view right) {
  const auto& upper = ActiveCodePage().upper;
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [&upper](char a, char b) { return upper[Index(a)] == upper[Index(b)]; });
}

std::string ToUtf8(std::string_view text) {
  const auto& unicode = ActiveCodePage().unicode;
  std::string utf8;
  utf8.reserve(text.size());
  for (const char byte : text) AppendUtf8(utf8, unicode[Index(byte)]);
  return utf8;
}

std::optional<std::string> FromUtf8(std::string_view utf8) {
  const PageInUse& inUse = InUse();
  std::string text;
  text.reserve(utf8.size());
  while (!utf8.empty()) {
    const std::optional<char32_t> character = TakeUtf8(utf8);
    const std::optional<char> byte = character ? inUse.ByteOf(*character) : std::nullopt;
    if (!byte) return std::nullopt;
    text += *byte;
  }
  return text;
}

}  // namespace tavrin
