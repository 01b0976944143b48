#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/SampleProjects.h"
#include "app/TavrinctlRun.h"
#include "support/TemporaryDirectory.h"

/// The scripted sessions of tests/sessions, run by the real program. docs/sessions.md tells how they are written and
/// how their transcripts are renewed.

namespace tavrin {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> SessionNames() {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(InSourceTree("tests/sessions"))) {
    if (entry.path().extension() == ".session") names.push_back(entry.path().stem());
  }
  std::sort(names.begin(), names.end());
  return names;
}

/// The language of a session stands in its name; without one its texts are numbers.
std::string LanguageOf(const std::string& name) {
  for (const char* language : {"de", "en"}) {
    if (name.ends_with(std::string(".") + language)) return language;
  }
  return "numbers";
}

std::string FileOf(const std::string& name, const std::string& ending) {
  return InSourceTree("tests/sessions/" + name + ending);
}

ProgramRun RunSession(const std::string& name, const std::string& argument) {
  return CallTavrinctl({"--language=" + LanguageOf(name), "run", FileOf(name, ".session"), argument});
}

/// Runs a session with its first argument an own directory that holds the samples and an empty directory.
struct SessionRun {
  explicit SessionRun(const std::string& name) {
    CopyFiles(kPlant, Path("plant"));
    CopyFiles(kFaulty, Path("faulty"));
    fs::create_directory(Path("other"));
    run = RunSession(name, fs::path(directory.Path()).parent_path());
  }
  [[nodiscard]] std::string Path(const std::string& below) const { return directory.Path() + below; }

  TemporaryDirectory directory;
  ProgramRun run;
};

/// With the directory of the run as DIR/ and that of the programs as APP/.
std::string Transcript(const SessionRun& session) {
  const std::string programs = fs::canonical(TAVRINCTL).parent_path().string() + "/";
  std::string told = Told(session.run, session.directory.Path());
  for (std::size_t at = told.find(programs); at != std::string::npos; at = told.find(programs)) {
    told.replace(at, programs.size(), "APP/");
  }
  return told;
}

struct Sessions : testing::TestWithParam<std::string> {};

TEST_P(Sessions, HasItsTranscript) {
  const SessionRun session(GetParam());
  const std::string transcript = Transcript(session);
  ASSERT_EQ(session.run.status, 0) << transcript;
  const std::string file = FileOf(GetParam(), ".transcript");
  if (std::getenv("TAVRIN_RENEW_TRANSCRIPTS") != nullptr) {
    std::ofstream(file, std::ios::binary) << transcript;
    return;
  }
  EXPECT_EQ(transcript, BytesOf(file));
}

INSTANTIATE_TEST_SUITE_P(Of, Sessions, testing::ValuesIn(SessionNames()), [](const auto& name) {
  std::string identifier = name.param;
  std::replace(identifier.begin(), identifier.end(), '.', '_');
  return identifier;
});

TEST(SessionFiles, EachTranscriptBelongsToASession) {
  int count = 0;
  for (const auto& entry : fs::directory_iterator(InSourceTree("tests/sessions"))) {
    if (entry.path().extension() != ".transcript") continue;
    ++count;
    EXPECT_TRUE(fs::exists(fs::path(entry.path()).replace_extension(".session"))) << entry.path();
  }
  EXPECT_EQ(count, static_cast<int>(SessionNames().size()));
}

TEST(SessionFiles, SaveAsWritesTheBytesThatResaveWrites) {
  const SessionRun session("save_as");
  ASSERT_EQ(session.run.status, 0) << session.run.err;
  const TemporaryDirectory resaved;
  ASSERT_EQ(CallTavrinctl({"resave", kPlant + kRoot, resaved.Path()}).status, 0);
  EXPECT_THAT(Differences(session.Path("other"), resaved.Path()), testing::IsEmpty());
  EXPECT_THAT(Differences(session.Path("plant"), kPlant), testing::IsEmpty());
}

/// What the dialog for a new network does not offer: networks of the types H1 and IPK, here still without devices.
void AddNetworksOfOtherTypes(const TemporaryDirectory& directory) {
  const std::string root = BytesOf(directory.Path() + "other/" + kRoot);
  directory.Write("other/" + std::string(kRoot),
                  root + "[Chemie]\r\nProtocol=H1\r\nConfiguration=Chemie.ini\r\n\r\n" +
                      "[Aussenstationen]\r\nProtocol=IPKoverTCPIP\r\nConfiguration=Aussenstationen.ini\r\n\r\n");
  directory.Write("other/Chemie.ini", "[General]\r\nCyclicTime=100\r\nLocalMacAddress=0\r\nBindMacAddress=0\r\n\r\n");
  directory.Write("other/Aussenstationen.ini", "[General]\r\nLocalIPAddress=0.0.0.0\r\n\r\n");
}

TEST(SessionFiles, ThePlantIsBuiltFromNothingByGesturesAlone) {
  const TemporaryDirectory directory;
  const std::string argument = fs::path(directory.Path()).parent_path();
  fs::create_directory(directory.Path() + "other");
  const ProgramRun first = RunSession("files/plant_1", argument);
  ASSERT_EQ(first.status, 0) << first.err;
  AddNetworksOfOtherTypes(directory);
  const ProgramRun second = RunSession("files/plant_2", argument);
  ASSERT_EQ(second.status, 0) << second.err;
  EXPECT_THAT(Differences(directory.Path() + "other", kPlant), testing::IsEmpty());
  for (const ProgramRun& run : {first, second}) EXPECT_THAT(run.out, testing::Not(testing::HasSubstr("  box ")));
}

}  // namespace
}  // namespace tavrin
