// The menus Extras and Help of the main window by real clicks, and their small windows on the screen.
#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QTest>
#include <filesystem>

#include "brand/Brand.h"
#include "platform/qt/DialogView.h"
#include "platform/qt/FormView.h"
#include "platform/qt/MenuView.h"
#include "platform/qt/QtWords.h"
#include "platform/qt/Text.h"
#include "shell/frmHinweis.h"
#include "shell/frmInfo.h"
#include "support/ShellTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ShownMenus : public ShellTest {
 protected:
  ShownMenus() {
    Start("-TEST");
    view = std::make_unique<FormView>(Window(), words);
    view->show();
  }
  ~ShownMenus() override { view.reset(); }

  /// Opens a menu of the bar and the menus above the entry, and clicks the entry.
  void Choose(int top, const MenuEntry& entry) {
    MenuView* menu = view->Menus().at(static_cast<std::size_t>(top - 1));
    menu->popup(QPoint(0, 0));
    QAction* action = menu->ActionOf(entry);
    ASSERT_NE(action, nullptr);
    if (entry.Parent() != &Window().mnuMain(top)) {
      QMenu* const below = menu->ActionOf(*entry.Parent())->menu();
      ASSERT_NE(below, nullptr);
      below->popup(QPoint(0, 0));
      QTest::mouseClick(below, Qt::LeftButton, {}, below->actionGeometry(action).center());
    } else {
      QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
    }
    menu->hide();
  }
  /// What is started by an entry: its purpose, its path, its number.
  std::vector<std::string> StartedBy(int top, const MenuEntry& entry) {
    around.programs.started.clear();
    Choose(top, entry);
    std::vector<std::string> started;
    for (const auto& program : around.programs.started) {
      started.push_back(program.what + " " + program.path + " " + std::to_string(program.number));
    }
    return started;
  }
  static std::string Program(Administration purpose, WindowStyle style) {
    return std::to_string(static_cast<int>(purpose)) + "  " + std::to_string(static_cast<int>(style));
  }

  QtWords words{[] { return std::string("en"); }};
  std::unique_ptr<FormView> view;
};

TEST_F(ShownMenus, EachEntryOfTheAdministrationStartsItsPrograms) {
  const auto& extras = Window().mnuExtras;
  EXPECT_THAT(StartedBy(3, extras(5)), ElementsAre(Program(Administration::OpcSettings, WindowStyle::Normal)));
  EXPECT_THAT(StartedBy(3, extras(7)), ElementsAre(Program(Administration::UserManager, WindowStyle::Normal),
                                                   Program(Administration::UserPasswords, WindowStyle::Normal)));
  EXPECT_THAT(StartedBy(3, extras(8)), ElementsAre(Program(Administration::Services, WindowStyle::Minimised),
                                                   Program(Administration::ServerManager, WindowStyle::Minimised)));
  EXPECT_THAT(StartedBy(3, extras(9)), ElementsAre(Program(Administration::EventLog, WindowStyle::Normal)));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ShownMenus, WarningListsComeOnShowOnlyWithAProject) {
  Choose(3, Window().mnuExtras(1));
  EXPECT_FALSE(Window().vsgWarnings.Visible());
  OpenSample("plant");
  for (const int entry : {1, 2}) {
    Click("#1");
    EXPECT_FALSE(Window().vsgWarnings.Visible());
    Choose(3, Window().mnuExtras(entry));
    EXPECT_TRUE(Window().vsgWarnings.Visible()) << entry;
  }
}

TEST_F(ShownMenus, EachEntryThatHasAWindowOpensItOrSaysWhyNot) {
  std::vector<std::string> opened;
  desktop.OnModal = [&opened](Form& form) {
    opened.push_back(form.Name());
    form.UserClose();
  };
  Choose(3, Window().mnuExtras(10));
  Choose(3, Window().mnuExtras(11));
  EXPECT_THAT(opened, IsEmpty());
  EXPECT_THAT(Boxes(), ElementsAre("#266")) << "the reconfiguration says nothing";
  OpenSample("plant");
  for (const int entry : {10, 11, 12}) Choose(3, Window().mnuExtras(entry));
  for (const int entry : {2, 4}) Choose(4, Window().mnuHelp(entry));
  EXPECT_THAT(opened, ElementsAre("frmReconfig", "frmSettle", "frmOptions", "frmInfo", "frmFileInfo"));
  modMain::OpenProject().bDataDirty(true);
  Choose(3, Window().mnuExtras(10));
  EXPECT_THAT(Boxes(), ElementsAre("#261"));
  EXPECT_EQ(opened.size(), 5U) << "nothing opens on a project that is not saved";
}

TEST_F(ShownMenus, LogFilesManualAndSystemInformation) {
  const auto& logs = Window().mnuLog;
  const std::string log = services.applicationDirectory + "/LOG/LOG";
  EXPECT_THAT(StartedBy(3, logs(1)), IsEmpty());
  EXPECT_THAT(Boxes(), ElementsAre("#201 " + log + "1.TXT"));
  std::filesystem::create_directories(services.applicationDirectory + "/LOG");
  directory.Write("app/LOG/LOG1.TXT", "");
  directory.Write("app/LOG/LOG2.TXT", "");
  EXPECT_THAT(StartedBy(3, logs(1)), ElementsAre("text " + log + "1.TXT 1"));
  EXPECT_THAT(StartedBy(3, logs(2)), ElementsAre("text " + log + "2.TXT 1"));
  modMain::globals.gszManual = "OPC_X.PDF";
  EXPECT_THAT(StartedBy(4, Window().mnuHelp(1)), ElementsAre("document OPC_X.PDF 1"));
  EXPECT_THAT(StartedBy(4, Window().mnuHelp(3)),
              ElementsAre(Program(Administration::SystemInformation, WindowStyle::Normal)));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ShownMenus, AManualThatNoProgramOpensIsTold) {
  around.programs.missing = true;
  modMain::globals.gszManual = "OPC_X.PDF";
  EXPECT_THAT(StartedBy(4, Window().mnuHelp(1)), ElementsAre("document OPC_X.PDF 1"));
  EXPECT_THAT(Boxes(), ElementsAre("#296"));
}

class ShownDialogs : public ProjectTest {
 protected:
  static void ExpectShown(DialogView& view, const Label& label) {
    const auto* const widget = qobject_cast<const QLabel*>(view.Views().WidgetOf(label));
    ASSERT_NE(widget, nullptr) << label.Index();
    EXPECT_TRUE(widget->isVisible()) << label.Index();
    EXPECT_EQ(widget->text(), ToQt(label.Caption()));
  }
  /// In one line, with nothing cut.
  static void ExpectInOneLine(DialogView& view, const Label& label) {
    const auto* const widget = qobject_cast<const QLabel*>(view.Views().WidgetOf(label));
    ASSERT_NE(widget, nullptr);
    EXPECT_GE(widget->width(), widget->fontMetrics().horizontalAdvance(widget->text())) << label.Index();
  }
};

TEST_F(ShownDialogs, TheAboutBoxHasTheLogoAndTheLinesOfItsBrand) {
  frmInfo info;
  info.Show();
  DialogView view(info, nullptr);
  view.show();
  QApplication::processEvents();
  ExpectShown(view, info.lblVersion);
  for (int index = 0; index < 12; ++index) {
    ExpectShown(view, info.Label1(index));
    ExpectInOneLine(view, info.Label1(index));
  }
  const QWidget* const zelkar = view.Views().WidgetOf(info.Picture1);
  const QWidget* const qorvane = view.Views().WidgetOf(info.Picture2);
  EXPECT_EQ(zelkar->isVisible(), !IsQorvane());
  EXPECT_EQ(qorvane->isVisible(), IsQorvane());
  EXPECT_FALSE((IsQorvane() ? qorvane : zelkar)->size().isEmpty());
  QTest::keyClick(&view, Qt::Key_Return);
  EXPECT_FALSE(info.Visible());
}

TEST_F(ShownDialogs, EscapeClosesTheAboutBoxToo) {
  frmInfo info;
  info.Show();
  DialogView view(info, nullptr);
  view.show();
  QTest::keyClick(&view, Qt::Key_Escape);
  EXPECT_FALSE(info.Visible());
}

TEST_F(ShownDialogs, TheHintIsTickedByKeysAndGivenUpByEscape) {
  frmHinweis hint;
  hint.Show();
  DialogView view(hint, nullptr);
  view.show();
  QApplication::processEvents();
  for (const int index : {0, 1}) ExpectShown(view, hint.Label1(index));
  modMain::globals.gbShowHint = true;
  auto* const box = qobject_cast<QAbstractButton*>(view.Views().WidgetOf(hint.chkShow));
  ASSERT_NE(box, nullptr);
  EXPECT_TRUE(box->isChecked());
  QTest::keyClick(box, Qt::Key_Space);
  EXPECT_FALSE(modMain::globals.gbShowHint);
  QTest::keyClick(&view, Qt::Key_Escape);
  EXPECT_TRUE(hint.bCancel());
  EXPECT_FALSE(hint.Visible());
}

}  // namespace
}  // namespace tavrin
