#include "app/session/Script.h"

#include <charconv>

#include "platform/CodePage.h"

namespace tavrin {

namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

struct Unreadable {
  std::string message;
};

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// Cuts the first line off; it may end in CR, LF or both.
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = text.find_first_of("\r\n");
  const std::string_view line = text.substr(0, end);
  if (end == std::string_view::npos) {
    text = {};
    return line;
  }
  text.remove_prefix(end + (text.substr(end, 2) == "\r\n" ? 2 : 1));
  return line;
}

void CheckCharacters(std::string_view line) {
  if (line.size() > ScriptParser::kLongestLine) throw Unreadable{"the line is too long"};
  for (const char c : line) {
    if (static_cast<unsigned char>(c) < 0x20 && c != '\t') throw Unreadable{"there is a control character in the line"};
  }
}

/// A character below U+0100 as UTF-8.
std::string Character(unsigned code) {
  if (code < 0x80) return {static_cast<char>(code)};
  return {static_cast<char>(0xC0 | (code >> 6)), static_cast<char>(0x80 | (code & 0x3F))};
}

/// The two hexadecimal digits of "$xNN".
unsigned TakeNumber(std::string_view& rest) {
  const std::string_view digits = rest.substr(0, 2);
  unsigned code = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), code, 16);
  if (digits.size() < 2 || read.ptr != digits.data() + digits.size() || code == 0) {
    throw Unreadable{"$x wants the two hexadecimal digits of a character, not of 00"};
  }
  rest.remove_prefix(2);
  return code;
}

}  // namespace

bool ScriptParser::Parse(std::string_view text) {
  lines_.clear();
  fault_ = {};
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  int number = 0;
  try {
    while (!text.empty()) {
      ++number;
      ParseLine(number, TakeLine(text));
    }
  } catch (const Unreadable& reason) {
    lines_.clear();
    fault_ = {number, reason.message};
    return false;
  }
  return true;
}

void ScriptParser::ParseLine(int number, std::string_view text) {
  CheckCharacters(text);
  text = Trimmed(text);
  if (text.empty() || text.front() == '#') return;
  ScriptLine line{number, std::string(text), {}};
  std::size_t size = 0;
  while (!text.empty()) {
    const std::string word = TakeWord(text);
    size += word.size();
    if (size > kLongestWords) throw Unreadable{"the words of the line are too long"};
    auto known = FromUtf8(word);
    if (!known) throw Unreadable{"there is a character in the line that the code page of project files does not have"};
    line.words.push_back(std::move(*known));
    text = Trimmed(text);
  }
  lines_.push_back(std::move(line));
}

std::string ScriptParser::TakeWord(std::string_view& rest) const {
  const bool quoted = rest.front() == '"';
  if (quoted) rest.remove_prefix(1);
  std::string word;
  while (quoted || (!rest.empty() && kBlanks.find(rest.front()) == std::string_view::npos)) {
    if (rest.empty()) throw Unreadable{"a quotation mark is missing"};
    const char c = rest.front();
    rest.remove_prefix(1);
    if (c == '$') {
      TakeEscape(rest, word);
    } else if (c != '"') {
      word += c;
    } else if (quoted && rest.starts_with('"')) {
      word += c;
      rest.remove_prefix(1);
    } else if (quoted && (rest.empty() || kBlanks.find(rest.front()) != std::string_view::npos)) {
      break;
    } else {
      throw Unreadable{"a quotation mark stands in a word: write it twice, and the word between quotation marks"};
    }
    if (word.size() > kLongestWords) throw Unreadable{"the words of the line are too long"};
  }
  return word;
}

void ScriptParser::TakeEscape(std::string_view& rest, std::string& word) const {
  const char c = rest.empty() ? '\0' : rest.front();
  if (!rest.empty()) rest.remove_prefix(1);
  switch (c) {
    case '$': word += '$'; break;
    case 'n': word += '\n'; break;
    case 'r': word += '\r'; break;
    case 't': word += '\t'; break;
    case 'x': word += Character(TakeNumber(rest)); break;
    default: TakeArgument(c, word);
  }
}

void ScriptParser::TakeArgument(char digit, std::string& word) const {
  if (digit < '1' || digit > '9') throw Unreadable{"behind $ stands none of 1 to 9, n, r, t, x and $"};
  const auto position = static_cast<std::size_t>(digit - '1');
  if (position >= arguments_.size()) {
    throw Unreadable{std::string("the script was called without argument $") + digit};
  }
  word += arguments_[position];
}

}  // namespace tavrin
