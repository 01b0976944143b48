#include "model/shared/LengthSyntax.h"

#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tavrin {
namespace {

struct Text {
  std::string text;
  std::int32_t result;
};

TEST(LengthSyntax, AcceptsEveryTextOfOneTo32Characters) {
  const std::vector<Text> rows{
      {"", 3},
      {"a", 0},
      {" ", 0},
      {";/\\=[]", 0},
      {"\xE4\x80\xFF", 0},
      {"MB10", 0},
      {std::string(32, 'x'), 0},
      {std::string(33, 'x'), 1},
      {std::string(100000, 'x'), 1},
      {std::string(1, '\0'), 3},  // the text ends at its first NUL
      {"x" + std::string(1, '\0') + std::string(40, 'x'), 0},
  };
  LengthSyntax syntax;
  for (const Text& row : rows) {
    SCOPED_TRACE(row.text);
    std::string text = row.text;
    EXPECT_EQ(syntax.CheckTagName(text), row.result);
    EXPECT_EQ(syntax.CheckNodeName(text), row.result);
    EXPECT_EQ(text, row.text) << "nothing is changed";
  }
}

TEST(LengthSyntax, ASourceIsNotHeldAgainstTypeAndController) {
  LengthSyntax syntax;
  for (std::int32_t type = -1; type <= 5; ++type) {
    for (std::int32_t plc = 0; plc <= 4; ++plc) {
      std::string source = "MB10";
      EXPECT_EQ(syntax.CheckSource(source, type, plc), 0);
      std::string none;
      EXPECT_EQ(syntax.CheckSource(none, type, plc), 3);
      std::string tooLong(33, 'x');
      EXPECT_EQ(syntax.CheckSource(tooLong, type, plc), 1);
    }
  }
}

}  // namespace
}  // namespace tavrin
