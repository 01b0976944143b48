#include "model/cOPC.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/ErrorOf.h"
#include "model/SettingTexts.h"
#include "model/shared/cWarnings.h"
#include "model/tags/cTag.h"
#include "platform/RuntimeError.h"
#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class cOPCTest : public ProjectTest {
 protected:
  /// Assigns and checks that `property` then reads `text`, that no other one has changed, and the mark.
  void Check(const std::function<void(cOPC&)>& assign, std::string_view property, const std::string& text, bool stored,
             const std::vector<std::string>& boxes) {
    SCOPED_TRACE(std::string(property) + " " + text);
    Project().bDataDirty(false);
    const std::vector<std::string> before = Fields(Project().Settings());
    assign(Project());
    EXPECT_EQ(Fields(Project().Settings()), With(before, property, text));
    EXPECT_EQ(Project().bDataDirty(), stored);
    EXPECT_EQ(Boxes(), boxes);
  }
};

TEST_F(cOPCTest, StartsWithTheDefaults) {
  const cOPC project;
  EXPECT_THAT(Fields(project.Settings()), ElementsAre("szFileName=", "nLogFileSize=10000", "nCaseSensitive=0",
                                                      "szUsedSeparator=/", "nSaveTagsUppercase=0"));
  EXPECT_EQ(project.szACCEPTEDSEPARATORS(), "/\\!|");
  EXPECT_FALSE(project.bDataDirty());
  EXPECT_EQ(project.Networks().Count(), 0);
}

TEST_F(cOPCTest, CreationRenewsBothWarningLists) {
  modMain::ReadWarnings().AddWarning(WarningKind::Opc, "", "old");
  modMain::WriteWarnings().AddWarning(WarningKind::Opc, "", "old");
  const cOPC project;
  EXPECT_THAT(ReadWarnings(), IsEmpty());
  EXPECT_THAT(WriteWarnings(), IsEmpty());
}

TEST_F(cOPCTest, NumbersAreHeldAgainstTheirRanges) {
  struct Row {
    std::string_view property;
    void (cOPC::*set)(std::int32_t);
    std::vector<std::int32_t> accepted;
    std::vector<std::int32_t> refused;
    std::string box;
  };
  for (const Row& row :
       std::vector<Row>{{"nLogFileSize", &cOPC::nLogFileSize, {1, 500, 10000}, {0, -1, 10001}, "#204 1..10000"},
                        {"nCaseSensitive", &cOPC::nCaseSensitive, {1, 0, 0}, {-1, 2}, "#204 0..1"},
                        {"nSaveTagsUppercase", &cOPC::nSaveTagsUppercase, {1, 0, 0}, {-1, 2}, "#204 0..1"}}) {
    const auto assign = [&](std::int32_t value) { return [&row, value](cOPC& opc) { (opc.*row.set)(value); }; };
    for (const std::int32_t value : row.accepted) Check(assign(value), row.property, std::to_string(value), true, {});
    const std::string last = std::to_string(row.accepted.back());
    for (const std::int32_t value : row.refused) Check(assign(value), row.property, last, false, {row.box});
  }
}

TEST_F(cOPCTest, SeparatorIsAnythingThatOccursInTheAcceptedOnes) {
  const auto assign = [](std::string_view value) { return [value](cOPC& opc) { opc.szUsedSeparator(value); }; };
  for (const char* value : {"/", "\\", "!", "|", "/\\", "\\!|", "/\\!|", ""}) {
    Check(assign(value), "szUsedSeparator", value, true, {});
  }
  Project().szUsedSeparator("!");
  for (const char* value : {"x", "/!", "|/", " ", "//"}) {
    Check(assign(value), "szUsedSeparator", "!", false, {"#204 /\\!|"});
  }
}

TEST_F(cOPCTest, SeparatorIsComparedInItsExactCase) {
  Check([](cOPC& opc) { opc.szACCEPTEDSEPARATORS("Ab"); }, "szUsedSeparator", "/", true, {});
  EXPECT_EQ(Project().szACCEPTEDSEPARATORS(), "Ab");
  Check([](cOPC& opc) { opc.szUsedSeparator("a"); }, "szUsedSeparator", "/", false, {"#204 Ab"});
  Check([](cOPC& opc) { opc.szUsedSeparator("A"); }, "szUsedSeparator", "A", true, {});
}

TEST_F(cOPCTest, FileNameMustBeNewInTheProjectAndAChangeOfCaseIsNone) {
  AddDevice(AddNetwork(NetworkType::H1, "net"), "dev");
  const auto assign = [](std::string_view value) { return [value](cOPC& opc) { opc.szFileName(value); }; };
  Check(assign(""), "szFileName", "ZOPCSRV.ini", false, {"#204 #218"});
  Check(assign("ZOPCSRV.ini"), "szFileName", "ZOPCSRV.ini", false, {});
  Check(assign("zopcsrv.INI"), "szFileName", "ZOPCSRV.ini", false, {});
  Check(assign("NET.ini"), "szFileName", "ZOPCSRV.ini", false, {"#212 (NET.ini)"});
  Check(assign("Dev.CSV"), "szFileName", "ZOPCSRV.ini", false, {"#212 (Dev.CSV)"});
  Check(assign("other.ini"), "szFileName", "other.ini", true, {});
  EXPECT_EQ(Project().szFullName(), directory.Path() + "other.ini");
}

TEST_F(cOPCTest, FileNameIsAskedOfTheOpenProjectAndNotOfTheObject) {
  cOPC other;
  other.szFileName("zopcsrv.ini");
  EXPECT_THAT(Boxes(), ElementsAre("#212 (zopcsrv.ini)"));
  EXPECT_EQ(other.szFileName(), "");
  EXPECT_FALSE(other.bDataDirty());
}

TEST_F(cOPCTest, TheMarkDoesNotMarkItself) {
  Project().bDataDirty(true);
  EXPECT_TRUE(Project().bDataDirty());
  Project().bDataDirty(false);
  EXPECT_FALSE(Project().bDataDirty());
}

/// A project with the networks "net" and "K\xE4lte" and a device in each.
class cOPCQuestionsTest : public ProjectTest {
 protected:
  cOPCQuestionsTest() {
    AddDevice(AddNetwork(NetworkType::H1, "net"), "dev");
    cNetwork& last = AddNetwork(NetworkType::Mpi, "K\xE4lte");
    AddDevice(last, "f\xFCnf").szFileName("section.ini");
  }
};

TEST_F(cOPCQuestionsTest, NamesAreTakenInAnyCaseOfTheCodePage) {
  struct Row {
    std::string_view name;
    bool device;
    bool network;
    bool file;
  };
  const std::vector<Row> rows{
      {"dev", false, true, true},
      {"DEV", false, true, true},
      {"F\xDCNF", false, true, true},
      {"net", true, false, true},
      {"nEt", true, false, true},
      {"K\xC4LTE", true, false, true},
      {"zopcsrv.INI", true, true, false},
      {"NET.ini", true, true, false},
      {"k\xC4lte.INI", true, true, false},
      {"dev.CSV", true, true, false},
      {"f\xDCnf.csv", true, true, false},
      {"Section.ini", true, true, false},
      {"", true, true, true},
      {"ne", true, true, true},
      {"net ", true, true, true},
      {"net.ini ", true, true, true},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(Project().CheckDeviceNameUnique(row.name), row.device);
    EXPECT_EQ(Project().CheckNetworkNameUnique(row.name), row.network);
    EXPECT_EQ(Project().CheckFilenameUnique(row.name), row.file);
  }
}

TEST_F(cOPCQuestionsTest, NamesAreAskedOfTheOpenProject) {
  const cOPC other;
  EXPECT_FALSE(other.CheckDeviceNameUnique("dev"));
  EXPECT_FALSE(other.CheckNetworkNameUnique("net"));
  EXPECT_FALSE(other.CheckFilenameUnique("net.ini"));
}

TEST_F(cOPCQuestionsTest, WithoutAnOpenProjectTheTrapTellsAndTheAnswerStaysTrue) {
  const cOPC other;
  modMain::globals.gOPC.reset();
  EXPECT_TRUE(other.CheckDeviceNameUnique("dev"));
  EXPECT_TRUE(other.CheckNetworkNameUnique("net"));
  EXPECT_TRUE(other.CheckFilenameUnique("net.ini"));
  const std::string end = "Object variable or With block variable not set";
  EXPECT_THAT(Boxes(), ElementsAre("#199 91 #200 cOPC.CheckDeviceNameUnique : " + end,
                                   "#199 91 #200 cOPC.CheckNetworkNameUnique : " + end,
                                   "#199 91 #200 cOPC.CheckFilenameUnique : " + end));
}

TEST_F(cOPCTest, ComPortIsTakenByAnMpiNetworkOfThisObject) {
  cNetwork& network = AddNetwork(NetworkType::Mpi, "net");
  network.nMPI_COMPort(5);
  AddNetwork(NetworkType::H1, "h1").nMPI_COMPort(7);
  EXPECT_FALSE(Project().CheckMPICOMPortUnique(5));  // the network with the port is not left out
  EXPECT_TRUE(Project().CheckMPICOMPortUnique(7));   // the network is of another type
  EXPECT_TRUE(Project().CheckMPICOMPortUnique(6));
  EXPECT_TRUE(cOPC().CheckMPICOMPortUnique(5));  // of the object itself, not of the open project
}

TEST_F(cOPCTest, NewComPortFollowsTheHighestOfTheMpiNetworks) {
  EXPECT_EQ(Project().GetNewMPICOMPort(), 1);
  AddNetwork(NetworkType::H1, "h1").nMPI_COMPort(7);
  EXPECT_EQ(Project().GetNewMPICOMPort(), 1);
  Project().Networks().AddItem(std::make_unique<cNetwork>());  // port 0
  EXPECT_EQ(Project().GetNewMPICOMPort(), 1);
  AddNetwork(NetworkType::Mpi, "a").nMPI_COMPort(9);
  AddNetwork(NetworkType::Mpi, "b").nMPI_COMPort(3);
  EXPECT_EQ(Project().GetNewMPICOMPort(), 10);
  Network(3).nMPI_COMPort(2147483647);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(Project().GetNewMPICOMPort()); }), ErrorNumber::Overflow);
}

TEST_F(cOPCTest, TheProjectIsDirtyWhenAnythingInTheTreeIs) {
  AddDevice(AddNetwork(NetworkType::H1, "one"), "a");
  cDevice& device = AddDevice(AddNetwork(NetworkType::H1, "two"), "b");
  directory.Write("b.csv", Lines({"first;MB1;RW", "last;MB2;RW"}));
  device.Tags().Refresh(device.nDeviceType(), 1);
  cTag* const tag = device.Tags().Tag("last");
  ASSERT_NE(tag, nullptr);
  EXPECT_FALSE(Project().bOpcProjectDirty());

  const std::vector<std::function<void(bool)>> marks{
      [&](bool dirty) { Project().bDataDirty(dirty); },  [&](bool dirty) { Network(1).bDataDirty(dirty); },
      [&](bool dirty) { Network(2).bDataDirty(dirty); }, [&](bool dirty) { Device(1, 1).bDataDirty(dirty); },
      [&](bool dirty) { device.bDataDirty(dirty); },     [&](bool dirty) { tag->bDataDirty(dirty); }};
  for (std::size_t i = 0; i < marks.size(); ++i) {
    SCOPED_TRACE(i);
    marks[i](true);
    EXPECT_TRUE(Project().bOpcProjectDirty());
    EXPECT_TRUE(cOPC().bOpcProjectDirty());  // asked of the open project
    EXPECT_EQ(Project().bDataDirty(), i == 0);
    marks[i](false);
    EXPECT_FALSE(Project().bOpcProjectDirty());
  }
}

}  // namespace
}  // namespace tavrin
