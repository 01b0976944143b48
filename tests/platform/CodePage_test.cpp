#include "platform/CodePage.h"

#include <string>

#include <gtest/gtest.h>

namespace tavrin {
namespace {

/// Every test starts and ends with the page that a program starts with.
class CodePageTest : public testing::Test {
 public:
  CodePageTest() { UseCodePage(usual_); }
  ~CodePageTest() override { UseCodePage(usual_); }

 private:
  CodePage usual_ = MakeCodePage("1252").value();
};

void UsePage(const char* number) { UseCodePage(MakeCodePage(number).value()); }

TEST(CodePageAtStart, Is1252AsTheSystemKnowsIt) {
  const std::optional<CodePage> system = MakeCodePage("1252");
  ASSERT_TRUE(system);
  EXPECT_EQ(ActiveCodePage().unicode, system->unicode);
  EXPECT_EQ(ActiveCodePage().upper, system->upper);
  EXPECT_EQ(ActiveCodePage().lower, system->lower);
}

TEST_F(CodePageTest, UnassignedByteStandsForItsOwnNumber) {
  for (const std::size_t byte : {0x81U, 0x8DU, 0x8FU, 0x90U, 0x9DU}) EXPECT_EQ(ActiveCodePage().unicode[byte], byte);
  EXPECT_EQ(ToUtf8("\x81"), "\xC2\x81");
  EXPECT_EQ(FromUtf8("\xC2\x81"), "\x81");
}

TEST_F(CodePageTest, CaseFollowsThePage) {
  EXPECT_EQ(UpperCase("abc \xE4\xF6\xFC\xDF \xFF\x9A\xB5\x83 7"), "ABC \xC4\xD6\xDC\xDF \x9F\x8A\xB5\x83 7");
  EXPECT_EQ(LowerCase("ABC \xC4\xD6\xDC\xDF \x9F\x8A\xD7 7"), "abc \xE4\xF6\xFC\xDF \xFF\x9A\xD7 7");
  UsePage("1250");
  EXPECT_EQ(UpperCase("\xB9\xE8\x9A\xB5"), "\xA5\xC8\x8A\xB5");  // a ogonek, c caron, s caron, micro sign
  EXPECT_EQ(LowerCase("\xA3"), "\xB3");                          // L stroke
}

TEST_F(CodePageTest, CaseIsASingleByteOrNone) {
  for (const char* number : {"1250", "1251", "1252", "1253", "1254", "1257", "437", "850"}) {
    const CodePage page = MakeCodePage(number).value();
    for (std::size_t byte = 0; byte < 0x80; ++byte) {
      const bool lower = byte >= 'a' && byte <= 'z';
      EXPECT_EQ(page.upper[byte], static_cast<char>(lower ? byte - 32 : byte)) << number;
    }
  }
}

TEST_F(CodePageTest, EqualIgnoringCaseComparesUpperCase) {
  EXPECT_TRUE(EqualIgnoringCase("", ""));
  EXPECT_TRUE(
      EqualIgnoringCase("Gr\xF6\xDF"
                        "e",
                        "GR\xD6\xDF"
                        "E"));
  EXPECT_FALSE(EqualIgnoringCase("a", "ab"));
  EXPECT_FALSE(EqualIgnoringCase("ab", "a"));
  EXPECT_FALSE(EqualIgnoringCase("a", "\xE4"));
}

TEST_F(CodePageTest, Utf8HoldsEveryByteAndComesBack) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  for (const char* number : {"1250", "1251", "1252", "437"}) {
    UsePage(number);
    EXPECT_EQ(FromUtf8(ToUtf8(all)), all) << number;
  }
}

TEST_F(CodePageTest, Utf8OfAKnownText) {
  EXPECT_EQ(ToUtf8("\x80 \xE4"), "\xE2\x82\xAC \xC3\xA4");
  UsePage("1250");
  EXPECT_EQ(ToUtf8("\xE8"), "\xC4\x8D");
  EXPECT_EQ(FromUtf8("\xC4\x8D"), "\xE8");
}

TEST_F(CodePageTest, CharacterThatThePageLacksIsRefused) {
  EXPECT_EQ(FromUtf8("\xC4\x8D"), std::nullopt);          // c caron
  EXPECT_EQ(FromUtf8("\xF0\x9F\x98\x80"), std::nullopt);  // behind U+FFFF
  EXPECT_EQ(FromUtf8("\xC2\x80"), std::nullopt);          // 0x80 is the Euro sign
}

TEST_F(CodePageTest, InvalidUtf8IsRefused) {
  for (const char* text : {"\x80", "a\xC3", "\xC3(", "\xC0\x80", "\xC1\xA1", "\xE0\x81\xA1", "\xED\xA0\x80",
                           "\xF8\x88\x80\x80\x80", "\xF4\x90\x80\x80", "\xFF", "\xE2\x82"}) {
    EXPECT_EQ(FromUtf8(text), std::nullopt) << text;
  }
  EXPECT_EQ(FromUtf8(""), "");
}

TEST_F(CodePageTest, PageWithSeveralBytesACharacterIsRefused) {
  for (const char* number : {"932", "936", "949", "950", "65001"}) EXPECT_FALSE(MakeCodePage(number)) << number;
}

TEST_F(CodePageTest, PageWithoutAsciiIsRefused) {
  for (const char* number : {"037", "500", "864"}) EXPECT_FALSE(MakeCodePage(number)) << number;
}

TEST_F(CodePageTest, UnknownPageIsRefused) {
  for (const char* number : {"", "1", "99999", "abc", "1252//TRANSLIT", " 1252", "CP1252", "-1252", "125200"}) {
    EXPECT_FALSE(MakeCodePage(number)) << number;
  }
}

}  // namespace
}  // namespace tavrin
