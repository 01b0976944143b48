#include "shell/OnlineCommands.h"

#include <memory>
#include <string>
#include <vector>

#include "online/frmOnline.h"
#include "shell/StructureTest.h"
#include "support/ScriptedOpcServers.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// The device Press with the tags Level and Speed on show, and a server that takes the connections.
class OnlineCommandsTest : public StructureTest {
 protected:
  OnlineCommandsTest() {
    around.all.opc = &server;
    OpenPlant();
    AddTag("Level", "MW10");
    AddTag("Speed", "MW12");
    Click("#1#1#1");
    desktop.OnModal = [this](Form& form) {
      auto& monitor = dynamic_cast<frmOnline&>(form);
      shown.push_back(monitor.Label1(3).Caption() + " " + monitor.Label1(4).Caption() + " " +
                      monitor.Label1(5).Caption());
      EXPECT_TRUE(server.Connected());
      form.UserClose();
    };
  }

  void AddTag(const std::string& name, const std::string& data) {
    auto tag = std::make_unique<cTag>();
    tag->szTag(name);
    tag->szData(data);
    tag->szRW("RW");
    Device(1, 1).Tags().AddItem(std::move(tag));
  }
  /// Looks at a row through the menu of the tag grid.
  void Watch(int row) {
    desktop.OnPopup = [](MenuEntry& menu) { menu.Entries().front()->UserClick(); };
    Window().vsgTags.UserPress(MouseButton::Right, {row, 1});
  }

  ScriptedOpcServers server;
  std::vector<std::string> shown;
};

TEST_F(OnlineCommandsTest, TheMonitorOpensForTheTagOfTheRow) {
  Watch(1);
  Watch(2);
  EXPECT_THAT(shown, ElementsAre("Press/Level MW10 RW", "Press/Speed MW12 RW"));
  EXPECT_FALSE(server.Connected());
  EXPECT_THAT(server.log, SizeIs(4)) << "each monitor connects and disconnects";
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(OnlineCommandsTest, TheRowForANewTagIsPassedOver) {
  Watch(3);
  EXPECT_THAT(shown, IsEmpty());
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(OnlineCommandsTest, NoOtherNumberDoesAnything) {
  Window().vsgTags.Select({1, 1});
  for (const int index : {0, 2, -1}) Window().online.mnuTest_Click(index);
  EXPECT_THAT(shown, IsEmpty());
  EXPECT_THAT(server.log, IsEmpty());
}

TEST_F(OnlineCommandsTest, ARowWhoseTagIsNotFoundIsAnError) {
  Window().vsgTags.Text({1, 0}, "Gone");
  Watch(1);
  EXPECT_THAT(shown, IsEmpty());
  EXPECT_THAT(Boxes(),
              ElementsAre("#199 5 #200 cTags.Get_Tag : Invalid procedure call or argument",
                          "#199 91 #200 frmOPC.mnuTest_Click : Object variable or With block variable not set"));
}

TEST_F(OnlineCommandsTest, ARowOfADeviceThatIsNotSelectedAnyMoreIsAnError) {
  Window().vsgTags.Select({1, 1});
  modMain::globals.gnCurrentDevice = 0;
  Window().online.mnuTest_Click(1);
  EXPECT_THAT(Boxes(),
              ElementsAre("#199 91 #200 frmOPC.mnuTest_Click : Object variable or With block variable not set"));
}

TEST_F(OnlineCommandsTest, AServerThatIsAwayIsToldAndTheMonitorOpensAllTheSame) {
  server.away = true;
  desktop.OnModal = [this](Form& form) {
    shown.push_back(form.Name());
    form.UserClose();
  };
  Watch(1);
  EXPECT_THAT(shown, ElementsAre("frmOnline"));
  EXPECT_THAT(Boxes(), ElementsAre(testing::StartsWith("#231 ")));
}

TEST_F(OnlineCommandsTest, ARenamedTagIsWatchedUnderItsNewName) {
  Device(1, 1).Tags().Tag("Level")->szTag("Height");
  Watch(1);
  EXPECT_THAT(shown, ElementsAre("Press/Height MW10 RW"));
}

}  // namespace
}  // namespace tavrin
