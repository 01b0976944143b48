#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace tavrin {

/// One line of an INI file. Its text ends at the line end or at a NUL before it. Blanks around the text, names and
/// values mean nothing: space, tab, vertical tab, form feed and 0x1A, the old mark of the end of a file.
struct ProfileLine {
  enum class Kind {
    Empty,    ///< nothing, or only blanks
    Comment,  ///< begins with a semicolon
    Header,   ///< begins with [; the name ends at the first ] or, without one, at the end of the text
    Key,      ///< has an equal sign; the name ends at the first one
    Text,     ///< anything else: belongs to its section, but is never found as a key
  };

  Kind kind = Kind::Empty;
  std::size_t begin = 0;       ///< offset of the first byte
  std::size_t valueBegin = 0;  ///< offset behind the equal sign of a key
  std::size_t contentEnd = 0;  ///< offset of the line end
  std::size_t end = 0;         ///< offset of the next line
  std::string_view name;       ///< of a header or key
  std::string_view value;      ///< of a key, in its quotes; the text of a line without equal sign
};

/// True for CR and LF. A line ends at CR LF, LF or CR.
[[nodiscard]] bool IsLineEnd(char c);
/// True when a line of `bytes` begins at the offset.
[[nodiscard]] bool IsLineBegin(std::string_view bytes, std::size_t at);
/// Offset of the line that begins behind the line of `at`; the size of `bytes` for the last one.
[[nodiscard]] std::size_t NextLine(std::string_view bytes, std::size_t at);
/// True when the line at the offset is a section header; faster than reading the line.
[[nodiscard]] bool IsHeader(std::string_view bytes, std::size_t begin);
/// Reads the line that begins at the offset.
[[nodiscard]] ProfileLine ReadLine(std::string_view bytes, std::size_t begin);

/// A value without its outermost pair of matching double or single quotes.
[[nodiscard]] std::string_view WithoutQuotes(std::string_view value);
/// A section or key as a caller names it: up to the first NUL, without the spaces, and only these, on both sides.
[[nodiscard]] std::string_view NameArgument(std::string_view text);
/// A text as a caller gives it: up to the first NUL.
[[nodiscard]] std::string_view TextArgument(std::string_view text);

/// The lines of a part of a file, one after the other.
class ProfileLineReader {
 public:
  ProfileLineReader(std::string_view bytes, std::size_t begin, std::size_t end)
      : bytes_(bytes), at_(begin), end_(end) {}

  /// Nothing behind the last line.
  [[nodiscard]] std::optional<ProfileLine> Next();

 private:
  std::string_view bytes_;
  std::size_t at_;
  std::size_t end_;
};

}  // namespace tavrin
