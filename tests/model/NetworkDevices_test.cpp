#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/RawSettings.h"
#include "model/cNetwork.h"
#include "platform/RuntimeError.h"
#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// The sections of a network file as devices.
class NetworkDevicesTest : public ProjectTest {
 protected:
  /// Reads the file of an ISO network made of its own keys and `rest`; the result of Refresh.
  bool Refresh(std::string_view rest) {
    directory.Write("net.ini", "[General]\r\nLocalIPAddress=0.0.0.0\r\n\r\n" + std::string(rest));
    bool bOK = false;
    network.Refresh(bOK);
    return bOK;
  }
  [[nodiscard]] std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const cDevice& device : network.Devices()) names.push_back(device.szDeviceName());
    return names;
  }
  /// The warnings that concern names, without those about keys and tag files.
  static std::vector<std::string> NameWarnings() {
    std::vector<std::string> told;
    for (const std::string& warning : ReadWarnings()) {
      if (warning.find("|#207 ") == std::string::npos && warning.find("|#201 ") == std::string::npos) {
        told.push_back(warning);
      }
    }
    return told;
  }

  cNetwork& network = AddNetwork(NetworkType::TcpIso, "net");
};

TEST_F(NetworkDevicesTest, EverySectionButGeneralIsADeviceInTheOrderOfTheFile) {
  EXPECT_TRUE(Refresh("[b]\r\n[a]\r\n[general]\r\n[]\r\n[GENERAL]\r\n[ c ]\r\n[General]\r\n"));
  EXPECT_THAT(Names(), ElementsAre("b", "a", "general", "GENERAL", "c"));
  EXPECT_EQ(network.Devices().Device("#2")->szDeviceName(), "a");
}

TEST_F(NetworkDevicesTest, ADeviceHasTypeAndFileOfItsNetworkAndIsClean) {
  static_cast<void>(Refresh("[dev]\r\nSlotNo=7\r\n"));
  const cDevice& device = *network.Devices().Device(1);
  EXPECT_EQ(device.nDeviceType(), 2);
  EXPECT_EQ(device.szFileName(), "net.ini");
  EXPECT_EQ(device.nTCPISO_SlotNo(), 7);
  EXPECT_FALSE(device.bDataDirty());
  EXPECT_FALSE(network.bDataDirty());
}

TEST_F(NetworkDevicesTest, ADeviceOfANetworkOfNoTypeKeepsTheFirstType) {
  RawSettings(network).nNetworkType = 5;
  EXPECT_EQ(network.szNetworkTypeName(), "");
  static_cast<void>(Refresh("[dev]\r\n"));
  ASSERT_EQ(network.Devices().Count(), 1);
  EXPECT_EQ(network.Devices().Device(1)->nDeviceType(), 0);
}

TEST_F(NetworkDevicesTest, ResultsOfTheNameCheckAreToldAndTheDeviceIsLoaded) {
  syntax.nodeName = [](std::string& name) { return name[0] - '0'; };
  EXPECT_TRUE(Refresh("[0 a]\r\n[1 b]\r\n[2 c]\r\n[3 d]\r\n[4 e]\r\n[9 f]\r\n"));
  EXPECT_THAT(NameWarnings(),
              ElementsAre("Device|net.ini|#225 (1 b)", "Device|net.ini|#224 (2 c)", "Device|net.ini|#223 (3 d)"));
  EXPECT_THAT(Names(), ElementsAre("0 a", "1 b", "2 c", "3 d", "4 e", "9 f"));
}

TEST_F(NetworkDevicesTest, ANameThatTheCheckHasNormalisedIsUsedFromThenOn) {
  syntax.nodeName = [](std::string& name) {
    name = name.substr(0, 1);
    return 1;
  };
  static_cast<void>(Refresh("[abc]\r\n"));
  EXPECT_THAT(NameWarnings(), ElementsAre("Device|net.ini|#225 (a)"));
  EXPECT_THAT(Names(), ElementsAre("a"));
}

TEST_F(NetworkDevicesTest, ANameInUseAnywhereInTheProjectIsToldAndTheDeviceIsLoaded) {
  AddDevice(AddNetwork(NetworkType::H1, "other"), "D\xC4V");
  EXPECT_TRUE(
      Refresh("[d\xE4v]\r\n[one]\r\n[ONE]\r\n[" + std::string(33, 'x') + "]\r\n[" + std::string(33, 'X') + "]\r\n"));
  const std::string low(33, 'x');
  const std::string high(33, 'X');
  EXPECT_THAT(NameWarnings(), ElementsAre("Device|net.ini|#211 (d\xE4v)", "Device|net.ini|#211 (ONE)",
                                          "Device|net.ini|#225 (" + low + ")", "Device|net.ini|#225 (" + high + ")",
                                          "Device|net.ini|#211 (" + high + ")"));
  EXPECT_THAT(Names(), ElementsAre("d\xE4v", "one", "ONE", low, high));
}

TEST_F(NetworkDevicesTest, AllDevicesAreMadeBeforeTheFirstIsRead) {
  syntax.nodeName = [](std::string&) { return 1; };
  EXPECT_TRUE(Refresh("[a]\r\n[b]\r\n"));
  const std::vector<std::string> warnings = ReadWarnings();
  ASSERT_THAT(warnings, SizeIs(testing::Gt(3U)));
  EXPECT_EQ(warnings[0], "Device|net.ini|#225 (a)");
  EXPECT_EQ(warnings[1], "Device|net.ini|#225 (b)");
  EXPECT_EQ(warnings[2], "Device|net.ini|#207 SlotNo ()");
}

TEST_F(NetworkDevicesTest, FailuresOfDevicesAndNamesAreNoFailureOfTheNetwork) {
  EXPECT_TRUE(Refresh("[a]\r\nSlotNo=x\r\n[A]\r\n"));
  EXPECT_THAT(ReadWarnings(), testing::Not(IsEmpty()));
}

// The list of sections is read through a buffer of 1024 characters.
TEST_F(NetworkDevicesTest, DevicesBehindTheEndOfTheListAreSilentlyNotLoaded) {
  std::string sections;
  for (int i = 100; i < 140; ++i) sections += "[" + std::string(27, 'd') + std::to_string(i) + "]\r\n";
  EXPECT_TRUE(Refresh(sections));
  // "General" and 32 names take 8 + 32 * 31 characters; 22 are left for the name in which the cut falls.
  ASSERT_EQ(network.Devices().Count(), 33);
  EXPECT_EQ(network.Devices().Device(32)->szDeviceName(), std::string(27, 'd') + "131");
  EXPECT_EQ(network.Devices().Device(33)->szDeviceName(), std::string(22, 'd'));
  EXPECT_THAT(NameWarnings(), IsEmpty());
}

TEST_F(NetworkDevicesTest, AnErrorInTheMiddleLeavesTheDevicesMadeSoFarUnread) {
  syntax.nodeName = [](std::string& name) -> std::int32_t {
    if (name == "b") throw RuntimeError(ErrorNumber::TypeMismatch);
    return 0;
  };
  network.bDataDirty(true);
  EXPECT_TRUE(Refresh("[a]\r\nSlotNo=7\r\n[b]\r\n[c]\r\n"));
  EXPECT_THAT(Boxes(), ElementsAre("#199 13 #200 cNetwork.Refresh : Type mismatch"));
  EXPECT_THAT(Names(), ElementsAre("a"));
  EXPECT_EQ(network.Devices().Device(1)->nTCPISO_SlotNo(), 2);
  EXPECT_FALSE(network.Devices().Device(1)->bDataDirty());
  EXPECT_THAT(ReadWarnings(), IsEmpty());
  EXPECT_FALSE(network.bDataDirty());
}

TEST_F(NetworkDevicesTest, ReadingTwiceAppendsAndEveryNameIsThenInUse) {
  static_cast<void>(Refresh("[a]\r\n[b]\r\n"));
  EXPECT_THAT(NameWarnings(), IsEmpty());
  static_cast<void>(Refresh("[a]\r\n[b]\r\n"));
  EXPECT_THAT(Names(), ElementsAre("a", "b", "a", "b"));
  EXPECT_THAT(NameWarnings(), ElementsAre("Device|net.ini|#211 (a)", "Device|net.ini|#211 (b)"));
}

TEST_F(NetworkDevicesTest, WithoutAnOpenProjectTheLoadEndsAtTheFirstDevice) {
  cNetwork alone;
  alone.szFileName("alone.ini");
  alone.nNetworkType(2);
  directory.Write("alone.ini", "[General]\r\nLocalIPAddress=1.2.3.4\r\n[dev]\r\n");
  modMain::globals.gOPC.reset();
  bool bOK = false;
  alone.Refresh(bOK);
  EXPECT_TRUE(bOK);
  EXPECT_EQ(alone.szTCPISO_LocalIP(), "1.2.3.4");
  EXPECT_EQ(alone.Devices().Count(), 0);
  EXPECT_THAT(Boxes(), ElementsAre("#199 91 #200 cNetwork.Refresh : Object variable or With block variable not set"));
}

}  // namespace
}  // namespace tavrin
