#include "platform/profile/ProfileAnswer.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tavrin {
namespace {

using namespace std::string_literals;

/// The buffer after an answer, an untouched byte shown as '~', and the count behind it.
template <typename Answer>
std::string Filled(std::size_t size, Answer answer) {
  std::vector<char> buffer(size, '~');
  const std::size_t count = answer(std::span<char>(buffer));
  return std::string(buffer.begin(), buffer.end()) + ":" + std::to_string(count);
}

std::string Value(const ProfileImage& image, const char* key, const char* fallback, std::size_t size) {
  return Filled(size, [&](std::span<char> buffer) { return AnswerValue(image, "A", key, fallback, buffer); });
}
std::string Names(const ProfileImage& image, std::size_t size) {
  return Filled(size, [&](std::span<char> buffer) { return AnswerSectionNames(image, buffer); });
}
std::string Section(const ProfileImage& image, const char* section, std::size_t size) {
  return Filled(size, [&](std::span<char> buffer) { return AnswerSection(image, section, buffer); });
}
std::string Keys(const ProfileImage& image, const char* section, const char* fallback, std::size_t size) {
  return Filled(size, [&](std::span<char> buffer) { return AnswerKeys(image, section, fallback, buffer); });
}

TEST(ProfileAnswer, ValueIsCutToTheBuffer) {
  const ProfileImage image("[A]\nx=\"123\"\ny=\n");
  EXPECT_EQ(Value(image, "x", "d", 0), ":0");
  EXPECT_EQ(Value(image, "x", "d", 1), "\0:0"s);
  EXPECT_EQ(Value(image, "x", "d", 2), "1\0:1"s);
  EXPECT_EQ(Value(image, "x", "d", 4), "123\0:3"s);
  EXPECT_EQ(Value(image, "x", "d", 6), "123\0~~:3"s);
  EXPECT_EQ(Value(image, "y", "d", 3), "\0~~:0"s) << "an empty value is a value";
}

TEST(ProfileAnswer, FallbackLosesItsTrailingSpacesOnly) {
  const ProfileImage image("[A]\n");
  EXPECT_EQ(Value(image, "x", "  d\t  ", 8), "  d\t\0~~~:4"s);
  EXPECT_EQ(Value(image, "x", "   ", 4), "\0~~~:0"s);
  EXPECT_EQ(Value(image, "x", "\"d\"", 5), "\"d\"\0~:3"s);
  EXPECT_EQ(Value(image, "x", "abc", 3), "ab\0:2"s);
}

TEST(ProfileAnswer, ListNeedsTwoBytesMoreThanItsTexts) {
  const ProfileImage image("[ab]\n[]\n[c]\n[AB]\n");
  EXPECT_EQ(Names(image, 11), "ab\0c\0AB\0\0~~:8"s) << "a section without name would end the list";
  EXPECT_EQ(Names(image, 10), "ab\0c\0AB\0\0~:8"s);
  EXPECT_EQ(Names(image, 9), "ab\0c\0AB\0\0:7"s);
  EXPECT_EQ(Names(image, 8), "ab\0c\0A\0\0:6"s);
  EXPECT_EQ(Names(image, 5), "ab\0\0\0:3"s);
  EXPECT_EQ(Names(image, 4), "ab\0\0:2"s);
  EXPECT_EQ(Names(image, 3), "a\0\0:1"s);
  EXPECT_EQ(Names(image, 2), "\0\0:0"s);
  EXPECT_EQ(Names(image, 1), "\0:0"s);
  EXPECT_EQ(Names(image, 0), ":0");
}

TEST(ProfileAnswer, EmptyListOfNamesIsOneNulAndOfLinesTwo) {
  const ProfileImage image("[A]\n;x=1\n");
  EXPECT_EQ(Names(ProfileImage(), 4), "\0~~~:0"s);
  EXPECT_EQ(Section(image, "A", 4), "\0\0~~:0"s);
  EXPECT_EQ(Section(image, "B", 2), "\0\0:0"s);
  EXPECT_EQ(Section(image, "B", 1), "\0:0"s);
  EXPECT_EQ(Section(image, "B", 0), ":0");
}

TEST(ProfileAnswer, KeysAreThoseWithAnEqualSignAndAName) {
  const ProfileImage image("[A]\n x = 1\n;c=1\ntext\n=5\nX=2\n[B]\ntext\n");
  EXPECT_EQ(Keys(image, "a", "d", 7), "x\0X\0\0~~:4"s);
  EXPECT_EQ(Keys(image, "a", "d", 5), "x\0X\0\0:3"s);
  EXPECT_EQ(Keys(image, "a", "d", 2), "\0\0:0"s);
  EXPECT_EQ(Keys(image, "a", "d", 1), "\0:0"s);
  EXPECT_EQ(Keys(image, "B", "d ", 4), "d\0~~:1"s) << "no key: the fallback";
  EXPECT_EQ(Keys(image, "C", "d", 4), "d\0~~:1"s);
}

TEST(ProfileAnswer, SectionKeepsQuotesAndLosesBlanks) {
  const ProfileImage image("[A]\n x = \"1\" \n;c\n\n text \n=v\ny=\n");
  EXPECT_EQ(Section(image, "A", 20), "x=\"1\"\0text\0=v\0y=\0\0~~:17"s);
  EXPECT_EQ(Section(image, "A", 19), "x=\"1\"\0text\0=v\0y=\0\0~:17"s);
  EXPECT_EQ(Section(image, "A", 18), "x=\"1\"\0text\0=v\0y=\0\0:16"s);
  EXPECT_EQ(Section(image, "A", 4), "x=\0\0:2"s);
  EXPECT_EQ(Section(image, "A", 2), "\0\0:0"s);
}

}  // namespace
}  // namespace tavrin
