#include "platform/profile/ProfileLine.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tavrin {
namespace {

using Kind = ProfileLine::Kind;

struct LineCase {
  std::string text;
  Kind kind;
  std::string name;
  std::string value;
};

TEST(ProfileLine, IsTakenApartByItsFirstCharacterAndItsEqualSign) {
  using namespace std::string_literals;
  const std::vector<LineCase> cases = {
      {"", Kind::Empty, "", ""},
      {" \t\v\f\x1A", Kind::Empty, "", ""},
      {"\0[x]"s, Kind::Empty, "", ""},
      {"; a=1", Kind::Comment, "", ""},
      {"  ;[x]", Kind::Comment, "", ""},
      {"[Alpha]", Kind::Header, "Alpha", ""},
      {" \t[ \vAlpha ] text", Kind::Header, "Alpha", ""},
      {"[Alpha   ", Kind::Header, "Alpha", ""},
      {"[a]b]", Kind::Header, "a", ""},
      {"[[a]]", Kind::Header, "[a", ""},
      {"[]", Kind::Header, "", ""},
      {"[", Kind::Header, "", ""},
      {"[Alpha\0]"s, Kind::Header, "Alpha", ""},
      {"One=first", Kind::Key, "One", "first"},
      {"\tOne = a = b\v", Kind::Key, "One", "a = b"},
      {"=x", Kind::Key, "", "x"},
      {"One=\"x\"", Kind::Key, "One", "\"x\""},
      {"One=x\0y"s, Kind::Key, "One", "x"},
      {"One\0=x"s, Kind::Text, "", "One"},
      {"#One", Kind::Text, "", "#One"},
      {"\xA0", Kind::Text, "", "\xA0"},
  };
  for (const LineCase& expected : cases) {
    const ProfileLine line = ReadLine(expected.text, 0);
    EXPECT_EQ(line.kind, expected.kind) << expected.text;
    EXPECT_EQ(line.name, expected.name) << expected.text;
    EXPECT_EQ(line.value, expected.value) << expected.text;
    EXPECT_EQ(line.end, expected.text.size());
    EXPECT_EQ(IsHeader(expected.text, 0), expected.kind == Kind::Header) << expected.text;
  }
}

TEST(ProfileLine, TellsWhereTheValueBegins) {
  const std::string bytes = "x\r\n a =  b \r\n";
  const ProfileLine line = ReadLine(bytes, 3);
  EXPECT_EQ(bytes.substr(line.valueBegin, line.contentEnd - line.valueBegin), "  b ");
}

TEST(ProfileLine, EndsAtCarriageReturnLineFeedOrBoth) {
  const std::string bytes = "a\r\nb\nc\rd\r\r\ne\n\rf";
  std::vector<std::string> lines;
  ProfileLineReader reader(bytes, 0, bytes.size());
  while (const auto line = reader.Next()) lines.push_back(bytes.substr(line->begin, line->contentEnd - line->begin));
  EXPECT_EQ(lines, (std::vector<std::string>{"a", "b", "c", "d", "", "e", "", "f"}));
}

TEST(ProfileLine, BeginsAtTheStartAndBehindALineEnd) {
  const std::string bytes = "a\r\nb\rc";
  std::vector<std::size_t> begins;
  for (std::size_t at = 0; at <= bytes.size(); ++at) {
    if (IsLineBegin(bytes, at)) begins.push_back(at);
  }
  EXPECT_EQ(begins, (std::vector<std::size_t>{0, 3, 5}));
}

TEST(ProfileLine, OnlyAPairOfEqualQuotesIsTakenOff) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"\"a\"", "a"}, {"'a'", "a"},         {"\"\"", ""}, {"\"\"a\"\"", "\"a\""}, {"\"a'", "\"a'"},
      {"\"", "\""},   {"'\"a\"'", "\"a\""}, {"", ""},     {"a\"", "a\""},         {"\" a \"", " a "}};
  for (const auto& [quoted, plain] : cases) EXPECT_EQ(WithoutQuotes(quoted), plain) << quoted;
}

TEST(ProfileLine, ArgumentsEndAtNulAndNamesLoseSpacesOnly) {
  using namespace std::string_literals;
  EXPECT_EQ(NameArgument("  a b  "), "a b");
  EXPECT_EQ(NameArgument("\ta\t"), "\ta\t");
  EXPECT_EQ(NameArgument(" a \0b"s), "a");
  EXPECT_EQ(NameArgument("   "), "");
  EXPECT_EQ(TextArgument(" a \0b"s), " a ");
}

}  // namespace
}  // namespace tavrin
