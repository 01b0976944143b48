// The windows that work with the running server, on the screen: real keys and clicks, the real clock, real boxes.
#include <QAbstractItemModel>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "online/TestRun.h"
#include "online/frmOnline.h"
#include "online/frmReconfig.h"
#include "platform/qt/DialogView.h"
#include "platform/qt/GridView.h"
#include "platform/qt/ListBoxView.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/Text.h"

namespace tavrin {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::Ge;
using testing::IsEmpty;
using testing::Le;

class OnlineOnScreen : public TestRun {
 protected:
  OnlineOnScreen() { modMain::globals.services = &onScreen; }
  ~OnlineOnScreen() override { modMain::globals.services = &services; }

  /// Opens a window modally; what is done in it has to close it.
  void Shown(Form& form, const std::function<void()>& act) {
    QTimer::singleShot(0, [&] {
      view = dynamic_cast<DialogView*>(QApplication::activeModalWidget());
      if (view != nullptr && QTest::qWaitForWindowActive(view)) act();
      EXPECT_NE(view, nullptr);
      EXPECT_FALSE(form.Visible());
      form.Hide();
    });
    screen.ShowModal(form);
    view = nullptr;
  }
  template <class Kind>
  [[nodiscard]] Kind& Widget(const Control& control) const {
    return dynamic_cast<Kind&>(*view->Views().WidgetOf(control));
  }
  /// Texts of the labels that stand on the screen.
  [[nodiscard]] std::vector<std::string> Texts(const ControlArray<Label>& labels,
                                               const std::vector<int>& indexes) const {
    std::vector<std::string> shown;
    shown.reserve(indexes.size());
    for (const int index : indexes) shown.push_back(Widget<QLabel>(labels(index)).text().toStdString());
    return shown;
  }
  void Press(const Button& button) const { QTest::mouseClick(&Widget<QPushButton>(button), Qt::LeftButton); }
  void Type(const TextBox& field, const char* text) const {
    auto& line = Widget<QLineEdit>(field);
    QTest::mouseClick(&line, Qt::LeftButton);
    QTest::keyClick(&line, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&line, QString::fromLatin1(text));
  }
  /// Rows of a grid on the screen, their cells joined by blanks.
  static std::vector<std::string> ShownRows(const GridView& grid) {
    std::vector<std::string> rows;
    const QAbstractItemModel& model = *grid.model();
    for (int row = 0; row < model.rowCount(); ++row) {
      std::string text;
      for (int col = 0; col < model.columnCount(); ++col) {
        text += (col == 0 ? "" : " ") + model.index(row, col).data().toString().toStdString();
      }
      rows.push_back(text);
    }
    return rows;
  }

  QtWords words{[] { return std::string("en"); }};
  QtDesktop screen{words, [] { return std::string("Program"); }};
  Services onScreen{screen, files, files, registry, texts, syntax, settings, around.all, directory.Path() + "app"};
  DialogView* view = nullptr;  // of the open window
};

// ---- the monitor of a tag

class MonitorOnScreen : public OnlineOnScreen {
 protected:
  MonitorOnScreen() {
    monitor.szDeviceName("Press");
    monitor.szTag("Level");
    monitor.szData("MW10");
    monitor.szRW("RW");
    monitor.Form_Load();
  }

  frmOnline monitor;
};

TEST_F(MonitorOnScreen, NameValueQualityAndTimeStampStandInTheirLabels) {
  Shown(monitor, [this] {
    EXPECT_EQ(view->windowTitle(), QStringLiteral("#150"));
    EXPECT_THAT(Texts(monitor.Label1, {0, 1, 2, 6, 7, 8}), ElementsAre("#4", "#5", "#6", "#151", "#152", "#153"));
    EXPECT_THAT(Texts(monitor.Label1, {3, 4, 5, 9, 10, 11}), ElementsAre("Press/Level", "MW10", "RW", "", "", ""));
    server.Push("Press/Level", {VariantType::Double, 1.5}, kGood, Join({2026, 8, 9, 23, 1, 2, 0}));
    EXPECT_THAT(Texts(monitor.Label1, {9, 10, 11}), ElementsAre("1,5", "good (non-specific)", "10.08.2026 00:01:02"));
    EXPECT_FALSE(Widget<QLabel>(monitor.Label1(9)).visibleRegion().isEmpty());
    Press(monitor.cmdAction(0));
  });
  EXPECT_FALSE(server.Connected());
}

TEST_F(MonitorOnScreen, EnterAndEscapeCloseIt) {
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
    frmOnline other;
    other.szDeviceName("Press");
    other.szTag("Level");
    other.Form_Load();
    EXPECT_TRUE(server.Connected());
    Shown(other, [&] { QTest::keyClick(QApplication::focusWidget(), key); });
    EXPECT_FALSE(server.Connected());
  }
}

// ---- the restart of the server

TEST_F(OnlineOnScreen, TwoRestartsFillTheListWithEightLines) {
  frmReconfig restart;
  Shown(restart, [&] {
    const auto& list = Widget<ListBoxView>(restart.List1);
    EXPECT_EQ(list.toPlainText(), QString());
    Press(restart.cmdAction(0));
    Press(restart.cmdAction(0));
    EXPECT_EQ(list.toPlainText(), QStringLiteral("#85\n#86\n#92\n#93\n#85\n#86\n#92\n#93"));
    Press(restart.cmdAction(1));
  });
  EXPECT_EQ(around.service.starts, 2);
}

// ---- the test run

class RunOnScreen : public OnlineOnScreen {
 protected:
  static constexpr int kLongest = 20'000;  // milliseconds that a run may take

  RunOnScreen() { Open().Hide(); }
  /// Every few milliseconds a new value of each item, also while a handler of the one before is at work.
  void MoveValues() {
    QTimer::singleShot(5, &values, [this] { MoveValues(); });
    ++value;
    for (const char* name : {"COMMAND", "RESULT", "RESULTARRAY", "Level", "Idle"}) {
      server.Push(std::string("Press/") + name, Number(value));
    }
  }
  void StartWith(const char* runs, const char* interval) {
    Type(window->txtSollRuns, runs);
    Type(window->txtInterval, interval);
    Press(window->cmdStart);
    MoveValues();
  }
  [[nodiscard]] bool StopsByItself() const {
    return QTest::qWaitFor([this] { return !window->Timer1.Enabled(); }, kLongest);
  }

  QObject values;
  std::int64_t value = 0;
};

TEST_F(RunOnScreen, TwoRunsFillTheGridAndStopByThemselves) {
  Shown(*window, [this] {
    const auto& grid = Widget<GridView>(window->vsgTest);
    EXPECT_THAT(ShownRows(grid), IsEmpty());
    StartWith("2", "20");
    EXPECT_FALSE(Widget<QPushButton>(window->cmdStart).isEnabled());
    ASSERT_TRUE(StopsByItself());
    EXPECT_EQ(Widget<QLabel>(window->lblCurrRun).text(), QStringLiteral("3"));
    EXPECT_EQ(Widget<QLabel>(window->lblLastCommand).text(), QStringLiteral("Grundstellung"));
    EXPECT_TRUE(Widget<QPushButton>(window->cmdStart).isEnabled());
    EXPECT_FALSE(Widget<QPushButton>(window->cmdStop).isEnabled());
    const std::vector<std::string> rows = ShownRows(grid);
    ASSERT_EQ(rows.size(), 5U);
    EXPECT_THAT(rows[3], testing::MatchesRegex("Level Level 5 [0-9]+ 192 "));
    QTest::keyClick(view, Qt::Key_Escape);
  });
  const std::vector<std::string> steps = Steps();
  EXPECT_EQ(std::count(steps.begin(), steps.end(), "Update"), 2);
  EXPECT_EQ(std::count(steps.begin(), steps.end(), "TagsAbonnieren"), 1);
  EXPECT_EQ(std::count(steps.begin(), steps.end(), "Grundstellung"), 3);
  EXPECT_FALSE(server.Connected());
}

TEST_F(RunOnScreen, AWindowThatIsClosedWhileTheClockRunsConnectsNoMore) {
  Shown(*window, [this] {
    StartWith("1000", "1");
    ASSERT_TRUE(QTest::qWaitFor([this] { return window->cycle.Run() > 1; }, kLongest));
    view->close();
    const std::vector<std::string> before = Protocol();
    QTest::qWait(50);  // the view and its clock are still there
    EXPECT_EQ(server.log.back(), "disconnect");
    EXPECT_EQ(Protocol(), before);
  });
  QTest::qWait(20);
  EXPECT_EQ(server.log.back(), "disconnect");
}

/// A user who closes each box after a while, during which values move.
class BoxesOfARun : public RunOnScreen {
 protected:
  BoxesOfARun() {
    QObject::connect(&user, &QTimer::timeout, [this] {
      auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box == nullptr) return;
      boxes.push_back(box->text().toStdString());
      mostOpen = std::max(mostOpen, OpenBoxes());
      QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
    });
    user.start(40);
    std::filesystem::remove_all(LogFolder());
  }
  static int OpenBoxes() {
    int open = 0;
    for (const QWidget* const widget : QApplication::topLevelWidgets()) {
      if (widget->isVisible() && qobject_cast<const QMessageBox*>(widget) != nullptr) ++open;
    }
    return open;
  }
  [[nodiscard]] std::ptrdiff_t BoxesOf(const std::string& routine) const {
    return std::count(boxes.begin(), boxes.end(), "Fehler 76 in Prozedur " + routine + " : Path not found");
  }

  QTimer user;
  std::vector<std::string> boxes;
  int mostOpen = 0;
};

TEST_F(BoxesOfARun, WithoutAProtocolComeOneByOneAndTheRunComesToItsEnd) {
  Shown(*window, [this] {
    StartWith("1", "20");
    EXPECT_TRUE(StopsByItself());
    view->close();
  });
  EXPECT_EQ(mostOpen, 1);
  EXPECT_EQ(BoxesOf("SaveRunHeader"), 5) << "one a step";
  EXPECT_THAT(BoxesOf("SaveResultArray"), AllOf(Ge(1), Le(4)));
}

TEST_F(BoxesOfARun, LeaveTheUserAMomentToStopTheClockAndToClose) {
  Shown(*window, [this] {
    StartWith("1000", "20");
    ASSERT_TRUE(QTest::qWaitFor([&] { return BoxesOf("SaveResultArray") > 1 && OpenBoxes() == 0; }, kLongest));
    Press(window->cmdStop);
    EXPECT_FALSE(window->Timer1.Enabled());
    view->close();
  });
  EXPECT_EQ(mostOpen, 1);
}

}  // namespace
}  // namespace tavrin
