#include "platform/BestFit.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

#include "platform/CodePage.h"

namespace tavrin {
namespace {

/// What neighbours in the order of Unicode look like, from `first` on; "?" for nothing.
struct Likeness {
  char16_t first;
  std::u16string_view characters;
};

/// The choices of Windows for its page 1252, so that a text reads there and here alike; from 0xA0 to 0xFF, and for the
/// quotes and dashes that 1252 has itself, the plain letter or sign that serves a page without them.
constexpr std::array kLikenesses = std::to_array<Likeness>({
    {0x00A0, u" "},
    {0x00A8,
     u" ?a\"?-? ??23 ??? "
     u"1o\"113?AAAAAA?CEEEEIIII?NOOOOOxOUUUUY??aaaaaa?ceeeeiiii?nooooo?ouuuuy?"
     u"yAaAaAaCcCcCcCcDd\u00D0dEeEeEeEeEeGgGgGgGgHhHhIiIiIiIiIi??JjKk?LlLlLl??LlNnNnNn???OoOoOo??"
     u"RrRrRrSsSsSsSsTtTtTtUuUuUuUuUuUuWwYyYZzZzZz?b"},
    {0x0189, u"\u00D0"},
    {0x0191, u"\u0192?????I??l????OOo"},
    {0x01AB, u"t??TUu?????z"},
    {0x01C0, u"|?\?!"},
    {0x01CD, u"AaIiOoUuUuUuUuUu?Aa????GgGgKkOoOo??j"},
    {0x0261, u"g"},
    {0x02B9, u"'\"?'"},
    {0x02C4, u"^??\?'\u00AF\u00B4`?_"},
    {0x02DA, u"\u00B0"},
    {0x0300, u"`\u00B4^~\u00AF\u00AF??\u00A8?\u00B0???\""},
    {0x0327, u"\u00B8"},
    {0x0331, u"__"},
    {0x037E, u";"},
    {0x0393, u"G????T"},
    {0x03A3, u"S??F??O"},
    {0x03B1, u"a\u00DF?de"},
    {0x03BC, u"\u00B5???p??st?f"},
    {0x04BB, u"h"},
    {0x0589, u":"},
    {0x066A, u"%"},
    {0x2000, u"       "},
    {0x2010, u"--?--?\?='''?\"\"\"???*?\u00B7?."},
    {0x2032, u"'??`??\?<>"},
    {0x2044, u"/"},
    {0x2070, u"\u00B0???45678"},
    {0x207F, u"n0123456789"},
    {0x20A1, u"\u00A2??\u00A3??P"},
    {0x2102, u"C????E??gHHHh?IILl?N??PPQRRR"},
    {0x2124, u"Z???Z?K\u00C5BCeeEF?Mo"},
    {0x2205, u"\u00D8"},
    {0x2212, u"-\u00B1?/\\*\u00B0\u00B7v???8????|?????n"},
    {0x2236, u":?????~"},
    {0x2248, u"\u02DC"},
    {0x2261, u"=?\?==????\u00AB\u00BB"},
    {0x22C5, u"\u00B7"},
    {0x2302, u"\u00A6^"},
    {0x2310, u"\u00AC"},
    {0x2320, u"()"},
    {0x2329, u"<>"},
    {0x2500, u"-?\u00A6"},
    {0x250C, u"+???+???+???+???+"},
    {0x2524, u"\u00A6"},
    {0x252C, u"-"},
    {0x2534, u"-"},
    {0x253C, u"+"},
    {0x2550, u"-\u00A6++++++++++++\u00A6\u00A6\u00A6\u00A6\u00A6\u00A6------+++"},
    {0x2580, u"\u00AF???_???\u00A6???\u00A6???\u00A6\u00A6\u00A6\u00A6"},
    {0x25A0, u"\u00A6"},
    {0x263C, u"\u00A4"},
    {0x2758, u"|"},
    {0x3000, u" "},
    {0x3008, u"<>\u00AB\u00BB"},
    {0x301A, u"[]"},
    {0x30FB, u"\u00B7"},
    {0xFF01, u"!\"#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_`abcdefghijklmnopqrstuvwxyz{|}~"},
});

static_assert(std::is_sorted(kLikenesses.begin(), kLikenesses.end(),
                             [](const Likeness& left, const Likeness& right) { return left.first < right.first; }));

constexpr char16_t kNoLikeness = u'?';

char16_t LikenessOf(char16_t unit) {
  const auto* next = std::upper_bound(kLikenesses.begin(), kLikenesses.end(), unit,
                                      [](char16_t wanted, const Likeness& row) { return wanted < row.first; });
  if (next == kLikenesses.begin()) return kNoLikeness;
  const Likeness& row = *(next - 1);
  const std::size_t position = static_cast<std::size_t>(unit - row.first);
  return position < row.characters.size() ? row.characters[position] : kNoLikeness;
}

std::optional<char> ByteOf(char16_t unit) {
  const auto& unicode = ActiveCodePage().unicode;
  if (unit < 0x80) return static_cast<char>(unit);
  const auto* found = std::find(unicode.begin() + 0x80, unicode.end(), char32_t{unit});
  if (found == unicode.end()) return std::nullopt;
  return static_cast<char>(static_cast<unsigned char>(found - unicode.begin()));
}

}  // namespace

std::string FromUtf16(std::u16string_view text) {
  std::string result;
  result.reserve(text.size());
  for (const char16_t unit : text) {
    std::optional<char> byte = ByteOf(unit);
    if (!byte) byte = ByteOf(LikenessOf(unit));
    result += byte.value_or('?');
  }
  return result;
}

}  // namespace tavrin
