#include "model/KeyTable.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Sample {
  std::int32_t number = -7;
  std::string text = "old";
};

constexpr std::array<std::string_view, 2> kWords{"One", "TWO"};
constexpr std::array<std::int32_t, 2> kNumbers{10, 20};

class KeyTableTest : public ProjectTest {
 protected:
  /// Reads the key "Key" of the section with that value.
  Sample Read(KeyForm form, SettingMember<Sample> member, const KeyLimits& limits, const std::string& value) {
    directory.Write("file.ini", "[Section]\r\nKey=" + value + "\r\n");
    modMain::globals.gReadWarnings.reset();
    KeyReader reader(WarningKind::Network, "told.ini", "Section", directory.Path() + "file.ini");
    Sample sample;
    ReadKey(reader, KeyRow<Sample>{NetworkType::Mpi, "Key", form, 1, member, limits}, sample);
    failed = reader.Failed();
    last = reader.LastValue();
    return sample;
  }

  static std::optional<std::string> Written(KeyForm form, SettingMember<Sample> member, const KeyLimits& limits,
                                            const Sample& sample) {
    return KeyText(KeyRow<Sample>{NetworkType::Mpi, "Key", form, 1, member, limits}, sample);
  }

  bool failed = false;
  std::string last;
};

TEST_F(KeyTableTest, ABadValueIsToldForItsFileAndLeavesTheField) {
  EXPECT_EQ(Read(KeyForm::Number, &Sample::number, {.highest = 5}, " 6 ; x").number, -7);
  EXPECT_TRUE(failed);
  EXPECT_EQ(last, "6");
  EXPECT_THAT(ReadWarnings(), ElementsAre("Network|told.ini|#207 Key (6)"));
}

TEST_F(KeyTableTest, ARowCanTellItsBadValueWithoutTheValue) {
  const KeyLimits limits{.oneOf = kNumbers, .wholeText = false, .tellValue = false};
  for (const char* value : {"15", "", "x"}) {
    EXPECT_EQ(Read(KeyForm::Number, &Sample::number, limits, value).number, -7);
    EXPECT_TRUE(failed);
    EXPECT_THAT(ReadWarnings(), ElementsAre("Network|told.ini|#207 Key"));
  }
  EXPECT_EQ(Read(KeyForm::Number, &Sample::number, limits, "20 baud").number, 20);
  EXPECT_FALSE(failed);
  EXPECT_THAT(ReadWarnings(), IsEmpty());
}

TEST_F(KeyTableTest, TheTestIsMadeBeforeRounding) {
  EXPECT_EQ(Read(KeyForm::Number, &Sample::number, {.highest = 5}, "5.1").number, -7);
  EXPECT_EQ(Read(KeyForm::Number, &Sample::number, {.highest = 5}, "4.5").number, 4);
  EXPECT_EQ(Read(KeyForm::Number, &Sample::number, {.highest = 5}, "3.5").number, 4);
}

TEST_F(KeyTableTest, ANumberOutsideTheRangeOfItsFieldIsARunTimeError) {
  EXPECT_THROW(static_cast<void>(Read(KeyForm::Number, &Sample::number, {}, "2147483647.5")), RuntimeError);
  EXPECT_EQ(Read(KeyForm::Number, &Sample::number, {}, "2147483647.4").number, 2147483647);
}

TEST_F(KeyTableTest, WordsAreKeptInUpperCaseAsTheyStandOrAsTheirPosition) {
  const KeyLimits limits{.words = kWords};
  EXPECT_EQ(Read(KeyForm::Word, &Sample::text, limits, "one").text, "ONE");
  EXPECT_EQ(Read(KeyForm::WordAsIs, &Sample::text, limits, "twO").text, "twO");
  EXPECT_EQ(Read(KeyForm::WordNumber, &Sample::number, limits, "two").number, 2);
  EXPECT_EQ(Read(KeyForm::Word, &Sample::text, limits, "three").text, "old");
  EXPECT_THAT(ReadWarnings(), ElementsAre("Network|told.ini|#207 Key (three)"));
}

TEST_F(KeyTableTest, AnAddressMayBeZeroWhereTheRowSaysSo) {
  EXPECT_EQ(Read(KeyForm::Address, &Sample::text, {.allowZeroAddress = true}, "0.0.0.0").text, "0.0.0.0");
  EXPECT_EQ(Read(KeyForm::Address, &Sample::text, {}, "0.0.0.0").text, "old");
  EXPECT_THAT(ReadWarnings(), ElementsAre("Network|told.ini|#207 Key (0.0.0.0)"));
}

TEST_F(KeyTableTest, EveryFormIsWrittenAsItIsRead) {
  const KeyLimits words{.words = kWords};
  EXPECT_EQ(Written(KeyForm::Number, &Sample::number, {}, {-5, ""}), "-5");
  EXPECT_EQ(Written(KeyForm::NumberText, &Sample::text, {}, {0, "12.5"}), "12");
  EXPECT_EQ(Written(KeyForm::NumberText, &Sample::text, {}, {0, "x"}), "0");
  EXPECT_EQ(Written(KeyForm::Text, &Sample::text, {}, {0, " a "}), " a ");
  EXPECT_EQ(Written(KeyForm::Word, &Sample::text, words, {0, "two"}), "two");
  EXPECT_EQ(Written(KeyForm::WordNumber, &Sample::number, words, {2, ""}), "TWO");
  EXPECT_EQ(Written(KeyForm::Fixed, &Sample::number, words, {5, ""}), "One");
}

TEST_F(KeyTableTest, ANumberWithoutAWordIsNotWritten) {
  for (const std::int32_t number : {0, 3, -1}) {
    EXPECT_EQ(Written(KeyForm::WordNumber, &Sample::number, {.words = kWords}, {number, ""}), std::nullopt);
  }
}

}  // namespace
}  // namespace tavrin
