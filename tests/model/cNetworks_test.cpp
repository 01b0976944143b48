#include "model/cNetworks.h"

#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/ErrorOf.h"
#include "platform/RuntimeError.h"
#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class cNetworksTest : public ProjectTest {
 protected:
  void Add(std::string_view name) {
    auto network = std::make_unique<cNetwork>();
    network->szNetworkName(name);
    network->bDataDirty(false);
    networks.AddItem(std::move(network));
  }
  [[nodiscard]] std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const cNetwork& network : networks) names.push_back(network.szNetworkName());
    return names;
  }

  cNetworks networks;
};

TEST_F(cNetworksTest, TheFirstNetworkGetsTheNumber1AndTheKeyOfIt) {
  EXPECT_EQ(networks.Count(), 0);
  Add("a");
  ASSERT_NE(networks.Network("#1"), nullptr);
  EXPECT_EQ(networks.Network("#1")->nID(), 1);
  EXPECT_EQ(networks.Network(1), networks.Network("#1"));
  EXPECT_EQ(networks.Count(), 1);
}

TEST_F(cNetworksTest, AddingDoesNotMarkTheNetworkDirty) {
  Add("a");
  EXPECT_FALSE(networks.Network(1)->bDataDirty());
}

TEST_F(cNetworksTest, NetworksStandInTheOrderOfAdding) {
  for (const char* name : {"b", "a", "c", "a"}) Add(name);
  EXPECT_THAT(Names(), ElementsAre("b", "a", "c", "a"));
  for (std::int32_t i = 1; i <= 4; ++i) EXPECT_EQ(networks.Network(i)->nID(), i);
}

TEST_F(cNetworksTest, AnUnknownPositionOrKeyGivesNoObjectAndNoMessage) {
  Add("a");
  for (const std::int32_t position : {0, 2, -1}) EXPECT_EQ(networks.Network(position), nullptr) << position;
  for (const char* key : {"", "#", "1", "#2", "#01", "# 1", "#1 ", "a"})
    EXPECT_EQ(networks.Network(key), nullptr) << key;
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(cNetworksTest, RemoveTakesPositionOrKeyAndClosesTheGap) {
  for (const char* name : {"a", "b", "c"}) Add(name);
  networks.Remove(1);
  EXPECT_THAT(Names(), ElementsAre("b", "c"));
  EXPECT_EQ(networks.Network(1)->nID(), 2);  // positions move up, numbers and keys stay
  EXPECT_EQ(networks.Network("#1"), nullptr);
  networks.Remove("#3");
  EXPECT_THAT(Names(), ElementsAre("b"));
}

TEST_F(cNetworksTest, RemoveOfAnUnknownOneRaisesTheErrorOfTheCollection) {
  Add("a");
  EXPECT_EQ(ErrorOf([&] { networks.Remove(2); }), ErrorNumber::SubscriptOutOfRange);
  EXPECT_EQ(ErrorOf([&] { networks.Remove(0); }), ErrorNumber::SubscriptOutOfRange);
  EXPECT_EQ(ErrorOf([&] { networks.Remove("#2"); }), ErrorNumber::InvalidCall);
  EXPECT_EQ(networks.Count(), 1);
}

TEST_F(cNetworksTest, ANumberFreedAtTheTopIsGivenAgain) {
  for (const char* name : {"a", "b", "c"}) Add(name);
  networks.Remove("#3");
  Add("d");
  EXPECT_EQ(networks.Network(3)->nID(), 3);
  EXPECT_EQ(networks.Network("#3")->szNetworkName(), "d");
}

TEST_F(cNetworksTest, ANumberFreedBelowTheTopIsNotGivenAgain) {
  for (const char* name : {"a", "b", "c"}) Add(name);
  networks.Remove("#1");
  Add("d");
  EXPECT_EQ(networks.Network(3)->nID(), 4);
}

TEST_F(cNetworksTest, NumbersStartAgainInAnEmptiedCollection) {
  for (const char* name : {"a", "b"}) Add(name);
  networks.Remove(2);
  networks.Remove(1);
  Add("c");
  EXPECT_EQ(networks.Network(1)->nID(), 1);
}

TEST_F(cNetworksTest, TheNewNumberFollowsTheNumbersAsTheyAreNow) {
  Add("a");
  networks.Network(1)->nID(40);
  Add("b");
  EXPECT_EQ(networks.Network(2)->nID(), 41);
  EXPECT_EQ(networks.Network("#41")->szNetworkName(), "b");
  EXPECT_EQ(networks.Network("#1")->szNetworkName(), "a");  // the key is given once
}

TEST_F(cNetworksTest, AKeyInUseIsToldByTheTrapOfAddItem) {
  Add("a");
  networks.Network(1)->nID(0);
  Add("b");
  EXPECT_THAT(Boxes(), ElementsAre("#199 457 #200 cNetworks.AddItem : This key is already associated with an element "
                                   "of this collection"));
  EXPECT_THAT(Names(), ElementsAre("a"));
}

TEST_F(cNetworksTest, ANumberThatDoesNotFitIsToldByTheTrapOfGenerateNewKey) {
  Add("a");
  networks.Network(1)->nID(std::numeric_limits<std::int32_t>::max());
  Add("b");
  const std::vector<std::string> boxes = Boxes();
  ASSERT_FALSE(boxes.empty());
  EXPECT_EQ(boxes.front(), "#199 6 #200 cNetworks.GenerateNewKey : Overflow");
}

TEST_F(cNetworksTest, RefreshLoadsEachInOrderAndGoesOnBehindAFailure) {
  for (const char* name : {"b", "a"}) Add(name);
  networks.Refresh();
  EXPECT_THAT(ReadWarnings(), ElementsAre(StartsWith("Network|b|#201 "), StartsWith("Network|a|#201 ")));
}

}  // namespace
}  // namespace tavrin
