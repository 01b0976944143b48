#include "editing/SheetEditing.h"

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "model/cDevice.h"
#include "model/cNetwork.h"
#include "model/cOPC.h"
#include "model/shared/RightPane.h"
#include "model/shared/modMain.h"
#include "model/sheets/DeviceSheets.h"
#include "model/sheets/NetworkSheets.h"
#include "model/sheets/ProjectSheet.h"

namespace tavrin {

namespace {

/// Runs `visit` with the row of a sheet and with a function that gives the object which the sheet shows; nothing runs
/// for a row past the sheet.
template <class Owner, class Visit>
void VisitRowOf(std::span<const SheetRow<Owner>> rows, int row, Owner& (*selected)(), Visit&& visit) {
  if (row >= 1 && static_cast<std::size_t>(row) <= rows.size())
    visit(rows[static_cast<std::size_t>(row) - 1], selected);
}

template <class Visit>
void VisitRow(int sheet, int row, Visit&& visit) {
  if (sheet >= RightPane::kFirstDeviceSheet) {
    VisitRowOf(DeviceSheet(sheet - RightPane::kFirstDeviceSheet), row, modMain::CurrentDevice, visit);
  } else if (sheet >= RightPane::kFirstNetworkSheet) {
    VisitRowOf(NetworkSheet(sheet - RightPane::kFirstNetworkSheet), row, modMain::CurrentNetwork, visit);
  } else {
    VisitRowOf(ProjectSheet(), row, modMain::OpenProject, visit);
  }
}

}  // namespace

SheetEditing::SheetEditing(Grid& grid, int sheet) : grid_(grid), sheet_(sheet) {
  grid_.Editable(true);
  grid_.OnBeforeEdit = [this](int row, int, bool& cancel) { BeforeEdit(row, cancel); };
  grid_.OnKeyPressEdit = [this](int row, int, int& key) { KeyPressEdit(row, key); };
  grid_.OnAfterEdit = [this](int row, int col) { AfterEdit(row, col); };
  if (sheet_ >= RightPane::kFirstNetworkSheet) grid_.OnDblClick = [this] { DblClick(); };
}

void SheetEditing::BeforeEdit(int row, bool& cancel) try {
  VisitRow(sheet_, row, [&](const auto& shown, auto) {
    grid_.ComboList(shown.edit.choices);
    if (shown.edit.editor == CellEditor::Closed) cancel = true;
  });
} catch (...) {
  Trap(SheetEvent::BeforeEdit);
}

void SheetEditing::KeyPressEdit(int row, int& key) const try {
  VisitRow(sheet_, row, [&](const auto& shown, auto) {
    if (!Passes(shown.edit.keys, key)) key = 0;
  });
} catch (...) {
  Trap(SheetEvent::KeyPressEdit);
}

void SheetEditing::AfterEdit(int row, int col) try {
  VisitRow(sheet_, row, [&](const auto& shown, auto selected) {
    if (shown.edit.assign == nullptr) return;
    auto& owner = selected();
    const bool handedOver = shown.edit.assign(owner, grid_.Text({row, col}));
    if (handedOver && shown.edit.after == tavrin::AfterEdit::ReadBack) grid_.Text({row, col}, shown.read(owner));
  });
} catch (...) {
  Trap(SheetEvent::AfterEdit);
}

void SheetEditing::DblClick() {
  if (grid_.Col() == kSheetValueColumn) grid_.EditCell();
}

std::string SheetEditing::ErrorLabel(SheetEvent event) const {
  constexpr std::array<std::string_view, 3> kNames{"BeforeEdit", "KeyPressEdit", "AfterEdit"};
  const bool misnamed = grid_.Name() == "vsgTCPRWDVC" || grid_.Name() == "vsgTCPIPKDVC";
  const SheetEvent named = misnamed && event == SheetEvent::BeforeEdit ? SheetEvent::AfterEdit : event;
  return "frmOPC." + grid_.Name() + "_" + std::string(kNames[static_cast<std::size_t>(named)]) + " : ";
}

void SheetEditing::Trap(SheetEvent event) const { modMain::Trap(ErrorLabel(event)); }

}  // namespace tavrin
