#include "platform/BestFit.h"

#include <string>

#include <gtest/gtest.h>

#include "platform/CodePage.h"

namespace tavrin {
namespace {

class BestFitTest : public testing::Test {
 protected:
  ~BestFitTest() override { UseCodePage(usual_); }

  static void Use(std::string_view number) {
    const auto page = MakeCodePage(number);
    ASSERT_TRUE(page);
    UseCodePage(*page);
  }

 private:
  CodePage usual_ = ActiveCodePage();
};

TEST_F(BestFitTest, CharactersOfThePageAreThemselves) {
  EXPECT_EQ(FromUtf16(u"Gr\u00F6\u00DFe \u20AC \u0152 \u017E \u2026"),
            "Gr\xF6\xDF"
            "e \x80 \x8C \x9E \x85");
  EXPECT_EQ(FromUtf16(std::u16string_view(u"a\0\t\u0081", 4)), std::string_view("a\0\t\x81", 4));
  EXPECT_EQ(FromUtf16(u""), "");
}

TEST_F(BestFitTest, LettersLoseMarksThatThePageDoesNotHave) {
  EXPECT_EQ(FromUtf16(u"Za\u017C\u00F3\u0142\u0107 g\u0119\u015Bl\u0105 ja\u017A\u0144"), "Zaz\xF3lc gesla jazn");
  EXPECT_EQ(FromUtf16(u"\u0110\u0111 \u0130\u0131"), "\xD0\x64 Ii");
}

TEST_F(BestFitTest, SignsBecomeTheOneThatLooksMostAlike) {
  EXPECT_EQ(FromUtf16(u"\u2010\u2212\u2044\u2032\u3000\u221E"), "--/' 8");
  EXPECT_EQ(FromUtf16(u"\uFF21\uFF5E \u2502\u250C"), "A~ \xA6+");
}

TEST_F(BestFitTest, WithoutLikenessThereIsAQuestionMark) {
  EXPECT_EQ(FromUtf16(u"\u0416\u4E2D\u2192\u0132\u2192"), "?????");
  EXPECT_EQ(FromUtf16(u"\u0100\u0132\u0148\u0149\uFFFF\u00FF"), "A?n??\xFF")
      << "between, at the ends of and behind rows";
}

TEST_F(BestFitTest, EachHalfOfASurrogatePairIsACharacter) { EXPECT_EQ(FromUtf16(u"\U0001F600"), "??"); }

TEST_F(BestFitTest, AnotherPageTakesWhatItHasAndTheLikenessOfTheRest) {
  Use("1250");
  EXPECT_EQ(FromUtf16(u"\u0142\u0107 \u00E3\u00F1 \u00F8 \u0416"), "\xB3\xE6 an o ?");
  Use("1251");
  EXPECT_EQ(FromUtf16(u"\u0416 \u00E4\u00DF\u00E9 \u0142"), "\xC6 a?e l");
  EXPECT_EQ(FromUtf16(u"\u0110"), "?") << "its likeness is not in this page either";
}

}  // namespace
}  // namespace tavrin
