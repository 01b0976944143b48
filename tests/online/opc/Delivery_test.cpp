#include "online/opc/Delivery.h"

#include <atomic>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/headless/HeadlessDesktop.h"

namespace tavrin {
namespace {

using testing::ElementsAre;

/// Counts what is posted.
class CountingDesktop : public HeadlessDesktop {
 public:
  void Post(std::function<void()> action) override {
    ++posts;
    HeadlessDesktop::Post(std::move(action));
  }
  std::atomic<int> posts = 0;
};

ItemState Whole(std::uint64_t value) { return {Variant(VariantType::UInt64, value), kGood, UtcNow()}; }

class DeliveryTest : public testing::Test {
 protected:
  /// "item value quality" of each change of each delivery.
  void Take(const std::vector<ItemChange>& changes) {
    std::vector<std::string> texts;
    for (const ItemChange& change : changes) {
      texts.push_back(change.itemID + ' ' +
                      ScalarText(change.state.value.ElementType(), change.state.value.Elements().front(), ",") + ' ' +
                      std::to_string(change.state.quality));
    }
    deliveries.push_back(std::move(texts));
  }

  CountingDesktop desktop;
  std::vector<std::vector<std::string>> deliveries;
  std::shared_ptr<Delivery> delivery = std::make_shared<Delivery>(
      desktop, std::vector<std::string>{"a", "b"}, [this](const std::vector<ItemChange>& changes) { Take(changes); });
};

TEST_F(DeliveryTest, NothingComesBeforeItIsReleased) {
  delivery->Tell({{0, Whole(1)}});
  desktop.DoEvents();
  EXPECT_THAT(deliveries, testing::IsEmpty());
  delivery->Release();
  desktop.DoEvents();
  EXPECT_THAT(deliveries, ElementsAre(ElementsAre("a 1 192")));
}

TEST_F(DeliveryTest, AllOfOneTellingComeInOneDelivery) {
  delivery->Release();
  delivery->Tell({{0, Whole(1)}, {1, Whole(2)}});
  desktop.DoEvents();
  EXPECT_THAT(deliveries, ElementsAre(ElementsAre("a 1 192", "b 2 192")));
}

TEST_F(DeliveryTest, AFloodIsOneDeliveryWithTheLatestValues) {
  delivery->Release();
  std::thread flood([this] {
    for (std::uint64_t i = 1; i <= 100'000; ++i) delivery->Tell({{i % 2, Whole(i)}});
  });
  flood.join();
  EXPECT_EQ(desktop.posts, 1);
  desktop.DoEvents();
  EXPECT_THAT(deliveries, ElementsAre(testing::UnorderedElementsAre("a 100000 192", "b 99999 192")));
}

TEST_F(DeliveryTest, WhatComesWhileHeldIsKept) {
  delivery->Release();
  delivery->Tell({{0, Whole(1)}});
  delivery->Hold();
  desktop.DoEvents();
  delivery->Tell({{0, Whole(2)}});
  EXPECT_THAT(deliveries, testing::IsEmpty());
  delivery->Release();
  desktop.DoEvents();
  EXPECT_THAT(deliveries, ElementsAre(ElementsAre("a 2 192")));
}

TEST_F(DeliveryTest, NothingComesOnceItIsClosed) {
  delivery->Release();
  delivery->Tell({{0, Whole(1)}});
  delivery->Close();
  delivery->Tell({{1, Whole(1)}});
  delivery->Wake();
  desktop.DoEvents();
  EXPECT_THAT(deliveries, testing::IsEmpty());
  EXPECT_EQ(desktop.posts, 1);
}

TEST_F(DeliveryTest, ADeliveryMayEndTheConnectionThatItBelongsTo) {
  std::shared_ptr<Delivery> closing;
  closing = std::make_shared<Delivery>(desktop, std::vector<std::string>{"a"},
                                       [&closing, this](const std::vector<ItemChange>& changes) {
                                         Take(changes);
                                         closing->Close();
                                         closing.reset();
                                       });
  closing->Release();
  closing->Tell({{0, Whole(1)}});
  desktop.DoEvents();
  EXPECT_EQ(deliveries.size(), 1U);
  EXPECT_EQ(closing, nullptr);
}

TEST_F(DeliveryTest, ALostConnectionIsToldOfAllItemsWithTheirLastValues) {
  delivery->Release();
  delivery->Tell({{0, Whole(1)}, {1, Whole(2)}});
  desktop.DoEvents();
  delivery->TellNotConnected();
  desktop.DoEvents();
  EXPECT_THAT(deliveries.back(), ElementsAre("a 1 8", "b 2 8"));
}

}  // namespace
}  // namespace tavrin
