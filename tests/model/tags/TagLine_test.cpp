#include "model/tags/TagLine.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace tavrin {
namespace {

TagLine::Views AllTexts() { return {"N", "D", "RW", "1", "2", "3", "4", "5", "c", "t2", "key"}; }

TEST(TagLine, StartsWithEmptyTexts) {
  const TagLine line;
  for (std::size_t i = 0; i < TagLine::kCount; ++i) {
    EXPECT_EQ(line.Get(static_cast<TagLine::Text>(i)), "");
    EXPECT_EQ(line.All()[i], "");
  }
  EXPECT_EQ(line.Complete(), "");
}

TEST(TagLine, GivesEachTextBack) {
  TagLine line;
  line.Assign(AllTexts());
  for (std::size_t i = 0; i < TagLine::kCount; ++i) {
    EXPECT_EQ(line.Get(static_cast<TagLine::Text>(i)), AllTexts()[i]) << i;
  }
  EXPECT_EQ(line.All(), AllTexts());
}

TEST(TagLine, ChangesOneTextAlone) {
  for (std::size_t i = 0; i < TagLine::kCount; ++i) {
    for (const std::string& text : {std::string(), std::string("x"), std::string(300, 'x'), std::string(70000, 'x')}) {
      TagLine line;
      line.Assign(AllTexts());
      line.Set(static_cast<TagLine::Text>(i), text);
      TagLine::Views expected = AllTexts();
      expected[i] = text;
      ASSERT_EQ(line.All(), expected) << i << ' ' << text.size();
      line.Set(static_cast<TagLine::Text>(i), AllTexts()[i]);
      ASSERT_EQ(line.All(), AllTexts());
    }
  }
}

TEST(TagLine, MayBeGivenItsOwnTexts) {
  TagLine line;
  line.Assign(AllTexts());
  line.Set(TagLine::ListName, line.Get(TagLine::Name));
  line.Set(TagLine::Name, line.Get(TagLine::Comment));
  TagLine::Views swapped = line.All();
  std::swap(swapped[TagLine::LB], swapped[TagLine::UB]);
  line.Assign(swapped);
  EXPECT_EQ(line.Get(TagLine::ListName), "N");
  EXPECT_EQ(line.Complete(), "c;D;RW;HYL=1;HYU=2;LB=4;UB=3;TST=5;CMT=c");
}

TEST(TagLine, AllLengthsAroundTheWidthsOfItsNumbersAreKept) {
  for (const std::size_t around : {std::size_t{255}, std::size_t{65535}}) {
    for (std::size_t length = around - 12; length <= around + 2; ++length) {
      TagLine line;
      const std::string text(length, 'x');
      line.Set(TagLine::Comment, text);
      line.Set(TagLine::Name, "N");
      ASSERT_EQ(line.Get(TagLine::Comment), text);
      ASSERT_EQ(line.Get(TagLine::Name), "N");
      ASSERT_EQ(line.Get(TagLine::Test), "");
      ASSERT_EQ(line.Get(TagLine::Test2), "");
    }
  }
}

TEST(TagLine, AllTextsEmptyAgainAreAnEmptyLine) {
  TagLine line;
  line.Assign(AllTexts());
  line.Assign(TagLine::Views{});
  EXPECT_EQ(line.All(), TagLine::Views{});
  EXPECT_EQ(line.Complete(), "");
}

struct LineCase {
  std::vector<std::pair<TagLine::Text, std::string_view>> texts;
  std::string_view line;
};

TEST(TagLine, TheLineEndsBeforeTheFirstMissingOneOfTheFirstThree) {
  const std::vector<LineCase> rows{
      {{{TagLine::Name, "N"}}, "N"},
      {{{TagLine::Name, "N"}, {TagLine::Data, "D"}}, "N;D"},
      {{{TagLine::Name, "N"}, {TagLine::Access, "RW"}}, "N"},
      {{{TagLine::Name, "N"}, {TagLine::Comment, "c"}}, "N"},
      {{{TagLine::Name, "N"}, {TagLine::Data, "D"}, {TagLine::LB, "1"}}, "N;D"},
      {{{TagLine::Name, "N"}, {TagLine::Access, "RW"}, {TagLine::LB, "1"}}, "N"},
      {{{TagLine::Data, "D"}, {TagLine::Access, "RW"}, {TagLine::LB, "1"}}, ""},
      {{{TagLine::Access, "RW"}}, ""},
      {{{TagLine::Name, "N"}, {TagLine::Data, "D"}, {TagLine::Access, "RW"}}, "N;D;RW"},
      {{{TagLine::Name, "N"}, {TagLine::Data, "D"}, {TagLine::Access, "RW"}, {TagLine::UB, "1"}}, "N;D;RW;UB=1"},
      {{{TagLine::Name, "N"}, {TagLine::Data, "D"}, {TagLine::Access, "RW"}, {TagLine::Test2, "t"}}, "N;D;RW"},
      {{{TagLine::Test2, "t"}, {TagLine::ListName, "k"}}, ""},
  };
  for (const LineCase& row : rows) {
    TagLine line;
    for (const auto& [text, value] : row.texts) line.Set(text, value);
    EXPECT_EQ(line.Complete(), row.line);
  }
}

}  // namespace
}  // namespace tavrin
