#include <algorithm>
#include <atomic>
#include <memory>
#include <new>
#include <thread>
#include <utility>

#include <open62541/server_config_default.h>
#include <pthread.h>

#include "online/opc/UaClientTest.h"
#include "online/opc/ua/Client.h"
#include "online/opc/ua/Worker.h"

namespace tavrin {
namespace {

class UaFailuresTest : public UaClientTest {
 protected:
  void ConnectToWord() {
    AddWord("a", 1);
    Connect("Plant", {"a", "unknown"});
    ASSERT_TRUE(UntilQuality("a", kGood));
  }
  void Restart() {
    server.Start();
    AddWord("a", 2);
  }
};

TEST_F(UaFailuresTest, AServerThatIsAwayIsAnErrorWithinSeconds) {
  server.Stop();
  EXPECT_LT(SecondsOf([this] { EXPECT_EQ(ErrorOf([this] { Connect("Plant", {"a"}); }), 5); }), 3.5);
  server.Start();
  RunFor(500);
  EXPECT_EQ(deliveries, 0) << "it is not tried again";
}

TEST_F(UaFailuresTest, AServerThatDoesNotAnswerIsAnErrorWithinSeconds) {
  server.Freeze(true);
  EXPECT_LT(SecondsOf([this] { EXPECT_EQ(ErrorOf([this] { Connect("Plant", {"a"}); }), 5); }), 3.5);
  EXPECT_LT(SecondsOf([this] { servers.reset(); }), 1.0);
}

TEST_F(UaFailuresTest, WindowsArePaintedWhileConnecting) {
  server.Freeze(true);
  int painted = 0;
  std::atomic<bool> over = false;
  std::thread painter([&] {
    while (!over) {
      desktop.Post([&painted] { ++painted; });
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
  });
  EXPECT_EQ(ErrorOf([this] { Connect("Plant", {"a"}); }), 5);
  over = true;
  painter.join();
  EXPECT_GT(painted, 50);
}

TEST_F(UaFailuresTest, LostConnectionIsToldOnceAndTakenUpAgain) {
  ConnectToWord();
  server.Stop();
  ASSERT_TRUE(UntilQuality("a", kBadNotConnected, 1000));
  ASSERT_TRUE(UntilQuality("unknown", kBadNotConnected));
  EXPECT_EQ(Item("a").ItemValue(), Word(1)) << "the last value stays";
  const int before = changes["a"];
  RunFor(700);
  EXPECT_EQ(changes["a"], before);
  EXPECT_EQ(ErrorOf([this] { Write("a", Variant::OfText("5")); }), 5);
  Restart();
  ASSERT_TRUE(UntilQuality("a", kGood, 5000));
  EXPECT_EQ(Item("a").ItemValue(), Word(2));
  EXPECT_TRUE(UntilQuality("unknown", kBadConfiguration));
  Write("a", Variant::OfText("5"));
  EXPECT_EQ(server.Get<UA_UInt16>("a"), 5);
}

TEST_F(UaFailuresTest, FrozenServerIsNoticedAndTakenUpAgain) {
  ConnectToWord();
  server.Freeze(true);
  ASSERT_TRUE(UntilQuality("a", kBadNotConnected, 4000));
  server.Freeze(false);
  EXPECT_TRUE(UntilQuality("a", kGood, 9000));
}

TEST_F(UaFailuresTest, AValueThatAFrozenServerDoesNotTakeIsAnErrorWithinSeconds) {
  ConnectToWord();
  server.Freeze(true);
  EXPECT_LT(SecondsOf([this] { EXPECT_EQ(ErrorOf([this] { Write("a", Variant::OfText("2")); }), 5); }), 3.5);
}

TEST_F(UaFailuresTest, ConnectionsEndAtOnceInAnyState) {
  ConnectToWord();
  EXPECT_LT(SecondsOf([this] { control.ControlDisconnect(); }), 0.1) << "while all is well";
  control.ControlConnect();
  server.Freeze(true);
  EXPECT_LT(SecondsOf([this] { control.ControlDisconnect(); }), 0.1) << "frozen";
  server.Freeze(false);
  control.ControlConnect();
  server.Stop();
  ASSERT_TRUE(UntilQuality("a", kBadNotConnected));
  EXPECT_LT(SecondsOf([this] { control.ControlDisconnect(); }), 0.1) << "lost";
  EXPECT_LT(SecondsOf([this] { servers.reset(); }), 1.0);
}

TEST_F(UaFailuresTest, AWorkerIsGoneBeforeTheEndOfTheProgramAlsoWhenItsServerIsFrozen) {
  AddWord("a", 1);
  const ServerEntry entry = *FindServer(files, configuration, "Plant");
  const auto exchange = std::make_shared<ua::Exchange>();
  const auto delivery = std::make_shared<Delivery>(desktop, std::vector<std::string>{"a"}, [](const auto&) {});
  const auto crew = std::make_shared<ua::Crew>();
  ua::StartWorker(entry, exchange, delivery, crew);
  ASSERT_TRUE(Until([&] { return exchange->Now() == ua::Exchange::State::Connected; }));
  server.Freeze(true);
  RunFor(50);
  exchange->Stop();
  EXPECT_TRUE(crew->WaitForAll(ua::kFarewellTime + std::chrono::milliseconds(200)));
}

/// For as long as it lives, no thread can be had: each would get a stack that no memory can hold.
class NoThreads {
 public:
  NoThreads() {
    pthread_getattr_default_np(&before_);
    pthread_attr_t huge;
    pthread_attr_init(&huge);
    pthread_attr_setstacksize(&huge, std::size_t{1} << 50U);
    pthread_setattr_default_np(&huge);
    pthread_attr_destroy(&huge);
  }
  NoThreads(const NoThreads&) = delete;
  NoThreads& operator=(const NoThreads&) = delete;
  ~NoThreads() {
    pthread_setattr_default_np(&before_);
    pthread_attr_destroy(&before_);
  }

 private:
  pthread_attr_t before_{};
};

TEST_F(UaFailuresTest, WithoutAThreadThereIsNoConnection) {
  AddWord("a", 1);
  {
    const NoThreads none;
    EXPECT_EQ(ErrorOf([this] { Connect("Plant", {"a"}); }), 5);
  }
  control.ControlConnect();
  EXPECT_TRUE(UntilQuality("a", kGood));
  control.ControlDisconnect();
  EXPECT_LT(SecondsOf([this] { servers.reset(); }), 0.4) << "nobody is waited for who never began";
}

/// A desktop that can run out of memory for what is posted to it.
class FullDesktop : public HeadlessDesktop {
 public:
  void Post(std::function<void()> action) override {
    if (full_) {
      ++refused_;
      throw std::bad_alloc();
    }
    HeadlessDesktop::Post(std::move(action));
  }
  void Fill(bool full) { full_ = full; }
  [[nodiscard]] int Refused() const { return refused_; }

 private:
  std::atomic<bool> full_ = false;
  std::atomic<int> refused_ = 0;
};

TEST_F(UaFailuresTest, ADeliveryThatFailsCostsTheConnectionOnlyForATime) {
  AddWord("a", 1);
  FullDesktop full;
  const auto ownServers = MakeOpcServers(full, files, configuration);
  OPCDataControl own(ownServers.get());
  OPCItem& item = own.ControlItems().AddItem("a");
  own.ServerProgID("Plant");
  own.ControlConnect();
  ASSERT_TRUE(full.WaitUntil([&] { return item.ItemValue() == Word(1); }, 4000));
  full.Fill(true);
  SetWord("a", 2);
  for (int round = 0; full.Refused() == 0 && round < 400; ++round)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  EXPECT_GT(full.Refused(), 0);
  full.Fill(false);
  EXPECT_TRUE(full.WaitUntil([&] { return item.ItemValue() == Word(2); }, 9000));
  SetWord("a", 3);
  EXPECT_TRUE(full.WaitUntil([&] { return item.ItemValue() == Word(3); }, 4000));
}

TEST_F(UaFailuresTest, NothingIsToldBehindTheEndOfAConnection) {
  ConnectToWord();
  SetWord("a", 2);
  control.ControlDisconnect();
  const int before = deliveries;
  RunFor(300);
  EXPECT_EQ(deliveries, before);
}

TEST_F(UaFailuresTest, ServerIsToldOfTheEnd) {
  ConnectToWord();
  control.ControlDisconnect();
  std::size_t sessions = 1;
  const auto count = [&](UA_Server* running) { sessions = UA_Server_getStatistics(running).ss.currentSessionCount; };
  EXPECT_TRUE(Until([&] {
    server.Do(count);
    desktop.Post([] {});
    return sessions == 0;
  }));
}

TEST_F(UaFailuresTest, AChangeMayEndItsConnection) {
  AddWord("a", 1);
  control.OnDataChanged = [this](const std::vector<OPCItem*>&) {
    ++deliveries;
    control.ControlDisconnect();
  };
  Connect("Plant", {"a"});
  ASSERT_TRUE(Until([this] { return deliveries > 0; }));
  SetWord("a", 2);
  RunFor(300);
  EXPECT_EQ(deliveries, 1);
}

TEST_F(UaFailuresTest, NodeThatIsTakenAwayTurnsBad) {
  ConnectToWord();
  server.Remove("a");
  EXPECT_TRUE(UntilQuality("a", kBadConfiguration));
}

TEST_F(UaFailuresTest, AFloodLeavesTheWindowItsTime) {
  constexpr int kItems = 200;
  std::vector<std::string> names;
  for (int i = 0; i < kItems; ++i) {
    names.push_back("T" + std::to_string(i));
    AddWord(names.back(), 0);
  }
  Connect("Plant", names);
  ASSERT_TRUE(Until([this] { return changes.size() == kItems; }));
  std::atomic<bool> over = false;
  std::thread flood([&] {
    for (UA_UInt16 round = 1; !over; ++round) {
      server.Do([&](UA_Server* running) {  // all items change every 20 ms: 10,000 changes a second
        for (const std::string& name : names) {
          UA_Variant value;
          UA_Variant_setScalar(&value, &round, &UA_TYPES[UA_TYPES_UINT16]);
          UA_Server_writeValue(running, UA_NODEID_STRING(2, const_cast<char*>(name.c_str())), value);
        }
      });
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
  });
  const int before = deliveries;
  double longest = 0;
  for (int i = 0; i < 20; ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    longest = std::max(longest, SecondsOf([this] { desktop.DoEvents(); }));
  }
  over = true;
  flood.join();
  EXPECT_GT(deliveries, before + 3);
  EXPECT_LE(deliveries, before + 20) << "at most one for each look";
  EXPECT_LT(longest, 0.1);
}

class UaLimitsTest : public UaClientTest {
 protected:
  UaLimitsTest()
      : UaClientTest([](UA_ServerConfig& config, std::uint16_t port) {
          UA_ServerConfig_setMinimalCustomBuffer(&config, port, nullptr, 0, 0);
          config.maxMonitoredItemsPerCall = 100;
        }) {}
};

TEST_F(UaLimitsTest, ItemsComeInSmallerGroupsWhereTheServerWantsIt) {
  std::vector<std::string> names;
  for (int i = 0; i < 700; ++i) {
    names.push_back("T" + std::to_string(i));
    AddWord(names.back(), 1);
  }
  Connect("Plant", names);
  EXPECT_TRUE(Until([this] { return changes.size() == 700; }));
}

}  // namespace
}  // namespace tavrin
