#include "model/shared/NamePattern.h"

#include <array>
#include <ostream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace tavrin {
namespace {

struct Row {
  std::string_view name;
  std::string_view pattern;
  bool matches;
  friend std::ostream& operator<<(std::ostream& out, const Row& row) { return out << row.name << ' ' << row.pattern; }
};

class MatchesPatternTest : public testing::TestWithParam<Row> {};

TEST_P(MatchesPatternTest, AsUsersOfFilePatternsKnowIt) {
  const Row& row = GetParam();
  EXPECT_EQ(MatchesPattern(row.name, row.pattern), row.matches) << row.name << " " << row.pattern;
}

INSTANTIATE_TEST_SUITE_P(PlainNames, MatchesPatternTest,
                         testing::ValuesIn(std::to_array<Row>({{"a.ini", "a.ini", true},
                                                               {"A.Ini", "a.iNI", true},
                                                               {"\xE4.ini", "\xC4.INI", true},
                                                               {"a.ini", "b.ini", false},
                                                               {"a.ini", "a.in", false},
                                                               {"a.ini", "a.inif", false},
                                                               {"a.ini", "", false}})));

INSTANTIATE_TEST_SUITE_P(Stars, MatchesPatternTest,
                         testing::ValuesIn(std::to_array<Row>({{"a.ini", "*.*", true},
                                                               {"Makefile", "*.*", true},
                                                               {".hidden", "*.*", true},
                                                               {"a.b.c", "*", true},
                                                               {"Press_1.csv", "*.csv", true},
                                                               {"a.b.CSV", "*.csv", true},
                                                               {".csv", "*.csv", true},
                                                               {"a.csv.bak", "*.csv", false},
                                                               {"csv", "*.csv", false},
                                                               {"a.csvx", "*.csv", false},
                                                               {"a.c.txt", "*.c*", true},
                                                               {"a.conf", "*.c*", true},
                                                               {"Press_1.csv", "press*", true},
                                                               {"Press_1.csv", "p*s*1*v", true},
                                                               {"Press_1.csv", "p*2*", false},
                                                               {"abc", "*.", true},
                                                               {"a.b", "*.", false},
                                                               {"a.b", "*.?", true},
                                                               {"a", "*.?", true},
                                                               {"a.bc", "*.?", false},
                                                               {"a.b.cd", "*.?", false},
                                                               {"a", "a.*", true},
                                                               {"a.b", "a.*", true},
                                                               {"ab", "a.*", false}})));

INSTANTIATE_TEST_SUITE_P(QuestionMarks, MatchesPatternTest,
                         testing::ValuesIn(std::to_array<Row>({{"ab.txt", "??.txt", true},
                                                               {"a.txt", "??.txt", true},
                                                               {"abc.txt", "??.txt", false},
                                                               {"a.t", "a.???", true},
                                                               {"a", "a.?", true},
                                                               {"a.text", "a.???", false},
                                                               {"xay", "?a?", true},
                                                               {"xa", "?a?", true},
                                                               {"ay", "?a?", false}})));

TEST(MatchesPattern, APatternOfManyStarsTakesNoEndlessTime) {
  std::string pattern;
  for (int i = 0; i < 100; ++i) pattern += "*a";
  EXPECT_FALSE(MatchesPattern(std::string(255, 'a') + "b", pattern));
  EXPECT_TRUE(MatchesPattern(std::string(255, 'a'), pattern));
}

}  // namespace
}  // namespace tavrin
