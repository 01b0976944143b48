// Lists by their gestures and by real keys and clicks: both must leave the same.
#include <QAbstractItemModelTester>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QTest>
#include <QVBoxLayout>
#include <functional>
#include <sstream>

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/controls/Button.h"
#include "platform/controls/Form.h"
#include "platform/qt/ListBoxView.h"
#include "platform/qt/ListViewView.h"
#include "platform/qt/Text.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// ---- rows with boxes

struct ListRig {
  ListRig() {
    list.Header("Files in /plant", 3000);
    list.SpokenName("Files");
    list.Add({{"A", "a.txt", "OK", false}, {"B", "b.txt", "NOK", true}, {"C", "gr\xFC\xDF.txt", "NOK", true}});
    list.OnItemCheck = [this](int row) { events.push_back(fmt::format("tick {} {}", row, list.Item(row).checked)); };
    list.OnGotFocus = [this] { events.emplace_back("got focus"); };
    list.OnLostFocus = [this] { events.emplace_back("lost focus"); };
  }

  Form form{"frmTest"};
  ListView list{form, "ListView1"};
  Button other{form, "cmdOther"};
  std::vector<std::string> events;
};

std::string Snapshot(const ListView& list) {
  std::string all = fmt::format("current {} focus {}", list.Current(), list.Focused());
  for (const ListItem& item : list.Items()) all += fmt::format("\n{} {} {}", item.key, item.icon, item.checked);
  return all;
}

struct ListShown : ListRig {
  ListShown() {
    auto* const layout = new QVBoxLayout(&window);
    layout->addWidget(&view);
    layout->addWidget(&neighbour);
    neighbour.setFocus();
    window.resize(400, 300);
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  }

  [[nodiscard]] QModelIndex IndexOf(int row) const { return view.model()->index(row, 0); }
  [[nodiscard]] QPoint TextOf(int row) const { return view.visualRect(IndexOf(row)).center(); }
  [[nodiscard]] QPoint BoxOf(int row) const {
    QStyleOptionViewItem option;
    option.initFrom(&view);
    option.rect = view.visualRect(IndexOf(row));
    option.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
    option.text = QStringLiteral("x");
    return view.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &view).center();
  }
  void ClickBox(int row) { QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, BoxOf(row)); }
  void ClickText(int row) { QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, TextOf(row)); }
  void Press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }

  QWidget window;
  ListViewView view{list, &window};
  QLineEdit neighbour{&window};
  QAbstractItemModelTester tester{view.model(), QAbstractItemModelTester::FailureReportingMode::Fatal};
};

/// What the widget shows otherwise than its list holds; empty when all is shown.
std::string Differences(const ListShown& shown) {
  std::ostringstream out;
  const ListView& list = shown.list;
  const auto& model = *shown.view.model();
  if (model.rowCount() != list.Count()) out << "row count\n";
  if (shown.view.currentIndex().row() != list.Current()) out << "current row\n";
  if (shown.view.hasFocus() != list.Focused()) out << "keyboard\n";
  if (shown.view.isEnabled() != list.Enabled() || shown.view.isVisible() != list.Visible()) out << "state\n";
  if (model.headerData(0, Qt::Horizontal).toString() != ToQt(list.HeaderText())) out << "heading\n";
  for (int row = 0; row < std::min(list.Count(), model.rowCount()); ++row) {
    const QModelIndex index = shown.IndexOf(row);
    if (index.data().toString() != ToQt(list.Item(row).text)) out << "text of " << row << '\n';
    if ((index.data(Qt::CheckStateRole).toInt() == Qt::Checked) != list.Item(row).checked) out << "tick of " << row;
  }
  return out.str();
}

struct ListDeed {
  std::string name;
  std::function<void(ListRig&)> gesture;
  std::function<void(ListShown&)> real;
};

void ExpectSame(const std::vector<ListDeed>& deeds) {
  ListRig plain;
  ListShown shown;
  ASSERT_EQ(Differences(shown), "") << "before all deeds";
  for (const ListDeed& deed : deeds) {
    deed.gesture(plain);
    deed.real(shown);
    ASSERT_EQ(Snapshot(shown.list), Snapshot(plain.list)) << "after " << deed.name;
    ASSERT_EQ(shown.events, plain.events) << "after " << deed.name;
    ASSERT_EQ(Differences(shown), "") << "after " << deed.name;
  }
}

TEST(ListWithBoxes, TheMouseTicksABoxAndGoesToARow) {
  ExpectSame({{"a click on an empty box", [](auto& r) { r.list.UserCheck(0, true); }, [](auto& s) { s.ClickBox(0); }},
              {"one on it again", [](auto& r) { r.list.UserCheck(0, false); }, [](auto& s) { s.ClickBox(0); }},
              {"one on a ticked box", [](auto& r) { r.list.UserCheck(2, false); }, [](auto& s) { s.ClickBox(2); }},
              {"one on a name", [](auto& r) { r.list.UserSelect(1); }, [](auto& s) { s.ClickText(1); }}});
}

TEST(ListWithBoxes, TwoQuickClicksOnABoxTurnItOverTwice) {
  ListShown shown;
  shown.ClickBox(0);
  QTest::mouseDClick(shown.view.viewport(), Qt::LeftButton, {}, shown.BoxOf(0));
  QTest::mouseRelease(shown.view.viewport(), Qt::LeftButton, {}, shown.BoxOf(0));
  EXPECT_THAT(shown.events, ElementsAre("got focus", "tick 0 true", "tick 0 false"));
}

TEST(ListWithBoxes, ADoubleClickOnANameTicksNothing) {
  ListShown shown;
  shown.ClickText(1);
  QTest::mouseDClick(shown.view.viewport(), Qt::LeftButton, {}, shown.TextOf(1));
  QTest::mouseRelease(shown.view.viewport(), Qt::LeftButton, {}, shown.TextOf(1));
  EXPECT_THAT(shown.events, ElementsAre("got focus"));
}

TEST(ListWithBoxes, TheArrowKeysGoAndTheSpaceBarTicks) {
  ExpectSame({{"a press on a row", [](auto& r) { r.list.UserSelect(0); }, [](auto& s) { s.ClickText(0); }},
              {"down", [](auto& r) { r.list.UserSelect(1); }, [](auto& s) { s.Press(Qt::Key_Down); }},
              {"space", [](auto& r) { r.list.UserCheck(1, false); }, [](auto& s) { s.Press(Qt::Key_Space); }},
              {"space again", [](auto& r) { r.list.UserCheck(1, true); }, [](auto& s) { s.Press(Qt::Key_Space); }},
              {"the end", [](auto& r) { r.list.UserSelect(2); }, [](auto& s) { s.Press(Qt::Key_End); }},
              {"up", [](auto& r) { r.list.UserSelect(1); }, [](auto& s) { s.Press(Qt::Key_Up); }},
              {"a name's first letter", [](auto& r) { r.list.UserSelect(2); }, [](auto& s) { s.Press(Qt::Key_G); }}});
}

TEST(ListWithBoxes, TheTabKeyEntersItAtTheFirstRowAndLeavesItAgain) {
  ListShown shown;
  QTest::keyClick(&shown.neighbour, Qt::Key_Backtab);
  EXPECT_TRUE(shown.view.hasFocus());
  EXPECT_EQ(shown.list.Current(), 0);
  EXPECT_TRUE(shown.list.Focused());
  shown.Press(Qt::Key_Tab);
  EXPECT_TRUE(shown.neighbour.hasFocus());
}

TEST(ListWithBoxes, ShowsWhatTheProgramChanges) {
  ListShown shown;
  shown.list.Mark(0, "NOK", true);
  EXPECT_EQ(Differences(shown), "");
  shown.list.Header("Other", 500);
  EXPECT_EQ(Differences(shown), "");
  shown.list.Clear();
  EXPECT_EQ(Differences(shown), "");
  shown.list.Add({{"X", "x", "OK", true}});
  EXPECT_EQ(Differences(shown), "");
  shown.list.Enabled(false);
  EXPECT_EQ(Differences(shown), "");
  EXPECT_THAT(shown.events, IsEmpty());
}

TEST(ListWithBoxes, ADisabledListTakesNoTick) {
  ListShown shown;
  shown.list.Enabled(false);
  shown.ClickBox(0);
  EXPECT_FALSE(shown.list.Item(0).checked);
  EXPECT_EQ(Differences(shown), "");
}

TEST(ListWithBoxes, TheRuleMayFillItAnewInTheMiddleOfAClick) {
  ListShown shown;
  shown.list.OnItemCheck = [&](int) {
    shown.list.Clear();
    shown.list.Add({{"X", "x", "OK", false}});
  };
  shown.ClickBox(2);
  EXPECT_EQ(Differences(shown), "");
  EXPECT_EQ(shown.list.Count(), 1);
}

TEST(ListWithBoxes, EachRowShowsThePictureOfItsKey) {
  ListShown shown;
  const auto pictureOf = [&](int row) {
    return qvariant_cast<QIcon>(shown.IndexOf(row).data(Qt::DecorationRole)).pixmap(16).toImage();
  };
  EXPECT_FALSE(pictureOf(0).isNull());
  EXPECT_NE(pictureOf(0), pictureOf(1));
  EXPECT_EQ(pictureOf(1), pictureOf(2));
}

TEST(ListWithBoxes, ThePicturesDifferInShapeAndNotOnlyInColour) {
  ListShown shown;
  const auto outlineOf = [&](int row) {
    return qvariant_cast<QIcon>(shown.IndexOf(row).data(Qt::DecorationRole))
        .pixmap(32)
        .toImage()
        .convertToFormat(QImage::Format_Alpha8);
  };
  EXPECT_NE(outlineOf(0), outlineOf(1));
}

TEST(ListWithBoxes, ItsColumnFillsItAndALongNameIsCutAndNeedsNoScrolling) {
  ListShown shown;
  shown.list.Header("Files", 15'000);
  shown.list.Add({{"D", std::string(500, 'd'), "OK", false}});
  for (const int width : {400, 700, 250}) {
    shown.window.resize(width, 300);
    QCoreApplication::processEvents();
    EXPECT_EQ(shown.view.header()->sectionSize(0), shown.view.viewport()->width());
    EXPECT_FALSE(shown.view.horizontalScrollBar()->isVisible());
  }
  EXPECT_EQ(shown.view.textElideMode(), Qt::ElideMiddle);
}

TEST(ListWithBoxes, CtrlCCopiesTheNameOfTheRow) {
  ListShown shown;
  shown.ClickText(2);
  QTest::keyClick(&shown.view, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("grüß.txt"));
}

TEST(ListWithBoxes, ATextThatLooksLikeMarkupIsShownAsItStands) {
  ListShown shown;
  shown.list.Header("<b>x</b>", 100);
  EXPECT_EQ(shown.view.model()->headerData(0, Qt::Horizontal, Qt::ToolTipRole).toString(),
            QStringLiteral("<p>&lt;b&gt;x&lt;/b&gt;</p>"));
}

TEST(ListWithBoxes, IsCalledByItsNameAndItsRowsTellTheirPicture) {
  ListShown shown;
  EXPECT_EQ(shown.view.accessibleName(), QStringLiteral("Files"));
  EXPECT_EQ(shown.IndexOf(1).data(Qt::AccessibleDescriptionRole).toString(), QStringLiteral("NOK"));
}

TEST(ListWithBoxes, TenThousandRowsNeedNoWidgetEach) {
  ListShown shown;
  const auto widgets = shown.view.findChildren<QWidget*>().size();
  std::vector<ListItem> rows;
  for (int i = 0; i < 10'000; ++i) rows.push_back({std::to_string(i), "file " + std::to_string(i), "OK", i % 2 == 0});
  shown.list.Clear();
  shown.list.Add(std::move(rows));
  QCoreApplication::processEvents();
  shown.view.setFocus();
  shown.list.UserSelect(9'999);
  EXPECT_TRUE(shown.view.viewport()->rect().intersects(shown.view.visualRect(shown.IndexOf(9'999))));
  EXPECT_EQ(shown.view.findChildren<QWidget*>().size(), widgets);
  EXPECT_EQ(Differences(shown), "");
}

// ---- lines

struct LinesShown {
  LinesShown() {
    list.SpokenName("Steps");
    auto* const layout = new QVBoxLayout(&window);
    layout->addWidget(&view);
    layout->addWidget(&neighbour);
    window.resize(300, 160);
  }
  void Show() {
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  }
  [[nodiscard]] bool EndIsInSight() const {
    return view.verticalScrollBar()->value() == view.verticalScrollBar()->maximum();
  }

  Form form{"frmTest"};
  ListBox list{form, "List1"};
  QWidget window;
  ListBoxView view{list, &window};
  QLineEdit neighbour{&window};
};

TEST(ListOfLines, ShowsItsLinesAlsoEmptyOnesAndThoseThatLookLikeMarkup) {
  LinesShown shown;
  shown.list.AddItem("");
  shown.list.AddItem("<b>gr\xFC\xDF</b>");
  shown.list.AddItem("");
  EXPECT_EQ(shown.view.toPlainText(), QStringLiteral("\n<b>grüß</b>\n"));
  shown.list.Clear();
  EXPECT_EQ(shown.view.toPlainText(), QString());
  shown.list.AddItem("one");
  EXPECT_EQ(shown.view.toPlainText(), QStringLiteral("one"));
}

TEST(ListOfLines, ALineOfBeforeIsShownFromTheStart) {
  Form form("frmTest");
  ListBox list(form, "List1");
  list.AddItem("one");
  list.AddItem("two");
  const ListBoxView view(list, nullptr);
  EXPECT_EQ(view.toPlainText(), QStringLiteral("one\ntwo"));
}

TEST(ListOfLines, TheLastLineIsBroughtIntoSight) {
  LinesShown shown;
  for (int i = 0; i < 100; ++i) shown.list.AddItem("line " + std::to_string(i));
  shown.Show();
  EXPECT_TRUE(shown.EndIsInSight());
  EXPECT_GT(shown.view.verticalScrollBar()->maximum(), 0);
  shown.view.verticalScrollBar()->setValue(0);
  shown.list.AddItem("one more");
  EXPECT_TRUE(shown.EndIsInSight());
}

TEST(ListOfLines, CannotBeTypedInto) {
  LinesShown shown;
  shown.list.AddItem("one");
  shown.Show();
  shown.view.setFocus();
  QTest::keyClicks(&shown.view, QStringLiteral("x"));
  QTest::keyClick(&shown.view, Qt::Key_Delete);
  QTest::keyClick(&shown.view, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(shown.view.toPlainText(), QStringLiteral("one"));
}

TEST(ListOfLines, TakesTheKeyboardAndIsCopied) {
  LinesShown shown;
  shown.list.AddItem("one");
  shown.list.AddItem("two");
  shown.Show();
  shown.neighbour.setFocus();
  QTest::keyClick(&shown.neighbour, Qt::Key_Backtab);
  ASSERT_TRUE(shown.view.hasFocus());
  QTest::keyClick(&shown.view, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&shown.view, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("one\ntwo"));
  QTest::keyClick(&shown.view, Qt::Key_Tab);
  EXPECT_TRUE(shown.neighbour.hasFocus()) << "Tab leads on";
  EXPECT_EQ(shown.view.accessibleName(), QStringLiteral("Steps"));
}

TEST(ListOfLines, WhatTheUserHasMarkedStaysMarkedWhenLinesCome) {
  LinesShown shown;
  shown.list.AddItem("one");
  shown.Show();
  shown.view.selectAll();
  shown.list.AddItem("two");
  EXPECT_EQ(shown.view.textCursor().selectedText(), QStringLiteral("one"));
}

TEST(ListOfLines, NothingIsMarkedByItself) {
  LinesShown shown;
  shown.list.AddItem("one");
  shown.Show();
  shown.view.setFocus(Qt::TabFocusReason);
  shown.list.AddItem("two");
  shown.list.Clear();
  shown.list.AddItem("three");
  EXPECT_FALSE(shown.view.textCursor().hasSelection());
}

}  // namespace
}  // namespace tavrin
