#include "app/ctl/PlainText.h"

#include <algorithm>
#include <string>

#include "platform/CodePage.h"

namespace tavrin {

namespace {

constexpr std::size_t kPiece = 4096;  // texts may be as long as a damaged file

bool IsControl(char c) {
  const char32_t code = ActiveCodePage().unicode[static_cast<unsigned char>(c)];
  return code < 0x20 || (code >= 0x7F && code < 0xA0);
}

/// With control characters as \xNN.
std::string Escaped(std::string_view text) {
  static constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string escaped;
  escaped.reserve(4 * text.size());
  for (const char c : text) {
    if (!IsControl(c)) {
      escaped += c;
      continue;
    }
    const auto code = static_cast<unsigned char>(c);
    escaped.append("\\x").append(1, kDigits[code / 16]).append(1, kDigits[code % 16]);
  }
  return escaped;
}

void PrintColumn(std::FILE* to, std::string_view text) {
  while (!text.empty()) {
    const std::string piece = ToUtf8(Escaped(text.substr(0, kPiece)));
    std::fwrite(piece.data(), 1, piece.size(), to);
    text.remove_prefix(std::min(kPiece, text.size()));
  }
}

}  // namespace

void PrintLine(std::FILE* to, std::initializer_list<std::string_view> columns) {
  bool first = true;
  for (const std::string_view column : columns) {
    if (!first) std::fputc('\t', to);
    PrintColumn(to, column);
    first = false;
  }
  std::fputc('\n', to);
}

void AppendLine(std::string& to, std::initializer_list<std::string_view> columns) {
  const char* separator = "";
  for (const std::string_view column : columns) {
    to.append(separator).append(ToUtf8(Escaped(column)));
    separator = "\t";
  }
  to += '\n';
}

void Tell(std::string utf8) {
  std::replace_if(
      utf8.begin(), utf8.end(), [](unsigned char c) { return c < 0x20 || c == 0x7F; }, '?');
  const std::string line = "tavrinctl: " + utf8 + "\n";
  std::fwrite(line.data(), 1, line.size(), stderr);
}

}  // namespace tavrin
