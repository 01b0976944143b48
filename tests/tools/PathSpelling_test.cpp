#include "tools/PathSpelling.h"

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "platform/CodePage.h"
#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;

/// Entries of a disk by their path, whatever its case. Keeps what it was asked for.
class KnownEntries : public MemoryFileProperties {
 public:
  void Add(const std::string& path) { names_[LowerCase(path)] = path.substr(path.rfind(kPathSeparator) + 1); }
  std::optional<FileRecord> Find(std::string_view path) override {
    asked.emplace_back(path);
    const auto found = names_.find(LowerCase(path));
    if (found == names_.end()) return std::nullopt;
    FileRecord record;
    record.name = found->second;
    return record;
  }

  std::vector<std::string> asked;

 private:
  std::map<std::string, std::string> names_;
};

class PathSpellingTest : public ProjectTest {
 protected:
  PathSpellingTest() { modMain::globals.services = &own_; }

  KnownEntries entries_;

 private:
  Surroundings surroundings_{around.programs, around.regional, entries_, around.service, nullptr};
  Services own_{desktop, files, files, registry, texts, syntax, settings, surroundings_, directory.Path()};
};

TEST_F(PathSpellingTest, TheFolderEndsBehindTheLastSeparator) {
  EXPECT_EQ(FolderLength("/a/b"), 3U);
  EXPECT_EQ(FolderLength("/a/"), 3U);
  EXPECT_EQ(FolderLength("a"), 0U);
  EXPECT_EQ(FolderLength(""), 0U);
}

TEST_F(PathSpellingTest, EachPieceTakesTheSpellingOfTheDisk) {
  entries_.Add("/Disk");
  entries_.Add("/Disk/User");
  EXPECT_EQ(AsSpelledOnDisk("/DISK/user/"), "/Disk/User/");
  EXPECT_EQ(AsSpelledOnDisk("/DISK/user"), "/Disk/User");
  EXPECT_THAT(entries_.asked, ElementsAre("/DISK", "/Disk/user", "/DISK", "/Disk/user"))
      << "each piece is looked for below those that are spelled already";
}

TEST_F(PathSpellingTest, APieceThatIsNotThereStaysAsItIs) {
  entries_.Add("/Disk");
  entries_.Add("/Disk/none/Inner");
  EXPECT_EQ(AsSpelledOnDisk("/disk/NONE/inner/"), "/Disk/NONE/Inner/");
  EXPECT_EQ(AsSpelledOnDisk("/"), "/");
  EXPECT_EQ(AsSpelledOnDisk(""), "");
}

TEST_F(PathSpellingTest, ServerAndShareStayAsTheyAre) {
  entries_.Add("//SERVER");
  entries_.Add("//SERVER/SHARE");
  entries_.Add("//server/share/Folder");
  EXPECT_EQ(AsSpelledOnDisk("//server/share/FOLDER/"), "//server/share/Folder/");
  EXPECT_EQ(AsSpelledOnDisk("//server/share"), "//server/share");
  EXPECT_EQ(AsSpelledOnDisk("//server"), "//server");
  EXPECT_THAT(entries_.asked, ElementsAre("//server/share/FOLDER"));
}

TEST_F(PathSpellingTest, ADriveBecomesACapital) {
  entries_.Add("C:/Folder");
  EXPECT_EQ(AsSpelledOnDisk("c:/FOLDER/"), "C:/Folder/");
  EXPECT_EQ(AsSpelledOnDisk("c:/"), "C:/");
  EXPECT_EQ(entries_.asked.size(), 1U) << "a drive is no entry";
}

}  // namespace
}  // namespace tavrin
