#include "online/frmTest.h"

#include <algorithm>

#include "online/TestRun.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* kPruefen =
    "Pr\xFC"
    "fen";

using frmTestTest = TestRun;

std::string Connect(const std::string& items) {
  return "connect " + std::string(std::string_view(TAVRIN_TEST_BRAND) == "QORVANE" ? "Qorvane" : "Zelkar") +
         ".OPCServer.1" + items;
}
const std::string kReserved = " Press/COMMAND Press/RESULT Press/RESULTARRAY";
const std::string kRest = " Press/Level Press/Idle";

// ---- load

TEST_F(frmTestTest, EverythingStandsAsItIsLaidOut) {
  Open();
  EXPECT_EQ(window->Caption(), "Testform (intern)");
  EXPECT_EQ(window->cmdStart.Caption(), "Start");
  EXPECT_EQ(window->cmdStop.Caption(), "Stop");
  EXPECT_EQ(window->chkDoAbo.Caption(), "inkl. Abonnement");
  EXPECT_EQ(window->chkDoCheck.Caption(),
            "inkl. Pr\xFC"
            "fung");
  std::vector<std::string> legends;
  window->Label1.ForEach([&](const Label& label) { legends.push_back(label.Caption()); });
  EXPECT_THAT(legends, ElementsAre("Anzahl Testdurchl\xE4"
                                   "ufe",
                                   "Intervall (in Millisek.)", "Ausgew\xE4hltes Device", "Devicetyp",
                                   "Aktueller Durchgang", "Letzte Aktion"));
  EXPECT_EQ(window->txtSollRuns.Text(), "1");
  EXPECT_EQ(window->txtInterval.Text(), "5000");
}

TEST_F(frmTestTest, TheGridHasItsHeadsAndWidths) {
  Open();
  EXPECT_EQ(window->vsgTest.RowText(0), "T \tTag\tSollwert\tIstwert\tQuality\tOK");
  EXPECT_EQ(window->vsgTest.Rows(), 1);
  std::vector<float> widths;
  widths.reserve(static_cast<std::size_t>(window->vsgTest.Cols()));
  for (int col = 0; col < window->vsgTest.Cols(); ++col) widths.push_back(window->vsgTest.ColWidth(col));
  EXPECT_THAT(widths, ElementsAre(0, 1200, 2100, 2100, 1200, 900));
}

TEST_F(frmTestTest, LoadingTakesTheDeviceAndSendsThePartnerBackToItsStart) {
  Tag("Level").nQuality(192);
  window = std::make_unique<frmTest>();
  window->Form_Load();
  EXPECT_EQ(window->lblDVCName.Caption(), "Press");
  EXPECT_EQ(window->lblDVCType.Caption(), Device(1, 1).szDeviceTypeName());
  EXPECT_EQ(window->lblCurrRun.Caption(), "0");
  EXPECT_EQ(window->lblLastCommand.Caption(), "Grundstellung");
  EXPECT_FALSE(window->chkDoAbo.Checked());
  EXPECT_TRUE(window->chkDoCheck.Checked());
  EXPECT_EQ(window->Timer1.Interval(), 5000);
  EXPECT_FALSE(window->Timer1.Enabled());
  EXPECT_TRUE(window->cmdStart.Enabled());
  EXPECT_FALSE(window->cmdStop.Enabled());
  EXPECT_EQ(window->cycle.Step(), 0);
  EXPECT_EQ(Tag("Level").nQuality(), 0);
  EXPECT_THAT(server.TakeLog(), ElementsAre(Connect(kReserved), "write Press/COMMAND 0x0002=0"));
  EXPECT_THAT(Protocol(), ElementsAre(StartsWith(" /0   /")));
  EXPECT_THAT(Steps(), ElementsAre("Grundstellung"));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(frmTestTest, TheDemonstrationHasItsOwnServer) {
  modMain::globals.gbDemo = true;
  window = std::make_unique<frmTest>();
  window->Form_Load();
  EXPECT_EQ(server.log.at(0), "connect " + std::string(kDemoProgID) + kReserved);
}

TEST_F(frmTestTest, WithoutADeviceLoadingTellsTheError) {
  modMain::globals.gnCurrentDevice = 0;
  Open();
  EXPECT_THAT(Boxes(), ElementsAre("Fehler 91 in Prozedur Form_Load : Object variable or With block variable not set"));
  EXPECT_EQ(window->cycle.Step(), -1);
}

// ---- buttons and interval

TEST_F(frmTestTest, StartAndStopPauseTheCycleWhereItStands) {
  Open();
  window->cmdStart.UserClick();
  EXPECT_TRUE(window->Timer1.Enabled());
  EXPECT_FALSE(window->cmdStart.Enabled());
  EXPECT_TRUE(window->cmdStop.Enabled());
  Tick();
  window->cmdStop.UserClick();
  EXPECT_FALSE(window->Timer1.Enabled());
  EXPECT_TRUE(window->cmdStart.Enabled());
  EXPECT_FALSE(window->cmdStop.Enabled());
  Tick(3);
  EXPECT_EQ(window->cycle.Step(), 3);
  window->cmdStart.UserClick();
  EXPECT_EQ(window->lblCurrRun.Caption(), "1");
}

struct IntervalCase {
  const char* text;
  int interval;
  int sleep;
};

class Intervals : public TestRun, public testing::WithParamInterface<IntervalCase> {};

TEST_P(Intervals, ComeFromTheNumberOfTheField) {
  Open();
  window->txtInterval.UserText(GetParam().text);
  EXPECT_EQ(window->Timer1.Interval(), GetParam().interval);
  TickTo(1);
  AllGood();
  TickTo(4);
  Tick();
  EXPECT_THAT(desktop.Sleeps(), ElementsAre(GetParam().sleep));
  EXPECT_EQ(window->cycle.Step(), 2);
}

INSTANTIATE_TEST_SUITE_P(Texts, Intervals,
                         testing::Values(IntervalCase{"250", 250, 250}, IntervalCase{"", 10, 0},
                                         IntervalCase{"0", 10, 0}, IntervalCase{"abc", 10, 0},
                                         IntervalCase{"-5", 10, 0}, IntervalCase{"1500.5", 1500, 1500},
                                         IntervalCase{"1501.5", 1502, 1502}, IntervalCase{"20ms", 20, 20},
                                         IntervalCase{"0.2", 1, 0}));

TEST_F(frmTestTest, AnIntervalBeyondAllBoundsChangesNothingAndIsNotWaitedFor) {
  Open();
  window->txtInterval.UserText("99999999999");
  EXPECT_EQ(window->Timer1.Interval(), 5000);
  TickTo(1);
  AllGood();
  TickTo(4);
  Tick();
  EXPECT_THAT(desktop.Sleeps(), IsEmpty());
  EXPECT_EQ(window->cycle.Step(), 2);
  EXPECT_THAT(Boxes(), IsEmpty());
}

// ---- cycle

TEST_F(frmTestTest, AFullCycleSendsEveryCommandInItsOrder) {
  Open();
  window->txtSollRuns.UserText("2");
  window->cmdStart.UserClick();

  Tick();
  EXPECT_EQ(window->lblLastCommand.Caption(), "Tags Anlegen");
  EXPECT_EQ(window->cycle.Step(), 3);
  EXPECT_THAT(server.TakeLog(), ElementsAre("disconnect", Connect(kReserved + kRest)));

  Tick();
  EXPECT_EQ(window->lblLastCommand.Caption(), "Initialisieren");
  EXPECT_EQ(window->cycle.Step(), 1);
  EXPECT_THAT(server.TakeLog(), ElementsAre("disconnect", Connect(kReserved + kRest), "write Press/COMMAND 0x0002=1"));

  Tick(3);
  EXPECT_EQ(window->cycle.Step(), 1) << "waits for good quality of every tag";
  EXPECT_THAT(server.TakeLog(), IsEmpty());
  AllGood();
  Tick();
  EXPECT_EQ(window->lblLastCommand.Caption(), "Update");
  EXPECT_EQ(window->cycle.Step(), 4);
  EXPECT_THAT(server.TakeLog(), ElementsAre("write Press/COMMAND 0x0003=1", "write Press/RESULT 0x0003=1",
                                            "write Press/RESULTARRAY 0x0003=1", "write Press/Level 0x0008=5",
                                            "write Press/Idle 0x0003=1"));

  Tick();
  EXPECT_EQ(window->lblLastCommand.Caption(), kPruefen);
  EXPECT_EQ(window->cycle.Step(), 2);
  EXPECT_THAT(desktop.Sleeps(), ElementsAre(5000));
  EXPECT_THAT(server.TakeLog(), ElementsAre("disconnect", testing::_, "write Press/COMMAND 0x0002=2"));

  Tick();
  EXPECT_EQ(window->lblLastCommand.Caption(), "Grundstellung");
  EXPECT_EQ(window->cycle.Step(), 0);
  EXPECT_THAT(Steps(),
              ElementsAre("Grundstellung", "TagsAbonnieren", "Initialisierung", "Update", kPruefen, "Grundstellung"));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(frmTestTest, TheSecondRunKeepsItsSubscriptionUnlessItIsToBeMadeAnew) {
  for (const bool anew : {false, true}) {
    Open();
    window->txtSollRuns.UserText("2");
    if (anew) window->chkDoAbo.UserClick();
    TickTo(3);
    TickTo(1);
    AllGood();
    TickTo(0);
    static_cast<void>(server.TakeLog());
    Tick();
    EXPECT_EQ(window->lblCurrRun.Caption(), "2");
    EXPECT_EQ(window->cycle.Step(), 3);
    EXPECT_EQ(window->lblLastCommand.Caption(), anew ? "Tags Anlegen" : "Grundstellung");
    EXPECT_EQ(server.TakeLog().empty(), !anew);
  }
}

TEST_F(frmTestTest, TheClockStopsOneBehindTheWantedRuns) {
  Open();
  TickTo(1);
  AllGood();
  TickTo(0);
  EXPECT_EQ(window->lblCurrRun.Caption(), "1");
  EXPECT_TRUE(window->Timer1.Enabled());
  Tick();
  EXPECT_EQ(window->lblCurrRun.Caption(), "2");
  EXPECT_FALSE(window->Timer1.Enabled());
  EXPECT_TRUE(window->cmdStart.Enabled());
  EXPECT_EQ(window->cycle.Step(), 0);
}

TEST_F(frmTestTest, WithoutAWantedNumberNoRunBegins) {
  Open();
  window->txtSollRuns.UserText("");
  window->cmdStart.UserClick();
  Tick();
  EXPECT_FALSE(window->Timer1.Enabled());
  EXPECT_EQ(window->lblCurrRun.Caption(), "1");
}

TEST_F(frmTestTest, WithoutCheckAndSubscriptionTheReturnToTheStartComesTwice) {
  Open();
  window->chkDoCheck.UserClick();
  TickTo(1);
  AllGood();
  TickTo(4);
  const std::size_t before = Steps().size();
  Tick();
  EXPECT_EQ(window->cycle.Step(), 2);
  Tick();
  EXPECT_EQ(window->cycle.Step(), 0);
  const std::vector<std::string> steps = Steps();
  EXPECT_THAT(std::vector(steps.begin() + static_cast<std::ptrdiff_t>(before), steps.end()),
              ElementsAre("Grundstellung", "Grundstellung"));
  EXPECT_THAT(desktop.Sleeps(), IsEmpty());
}

TEST_F(frmTestTest, WithoutCheckButWithSubscriptionItComesOnce) {
  Open();
  window->chkDoCheck.UserClick();
  window->chkDoAbo.UserClick();
  TickTo(1);
  AllGood();
  TickTo(4);
  const std::size_t before = Steps().size();
  Tick();
  EXPECT_EQ(window->cycle.Step(), 2);
  EXPECT_EQ(Steps().size(), before);
  Tick();
  EXPECT_EQ(Steps().size(), before + 1);
}

TEST_F(frmTestTest, AStepOfNoOtherKindSubscribesAndReturnsToTheStart) {
  window = std::make_unique<frmTest>();
  window->device.Take(Device(1, 1));
  window->Timer1.Enabled(true);
  Tick();
  EXPECT_THAT(Steps(), ElementsAre("TagsAbonnieren", "Grundstellung"));
  EXPECT_EQ(window->cycle.Step(), 0);
}

TEST_F(frmTestTest, ADeviceWithoutTagsDoesNotWait) {
  AddDevice(Network(1), "Bare");
  Open();
  TickTo(1);
  Tick();
  EXPECT_EQ(window->cycle.Step(), 4);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(frmTestTest, ReturningToTheStartForgetsTheQualities) {
  Open();
  TickTo(1);
  AllGood();
  EXPECT_TRUE(Device(1, 1).Tags().QualityOK());
  TickTo(0);
  for (const cTag& tag : Device(1, 1).Tags()) EXPECT_EQ(tag.nQuality(), 0);
}

// ---- failures

TEST_F(frmTestTest, AServerThatIsAwayLetsTheCycleGoOnWithoutAWord) {
  server.away = true;
  Open();
  EXPECT_THAT(Steps(), ElementsAre("Grundstellung"));
  TickTo(3);
  EXPECT_THAT(Steps(), ElementsAre("Grundstellung")) << "a subscription that failed is no step";
  TickTo(1);
  EXPECT_THAT(Steps(), ElementsAre("Grundstellung", "Initialisierung"));
  Tick(3);
  EXPECT_EQ(window->cycle.Step(), 1);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(frmTestTest, AServerThatHasNoCommandItemIsPassedOverInSilence) {
  server.readOnly = {"Press/COMMAND"};
  Open();
  TickTo(3);
  Tick();
  EXPECT_EQ(window->cycle.Step(), 1);
  EXPECT_EQ(window->lblLastCommand.Caption(), "Initialisieren");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(frmTestTest, ADeviceWithoutACommandItemOnTheServerGoesThroughItsCycle) {
  cDevice& bare = AddDevice(Network(1), "Bare");
  AddTag(bare, "Level", "5");
  server.readOnly = {"Bare/COMMAND"};
  Open();
  EXPECT_EQ(window->device.Name(), "Bare");
  TickTo(1);
  server.Push({{"Bare/COMMAND", {{}, kBadConfiguration, {}}}, {"Bare/Level", {Number(1), kGood, {}}}});
  TickTo(4);
  EXPECT_THAT(server.TakeLog(), testing::Contains("write Bare/Level 0x0008=5"));
  TickTo(2);
  TickTo(0);
  EXPECT_THAT(server.TakeLog(), testing::IsSupersetOf({"write Bare/COMMAND 0x0002=2", "write Bare/COMMAND 0x0002=0"}));
  EXPECT_THAT(Steps(),
              ElementsAre("Grundstellung", "TagsAbonnieren", "Initialisierung", "Update", kPruefen, "Grundstellung"));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(frmTestTest, AMissingFolderOfTheProtocolIsToldAtEveryLineAndTheCycleGoesOn) {
  std::filesystem::remove_all(LogFolder());
  Open();
  TickTo(3);
  TickTo(1);
  const std::string box = "Fehler 76 in Prozedur SaveRunHeader : Path not found";
  EXPECT_THAT(Boxes(), ElementsAre(box, box, box));
}

// ---- one thing at a time

TEST_F(frmTestTest, ChangesThatComeDuringAStepAreTakenAfterIt) {
  Open();
  TickTo(3);
  bool early = false;
  server.OnConnect = [&] {
    // What came over the connection before: it was ended, so nobody is told.
    EXPECT_FALSE(server.Connected());
  };
  desktop.OnTold = [&](std::string_view what, std::string_view) {
    if (what != "box") return;
    AllGood();
    early = Device(1, 1).Tags().QualityOK();
    Tick();
  };
  std::filesystem::remove_all(LogFolder());  // so that the step opens a box
  Tick();
  EXPECT_FALSE(early);
  EXPECT_TRUE(Device(1, 1).Tags().QualityOK());
  EXPECT_EQ(window->cycle.Step(), 1);
  EXPECT_THAT(Boxes(), testing::SizeIs(1));
  EXPECT_EQ(window->vsgTest.Rows(), 6);
}

TEST_F(frmTestTest, ChangesOfAConnectionThatHasEndedAreForgotten) {
  Open();
  TickTo(1);
  server.Push("Press/Level", Number(1));
  window->items.Hold({&window->opcDC.ControlItems().ItemByName("Press/Level")});
  window->items.CreateCommandItems();
  EXPECT_THAT(window->items.Held(), IsEmpty());
}

class ValuesInEveryBox : public TestRun {
 protected:
  /// Up to the step after the check, without a protocol; from then on new values come in every box.
  void CheckWithoutProtocol() {
    Open();
    window->txtSollRuns.UserText("9");
    TickTo(1);
    AllGood();
    TickTo(2);
    std::filesystem::remove_all(LogFolder());
    desktop.OnTold = [this](std::string_view what, std::string_view) {
      constexpr std::size_t kMany = 50;  // so that a failure ends
      if (what != "box" || desktop.Boxes().size() > kMany) return;
      server.Push("Press/Level", Number(static_cast<std::int64_t>(desktop.Boxes().size())));
      server.Push("Press/Idle", Number(++idle));
    };
  }
  static constexpr const char* kResultLost = "Fehler 76 in Prozedur SaveResultArray : Path not found";
  static constexpr const char* kStepLost = "Fehler 76 in Prozedur SaveRunHeader : Path not found";
  std::int64_t idle = 100;
};

TEST_F(ValuesInEveryBox, OpenNoOtherBoxButAreTaken) {
  CheckWithoutProtocol();
  server.Push("Press/Level", Number(7));
  desktop.DoEvents();
  EXPECT_THAT(Boxes(), ElementsAre(kResultLost));
  EXPECT_EQ(Tag("Level").szTest2(), "1");
  EXPECT_EQ(Rows().back(), "Idle\tIdle\t\t101\t192");
  server.Push("Press/Level", Number(8));
  EXPECT_THAT(Boxes(), ElementsAre(kResultLost)) << "the next change is told again";
  window->cmdStop.UserClick();
  EXPECT_TRUE(window->cmdStart.Enabled());
  window->UserClose();
  EXPECT_FALSE(window->Visible());
}

TEST_F(ValuesInEveryBox, OfAStepAreOneResult) {
  CheckWithoutProtocol();
  TickTo(1);
  static_cast<void>(Boxes());
  AllGood();
  Tick();
  EXPECT_EQ(window->cycle.Step(), 4);
  EXPECT_THAT(Boxes(), ElementsAre(kStepLost)) << "not yet a result";
  Tick();
  EXPECT_EQ(window->cycle.Step(), 2);
  EXPECT_THAT(Boxes(), ElementsAre(kStepLost, kResultLost));
}

TEST_F(ValuesInEveryBox, DoNotHoldUpTheCycle) {
  CheckWithoutProtocol();
  const auto values = desktop.OnTold;
  desktop.OnTold = [&](std::string_view what, std::string_view text) {
    values(what, text);
    if (text == kResultLost) Tick(3);
  };
  server.Push("Press/Level", Number(7));
  EXPECT_EQ(window->cycle.Step(), 2) << "no tick within a change";
  desktop.DoEvents();
  EXPECT_EQ(window->cycle.Step(), 0) << "the ticks that fell due are one after it";
  EXPECT_THAT(Boxes(), ElementsAre(kResultLost, kStepLost));
  desktop.DoEvents();
  EXPECT_EQ(window->cycle.Step(), 0);
}

TEST_F(ValuesInEveryBox, TheTickThatFellDueComesNoMoreWhenTheClockHasStoppedOrTheWindowHasGone) {
  CheckWithoutProtocol();
  const auto values = desktop.OnTold;
  desktop.OnTold = [&](std::string_view what, std::string_view text) {
    values(what, text);
    Tick();
  };
  server.Push("Press/Level", Number(7));
  window->cmdStop.UserClick();
  desktop.DoEvents();
  EXPECT_EQ(window->cycle.Step(), 2);
  window->cmdStart.UserClick();
  server.Push("Press/Level", Number(7));
  window.reset();
  static_cast<void>(server.TakeLog());
  desktop.DoEvents();
  EXPECT_THAT(server.TakeLog(), IsEmpty());
  EXPECT_THAT(Boxes(), ElementsAre(kResultLost, kResultLost));
}

TEST_F(ValuesInEveryBox, WaitForTheTickThatFellDue) {
  CheckWithoutProtocol();
  const auto values = desktop.OnTold;
  desktop.OnTold = [&](std::string_view what, std::string_view text) {
    values(what, text);
    if (text == kResultLost) Tick();
  };
  server.Push("Press/Level", Number(7));
  server.Push("Press/Level", Number(8));
  server.Push("Press/Level", Number(9));
  EXPECT_THAT(Boxes(), ElementsAre(kResultLost));
  EXPECT_EQ(Tag("Level").szTest2(), "1");
  desktop.DoEvents();
  EXPECT_EQ(window->cycle.Step(), 0);
  EXPECT_THAT(Boxes(), ElementsAre(kStepLost));
}

TEST_F(ValuesInEveryBox, AreTakenAlsoWhenTheClockWasStoppedBeforeTheTickThatFellDue) {
  CheckWithoutProtocol();
  const auto values = desktop.OnTold;
  desktop.OnTold = [&](std::string_view what, std::string_view text) {
    values(what, text);
    Tick();
  };
  server.Push("Press/Level", Number(7));
  server.Push("Press/Level", Number(8));
  window->cmdStop.UserClick();
  desktop.OnTold = nullptr;
  desktop.DoEvents();
  EXPECT_EQ(window->cycle.Step(), 2);
  EXPECT_EQ(Tag("Level").szTest2(), "8");
  server.Push("Press/Level", Number(9));
  EXPECT_EQ(Tag("Level").szTest2(), "9");
}

// ---- end

TEST_F(frmTestTest, ClosingEndsTheConnectionAndLetsEventsRunThreeTimes) {
  Open();
  window->cmdStart.UserClick();
  const int before = desktop.EventRounds();
  desktop.Post([this] { Tick(); });
  window->UserClose();
  EXPECT_FALSE(window->Visible());
  EXPECT_EQ(desktop.EventRounds() - before, 3);
  EXPECT_FALSE(server.Connected());
  EXPECT_THAT(server.TakeLog(), ElementsAre("disconnect")) << "a last tick connects no more";
}

TEST_F(frmTestTest, ATickThatComesAfterTheEndDoesNothing) {
  for (const bool startedAtTheEnd : {false, true}) {
    Open();
    window->cmdStart.UserClick();
    Tick();
    if (startedAtTheEnd) {
      window->cmdStop.UserClick();
      desktop.Post([this] { window->cmdStart.UserClick(); });
    }
    const std::vector<std::string> before = Protocol();
    window->UserClose();
    static_cast<void>(server.TakeLog());
    Tick(3);
    desktop.DoEvents();
    EXPECT_THAT(server.TakeLog(), IsEmpty());
    EXPECT_EQ(Protocol(), before);
    EXPECT_EQ(window->cycle.Step(), 3);
  }
}

}  // namespace
}  // namespace tavrin
