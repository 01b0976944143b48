#include "model/shared/modText.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/RuntimeError.h"
#include "platform/TextLibrary.h"
#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

/// Answers every question with one text, or fails.
class OneText : public TextLibrary {
 public:
  void Init() override {}
  [[nodiscard]] std::string LoadText(int number, int language) override {
    asked.emplace_back(number, language);
    if (error) throw RuntimeError(*error);
    return text;
  }

  std::string text;
  std::optional<ErrorNumber> error;
  std::vector<std::pair<int, int>> asked;
};

class modTextTest : public ProjectTest {
 protected:
  modTextTest() { modMain::globals.services = &own; }

  OneText library;
  Services own{desktop, files, files, registry, library, syntax, settings, around.all, ""};
};

TEST_F(modTextTest, ResTextAsksForTheNumberInTheCurrentLanguage) {
  library.text = "wording";
  modMain::globals.gnLanguage = 7;
  EXPECT_EQ(ResText(204), "wording");
  modMain::globals.gnLanguage = 9;
  EXPECT_EQ(ResText(-1), "wording");
  EXPECT_THAT(library.asked, ElementsAre(Pair(204, 7), Pair(-1, 9)));
}

TEST_F(modTextTest, ResTextEndsBeforeTheFirstNul) {
  library.text = std::string("word\0ing\0", 9);
  EXPECT_EQ(ResText(1), "word");
  library.text = std::string("\0word", 5);
  EXPECT_EQ(ResText(1), "");
}

TEST_F(modTextTest, ResTextOfAnUnknownNumberIsEmptyWithoutASecondTry) {
  EXPECT_EQ(ResText(999), "");
  EXPECT_EQ(library.asked.size(), 1U);
}

TEST_F(modTextTest, ResTextIsSilentlyEmptyOnAnyError) {
  library.error = ErrorNumber::FileNotFound;
  EXPECT_EQ(ResText(1), "");
  modMain::globals.services = nullptr;
  EXPECT_EQ(ResText(1), "");
  EXPECT_THAT(Boxes(), IsEmpty());
}

}  // namespace
}  // namespace tavrin
