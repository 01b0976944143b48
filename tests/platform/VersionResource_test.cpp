#include "platform/version/VersionResource.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/VersionFile.h"

namespace tavrin {
namespace {

constexpr int kGerman = 0x407;

/// A file in memory that counts what is read of it.
class MemoryFile : public InputFile {
 public:
  explicit MemoryFile(std::string bytes) : bytes_(std::move(bytes)) {}
  [[nodiscard]] std::uint64_t Size() const override { return bytes_.size(); }
  [[nodiscard]] std::string Read(std::uint64_t offset, std::size_t count) override {
    ++reads;
    std::string piece = offset < bytes_.size() ? bytes_.substr(static_cast<std::size_t>(offset), count) : std::string{};
    bytesRead += piece.size();
    return piece;
  }

  int reads = 0;
  std::size_t bytesRead = 0;

 private:
  std::string bytes_;
};

std::optional<std::string> Read(const std::string& bytes, int language = kGerman) {
  MemoryFile file(bytes);
  return ReadVersionResource(file, language);
}

/// A resource that can be told from others by its text.
std::string Resource(std::u16string_view text = u"some") { return WideResource(TextNode("VS_VERSION_INFO", text)); }

/// What a resource says of itself.
std::size_t OwnLength(const std::string& resource) {
  return static_cast<unsigned char>(resource.at(0)) + 256U * static_cast<unsigned char>(resource.at(1));
}

/// Offsets in a file of the usual layout.
constexpr std::size_t kPeHeader = 0x80;
constexpr std::size_t kOptional = kPeHeader + 24;
constexpr std::size_t kDirectories = 0x400;  // types, then names, then languages, 24 bytes each
constexpr std::size_t kData = kDirectories + 3 * 24;

TEST(VersionResource, IsFoundIn32And64BitFilesOfAnyLayout) {
  const std::vector<PeLayout> layouts{{},
                                      {.is64 = true},
                                      {.sectionsBefore = 0, .address = 0x1000},
                                      {.is64 = true, .sectionsBefore = 4, .address = 0x7000},
                                      {.dataSection = 0x9000},
                                      {.address = 0x9000, .dataSection = 0x4000},
                                      {.header = 0x1000},
                                      {.optionalHeaderExtra = 32},
                                      {.namedEntries = 5}};
  for (std::size_t index = 0; index < layouts.size(); ++index) {
    EXPECT_EQ(Read(PeFile({{0, Resource()}}, layouts[index])), Resource()) << "layout " << index;
  }
}

TEST(VersionResource, IsFoundIn16BitFiles) {
  const std::string resource = NarrowResource(NarrowTextNode("VS_VERSION_INFO", "text"));
  const auto found = Read(NeFile(resource));
  ASSERT_TRUE(found);
  EXPECT_TRUE(found->starts_with(resource));
}

TEST(VersionResource, MayLieInTheHeaders) {
  std::string file = PeFile({{0, Resource()}});
  PutDoubleWord(file, kOptional + 60, 0x10000);            // all addresses below are offsets
  PutDoubleWord(file, kOptional + 96 + 16, kDirectories);  // the resources
  PutDoubleWord(file, kData, kData + 16);
  EXPECT_EQ(Read(file), Resource());
}

TEST(VersionResource, OfSeveralLanguagesTheNeutralOneWins) {
  const auto with = [](std::vector<std::uint32_t> languages) {
    std::vector<ResourceInLanguage> resources;
    for (const std::uint32_t language : languages) {
      resources.push_back({language, Resource(std::u16string(1, static_cast<char16_t>(language + 1)))});
    }
    return PeFile(resources);
  };
  const auto resourceOf = [](std::uint32_t language) {
    return Resource(std::u16string(1, static_cast<char16_t>(language + 1)));
  };
  EXPECT_EQ(Read(with({0x40C, 0x407, 0x409, 0})), resourceOf(0));
  EXPECT_EQ(Read(with({0x40C, 0x409, 0x407})), resourceOf(0x407)) << "then the user's";
  EXPECT_EQ(Read(with({0x40C, 0x409, 0xC07})), resourceOf(0x409)) << "then English";
  EXPECT_EQ(Read(with({0x40C, 0xC07})), resourceOf(0x40C)) << "then the first";
}

TEST(VersionResource, OnlyNumber1OfItsTypeCounts) {
  std::string type = PeFile({{0, Resource()}});
  PutDoubleWord(type, kDirectories + 16, 17);
  EXPECT_EQ(Read(type), std::nullopt);
  std::string name = PeFile({{0, Resource()}});
  PutDoubleWord(name, kDirectories + 24 + 16, 2);
  EXPECT_EQ(Read(name), std::nullopt);
}

TEST(VersionResource, OtherFilesHaveNone) {
  for (const std::string& bytes : {std::string(), std::string("MZ"), std::string("text", 4), std::string(5000, '\0'),
                                   std::string(5000, 'M'), std::string(5000, '\xFF')}) {
    EXPECT_EQ(Read(bytes), std::nullopt);
  }
  std::string signature = PeFile({{0, Resource()}});
  signature[kPeHeader + 1] = 'X';
  EXPECT_EQ(Read(signature), std::nullopt);
  std::string magic = PeFile({{0, Resource()}});
  PutWord(magic, kOptional, 0x107);
  EXPECT_EQ(Read(magic), std::nullopt);
  std::string noTable = PeFile({{0, Resource()}});
  PutDoubleWord(noTable, kOptional + 92, 2);
  EXPECT_EQ(Read(noTable), std::nullopt) << "the resource table is the third";
  std::string noResources = PeFile({{0, Resource()}});
  PutDoubleWord(noResources, kOptional + 96 + 16, 0);
  EXPECT_EQ(Read(noResources), std::nullopt);
}

TEST(VersionResource, AFileThatIsCutHasNone) {
  for (const std::string& whole :
       {PeFile({{0, Resource()}}), PeFile({{0, Resource()}}, {.is64 = true, .dataSection = 0x9000}),
        NeFile(NarrowResource(NarrowTextNode("VS_VERSION_INFO", "a text of some length")))}) {
    const auto found = Read(whole);
    ASSERT_TRUE(found);
    const std::size_t end = whole.rfind(*found) + OwnLength(*found);
    for (std::size_t size = 0; size < end; ++size) {
      EXPECT_EQ(Read(whole.substr(0, size)), std::nullopt) << size;
    }
    EXPECT_EQ(Read(whole.substr(0, end)), found->substr(0, OwnLength(*found)));
  }
}

TEST(VersionResource, DirectoriesInACircleLeadNowhere) {
  for (const std::size_t level : {0U, 1U, 2U}) {
    for (const std::uint32_t target : {0U, 24U, 48U}) {
      std::string file = PeFile({{0, Resource()}});
      PutDoubleWord(file, kDirectories + 24 * level + 20, 0x80000000 | target);
      const bool usual = level < 2 && target == 24 * (level + 1);
      EXPECT_EQ(Read(file).has_value(), usual) << level << " to " << target;
    }
  }
  // One directory that is all three at once.
  std::string all = PeFile({{16, Resource()}, {1, Resource()}, {0, Resource()}});
  PutDoubleWord(all, kDirectories + 20, 0x80000000 | 48);
  for (const std::size_t entry : {0U, 1U, 2U}) PutDoubleWord(all, kDirectories + 48 + 20 + 8 * entry, 0x80000000 | 48);
  EXPECT_EQ(Read(all), std::nullopt);
}

TEST(VersionResource, OffsetsNear4GigabytesLeadNowhere) {
  struct Place {
    std::string_view what;
    std::size_t at;
  };
  for (const auto& [what, at] :
       {Place{"header", 60}, Place{"resources", kOptional + 112}, Place{"types", kDirectories + 20},
        Place{"names", kDirectories + 44}, Place{"languages", kDirectories + 68}, Place{"data", kData},
        Place{"section in the file", kOptional + 224 + 40 + 20}}) {
    for (const std::uint32_t value : {0xFFFFFFFFU, 0xFFFFFFF0U, 0x7FFFFFFFU, 0x80000000U}) {
      std::string file = PeFile({{0, Resource()}});
      PutDoubleWord(file, at, value);
      EXPECT_EQ(Read(file), std::nullopt) << what << ' ' << value;
    }
  }
}

TEST(VersionResource, ALengthBeyondTheFileIsDamage) {
  std::string file = PeFile({{0, Resource()}});
  const std::size_t begin = file.rfind(Resource());
  PutWord(file, begin, static_cast<std::uint32_t>(file.size() - begin));
  EXPECT_TRUE(Read(file));
  PutWord(file, begin, static_cast<std::uint32_t>(file.size() - begin + 1));
  EXPECT_EQ(Read(file), std::nullopt);
}

TEST(VersionResource, ASizeBeyondTheFileEndsWithTheFileWhenTheResourceItselfIsWhole) {
  const std::string resource = Resource();
  std::string file = PeFile({{0, resource}});
  file.resize(file.rfind(resource) + resource.size());
  for (const std::uint32_t size : {static_cast<std::uint32_t>(resource.size() + 1), 0x7FFFFFFFU, 0xFFFFFFFFU}) {
    PutDoubleWord(file, kData + 4, size);
    EXPECT_EQ(Read(file), resource) << size;
  }
}

TEST(VersionResource, A16BitFileMayEndWithItsResourceAlthoughSizesAreRounded) {
  const std::string resource = NarrowResource(NarrowTextNode("VS_VERSION_INFO", "odd"));
  ASSERT_NE(resource.size() % 16, 0U);
  std::string file = NeFile(resource);
  file.resize(file.rfind(resource) + resource.size());
  EXPECT_EQ(Read(file), resource);
}

TEST(VersionResource, DataTooSmallForABlockIsNone) {
  std::string file = PeFile({{0, Resource()}});
  PutDoubleWord(file, kData + 4, 7);
  EXPECT_EQ(Read(file), std::nullopt);
}

TEST(VersionResource, AHostileFileIsReadInFewSmallPieces) {
  std::string file = PeFile({{0, Resource()}});
  file.resize(8'000'000, '\xFF');
  PutWord(file, kPeHeader + 6, 0xFFFF);  // sections
  for (const std::size_t level : {0U, 1U, 2U}) PutWord(file, kDirectories + 24 * level + 14, 0xFFFF);
  MemoryFile counted(file);
  static_cast<void>(ReadVersionResource(counted, kGerman));
  EXPECT_LT(counted.reads, 20);
  EXPECT_LT(counted.bytesRead, 6'000'000U);
}

TEST(VersionResource, DataLargerThanAnyResourceIsNotReadWhole) {
  std::string resource = Resource();
  resource.resize(3'000'000, '\0');
  MemoryFile counted(PeFile({{0, resource}}));
  const auto found = ReadVersionResource(counted, kGerman);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->size(), 65536U);
  EXPECT_LT(counted.bytesRead, 70'000U);
}

TEST(VersionResource, A16BitFileWithABadTableHasNone) {
  const std::string whole = NeFile(NarrowResource(NarrowTextNode("VS_VERSION_INFO", "text")));
  struct Change {
    std::size_t at;
    std::uint32_t value;
  };
  // The table's offset, the shift of offsets, the count of the first type, number and offset of the resource.
  for (const auto& [at, value] : {Change{0x64, 0}, Change{0x64, 0xFFFF}, Change{0x80, 17}, Change{0x84, 0xFFFF},
                                  Change{0x96 + 8 + 6, 0x8002}, Change{0x96 + 8, 0xFFFF}, Change{0x96 + 8 + 2, 0}}) {
    std::string file = whole;
    PutWord(file, at, value);
    EXPECT_EQ(Read(file), std::nullopt) << at;
  }
}

}  // namespace
}  // namespace tavrin
