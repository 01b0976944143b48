#include "platform/posix/SharedFolder.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/RuntimeError.h"
#include "platform/posix/PosixFiles.h"
#include "support/TemporaryDirectory.h"

namespace tavrin {
namespace {

namespace fs = std::filesystem;
using testing::Each;

constexpr uid_t kOther = 12345;

/// Number of the error that a call ends with; 0 when it succeeds.
int ErrorOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const RuntimeError& error) {
    return static_cast<int>(error.Number());
  }
  return 0;
}

/// A directory LOG to which everybody may write, and a file "own" of the user elsewhere.
class SharedFolderTest : public testing::Test {
 protected:
  SharedFolderTest() {
    fs::create_directory(Log(""));
    chmod(Log("").c_str(), S_ISVTX | 0777);
    folder.Write("own", "precious");
  }
  [[nodiscard]] std::string Log(std::string_view name) const { return folder.Path() + "LOG/" + std::string(name); }
  [[nodiscard]] std::string Own() const { return folder.Path() + "own"; }
  /// Errors of all ways to write, in the order Create, Append, ReplaceTail.
  [[nodiscard]] std::vector<int> WritingErrors(const std::string& path) {
    return {ErrorOf([&] { (void)files.Create(path); }), ErrorOf([&] { files.Append(path, "x"); }),
            ErrorOf([&] { files.ReplaceTail(path, 0, "x"); })};
  }

  TemporaryDirectory folder;
  PosixFiles files;
};

TEST_F(SharedFolderTest, OnlyADirectoryOfEverybodyThatKeepsEachFileForItsOwnerIsShared) {
  struct Row {
    mode_t mode;
    bool shared;
  };
  for (const Row row : {Row{S_ISVTX | 0777, true}, Row{S_ISVTX | 0733, true}, Row{S_ISVTX | 0775, false},
                        Row{0777, false}, Row{0755, false}, Row{0700, false}}) {
    struct stat status {};
    status.st_mode = S_IFDIR | row.mode;
    EXPECT_EQ(IsShared(status), row.shared) << std::oct << row.mode;
  }
}

TEST_F(SharedFolderTest, OnlyAPlainFileOfTheUserWithOneNameIsHis) {
  struct stat status {};
  status.st_mode = S_IFREG | 0666;
  status.st_uid = kOther;
  status.st_nlink = 1;
  EXPECT_TRUE(IsOnlyOf(status, kOther));
  EXPECT_FALSE(IsOnlyOf(status, kOther + 1));
  EXPECT_FALSE(IsOnlyOf(status, 0)) << "root is a user like any other here";
  status.st_nlink = 2;
  EXPECT_FALSE(IsOnlyOf(status, kOther));
  status.st_nlink = 1;
  status.st_mode = S_IFIFO | 0666;
  EXPECT_FALSE(IsOnlyOf(status, kOther));
}

TEST_F(SharedFolderTest, TheUserMakesAndWritesFilesOfHisOwn) {
  files.Create(Log("NEW.TXT"))->Write("one");
  files.Create(Log("NEW.TXT"))->Write("two");
  files.Append(Log("NEW.TXT"), "+");
  files.ReplaceTail(Log("NEW.TXT"), 3, "!");
  EXPECT_EQ(folder.Read("LOG/NEW.TXT"), "two!");
  files.Append(Log("PROTOCOL.TXT"), "line");
  EXPECT_EQ(folder.Read("LOG/PROTOCOL.TXT"), "line");
}

TEST_F(SharedFolderTest, WhatIsMadeThereCannotBeWrittenByOthersWhateverTheUsersMask) {
  const mode_t mask = umask(0);
  files.Append(Log("NEW.TXT"), "x");
  files.Append(folder.Path() + "elsewhere", "x");
  umask(mask);
  struct stat status {};
  ASSERT_EQ(stat(Log("NEW.TXT").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, mode_t{0644});
  ASSERT_EQ(stat((folder.Path() + "elsewhere").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, mode_t{0666});
}

TEST_F(SharedFolderTest, ALinkThatLiesThereIsNotFollowed) {
  fs::create_symlink(Own(), Log("VERSIONS.TXT"));
  EXPECT_THAT(WritingErrors(Log("VERSIONS.TXT")), Each(75));
  EXPECT_THAT(WritingErrors(Log("versions.txt")), Each(75)) << "nor when it is found in another case";
  EXPECT_EQ(folder.Read("own"), "precious");
}

TEST_F(SharedFolderTest, ALinkToNothingDoesNotMakeAFileElsewhere) {
  fs::create_symlink(folder.Path() + "made", Log("VERSIONS.TXT"));
  EXPECT_THAT(WritingErrors(Log("VERSIONS.TXT")), Each(75));
  EXPECT_FALSE(folder.Has("made"));
}

TEST_F(SharedFolderTest, ASecondNameOfAFileIsNotWritten) {
  fs::create_hard_link(Own(), Log("VERSIONS.TXT"));
  EXPECT_THAT(WritingErrors(Log("VERSIONS.TXT")), Each(75));
  EXPECT_EQ(folder.Read("own"), "precious");
}

TEST_F(SharedFolderTest, AFileOfAnotherUserIsNotWritten) {
  folder.Write("LOG/VERSIONS.TXT", "his");
  if (chown(Log("VERSIONS.TXT").c_str(), kOther, static_cast<gid_t>(-1)) != 0) {
    GTEST_SKIP() << "only root can give a file away";
  }
  chmod(Log("VERSIONS.TXT").c_str(), 0666);
  EXPECT_THAT(WritingErrors(Log("VERSIONS.TXT")), Each(75));
  EXPECT_EQ(folder.Read("LOG/VERSIONS.TXT"), "his");
}

TEST_F(SharedFolderTest, ADirectoryOfTheUsersOwnHasLinksAsHeLikes) {
  chmod(Log("").c_str(), 0755);
  fs::create_symlink(Own(), Log("VERSIONS.TXT"));
  files.Create(Log("VERSIONS.TXT"))->Write("report");
  EXPECT_EQ(folder.Read("own"), "report");
  fs::create_hard_link(Own(), Log("PROTOCOL.TXT"));
  files.Append(Log("PROTOCOL.TXT"), "!");
  EXPECT_EQ(folder.Read("own"), "report!");
}

TEST_F(SharedFolderTest, AMissingFolderAndAPathWithoutANameAreErrorsAsElsewhere) {
  EXPECT_EQ(ErrorOf([&] { (void)files.Create(folder.Path() + "none/a"); }), 76);
  EXPECT_EQ(OpenForWriting((folder.Path() + "none/a").c_str(), O_WRONLY), -1);
  EXPECT_EQ(errno, ENOENT);
  EXPECT_EQ(OpenForWriting(Log("").c_str(), O_WRONLY), -1);
  EXPECT_EQ(errno, EISDIR);
}

TEST_F(SharedFolderTest, ANameWithoutAFolderIsThatOfTheWorkingDirectory) {
  const auto before = fs::current_path();
  fs::current_path(Log(""));
  fs::create_symlink(Own(), "LINK.TXT");
  EXPECT_THAT(WritingErrors("LINK.TXT"), Each(75));
  files.Append("NEW.TXT", "x");
  fs::current_path(before);
  EXPECT_EQ(folder.Read("LOG/NEW.TXT"), "x");
}

}  // namespace
}  // namespace tavrin
