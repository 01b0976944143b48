#include "model/ProjectLoad.h"

#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ProjectLoadTest : public ProjectTest {};

TEST_F(ProjectLoadTest, ThePathGivesDirectoryAndNameAndTheTreeIsBuiltAnew) {
  AddNetwork(NetworkType::H1, "old");
  std::filesystem::create_directory(directory.Path() + "sub");
  directory.Write("sub/Other.ini",
                  Lines({"[General]", "LogFileSize=5", "[new]", "Protocol=H1", "Configuration=x.ini"}));
  EXPECT_TRUE(LoadProject(directory.Path() + "sub/Other.ini"));
  EXPECT_EQ(modMain::globals.gszProjectDir, directory.Path() + "sub/");
  EXPECT_EQ(Project().szFileName(), "Other.ini");
  EXPECT_EQ(Project().szFullName(), directory.Path() + "sub/Other.ini");
  EXPECT_EQ(Project().nLogFileSize(), 5);
  ASSERT_EQ(Project().Networks().Count(), 1);
  EXPECT_EQ(Network(1).szNetworkName(), "new");
  EXPECT_EQ(Network(1).szFullName(), directory.Path() + "sub/x.ini");
  EXPECT_FALSE(Project().bOpcProjectDirty());
}

TEST_F(ProjectLoadTest, BothWarningListsAreRenewed) {
  modMain::ReadWarnings().AddWarning(WarningKind::Opc, "", "old");
  modMain::WriteWarnings().AddWarning(WarningKind::Opc, "", "old");
  directory.Write("ZOPCSRV.ini", Lines({"[General]", "LogFileSize=5"}));
  EXPECT_TRUE(Load());
  EXPECT_THAT(ReadWarnings(), IsEmpty());
  EXPECT_THAT(WriteWarnings(), IsEmpty());
}

TEST_F(ProjectLoadTest, LoadingTheSameProjectAgainDoublesNothing) {
  directory.Write("ZOPCSRV.ini", Lines({"[General]", "LogFileSize=5", "[net]", "Protocol=H1", "Configuration=n.ini"}));
  for (int i = 0; i < 2; ++i) {
    EXPECT_TRUE(Load());
    EXPECT_THAT(ReadWarnings(), ElementsAre("Network|net|#201 " + directory.Path() + "n.ini"));
    EXPECT_EQ(Project().Networks().Count(), 1);
  }
}

TEST_F(ProjectLoadTest, AFailedLoadLeavesTheNewEmptyProject) {
  AddNetwork(NetworkType::H1, "old");
  EXPECT_FALSE(LoadProject(directory.Path() + "none.ini"));
  EXPECT_THAT(ReadWarnings(), ElementsAre("OPC|none.ini|#201 " + directory.Path() + "none.ini"));
  EXPECT_EQ(Project().szFileName(), "none.ini");
  EXPECT_EQ(Project().Networks().Count(), 0);
}

TEST_F(ProjectLoadTest, ANameWithoutDirectoryHasNoProjectDirectory) {
  EXPECT_FALSE(LoadProject("there is no such file.ini"));
  EXPECT_EQ(modMain::globals.gszProjectDir, "");
  EXPECT_EQ(Project().szFileName(), "there is no such file.ini");
}

TEST_F(ProjectLoadTest, NamesOfTheCodePageAreFoundOnDiskInAnyCase) {
  directory.Write("zopcsrv.INI", Lines({"[General]", "LogFileSize=5", "[K\xE4lte]", "Protocol=ISOoverTCPIP",
                                        "Configuration=K\xE4lte.ini"}));
  directory.Write("k\xC3\x84lte.INI", Lines({"[General]", "LocalIPAddress=1.2.3.4"}));
  EXPECT_TRUE(Load());
  EXPECT_THAT(ReadWarnings(), IsEmpty());
  EXPECT_EQ(Network(1).szTCPISO_LocalIP(), "1.2.3.4");
}

}  // namespace
}  // namespace tavrin
