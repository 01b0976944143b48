#include "platform/posix/PosixFiles.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/CodePage.h"
#include "platform/NamesIn.h"
#include "platform/RuntimeError.h"
#include "support/DirectoryWatch.h"
#include "support/TemporaryDirectory.h"

namespace tavrin {
namespace {

/// Number of the error that a call ends with; 0 when it succeeds.
int ErrorOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const RuntimeError& error) {
    return static_cast<int>(error.Number());
  }
  return 0;
}

class PosixFilesTest : public testing::Test {
 protected:
  /// Errors of all operations on a path, in the order ReadAll, Create, Append, ReplaceTail, Remove.
  std::vector<int> AllErrors(const std::string& path) {
    return {ErrorOf([&] { (void)files_.ReadAll(path); }), ErrorOf([&] { (void)files_.Create(path); }),
            ErrorOf([&] { files_.Append(path, "x"); }), ErrorOf([&] { files_.ReplaceTail(path, 0, "x"); }),
            ErrorOf([&] { files_.Remove(path); })};
  }

  /// Runs the body in a process of its own, which dies of an alarm if it blocks. @return its exit code, 0 to 255
  static int InChild(const std::function<int()>& body) {
    const pid_t child = fork();
    if (child == 0) {
      alarm(20);
      _exit(body());
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status)) << "ended by signal " << WTERMSIG(status);
    return WEXITSTATUS(status);
  }

  [[nodiscard]] std::string Path(std::string_view name) const { return folder_.Path() + std::string(name); }

  TemporaryDirectory folder_;
  PosixFiles files_;
};

const std::vector<int> kAll75 = {75, 75, 75, 75, 75};

TEST_F(PosixFilesTest, ReadsWhatWasWritten) {
  const std::string path = Path("a.ini");
  {
    const auto file = files_.Create(path);
    file->Write("one");
    file->Write({});
    file->Write(std::string_view("\0two", 4));
    EXPECT_EQ(folder_.Read("a.ini"), std::string("one\0two", 7)) << "Write hands the bytes over at once";
  }
  EXPECT_EQ(files_.ReadAll(path), std::string("one\0two", 7));
}

TEST_F(PosixFilesTest, ReadsAnEmptyAndALargeFile) {
  folder_.Write("empty", "");
  EXPECT_EQ(files_.ReadAll(Path("empty")), "");
  std::string large(20'000'000, 'x');
  large[19'999'999] = 'y';
  folder_.Write("large", large);
  EXPECT_TRUE(files_.ReadAll(Path("large")) == large);
}

TEST_F(PosixFilesTest, ReadsARegularFileThatHasMoreThanItSays) {
  const std::string maps = files_.ReadAll("/proc/self/maps");  // its size is 0
  EXPECT_NE(maps.find("[stack]"), std::string::npos);
}

TEST_F(PosixFilesTest, CreateEmptiesAnExistingFile) {
  folder_.Write("a", "old");
  EXPECT_NE(files_.Create(Path("a")), nullptr);
  EXPECT_EQ(folder_.Read("a"), "");
}

TEST_F(PosixFilesTest, AppendAddsAtTheEndAndMakesAMissingFile) {
  files_.Append(Path("a"), "one");
  files_.Append(Path("a"), "two");
  files_.Append(Path("b"), "");
  EXPECT_EQ(folder_.Read("a"), "onetwo");
  EXPECT_EQ(folder_.Read("b"), "");
}

TEST_F(PosixFilesTest, AppendOfNothingDoesNotTouchTheFile) {
  folder_.Write("a", "x");
  const auto before = files_.Status(Path("a"));
  files_.Append(Path("a"), "");
  EXPECT_EQ(files_.Status(Path("a"))->stamp, before->stamp);
}

TEST_F(PosixFilesTest, ReplaceTailMakesTheRestExactlyTheBytes) {
  const std::string path = Path("a");
  files_.ReplaceTail(path, 0, "0123456789");
  files_.ReplaceTail(path, 4, "ab");
  EXPECT_EQ(folder_.Read("a"), "0123ab");
  files_.ReplaceTail(path, 6, "cd");
  EXPECT_EQ(folder_.Read("a"), "0123abcd");
  files_.ReplaceTail(path, 0, "");
  EXPECT_EQ(folder_.Read("a"), "");
}

TEST_F(PosixFilesTest, ReplaceTailBehindTheEndIsRefused) {
  folder_.Write("a", "12");
  EXPECT_EQ(ErrorOf([&] { files_.ReplaceTail(Path("a"), 3, "x"); }), 5);
  EXPECT_EQ(folder_.Read("a"), "12");
}

TEST_F(PosixFilesTest, RemoveDeletes) {
  folder_.Write("a", "x");
  files_.Remove(Path("a"));
  EXPECT_FALSE(folder_.Has("a"));
}

TEST_F(PosixFilesTest, StatusTellsFileDirectoryAndNothing) {
  folder_.Write("a", "123");
  EXPECT_FALSE(files_.Status(Path("a"))->directory);
  EXPECT_EQ(files_.Status(Path("a"))->stamp.size, 3U);
  EXPECT_TRUE(files_.Status(Path(""))->directory);
  EXPECT_EQ(files_.Status(Path("b")), std::nullopt);
  EXPECT_EQ(files_.Status(Path("a/b")), std::nullopt);
  EXPECT_EQ(files_.Status(Path(std::string(5000, 'x'))), std::nullopt);
}

TEST_F(PosixFilesTest, StampTellsAChangeOfTheSameLength) {
  folder_.Write("a", "123");
  const FileStamp first = files_.Status(Path("a"))->stamp;
  EXPECT_EQ(files_.Status(Path("a"))->stamp, first);
  usleep(20'000);  // coarser than the clock of any disk in use
  folder_.Write("a", "124");
  const FileStamp second = files_.Status(Path("a"))->stamp;
  EXPECT_NE(second, first);
  EXPECT_EQ(second.identity, first.identity);
  EXPECT_GT(second.modified, first.modified);
  folder_.Write("b", "124");
  EXPECT_NE(files_.Status(Path("b"))->stamp.identity, first.identity);
}

TEST_F(PosixFilesTest, MissingFileIs53AndMissingDirectory76) {
  EXPECT_EQ(ErrorOf([&] { (void)files_.ReadAll(Path("no")); }), 53);
  EXPECT_EQ(ErrorOf([&] { files_.Remove(Path("no")); }), 53);
  EXPECT_EQ(ErrorOf([&] { (void)files_.ReadAll(""); }), 53);
  EXPECT_EQ(AllErrors(Path("no/a")), (std::vector<int>{76, 76, 76, 76, 76}));
  folder_.Write("file", "");
  EXPECT_EQ(AllErrors(Path("file/a")), (std::vector<int>{76, 76, 76, 76, 76}));
}

TEST_F(PosixFilesTest, DirectoryIs75) {
  std::filesystem::create_directory(Path("sub"));
  EXPECT_EQ(AllErrors(Path("sub")), kAll75);
  EXPECT_TRUE(folder_.Has("sub"));
}

TEST_F(PosixFilesTest, FifoSocketAndDeviceAre75AndNeverBlock) {
  ASSERT_EQ(mkfifo(Path("fifo").c_str(), 0666), 0);
  const int socketNumber = socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  Path("socket").copy(&address.sun_path[0], sizeof address.sun_path - 1);
  ASSERT_EQ(bind(socketNumber, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  for (const std::string& path : {Path("fifo"), Path("socket"), std::string("/dev/full"), std::string("/dev/zero")}) {
    EXPECT_EQ(InChild([&] { return AllErrors(path) == kAll75 ? 7 : 1; }), 7) << path;
    EXPECT_TRUE(std::filesystem::exists(path)) << path;
  }
  close(socketNumber);
}

TEST_F(PosixFilesTest, EndlessLinksLongNamesAndNulsAre75) {
  ASSERT_EQ(symlink("loop", Path("loop").c_str()), 0);
  EXPECT_EQ(ErrorOf([&] { (void)files_.ReadAll(Path("loop")); }), 75);
  EXPECT_EQ(ErrorOf([&] { (void)files_.Create(Path("loop")); }), 75);
  EXPECT_EQ(AllErrors(Path(std::string(300, 'x'))), kAll75);
  folder_.Write("a", "kept");
  EXPECT_EQ(AllErrors(Path(std::string_view("a\0b", 3))), kAll75);
  EXPECT_EQ(folder_.Read("a"), "kept");
}

TEST_F(PosixFilesTest, FileWithoutTheRightToWriteIs75AndStays) {
  if (geteuid() == 0) GTEST_SKIP() << "the superuser may write any file";
  folder_.Write("a", "kept");
  ASSERT_EQ(chmod(Path("a").c_str(), 0444), 0);
  EXPECT_EQ(AllErrors(Path("a")), (std::vector<int>{0, 75, 75, 75, 75}));
  EXPECT_EQ(folder_.Read("a"), "kept");
}

TEST_F(PosixFilesTest, FileWithoutRightsIs75ForAnotherUserToo) {
  if (geteuid() != 0) GTEST_SKIP() << "only the superuser can become another user";
  folder_.Write("a", "kept");
  ASSERT_EQ(chmod(Path("a").c_str(), 0444), 0);
  ASSERT_EQ(chmod(Path("").c_str(), 0777), 0);
  const int passed = InChild([&] {
    if (setuid(65534) != 0) return 1;
    return AllErrors(Path("a")) == std::vector<int>{0, 75, 75, 75, 75} ? 7 : 2;
  });
  EXPECT_EQ(passed, 7);
  EXPECT_EQ(folder_.Read("a"), "kept");
}

TEST_F(PosixFilesTest, AFileThatNobodyMayWriteIsNotRemovedByTheSuperuserEither) {
  folder_.Write("a", "kept");
  for (const mode_t mode : {0444U, 0400U, 0555U, 0U}) {
    ASSERT_EQ(chmod(Path("a").c_str(), mode), 0);
    EXPECT_EQ(ErrorOf([&] { files_.Remove(Path("a")); }), 75) << mode;
    EXPECT_EQ(ErrorOf([&] { files_.Remove(Path("A")); }), 75) << mode;
    EXPECT_TRUE(folder_.Has("a")) << mode;
  }
  ASSERT_EQ(chmod(Path("a").c_str(), 0600), 0);
  files_.Remove(Path("a"));
  EXPECT_FALSE(folder_.Has("a"));
}

TEST_F(PosixFilesTest, SizeLimitIs61AndNotTheEndOfTheProcess) {
  const std::string path = Path("a");
  const int passed = InChild([&] {
    IgnoreFileSizeSignal();
    const rlimit limit{10, 10};
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return 1;
    if (ErrorOf([&] { files_.Append(path, "0123456789abc"); }) != 61) return 2;
    if (ErrorOf([&] { files_.ReplaceTail(path, 5, "0123456789abc"); }) != 61) return 3;
    const auto file = files_.Create(path);
    if (ErrorOf([&] { file->Write("0123456789abc"); }) != 61) return 4;
    return 7;
  });
  EXPECT_EQ(passed, 7);
  EXPECT_EQ(folder_.Read("a"), "0123456789") << "what had room is there";
}

TEST_F(PosixFilesTest, NoFileNumberLeftIs67) {
  folder_.Write("a", "x");
  const int passed = InChild([&] {
    const rlimit limit{0, 0};
    if (setrlimit(RLIMIT_NOFILE, &limit) != 0) return 1;
    return AllErrors(Path("a")) == std::vector<int>{67, 67, 67, 67, 0} ? 7 : 2;
  });
  EXPECT_EQ(passed, 7);
}

TEST_F(PosixFilesTest, OtherFaultsAre57) {
  // Reading the start of a process's memory, which is never mapped, is an input/output error.
  EXPECT_EQ(ErrorOf([&] { (void)files_.ReadAll("/proc/self/mem"); }), 57);
}

TEST_F(PosixFilesTest, NewFileGetsTheRightsOfTheUser) {
  const mode_t before = umask(0027);
  files_.Append(Path("a"), "x");
  umask(before);
  struct stat status {};
  ASSERT_EQ(stat(Path("a").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

TEST_F(PosixFilesTest, NameInAnotherCaseIsFound) {
  folder_.Write("Net1.INI", "x");
  EXPECT_EQ(files_.ReadAll(Path("net1.ini")), "x");
  EXPECT_EQ(files_.Status(Path("NET1.ini"))->stamp.size, 1U);
  files_.Append(Path("NET1.INI"), "y");
  files_.ReplaceTail(Path("net1.INI"), 2, "z");
  EXPECT_EQ(folder_.Read("Net1.INI"), "xyz");
  EXPECT_EQ(NamesIn(folder_), std::vector<std::string>{"Net1.INI"});
  (void)files_.Create(Path("net1.ini"));
  EXPECT_EQ(folder_.Read("Net1.INI"), "");
  files_.Remove(Path("net1.ini"));
  EXPECT_TRUE(NamesIn(folder_).empty());
}

TEST_F(PosixFilesTest, ExactNameGoesBeforeAnotherCase) {
  folder_.Write("A.ini", "upper");
  EXPECT_EQ(files_.ReadAll(Path("a.ini")), "upper");
  folder_.Write("a.ini", "lower");
  EXPECT_EQ(files_.ReadAll(Path("a.ini")), "lower");
}

TEST_F(PosixFilesTest, AfterRemoveNothingStandsForThePathUntilItIsMadeNew) {
  folder_.Write("A.ini", "upper");
  folder_.Write("a.ini", "lower");
  files_.Remove(Path("a.ini"));
  EXPECT_FALSE(files_.Status(Path("a.ini")));
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(files_.ReadAll(Path("a.ini"))); }), 53);
  EXPECT_EQ(ErrorOf([&] { files_.Remove(Path("a.ini")); }), 53);
  files_.Append(Path("a.ini"), "new");
  EXPECT_EQ(files_.ReadAll(Path("a.ini")), "new");
  EXPECT_EQ(files_.ReadAll(Path("A.ini")), "upper");
}

TEST_F(PosixFilesTest, AFileInOtherCaseIsRemovedAndMadeNewInTheSpellingOfTheCall) {
  folder_.Write("A.ini", "upper");
  files_.Remove(Path("a.ini"));
  files_.Create(Path("a.ini"))->Write("new");
  EXPECT_EQ(folder_.Read("a.ini"), "new");

  files_.Remove(Path("A.INI"));
  files_.Create(Path("A.INI"))->Write("newer");
  files_.Remove(Path("a.ini"));
  EXPECT_FALSE(files_.Status(Path("A.INI"))) << "made new under another spelling, it was found again under this one";
}

TEST_F(PosixFilesTest, OfSeveralOtherCasesTheFirstInByteOrderIsTaken) {
  for (const char* name : {"ab.ini", "aB.ini", "Ab.ini"}) folder_.Write(name, name);
  EXPECT_EQ(files_.ReadAll(Path("AB.INI")), "Ab.ini");
}

TEST_F(PosixFilesTest, ALinkToNothingIsThatNameAndStandsForNoOther) {
  folder_.Write("A.INI", "upper");
  std::filesystem::create_symlink("nowhere", Path("a.ini"));
  EXPECT_FALSE(files_.Status(Path("a.ini")));
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(files_.ReadAll(Path("a.ini"))); }), 53);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(files_.Open(Path("a.ini"))); }), 53);
  EXPECT_TRUE(files_.Status(Path("a.INI"))) << "any other spelling is looked for";
  files_.Remove(Path("a.ini"));
  EXPECT_EQ(NamesIn(folder_), std::vector<std::string>{"A.INI"});
}

TEST_F(PosixFilesTest, OnlyForANameThatIsNotThereTheDirectoryIsRead) {
  folder_.Write("a.ini", "");
  std::filesystem::create_symlink("nowhere", Path("broken"));
  const DirectoryWatch watch(folder_.Path());
  static_cast<void>(files_.Status(Path("a.ini")));
  static_cast<void>(files_.Status(Path("broken")));
  EXPECT_EQ(watch.Opened(), 0);
  static_cast<void>(files_.Status(Path("none")));
  EXPECT_EQ(watch.Opened(), 1);
}

TEST_F(PosixFilesTest, CaseOfADirectoryCounts) {
  std::filesystem::create_directory(Path("Sub"));
  EXPECT_EQ(ErrorOf([&] { files_.Append(Path("sub/a"), "x"); }), 76);
}

TEST_F(PosixFilesTest, NewFileGetsTheSpellingOfTheCall) {
  files_.Append(Path("NeW.Ini"), "x");
  EXPECT_EQ(NamesIn(folder_), std::vector<std::string>{"NeW.Ini"});
}

TEST_F(PosixFilesTest, NamesOnTheDiskAreUtf8) {
  files_.Append(Path("Pr\xFC"
                     "fstand\x80.ini"),
                "x");
  EXPECT_EQ(NamesIn(folder_), std::vector<std::string>{"Pr\xC3\xBC"
                                                       "fstand\xE2\x82\xAC.ini"});
  EXPECT_EQ(files_.ReadAll(Path("PR\xDC"
                                "FSTAND\x80.INI")),
            "x")
      << "case outside of ASCII";
}

TEST_F(PosixFilesTest, NameThatTheCodePageCannotSpellIsNobodys) {
  folder_.Write("\xFC.ini", "no UTF-8");
  folder_.Write("\xC4\x8D.ini", "no character of the page");
  EXPECT_EQ(ErrorOf([&] { (void)files_.ReadAll(Path("\xFC.ini")); }), 53);
  EXPECT_EQ(ErrorOf([&] { (void)files_.ReadAll(Path("?.ini")); }), 53);
}

TEST_F(PosixFilesTest, PathWithoutDirectoryIsInTheCurrentOne) {
  const int passed = InChild([&] {
    if (chdir(Path("").c_str()) != 0) return 1;
    files_.Append("Here.txt", "x");
    return files_.ReadAll("here.TXT") == "x" ? 7 : 2;
  });
  EXPECT_EQ(passed, 7);
  EXPECT_TRUE(folder_.Has("Here.txt"));
}

TEST_F(PosixFilesTest, ListNamesEveryEntryOfADirectoryInTheOrderOfTheFileSystem) {
  for (const char* name : {"c.ini", "a.ini", ".hidden", "b.csv"}) folder_.Write(name, "");
  std::filesystem::create_directory(Path("LOG"));
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder_.Path())) {
    names.push_back(entry.path().filename().string());
  }
  EXPECT_EQ(files_.List(folder_.Path()), names);
  EXPECT_EQ(names.size(), 5U);
}

TEST_F(PosixFilesTest, ListNeedsNoSeparatorAtTheEndAndFindsTheDirectoryInAnotherCase) {
  std::filesystem::create_directory(Path("Log"));
  folder_.Write("Log/x", "");
  for (const char* spelling : {"Log", "Log/", "Log//", "LOG", "log/"}) {
    EXPECT_EQ(files_.List(Path(spelling)), std::vector<std::string>{"x"}) << spelling;
  }
}

TEST_F(PosixFilesTest, ListOfWhatIsNoDirectoryOrCannotBeReadIsEmpty) {
  folder_.Write("file", "");
  const std::string closed = Path("closed");
  std::filesystem::create_directory(closed);
  folder_.Write("closed/x", "");
  for (const std::string& path :
       {Path("file"), Path("none"), Path("none/none"), std::string(), Path(std::string_view("\0", 1))}) {
    EXPECT_EQ(files_.List(path), std::vector<std::string>{}) << path;
  }
  if (geteuid() == 0) return;  // to whom every directory is open
  chmod(closed.c_str(), 0);
  EXPECT_EQ(files_.List(closed), std::vector<std::string>{});
  chmod(closed.c_str(), 0700);
}

TEST_F(PosixFilesTest, ListSpellsNamesInTheCodePageAndLeavesOutWhatItCannotSpell) {
  folder_.Write("\xC3\xA4.ini", "");
  folder_.Write("\xFC.ini", "no UTF-8");
  folder_.Write("\xC4\x8D.ini", "no character of the page");
  EXPECT_EQ(files_.List(folder_.Path()), std::vector<std::string>{"\xE4.ini"});
}

TEST_F(PosixFilesTest, SystemDirectoryIsThere) {
  const auto status = files_.Status(files_.SystemDirectory());
  ASSERT_TRUE(status);
  EXPECT_TRUE(status->directory);
  EXPECT_NE(files_.SystemDirectory().back(), kPathSeparator);
}

}  // namespace
}  // namespace tavrin
