#include "model/shared/modFiles.h"

#include <gtest/gtest.h>

#include "support/ProjectTest.h"

namespace tavrin {
namespace {

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

}  // namespace
}  // namespace tavrin
