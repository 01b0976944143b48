#include "model/tags/cTag.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "model/RawSettings.h"
#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TagTest : public ProjectTest {
 protected:
  /// A tag as it stands after a load: all set, no flag.
  static void Fill(cTag& tag) {
    tag.szFileName("tags.csv");
    tag.szTag("Name");
    tag.szData("mb10");
    tag.szRW("RO");
    tag.szHystLB("1");
    tag.szHystUB("2");
    tag.szLB("3");
    tag.szUB("4");
    tag.szTest("5");
    tag.szComment("a b");
    tag.bDataDirty(false);
  }

  cTag tag;
};

/// A text property of a tag.
struct TextProperty {
  std::string_view name;
  std::function<std::string(const cTag&)> get;
  std::function<void(cTag&, std::string_view)> set;
};

template <class Text>
TextProperty Describe(std::string_view name, Text (cTag::*get)() const, void (cTag::*set)(std::string_view)) {
  return {name, [get](const cTag& tag) { return std::string((tag.*get)()); },
          [set](cTag& tag, std::string_view value) { (tag.*set)(value); }};
}

#define TEXT(property) Describe(#property, &cTag::property, &cTag::property)
const std::vector<TextProperty> kChecked{TEXT(szFileName), TEXT(szTag), TEXT(szData), TEXT(szRW)};
const std::vector<TextProperty> kFree{TEXT(szHystLB), TEXT(szHystUB),  TEXT(szLB),
                                      TEXT(szUB),     TEXT(szComment), TEXT(szTest)};
#undef TEXT

TEST_F(TagTest, StartsEmptyAndUnmarked) {
  for (const auto* properties : {&kChecked, &kFree}) {
    for (const TextProperty& property : *properties) EXPECT_EQ(property.get(tag), "") << property.name;
  }
  EXPECT_EQ(tag.szTest2(), "");
  EXPECT_EQ(tag.nQuality(), 0);
  EXPECT_FALSE(tag.bDataDirty());
  EXPECT_FALSE(tag.bLetError());
}

struct Assignment {
  std::size_t property;  ///< of kChecked
  std::string given;
  std::string stored;
  std::string box;  ///< empty for an accepted value
};

TEST_F(TagTest, AcceptedValuesMarkItAndRefusedOnesSetTheErrorFlagOnly) {
  enum : std::size_t { kFileName, kTag, kData, kRW };
  const std::string at32(32, 'x');
  const std::string at33(33, 'x');
  const std::vector<Assignment> rows{
      {kFileName, at32, at32, ""},
      {kFileName, "Tags.TXT", "Tags.TXT", ""},
      {kFileName, at33, "tags.csv", "#204 #225"},
      {kFileName, "", "tags.csv", "#204 #218"},
      {kTag, at32, at32, ""},
      {kTag, " a;b ", " a;b ", ""},
      {kTag, at33, "Name", "#225"},
      {kTag, "", "Name", "#223"},
      {kData, "db1.dbw;0 and no syntax check, however long it is", "db1.dbw;0 and no syntax check, however long it is",
       ""},
      {kData, " ", " ", ""},
      {kData, "", "mb10", "#227"},
      {kRW, "RW", "RW", ""},
      {kRW, " rw ", "RW", ""},
      {kRW, "ro", "RO", ""},
      {kRW, "R", "RO", "#204 RO / RW"},
      {kRW, "", "RO", "#204 RO / RW"},
      {kRW, "OFF", "RO", "#204 RO / RW"},
      {kRW, "\tRW", "RO", "#204 RO / RW"},
  };
  for (const Assignment& row : rows) {
    const TextProperty& property = kChecked[row.property];
    SCOPED_TRACE(std::string(property.name) + " = \"" + row.given + "\"");
    Fill(tag);
    tag.bLetError(row.box.empty());
    property.set(tag, row.given);
    EXPECT_EQ(property.get(tag), row.stored);
    EXPECT_EQ(tag.bDataDirty(), row.box.empty());
    EXPECT_EQ(tag.bLetError(), !row.box.empty());
    const std::vector<std::string> boxes = Boxes();
    EXPECT_EQ(boxes, row.box.empty() ? std::vector<std::string>{} : std::vector{row.box});
  }
}

TEST_F(TagTest, ARefusalLeavesTheMarkOfAnEarlierChange) {
  for (const TextProperty& property : kChecked) {
    Fill(tag);
    tag.bDataDirty(true);
    property.set(tag, "");
    EXPECT_TRUE(tag.bDataDirty()) << property.name;
    EXPECT_EQ(Boxes().size(), 1U) << property.name;
  }
}

TEST_F(TagTest, FreeTextsAreKeptAsGivenAndLeaveTheErrorFlag) {
  for (const TextProperty& property : kFree) {
    for (const bool error : {false, true}) {
      for (const char* text : {"any; text\t=\xE4 ", ""}) {
        SCOPED_TRACE(property.name);
        Fill(tag);
        tag.bLetError(error);
        property.set(tag, text);
        EXPECT_EQ(property.get(tag), text);
        EXPECT_TRUE(tag.bDataDirty());
        EXPECT_EQ(tag.bLetError(), error);
      }
    }
  }
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(TagTest, OneTextDoesNotTouchTheOthers) {
  for (const TextProperty& property : kFree) {
    Fill(tag);
    std::vector<std::string> expected;
    for (const TextProperty& other : kFree) expected.push_back(&other == &property ? "new" : other.get(tag));
    property.set(tag, "new");
    std::vector<std::string> values;
    for (const TextProperty& other : kFree) values.push_back(other.get(tag));
    EXPECT_EQ(values, expected) << property.name;
    EXPECT_EQ(tag.szTag(), "Name");
    EXPECT_EQ(tag.szData(), "mb10");
    EXPECT_EQ(tag.szRW(), "RO");
  }
}

TEST_F(TagTest, WorkingFieldsOfTheTestRunMarkNothing) {
  Fill(tag);
  for (const bool error : {false, true}) {
    tag.bLetError(error);
    tag.szTest2("any");
    tag.nQuality(-5);
    EXPECT_EQ(tag.szTest2(), "any");
    EXPECT_EQ(tag.nQuality(), -5);
    EXPECT_FALSE(tag.bDataDirty());
    EXPECT_EQ(tag.bLetError(), error);
  }
}

TEST_F(TagTest, TheNameIsTheTextThatTheCheckLeaves) {
  syntax.tagName = [](std::string& name) {
    name.erase(std::remove(name.begin(), name.end(), '_'), name.end());
    return 0;
  };
  tag.szTag("_A_b_");
  EXPECT_EQ(tag.szTag(), "Ab");
}

TEST_F(TagTest, EachResultOfTheNameCheckHasItsBox) {
  const std::vector<std::pair<std::int32_t, std::string>> results{{1, "#225"}, {2, "#224"}, {3, "#223"}};
  for (const auto& [result, box] : results) {
    Fill(tag);
    syntax.tagName = [value = result](std::string&) { return value; };
    tag.szTag("Other");
    EXPECT_EQ(tag.szTag(), "Name");
    EXPECT_TRUE(tag.bLetError());
    EXPECT_FALSE(tag.bDataDirty());
    EXPECT_THAT(Boxes(), ElementsAre(box));
    syntax.tagName = [](std::string&) { return 0; };
  }
}

TEST_F(TagTest, AnUnknownResultOfTheNameCheckIsToldAndLeavesTheErrorFlag) {
  Fill(tag);
  for (const std::int32_t result : {4, -1, 2147483647}) {
    syntax.tagName = [result](std::string&) { return result; };
    for (const bool error : {false, true}) {
      tag.bLetError(error);
      tag.szTag("Other");
      EXPECT_EQ(tag.bLetError(), error);
      EXPECT_EQ(tag.szTag(), "Name");
      EXPECT_FALSE(tag.bDataDirty());
      EXPECT_THAT(Boxes(), ElementsAre("unbekannter Fehler beim Pr\xFC"
                                       "fen eibnes Tagnames (cTag.szTag)"));
    }
  }
}

TEST_F(TagTest, NameAndSourceKeepTheirCaseWhateverTheProjectSays) {
  for (const std::int32_t caseSensitive : {0, 1}) {
    Project().nCaseSensitive(caseSensitive);
    tag.szTag("aBc");
    tag.szData("mB10");
    EXPECT_EQ(tag.szTag(), "aBc");
    EXPECT_EQ(tag.szData(), "mB10");
  }
}

TEST_F(TagTest, NameAndSourceAreUpperCasedForTheOneNumberThatNoProjectHas) {
  RawSettings(Project()).nCaseSensitive = -1;
  tag.szTag("a\xE4 Bc");
  tag.szData("mB10");
  EXPECT_EQ(tag.szTag(), "A\xC4 BC");
  EXPECT_EQ(tag.szData(), "MB10");
}

TEST_F(TagTest, TheLineHasEachOptionalTextThatIsNotEmptyInItsOrder) {
  Fill(tag);
  EXPECT_EQ(tag.szComplete(), "Name;mb10;RO;HYL=1;HYU=2;LB=3;UB=4;TST=5;CMT=a b");
  tag.szHystUB("");
  tag.szTest("");
  EXPECT_EQ(tag.szComplete(), "Name;mb10;RO;HYL=1;LB=3;UB=4;CMT=a b");
  tag.szTest2("6");
  tag.szComment("a;b");
  EXPECT_EQ(tag.szComplete(), "Name;mb10;RO;HYL=1;LB=3;UB=4;CMT=a;b") << "nothing is quoted";
}

TEST_F(TagTest, TheLineEndsBeforeTheFirstEmptyOneOfNameDataAndAccess) {
  tag.szComment("lost");
  tag.szLB("lost");
  EXPECT_EQ(tag.szComplete(), "");
  tag.szRW("RW");
  tag.szTag("T");
  EXPECT_EQ(tag.szComplete(), "T") << "without data, whatever else is set";
  cTag withoutAccess;
  withoutAccess.szTag("T");
  withoutAccess.szData("d");
  withoutAccess.szComment("lost");
  EXPECT_EQ(withoutAccess.szComplete(), "T;d");
  cTag withoutName;
  withoutName.szData("d");
  withoutName.szRW("RW");
  EXPECT_EQ(withoutName.szComplete(), "");
}

TEST_F(TagTest, OnlyTheNameIsUpperCasedInTheLine) {
  Fill(tag);
  tag.szTag("Na\xE4me");
  Project().nSaveTagsUppercase(1);
  EXPECT_EQ(tag.szComplete(), "NA\xC4ME;mb10;RO;HYL=1;HYU=2;LB=3;UB=4;TST=5;CMT=a b");
  EXPECT_EQ(tag.szTag(), "Na\xE4me");
  EXPECT_THAT(tag.szTagGridLine(), testing::StartsWith("Na\xE4me\tNa\xE4me\t"));
}

TEST_F(TagTest, NumbersOtherThan1DoNotUpperCaseTheLine) {
  Fill(tag);
  for (const std::int32_t number : {-1, 0, 2}) {
    RawSettings(Project()).nSaveTagsUppercase = number;
    EXPECT_THAT(tag.szComplete(), testing::StartsWith("Name;")) << number;
  }
}

TEST_F(TagTest, TheSeparatorOfTheLineIsFixed) {
  Fill(tag);
  Project().szUsedSeparator("/");
  EXPECT_THAT(tag.szComplete(), testing::StartsWith("Name;mb10;RO;"));
}

TEST_F(TagTest, TheGridRowHasTenFieldsWithTheTestValueBeforeTheComment) {
  EXPECT_EQ(tag.szTagGridLine(), "\t\t\t\t\t\t\t\t\t");
  tag.szTag("T");
  EXPECT_EQ(tag.szTagGridLine(), "T\tT\t\t\t\t\t\t\t\t");
  Fill(tag);
  EXPECT_EQ(tag.szTagGridLine(), "Name\tName\tmb10\tRO\t1\t2\t3\t4\t5\ta b");
}

TEST_F(TagTest, LongTextsAreKeptWhole) {
  Fill(tag);
  for (const std::size_t length : {254U, 255U, 256U, 65535U, 65536U, 100000U}) {
    const std::string text(length, 'c');
    tag.szComment(text);
    tag.szLB(text + "l");
    EXPECT_EQ(tag.szComment(), text);
    EXPECT_EQ(tag.szLB(), text + "l");
    EXPECT_EQ(tag.szTest(), "5");
    EXPECT_EQ(tag.szComplete(), "Name;mb10;RO;HYL=1;HYU=2;LB=" + text + "l;UB=4;TST=5;CMT=" + text);
  }
}

}  // namespace
}  // namespace tavrin
