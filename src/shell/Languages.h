#pragma once

#include <cstdint>

namespace tavrin {

class frmOPC;

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
  void MakeEntry(int index);

  frmOPC& form_;
};

}  // namespace tavrin
