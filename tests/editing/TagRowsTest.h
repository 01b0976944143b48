#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "editing/TagRows.h"
#include "model/PaneTest.h"
#include "model/cDevice.h"

namespace tavrin {

/// The tag grid beside a device, with the rules of its rows and without those of the window around it.
class TagRowsTest : public PaneTest {
 protected:
  TagRowsTest() {
    grid.Editable(true);
    grid.OnAfterEdit = [this](int row, int col) {
      try {
        AfterTagEdit(grid, {row, col});
      } catch (...) {
        modMain::Trap("frmOPC.vsgTags_AfterEdit : ");
      }
    };
    grid.OnKeyPressEdit = [](int, int col, int& key) {
      if (!TagKeyPasses(col, key)) key = 0;
    };
    grid.OnKeyDown = [this](Key) { DeleteTagsOfSelection(grid); };
  }

  /// A new device in a new network of the type; it is the selected one and on show.
  cDevice& NewDevice(NetworkType type = NetworkType::Mpi) {
    modMain::globals.gOPC = std::make_unique<cOPC>();
    Project().szFileName("ZOPCSRV.ini");
    Project().bDataDirty(false);
    cDevice& device = AddDevice(AddNetwork(type, "Net"), "Dev");
    Show();
    return device;
  }
  /// Adds a clean tag and shows the device anew.
  cTag& AddTag(std::string_view name, std::string_view data = "MB10", std::string_view rw = "RW") {
    auto made = std::make_unique<cTag>();
    cTag& tag = *made;
    tag.szTag(name);
    tag.szData(data);
    tag.szRW(rw);
    tag.bDataDirty(false);
    EXPECT_TRUE(modMain::CurrentDevice().Tags().AddItem(std::move(made)));
    Show();
    return tag;
  }
  void Show() {
    const cDevice& device = modMain::CurrentDevice();
    device.Show(*pane.Sheets().at(static_cast<std::size_t>(RightPane::kFirstDeviceSheet + device.nDeviceType())));
  }

  /// One whole edit of a cell: typed in place of its text, entered.
  void Enter(Cell cell, std::string_view text) {
    grid.UserSelect(cell);
    grid.UserBeginEdit();
    grid.UserEditText("");
    grid.UserType(text);
    grid.UserEndEdit();
  }

  [[nodiscard]] cTags& Tags() { return modMain::CurrentDevice().Tags(); }
  /// By position counted from 1.
  [[nodiscard]] cTag& TagAt(int position) {
    int at = 0;
    for (cTag& tag : Tags()) {
      if (++at == position) return tag;
    }
    throw std::out_of_range("no tag " + std::to_string(position));
  }
  [[nodiscard]] std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const cTag& tag : Tags()) names.emplace_back(tag.szTag());
    return names;
  }
  [[nodiscard]] std::string Row(int row) const { return PaneTest::Lines(grid).at(static_cast<std::size_t>(row) - 1); }

  Grid& grid = pane.vsgTags;
};

}  // namespace tavrin
