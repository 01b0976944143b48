#include "platform/posix/PosixFileProperties.h"

#include <chrono>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/CodePage.h"
#include "support/TemporaryDirectory.h"

namespace tavrin {
namespace {

namespace fs = std::filesystem;

class PosixFilePropertiesTest : public testing::Test {
 protected:
  [[nodiscard]] std::string Path(std::string_view name) const { return folder_.Path() + std::string(name); }
  std::uint32_t AttributesOf(std::string_view name) {
    const auto record = properties_.Find(Path(name));
    return record ? record->attributes : 0;
  }
  [[nodiscard]] mode_t ModeOf(std::string_view name) const {
    struct stat status {};
    EXPECT_EQ(stat(Path(name).c_str(), &status), 0);
    return status.st_mode & 07777U;
  }

  TemporaryDirectory folder_;
  PosixFileProperties properties_;
};

TEST_F(PosixFilePropertiesTest, TellsNameAndSizeOfAFile) {
  folder_.Write("Name.ini", "12345");
  const auto record = properties_.Find(Path("Name.ini"));
  ASSERT_TRUE(record);
  EXPECT_EQ(record->name, "Name.ini");
  EXPECT_EQ(record->alternateName, "");
  EXPECT_EQ(record->size, 5U);
  EXPECT_EQ(record->compressedSize, 5U);
  EXPECT_EQ(record->attributes, std::uint32_t{kNormal});
}

TEST_F(PosixFilePropertiesTest, TellsSizesBeyond4GigabytesWithoutReading) {
  folder_.Write("large", "");
  fs::resize_file(Path("large"), 5'000'000'000);
  EXPECT_EQ(properties_.Find(Path("large"))->size, 5'000'000'000U);
}

TEST_F(PosixFilePropertiesTest, ANameInAnotherCaseStandsForTheSpellingOfTheDisk) {
  folder_.Write(
      "Gr\xC3\xB6\xC3\x9F"
      "e.Csv",
      "");
  const auto record =
      properties_.Find(Path("GR\xD6\xDF"
                            "E.CSV"));
  ASSERT_TRUE(record);
  EXPECT_EQ(record->name,
            "Gr\xF6\xDF"
            "e.Csv");
}

TEST_F(PosixFilePropertiesTest, EveryPieceOfThePathMayBeInAnotherCase) {
  fs::create_directories(Path("Outer/inner"));
  folder_.Write("Outer/inner/File.txt", "x");
  const auto record = properties_.Find(UpperCase(Path("outer/INNER/file.TXT")));
  ASSERT_TRUE(record);
  EXPECT_EQ(record->name, "File.txt");
  EXPECT_EQ(properties_.ShortPath(UpperCase(Path("outer/INNER/file.TXT"))), Path("Outer/inner/File.txt"));
}

TEST_F(PosixFilePropertiesTest, ThisSpellingWinsOverOthers) {
  folder_.Write("a.txt", "1");
  folder_.Write("A.TXT", "22");
  EXPECT_EQ(properties_.Find(Path("a.txt"))->name, "a.txt");
  EXPECT_EQ(properties_.Find(Path("A.TXT"))->name, "A.TXT");
  EXPECT_EQ(properties_.Find(Path("a.TXT"))->name, "A.TXT") << "of others the first in byte order";
}

TEST_F(PosixFilePropertiesTest, ThereIsNothingOfNothing) {
  folder_.Write("file", "");
  for (const std::string& path : {Path("none"), Path("none/none"), Path("file/none"), Path("file/"), folder_.Path(),
                                  std::string(), std::string("/"), Path(std::string_view("fi\0le", 5))}) {
    EXPECT_FALSE(properties_.Find(path)) << path;
    EXPECT_EQ(properties_.ShortPath(path), "") << path;
    EXPECT_FALSE(properties_.SetTime(path, FileTime::Modification, {})) << path;
    EXPECT_FALSE(properties_.SetAttributes(path, kReadOnly)) << path;
  }
}

TEST_F(PosixFilePropertiesTest, ALinkStandsForItsTarget) {
  folder_.Write("target", "1234");
  fs::create_symlink(Path("target"), Path("link"));
  fs::create_symlink(Path("nowhere"), Path("broken"));
  const auto record = properties_.Find(Path("link"));
  ASSERT_TRUE(record);
  EXPECT_EQ(record->name, "link");
  EXPECT_EQ(record->size, 4U);
  EXPECT_FALSE(properties_.Find(Path("broken")));
}

TEST_F(PosixFilePropertiesTest, AttributesTellFoldersHiddenAndReadOnlyFiles) {
  folder_.Write(".hidden", "");
  folder_.Write("locked", "");
  fs::create_directory(Path("folder"));
  fs::create_directory(Path(".folder"));
  ASSERT_EQ(chmod(Path("locked").c_str(), 0444), 0);
  ASSERT_EQ(chmod(Path("folder").c_str(), 0555), 0);
  EXPECT_EQ(AttributesOf(".hidden"), std::uint32_t{kHidden});
  EXPECT_EQ(AttributesOf("locked"), std::uint32_t{kReadOnly});
  EXPECT_EQ(AttributesOf("folder"), std::uint32_t{kDirectory}) << "a folder is never read-only";
  EXPECT_EQ(AttributesOf(".folder"), std::uint32_t{kDirectory} | kHidden);
  EXPECT_EQ(AttributesOf("."), std::uint32_t{kDirectory}) << "the name of every folder in itself hides nothing";
}

TEST_F(PosixFilePropertiesTest, ReadOnlyTakesTheRightToWriteAndGivesTheOwnerHis) {
  folder_.Write("file", "");
  ASSERT_EQ(chmod(Path("file").c_str(), 0664), 0);
  EXPECT_TRUE(properties_.SetAttributes(Path("FILE"), kReadOnly | kHidden | kSystem | kArchive));
  EXPECT_EQ(ModeOf("file"), 0444U);
  EXPECT_EQ(AttributesOf("file"), std::uint32_t{kReadOnly}) << "the others are not kept";
  EXPECT_TRUE(properties_.SetAttributes(Path("file"), kNormal));
  EXPECT_EQ(ModeOf("file"), 0644U);
}

TEST_F(PosixFilePropertiesTest, AttributesThatDoNotChangeLeaveTheModeAlone) {
  folder_.Write("file", "");
  fs::create_directory(Path("folder"));
  ASSERT_EQ(chmod(Path("file").c_str(), 0622), 0);
  EXPECT_TRUE(properties_.SetAttributes(Path("file"), kArchive));
  EXPECT_EQ(ModeOf("file"), 0622U);
  EXPECT_TRUE(properties_.SetAttributes(Path("folder"), kReadOnly));
  EXPECT_NE(ModeOf("folder") & 0200U, 0U);
}

TEST_F(PosixFilePropertiesTest, SettingATimeLeavesTheOthers) {
  folder_.Write("file", "");
  const UtcTime first = Join({2001, 2, 3, 4, 5, 6, 700});
  const UtcTime second = Join({1965, 7, 8, 9, 10, 11, 250}) + UtcTime::duration(3);
  EXPECT_TRUE(properties_.SetTime(Path("FILE"), FileTime::LastAccess, first));
  EXPECT_TRUE(properties_.SetTime(Path("file"), FileTime::Modification, second));
  const auto record = properties_.Find(Path("file"));
  ASSERT_TRUE(record);
  EXPECT_EQ(record->lastAccess, first);
  EXPECT_EQ(record->modification, second);
}

TEST(NearestTime, IsRoundedDownToATick) {
  EXPECT_EQ(NearestTime(0, 0), UtcTime{});
  EXPECT_EQ(NearestTime(1'000'000'000, 199), Join({2001, 9, 9, 1, 46, 40, 0}) + UtcTime::duration(1));
  EXPECT_EQ(NearestTime(-1, 999'999'999), UtcTime(UtcTime::duration(-1)));
}

TEST(NearestTime, BeyondAllTimesItIsTheFirstOrLastDay) {
  constexpr std::int64_t kDay = 86'400;
  constexpr std::int64_t kLast = (INT64_MAX / 10'000'000 / kDay - 1) * kDay;
  const auto at = [](std::int64_t seconds) { return UtcTime(std::chrono::seconds(seconds)); };
  EXPECT_EQ(NearestTime(kLast - 1, 999'999'999), at(kLast) - UtcTime::duration(1));
  EXPECT_EQ(NearestTime(1 - kLast, 100), at(1 - kLast) + UtcTime::duration(1));
  for (const std::int64_t seconds : {kLast, kLast + 1, kLast + 5 * kDay, INT64_MAX}) {
    EXPECT_EQ(NearestTime(seconds, 999'999'999), at(kLast)) << seconds;
    EXPECT_EQ(NearestTime(-seconds, 0), at(-kLast)) << seconds;
  }
  EXPECT_EQ(NearestTime(INT64_MIN, 0), at(-kLast));
}

TEST(NearestTime, TheEndsCanBeToldInEveryZone) {
  for (const std::int64_t seconds : {INT64_MIN, INT64_MAX}) {
    const UtcTime end = NearestTime(seconds, 0);
    for (const std::chrono::hours zone : {std::chrono::hours(-23), std::chrono::hours(23)}) {
      EXPECT_EQ(Join(Split(end + zone)), end + zone) << seconds;
    }
  }
}

TEST_F(PosixFilePropertiesTest, TheTimeOfCreationCannotBeSet) {
  const auto before = std::chrono::system_clock::now() - std::chrono::seconds(5);
  folder_.Write("file", "");
  const UtcTime creation = properties_.Find(Path("file"))->creation;
  EXPECT_GE(creation, before);
  EXPECT_LE(creation, std::chrono::system_clock::now());
  EXPECT_FALSE(properties_.SetTime(Path("file"), FileTime::Creation, Join({2001, 2, 3, 4, 5, 6, 0})));
}

TEST_F(PosixFilePropertiesTest, NoDesktopIsAskedForTheKindOfAFile) {
  folder_.Write("file.txt", "");
  EXPECT_EQ(properties_.TypeName(Path("file.txt")), "");
}

}  // namespace
}  // namespace tavrin
