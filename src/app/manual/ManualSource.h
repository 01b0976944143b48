#pragma once

#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tavrin {

/// The manual cannot be made of its sources; the message names file or placeholder.
class ManualFault : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A row of a table of the sources: its cells are Markdown.
using ManualRow = std::vector<std::string>;

/// What somebody writes of the manual, in one language: chapters in Markdown, and short tables that say in words what
/// the program itself cannot: what a menu entry does, what a setting means, what a message is caused by. Texts and
/// tables of the program are named by placeholders, so that the manual never tells them otherwise than the program.
struct ManualSource {
  std::vector<std::string> chapters;                       ///< in the order of the manual
  std::map<std::string, std::string> words;                ///< headings of generated tables
  std::map<std::string, std::string> menus;                ///< "mnuFile 1": what the entry does
  std::map<std::string, std::string> sheets;               ///< "nMPI_Baudrate": what the setting means
  std::map<std::string, std::vector<ManualRow>> messages;  ///< message, cause and remedy by section
};

/// Reads the sources of one language: *.md by name, words.txt, menus.txt, sheets.txt, messages.txt. All are UTF-8.
/// @throws ManualFault
[[nodiscard]] ManualSource ReadManual(const std::filesystem::path& folder);

/// The rows of a table file, by section. "#" begins a comment, "[name]" a section, a blank the continuation of a row;
/// cells stand between bars with blanks around them. @throws ManualFault
[[nodiscard]] std::map<std::string, std::vector<ManualRow>> ParseTable(std::string_view text, std::size_t columns);

}  // namespace tavrin
