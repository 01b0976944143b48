#include "model/tags/NameIndex.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "platform/CodePage.h"

namespace tavrin {
namespace {

/// A page for the length of a test.
class PageGuard {
 public:
  explicit PageGuard(std::string_view number) : old_(ActiveCodePage()) { UseCodePage(MakeCodePage(number).value()); }
  PageGuard(const PageGuard&) = delete;
  PageGuard& operator=(const PageGuard&) = delete;
  ~PageGuard() { UseCodePage(old_); }

 private:
  CodePage old_;
};

struct Pair {
  std::string left;
  std::string right;
  bool byName;
  bool byKey;
};

TEST(NameFold, TellsWhichNamesAreTheSame) {
  const std::vector<Pair> rows{
      {"", "", true, true},
      {"", "a", false, false},
      {"a", "A", true, false},
      {"azAZ", "AZaz", true, false},
      {"1_ @[`{", "1_ @[`{", true, true},
      {"@", "`", false, false},  // 32 apart as the letters are, yet no letters
      {"[", "{", false, false},
      {"\xE4", "\xC4", true, true},
      {"a\xE4", "a\xC4", true, true},
      {"a\xE4", "A\xC4", true, false},
      {"\xFF", "\x9F", true, true},
      {"\xD7", "\xF7", false, false},  // multiplication and division sign
      {"\xDF", "\xDF", true, true},
      {"longer than eight letters", "LONGER THAN EIGHT LETTERS", true, false},
      {"12345678", "12345678", true, true},
      {"12345678a", "12345678A", true, false},
      {"12345678\xE4", "12345678\xC4", true, true},
      {"a", "a ", false, false},
      {std::string("a\0b", 3), std::string("a\0B", 3), true, false},
      {std::string("a\0", 2), "a", false, false},
  };
  for (const Pair& row : rows) {
    SCOPED_TRACE(row.left + " and " + row.right);
    EXPECT_EQ(SameName(FoldOfNames(), row.left, row.right), row.byName);
    EXPECT_EQ(SameName(FoldOfKeys(), row.left, row.right), row.byKey);
    EXPECT_EQ(SameName(FoldOfExactNames(), row.left, row.right), row.left == row.right);
  }
}

TEST(NameFold, NamesAreComparedAsTheirUpperCases) {
  for (const char* page : {"1250", "1251", "1252", "1253", "1254", "1257"}) {
    const PageGuard guard(page);
    const NameFold names = FoldOfNames();
    for (int i = 0; i < 256; ++i) {
      for (int j = 0; j < 256; ++j) {
        const std::string left(1, static_cast<char>(i));
        const std::string right(1, static_cast<char>(j));
        ASSERT_EQ(SameName(names, left, right), UpperCase(left) == UpperCase(right)) << page << ": " << i << ' ' << j;
      }
    }
  }
}

/// A name's key: each character with a mark of what it is.
std::string CodedName(std::string_view name) {
  std::string key;
  for (const char c : name) {
    key += c;
    key += c >= 'A' && c <= 'Z' ? '+' : c >= 'a' && c <= 'z' ? '-' : '*';
  }
  return key;
}

TEST(NameFold, KeysAreComparedAsCodedNamesWithoutRegardToCase) {
  for (const char* page : {"1250", "1251", "1252", "1253", "1254", "1257"}) {
    const PageGuard guard(page);
    const NameFold keys = FoldOfKeys();
    for (int i = 0; i < 256; ++i) {
      for (int j = 0; j < 256; ++j) {
        const std::string left(1, static_cast<char>(i));
        const std::string right(1, static_cast<char>(j));
        ASSERT_EQ(SameName(keys, left, right), EqualIgnoringCase(CodedName(left), CodedName(right)))
            << page << ": " << i << ' ' << j;
      }
    }
  }
}

TEST(NameHash, NamesThatAreTheSameHaveTheSameHash) {
  for (const char* page : {"1252", "1254"}) {
    const PageGuard guard(page);
    for (const NameFold& fold : {FoldOfNames(), FoldOfExactNames(), FoldOfKeys()}) {
      for (std::size_t length = 1; length <= 18; ++length) {
        for (int i = 0; i < 256; ++i) {
          std::string name(length, 'm');
          name[length / 2] = static_cast<char>(i);
          std::string same = name;
          for (char& c : same) {
            for (int j = 255; j >= 0; --j) {  // the last character that counts as the same
              if (!SameName(fold, std::string(1, c), std::string(1, static_cast<char>(j)))) continue;
              c = static_cast<char>(j);
              break;
            }
          }
          ASSERT_EQ(HashName(fold, name), HashName(fold, same)) << page << ' ' << length << ' ' << i;
        }
      }
    }
  }
}

TEST(NameHash, DiffersForNamesThatDiffer) {
  const NameFold fold = FoldOfNames();
  EXPECT_NE(HashName(fold, "a"), HashName(fold, "b"));
  EXPECT_NE(HashName(fold, "a"), HashName(fold, std::string_view("a\0", 2)));
  EXPECT_NE(HashName(fold, ""), HashName(fold, std::string_view("\0", 1)));
  EXPECT_NE(HashName(fold, "12345678a"), HashName(fold, "a12345678"));
  EXPECT_EQ(HashName(fold, "ab"), HashName(fold, "AB"));
  EXPECT_NE(HashName(FoldOfExactNames(), "ab"), HashName(FoldOfExactNames(), "AB"));
}

std::uint32_t FindAny(const NameIndex& index, std::uint32_t hash) {
  return index.Find(hash, [](std::uint32_t) { return true; });
}

TEST(NameIndex, FindsNothingInAnEmptyIndex) {
  NameIndex index;
  EXPECT_EQ(FindAny(index, 0), NameIndex::kNowhere);
  index.Reserve(0);
  EXPECT_EQ(FindAny(index, 0), NameIndex::kNowhere);
}

TEST(NameIndex, AsksAboutEntriesOfTheSameHashOnly) {
  NameIndex index;
  index.Insert(7, 1);
  index.Insert(7, 2);
  index.Insert(7 + 64, 3);  // the same place to begin with
  std::vector<std::uint32_t> asked;
  EXPECT_EQ(index.Find(7,
                       [&](std::uint32_t position) {
                         asked.push_back(position);
                         return false;
                       }),
            NameIndex::kNowhere);
  EXPECT_EQ(asked, (std::vector<std::uint32_t>{1, 2}));
  EXPECT_EQ(index.Find(7, [](std::uint32_t position) { return position == 2; }), 2U);
  EXPECT_EQ(FindAny(index, 7 + 64), 3U);
  EXPECT_EQ(FindAny(index, 8), NameIndex::kNowhere);
}

TEST(NameIndex, KeepsEveryEntryWhileItGrows) {
  for (const std::size_t reserved : {0U, 100U, 20000U}) {
    NameIndex index;
    index.Reserve(reserved);
    // Hashes that fall on each other's places in every size.
    for (std::uint32_t i = 0; i < 10000; ++i) {
      index.Insert(i << 12, i);
      if (i == 5000) index.Reserve(reserved);
    }
    for (std::uint32_t i = 0; i < 10000; ++i) ASSERT_EQ(FindAny(index, i << 12), i);
    EXPECT_EQ(FindAny(index, 10000U << 12), NameIndex::kNowhere);
  }
}

TEST(NameIndex, IsEmptyAfterClearAndCanBeFilledAgain) {
  NameIndex index;
  for (std::uint32_t i = 0; i < 200; ++i) index.Insert(i, i);
  index.Clear();
  EXPECT_EQ(FindAny(index, 5), NameIndex::kNowhere);
  index.Insert(5, 9);
  EXPECT_EQ(FindAny(index, 5), 9U);
}

}  // namespace
}  // namespace tavrin
