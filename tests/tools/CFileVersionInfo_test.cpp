#include "tools/CFileVersionInfo.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/ProjectTest.h"
#include "support/VersionFile.h"

namespace tavrin {
namespace {

using testing::Each;
using testing::IsEmpty;

/// All texts with names as in the resource: "value of NAME".
std::u16string ValueOf(const std::string& name) { return u"value of " + std::u16string(name.begin(), name.end()); }

const std::vector<std::string> kKeys{"Comments",         "CompanyName",     "FileDescription", "FileVersion",
                                     "InternalName",     "LegalCopyright",  "LegalTrademarks", "OriginalFilename",
                                     "ProductName",      "ProductVersion",  "PrivateBuild",    "SpecialBuild",
                                     "LegalTrademarks1", "LegalTrademarks2"};

class CFileVersionInfoTest : public ProjectTest {
 protected:
  void TearDown() override {
    EXPECT_THAT(Boxes(), IsEmpty()) << "nothing fails visibly";
    ProjectTest::TearDown();
  }

  void WriteTree(const VersionNode& tree) { directory.Write("file.dll", PeFile({{0x409, WideResource(tree)}})); }
  void ReadTree(const VersionNode& tree) {
    WriteTree(tree);
    info.FullPathName(directory.Path() + "file.dll");
  }
  void Read(const VersionTexts& resource) { ReadTree(VersionTree(resource)); }
  void Read(const FixedVersion& fixed) {
    VersionTexts resource;
    resource.fixed = fixed;
    Read(resource);
  }
  void ReadFile(std::string_view name) { info.FullPathName(directory.Path() + std::string(name)); }

  [[nodiscard]] std::vector<std::string> FixedTexts() const {
    return {info.VerStructure(), info.VerFile(),  info.VerProduct(), info.FileFlags(),
            info.FileOS(),       info.FileType(), info.FileSubType()};
  }
  [[nodiscard]] std::vector<std::string> Values() const {
    std::vector<std::string> values;
    for (std::int32_t index = 0; index < 15; ++index) values.push_back(info.PredefinedValue(index));
    return values;
  }

  CFileVersionInfo info;
};

TEST_F(CFileVersionInfoTest, AFileWithoutResourceHasNothing) {
  directory.Write("text.txt", "text");
  for (const std::string_view name : {"text.txt", "none.dll", ""}) {
    ReadFile(name);
    EXPECT_FALSE(info.Available()) << name;
    EXPECT_EQ(info.VerFile(), "");
    EXPECT_THAT(FixedTexts(), Each(std::string()));
    EXPECT_THAT(Values(), Each(std::string()));
  }
}

TEST_F(CFileVersionInfoTest, AFileWithoutResourceLeavesTheTextsOfTheOneBefore) {
  VersionTexts resource;
  resource.strings = {{"FileVersion", u"7.0"}};
  Read(resource);
  EXPECT_TRUE(info.Available());
  directory.Write("text.txt", "text");
  ReadFile("text.txt");
  EXPECT_FALSE(info.Available());
  EXPECT_EQ(info.FileVersion(), "7.0");
  EXPECT_EQ(info.VerFile(), "07.00.0002");
}

TEST_F(CFileVersionInfoTest, RefreshReadsTheFileAnew) {
  Read(FixedVersion{});
  WriteTree(VersionTree({.fixed = {.fileVersionMS = 0x00080001}, .strings = {}}));
  EXPECT_EQ(info.VerFile(), "07.00.0002");
  info.Refresh();
  EXPECT_EQ(info.VerFile(), "08.01.0002");
  EXPECT_EQ(info.FullPathName(), directory.Path() + "file.dll");
}

TEST_F(CFileVersionInfoTest, AFaultOfTheDiskIsAFileWithoutResource) {
  Read(VersionTexts{.fixed = {}, .strings = {{"CompanyName", u"Tavrin"}}});
  faults.reading = {"file.dll", ErrorNumber::DeviceIoError};
  info.Refresh();
  EXPECT_FALSE(info.Available());
  EXPECT_EQ(info.CompanyName(), "Tavrin");
  faults.reading.reset();
  info.Refresh();
  EXPECT_TRUE(info.Available());
}

/// Files on a disk that breaks after some reads.
class BreakingFiles : public FaultyFiles {
 public:
  using FaultyFiles::FaultyFiles;
  std::unique_ptr<InputFile> Open(std::string_view path) override {
    return std::make_unique<BreakingFile>(FaultyFiles::Open(path), readsLeft);
  }

  int readsLeft = 0;

 private:
  class BreakingFile : public InputFile {
   public:
    BreakingFile(std::unique_ptr<InputFile> real, int& readsLeft) : real_(std::move(real)), readsLeft_(readsLeft) {}
    [[nodiscard]] std::uint64_t Size() const override { return real_->Size(); }
    [[nodiscard]] std::string Read(std::uint64_t offset, std::size_t count) override {
      if (readsLeft_-- == 0) throw RuntimeError(ErrorNumber::DeviceIoError);
      return real_->Read(offset, count);
    }

   private:
    std::unique_ptr<InputFile> real_;
    int& readsLeft_;
  };
};

TEST_F(CFileVersionInfoTest, ADiskThatBreaksWhileTheFileIsReadLeavesAllTextsAsTheyWere) {
  BreakingFiles breaking(systemFiles);
  const Services own{desktop, breaking, files, registry, texts, syntax, settings, around.all, directory.Path()};
  modMain::globals.services = &own;
  WriteTree(VersionTree({.fixed = {}, .strings = {{"CompanyName", u"Tavrin"}}}));
  int reads = 0;
  for (breaking.readsLeft = 0; reads < 100; breaking.readsLeft = ++reads) {
    ReadFile("file.dll");
    if (info.Available()) break;
    EXPECT_THAT(FixedTexts(), Each(std::string())) << reads;
    EXPECT_THAT(Values(), Each(std::string())) << reads;
  }
  EXPECT_TRUE(info.Available());
  EXPECT_GT(reads, 5) << "headers, sections, directories and the resource";
  EXPECT_EQ(info.CompanyName(), "Tavrin");
  modMain::globals.services = &services;
}

struct VersionRow {
  std::uint32_t upper;
  std::uint32_t lower;
  std::string_view text;
};

class Versions : public CFileVersionInfoTest, public testing::WithParamInterface<VersionRow> {};

TEST_P(Versions, HaveThreeGroups) {
  Read(FixedVersion{.fileVersionMS = GetParam().upper, .fileVersionLS = GetParam().lower});
  EXPECT_EQ(info.VerFile(), GetParam().text);
  EXPECT_EQ(info.VerProduct(), "07.00.0002");
  Read(FixedVersion{.productVersionMS = GetParam().upper, .productVersionLS = GetParam().lower});
  EXPECT_EQ(info.VerProduct(), GetParam().text);
  EXPECT_EQ(info.VerFile(), "07.00.0002");
}

INSTANTIATE_TEST_SUITE_P(All, Versions,
                         testing::Values(VersionRow{0x00070000, 0x00000002, "07.00.0002"},
                                         VersionRow{0x00070000, 0x00010002, "07.00.0102"},
                                         VersionRow{0x000C0022, 0x00380064, "12.34.56100"},
                                         VersionRow{0x00640065, 0x00003039, "100.101.12345"},
                                         VersionRow{0, 0, "00.00.0000"},
                                         VersionRow{0xFFFF8000, 0xFFFFFFFF, "65535.32768.6553565535"}));

TEST_F(CFileVersionInfoTest, TheVersionOfTheBlockHasTwoGroups) {
  Read(FixedVersion{});
  EXPECT_EQ(info.VerStructure(), "01.00");
  Read(FixedVersion{.structureVersion = 0x0002FFFF});
  EXPECT_EQ(info.VerStructure(), "02.65535");
}

struct WordRow {
  std::uint32_t value;
  std::string_view text;
};

class Flags : public CFileVersionInfoTest, public testing::WithParamInterface<WordRow> {};

TEST_P(Flags, AreWords) {
  Read(FixedVersion{.flagsMask = 0, .flags = GetParam().value});
  EXPECT_EQ(info.FileFlags(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(All, Flags,
                         testing::Values(WordRow{0, ""}, WordRow{1, "Debug"}, WordRow{2, "PreRel"},
                                         WordRow{4, "Patched"}, WordRow{8, "Private"}, WordRow{16, "Info"},
                                         WordRow{32, "Special"}, WordRow{0x21, "Debug Special"}, WordRow{64, ""},
                                         WordRow{0xFFFFFFFF, "Debug PreRel Patched Private Info Special"}));

class Systems : public CFileVersionInfoTest, public testing::WithParamInterface<WordRow> {};

TEST_P(Systems, AreWords) {
  Read(FixedVersion{.os = GetParam().value});
  EXPECT_EQ(info.FileOS(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(All, Systems,
                         testing::Values(WordRow{0x10001, "DOS-Win16"}, WordRow{0x10004, "DOS-Win32"},
                                         WordRow{0x20002, "OS/2-16 PM-16"}, WordRow{0x30003, "OS/2-16 PM-32"},
                                         WordRow{0x40004, "NT-Win32"}, WordRow{0x40001, "Unknown"},
                                         WordRow{4, "Unknown"}, WordRow{0, "Unknown"}));

struct TypeRow {
  std::uint32_t type;
  std::uint32_t subtype;
  std::string_view typeText;
  std::string_view subtypeText;
};

class Types : public CFileVersionInfoTest, public testing::WithParamInterface<TypeRow> {};

TEST_P(Types, AreWords) {
  Read(FixedVersion{.type = GetParam().type, .subtype = GetParam().subtype});
  EXPECT_EQ(info.FileType(), GetParam().typeText);
  EXPECT_EQ(info.FileSubType(), GetParam().subtypeText);
}

INSTANTIATE_TEST_SUITE_P(
    All, Types,
    testing::Values(TypeRow{0, 1, "Unknown", ""}, TypeRow{1, 1, "Application", ""}, TypeRow{2, 1, "DLL", ""},
                    TypeRow{5, 1, "VxD", ""}, TypeRow{6, 1, "Unknown", ""}, TypeRow{7, 1, "Lib", ""},
                    TypeRow{8, 1, "Unknown", ""}, TypeRow{0x10001, 1, "Unknown", ""},
                    TypeRow{3, 0, "Driver", "Unknown"}, TypeRow{3, 1, "Driver", "Printer drv"},
                    TypeRow{3, 2, "Driver", "Keyboard drv"}, TypeRow{3, 3, "Driver", "Language drv"},
                    TypeRow{3, 4, "Driver", "Display drv"}, TypeRow{3, 5, "Driver", "Mouse drv"},
                    TypeRow{3, 6, "Driver", "Network drv"}, TypeRow{3, 7, "Driver", "System drv"},
                    TypeRow{3, 8, "Driver", "Installable"}, TypeRow{3, 9, "Driver", "Sound drv"},
                    TypeRow{3, 10, "Driver", "Comm drv"}, TypeRow{3, 11, "Driver", ""}, TypeRow{4, 0, "Font", ""},
                    TypeRow{4, 1, "Font", "Raster Font"}, TypeRow{4, 2, "Font", "Vector Font"},
                    TypeRow{4, 3, "Font", "TrueType Font"}, TypeRow{4, 4, "Font", ""}));

TEST_F(CFileVersionInfoTest, ASubtypeOutsideItsListLeavesTheOneBefore) {
  Read(FixedVersion{.type = 3, .subtype = 1});
  Read(FixedVersion{.type = 3, .subtype = 11});
  EXPECT_EQ(info.FileSubType(), "Printer drv");
  Read(FixedVersion{.type = 4, .subtype = 0});
  EXPECT_EQ(info.FileSubType(), "Printer drv");
  EXPECT_EQ(info.FileType(), "Font");
}

TEST_F(CFileVersionInfoTest, WithoutAFixedBlockItsTextsStayAsTheyWere) {
  VersionNode tree = VersionTree({.strings = {{"CompanyName", u"Tavrin"}}});
  tree.value.resize(51);
  ReadTree(tree);
  EXPECT_TRUE(info.Available());
  EXPECT_THAT(FixedTexts(), Each(std::string()));
  EXPECT_EQ(info.CompanyName(), "Tavrin");
}

TEST_F(CFileVersionInfoTest, EveryFieldHasItsNumberAndItsProperty) {
  VersionTexts resource;
  for (const std::string& key : kKeys) resource.strings.emplace_back(key, ValueOf(key));
  Read(resource);
  const CFileVersionInfo& read = info;
  struct Row {
    std::string_view name;
    std::string property;
    std::string value;
  };
  const std::vector<Row> rows{{"Language", read.Language(), "English (United States)"},
                              {"Comments", read.Comments(), "value of Comments"},
                              {"Company Name", read.CompanyName(), "value of CompanyName"},
                              {"File Description", read.FileDescription(), "value of FileDescription"},
                              {"File Version", read.FileVersion(), "value of FileVersion"},
                              {"Internal Name", read.InternalName(), "value of InternalName"},
                              {"Legal Copyright", read.LegalCopyright(), "value of LegalCopyright"},
                              {"Legal Trademarks", read.LegalTrademarks(), "value of LegalTrademarks"},
                              {"Original Filename", read.OriginalFilename(), "value of OriginalFilename"},
                              {"Product Name", read.ProductName(), "value of ProductName"},
                              {"Product Version", read.ProductVersion(), "value of ProductVersion"},
                              {"Private Build", read.PrivateBuild(), "value of PrivateBuild"},
                              {"Special Build", read.SpecialBuild(), "value of SpecialBuild"},
                              {"LegalTrademarks1", read.PredefinedValue(13), "value of LegalTrademarks1"},
                              {"LegalTrademarks2", read.PredefinedValue(14), "value of LegalTrademarks2"}};
  for (std::int32_t index = 0; index < 15; ++index) {
    const Row& row = rows.at(static_cast<std::size_t>(index));
    EXPECT_EQ(CFileVersionInfo::PredefinedName(index), row.name);
    EXPECT_EQ(row.property, row.value) << row.name;
    EXPECT_EQ(read.PredefinedValue(index), row.value) << row.name;
  }
}

TEST_F(CFileVersionInfoTest, NumbersOutsideTheListAreEmpty) {
  Read(VersionTexts{.strings = {{"CompanyName", u"Tavrin"}}});
  for (const std::int32_t index : {-1, 15, INT32_MAX, INT32_MIN}) {
    EXPECT_EQ(CFileVersionInfo::PredefinedName(index), "") << index;
    EXPECT_EQ(info.PredefinedValue(index), "") << index;
  }
}

TEST_F(CFileVersionInfoTest, AMissingFieldIsEmptyAlsoWhenAnotherFileHadIt) {
  Read(VersionTexts{.strings = {{"CompanyName", u"Tavrin"}, {"Comments", u"old"}}});
  Read(VersionTexts{.strings = {{"CompanyName", u"Tavrin"}}});
  EXPECT_EQ(info.Comments(), "");
}

TEST_F(CFileVersionInfoTest, WithoutATranslationTheTableIsNotRead) {
  VersionTexts resource{.strings = {{"CompanyName", u"Tavrin"}}};
  resource.translations.clear();
  Read(resource);
  EXPECT_TRUE(info.Available());
  EXPECT_THAT(Values(), Each(std::string()));
  VersionNode tree = VersionTree(resource);
  tree.children.pop_back();
  ReadTree(tree);
  EXPECT_THAT(Values(), Each(std::string()));
  EXPECT_EQ(info.VerFile(), "07.00.0002");
}

TEST_F(CFileVersionInfoTest, OnlyTheFirstTranslationCounts) {
  Read(VersionTexts{
      .table = "040704E4", .strings = {{"CompanyName", u"Tavrin"}}, .translations = {0x04E40407, 0x04B00409}});
  EXPECT_EQ(info.Language(), "German (Germany)");
  EXPECT_EQ(info.CompanyName(), "Tavrin");
  Read(VersionTexts{
      .table = "040904B0", .strings = {{"CompanyName", u"Tavrin"}}, .translations = {0x04E40407, 0x04B00409}});
  EXPECT_EQ(info.CompanyName(), "") << "not even its code page with English";
}

TEST_F(CFileVersionInfoTest, AnUnknownLanguageIsNeutral) {
  Read(VersionTexts{.table = "0FFF04E4", .strings = {{"CompanyName", u"Tavrin"}}, .translations = {0x04E40FFF}});
  EXPECT_EQ(info.Language(), "Language Neutral");
  EXPECT_EQ(info.CompanyName(), "Tavrin");
}

TEST_F(CFileVersionInfoTest, WithoutACompanyTheEnglishTableIsRead) {
  Read(VersionTexts{.table = "040904e4",
                    .strings = {{"CompanyName", u"Tavrin"}, {"Comments", u"English"}},
                    .translations = {0x04E40407}});
  EXPECT_EQ(info.CompanyName(), "Tavrin");
  EXPECT_EQ(info.Comments(), "English");
  EXPECT_EQ(info.Language(), "German (Germany)");
}

/// A resource with a German and an English table.
VersionNode TwoTables(std::vector<VersionNode> german, std::vector<VersionNode> english) {
  VersionNode tree = VersionTree({.translations = {0x04E40407}});
  tree.children[0].children = {{"040704E4", {}, true, std::move(german)}, {"040904E4", {}, true, std::move(english)}};
  return tree;
}

TEST_F(CFileVersionInfoTest, TheEnglishTableReplacesTheFirstOneWhole) {
  ReadTree(TwoTables({TextNode("Comments", u"deutsch"), TextNode("ProductName", u"Produkt")},
                     {TextNode("CompanyName", u"Tavrin"), TextNode("Comments", u"English")}));
  EXPECT_EQ(info.CompanyName(), "Tavrin");
  EXPECT_EQ(info.Comments(), "English");
  EXPECT_EQ(info.ProductName(), "");
}

TEST_F(CFileVersionInfoTest, TheCompanyAloneDecidesForTheEnglishTable) {
  ReadTree(TwoTables({TextNode("Comments", u"deutsch")},
                     {TextNode("Comments", u"English"), TextNode("ProductName", u"Product")}));
  EXPECT_EQ(info.Comments(), "deutsch");
  EXPECT_EQ(info.ProductName(), "");
  ReadTree(TwoTables({TextNode("CompanyName", u"Firma")}, {TextNode("CompanyName", u"Company")}));
  EXPECT_EQ(info.CompanyName(), "Firma");
}

TEST_F(CFileVersionInfoTest, TextsEndAtTheirFirstNul) {
  ReadTree(TwoTables({{"CompanyName", Utf16Bytes(std::u16string_view(u"ab\0cd", 5)), true, {}},
                      {"Comments", Utf16Bytes(u"wide"), false, {}}},
                     {}));
  EXPECT_EQ(info.CompanyName(), "ab");
  EXPECT_EQ(info.Comments(), "w") << "not marked as a text, it is bytes";
}

TEST_F(CFileVersionInfoTest, TextsAreInTheCodePageWhateverTheTranslationNames) {
  Read(VersionTexts{.table = "04150000",
                    .strings = {{"CompanyName", u"\u0141\u00F3d\u017A \u0416 \u20AC"}},
                    .translations = {0x00000415}});
  EXPECT_EQ(info.CompanyName(),
            "L\xF3"
            "dz ? \x80");
}

TEST_F(CFileVersionInfoTest, A16BitFileHas8BitTexts) {
  VersionNode tree = VersionTree({});
  tree.children[0].children[0].children = {NarrowTextNode("CompanyName", "Gr\xF6\xDF"),
                                           NarrowTextNode("FileVersion", "3.1")};
  directory.Write("old.exe", NeFile(NarrowResource(tree)));
  ReadFile("old.exe");
  EXPECT_TRUE(info.Available());
  EXPECT_EQ(info.VerFile(), "07.00.0002");
  EXPECT_EQ(info.CompanyName(), "Gr\xF6\xDF");
  EXPECT_EQ(info.FileVersion(), "3.1");
}

TEST_F(CFileVersionInfoTest, TheUsersLanguageChoosesAmongResources) {
  const auto resource = [](std::u16string_view comment) {
    return WideResource(VersionTree({.strings = {{"Comments", std::u16string(comment)}}}));
  };
  directory.Write("file.dll", PeFile({{0x409, resource(u"English")}, {0x407, resource(u"deutsch")}}));
  ReadFile("file.dll");
  EXPECT_EQ(info.Comments(), "deutsch");
}

TEST_F(CFileVersionInfoTest, FmtHexCutsToTheLastDigits) {
  EXPECT_EQ(CFileVersionInfo::FmtHex(0x407, 4), "0407");
  EXPECT_EQ(CFileVersionInfo::FmtHex(0x4E4, 8), "000004E4");
  EXPECT_EQ(CFileVersionInfo::FmtHex(0xABCDEF, 4), "CDEF");
  EXPECT_EQ(CFileVersionInfo::FmtHex(0, 4), "0000");
  EXPECT_EQ(CFileVersionInfo::FmtHex(-1, 8), "FFFFFFFF");
  EXPECT_EQ(CFileVersionInfo::FmtHex(-1, 10), "00FFFFFFFF");
  EXPECT_EQ(CFileVersionInfo::FmtHex(7, 0), "");
}

TEST_F(CFileVersionInfoTest, GetStdValueIsEmptyForAMissingAndForAnEmptyText) {
  const VersionBlock block(WideResource({"R", {}, false, {TextNode("Key", u"text"), {"Empty", {}, true, {}}}}));
  EXPECT_EQ(CFileVersionInfo::GetStdValue(block, "\\Key"), "text");
  EXPECT_EQ(CFileVersionInfo::GetStdValue(block, "\\Empty"), "");
  EXPECT_EQ(CFileVersionInfo::GetStdValue(block, "\\None"), "");
}

}  // namespace
}  // namespace tavrin
