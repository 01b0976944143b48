#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "support/ShellTest.h"

namespace tavrin {

/// The box of a command whose object is gone.
inline constexpr const char* kNoObject =
    "#199 91 #200 frmOPC.mnuEdit_Click : Object variable or With block variable not set";

/// A new project is open, its root selected.
class StructureTest : public ShellTest {
 protected:
  StructureTest() {
    Start();
    Window().mnuFile(1).UserClick();
    modMain::globals.gszProjectDir = directory.Path();
  }

  /// The network Line with the devices Press and Saw, and the network Hall; all clean, the root selected.
  void OpenPlant() {
    cNetwork& line = AddNetwork(NetworkType::Mpi, "Line");
    AddDevice(line, "Press");
    AddDevice(line, "Saw");
    AddNetwork(NetworkType::TcpIso, "Hall");
    for (cDevice& device : line.Devices()) device.bDataDirty(false);
    Project().bDataDirty(false);
    Window().tree.Rebuild();
  }
  void Edit(int index) { Window().mnuEdit(index).UserClick(); }
  void CreateNetwork(const std::string& name, int type) {
    AnswerCreate(name, type);
    Edit(1);
  }
  void CreateDevice(const std::string& networkKey, const std::string& name) {
    Click(networkKey);
    AnswerCreate(name);
    Edit(3);
  }
  /// Names of the networks, each with those of its devices.
  [[nodiscard]] std::map<std::string, std::vector<std::string>> Names() {
    std::map<std::string, std::vector<std::string>> names;
    for (const cNetwork& network : Project().Networks()) {
      auto& devices = names[network.szNetworkName()];
      for (const cDevice& device : network.Devices()) devices.push_back(device.szDeviceName());
    }
    return names;
  }
  [[nodiscard]] static std::pair<int, int> Current() {
    return {modMain::globals.gnCurrentNetwork, modMain::globals.gnCurrentDevice};
  }
  void ExpectRootActive() {
    ASSERT_NE(Window().tvwMain.SelectedItem(), nullptr);
    EXPECT_EQ(Window().tvwMain.SelectedItem()->Key(), "#1");
    EXPECT_EQ(Current(), std::pair(0, 0));
    EXPECT_TRUE(Window().vsgOPC.Visible());
    EXPECT_TRUE(Window().mnuEdit(1).Enabled());
    EXPECT_FALSE(Window().mnuEdit(2).Enabled());
    EXPECT_FALSE(Window().mnuEdit(4).Enabled());
    EXPECT_FALSE(Delete().Enabled());
  }
  void ExpectNode(const std::string& key, const std::string& parent, const char* text, const char* image, int tag) {
    const TreeNode& node = Node(key);
    ASSERT_NE(node.Parent(), nullptr);
    EXPECT_EQ(node.Parent()->Key(), parent);
    EXPECT_EQ(node.Text(), text);
    EXPECT_EQ(node.Image(), image);
    EXPECT_EQ(node.Tag(), tag);
    EXPECT_TRUE(node.Expanded());
  }
  [[nodiscard]] ToolButton& Delete() { return Window().Toolbar1.Buttons(kToolDelete); }
};

}  // namespace tavrin
