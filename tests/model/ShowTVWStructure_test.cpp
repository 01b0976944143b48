#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/RawSettings.h"
#include "platform/controls/Form.h"
#include "platform/controls/Tree.h"
#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ShowTVWStructureTest : public ProjectTest {
 protected:
  /// Shows the project; each node as "parent's key > key|text|image|tag", with " closed" when it is not open.
  std::vector<std::string> Shown() {
    Project().ShowTVWStructure(tree);
    std::vector<std::string> lines;
    for (int i = 1; i <= tree.Count(); ++i) {
      const TreeNode& node = *tree.Node(i);
      lines.push_back((node.Parent() == nullptr ? "" : node.Parent()->Key()) + " > " + node.Key() + "|" + node.Text() +
                      "|" + node.Image() + "|" + std::to_string(node.Tag()) + (node.Expanded() ? "" : " closed"));
    }
    return lines;
  }

  Form form{"frmOPC"};
  Tree tree{form, "tvwMain"};
};

TEST_F(ShowTVWStructureTest, AnEmptyProjectIsTheRootAlone) {
  EXPECT_THAT(Shown(), ElementsAre(" > #1|#10|ROOT|0"));
  EXPECT_EQ(tree.Roots().size(), 1U);
}

TEST_F(ShowTVWStructureTest, NetworksAndDevicesStandInTheOrderOfTheirCollectionsAllOpen) {
  cNetwork& second = AddNetwork(NetworkType::H1, "Zulu");
  cNetwork& first = AddNetwork(NetworkType::TcpIso, "Alpha");
  AddDevice(second, "Beta");
  AddDevice(first, "Delta");
  AddDevice(first, "Charlie");
  EXPECT_THAT(Shown(), ElementsAre(" > #1|#10|ROOT|0",              //
                                   "#1 > #1#1|Zulu|NET|2",          //
                                   "#1#1 > #1#1#1|Beta|DEVICE|7",   //
                                   "#1 > #1#2|Alpha|NET|3",         //
                                   "#1#2 > #1#2#1|Delta|DEVICE|8",  //
                                   "#1#2 > #1#2#2|Charlie|DEVICE|8"));
}

TEST_F(ShowTVWStructureTest, TheTagTellsLevelAndType) {
  for (int type = 0; type < kNetworkTypes; ++type) {
    cNetwork& network = AddNetwork(NetworkType{type}, "Net" + std::to_string(type));
    AddDevice(network, "Plc" + std::to_string(type));
  }
  Project().ShowTVWStructure(tree);
  for (int type = 0; type < kNetworkTypes; ++type) {
    const std::string key = "#1#" + std::to_string(type + 1);
    EXPECT_EQ(tree.Node(key)->Tag(), type + 1) << key;
    EXPECT_EQ(tree.Node(key + "#1")->Tag(), type + 6) << key;
  }
}

TEST_F(ShowTVWStructureTest, ADeviceIsTaggedByTheTypeOfItsNetwork) {
  cNetwork& network = AddNetwork(NetworkType::TcpIpk, "Net");
  RawSettings(AddDevice(network, "Plc")).nDeviceType = 0;
  Project().ShowTVWStructure(tree);
  EXPECT_EQ(tree.Node("#1#1#1")->Tag(), 10);
}

TEST_F(ShowTVWStructureTest, NumbersMakeTheKeysNotPositions) {
  AddNetwork(NetworkType::H1, "first");
  AddDevice(AddNetwork(NetworkType::H1, "second"), "one");
  AddDevice(Network(2), "two");
  Project().Networks().Remove(1);
  Network(1).Devices().Remove(1);
  EXPECT_THAT(Shown(), ElementsAre(" > #1|#10|ROOT|0", "#1 > #1#2|second|NET|2", "#1#2 > #1#2#2|two|DEVICE|7"));
}

TEST_F(ShowTVWStructureTest, TheTreeIsFilledAnewAndShown) {
  tree.Add("", "old", "old", "NET", 3, false);
  tree.SelectedItem(*tree.Node(1));
  tree.Visible(false);
  EXPECT_THAT(Shown(), ElementsAre(" > #1|#10|ROOT|0"));
  EXPECT_TRUE(tree.Visible());
  EXPECT_EQ(tree.SelectedItem(), nullptr);
}

TEST_F(ShowTVWStructureTest, AnErrorIsToldAndKeepsWhatWasDone) {
  AddNetwork(NetworkType::H1, "first");
  AddNetwork(NetworkType::H1, "second").nID(1);
  tree.Visible(false);
  EXPECT_THAT(Shown(), ElementsAre(" > #1|#10|ROOT|0", "#1 > #1#1|first|NET|2"));
  EXPECT_THAT(Boxes(), ElementsAre("#199 457 #200 cOPC.ShowTVWStructure : "
                                   "This key is already associated with an element of this collection"));
  EXPECT_FALSE(tree.Visible());
}

TEST_F(ShowTVWStructureTest, ShowingDirtiesNothing) {
  AddDevice(AddNetwork(NetworkType::H1, "Net"), "Plc");
  Project().bDataDirty(false);
  Project().ShowTVWStructure(tree);
  EXPECT_FALSE(Project().bOpcProjectDirty());
  EXPECT_THAT(Boxes(), IsEmpty());
}

}  // namespace
}  // namespace tavrin
