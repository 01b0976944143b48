// Lists, timers and dialogs with large controls, in a window of the test's own that a session opens.
#include <functional>
#include <memory>

#include "app/session/Around.h"
#include "app/session/Reach.h"
#include "app/session/SessionTest.h"
#include "app/session/Subjects.h"
#include "app/session/Watcher.h"
#include "platform/controls/Button.h"
#include "platform/controls/Picture.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Timer.h"

namespace tavrin {
namespace {

using testing::HasSubstr;
using testing::Not;

struct Window : Form {
  Window() : Form("frmLists") {
    Caption("Lists");
    files.Header("Files", 3000);
    files.Add({{"A", "a.txt", "OK", false}, {"B", "b.txt", "NOK", true}, {"C", "c|d.txt", "NOK", true}});
    files.OnItemCheck = [this](int row) { steps.AddItem("ticked " + std::to_string(row)); };
    timer.OnTimer = [this] { Tick(); };
    grid.Shape(2, 1, 1, 0);
    picture.Image("NOK");
    save.Caption("&Save");
    save.OnClick = [this] { steps.AddItem("saved"); };
    Arrangement({{&files}, {&picture, &field}, {&grid}, {&steps}, {&save}});
  }
  void Tick() {
    ++ticks;
    steps.AddItem("tick");
    if (ticks == stopAt) timer.Enabled(false);
    if (ticks == closeAt) Hide();
  }

  ListView files{*this, "ListView1"};
  ListBox steps{*this, "List1"};
  Timer timer{*this, "Timer1"};
  Grid grid{*this, "vsgTest"};
  Picture picture{*this, "Picture1", PictureKind::Image};
  TextBox field{*this, "txtRuns"};
  CheckBox box{*this, "chkTest"};
  Button save{*this, "cmdAction"};
  int ticks = 0;
  int stopAt = 0;
  int closeAt = 0;
};

/// Lines are done in the window, by the words of the language and without a program.
struct Lists : SessionTest {
  Lists() {
    stage.Enter(window);
    window.Show();
  }

  /// @return the reason of the line that could not be done, empty when all were
  std::string Do(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    ScriptParser parser({});
    EXPECT_TRUE(parser.Parse(text));
    const auto wrong = FindFault(parser.Lines());
    EXPECT_FALSE(wrong) << wrong->message;
    transcript.clear();
    watcher.TellChanges(stage.transcript);
    transcript.clear();
    try {
      for (const ScriptLine& line : parser.Lines()) {
        FindVerb(line.words[0])->act(stage, Words(line.words).subspan(1));
        watcher.TellChanges(stage.transcript);
      }
    } catch (const Refusal& refusal) {
      return refusal.message;
    }
    return {};
  }

  Stage stage{services, [this](std::string_view line) { transcript += line; }};
  Window window;
  Watcher watcher{window};
};

TEST_F(Lists, RowsAreTickedByTheirText) {
  EXPECT_EQ(Do({"tick ListView1 a.txt", "untick ListView1 b.txt", "expect ticked ListView1 a.txt|c|d.txt"}), "");
  EXPECT_THAT(transcript, HasSubstr("  current ListView1 \"a.txt\"\n  focus \"ListView1\"\n"
                                    "  ticked ListView1 \"a.txt|b.txt|c|d.txt\"\n  line List1 1 \"ticked 0\"\n"));
}

TEST_F(Lists, ATickThatIsThereAlreadyIsRefused) {
  EXPECT_EQ(Do({"tick ListView1 b.txt"}), "\"b.txt\" is ticked already");
  EXPECT_EQ(Do({"untick ListView1 a.txt"}), "\"a.txt\" is not ticked");
  EXPECT_EQ(Do({"tick ListView1 x.txt"}), "ListView1 has no row \"x.txt\"");
  EXPECT_EQ(Do({"tick List1 x"}), "List1 is no list with boxes");
  window.files.Enabled(false);
  EXPECT_EQ(Do({"tick ListView1 a.txt"}), "ListView1 is disabled");
}

TEST_F(Lists, KeysGoToARowAndTheSpaceBarTicksIt) {
  EXPECT_EQ(Do({"select ListView1 b.txt", "key Space", "expect ticked ListView1 c|d.txt", "key space",
                "expect ticked ListView1 b.txt|c|d.txt", "expect current ListView1 b.txt"}),
            "");
  EXPECT_EQ(Do({"select ListView1 x.txt"}), "ListView1 has no row \"x.txt\"");
  EXPECT_THAT(Do({"select ListView1 1 2"}), HasSubstr("wanted"));
}

TEST_F(Lists, TheSpaceBarPressesWhatHasTheKeyboard) {
  EXPECT_EQ(Do({"focus chkTest", "key Space", "expect checked chkTest yes", "focus cmdAction", "key Space",
                "expect line List1 1 saved"}),
            "");
  EXPECT_THAT(Do({"focus List1", "expect focus List1", "key Space"}), HasSubstr("means nothing here"));
  EXPECT_THAT(Do({"focus ListView1", "key Space"}), HasSubstr("means nothing here")) << "no row is current";
}

TEST_F(Lists, AreLookedAtByTheirRowsAndLines) {
  window.steps.AddItem("one");
  window.steps.AddItem("two");
  EXPECT_EQ(Do({"expect rows ListView1 3", "expect icon ListView1 a.txt OK", "expect icon ListView1 b.txt NOK",
                "expect header ListView1 Files", "expect current ListView1 \"\"", "expect lines List1 2",
                "expect line List1 2 two"}),
            "");
  EXPECT_EQ(Do({"expect line List1 3 x"}), "List1 has no line 3");
  EXPECT_EQ(Do({"expect line List1 0 x"}), "List1 has no line 0");
  EXPECT_EQ(Do({"expect lines ListView1 3"}), "ListView1 is no list of lines");
  EXPECT_EQ(Do({"expect rows List1 2"}), "List1 is no grid");
}

TEST_F(Lists, ArePrinted) {
  window.steps.AddItem("one");
  EXPECT_EQ(Do({"print list ListView1", "print list List1"}), "");
  EXPECT_EQ(transcript,
            "  row \"a.txt\" OK\n  row \"b.txt\" NOK ticked\n  row \"c|d.txt\" NOK ticked\n  line \"one\"\n");
  window.steps.Visible(false);
  EXPECT_EQ(Do({"print list List1"}), "List1 is not on show");
  EXPECT_EQ(Do({"print list vsgTest"}), "vsgTest is no list of lines");
}

TEST_F(Lists, ADialogWithLargeControlsAndPicturesIsPrinted) {
  window.field.Text("5");
  EXPECT_EQ(Do({"print dialog"}), "");
  EXPECT_EQ(transcript,
            "  ListView1 rows 3\n  Picture1 picture NOK\n  txtRuns \"5\"\n  vsgTest rows 2\n  List1 lines 0\n"
            "  cmdAction \"Save\"\n");
}

TEST_F(Lists, EachNewLineIsToldAndAListThatWasEmptied) {
  EXPECT_EQ(Do({"click cmdAction", "click cmdAction"}), "");
  EXPECT_EQ(transcript, "  line List1 1 \"saved\"\n  line List1 2 \"saved\"\n");
  window.save.OnClick = [this] {
    window.steps.Clear();
    window.steps.AddItem("again");
  };
  EXPECT_EQ(Do({"click cmdAction"}), "");
  EXPECT_EQ(transcript, "  lines List1 \"1\"\n  line List1 1 \"again\"\n");
}

TEST_F(Lists, ARunningTimerTicksWhenItsTimeIsSaidToCome) {
  EXPECT_EQ(Do({"elapse Timer1"}), "Timer1 does not run");
  window.timer.Enabled(true);
  EXPECT_EQ(Do({"elapse Timer1", "elapse Timer1 3"}), "");
  EXPECT_EQ(window.ticks, 4);
  EXPECT_THAT(transcript, HasSubstr("  line List1 4 \"tick\"\n"));
}

TEST_F(Lists, ATimerThatIsStoppedOrWhoseWindowClosesTicksNoMore) {
  window.timer.Enabled(true);
  window.stopAt = 2;
  EXPECT_EQ(Do({"elapse Timer1 100"}), "");
  EXPECT_EQ(window.ticks, 2);
  window.timer.Enabled(true);
  window.closeAt = 5;
  EXPECT_EQ(Do({"elapse Timer1 100"}), "");
  EXPECT_EQ(window.ticks, 5);
}

TEST_F(Lists, OnlyATimerTicksAndAtLeastOnce) {
  window.timer.Enabled(true);
  EXPECT_EQ(Do({"elapse List1"}), "List1 is no timer");
  EXPECT_EQ(Do({"elapse Timer1 0"}), "a timer ticks at least once");
  EXPECT_EQ(Do({"elapse Timer2"}), "frmLists has no control Timer2");
}

}  // namespace
}  // namespace tavrin
