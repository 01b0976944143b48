#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "app/SampleProjects.h"
#include "app/TavrinctlRun.h"
#include "support/TemporaryDirectory.h"

/// The sample of all faults and the projects with one defect each, as the real program loads and writes them.

namespace tavrin {
namespace {

using nlohmann::ordered_json;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

TEST(FaultySample, GivesEveryWarning) {
  const ProgramRun run = CallTavrinctl({"--language=numbers", "check", kFaulty + kRoot});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(LinesOf(Told({0, run.out, ""}, kFaulty)), ElementsAreArray(LinesOf(Expected("faulty_sample"))));
  EXPECT_THAT(LinesOf(run.err), ElementsAre("tavrinctl: message:\t#225", "tavrinctl: message:\t#204 #225",
                                            "tavrinctl: message:\t#199 6 #200 cDevice.Refresh : Overflow"));
}

TEST(FaultySample, KnowsEveryTextOfALoad) {
  std::set<std::string> numbers;
  const ordered_json shown = Show(kFaulty);
  for (const auto& warning : shown["warnings"]) numbers.insert(warning["szText"].get<std::string>().substr(0, 4));
  // 230 stands behind 207. 224 and 226 are for a checker that knows more of names and addresses than their length.
  EXPECT_THAT(numbers, ElementsAre("#201", "#203", "#207", "#210", "#211", "#212", "#219", "#220", "#221", "#223",
                                   "#225", "#227", "#228", "#236", "#238", "#239"));
}

TEST(FaultySample, SpeaksTheLanguageAskedFor) {
  const auto line = [](const char* language, std::size_t number) {
    const ProgramRun run = CallTavrinctl({std::string("--language=") + language, "check", kFaulty + kRoot});
    EXPECT_EQ(run.status, 1);
    const auto lines = LinesOf(run.out);
    EXPECT_EQ(lines.size(), LinesOf(Expected("faulty_sample")).size());
    for (const std::string& text : lines) EXPECT_EQ(text.find('#'), std::string::npos) << text;
    return number < lines.size() ? lines[number] : std::string();
  };
  EXPECT_EQ(line("de", 28), "Device\tMPI_bus.ini\tFehlender oder ungültiger Eintrag Simulation (möglich)");
  EXPECT_EQ(line("en", 28), "Device\tMPI_bus.ini\tMissing or invalid entry Simulation (möglich)");
}

TEST(FaultySample, ShowsTheSameWarningsAsItChecks) {
  std::string lines;
  const ordered_json shown = Show(kFaulty);
  for (const auto& warning : shown["warnings"]) {
    for (const char* field : {"szType", "szFileName"}) lines += warning[field].get<std::string>() + "\t";
    lines += warning["szText"].get<std::string>() + "\n";
  }
  EXPECT_EQ(shown["bOK"], false);
  EXPECT_EQ(Told({0, lines, ""}, kFaulty), Expected("faulty_sample"));
}

TEST(FaultySample, KeepsItsDefaultsWhereValuesAreBad) {
  const ordered_json shown = Show(kFaulty);
  const auto& networks = shown["project"]["Networks"];
  EXPECT_EQ(shown["project"]["nLogFileSize"], 10000);
  EXPECT_EQ(Find(networks, "szNetworkName", "MPI_bad_values")["nMPI_Baudrate"], 38400);
  EXPECT_EQ(Find(networks, "szNetworkName", "MPI_bad_values")["nMPI_OwnMPINo"], 50);
  EXPECT_EQ(Find(networks, "szNetworkName", "Wrong_case_protocol")["nNetworkType"], 0);
  EXPECT_EQ(Find(networks, "szNetworkName", "Too_many_devices")["Devices"].size(), 31U);
  const auto& press = Find(Find(networks, "szNetworkName", "MPI_bus")["Devices"], "szDeviceName", "Press_1");
  EXPECT_EQ(press["Tags"].size(), 9U);
  EXPECT_EQ(Find(press["Tags"], "szTag", "Motor")["szComment"], "cut here");
}

TEST(FaultySample, IsWrittenWithAWarningForEachNameThatIsMissing) {
  const TemporaryDirectory directory;
  const ProgramRun run = CallTavrinctl({"--language=numbers", "resave", kFaulty + kRoot, directory.Path()});
  EXPECT_EQ(run.status, 1);
  std::vector<std::string> texts;
  const auto document = ordered_json::parse(run.out);
  for (const auto& warning : document["warnings"]) texts.push_back(warning["szText"]);
  EXPECT_THAT(texts, ElementsAre("#217 ", "#217 ", "#215 No_configuration", "#215 Empty_configuration", "#217 "));
  EXPECT_FALSE(directory.Has("No_configuration.ini"));
  EXPECT_TRUE(directory.Has("Missing_file.ini"));
  EXPECT_EQ(directory.Read(kRoot).find(';'), std::string::npos);  // comments are not kept
}

// One defect each

class DefectiveProject : public testing::TestWithParam<std::string> {
 protected:
  const std::string directory_ = InSourceTree("tests/data/projects/" + GetParam() + "/");
};

TEST_P(DefectiveProject, IsToldAsExpected) {
  const ProgramRun run = CallTavrinctl({"--language=numbers", "check", directory_ + kRoot});
  EXPECT_EQ(Told(run, directory_), Expected(GetParam()));
  if (run.err.empty()) {
    EXPECT_EQ(run.status, run.out.empty() ? 0 : 1);
  }
}

TEST_P(DefectiveProject, IsToldInWords) {
  for (const char* language : {"de", "en"}) {
    const ProgramRun run = CallTavrinctl({std::string("--language=") + language, "check", directory_ + kRoot});
    EXPECT_EQ(LinesOf(run.out + run.err).size(), LinesOf(Expected(GetParam())).size());
    EXPECT_EQ((run.out + run.err).find('#'), std::string::npos);
  }
}

TEST_P(DefectiveProject, IsStableOnceItIsWritten) {
  const TemporaryDirectory once;
  const TemporaryDirectory twice;
  ASSERT_NE(CallTavrinctl({"resave", directory_ + kRoot, once.Path()}).status, 2);
  ASSERT_NE(CallTavrinctl({"resave", once.Path() + kRoot, twice.Path()}).status, 2);
  std::vector<std::string> expected;
  // This one's network has the name of the settings' section: it is written into that section and then gone.
  if (GetParam() == "general_in_small_letters") expected.push_back(kRoot);
  EXPECT_EQ(Differences(once.Path(), twice.Path()), expected);
}

std::vector<std::string> DefectiveProjects() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(InSourceTree("tests/data/projects"))) {
    names.push_back(entry.path().filename());
  }
  std::sort(names.begin(), names.end());
  return names;
}

INSTANTIATE_TEST_SUITE_P(All, DefectiveProject, testing::ValuesIn(DefectiveProjects()),
                         [](const auto& project) { return project.param; });

TEST(DefectiveProjects, AreWrittenAsTheRulesOfTheirSettingsWant) {
  const TemporaryDirectory upper;
  const TemporaryDirectory beyond;
  const TemporaryDirectory lineFeeds;
  const std::string projects = InSourceTree("tests/data/projects/");
  ASSERT_EQ(CallTavrinctl({"resave", projects + "tags_in_upper_case/" + kRoot, upper.Path()}).status, 0);
  EXPECT_EQ(upper.Read("Station.csv"),
            "F\xDCLLSTAND;DB1.DBW0;RO;HYL=1;HYU=1;LB=0;UB=100;CMT=in %\r\nVENTIL;MB10;RW;TST=1\r\n");
  ASSERT_EQ(CallTavrinctl({"resave", projects + "values_beyond_the_editor/" + kRoot, beyond.Path()}).status, 0);
  EXPECT_THAT(Differences(projects + "values_beyond_the_editor", beyond.Path()), IsEmpty());
  ASSERT_EQ(CallTavrinctl({"resave", projects + "line_feeds_only/" + kRoot, lineFeeds.Path()}).status, 0);
  EXPECT_EQ(lineFeeds.Read("Station.csv"),
            "F\xFCllstand;DB1.DBW0;RO;HYL=1;HYU=1;LB=0;UB=100;CMT=in %\r\nVentil;MB10;RW;TST=1\r\n");
}

}  // namespace
}  // namespace tavrin
