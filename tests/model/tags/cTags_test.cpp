#include "model/tags/cTags.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "model/RawSettings.h"
#include "model/tags/TagListTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using TagsTest = TagListTest;

TEST_F(TagsTest, AnEmptyFileNameIsRefused) {
  list.szFileName("");
  EXPECT_EQ(list.szFileName(), "tags.csv");
  EXPECT_THAT(Boxes(), ElementsAre("#204 #218"));
  EXPECT_THAT(ReadWarnings(), IsEmpty());
  EXPECT_THAT(WriteWarnings(), IsEmpty());
}

TEST_F(TagsTest, AFileNameOfAnyLengthIsTaken) {
  const std::string name(100, 'x');
  list.szFileName(name);
  EXPECT_EQ(list.szFileName(), name);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(TagsTest, KeepsTheOrderOfAdding) {
  for (const char* name : {"b", "a", "C"}) EXPECT_TRUE(Add(name));
  EXPECT_EQ(list.Count(), 3);
  EXPECT_THAT(Names(), ElementsAre("b", "a", "C"));
}

TEST_F(TagsTest, AKeyThatIsTakenIsRefusedSilently) {
  EXPECT_TRUE(Add("ab"));
  EXPECT_TRUE(Add("AB")) << "the case of A to Z counts";
  EXPECT_TRUE(Add("a b"));
  EXPECT_FALSE(Add("ab"));
  EXPECT_TRUE(Add("x\xE4"));
  EXPECT_FALSE(Add("x\xC4")) << "that of other letters does not";
  EXPECT_TRUE(Add("X\xC4"));
  EXPECT_TRUE(Add(""));
  EXPECT_FALSE(Add(""));
  EXPECT_EQ(list.Count(), 6);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(TagsTest, FindsATagByItsName) {
  for (const char* name : {"ab", "AB", "x\xE4"}) Add(name);
  EXPECT_EQ(list.Tag("AB")->szTag(), "AB");
  EXPECT_EQ(list.Tag("ab")->szTag(), "ab");
  EXPECT_EQ(list.Tag("x\xC4")->szTag(), "x\xE4");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(TagsTest, AnUnknownNameEndsInTheErrorReport) {
  Add("ab");
  for (const char* name : {"Ab", "", " ab", "abc"}) {
    EXPECT_EQ(list.Tag(name), nullptr);
    EXPECT_THAT(Boxes(), ElementsAre("#199 5 #200 cTags.Get_Tag : Invalid procedure call or argument"));
  }
}

TEST_F(TagsTest, ARenameDoesNotChangeTheKey) {
  Add("old");
  Add("other");
  list.Tag("old")->szTag("new");
  EXPECT_EQ(list.Tag("old")->szTag(), "new");
  EXPECT_EQ(list.Tag("new"), nullptr);
  EXPECT_EQ(Boxes().size(), 1U);
  EXPECT_FALSE(Add("old")) << "the key is still taken";
  list.Remove("old");
  EXPECT_EQ(list.Count(), 2) << "no tag has that name now";
  EXPECT_TRUE(Add("new"));
  list.Tag("old")->szTag("newer");
  list.Tag("old")->szTag("newest");
  EXPECT_EQ(list.Tag("old")->szTag(), "newest");
  list.Remove("newest");
  EXPECT_THAT(Names(), ElementsAre("other", "new"));
  EXPECT_TRUE(Add("old")) << "the key went with its tag";
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(TagsTest, ATagRenamedBeforeItIsAddedHasItsLastNameAsKey) {
  auto tag = std::make_unique<cTag>();
  tag->szTag("first");
  tag->szTag("second");
  ASSERT_TRUE(list.AddItem(std::move(tag)));
  EXPECT_NE(list.Tag("second"), nullptr);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(TagsTest, RemoveTakesTheFirstTagOfExactlyThatName) {
  for (const char* name : {"ab", "AB", "c"}) Add(name);
  list.Tag("c")->szTag("ab");
  list.Remove("Ab");
  list.Remove(" ab");
  EXPECT_EQ(list.Count(), 3);
  list.Remove("ab");
  EXPECT_THAT(Names(), ElementsAre("AB", "ab"));
  EXPECT_EQ(list.Tag("c")->szTag(), "ab") << "the keys of the others stay";
  EXPECT_EQ(list.Tag("AB")->szTag(), "AB");
  list.Remove("ab");
  EXPECT_THAT(Names(), ElementsAre("AB"));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(TagsTest, QualityIsGoodWhenThatOfEveryTagIs192) {
  EXPECT_TRUE(list.QualityOK());
  Add("a");
  Add("b");
  EXPECT_FALSE(list.QualityOK());
  for (cTag& tag : list) tag.nQuality(192);
  EXPECT_TRUE(list.QualityOK());
  for (const int quality : {193, 0, 64}) {
    list.Tag("b")->nQuality(quality);
    EXPECT_FALSE(list.QualityOK()) << quality;
  }
}

TEST_F(TagsTest, AnyDirtyTagMakesTheListDirty) {
  Add("a");
  Add("b");
  for (cTag& tag : list) tag.bDataDirty(false);
  EXPECT_FALSE(list.AnyDirty());
  list.Tag("b")->bDataDirty(true);
  EXPECT_TRUE(list.AnyDirty());
}

struct Question {
  std::int32_t nCaseSensitive;
  std::string name;
  bool unique;
};

TEST_F(TagsTest, UniquenessDependsOnTheProjectsCase) {
  for (const char* name : {"Ab", " x ", "\xE4", ""}) Add(name);
  const std::vector<Question> rows{
      {0, "Ab", false},   {0, "aB", false},  {0, "  ab  ", false}, {0, "abc", true},
      {0, "\xC4", false}, {0, "x", true},    {0, " x ", true},  // the name asked for is trimmed, that of the tag is not
      {0, "", false},     {0, "  ", false},  {1, "Ab", false},     {1, "ab", true},
      {1, " Ab", true},   {1, " x ", false}, {1, "x", true},       {1, "\xE4", false},
      {1, "\xC4", true},  {1, "", false},    {1, " ", true},
  };
  for (const Question& row : rows) {
    Project().nCaseSensitive(row.nCaseSensitive);
    EXPECT_EQ(list.CheckUniqueTag(row.name), row.unique) << '"' << row.name << "\" with " << row.nCaseSensitive;
  }
}

TEST_F(TagsTest, UniquenessIsAskedOfTheNamesAsTheyAreNow) {
  Add("old");
  list.Tag("old")->szTag("new");
  EXPECT_TRUE(list.CheckUniqueTag("old"));
  EXPECT_FALSE(list.CheckUniqueTag("new"));
}

TEST_F(TagsTest, AMissingFileIsOneWarning) {
  list.Refresh(0, 1);
  EXPECT_THAT(ReadWarnings(), ElementsAre(Warned("#201 " + directory.Path() + "tags.csv")));
  EXPECT_EQ(list.Count(), 0);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(TagsTest, AFileThatCannotBeReadIsReported) {
  directory.Write("tags.csv", "a;b;RW");
  faults.reading = {"tags.csv", ErrorNumber::PathFileAccess};
  list.Refresh(0, 1);
  EXPECT_THAT(Boxes(), ElementsAre("#199 75 #200 cTags.Refresh : Path/File access error"));
  EXPECT_THAT(ReadWarnings(), IsEmpty());
  EXPECT_EQ(list.Count(), 0);
}

TEST_F(TagsTest, WritesTheTagsInTheirOrderOneALine) {
  Read("b;mb1;rw;CMT=x\na;mb2;ro");
  Add("new");
  EXPECT_EQ(Written(), Lines({"b;MB1;RW;CMT=x", "a;MB2;RO", "new"}));
  EXPECT_THAT(WriteWarnings(), IsEmpty());
}

TEST_F(TagsTest, AnOldFileUnderAnotherCaseIsReplaced) {
  directory.Write("TAGS.CSV", "old content");
  Add("a");
  EXPECT_EQ(Written(), Lines({"a"}));
  EXPECT_FALSE(directory.Has("TAGS.CSV"));
}

TEST_F(TagsTest, AnEmptyListMakesAnEmptyFile) {
  directory.Write("tags.csv", "old content");
  EXPECT_EQ(Written(), "");
}

TEST_F(TagsTest, ATagWithoutANameIsAnEmptyLineAndGoneAfterwards) {
  Read(";mb1;RW\r\nb;mb2;RW\r\n");
  EXPECT_EQ(Written(), Lines({"", "b;MB2;RW"}));
}

TEST_F(TagsTest, WritingClearsTheMarksOfTheTags) {
  Add("a");
  Add("b");
  EXPECT_TRUE(list.AnyDirty());
  static_cast<void>(Written());
  EXPECT_FALSE(list.AnyDirty());
}

TEST_F(TagsTest, NamesAreUpperCasedInTheFileOnly) {
  Read("ab;mb1;RW;CMT=c");
  Project().nSaveTagsUppercase(1);
  EXPECT_EQ(Written(), Lines({"AB;MB1;RW;CMT=c"}));
  EXPECT_THAT(Names(), ElementsAre("ab"));
  RawSettings(Project()).nSaveTagsUppercase = 2;
  EXPECT_EQ(Written(), Lines({"ab;MB1;RW;CMT=c"})) << "a number without a meaning counts as 0";
}

TEST_F(TagsTest, AnIncompleteLineComesBackWithItsWarning) {
  Read("T1;MB10");
  EXPECT_EQ(Written(), Lines({"T1;MB10"}));
  cTags again;
  again.szFileName("tags.csv");
  again.Refresh(0, 1);
  EXPECT_THAT(ReadWarnings(), ElementsAre(Warned("#203 (T1;MB10)"), Warned("#203 (T1;MB10)")));
}

TEST_F(TagsTest, ACommentIsCutAtASemicolonWhenItIsReadBack) {
  Add("T");
  cTag& tag = *list.Tag("T");
  tag.szData("D");
  tag.szRW("RW");
  tag.szComment("a;LB;b\tc");
  static_cast<void>(Written());
  cTags again;
  again.szFileName("tags.csv");
  again.Refresh(0, 1);
  EXPECT_EQ(again.Tag("T")->szComment(), "a");
  EXPECT_THAT(ReadWarnings(), IsEmpty());
}

TEST_F(TagsTest, AListWithoutAFileIsToldAndNotWritten) {
  cTags nameless;
  EXPECT_TRUE(nameless.Update());
  EXPECT_THAT(WriteWarnings(), ElementsAre("Tag||#217 "));
  modMain::globals.gszProjectDir.clear();
  EXPECT_TRUE(nameless.Update());
  EXPECT_THAT(WriteWarnings(), ElementsAre("Tag||#217 ", "Tag||#217 ")) << "the file is missed before the directory";
}

TEST_F(TagsTest, AnUnknownDirectoryIsToldAndNothingWritten) {
  const std::string name = "no such tags anywhere.csv";
  list.szFileName(name);
  modMain::globals.gszProjectDir.clear();
  EXPECT_TRUE(list.Update());
  EXPECT_THAT(WriteWarnings(), ElementsAre("Tag|" + name + "|#214 "));
  EXPECT_FALSE(std::filesystem::exists(name));
}

TEST_F(TagsTest, AFileThatCannotBeMadeIsReported) {
  Add("a");
  faults.creating = {"tags.csv", ErrorNumber::PathFileAccess};
  EXPECT_FALSE(list.Update());
  EXPECT_THAT(Boxes(), ElementsAre("#199 75 #200 cTags.Update : Path/File access error"));
  EXPECT_TRUE(list.AnyDirty());
}

TEST_F(TagsTest, AFailedRemovalOfTheOldFileIsIgnored) {
  directory.Write("tags.csv", "old content");
  faults.removing = {"tags.csv", ErrorNumber::PathFileAccess};
  Add("a");
  EXPECT_EQ(Written(), Lines({"a"}));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(TagsTest, AFullDiskLeavesAPartOfTheFileAndTheMarks) {
  Add("first");
  Add("second");
  faults.room = 10;
  EXPECT_FALSE(list.Update());
  EXPECT_THAT(Boxes(), ElementsAre("#199 61 #200 cTags.Update : Disk full"));
  EXPECT_EQ(directory.Read("tags.csv"), "first\r\nsec");
  EXPECT_TRUE(list.Tag("second")->bDataDirty());
}

TEST_F(TagsTest, AListOfManyBlocksIsWrittenWhole) {
  std::string content;
  for (int i = 0; i < 60000; ++i) {
    content += "T" + std::to_string(i) + ";MB" + std::to_string(i) +
               ";RW;CMT=" + std::string(static_cast<std::size_t>(i % 40), 'c') + "\r\n";
  }
  std::string expected = content;  // an empty comment is not written
  for (std::size_t at = 0; (at = expected.find(";CMT=\r", at)) != std::string::npos;) expected.erase(at, 5);
  Read(content);
  EXPECT_EQ(list.Count(), 60000);
  EXPECT_EQ(list.Tag("T59999")->szData(), "MB59999");
  for (cTag& tag : list) tag.bDataDirty(true);
  EXPECT_TRUE(Written() == expected);
  EXPECT_FALSE(list.AnyDirty());
}

TEST_F(TagsTest, RemovingAndAddingByTurnsKeepsTheKeysRight) {
  for (int i = 0; i < 200; ++i) Add("T" + std::to_string(i));
  for (int i = 0; i < 200; i += 2) {
    list.Remove("T" + std::to_string(i));
    EXPECT_TRUE(Add("N" + std::to_string(i)));
    EXPECT_FALSE(Add("T" + std::to_string(i + 1)));
  }
  for (int i = 0; i < 200; i += 2) {
    EXPECT_EQ(list.Tag("N" + std::to_string(i))->szTag(), "N" + std::to_string(i));
    EXPECT_EQ(list.Tag("T" + std::to_string(i + 1))->szTag(), "T" + std::to_string(i + 1));
  }
  EXPECT_EQ(list.Count(), 200);
}

}  // namespace
}  // namespace tavrin
