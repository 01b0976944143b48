#include "tools/frmSettle.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <sys/stat.h>
#include <unistd.h>

#include "model/cDevice.h"
#include "model/cNetwork.h"
#include "platform/CodePage.h"
#include "support/DirectoryWatch.h"
#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace fs = std::filesystem;

enum Action : int { kClose = 0, kDelete = 1 };

/// A list whose rows cannot be shown.
class BrokenView : public ListViewListener {
 public:
  void OnAboutToReset() override { throw RuntimeError(ErrorNumber::OutOfMemory); }
  void OnReset() override {}
  void OnItemChanged(int) override {}
  void OnCurrentChanged() override {}
};

/// Counts how often a directory is read, and keeps the paths that were to be removed.
class WatchedFiles : public FaultyFiles {
 public:
  using FaultyFiles::FaultyFiles;

  std::vector<std::string> List(std::string_view directory) override {
    ++lists;
    return FaultyFiles::List(directory);
  }
  void Remove(std::string_view path) override {
    removed.emplace_back(path);
    FaultyFiles::Remove(path);
  }

  int lists = 0;
  std::vector<std::string> removed;
};

/// Acts as a user whom the rights of files bind, until it goes.
class OrdinaryUser {
 public:
  OrdinaryUser() : before_(geteuid()) {
    if (before_ == 0 && seteuid(65534) != 0) throw std::runtime_error("cannot become another user");
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;
  ~OrdinaryUser() {
    if (seteuid(before_) != 0) ADD_FAILURE() << "cannot become the former user again";
  }

 private:
  uid_t before_;
};

class SettleTest : public ProjectTest {
 protected:
  SettleTest() { modMain::globals.services = &watchedServices; }

  /// The three files of a project with one network that has one device.
  void MakeProject() {
    AddDevice(AddNetwork(NetworkType::Mpi, "Net"), "Dev");
    Touch({"ZOPCSRV.ini", "Net.ini", "Dev.csv"});
  }
  void Touch(const std::vector<std::string>& names) const {
    for (const std::string& name : names) directory.Write(name, name);
  }
  /// The regular files, directories and links of the project directory.
  [[nodiscard]] std::vector<std::string> OnDisk() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(directory.Path()))
      names.push_back(entry.path().filename().string());
    return names;
  }

  /// A row as its name, its picture and a cross for a mark: "a.txt NOK x".
  static std::string Told(const ListItem& row) { return row.text + " " + row.icon + (row.checked ? " x" : ""); }
  static std::vector<std::string> Rows(const frmSettle& form) {
    std::vector<std::string> rows;
    for (const ListItem& row : form.ListView1.Items()) rows.push_back(Told(row));
    return rows;
  }
  static int RowOf(const frmSettle& form, std::string_view name) {
    const auto& rows = form.ListView1.Items();
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const ListItem& row) { return row.text == name; });
    if (found == rows.end()) throw std::out_of_range("no row " + std::string(name));
    return static_cast<int>(found - rows.begin());
  }
  static void Check(frmSettle& form, std::string_view name, bool checked) {
    form.ListView1.UserCheck(RowOf(form, name), checked);
  }
  /// Opens the window and runs what a user does in it. @return whether it is closed after that
  bool Open(const std::function<void(frmSettle&)>& user) {
    frmSettle form;
    bool closed = false;
    desktop.OnModal = [&](Form& shown) {
      user(form);
      closed = !shown.Visible();
      form.Hide();
    };
    desktop.ShowModal(form);
    return closed;
  }
  /// Opens the window and presses the button that deletes, with Yes to the question.
  void DeleteMarked() {
    frmSettle form;
    PressDelete(form);
  }
  void PressDelete(frmSettle& form) {
    desktop.AnswerNext(true);
    form.cmdAction(kDelete).UserClick();
  }

  WatchedFiles watched{systemFiles};
  Services watchedServices{
      desktop, watched, files, registry, texts, syntax, settings, around.all, directory.Path() + "app"};
};

TEST_F(SettleTest, ItsWordsComeFromTheCatalogue) {
  const frmSettle form;
  EXPECT_EQ(form.Name(), "frmSettle");
  EXPECT_EQ(form.Caption(), "#267");
  EXPECT_EQ(form.cmdAction(kClose).Caption(), "#28");
  EXPECT_EQ(form.cmdAction(kDelete).Caption(), "#268");
  EXPECT_EQ(form.Label1(0).Caption(), "#269");
  EXPECT_EQ(form.Label1(1).Caption(), "#270");
}

TEST_F(SettleTest, TheTitleHasNoMnemonic) {
  class MnemonicTexts : public NumberTexts {
    std::string LoadText(int number, int) override { return "&N" + std::to_string(number); }
  } mnemonics;
  const Services named{desktop, watched, files, registry, mnemonics, syntax, settings, around.all, "app"};
  modMain::globals.services = &named;
  const frmSettle form;
  EXPECT_EQ(form.Caption(), "N267");
  EXPECT_EQ(form.cmdAction(kDelete).Caption(), "&N268");
}

TEST_F(SettleTest, TheLegendShowsEachPictureBesideItsMeaning) {
  const frmSettle form;
  EXPECT_EQ(form.Picture1.Image(), "NOK");
  EXPECT_EQ(form.Picture2.Image(), "OK");
  EXPECT_THAT(form.Arrangement(),
              ElementsAre(ElementsAre(&form.ListView1), ElementsAre(&form.Picture1, &form.Label1(0)),
                          ElementsAre(&form.Picture2, &form.Label1(1)),
                          ElementsAre(&form.cmdAction(kDelete), &form.cmdAction(kClose))));
}

TEST_F(SettleTest, EscapeClosesAndEnterDoesNotDelete) {
  const frmSettle form;
  EXPECT_EQ(form.cmdAction(kClose).Role(), ButtonRole::Cancel);
  EXPECT_EQ(form.cmdAction(kDelete).Role(), ButtonRole::Plain);
  EXPECT_EQ(form.FocusedControl(), &form.ListView1);
}

TEST_F(SettleTest, TheColumnNamesTheDirectoryAndLeavesRoomForTheScrollBar) {
  const frmSettle form;
  EXPECT_EQ(form.ListView1.HeaderText(), "#272 " + directory.Path());
  EXPECT_EQ(form.ListView1.HeaderWidth(), form.ListView1.Place().width - 360);
  EXPECT_GT(form.ListView1.HeaderWidth(), 0);
}

TEST_F(SettleTest, ARowHasThePathInUpperCaseAsItsKeyAndTheNameInItsOwnCase) {
  directory.Write("gro\xC3\x9F \xC3\xBC.Txt", "");
  const frmSettle form;
  ASSERT_EQ(form.ListView1.Count(), 1);
  EXPECT_EQ(form.ListView1.Item(0).text, "gro\xDF \xFC.Txt");
  EXPECT_EQ(form.ListView1.Item(0).key, UpperCase(directory.Path()) + "GRO\xDF \xDC.TXT");
}

TEST_F(SettleTest, RowsStandInTheOrderOfTheFileSystem) {
  Touch({"b", "a", "C", "d.txt", "0"});
  const frmSettle form;
  std::vector<std::string> names;
  for (const ListItem& row : form.ListView1.Items()) names.push_back(row.text);
  EXPECT_EQ(names, systemFiles.List(directory.Path()));
}

TEST_F(SettleTest, FilesWithoutPointAndThoseWhoseNamesBeginWithOneAreListedDirectoriesAreNot) {
  Touch({"README", ".hidden"});
  fs::create_directory(directory.Path() + "folder.d");
  directory.Write("folder.d/inside.txt", "");
  const frmSettle form;
  EXPECT_THAT(Rows(form), UnorderedElementsAre("README NOK x", ".hidden NOK x"));
}

TEST_F(SettleTest, TheProjectsOwnFilesAreOkAndThereIsNothingToDelete) {
  MakeProject();
  const frmSettle form;
  EXPECT_THAT(Rows(form), UnorderedElementsAre("ZOPCSRV.ini OK", "Net.ini OK", "Dev.csv OK"));
  EXPECT_FALSE(form.cmdAction(kDelete).Enabled());
}

TEST_F(SettleTest, EveryNetworkAndDeviceCounts) {
  for (const std::string name : {"A", "B", "C"}) {
    cNetwork& network = AddNetwork(NetworkType::Mpi, name);
    AddDevice(network, name + "1");
    AddDevice(network, name + "2");
  }
  Touch({"A.ini", "B.ini", "C.ini", "A1.csv", "A2.csv", "B1.csv", "B2.csv", "C1.csv", "C2.csv", "D.ini", "D1.csv"});
  const frmSettle form;
  EXPECT_THAT(Rows(form),
              UnorderedElementsAre("A.ini OK", "B.ini OK", "C.ini OK", "A1.csv OK", "A2.csv OK", "B1.csv OK",
                                   "B2.csv OK", "C1.csv OK", "C2.csv OK", "D.ini NOK x", "D1.csv NOK x"));
}

TEST_F(SettleTest, WhatTheProjectDoesNotNameIsMarkedWhereverItComesFrom) {
  MakeProject();
  Touch({"ZOPCSRV.bak", "Copy of ZOPCSRV.ini", "LOG1.TXT", "notes.pdf"});
  const frmSettle form;
  EXPECT_THAT(Rows(form), UnorderedElementsAre("ZOPCSRV.ini OK", "Net.ini OK", "Dev.csv OK", "ZOPCSRV.bak NOK x",
                                               "Copy of ZOPCSRV.ini NOK x", "LOG1.TXT NOK x", "notes.pdf NOK x"));
  EXPECT_TRUE(form.cmdAction(kDelete).Enabled());
}

TEST_F(SettleTest, NamesAreComparedWithoutCase) {
  AddDevice(AddNetwork(NetworkType::Mpi, "N\xE4he"), "Dev");
  Touch({"zopcsrv.INI", "N\xC3\x84HE.Ini", "dEV.CSV"});
  const frmSettle form;
  EXPECT_THAT(Rows(form), UnorderedElementsAre("zopcsrv.INI OK", "N\xC4HE.Ini OK", "dEV.CSV OK"));
}

TEST_F(SettleTest, TheFileOfADevicesSectionIsNoNameOfItsOwn) {
  MakeProject();
  Device(1, 1).szFileName("Elsewhere.ini");
  Touch({"Elsewhere.ini"});
  const frmSettle form;
  EXPECT_EQ(Told(form.ListView1.Item(RowOf(form, "Elsewhere.ini"))), "Elsewhere.ini NOK x");
  EXPECT_EQ(Told(form.ListView1.Item(RowOf(form, "Net.ini"))), "Net.ini OK");
}

TEST_F(SettleTest, ANameWithAPathInItNeverMatches) {
  MakeProject();
  directory.Write("Tags.csv", "");
  directory.Write("Net.ini", "[Devices]\r\nDev=1\r\n");
  Device(1, 1).szTagFileName(directory.Path() + "Tags.csv");
  const frmSettle form;
  EXPECT_EQ(Told(form.ListView1.Item(RowOf(form, "Tags.csv"))), "Tags.csv NOK x");
}

TEST_F(SettleTest, ANetworkThatIsNotSavedProtectsItsFileARemovedOneNoLonger) {
  MakeProject();
  Touch({"New.ini"});
  EXPECT_THAT(Rows(frmSettle()), testing::Contains("New.ini NOK x"));
  AddNetwork(NetworkType::Mpi, "New");
  EXPECT_THAT(Rows(frmSettle()), testing::Contains("New.ini OK"));
  Project().Networks().Remove(1);
  EXPECT_THAT(Rows(frmSettle()),
              UnorderedElementsAre("ZOPCSRV.ini OK", "Net.ini NOK x", "Dev.csv NOK x", "New.ini OK"));
}

TEST_F(SettleTest, TheButtonFollowsTheMarks) {
  MakeProject();
  Touch({"a", "b"});
  frmSettle form;
  Check(form, "a", false);
  EXPECT_TRUE(form.cmdAction(kDelete).Enabled());
  Check(form, "b", false);
  EXPECT_FALSE(form.cmdAction(kDelete).Enabled());
  Check(form, "Net.ini", true);
  EXPECT_TRUE(form.cmdAction(kDelete).Enabled()) << "the project's own files can be marked by hand";
  EXPECT_EQ(Told(form.ListView1.Item(RowOf(form, "Net.ini"))), "Net.ini OK x") << "the picture tells what it is";
}

TEST_F(SettleTest, CloseClosesAndDeletesNothing) {
  Touch({"a"});
  EXPECT_TRUE(Open([](frmSettle& form) { form.cmdAction(kClose).UserClick(); }));
  EXPECT_TRUE(Open([](frmSettle& form) { form.UserClose(); }));
  EXPECT_TRUE(directory.Has("a"));
}

TEST_F(SettleTest, DeletingAsksFirst) {
  Touch({"a"});
  EXPECT_FALSE(Open([this](frmSettle& form) {
    desktop.AnswerNext(false);
    form.cmdAction(kDelete).UserClick();
  }));
  EXPECT_THAT(desktop.Questions(), ElementsAre("#271"));
  EXPECT_TRUE(directory.Has("a"));
}

TEST_F(SettleTest, YesDeletesWhatIsMarkedAndShowsWhatIsLeft) {
  MakeProject();
  Touch({"a", "b", "keep"});
  EXPECT_FALSE(Open([this](frmSettle& form) {
    Check(form, "keep", false);
    PressDelete(form);
    EXPECT_THAT(Rows(form), UnorderedElementsAre("ZOPCSRV.ini OK", "Net.ini OK", "Dev.csv OK", "keep NOK x"))
        << "marked anew, since the marks are not remembered";
    EXPECT_TRUE(form.cmdAction(kDelete).Enabled());
  })) << "the window stays";
  EXPECT_THAT(OnDisk(), UnorderedElementsAre("ZOPCSRV.ini", "Net.ini", "Dev.csv", "keep"));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(SettleTest, AMarkedFileOfTheProjectIsDeletedToo) {
  MakeProject();
  frmSettle form;
  Check(form, "Net.ini", true);
  PressDelete(form);
  EXPECT_THAT(OnDisk(), UnorderedElementsAre("ZOPCSRV.ini", "Dev.csv"));
  EXPECT_FALSE(form.cmdAction(kDelete).Enabled());
}

TEST_F(SettleTest, WithTheQuestionOffItDeletesWithoutAsking) {
  modMain::globals.gbQueryOnDelete = false;
  Touch({"a"});
  frmSettle form;
  form.cmdAction(kDelete).UserClick();
  EXPECT_THAT(desktop.Questions(), IsEmpty());
  EXPECT_FALSE(directory.Has("a"));
}

TEST_F(SettleTest, AFileThatCannotBeDeletedStaysIsMarkedAgainAndHoldsUpNoOther) {
  Touch({"a", "stuck", "z"});
  for (const ErrorNumber number :
       {ErrorNumber::PathFileAccess, ErrorNumber::PermissionDenied, ErrorNumber::DeviceIoError}) {
    watched.removing = {"stuck", number};
    Touch({"a", "z"});
    frmSettle form;
    PressDelete(form);
    EXPECT_THAT(Rows(form), ElementsAre("stuck NOK x"));
    EXPECT_TRUE(form.cmdAction(kDelete).Enabled());
  }
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(SettleTest, AReadOnlyFileStays) {
  Touch({"locked", "free"});
  ASSERT_EQ(chmod(directory.Path().c_str(), 0777), 0);
  ASSERT_EQ(chmod((directory.Path() + "locked").c_str(), 0444), 0);
  ASSERT_EQ(chmod((directory.Path() + "free").c_str(), 0666), 0);
  frmSettle form;
  {
    const OrdinaryUser user;
    PressDelete(form);
  }
  EXPECT_THAT(Rows(form), ElementsAre("locked NOK x"));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(SettleTest, AFileThatNobodyMayWriteStaysForTheSuperuserToo) {
  Touch({"locked", "free"});
  ASSERT_EQ(chmod((directory.Path() + "locked").c_str(), 0444), 0);
  frmSettle form;
  PressDelete(form);
  EXPECT_THAT(Rows(form), ElementsAre("locked NOK x"));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(SettleTest, OfTwoNamesThatDifferOnlyInCaseTheMarkedOneGoes) {
  for (const std::string marked : {"a.txt", "A.TXT", "A.txt"}) {
    Touch({"a.txt", "A.TXT", "A.txt"});
    frmSettle form;
    for (const std::string name : {"a.txt", "A.TXT", "A.txt"}) Check(form, name, name == marked);
    PressDelete(form);
    EXPECT_FALSE(directory.Has(marked));
    EXPECT_EQ(OnDisk().size(), 2U) << marked;
  }
}

TEST_F(SettleTest, BothOfTwoNamesThatDifferOnlyInCaseGoWhenBothAreMarked) {
  Touch({"a.txt", "A.TXT"});
  DeleteMarked();
  EXPECT_THAT(OnDisk(), IsEmpty());
}

TEST_F(SettleTest, AMarkedFileThatHasGoneMeanwhileTakesNoOtherWithIt) {
  Touch({"a.txt", "A.TXT", "b"});
  frmSettle form;
  Check(form, "A.TXT", false);
  fs::remove(directory.Path() + "a.txt");
  PressDelete(form);
  EXPECT_THAT(OnDisk(), ElementsAre("A.TXT"));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(SettleTest, AFileThatHasComeMeanwhileIsNotDeletedButShown) {
  Touch({"a"});
  frmSettle form;
  Touch({"late"});
  PressDelete(form);
  EXPECT_THAT(OnDisk(), ElementsAre("late"));
  EXPECT_THAT(Rows(form), ElementsAre("late NOK x"));
}

TEST_F(SettleTest, ALinkGoesItselfAndNotWhatItPointsTo) {
  const TemporaryDirectory elsewhere;
  elsewhere.Write("target", "kept");
  fs::create_symlink(elsewhere.Path() + "target", directory.Path() + "link");
  fs::create_symlink("inside", directory.Path() + "inner");
  Touch({"inside"});
  frmSettle form;
  ASSERT_THAT(Rows(form), UnorderedElementsAre("link NOK x", "inner NOK x", "inside NOK x"));
  Check(form, "inside", false);
  PressDelete(form);
  EXPECT_THAT(OnDisk(), ElementsAre("inside"));
  EXPECT_EQ(elsewhere.Read("target"), "kept");
}

TEST_F(SettleTest, DirectoriesAndLinksToThemAreNeitherListedNorEntered) {
  const TemporaryDirectory elsewhere;
  elsewhere.Write("outside", "kept");
  fs::create_directory(directory.Path() + "folder");
  directory.Write("folder/inside", "kept");
  fs::create_directory_symlink(elsewhere.Path(), directory.Path() + "link");
  Touch({"a"});
  frmSettle form;
  ASSERT_THAT(Rows(form), ElementsAre("a NOK x"));
  PressDelete(form);
  EXPECT_THAT(OnDisk(), UnorderedElementsAre("folder", "link"));
  EXPECT_TRUE(directory.Has("folder/inside"));
  EXPECT_TRUE(elsewhere.Has("outside"));
}

TEST_F(SettleTest, AFileThatHasBecomeADirectoryStays) {
  Touch({"a"});
  frmSettle form;
  fs::remove(directory.Path() + "a");
  fs::create_directory(directory.Path() + "a");
  PressDelete(form);
  EXPECT_THAT(OnDisk(), ElementsAre("a"));
}

TEST_F(SettleTest, APipeStaysAndIsShownAgain) {
  ASSERT_EQ(mkfifo((directory.Path() + "pipe").c_str(), 0666), 0);
  frmSettle form;
  PressDelete(form);
  EXPECT_THAT(Rows(form), ElementsAre("pipe NOK x"));
}

TEST_F(SettleTest, OnlyPathsOfTheDirectoryItselfAreHandedOut) {
  Touch({"a", "b\\c", "..x", "d;e"});
  DeleteMarked();
  EXPECT_THAT(watched.removed, UnorderedElementsAre(directory.Path() + "a", directory.Path() + "b\\c",
                                                    directory.Path() + "..x", directory.Path() + "d;e"));
  EXPECT_THAT(OnDisk(), IsEmpty());
}

TEST_F(SettleTest, WithNoDirectoryKnownThereIsNothingToDelete) {
  modMain::globals.gszProjectDir.clear();
  frmSettle form;
  EXPECT_EQ(form.ListView1.Count(), 0);
  EXPECT_EQ(form.ListView1.HeaderText(), "#272 ");
  EXPECT_FALSE(form.cmdAction(kDelete).Enabled());
  form.DeleteMarkedFiles();
  EXPECT_EQ(watched.lists, 0) << "nowhere else is looked instead";
}

TEST_F(SettleTest, ADirectoryWithoutASeparatorBehindItIsTheOneWhoseFilesGo) {
  fs::create_directory(directory.Path() + "plant");
  directory.Write("plant/s", "");
  directory.Write("plants", "a sibling whose path is that of the directory with the file's name behind it");
  modMain::globals.gszProjectDir = directory.Path() + "plant";
  frmSettle form;
  EXPECT_EQ(form.ListView1.HeaderText(), "#272 " + directory.Path() + "plant");
  ASSERT_THAT(Rows(form), ElementsAre("s NOK x"));
  PressDelete(form);
  EXPECT_THAT(Rows(form), IsEmpty());
  EXPECT_FALSE(directory.Has("plant/s"));
  EXPECT_TRUE(directory.Has("plants"));
}

TEST_F(SettleTest, ANewProjectProposesTheFilesOfTheOneThatWasOpenBefore) {
  MakeProject();
  ASSERT_TRUE(Save());
  // What the menu entry New does: the directory is known on, and the new project is to be saved into it.
  modMain::globals.gOPC = std::make_unique<cOPC>();
  Project().szFileName("ZOPCSRV.ini");
  const frmSettle form;
  EXPECT_EQ(form.ListView1.HeaderText(), "#272 " + directory.Path());
  EXPECT_THAT(Rows(form), UnorderedElementsAre("ZOPCSRV.ini OK", "Net.ini NOK x", "Dev.csv NOK x"));
  EXPECT_TRUE(form.cmdAction(kDelete).Enabled());
}

TEST_F(SettleTest, LinksToNothingAreNotListedAndAreNotLookedForOneByOne) {
  for (int i = 0; i < 50; ++i) fs::create_symlink("nowhere", directory.Path() + "broken" + std::to_string(i));
  Touch({"a"});
  const DirectoryWatch watch(directory.Path());
  const frmSettle form;
  EXPECT_THAT(Rows(form), ElementsAre("a NOK x"));
  EXPECT_EQ(watch.Opened(), 1);
}

TEST_F(SettleTest, ADirectoryThatHasGoneHasNoRows) {
  modMain::globals.gszProjectDir = directory.Path() + "gone/";
  frmSettle form;
  EXPECT_EQ(form.ListView1.Count(), 0);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(SettleTest, ADirectoryThatCannotBeReadIsToldOnceAndTheWindowStays) {
  Touch({"a"});
  watched.listing = {"/", ErrorNumber::DeviceIoError};
  frmSettle form;
  EXPECT_THAT(Boxes(), ElementsAre(testing::HasSubstr("modFiles.ListFiles : ")));
  EXPECT_EQ(form.ListView1.Count(), 0);
  EXPECT_FALSE(form.cmdAction(kDelete).Enabled());
}

TEST_F(SettleTest, AnErrorWhileTheRowsAreShownIsToldAndTheRestGoesOn) {
  frmSettle form;
  BrokenView view;
  form.ListView1.Listen(&view);
  form.ShowFiles();
  form.ListView1.Listen(nullptr);
  EXPECT_THAT(Boxes(), ElementsAre("#199 7 #200 frmSettle.ShowFiles : Out of memory"));
}

TEST_F(SettleTest, AnErrorWhileTheWordsAreSetIsTold) {
  frmSettle form;
  form.Caption("another");
  const Connection broken = form.Changed.Connect([] { throw RuntimeError(ErrorNumber::NoObject); });
  form.GUI_Init();
  EXPECT_THAT(Boxes(), ElementsAre(testing::StartsWith("#199 91 #200 frmSettle.GUI_Init : ")));
}

TEST_F(SettleTest, WithNoProjectNothingCanBeTold) {
  modMain::globals.gOPC.reset();
  try {
    const frmSettle form;
    FAIL() << "every file would be marked";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::NoObject);
  }
}

TEST_F(SettleTest, TenThousandFilesAreReadAFixedNumberOfTimes) {
  constexpr int kFiles = 10'000;
  for (int i = 0; i < kFiles; ++i) directory.Write("file" + std::to_string(i), "");
  MakeProject();
  frmSettle form;
  EXPECT_EQ(form.ListView1.Count(), kFiles + 3);
  EXPECT_EQ(watched.lists, 1);
  PressDelete(form);
  EXPECT_THAT(Rows(form), UnorderedElementsAre("ZOPCSRV.ini OK", "Net.ini OK", "Dev.csv OK"));
  EXPECT_EQ(watched.removed.size(), static_cast<std::size_t>(kFiles));
  EXPECT_EQ(watched.lists, 3) << "once before the deletion, once after";
}

}  // namespace
}  // namespace tavrin
