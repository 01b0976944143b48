#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/Control.h"

namespace tavrin {

/// An entry of a menu, or a whole menu when it has entries below it. In a caption that is not literal "&" stands before
/// the letter that chooses the entry; the caption "-" makes a separator.
class MenuEntry : public Control {
 public:
  using Control::Control;

  [[nodiscard]] const std::string& Caption() const { return caption_; }
  void Caption(std::string_view value) { Assign(caption_, std::string(value)); }
  /// True for a caption that comes from elsewhere, such as a path: "&" is a character of it like any other.
  [[nodiscard]] bool Literal() const { return literal_; }
  void Literal(bool value) { Assign(literal_, value); }
  /// The caption as the user reads it.
  [[nodiscard]] std::string ShownCaption() const;
  [[nodiscard]] bool IsSeparator() const { return caption_ == "-"; }
  [[nodiscard]] bool Checked() const { return checked_; }
  void Checked(bool value) { Assign(checked_, value); }
  /// A text that the program ties to the entry.
  [[nodiscard]] const std::string& Tag() const { return tag_; }
  void Tag(std::string_view value) { Assign(tag_, std::string(value)); }
  /// The keys that choose the entry from anywhere in the window, e.g. "Ctrl+N"; empty for none.
  [[nodiscard]] const std::string& Shortcut() const { return shortcut_; }
  void Shortcut(std::string_view value) { Assign(shortcut_, std::string(value)); }

  /// The entries below, in the order in which they are shown.
  [[nodiscard]] const std::vector<MenuEntry*>& Entries() const { return entries_; }
  /// @param entry outlives this one
  void Add(MenuEntry& entry);
  /// The entry that this one is below, nullptr at the top.
  [[nodiscard]] MenuEntry* Parent() const { return parent_; }

  /// The user opens the menu: the place where a program brings its entries up to date. Ends an open edit first.
  void UserOpen();
  /// The user chooses the entry. Ends an open edit first. Without effect on one that is hidden, that is disabled
  /// itself or through a menu above it, on a separator, and on an entry with entries below it. A menu above it may be
  /// hidden: it then opens only as a popup.
  void UserClick();
  /// The user presses the entry's shortcut: the menus above it are brought up to date as if they had been opened,
  /// then the entry is chosen.
  void UserShortcut();

  std::function<void()> OnOpen;
  std::function<void()> OnClick;

 private:
  [[nodiscard]] bool CanBeChosen() const;

  std::string caption_;
  bool literal_ = false;
  bool checked_ = false;
  std::string tag_;
  std::string shortcut_;
  std::vector<MenuEntry*> entries_;
  MenuEntry* parent_ = nullptr;
};

/// A caption as it is shown where no letter is underlined: "&Save" becomes "Save", "&&" becomes "&".
[[nodiscard]] std::string WithoutMnemonic(std::string_view caption);

}  // namespace tavrin
