#include "model/shared/modFiles.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/DirectoryWatch.h"
#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class modFilesTest : public ProjectTest {};

TEST_F(modFilesTest, FileExistsIsTrueForAFileAlsoInAnotherCase) {
  directory.Write("Name.ini", "");
  EXPECT_TRUE(FileExists(directory.Path() + "Name.ini"));
  EXPECT_TRUE(FileExists(directory.Path() + "nAME.INI"));
}

TEST_F(modFilesTest, FileExistsIsFalseForADirectoryAndForNothing) {
  EXPECT_FALSE(FileExists(directory.Path()));
  EXPECT_FALSE(FileExists(directory.Path().substr(0, directory.Path().size() - 1)));
  EXPECT_FALSE(FileExists(directory.Path() + "none.ini"));
  EXPECT_FALSE(FileExists(directory.Path() + "none/none.ini"));
  EXPECT_FALSE(FileExists(""));
}

TEST_F(modFilesTest, FileExistsIsFalseOnAnError) {
  directory.Write("Name.ini", "");
  modMain::globals.services = nullptr;
  EXPECT_FALSE(FileExists(directory.Path() + "Name.ini"));
}

TEST_F(modFilesTest, StripNullsCutsItsArgumentBeforeTheFirstNul) {
  struct Row {
    std::string given;
    std::string_view left;
  };
  using namespace std::string_literals;
  for (const Row& row : {Row{"abc\0de\0"s, "abc"}, Row{"\0abc"s, ""}, Row{"abc", "abc"}, Row{"", ""}}) {
    std::string text = row.given;
    EXPECT_EQ(StripNulls(text), row.left);
    EXPECT_EQ(text, row.left);
  }
}

TEST_F(modFilesTest, ListFilesGivesFullPathsBehindAnEmptyElement) {
  directory.Write("b.ini", "");
  directory.Write("a.csv", "");
  const std::vector<std::string> paths = ListFiles(directory.Path(), "*.*");
  ASSERT_FALSE(paths.empty());
  EXPECT_EQ(paths.front(), "");
  EXPECT_THAT(paths, UnorderedElementsAre("", directory.Path() + "b.ini", directory.Path() + "a.csv"));
}

TEST_F(modFilesTest, ListFilesKeepsTheOrderOfTheFileSystem) {
  for (const char* name : {"c", "a", "b", "z", "m"}) directory.Write(name, "");
  std::vector<std::string> inOrder{""};
  for (const std::string& name : files.List(directory.Path())) inOrder.push_back(directory.Path() + name);
  EXPECT_EQ(ListFiles(directory.Path(), "*"), inOrder);
  EXPECT_EQ(inOrder.size(), 6U);
}

TEST_F(modFilesTest, ListFilesTakesTheNamesThatMatchThePattern) {
  for (const char* name : {"a.ini", "A.INI.bak", "Press.CSV", "press.csv.old"}) directory.Write(name, "");
  EXPECT_THAT(ListFiles(directory.Path(), "*.csv"), ElementsAre("", directory.Path() + "Press.CSV"));
  EXPECT_THAT(ListFiles(directory.Path(), "?.ini"), ElementsAre("", directory.Path() + "a.ini"));
}

TEST_F(modFilesTest, ListFilesLeavesDirectoriesOutAndDoesNotGoBelow) {
  std::filesystem::create_directory(directory.Path() + "LOG");
  directory.Write("LOG/LOG1.TXT", "");
  directory.Write("a.ini", "");
  EXPECT_THAT(ListFiles(directory.Path(), "*.*"), ElementsAre("", directory.Path() + "a.ini"));
}

TEST_F(modFilesTest, ListFilesAddsTheSeparatorThatTheDirectoryLacks) {
  directory.Write("a.ini", "");
  const std::string without = directory.Path().substr(0, directory.Path().size() - 1);
  EXPECT_THAT(ListFiles(without, "*.*"), ElementsAre("", directory.Path() + "a.ini"));
}

TEST_F(modFilesTest, ListFilesWithoutAMatchHasTheEmptyElementAlone) {
  directory.Write("a.ini", "");
  EXPECT_THAT(ListFiles(directory.Path(), "*.csv"), ElementsAre(""));
  EXPECT_THAT(ListFiles(directory.Path(), ""), ElementsAre(""));
  EXPECT_THAT(ListFiles(directory.Path() + "none", "*.*"), ElementsAre(""));
  EXPECT_THAT(ListFiles(directory.Path() + "a.ini", "*.*"), ElementsAre(""));
}

TEST_F(modFilesTest, ListFilesLeavesAFileOutThatCannotBeLookedAt) {
  directory.Write("a.ini", "");
  std::filesystem::create_symlink("nowhere", directory.Path() + "broken.ini");
  EXPECT_THAT(ListFiles(directory.Path(), "*.*"), ElementsAre("", directory.Path() + "a.ini"));
}

TEST_F(modFilesTest, ListFilesReadsTheDirectoryOnceWhateverLiesInIt) {
  directory.Write("a.ini", "");
  for (int i = 0; i < 50; ++i) {
    std::filesystem::create_symlink("nowhere", directory.Path() + "broken" + std::to_string(i));
  }
  const DirectoryWatch watch(directory.Path());
  EXPECT_THAT(ListFiles(directory.Path(), "*.*"), ElementsAre("", directory.Path() + "a.ini"));
  EXPECT_EQ(watch.Opened(), 1);
}

TEST_F(modFilesTest, ListFilesTakesALinkToNothingForNoFileOfAnotherCase) {
  directory.Write("A.INI", "");
  std::filesystem::create_symlink("nowhere", directory.Path() + "a.ini");
  EXPECT_THAT(ListFiles(directory.Path(), "*.*"), ElementsAre("", directory.Path() + "A.INI"));
}

TEST_F(modFilesTest, AnErrorInListFilesIsToldAndGivesTheEmptyElement) {
  directory.Write("a.ini", "");
  faults.listing = {"", ErrorNumber::DeviceIoError};
  EXPECT_THAT(ListFiles(directory.Path(), "*.*"), ElementsAre(""));
  EXPECT_THAT(Boxes(), ElementsAre("#199 57 #200 modFiles.ListFiles : Device I/O error"));
}

TEST_F(modFilesTest, SystemDirectoryIsADirectoryWithoutASeparatorAtItsEnd) {
  const std::string system = SystemDirectory();
  EXPECT_TRUE(FolderExists(system));
  EXPECT_NE(system.back(), kPathSeparator);
}

TEST_F(modFilesTest, AnErrorInSystemDirectoryIsToldAndGivesNothing) {
  faults.listing = {"", ErrorNumber::DeviceIoError};
  EXPECT_EQ(SystemDirectory(), "");
  EXPECT_THAT(Boxes(), ElementsAre("#199 57 #200 modFiles.SystemDirectory : Device I/O error"));
}

TEST_F(modFilesTest, BrowseForFolderGivesTheDirectoryThatTheUserChooses) {
  desktop.AnswerNextPath("/somewhere");
  EXPECT_EQ(BrowseForFolder("Where?"), "/somewhere");
  desktop.AnswerNextPath(std::nullopt);
  EXPECT_EQ(BrowseForFolder(), "");
  EXPECT_THAT(desktop.FolderTitles(), ElementsAre("Where?", "W\xE4hlen Sie einen Ordner aus"));
}

/// A desktop whose dialog cannot be opened.
class DialoglessDesktop : public HeadlessDesktop {
 public:
  [[nodiscard]] std::string AskFolder(std::string_view) override { throw RuntimeError(ErrorNumber::OutOfMemory); }
};

TEST_F(modFilesTest, AnErrorInBrowseForFolderIsToldUnderTheModulesShortName) {
  DialoglessDesktop broken;
  const Services withBroken{broken, files, files, registry, texts, syntax, settings, around.all, ""};
  modMain::globals.services = &withBroken;
  EXPECT_EQ(BrowseForFolder(), "");
  EXPECT_THAT(broken.TakeBoxes(), ElementsAre("#199 7 #200 modFile.BrowseForFolder : Out of memory"));
}

TEST_F(modFilesTest, FolderExistsIsTrueForADirectoryOnly) {
  directory.Write("a.ini", "");
  EXPECT_TRUE(FolderExists(directory.Path()));
  EXPECT_TRUE(FolderExists(directory.Path().substr(0, directory.Path().size() - 1)));
  EXPECT_FALSE(FolderExists(directory.Path() + "a.ini"));
  EXPECT_FALSE(FolderExists(directory.Path() + "none"));
  EXPECT_FALSE(FolderExists(""));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(modFilesTest, AnErrorInFolderExistsIsToldUnderTheModulesShortName) {
  faults.looking = {"", ErrorNumber::DeviceIoError};
  EXPECT_FALSE(FolderExists(directory.Path()));
  EXPECT_THAT(Boxes(), ElementsAre("#199 57 #200 modFile.FolderExists : Device I/O error"));
}

}  // namespace
}  // namespace tavrin
