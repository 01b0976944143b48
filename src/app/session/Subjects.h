#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "app/session/Stage.h"
#include "platform/controls/ListView.h"

namespace tavrin {

/// Something of the program that has one text, which a script can print and can expect to be another.
struct Subject {
  std::string_view name;
  std::string_view arguments;  ///< as those of a verb
  std::string_view help;
  /// In the code page. @throws Refusal
  std::string (*text)(Stage& stage, Words words);
};
[[nodiscard]] std::span<const Subject> Subjects();
/// @return nullptr for an unknown one
[[nodiscard]] const Subject* FindSubject(std::string_view name);

/// Something with many lines, which can only be printed.
struct Listing {
  std::string_view name;
  std::string_view arguments;
  std::string_view help;
  /// @throws Refusal
  void (*print)(Stage& stage, Words words);
};
[[nodiscard]] std::span<const Listing> Listings();
/// @return nullptr for an unknown one
[[nodiscard]] const Listing* FindListing(std::string_view name);

/// Prints the entries of a menu that is open.
void PrintEntries(Transcript& transcript, const MenuEntry& menu);

/// The names of the grids, trees and labels on show, joined by blanks.
[[nodiscard]] std::string NamesOnShow(const Form& form);
/// The current cell as "ROW COL", and the selected rectangle as "ROW COL ROW COL" when there is more than one cell.
[[nodiscard]] std::string CurrentCell(const Grid& grid);
/// The text of the current row, empty when there is none.
[[nodiscard]] std::string CurrentRow(const ListView& list);
/// The texts of the ticked rows, joined by "|".
[[nodiscard]] std::string TickedRows(const ListView& list);
/// The text of the edit that is open in a control; nothing when none is.
[[nodiscard]] std::optional<std::string> OpenEdit(const Control& control);
/// The words on a control as they are shown. @throws Refusal for one without
[[nodiscard]] std::string CaptionOf(const Control& control);
/// Whether a control is ticked or chosen; nothing for one that cannot be.
[[nodiscard]] std::optional<bool> CheckMark(const Control& control);
/// A truth value as a script writes it.
[[nodiscard]] inline std::string YesOrNo(bool value) { return value ? "yes" : "no"; }

}  // namespace tavrin
