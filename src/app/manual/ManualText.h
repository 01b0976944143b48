#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "app/manual/ManualSource.h"

namespace tavrin {

class HeadlessDesktop;

/// The text of the manual as one Markdown document, made of its sources and of what the program itself has.
///
/// Placeholders in a line: {text:N} the text of a number as the program shows it, {entry:N} the same without the dots
/// of a menu entry, {version}, {brand}, {progid}, {service}, {settings}. Alone in a line: {picture:NAME Caption},
/// {menu:ARRAY}, {sheet:project}, {sheet:network TYPE}, {sheet:device TYPE}, {messages:SECTION}.
class ManualText {
 public:
  /// @param desktop the one of modMain::globals.services, which is needed as long as this lives
  ManualText(const ManualSource& source, std::string version, HeadlessDesktop& desktop);

  /// @throws ManualFault for a placeholder that cannot be resolved, for a text of the source that belongs to nothing,
  /// and for a text of the program that the manual does not name
  [[nodiscard]] std::string Expand();
  /// Placeholders of a line. @throws ManualFault
  [[nodiscard]] std::string ExpandLine(std::string_view line);

  /// The pictures that the text asks for, in its order.
  [[nodiscard]] const std::vector<std::string>& Pictures() const { return pictures_; }
  /// The numbers of the texts that the manual names.
  [[nodiscard]] const std::set<int>& Texts() const { return texts_; }
  [[nodiscard]] const std::string& Word(const std::string& name) const;

 private:
  [[nodiscard]] std::string ExpandInline(std::string_view name, std::string_view argument);
  [[nodiscard]] std::string ExpandBlock(std::string_view name, const std::string& argument);
  [[nodiscard]] std::string ShowText(int number, bool withDots);
  [[nodiscard]] std::string PictureBlock(const std::string& argument);
  [[nodiscard]] std::string MenuBlock(const std::string& menu);
  [[nodiscard]] std::string SheetBlock(const std::string& argument);
  [[nodiscard]] std::string MessagesBlock(const std::string& section);
  [[nodiscard]] std::string KeysOf(std::string_view shortcut) const;
  [[nodiscard]] std::string Row(const ManualRow& cells);
  [[nodiscard]] std::string Head(const std::vector<std::string>& words);
  void CheckUse() const;

  const ManualSource& source_;
  std::map<std::string, std::string, std::less<>> constants_;
  HeadlessDesktop& desktop_;
  std::vector<std::string> pictures_;
  std::set<int> texts_;
  std::set<std::string> used_;  // rows of the tables of the source
};

/// A text in which no character means anything in Markdown. UTF-8.
[[nodiscard]] std::string Escaped(std::string_view text);

}  // namespace tavrin
