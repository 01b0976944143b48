// The key Variables of a device's section and the load of the tag file that it names.
#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include "model/DeviceSectionTest.h"
#include "model/RawSettings.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr NetworkType kAllTypes[] = {NetworkType::Mpi, NetworkType::H1, NetworkType::TcpIso, NetworkType::TcpRw,
                                     NetworkType::TcpIpk};

bool AsksForUniqueFile(NetworkType type) { return type != NetworkType::H1 && type != NetworkType::TcpIso; }

using DeviceTagFileTest = DeviceSectionTest;

TEST_F(DeviceTagFileTest, AnotherExtensionIsToldAndTheNameTaken) {
  for (const char* name : {"tags.txt", "csv", "tagscsv", "tags.csv2", "tags.cs"}) {
    directory.Write(name, "");
    for (const NetworkType type : kAllTypes) {
      SCOPED_TRACE(name);
      const cDevice& device = Read(type, With(type, "Variables", name));
      EXPECT_EQ(device.szTagFileName(), name);
      EXPECT_THAT(ReadWarnings(), ElementsAre("Device|Net.ini|#219 Variables (" + std::string(name) + ")"));
      EXPECT_TRUE(bOK);
    }
  }
}

TEST_F(DeviceTagFileTest, TheExtensionCountsInAnyCase) {
  for (const char* name : {"TAGS.csv", "tags.CSV", "Tags.Csv", ".csv"}) {
    directory.Write(name, "");
    SCOPED_TRACE(name);
    EXPECT_EQ(Read(NetworkType::Mpi, With(NetworkType::Mpi, "Variables", name)).szTagFileName(), name);
    EXPECT_THAT(ReadWarnings(), IsEmpty());
  }
}

TEST_F(DeviceTagFileTest, AFileInUseIsToldForMpiReadWriteAndIpkOnly) {
  for (const NetworkType type : kAllTypes) {
    SCOPED_TRACE(static_cast<int>(type));
    directory.Write("Net.ini", Section(FullSections().at(type)));
    NewDevice(type).szTagFileName("Tags.CSV");  // another device of the same file
    cDevice& second = AddDevice(Network(1), "Dev2");
    second.szDeviceName("Dev");
    second.Refresh(bOK);
    EXPECT_EQ(second.szTagFileName(), "tags.csv");
    EXPECT_TRUE(bOK);
    if (AsksForUniqueFile(type)) {
      EXPECT_THAT(ReadWarnings(), ElementsAre("Device|Net.ini|#212 (tags.csv)"));
    } else {
      EXPECT_THAT(ReadWarnings(), IsEmpty());
    }
  }
}

TEST_F(DeviceTagFileTest, AFileInUseIsStillAskedForItsExtension) {
  static_cast<void>(Read(NetworkType::TcpRw, With(NetworkType::TcpRw, "Variables", "Net.ini")));
  const std::vector<std::string> warnings = ReadWarnings();
  ASSERT_GE(warnings.size(), 2U);
  EXPECT_EQ(warnings[0], "Device|Net.ini|#212 (Net.ini)");
  EXPECT_EQ(warnings[1], "Device|Net.ini|#219 Variables (Net.ini)");
  EXPECT_TRUE(bOK);
}

TEST_F(DeviceTagFileTest, TheTagsAreLoadedForTheTypeAndControllerOfTheDevice) {
  std::vector<std::tuple<std::string, std::int32_t, std::int32_t>> asked;
  syntax.source = [&](std::string& source, std::int32_t type, std::int32_t plc) {
    asked.emplace_back(source, type, plc);
    return 0;
  };
  directory.Write("tags.csv", Lines({"T1;MB10;RW"}));
  for (const NetworkType type : kAllTypes) {
    const cDevice& device = Read(type, FullSections().at(type));
    EXPECT_EQ(device.Tags().Count(), 1);
    EXPECT_FALSE(device.bDataDirty());
  }
  EXPECT_THAT(asked, ElementsAre(std::tuple("MB10", 0, 1), std::tuple("MB10", 1, 3), std::tuple("MB10", 2, 1),
                                 std::tuple("MB10", 3, 2), std::tuple("MB10", 4, 2)));
}

TEST_F(DeviceTagFileTest, ADeviceOfNoTypeReadsNeitherKeysNorTags) {
  directory.Write("tags.csv", Lines({"T1;MB10;RW"}));
  directory.Write("Net.ini", Section(FullSections().at(NetworkType::Mpi)));
  for (const std::int32_t type : {-1, 5}) {
    SCOPED_TRACE(type);
    cDevice& device = NewDevice(NetworkType::Mpi);
    device.szTagFileName("tags.csv");
    RawSettings(device).nDeviceType = type;
    device.Refresh(bOK);
    EXPECT_TRUE(bOK);
    EXPECT_THAT(SectionProperties(device), ElementsAre("szTagFileName=tags.csv"));
    EXPECT_EQ(device.Tags().Count(), 0);
    EXPECT_FALSE(device.bDataDirty());
    EXPECT_THAT(ReadWarnings(), IsEmpty());
    EXPECT_THAT(Boxes(), IsEmpty());
  }
}

TEST_F(DeviceTagFileTest, TheLoadOfTheTagsHasNoPartInTheResult) {
  directory.Write("tags.csv", Lines({"bad"}));
  static_cast<void>(Read(NetworkType::Mpi, FullSections().at(NetworkType::Mpi)));
  EXPECT_THAT(ReadWarnings(), ElementsAre("Tag|tags.csv|#203 (bad)"));
  EXPECT_TRUE(bOK);
  static_cast<void>(Read(NetworkType::Mpi, With(NetworkType::Mpi, "Variables", "none.csv")));
  EXPECT_THAT(ReadWarnings(), ElementsAre("Tag|none.csv|#201 " + directory.Path() + "none.csv"));
  EXPECT_TRUE(bOK);
}

}  // namespace
}  // namespace tavrin
