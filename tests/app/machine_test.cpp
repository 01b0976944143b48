#include "app/Machine.h"

#include <csignal>

#include <gtest/gtest.h>

namespace tavrin {
namespace {

TEST(PrepareProcess, TheEndOfProgramsThatAreRunIsToldWhateverTheCallerHasIgnored) {
  std::signal(SIGCHLD, SIG_IGN);
  PrepareProcess();
  EXPECT_EQ(std::signal(SIGCHLD, SIG_DFL), SIG_DFL);
}

}  // namespace
}  // namespace tavrin
