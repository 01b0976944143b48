#include "model/cDevices.h"

#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DevicesTest : public ProjectTest {
 protected:
  cDevice& Add(std::string_view name) {
    auto made = std::make_unique<cDevice>();
    cDevice& device = *made;
    device.szDeviceName(name);
    devices.AddItem(std::move(made));
    return device;
  }

  std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const cDevice& device : devices) names.push_back(device.szDeviceName());
    return names;
  }

  cDevices devices;
};

TEST_F(DevicesTest, NumbersDevicesFromOne) {
  EXPECT_EQ(Add("A").nID(), 1);
  EXPECT_EQ(Add("B").nID(), 2);
  EXPECT_EQ(devices.Count(), 2);
  EXPECT_THAT(Names(), ElementsAre("A", "B"));
}

TEST_F(DevicesTest, FindsDevicesByPositionAndByKey) {
  Add("A");
  Add("B");
  devices.Remove(1);
  EXPECT_EQ(devices.Device(1)->szDeviceName(), "B");
  EXPECT_EQ(devices.Device("#2")->szDeviceName(), "B");
}

TEST_F(DevicesTest, AnUnknownDeviceIsNoObjectAndNoMessage) {
  Add("A");
  for (const int position : {0, -1, 2}) EXPECT_EQ(devices.Device(position), nullptr) << position;
  for (const char* key : {"", "1", "#", "#2", "#01"}) EXPECT_EQ(devices.Device(key), nullptr) << key;
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(DevicesTest, ANumberFreedAtTheTopIsGivenAgain) {
  Add("A");
  Add("B");
  Add("C");
  devices.Remove("#3");
  EXPECT_EQ(Add("D").nID(), 3);
  devices.Remove("#1");
  EXPECT_EQ(Add("E").nID(), 4) << "a gap below is not filled";
  EXPECT_THAT(Names(), ElementsAre("B", "D", "E"));
}

TEST_F(DevicesTest, RemovingAnUnknownDeviceIsARunTimeError) {
  Add("A");
  EXPECT_THROW(devices.Remove(2), RuntimeError);
  EXPECT_THROW(devices.Remove("#2"), RuntimeError);
  EXPECT_EQ(devices.Count(), 1);
}

TEST_F(DevicesTest, ErrorsOfAddingAreReportedUnderTheirLabels) {
  Add("A").nID(std::numeric_limits<std::int32_t>::max());
  Add("B");
  EXPECT_THAT(Boxes(), ElementsAre("#199 6 #200 cDevices.GenerateNewKey : Overflow",
                                   "#199 457 #200 cDevices.AddItem : This key is already associated with an element "
                                   "of this collection"));
  EXPECT_THAT(Names(), ElementsAre("A"));
}

TEST_F(DevicesTest, RefreshReadsEachDeviceInOrder) {
  directory.Write("Net.ini", "");
  for (const char* name : {"A", "B"}) {
    cDevice& device = Add(name);
    device.szFileName("Net.ini");
    device.szTagFileName(std::string(name) + ".csv");
  }
  devices.Refresh();
  std::vector<std::string> missing;
  for (const std::string& warning : ReadWarnings()) {
    if (warning.starts_with("Tag|")) missing.push_back(warning);
  }
  EXPECT_THAT(missing, ElementsAre("Tag|A.csv|#201 " + directory.Path() + "A.csv",
                                   "Tag|B.csv|#201 " + directory.Path() + "B.csv"));
  EXPECT_FALSE(devices.Device(1)->bDataDirty());
}

}  // namespace
}  // namespace tavrin
