// Tag files that nobody writes on purpose: damaged, cut or of another kind.
#include <cstddef>
#include <string>
#include <vector>

#include "model/tags/TagListTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::size_t kMillion = 1'000'000;

using TagFileHostileTest = TagListTest;

TEST_F(TagFileHostileTest, AFileCutWithinALineKeepsWhatIsThere) {
  Read("a;MB1;RW;CMT=first\r\nb;MB2;R");
  EXPECT_THAT(Texts(), ElementsAre("MB1|RW||||||first", "MB2|||||||"));
  EXPECT_THAT(ReadWarnings(), ElementsAre(Warned("#203 (b;MB2;R)")));
}

TEST_F(TagFileHostileTest, ALineOfManyMegabytesIsOneTag) {
  const std::string comment(8 * kMillion, 'x');
  Read("a;b;RW;CMT=" + comment);
  ASSERT_EQ(list.Count(), 1);
  EXPECT_TRUE(list.begin()->szComment() == comment);
  EXPECT_THAT(ReadWarnings(), IsEmpty());
  EXPECT_EQ(Written().size(), comment.size() + 13);
}

TEST_F(TagFileHostileTest, AMillionSeparatorsAreEmptyFields) {
  const std::string line(kMillion, ';');
  Read("a;b;RW" + line);
  EXPECT_THAT(Texts(), ElementsAre("B|RW||||||"));
  EXPECT_THAT(ReadWarnings(), IsEmpty());
}

TEST_F(TagFileHostileTest, NulsAreANameThatTheCheckDoesNotTake) {
  const std::string line(kMillion, '\0');
  Read(line + "\r\na;b;RW");
  EXPECT_THAT(Names(), ElementsAre("", "a"));
  EXPECT_THAT(Boxes(), ElementsAre("#223"));
  EXPECT_THAT(ReadWarnings(), ElementsAre(Warned("#203 (" + line + ")"), Warned("#223 (" + line + ")")));
}

TEST_F(TagFileHostileTest, EveryByteIsPartOfALine) {
  std::string bytes;
  for (int i = 1; i < 256; ++i) bytes += static_cast<char>(i);
  Read(bytes + bytes);
  // Lines end at LF and CR, a tab is a blank, and the one from 0x0E on has too long a name before its ";".
  EXPECT_EQ(list.Count(), 3);
  EXPECT_EQ(Written(), "\x01\x02\x03\x04\x05\x06\x07\x08\r\n\x0B\x0C\r\n\r\n");
}

TEST_F(TagFileHostileTest, ManyTagsAreReadInATimeThatGrowsWithTheirNumber) {
  std::string content;
  for (std::size_t i = 0; i < kMillion / 2; ++i) content += "Tag_" + std::to_string(i) + ";MB1;RW\n";
  Read(content + content);  // comparing each with each would take hours
  EXPECT_EQ(list.Count(), static_cast<std::int32_t>(kMillion / 2));
  EXPECT_EQ(modMain::ReadWarnings().Count(), static_cast<std::int32_t>(kMillion)) << "each name taken, each key taken";
}

}  // namespace
}  // namespace tavrin
