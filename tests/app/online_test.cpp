// tavrinctl watch and test over the wire, against tavrin-sim.
#include <csignal>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "TavrinctlRun.h"
#include "sim/SimProcess.h"
#include "support/TemporaryDirectory.h"

namespace tavrin {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

/// An installation of its own, whose servers table names a server of the test.
class OnlineProgram : public testing::Test {
 protected:
  OnlineProgram() {
    std::filesystem::copy_file(TAVRINCTL, Path("tavrinctl"));
    std::filesystem::copy(InSourceTree("texts"), Path("texts"));
    std::filesystem::create_directory(Path("LOG"));
    CopyFiles(InSourceTree("samples/plant"), Path("plant"));
    ServerAt("opc.tcp://127.0.0.1:1");  // nobody
  }

  void StartServer(std::vector<std::string> arguments = {}) {
    server = std::make_unique<SimProcess>(Path("plant/ZOPCSRV.ini"), std::move(arguments));
    ServerAt(SimProcess::UrlOf(server->NextLine()));
  }
  void ServerAt(const std::string& url) const {
    std::ofstream(Path("Tavrin.INI")) << "[Servers]\nZelkar.OPCServer.1=" << url << "\nQorvane.OPCServer.1=" << url
                                      << "\n";
  }

  /// A path in the directory of the installation.
  [[nodiscard]] std::string Path(const std::string& name) const { return directory.Path() + name; }

  /// Runs a command with the project and further words.
  [[nodiscard]] ProgramRun Call(const std::string& command, std::vector<std::string> words) const {
    words.insert(words.begin(), {command, Path("plant/ZOPCSRV.ini")});
    RunConditions conditions;
    conditions.program = Path("tavrinctl");
    return CallTavrinctl(words, conditions);
  }

  TemporaryDirectory directory;
  std::unique_ptr<SimProcess> server;
};

class Watch : public OnlineProgram {};
class DeviceTest : public OnlineProgram {};

TEST_F(Watch, ATagIsPrintedWithValueQualityAndTimeStamp) {
  StartServer();
  const ProgramRun run = Call("watch", {"Pruefplatz/Wort_1", "--seconds", "1"});
  EXPECT_EQ(run.status, 0) << run.err;
  const auto lines = LinesOf(run.out);
  ASSERT_THAT(lines, Not(IsEmpty()));
  EXPECT_THAT(lines.front(), testing::MatchesRegex("Pruefplatz/Wort_1\t-?[0-9]+\tgood \\(non-specific\\)\t"
                                                   "[0-9][0-9]\\.[0-9][0-9]\\.[0-9]+ [0-9:]+"));
}

TEST_F(Watch, ADeviceStandsForAllItsTagsInTheirOrder) {
  StartServer({"--all-good"});
  const auto lines = LinesOf(Call("watch", {"Pruefplatz", "--seconds", "0.5"}).out);
  ASSERT_GE(lines.size(), 3U);
  EXPECT_THAT(lines[0], StartsWith("Pruefplatz/COMMAND\t"));
  EXPECT_THAT(lines[1], StartsWith("Pruefplatz/RESULT\t"));
  EXPECT_THAT(lines, Each(StartsWith("Pruefplatz/")));
}

TEST_F(Watch, ValuesThatMoveAreToldAgainAndAgain) {
  StartServer();
  const auto lines = LinesOf(Call("watch", {"Pruefplatz/Wort_1", "--seconds", "2.5"}).out);
  EXPECT_THAT(lines, SizeIs(testing::Ge(2U)));
}

TEST_F(Watch, ALineOfJsonHasTheTypedValueAndTheCodes) {
  StartServer();
  const auto lines = LinesOf(Call("watch", {"--json", "Pruefplatz/RESULTARRAY", "--seconds", "0.5"}).out);
  ASSERT_THAT(lines, Not(IsEmpty()));
  const auto json = nlohmann::json::parse(lines.front());
  EXPECT_EQ(json["item"], "Pruefplatz/RESULTARRAY");
  EXPECT_EQ(json["quality"], 192);
  EXPECT_EQ(json["qualityText"], "good (non-specific)");
  EXPECT_TRUE(json["value"].is_array());
  EXPECT_EQ(json["type"].get<int>() & 0x2000, 0x2000);
  EXPECT_THAT(json["time"].get<std::string>(), testing::MatchesRegex("20[0-9-]+T[0-9:]+\\.[0-9]+Z"));
}

TEST_F(Watch, ATagThatIsNotGoodAtTheEndIsToldByTheStatus) {
  StartServer();
  const ProgramRun run = Call("watch", {"Filterstrasse_A/Watchdog", "--seconds", "0.5"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.out, HasSubstr("\tbad (not connected)\t"));
}

TEST_F(Watch, ATagThatTheProjectDoesNotHaveIsRefused) {
  StartServer();
  for (const char* const word : {"Pruefplatz/Nothing", "Nothing", "Pruefplatz/", ""}) {
    const ProgramRun run = Call("watch", {word, "--seconds", "1"});
    EXPECT_EQ(run.status, 2) << word;
    EXPECT_THAT(run.err, HasSubstr("the project has no such tag")) << word;
    EXPECT_THAT(run.out, IsEmpty()) << word;
  }
}

TEST_F(Watch, AServerThatIsAwayIsToldAtOnce) {
  const ProgramRun run = Call("watch", {"Pruefplatz", "--seconds", "30"});
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("there is no connection to the OPC server"));
}

TEST_F(Watch, TheDemonstrationServerIsAlwaysThere) {
  const ProgramRun run = Call("watch", {"--demo", "increment.UI2 array", "--seconds", "0.5"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(run.out, StartsWith("increment.UI2 array\t("));
}

TEST_F(DeviceTest, AllRunsAreDoneAndKeptInTheProtocol) {
  StartServer();
  const ProgramRun run = Call("test", {"Pruefplatz", "--runs", "2", "--interval", "700"});
  EXPECT_EQ(run.status, 0) << run.err;
  const auto lines = LinesOf(run.out);
  EXPECT_THAT(lines, AllOf(Contains("1\tInitialisieren"), Contains("2\tUpdate"),
                           Contains("2\tPr\xC3\xBC"
                                    "fen")));
  EXPECT_THAT(lines, Contains("Wort_5\t4711\t4711\t192"));
  const std::string protocol = BytesOf(Path("LOG/TESTPROT.TXT"));
  EXPECT_THAT(protocol, AllOf(HasSubstr("/Pruefplatz     /Initialisierung\r\n"), HasSubstr("/RESULTARRAY /(0 | 0")));
}

TEST_F(DeviceTest, ADeviceWhoseTagsAreNotGoodTakesTooLong) {
  StartServer();
  const ProgramRun run = Call("test", {"Filterstrasse_A", "--interval", "20", "--timeout", "0.5"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("ended before all its runs were done"));
}

TEST_F(DeviceTest, ADeviceThatTheProjectDoesNotHaveIsRefused) {
  const ProgramRun run = Call("test", {"Nothing"});
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("Nothing: the project has no such device"));
}

TEST_F(DeviceTest, AServerThatIsAwayIsToldAtOnce) {
  const ProgramRun run = Call("test", {"Pruefplatz"});
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("there is no connection to the OPC server"));
}

TEST_F(DeviceTest, AProtocolThatCannotBeWrittenIsToldAndTheRunGoesOn) {
  StartServer();
  std::filesystem::remove(Path("LOG"));
  const ProgramRun run = Call("test", {"Pruefplatz", "--interval", "700"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("Fehler 76 in Prozedur SaveRunHeader : "));
  EXPECT_THAT(LinesOf(run.out), Contains("Wort_5\t4711\t4711\t192"));
}

}  // namespace
}  // namespace tavrin
