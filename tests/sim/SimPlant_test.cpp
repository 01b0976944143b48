#include "sim/SimPlant.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Moment kInterval = 100;
constexpr Moment kStart = 1'000'000;

ItemDefinition Word(const std::string& tag, bool writable = true, const std::string& test = {}) {
  ItemDefinition item;
  item.tag = tag;
  item.test = test;
  item.type = {ValueKind::UInt16};
  item.bounds = {0, 10};
  item.writable = writable;
  return item;
}

ItemDefinition Reserved(const std::string& tag, ItemRole role, std::uint32_t count = 0) {
  ItemDefinition item = Word(tag);
  item.role = role;
  item.bounds = {};
  item.type.count = count;
  return item;
}

class SimPlantTest : public testing::Test {
 protected:
  PlantChanges Become(std::vector<DeviceDefinition> devices, bool caseSensitive = false) {
    return plant.Renew({caseSensitive, std::move(devices), {}}, now);
  }
  Reading Read(const std::string& name) {
    SimItem* const item = plant.Find(name);
    EXPECT_NE(item, nullptr) << name;
    return item == nullptr ? Reading{} : item->Device().Read(*item, now);
  }
  Values Value(const std::string& name) { return Read(name).values; }
  Taken Write(const std::string& name, const Values& values) {
    SimItem* const item = plant.Find(name);
    EXPECT_NE(item, nullptr) << name;
    return item->Device().Write(*item, values, now);
  }
  static std::vector<std::string> Names(const std::vector<SimItem*>& items) {
    std::vector<std::string> names;
    names.reserve(items.size());
    for (const SimItem* const item : items) names.push_back(item->Name());
    return names;
  }

  SimPlant plant{kInterval};
  Moment now = kStart;
};

// ---- values ----

TEST_F(SimPlantTest, ValuesOfAConnectedDeviceMoveWithTheInterval) {
  Become({{"Press", true, {Word("a")}}});
  const Reading first = Read("Press/a");
  now += kInterval - 1;
  EXPECT_EQ(Value("Press/a"), first.values);
  now += 1;
  const Reading second = Read("Press/a");
  EXPECT_NE(second.values, first.values);
  EXPECT_EQ(second.since, first.since + kInterval);
  EXPECT_TRUE(first.good && second.good);
}

TEST_F(SimPlantTest, ADeviceThatIsNotConnectedIsBadAndTakesNothing) {
  Become({{"Press", false, {Word("a")}}});
  const Reading reading = Read("Press/a");
  EXPECT_FALSE(reading.good);
  EXPECT_THAT(reading.values, IsEmpty());
  EXPECT_EQ(reading.since, kStart);
  EXPECT_EQ(Write("Press/a", {1}), Taken::NotConnected);
}

TEST_F(SimPlantTest, AWrittenValueStays) {
  Become({{"Press", true, {Word("a")}}});
  now += 7;
  EXPECT_EQ(Write("Press/a", {3}), Taken::Yes);
  now += 100 * kInterval;
  EXPECT_THAT(Value("Press/a"), ElementsAre(3));
  EXPECT_EQ(Read("Press/a").since, kStart + 7);
}

TEST_F(SimPlantTest, AWriteIsRefusedForItsReasonAndChangesNothing) {
  ItemDefinition array = Word("b");
  array.type.count = 2;
  Become({{"Press", true, {Word("a", false), array}}});
  EXPECT_EQ(Write("Press/a", {3}), Taken::NotWritable);
  EXPECT_EQ(Write("Press/b", {3}), Taken::WrongLength);
  EXPECT_EQ(Write("Press/b", {3, 11}), Taken::OutOfBounds);
  EXPECT_EQ(Write("Press/b", {3, 10}), Taken::Yes);
  EXPECT_EQ(Write("Press/b", {-1, 10}), Taken::OutOfBounds);
  EXPECT_THAT(Value("Press/b"), ElementsAre(3, 10));
}

TEST_F(SimPlantTest, AMoveWithinTheHysteresisIsNotTold) {
  ItemDefinition item = Word("a");
  item.bounds.hysteresisDown = 2.5;
  item.bounds.hysteresisUp = 2.5;
  Become({{"Press", true, {item}}});
  Values told;
  int changes = 0;
  for (int tick = 0; tick < 20; ++tick, now += kInterval) {  // the whole way up and down
    const Values value = Value("Press/a");
    if (!told.empty() && value != told) {
      ++changes;
      EXPECT_GT(std::abs(value[0] - told[0]), 2.5);
    }
    told = value;
  }
  EXPECT_GE(changes, 4);
  EXPECT_LE(changes, 8);
}

// ---- names ----

TEST_F(SimPlantTest, FindsNamesInAnyCaseOnlyWhereCaseDoesNotCount) {
  Become({{"Press", true, {Word("St\xF6rung")}}});
  EXPECT_NE(plant.Find("PRESS/ST\xD6RUNG"), nullptr);
  EXPECT_EQ(plant.Find("Press/Storung"), nullptr);
  Become({{"Press", true, {Word("St\xF6rung")}}}, true);
  EXPECT_EQ(plant.Find("PRESS/ST\xD6RUNG"), nullptr);
  EXPECT_NE(plant.Find("Press/St\xF6rung"), nullptr);
}

// ---- another project ----

TEST_F(SimPlantTest, FirstTellsEverythingAsAdded) {
  const PlantChanges changes = Become({{"Press", true, {Word("a"), Word("b")}}, {"Kiln", true, {}}});
  EXPECT_THAT(Names(changes.addedItems), ElementsAre("Press/a", "Press/b"));
  EXPECT_EQ(changes.addedDevices.size(), 2U);
  EXPECT_THAT(changes.removedItems, IsEmpty());
  EXPECT_THAT(changes.removedDevices, IsEmpty());
  EXPECT_EQ(plant.ItemCount(), 2U);
}

TEST_F(SimPlantTest, KeepsValuesOfItemsThatStayAsTheyAre) {
  Become({{"Press", true, {Word("a"), Word("b")}}});
  Write("Press/a", {3});
  Write("Press/b", {4});
  ItemDefinition other = Word("b");
  other.type.kind = ValueKind::Single;
  const PlantChanges changes = Become({{"Press", true, {Word("c"), Word("a"), other}}});
  EXPECT_THAT(Value("Press/a"), ElementsAre(3));
  EXPECT_NE(Read("Press/b").since, kStart + 1);
  EXPECT_THAT(changes.removedItems, ElementsAre("Press/b"));
  EXPECT_THAT(Names(changes.addedItems), ElementsAre("Press/c", "Press/b"));
  EXPECT_THAT(changes.addedDevices, IsEmpty());
}

TEST_F(SimPlantTest, TellsARemovedDeviceWithItsItems) {
  Become({{"Press", true, {Word("a")}}, {"Kiln", true, {Word("b")}}});
  const PlantChanges changes = Become({{"Kiln", true, {Word("b")}}});
  EXPECT_THAT(changes.removedItems, ElementsAre("Press/a"));
  EXPECT_THAT(changes.removedDevices, ElementsAre("Press"));
  EXPECT_EQ(plant.Find("Press/a"), nullptr);
  EXPECT_EQ(plant.ItemCount(), 1U);
}

TEST_F(SimPlantTest, TellsAnotherSpellingAsAnotherItem) {
  Become({{"Press", true, {Word("speed")}}});
  const PlantChanges changes = Become({{"Press", true, {Word("Speed")}}});
  EXPECT_THAT(changes.removedItems, ElementsAre("Press/speed"));
  EXPECT_THAT(Names(changes.addedItems), ElementsAre("Press/Speed"));
}

TEST_F(SimPlantTest, ADeviceThatIsNoLongerSimulatedTurnsBad) {
  Become({{"Press", true, {Word("a")}}});
  now += 5;
  const PlantChanges changes = Become({{"Press", false, {Word("a")}}});
  EXPECT_THAT(changes.addedItems, IsEmpty());
  EXPECT_FALSE(Read("Press/a").good);
  EXPECT_EQ(Read("Press/a").since, kStart + 5);
}

// ---- the partner of the test run ----

class TestPartnerTest : public SimPlantTest {
 protected:
  std::vector<ItemDefinition> Tags() {
    return {Word("a", true, "7"),
            Reserved("COMMAND", ItemRole::Command),
            Reserved("RESULT", ItemRole::Result),
            Word("b"),
            Reserved("RESULTARRAY", ItemRole::ResultArray, 3),
            Word("c", true, "8")};
  }
  void Start(bool connected) { Become({{"Press", connected, Tags()}}); }
  void Command(double number) { EXPECT_EQ(Write("Press/COMMAND", {number}), Taken::Yes); }
};

TEST_F(TestPartnerTest, AnswersBeforeAnyCommandWithZeros) {
  Start(false);
  EXPECT_THAT(Value("Press/COMMAND"), ElementsAre(0));
  EXPECT_THAT(Value("Press/RESULT"), ElementsAre(0));
  EXPECT_THAT(Value("Press/RESULTARRAY"), ElementsAre(0, 0, 0));
  EXPECT_FALSE(Read("Press/a").good);
}

TEST_F(TestPartnerTest, OneSetsAllTagsToTheirStartWithGoodQuality) {
  Start(false);
  Command(1);
  for (const char* name : {"Press/a", "Press/b", "Press/c"}) {
    EXPECT_TRUE(Read(name).good) << name;
    EXPECT_THAT(Value(name), ElementsAre(0)) << name;
  }
  now += 10 * kInterval;
  EXPECT_THAT(Value("Press/a"), ElementsAre(0)) << "it stands still";
  EXPECT_THAT(Value("Press/COMMAND"), ElementsAre(1));
}

TEST_F(TestPartnerTest, TwoComparesWithTheTestValues) {
  Start(false);
  Command(1);
  Write("Press/a", {7});
  Write("Press/c", {9});
  Command(2);
  EXPECT_THAT(Value("Press/RESULT"), ElementsAre(1));
  EXPECT_THAT(Value("Press/RESULTARRAY"), ElementsAre(0, 0, 1));
}

TEST_F(TestPartnerTest, TwoCountsNoneWhenEveryTestValueWasWritten) {
  Start(true);
  Command(1);
  Write("Press/a", {7});
  Write("Press/c", {8});
  Command(2);
  EXPECT_THAT(Value("Press/RESULT"), ElementsAre(0));
  EXPECT_THAT(Value("Press/RESULTARRAY"), ElementsAre(0, 0, 0));
}

TEST_F(TestPartnerTest, ATestValueThatIsNoNumberDiffers) {
  std::vector<ItemDefinition> tags = Tags();
  tags[3].test = "open";
  Become({{"Press", true, tags}});
  Command(1);
  Command(2);
  EXPECT_THAT(Value("Press/RESULTARRAY"), ElementsAre(1, 1, 1));
}

TEST_F(TestPartnerTest, ZeroForgetsTheResultAndLetsGoOfWhatWasNotWritten) {
  Start(true);
  Command(1);
  Write("Press/a", {7});
  Command(2);
  Command(0);
  EXPECT_THAT(Value("Press/RESULT"), ElementsAre(0));
  EXPECT_THAT(Value("Press/RESULTARRAY"), ElementsAre(0, 0, 0));
  now += kInterval;
  const Values before = Value("Press/b");
  now += kInterval;
  EXPECT_NE(Value("Press/b"), before);
  EXPECT_THAT(Value("Press/a"), ElementsAre(7));
}

TEST_F(TestPartnerTest, ZeroDisconnectsADeviceThatIsNotSimulated) {
  Start(false);
  Command(1);
  Command(0);
  EXPECT_FALSE(Read("Press/a").good);
  EXPECT_TRUE(Read("Press/RESULT").good);
}

TEST_F(TestPartnerTest, TheSameCommandAgainDoesNothing) {
  Start(true);
  Command(1);
  Write("Press/a", {7});
  Command(1);
  EXPECT_THAT(Value("Press/a"), ElementsAre(7));
}

TEST_F(TestPartnerTest, AnUnknownCommandDoesNothing) {
  Start(true);
  Command(1);
  Command(2);
  Command(9);
  EXPECT_THAT(Value("Press/COMMAND"), ElementsAre(9));
  EXPECT_THAT(Value("Press/RESULT"), ElementsAre(2));
}

TEST_F(TestPartnerTest, ResultsTakeAWriteWithoutAnEffect) {
  Start(false);
  EXPECT_EQ(Write("Press/RESULT", {5}), Taken::Yes);
  EXPECT_EQ(Write("Press/RESULTARRAY", {5, 5, 5}), Taken::Yes);
  EXPECT_THAT(Value("Press/RESULT"), ElementsAre(0));
  EXPECT_THAT(Value("Press/RESULTARRAY"), ElementsAre(0, 0, 0));
}

TEST_F(TestPartnerTest, IsTheSameAfterAnotherLookAtTheProject) {
  Start(false);
  Command(1);
  Start(false);
  EXPECT_TRUE(Read("Press/a").good);
  Write("Press/a", {7});
  Command(2);
  EXPECT_THAT(Value("Press/RESULT"), ElementsAre(1));
}

TEST_F(TestPartnerTest, ItsResultGetsTheLengthOfAnotherProject) {
  Start(false);
  Command(1);
  std::vector<ItemDefinition> tags = Tags();
  tags.push_back(Word("d"));
  tags[4].type.count = 4;
  Become({{"Press", false, tags}});
  EXPECT_THAT(Value("Press/RESULTARRAY"), ElementsAre(0, 0, 0, 0));
}

TEST_F(TestPartnerTest, GoesWithItsCommand) {
  Start(false);
  Command(1);
  Become({{"Press", false, {Word("a", true, "7")}}});
  EXPECT_FALSE(Read("Press/a").good);
}

}  // namespace
}  // namespace tavrin
