// What the lines of a tag file become.
#include "model/tags/TagFileReader.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include "model/RawSettings.h"
#include "model/tags/TagListTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using TagFileReaderTest = TagListTest;

TEST_F(TagFileReaderTest, TakesAllFieldsOfALine) {
  Read("Name;MB10;RW;HYL=1;HYU=2;LB=3;UB=4;TST=5;CMT=a b\r\n");
  EXPECT_THAT(Names(), ElementsAre("Name"));
  EXPECT_THAT(Texts(), ElementsAre("MB10|RW|1|2|3|4|5|a b"));
  EXPECT_THAT(ReadWarnings(), IsEmpty());
  EXPECT_THAT(Boxes(), IsEmpty());
  const cTag& tag = *list.begin();
  EXPECT_EQ(tag.szFileName(), "tags.csv");
  EXPECT_EQ(tag.szTest2(), "");
  EXPECT_EQ(tag.nQuality(), 0);
  EXPECT_FALSE(tag.bDataDirty());
  EXPECT_FALSE(tag.bLetError());
}

struct LineCase {
  std::string line;
  std::string name;
  std::string texts;
  std::vector<std::string> warnings;  ///< texts of the warnings
};

TEST_F(TagFileReaderTest, EachLineBecomesATagWithItsWarnings) {
  const std::string at32(32, 'n');
  const std::string at33(33, 'n');
  const std::vector<LineCase> rows{
      // blanks and tabs
      {"  N ; mb10 ;  rw ", "N", "MB10|RW||||||", {}},
      {"\tN\t;\tmb10\t;\tro\t", "N", "MB10|RO||||||", {}},
      {"N\tM;a\tb;RW;CMT=a\tb", "N M", "A B|RW||||||a b", {}},
      // case: the name keeps it, the data never does
      {"aB\xE4;db1.dbw0\xE4;Ro", "aB\xE4", "DB1.DBW0\xC4|RO||||||", {}},
      // optional fields in any order, upper-case keywords only
      {"N;D;RW;CMT=c;TST=t;UB=4;LB=3;HYU=2;HYL=1", "N", "D|RW|1|2|3|4|t|c", {}},
      {"N;D;RW;cmt=c;Cmt=c;CMT =c;XCMT=c", "N", "D|RW||||||", {}},
      {"N;D;RW;XYZ=3;CMT=a b", "N", "D|RW||||||a b", {}},
      {"N;D;RW;CMT=a;CMT=b", "N", "D|RW||||||b", {}},
      {"N;D;RW;CMT=a;CMT=", "N", "D|RW||||||", {}},
      {"N;D;RW;;;;", "N", "D|RW||||||", {}},
      {"N;D;RW;  CMT=  a b  ;LB=1", "N", "D|RW|||1|||  a b", {}},
      {"N;D;RW;CMT=LB=5", "N", "D|RW||||||LB=5", {}},
      {"N;D;RW;CMT=a;b;HYL", "N", "D|RW||||||a", {}},
      {"N;D;RW;CMT=\"a;b\"", "N", "D|RW||||||\"a", {}},
      // too few fields
      {"N", "N", "|||||||", {"#203 (N)"}},
      {"N;MB10", "N", "MB10|||||||", {"#203 (N;MB10)"}},
      {" N;MB10\t", "N", "MB10|||||||", {"#203 ( N;MB10 )"}},
      // access
      {"N;D;RX", "N", "D|||||||", {"#203 (N;D;RX)"}},
      {"N;D;", "N", "D|||||||", {"#203 (N;D;)"}},
      {"N;D;OFF;CMT=c", "N", "D|||||||c", {"#203 (N;D;OFF;CMT=c)"}},
      // data
      {"N;;RW", "N", "|RW||||||", {"#227 (N;;RW)"}},
      {"N; ;RW", "N", "|RW||||||", {"#227 (N; ;RW)"}},
      {"N;" + at33 + ";RW", "N", std::string(33, 'N') + "|RW||||||", {"#228 (N;" + at33 + ";RW)"}},
      // name
      {at32 + ";D;RW", at32, "D|RW||||||", {}},
      {at33 + ";D;RW", "", "D|RW||||||", {"#225 (" + at33 + ";D;RW)"}},
      {";D;RW", "", "D|RW||||||", {"#223 (;D;RW)"}},
      {" ;D;RW", "", "D|RW||||||", {"#223 ( ;D;RW)"}},
      {";", "", "|||||||", {"#203 (;)", "#223 (;)", "#227 (;)"}},
      {";;", "", "|||||||", {"#223 (;;)", "#227 (;;)", "#203 (;;)"}},
      // neither header nor comment nor mark of an encoding
      {"# N;D;RW", "# N", "D|RW||||||", {}},
      {"\xEF\xBB\xBFN;D;RW", "\xEF\xBB\xBFN", "D|RW||||||", {}},
      // ordinary characters
      {"N\x1A;D\x0C;RW", "N\x1A", "D\x0C|RW||||||", {}},
      {std::string("N;D;RW;CMT=a\0b", 14), "N", std::string("D|RW||||||a\0b", 13), {}},
  };
  for (const LineCase& row : rows) {
    SCOPED_TRACE(row.line);
    modMain::globals.gReadWarnings.reset();
    cTags single;
    single.szFileName("tags.csv");
    directory.Write("tags.csv", row.line + "\r\nNext;D;RW");
    single.Refresh(0, 1);
    ASSERT_EQ(single.Count(), 2);
    const cTag& tag = *single.begin();
    EXPECT_EQ(tag.szTag(), row.name);
    std::vector<std::string> expected;
    for (const std::string& warning : row.warnings) expected.push_back(Warned(warning));
    EXPECT_EQ(ReadWarnings(), expected);
    EXPECT_FALSE(tag.bDataDirty());
    EXPECT_EQ(TextsOf(tag), row.texts);
  }
}

TEST_F(TagFileReaderTest, EveryLineEndIsOne) {
  for (const char* end : {"\r\n", "\n", "\r"}) {
    cTags lines;
    lines.szFileName("tags.csv");
    directory.Write("tags.csv", std::string("A;D;RW") + end + end + "B;D;RW" + end + "  \t " + end + "C;D;RW");
    lines.Refresh(0, 1);
    EXPECT_EQ(lines.Count(), 3);
  }
  EXPECT_THAT(ReadWarnings(), IsEmpty());
  Read("A;D;RW\n\r\rB;D;RW\r\r\nC;D;RW\n");
  EXPECT_THAT(Names(), ElementsAre("A", "B", "C"));
}

TEST_F(TagFileReaderTest, AFileWithoutTagsGivesAnEmptyListAndNoWarning) {
  for (const char* content : {"", "\r\n", "\r\n  \t\r\n\n", " ", "\t"}) {
    Read(content);
    EXPECT_EQ(list.Count(), 0);
    EXPECT_THAT(ReadWarnings(), IsEmpty());
  }
}

TEST_F(TagFileReaderTest, ABadNameIsToldTwiceAndANameThatIsNotThereOnce) {
  const std::string tooLong(33, 'n');
  Read(tooLong + ";D;RW\r\n");
  EXPECT_THAT(Boxes(), ElementsAre("#225"));
  EXPECT_THAT(ReadWarnings(), ElementsAre(Warned("#225 (" + tooLong + ";D;RW)")));
  cTags other;
  other.szFileName("tags.csv");
  directory.Write("tags.csv", ";D;RW\r\n");
  other.Refresh(0, 1);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(TagFileReaderTest, ASecondTagWithoutANameIsDropped) {
  const std::string tooLong(33, 'n');
  Read(Lines({tooLong + ";1;RW", ";2;RW", tooLong + ";3;RW", "N;4;RW"}));
  EXPECT_THAT(Texts(), ElementsAre("1|RW||||||", "4|RW||||||"));
  EXPECT_THAT(ReadWarnings(), ElementsAre(Warned("#225 (" + tooLong + ";1;RW)"), Warned("#223 (;2;RW)"),
                                          Warned("#221 ()"), Warned("#220 (;2;RW)"),
                                          Warned("#225 (" + tooLong + ";3;RW)"), Warned("#220 (" + tooLong + ";3;RW)")))
      << "an empty name is asked for, a long one is not in the list under itself";
}

TEST_F(TagFileReaderTest, TheSameNameIsToldAndDropped) {
  Read(Lines({"N;1;RW", "N;2;RW"}));
  EXPECT_THAT(Texts(), ElementsAre("1|RW||||||"));
  EXPECT_THAT(ReadWarnings(), ElementsAre(Warned("#221 (N)"), Warned("#220 (N;2;RW)")));
}

struct TwoNames {
  std::int32_t nCaseSensitive;
  std::string first;
  std::string second;
  bool told;
  bool added;
};

TEST_F(TagFileReaderTest, NamesOfOtherCaseLoadAndAreToldUnlessCaseCounts) {
  const std::vector<TwoNames> rows{
      {0, "ab", "AB", true, true},        {1, "ab", "AB", false, true},
      {5, "ab", "AB", true, true},  // a number without a meaning counts as 0
      {0, "ab", "abc", false, true},      {0, "a b", "ab", false, true},
      {0, "\xE4", "\xC4", true, false},  // the case of other letters does not count in a key
      {1, "\xE4", "\xC4", false, false},  {1, "\xFF", "\x9F", false, false},
      {0, "\xFF", "\x9F", true, false},   {1, "\xDF", "ss", false, true},
      {1, "a\xE4", "A\xC4", false, true}, {1, "[", "{", false, true},
  };
  for (const TwoNames& row : rows) {
    SCOPED_TRACE(row.first + " and " + row.second + " with " + std::to_string(row.nCaseSensitive));
    directory.Write("ZOPCSRV.ini",
                    Lines({"[General]", "LogFileSize=1", "CaseSensitive=" + std::to_string(row.nCaseSensitive)}));
    Load();
    cTags names;
    names.szFileName("tags.csv");
    directory.Write("tags.csv", Lines({row.first + ";D;RW", row.second + ";D;RW"}));
    names.Refresh(0, 1);
    std::vector<std::string> expected;
    if (row.told) expected.push_back(Warned("#221 (" + row.second + ")"));
    if (!row.added) expected.push_back(Warned("#220 (" + row.second + ";D;RW)"));
    EXPECT_EQ(ReadWarnings(), expected);
    EXPECT_EQ(names.Count(), row.added ? 2 : 1);
    EXPECT_EQ(names.begin()->szTag(), row.first) << "the case is kept";
  }
}

TEST_F(TagFileReaderTest, ANameIsUpperCasedForTheOneNumberThatNoProjectHas) {
  RawSettings(Project()).nCaseSensitive = -1;
  std::string asked;
  syntax.tagName = [&](std::string& name) {
    asked = name;
    return 0;
  };
  Read("a\xE4 Bc;D;RW\r\n");
  EXPECT_EQ(asked, "A\xC4 BC");
  EXPECT_THAT(Names(), ElementsAre("A\xC4 BC"));
}

TEST_F(TagFileReaderTest, ALineIsWarnedOfInTheOrderOfItsFields) {
  syntax.tagName = [](std::string&) { return 2; };
  syntax.source = [](std::string&, std::int32_t, std::int32_t) { return 2; };
  Read("N;D\r\nN;D;x\r\n");
  EXPECT_THAT(ReadWarnings(),
              ElementsAre(Warned("#203 (N;D)"), Warned("#224 (N;D)"), Warned("#226 (N;D)"), Warned("#224 (N;D;x)"),
                          Warned("#226 (N;D;x)"), Warned("#203 (N;D;x)"), Warned("#220 (N;D;x)")));
  EXPECT_THAT(Boxes(), ElementsAre("#224", "#224"));
  EXPECT_THAT(Texts(), ElementsAre("D|||||||"));
}

TEST_F(TagFileReaderTest, UnknownResultsOfTheChecksAreNoWarning) {
  syntax.tagName = [](std::string&) { return 7; };
  syntax.source = [](std::string&, std::int32_t, std::int32_t) { return -1; };
  Read("N;D;RW\r\n");
  EXPECT_THAT(ReadWarnings(), IsEmpty());
  EXPECT_THAT(Names(), ElementsAre("")) << "the assignment of the name does not accept what it does not know";
  EXPECT_EQ(Boxes().size(), 1U);
  EXPECT_THAT(Texts(), ElementsAre("D|RW||||||"));
}

TEST_F(TagFileReaderTest, TheTextsAreWhatTheChecksLeave) {
  std::vector<std::string> names;
  std::vector<std::tuple<std::string, std::int32_t, std::int32_t>> sources;
  syntax.tagName = [&](std::string& name) {
    names.push_back(name);
    name.pop_back();
    return 0;
  };
  syntax.source = [&](std::string& source, std::int32_t type, std::int32_t plc) {
    sources.emplace_back(source, type, plc);
    source.pop_back();
    return 0;
  };
  directory.Write("tags.csv", " abcd ; mb10 ;RW\r\nabzz;mb1;RW\r\n");
  list.Refresh(3, 2);
  EXPECT_THAT(names, ElementsAre("abcd", "abc", "abzz", "abz")) << "each name is checked again when it is stored";
  EXPECT_THAT(sources, ElementsAre(std::tuple("MB10", 3, 2), std::tuple("MB1", 3, 2)));
  EXPECT_THAT(Names(), ElementsAre("ab"));
  EXPECT_THAT(Texts(), ElementsAre("MB1|RW||||||"));
  // "abz" is no name of the list by the time it is asked for; what the second check leaves of it is.
  EXPECT_THAT(ReadWarnings(), ElementsAre(Warned("#220 (abzz;mb1;RW)")));
}

TEST_F(TagFileReaderTest, ATagFileNameThatIsTooLongIsToldForEachLine) {
  const std::string name = std::string(29, 'f') + ".csv";
  list.szFileName(name);
  directory.Write(name, Lines({"A;D;RW", "", "B;D;RW"}));
  list.Refresh(0, 1);
  EXPECT_THAT(Boxes(), ElementsAre("#204 #225", "#204 #225"));
  EXPECT_THAT(ReadWarnings(), IsEmpty());
  EXPECT_THAT(Names(), ElementsAre("A", "B"));
  EXPECT_EQ(list.begin()->szFileName(), "");
}

TEST_F(TagFileReaderTest, AListThatHasTagsAlreadyIsAskedForThemToo) {
  ASSERT_TRUE(Add("Old"));
  Read(Lines({"OLD;D;RW", "New;D;RW", "new;D;RW", "Old;D;RW"}));
  EXPECT_THAT(Names(), ElementsAre("Old", "OLD", "New", "new"));
  EXPECT_THAT(ReadWarnings(),
              ElementsAre(Warned("#221 (OLD)"), Warned("#221 (new)"), Warned("#221 (Old)"), Warned("#220 (Old;D;RW)")));
}

}  // namespace
}  // namespace tavrin
