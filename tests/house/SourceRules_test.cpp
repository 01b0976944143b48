#include "house/SourceRules.h"

#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::filesystem::path kTree = TAVRIN_SOURCE_DIR;
const std::filesystem::path kBadTree = kTree / "tests/data/house/bad";

TEST(House, FoldersIncludeOnlyWhatTheyMay) {
  const TreeReport report = CheckIncludes(kTree);
  EXPECT_GT(report.filesRead, 0);
  EXPECT_THAT(report.breaches, IsEmpty());
}

TEST(House, NoSourceIsTooLong) {
  const TreeReport report = CheckLengths(kTree);
  EXPECT_GT(report.filesRead, 0);
  EXPECT_THAT(report.breaches, IsEmpty());
}

TEST(House, NoTextNamesAPathOfOneMachine) {
  const TreeReport report = CheckMachinePaths(kTree);
  EXPECT_GT(report.filesRead, 0);
  EXPECT_THAT(report.breaches, IsEmpty());
}

TEST(House, BadIncludesAreFoundWithFileAndLine) {
  EXPECT_THAT(CheckIncludes(kBadTree).breaches,
              ElementsAre("src/Stray.cpp:1: Stray.cpp is in no known folder",
                          "src/model/Reader.cpp:4: model must not include the system header unistd.h",
                          "src/model/Reader.cpp:6: model must not include platform/posix/PosixFiles.h",
                          "src/model/Reader.cpp:7: model must not include app/Options.h",
                          "src/shell/Window.h:3: shell must not include the Qt header QString",
                          "src/shell/Window.h:4: ../online/Monitor.h is no path below src/ in a known folder"));
}

TEST(House, AFileOfOneLineTooManyIsFound) {
  EXPECT_THAT(CheckLengths(kBadTree).breaches, ElementsAre("src/model/TooLong.cpp:601: too long"));
}

TEST(House, APathOfOneMachineIsFoundWithFileAndLine) {
  EXPECT_THAT(CheckMachinePaths(kBadTree).breaches, ElementsAre("docs/notes.md:3: names a path of one machine"));
}

struct IncludeCase {
  std::string_view file;
  std::string_view target;
  bool allowed;
};

TEST(House, EveryKindOfIncludeIsJudgedByItsFolder) {
  const std::vector<IncludeCase> cases{
      {"platform/Files.h", "<string>", true},
      {"platform/Files.h", "\"platform/RuntimeError.h\"", true},
      {"platform/Files.h", "\"platform/posix/PosixFiles.h\"", false},
      {"platform/Files.h", "\"model/cOPC.h\"", false},
      {"platform/posix/PosixFiles.cpp", "<sys/stat.h>", true},
      {"platform/posix/PosixFiles.cpp", "\"platform/Files.h\"", true},
      {"platform/posix/PosixFiles.cpp", "\"platform/headless/HeadlessDesktop.h\"", false},
      {"platform/windows/WindowsFiles.cpp", "<windows.h>", true},
      {"platform/profile/Profile.cpp", "<fcntl.h>", false},
      {"platform/headless/HeadlessDesktop.h", "\"platform/controls/Grid.h\"", true},
      {"platform/headless/HeadlessDesktop.h", "<signal.h>", false},
      {"platform/qt/QtDesktop.cpp", "<QApplication>", true},
      {"platform/qt/QtDesktop.cpp", "<QtGlobal>", true},
      {"platform/qt/QtDesktop.cpp", "\"model/cOPC.h\"", false},
      {"model/cOPC.cpp", "\"model/shared/modMain.h\"", true},
      {"model/cOPC.cpp", "\"platform/controls/Grid.h\"", true},
      {"model/cOPC.cpp", "\"platform/profile/Profile.h\"", false},
      {"model/cOPC.cpp", "\"platform/headless/HeadlessDesktop.h\"", false},
      {"model/cOPC.cpp", "\"editing/TagGrid.h\"", false},
      {"model/cOPC.cpp", "<fmt/format.h>", true},
      {"model/cOPC.cpp", "<iconv.h>", false},
      {"model/cOPC.cpp", "\"QString\"", false},
      {"editing/TagGrid.cpp", "\"model/cOPC.h\"", true},
      {"editing/TagGrid.cpp", "\"shell/frmOPC.h\"", false},
      {"shell/frmOPC.cpp", "\"editing/TagGrid.h\"", true},
      {"shell/frmOPC.cpp", "\"online/frmOnline.h\"", true},
      {"online/frmOnline.cpp", "\"online/opc/OPCDataControl.h\"", true},
      {"online/opc/DemoClient.cpp", "\"online/frmOnline.h\"", false},
      {"tools/Cleanup.cpp", "\"platform/Files.h\"", true},
      {"app/main.cpp", "\"platform/posix/PosixFiles.h\"", true},
      {"app/main.cpp", "<csignal>", true},
      {"app/main.cpp", "<unistd.h>", true},
      {"app/main.cpp", "\"Options.h\"", false},
      {"modelling/Other.cpp", "<string>", false},
  };
  for (const IncludeCase& row : cases) {
    EXPECT_EQ(!IncludeFault(row.file, row.target).has_value(), row.allowed) << row.file << " includes " << row.target;
  }
}

TEST(House, APathOfOneMachineIsToldFromOthers) {
  const auto folder = [](std::string_view name) { return "/" + std::string(name) + "/"; };
  EXPECT_TRUE(NamesMachinePath(folder("home") + "anna/project"));
  EXPECT_TRUE(NamesMachinePath("see \"" + folder("root") + ".cache\""));
  EXPECT_TRUE(NamesMachinePath("a/b and " + folder("Users") + "anna"));
  EXPECT_FALSE(NamesMachinePath("src" + folder("work") + "Queue.h"));
  EXPECT_FALSE(NamesMachinePath("https://example.org" + folder("home") + "index.html"));
  EXPECT_FALSE(NamesMachinePath("${dir}" + folder("root") + "x"));
  EXPECT_FALSE(NamesMachinePath("/usr/share/doc"));
}

}  // namespace
}  // namespace tavrin
