#include "platform/posix/Process.h"

#include <chrono>
#include <csignal>
#include <cstdlib>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrin {
namespace {

using namespace std::chrono_literals;
using End = ProcessResult::End;

constexpr auto kLong = 20s;

TEST(Process, OutputAndStatusComeBack) {
  const ProcessResult result = RunProcess({"sh", "-c", "echo said; echo wrong >&2; exit 3"}, kLong);
  EXPECT_EQ(result.end, End::Exited);
  EXPECT_EQ(result.status, 3);
  EXPECT_FALSE(result.Succeeded());
  EXPECT_EQ(result.output, "said\nwrong\n");
  EXPECT_TRUE(RunProcess({"true"}, kLong).Succeeded());
}

TEST(Process, WhatDoesNotExistIsNotStarted) {
  EXPECT_EQ(RunProcess({"there-is-no-such-program"}, kLong).end, End::NotStarted);
  EXPECT_EQ(RunProcess({"/etc/passwd"}, kLong).end, End::NotStarted);
  EXPECT_EQ(RunProcess({}, kLong).end, End::NotStarted);
}

TEST(Process, ArgumentsArriveAsTheyStand) {
  const ProcessResult result = RunProcess({"printf", "%s;", "a b", "$HOME", "`id`", "'\"", "*", ""}, kLong);
  EXPECT_EQ(result.output, "a b;$HOME;`id`;'\";*;;");
}

TEST(Process, ThereIsNothingToReadAndTheLanguageIsPlain) {
  EXPECT_EQ(RunProcess({"sh", "-c", "cat; echo $LC_ALL"}, kLong).output, "C\n");
}

TEST(Process, AProgramThatIsKilledHasNoStatus) {
  const ProcessResult result = RunProcess({"sh", "-c", "kill -9 $$"}, kLong);
  EXPECT_EQ(result.end, End::Killed);
  EXPECT_FALSE(result.Succeeded());
}

TEST(Process, AProgramThatTakesTooLongIsEndedWithAllItHasStarted) {
  const auto begin = std::chrono::steady_clock::now();
  const ProcessResult result = RunProcess({"sh", "-c", "sleep 60 & echo $!; wait"}, 300ms);
  EXPECT_EQ(result.end, End::TimedOut);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 10s);
  const int child = std::atoi(result.output.c_str());
  ASSERT_GT(child, 0);
  // Ended, or ended and not yet fetched by the system's first process.
  const ProcessResult state = RunProcess({"sh", "-c", "cat /proc/$0/stat || true", std::to_string(child)}, kLong);
  EXPECT_TRUE(state.output.find(") Z") != std::string::npos || state.output.find("No such file") != std::string::npos)
      << state.output;
}

TEST(Process, WhoHoldsTheOutputOpenIsNotWaitedFor) {
  const auto begin = std::chrono::steady_clock::now();
  const ProcessResult result = RunProcess({"sh", "-c", "sleep 30 & echo $!"}, kLong);
  EXPECT_TRUE(result.Succeeded());
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 10s);
  EXPECT_EQ(kill(std::atoi(result.output.c_str()), SIGKILL), 0);
}

TEST(Process, WhoGoesOnTalkingIsNotListenedToBeyondTheEnd) {
  const auto begin = std::chrono::steady_clock::now();
  const ProcessResult result = RunProcess({"sh", "-c", "echo first; yes & exit 4"}, 60s);
  EXPECT_EQ(result.end, End::Exited);
  EXPECT_EQ(result.status, 4);
  EXPECT_THAT(result.output, testing::StartsWith("first\n"));
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 30s);
}

TEST(Process, WhatWasSaidLastIsHeardToTheEnd) {
  const ProcessResult result = RunProcess({"sh", "-c", "head -c 60000 /dev/zero; echo last"}, kLong);
  EXPECT_EQ(result.output.size(), 60005U);
  EXPECT_THAT(result.output, testing::EndsWith("last\n"));
}

TEST(Process, WhereEndsAreIgnoredTheStatusIsLostButNotTheWords) {
  const auto begin = std::chrono::steady_clock::now();
  const auto before = std::signal(SIGCHLD, SIG_IGN);
  const ProcessResult result = RunProcess({"sh", "-c", "echo said"}, 60s);
  std::signal(SIGCHLD, before);
  EXPECT_EQ(result.end, End::Gone);
  EXPECT_FALSE(result.Succeeded());
  EXPECT_EQ(result.output, "said\n");
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 30s);
}

TEST(Process, OfAFloodTheBeginningIsKept) {
  const ProcessResult result = RunProcess({"sh", "-c", "echo first; head -c 1000000 /dev/zero"}, kLong);
  EXPECT_TRUE(result.Succeeded());
  EXPECT_EQ(result.output.size(), 65536U);
  EXPECT_THAT(result.output, testing::StartsWith("first\n"));
}

TEST(Process, AFileThatIsOpenHereIsNotOpenThere) {
  FILE* const open = fopen("/dev/null", "r");  // without the mark that closes it for others
  ASSERT_NE(open, nullptr);
  const std::string path = "/proc/self/fd/" + std::to_string(fileno(open));
  EXPECT_FALSE(RunProcess({"test", "-e", path}, kLong).Succeeded());
  fclose(open);
}

}  // namespace
}  // namespace tavrin
