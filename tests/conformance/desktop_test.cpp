// The desktop on a screen: boxes, questions, dialogs, the pointer and the end of the program.
#include <QAbstractButton>
#include <QApplication>
#include <QCursor>
#include <QDialogButtonBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <QWidget>
#include <atomic>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "platform/RuntimeError.h"
#include "platform/controls/Button.h"
#include "platform/controls/Form.h"
#include "platform/qt/QtDesktop.h"

namespace tavrin {
namespace {

class DesktopOnScreen : public testing::Test {
 protected:
  /// What a user does in the next dialog.
  template <class Dialog>
  static void Act(const std::function<void(Dialog& dialog)>& act) {
    QTimer::singleShot(0, [act] {
      auto* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      act(*dialog);
    });
  }
  static void Press(QMessageBox& box, QMessageBox::StandardButton button) {
    QTest::mouseClick(box.button(button), Qt::LeftButton);
  }
  /// Types a name into the dialog for files and enters it.
  static void EnterName(QFileDialog& dialog, const QString& name) {
    auto* const field = dialog.findChild<QLineEdit*>();
    ASSERT_NE(field, nullptr);
    field->setText(name);
    QTest::keyClick(field, Qt::Key_Return);
  }

  std::string language = "en";
  QtWords words{[this] { return language; }};
  QtDesktop desktop{words, [] { return std::string("Program"); }};
};

TEST_F(DesktopOnScreen, ABoxShowsItsTextAsItStands) {
  Act<QMessageBox>([](QMessageBox& box) {
    EXPECT_EQ(box.text(), QStringLiteral("<b>Größe</b> & more"));
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.windowTitle(), QStringLiteral("Program"));
    EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
    Press(box, QMessageBox::Ok);
  });
  desktop.ShowBox(
      "<b>Gr\xF6\xDF"
      "e</b> & more");
}

TEST_F(DesktopOnScreen, AVeryLongTextStaysOnTheScreenAndCanBeReadInFull) {
  std::string text;
  for (int i = 0; i < 500; ++i) text += "a long line of a text that nobody can foresee\r\n";
  Act<QMessageBox>([&text](QMessageBox& box) {
    EXPECT_LT(box.height(), 500);
    EXPECT_EQ(box.detailedText().size(), static_cast<qsizetype>(text.size()) - 500);  // a line ends in one character
    Press(box, QMessageBox::Ok);
  });
  desktop.ShowBox(text);
}

TEST_F(DesktopOnScreen, AWordThatIsLongerThanALineIsBroken) {
  Act<QMessageBox>([](QMessageBox& box) {
    EXPECT_LT(box.width(), 1200);
    EXPECT_EQ(box.text().remove(QChar(0x200B)), QString(700, QLatin1Char('w')));
    Press(box, QMessageBox::Ok);
  });
  desktop.ShowBox(std::string(700, 'w'));
}

TEST_F(DesktopOnScreen, OnlyYesIsYes) {
  Act<QMessageBox>([](QMessageBox& box) { Press(box, QMessageBox::Yes); });
  EXPECT_TRUE(desktop.AskYesNo("Really?"));
  Act<QMessageBox>([](QMessageBox& box) { Press(box, QMessageBox::No); });
  EXPECT_FALSE(desktop.AskYesNo("Really?"));
  Act<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
  EXPECT_FALSE(desktop.AskYesNo("Really?"));
  Act<QMessageBox>([](QMessageBox& box) { box.close(); });
  EXPECT_FALSE(desktop.AskYesNo("Really?"));
}

TEST_F(DesktopOnScreen, ButtonsSpeakTheLanguageOfTheProgram) {
  for (const auto& [name, word] : {std::pair("de", "&Ja"), std::pair("en", "&Yes")}) {
    language = name;
    Act<QMessageBox>([word = word](QMessageBox& box) {
      EXPECT_EQ(box.button(QMessageBox::Yes)->text().toStdString(), word);
      Press(box, QMessageBox::No);
    });
    EXPECT_FALSE(desktop.AskYesNo("?"));
  }
}

TEST_F(DesktopOnScreen, TheHourglassGivesWayToWhatTheUserIsAsked) {
  desktop.Pointer(MousePointer::Hourglass);
  ASSERT_NE(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  Act<QMessageBox>([](QMessageBox& box) {
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    Press(box, QMessageBox::Ok);
  });
  desktop.ShowBox("Done");
  EXPECT_NE(QApplication::overrideCursor(), nullptr);
  desktop.Pointer(MousePointer::Hourglass);
  desktop.Pointer(MousePointer::Normal);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(DesktopOnScreen, TheDialogForAFileBeginsAsAsked) {
  const QTemporaryDir directory;
  QFile(directory.filePath(QStringLiteral("A.ini"))).open(QIODevice::WriteOnly);
  Act<QFileDialog>([&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.directory().canonicalPath(), QDir(directory.path()).canonicalPath());
    EXPECT_EQ(dialog.nameFilters(), QStringList(QStringLiteral("Project (A.ini)")));
    EXPECT_EQ(dialog.findChild<QLineEdit*>()->text(), QStringLiteral("A.ini"));
    QTest::keyClick(dialog.findChild<QLineEdit*>(), Qt::Key_Return);
  });
  const auto file = desktop.AskOpenFile({"A.ini", "(Project)|A.ini", directory.path().toStdString()});
  EXPECT_EQ(file, directory.filePath(QStringLiteral("A.ini")).toStdString());
}

TEST_F(DesktopOnScreen, ANameThatDoesNotExistCanBeEntered) {
  const QTemporaryDir directory;
  Act<QFileDialog>([](QFileDialog& dialog) { EnterName(dialog, QStringLiteral("Other.txt")); });
  const auto file = desktop.AskOpenFile({"A.ini", "(Project)|A.ini", directory.path().toStdString()});
  EXPECT_EQ(file, directory.filePath(QStringLiteral("Other.txt")).toStdString());
}

TEST_F(DesktopOnScreen, AFileDialogThatIsGivenUpGivesNothing) {
  Act<QFileDialog>([](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
  EXPECT_EQ(desktop.AskOpenFile({"A.ini", "(Project)|A.ini", "/no/such/directory"}), std::nullopt);
}

TEST_F(DesktopOnScreen, ANameBeyondTheCodePageIsAnErrorAndNoOtherName) {
  const QTemporaryDir directory;
  Act<QFileDialog>([](QFileDialog& dialog) { EnterName(dialog, QStringLiteral("\u65E5.ini")); });
  EXPECT_THROW(static_cast<void>(desktop.AskOpenFile({"", "(Project)|A.ini", directory.path().toStdString()})),
               RuntimeError);
}

TEST_F(DesktopOnScreen, ADirectoryIsChosenOrNot) {
  Act<QFileDialog>([](QFileDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Choose"));
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  EXPECT_EQ(desktop.AskFolder("Choose"), "");
  const QTemporaryDir directory;
  Act<QFileDialog>([&](QFileDialog& dialog) { EnterName(dialog, directory.path()); });
  EXPECT_EQ(desktop.AskFolder("Choose"), directory.path().toStdString());
}

TEST_F(DesktopOnScreen, APostedActionRunsOnTheWindowsThreadInTheOrderOfTheCalls) {
  std::vector<int> ran;
  const QThread* where = nullptr;
  std::thread other([&] {
    for (const int number : {1, 2, 3}) {
      desktop.Post([&, number] {
        ran.push_back(number);
        where = QThread::currentThread();
      });
    }
  });
  other.join();
  EXPECT_TRUE(ran.empty()) << "not before the events come";
  desktop.DoEvents();
  EXPECT_EQ(ran, (std::vector{1, 2, 3}));
  EXPECT_EQ(where, QThread::currentThread());
}

TEST_F(DesktopOnScreen, APostedActionRunsWhileABoxIsOpen) {
  bool ran = false;
  desktop.Post([&] {
    ran = true;
    QApplication::activeModalWidget()->close();
  });
  desktop.ShowBox("Wait");
  EXPECT_TRUE(ran);
}

TEST_F(DesktopOnScreen, WhatIsPostedToADesktopThatHasGoneNeverRuns) {
  bool ran = false;
  {
    QtDesktop gone(words, [] { return std::string(); });
    gone.Post([&] { ran = true; });
  }
  QCoreApplication::processEvents();
  EXPECT_FALSE(ran);
}

TEST_F(DesktopOnScreen, AWaitIsWokenByAPostOfAnotherThread) {
  std::atomic<bool> done = false;
  std::thread other([&] {
    QThread::msleep(20);
    desktop.Post([&] { done = true; });
  });
  EXPECT_TRUE(desktop.WaitUntil([&] { return done.load(); }, 60'000));
  other.join();
}

TEST_F(DesktopOnScreen, AWaitEndsOnTimeAndTellsWhatIsTrueThen) {
  QElapsedTimer clock;
  for (const int milliseconds : {1, 20, 30, 50, 70}) {
    clock.start();
    EXPECT_FALSE(desktop.WaitUntil([] { return false; }, milliseconds));
    EXPECT_GE(clock.elapsed(), milliseconds - 1);
    EXPECT_LT(clock.elapsed(), 10'000);
  }
  clock.start();
  EXPECT_FALSE(desktop.WaitUntil([] { return false; }, 0));
  EXPECT_FALSE(desktop.WaitUntil([] { return false; }, -1)) << "a time that has gone by is no time";
  EXPECT_LT(clock.elapsed(), 10'000);
}

TEST_F(DesktopOnScreen, AWaitForWhatIsTrueAlreadyRunsNothing) {
  bool ran = false;
  desktop.Post([&] { ran = true; });
  EXPECT_TRUE(desktop.WaitUntil([] { return true; }, 60'000));
  EXPECT_FALSE(ran);
  desktop.DoEvents();
  EXPECT_TRUE(ran);
}

TEST_F(DesktopOnScreen, AWaitWithinAWaitEndsFirst) {
  bool outer = false;
  bool inner = false;
  std::vector<std::string> order;
  desktop.Post([&] {
    desktop.Post([&] { outer = true; });
    desktop.Post([&] { inner = true; });
    EXPECT_TRUE(desktop.WaitUntil([&] { return inner; }, 60'000));
    order.emplace_back("inner");
  });
  EXPECT_TRUE(desktop.WaitUntil([&] { return outer; }, 60'000));
  order.emplace_back("outer");
  EXPECT_EQ(order, (std::vector<std::string>{"inner", "outer"}));
}

TEST_F(DesktopOnScreen, WindowsArePaintedDuringAWait) {
  struct Painted : QWidget {
    void paintEvent(QPaintEvent*) override { ++times; }
    int times = 0;
  } window;
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  const int before = window.times;
  desktop.Post([&] { window.update(); });
  EXPECT_TRUE(desktop.WaitUntil([&] { return window.times > before; }, 60'000));
}

TEST_F(DesktopOnScreen, WhatTheUserDoesDuringAWaitComesBehindIt) {
  struct Pointed : QWidget {
    Pointed() { setMouseTracking(true); }
    void mouseMoveEvent(QMouseEvent*) override { ++moves; }
    int moves = 0;
  } window;
  window.setGeometry(100, 100, 200, 200);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  QCursor::setPos(window.mapToGlobal(QPoint(20, 20)));
  ASSERT_TRUE(QTest::qWaitFor([&] { return window.moves > 0; }));
  const int before = window.moves;
  bool moved = false;
  desktop.Post([&] {
    QCursor::setPos(window.mapToGlobal(QPoint(50, 50)));  // comes the way of all that the user does
    moved = true;
  });
  EXPECT_FALSE(desktop.WaitUntil([&] { return window.moves > before; }, 100));
  EXPECT_TRUE(moved);
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.moves > before; })) << "it is not lost";
}

TEST_F(DesktopOnScreen, StandingStillRunsNothing) {
  bool ran = false;
  desktop.Post([&] { ran = true; });
  QElapsedTimer clock;
  clock.start();
  desktop.Sleep(30);
  EXPECT_GE(clock.elapsed(), 29);
  desktop.Sleep(-1);
  EXPECT_FALSE(ran);
}

TEST_F(DesktopOnScreen, TheEndOfTheProgramEndsAWaitAndNothingPostedRunsAfterIt) {
  bool before = false;
  bool after = false;
  desktop.Post([&] {
    before = true;
    desktop.EndProcess();
  });
  desktop.Post([&] { after = true; });
  QTimer::singleShot(0, [&] { EXPECT_FALSE(desktop.WaitUntil([] { return false; }, 60'000)); });
  QApplication::exec();
  std::thread([&] { desktop.Post([&] { after = true; }); }).join();
  desktop.DoEvents();
  EXPECT_TRUE(before);
  EXPECT_FALSE(after);
}

TEST(FileFilter, HasTheFormOfTheToolkit) {
  EXPECT_EQ(NameFilter("(OPC project)|ZOPCSRV.ini"), QStringLiteral("OPC project (ZOPCSRV.ini)"));
  EXPECT_EQ(NameFilter("(OPC project ZOPCSRV.ini)|ZOPCSRV.ini"), QStringLiteral("OPC project (ZOPCSRV.ini)"));
  EXPECT_EQ(NameFilter("Texts|*.txt;*.csv"), QStringLiteral("Texts (*.txt *.csv)"));
  EXPECT_EQ(NameFilter("All"), QStringLiteral("All (*)"));
}

TEST_F(DesktopOnScreen, TheEndOfTheProgramEndsEveryLoopAndLetsNoEventThrough) {
  Form form("frmTest");
  CheckBox box(form, "chkTest");
  form.Arrangement({{&box}});
  bool after = false;
  bool late = false;
  QTimer::singleShot(0, [&] {
    QTimer::singleShot(0, [&] {
      QTimer::singleShot(0, [&] { late = true; });
      desktop.EndProcess();
      after = true;
    });
    desktop.ShowModal(form);  // returns although nobody closes the window
  });
  QApplication::exec();
  EXPECT_TRUE(after) << "the caller goes on to its end";
  EXPECT_TRUE(desktop.Ended());
  QCoreApplication::processEvents();
  EXPECT_FALSE(late);
  EXPECT_FALSE(desktop.AskYesNo("?")) << "nobody is there to answer";
  desktop.ShowBox("not shown");
}

}  // namespace
}  // namespace tavrin
