#include "tools/frmFileInfo.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/ProjectTest.h"
#include "support/VersionFile.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

namespace fs = std::filesystem;

enum Action : int { kSave = 0, kClose = 1 };

/// The files of the disk, each with the creation time that the test gives to its name.
class TimedFiles : public FileProperties {
 public:
  explicit TimedFiles(Files& files) : files_(files) {}

  std::optional<FileRecord> Find(std::string_view path) override {
    const auto status = files_.Status(path);
    if (!status) return std::nullopt;
    FileRecord record;
    record.name = std::string(path.substr(path.rfind(kPathSeparator) + 1));
    record.attributes = status->directory ? kDirectory : kNormal;
    record.size = record.compressedSize = status->stamp.size;
    record.modification = record.lastAccess = Join({2030, 1, 1, 0, 0, 0, 0});
    const auto known = created.find(record.name);
    record.creation = known == created.end() ? kCreated : known->second;
    return record;
  }
  bool SetTime(std::string_view, FileTime, UtcTime) override { return false; }
  bool SetAttributes(std::string_view, std::uint32_t) override { return false; }
  std::string ShortPath(std::string_view path) override { return std::string(path); }
  std::string TypeName(std::string_view) override { return {}; }

  std::map<std::string, UtcTime> created;

 private:
  static inline const UtcTime kCreated = Join({2026, 11, 20, 13, 5, 9, 0});

  Files& files_;
};

/// Files of a system whose libraries lie in a directory of the test.
class SystemFiles : public FaultyFiles {
 public:
  SystemFiles(Files& real, std::string system) : FaultyFiles(real), system_(std::move(system)) {}
  std::string SystemDirectory() override { return system_; }

 private:
  std::string system_;
};

/// Nobody's habits: dates cannot be written.
class BrokenRegional : public FixedRegional {
 public:
  std::string ShortDate(const DateTime&) override { throw RuntimeError(ErrorNumber::InvalidCall); }
};

/// A grid whose cells cannot be shown.
class BrokenView : public GridListener {
 public:
  void OnAboutToReset() override {}
  void OnReset() override {}
  void OnRowsAboutToBeAdded(int, int) override {}
  void OnRowsAdded() override {}
  void OnRowsAboutToBeRemoved(int, int) override {}
  void OnRowsRemoved() override {}
  void OnCellChanged(Cell) override { throw RuntimeError(ErrorNumber::OutOfMemory); }
  void OnColumnsChanged() override {}
  void OnSelectionChanged() override {}
  void OnTopRowChanged() override {}
  void OnEditChanged() override {}
};

/// The clock is one hour before UTC: 13:05:09 is 14:05:09.
constexpr const char* kDate = "20.11.2026 14:05:09";

/// The rows of the system's libraries when there is none.
const std::vector<std::string> kNoLibraries{"opcAutoSofting.dll|#222|", "OPCCOMN_PS.DLL|#222|", "OPCPROXY.DLL|#222|",
                                            "OPCENUM.EXE|#222|", "OPC_AEPS.DLL|#222|"};

class FileInfoTest : public ProjectTest {
 protected:
  FileInfoTest() {
    fs::create_directory(directory.Path() + "app");
    fs::create_directory(directory.Path() + "system");
    modMain::globals.services = &installed;
  }

  /// A row as its cells between bars.
  static std::string RowOf(const Grid& grid, int row) {
    return grid.Text({row, 0}) + "|" + grid.Text({row, 1}) + "|" + grid.Text({row, 2});
  }
  static std::vector<std::string> Rows(const frmFileInfo& form) {
    std::vector<std::string> rows;
    for (int row = 1; row < form.vsgFileInfo.Rows(); ++row) rows.push_back(RowOf(form.vsgFileInfo, row));
    return rows;
  }
  /// The rows of the program's directory.
  static std::vector<std::string> OwnRows(const frmFileInfo& form) {
    std::vector<std::string> rows = Rows(form);
    rows.resize(rows.size() - kNoLibraries.size());
    return rows;
  }
  /// Those of the libraries.
  static std::vector<std::string> LibraryRows(const frmFileInfo& form) {
    const std::vector<std::string> rows = Rows(form);
    return {rows.end() - static_cast<std::ptrdiff_t>(kNoLibraries.size()), rows.end()};
  }
  static void DoubleClick(frmFileInfo& form, Cell cell) {
    form.vsgFileInfo.UserPress(MouseButton::Left, cell);
    form.vsgFileInfo.UserDblClick(cell);
  }
  /// A program file whose author has typed this as its version; the number that is computed is another one.
  static std::string ProgramOfVersion(std::u16string_view version) {
    VersionTexts resource;
    resource.strings = {{"CompanyName", u"Example"}, {"FileVersion", std::u16string(version)}};
    return PeFile({{1033, WideResource(VersionTree(resource))}});
  }
  /// The report's file.
  [[nodiscard]] std::string Report() const { return directory.Read("app/LOG/VERSIONS.TXT"); }
  void MakeLog() const { fs::create_directory(directory.Path() + "app/LOG"); }
  static std::string Padded(std::string text, std::size_t width) {
    text.resize(std::max(text.size(), width), ' ');
    return text;
  }

  SystemFiles system{systemFiles, directory.Path() + "system"};
  TimedFiles times{systemFiles};
  Surroundings timed{around.programs, around.regional, times, around.service, nullptr};
  Services installed{desktop, system, files, registry, texts, syntax, settings, timed, directory.Path() + "app"};
};

TEST_F(FileInfoTest, ItsWordsComeFromTheCatalogue) {
  const frmFileInfo form;
  EXPECT_EQ(form.Name(), "frmFileInfo");
  EXPECT_EQ(form.Caption(), "#39");
  EXPECT_EQ(form.cmdAction(kSave).Caption(), "#29");
  EXPECT_EQ(form.cmdAction(kClose).Caption(), "#28");
  EXPECT_EQ(RowOf(form.vsgFileInfo, 0), "#100|#104|#105");
}

TEST_F(FileInfoTest, ThreeColumnsOneHeadingAndEscapeCloses) {
  const frmFileInfo form;
  EXPECT_EQ(form.vsgFileInfo.Cols(), 3);
  EXPECT_EQ(form.vsgFileInfo.FixedRows(), 1);
  EXPECT_EQ(form.vsgFileInfo.FixedCols(), 0);
  EXPECT_EQ(form.vsgFileInfo.ColWidth(0), 3000);
  EXPECT_EQ(form.vsgFileInfo.ColWidth(1), 1800);
  EXPECT_GT(form.vsgFileInfo.ColWidth(2), 0);
  EXPECT_FALSE(form.vsgFileInfo.Editable());
  EXPECT_EQ(form.cmdAction(kClose).Role(), ButtonRole::Cancel);
  EXPECT_THAT(form.Arrangement(), ElementsAre(ElementsAre(&form.vsgFileInfo),
                                              ElementsAre(&form.cmdAction(kSave), &form.cmdAction(kClose))));
}

TEST_F(FileInfoTest, FilesOfTheProgramStandFirstInTheOrderOfTheFileSystem) {
  for (const std::string name : {"b.exe", "a.dll", "Tavrin.INI", "README"}) directory.Write("app/" + name, "");
  std::vector<std::string> expected;
  for (const std::string& name : systemFiles.List(directory.Path() + "app"))
    expected.push_back(name + "|" + kDate + "|");
  ASSERT_EQ(expected.size(), 4U);
  EXPECT_EQ(OwnRows(frmFileInfo()), expected);
}

TEST_F(FileInfoTest, DirectoriesAreLeftOut) {
  MakeLog();
  directory.Write("app/LOG/LOG1.TXT", "");
  directory.Write("app/tavrin", "");
  EXPECT_THAT(OwnRows(frmFileInfo()), ElementsAre(std::string("tavrin|") + kDate + "|"));
}

TEST_F(FileInfoTest, TheDateIsThatOfTheCreationInLocalTime) {
  directory.Write("app/old", "");
  times.created["old"] = Join({1999, 12, 31, 23, 0, 1, 0});
  EXPECT_THAT(OwnRows(frmFileInfo()), ElementsAre("old|01.01.2000 00:00:01|"));
}

TEST_F(FileInfoTest, NamesThatDifferOnlyInCaseHaveARowEach) {
  directory.Write("app/a.txt", "");
  directory.Write("app/A.TXT", "");
  times.created["a.txt"] = Join({2001, 1, 1, 0, 0, 0, 0});
  times.created["A.TXT"] = Join({2002, 2, 2, 0, 0, 0, 0});
  EXPECT_THAT(OwnRows(frmFileInfo()),
              testing::UnorderedElementsAre("a.txt|01.01.2001 01:00:00|", "A.TXT|02.02.2002 01:00:00|"));
}

TEST_F(FileInfoTest, ControlCharactersInANameMakeNoCellsAndLines) {
  directory.Write("app/a\tb\nc", "");
  EXPECT_THAT(OwnRows(frmFileInfo()), ElementsAre(std::string("a b c|") + kDate + "|"));
}

TEST_F(FileInfoTest, TheVersionIsTheTextThatTheAuthorHasTyped) {
  directory.Write("app/a.dll", ProgramOfVersion(u"7.1 Beta \u00FC"));
  EXPECT_THAT(OwnRows(frmFileInfo()), ElementsAre(std::string("a.dll|") + kDate + "|7.1 Beta \xFC"));
}

TEST_F(FileInfoTest, AResourceWithoutThatTextLeavesTheCellEmpty) {
  VersionTexts resource;
  resource.strings = {{"CompanyName", u"Example"}, {"ProductVersion", u"8"}};
  directory.Write("app/a.dll", PeFile({{1033, WideResource(VersionTree(resource))}}));
  EXPECT_THAT(OwnRows(frmFileInfo()), ElementsAre(std::string("a.dll|") + kDate + "|"));
}

TEST_F(FileInfoTest, AVersionEndsWhereItsCellDoes) {
  directory.Write("app/a.dll", ProgramOfVersion(u"1.0\tinternal"));
  EXPECT_THAT(OwnRows(frmFileInfo()), ElementsAre(std::string("a.dll|") + kDate + "|1.0"));
}

TEST_F(FileInfoTest, ControlCharactersInAVersionMakeNoLines) {
  MakeLog();
  directory.Write("app/a.dll", ProgramOfVersion(u"1.0\r\nbuild\n7\tinternal\r\n"));
  frmFileInfo form;
  EXPECT_THAT(OwnRows(form), ElementsAre(std::string("a.dll|") + kDate + "|1.0  build 7"));
  form.Save();
  const std::string report = Report();
  EXPECT_THAT(report, StartsWith(Padded("a.dll", 32) + kDate + " " + Padded("1.0  build 7", 18) + "\r\n"));
  EXPECT_EQ(std::count(report.begin(), report.end(), '\n'), static_cast<std::ptrdiff_t>(kNoLibraries.size() + 1));
}

TEST_F(FileInfoTest, AFoundLibraryTellsItsVersion) {
  directory.Write("system/OPCENUM.EXE", ProgramOfVersion(u"1.10"));
  EXPECT_EQ(LibraryRows(frmFileInfo()).at(3), std::string("OPCENUM.EXE|") + kDate + "|1.10");
}

TEST_F(FileInfoTest, ALibraryThatIsMissingIsToldInTheDateColumn) { EXPECT_EQ(Rows(frmFileInfo()), kNoLibraries); }

TEST_F(FileInfoTest, EachLibraryIsLookedForInTheSystemDirectory) {
  const std::vector<std::string> names{"OPCDAAuto.dll", "OPCCOMN_PS.DLL", "OPCPROXY.DLL", "OPCENUM.EXE",
                                       "OPC_AEPS.DLL"};
  for (std::size_t i = 0; i < names.size(); ++i) {
    directory.Write("system/" + names[i], "");
    std::vector<std::string> expected = kNoLibraries;
    expected[i] = names[i] + "|" + kDate + "|";
    EXPECT_EQ(LibraryRows(frmFileInfo()), expected);
    fs::remove(directory.Path() + "system/" + names[i]);
  }
}

TEST_F(FileInfoTest, TheNameThatTellsOfTheFirstLibraryIsNeverLookedFor) {
  directory.Write("system/opcAutoSofting.dll", "");
  EXPECT_EQ(Rows(frmFileInfo()), kNoLibraries);
}

TEST_F(FileInfoTest, CloseCloses) {
  frmFileInfo form;
  desktop.OnModal = [&](Form& shown) {
    form.cmdAction(kClose).UserClick();
    EXPECT_FALSE(shown.Visible());
  };
  desktop.ShowModal(form);
}

TEST_F(FileInfoTest, SaveWritesTheRowsInFixedColumnsAndSaysWhere) {
  MakeLog();
  directory.Write("app/tavrin", "");
  frmFileInfo form;
  form.cmdAction(kSave).UserClick();
  EXPECT_THAT(Boxes(), ElementsAre("#19 (" + directory.Path() + "app/LOG/VERSIONS.TXT)"));
  std::vector<std::string> lines{Padded("tavrin", 32) + Padded(kDate, 20) + std::string(18, ' ')};
  for (const std::string name :
       {"opcAutoSofting.dll", "OPCCOMN_PS.DLL", "OPCPROXY.DLL", "OPCENUM.EXE", "OPC_AEPS.DLL"}) {
    lines.push_back(Padded(name, 32) + Padded("#222", 20) + std::string(18, ' '));
  }
  EXPECT_EQ(Report(), Lines(lines));
}

TEST_F(FileInfoTest, ALongNameStandsInFullAndShiftsTheRest) {
  MakeLog();
  for (const std::size_t length : {31U, 32U, 33U}) {
    const std::string name(length, 'n');
    directory.Write("app/" + name, "");
    frmFileInfo form;
    form.Save();
    const std::string blank = length == 31 ? " " : "";
    EXPECT_THAT(Report(), StartsWith(name + blank + kDate + " " + std::string(18, ' ') + "\r\n"));
    fs::remove(directory.Path() + "app/" + name);
  }
}

TEST_F(FileInfoTest, AVersionIsPaddedAsWellAndALongOneStandsInFull) {
  MakeLog();
  for (const std::size_t length : {3U, 18U, 25U}) {
    directory.Write("app/a", ProgramOfVersion(std::u16string(length, u'7')));
    frmFileInfo form;
    form.Save();
    const std::string version = Padded(std::string(length, '7'), 18);
    EXPECT_THAT(Report(), StartsWith(Padded("a", 32) + kDate + " " + version + "\r\n"));
  }
}

TEST_F(FileInfoTest, SaveReplacesTheFormerReport) {
  MakeLog();
  directory.Write("app/LOG/VERSIONS.TXT", std::string(100'000, 'x'));
  frmFileInfo form;
  form.Save();
  EXPECT_THAT(Report(), StartsWith("opcAutoSofting.dll "));
  EXPECT_EQ(Report().size(), kNoLibraries.size() * (32 + 20 + 18 + 2));
}

TEST_F(FileInfoTest, SaveKeepsTheOrderOfTheGrid) {
  MakeLog();
  frmFileInfo form;
  DoubleClick(form, {0, 0});
  form.Save();
  EXPECT_THAT(Report(), StartsWith("OPCCOMN_PS.DLL "));
}

TEST_F(FileInfoTest, WithoutTheLogDirectoryTheErrorIsToldAndNothingElse) {
  frmFileInfo form;
  form.cmdAction(kSave).UserClick();
  EXPECT_THAT(Boxes(), ElementsAre("#199 76 #200 frmFileInfo.Save : Path not found"));
  EXPECT_FALSE(fs::exists(directory.Path() + "app/LOG"));
}

TEST_F(FileInfoTest, AFullDiskIsToldInsteadOfTheFile) {
  MakeLog();
  system.room = 10;
  frmFileInfo form;
  form.Save();
  EXPECT_THAT(Boxes(), ElementsAre(StartsWith("#199 61 #200 frmFileInfo.Save : ")));
}

TEST_F(FileInfoTest, ADoubleClickOnAHeadingSortsByItsTextWithCase) {
  for (const std::string name : {"b", "a", "C"}) directory.Write("app/" + name, "");
  frmFileInfo form;
  DoubleClick(form, {0, 0});
  EXPECT_THAT(Rows(form),
              ElementsAre(StartsWith("C|"), StartsWith("OPCCOMN"), StartsWith("OPCENUM"), StartsWith("OPCPROXY"),
                          StartsWith("OPC_AEPS"), StartsWith("a|"), StartsWith("b|"), StartsWith("opcAuto")));
  EXPECT_EQ(form.vsgFileInfo.Col(), 0);
}

TEST_F(FileInfoTest, ADateSortsAsTextByItsDay) {
  for (const std::string name : {"first", "second", "third"}) directory.Write("app/" + name, "");
  times.created["first"] = Join({2024, 12, 3, 10, 0, 0, 0});
  times.created["second"] = Join({2026, 1, 2, 10, 0, 0, 0});
  times.created["third"] = Join({2025, 6, 1, 10, 0, 0, 0});
  frmFileInfo form;
  DoubleClick(form, {0, 1});
  EXPECT_THAT(Rows(form),
              ElementsAre(StartsWith("opcAuto"), StartsWith("OPCCOMN"), StartsWith("OPCPROXY"), StartsWith("OPCENUM"),
                          StartsWith("OPC_AEPS"), StartsWith("third"), StartsWith("second"), StartsWith("first")))
      << "equal rows keep their order";
  EXPECT_EQ(form.vsgFileInfo.Col(), 1);
}

TEST_F(FileInfoTest, OnlyTheClickedColumnIsSortedWhateverWasCurrent) {
  directory.Write("app/z", "");
  directory.Write("app/y", "");
  times.created["z"] = Join({2000, 1, 1, 0, 0, 0, 0});
  frmFileInfo form;
  form.vsgFileInfo.UserSelect({3, 0}, {3, 1});
  DoubleClick(form, {0, 1});
  EXPECT_THAT(Rows(form).at(5), StartsWith("z|"));
  EXPECT_THAT(Rows(form).at(6), StartsWith("y|"));
  EXPECT_EQ(form.vsgFileInfo.Current(), (Cell{3, 1}));
  EXPECT_EQ(form.vsgFileInfo.SelectionEnd(), (Cell{3, 1}));
}

TEST_F(FileInfoTest, ADoubleClickElsewhereDoesNothing) {
  directory.Write("app/z", "");
  frmFileInfo form;
  const std::vector<std::string> before = Rows(form);
  DoubleClick(form, {2, 0});
  form.vsgFileInfo.UserPointAt({-1, -1});
  form.vsgFileInfo_DblClick();
  EXPECT_EQ(Rows(form), before);
  EXPECT_FALSE(form.vsgFileInfo.OpenEdit());
}

TEST_F(FileInfoTest, OverTheHeadingATipTellsHowToSort) {
  frmFileInfo form;
  Grid& grid = form.vsgFileInfo;
  for (int col = 0; col < 3; ++col) {
    grid.UserPointAt({0, col});
    EXPECT_EQ(grid.ToolTip(), "Doppelclicken zum Sortieren");
    grid.UserPointAt({1, col});
    EXPECT_EQ(grid.ToolTip(), "");
  }
  grid.UserPointAt({0, 1});
  grid.UserPointAt({-1, -1});
  EXPECT_EQ(grid.ToolTip(), "");
}

TEST_F(FileInfoTest, AnErrorWhileTheRowsAreMadeIsToldAndWhatIsThereStays) {
  directory.Write("app/a", "");
  BrokenRegional broken;
  Surroundings strange{around.programs, broken, times, around.service, nullptr};
  const Services dateless{desktop, system, files, registry, texts, syntax, settings, strange, directory.Path() + "app"};
  modMain::globals.services = &dateless;
  const frmFileInfo form;
  EXPECT_THAT(Boxes(), ElementsAre(StartsWith("#199 5 #200 frmFileInfo.GetFileVersions : ")));
  EXPECT_EQ(form.vsgFileInfo.Rows(), 1);
  EXPECT_EQ(form.cmdAction(kClose).Caption(), "#28");
}

TEST_F(FileInfoTest, AnErrorWhileTheWordsAreSetIsTold) {
  frmFileInfo form;
  BrokenView view;
  form.vsgFileInfo.Text({0, 1}, "another");
  form.vsgFileInfo.Listen(&view);
  form.GUI_Init();
  form.vsgFileInfo.Listen(nullptr);
  EXPECT_THAT(Boxes(), ElementsAre("#199 7 #200 frmFileInfo.GUI_Init : Out of memory"));
}

}  // namespace
}  // namespace tavrin
