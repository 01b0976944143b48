#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "model/sheets/KeyClass.h"
#include "platform/NumberText.h"
#include "platform/RuntimeError.h"
#include "platform/controls/Grid.h"

namespace tavrin {

/// How a cell of a sheet opens for editing.
enum class CellEditor {
  Closed,   ///< never
  TextBox,  ///< as a text box
  List,     ///< as a list of choices, into which any other text can be typed too
};

/// What the cell shows when its text has gone to the property.
enum class AfterEdit {
  ReadBack,   ///< the property again, so that a refused value vanishes
  KeepTyped,  ///< what was typed, until the sheet is filled anew
};

/// What becomes of a text that was typed into the cell of a property of `Owner`.
template <class Owner>
struct CellEdit {
  CellEditor editor = CellEditor::Closed;
  KeyClass keys = KeyClass::None;  ///< what can be typed
  std::string_view choices;        ///< of a list, joined by "|"
  /// Hands the text to the property, whose setter checks it and tells a refusal. nullptr: the row has no property to
  /// change. False when the text was refused, and the user told, before a setter saw it: the cell then keeps the text.
  /// @throws RuntimeError when the text cannot be converted
  bool (*assign)(Owner&, std::string_view text) = nullptr;
  AfterEdit after = AfterEdit::ReadBack;
};

/// One row of a property sheet: what stands in it, from row 1 on, and how it is edited. Row 0 is the heading.
template <class Owner>
struct SheetRow {
  std::string_view property;
  int label;  ///< number of the text in column 0
  std::string (*read)(const Owner&);
  CellEdit<Owner> edit;
};

/// How a row reads its property: Shown<cNetwork>::Text<&cNetwork::szFileName>. Numbers are plain decimal text, texts
/// are as they are stored. A property is a pair of overloads, of which this picks the one that reads.
template <class Owner>
struct Shown {
  template <std::int32_t (Owner::*Read)() const>
  static std::string Text(const Owner& owner) {
    return std::to_string((owner.*Read)());
  }
  template <const std::string& (Owner::*Read)() const>
  static std::string Text(const Owner& owner) {
    return (owner.*Read)();
  }
  template <std::string_view (Owner::*Read)() const>
  static std::string Text(const Owner& owner) {
    return std::string((owner.*Read)());
  }
};

/// How a row is edited: Edited<cNetwork>::Number<&cNetwork::nMPI_COMPort>(KeyClass::Digits).
template <class Owner>
struct Edited {
  using Edit = CellEdit<Owner>;

  /// The text as it is.
  template <void (Owner::*Set)(std::string_view)>
  static constexpr Edit Text(KeyClass keys, AfterEdit after = AfterEdit::ReadBack) {
    return {CellEditor::TextBox, keys, {}, AssignText<Set>, after};
  }
  template <void (Owner::*Set)(std::string_view)>
  static constexpr Edit TextOf(std::string_view choices) {
    return {CellEditor::List, KeyClass::Free, choices, AssignText<Set>};
  }
  /// Never opens; the rule behind it holds all the same.
  template <void (Owner::*Set)(std::string_view)>
  static constexpr Edit ClosedText() {
    return {CellEditor::Closed, KeyClass::Name, {}, AssignText<Set>};
  }

  /// The number at the start of the text, 0 when there is none, rounded.
  template <void (Owner::*Set)(std::int32_t)>
  static constexpr Edit Number(KeyClass keys) {
    return {CellEditor::TextBox, keys, {}, AssignNumber<Set>};
  }
  template <void (Owner::*Set)(std::int32_t)>
  static constexpr Edit NumberOf(std::string_view choices) {
    return {CellEditor::List, KeyClass::Free, choices, AssignNumber<Set>};
  }
  /// The text must be a number as a whole, or the edit ends in error 13.
  template <void (Owner::*Set)(std::int32_t)>
  static constexpr Edit StrictNumber(KeyClass keys) {
    return {CellEditor::TextBox, keys, {}, AssignStrictNumber<Set>};
  }
  /// A number that is none of the known ones leaves the property alone without a word.
  template <void (Owner::*Set)(std::int32_t), const auto& Known>
  static constexpr Edit KnownNumberOf(std::string_view choices) {
    return {CellEditor::List, KeyClass::Free, choices, AssignKnownNumber<Set, Known>};
  }

  static std::int32_t ToNumber(std::string_view text) { return RoundToInt32(NumericPrefix(text)); }

 private:
  template <void (Owner::*Set)(std::string_view)>
  static bool AssignText(Owner& owner, std::string_view text) {
    (owner.*Set)(text);
    return true;
  }
  template <void (Owner::*Set)(std::int32_t)>
  static bool AssignNumber(Owner& owner, std::string_view text) {
    (owner.*Set)(ToNumber(text));
    return true;
  }
  template <void (Owner::*Set)(std::int32_t)>
  static bool AssignStrictNumber(Owner& owner, std::string_view text) {
    if (!IsNumeric(text)) throw RuntimeError(ErrorNumber::TypeMismatch);
    return AssignNumber<Set>(owner, text);
  }
  template <void (Owner::*Set)(std::int32_t), const auto& Known>
  static bool AssignKnownNumber(Owner& owner, std::string_view text) {
    const double number = NumericPrefix(text);
    const auto found =
        std::find_if(Known.begin(), Known.end(), [number](std::int32_t known) { return known == number; });
    if (found != Known.end()) (owner.*Set)(*found);
    return true;
  }
};

inline constexpr int kSheetValueColumn = 1;

/// Writes the values of the rows in their order. @throws RuntimeError 9 when the grid has too few rows
template <class Owner>
void FillSheet(Grid& grid, std::span<const SheetRow<Owner>> rows, const Owner& owner) {
  int row = 1;
  for (const SheetRow<Owner>& shown : rows) grid.Text({row++, kSheetValueColumn}, shown.read(owner));
}

}  // namespace tavrin
