#include "platform/headless/HeadlessDesktop.h"

#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/controls/Form.h"
#include "platform/controls/Grid.h"
#include "platform/controls/MenuEntry.h"
#include "platform/headless/MemorySettings.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class HeadlessDesktopTest : public testing::Test {
 protected:
  HeadlessDesktopTest() {
    desktop.OnTold = [this](std::string_view what, std::string_view text) {
      told.push_back(std::string(what) + ": " + std::string(text));
    };
  }

  HeadlessDesktop desktop;
  std::vector<std::string> told;
};

TEST_F(HeadlessDesktopTest, RecordsBoxesAndHandsThemOver) {
  desktop.ShowBox("one");
  desktop.ShowBox("two");
  EXPECT_THAT(desktop.Boxes(), ElementsAre("one", "two"));
  EXPECT_THAT(desktop.TakeBoxes(), ElementsAre("one", "two"));
  EXPECT_THAT(desktop.Boxes(), IsEmpty());
  EXPECT_THAT(told, ElementsAre("box: one", "box: two"));
}

TEST_F(HeadlessDesktopTest, AnswersQuestionsInTheOrderOfTheAnswers) {
  desktop.AnswerNext(true);
  desktop.AnswerNext(false);
  EXPECT_TRUE(desktop.AskYesNo("first"));
  EXPECT_FALSE(desktop.AskYesNo("second"));
  EXPECT_THAT(desktop.Questions(), ElementsAre("first", "second"));
  EXPECT_THAT(desktop.UnexpectedQuestions(), IsEmpty());
  EXPECT_THAT(told, ElementsAre("yes: first", "no: second"));
}

TEST_F(HeadlessDesktopTest, AQuestionWithoutAnAnswerIsAnsweredNoAndRecorded) {
  EXPECT_FALSE(desktop.AskYesNo("why"));
  EXPECT_THAT(desktop.Questions(), ElementsAre("why"));
  EXPECT_THAT(desktop.UnexpectedQuestions(), ElementsAre("why"));
  EXPECT_THAT(told, ElementsAre("no: why"));
}

TEST_F(HeadlessDesktopTest, AModalWindowIsShownToTheScriptedUserUntilHeClosesIt) {
  Form form("frmTest");
  bool shown = false;
  desktop.OnModal = [&](Form& modal) {
    shown = modal.Visible();
    EXPECT_EQ(&modal, &form);
    modal.UserClose();
  };
  desktop.ShowModal(form);
  EXPECT_TRUE(shown);
  EXPECT_FALSE(form.Visible());
  EXPECT_THAT(desktop.UnexpectedQuestions(), IsEmpty());
}

TEST_F(HeadlessDesktopTest, AModalWindowThatNobodyClosesIsHiddenAndRecorded) {
  Form form("frmTest");
  form.Caption("Options");
  bool unloaded = false;
  form.OnUnload = [&](bool&) { unloaded = true; };
  desktop.ShowModal(form);
  EXPECT_FALSE(form.Visible());
  EXPECT_FALSE(unloaded);
  EXPECT_THAT(desktop.UnexpectedQuestions(), ElementsAre("Options"));
  desktop.OnModal = [](Form&) {};
  desktop.ShowModal(form);
  EXPECT_THAT(desktop.UnexpectedQuestions(), ElementsAre("Options", "Options"));
}

TEST_F(HeadlessDesktopTest, APopupMenuIsOpenedBeforeTheScriptedUserSeesIt) {
  Form form("frmTest");
  MenuEntry menu(form, "mnuMain", 2);
  MenuEntry entry(form, "mnuEdit", 1);
  menu.Add(entry);
  entry.Enabled(false);
  menu.OnOpen = [&] { entry.Enabled(true); };
  int clicks = 0;
  entry.OnClick = [&] { ++clicks; };
  desktop.PopupMenu(menu);
  EXPECT_EQ(clicks, 0);
  EXPECT_THAT(told, ElementsAre("popup: mnuMain"));
  entry.Enabled(false);
  desktop.OnPopup = [](MenuEntry& opened) { opened.Entries()[0]->UserClick(); };
  desktop.PopupMenu(menu);
  EXPECT_EQ(clicks, 1);
}

TEST_F(HeadlessDesktopTest, APopupMenuEndsAnOpenEdit) {
  Form form("frmTest");
  MenuEntry menu(form, "mnuMain", 5);
  Grid grid(form, "grid");
  grid.Shape(2, 1, 1, 0);
  grid.Editable(true);
  grid.UserBeginEdit();
  desktop.PopupMenu(menu);
  EXPECT_EQ(grid.OpenEdit(), nullptr);
}

TEST_F(HeadlessDesktopTest, FileAndFolderDialogsTakeTheirPathsFromOneRow) {
  desktop.AnswerNextPath("/a/file");
  desktop.AnswerNextPath("/a/folder");
  desktop.AnswerNextPath(std::nullopt);
  desktop.AnswerNextPath(std::nullopt);
  EXPECT_EQ(desktop.AskOpenFile({"name", "filter", "directory"}), "/a/file");
  EXPECT_EQ(desktop.AskFolder("title"), "/a/folder");
  EXPECT_EQ(desktop.AskOpenFile({"second", "", ""}), std::nullopt);
  EXPECT_EQ(desktop.AskFolder("second title"), "");
  ASSERT_EQ(desktop.OpenRequests().size(), 2U);
  EXPECT_EQ(desktop.OpenRequests()[0].fileName, "name");
  EXPECT_EQ(desktop.OpenRequests()[0].filter, "filter");
  EXPECT_EQ(desktop.OpenRequests()[0].directory, "directory");
  EXPECT_THAT(desktop.FolderTitles(), ElementsAre("title", "second title"));
  EXPECT_THAT(desktop.UnexpectedQuestions(), IsEmpty());
  EXPECT_THAT(told, ElementsAre("open: name", "folder: title", "open: second", "folder: second title"));
}

TEST_F(HeadlessDesktopTest, ADialogWithoutAPathIsGivenUpAndRecorded) {
  EXPECT_EQ(desktop.AskOpenFile({"name", "", ""}), std::nullopt);
  EXPECT_EQ(desktop.AskFolder("title"), "");
  EXPECT_THAT(desktop.UnexpectedQuestions(), ElementsAre("name", "title"));
}

TEST_F(HeadlessDesktopTest, RecordsPointersRoundsOfEventsAndTheEnd) {
  EXPECT_FALSE(desktop.Ended());
  desktop.Pointer(MousePointer::Hourglass);
  desktop.Pointer(MousePointer::Normal);
  desktop.DoEvents();
  desktop.DoEvents();
  desktop.EndProcess();
  EXPECT_THAT(desktop.Pointers(), ElementsAre(MousePointer::Hourglass, MousePointer::Normal));
  EXPECT_EQ(desktop.EventRounds(), 2);
  EXPECT_TRUE(desktop.Ended());
}

TEST_F(HeadlessDesktopTest, PostedActionsRunInTheNextRoundOfEventsInTheirOrder) {
  std::vector<int> ran;
  for (const int number : {1, 2, 3}) {
    desktop.Post([&ran, number] { ran.push_back(number); });
  }
  EXPECT_THAT(ran, IsEmpty());
  desktop.DoEvents();
  EXPECT_THAT(ran, ElementsAre(1, 2, 3));
}

TEST_F(HeadlessDesktopTest, AWaitRunsWhatIsPostedAndTellsWhetherItCameTrue) {
  bool done = false;
  desktop.Post([&] { done = true; });
  EXPECT_TRUE(desktop.WaitUntil([&] { return done; }, 0));
  EXPECT_FALSE(desktop.WaitUntil([] { return false; }, 1));
}

TEST_F(HeadlessDesktopTest, NothingPostedRunsAfterTheEndOfTheProgram) {
  int ran = 0;
  desktop.Post([&] { ++ran; });
  desktop.EndProcess();
  desktop.Post([&] { ++ran; });
  desktop.DoEvents();
  EXPECT_FALSE(desktop.WaitUntil([] { return false; }, 60'000)) << "nobody can wake it: it must not wait";
  EXPECT_EQ(ran, 0);
}

TEST_F(HeadlessDesktopTest, AProgramThatIsStartedAgainHasADesktopAgain) {
  int ran = 0;
  desktop.Post([&] { ran += 100; });
  desktop.EndProcess();
  desktop.Restart();
  EXPECT_FALSE(desktop.Ended());
  desktop.Post([&] { ++ran; });
  desktop.DoEvents();
  EXPECT_EQ(ran, 1);
}

TEST_F(HeadlessDesktopTest, StandingStillIsRecordedAndTakesNoTime) {
  desktop.Sleep(3'600'000);
  EXPECT_THAT(desktop.Sleeps(), ElementsAre(3'600'000));
}

TEST(MemorySettingsTest, KeepsSettingsWithoutRegardToUpperAndLowerCase) {
  MemorySettings settings;
  EXPECT_EQ(settings.GetSetting("App", "Section", "Key", "fallback"), "fallback");
  settings.SaveSetting("App", "Section", "Key", "value");
  EXPECT_EQ(settings.GetSetting("APP", "section", "kEY", "fallback"), "value");
  settings.SaveSetting("app", "SECTION", "KEY", "");
  EXPECT_EQ(settings.GetSetting("App", "Section", "Key", "fallback"), "");
  EXPECT_EQ(settings.values.size(), 1U);
}

TEST(MemorySettingsTest, ReadsTheBooleansThatItWrites) {
  const MemorySettings settings;
  EXPECT_EQ(settings.ParseBoolean(settings.BooleanText(true)), true);
  EXPECT_EQ(settings.ParseBoolean(settings.BooleanText(false)), false);
  EXPECT_EQ(settings.ParseBoolean("tRUE"), true);
  EXPECT_EQ(settings.ParseBoolean("1"), std::nullopt);
  EXPECT_EQ(settings.ParseBoolean(""), std::nullopt);
}

}  // namespace
}  // namespace tavrin
