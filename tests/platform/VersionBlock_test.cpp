#include "platform/version/VersionBlock.h"

#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "support/VersionFile.h"

namespace tavrin {
namespace {

/// A resource with these blocks below its root.
VersionBlock Resource(std::vector<VersionNode> children) {
  return VersionBlock(WideResource({"VS_VERSION_INFO", FixedVersion{}.Bytes(), false, std::move(children)}));
}

using Found = std::optional<std::string>;

TEST(VersionBlock, TheRootsValueIsTheFixedBlock) {
  const VersionBlock block = Resource({});
  EXPECT_EQ(block.Query("\\"), FixedVersion{}.Bytes());
  EXPECT_EQ(block.Query(""), FixedVersion{}.Bytes());
}

TEST(VersionBlock, APathLeadsThroughTheBlocks) {
  const VersionBlock block = Resource({{"Outer", {}, true, {TextNode("Other", u"no"), TextNode("Inner", u"yes")}}});
  EXPECT_EQ(block.Query("\\Outer\\Inner"), std::string("yes\0", 4));
  EXPECT_EQ(block.Query("Outer\\\\Inner\\"), std::string("yes\0", 4)) << "empty pieces mean nothing";
  EXPECT_EQ(block.Query("\\Outer"), "");
  EXPECT_EQ(block.Query("\\Inner"), Found());
  EXPECT_EQ(block.Query("\\Outer\\Inner\\More"), Found());
}

TEST(VersionBlock, NamesCountWithoutCaseAndAsAWhole) {
  const VersionBlock block = Resource({TextNode("Names", u"longer"), TextNode("Nam", u"shorter"),
                                       TextNode("nAME", u"found"), TextNode("N[", u"bracket")});
  EXPECT_EQ(block.Query("\\NaMe"), std::string("found\0", 6));
  EXPECT_EQ(block.Query("\\n{"), Found()) << "only letters have a case";
  EXPECT_EQ(block.Query("\\Na"), Found());
}

TEST(VersionBlock, TheFirstOfEqualNamesWinsEvenWhenItIsEmpty) {
  const VersionBlock block = Resource({TextNode("A", u"first"),
                                       TextNode("a", u"second"),
                                       {"Empty", {}, true, {}},
                                       TextNode("Empty", u"second"),
                                       {"Table", {}, true, {}},
                                       {"Table", {}, true, {TextNode("Key", u"value")}}});
  EXPECT_EQ(block.Query("\\A"), std::string("first\0", 6));
  EXPECT_EQ(block.Query("\\Empty"), "");
  EXPECT_EQ(block.Query("\\Table\\Key"), Found());
}

TEST(VersionBlock, PaddingCountsFromTheStartOfTheResource) {
  // Names and texts of every length shift what follows by two bytes each.
  for (std::size_t length = 1; length < 8; ++length) {
    const std::string name(length, 'n');
    const VersionBlock block = Resource({TextNode(name, std::u16string(length / 2, u'x')), TextNode("Next", u"next")});
    EXPECT_EQ(block.Query("\\" + name), std::string(length / 2, 'x') + '\0') << length;
    EXPECT_EQ(block.Query("\\Next"), std::string("next\0", 5)) << length;
  }
}

TEST(VersionBlock, ATextIsConvertedAndAnythingElseIsNot) {
  const VersionBlock block =
      Resource({TextNode("Text", u"\u0142\u00F6\u0416"), {"Binary", Utf16Bytes(u"ab"), false, {}}});
  EXPECT_EQ(block.Query("\\Text"), std::string("l\xF6?\0", 4));
  EXPECT_EQ(block.Query("\\Binary"), std::string("a\0b\0\0\0", 6));
}

TEST(VersionBlock, A16BitResourceHas8BitNamesAndTexts) {
  const VersionBlock block(NarrowResource(
      {"VS_VERSION_INFO",
       FixedVersion{}.Bytes(),
       false,
       {{"Outer",
         {},
         false,
         {NarrowTextNode("Names", "no"), NarrowTextNode("Name", "Gr\xF6\xDF"), NarrowTextNode("Z", "z")}}}}));
  EXPECT_EQ(block.Query("\\"), FixedVersion{}.Bytes());
  EXPECT_EQ(block.Query("\\OUTER\\name"), std::string("Gr\xF6\xDF\0", 5));
  EXPECT_EQ(block.Query("\\Outer\\Z"), std::string("z\0", 2));
  EXPECT_EQ(block.Query("\\Outer\\N"), Found());
}

TEST(VersionBlock, LengthsBeyondTheResourceAreCutAtItsEnd) {
  std::string bytes = WideResource({"R", "", false, {TextNode("Key", u"value")}});
  PutWord(bytes, 0, 0xFFFF);
  PutWord(bytes, 12, 0xFFFF);
  PutWord(bytes, 14, 0x7FFF);
  EXPECT_EQ(VersionBlock(bytes).Query("\\Key"), std::string("value\0", 6));
}

TEST(VersionBlock, AChildWithoutLengthIsTheLast) {
  std::string bytes = WideResource({"R", "", false, {TextNode("One", u"1"), TextNode("Two", u"2")}});
  PutWord(bytes, 12, 0);
  EXPECT_EQ(VersionBlock(bytes).Query("\\One"), std::string("1\0", 2));
  EXPECT_EQ(VersionBlock(bytes).Query("\\Two"), Found());
}

TEST(VersionBlock, AChildBehindTheEndOfItsParentIsNotFound) {
  std::string bytes = WideResource({"R", "", false, {TextNode("One", u"1"), TextNode("Two", u"2")}});
  PutWord(bytes, 0, 12 + 20);
  EXPECT_EQ(VersionBlock(bytes).Query("\\One"), std::string("1\0", 2));
  EXPECT_EQ(VersionBlock(bytes).Query("\\Two"), Found());
}

TEST(VersionBlock, EveryCutResourceAnswersFromWhatIsLeft) {
  const std::string whole = WideResource({"R", "", false, {TextNode("Key", u"value")}});
  for (std::size_t size = 0; size < whole.size(); ++size) {
    const Found found = VersionBlock(whole.substr(0, size)).Query("\\Key");
    if (!found) continue;
    EXPECT_TRUE(std::string_view("value").starts_with(*found)) << size << ": " << *found;
  }
  EXPECT_EQ(VersionBlock("").Query("\\"), Found());
  EXPECT_EQ(VersionBlock(std::string(64, 'A')).Query("\\"), Found()) << "a name that never ends";
}

TEST(VersionBlock, NamesThatNeverEndAreReadNoFurtherThanTheNameThatIsAskedFor) {
  // Children of four bytes, each with a name that goes on through all that follow: some 16,000 names of 16,000
  // characters on average. Were they read to their ends, these questions would take many minutes.
  std::string bytes = WideResource({"R", "", false, {}});
  while (bytes.size() < 65'532) {
    AppendWord(bytes, 4);
    AppendWord(bytes, 'A');
  }
  PutWord(bytes, 0, 0xFFFF);
  const VersionBlock block(bytes);
  for (int question = 0; question < 2000; ++question) EXPECT_EQ(block.Query("\\CompanyName"), Found());
}

TEST(VersionBlock, ANameThatHasLostItsEndHidesNoOtherChild) {
  std::string bytes = WideResource({"R", "", false, {TextNode("One", u"1"), TextNode("Two", u"2")}});
  const std::size_t child = 12;
  PutWord(bytes, child + 6 + 6, 'e');  // in place of the end: it goes on into the value
  EXPECT_EQ(VersionBlock(bytes).Query("\\One"), Found());
  EXPECT_EQ(VersionBlock(bytes).Query("\\Two"), std::string("2\0", 2));
}

}  // namespace
}  // namespace tavrin
