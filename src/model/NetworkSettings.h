#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "model/Setting.h"

namespace tavrin {

/// Types of networks and of devices: one number space, since a device always has the type of its network.
enum class NetworkType : std::int32_t { Mpi = 0, H1 = 1, TcpIso = 2, TcpRw = 3, TcpIpk = 4 };
inline constexpr std::int32_t kNetworkTypes = 5;

/// The stored fields of a network. Every network has the fields of all types; its type says which ones count.
struct NetworkSettings {
  std::int32_t nID = 0;                ///< number in its collection, never on disk
  std::int32_t nNetworkType = 0;       ///< 0 MPI, 1 H1, 2 ISO, 3 Read/Write, 4 IPK
  std::string szNetworkName;           ///< name in the tree, section in the project file
  std::string szFileName;              ///< network file, without directory
  std::int32_t nMPI_Baudrate = 38400;  ///< bits a second
  std::int32_t nMPI_COMPort = 0;
  std::int32_t nMPI_MaxMPINo = 31;    ///< highest MPI address on the bus
  std::int32_t nMPI_OwnMPINo = 30;    ///< MPI address of the server
  std::int32_t nMPI_CyclicTime = 10;  ///< milliseconds
  std::int32_t nMPI_MaxSimLines = 4;  ///< MPI lines open at the same time
  std::string szH1_LocalMACAddress;
  std::string szH1_BindMACAddress;
  std::int32_t nH1_CyclicTime = 100;         ///< milliseconds
  std::string szTCPISO_LocalIP = "0.0.0.0";  ///< 0.0.0.0: any local interface
  std::string szTCPRW_LocalIP = "0.0.0.0";
  std::string szTCPIPK_LocalIP = "0.0.0.0";
};

inline constexpr auto kNetworkSettings = std::to_array<NamedSetting<NetworkSettings>>({
    {"nID", &NetworkSettings::nID},
    {"nNetworkType", &NetworkSettings::nNetworkType},
    {"szNetworkName", &NetworkSettings::szNetworkName},
    {"szFileName", &NetworkSettings::szFileName},
    {"nMPI_Baudrate", &NetworkSettings::nMPI_Baudrate},
    {"nMPI_COMPort", &NetworkSettings::nMPI_COMPort},
    {"nMPI_MaxMPINo", &NetworkSettings::nMPI_MaxMPINo},
    {"nMPI_OwnMPINo", &NetworkSettings::nMPI_OwnMPINo},
    {"nMPI_CyclicTime", &NetworkSettings::nMPI_CyclicTime},
    {"nMPI_MaxSimLines", &NetworkSettings::nMPI_MaxSimLines},
    {"szH1_LocalMACAddress", &NetworkSettings::szH1_LocalMACAddress},
    {"szH1_BindMACAddress", &NetworkSettings::szH1_BindMACAddress},
    {"nH1_CyclicTime", &NetworkSettings::nH1_CyclicTime},
    {"szTCPISO_LocalIP", &NetworkSettings::szTCPISO_LocalIP},
    {"szTCPRW_LocalIP", &NetworkSettings::szTCPRW_LocalIP},
    {"szTCPIPK_LocalIP", &NetworkSettings::szTCPIPK_LocalIP},
});

/// "MPI over COMPort", "H1", ...: the same in every language; empty for a number outside 0 to 4.
[[nodiscard]] std::string_view NetworkTypeName(std::int32_t nNetworkType);

}  // namespace tavrin
