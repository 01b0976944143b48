// Addresses and ports of devices that must be free in the network selected in the tree.
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "model/DeviceProperties.h"
#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FreeNumberTest : public ProjectTest {
 protected:
  std::string Set(cDevice& device, std::string_view property, int value) {
    PropertyOfDevice(property).set(device, std::to_string(value));
    return PropertyOfDevice(property).get(device);
  }
};

struct Direction {
  NetworkType type;
  std::string_view read;
  std::string_view write;
};

constexpr Direction kRwLocal{NetworkType::TcpRw, "nTCPRW_LocalPortRead", "nTCPRW_LocalPortWrite"};
constexpr Direction kIpkLocal{NetworkType::TcpIpk, "nTCPIPK_LocalPortRead", "nTCPIPK_LocalPortWrite"};
constexpr Direction kIpkRemote{NetworkType::TcpIpk, "nTCPIPK_RemotePortRead", "nTCPIPK_RemotePortWrite"};

TEST_F(FreeNumberTest, AnMpiAddressMustNotBeThatOfTheServer) {
  cDevice& device = AddDevice(AddNetwork(NetworkType::Mpi, "Net"), "Dev");
  EXPECT_EQ(Set(device, "nMPI_SlaveNo", 30), "2");
  EXPECT_THAT(Boxes(), ElementsAre("#229"));
}

TEST_F(FreeNumberTest, AnMpiAddressMustNotBeThatOfAnyDeviceNotEvenItsOwn) {
  cNetwork& network = AddNetwork(NetworkType::Mpi, "Net");
  cDevice& first = AddDevice(network, "Dev1");
  cDevice& second = AddDevice(network, "Dev2");
  EXPECT_EQ(Set(second, "nMPI_SlaveNo", first.nMPI_SlaveNo()), "3");
  EXPECT_EQ(Set(second, "nMPI_SlaveNo", 3), "3");
  EXPECT_THAT(Boxes(), ElementsAre("#229", "#229"));
  EXPECT_FALSE(second.bDataDirty());
  EXPECT_EQ(Set(second, "nMPI_SlaveNo", 0), "0");
  EXPECT_TRUE(second.bDataDirty());
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(FreeNumberTest, OnlyTheSelectedNetworkIsAsked) {
  cDevice& device = AddDevice(AddNetwork(NetworkType::Mpi, "Net1"), "Dev1");
  cDevice& other = AddDevice(AddNetwork(NetworkType::Mpi, "Net2"), "Dev2");
  other.nMPI_SlaveNo(9);
  ASSERT_EQ(modMain::globals.gnCurrentNetwork, 2);
  EXPECT_EQ(Set(device, "nMPI_SlaveNo", 9), "2") << "taken in the selected network, though not in its own";
  EXPECT_THAT(Boxes(), ElementsAre("#229"));
  EXPECT_EQ(Set(other, "nMPI_SlaveNo", 2), "2") << "taken in the other network only";
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(FreeNumberTest, APortMustNotBeUsedByEitherDirectionOfAnyDevice) {
  for (const Direction& ports : {kRwLocal, kIpkLocal, kIpkRemote}) {
    SCOPED_TRACE(ports.read);
    cNetwork& network = AddNetwork(ports.type, "Net" + std::string(ports.read));
    cDevice& first = AddDevice(network, "Dev1");
    cDevice& second = AddDevice(network, "Dev2");
    EXPECT_EQ(Set(first, ports.read, 1), "1");
    EXPECT_EQ(Set(first, ports.write, 65535), "65535");
    EXPECT_THAT(Boxes(), IsEmpty());
    for (const std::string_view property : {ports.read, ports.write}) {
      EXPECT_EQ(Set(second, property, 1), "0");
      EXPECT_EQ(Set(second, property, 65535), "0");
    }
    EXPECT_FALSE(second.bDataDirty());
    EXPECT_EQ(Set(first, ports.read, 1), "1") << "its own number is not free either";
    EXPECT_THAT(Boxes(), ElementsAre("#233", "#233", "#233", "#233", "#233"));
  }
}

TEST_F(FreeNumberTest, LocalAndRemotePortsOfIpkAreAskedApart) {
  cDevice& device = AddDevice(AddNetwork(NetworkType::TcpIpk, "Net"), "Dev");
  EXPECT_EQ(Set(device, "nTCPIPK_LocalPortRead", 5), "5");
  EXPECT_EQ(Set(device, "nTCPIPK_RemotePortRead", 5), "5");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(FreeNumberTest, DevicesOfAnotherTypeDoNotCount) {
  cNetwork& network = AddNetwork(NetworkType::TcpRw, "Net");
  cDevice& device = AddDevice(network, "Dev1");
  cDevice& ofOtherType = AddDevice(network, "Dev2");
  ofOtherType.nDeviceType(4);
  ofOtherType.nTCPRW_LocalPortRead(5);
  EXPECT_EQ(Set(device, "nTCPRW_LocalPortRead", 5), "5");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(FreeNumberTest, PortZeroIsFreeForReadWriteOnly) {
  cDevice& readWrite = AddDevice(AddNetwork(NetworkType::TcpRw, "Net1"), "Dev1");
  EXPECT_EQ(Set(readWrite, "nTCPRW_LocalPortRead", 0), "0");
  EXPECT_TRUE(readWrite.bDataDirty());
  EXPECT_THAT(Boxes(), IsEmpty());
  cDevice& ipk = AddDevice(AddNetwork(NetworkType::TcpIpk, "Net2"), "Dev2");
  EXPECT_EQ(Set(ipk, "nTCPIPK_LocalPortRead", 0), "0");
  EXPECT_FALSE(ipk.bDataDirty());
  EXPECT_THAT(Boxes(), ElementsAre("#233")) << "the device's own port 0 is not free";
}

TEST_F(FreeNumberTest, ReadWriteRemotePortsDifferUnlessZero) {
  for (const bool readFirst : {true, false}) {
    const std::string_view one = readFirst ? "nTCPRW_RemotePortRead" : "nTCPRW_RemotePortWrite";
    const std::string_view other = readFirst ? "nTCPRW_RemotePortWrite" : "nTCPRW_RemotePortRead";
    SCOPED_TRACE(one);
    cDevice device;
    EXPECT_EQ(Set(device, one, 0), "0") << "although the other is 0 as well";
    EXPECT_TRUE(device.bDataDirty());
    EXPECT_EQ(Set(device, other, 5), "5");
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_EQ(Set(device, one, 5), "0");
    EXPECT_THAT(Boxes(), ElementsAre("#235"));
    EXPECT_EQ(Set(device, one, 65535), "65535");
    EXPECT_EQ(Set(device, one, 65535), "65535") << "its own number is accepted";
    EXPECT_EQ(Set(device, one, 0), "0");
    EXPECT_THAT(Boxes(), IsEmpty());
  }
}

TEST_F(FreeNumberTest, ReadWriteRemotePortsOfOtherDevicesDoNotMatter) {
  cNetwork& network = AddNetwork(NetworkType::TcpRw, "Net");
  AddDevice(network, "Dev1").nTCPRW_RemotePortRead(5);
  cDevice& device = AddDevice(network, "Dev2");
  EXPECT_EQ(Set(device, "nTCPRW_RemotePortRead", 5), "5");
  EXPECT_THAT(Boxes(), IsEmpty());
}

}  // namespace
}  // namespace tavrin
