#include "shell/ProjectTree.h"

#include <array>

#include "support/ShellTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::array kTypes{NetworkType::Mpi, NetworkType::H1, NetworkType::TcpIso, NetworkType::TcpRw,
                            NetworkType::TcpIpk};

/// A project with a network of every type, N0 to N4, each with one device, D0 to D4.
class ProjectTreeTest : public ShellTest {
 protected:
  ProjectTreeTest() { Start(); }

  void OpenProjectOfAllTypes() {
    Window().mnuFile(1).UserClick();
    for (std::size_t i = 0; i < kTypes.size(); ++i) {
      AddDevice(AddNetwork(kTypes[i], "N" + std::to_string(i)), "D" + std::to_string(i));
    }
    Project().bDataDirty(false);
    Window().tree.Rebuild();
  }
  /// States of mnuEdit 1 to 5, visibility of mnuEdit 6, state of the delete button; "-" off, "x" on.
  [[nodiscard]] std::string Commands() {
    std::string states;
    for (int i = 1; i <= 5; ++i) states += Window().mnuEdit(i).Enabled() ? 'x' : '-';
    states += Window().mnuEdit(6).Visible() ? " x " : " - ";
    states += Window().Toolbar1.Buttons(kToolDelete).Enabled() ? 'x' : '-';
    return states;
  }
  [[nodiscard]] int DeleteTag() { return Window().Toolbar1.Buttons(kToolDelete).Tag(); }
  [[nodiscard]] std::pair<int, int> Current() {
    return {modMain::globals.gnCurrentNetwork, modMain::globals.gnCurrentDevice};
  }
  /// The one sheet that is on show.
  [[nodiscard]] std::string Sheet() {
    std::string names;
    for (const Grid* sheet : Window().Sheets()) {
      if (sheet->Visible()) names += sheet->Name();
    }
    return names;
  }
  void Rename(std::string_view key, std::string_view newName) {
    Click(key);
    Window().mnuEdit(5).UserClick();
    ASSERT_TRUE(Window().tvwMain.LabelEdit().has_value());
    Window().tvwMain.UserLabelText(newName);
    ASSERT_TRUE(Window().tvwMain.UserKey(Key::Enter));
  }
};

TEST_F(ProjectTreeTest, ANewTreeHasTheKeyboardAndItsRootSelected) {
  OpenProjectOfAllTypes();
  EXPECT_TRUE(Window().tvwMain.Visible());
  EXPECT_TRUE(Window().tvwMain.Focused());
  ASSERT_NE(Window().tvwMain.SelectedItem(), nullptr);
  EXPECT_EQ(Window().tvwMain.SelectedItem()->Key(), "#1");
  EXPECT_EQ(Window().tvwMain.Count(), 11);
  EXPECT_EQ(Current(), std::pair(0, 0));
  EXPECT_EQ(Sheet(), "vsgOPC");
}

TEST_F(ProjectTreeTest, EachNodeShowsTheSheetOfItsKindAndSetsThePositions) {
  OpenProjectOfAllTypes();
  constexpr std::array kNetworkSheets{"vsgMPINW", "vsgH1NW", "vsgTCPISONW", "vsgTCPRWNW", "vsgTCPIPKNW"};
  constexpr std::array kDeviceSheets{"vsgMPIDVC", "vsgH1DVC", "vsgTCPISODVC", "vsgTCPRWDVC", "vsgTCPIPKDVC"};
  for (int i = 0; i < 5; ++i) {
    const std::string network = "#1#" + std::to_string(i + 1);
    Click(network + "#1");
    EXPECT_EQ(Current(), std::pair(i + 1, 1));
    EXPECT_EQ(Sheet(), kDeviceSheets[static_cast<std::size_t>(i)]);
    EXPECT_EQ(Node(network + "#1").Tag(), 6 + i);
    EXPECT_TRUE(Window().vsgTags.Visible());
    Click(network);
    EXPECT_EQ(Current(), std::pair(i + 1, 0)) << "a network has no device position";
    EXPECT_EQ(Sheet(), kNetworkSheets[static_cast<std::size_t>(i)]);
    EXPECT_EQ(Node(network).Tag(), 1 + i);
    EXPECT_FALSE(Window().vsgTags.Visible());
  }
  Click("#1");
  EXPECT_EQ(Current(), std::pair(0, 0));
  EXPECT_EQ(Sheet(), "vsgOPC");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ProjectTreeTest, ArrowKeysWalkTheTree) {
  OpenProjectOfAllTypes();
  Window().tvwMain.UserSelect(Node("#1#3#1"));
  EXPECT_EQ(Current(), std::pair(3, 1));
  EXPECT_EQ(Sheet(), "vsgTCPISODVC");
}

TEST_F(ProjectTreeTest, TheSheetShowsTheObjectOfTheNode) {
  OpenProjectOfAllTypes();
  Click("#1#2");
  EXPECT_EQ(Window().vsgH1NW.Text({2, 1}), "N1.ini");
  Click("#1#2#1");
  EXPECT_EQ(Window().vsgH1DVC.Text({1, 1}), "D1.csv");
}

TEST_F(ProjectTreeTest, EachKindOfNodeHasItsCommands) {
  OpenProjectOfAllTypes();
  Click("#1");
  EXPECT_EQ(Commands(), "x---- - -");
  for (int i = 1; i <= 5; ++i) {
    Click("#1#" + std::to_string(i));
    EXPECT_EQ(Commands(), "-xx-x - x");
    EXPECT_EQ(DeleteTag(), kDeleteNetwork);
    Click("#1#" + std::to_string(i) + "#1");
    EXPECT_EQ(Commands(), "---xx - x");
    EXPECT_EQ(DeleteTag(), kDeleteDevice);
  }
  Click("#1");
  EXPECT_EQ(Commands(), "x---- - -");
}

TEST_F(ProjectTreeTest, TheTestRunIsOfferedForADeviceWhenAskedForAtTheStart) {
  Start("-TEST");
  OpenProjectOfAllTypes();
  Click("#1#1#1");
  EXPECT_EQ(Commands(), "---xx x x");
  Click("#1#1");
  EXPECT_EQ(Commands(), "-xx-x - x");
  Click("#1");
  EXPECT_EQ(Commands(), "x---- - -");
}

TEST_F(ProjectTreeTest, AnyOtherTagHasNoCommandsAndShowsNothing) {
  OpenProjectOfAllTypes();
  Click("#1#1#1");
  for (const int tag : {-1, 11, 100}) {
    TreeNode& odd = Window().tvwMain.Add("#1", "#1#77" + std::to_string(tag), "odd", "NET", tag, false);
    desktop.OnPopup = [](MenuEntry& /*menu*/) { ADD_FAILURE() << "no menu for such a node"; };
    Window().tvwMain.UserPress(MouseButton::Right, &odd);
    EXPECT_EQ(Commands(), "----- - -");
    EXPECT_EQ(Sheet(), "vsgMPIDVC") << "the sheet before stays";
  }
  EXPECT_THAT(Boxes(), IsEmpty());
}

struct KeyRow {
  const char* key;
  int network;
  int device;
};
class TreeKeyTest : public ProjectTreeTest, public testing::WithParamInterface<KeyRow> {};

TEST_P(TreeKeyTest, AKeyNamesThePositionsOfItsNumbers) {
  OpenProjectOfAllTypes();
  modMain::globals.gnCurrentNetwork = ProjectTree::GetNWIndexFromKey(GetParam().key);
  EXPECT_EQ(modMain::globals.gnCurrentNetwork, GetParam().network);
  EXPECT_EQ(ProjectTree::GetDVCIndexFromKey(GetParam().key), GetParam().device);
}

INSTANTIATE_TEST_SUITE_P(Rows, TreeKeyTest,
                         testing::Values(KeyRow{"", 0, 0}, KeyRow{"#1", 0, 0}, KeyRow{"#1#1", 1, 0},
                                         KeyRow{"#1#5", 5, 0}, KeyRow{"#1#6", 0, 0}, KeyRow{"#1#0", 0, 0},
                                         KeyRow{"#1#2#1", 2, 1}, KeyRow{"#1#2#2", 2, 0}, KeyRow{"#1#9#1", 0, 0},
                                         KeyRow{"#1#02#1", 2, 1}, KeyRow{"#1#x#1", 0, 0}, KeyRow{"#1#2#1#7", 2, 1}));

TEST_F(ProjectTreeTest, PositionsFollowTheNumbersAndNotTheOrder) {
  OpenProjectOfAllTypes();
  Project().Networks().Remove(2);
  Project().Networks().Remove(1);
  Window().tree.Rebuild();
  Click("#1#4#1");
  EXPECT_EQ(Current(), std::pair(2, 1));
  EXPECT_EQ(Sheet(), "vsgTCPRWDVC");
}

TEST_F(ProjectTreeTest, ADeviceIsLookedForInTheCurrentNetworkOnly) {
  OpenProjectOfAllTypes();
  AddDevice(Network(2), "second");
  modMain::globals.gnCurrentNetwork = 1;
  EXPECT_EQ(ProjectTree::GetDVCIndexFromKey("#1#2#2"), 0);
  modMain::globals.gnCurrentNetwork = 2;
  EXPECT_EQ(ProjectTree::GetDVCIndexFromKey("#1#2#2"), 2);
}

TEST_F(ProjectTreeTest, ANodeWhoseObjectIsGoneIsToldByTheTrap) {
  OpenProjectOfAllTypes();
  Click("#1#3#1");
  Project().Networks().Remove(3);
  Click("#1#3#1");
  EXPECT_EQ(Current(), std::pair(0, 0));
  EXPECT_THAT(Boxes(), ElementsAre(testing::StartsWith("#199 91 #200 frmOPC.ShowNodeData : ")));
  EXPECT_EQ(Sheet(), "vsgTCPISODVC");
}

TEST_F(ProjectTreeTest, NoNodeShowsNothing) {
  Window().tree.ShowNodeData(nullptr);
  Window().tree.ActivateFirstNode();
  EXPECT_EQ(Sheet(), "");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ProjectTreeTest, ARightClickOpensTheEditMenuOnceAndThenShowsTheNode) {
  OpenProjectOfAllTypes();
  for (const char* key : {"#1", "#1#1", "#1#1#1"}) {
    int popups = 0;
    desktop.OnPopup = [&](MenuEntry& menu) {
      ++popups;
      EXPECT_EQ(&menu, &Window().mnuMain(2));
      EXPECT_EQ(Current(), std::pair(key == std::string("#1") ? 0 : 1, key == std::string("#1#1#1") ? 1 : 0));
    };
    Click(key, MouseButton::Right);
    EXPECT_EQ(popups, 1);
    EXPECT_EQ(Window().nMouseButton, 1);
    Window().tvwMain.UserSelect(Node("#1#5"));
    EXPECT_EQ(popups, 1) << "a node that is reached by keys opens no menu";
  }
}

TEST_F(ProjectTreeTest, ARightClickOnTheRootOffersOnlyToAddANetwork) {
  OpenProjectOfAllTypes();
  Click("#1#1");
  desktop.OnPopup = [&](MenuEntry& /*menu*/) { EXPECT_EQ(Commands(), "x---- - -"); };
  Click("#1", MouseButton::Right);
  EXPECT_EQ(Sheet(), "vsgOPC");
}

TEST_F(ProjectTreeTest, ARightClickBesideTheNodesIsKeptForTheNextClick) {
  OpenProjectOfAllTypes();
  int popups = 0;
  desktop.OnPopup = [&](MenuEntry& /*menu*/) { ++popups; };
  Window().tvwMain.UserPress(MouseButton::Right, nullptr);
  EXPECT_EQ(Window().nMouseButton, 2);
  EXPECT_EQ(popups, 0);
  Click("#1#1");
  EXPECT_EQ(Window().nMouseButton, 1);
  EXPECT_EQ(popups, 0);
}

TEST_F(ProjectTreeTest, ACommandOfThePopupMayRebuildTheTree) {
  OpenProjectOfAllTypes();
  int popups = 0;
  Window().mnuEdit(2).OnClick = [&] {
    Project().Networks().Remove(modMain::globals.gnCurrentNetwork);
    Window().tree.Rebuild();
  };
  desktop.OnPopup = [&](MenuEntry& /*menu*/) {
    ++popups;
    Window().mnuEdit(2).UserClick();
  };
  Click("#1#5", MouseButton::Right);
  EXPECT_EQ(popups, 1) << "the root that is activated was not clicked";
  EXPECT_EQ(Window().tvwMain.Count(), 9);
  EXPECT_EQ(Sheet(), "vsgOPC");
  EXPECT_EQ(Current(), std::pair(0, 0));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ProjectTreeTest, RenameFromThePopupLeavesTheLabelOpen) {
  OpenProjectOfAllTypes();
  desktop.OnPopup = [&](MenuEntry& /*menu*/) { Window().mnuEdit(5).UserClick(); };
  Click("#1#2", MouseButton::Right);
  EXPECT_EQ(Window().tvwMain.LabelEdit(), "N1");
  EXPECT_EQ(Sheet(), "vsgH1NW");
}

TEST_F(ProjectTreeTest, DeleteAndF2ActByTheNodeAlone) {
  OpenProjectOfAllTypes();
  std::vector<int> done;
  for (const int i : {2, 4, 5}) {
    Window().mnuEdit(i).OnClick = [&done, i] { done.push_back(i); };
  }
  const auto press = [&](const char* key) {
    done.clear();
    Window().tvwMain.UserSelect(Node(key));
    for (int i = 1; i <= 5; ++i) Window().mnuEdit(i).Enabled(false);
    Window().tvwMain.UserKey(Key::Delete);
    Window().tvwMain.UserKey(Key::F2);
    return done;
  };
  for (int i = 1; i <= 5; ++i) {
    const std::string network = "#1#" + std::to_string(i);
    EXPECT_THAT(press(network.c_str()), ElementsAre(2, 5));
    EXPECT_THAT(press((network + "#1").c_str()), ElementsAre(4, 5));
  }
  EXPECT_THAT(press("#1"), IsEmpty());
}

TEST_F(ProjectTreeTest, F2OpensTheLabelOfNetworksAndDevicesButNotOfTheRoot) {
  OpenProjectOfAllTypes();
  Window().tvwMain.UserKey(Key::F2);
  EXPECT_FALSE(Window().tvwMain.LabelEdit().has_value());
  Window().mnuEdit(5).UserClick();
  EXPECT_FALSE(Window().tvwMain.LabelEdit().has_value()) << "the entry is off";
  Window().tvwMain.UserSelect(Node("#1#1"));
  Window().tvwMain.UserKey(Key::F2);
  EXPECT_EQ(Window().tvwMain.LabelEdit(), "N0");
  Window().tvwMain.UserSelect(Node("#1#1#1"));
  Window().tvwMain.UserKey(Key::F2);
  EXPECT_EQ(Window().tvwMain.LabelEdit(), "D0");
}

TEST_F(ProjectTreeTest, ARenamedNetworkGetsNameFileAndLabelAndMarksItself) {
  OpenProjectOfAllTypes();
  Rename("#1#1", "New.name");
  EXPECT_THAT(Boxes(), IsEmpty());
  EXPECT_EQ(Network(1).szNetworkName(), "New.name");
  EXPECT_EQ(Network(1).szFileName(), "New.name.ini");
  EXPECT_EQ(Device(1, 1).szFileName(), "New.name.ini");
  EXPECT_TRUE(Network(1).bDataDirty());
  EXPECT_EQ(Node("#1#1").Text(), "New.name");
  EXPECT_EQ(Window().vsgMPINW.Text({2, 1}), "New.name.ini") << "the sheet follows";
}

TEST_F(ProjectTreeTest, ARenamedDeviceGetsNameTagFileAndLabel) {
  OpenProjectOfAllTypes();
  Rename("#1#2#1", "Pump");
  EXPECT_THAT(Boxes(), IsEmpty());
  EXPECT_EQ(Device(2, 1).szDeviceName(), "Pump");
  EXPECT_EQ(Device(2, 1).szTagFileName(), "Pump.csv");
  EXPECT_TRUE(Device(2, 1).bDataDirty());
  EXPECT_EQ(Node("#1#2#1").Text(), "Pump");
  EXPECT_EQ(Window().vsgH1DVC.Text({1, 1}), "Pump.csv");
}

struct RefusedName {
  const char* key;
  const char* label;
  const char* name;
  const char* box;
};
class RefusedNameTest : public ProjectTreeTest, public testing::WithParamInterface<RefusedName> {};

TEST_P(RefusedNameTest, IsToldAndTheOldLabelStays) {
  OpenProjectOfAllTypes();
  Rename(GetParam().key, GetParam().name);
  EXPECT_THAT(Boxes(), ElementsAre(GetParam().box));
  EXPECT_EQ(Node(GetParam().key).Text(), GetParam().label);
  EXPECT_EQ(Network(1).szNetworkName(), "N0");
  EXPECT_EQ(Network(1).szFileName(), "N0.ini");
  EXPECT_EQ(Device(1, 1).szDeviceName(), "D0");
  EXPECT_EQ(Device(1, 1).szTagFileName(), "D0.csv");
}

INSTANTIATE_TEST_SUITE_P(
    Rows, RefusedNameTest,
    testing::Values(
        RefusedName{"#1#1", "N0", "N1", "#210 (N1)"}, RefusedName{"#1#1", "N0", "n1", "#210 (n1)"},
        RefusedName{"#1#1", "N0", "N0", "#210 (N0)"}, RefusedName{"#1#1", "N0", "n0", "#210 (n0)"},
        RefusedName{"#1#1", "N0", "zopcsrv", "#212 (zopcsrv.ini)"}, RefusedName{"#1#1", "N0", "", "#223 ()"},
        RefusedName{"#1#1", "N0", "123456789012345678901234567890123", "#225 (123456789012345678901234567890123)"},
        RefusedName{"#1#1#1", "D0", "D4", "#211 (D4)"}, RefusedName{"#1#1#1", "D0", "d0", "#211 (d0)"},
        RefusedName{"#1#1#1", "D0", "", "#223 ()"},
        RefusedName{"#1#1#1", "D0", "123456789012345678901234567890123", "#225 (123456789012345678901234567890123)"}));

TEST_F(ProjectTreeTest, EachResultOfTheNameCheckHasItsTextAndAllOthersPass) {
  OpenProjectOfAllTypes();
  std::int32_t result = 0;
  syntax.nodeName = [&](std::string& /*name*/) { return result; };
  const std::array<std::pair<std::int32_t, const char*>, 3> kTold{{{1, "#225 (x)"}, {2, "#224 (x)"}, {3, "#223 (x)"}}};
  for (const auto& [number, box] : kTold) {
    result = number;
    Rename("#1#1", "x");
    EXPECT_THAT(Boxes(), ElementsAre(box));
  }
  result = 4;
  Rename("#1#1", "x");
  result = -1;
  Rename("#1#2", "y");
  EXPECT_THAT(Boxes(), IsEmpty());
  EXPECT_EQ(Network(1).szNetworkName(), "x");
  EXPECT_EQ(Network(2).szNetworkName(), "y");
}

TEST_F(ProjectTreeTest, ADeviceMayHaveTheNameOfANetwork) {
  OpenProjectOfAllTypes();
  Rename("#1#1#1", "N3");
  EXPECT_THAT(Boxes(), IsEmpty());
  EXPECT_EQ(Device(1, 1).szDeviceName(), "N3");
}

TEST_F(ProjectTreeTest, ARenameLeavesTheOldFileOnDisk) {
  OpenProjectOfAllTypes();
  modMain::globals.gszProjectDir = directory.Path();
  ASSERT_TRUE(Save());
  Rename("#1#1", "other");
  ASSERT_TRUE(Save());
  EXPECT_TRUE(directory.Has("N0.ini"));
  EXPECT_TRUE(directory.Has("other.ini"));
}

TEST_F(ProjectTreeTest, AnEditOfAnyOtherLabelDoesNothing) {
  OpenProjectOfAllTypes();
  Click("#1");
  bool cancel = false;
  Window().tree.tvwMain_AfterLabelEdit(cancel, "x");
  EXPECT_FALSE(cancel);
  Window().tvwMain.Clear();
  Window().tree.tvwMain_AfterLabelEdit(cancel, "x");
  EXPECT_FALSE(cancel);
  EXPECT_FALSE(Project().bDataDirty());
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ProjectTreeTest, AnErrorInARenameGoesToTheTrapAndTheOldLabelStays) {
  OpenProjectOfAllTypes();
  syntax.nodeName = [](std::string& /*name*/) -> std::int32_t { throw RuntimeError(ErrorNumber::FileNotFound); };
  Rename("#1#1", "x");
  EXPECT_THAT(Boxes(), ElementsAre("#199 53 #200 frmOPC.tvwMain_AfterLabelEdit : File not found"));
  EXPECT_EQ(Network(1).szNetworkName(), "N0");
  EXPECT_EQ(Node("#1#1").Text(), "N0");
}

}  // namespace
}  // namespace tavrin
