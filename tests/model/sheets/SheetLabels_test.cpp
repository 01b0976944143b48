#include "model/sheets/SheetLabels.h"

#include <array>
#include <vector>

#include <gtest/gtest.h>

#include "model/ErrorOf.h"

namespace tavrin {
namespace {

TEST(SheetLabels, EachRowOfEachSheetHasItsText) {
  const std::array<std::vector<int>, 11> kLabels{{
      {100, 103, 290, 291, 294},
      {107, 100, 111, 112, 113, 114, 115, 120},
      {107, 100, 127, 123, 115},
      {107, 100, 131},
      {107, 100, 131},
      {107, 100, 131},
      {106, 126, 130, 136},
      {106, 108, 121, 122, 123, 124, 130, 136},
      {106, 140, 125, 130, 115, 136, 295, 297},
      {106, 108, 132, 134, 125, 133, 135, 130, 136, 293, 295},
      {106, 108, 132, 134, 125, 133, 135, 130, 136},
  }};
  for (int sheet = 0; sheet < static_cast<int>(kLabels.size()); ++sheet) {
    EXPECT_EQ(SheetLabels(sheet), kLabels[static_cast<std::size_t>(sheet)]) << sheet;
  }
}

TEST(SheetLabels, ThereIsNoOtherSheet) {
  for (const int sheet : {-1, 11}) {
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(SheetLabels(sheet)); }), ErrorNumber::SubscriptOutOfRange) << sheet;
  }
}

}  // namespace
}  // namespace tavrin
