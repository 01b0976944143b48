// A long run of whatever a user may do, with what must hold after each step.
#include <gtest/gtest.h>

#include "editing/RandomUser.h"

namespace tavrin {
namespace {

using RandomTest = RandomUser;

TEST_F(RandomTest, GridsProjectAndDirtyMarkAgreeAfterEachStep) {
  constexpr int kSteps = 3000;
  for (int step = 0; step < kSteps; ++step) {
    SCOPED_TRACE("step " + std::to_string(step));
    ASSERT_NO_THROW(Step());
    ExpectInvariants();
    if (HasFailure()) break;
  }
  EXPECT_GT(played.edits, kSteps / 2);
  EXPECT_GT(played.cancelled, kSteps / 20);
  EXPECT_GT(played.refused, kSteps / 20);
  EXPECT_GT(played.deletions, kSteps / 100);
  EXPECT_GT(played.sorts, kSteps / 100);
  EXPECT_GT(played.saves, kSteps / 100);
  EXPECT_GT(played.loads, kSteps / 100);
  EXPECT_GT(played.savedClean, 0);
}

}  // namespace
}  // namespace tavrin
