#include "platform/profile/ProfileImage.h"

#include <functional>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/CodePage.h"

namespace tavrin {
namespace {

struct EditCase {
  const char* rule;
  std::string before;
  std::function<void(ProfileImage&)> edit;
  std::string after;
};

auto Set(const char* section, const char* key, const char* value) {
  return [=](ProfileImage& image) { image.Set(section, key, value); };
}
auto RemoveKey(const char* section, const char* key) {
  return [=](ProfileImage& image) { image.RemoveKey(section, key); };
}
auto RemoveSection(const char* section) {
  return [=](ProfileImage& image) { image.RemoveSection(section); };
}

TEST(ProfileImage, EditsChangeNothingElse) {
  const std::vector<EditCase> cases = {
      {"new section in an empty file", "", Set("A", "x", "1"), "[A]\r\nx=1\r\n"},
      {"new section ends an unfinished line", "[A]\nx=1", Set("B", "y", "2"), "[A]\nx=1\r\n[B]\r\ny=2\r\n"},
      {"new section comes behind blank lines", "[A]\r\n\r\n\r\n", Set("B", "y", ""), "[A]\r\n\r\n\r\n[B]\r\ny=\r\n"},
      {"new key comes behind the last key", "[A]\r\nx=1\r\n\r\n;c\r\n[B]\r\n", Set("A", "y", "2"),
       "[A]\r\nx=1\r\ny=2\r\n\r\n;c\r\n[B]\r\n"},
      {"a line without = is no key", "[A]\r\nx=1\r\ntext\r\n", Set("A", "text", "2"),
       "[A]\r\nx=1\r\ntext=2\r\ntext\r\n"},
      {"new key comes behind the header", "[A]\r\n;c\r\n\r\n[B]\r\n", Set("A", "y", "2"),
       "[A]\r\ny=2\r\n;c\r\n\r\n[B]\r\n"},
      {"new key ends an unfinished header", "[A]", Set("a", "y", "2"), "[A]\r\ny=2\r\n"},
      {"new key ends an unfinished key", "[A]\r\nx=1", Set("a", "y", "2"), "[A]\r\nx=1\r\ny=2\r\n"},
      {"new key in a file with LF", "[A]\nx=1\n[B]\n", Set("A", "y", "2"), "[A]\nx=1\ny=2\r\n[B]\n"},
      {"new key in a file with CR", "[A]\rx=1\r[B]\r", Set("A", "y", "2"), "[A]\rx=1\ry=2\r\n[B]\r"},
      {"value keeps the line end of its line", "[A]\nx=1\ny=2\r", Set("A", "x", "3"), "[A]\nx=3\ny=2\r"},
      {"value ends an unfinished line", "[A]\r\nx=1", Set("A", "x", "3"), "[A]\r\nx=3\r\n"},
      {"value stands directly behind the equal sign", "[A]\n x = 1 ;c\n", Set("A", "x", "  3 "), "[A]\n x =  3 \n"},
      {"the same value leaves an unfinished line alone", "[A]\r\nx=1", Set("A", "X", "1"), "[A]\r\nx=1"},
      {"the first of two keys is changed", "[A]\nx=1\nX=2\n", Set("a", "X", "3"), "[A]\nx=3\nX=2\n"},
      {"the first of two sections is changed", "[A]\nx=1\n[a]\ny=2\n", Set("a", "y", "3"),
       "[A]\nx=1\ny=3\r\n[a]\ny=2\n"},
      {"keys before the first header are nobody's", "x=1\n", Set("", "x", "2"), "x=1\n[]\r\nx=2\r\n"},
      {"spaces around names are not written", "", Set(" A ", "\t x ", " 1"), "[A]\r\n\t x= 1\r\n"},
      {"a comment is never a key", "[A]\n;x=1\n", Set("A", ";x", "2"), "[A]\n;x=2\r\n;x=1\n"},
      {"a ] in a name makes a name that is not found", "[a]b]\nx=1\n", Set("a]b", "x", "2"),
       "[a]b]\nx=1\n[a]b]\r\nx=2\r\n"},
      {"key is removed with its line", "[A]\r\n;c\r\n X = 1\r\nx=2\r\n", RemoveKey("a", "x"), "[A]\r\n;c\r\nx=2\r\n"},
      {"comment is not removed", "[A]\n;x=1\n", RemoveKey("A", ";x"), "[A]\n;x=1\n"},
      {"key that is not there", "[A]\nx=1\n[B]\ny=1\n", RemoveKey("A", "y"), "[A]\nx=1\n[B]\ny=1\n"},
      {"section that is not there", "[A]\nx=1\n", RemoveSection("B"), "[A]\nx=1\n"},
      {"section is removed, its comments stay", ";0\n[A]\nx=1\n;1\ntext\n\n[B]\ny=1", RemoveSection("a"),
       ";0\n;1\n\n[B]\ny=1"},
      {"last section is removed", "[A]\nx=1\n[B]\ny=1", RemoveSection("B"), "[A]\nx=1\n"},
      {"the first of two sections is removed", "[A]\nx=1\n[B]\n[a]\ny=2\n", RemoveSection("A"), "[B]\n[a]\ny=2\n"},
  };
  for (const EditCase& test : cases) {
    ProfileImage image(test.before);
    test.edit(image);
    EXPECT_EQ(image.Bytes(), test.after) << test.rule;
    EXPECT_EQ(image.ChangedFrom().has_value(), test.before != test.after) << test.rule;
  }
}

TEST(ProfileImage, TellsWhereTheChangedEndBegins) {
  ProfileImage image("[A]\r\nx=1\r\n[B]\r\ny=1\r\n");
  EXPECT_EQ(image.ChangedFrom(), std::nullopt);
  image.Set("B", "y", "2");
  EXPECT_EQ(image.ChangedFrom(), 17U);
  image.Append("z");
  EXPECT_EQ(image.ChangedFrom(), 17U);
  image.Set("A", "x", "2");
  EXPECT_EQ(image.ChangedFrom(), 7U);
  image.MarkWritten();
  EXPECT_EQ(image.ChangedFrom(), std::nullopt);
  image.Append("z");
  EXPECT_EQ(image.ChangedFrom(), 21U);
}

TEST(ProfileImage, AppendedBytesAreSeen) {
  ProfileImage image("[A]\r");
  image.Append("\nx=1\r\n[B");
  EXPECT_EQ(image.SectionCount(), 2U);
  image.Append("eta]\r\ny=");
  ASSERT_TRUE(image.FindSection("Beta"));
  image.Append("5");
  EXPECT_EQ(image.FindKey(*image.FindSection("Beta"), "y")->value, "5");
  EXPECT_FALSE(image.FindSection("B"));
}

TEST(ProfileImage, LineEndsInAValueMakeLines) {
  ProfileImage image("[A]\r\nx=1\r\n");
  image.Set("A", "x", "1\r\n[B]\r\ny=2");
  EXPECT_EQ(image.Bytes(), "[A]\r\nx=1\r\n[B]\r\ny=2\r\n");
  ASSERT_TRUE(image.FindSection("B"));
  EXPECT_EQ(image.FindKey(*image.FindSection("B"), "y")->value, "2");
}

TEST(ProfileImage, LettersOutsideAsciiAreComparedByTheCodePage) {
  const ProfileImage image(
      "[Pr\xFC"
      "fstand]\r\nGr\xF6\xDF"
      "e=1\r\n");
  const auto section = image.FindSection(
      "PR\xDC"
      "FSTAND");
  ASSERT_TRUE(section);
  EXPECT_TRUE(image.FindKey(*section,
                            "gr\xD6\xDF"
                            "e"));
  EXPECT_FALSE(image.FindKey(*section,
                             "gro\xDF"
                             "e"));
}

TEST(ProfileImage, KnowsWhetherTheCodePageStillFits) {
  const CodePage usual = ActiveCodePage();
  const ProfileImage image("[A]");
  EXPECT_TRUE(image.FitsCodePage());
  UseCodePage(MakeCodePage("1251").value());
  EXPECT_FALSE(image.FitsCodePage());
  UseCodePage(usual);
  EXPECT_TRUE(image.FitsCodePage());
}

/// What an image finds, as one text.
std::string Findings(const ProfileImage& image) {
  std::string text;
  for (std::size_t section = 0; section < image.SectionCount(); ++section) {
    const std::string name(image.SectionName(section));
    text += name + "@" + std::to_string(image.FindSection(name).value_or(999)) + ":";
    ProfileLineReader lines = image.Lines(section);
    while (const auto line = lines.Next()) text += std::to_string(line->begin) + ",";
    text += ";";
  }
  return text;
}

class RandomTexts {
 public:
  explicit RandomTexts(unsigned seed) : random_(seed) {}

  std::string Pieces(int count) {
    static const std::vector<std::string> pieces = {
        "[", "]", "a", "B", "[a]", "=", ";", "\r", "\n", "\r\n", " ", "x=1", std::string(1, '\0'), "\"", "\t"};
    std::string text;
    while (count-- > 0) text += pieces[Below(pieces.size())];
    return text;
  }
  std::size_t Below(std::size_t count) { return random_() % count; }

 private:
  std::mt19937 random_;
};

TEST(ProfileImage, FindsAfterAnyEditsWhatANewImageFinds) {
  for (unsigned seed = 0; seed < 3000; ++seed) {
    RandomTexts random(seed);
    ProfileImage image(random.Pieces(static_cast<int>(random.Below(20))));
    for (int round = 0; round < 8; ++round) {
      const std::string section = random.Pieces(2);
      const std::string key = random.Pieces(2);
      switch (random.Below(5)) {
        case 0: image.RemoveKey(section, key); break;
        case 1: image.RemoveSection(section); break;
        case 2: image.Append(random.Pieces(3)); break;
        default: image.Set(section, key, random.Pieces(3)); break;
      }
      ASSERT_EQ(Findings(image), Findings(ProfileImage(std::string(image.Bytes())))) << "seed " << seed;
    }
  }
}

}  // namespace
}  // namespace tavrin
