#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "model/shared/TextCatalogue.h"
#include "platform/CodePage.h"

/// The rules that the wording of every language keeps, held against the catalogue files of the tree.

namespace tavrin {
namespace {

constexpr std::array kNumbers{
    1,   2,   3,   4,   5,   6,   7,   8,   9,   10,  13,  14,  15,  19,  21,  22,  23,  24,  26,  27,  28,  29,  30,
    31,  32,  33,  34,  35,  36,  37,  38,  39,  40,  41,  42,  43,  44,  45,  46,  47,  48,  49,  50,  51,  52,  53,
    54,  55,  56,  57,  58,  59,  60,  61,  62,  63,  64,  65,  66,  67,  69,  70,  71,  72,  73,  85,  86,  87,  88,
    89,  90,  91,  92,  93,  94,  95,  96,  97,  100, 103, 104, 105, 106, 107, 108, 111, 112, 113, 114, 115, 116, 117,
    118, 119, 120, 121, 122, 123, 124, 125, 126, 127, 130, 131, 132, 133, 134, 135, 136, 137, 138, 139, 140, 150, 151,
    152, 153, 155, 156, 157, 158, 160, 161, 199, 200, 201, 202, 203, 204, 205, 206, 207, 208, 209, 210, 211, 212, 213,
    214, 215, 216, 217, 218, 219, 220, 221, 222, 223, 224, 225, 226, 227, 228, 229, 230, 231, 232, 233, 235, 236, 238,
    239, 261, 266, 267, 268, 269, 270, 271, 272, 290, 291, 293, 294, 295, 296, 297,
};
static_assert(kNumbers.size() == 177);

/// Entries of one menu, or buttons and boxes of one dialog: no letter may reach two of them.
struct Group {
  std::string_view name;
  std::vector<int> numbers;
};

const std::vector<Group> kMenus{
    {"menu bar", {40, 46, 52}},
    {"File", {41, 42, 43, 44, 45}},
    {"Edit", {47, 48, 49, 50, 51}},
    {"Extras", {53, 54, 55, 58, 61, 62, 63, 64, 66, 160, 267, 67}},
    {"language", {56, 57}},
    {"font size", {59, 60}},
    {"tag grid", {65}},
    {"Help", {69, 70, 71, 72}},
};

const std::vector<Group> kDialogs{
    {"new network", {26, 27, 34, 35, 36}},
    {"file versions", {28, 29}},
    {"reconfigure", {28, 161}},
    {"clean up", {28, 268}},
    {"options", {138, 139}},
    {"hint", {158}},
};

/// Menu entries that open a window which asks for more. 160 and 267 do as well, but they are also the titles of their
/// windows.
constexpr std::array kAsksForMore{42, 44, 47, 49, 65, 67, 70, 72};
/// Lines of the list of steps that tell of something just begun.
constexpr std::array kJustBegun{85, 92};

constexpr std::array kQuestions{21, 22, 23, 24, 24, 202, 206, 271};
/// Messages of whole sentences, behind which nothing is joined anywhere.
constexpr std::array kSentences{156, 157, 208, 209, 213, 229, 230, 232, 233, 235, 261, 266, 296};
/// A file, a name or a list of allowed values follows.
constexpr std::array kAnnouncements{201, 204, 205, 215, 216, 219, 231};
/// Something else is joined to them: brackets, " : ", the name of a key, a number, a directory, or nothing at all.
constexpr std::array kOpenEnds{19,  86,  87,  88,  89,  90,  91,  93,  94,  95,  96,  97,  105, 199, 200, 203, 207, 210,
                               211, 212, 214, 217, 218, 220, 221, 223, 224, 225, 226, 227, 228, 236, 238, 239, 272};

/// Headings of the narrowest columns of the grids.
constexpr std::array kNarrowHeadings{6, 7, 116, 117, 136};
constexpr std::size_t kNarrow = 12;  // characters
/// The version report gives the date column 20 characters, and "not found" stands there.
constexpr std::size_t kDateColumn = 20;

template <class Range>
bool Contains(const Range& range, int number) {
  return std::find(std::begin(range), std::end(range), number) != std::end(range);
}

bool IsInGroups(const std::vector<Group>& groups, int number) {
  return std::any_of(groups.begin(), groups.end(), [=](const Group& group) { return Contains(group.numbers, number); });
}

std::string FileOf(int language) {
  const auto path = std::filesystem::path(TAVRIN_SOURCE_DIR) / "texts" / (std::to_string(language) + ".txt");
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

std::vector<std::string> LinesOf(const std::string& file) {
  std::istringstream in(file);
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

/// A comment or a blank line.
bool IsNoText(const std::string& line) { return line.empty() || line[0] == '#'; }

/// The letter that reaches a caption, in lower case; 0 when it has none.
char Accelerator(const std::string& text) {
  const std::size_t mark = text.find('&');
  if (mark == std::string::npos || mark + 1 == text.size()) return 0;
  return static_cast<char>(std::tolower(static_cast<unsigned char>(text[mark + 1])));
}

std::size_t CountOf(char wanted, std::string_view text) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), wanted));
}

/// "N: text" for the report of a breach.
std::string Shown(int number, const std::string& text) { return std::to_string(number) + ": " + text; }

/// The texts of one language, in UTF-8.
class TextsTest : public ::testing::TestWithParam<int> {
 protected:
  TextsTest() {
    for (CatalogueText& entry : ParseCatalogue(file_)) texts_[entry.number] = std::move(entry.text);
  }

  void ExpectUniqueAccelerators(const Group& group) {
    std::map<char, int> owners;
    for (const int number : group.numbers) {
      const char letter = Accelerator(texts_[number]);
      const auto [owner, isNew] = owners.emplace(letter, number);
      EXPECT_TRUE(isNew) << group.name << ": " << Shown(number, texts_[number]) << " and " << texts_[owner->second];
    }
  }

  std::string file_ = FileOf(GetParam());
  std::map<int, std::string> texts_;
};

INSTANTIATE_TEST_SUITE_P(Languages, TextsTest, ::testing::Values(7, 9));

TEST_P(TextsTest, TheFileIsPlainUtf8WithLineFeeds) {
  ASSERT_FALSE(file_.empty());
  EXPECT_NE(file_.substr(0, 3), "\xEF\xBB\xBF");
  EXPECT_EQ(file_.find('\r'), std::string::npos);
  EXPECT_EQ(file_.find('\t'), std::string::npos);
  EXPECT_EQ(file_.back(), '\n');
}

TEST_P(TextsTest, EveryNumberStandsOnceAndInOrder) {
  std::vector<int> numbers;
  for (const std::string& line : LinesOf(file_)) {
    if (!IsNoText(line)) numbers.push_back(std::atoi(line.c_str()));
  }
  EXPECT_EQ(numbers, std::vector<int>(kNumbers.begin(), kNumbers.end()));
  EXPECT_EQ(texts_.size(), kNumbers.size()) << "a line that the program cannot read";
}

TEST_P(TextsTest, NoTextIsEmptyOrCarelesslySpaced) {
  for (const int number : kNumbers) {
    const std::string& text = texts_[number];
    ASSERT_FALSE(text.empty()) << number;
    EXPECT_NE(text.front(), ' ') << Shown(number, text);
    EXPECT_NE(text.back(), ' ') << Shown(number, text);
    EXPECT_EQ(text.find("  "), std::string::npos) << Shown(number, text);
    EXPECT_EQ(text.find('\t'), std::string::npos) << Shown(number, text);
  }
}

TEST_P(TextsTest, EveryCharacterExistsInTheCodePagesOfWesternAndCentralEurope) {
  for (const std::string_view page : {"1252", "1250"}) {
    UseCodePage(*MakeCodePage(page));
    for (const int number : kNumbers)
      EXPECT_TRUE(FromUtf8(texts_[number])) << page << ' ' << Shown(number, texts_[number]);
  }
  UseCodePage(*MakeCodePage("1252"));
}

TEST_P(TextsTest, AnAcceleratorReachesOneEntryOfItsMenu) {
  for (const Group& menu : kMenus) ExpectUniqueAccelerators(menu);
}

TEST_P(TextsTest, AnAcceleratorReachesOneControlOfItsDialog) {
  for (const Group& dialog : kDialogs) ExpectUniqueAccelerators(dialog);
}

TEST_P(TextsTest, MenusAndControlsHaveOneAcceleratorAndNothingElseHas) {
  for (const int number : kNumbers) {
    const std::string& text = texts_[number];
    const bool wanted = IsInGroups(kMenus, number) || IsInGroups(kDialogs, number);
    EXPECT_EQ(CountOf('&', text), wanted ? 1U : 0U) << Shown(number, text);
    // A letter outside ASCII is not on every keyboard.
    EXPECT_EQ(std::isalnum(static_cast<unsigned char>(Accelerator(text))) != 0, wanted) << Shown(number, text);
  }
}

TEST_P(TextsTest, ThreePointsEndExactlyWhatAsksForMoreOrHasJustBegun) {
  for (const int number : kNumbers) {
    const std::string& text = texts_[number];
    const bool wanted = Contains(kAsksForMore, number) || Contains(kJustBegun, number);
    const bool atEnd = text.size() > 3 && text.compare(text.size() - 3, 3, "...") == 0;
    EXPECT_EQ(atEnd, wanted) << Shown(number, text);
    EXPECT_EQ(text.find("..."), wanted ? text.size() - 3 : std::string::npos) << Shown(number, text);
  }
}

TEST_P(TextsTest, QuestionsEndInAQuestionMarkAndNothingElseHasOne) {
  for (const int number : kNumbers) {
    const std::string& text = texts_[number];
    EXPECT_EQ(CountOf('?', text), Contains(kQuestions, number) ? 1U : 0U) << Shown(number, text);
    EXPECT_EQ(text.back() == '?', Contains(kQuestions, number)) << Shown(number, text);
  }
}

TEST_P(TextsTest, SentencesThatStandAloneEndInAFullStop) {
  for (const int number : kNumbers) {
    const std::string& text = texts_[number];
    const bool fullStop = text.back() == '.' && text.compare(text.size() - 2, 1, ".") != 0;
    EXPECT_EQ(fullStop, Contains(kSentences, number)) << Shown(number, text);
  }
}

TEST_P(TextsTest, AColonEndsExactlyWhatAnnouncesAPieceBehindIt) {
  for (const int number : kNumbers) {
    EXPECT_EQ(texts_[number].back() == ':', Contains(kAnnouncements, number)) << Shown(number, texts_[number]);
  }
}

TEST_P(TextsTest, WhatOtherPiecesAreJoinedToHasAnOpenEnd) {
  for (const int number : kOpenEnds) {
    EXPECT_EQ(std::string_view(".:;,!?-(").find(texts_[number].back()), std::string_view::npos)
        << Shown(number, texts_[number]);
  }
}

TEST_P(TextsTest, NothingShouts) {
  for (const int number : kNumbers) EXPECT_EQ(texts_[number].find('!'), std::string::npos) << texts_[number];
}

TEST_P(TextsTest, TextsOfNarrowColumnsFit) {
  for (const int number : kNarrowHeadings) EXPECT_LE(texts_[number].size(), kNarrow) << texts_[number];
  EXPECT_LT(texts_[222].size(), kDateColumn);
}

TEST_P(TextsTest, TheFileKindFitsIntoTheFilterOfTheOpenDialog) {
  EXPECT_EQ(texts_[13].find_first_of("|()"), std::string::npos) << texts_[13];
}

TEST(TextsOfAllLanguagesTest, LineBreaksAreTheSame) {
  const std::vector<CatalogueText> german = ParseCatalogue(FileOf(7));
  const std::vector<CatalogueText> english = ParseCatalogue(FileOf(9));
  ASSERT_EQ(german.size(), english.size());
  for (std::size_t at = 0; at < german.size(); ++at) {
    EXPECT_EQ(CountOf('\n', german[at].text), CountOf('\n', english[at].text)) << german[at].number;
  }
}

TEST(TextsOfAllLanguagesTest, CommentsAndLinesMatchSoThatFilesCompareSideBySide) {
  const auto skeleton = [](const std::string& file) {
    std::vector<std::string> lines = LinesOf(file);
    for (std::string& line : lines) {
      if (!IsNoText(line)) line.resize(std::min(line.size(), line.find('=')));
    }
    return lines;
  };
  EXPECT_EQ(skeleton(FileOf(7)), skeleton(FileOf(9)));
}

TEST(TextsOfAllLanguagesTest, LanguagesStandInTheirOwnWords) {
  for (const std::string_view name : {"\n56=&Deutsch\n", "\n57=&English\n"}) {
    EXPECT_NE(FileOf(7).find(name), std::string::npos) << name;
    EXPECT_NE(FileOf(9).find(name), std::string::npos) << name;
  }
}

}  // namespace
}  // namespace tavrin
