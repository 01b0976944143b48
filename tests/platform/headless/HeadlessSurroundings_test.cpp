#include "platform/headless/HeadlessSurroundings.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrin {
namespace {

using testing::ElementsAre;

TEST(RecordingProgramsTest, KeepsAndTellsWhatShouldHaveBeenStarted) {
  RecordingPrograms programs;
  std::vector<std::string> told;
  programs.OnStarted = [&](const RecordingPrograms::Started& started) { told.push_back(started.what); };
  programs.Start(Administration::Services, WindowStyle::Minimised);
  programs.ShowText("/a/LOG1.TXT", WindowStyle::Normal);
  EXPECT_TRUE(programs.OpenDocument("/a/OPC_D.PDF", 3));
  const RecordingPrograms::Started services{"3", "", 2};
  const RecordingPrograms::Started text{"text", "/a/LOG1.TXT", 1};
  const RecordingPrograms::Started document{"document", "/a/OPC_D.PDF", 3};
  EXPECT_THAT(programs.started, ElementsAre(services, text, document));
  EXPECT_THAT(told, ElementsAre("3", "text", "document"));
}

TEST(RecordingProgramsTest, WithoutProgramsEveryStartFailsAndIsToldAllTheSame) {
  RecordingPrograms programs;
  programs.missing = true;
  int told = 0;
  programs.OnStarted = [&](const RecordingPrograms::Started&) { ++told; };
  EXPECT_THROW(programs.Start(Administration::EventLog, WindowStyle::Normal), RuntimeError);
  EXPECT_THROW(programs.ShowText("/a", WindowStyle::Normal), RuntimeError);
  EXPECT_FALSE(programs.OpenDocument("/a", 1));
  EXPECT_EQ(told, 3);
}

TEST(ScriptedServiceTest, GivesTheNumbersThatWereSetAndTellsOfEachCall) {
  ScriptedService service;
  std::vector<std::string> told;
  service.OnCalled = [&](std::string_view call, int result) {
    told.push_back(std::string(call) + " " + std::to_string(result));
  };
  EXPECT_EQ(service.CmdStopServiceEx(), 0);
  service.stopResult = 4;
  service.startResult = 7;
  EXPECT_EQ(service.CmdStopServiceEx(), 4);
  EXPECT_EQ(service.CmdStartServiceEx(), 7);
  EXPECT_EQ(service.stops, 2);
  EXPECT_EQ(service.starts, 1);
  EXPECT_THAT(told, ElementsAre("stop 0", "stop 4", "start 7"));
}

TEST(FixedRegionalTest, TellsTheSameEverywhere) {
  FixedRegional regional;
  EXPECT_EQ(regional.ShortDate(regional.Now()) + " " + regional.LongTime(regional.Now()), "20.11.2026 14:05:09");
  EXPECT_EQ(regional.FromLocal(regional.ToLocal(regional.now)), regional.now);
  EXPECT_EQ(regional.ToLocal(Join({1969, 12, 31, 23, 30, 0, 0})), (DateTime{1970, 1, 1, 0, 30, 0, 0}));
}

}  // namespace
}  // namespace tavrin
