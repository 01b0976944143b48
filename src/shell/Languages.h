#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tavrin {

class frmOPC;

/// The text of a menu entry as it is shown and spoken outside of a menu: without mnemonic and dots.
[[nodiscard]] std::string PlainText(std::int32_t number);
class MenuEntry;

/// The menu of the languages (Tavrin.INI), the choice of one at any time, and all fixed words of the main window.
class Languages {
 public:
  explicit Languages(frmOPC& form) : form_(form) {}

  /// Makes an entry a language of Tavrin.INI, or German and English when it names none.
  void FillMenu();
  /// Chooses the entry whose language has the number; without one, the language is only taken, and no entry is checked.
  void Activate(std::int32_t nLanguage);
  /// Takes language and manual of an entry and shows everything in it.
  void mnuLanguage_Click(int index);

  /// Caption, headings, menus and tool tips in the current language.
  void GetStaticTexts();

 private:
  /// The entry gets its caption and tag and can be seen; it is made when the design has none.
  void ShowEntry(int index, std::string_view caption, std::string_view tag);
  void Check(const MenuEntry* chosen);
  void NameGrids();
  void NameMenus();
  void NameTools();

  frmOPC& form_;
};

}  // namespace tavrin
