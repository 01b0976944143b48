#include "model/shared/Messages.h"

#include <cstdint>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;

class MessagesTest : public ProjectTest {};

TEST_F(MessagesTest, TextsAndPiecesAreJoinedInFixedShapes) {
  EXPECT_EQ(RangeRefused("1..255"), "#204 1..255");
  EXPECT_EQ(EmptyRefused(), "#204 #218");
  EXPECT_EQ(BadKey("ComPort", "x"), "#207 ComPort (x)");
  EXPECT_EQ(BadKey("ComPort", ""), "#207 ComPort ()");
  EXPECT_EQ(NameProblem(225, "a name"), "#225 (a name)");
  EXPECT_EQ(TextAnd(201, "path"), "#201 path");
}

TEST_F(MessagesTest, BracesInAValueStandForThemselves) {
  EXPECT_EQ(BadKey("{}", "{0}"), "#207 {} ({0})");
  EXPECT_EQ(NameProblem(210, "{"), "#210 ({)");
  EXPECT_EQ(TextAnd(201, "}{"), "#201 }{");
}

TEST_F(MessagesTest, ResultsOfChecksHaveTheirTexts) {
  struct Row {
    std::int32_t result;
    std::int32_t nameText;
    std::int32_t sourceText;
  };
  for (const Row& row :
       {Row{1, 225, 228}, Row{2, 224, 226}, Row{3, 223, 227}, Row{0, 0, 0}, Row{4, 0, 0}, Row{-1, 0, 0}}) {
    EXPECT_EQ(NameCheckText(row.result), row.nameText) << row.result;
    EXPECT_EQ(SourceCheckText(row.result), row.sourceText) << row.result;
  }
}

TEST_F(MessagesTest, RefuseShowsTheMessageAndIsFalse) {
  EXPECT_FALSE(Refuse("no"));
  EXPECT_THAT(Boxes(), ElementsAre("no"));
}

}  // namespace
}  // namespace tavrin
