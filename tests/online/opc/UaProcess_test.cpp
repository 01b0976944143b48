// The client against tavrin-sim as a process of its own, which is killed and frozen as a machine or a network would.
#include <csignal>
#include <filesystem>

#include "online/opc/OpcClientTest.h"
#include "sim/SimProcess.h"

namespace tavrin {
namespace {

class UaProcessTest : public OpcClientTest {
 protected:
  UaProcessTest() {
    Start("0");
    directory.Write("Tavrin.INI", "[Servers]\r\nPlant=" + url + "\r\n");
    control.ControlItems().AddItem(kWord);
    control.ControlItems().AddItem(kOther);
    control.ServerProgID("Plant");
    control.ControlConnect();
  }

  void Start(const std::string& port) {
    server = std::make_unique<SimProcess>(TAVRIN_SOURCE_DIR "/samples/plant/ZOPCSRV.ini",
                                          std::vector<std::string>{"--all-good", "--interval", "50", "--port", port});
    url = SimProcess::UrlOf(server->NextLine());
  }
  [[nodiscard]] std::string Port() const { return url.substr(url.rfind(':') + 1); }

  /// Both items have been told with a quality since the last call.
  bool UntilBoth(int quality, int milliseconds) {
    changes.clear();
    return Until(
        [&] {
          return changes[kWord] > 0 && changes[kOther] > 0 && Item(kWord).ItemQuality() == quality &&
                 Item(kOther).ItemQuality() == quality;
        },
        milliseconds);
  }

  static constexpr const char* kWord = "Pruefplatz/Wort_1";
  static constexpr const char* kOther = "Pruefplatz/Wort_2";
  static constexpr int kNoticed = 5'000;   // milliseconds
  static constexpr int kTakenUp = 20'000;  // with the longest pause between two attempts

  std::unique_ptr<SimProcess> server;
  std::string url;
};

TEST_F(UaProcessTest, AServerThatIsKilledTurnsBadAndGoodAgainWithTheNextOneAtItsPort) {
  ASSERT_TRUE(UntilBoth(kGood, kNoticed));
  server->Signal(SIGKILL);
  EXPECT_EQ(server->Wait(), -1);
  ASSERT_TRUE(UntilBoth(kBadNotConnected, kNoticed));
  const Variant last = Item(kWord).ItemValue();
  RunFor(500);
  EXPECT_EQ(Item(kWord).ItemValue(), last);
  const std::string before = url;
  Start(Port());
  ASSERT_EQ(url, before);
  ASSERT_TRUE(UntilBoth(kGood, kTakenUp));
  EXPECT_TRUE(UntilBoth(kGood, kNoticed)) << "and they go on moving";
}

TEST_F(UaProcessTest, AServerThatStandsStillTurnsBadAndGoodAgainWhenItGoesOn) {
  ASSERT_TRUE(UntilBoth(kGood, kNoticed));
  server->Signal(SIGSTOP);
  ASSERT_TRUE(UntilBoth(kBadNotConnected, kNoticed));
  server->Signal(SIGCONT);
  ASSERT_TRUE(UntilBoth(kGood, kTakenUp));
  EXPECT_TRUE(UntilBoth(kGood, kNoticed)) << "and they go on moving";
}

TEST_F(UaProcessTest, TheEndDoesNotWaitForAServerThatStandsStill) {
  ASSERT_TRUE(UntilBoth(kGood, kNoticed));
  server->Signal(SIGSTOP);
  EXPECT_LT(SecondsOf([this] {
              control.ControlDisconnect();
              servers.reset();
            }),
            1.0);
}

TEST_F(UaProcessTest, TheEndDoesNotWaitForAServerThatIsBeingConnectedToAnew) {
  ASSERT_TRUE(UntilBoth(kGood, kNoticed));
  server->Signal(SIGSTOP);
  ASSERT_TRUE(UntilBoth(kBadNotConnected, kNoticed));
  RunFor(400);  // into the next attempt
  EXPECT_LT(SecondsOf([this] {
              control.ControlDisconnect();
              servers.reset();
            }),
            1.0);
}

}  // namespace
}  // namespace tavrin
