#include "shell/ProjectCommands.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <utility>
#include <vector>

#include "support/ShellTest.h"

namespace tavrin {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class ProjectCommandsTest : public ShellTest {
 protected:
  ProjectCommandsTest() {
    Start();
    modMain::globals.gbQueryOnSave = false;
    root = directory.Path() + "ZOPCSRV.ini";
  }

  /// Makes a directory with a project without networks. @return the full path of its root file
  std::string MakeProject(const std::string& name, const std::string& file = "ZOPCSRV.ini") {
    std::filesystem::create_directory(directory.Path() + name);
    directory.Write(name + "/" + file, Lines({"[General]", "LogFileSize=77", "CaseSensitive=0", "UsedSeparator=/",
                                              "TagsAlwaysUppercase=0"}));
    return directory.Path() + name + "/" + file;
  }
  void Load(const std::string& file) { Window().commands.OPCProjectLoadFromDisk(file); }
  std::int32_t SaveToDisk(bool force) {
    std::int32_t nResult = -1;
    Window().commands.OPCProjectSaveToDisk(force, nResult);
    return nResult;
  }
  void File(int index) { Window().mnuFile(index).UserClick(); }
  /// A project that is open, was read from the directory and is not dirty.
  void OpenClean() {
    Load(MakeProject("p"));
    ASSERT_EQ(Project().szFullName(), directory.Path() + "p/ZOPCSRV.ini");
    ASSERT_FALSE(Project().bDataDirty());
  }
  /// A project that has changes and cannot be saved for want of a directory.
  void OpenWithoutDirectory() {
    File(1);
    ASSERT_EQ(modMain::globals.gszProjectDir, "");
  }
  [[nodiscard]] std::string FileText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }

  std::string root;
};

// ---- New

TEST_F(ProjectCommandsTest, ANewProjectHasTheFixedNameNoDirectoryAndShowsItsRoot) {
  File(1);
  EXPECT_EQ(Project().szFileName(), "ZOPCSRV.ini");
  EXPECT_EQ(modMain::globals.gszProjectDir, "");
  EXPECT_TRUE(Project().bDataDirty()) << "it is nowhere on disk";
  EXPECT_TRUE(Window().vsgOPC.Visible());
  EXPECT_EQ(Window().tvwMain.Count(), 1);
  EXPECT_TRUE(Window().tvwMain.Focused());
  EXPECT_EQ(Window().Caption(), "#1");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ProjectCommandsTest, ANewProjectKeepsDirectoryAndCaptionOfTheOneBefore) {
  OpenClean();
  const std::string caption = Window().Caption();
  File(1);
  EXPECT_EQ(modMain::globals.gszProjectDir, directory.Path() + "p/");
  EXPECT_EQ(Window().Caption(), caption);
  File(3);
  EXPECT_THAT(FileText(directory.Path() + "p/ZOPCSRV.ini"), testing::Not(testing::HasSubstr("LogFileSize=77")))
      << "the old root file is written over";
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ProjectCommandsTest, SavingANewProjectNeedsADirectoryFirst) {
  File(1);
  File(3);
  EXPECT_THAT(Boxes(), ElementsAre("#214"));
  desktop.AnswerNextPath(directory.Path());
  File(4);
  EXPECT_THAT(Boxes(), IsEmpty());
  EXPECT_TRUE(directory.Has("ZOPCSRV.ini"));
  File(3);
  EXPECT_THAT(Boxes(), IsEmpty());
}

// ---- Open

TEST_F(ProjectCommandsTest, TheOpenDialogBeginsAtTheSampleWithTheFixedName) {
  OpenClean();
  desktop.AnswerNextPath(std::nullopt);
  File(2);
  ASSERT_THAT(desktop.OpenRequests(), SizeIs(1));
  EXPECT_EQ(desktop.OpenRequests()[0].fileName, "ZOPCSRV.ini");
  EXPECT_EQ(desktop.OpenRequests()[0].filter, "(#13)|ZOPCSRV.ini");
  EXPECT_EQ(desktop.OpenRequests()[0].directory, directory.Path() + "app/INI");
}

TEST_F(ProjectCommandsTest, ACancelledOpenLeavesEverything) {
  OpenClean();
  const cOPC* const before = modMain::globals.gOPC.get();
  for (const auto& answer : {std::optional<std::string>{}, std::optional<std::string>{""}}) {
    desktop.AnswerNextPath(answer);
    File(2);
    EXPECT_EQ(modMain::globals.gOPC.get(), before);
    EXPECT_EQ(modMain::globals.gszProjectDir, directory.Path() + "p/");
  }
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ProjectCommandsTest, OpenShowsTheProjectAndNamesItInTheCaption) {
  desktop.AnswerNextPath(CopySample("plant"));
  File(2);
  EXPECT_EQ(Project().Networks().Count(), 6);
  EXPECT_EQ(modMain::globals.gszProjectDir, directory.Path());
  EXPECT_EQ(Window().Caption(), "#1 - (" + root + ")");
  EXPECT_EQ(Window().szMRU1, root);
  EXPECT_TRUE(Window().vsgOPC.Visible());
  EXPECT_TRUE(Window().tvwMain.Focused());
  EXPECT_EQ(Window().tvwMain.SelectedItem(), Window().tvwMain.Node(1));
  EXPECT_THAT(desktop.Questions(), IsEmpty()) << "there are no warnings to offer";
  EXPECT_THAT(desktop.Pointers(), ElementsAre(MousePointer::Hourglass, MousePointer::Normal));
}

TEST_F(ProjectCommandsTest, AFileOfAnotherNameIsAcceptedAndGivesTheRootItsName) {
  desktop.AnswerNextPath(MakeProject("p", "Other.txt"));
  File(2);
  EXPECT_EQ(Project().szFileName(), "Other.txt");
  EXPECT_EQ(Project().nLogFileSize(), 77);
  EXPECT_EQ(Window().Caption(), "#1 - (" + directory.Path() + "p/Other.txt)");
}

TEST_F(ProjectCommandsTest, AMissingFileIsToldAndTheOpenProjectStays) {
  OpenClean();
  const cOPC* const before = modMain::globals.gOPC.get();
  desktop.AnswerNextPath(directory.Path() + "none.ini");
  File(2);
  EXPECT_THAT(Boxes(), ElementsAre("#201 " + directory.Path() + "none.ini"));
  EXPECT_EQ(modMain::globals.gOPC.get(), before);
  EXPECT_EQ(modMain::globals.gszProjectDir, directory.Path() + "p/");
  EXPECT_EQ(desktop.Pointers().back(), MousePointer::Normal);
}

TEST_F(ProjectCommandsTest, ADirectoryInPlaceOfAFileIsMissingToo) {
  Load(directory.Path());
  EXPECT_THAT(Boxes(), ElementsAre("#201 " + directory.Path()));
  EXPECT_FALSE(modMain::globals.gOPC);
}

TEST_F(ProjectCommandsTest, AnEmptyPathDoesNothing) {
  OpenClean();
  const cOPC* const before = modMain::globals.gOPC.get();
  Load("");
  EXPECT_EQ(modMain::globals.gOPC.get(), before);
  EXPECT_THAT(Boxes(), IsEmpty());
  EXPECT_EQ(desktop.Pointers().back(), MousePointer::Normal);
}

TEST_F(ProjectCommandsTest, WarningsAreOfferedAndShownOnYes) {
  const std::string file = CopySample("faulty");
  desktop.AnswerNext(true);
  Load(file);
  EXPECT_THAT(desktop.Questions(), ElementsAre("#202"));
  EXPECT_TRUE(Window().vsgWarnings.Visible());
  EXPECT_TRUE(Window().lblWarnings.Visible());
  EXPECT_FALSE(Window().vsgOPC.Visible());
  EXPECT_EQ(Window().vsgWarnings.Rows(), modMain::ReadWarnings().Count() + 1);
  EXPECT_EQ(Window().szMRU1, file);
  EXPECT_EQ(Window().Caption(), "#1 - (" + file + ")");
}

TEST_F(ProjectCommandsTest, WarningsAreNotShownOnNo) {
  OpenSample("faulty");
  EXPECT_THAT(desktop.Questions(), ElementsAre("#202"));
  EXPECT_FALSE(Window().vsgWarnings.Visible());
  EXPECT_TRUE(Window().vsgOPC.Visible());
  EXPECT_GE(modMain::ReadWarnings().Count(), 1);
}

TEST_F(ProjectCommandsTest, AnErrorInALoadGoesToTheTrapAndThePointerIsNormalAgain) {
  const std::string file = CopySample("faulty");
  desktop.OnTold = [](std::string_view what, std::string_view /*text*/) {
    if (what == "no") throw RuntimeError(ErrorNumber::OutOfMemory);
  };
  desktop.AnswerNext(false);
  Load(file);
  EXPECT_EQ(Boxes().back(), "#199 7 #200 frmOPC.OPCProjectLoadFromDisk : Out of memory");
  EXPECT_THAT(desktop.Pointers(), ElementsAre(MousePointer::Hourglass, MousePointer::Normal));
  EXPECT_EQ(Project().szFullName(), file) << "what was read stays open";
  EXPECT_EQ(Window().szMRU1, "") << "what was not reached stays undone";
}

// ---- the guard

TEST_F(ProjectCommandsTest, ChangesAreWrittenBeforeAnotherProjectComes) {
  const std::vector<std::pair<const char*, std::function<void()>>> commands{
      {"new", [this] { File(1); }},
      {"open", [this] { File(2); }},
      {"recent", [this] { File(11); }},
      {"drop", [this] { Window().UserDropFile(directory.Path() + "none"); }},
  };
  desktop.AnswerNextPath(std::nullopt);  // for the one that opens a dialog
  for (const auto& [name, command] : commands) {
    OpenClean();
    Project().nLogFileSize(4711);
    command();
    EXPECT_THAT(FileText(directory.Path() + "p/ZOPCSRV.ini"), testing::HasSubstr("LogFileSize=4711")) << name;
  }
}

TEST_F(ProjectCommandsTest, WithTheQuestionOnANoGoesOnWithoutWriting) {
  OpenClean();
  Project().nLogFileSize(4711);
  modMain::globals.gbQueryOnSave = true;
  desktop.AnswerNext(false);
  File(1);
  EXPECT_THAT(desktop.Questions(), ElementsAre("#21"));
  EXPECT_EQ(Project().nLogFileSize(), 10000) << "the new project is there";
  EXPECT_THAT(FileText(directory.Path() + "p/ZOPCSRV.ini"), testing::HasSubstr("LogFileSize=77"));
}

TEST_F(ProjectCommandsTest, WithTheQuestionOffNothingIsAskedAnywhere) {
  OpenClean();
  const std::string other = MakeProject("q");
  for (int i = 0; i < 2; ++i) {
    Project().nLogFileSize(100 + i);
    desktop.AnswerNextPath(i == 0 ? other : directory.Path() + "p/ZOPCSRV.ini");
    File(2);
  }
  Project().nLogFileSize(200);
  File(12);
  Project().nLogFileSize(300);
  File(1);
  EXPECT_THAT(desktop.Questions(), IsEmpty());
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ProjectCommandsTest, NewOpenAndDropStopWhenThereIsNoDirectory) {
  OpenWithoutDirectory();
  const cOPC* const before = modMain::globals.gOPC.get();
  File(1);
  EXPECT_THAT(Boxes(), ElementsAre("#214"));
  File(2);
  EXPECT_THAT(Boxes(), ElementsAre("#214"));
  EXPECT_THAT(desktop.OpenRequests(), IsEmpty());
  Window().UserDropFile(MakeProject("p"));
  EXPECT_THAT(Boxes(), ElementsAre("#214"));
  EXPECT_EQ(modMain::globals.gOPC.get(), before);
}

TEST_F(ProjectCommandsTest, NewAndOpenStopWhenThereIsNoFileName) {
  modMain::globals.gOPC = std::make_unique<cOPC>();
  Project().bDataDirty(true);
  const cOPC* const before = modMain::globals.gOPC.get();
  File(1);
  EXPECT_THAT(Boxes(), ElementsAre("#213"));
  File(2);
  EXPECT_THAT(Boxes(), ElementsAre("#213"));
  File(3);
  EXPECT_THAT(Boxes(), ElementsAre("#213"));
  EXPECT_EQ(modMain::globals.gOPC.get(), before);
}

TEST_F(ProjectCommandsTest, ARecentProjectIsOpenedEvenWhenTheChangesCannotBeSaved) {
  OpenClean();
  File(1);
  modMain::globals.gszProjectDir.clear();
  File(11);
  EXPECT_THAT(Boxes(), ElementsAre("#214"));
  EXPECT_EQ(Project().szFullName(), directory.Path() + "p/ZOPCSRV.ini");
  EXPECT_EQ(Project().nLogFileSize(), 77);
}

TEST_F(ProjectCommandsTest, ARecentProjectIsOpenedEvenWhenTheOpenOneHasNoFileName) {
  OpenClean();
  modMain::globals.gOPC = std::make_unique<cOPC>();
  Project().bDataDirty(true);
  File(11);
  EXPECT_THAT(Boxes(), ElementsAre("#213"));
  EXPECT_EQ(Project().szFullName(), directory.Path() + "p/ZOPCSRV.ini");
  EXPECT_EQ(Project().nLogFileSize(), 77);
}

TEST_F(ProjectCommandsTest, ARecentEntryOpensWhatItShowedWhenItWasChosen) {
  const std::string q = MakeProject("q");
  Load(q);
  OpenClean();
  modMain::globals.gOPC->bDataDirty(true);
  modMain::globals.gszProjectDir = directory.Path() + "q/";
  Window().szMRU2 = "/elsewhere";  // so that the guard enters the open project and moves all entries
  Window().recent.ShowMRU();
  File(11);
  EXPECT_EQ(Window().mnuFile(11).Caption(), q);
  EXPECT_EQ(Project().szFullName(), directory.Path() + "p/ZOPCSRV.ini");
}

TEST_F(ProjectCommandsTest, EachRecentEntryOpensItsProject) {
  std::array<std::string, 4> paths;
  for (std::size_t i = 0; i < paths.size(); ++i) Load(paths[i] = MakeProject("p" + std::to_string(i)));
  for (int i = 0; i < 4; ++i) {
    File(14 - i);
    EXPECT_EQ(Project().szFullName(), paths[static_cast<std::size_t>(i)]);
  }
  EXPECT_EQ(Window().szMRU1, paths[3]) << "the order stays";
}

TEST_F(ProjectCommandsTest, ARecentProjectThatIsGoneIsTold) {
  OpenClean();
  const cOPC* const before = modMain::globals.gOPC.get();
  Window().szMRU2 = directory.Path() + "gone.ini";
  Window().recent.ShowMRU();
  File(12);
  EXPECT_THAT(Boxes(), ElementsAre("#201 " + directory.Path() + "gone.ini"));
  EXPECT_EQ(modMain::globals.gOPC.get(), before);
}

TEST_F(ProjectCommandsTest, ADroppedFileIsOpenedAsByTheDialog) {
  OpenClean();
  const std::string other = MakeProject("q", "any.name");
  Window().UserDropFile(other);
  EXPECT_EQ(Project().szFullName(), other);
  EXPECT_EQ(Window().Caption(), "#1 - (" + other + ")");
  Window().UserDropFile(directory.Path() + "none");
  EXPECT_THAT(Boxes(), ElementsAre("#201 " + directory.Path() + "none"));
}

// ---- Save

TEST_F(ProjectCommandsTest, SaveWritesAlsoWhenNothingHasChanged) {
  OpenClean();
  std::filesystem::remove(directory.Path() + "p/ZOPCSRV.ini");
  modMain::globals.gbQueryOnSave = true;
  desktop.AnswerNext(true);
  File(3);
  EXPECT_THAT(desktop.Questions(), ElementsAre("#21"));
  EXPECT_TRUE(directory.Has("p/ZOPCSRV.ini"));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ProjectCommandsTest, SaveWithANoWritesNothingAndIsSilent) {
  OpenClean();
  std::filesystem::remove(directory.Path() + "p/ZOPCSRV.ini");
  modMain::globals.gbQueryOnSave = true;
  desktop.AnswerNext(false);
  File(3);
  EXPECT_FALSE(directory.Has("p/ZOPCSRV.ini"));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ProjectCommandsTest, TheResultTellsWhatWasDone) {
  EXPECT_EQ(SaveToDisk(true), kNothingToDo) << "no project";
  OpenClean();
  EXPECT_EQ(SaveToDisk(false), kNothingToDo) << "nothing changed";
  EXPECT_EQ(SaveToDisk(true), kSaved);
  modMain::globals.gbQueryOnSave = true;
  desktop.AnswerNext(false);
  EXPECT_EQ(SaveToDisk(true), kNothingToDo) << "the user said no";
  desktop.AnswerNext(true);
  EXPECT_EQ(SaveToDisk(true), kSaved);
  modMain::globals.gbQueryOnSave = false;
  modMain::globals.gszProjectDir.clear();
  EXPECT_EQ(SaveToDisk(true), kNoDirectory);
  modMain::globals.gOPC = std::make_unique<cOPC>();
  EXPECT_EQ(SaveToDisk(true), kNoFileName) << "the name is missed first";
}

TEST_F(ProjectCommandsTest, AChangeAnywhereInTheTreeMakesTheProjectDirty) {
  OpenSample("plant");
  const std::vector<std::function<void(bool)>> marks{
      [this](bool dirty) { Project().bDataDirty(dirty); },
      [this](bool dirty) { Network(6).bDataDirty(dirty); },
      [this](bool dirty) { Device(5, 1).bDataDirty(dirty); },
      [this](bool dirty) { (*Device(4, 1).Tags().begin()).bDataDirty(dirty); },
  };
  modMain::globals.gbQueryOnSave = true;
  for (const auto& mark : marks) {
    EXPECT_EQ(SaveToDisk(false), kNothingToDo);
    const std::size_t asked = desktop.Questions().size();
    mark(true);
    desktop.AnswerNext(false);
    EXPECT_EQ(SaveToDisk(false), kNothingToDo);
    EXPECT_EQ(desktop.Questions().size(), asked + 1);
    mark(false);
  }
}

TEST_F(ProjectCommandsTest, SavingEntersTheProjectIntoTheListWhateverComesOfIt) {
  OpenWithoutDirectory();
  EXPECT_EQ(SaveToDisk(true), kNoDirectory);
  EXPECT_EQ(Window().szMRU1, "ZOPCSRV.ini");
  modMain::globals.gszProjectDir = directory.Path();
  Project().bDataDirty(false);
  EXPECT_EQ(SaveToDisk(false), kNothingToDo);
  EXPECT_EQ(Window().szMRU1, root);
  EXPECT_EQ(Window().szMRU2, "ZOPCSRV.ini");
}

TEST_F(ProjectCommandsTest, WriteWarningsAreOfferedAndTheProjectIsSavedEitherWay) {
  OpenSample("plant");
  for (const bool show : {false, true}) {
    faults.creating = FaultyFiles::Fault{".csv", ErrorNumber::PathFileAccess};
    const std::size_t asked = desktop.Questions().size();
    desktop.AnswerNext(show);
    EXPECT_EQ(SaveToDisk(true), kSaved);
    ASSERT_EQ(desktop.Questions().size(), asked + 1);
    EXPECT_EQ(desktop.Questions().back(), "#206");
    EXPECT_EQ(Window().vsgWarnings.Visible(), show);
  }
  EXPECT_EQ(Window().vsgWarnings.Rows(), modMain::WriteWarnings().Count() + 1);
  EXPECT_THAT(Boxes(), Contains(testing::StartsWith("#199 75 #200 cTags.Update : ")));
}

TEST_F(ProjectCommandsTest, AProjectWhoseDirectoryHasBecomeUnwritableStaysOpen) {
  OpenSample("plant");
  faults.creating = FaultyFiles::Fault{"", ErrorNumber::PathFileAccess};
  faults.appending = faults.creating;
  faults.removing = faults.creating;
  const std::string before = directory.Read("ZOPCSRV.ini");
  desktop.AnswerNext(true);
  File(3);
  EXPECT_THAT(Boxes(), testing::Not(IsEmpty()));
  EXPECT_TRUE(Window().vsgWarnings.Visible());
  EXPECT_EQ(directory.Read("ZOPCSRV.ini"), before);
  EXPECT_EQ(Project().Networks().Count(), 6);
  EXPECT_TRUE(Window().Visible());
}

TEST_F(ProjectCommandsTest, LinesOfAnIniFileThatDoNotReachTheDiskAreToldAndTheProjectKeepsItsMark) {
  Start();
  File(1);
  modMain::globals.gszProjectDir = directory.Path();
  faults.creating = FaultyFiles::Fault{".ini", ErrorNumber::DiskFull};
  faults.appending = faults.creating;
  desktop.AnswerNext(true);
  EXPECT_EQ(SaveToDisk(true), kSaved);
  EXPECT_THAT(Boxes(), ElementsAre("#205 " + directory.Path() + "ZOPCSRV.ini"));
  EXPECT_TRUE(Project().bDataDirty());
}

// ---- Save as

TEST_F(ProjectCommandsTest, SaveAsWritesEverythingIntoTheDirectoryAndLeavesTheOldOne) {
  OpenSample("plant");
  std::filesystem::create_directory(directory.Path() + "copy");
  const std::string before = directory.Read("ZOPCSRV.ini");
  const std::string caption = Window().Caption();
  desktop.AnswerNextPath(directory.Path() + "copy");
  File(4);
  EXPECT_THAT(desktop.FolderTitles(), ElementsAre("#44"));
  EXPECT_EQ(modMain::globals.gszProjectDir, directory.Path() + "copy/");
  EXPECT_EQ(Project().szFileName(), "ZOPCSRV.ini");
  EXPECT_EQ(Window().Caption(), caption);
  EXPECT_EQ(Window().szMRU1, directory.Path() + "copy/ZOPCSRV.ini");
  for (const char* file : {"ZOPCSRV.ini", "Leitnetz.ini", "Brunnen_1.csv"}) {
    EXPECT_EQ(directory.Read("copy/" + std::string(file)).empty(), false) << file;
  }
  EXPECT_EQ(directory.Read("ZOPCSRV.ini"), before);
}

TEST_F(ProjectCommandsTest, SaveAsWithoutAProjectAsksNothing) {
  Window().commands.mnuFile_Click(4);
  EXPECT_THAT(desktop.FolderTitles(), IsEmpty());
}

TEST_F(ProjectCommandsTest, SaveAsWithoutAFolderOrIntoAMissingOneIsSilent) {
  OpenClean();
  for (const char* folder : {"", "missing", "p/ZOPCSRV.ini"}) {
    desktop.AnswerNextPath(*folder == '\0' ? std::string() : directory.Path() + folder);
    File(4);
    EXPECT_EQ(modMain::globals.gszProjectDir, directory.Path() + "p/");
  }
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ProjectCommandsTest, SaveAsAsksWhenTheUserWantsToBeAsked) {
  OpenClean();
  modMain::globals.gbQueryOnSave = true;
  desktop.AnswerNextPath(directory.Path());
  desktop.AnswerNext(false);
  File(4);
  EXPECT_THAT(desktop.Questions(), ElementsAre("#21"));
  EXPECT_FALSE(directory.Has("ZOPCSRV.ini"));
  EXPECT_EQ(modMain::globals.gszProjectDir, directory.Path()) << "the directory is taken before the question";
}

TEST_F(ProjectCommandsTest, SaveAsWithoutAFileNameIsTold) {
  OpenClean();
  modMain::globals.gOPC = std::make_unique<cOPC>();
  desktop.AnswerNextPath(directory.Path());
  File(4);
  EXPECT_THAT(Boxes(), ElementsAre("#213"));
}

// ---- menus and tool bar

TEST_F(ProjectCommandsTest, EntriesThatNeedAProjectAreSwitchedWhenTheirMenuOpens) {
  const auto states = [this] {
    Window().mnuMain(1).UserOpen();
    Window().mnuMain(3).UserOpen();
    return std::array{Window().mnuFile(3).Enabled(), Window().mnuFile(4).Enabled(), Window().mnuExtras(1).Enabled(),
                      Window().mnuExtras(2).Enabled()};
  };
  EXPECT_THAT(states(), ElementsAre(false, false, false, false));
  File(1);
  EXPECT_FALSE(Window().mnuFile(3).Enabled()) << "not before the menu opens";
  EXPECT_THAT(states(), ElementsAre(true, true, true, true));
}

TEST_F(ProjectCommandsTest, OtherMenusAndEntriesAreLeftAlone) {
  for (const int menu : {2, 4, 5}) Window().mnuMain(menu).UserOpen();
  EXPECT_TRUE(Window().mnuFile(3).Enabled());
  EXPECT_TRUE(Window().mnuExtras(1).Enabled());
  Window().mnuMain(1).UserOpen();
  for (const int entry : {1, 2, 21}) EXPECT_TRUE(Window().mnuFile(entry).Enabled()) << entry;
}

TEST_F(ProjectCommandsTest, EachToolButtonActsAsItsEntry) {
  auto& buttons = Window().Toolbar1.Buttons;
  buttons(kToolSave).UserClick();
  EXPECT_THAT(Boxes(), IsEmpty()) << "without a project it has no effect";
  buttons(kToolNew).UserClick();
  EXPECT_TRUE(modMain::globals.gOPC);
  buttons(kToolSave).UserClick();
  EXPECT_THAT(Boxes(), ElementsAre("#214"));
  Project().bDataDirty(false);
  desktop.AnswerNextPath(MakeProject("p"));
  buttons(kToolOpen).UserClick();
  EXPECT_EQ(Project().nLogFileSize(), 77);
}

TEST_F(ProjectCommandsTest, TheDeleteButtonActsByItsTag) {
  std::vector<int> done;
  for (const int i : {2, 4}) {
    Window().mnuEdit(i).OnClick = [&done, i] { done.push_back(i); };
  }
  ToolButton& button = Window().Toolbar1.Buttons(kToolDelete);
  button.Enabled(true);
  for (const int tag : {kDeleteNetwork, kDeleteDevice}) {
    button.Tag(tag);
    button.UserClick();
  }
  EXPECT_THAT(done, ElementsAre(2, 4));
}

TEST_F(ProjectCommandsTest, AnErrorInACommandGoesToTheTrap) {
  desktop.OnTold = [](std::string_view what, std::string_view /*text*/) {
    if (what == "open") throw RuntimeError(ErrorNumber::PermissionDenied);
  };
  File(2);
  EXPECT_THAT(Boxes(), ElementsAre("#199 70 #200 frmOPC.mnuFile_Click : Permission denied"));
}

}  // namespace
}  // namespace tavrin
