#include "model/sheets/KeyClass.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>

#include <gtest/gtest.h>

#include "model/ErrorOf.h"
#include "platform/controls/Keys.h"
#include "support/ProjectTest.h"

namespace tavrin {
namespace {

constexpr int kBackspace = static_cast<int>(Key::Back);

class KeyClassTest : public ProjectTest {
 protected:
  /// The characters that pass, in the order of their codes.
  static std::string Passing(KeyClass keys) {
    std::string passing;
    for (int code = 1; code < 256; ++code) {
      if (code != kBackspace && Passes(keys, code)) passing += static_cast<char>(code);
    }
    return passing;
  }
};

TEST_F(KeyClassTest, EachClassLetsItsCharactersPassAndNoOther) {
  constexpr std::array<std::pair<KeyClass, std::string_view>, 6> kPassing{
      {{KeyClass::Name, "._0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"},
       {KeyClass::Digits, "0123456789"},
       {KeyClass::Flag, "01"},
       {KeyClass::Address, ".0123456789"},
       {KeyClass::Separator, "!/\\|"},
       {KeyClass::None, ""}}};
  for (const auto& [keys, passing] : kPassing) {
    std::string sorted(passing);
    std::sort(sorted.begin(), sorted.end());
    EXPECT_EQ(Passing(keys), sorted) << static_cast<int>(keys);
  }
  EXPECT_EQ(Passing(KeyClass::Free).size(), 254U);
}

TEST_F(KeyClassTest, BackspacePassesInAllClassesButTheLast) {
  for (const KeyClass keys :
       {KeyClass::Name, KeyClass::Digits, KeyClass::Flag, KeyClass::Address, KeyClass::Separator, KeyClass::Free}) {
    EXPECT_TRUE(Passes(keys, kBackspace)) << static_cast<int>(keys);
  }
  EXPECT_FALSE(Passes(KeyClass::None, kBackspace));
}

TEST_F(KeyClassTest, TheSeparatorsAreThoseOfTheOpenProject) {
  Project().szACCEPTEDSEPARATORS("\xE4;");
  EXPECT_EQ(Passing(KeyClass::Separator), ";\xE4");
  Project().szACCEPTEDSEPARATORS("");
  EXPECT_EQ(Passing(KeyClass::Separator), "");
  EXPECT_TRUE(Passes(KeyClass::Separator, kBackspace));
  modMain::globals.gOPC.reset();
  EXPECT_EQ(ErrorOf([] { static_cast<void>(Passes(KeyClass::Separator, '/')); }), ErrorNumber::NoObject);
  EXPECT_TRUE(Passes(KeyClass::Digits, '5'));
}

TEST_F(KeyClassTest, NumbersThatAreNoCharacterPassOnlyWhereAllDoes) {
  for (const int key : {0, -1, 256, 256 + '5', '5' - 256}) {
    EXPECT_FALSE(Passes(KeyClass::Digits, key)) << key;
    EXPECT_FALSE(Passes(KeyClass::Name, key)) << key;
  }
}

}  // namespace
}  // namespace tavrin
