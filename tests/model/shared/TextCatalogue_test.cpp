#include "model/shared/TextCatalogue.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "platform/CodePage.h"
#include "platform/Files.h"
#include "platform/RuntimeError.h"

namespace tavrin {
namespace {

/// Files in memory that counts what is read; a catalogue writes nothing.
class CatalogueFiles : public Files {
 public:
  struct Entry {
    std::string content;
    bool readable = true;
    bool directory = false;
    std::optional<std::uint64_t> claimedSize;
  };

  [[nodiscard]] std::optional<FileStatus> Status(std::string_view path) override {
    const auto found = entries.find(std::string(path));
    if (found == entries.end()) return std::nullopt;
    FileStatus status;
    status.directory = found->second.directory;
    status.stamp.size = found->second.claimedSize.value_or(found->second.content.size());
    return status;
  }
  [[nodiscard]] std::string ReadAll(std::string_view path) override {
    reads.emplace_back(path);
    const Entry& entry = entries.at(std::string(path));
    if (!entry.readable) throw RuntimeError(ErrorNumber::PathFileAccess);
    return entry.content;
  }
  [[nodiscard]] std::unique_ptr<InputFile> Open(std::string_view) override {
    throw RuntimeError(ErrorNumber::PathFileAccess);
  }
  [[nodiscard]] std::unique_ptr<OutputFile> Create(std::string_view) override { return Refuse(); }
  void Append(std::string_view, std::string_view) override { Refuse(); }
  void ReplaceTail(std::string_view, std::uint64_t, std::string_view) override { Refuse(); }
  void Remove(std::string_view) override { Refuse(); }
  [[nodiscard]] std::vector<std::string> List(std::string_view) override { return {}; }
  [[nodiscard]] std::string SystemDirectory() override { return {}; }

  std::map<std::string, Entry> entries;
  std::vector<std::string> reads;

 private:
  static std::unique_ptr<OutputFile> Refuse() { throw RuntimeError(ErrorNumber::PermissionDenied); }
};

/// "number=text" of each entry, so that a whole result is compared at once.
std::vector<std::string> Parsed(std::string_view file) {
  std::vector<std::string> lines;
  for (const CatalogueText& entry : ParseCatalogue(file)) {
    lines.push_back(std::to_string(entry.number) + "=" + entry.text);
  }
  return lines;
}

using Lines = std::vector<std::string>;

TEST(ParseCatalogueTest, TakesNumberAndTextOfEachLine) {
  EXPECT_EQ(Parsed("1=Tavrin\n40=&File\n"), (Lines{"1=Tavrin", "40=&File"}));
}

TEST(ParseCatalogueTest, LastLineNeedsNoEnd) { EXPECT_EQ(Parsed("1=a\n2=b"), (Lines{"1=a", "2=b"})); }

TEST(ParseCatalogueTest, AnEmptyFileHasNoTexts) {
  EXPECT_EQ(Parsed(""), Lines{});
  EXPECT_EQ(Parsed("\n\n"), Lines{});
}

TEST(ParseCatalogueTest, CommentsAndBlankLinesArePassedOver) {
  EXPECT_EQ(Parsed("# 1=comment\n\n#\n2=b\n"), (Lines{"2=b"}));
}

TEST(ParseCatalogueTest, EverythingBehindTheFirstEqualsSignIsTheText) {
  EXPECT_EQ(Parsed("1= a = b # c \n2=\n"), (Lines{"1= a = b # c ", "2="}));
}

TEST(ParseCatalogueTest, EscapesAreLineBreakAndBackslash) {
  EXPECT_EQ(Parsed("1=a\\nb\n2=C:\\\\new\n"), (Lines{"1=a\nb", "2=C:\\new"}));
}

TEST(ParseCatalogueTest, AnyOtherBackslashStandsForItself) {
  EXPECT_EQ(Parsed("1=\\t\n2=a\\\n3=\\\\\\n"), (Lines{"1=\\t", "2=a\\", "3=\\\n"}));
}

TEST(ParseCatalogueTest, LineEndsOfBothSystemsAreTaken) { EXPECT_EQ(Parsed("1=a\r\n2=b\r\n"), (Lines{"1=a", "2=b"})); }

TEST(ParseCatalogueTest, AByteOrderMarkDoesNotCostTheFirstText) {
  EXPECT_EQ(Parsed("\xEF\xBB\xBF"
                   "1=a\n"),
            (Lines{"1=a"}));
}

TEST(ParseCatalogueTest, MalformedLinesCostOnlyThemselves) {
  EXPECT_EQ(Parsed("no equals\n=no number\nx=y\n1 =blank\n 2=blank\n3x=y\n-4=sign\n+5=sign\n0x6=hex\n7=good\n"),
            (Lines{"7=good"}));
}

TEST(ParseCatalogueTest, ANumberBeyondTheRangeIsMalformed) {
  EXPECT_EQ(Parsed("99999999999999999999=a\n2147483648=b\n2147483647=c\n"), (Lines{"2147483647=c"}));
}

TEST(ParseCatalogueTest, OfANumberGivenTwiceTheFirstTextCounts) {
  EXPECT_EQ(Parsed("2=first\n1=a\n2=second\n2=third\n"), (Lines{"1=a", "2=first"}));
}

TEST(ParseCatalogueTest, TheFirstTextCountsAmongManyAsWell) {
  std::string file = "5=first\n";
  for (int line = 0; line < 500; ++line) file += std::to_string(line % 10) + "=later\n";
  const Lines lines = Parsed(file);
  ASSERT_EQ(lines.size(), 10U);
  EXPECT_EQ(lines[5], "5=first");
}

TEST(ParseCatalogueTest, OrderOfTheLinesDoesNotMatter) {
  EXPECT_EQ(Parsed("30=c\n4=a\n5=b\n"), (Lines{"4=a", "5=b", "30=c"}));
}

TEST(ParseCatalogueTest, BinaryContentIsNoMoreThanMalformed) {
  using namespace std::string_view_literals;
  EXPECT_EQ(Parsed("\0\xFF=\n1\0=a\n\x7F"
                   "ELF\n8=a\0b\n"sv),
            (Lines{std::string("8=a\0b"sv)}));
}

class TextCatalogueTest : public ::testing::Test {
 protected:
  void TearDown() override { UseCodePage(*MakeCodePage("1252")); }

  CatalogueFiles files_;
};

TEST_F(TextCatalogueTest, GivesTheWordingByNumberAndLanguage) {
  files_.entries["texts/7.txt"].content = "31=Abbrechen\n";
  files_.entries["texts/9.txt"].content = "31=Cancel\n";
  TextCatalogue catalogue(files_, "texts/");
  EXPECT_EQ(catalogue.LoadText(31, 7), "Abbrechen");
  EXPECT_EQ(catalogue.LoadText(31, 9), "Cancel");
}

TEST_F(TextCatalogueTest, AnUnknownNumberIsEmpty) {
  files_.entries["texts/9.txt"].content = "30=OK\n32=Name\n";
  TextCatalogue catalogue(files_, "texts/");
  for (const int number : {-1, 0, 29, 31, 33, 2147483647}) EXPECT_EQ(catalogue.LoadText(number, 9), "") << number;
}

TEST_F(TextCatalogueTest, AnUnknownLanguageIsEmptyWithoutAFallback) {
  files_.entries["texts/9.txt"].content = "30=OK\n";
  TextCatalogue catalogue(files_, "texts/");
  for (const int language : {-7, 0, 7, 12, 2147483647}) EXPECT_EQ(catalogue.LoadText(30, language), "") << language;
}

TEST_F(TextCatalogueTest, AFurtherLanguageIsAFurtherFile) {
  files_.entries["texts/9.txt"].content = "31=Cancel\n";
  files_.entries["texts/16.txt"].content = "31=Annulla\n";
  TextCatalogue catalogue(files_, "texts/");
  EXPECT_EQ(catalogue.LoadText(31, 16), "Annulla");
}

TEST_F(TextCatalogueTest, OneOfGermanAndEnglishIsEnough) {
  files_.entries["texts/7.txt"].content = "31=Abbrechen\n";
  TextCatalogue catalogue(files_, "texts/");
  EXPECT_EQ(catalogue.LoadText(31, 7), "Abbrechen");
}

TEST_F(TextCatalogueTest, EachFileIsReadOnce) {
  files_.entries["texts/7.txt"].content = "30=OK\n";
  files_.entries["texts/9.txt"].content = "30=OK\n";
  files_.entries["texts/12.txt"].readable = false;
  TextCatalogue catalogue(files_, "texts/");
  for (const int language : {7, 9, 12, 12, 9, 7}) static_cast<void>(catalogue.LoadText(30, language));
  EXPECT_EQ(files_.reads, (std::vector<std::string>{"texts/7.txt", "texts/9.txt", "texts/12.txt"}));
}

TEST_F(TextCatalogueTest, AnUnreadableLanguageLeavesTheOthersWhole) {
  files_.entries["texts/7.txt"] = {"30=OK\n", false, false, {}};
  files_.entries["texts/9.txt"].content = "30=OK\n";
  TextCatalogue catalogue(files_, "texts/");
  EXPECT_EQ(catalogue.LoadText(30, 7), "");
  EXPECT_EQ(catalogue.LoadText(30, 9), "OK");
}

TEST_F(TextCatalogueTest, ADirectoryAndAHugeFileAreNoCatalogue) {
  files_.entries["texts/9.txt"].content = "30=OK\n";
  files_.entries["texts/10.txt"].directory = true;
  files_.entries["texts/12.txt"] = {"30=OK\n", true, false, std::uint64_t{1} << 40};
  TextCatalogue catalogue(files_, "texts/");
  catalogue.Init();
  EXPECT_EQ(catalogue.LoadText(30, 10), "");
  EXPECT_EQ(catalogue.LoadText(30, 12), "");
  EXPECT_EQ(files_.reads, (std::vector<std::string>{"texts/9.txt"}));
}

/// The number of the error that opening ends in, 0 for none.
int ErrorOfOpening(CatalogueFiles& files) {
  try {
    TextCatalogue catalogue(files, "texts/");
    catalogue.Init();
  } catch (const RuntimeError& error) {
    return static_cast<int>(error.Number());
  }
  return 0;
}

TEST_F(TextCatalogueTest, AMissingCatalogueIsError53) { EXPECT_EQ(ErrorOfOpening(files_), 53); }

TEST_F(TextCatalogueTest, AnUnreadableCatalogueIsError53) {
  files_.entries["texts/7.txt"] = {"30=OK\n", false, false, {}};
  files_.entries["texts/9.txt"] = {"30=OK\n", false, false, {}};
  EXPECT_EQ(ErrorOfOpening(files_), 53);
}

TEST_F(TextCatalogueTest, ACatalogueWithoutAnyTextIsError53) {
  files_.entries["texts/9.txt"].content = "# nothing yet\n";
  EXPECT_EQ(ErrorOfOpening(files_), 53);
  files_.entries["texts/9.txt"].content = "30=OK\n";
  EXPECT_EQ(ErrorOfOpening(files_), 0);
}

TEST_F(TextCatalogueTest, TextsComeInTheCodePage) {
  files_.entries["texts/7.txt"].content =
      "268=L\xC3\xB6schen\n214=\xE2\x80\x9E"
      "Ja\xE2\x80\x9C\n";
  TextCatalogue catalogue(files_, "texts/");
  EXPECT_EQ(catalogue.LoadText(268, 7), "L\xF6schen");
  EXPECT_EQ(catalogue.LoadText(214, 7),
            "\x84"
            "Ja\x93");
}

TEST_F(TextCatalogueTest, TheCodePageInUseAtTheCallCounts) {
  files_.entries["texts/7.txt"].content = "1=\xC5\x91\n";  // o with double acute accent
  TextCatalogue catalogue(files_, "texts/");
  EXPECT_EQ(catalogue.LoadText(1, 7), "?");
  UseCodePage(*MakeCodePage("1250"));
  EXPECT_EQ(catalogue.LoadText(1, 7), "\xF5");
}

TEST_F(TextCatalogueTest, ACharacterThePageLacksBecomesOneQuestionMark) {
  files_.entries["texts/9.txt"].content =
      "1=a\xCE\xA9"
      "b\xE2\x82\xAC\xF0\x9F\x98\x80"
      "c\n2=fine\n";
  TextCatalogue catalogue(files_, "texts/");
  EXPECT_EQ(catalogue.LoadText(1, 9), "a?b\x80?c");
  EXPECT_EQ(catalogue.LoadText(2, 9), "fine");
}

TEST_F(TextCatalogueTest, BytesThatAreNoUtf8BecomeQuestionMarks) {
  files_.entries["texts/9.txt"].content =
      "1=a\xFF\x80"
      "b\xC3\n2=\xC3\xB6\xF6\n";
  TextCatalogue catalogue(files_, "texts/");
  EXPECT_EQ(catalogue.LoadText(1, 9), "a?b?");
  EXPECT_EQ(catalogue.LoadText(2, 9), "\xF6?");
}

TEST_F(TextCatalogueTest, ALineBreakReachesTheReader) {
  files_.entries["texts/9.txt"].content = "1=a\\nb\n";
  TextCatalogue catalogue(files_, "texts/");
  EXPECT_EQ(catalogue.LoadText(1, 9), "a\nb");
}

}  // namespace
}  // namespace tavrin
