#include "model/shared/modParser.h"

#include <cstdint>
#include <limits>
#include <string>
#include <tuple>
#include <vector>

#include "model/shared/Messages.h"
#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using ParserTest = ProjectTest;

TEST_F(ParserTest, AsksTheServersChecksAndHandsTheirTextBack) {
  std::vector<std::tuple<std::string, std::int32_t, std::int32_t>> asked;
  syntax.tagName = [](std::string& text) { return text += "1", 11; };
  syntax.nodeName = [](std::string& text) { return text += "2", -12; };
  syntax.source = [&](std::string& text, std::int32_t type, std::int32_t plc) {
    asked.emplace_back(text, type, plc);
    text = "3";
    return 13;
  };
  std::string text = "T";
  EXPECT_EQ(ParserIsValidTagName(text), 11);
  EXPECT_EQ(text, "T1");
  EXPECT_EQ(ParserIsValidNodeName(text), -12);
  EXPECT_EQ(text, "T12");
  EXPECT_EQ(ParserIsValidSource(text, 4, 3), 13);
  EXPECT_EQ(text, "3");
  EXPECT_THAT(asked, testing::ElementsAre(std::tuple("T12", 4, 3)));
}

TEST_F(ParserTest, EachResultHasItsText) {
  using Limits = std::numeric_limits<std::int32_t>;
  const std::vector<std::tuple<std::int32_t, std::int32_t, std::int32_t>> rows{
      {0, 0, 0}, {1, 225, 228}, {2, 224, 226},         {3, 223, 227},
      {4, 0, 0}, {-1, 0, 0},    {Limits::min(), 0, 0}, {Limits::max(), 0, 0},
  };
  for (const auto& [result, nameText, sourceText] : rows) {
    EXPECT_EQ(NameCheckText(result), nameText) << result;
    EXPECT_EQ(SourceCheckText(result), sourceText) << result;
  }
}

}  // namespace
}  // namespace tavrin
