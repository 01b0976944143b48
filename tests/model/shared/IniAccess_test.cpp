#include "model/shared/IniAccess.h"

#include <cstddef>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class IniAccessTest : public ProjectTest {
 protected:
  [[nodiscard]] IniValue Read(std::string_view line, std::string_view fallback = "") const {
    directory.Write("x.ini", "[S]\r\n" + std::string(line) + "\r\n");
    return ReadIniValue("S", "Key", fallback, file);
  }

  std::string file = directory.Path() + "x.ini";
};

TEST_F(IniAccessTest, AValueIsPresentWhenAnyCharacterComesBack) {
  struct Row {
    std::string_view line;
    std::string_view fallback;
    bool present;
    std::string_view text;
  };
  const std::vector<Row> rows{
      {"Key=12", "", true, "12"},
      {"Key =  12 ; comment", "", true, "12"},
      {"key=12", "", true, "12"},
      {"Key=a\tb", "", true, "a"},
      {"Key=\"  quoted  \"", "", true, "quoted"},
      {"Key=a=b", "", true, "a=b"},
      {"Key=", "", false, ""},
      {"Key=", "/", false, ""},  // empty in the file is no reason for the default
      {"Key=   ", "0", false, ""},
      {"Key=; comment", "0", true, ""},
      {"Key", "0", true, "0"},
      {"Other=1", "", false, ""},
      {"Other=1", "0", true, "0"},
      {"Other=1", " /;x", true, "/"},  // a default is cleaned as well
      {"; Key=1", "", false, ""},
      {"Key=1\r\nKey=2", "", true, "1"},
      {"Key=\xE4\xF6", "", true, "\xE4\xF6"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.line);
    const IniValue value = Read(row.line, row.fallback);
    EXPECT_EQ(value.present, row.present);
    EXPECT_EQ(value.text, row.text);
  }
}

TEST_F(IniAccessTest, AMissingFileGivesTheDefault) {
  EXPECT_FALSE(ReadIniValue("S", "Key", "", file).present);
  EXPECT_EQ(ReadIniValue("S", "Key", "0", file).text, "0");
}

TEST_F(IniAccessTest, OfTwoSectionsOfOneNameTheFirstCountsInAnyCase) {
  directory.Write("x.ini", "[a]\r\nKey=1\r\n[A]\r\nKey=2\r\nNew=3\r\n");
  EXPECT_EQ(ReadIniValue("A", "KEY", "", file).text, "1");
  EXPECT_FALSE(ReadIniValue("A", "New", "", file).present);
}

TEST_F(IniAccessTest, AtMost254CharactersOfAValueAreSeen) {
  for (const std::size_t length : {253U, 254U, 255U, 256U, 1000U}) {
    EXPECT_EQ(Read("Key=" + std::string(length, 'x')).text.size(), length < 254 ? length : 254U) << length;
  }
}

TEST_F(IniAccessTest, ACommentBehindTheCutIsNotSeenAndCutsNothing) {
  EXPECT_EQ(Read("Key=" + std::string(254, 'x') + ";comment").text, std::string(254, 'x'));
  EXPECT_EQ(Read("Key=" + std::string(250, 'x') + "  ;comment").text, std::string(250, 'x'));
}

TEST_F(IniAccessTest, SectionsComeInTheOrderOfTheFileWithDuplicatesAndTheirSpelling) {
  directory.Write("x.ini",
                  "first=1\r\n[b]\r\n[A]\r\nk=v\r\n;[no]\r\n[a]\r\n[b]\r\n[ with blank ]\r\n[General]\r\n[\xE4]");
  EXPECT_THAT(ReadIniSections(file), ElementsAre("b", "A", "a", "b", "with blank", "General", "\xE4"));
}

TEST_F(IniAccessTest, SectionsWithoutANameAreLeftOut) {
  directory.Write("x.ini", "[a]\r\n[]\r\n[   ]\r\n[b]\r\n");
  EXPECT_THAT(ReadIniSections(file), ElementsAre("a", "b"));
}

TEST_F(IniAccessTest, NoFileAndNoSectionGiveAnEmptyList) {
  EXPECT_THAT(ReadIniSections(file), IsEmpty());
  directory.Write("x.ini", "");
  EXPECT_THAT(ReadIniSections(file), IsEmpty());
  directory.Write("x.ini", "key=1\r\n; nothing\r\n");
  EXPECT_THAT(ReadIniSections(file), IsEmpty());
}

// Of a list that does not fit, the buffer of 1024 holds the first 1022 characters. Ten names take 1000 of them.
TEST_F(IniAccessTest, SectionsBehindTheEndOfTheBufferAreNotSeen) {
  struct Row {
    std::size_t eleventh;      // length of the eleventh name in the file
    std::size_t seenEleventh;  // and as it is seen
    std::size_t seenTwelfth;   // of the five characters of the twelfth
  };
  for (const Row& row : std::vector<Row>{
           {15, 15, 5}, {16, 16, 5}, {17, 17, 4}, {20, 20, 1}, {21, 21, 0}, {22, 22, 0}, {23, 22, 0}, {90, 22, 0}}) {
    SCOPED_TRACE(row.eleventh);
    std::string content;
    std::vector<std::string> expected;
    for (char name = 'a'; name < 'k'; ++name) {
      expected.emplace_back(99, name);
      content += "[" + expected.back() + "]\r\n";
    }
    directory.Write("x.ini", content + "[" + std::string(row.eleventh, 'x') + "]\r\n[yyyyy]\r\n");
    expected.emplace_back(row.seenEleventh, 'x');
    if (row.seenTwelfth > 0) expected.emplace_back(row.seenTwelfth, 'y');
    EXPECT_EQ(ReadIniSections(file), expected);
  }
}

TEST_F(IniAccessTest, AListThatJustFitsIsSeenAsAWhole) {
  directory.Write("x.ini", "[" + std::string(900, 'a') + "]\r\n[" + std::string(120, 'b') + "]\r\n");
  EXPECT_THAT(ReadIniSections(file), ElementsAre(std::string(900, 'a'), std::string(120, 'b')));
}

TEST_F(IniAccessTest, WritingMakesFileAndSectionAndAddsKeysBehindTheLastOne) {
  WriteIniValue("A", "One", "1", file);
  WriteIniValue("A", "Two", "", file);
  AppendEmptyLine(file);
  WriteIniValue("B", "One", " x ", file);
  AppendEmptyLine(file);
  WriteIniValue("A", "Three", "3", file);
  AppendEmptyLine(file);
  EXPECT_EQ(directory.Read("x.ini"), Lines({"[A]", "One=1", "Two=", "Three=3", "", "[B]", "One= x ", "", ""}));
}

TEST_F(IniAccessTest, AnEmptyLineMakesTheFileWhenItIsMissing) {
  AppendEmptyLine(file);
  EXPECT_EQ(directory.Read("x.ini"), "\r\n");
}

TEST_F(IniAccessTest, RemovingTakesTheFileAway) {
  directory.Write("x.ini", "[A]\r\n");
  RemoveBeforeRewrite(file);
  EXPECT_FALSE(directory.Has("x.ini"));
}

TEST_F(IniAccessTest, FailuresOfWritingAreSilent) {
  RemoveBeforeRewrite(file);  // there is none
  directory.Write("x.ini", "[A]\r\nKey=1\r\n");
  faults.removing = FaultyFiles::Fault{"x.ini", ErrorNumber::PathFileAccess};
  faults.appending = FaultyFiles::Fault{"x.ini", ErrorNumber::PathFileAccess};
  RemoveBeforeRewrite(file);
  WriteIniValue("A", "Key", "2", file);
  AppendEmptyLine(file);
  WriteIniValue("A", "Key", "2", directory.Path() + "no such directory/x.ini");
  AppendEmptyLine(directory.Path());
  EXPECT_THAT(Boxes(), IsEmpty());
  EXPECT_EQ(directory.Read("x.ini"), "[A]\r\nKey=1\r\n");
}

}  // namespace
}  // namespace tavrin
