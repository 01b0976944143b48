#include <algorithm>
#include <csignal>

#include "sim/NotifySocket.h"
#include "sim/SimClient.h"
#include "sim/SimProcess.h"
#include "sim/SimProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::StartsWith;

constexpr ItemType kWord{ValueKind::UInt16};

/// The program as a process, and a client of another make than the editor's.
class tavrin_sim_Test : public SimProjectTest {
 protected:
  /// Starts the program with the project; its values move every 20 milliseconds.
  void Start(std::vector<std::string> arguments = {}) {
    arguments.insert(arguments.end(), {"--interval", "20"});
    sim = std::make_unique<SimProcess>(ProjectFile(), arguments);
    ready = sim->NextLine();
    ASSERT_THAT(ready, StartsWith("tavrin-sim: "));
    client = std::make_unique<SimClient>(SimProcess::UrlOf(ready));
  }
  void Reload() {
    sim->Signal(SIGHUP);
    ready = sim->NextLine();
  }
  int End(int signal = SIGTERM) {
    sim->Signal(signal);
    return sim->Wait();
  }
  std::string Status(const std::string& item) { return client->Read(item).status; }
  Values Value(const std::string& item) { return client->Read(item).values; }
  static std::vector<std::string> Ids(const std::vector<FoundNode>& nodes) {
    std::vector<std::string> ids;
    ids.reserve(nodes.size());
    for (const FoundNode& node : nodes) ids.push_back(node.id);
    return ids;
  }

  std::unique_ptr<SimProcess> sim;
  std::string ready;
  std::unique_ptr<SimClient> client;
};

// ---- what is published ----

TEST_F(tavrin_sim_Test, TellsWhenItIsReadyAndWhereClientsReachIt) {
  WriteProject({{"Press", "ON", {"a;MW1;RW", "b;MW2;RO"}}});
  Start();
  EXPECT_THAT(ready, MatchesRegex("tavrin-sim: 2 items at opc\\.tcp://127\\.0\\.0\\.1:[0-9]+"));
}

TEST_F(tavrin_sim_Test, ShowsAFolderADeviceWithAVariableAnItem) {
  WriteProject({{"Press", "ON", {"a;MW1;RW;CMT=speed of the press", "b;MW2;RO"}}, {"Kiln", "OFF", {"c;M1.0;RO"}}});
  Start();
  EXPECT_THAT(Ids(client->Browse()), ElementsAre("Press", "Kiln"));
  const std::vector<FoundNode> items = client->Browse("Press");
  EXPECT_THAT(Ids(items), ElementsAre("Press/a", "Press/b"));
  EXPECT_EQ(items[0].space, 2);
  EXPECT_EQ(items[0].name, "a");
  EXPECT_EQ(client->Description("Press/a"), "speed of the press");
}

TEST_F(tavrin_sim_Test, GivesEachItemTheTypeOfItsAddress) {
  WriteProject({{"Press",
                 "ON",
                 {"bit;M1.0;RO", "byte;MB1;RO", "word;MW1;RO", "sword;MW1;RO;LB=-5", "double;MD1;RO",
                  "real;MD1;RO;HYL=0.5", "array;MW1;RW;TST=1|2|3", "other;boiler;RO"}}});
  Start();
  const auto type = [this](const char* tag) { return client->Read(std::string("Press/") + tag).type; };
  EXPECT_EQ(type("bit"), "Boolean");
  EXPECT_EQ(type("byte"), "Byte");
  EXPECT_EQ(type("word"), "UInt16");
  EXPECT_EQ(type("sword"), "Int16");
  EXPECT_EQ(type("double"), "UInt32");
  EXPECT_EQ(type("real"), "Float");
  EXPECT_EQ(type("array"), "UInt16[]");
  EXPECT_EQ(type("other"), "Double");
  EXPECT_EQ(Value("Press/array").size(), 3U);
}

TEST_F(tavrin_sim_Test, IsBadForDevicesThatAreNotSimulatedUnlessAllAreGood) {
  WriteProject({{"Press", "ON", {"a;MW1;RW"}}, {"Kiln", "OFF", {"c;MW1;RW"}}});
  Start();
  EXPECT_EQ(Status("Press/a"), "Good");
  EXPECT_EQ(Status("Kiln/c"), "BadNotConnected");
  EXPECT_EQ(client->Write("Kiln/c", kWord, {1}), "BadNotConnected");
  Start({"--all-good"});
  EXPECT_EQ(Status("Kiln/c"), "Good");
  EXPECT_EQ(client->Write("Kiln/c", kWord, {1}), "Good");
}

TEST_F(tavrin_sim_Test, AnswersNamesInAnyCaseUnlessCaseCounts) {
  WriteProject({{"Press", "ON", {"St\xF6rung;MW1;RW"}}});
  Start();
  EXPECT_EQ(Status("Press/St\xC3\xB6rung"), "Good");
  EXPECT_EQ(Status("PRESS/st\xC3\x96RUNG"), "Good");
  EXPECT_EQ(client->Write("press/ST\xC3\x96RUNG", kWord, {5}), "Good");
  EXPECT_THAT(Value("Press/St\xC3\xB6rung"), ElementsAre(5));
  client->Subscribe({"PRESS/ST\xC3\x96RUNG"});
  EXPECT_TRUE(client->WaitUntil([this] { return !client->Told("PRESS/ST\xC3\x96RUNG").empty(); }));
  WriteProject({{"Press", "ON", {"St\xF6rung;MW1;RW"}}}, "1");
  Start();
  EXPECT_EQ(Status("Press/St\xC3\xB6rung"), "Good");
  EXPECT_EQ(Status("PRESS/ST\xC3\x96RUNG"), "BadNodeIdUnknown");
}

TEST_F(tavrin_sim_Test, PublishesUpperCaseWhereTheProjectSavesIt) {
  WriteProject({{"Press", "ON", {"Speed;MW1;RW"}}}, "1", "1");
  Start();
  EXPECT_EQ(Status("Press/SPEED"), "Good");
  EXPECT_EQ(Status("Press/Speed"), "BadNodeIdUnknown");
}

TEST_F(tavrin_sim_Test, PublishesHostileNames) {
  const std::vector<std::pair<std::string, std::string>> names{{"increment.UI2 array", "increment.UI2 array"},
                                                               {"a/b", "a/b"},
                                                               {"\"'<&>", "\"'<&>"},
                                                               {"\x80 \xDF", "\xE2\x82\xAC \xC3\x9F"},
                                                               {"%s%n", "%s%n"},
                                                               {"ns=2", "ns=2"},
                                                               {"\x01x", "\x01x"},
                                                               {"\x81", "\xC2\x81"}};
  std::vector<std::string> tags;
  tags.reserve(names.size());
  for (const auto& [bytes, utf8] : names) tags.push_back(bytes + ";MW1;RW");
  WriteProject({{"Dev 1", "ON", tags}});
  Start();
  EXPECT_THAT(ready, StartsWith("tavrin-sim: " + std::to_string(names.size()) + " items"));
  for (const auto& [bytes, utf8] : names) EXPECT_EQ(Status("Dev 1/" + utf8), "Good") << utf8;
  EXPECT_EQ(Status("Dev 1/\xFF\xFE"), "BadNodeIdUnknown") << "no UTF-8";
  EXPECT_EQ(Status("Dev 1/"), "BadNodeIdUnknown");
  EXPECT_EQ(Status(""), "BadNodeIdUnknown");
}

// ---- values ----

TEST_F(tavrin_sim_Test, TellsMovingValuesWithTheTimeOfTheirStep) {
  WriteProject({{"Press", "ON", {"a;MW1;RO"}}});
  Start();
  client->Subscribe({"Press/a"});
  ASSERT_TRUE(client->WaitUntil([this] { return client->Told("Press/a").size() >= 5; }));
  const std::vector<ItemReply>& told = client->Told("Press/a");
  for (std::size_t i = 1; i < 5; ++i) {
    EXPECT_NE(told[i].values, told[i - 1].values);
    EXPECT_GT(told[i].since, told[i - 1].since);
    EXPECT_EQ(told[i].since % 20, 0);
  }
}

TEST_F(tavrin_sim_Test, EchoesAWriteToThoseWhoWatch) {
  WriteProject({{"Press", "ON", {"a;MW1;RW"}}});
  Start();
  client->Subscribe({"Press/a"});
  EXPECT_EQ(client->Write("Press/a", kWord, {4711}), "Good");
  EXPECT_TRUE(client->WaitUntil([this] { return client->LastTold("Press/a").values == Values{4711}; }));
  EXPECT_THAT(Value("Press/a"), ElementsAre(4711));
}

TEST_F(tavrin_sim_Test, RefusesWritesForTheirReason) {
  WriteProject({{"Press", "ON", {"ro;MW1;RO", "rw;MW1;RW;LB=1;UB=10", "array;MW1;RW;TST=1|2"}}});
  Start();
  EXPECT_FALSE(client->IsWritable("Press/ro"));
  EXPECT_TRUE(client->IsWritable("Press/rw"));
  EXPECT_EQ(client->Write("Press/ro", kWord, {5}), "BadNotWritable");
  EXPECT_EQ(client->Write("Press/rw", kWord, {11}), "BadOutOfRange");
  EXPECT_EQ(client->Write("Press/rw", {ValueKind::Double}, {5}), "BadTypeMismatch");
  EXPECT_EQ(client->Write("Press/rw", {ValueKind::UInt16, 2}, {5, 5}), "BadTypeMismatch");
  EXPECT_EQ(client->Write("Press/array", {ValueKind::UInt16, 3}, {5, 5, 5}), "BadTypeMismatch");
  EXPECT_EQ(client->Write("Press/array", {ValueKind::UInt16, 2}, {5, 6}), "Good");
  EXPECT_EQ(client->Write("Press/none", kWord, {5}), "BadNodeIdUnknown");
}

TEST_F(tavrin_sim_Test, GivesElementsOfAnArray) {
  WriteProject({{"Press", "ON", {"array;MW1;RW;TST=1|2|3"}}});
  Start();
  EXPECT_EQ(client->Write("Press/array", {ValueKind::UInt16, 3}, {5, 6, 7}), "Good");
  EXPECT_THAT(client->Read("Press/array", "1:2").values, ElementsAre(6, 7));
  EXPECT_EQ(client->Read("Press/array", "7").status, "BadIndexRangeNoData");
}

TEST_F(tavrin_sim_Test, LetsNobodyRemoveANode) {
  WriteProject({{"Press", "ON", {"a;MW1;RW"}}});
  Start();
  EXPECT_EQ(client->Delete("Press/a"), "BadUserAccessDenied");
  EXPECT_EQ(Status("Press/a"), "Good");
}

TEST_F(tavrin_sim_Test, PlaysThePartnerOfATestRun) {
  WriteProject({{"Press",
                 "OFF",
                 {"COMMAND;MW0;RW", "RESULT;MW2;RO", "RESULTARRAY;MB4;RO", "a;MW6;RW;TST=7", "b;MW8;RW;TST=1|2",
                  "c;MD10;RW;TST=0.1"}}});
  Start();
  EXPECT_EQ(Status("Press/a"), "BadNotConnected");
  EXPECT_EQ(client->Write("Press/COMMAND", kWord, {1}), "Good");
  EXPECT_EQ(Status("Press/a"), "Good");
  EXPECT_EQ(client->Write("Press/RESULT", kWord, {0}), "Good") << "the test run writes to every tag";
  EXPECT_EQ(client->Write("Press/a", kWord, {7}), "Good");
  EXPECT_EQ(client->Write("Press/b", {ValueKind::UInt16, 2}, {1, 3}), "Good");
  EXPECT_EQ(client->Write("Press/c", {ValueKind::Single}, {0.1F}), "Good");
  EXPECT_EQ(client->Write("Press/COMMAND", kWord, {2}), "Good");
  EXPECT_THAT(Value("Press/RESULT"), ElementsAre(1));
  EXPECT_THAT(Value("Press/RESULTARRAY"), ElementsAre(0, 1, 0));
  EXPECT_EQ(client->Write("Press/COMMAND", kWord, {0}), "Good");
  EXPECT_THAT(Value("Press/RESULT"), ElementsAre(0));
  EXPECT_EQ(Status("Press/a"), "BadNotConnected");
}

// ---- signals ----

TEST_F(tavrin_sim_Test, ReadsTheProjectAgainOnSIGHUPWithItsClientsConnected) {
  WriteProject({{"Press", "ON", {"stays;MW1;RW", "goes;MW2;RW", "changes;MW3;RW"}}});
  Start();
  client->Subscribe({"Press/stays", "Press/goes"});
  EXPECT_EQ(client->Write("Press/stays", kWord, {42}), "Good");
  WriteProject({{"Press", "ON", {"stays;MW1;RW", "changes;M3.0;RO", "comes;MW2;RW"}}, {"Kiln", "ON", {"new;MW1;RW"}}});
  Reload();
  EXPECT_THAT(ready, StartsWith("tavrin-sim: 4 items at opc.tcp://127.0.0.1:"));
  EXPECT_THAT(Value("Press/stays"), ElementsAre(42));
  EXPECT_EQ(Status("Press/goes"), "BadNodeIdUnknown");
  EXPECT_EQ(client->Read("Press/changes").type, "Boolean");
  EXPECT_EQ(Status("Press/comes"), "Good");
  EXPECT_EQ(Status("Kiln/new"), "Good");
  EXPECT_THAT(Ids(client->Browse("Press")),
              testing::UnorderedElementsAre("Press/stays", "Press/changes", "Press/comes"));
  EXPECT_TRUE(client->WaitUntil([this] { return client->LastTold("Press/goes").status == "BadNodeIdUnknown"; }));
  EXPECT_EQ(client->Write("Press/stays", kWord, {43}), "Good");
  EXPECT_TRUE(client->WaitUntil([this] { return client->LastTold("Press/stays").values == Values{43}; }));
}

TEST_F(tavrin_sim_Test, KeepsWhatItHasWhenTheProjectCannotBeReadAgain) {
  WriteProject({{"Press", "ON", {"a;MW1;RW"}}});
  Start();
  std::rename(ProjectFile().c_str(), (ProjectFile() + ".away").c_str());
  sim->Signal(SIGHUP);
  client->Subscribe({"Press/a"});
  EXPECT_TRUE(client->WaitUntil([this] { return client->Told("Press/a").size() > 20; }));  // 400 ms later
  EXPECT_EQ(Status("Press/a"), "Good");
  EXPECT_EQ(End(), 0);
  EXPECT_THAT(sim->Problems(), HasSubstr("there is no such file"));
}

TEST_F(tavrin_sim_Test, EndsCleanlyOnSIGTERMAndSIGINT) {
  WriteProject({{"Press", "ON", {"a;MW1;RW"}}});
  for (const int signal : {SIGTERM, SIGINT}) {
    Start();
    client->Subscribe({"Press/a"});
    EXPECT_EQ(End(signal), 0);
    EXPECT_THAT(sim->Problems(), IsEmpty());
  }
}

TEST_F(tavrin_sim_Test, CanBeStartedAgainAtOnceAtItsPort) {
  WriteProject({{"Press", "ON", {"a;MW1;RW"}}});
  Start();
  const std::string port = ready.substr(ready.rfind(':') + 1);
  client->Subscribe({"Press/a"});
  EXPECT_EQ(End(), 0);
  Start({"--port", port});
  EXPECT_THAT(ready, EndsWith(":" + port));
  EXPECT_EQ(Status("Press/a"), "Good");
}

// ---- what keeps it from beginning, and what it complains of ----

class tavrin_sim_NotBegun : public SimProjectTest {
 protected:
  /// Its complaint; the exit status must be 2.
  static std::string Complaint(const std::string& project, const std::vector<std::string>& arguments = {}) {
    SimProcess sim(project, arguments);
    EXPECT_EQ(sim.NextLine(), "");
    EXPECT_EQ(sim.Wait(), 2);
    return sim.Problems();
  }
};

TEST_F(tavrin_sim_NotBegun, WithoutAProjectFile) {
  EXPECT_EQ(Complaint(directory.Path() + "none.ini"),
            "tavrin-sim: " + directory.Path() + "none.ini: there is no such file\n");
  EXPECT_EQ(Complaint(directory.Path()),
            "tavrin-sim: " + directory.Path() + ": this is a directory, a project file is wanted\n");
  EXPECT_THAT(Complaint("\xE2\x98\x83.ini"), HasSubstr("the code page"));
}

TEST_F(tavrin_sim_NotBegun, AtAPortThatIsInUse) {
  WriteProject({});
  SimProcess first(ProjectFile());
  const std::string url = SimProcess::UrlOf(first.NextLine());
  EXPECT_EQ(Complaint(ProjectFile(), {"--port", url.substr(url.rfind(':') + 1)}),
            "tavrin-sim: cannot listen at " + url + ": another program does\n");
}

TEST_F(tavrin_sim_NotBegun, AtAnAddressThatTheMachineDoesNotHave) {
  WriteProject({});
  EXPECT_THAT(Complaint(ProjectFile(), {"--listen", "192.0.2.1"}),
              StartsWith("tavrin-sim: cannot listen at opc.tcp://192.0.2.1:0 ("));
  EXPECT_THAT(Complaint(ProjectFile(), {"--listen", "no address"}),
              StartsWith("tavrin-sim: cannot listen at opc.tcp://no address:0 ("));
}

TEST_F(tavrin_sim_NotBegun, WithArgumentsThatItDoesNotKnow) {
  WriteProject({});
  EXPECT_THAT(Complaint(ProjectFile(), {"--port", "80000"}), HasSubstr("--port"));
  EXPECT_THAT(Complaint(ProjectFile(), {"--interval", "1"}), HasSubstr("--interval"));
  EXPECT_THAT(Complaint(ProjectFile(), {"--colour"}), HasSubstr("--colour"));
}

TEST_F(tavrin_sim_Test, TellsWarningsAndWhatItDoesNotPublish) {
  WriteProject({{"Press", "MAYBE", {"a;MW1;RW", "A;MW2;RW", "b;;RW"}}});
  Start();
  EXPECT_THAT(ready, StartsWith("tavrin-sim: 2 items"));
  EXPECT_EQ(End(), 0);
  const std::string problems = sim->Problems();
  EXPECT_THAT(problems,
              HasSubstr("tavrin-sim: warning:\tDevice\tHall.ini\tMissing or invalid entry Simulation (MAYBE)"));
  EXPECT_THAT(problems, HasSubstr("tavrin-sim: not published, it has no name or that of another:\tPress/A\n"));
}

TEST_F(tavrin_sim_Test, ListensAtOneAddressUnlessToldOtherwise) {
  WriteProject({{"Press", "ON", {"a;MW1;RW"}}});
  const auto atAnotherAddress = [this] { return "opc.tcp://127.0.0.2" + ready.substr(ready.rfind(':')); };
  Start();
  EXPECT_FALSE(SimClient::Reaches(atAnotherAddress()));
  Start({"--listen", "0.0.0.0"});
  EXPECT_THAT(ready, HasSubstr("opc.tcp://0.0.0.0:"));
  EXPECT_TRUE(SimClient::Reaches(atAnotherAddress()));
}

TEST_F(tavrin_sim_Test, TellsAWaitingServiceManagerThatItIsReady) {
  WriteProject({{"Press", "ON", {"a;MW1;RW"}}});
  const NotifySocket manager(directory.Path() + "notify");
  Start();
  EXPECT_EQ(manager.Next(), "READY=1");
}

// ---- size ----

TEST_F(tavrin_sim_Test, ServesFiftyThousandTags) {
  std::vector<std::string> tags;
  tags.reserve(50'000);
  for (int i = 0; i < 50'000; ++i) tags.push_back("Tag_" + std::to_string(i) + ";MW" + std::to_string(i) + ";RW");
  WriteProject({{"Press", "ON", tags}});
  Start();
  EXPECT_THAT(ready, StartsWith("tavrin-sim: 50000 items"));
  EXPECT_EQ(Status("press/TAG_49999"), "Good");
  EXPECT_EQ(client->Browse("Press").size(), 50'000U);
  tags.erase(tags.begin(), tags.begin() + 25'000);
  WriteProject({{"Press", "ON", tags}});
  Reload();
  EXPECT_THAT(ready, StartsWith("tavrin-sim: 25000 items"));
  EXPECT_EQ(Status("Press/Tag_0"), "BadNodeIdUnknown");
  EXPECT_EQ(Status("Press/Tag_49999"), "Good");
}

}  // namespace
}  // namespace tavrin
