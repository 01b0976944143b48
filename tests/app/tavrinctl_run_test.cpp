#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/SampleProjects.h"
#include "app/TavrinctlRun.h"
#include "support/TemporaryDirectory.h"

/// The command run of the real program: what comes from outside of a script.

namespace tavrin {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

ProgramRun RunText(const std::string& script, std::vector<std::string> words = {}) {
  const TemporaryDirectory directory;
  directory.Write("script", script);
  words.insert(words.begin(), {"run", directory.Path() + "script"});
  return CallTavrinctl(words);
}

TEST(TavrinctlRun, SucceedsWhenAllLinesHold) {
  const ProgramRun run = RunText("start\nexpect caption Tavrin\nclose\n");
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, StartsWith("> start\n  caption \"Tavrin\"\n"));
  EXPECT_THAT(run.err, IsEmpty());
}

TEST(TavrinctlRun, NamesTheFileAndTheLineThatDoesNotHold) {
  const ProgramRun run = RunText("start\n\nexpect caption Other\nclose\n");
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, testing::EndsWith("script:3: expected \"Other\", found \"Tavrin\"\n"));
  EXPECT_THAT(run.out, testing::Not(HasSubstr("close")));
}

TEST(TavrinctlRun, RunsNothingOfAScriptWithAFault) {
  for (const char* script : {"start\nfly\n", "start\nclose now\n", "start\ndrop $1\n", "start\ntype \"\n"}) {
    const ProgramRun run = RunText(script);
    EXPECT_EQ(run.status, 2) << script;
    EXPECT_THAT(run.out, IsEmpty());
    EXPECT_THAT(run.err, HasSubstr("script:2: ")) << script;
  }
}

TEST(TavrinctlRun, RefusesAScriptThatCannotBeRead) {
  const TemporaryDirectory directory;
  for (const std::string& file : {directory.Path() + "none", directory.Path()}) {
    const ProgramRun run = CallTavrinctl({"run", file});
    EXPECT_EQ(run.status, 2) << file;
    EXPECT_THAT(run.err, HasSubstr("this script cannot be read"));
  }
  EXPECT_EQ(CallTavrinctl({"run"}).status, 2);
}

TEST(TavrinctlRun, ReadsTheStandardInput) {
  const TemporaryDirectory directory;
  directory.Write("script", "start\nexpect caption Other\n");
  const ProgramRun run = CallTavrinctl({"run", "-"}, {.input = directory.Path() + "script"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, StartsWith("tavrinctl: standard input:2: "));
}

TEST(TavrinctlRun, HandsItsArgumentsToTheScript) {
  EXPECT_EQ(RunText("start\notherwise no\ndrop $1\nexpect caption \"Tavrin - ($1)\"\n", {kPlant + kRoot}).status, 0);
  EXPECT_EQ(RunText("start $1 $2\nexpect enabled Toolbar1 8 yes\n", {"--", "-demo", "-test"}).status, 0);
}

TEST(TavrinctlRun, StartsInTheLanguageOfTheRun) {
  const std::string script = "start\nexpect text mnuMain 1 $1\n";
  EXPECT_EQ(RunText(script, {"File"}).status, 0);
  EXPECT_EQ(RunText(script, {"--language=de", "Datei"}).status, 0);
  EXPECT_EQ(RunText(script, {"--language=numbers", "#40"}).status, 0);
}

TEST(TavrinctlRun, ExplainsEveryWordOfTheLanguage) {
  const ProgramRun run = CallTavrinctl({"run", "--help"});
  EXPECT_EQ(run.status, 0);
  for (const char* word : {"rightclick CONTROL", "answer ANSWER", "cell GRID ROW COL", "tree TREE", "Exit status"}) {
    EXPECT_THAT(run.out, HasSubstr(word));
  }
}

TEST(TavrinctlRun, LeavesTheSettingsOfTheUserAloneUnlessAskedFor) {
  const TemporaryDirectory home;
  ASSERT_EQ(setenv("XDG_CONFIG_HOME", (home.Path() + "config").c_str(), 1), 0);
  const std::string change = "start\nresize 13000 9000\nclose\n";
  const std::string look = "start\nexpect place \"500 500 13000 9000\"\n";
  EXPECT_EQ(RunText(change).status, 0);
  EXPECT_EQ(RunText(look, {"--user-settings"}).status, 1);
  EXPECT_EQ(RunText(change, {"--user-settings"}).status, 0);
  EXPECT_EQ(RunText(look, {"--user-settings"}).status, 0);
  EXPECT_EQ(RunText(look).status, 1);
  unsetenv("XDG_CONFIG_HOME");
}

TEST(TavrinctlRun, TellsThatAFileCouldNotBeWritten) {
  const TemporaryDirectory directory;
  CopyFiles(kPlant, directory.Path() + "plant");
  directory.Write("script", "start\ndrop $1/plant/ZOPCSRV.ini\notherwise yes\nclick mnuFile 3\n");
  const ProgramRun run =
      CallTavrinctl({"run", directory.Path() + "script", directory.Path()}, {.fileSize = std::uint64_t{100}});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("not every file could be written"));
}

}  // namespace
}  // namespace tavrin
