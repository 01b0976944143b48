#include "app/session/Verbs.h"

#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/session/Subjects.h"

namespace tavrin {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// "LINE: message" of the first fault, empty when there is none.
std::string FaultOf(const std::string& script) {
  ScriptParser parser({});
  EXPECT_TRUE(parser.Parse(script)) << parser.Fault().message;
  const auto fault = FindFault(parser.Lines());
  return fault ? std::to_string(fault->line) + ": " + fault->message : "";
}

TEST(Verbs, EachHasANameOfItsOwnAndIsExplained) {
  std::set<std::string_view> names;
  for (const Verb& verb : Verbs()) {
    EXPECT_TRUE(names.insert(verb.name).second) << verb.name;
    EXPECT_EQ(FindVerb(verb.name), &verb);
    EXPECT_THAT(std::string(verb.help), Not(IsEmpty())) << verb.name;
    EXPECT_NE(verb.act, nullptr);
  }
  EXPECT_EQ(FindVerb("Click"), nullptr);
}

TEST(Verbs, EachSubjectHasANameOfItsOwnAndIsExplained) {
  std::set<std::string_view> names;
  for (const Subject& subject : Subjects()) {
    EXPECT_TRUE(names.insert(subject.name).second) << subject.name;
    EXPECT_EQ(FindSubject(subject.name), &subject);
    EXPECT_THAT(std::string(subject.help), Not(IsEmpty())) << subject.name;
  }
  for (const Listing& listing : Listings()) {
    EXPECT_TRUE(names.insert(listing.name).second) << listing.name << " is a subject as well";
    EXPECT_EQ(FindListing(listing.name), &listing);
    EXPECT_THAT(std::string(listing.help), Not(IsEmpty())) << listing.name;
  }
}

std::string Document(const std::string& name) {
  std::ifstream file(TAVRIN_SOURCE_DIR "/docs/" + name);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

TEST(Verbs, TheDocumentsKnowEveryWord) {
  const std::string guide = Document("sessions.md");
  const std::string manual = Document("tavrinctl.1");
  const auto check = [&](std::string_view word, std::string_view arguments) {
    const std::string name(word);
    EXPECT_THAT(guide, testing::ContainsRegex("`" + name + "[ `]")) << name;
    EXPECT_THAT(manual, HasSubstr(".B \"" + name + (arguments.empty() ? "" : " ") + std::string(arguments) + "\"\n"));
  };
  for (const Verb& verb : Verbs()) check(verb.name, verb.arguments);
  for (const Subject& subject : Subjects()) check(subject.name, subject.arguments);
  for (const Listing& listing : Listings()) check(listing.name, listing.arguments);
}

TEST(Verbs, AnUnknownOneIsAFault) { EXPECT_EQ(FaultOf("start\nfly away"), "2: \"fly\" is no verb"); }

TEST(Verbs, TooFewOrTooManyWordsAreAFault) {
  for (const char* line : {"start", "start -TEST -DEMO", "click mnuFile 3", "click vsgOPC 2 1", "rightclick tvwMain a",
                           "rightclick vsgTags 1 1", "select tvwMain a", "select vsgTags 1 1 2 2", "close", "key F2",
                           "answer yes", "answer file a", "print tree tvwMain", "print place", "print place vsgOPC",
                           "print place mnuFile 1", "expect caption a", "expect cell vsgOPC 1 1 a"}) {
    EXPECT_EQ(FaultOf(line), "") << line;
  }
  EXPECT_EQ(FaultOf("close now"), "1: wanted: close");
  EXPECT_EQ(FaultOf("key"), "1: wanted: key KEYS");
  EXPECT_EQ(FaultOf("click vsgOPC 2 1 3"), "1: wanted: click CONTROL [NUMBER | PATH | ROW] [COL]");
  EXPECT_EQ(FaultOf("rightclick tvwMain"), "1: wanted: rightclick CONTROL PATH | ROW [COL]");
  EXPECT_THAT(FaultOf("select vsgTags 1 1 2 2 3"), HasSubstr("wanted: select"));
  EXPECT_THAT(FaultOf("answer file a b"), HasSubstr("wanted: answer"));
}

TEST(Verbs, PrintAndExpectWantAKnownSubjectWithItsWords) {
  EXPECT_EQ(FaultOf("print weather"), "1: \"weather\" is no subject");
  EXPECT_EQ(FaultOf("expect tree tvwMain a"), "1: \"tree\" can be printed only");
  EXPECT_EQ(FaultOf("expect caption"), "1: wanted: expect SUBJECT [WORDS...] TEXT");
  EXPECT_EQ(FaultOf("expect cell vsgOPC 1 1"), "1: wanted: expect cell GRID ROW COL TEXT");
  EXPECT_EQ(FaultOf("expect caption a b"), "1: wanted: expect caption TEXT");
  EXPECT_EQ(FaultOf("print cell vsgOPC 1"), "1: wanted: print cell GRID ROW COL");
  EXPECT_EQ(FaultOf("print grid"), "1: wanted: print grid GRID");
}

}  // namespace
}  // namespace tavrin
