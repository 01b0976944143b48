#include "tools/CFileInfo.h"

#include <filesystem>
#include <string>
#include <vector>

#include <sys/stat.h>

#include "platform/CodePage.h"
#include "platform/posix/PosixFileProperties.h"
#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// One file in a folder of any spelling; keeps what is asked of it.
class OneFile : public FileProperties {
 public:
  std::optional<FileRecord> Find(std::string_view path) override {
    ++finds;
    const std::string lower = LowerCase(path);
    if (lower == "/folder") return FileRecord{"Folder", {}, kDirectory, 0, 0, {}, {}, {}};
    return lower == LowerCase("/Folder/" + record.name) ? std::optional(record) : std::nullopt;
  }
  bool SetTime(std::string_view path, FileTime which, UtcTime time) override {
    times.emplace_back(path, which, time);
    return !refuses;
  }
  bool SetAttributes(std::string_view path, std::uint32_t attributes) override {
    words.emplace_back(path, attributes);
    if (!refuses) record.attributes = attributes;
    return !refuses;
  }
  std::string ShortPath(std::string_view path) override { return shortPath.empty() ? std::string(path) : shortPath; }
  std::string TypeName(std::string_view) override { return typeName; }

  FileRecord record{"Name.Ext",
                    {},
                    kArchive,
                    5'000'000'000,
                    4'294'967'297,
                    Join({2026, 11, 20, 13, 5, 9, 0}),
                    Join({2026, 11, 21, 0, 0, 0, 0}),
                    Join({2026, 11, 22, 23, 30, 0, 0})};
  std::string shortPath;
  std::string typeName;
  bool refuses = false;
  int finds = 0;
  std::vector<std::tuple<std::string, FileTime, UtcTime>> times;
  std::vector<std::pair<std::string, std::uint32_t>> words;
};

class CFileInfoTest : public ProjectTest {
 protected:
  CFileInfoTest() { modMain::globals.services = &own_; }
  void TearDown() override {
    EXPECT_THAT(Boxes(), IsEmpty()) << "nothing fails visibly";
    ProjectTest::TearDown();
  }

  static CFileInfo Info(std::string_view path) {
    CFileInfo info;
    info.FullPathName(path);
    return info;
  }
  CFileInfo Named(std::string_view name) {
    file.record.name = name;
    return Info("/folder/" + std::string(name));
  }

  OneFile file;

 private:
  Surroundings surroundings_{around.programs, around.regional, file, around.service, nullptr};
  Services own_{desktop, files, files, registry, texts, syntax, settings, surroundings_, directory.Path()};
};

TEST_F(CFileInfoTest, ShowsTheSpellingOfTheFileSystem) {
  const CFileInfo info = Info("/FOLDER/NAME.EXT");
  EXPECT_EQ(info.FullPathName(), "/Folder/Name.Ext");
  EXPECT_EQ(info.FilePath(), "/Folder/");
  EXPECT_EQ(info.FileName(), "Name.Ext");
  EXPECT_EQ(info.FileExtension(), "Ext");
  EXPECT_EQ(info.DisplayName(), "Name.Ext");
  EXPECT_TRUE(info.FileExists());
  EXPECT_TRUE(info.PathExists());
}

TEST_F(CFileInfoTest, AnUnknownFileLeavesEverythingEmptyZeroAndFalse) {
  CFileInfo info = Info("/folder/name.ext");
  info.FullPathName("/folder/none");
  EXPECT_EQ(info.FullPathName(), "/folder/none");
  for (const std::string& text : {info.FileName(), info.FilePath(), info.FileExtension(), info.ShortPathName(),
                                  info.ShortName(), info.ShortPath(), info.DisplayName(), info.TypeName()}) {
    EXPECT_EQ(text, "");
  }
  for (const std::int32_t number : {info.FileSize(), info.FileSizeHigh(), info.CompressedFileSize(),
                                    info.CompressedFileSizeHigh(), info.Attributes(), info.hIcon()}) {
    EXPECT_EQ(number, 0);
  }
  for (const DateTime& time : {info.CreationTime(), info.LastAccessTime(), info.ModifyTime()}) {
    EXPECT_EQ(time, DateTime{});
  }
  EXPECT_FALSE(info.FileExists() || info.PathExists() || info.attrReadOnly() || info.attrHidden() ||
               info.attrSystem() || info.attrArchive() || info.attrTemporary() || info.attrCompressed());
}

TEST_F(CFileInfoTest, ReadingAPropertyNeverTouchesTheDisk) {
  const CFileInfo info = Info("/folder/name.ext");
  const int finds = file.finds;
  file.record.name = "other";
  EXPECT_EQ(info.FileName(), "Name.Ext");
  EXPECT_EQ(info.FileSizeHigh(), 1);
  EXPECT_TRUE(info.attrArchive());
  EXPECT_TRUE(info.FileExists());
  EXPECT_EQ(file.finds, finds);
}

TEST_F(CFileInfoTest, SizesComeInTwoHalves) {
  const CFileInfo info = Info("/folder/name.ext");
  EXPECT_EQ(info.FileSize(), 705'032'704);
  EXPECT_EQ(info.FileSizeHigh(), 1);
  EXPECT_EQ(info.CompressedFileSize(), 1);
  EXPECT_EQ(info.CompressedFileSizeHigh(), 1);
  file.record.size = 3'000'000'000;
  EXPECT_EQ(Info("/folder/name.ext").FileSize(), -1'294'967'296);
  EXPECT_EQ(Info("/folder/name.ext").FileSizeHigh(), 0);
}

TEST_F(CFileInfoTest, TimesAreLocal) {
  const CFileInfo info = Info("/folder/name.ext");
  EXPECT_EQ(info.CreationTime(), (DateTime{2026, 11, 20, 14, 5, 9, 0}));
  EXPECT_EQ(info.LastAccessTime(), (DateTime{2026, 11, 21, 1, 0, 0, 0}));
  EXPECT_EQ(info.ModifyTime(), (DateTime{2026, 11, 23, 0, 30, 0, 0}));
}

TEST_F(CFileInfoTest, TheExtensionStandsBehindTheLastPoint) {
  EXPECT_EQ(Named("a.b.Csv").FileExtension(), "Csv");
  EXPECT_EQ(Named("name").FileExtension(), "");
  EXPECT_EQ(Named("name.").FileExtension(), "");
  EXPECT_EQ(Named(".hidden").FileExtension(), "hidden");
}

TEST_F(CFileInfoTest, TheTypeIsTheDesktopsOrMadeOfTheExtension) {
  EXPECT_EQ(Named("a.Csv").TypeName(), "CSV File");
  EXPECT_EQ(Named("name").TypeName(), "File");
  EXPECT_EQ(Named("name.").TypeName(), "File");
  file.typeName = "Table of values";
  EXPECT_EQ(Named("a.csv").TypeName(), "Table of values");
}

TEST_F(CFileInfoTest, WithoutAShortNameItIsTheNameInUpperCase) {
  EXPECT_EQ(Named("Gr\xF6\xDF"
                  "e.ini")
                .ShortName(),
            "GR\xD6\xDF"
            "E.INI");
  file.record.alternateName = "GRE~1.INI";
  EXPECT_EQ(Info("/folder/gr\xF6\xDF"
                 "e.ini")
                .ShortName(),
            "GRE~1.INI");
}

TEST_F(CFileInfoTest, ShortPathsAreTheSystems) {
  EXPECT_EQ(Info("/folder/name.ext").ShortPathName(), "/Folder/Name.Ext");
  EXPECT_EQ(Info("/folder/name.ext").ShortPath(), "/Folder/");
  file.shortPath = "/FOLD~1/NAME~1.EXT";
  EXPECT_EQ(Info("/folder/name.ext").ShortPathName(), "/FOLD~1/NAME~1.EXT");
  EXPECT_EQ(Info("/folder/name.ext").ShortPath(), "/FOLD~1/");
}

TEST_F(CFileInfoTest, AShortPathHasAtMost259Characters) {
  file.shortPath = "/" + std::string(258, 'x');
  EXPECT_EQ(Info("/folder/name.ext").ShortPathName(), file.shortPath);
  file.shortPath += 'x';
  EXPECT_EQ(Info("/folder/name.ext").ShortPathName(), "");
  EXPECT_EQ(Info("/folder/name.ext").ShortPath(), "");
}

TEST_F(CFileInfoTest, NamesEndAtTheirFirstNul) {
  file.record.name = "name";
  file.record.alternateName = std::string("NAME~1\0xx", 9);
  EXPECT_EQ(Info("/folder/name").ShortName(), "NAME~1");
}

TEST_F(CFileInfoTest, SettingATimeChangesJustThatTime) {
  CFileInfo info = Info("/folder/name.ext");
  const DateTime time{2001, 2, 3, 4, 5, 6, 0};
  const UtcTime utc = Join({2001, 2, 3, 3, 5, 6, 0});
  info.CreationTime(time);
  info.LastAccessTime(time);
  info.ModifyTime(time);
  EXPECT_THAT(file.times, ElementsAre(std::tuple("/Folder/Name.Ext", FileTime::Creation, utc),
                                      std::tuple("/Folder/Name.Ext", FileTime::LastAccess, utc),
                                      std::tuple("/Folder/Name.Ext", FileTime::Modification, utc)));
  EXPECT_EQ(info.CreationTime(), time);
  EXPECT_EQ(info.LastAccessTime(), time);
  EXPECT_EQ(info.ModifyTime(), time);
}

TEST_F(CFileInfoTest, ATimeThatTheDiskDoesNotTakeStays) {
  file.refuses = true;
  CFileInfo info = Info("/folder/name.ext");
  info.ModifyTime({2001, 2, 3, 4, 5, 6, 0});
  EXPECT_EQ(info.ModifyTime(), (DateTime{2026, 11, 23, 0, 30, 0, 0}));
}

TEST_F(CFileInfoTest, SettingTheAttributesReadsEverythingAnew) {
  CFileInfo info = Info("/folder/name.ext");
  file.record.size = 7;
  info.Attributes(kReadOnly | kSystem);
  EXPECT_THAT(file.words, ElementsAre(std::pair("/Folder/Name.Ext", std::uint32_t{kReadOnly} | kSystem)));
  EXPECT_EQ(info.Attributes(), kReadOnly | kSystem);
  EXPECT_EQ(info.FileSize(), 7);
}

TEST_F(CFileInfoTest, WithoutAFileThereAreNoAttributesToSet) {
  CFileInfo info = Info("/folder/none");
  info.Attributes(kReadOnly);
  info.attrHidden(true);
  EXPECT_THAT(file.words, IsEmpty());
  EXPECT_EQ(info.Attributes(), 0);
}

TEST_F(CFileInfoTest, EachAttributeIsOneBitOfTheWord) {
  struct Row {
    bool (CFileInfo::*get)() const;
    void (CFileInfo::*set)(bool);
    std::uint32_t bit;
    bool reachesTheFile;
  };
  for (const auto& [get, set, bit, reachesTheFile] :
       {Row{&CFileInfo::attrReadOnly, &CFileInfo::attrReadOnly, 0x01, true},
        Row{&CFileInfo::attrHidden, &CFileInfo::attrHidden, 0x02, true},
        Row{&CFileInfo::attrSystem, &CFileInfo::attrSystem, 0x04, true},
        Row{&CFileInfo::attrArchive, &CFileInfo::attrArchive, 0x20, true},
        Row{&CFileInfo::attrTemporary, &CFileInfo::attrTemporary, 0x100, false},
        Row{&CFileInfo::attrCompressed, &CFileInfo::attrCompressed, 0x800, false}}) {
    file.record.attributes = bit;
    file.words.clear();
    EXPECT_TRUE((Info("/folder/name.ext").*get)()) << bit;
    file.record.attributes = 0xFFF & ~bit;
    CFileInfo info = Info("/folder/name.ext");
    EXPECT_FALSE((info.*get)()) << bit;
    (info.*set)(true);
    EXPECT_EQ((info.*get)(), reachesTheFile) << bit;
    EXPECT_EQ(file.record.attributes, reachesTheFile ? 0xFFFU : 0xFFF & ~bit);
    (info.*set)(false);
    EXPECT_EQ(file.record.attributes, 0xFFF & ~bit) << bit;
    EXPECT_EQ(file.words.size(), reachesTheFile ? 2U : 0U) << bit;
  }
}

TEST_F(CFileInfoTest, FormatFileDateJoinsDateAndTimeOfTheUser) {
  EXPECT_EQ(CFileInfo::FormatFileDate({2026, 11, 20, 14, 5, 9, 0}), "20.11.2026 14:05:09");
  EXPECT_EQ(CFileInfo::FormatFileDate({}), "30.12.1899 00:00:00") << "the date zero";
}

struct SizeRow {
  std::int32_t size;
  std::string_view text;
};

class FileSizes : public CFileInfoTest, public testing::WithParamInterface<SizeRow> {};

TEST_P(FileSizes, AreShownInThreeDigits) { EXPECT_EQ(CFileInfo::FormatFileSize(GetParam().size), GetParam().text); }

INSTANTIATE_TEST_SUITE_P(
    All, FileSizes,
    testing::Values(
        SizeRow{0, "0 bytes"}, SizeRow{999, "999 bytes"}, SizeRow{1023, "1.023 bytes"}, SizeRow{-1, "-1 bytes"},
        SizeRow{-999, "-999 bytes"}, SizeRow{-1000, "-1.000 bytes"}, SizeRow{-1'294'967'296, "-1.294.967.296 bytes"},
        SizeRow{INT32_MIN, "-2.147.483.648 bytes"}, SizeRow{1024, "1,00KB (1.024 bytes)"},
        SizeRow{1029, "1,00KB (1.029 bytes)"}, SizeRow{1030, "1,01KB (1.030 bytes)"},
        // 1.125 and 1.375 are halves: away from zero
        SizeRow{1152, "1,13KB (1.152 bytes)"}, SizeRow{1408, "1,38KB (1.408 bytes)"},
        SizeRow{10'239, "10,00KB (10.239 bytes)"}, SizeRow{10'240, "10,0KB (10.240 bytes)"},
        SizeRow{10'496, "10,3KB (10.496 bytes)"}, SizeRow{102'399, "100,0KB (102.399 bytes)"},
        SizeRow{102'400, "100KB (102.400 bytes)"}, SizeRow{102'912, "101KB (102.912 bytes)"},
        SizeRow{1'022'976, "999KB (1.022.976 bytes)"}, SizeRow{1'023'487, "999KB (1.023.487 bytes)"},
        SizeRow{1'023'488, "1000KB (1.023.488 bytes)"}, SizeRow{1'023'999, "1000KB (1.023.999 bytes)"},
        SizeRow{1'024'000, "0,98MB (1.024.000 bytes)"}, SizeRow{1'048'576, "1,00MB (1.048.576 bytes)"},
        SizeRow{10'239'999, "9,77MB (10.239.999 bytes)"}, SizeRow{10'240'000, "9,8MB (10.240.000 bytes)"},
        SizeRow{102'399'999, "97,7MB (102.399.999 bytes)"}, SizeRow{102'400'000, "98MB (102.400.000 bytes)"},
        SizeRow{1'023'999'999, "977MB (1.023.999.999 bytes)"}, SizeRow{1'024'000'000, "0,95GB (1.024.000.000 bytes)"},
        SizeRow{2'147'483'647, "2,00GB (2.147.483.647 bytes)"}));

/// A user who does not separate thousands.
class UngroupedRegional : public FixedRegional {
 public:
  std::string GroupSeparator() override { return {}; }
};

TEST_F(CFileInfoTest, WithoutASeparatorOfGroupsAllDigitsStandTogether) {
  UngroupedRegional regional;
  Surroundings plain{around.programs, regional, file, around.service, nullptr};
  const Services own{desktop, files, files, registry, texts, syntax, settings, plain, directory.Path()};
  modMain::globals.services = &own;
  EXPECT_EQ(CFileInfo::FormatFileSize(1023), "1023 bytes");
  EXPECT_EQ(CFileInfo::FormatFileSize(2'147'483'647), "2,00GB (2147483647 bytes)");
  EXPECT_EQ(CFileInfo::FormatFileSize(INT32_MIN), "-2147483648 bytes");
  modMain::globals.services = &services;
}

/// The same on the disk of this system.
class CFileInfoOnDiskTest : public ProjectTest {
 protected:
  CFileInfoOnDiskTest() { modMain::globals.services = &own_; }

 private:
  PosixFileProperties properties_;
  Surroundings surroundings_{around.programs, around.regional, properties_, around.service, nullptr};
  Services own_{desktop, files, files, registry, texts, syntax, settings, surroundings_, directory.Path()};
};

TEST_F(CFileInfoOnDiskTest, APathInCapitalsComesBackAsTheDiskSpellsIt) {
  std::filesystem::create_directories(directory.Path() + "Outer/inner");
  directory.Write("Outer/inner/File.Txt", "12345");
  CFileInfo info;
  info.FullPathName(UpperCase(directory.Path() + "Outer/inner/File.Txt"));
  EXPECT_EQ(info.FullPathName(), directory.Path() + "Outer/inner/File.Txt");
  EXPECT_EQ(info.FilePath(), directory.Path() + "Outer/inner/");
  EXPECT_EQ(info.FileSize(), 5);
  EXPECT_EQ(info.ShortName(), "FILE.TXT");
  EXPECT_EQ(info.ShortPathName(), info.FullPathName());
  EXPECT_EQ(info.TypeName(), "TXT File");
}

TEST_F(CFileInfoOnDiskTest, TimesAndAttributesReachTheFile) {
  directory.Write("file", "");
  CFileInfo info;
  info.FullPathName(directory.Path() + "FILE");
  info.ModifyTime({2001, 2, 3, 4, 5, 6, 0});
  info.attrReadOnly(true);
  EXPECT_TRUE(info.attrReadOnly());
  EXPECT_EQ(info.ModifyTime(), (DateTime{2001, 2, 3, 4, 5, 6, 0}));
  const DateTime creation = info.CreationTime();
  info.CreationTime({2001, 2, 3, 4, 5, 6, 0});
  EXPECT_EQ(info.CreationTime(), creation) << "this system keeps it for itself";
  info.attrReadOnly(false);
  EXPECT_FALSE(info.attrReadOnly());
}

TEST_F(CFileInfoOnDiskTest, AFolderIsAnEntryToo) {
  CFileInfo info;
  info.FullPathName(directory.Path().substr(0, directory.Path().size() - 1));
  EXPECT_TRUE(info.FileExists());
  EXPECT_EQ(info.Attributes(), kDirectory);
  info.FullPathName(directory.Path());
  EXPECT_FALSE(info.FileExists()) << "a path that ends in a separator names no entry";
}

TEST_F(CFileInfoOnDiskTest, ANameAloneLiesInTheCurrentFolder) {
  const auto before = std::filesystem::current_path();
  directory.Write("Alone.txt", "");
  std::filesystem::current_path(directory.Path());
  CFileInfo info;
  info.FullPathName("ALONE.TXT");
  std::filesystem::current_path(before);
  EXPECT_EQ(info.FullPathName(), "./Alone.txt");
  EXPECT_EQ(info.FilePath(), "./");
}

}  // namespace
}  // namespace tavrin
