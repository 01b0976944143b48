// Files that nobody wrote by hand: what they cost must follow from their size. The sizes are such that a cost that
// grows with the square would need hours.
#include <array>
#include <string>

#include <gtest/gtest.h>

#include "platform/profile/ProfileAnswer.h"
#include "platform/profile/ProfileImage.h"

namespace tavrin {
namespace {

std::string Value(const ProfileImage& image, std::string_view section, std::string_view key) {
  std::array<char, 32> buffer{};
  const std::size_t count = AnswerValue(image, section, key, "none", buffer);
  return {buffer.data(), count};
}

TEST(ProfileHostile, AMillionSections) {
  std::string text;
  for (int number = 0; number < 1'000'000; ++number) text += "[" + std::to_string(number) + "]\nk=v\n";
  ProfileImage image(std::move(text));
  EXPECT_EQ(image.SectionCount(), 1'000'000U);
  for (int number = 0; number < 1'000'000; number += 7) {
    ASSERT_EQ(image.FindSection(std::to_string(number)), static_cast<std::size_t>(number));
  }
  EXPECT_EQ(Value(image, "999999", "K"), "v");
  EXPECT_EQ(Value(image, "1000000", "k"), "none");
}

TEST(ProfileHostile, AMillionSectionsOfOneName) {
  std::string text;
  for (int number = 0; number < 1'000'000; ++number) text += "[\n";
  const ProfileImage image(std::move(text));
  EXPECT_EQ(image.SectionCount(), 1'000'000U);
  EXPECT_EQ(image.FindSection(""), 0U);
  std::array<char, 8> buffer{};
  EXPECT_EQ(AnswerSectionNames(image, buffer), 0U);
}

TEST(ProfileHostile, AHundredThousandSectionsWrittenOneByOne) {
  ProfileImage image;
  for (int number = 0; number < 100'000; ++number) {
    image.Set("S" + std::to_string(number), "k", "v");
    image.Append("\r\n");
  }
  EXPECT_EQ(image.SectionCount(), 100'000U);
  EXPECT_EQ(Value(image, "s99999", "k"), "v");
}

TEST(ProfileHostile, OneEndlessLine) {
  for (const char* begin : {"", "[", ";", "[A]\nk=", "[A]\n=", "[A]\n"}) {
    ProfileImage image(begin + std::string(30'000'000, 'x'));
    EXPECT_EQ(Value(image, "B", "k"), "none");
    image.Set("B", "k", "v");
    EXPECT_EQ(Value(image, "B", "k"), "v") << begin;
  }
}

TEST(ProfileHostile, OneEndlessValueIsCutToTheBuffer) {
  const ProfileImage image("[A]\nk=" + std::string(30'000'000, 'x'));
  EXPECT_EQ(Value(image, "A", "k"), std::string(31, 'x'));
}

TEST(ProfileHostile, NothingButNuls) {
  ProfileImage image(std::string(30'000'000, '\0'));
  EXPECT_EQ(image.SectionCount(), 0U);
  image.Set("A", "k", "v");
  EXPECT_EQ(Value(image, "A", "k"), "v");
}

TEST(ProfileHostile, NothingButLineEnds) {
  ProfileImage image("[A]\n" + std::string(10'000'000, '\r') + std::string(10'000'000, '\n'));
  image.Set("A", "k", "v");
  EXPECT_EQ(Value(image, "A", "k"), "v");
  image.RemoveSection("A");
  EXPECT_EQ(image.Bytes().size(), 20'000'000U) << "empty lines stay";
}

TEST(ProfileHostile, BytesOfAnyKind) {
  std::string text;
  for (int round = 0; round < 1000; ++round) {
    for (int byte = 0; byte < 256; ++byte) text += static_cast<char>(byte ^ (round % 256));
  }
  ProfileImage image(text);
  image.Set("A", "k", "v");
  EXPECT_EQ(Value(image, "A", "k"), "v");
  EXPECT_EQ(image.Bytes().substr(0, text.size()), text);
}

}  // namespace
}  // namespace tavrin
