// The clean-up of the project directory by real keys and clicks: its rules hold on the screen as without one.
#include <QHeaderView>
#include <QIcon>
#include <QLabel>
#include <QTest>
#include <QTreeView>
#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "conformance/ToolsShown.h"
#include "model/cDevice.h"
#include "model/cNetwork.h"
#include "platform/qt/Icons.h"
#include "platform/qt/ListViewView.h"
#include "platform/qt/Text.h"
#include "support/ProjectTest.h"
#include "tools/frmSettle.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace fs = std::filesystem;

using Settle = ShownWindow<frmSettle>;

class SettleOnScreen : public ProjectTest {
 protected:
  /// The three files of a project with one network that has one device.
  void MakeProject() {
    AddDevice(AddNetwork(NetworkType::Mpi, "Net"), "Dev");
    for (const char* name : {"ZOPCSRV.ini", "Net.ini", "Dev.csv"}) directory.Write(name, name);
  }
  static ListViewView& ListOf(Settle& window) { return window.Widget<ListViewView>(); }

  /// "NOK" or "OK" by the picture that is drawn in a row.
  static std::string Drawn(const QIcon& icon) {
    constexpr QSize kSize(16, 16);
    for (const char* key : {"OK", "NOK"}) {
      if (icon.pixmap(kSize).toImage() == IconOf(key).pixmap(kSize).toImage()) return key;
    }
    return "none";
  }
  /// A row as its name, its picture and a cross for a tick: "a.txt NOK x".
  static std::vector<std::string> Rows(Settle& window) {
    const QAbstractItemModel& model = *ListOf(window).model();
    std::vector<std::string> rows;
    for (int row = 0; row < model.rowCount(); ++row) {
      const QModelIndex index = model.index(row, 0);
      const bool ticked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
      rows.push_back(index.data().toString().toStdString() + ' ' +
                     Drawn(index.data(Qt::DecorationRole).value<QIcon>()) + (ticked ? " x" : ""));
    }
    return rows;
  }
  static bool DeletingIsOffered(const Settle& window) { return window.ButtonOf("#268")->isEnabled(); }
  static void ClickBox(Settle& window, const QString& name) {
    QTreeView& list = ListOf(window);
    for (int row = 0; row < list.model()->rowCount(); ++row) {
      const QModelIndex index = list.model()->index(row, 0);
      if (index.data().toString() != name) continue;
      constexpr int kInBox = 10;
      list.scrollTo(index);
      const QRect place = list.visualRect(index);
      return QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, {place.left() + kInBox, place.center().y()});
    }
    FAIL() << "no row " << name.toStdString();
  }
};

// ---- which files are ticked

TEST_F(SettleOnScreen, WithOnlyTheProjectsOwnFilesNothingIsOfferedForDeletion) {
  MakeProject();
  Settle window;
  EXPECT_THAT(Rows(window), UnorderedElementsAre("ZOPCSRV.ini OK", "Net.ini OK", "Dev.csv OK"));
  EXPECT_FALSE(DeletingIsOffered(window));
  window.Press("#268");
  EXPECT_THAT(desktop.Questions(), IsEmpty());
  EXPECT_EQ(Rows(window).size(), 3U);
}

TEST_F(SettleOnScreen, ABackupOfTheProjectFileIsTicked) {
  MakeProject();
  directory.Write("ZOPCSRV.bak", "");
  Settle window;
  EXPECT_THAT(Rows(window), UnorderedElementsAre("ZOPCSRV.ini OK", "Net.ini OK", "Dev.csv OK", "ZOPCSRV.bak NOK x"));
  EXPECT_TRUE(DeletingIsOffered(window));
}

TEST_F(SettleOnScreen, ATagFileIsTheProjectsInAnyCase) {
  AddDevice(AddNetwork(NetworkType::Mpi, "Net"), "Dev");
  directory.Write("DEV.CsV", "");
  Settle window;
  EXPECT_THAT(Rows(window), ElementsAre("DEV.CsV OK"));
  EXPECT_FALSE(DeletingIsOffered(window));
}

TEST_F(SettleOnScreen, ANetworkThatIsNotSavedYetProtectsItsFile) {
  MakeProject();
  ASSERT_TRUE(Save());
  AddNetwork(NetworkType::Mpi, "New");
  directory.Write("New.ini", "");
  Settle window;
  EXPECT_THAT(Rows(window), testing::Contains("New.ini OK"));
  EXPECT_FALSE(DeletingIsOffered(window));
}

TEST_F(SettleOnScreen, ANetworkJustRemovedDoesNot) {
  MakeProject();
  ASSERT_TRUE(Save());
  Project().Networks().Remove(1);
  Settle window;
  EXPECT_THAT(Rows(window), UnorderedElementsAre("ZOPCSRV.ini OK", "Net.ini NOK x", "Dev.csv NOK x"));
}

// ---- deleting

TEST_F(SettleOnScreen, CleanUpTicksAsksDeletesAndShowsWhatIsLeft) {
  MakeProject();
  for (const char* name : {"a.log", "b.log"}) directory.Write(name, "");
  Settle window;
  EXPECT_THAT(Rows(window),
              UnorderedElementsAre("ZOPCSRV.ini OK", "Net.ini OK", "Dev.csv OK", "a.log NOK x", "b.log NOK x"));
  ClickBox(window, "b.log");
  QTest::keyClick(&ListOf(window), Qt::Key_Space);
  QTest::keyClick(&ListOf(window), Qt::Key_Space);
  desktop.AnswerNext(false);
  window.Press("#268");
  desktop.AnswerNext(true);
  window.Press("#268");
  EXPECT_THAT(Rows(window), UnorderedElementsAre("ZOPCSRV.ini OK", "Net.ini OK", "Dev.csv OK", "b.log NOK x"));
  EXPECT_FALSE(directory.Has("a.log"));
  EXPECT_TRUE(directory.Has("b.log"));
  EXPECT_EQ(desktop.Questions(), (std::vector<std::string>{"#271", "#271"}));
}

TEST_F(SettleOnScreen, AFileOfTheProjectCanBeTickedByHandToo) {
  MakeProject();
  Settle window;
  ClickBox(window, "Net.ini");
  EXPECT_TRUE(DeletingIsOffered(window));
  desktop.AnswerNext(true);
  window.Press("#268");
  EXPECT_THAT(Rows(window), UnorderedElementsAre("ZOPCSRV.ini OK", "Dev.csv OK"));
  EXPECT_FALSE(directory.Has("Net.ini"));
  EXPECT_FALSE(DeletingIsOffered(window));
}

TEST_F(SettleOnScreen, AFileThatNobodyMayWriteStaysAndReappears) {
  for (const char* name : {"locked.log", "free.log"}) directory.Write(name, "");
  fs::permissions(directory.Path() + "locked.log", fs::perms::owner_read);
  Settle window;
  desktop.AnswerNext(true);
  window.Press("#268");
  EXPECT_THAT(Rows(window), ElementsAre("locked.log NOK x"));
  EXPECT_TRUE(directory.Has("locked.log"));
  EXPECT_TRUE(DeletingIsOffered(window));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(SettleOnScreen, WithTheQuestionSwitchedOffItDeletesAtOnce) {
  modMain::globals.gbQueryOnDelete = false;
  directory.Write("a.log", "");
  Settle window;
  window.Press("#268");
  EXPECT_THAT(desktop.Questions(), IsEmpty());
  EXPECT_THAT(Rows(window), IsEmpty());
  EXPECT_FALSE(directory.Has("a.log"));
}

TEST_F(SettleOnScreen, TheButtonThatDeletesFollowsTheBoxes) {
  directory.Write("a.log", "");
  Settle window;
  ClickBox(window, "a.log");
  EXPECT_FALSE(DeletingIsOffered(window));
  window.Press("#268");
  EXPECT_THAT(desktop.Questions(), IsEmpty());
  ClickBox(window, "a.log");
  EXPECT_TRUE(DeletingIsOffered(window));
  desktop.AnswerNext(true);
  window.Press("#268");
  EXPECT_FALSE(directory.Has("a.log"));
}

TEST_F(SettleOnScreen, TenThousandFilesAreListedAndDeleted) {
  constexpr int kFiles = 10'000;
  for (int i = 0; i < kFiles; ++i) directory.Write("file" + std::to_string(i), "");
  Settle window;
  EXPECT_EQ(ListOf(window).model()->rowCount(), kFiles);
  desktop.AnswerNext(true);
  window.Press("#268");
  EXPECT_EQ(ListOf(window).model()->rowCount(), 0);
}

// ---- the window

TEST_F(SettleOnScreen, TheLegendAndTheHeadingOfTheColumnAreShown) {
  Settle window;
  const auto& pictures = {&window.form.Picture1, &window.form.Picture2};
  int index = 0;
  for (const Picture* picture : pictures) {
    const auto* const text = qobject_cast<QLabel*>(window.view.Views().WidgetOf(window.form.Label1(index)));
    const QWidget* const drawn = window.view.Views().WidgetOf(*picture);
    ASSERT_TRUE(text != nullptr && drawn != nullptr);
    EXPECT_EQ(text->text(), index == 0 ? "#269" : "#270");
    EXPECT_TRUE(text->isVisible() && drawn->isVisible());
    EXPECT_FALSE(drawn->size().isEmpty());
    EXPECT_LE(drawn->geometry().right(), text->geometry().left()) << "the picture stands before its meaning";
    EXPECT_TRUE(drawn->geometry().top() <= text->geometry().bottom() &&
                text->geometry().top() <= drawn->geometry().bottom());
    ++index;
  }
  EXPECT_EQ(window.view.windowTitle(), "#267");
  const QHeaderView& heading = *ListOf(window).header();
  EXPECT_TRUE(heading.isVisible());
  EXPECT_EQ(heading.model()->headerData(0, Qt::Horizontal), ToQt("#272 " + directory.Path()));
}

TEST_F(SettleOnScreen, EnterInTheListDeletesNothingAndEscapeCloses) {
  modMain::globals.gbQueryOnDelete = false;
  directory.Write("a.log", "");
  Settle window;
  QTest::keyClick(&ListOf(window), Qt::Key_Return);
  EXPECT_TRUE(window.form.Visible());
  QTest::keyClick(&window.view, Qt::Key_Escape);
  EXPECT_FALSE(window.form.Visible());
  EXPECT_TRUE(directory.Has("a.log"));
}

TEST_F(SettleOnScreen, TheOtherButtonClosesAndDeletesNothing) {
  directory.Write("a.log", "");
  Settle window;
  window.Press("#28");
  EXPECT_FALSE(window.form.Visible());
  EXPECT_TRUE(directory.Has("a.log"));
}

}  // namespace
}  // namespace tavrin
