#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/session/Script.h"
#include "app/session/Transcript.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<std::string> WordsOf(const std::string& line, const std::vector<std::string>& arguments = {}) {
  ScriptParser parser(arguments);
  EXPECT_TRUE(parser.Parse(line)) << parser.Fault().message;
  return parser.Lines().empty() ? std::vector<std::string>{} : parser.Lines().front().words;
}

/// "LINE: message" of a script that cannot be run.
std::string FaultOf(const std::string& text, const std::vector<std::string>& arguments = {}) {
  ScriptParser parser(arguments);
  EXPECT_FALSE(parser.Parse(text));
  EXPECT_THAT(parser.Lines(), IsEmpty()) << "nothing of a faulty script may be run";
  return std::to_string(parser.Fault().line) + ": " + parser.Fault().message;
}

TEST(ScriptParser, WordsStandBetweenBlanksAndTabs) {
  EXPECT_THAT(WordsOf("click mnuFile 3"), ElementsAre("click", "mnuFile", "3"));
  EXPECT_THAT(WordsOf(" \tclick  \t mnuFile\t3 \t"), ElementsAre("click", "mnuFile", "3"));
}

TEST(ScriptParser, AWordWithBlanksStandsBetweenQuotationMarksAndDoublesThoseInIt) {
  EXPECT_THAT(WordsOf(R"(type "a b" "" "say ""a""" """")"), ElementsAre("type", "a b", "", "say \"a\"", "\""));
  EXPECT_THAT(WordsOf(R"(drop C:\OPC\ZOPCSRV.ini)"), ElementsAre("drop", R"(C:\OPC\ZOPCSRV.ini)"));
}

TEST(ScriptParser, ALineThatBeginsWithANumberSignIsAComment) {
  EXPECT_THAT(WordsOf("# click mnuFile 3"), IsEmpty());
  EXPECT_THAT(WordsOf("  #click"), IsEmpty());
  EXPECT_THAT(WordsOf("click tvwMain #1#2"), ElementsAre("click", "tvwMain", "#1#2"));
}

TEST(ScriptParser, LinesEndInAnyWayAndAreCountedFromOne) {
  ScriptParser parser({});
  ASSERT_TRUE(parser.Parse("\xEF\xBB\xBF# one\r\n\r\nstart\n\rclose\rclose"));
  ASSERT_EQ(parser.Lines().size(), 3U);
  EXPECT_EQ(parser.Lines()[0].number, 3);
  EXPECT_EQ(parser.Lines()[0].text, "start");
  EXPECT_EQ(parser.Lines()[1].number, 5);
  EXPECT_EQ(parser.Lines()[2].number, 6);
}

TEST(ScriptParser, ArgumentsTakeTheirPlaceInAWordAndDoNotSplitIt) {
  EXPECT_THAT(WordsOf("drop $1/$2", {"a b", "\"c\""}), ElementsAre("drop", "a b/\"c\""));
  EXPECT_THAT(WordsOf("type \"<$1>\"", {"$1"}), ElementsAre("type", "<$1>"));
  EXPECT_EQ(FaultOf("start\ndrop $2", {"a"}), "2: the script was called without argument $2");
}

TEST(ScriptParser, DollarWritesCharactersThatALineCannotHold) {
  EXPECT_THAT(WordsOf("type a$nb$rc$td$$e$x41$xFC"), ElementsAre("type", "a\nb\rc\td$eA\xFC"));
  for (const char* line :
       {"type $", "type $0", "type $a", "type $x", "type $x4", "type $xG0", "type $x+1", "type $x00"}) {
    EXPECT_THAT(FaultOf(line), HasSubstr("$")) << line;
  }
}

TEST(ScriptParser, TextsAreInTheCodePage) {
  EXPECT_THAT(WordsOf("type Wärme"), ElementsAre("type", "W\xE4rme"));
  EXPECT_THAT(FaultOf("start\ntype 水"), HasSubstr("2: there is a character in the line that the code page"));
  EXPECT_THAT(FaultOf("type \xC3("), HasSubstr("code page"));
  EXPECT_THAT(FaultOf("type $1", {"\xFF"}), HasSubstr("code page"));
}

TEST(ScriptParser, RefusesAQuotationMarkInTheWrongPlace) {
  EXPECT_THAT(FaultOf("type \"a"), HasSubstr("a quotation mark is missing"));
  EXPECT_THAT(FaultOf("type \"a\"\""), HasSubstr("a quotation mark is missing"));
  EXPECT_THAT(FaultOf("type a\"b"), HasSubstr("a quotation mark stands in a word"));
  EXPECT_THAT(FaultOf("type \"a\"b"), HasSubstr("a quotation mark stands in a word"));
}

TEST(ScriptParser, RefusesControlCharacters) {
  EXPECT_THAT(FaultOf(std::string("start\ntype a\0b", 14)), HasSubstr("2: there is a control character"));
  EXPECT_THAT(FaultOf("type \x1B[2J"), HasSubstr("control character"));
  EXPECT_THAT(FaultOf("# \x07"), HasSubstr("control character")) << "also in a comment, which an editor shows";
}

TEST(ScriptParser, RefusesWhatIsTooLong) {
  EXPECT_THAT(WordsOf("type " + std::string(ScriptParser::kLongestLine - 5, 'a')).back(),
              testing::SizeIs(ScriptParser::kLongestLine - 5));
  EXPECT_THAT(FaultOf("type " + std::string(ScriptParser::kLongestLine - 4, 'a')), HasSubstr("too long"));
  std::string many = "type ";
  for (int i = 0; i < 1000; ++i) many += "$1";
  EXPECT_THAT(FaultOf(many, {std::string(2000, 'a')}), HasSubstr("too long"));
  std::string words = "start";
  for (int i = 0; i < 1000; ++i) words += " $1";
  EXPECT_THAT(FaultOf(words, {std::string(2000, 'a')}), HasSubstr("too long"));
}

TEST(ScriptParser, AnEmptyScriptHasNoLines) { EXPECT_THAT(WordsOf(""), IsEmpty()); }

TEST(Transcript, AQuotedTextIsReadBackAsItWas) {
  std::string all;
  for (int code = 1; code < 256; ++code) all += static_cast<char>(code);
  const std::string quoted = Quoted(all);
  EXPECT_EQ(quoted.find('\n'), std::string::npos);
  EXPECT_THAT(WordsOf("type " + quoted), ElementsAre("type", all));
}

TEST(Transcript, EscapesOnlyWhatALineCannotHold) {
  EXPECT_EQ(Quoted("W\xE4rme 20 \x80"), "\"Wärme 20 €\"");
  EXPECT_EQ(Quoted("\"$\r\n\t\x1B\x7F"), "\"\"\"$$$r$n$t$x1B$x7F\"");
}

}  // namespace
}  // namespace tavrin
