#include "platform/profile/ProfiledFiles.h"

#include <array>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/CodePage.h"
#include "platform/NamesIn.h"
#include "platform/RecordingFiles.h"
#include "platform/posix/PosixFiles.h"
#include "support/TemporaryDirectory.h"

namespace tavrin {
namespace {

class ProfiledFilesTest : public testing::Test {
 protected:
  std::string Get(const std::string& section, const std::string& key, const std::string& file) {
    std::array<char, 64> buffer{};
    const std::size_t count = profiled_->GetString(section, key, "none", buffer, file);
    return {buffer.data(), count};
  }
  ProfileError Write(const std::string& section, const std::string& key, const std::string& value) {
    return profiled_->WriteString(section, key, value, path_);
  }
  [[nodiscard]] std::string Path(std::string_view name) const { return folder_.Path() + std::string(name); }
  ProfileError Flush() { return profiled_->WriteString({}, {}, {}, path_); }

  TemporaryDirectory folder_;
  PosixFiles posix_;
  RecordingFiles disk_{posix_};
  std::optional<ProfiledFiles> profiled_{std::in_place, disk_};
  std::string path_ = Path("a.ini");
  std::string other_ = Path("b.ini");
};

TEST_F(ProfiledFilesTest, LoadReadsTheFileOnce) {
  std::string text;
  for (int section = 0; section < 50; ++section) text += "[S" + std::to_string(section) + "]\r\nx=1\r\ny=2\r\n";
  folder_.Write("a.ini", text);
  for (int section = 0; section < 50; ++section) {
    EXPECT_EQ(Get("s" + std::to_string(section), "X", path_), "1");
    EXPECT_EQ(Get("s" + std::to_string(section), "z", path_), "none");
  }
  std::array<char, 1024> buffer{};
  EXPECT_EQ(profiled_->GetSectionNames(buffer, path_), 190U);
  EXPECT_EQ(profiled_->GetSection("S1", buffer, path_), 8U);
  EXPECT_EQ(disk_.Calls("ReadAll"), 1);
}

TEST_F(ProfiledFilesTest, SaveWritesOnceForManyKeys) {
  for (int key = 0; key < 100; ++key) EXPECT_EQ(Write("A", "k" + std::to_string(key), "v"), ProfileError::None);
  EXPECT_EQ(disk_.Calls("ReplaceTail"), 0);
  EXPECT_EQ(disk_.Calls("Open"), 1);
  EXPECT_EQ(Flush(), ProfileError::None);
  EXPECT_EQ(Flush(), ProfileError::None);
  EXPECT_EQ(disk_.Calls("ReplaceTail"), 1);
  EXPECT_EQ(disk_.bytesWritten, folder_.Read("a.ini").size());
}

TEST_F(ProfiledFilesTest, SectionsWithALineAppendedBehindEachCostTheirOwnLength) {
  for (int section = 0; section < 300; ++section) {
    const std::string name = "Device" + std::to_string(section);
    for (const char* key : {"Type", "Address", "Variables"}) EXPECT_EQ(Write(name, key, "value"), ProfileError::None);
    profiled_->Append(path_, "\r\n");
  }
  EXPECT_EQ(disk_.Calls("ReadAll"), 0);
  EXPECT_EQ(disk_.Calls("ReplaceTail"), 300);
  EXPECT_EQ(disk_.bytesWritten, folder_.Read("a.ini").size());
  EXPECT_EQ(Get("device299", "Type", path_), "value");
}

TEST_F(ProfiledFilesTest, OnlyTheChangedTailIsWritten) {
  folder_.Write("a.ini", "[A]\r\nx=1\r\n[B]\r\ny=1\r\n");
  Write("B", "y", "22");
  EXPECT_EQ(Flush(), ProfileError::None);
  EXPECT_EQ(disk_.bytesWritten, 4U);
  EXPECT_EQ(folder_.Read("a.ini"), "[A]\r\nx=1\r\n[B]\r\ny=22\r\n");
}

TEST_F(ProfiledFilesTest, WritingTheSameValueWritesNothing) {
  folder_.Write("a.ini", "[A]\r\nx=1\r\n");
  EXPECT_EQ(Write("a", "X", "1"), ProfileError::None);
  profiled_.reset();
  EXPECT_EQ(disk_.bytesWritten, 0U);
  EXPECT_EQ(folder_.Read("a.ini"), "[A]\r\nx=1\r\n");
}

/// Everything that must bring held changes to the disk first.
TEST_F(ProfiledFilesTest, PlainOperationsSeeTheChanges) {
  Write("A", "x", "1");
  EXPECT_EQ(profiled_->Status(path_)->stamp.size, 10U);
  Write("A", "x", "12");
  EXPECT_EQ(profiled_->ReadAll(path_), "[A]\r\nx=12\r\n");
  Write("A", "x", "3");
  profiled_->Append(path_, "y=4\r\n");
  EXPECT_EQ(folder_.Read("a.ini"), "[A]\r\nx=3\r\ny=4\r\n");
  Write("A", "y", "5");
  profiled_->ReplaceTail(path_, 5, "z=6\r\n");
  EXPECT_EQ(folder_.Read("a.ini"), "[A]\r\nz=6\r\n");
  EXPECT_EQ(Get("A", "z", path_), "6");
  Write("A", "z", "7");
  profiled_->Create(path_)->Write("[A]\r\nq=1\r\n");
  EXPECT_EQ(Get("A", "q", path_), "1");
  EXPECT_EQ(Get("A", "z", path_), "none");
  Write("A", "q", "2");
  profiled_->Remove(path_);
  EXPECT_FALSE(folder_.Has("a.ini"));
  EXPECT_EQ(Get("A", "q", path_), "none");
  profiled_.reset();
  EXPECT_FALSE(folder_.Has("a.ini")) << "a removed file does not come back";
}

TEST_F(ProfiledFilesTest, PlainOperationsUnderAnotherCaseSeeTheChanges) {
  const std::string upper = Path("A.INI");
  Write("A", "x", "1");
  EXPECT_EQ(profiled_->ReadAll(upper), "[A]\r\nx=1\r\n");
  Write("A", "x", "2");
  profiled_->Append(upper, "y=3\r\n");
  EXPECT_EQ(Get("A", "y", path_), "3");
  EXPECT_EQ(Get("A", "x", upper), "2");
  profiled_->Remove(upper);
  EXPECT_EQ(Get("A", "x", path_), "none");
  EXPECT_TRUE(NamesIn(folder_).empty());
}

TEST_F(ProfiledFilesTest, OtherPlainOperationsDoNotWriteOut) {
  Write("A", "x", "1");
  profiled_->Append(other_, "x");
  EXPECT_EQ(folder_.Read("a.ini"), "");
}

TEST_F(ProfiledFilesTest, AnotherIniFileAndTheEndWriteOut) {
  Write("A", "x", "1");
  EXPECT_EQ(profiled_->WriteString("B", "y", "2", other_), ProfileError::None);
  EXPECT_EQ(folder_.Read("a.ini"), "[A]\r\nx=1\r\n");
  EXPECT_EQ(folder_.Read("b.ini"), "");
  profiled_.reset();
  EXPECT_EQ(folder_.Read("b.ini"), "[B]\r\ny=2\r\n");
}

TEST_F(ProfiledFilesTest, AChangeByOthersIsSeen) {
  folder_.Write("a.ini", "[A]\r\nx=1\r\n");
  EXPECT_EQ(Get("A", "x", path_), "1");
  folder_.Write("a.ini", "[A]\r\nx=22\r\n");
  EXPECT_EQ(Get("A", "x", path_), "22");
  usleep(20'000);  // coarser than the clock of any disk in use
  folder_.Write("a.ini", "[A]\r\nx=33\r\n");
  EXPECT_EQ(Get("A", "x", path_), "33");
  std::filesystem::remove(path_);
  EXPECT_EQ(Get("A", "x", path_), "none");
  folder_.Write("a.ini", "[A]\r\nx=4\r\n");
  EXPECT_EQ(Get("A", "x", path_), "4");
}

TEST_F(ProfiledFilesTest, AChangeByOthersBeforeAnAppendIsSeen) {
  folder_.Write("a.ini", "[A]\r\nx=1\r\n");
  EXPECT_EQ(Get("A", "x", path_), "1");
  folder_.Write("a.ini", "[B]\r\nx=22\r\n");
  profiled_->Append(path_, "y=3\r\n");
  EXPECT_EQ(Get("B", "x", path_), "22");
  EXPECT_EQ(Get("B", "y", path_), "3");
  EXPECT_EQ(Get("A", "x", path_), "none");
}

TEST_F(ProfiledFilesTest, AChangeByOthersTakesThePlaceOfHeldChanges) {
  Write("A", "x", "1");
  folder_.Write("a.ini", "[B]\r\ny=2\r\n");
  EXPECT_EQ(Get("A", "x", path_), "none");
  EXPECT_EQ(Get("B", "y", path_), "2");
  Write("A", "x", "1");
  folder_.Write("a.ini", "[C]\r\n");
  EXPECT_EQ(Flush(), ProfileError::AccessDenied);
  EXPECT_EQ(folder_.Read("a.ini"), "[C]\r\n") << "never a mixture of both";
}

TEST_F(ProfiledFilesTest, AChangeOfAttributesKeepsHeldChanges) {
  Write("A", "x", "1");
  ASSERT_EQ(chmod(path_.c_str(), 0600), 0);
  EXPECT_EQ(Get("A", "x", path_), "1");
  profiled_.reset();
  EXPECT_EQ(folder_.Read("a.ini"), "[A]\r\nx=1\r\n");
}

TEST_F(ProfiledFilesTest, AFailedWriteOutDropsTheChangesSilently) {
  folder_.Write("a.ini", "[A]\r\nx=1\r\n");
  Write("A", "x", "2");
  disk_.refuseReplace = ErrorNumber::DiskFull;
  EXPECT_EQ(profiled_->ReadAll(path_), "[A]\r\nx=1\r\n");
  EXPECT_EQ(Get("A", "x", path_), "1");
  Write("A", "x", "2");
  EXPECT_EQ(Flush(), ProfileError::AccessDenied);
  EXPECT_EQ(Flush(), ProfileError::None) << "nothing is held any more";
  Write("A", "x", "2");
  EXPECT_NO_THROW(profiled_.reset());
  EXPECT_EQ(folder_.Read("a.ini"), "[A]\r\nx=1\r\n");
}

TEST_F(ProfiledFilesTest, AFailedAppendIsToldAndLeavesTheView) {
  Write("A", "x", "1");
  EXPECT_EQ(Flush(), ProfileError::None);
  disk_.refuse = ErrorNumber::DiskFull;
  EXPECT_THROW(profiled_->Append(path_, "y=1\r\n"), RuntimeError);
  disk_.refuse.reset();
  EXPECT_EQ(Get("A", "y", path_), "none");
  EXPECT_EQ(Get("A", "x", path_), "1");
}

TEST_F(ProfiledFilesTest, WhatCannotBeWrittenIsToldAtOnce) {
  const std::string missing = Path("no/a.ini");
  EXPECT_EQ(profiled_->WriteString("A", "x", "1", missing), ProfileError::PathNotFound);
  EXPECT_EQ(profiled_->WriteString("A", "x", {}, missing), ProfileError::PathNotFound);
  std::filesystem::create_directory(Path("sub"));
  EXPECT_EQ(profiled_->WriteString("A", "x", "1", Path("sub")), ProfileError::AccessDenied);
  ASSERT_EQ(mkfifo(Path("fifo").c_str(), 0666), 0);
  EXPECT_EQ(profiled_->WriteString("A", "x", "1", Path("fifo")), ProfileError::AccessDenied);
  disk_.refuse = ErrorNumber::PathFileAccess;
  EXPECT_EQ(Write("A", "x", "1"), ProfileError::AccessDenied);
  EXPECT_EQ(Get("A", "x", path_), "none");
}

TEST_F(ProfiledFilesTest, AKeyWithoutSectionIsFileNotFound) {
  EXPECT_EQ(profiled_->WriteString({}, "x", "1", path_), ProfileError::FileNotFound);
  EXPECT_EQ(profiled_->WriteString({}, "x", {}, Path("no/a.ini")), ProfileError::FileNotFound);
  EXPECT_FALSE(folder_.Has("a.ini"));
}

TEST_F(ProfiledFilesTest, ADeletionMakesAMissingFile) {
  EXPECT_EQ(profiled_->WriteString("A", "x", {}, path_), ProfileError::None);
  EXPECT_EQ(profiled_->WriteString("A", {}, {}, other_), ProfileError::None);
  EXPECT_EQ(NamesIn(folder_), (std::vector<std::string>{"a.ini", "b.ini"}));
}

TEST_F(ProfiledFilesTest, UnreadableThingsHaveNoSections) {
  std::array<char, 8> buffer{};
  ASSERT_EQ(mkfifo(Path("fifo").c_str(), 0666), 0);
  for (const std::string& path : {Path("no"), Path(""), Path("fifo"), Path("no/a"), std::string()}) {
    EXPECT_EQ(Get("A", "x", path), "none") << path;
    EXPECT_EQ(profiled_->GetSectionNames(buffer, path), 0U) << path;
    EXPECT_EQ(profiled_->GetSection("A", buffer, path), 0U) << path;
  }
}

TEST_F(ProfiledFilesTest, ArgumentsThatAreLeftOut) {
  folder_.Write("a.ini", "[A]\r\nx=1\r\n[B]\r\n");
  std::array<char, 16> buffer{};
  EXPECT_EQ(profiled_->GetString({}, "x", "d", buffer, path_), 4U);
  EXPECT_EQ(std::string(buffer.data(), 5), std::string("A\0B\0\0", 5));
  EXPECT_EQ(profiled_->GetString("A", {}, {}, buffer, path_), 2U);
  EXPECT_EQ(profiled_->GetString("A", "y", {}, buffer, path_), 0U);
  buffer.fill('~');
  EXPECT_EQ(profiled_->GetSection({}, buffer, path_), 0U);
  EXPECT_EQ(std::string(buffer.data(), 3), std::string("\0\0~", 3));
}

TEST_F(ProfiledFilesTest, AnotherCodePageComparesAnew) {
  folder_.Write("a.ini", "[\xE6]\r\nx=1\r\n");  // ae in 1252, a letter with another upper case in 1251
  EXPECT_EQ(Get("\xC6", "x", path_), "1");
  const CodePage usual = ActiveCodePage();
  UseCodePage(MakeCodePage("437").value());  // the two bytes are ligature ae and an unrelated sign
  EXPECT_EQ(Get("\xC6", "x", path_), "none");
  UseCodePage(usual);
  EXPECT_EQ(Get("\xC6", "x", path_), "1");
}

TEST_F(ProfiledFilesTest, AFileWithChangesHeldBackIsListed) {
  Write("A", "x", "1");
  EXPECT_EQ(profiled_->List(folder_.Path()), std::vector<std::string>{"a.ini"});
  EXPECT_EQ(disk_.Calls("List"), 1);
  EXPECT_EQ(profiled_->SystemDirectory(), posix_.SystemDirectory());
}

}  // namespace
}  // namespace tavrin
