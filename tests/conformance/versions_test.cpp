// The version report by real keys and clicks: its rules hold on the screen as without one.
#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QTest>
#include <QToolTip>
#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "conformance/ToolsShown.h"
#include "platform/qt/GridView.h"
#include "platform/qt/ViewCommon.h"
#include "support/ProjectTest.h"
#include "support/VersionFile.h"
#include "tools/frmFileInfo.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace fs = std::filesystem;

using Versions = ShownWindow<frmFileInfo>;

/// The clock is one hour before UTC.
const UtcTime kCreated = Join({2026, 11, 20, 13, 5, 9, 0});
constexpr const char* kDate = "20.11.2026 14:05:09";

constexpr const char* kSortTip = "Doppelclicken zum Sortieren";

class VersionsOnScreen : public ProjectTest {
 protected:
  VersionsOnScreen() { fs::create_directories(directory.Path() + "app/LOG"); }

  /// A file of the program.
  void AddFile(const std::string& name, UtcTime created, const std::string& bytes = {}) {
    directory.Write("app/" + name, bytes);
    FileRecord record;
    record.name = name;
    record.creation = created;
    record.modification = Join({2030, 1, 1, 0, 0, 0, 0});
    around.fileProperties.records[directory.Path() + "app/" + name] = record;
  }
  /// A program whose author has typed this as its version.
  static std::string ProgramOfVersion(std::u16string_view version) {
    VersionTexts resource;
    resource.strings = {{"FileVersion", std::u16string(version)}};
    return PeFile({{1033, WideResource(VersionTree(resource))}});
  }
  static GridView& GridOf(Versions& window) { return window.Widget<GridView>(); }
  /// A row of the widget as its cells between bars.
  static std::string RowOf(Versions& window, int row) {
    const QAbstractItemModel& model = *GridOf(window).model();
    std::string cells;
    for (int col = 0; col < model.columnCount(); ++col) {
      cells += (col == 0 ? "" : "|") + model.index(row, col).data().toString().toStdString();
    }
    return cells;
  }
  static std::vector<std::string> Rows(Versions& window) {
    std::vector<std::string> rows;
    for (int row = 0; row < GridOf(window).model()->rowCount(); ++row) rows.push_back(RowOf(window, row));
    return rows;
  }
  static QPoint HeadingOf(Versions& window, int col) {
    const QHeaderView& heading = *GridOf(window).horizontalHeader();
    return {heading.sectionViewportPosition(col) + heading.sectionSize(col) / 2, heading.height() / 2};
  }
  static void DoubleClick(QWidget* on, const QPoint& place) {
    QTest::mouseClick(on, Qt::LeftButton, {}, place);
    QTest::mouseDClick(on, Qt::LeftButton, {}, place);
  }
  static void DoubleClickHeading(Versions& window, int col) {
    DoubleClick(GridOf(window).horizontalHeader()->viewport(), HeadingOf(window, col));
  }
  /// The tip that comes when the pointer rests at a place.
  static QString TipAt(QWidget* on, const QPoint& place) {
    QToolTip::hideText();
    EXPECT_TRUE(QTest::qWaitFor([] { return QToolTip::text().isEmpty(); })) << "the former one goes";
    QTest::mouseMove(on, place);
    QHelpEvent help(QEvent::ToolTip, place, on->mapToGlobal(place));
    QApplication::sendEvent(on, &help);
    return QToolTip::text();
  }
  /// Each text of a column can be read, with what its cell needs around it.
  static void ExpectUncut(Versions& window, int col) {
    const GridView& grid = GridOf(window);
    for (int row = 0; row < grid.model()->rowCount(); ++row) {
      const QModelIndex index = grid.model()->index(row, col);
      EXPECT_GT(grid.columnWidth(col), grid.sizeHintForIndex(index).width()) << RowOf(window, row);
    }
  }
  [[nodiscard]] std::string Report() const { return directory.Read("app/LOG/VERSIONS.TXT"); }
};

// ---- what is shown

TEST_F(VersionsOnScreen, TheHeadingsAreNameDateAndVersion) {
  Versions window;
  const QAbstractItemModel& model = *GridOf(window).model();
  const QStringList words{"#100", "#104", "#105"};
  ASSERT_EQ(model.columnCount(), 3);
  for (int col = 0; col < 3; ++col) EXPECT_EQ(model.headerData(col, Qt::Horizontal), words[col]);
  EXPECT_TRUE(GridOf(window).horizontalHeader()->isVisible());
  EXPECT_EQ(window.view.windowTitle(), "#39");
}

TEST_F(VersionsOnScreen, TheWidthsAreThoseOfItsColumnsAndTheLastReachesToTheEdge) {
  Versions window;
  const GridView& grid = GridOf(window);
  EXPECT_EQ(grid.columnWidth(0), ToPixels(grid, 3000));
  EXPECT_EQ(grid.columnWidth(1), ToPixels(grid, 1800));
  EXPECT_EQ(grid.columnWidth(0) + grid.columnWidth(1) + grid.columnWidth(2), grid.viewport()->width());
}

TEST_F(VersionsOnScreen, ARowTellsNameCreationAndVersion) {
  AddFile("a.dll", kCreated, ProgramOfVersion(u"7.1 Beta"));
  Versions window;
  EXPECT_EQ(RowOf(window, 0), std::string("a.dll|") + kDate + "|7.1 Beta");
}

TEST_F(VersionsOnScreen, AFileWithoutAResourceHasAnEmptyThirdCell) {
  AddFile("notes", kCreated, "no program");
  Versions window;
  EXPECT_EQ(RowOf(window, 0), std::string("notes|") + kDate + "|");
  window.Press("#29");
  EXPECT_THAT(Report(), HasSubstr(std::string(kDate) + ' ' + std::string(18, ' ') + "\r\n"));
}

TEST_F(VersionsOnScreen, AMissingLibraryIsToldInTheDateColumn) {
  Versions window;
  EXPECT_THAT(Rows(window), ElementsAre("opcAutoSofting.dll|#222|", "OPCCOMN_PS.DLL|#222|", "OPCPROXY.DLL|#222|",
                                        "OPCENUM.EXE|#222|", "OPC_AEPS.DLL|#222|"));
}

TEST_F(VersionsOnScreen, DatesAreShownInFullBesideLongNamesAndVersions) {
  AddFile(std::string(80, 'n') + ".dll", kCreated, ProgramOfVersion(std::u16string(80, u'7')));
  Versions window;
  ExpectUncut(window, 1);
}

TEST_F(VersionsOnScreen, DatesAreShownInFullInAFolderOfManyFiles) {
  constexpr int kFiles = 300;
  for (int i = 0; i < kFiles; ++i) AddFile("file" + std::to_string(i), kCreated);
  Versions window;
  for (int col = 0; col < 3; ++col) ExpectUncut(window, col);
}

// ---- sorting

TEST_F(VersionsOnScreen, ADoubleClickOnAHeadingSortsTheVersionsAndSaveKeepsTheOrder) {
  Versions window;
  EXPECT_THAT(RowOf(window, 0), StartsWith("opcAutoSofting.dll"));
  DoubleClickHeading(window, 0);
  EXPECT_THAT(RowOf(window, 0), StartsWith("OPCCOMN_PS.DLL"));
  EXPECT_THAT(RowOf(window, 4), StartsWith("opcAutoSofting.dll"));
  window.Press("#29");
  EXPECT_THAT(Report(), StartsWith("OPCCOMN_PS.DLL "));
  EXPECT_THAT(Boxes(), ElementsAre("#19 (" + directory.Path() + "app/LOG/VERSIONS.TXT)"));
  EXPECT_TRUE(window.form.Visible());
  window.Press("#28");
  EXPECT_FALSE(window.form.Visible());
}

TEST_F(VersionsOnScreen, EachHeadingSortsByItsOwnColumnAsText) {
  AddFile("a", Join({2024, 12, 3, 10, 0, 0, 0}), ProgramOfVersion(u"10"));
  AddFile("b", Join({2026, 1, 2, 10, 0, 0, 0}), ProgramOfVersion(u"9"));
  Versions window;
  const auto order = [&window] {
    std::string names;
    for (const std::string& row : Rows(window)) names += row[1] == '|' ? row.substr(0, 1) : "";
    return names;
  };
  DoubleClickHeading(window, 1);
  EXPECT_EQ(order(), "ba") << "by the day first";
  EXPECT_EQ(GridOf(window).currentIndex().column(), 1);
  DoubleClickHeading(window, 0);
  EXPECT_EQ(order(), "ab");
  DoubleClickHeading(window, 1);
  DoubleClickHeading(window, 2);
  EXPECT_EQ(order(), "ab") << "10 stands before 9";
  EXPECT_EQ(GridOf(window).currentIndex().column(), 2);
}

TEST_F(VersionsOnScreen, ADoubleClickBelowTheHeadingDoesNothing) {
  AddFile("z", kCreated);
  Versions window;
  GridView& grid = GridOf(window);
  const std::vector<std::string> before = Rows(window);
  for (int row = 0; row < 2; ++row) {
    DoubleClick(grid.viewport(), grid.visualRect(grid.model()->index(row, 0)).center());
  }
  DoubleClick(grid.viewport(), grid.viewport()->rect().bottomLeft() + QPoint(5, -5));
  EXPECT_EQ(Rows(window), before);
  EXPECT_EQ(grid.EditorLine(), nullptr);
}

TEST_F(VersionsOnScreen, TheTipStandsOverTheHeadingOnly) {
  Versions window;
  GridView& grid = GridOf(window);
  for (int col = 0; col < 3; ++col) {
    EXPECT_EQ(TipAt(grid.horizontalHeader()->viewport(), HeadingOf(window, col)), kSortTip);
    EXPECT_EQ(window.form.vsgFileInfo.ToolTip(), kSortTip);
    EXPECT_EQ(TipAt(grid.viewport(), grid.visualRect(grid.model()->index(2, col)).center()), QString());
    EXPECT_EQ(window.form.vsgFileInfo.ToolTip(), "");
  }
}

// ---- saving

TEST_F(VersionsOnScreen, ANameOf32CharactersOrMoreIsSavedWithoutABlankBehindIt) {
  for (const std::size_t length : {31U, 32U, 40U}) AddFile(std::string(length, 'n'), kCreated);
  Versions window;
  window.Press("#29");
  const std::string report = "\r\n" + Report();
  EXPECT_THAT(report, HasSubstr("\r\n" + std::string(31, 'n') + ' ' + kDate));
  EXPECT_THAT(report, HasSubstr("\r\n" + std::string(32, 'n') + kDate));
  EXPECT_THAT(report, HasSubstr("\r\n" + std::string(40, 'n') + kDate));
}

TEST_F(VersionsOnScreen, WithoutTheLogFolderTheErrorIsTold) {
  fs::remove(directory.Path() + "app/LOG");
  Versions window;
  window.Press("#29");
  EXPECT_THAT(Boxes(), ElementsAre("#199 76 #200 frmFileInfo.Save : Path not found"));
  EXPECT_FALSE(fs::exists(directory.Path() + "app/LOG"));
  EXPECT_TRUE(window.form.Visible());
}

TEST_F(VersionsOnScreen, EscapeClosesAndSavesNothing) {
  Versions window;
  QTest::keyClick(&window.view, Qt::Key_Escape);
  EXPECT_FALSE(window.form.Visible());
  EXPECT_FALSE(fs::exists(directory.Path() + "app/LOG/VERSIONS.TXT"));
  EXPECT_THAT(Boxes(), IsEmpty());
}

}  // namespace
}  // namespace tavrin
