#include "platform/headless/ActionQueue.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrin {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;
using testing::ElementsAre;
using testing::IsEmpty;

class ActionQueueTest : public testing::Test {
 protected:
  void Add(const std::string& name) {
    queue.Add([this, name] { ran.push_back(name); });
  }
  static bool Never() { return false; }

  ActionQueue queue;
  std::vector<std::string> ran;
};

TEST_F(ActionQueueTest, RunsWhatWasHandedInInItsOrderAndOnce) {
  Add("one");
  Add("two");
  EXPECT_THAT(ran, IsEmpty());
  queue.Run();
  queue.Run();
  EXPECT_THAT(ran, ElementsAre("one", "two"));
}

TEST_F(ActionQueueTest, WhatComesInMeanwhileWaitsForTheNextRun) {
  queue.Add([this] { Add("later"); });
  queue.Run();
  EXPECT_THAT(ran, IsEmpty());
  queue.Run();
  EXPECT_THAT(ran, ElementsAre("later"));
}

TEST_F(ActionQueueTest, AnActionThatWaitsInTurnLetsTheOlderOnesRunFirst) {
  queue.Add([this] {
    Add("three");
    queue.Run();
  });
  Add("one");
  Add("two");
  queue.Run();
  EXPECT_THAT(ran, ElementsAre("one", "two", "three"));
}

TEST_F(ActionQueueTest, AnActionThatThrowsTakesNoOtherWithIt) {
  queue.Add([] { throw std::runtime_error("x"); });
  Add("one");
  EXPECT_THROW(queue.Run(), std::runtime_error);
  queue.Run();
  EXPECT_THAT(ran, ElementsAre("one"));
}

TEST_F(ActionQueueTest, AWaitAsksBeforeTheFirstActionAndAfterEach) {
  Add("one");
  Add("two");
  Add("three");
  EXPECT_TRUE(queue.RunUntil([] { return true; }, milliseconds(0)));
  EXPECT_THAT(ran, IsEmpty());
  EXPECT_TRUE(queue.RunUntil([this] { return ran.size() == 2; }, milliseconds(0)));
  EXPECT_THAT(ran, ElementsAre("one", "two"));
}

TEST_F(ActionQueueTest, AWaitEndsOnTimeAndTellsWhatIsTrueThen) {
  const auto before = steady_clock::now();
  EXPECT_FALSE(queue.RunUntil(Never, milliseconds(30)));
  EXPECT_GE(steady_clock::now() - before, milliseconds(30));
  int asked = 0;
  EXPECT_TRUE(queue.RunUntil([&] { return ++asked == 2; }, milliseconds(1)));
}

TEST_F(ActionQueueTest, BehindItsEndAWaitRunsWhatIsThereAndNothingThatComesIn) {
  std::function<void()> again = [this, &again] {
    Add("again");
    queue.Add(again);
  };
  queue.Add(again);
  Add("one");
  EXPECT_FALSE(queue.RunUntil(Never, milliseconds(0)));
  EXPECT_THAT(ran, ElementsAre("one"));
  EXPECT_FALSE(queue.RunUntil(Never, milliseconds(0)));
  EXPECT_THAT(ran, ElementsAre("one", "again"));
}

TEST_F(ActionQueueTest, AWaitEndsAlsoWhileTheQueueIsKeptFilled) {
  const auto end = steady_clock::now() + milliseconds(20);
  int behind = 0;
  std::function<void()> again = [&] {
    queue.Add(again);
    if (steady_clock::now() > end) ++behind;
  };
  queue.Add(again);
  EXPECT_FALSE(queue.RunUntil([&] { return behind > 100; }, milliseconds(10)));
  EXPECT_LE(behind, 100);
}

TEST_F(ActionQueueTest, AWaitIsWokenByAnActionOfAnotherThread) {
  std::atomic<bool> done = false;
  std::thread other([&] { queue.Add([&] { done = true; }); });
  EXPECT_TRUE(queue.RunUntil([&] { return done.load(); }, milliseconds(60'000)));
  other.join();
}

TEST_F(ActionQueueTest, OfManyThreadsEachKeepsItsOrder) {
  constexpr int kThreads = 4;
  constexpr int kEach = 2'000;
  std::vector<std::vector<int>> got(kThreads);
  std::vector<std::thread> threads;
  for (int thread = 0; thread < kThreads; ++thread) {
    threads.emplace_back([&, thread] {
      for (int i = 0; i < kEach; ++i) {
        queue.Add([&got, thread, i] { got[static_cast<std::size_t>(thread)].push_back(i); });
      }
    });
  }
  const auto all = [&] {
    std::size_t count = 0;
    for (const auto& numbers : got) count += numbers.size();
    return count == std::size_t{kThreads} * kEach;
  };
  EXPECT_TRUE(queue.RunUntil(all, milliseconds(60'000)));
  for (std::thread& thread : threads) thread.join();
  for (const auto& numbers : got) EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end()));
}

TEST_F(ActionQueueTest, AClosedQueueDropsWhatWaitsAndTakesNothing) {
  Add("before");
  queue.Close();
  Add("meanwhile");
  queue.Run();
  queue.Open();
  queue.Run();
  EXPECT_THAT(ran, IsEmpty());
  Add("after");
  queue.Run();
  EXPECT_THAT(ran, ElementsAre("after"));
}

TEST_F(ActionQueueTest, ClosingEndsAWaitAtOnce) {
  queue.Add([this] { queue.Close(); });
  Add("one");
  EXPECT_FALSE(queue.RunUntil(Never, milliseconds(60'000)));
  EXPECT_THAT(ran, IsEmpty());
}

}  // namespace
}  // namespace tavrin
