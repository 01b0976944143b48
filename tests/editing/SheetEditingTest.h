#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "editing/SheetEditing.h"
#include "model/PaneTest.h"

namespace tavrin {

/// A sheet that is shown, with the object that it shows.
struct OpenSheet {
  Grid& grid;
  cNetwork* network = nullptr;
  cDevice* device = nullptr;
};

/// The sheets of a main window with the rules of editing.
class SheetEditingTest : public PaneTest {
 protected:
  SheetEditingTest() {
    const auto sheets = pane.Sheets();
    for (std::size_t i = 0; i < sheets.size(); ++i) {
      editing.at(i) = std::make_unique<SheetEditing>(*sheets.at(i), static_cast<int>(i));
    }
  }

  /// Shows a sheet with a new, clean object of its type in a new project.
  OpenSheet Show(int sheet) {
    modMain::globals.gOPC = std::make_unique<cOPC>();
    modMain::globals.gnCurrentNetwork = modMain::globals.gnCurrentDevice = 0;
    Project().szFileName("ZOPCSRV.ini");
    Project().bDataDirty(false);
    OpenSheet open{*pane.Sheets().at(static_cast<std::size_t>(sheet))};
    if (sheet < RightPane::kFirstNetworkSheet) {
      Project().Show(open.grid);
      return open;
    }
    const bool isDevice = sheet >= RightPane::kFirstDeviceSheet;
    const int first = isDevice ? RightPane::kFirstDeviceSheet : RightPane::kFirstNetworkSheet;
    open.network = &AddNetwork(static_cast<NetworkType>(sheet - first), "Net");
    if (isDevice) {
      open.device = &AddDevice(*open.network, "Dev");
      open.device->Show(open.grid);
    } else {
      open.network->Show(open.grid);
    }
    return open;
  }

  /// Begins the edit of a value, which then has the typed text alone.
  static void Type(Grid& grid, int row, std::string_view text) {
    grid.UserSelect({row, 1});
    grid.UserBeginEdit();
    grid.UserEditText("");
    grid.UserType(text);
  }
  /// The whole edit.
  static void Enter(Grid& grid, int row, std::string_view text) {
    Type(grid, row, text);
    grid.UserEndEdit();
  }

  std::array<std::unique_ptr<SheetEditing>, 11> editing;
};

}  // namespace tavrin
