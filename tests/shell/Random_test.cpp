// A long run of whatever a user may do in the main window, with what must hold after each step.
#include <map>
#include <string>

#include "shell/RandomWindowUser.h"

namespace tavrin {
namespace {

using RandomWindowTest = RandomWindowUser;

TEST_F(RandomWindowTest, WindowProjectAndDirtyMarkAgreeAfterEachStep) {
  constexpr int kSteps = 1500;
  for (int step = 0; step < kSteps; ++step) {
    SCOPED_TRACE("step " + std::to_string(step));
    ASSERT_NO_THROW(Step());
    ExpectInvariants();
    if (HasFailure()) break;
  }
  EXPECT_THAT(Unexpected(), testing::IsEmpty());
  const std::map<std::string, int> least{
      {"edits", kSteps / 3},  {"cancelled", kSteps / 50}, {"refused", kSteps / 30}, {"deletions", kSteps / 50},
      {"sorts", kSteps / 50}, {"added", kSteps / 50},     {"removed", kSteps / 75}, {"renamed", kSteps / 75},
      {"saves", kSteps / 50}, {"saved clean", 1},         {"loads", kSteps / 60},   {"languages", kSteps / 100}};
  for (const auto& [kind, count] : least) EXPECT_GT(played[kind], count) << kind;
}

}  // namespace
}  // namespace tavrin
