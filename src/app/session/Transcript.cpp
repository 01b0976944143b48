#include "app/session/Transcript.h"

#include "platform/CodePage.h"

namespace tavrin {

namespace {

std::string Escaped(char c) {
  static constexpr std::string_view kDigits = "0123456789ABCDEF";
  switch (c) {
    case '"': return "\"\"";
    case '$': return "$$";
    case '\n': return "$n";
    case '\r': return "$r";
    case '\t': return "$t";
    default: break;
  }
  const char32_t code = ActiveCodePage().unicode[static_cast<unsigned char>(c)];
  if (code >= 0x20 && (code < 0x7F || code >= 0xA0)) return {c};
  return {'$', 'x', kDigits[code / 16], kDigits[code % 16]};
}

}  // namespace

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) quoted += Escaped(c);
  return ToUtf8(quoted + "\"");
}

}  // namespace tavrin
