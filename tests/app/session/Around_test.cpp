// What lies around the program in a session: other programs, the service, the clock, an OPC server.
#include "app/session/Around.h"

#include "app/session/SessionTest.h"
#include "online/opc/OPCDataControl.h"
#include "platform/RuntimeError.h"

namespace tavrin {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

struct Around : SessionTest {
  /// Does one line. @return why it cannot be done, empty when it can
  std::string Do(const std::string& line) {
    ScriptParser parser({});
    EXPECT_TRUE(parser.Parse(line));
    const auto wrong = FindFault(parser.Lines());
    if (wrong) return wrong->message;
    const ScriptLine& parsed = parser.Lines().front();
    try {
      FindVerb(parsed.words[0])->act(stage, Words(parsed.words).subspan(1));
    } catch (const Refusal& refusal) {
      return refusal.message;
    }
    return {};
  }
  [[nodiscard]] std::string Told() { return std::exchange(transcript, {}); }

  Stage stage{services, [this](std::string_view line) { transcript += line; }};
};

TEST_F(Around, WhatTheProgramStartsStandsInTheTranscript) {
  Programs& programs = stage.around.all.programs;
  programs.Start(Administration::OpcSettings, WindowStyle::Normal);
  programs.Start(Administration::Services, WindowStyle::Minimised);
  programs.Start(Administration::SystemInformation, WindowStyle::Normal);
  EXPECT_EQ(Told(), "  start OPC settings\n  start services minimised\n  start system information\n");
  programs.ShowText("/a b/LOG1.TXT", WindowStyle::Normal);
  EXPECT_TRUE(programs.OpenDocument("/a/OPC_D.PDF", 1));
  EXPECT_EQ(Told(), "  start text \"/a b/LOG1.TXT\"\n  open \"/a/OPC_D.PDF\" page 1\n");
}

TEST_F(Around, AMachineMayHaveNoProgramForAnything) {
  EXPECT_EQ(Do("programs none"), "");
  EXPECT_THROW(stage.around.programs.Start(Administration::EventLog, WindowStyle::Normal), RuntimeError);
  EXPECT_FALSE(stage.around.programs.OpenDocument("/a", 1));
  EXPECT_EQ(Told(), "  start event log: no program for it\n  open \"/a\" page 1: no program for it\n");
  EXPECT_EQ(Do("programs all"), "");
  EXPECT_TRUE(stage.around.programs.OpenDocument("/a", 1));
  EXPECT_EQ(Do("programs some"), "wanted: none or all");
}

TEST_F(Around, TheScriptSaysWhatTheServiceAnswers) {
  EXPECT_EQ(stage.around.service.CmdStopServiceEx(), 0);
  EXPECT_EQ(Do("service stop 4"), "");
  EXPECT_EQ(Do("service start 7"), "");
  EXPECT_EQ(stage.around.service.CmdStopServiceEx(), 4);
  EXPECT_EQ(stage.around.service.CmdStartServiceEx(), 7);
  EXPECT_EQ(Told(), "  service stop -> 0\n  service stop -> 4\n  service start -> 7\n");
  EXPECT_THAT(Do("service pause 1"), HasSubstr("wanted"));
  EXPECT_EQ(Do("service stop x"), "\"x\" is no whole number");
}

TEST_F(Around, TheClockStandsWhereTheScriptPutsIt) {
  Regional& regional = stage.around.all.regional;
  EXPECT_EQ(regional.Now(), (DateTime{2026, 11, 20, 14, 5, 9}));
  EXPECT_EQ(Do("clock 2024-02-29 23:59:58"), "");
  EXPECT_EQ(regional.Now(), (DateTime{2024, 2, 29, 23, 59, 58}));
  EXPECT_EQ(regional.Now(), (DateTime{2024, 2, 29, 23, 59, 58}));
}

TEST_F(Around, AMomentThatDoesNotExistIsRefused) {
  for (const char* line : {"clock 2023-02-29 10:00:00", "clock 2024-13-01 10:00:00", "clock 2024-00-10 10:00:00",
                           "clock 2024-01-00 10:00:00", "clock 2024-01-01 24:00:00", "clock 2024-01-01 10:60:00",
                           "clock 24-01-01 10:00:00", "clock 2024-01-01 1:00:00", "clock 2024/01/01 10:00:00",
                           "clock 2024-0x-01 10:00:00"}) {
    EXPECT_THAT(Do(line), HasSubstr("wanted: a date")) << line;
  }
}

TEST_F(Around, StandingStillIsToldAndTakesNoTime) {
  stage.desktop.Sleep(3'600'000);
  EXPECT_EQ(Told(), "  the program stands still for 3600000 ms\n");
}

// ---- the OPC server

struct ServerAround : Around {
  ServerAround() {
    client.ServerProgID("Some.Server.1");
    client.OnDataChanged = [this](const std::vector<OPCItem*>& items) { changed = items; };
  }
  OPCDataControl client{stage.around.all.opc};
  std::vector<OPCItem*> changed;
};

TEST_F(ServerAround, ThereIsNoneUntilTheScriptSaysSo) {
  EXPECT_THROW(client.ControlConnect(), RuntimeError);
  EXPECT_EQ(Told(), "  connect \"Some.Server.1\": no server\n");
  EXPECT_EQ(Do("server on"), "");
  client.ControlItems().AddItem("Device/Tag");
  client.ControlConnect();
  client.ControlDisconnect();
  EXPECT_EQ(Told(), "  connect \"Some.Server.1\" items 1\n  disconnect\n");
  EXPECT_EQ(Do("server off"), "");
  EXPECT_THROW(client.ControlConnect(), RuntimeError);
  EXPECT_EQ(Do("server perhaps"), "wanted: on or off");
}

TEST_F(ServerAround, ItTellsWhatTheScriptSays) {
  EXPECT_EQ(Do("server on"), "");
  const OPCItem& item = client.ControlItems().AddItem("Device/Tag");
  client.ControlConnect();
  EXPECT_EQ(Do("data Device/Tag Double 1.5"), "");
  ASSERT_EQ(changed.size(), 1U);
  EXPECT_EQ(changed[0], &item);
  EXPECT_EQ(item.ItemDataType(), 5);
  EXPECT_EQ(item.ItemValue(), Variant(VariantType::Double, 1.5));
  EXPECT_EQ(item.ItemQuality(), 0xC0);
  EXPECT_EQ(item.ItemTimeStamp(), stage.around.regional.now);
  EXPECT_EQ(Do("data Device/Tag Text \"a b\" 24"), "");
  EXPECT_EQ(item.ItemQuality(), 24);
  EXPECT_EQ(item.ItemValue(), Variant::OfText("a b"));
}

TEST_F(ServerAround, ValuesHaveTheTypesOfOpc) {
  EXPECT_EQ(Do("server on"), "");
  const OPCItem& item = client.ControlItems().AddItem("X");
  client.ControlConnect();
  struct Known {
    const char* line;
    std::uint16_t code;
    std::vector<Scalar> elements;
  };
  const std::vector<Known> all{{"Int8 -3", 0x10, {std::int64_t{-3}}},
                               {"uint8 3", 0x11, {std::uint64_t{3}}},
                               {"Int16 -3", 0x02, {std::int64_t{-3}}},
                               {"Int32 70000", 0x03, {std::int64_t{70000}}},
                               {"UInt32 70000", 0x13, {std::uint64_t{70000}}},
                               {"Single 0.25", 0x04, {0.25}},
                               {"Boolean yes", 0x0B, {true}},
                               {"Boolean no", 0x0B, {false}},
                               {"UInt16 1|2|3", 0x2012, {std::uint64_t{1}, std::uint64_t{2}, std::uint64_t{3}}},
                               {"Int16 |", 0x2002, {}}};
  for (const Known& known : all) {
    EXPECT_EQ(Do(std::string("data X ") + known.line), "") << known.line;
    EXPECT_EQ(item.ItemDataType(), known.code) << known.line;
    EXPECT_EQ(item.ItemValue().Elements(), known.elements) << known.line;
  }
}

TEST_F(ServerAround, WhatCannotBeToldIsRefused) {
  EXPECT_EQ(Do("data X Int16 1"), "nobody has subscribed to \"X\"");
  EXPECT_THAT(Do("data X Int17 1"), HasSubstr("\"Int17\" is none of the types Int8, UInt8"));
  EXPECT_EQ(Do("data X Int16 1.5"), "\"1.5\" is no value of this type");
  EXPECT_EQ(Do("data X UInt16 -1"), "\"-1\" is no value of this type");
  EXPECT_EQ(Do("data X Int16 1|"), "\"\" is no value of this type");
  EXPECT_EQ(Do("data X Int16 1 good"), "\"good\" is no value of this type");
  EXPECT_EQ(Do("data X Boolean True"), "wanted: yes or no");
  EXPECT_THAT(changed, IsEmpty());
}

TEST_F(ServerAround, AWriteStandsInTheTranscript) {
  EXPECT_EQ(Do("server on"), "");
  OPCItem& item = client.ControlItems().AddItem("Device/COMMAND");
  client.ControlConnect();
  static_cast<void>(Told());
  item.ItemValue(Variant::OfText("say \"1\""));
  client.ControlWrite();
  EXPECT_EQ(Told(), "  write \"Device/COMMAND\" \"say \"\"1\"\"\"\n");
}

TEST_F(ServerAround, WhatAWindowDoesWhenItIsToldMayEndItsConnection) {
  EXPECT_EQ(Do("server on"), "");
  client.ControlItems().AddItem("X");
  client.ControlConnect();
  client.OnDataChanged = [this](const auto&) { client.ControlDisconnect(); };
  EXPECT_EQ(Do("data X Int16 1"), "");
  EXPECT_EQ(Do("data X Int16 1"), "nobody has subscribed to \"X\"");
}

}  // namespace
}  // namespace tavrin
