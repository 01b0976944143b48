#include "online/frmReconfig.h"

#include <functional>

#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class frmReconfigTest : public ProjectTest {
 protected:
  std::vector<std::string> Restart(int stop, int start = 0) {
    around.service.stopResult = stop;
    around.service.startResult = start;
    frmReconfig window;
    window.cmdAction(0).UserClick();
    return window.List1.Lines();
  }
};

TEST_F(frmReconfigTest, TitleAndButtonsHaveTheirTexts) {
  const frmReconfig window;
  EXPECT_EQ(window.Caption(), "#160");
  EXPECT_EQ(window.cmdAction(0).Caption(), "#161");
  EXPECT_EQ(window.cmdAction(1).Caption(), "#28");
  EXPECT_THAT(window.List1.Lines(), IsEmpty());
  EXPECT_THAT(Boxes(), IsEmpty());
}

/// A library whose text of the menu entry marks a letter.
class MarkedTexts : public NumberTexts {
 public:
  [[nodiscard]] std::string LoadText(int number, int language) override {
    return number == 160 ? "Re&configure" : NumberTexts::LoadText(number, language);
  }
};

TEST_F(frmReconfigTest, TheTitleIsTheMenuEntryWithoutItsMark) {
  MarkedTexts marked;
  const Services own{desktop, files, files, registry, marked, syntax, settings, around.all, directory.Path() + "app"};
  modMain::globals.services = &own;
  const frmReconfig window;
  EXPECT_EQ(window.Caption(), "Reconfigure");
  modMain::globals.services = &services;
}

struct ResultCase {
  int result;
  const char* line;  ///< nullptr for none
};

class StopResults : public frmReconfigTest, public testing::WithParamInterface<ResultCase> {};

TEST_P(StopResults, HaveTheirLineAndOnlyAServiceThatHasStoppedIsStarted) {
  const auto [result, line] = GetParam();
  const bool stopped = result == 0 || result == 4;
  std::vector<std::string> expected{"#85"};
  if (line != nullptr) expected.emplace_back(line);
  if (stopped) expected.insert(expected.end(), {"#92", "#93"});
  EXPECT_EQ(Restart(result), expected);
  EXPECT_EQ(around.service.starts, stopped ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(Table, StopResults,
                         testing::Values(ResultCase{0, "#86"}, ResultCase{1, "#87 (1)"}, ResultCase{2, nullptr},
                                         ResultCase{3, "#88 (3)"}, ResultCase{4, "#89 (4)"}, ResultCase{5, "#90 (5)"},
                                         ResultCase{6, "#91 (6)"}, ResultCase{7, nullptr}, ResultCase{-1, nullptr},
                                         ResultCase{100, nullptr}));

class StartResults : public frmReconfigTest, public testing::WithParamInterface<ResultCase> {};

TEST_P(StartResults, HaveTheirLine) {
  const auto [result, line] = GetParam();
  std::vector<std::string> expected{"#85", "#86", "#92"};
  if (line != nullptr) expected.emplace_back(line);
  EXPECT_EQ(Restart(0, result), expected);
}

INSTANTIATE_TEST_SUITE_P(Table, StartResults,
                         testing::Values(ResultCase{0, "#93"}, ResultCase{1, "#94 (1)"}, ResultCase{2, "#95 (2)"},
                                         ResultCase{3, nullptr}, ResultCase{4, "#96 (4)"}, ResultCase{5, "#97 (5)"},
                                         ResultCase{6, "#90 (6)"}, ResultCase{7, "#91 (7)"}, ResultCase{8, nullptr},
                                         ResultCase{-1, nullptr}));

TEST_F(frmReconfigTest, TwoRunsInARowMakeEightLines) {
  frmReconfig window;
  window.cmdAction(0).UserClick();
  window.cmdAction(0).UserClick();
  EXPECT_THAT(window.List1.Lines(), ElementsAre("#85", "#86", "#92", "#93", "#85", "#86", "#92", "#93"));
}

TEST_F(frmReconfigTest, ThePointerIsAnHourglassDuringTheRun) {
  Restart(0);
  EXPECT_THAT(desktop.Pointers(), ElementsAre(MousePointer::Hourglass, MousePointer::Normal));
}

TEST_F(frmReconfigTest, EventsRunBeforeEachCallAndBetweenThem) {
  Restart(0);
  EXPECT_EQ(desktop.EventRounds(), 3);
  Restart(1);
  EXPECT_EQ(desktop.EventRounds(), 5);
}

TEST_F(frmReconfigTest, TheSecondButtonClosesTheWindow) {
  frmReconfig window;
  window.Show();
  window.cmdAction(1).UserClick();
  EXPECT_FALSE(window.Visible());
  EXPECT_EQ(around.service.stops, 0);
}

TEST_F(frmReconfigTest, APressThatComesDuringTheRunBeginsNoOther) {
  frmReconfig window;
  desktop.Post([&] { window.cmdAction(0).UserClick(); });
  window.cmdAction(0).UserClick();
  EXPECT_THAT(window.List1.Lines(), ElementsAre("#85", "#86", "#92", "#93"));
}

TEST_F(frmReconfigTest, AWindowThatIsClosedDuringTheRunBringsItToItsEnd) {
  for (const bool byButton : {false, true}) {
    frmReconfig window;
    window.Show();
    desktop.Post([&] { byButton ? window.cmdAction(1).UserClick() : window.UserClose(); });
    window.cmdAction(0).UserClick();
    EXPECT_FALSE(window.Visible());
    EXPECT_THAT(window.List1.Lines(), ElementsAre("#85", "#86", "#92", "#93")) << "a stopped server is started again";
    EXPECT_EQ(desktop.Pointers().back(), MousePointer::Normal);
  }
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(frmReconfigTest, AFailureOfTheWordingIsTold) {
  frmReconfig window;
  window.Caption("");
  const Connection failing = window.Changed.Connect([] { throw RuntimeError(ErrorNumber::PermissionDenied); });
  window.Form_Load();
  EXPECT_THAT(Boxes(), ElementsAre("#199 70 #200 frmReconfig.GUI_Init : Permission denied"));
}

TEST_F(frmReconfigTest, AFailureOfTheLoadingIsToldAndTheWindowIsWorded) {
  frmReconfig window;
  window.Caption("");
  window.cmdAction(1).SetFocus();
  window.cmdAction(1).OnLostFocus = [] { throw RuntimeError(ErrorNumber::PermissionDenied); };
  window.Form_Load();
  EXPECT_THAT(Boxes(), ElementsAre("#199 70 #200 frmReconfig.Form_Load : Permission denied"));
  EXPECT_EQ(window.Caption(), "#160");
}

TEST_F(frmReconfigTest, TheRestartHasTheKeyboard) {
  const frmReconfig window;
  EXPECT_TRUE(window.cmdAction(0).Focused());
}

/// A service whose calls fail.
class FailingService : public ServiceControl {
 public:
  explicit FailingService(bool stopFails) : stopFails_(stopFails) {}
  int CmdStopServiceEx() override {
    if (stopFails_) throw RuntimeError(ErrorNumber::PermissionDenied);
    return 0;
  }
  int CmdStartServiceEx() override { throw RuntimeError(ErrorNumber::PermissionDenied); }

 private:
  bool stopFails_;
};

TEST_F(frmReconfigTest, AnErrorIsToldUnderTheHourglassWhichThenGoes) {
  for (const bool stopFails : {true, false}) {
    FailingService failing(stopFails);
    Surroundings other{around.programs, around.regional, around.fileProperties, failing, nullptr};
    const Services own{desktop, files, files, registry, texts, syntax, settings, other, directory.Path() + "app"};
    modMain::globals.services = &own;
    MousePointer duringBox = MousePointer::Normal;
    desktop.OnTold = [&](std::string_view, std::string_view) { duringBox = desktop.Pointers().back(); };
    frmReconfig window;
    window.cmdAction(0).UserClick();
    EXPECT_THAT(Boxes(), ElementsAre("#199 70 #200 frmReconfig.cmdAction_Click : Permission denied"));
    EXPECT_EQ(duringBox, MousePointer::Hourglass);
    EXPECT_EQ(desktop.Pointers().back(), MousePointer::Normal);
    EXPECT_EQ(window.List1.Lines().size(), stopFails ? 1U : 3U);
    window.cmdAction(0).UserClick();
    EXPECT_THAT(Boxes(), testing::SizeIs(1)) << "the window can be used again";
    modMain::globals.services = &services;
  }
}

}  // namespace
}  // namespace tavrin
