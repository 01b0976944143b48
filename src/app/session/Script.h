#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrin {

/// One line of a script that does something.
struct ScriptLine {
  int number = 0;                  ///< counted from 1
  std::string text;                ///< as it is written, UTF-8, without the blanks around it
  std::vector<std::string> words;  ///< in the code page; at least one
};

/// Why a script cannot be run.
struct ScriptFault {
  int line = 0;
  std::string message;  ///< UTF-8
};

/// Takes the text of a script apart. All of it is read before anything of it is run, so that a slip on the last line
/// does not leave half of the work done.
///
/// A line is a row of words between blanks; a line that begins with "#" is a comment. A word with blanks stands between
/// quotation marks, a quotation mark in it is doubled. "$1" to "$9" are the arguments of the script, "$n", "$r" and
/// "$t" a line feed, a carriage return and a tab, "$xNN" the character with the hexadecimal number, "$$" the dollar
/// sign.
class ScriptParser {
 public:
  /// @param arguments UTF-8
  explicit ScriptParser(std::vector<std::string> arguments) : arguments_(std::move(arguments)) {}

  /// @param text UTF-8, with or without a byte order mark, lines ended in any way
  /// @return false when the script cannot be run; Fault then tells why
  [[nodiscard]] bool Parse(std::string_view text);

  [[nodiscard]] const std::vector<ScriptLine>& Lines() const { return lines_; }
  [[nodiscard]] const ScriptFault& Fault() const { return fault_; }

  /// Bytes of a line, and of all its words together.
  static constexpr std::size_t kLongestLine = 65'536;
  static constexpr std::size_t kLongestWords = 1'048'576;

 private:
  void ParseLine(int number, std::string_view text);
  [[nodiscard]] std::string TakeWord(std::string_view& rest) const;
  void TakeEscape(std::string_view& rest, std::string& word) const;
  void TakeArgument(char digit, std::string& word) const;

  std::vector<std::string> arguments_;
  std::vector<ScriptLine> lines_;
  ScriptFault fault_;
};

}  // namespace tavrin
