#include "shell/RecentProjects.h"

#include <array>

#include "support/ShellTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;

class RecentProjectsTest : public ShellTest {
 protected:
  RecentProjectsTest() { Start(); }

  /// Enters a project of this path, as the commands do.
  void Use(const std::string& path) {
    const std::size_t name = path.rfind('/') + 1;
    modMain::globals.gszProjectDir = path.substr(0, name);
    modMain::globals.gOPC = std::make_unique<cOPC>();
    modMain::globals.gOPC->szFileName(path.substr(name));
    Window().recent.SetNewMRU(Project().szFullName());
  }
  [[nodiscard]] std::array<std::string, 4> List() {
    return {Window().szMRU1, Window().szMRU2, Window().szMRU3, Window().szMRU4};
  }
  [[nodiscard]] std::vector<std::string> Shown() {
    std::vector<std::string> captions;
    for (int i = 11; i <= 14; ++i) {
      if (Window().mnuFile(i).Visible()) captions.push_back(Window().mnuFile(i).Caption());
    }
    return captions;
  }
};

TEST_F(RecentProjectsTest, AnEmptyListHidesEntriesAndSeparator) {
  EXPECT_THAT(Shown(), ElementsAre());
  EXPECT_FALSE(Window().mnuFile(10).Visible());
}

TEST_F(RecentProjectsTest, TheNewestComesFirstAndEachIsShownByItsFullPath) {
  Use("/a/ZOPCSRV.ini");
  Use("/b & c/other.ini");
  EXPECT_THAT(List(), ElementsAre("/b & c/other.ini", "/a/ZOPCSRV.ini", "", ""));
  EXPECT_THAT(Shown(), ElementsAre("/b & c/other.ini", "/a/ZOPCSRV.ini"));
  EXPECT_TRUE(Window().mnuFile(10).Visible());
  EXPECT_EQ(Window().mnuFile(13).Caption(), "");
}

TEST_F(RecentProjectsTest, AnAmpersandInAPathIsNoMarkOfALetter) {
  Use("/R&D/ZOPCSRV.ini");
  Use("/b & c/other.ini");
  EXPECT_EQ(Window().mnuFile(11).ShownCaption(), "/b & c/other.ini");
  EXPECT_EQ(Window().mnuFile(12).ShownCaption(), "/R&D/ZOPCSRV.ini");
  for (int i = 11; i <= 14; ++i) EXPECT_TRUE(Window().mnuFile(i).Literal()) << i;
  EXPECT_FALSE(Window().mnuFile(2).Literal());
}

TEST_F(RecentProjectsTest, TheFifthProjectDropsTheOldest) {
  for (const char* path : {"/1", "/2", "/3", "/4", "/5"}) Use(path);
  EXPECT_THAT(List(), ElementsAre("/5", "/4", "/3", "/2"));
  EXPECT_THAT(Shown(), ElementsAre("/5", "/4", "/3", "/2"));
}

TEST_F(RecentProjectsTest, AProjectInTheListStaysWhereItIs) {
  for (const char* path : {"/1", "/2", "/3", "/4"}) Use(path);
  for (const char* path : {"/1", "/3", "/4"}) {
    Use(path);
    EXPECT_THAT(List(), ElementsAre("/4", "/3", "/2", "/1"));
  }
}

TEST_F(RecentProjectsTest, CaseDoesNotTellTwoPathsApart) {
  Use("/K\xE4lte/ZOPCSRV.ini");
  Use("/k\xC4LTE/zopcsrv.INI");
  EXPECT_THAT(List(), ElementsAre("/K\xE4lte/ZOPCSRV.ini", "", "", ""));
}

TEST_F(RecentProjectsTest, TheOpenProjectIsEnteredWhateverPathWasAskedFor) {
  Use("/a/ZOPCSRV.ini");
  Window().recent.SetNewMRU("/somewhere/else.ini");
  EXPECT_THAT(List(), ElementsAre("/a/ZOPCSRV.ini", "/a/ZOPCSRV.ini", "", ""));
}

TEST_F(RecentProjectsTest, AGapInTheListIsHidden) {
  Window().szMRU1 = "/1";
  Window().szMRU3 = "/3";
  Window().recent.ShowMRU();
  EXPECT_THAT(Shown(), ElementsAre("/1", "/3"));
  EXPECT_FALSE(Window().mnuFile(12).Visible());
  Window().szMRU1.clear();
  Window().szMRU3.clear();
  Window().recent.ShowMRU();
  EXPECT_THAT(Shown(), ElementsAre());
  EXPECT_FALSE(Window().mnuFile(10).Visible());
}

}  // namespace
}  // namespace tavrin
