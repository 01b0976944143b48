#include "model/shared/cWarnings.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/ErrorOf.h"
#include "model/shared/cWarning.h"
#include "platform/RuntimeError.h"
#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(cWarning, StartsEmptyAsAWarningOfTheProject) {
  const cWarning warning;
  EXPECT_EQ(warning.nType(), 0);
  EXPECT_EQ(warning.szFileName(), "");
  EXPECT_EQ(warning.szText(), "");
}

TEST(cWarning, TypeWordBelongsToTheNumberAndIsEmptyForAnyOther) {
  struct Row {
    std::int32_t nType;
    std::string_view word;
  };
  for (const Row& row : std::array<Row, 8>{{{0, "OPC"},
                                            {1, "Network"},
                                            {2, "Device"},
                                            {3, "Tag"},
                                            {4, ""},
                                            {7, ""},
                                            {-1, ""},
                                            {-2147483647 - 1, ""}}}) {
    cWarning warning;
    warning.nType(row.nType);
    EXPECT_EQ(warning.nType(), row.nType);
    EXPECT_EQ(warning.szType(), row.word) << row.nType;
  }
}

TEST(cWarning, FieldsTakeAnyText) {
  cWarning warning;
  warning.szFileName(std::string("a\0;b", 4));
  warning.szText("\xE4\r\n");
  EXPECT_EQ(warning.szFileName(), std::string("a\0;b", 4));
  EXPECT_EQ(warning.szText(), "\xE4\r\n");
}

std::vector<std::string> TextsOf(const cWarnings& list) {
  std::vector<std::string> texts;
  for (const cWarning& warning : list) texts.push_back(warning.szText());
  return texts;
}

class cWarningsTest : public ProjectTest {
 protected:
  void Add(const std::string& text) { list.AddWarning(WarningKind::Device, "file", text); }

  cWarnings list;
};

TEST_F(cWarningsTest, IsEmptyAtFirst) {
  EXPECT_EQ(list.Count(), 0);
  EXPECT_THAT(TextsOf(list), IsEmpty());
}

TEST_F(cWarningsTest, AddWarningSetsTheThreeFieldsAndShowsNothing) {
  list.AddWarning(WarningKind::Tag, "tags.csv", "text");
  ASSERT_EQ(list.Count(), 1);
  EXPECT_EQ(list.Warning(1).nType(), 3);
  EXPECT_EQ(list.Warning(1).szFileName(), "tags.csv");
  EXPECT_EQ(list.Warning(1).szText(), "text");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(cWarningsTest, AddAppendsAnObjectOfAnyType) {
  Add("first");
  cWarning made;
  made.nType(7);
  made.szText("second");
  list.Add(made);
  EXPECT_THAT(TextsOf(list), ElementsAre("first", "second"));
  EXPECT_EQ(list.Warning(2).nType(), 7);
}

TEST_F(cWarningsTest, KeepsTheOrderOfAddingAndEqualOnesToo) {
  for (const char* text : {"b", "a", "b", "c"}) Add(text);
  EXPECT_THAT(TextsOf(list), ElementsAre("b", "a", "b", "c"));
}

TEST_F(cWarningsTest, RemoveTakesOneOutByPosition) {
  for (const char* text : {"a", "b", "c"}) Add(text);
  list.Remove(2);
  EXPECT_THAT(TextsOf(list), ElementsAre("a", "c"));
  list.Remove(1);
  list.Remove(1);
  EXPECT_EQ(list.Count(), 0);
}

TEST_F(cWarningsTest, AnElementCanBeChangedInPlace) {
  Add("old");
  list.Warning(1).szText("new");
  EXPECT_THAT(TextsOf(list), ElementsAre("new"));
}

TEST_F(cWarningsTest, ABadPositionRaisesTheErrorOfTheCollection) {
  Add("a");
  for (const std::int32_t index : {0, 2, -1}) {
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(list.Warning(index)); }), ErrorNumber::SubscriptOutOfRange) << index;
    EXPECT_EQ(ErrorOf([&] { list.Remove(index); }), ErrorNumber::SubscriptOutOfRange) << index;
  }
  EXPECT_EQ(list.Count(), 1);
}

}  // namespace
}  // namespace tavrin
