#include "platform/profile/ProfileLine.h"

namespace tavrin {
namespace {

constexpr std::string_view kBlanks = " \t\v\f\x1A";

bool IsBlank(char c) { return kBlanks.find(c) != std::string_view::npos; }

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::size_t ContentEnd(std::string_view bytes, std::size_t at) {
  while (at < bytes.size() && !IsLineEnd(bytes[at])) ++at;
  return at;
}

/// Behind the line end that stands at the offset, if there is one.
std::size_t SkipLineEnd(std::string_view bytes, std::size_t at) {
  if (at < bytes.size() && bytes[at] == '\r') ++at;
  if (at < bytes.size() && bytes[at] == '\n') ++at;
  return at;
}

void ReadHeader(ProfileLine& line, std::string_view text) {
  line.kind = ProfileLine::Kind::Header;
  line.name = Trimmed(text.substr(1, text.find(']') - 1));
}

void ReadEntry(ProfileLine& line, std::string_view text, const char* fileBegin) {
  const std::size_t sign = text.find('=');
  line.kind = sign == std::string_view::npos ? ProfileLine::Kind::Text : ProfileLine::Kind::Key;
  line.value = text;
  if (line.kind == ProfileLine::Kind::Text) return;
  line.name = Trimmed(text.substr(0, sign));
  line.value = Trimmed(text.substr(sign + 1));
  line.valueBegin = static_cast<std::size_t>(text.data() - fileBegin) + sign + 1;
}

}  // namespace

bool IsLineEnd(char c) { return c == '\r' || c == '\n'; }

bool IsLineBegin(std::string_view bytes, std::size_t at) {
  if (at == 0 || bytes[at - 1] == '\n') return true;
  return bytes[at - 1] == '\r' && (at == bytes.size() || bytes[at] != '\n');
}

std::size_t NextLine(std::string_view bytes, std::size_t at) { return SkipLineEnd(bytes, ContentEnd(bytes, at)); }

bool IsHeader(std::string_view bytes, std::size_t begin) {
  while (begin < bytes.size() && IsBlank(bytes[begin])) ++begin;
  return begin < bytes.size() && bytes[begin] == '[';
}

ProfileLine ReadLine(std::string_view bytes, std::size_t begin) {
  ProfileLine line;
  line.begin = begin;
  line.contentEnd = ContentEnd(bytes, begin);
  line.end = SkipLineEnd(bytes, line.contentEnd);
  const std::string_view text = Trimmed(TextArgument(bytes.substr(begin, line.contentEnd - begin)));
  if (text.empty()) return line;
  if (text.front() == ';') {
    line.kind = ProfileLine::Kind::Comment;
  } else if (text.front() == '[') {
    ReadHeader(line, text);
  } else {
    ReadEntry(line, text, bytes.data());
  }
  return line;
}

std::string_view WithoutQuotes(std::string_view value) {
  if (value.size() < 2 || value.front() != value.back()) return value;
  const bool quoted = value.front() == '"' || value.front() == '\'';
  return quoted ? value.substr(1, value.size() - 2) : value;
}

std::string_view NameArgument(std::string_view text) {
  text = TextArgument(text);
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

std::string_view TextArgument(std::string_view text) { return text.substr(0, text.find('\0')); }

std::optional<ProfileLine> ProfileLineReader::Next() {
  if (at_ >= end_) return std::nullopt;
  const ProfileLine line = ReadLine(bytes_, at_);
  at_ = line.end;
  return line;
}

}  // namespace tavrin
