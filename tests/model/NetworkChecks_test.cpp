#include <cstdint>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/ErrorOf.h"
#include "model/cNetwork.h"
#include "platform/RuntimeError.h"
#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::IsEmpty;

constexpr std::int32_t kH1 = static_cast<std::int32_t>(NetworkType::H1);

/// The questions of a network whether a number is free among its devices, and which one is next.
class NetworkChecksTest : public ProjectTest {
 protected:
  void TearDown() override {
    EXPECT_THAT(Boxes(), IsEmpty());
    ProjectTest::TearDown();
  }
};

TEST_F(NetworkChecksTest, SlaveNumberIsTakenByAnMpiDeviceAndByTheNetworkItself) {
  cNetwork& network = AddNetwork(NetworkType::Mpi, "net");
  cDevice& device = AddDevice(network, "dev");
  device.nMPI_SlaveNo(7);
  EXPECT_FALSE(network.CheckMPISlaveNoUnique(7));
  EXPECT_FALSE(network.CheckMPISlaveNoUnique(30));
  EXPECT_TRUE(network.CheckMPISlaveNoUnique(8));
  EXPECT_TRUE(network.CheckMPISlaveNoUnique(0));

  device.nDeviceType(kH1);
  EXPECT_TRUE(network.CheckMPISlaveNoUnique(7));
  EXPECT_FALSE(network.CheckMPISlaveNoUnique(30));
}

TEST_F(NetworkChecksTest, EveryDeviceOfTheNetworkIsLookedAtAndNoneOfAnother) {
  cNetwork& network = AddNetwork(NetworkType::Mpi, "net");
  for (const char* name : {"a", "b", "c"}) AddDevice(network, name);  // 2, 3, 4
  cNetwork& other = AddNetwork(NetworkType::Mpi, "other");
  AddDevice(other, "d").nMPI_SlaveNo(9);
  for (const std::int32_t number : {2, 3, 4}) EXPECT_FALSE(network.CheckMPISlaveNoUnique(number)) << number;
  EXPECT_TRUE(network.CheckMPISlaveNoUnique(9));
}

TEST_F(NetworkChecksTest, ReadWritePortIsTakenByEitherLocalPortAnd0IsAlwaysFree) {
  cNetwork& network = AddNetwork(NetworkType::TcpRw, "net");
  cDevice& device = AddDevice(network, "dev");
  EXPECT_TRUE(network.CheckTCPRWPortNoUnique(0));  // though the device has it twice
  device.nTCPRW_LocalPortRead(5000);
  device.nTCPRW_LocalPortWrite(5001);
  device.nTCPRW_RemotePortRead(6000);
  device.nTCPRW_RemotePortWrite(6001);
  EXPECT_FALSE(network.CheckTCPRWPortNoUnique(5000));
  EXPECT_FALSE(network.CheckTCPRWPortNoUnique(5001));
  EXPECT_TRUE(network.CheckTCPRWPortNoUnique(5002));
  EXPECT_TRUE(network.CheckTCPRWPortNoUnique(6000));
  EXPECT_TRUE(network.CheckTCPRWPortNoUnique(6001));

  device.nDeviceType(kH1);
  EXPECT_TRUE(network.CheckTCPRWPortNoUnique(5000));
}

TEST_F(NetworkChecksTest, IpkPortIsTakenOnItsOwnSideAnd0IsAPortLikeOthers) {
  cNetwork& network = AddNetwork(NetworkType::TcpIpk, "net");
  EXPECT_TRUE(network.CheckTCPIPKPortNoUnique(0, true));
  cDevice& device = AddDevice(network, "dev");
  EXPECT_FALSE(network.CheckTCPIPKPortNoUnique(0, true));
  EXPECT_FALSE(network.CheckTCPIPKPortNoUnique(0, false));
  device.nTCPIPK_LocalPortRead(5000);
  device.nTCPIPK_LocalPortWrite(5001);
  device.nTCPIPK_RemotePortRead(6000);
  device.nTCPIPK_RemotePortWrite(6001);

  struct Row {
    std::int32_t port;
    bool freeLocal;
    bool freeRemote;
  };
  for (const Row& row : std::vector<Row>{{5000, false, true},
                                         {5001, false, true},
                                         {6000, true, false},
                                         {6001, true, false},
                                         {0, true, true},
                                         {7000, true, true}}) {
    EXPECT_EQ(network.CheckTCPIPKPortNoUnique(row.port, true), row.freeLocal) << row.port;
    EXPECT_EQ(network.CheckTCPIPKPortNoUnique(row.port, false), row.freeRemote) << row.port;
  }

  device.nDeviceType(kH1);
  EXPECT_TRUE(network.CheckTCPIPKPortNoUnique(5000, true));
  EXPECT_TRUE(network.CheckTCPIPKPortNoUnique(6000, false));
}

TEST_F(NetworkChecksTest, NewSlaveNumberFollowsTheHighestMpiDevice) {
  cNetwork& network = AddNetwork(NetworkType::Mpi, "net");
  EXPECT_EQ(network.GetNewMPISlaveNo(), 2);
  cDevice& first = AddDevice(network, "first");
  EXPECT_EQ(first.nMPI_SlaveNo(), 2);
  AddDevice(network, "second").nMPI_SlaveNo(29);
  EXPECT_EQ(network.GetNewMPISlaveNo(), 30);  // the network's own number is not considered
  network.Devices().Device(2)->nDeviceType(kH1);
  EXPECT_EQ(network.GetNewMPISlaveNo(), 3);
  first.nMPI_SlaveNo(1);
  EXPECT_EQ(network.GetNewMPISlaveNo(), 2);
  first.nMPI_SlaveNo(0);
  EXPECT_EQ(network.GetNewMPISlaveNo(), 2);
}

TEST_F(NetworkChecksTest, BehindTheHighestNumberThereIsNoNewOne) {
  cNetwork& network = AddNetwork(NetworkType::Mpi, "net");
  AddDevice(network, "dev").nMPI_SlaveNo(2147483647);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(network.GetNewMPISlaveNo()); }), ErrorNumber::Overflow);
}

}  // namespace
}  // namespace tavrin
