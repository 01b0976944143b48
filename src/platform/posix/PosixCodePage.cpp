#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <string>

#include <iconv.h>
#include <locale.h>
#include <wctype.h>

#include "platform/CodePage.h"

namespace tavrin {
namespace {

/// A conversion of the system from a page to Unicode, one byte after the other.
class Converter {
 public:
  explicit Converter(const std::string& page) : handle_(iconv_open("UTF-32LE", page.c_str())) {}
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;
  ~Converter() {
    if (Known()) iconv_close(handle_);
  }

  // The system's mark of failure is the all-ones pointer.
  [[nodiscard]] bool Known() const { return reinterpret_cast<std::ptrdiff_t>(handle_) != -1; }

  /// The character of a byte, the byte's own number when it is unassigned; nothing when the byte is no character of
  /// its own, as in a multi-byte page.
  [[nodiscard]] std::optional<char32_t> Character(unsigned char byte) {
    char input = static_cast<char>(byte);
    std::array<char, 16> output{};
    char* from = &input;
    char* to = output.data();
    std::size_t fromLeft = 1;
    std::size_t toLeft = output.size();
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    if (iconv(handle_, &from, &fromLeft, &to, &toLeft) == kFailed) {
      return errno == EILSEQ ? std::optional<char32_t>(byte) : std::nullopt;
    }
    iconv(handle_, nullptr, nullptr, &to, &toLeft);  // some pages hold a character back until they know the next one
    if (output.size() - toLeft != 4) return std::nullopt;
    char32_t character = 0;
    for (std::size_t at = 4; at-- > 0;) character = (character << 8) | static_cast<unsigned char>(output[at]);
    return character;
  }

 private:
  static constexpr std::size_t kFailed = static_cast<std::size_t>(-1);
  iconv_t handle_;
};

/// Upper and lower case of all characters, whatever language the user has set.
class UnicodeCase {
 public:
  UnicodeCase() : locale_(newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr)) {}
  UnicodeCase(const UnicodeCase&) = delete;
  UnicodeCase& operator=(const UnicodeCase&) = delete;
  ~UnicodeCase() {
    if (Known()) freelocale(locale_);
  }

  [[nodiscard]] bool Known() const { return locale_ != nullptr; }
  [[nodiscard]] char32_t Upper(char32_t c) const { return static_cast<char32_t>(towupper_l(wint_t{c}, locale_)); }
  [[nodiscard]] char32_t Lower(char32_t c) const { return static_cast<char32_t>(towlower_l(wint_t{c}, locale_)); }

 private:
  locale_t locale_;
};

bool IsPageNumber(std::string_view number) {
  return !number.empty() && number.size() <= 5 &&
         std::all_of(number.begin(), number.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool ReadCharacters(const std::string& name, CodePage& page) {
  Converter converter(name);
  if (!converter.Known()) return false;
  for (std::size_t byte = 0; byte < 256; ++byte) {
    const std::optional<char32_t> character = converter.Character(static_cast<unsigned char>(byte));
    if (!character || (byte < 0x80 && *character != byte)) return false;
    page.unicode[byte] = *character;
  }
  return true;
}

char ByteOf(const CodePage& page, char32_t character, std::size_t otherwise) {
  const auto* found = std::find(page.unicode.begin(), page.unicode.end(), character);
  const std::size_t byte =
      found == page.unicode.end() ? otherwise : static_cast<std::size_t>(found - page.unicode.begin());
  return static_cast<char>(static_cast<unsigned char>(byte));
}

}  // namespace

std::optional<CodePage> MakeCodePage(std::string_view number) {
  const UnicodeCase unicodeCase;
  CodePage page;
  if (!IsPageNumber(number) || !unicodeCase.Known()) return std::nullopt;
  if (!ReadCharacters("CP" + std::string(number), page)) return std::nullopt;
  for (std::size_t byte = 0; byte < 256; ++byte) {
    page.upper[byte] = ByteOf(page, unicodeCase.Upper(page.unicode[byte]), byte);
    page.lower[byte] = ByteOf(page, unicodeCase.Lower(page.unicode[byte]), byte);
  }
  return page;
}

}  // namespace tavrin
