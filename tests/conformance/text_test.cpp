#include "platform/qt/Text.h"

#include <gtest/gtest.h>

#include "platform/CodePage.h"

namespace tavrin {
namespace {

TEST(Text, EveryByteGoesToTheScreenAndBack) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string text(1, static_cast<char>(static_cast<unsigned char>(byte)));
    EXPECT_EQ(FromQt(ToQt(text)), text) << byte;
  }
}

TEST(Text, ByteAndCharacterAreThoseOfTheCodePage) {
  EXPECT_EQ(ToQt("a\x80\xFC"), QStringLiteral("a") + QChar(0x20AC) + QChar(0xFC));
  EXPECT_EQ(ToQt(std::string_view("a\0b", 3)).size(), 3);
}

TEST(Text, AnotherCodePageIsFollowed) {
  const CodePage before = ActiveCodePage();
  const auto eastern = MakeCodePage("1250");
  ASSERT_TRUE(eastern);
  UseCodePage(*eastern);
  EXPECT_EQ(ToQt("\xB9"), QString(QChar(0x0105)));
  EXPECT_EQ(FromQt(QString(QChar(0x0105))), "\xB9");
  UseCodePage(before);
  EXPECT_EQ(FromQt(QString(QChar(0x0105))), std::nullopt);
}

TEST(Text, AForeignCharacterIsRefusedOrLeftOut) {
  const QString text = QStringLiteral("a") + QChar(0x0416) + QString::fromUcs4(U"\U0001F600") + QStringLiteral("b");
  EXPECT_EQ(FromQt(text), std::nullopt);
  EXPECT_EQ(KnownCharacters(text), "ab");
}

TEST(Text, AnAccentOfItsOwnIsTheLetterThatItMakes) {
  const QString text = QStringLiteral("u") + QChar(0x0308);
  EXPECT_EQ(FromQt(text), "\xFC");
  EXPECT_EQ(KnownCharacters(text), "\xFC");
}

TEST(Text, HalfACharacterIsNone) { EXPECT_EQ(KnownCharacters(QStringLiteral("a") + QChar(0xD83D)), "a"); }

}  // namespace
}  // namespace tavrin
