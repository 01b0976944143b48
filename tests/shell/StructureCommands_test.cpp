#include "shell/StructureCommands.h"

#include <array>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "online/frmTest.h"
#include "shell/StructureTest.h"
#include "shell/frmCreate.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::array kTypes{NetworkType::Mpi, NetworkType::H1, NetworkType::TcpIso, NetworkType::TcpRw,
                            NetworkType::TcpIpk};

// ---- add network

TEST_F(StructureTest, ANewNetworkIsANodeBelowTheRootAndAFileOfItsName) {
  CreateNetwork("Line", 0);
  ExpectNode("#1#1", "#1", "Line", "NET", 1);
  ASSERT_EQ(Project().Networks().Count(), 1);
  EXPECT_EQ(Network(1).nID(), 1);
  EXPECT_EQ(Network(1).szNetworkName(), "Line");
  EXPECT_EQ(Network(1).szFileName(), "Line.ini");
  EXPECT_TRUE(Network(1).bDataDirty());
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(StructureTest, TheRootStaysSelectedAndOnShowBehindANewNetwork) {
  CreateNetwork("Line", 2);
  CreateNetwork("Hall", 3);
  ExpectRootActive();
  EXPECT_FALSE(Window().vsgTCPISONW.Visible());
  EXPECT_EQ(Window().tvwMain.Count(), 3);
}

TEST_F(StructureTest, EachOfferedTypeHasItsTag) {
  int number = 0;
  for (const int type : {0, 2, 3}) {
    const std::string name = "N" + std::to_string(type);
    CreateNetwork(name, type);
    ++number;
    ExpectNode("#1#" + std::to_string(number), "#1", name.c_str(), "NET", type + 1);
    EXPECT_EQ(Network(number).nNetworkType(), type);
  }
}

TEST_F(StructureTest, ANewNetworkCanBeClickedAtOnce) {
  CreateNetwork("Line", 2);
  Click("#1#1");
  EXPECT_EQ(Current(), std::pair(1, 0));
  EXPECT_TRUE(Window().vsgTCPISONW.Visible());
  EXPECT_EQ(Window().vsgTCPISONW.Text({2, 1}), "Line.ini");
}

TEST_F(StructureTest, AKeyFollowsTheNumberOfTheNetworkAndNotItsPlace) {
  for (const char* name : {"A", "B", "C"}) CreateNetwork(name, 2);
  Click("#1#2");
  modMain::globals.gbQueryOnDelete = false;
  Edit(2);
  CreateNetwork("D", 2);
  ExpectNode("#1#4", "#1", "D", "NET", 3);
  EXPECT_EQ(Network(3).nID(), 4);
}

TEST_F(StructureTest, ANameWithAPointGivesAFileNameWithTwo) {
  CreateNetwork("a.b", 2);
  EXPECT_EQ(Network(1).szFileName(), "a.b.ini");
  CreateDevice("#1#1", "c.d");
  EXPECT_EQ(Device(1, 1).szTagFileName(), "c.d.csv");
}

TEST_F(StructureTest, OnlyANetworkOfTypeMpiGetsAComPortOneAboveTheHighest) {
  CreateNetwork("M1", 0);
  EXPECT_EQ(Network(1).nMPI_COMPort(), 1);
  CreateNetwork("I", 2);
  EXPECT_EQ(Network(2).nMPI_COMPort(), cNetwork().nMPI_COMPort());
  CreateNetwork("M2", 0);
  EXPECT_EQ(Network(3).nMPI_COMPort(), 2);
  Network(1).nMPI_COMPort(7);
  CreateNetwork("M3", 0);
  EXPECT_EQ(Network(4).nMPI_COMPort(), 8);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(StructureTest, TheDialogAsksForWhatIsAdded) {
  std::vector<std::string> titles;
  desktop.OnModal = [&](Form& form) {
    titles.push_back(form.Caption());
    EXPECT_EQ(form.Name(), "frmCreate");
    form.UserClose();
  };
  Edit(1);
  AddNetwork(NetworkType::Mpi, "Line");
  Window().tree.Rebuild();
  Click("#1#1");
  Edit(3);
  EXPECT_THAT(titles, ElementsAre("#37", "#38"));
}

TEST_F(StructureTest, ADialogThatIsLeftWithoutOkAddsNothing) {
  OpenPlant();
  const auto names = Names();
  const std::array<std::function<void(frmCreate&)>, 2> ways{[](frmCreate& dialog) { dialog.cmdAction(1).UserClick(); },
                                                            [](frmCreate& dialog) { dialog.UserClose(); }};
  for (const auto& leave : ways) {
    desktop.OnModal = [&](Form& form) {
      auto& dialog = dynamic_cast<frmCreate&>(form);
      dialog.txtName.UserType("New");
      dialog.rbType(2).UserClick();
      leave(dialog);
    };
    Click("#1");
    Edit(1);
    Click("#1#1");
    Edit(3);
  }
  EXPECT_EQ(Names(), names);
  EXPECT_EQ(Window().tvwMain.Count(), 5);
  EXPECT_FALSE(Project().bOpcProjectDirty());
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(StructureTest, ATakenNameKeepsTheDialogAndAddsNothing) {
  OpenPlant();
  const auto names = Names();
  CreateNetwork("hall", 2);
  EXPECT_THAT(Boxes(), ElementsAre("#210 (hall)"));
  CreateDevice("#1#2", "PRESS");
  EXPECT_THAT(Boxes(), ElementsAre("#211 (PRESS)")) << "a device of another network has it";
  EXPECT_EQ(Names(), names);
}

/// The name is free while the dialog is open, and taken when it has closed.
TEST_F(StructureTest, ANameIsCheckedAgainBehindTheDialog) {
  OpenPlant();
  const auto names = Names();
  const auto openAndTake = [&](int index, const char* renamed) {
    desktop.OnModal = [&, renamed](Form& form) {
      auto& dialog = dynamic_cast<frmCreate&>(form);
      dialog.txtName.UserType("New");
      if (dialog.nMode == frmCreate::kNetwork) dialog.rbType(2).UserClick();
      dialog.cmdAction(0).UserClick();
      dialog.szName = renamed;
    };
    Edit(index);
  };
  openAndTake(1, "Hall");
  EXPECT_THAT(Boxes(), ElementsAre("#210 (Hall)"));
  Click("#1#2");
  openAndTake(3, "press");
  EXPECT_THAT(Boxes(), ElementsAre("#211 (press)"));
  Click("#1#1");
  openAndTake(3, "press");
  EXPECT_THAT(Boxes(), ElementsAre("#211 (press)", "#211 (press)")) << "told again for the equal name beside it";
  EXPECT_EQ(Names(), names);
}

// ---- add device

TEST_F(StructureTest, ANewDeviceIsANodeBelowItsNetworkAndTakesItsType) {
  for (const NetworkType type : kTypes) AddNetwork(type, "N" + std::to_string(static_cast<int>(type)));
  Window().tree.Rebuild();
  for (int type = 0; type < kNetworkTypes; ++type) {
    const std::string parent = "#1#" + std::to_string(type + 1);
    const std::string name = "D" + std::to_string(type);
    CreateDevice(parent, name);
    ExpectNode(parent + "#1", parent, name.c_str(), "DEVICE", type + 6);
    const cDevice& device = Device(type + 1, 1);
    EXPECT_EQ(device.nID(), 1);
    EXPECT_EQ(device.szDeviceName(), name);
    EXPECT_EQ(device.szFileName(), "N" + std::to_string(type) + ".ini");
    EXPECT_EQ(device.szTagFileName(), name + ".csv");
    EXPECT_EQ(device.nDeviceType(), type);
    EXPECT_TRUE(device.bDataDirty());
  }
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(StructureTest, TheNetworkStaysSelectedAndOnShowBehindANewDevice) {
  OpenPlant();
  CreateDevice("#1#1", "New");
  EXPECT_EQ(Window().tvwMain.SelectedItem()->Key(), "#1#1");
  EXPECT_EQ(Current(), std::pair(1, 0));
  EXPECT_TRUE(Window().vsgMPINW.Visible());
  Click("#1#1#3");
  EXPECT_EQ(Current(), std::pair(1, 3));
  EXPECT_EQ(Window().vsgMPIDVC.Text({1, 1}), "New.csv");
}

TEST_F(StructureTest, OnlyADeviceOfTypeMpiGetsASlaveNumberOneAboveTheHighest) {
  AddNetwork(NetworkType::Mpi, "M");
  AddNetwork(NetworkType::TcpIso, "I");
  Window().tree.Rebuild();
  CreateDevice("#1#1", "D1");
  EXPECT_EQ(Device(1, 1).nMPI_SlaveNo(), 2);
  CreateDevice("#1#2", "D2");
  EXPECT_EQ(Device(2, 1).nMPI_SlaveNo(), cDevice().nMPI_SlaveNo());
  CreateDevice("#1#1", "D3");
  EXPECT_EQ(Device(1, 2).nMPI_SlaveNo(), 3);
  Click("#1#1#1");
  Enter(Window().vsgMPIDVC, {2, 1}, "11");
  CreateDevice("#1#1", "D4");
  EXPECT_EQ(Device(1, 3).nMPI_SlaveNo(), 12);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(StructureTest, ADeviceMayHaveTheNameOfANetwork) {
  OpenPlant();
  CreateDevice("#1#2", "Hall");
  EXPECT_EQ(Device(2, 1).szDeviceName(), "Hall");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(StructureTest, AnEditThatIsOpenReachesTheModelBeforeTheCommandBegins) {
  OpenPlant();
  Click("#1#1");
  Window().vsgMPINW.UserPress(MouseButton::Left, {7, 1});
  Window().vsgMPINW.UserType("77");
  desktop.OnModal = [&](Form& form) {
    EXPECT_EQ(Network(1).nMPI_CyclicTime(), 77);
    form.UserClose();
  };
  Window().mnuEdit(3).UserShortcut();
  EXPECT_EQ(Network(1).nMPI_CyclicTime(), 77);
}

// ---- test run, errors, shortcuts

TEST_F(StructureTest, TheTestRunOpensItsWindowModallyAndTakesItAwayAgain) {
  Start("-TEST");
  OpenPlant();
  Click("#1#1#1");
  std::vector<std::string> opened;
  desktop.OnModal = [&](Form& form) {
    EXPECT_TRUE(form.Visible());
    opened.push_back(form.Name() + " for " + dynamic_cast<frmTest&>(form).lblDVCName.Caption());
    form.UserClose();
  };
  std::filesystem::create_directories(services.applicationDirectory + "/LOG");  // for the protocol
  Edit(6);
  Edit(6);
  EXPECT_THAT(opened, ElementsAre("frmTest for Press", "frmTest for Press"));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(StructureTest, TheTestRunCannotBeChosenUnlessItWasAskedFor) {
  OpenPlant();
  desktop.OnModal = [](Form& form) {
    ADD_FAILURE() << form.Name();
    form.Hide();
  };
  Click("#1#1#1");
  Edit(6);
  Start("-TEST");
  Window().tree.Rebuild();
  Click("#1#1");
  Edit(6);
}

TEST_F(StructureTest, AddingADeviceWithoutANetworkIsToldByTheTrap) {
  OpenPlant();
  Click("#1#2");
  Project().Networks().Remove(2);
  AnswerCreate("New");
  Edit(3);
  EXPECT_THAT(Boxes(), ElementsAre(kNoObject));
  EXPECT_EQ(Window().tvwMain.Count(), 5);
}

TEST_F(StructureTest, AddingANetworkWithoutAProjectIsToldByTheTrap) {
  desktop.OnModal = [](Form& form) {
    auto& dialog = dynamic_cast<frmCreate&>(form);
    dialog.txtName.UserType("New");
    dialog.rbType(0).UserClick();
    dialog.cmdAction(0).UserClick();
    modMain::globals.gOPC.reset();
  };
  Edit(1);
  EXPECT_THAT(Boxes(), ElementsAre(kNoObject));
  EXPECT_EQ(Window().tvwMain.Count(), 1);
}

struct ShortcutRow {
  const char* keys;
  int entry;
  const char* acts;  ///< on root, network, device: "x" or "-"
};
class ShortcutTest : public StructureTest, public testing::WithParamInterface<ShortcutRow> {
 protected:
  /// Presses the keys. @return true when a dialog, a question or a label edit has come up
  bool Press() {
    bool acted = false;
    desktop.OnModal = [&](Form& form) {
      acted = true;
      form.UserClose();
    };
    const std::size_t asked = desktop.Questions().size();
    if (ExpectsQuestion()) desktop.AnswerNext(false);
    Window().mnuEdit.ForEach([](MenuEntry& entry) {
      if (entry.Shortcut() == GetParam().keys) entry.UserShortcut();
    });
    const bool labelled = Window().tvwMain.LabelEdit().has_value();
    if (labelled) Window().tvwMain.UserKey(Key::Escape);
    return acted || labelled || desktop.Questions().size() > asked;
  }
  static bool ExpectsQuestion() { return GetParam().entry == 2 || GetParam().entry == 4; }
};

TEST_P(ShortcutTest, ActsWhereItsEntryIsEnabledAndNowhereElse) {
  OpenPlant();
  EXPECT_EQ(Window().mnuEdit(GetParam().entry).Shortcut(), GetParam().keys);
  std::string acted;
  for (const char* key : {"#1", "#1#1", "#1#1#1"}) {
    Click(key);
    acted += Press() ? 'x' : '-';
  }
  EXPECT_EQ(acted, GetParam().acts);
  Window().mnuLanguage(1).UserClick();
  EXPECT_FALSE(Press()) << "all entries are off until a node is clicked";
  EXPECT_THAT(Boxes(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Rows, ShortcutTest,
                         testing::Values(ShortcutRow{"Ctrl+N", 1, "x--"}, ShortcutRow{"Ctrl+M", 2, "-x-"},
                                         ShortcutRow{"Ctrl+D", 3, "-x-"}, ShortcutRow{"Ctrl+F", 4, "--x"},
                                         ShortcutRow{"Ctrl+U", 5, "-xx"}));

TEST_F(StructureTest, BeforeAProjectIsOpenNoShortcutActs) {
  modMain::globals.gOPC.reset();
  Start();
  desktop.OnModal = [](Form& form) {
    ADD_FAILURE() << form.Name();
    form.Hide();
  };
  for (int index = 1; index <= 6; ++index) Window().mnuEdit(index).UserShortcut();
  EXPECT_FALSE(Window().tvwMain.LabelEdit().has_value());
  EXPECT_THAT(desktop.Questions(), IsEmpty());
  EXPECT_THAT(Boxes(), IsEmpty());
}

}  // namespace
}  // namespace tavrin
