#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "model/Setting.h"

namespace tavrin {

/// The stored fields of a device. Every device has the fields of all types; its type says which ones count.
/// PLC types: 1 S7, 2 S5, 3 ZELKAR IEC1131.
struct DeviceSettings {
  std::int32_t nID = 0;                  ///< number in its collection, never on disk
  std::int32_t nDeviceType = 0;          ///< 0 MPI, 1 H1, 2 ISO, 3 Read/Write, 4 IPK
  std::string szDeviceName;              ///< name in the tree, section in the network file
  std::string szFileName;                ///< file of the network, without directory
  std::int32_t nMPI_SlaveNo = 0;         ///< MPI address of the controller
  std::string szMPI_DynamicTags = "RW";  ///< "RO", "RW" or "OFF"
  std::int32_t nMPI_PLCType = 1;
  std::string szMPI_Simulation = "OFF";  ///< "ON" or "OFF", after an edit in any case and with blanks
  std::string szH1_LocalTSAP;
  std::string szH1_RemoteTSAP;
  std::string szH1_RemoteMACAddress;
  std::string szH1_Active = "remote";  ///< side that opens the connection: "remote" or "local"
  std::string szH1_DynamicTags = "RW";
  std::int32_t nH1_PLCType = 1;
  std::string szH1_Simulation = "OFF";
  std::int32_t nTCPISO_PLCType = 1;
  std::int32_t nTCPISO_SlotNo = 2;  ///< slot of the CPU
  std::string szTCPISO_RemoteIP = "0.0.0.1";
  std::string szTCPISO_DynamicTags = "RW";
  std::int32_t nTCPISO_CyclicTime = 10;  ///< milliseconds
  std::string szTCPISO_Simulation = "OFF";
  std::int32_t nTCPISO_PingEnabled = 1;   ///< 1: ping the controller
  std::int32_t nTCPISO_MaxPDUSize = 960;  ///< bytes
  std::int32_t nTCPRW_LocalPortRead = 0;
  std::int32_t nTCPRW_LocalPortWrite = 0;
  std::string szTCPRW_RemoteIP = "0.0.0.1";
  std::int32_t nTCPRW_RemotePortRead = 0;   ///< 0: none
  std::int32_t nTCPRW_RemotePortWrite = 0;  ///< 0: none
  std::string szTCPRW_DynamicTags = "RW";
  std::int32_t nTCPRW_PLCType = 1;
  std::string szTCPRW_Simulation = "OFF";
  std::string nTCPRW_MaxGapSize = "30";  ///< a number kept as text: a fraction in the file survives the load
  std::int32_t nTCPRW_PingEnabled = 1;   ///< 1: ping the controller
  std::int32_t nTCPIPK_LocalPortRead = 0;
  std::int32_t nTCPIPK_LocalPortWrite = 0;
  std::string szTCPIPK_RemoteIP;
  std::int32_t nTCPIPK_RemotePortRead = 0;
  std::int32_t nTCPIPK_RemotePortWrite = 0;
  std::string szTCPIPK_DynamicTags = "RW";
  std::int32_t nTCPIPK_PLCType = 1;
  std::string szTCPIPK_Simulation = "OFF";
};

inline constexpr auto kDeviceSettings = std::to_array<NamedSetting<DeviceSettings>>({
    {"nID", &DeviceSettings::nID},
    {"nDeviceType", &DeviceSettings::nDeviceType},
    {"szDeviceName", &DeviceSettings::szDeviceName},
    {"szFileName", &DeviceSettings::szFileName},
    {"nMPI_SlaveNo", &DeviceSettings::nMPI_SlaveNo},
    {"szMPI_DynamicTags", &DeviceSettings::szMPI_DynamicTags},
    {"nMPI_PLCType", &DeviceSettings::nMPI_PLCType},
    {"szMPI_Simulation", &DeviceSettings::szMPI_Simulation},
    {"szH1_LocalTSAP", &DeviceSettings::szH1_LocalTSAP},
    {"szH1_RemoteTSAP", &DeviceSettings::szH1_RemoteTSAP},
    {"szH1_RemoteMACAddress", &DeviceSettings::szH1_RemoteMACAddress},
    {"szH1_Active", &DeviceSettings::szH1_Active},
    {"szH1_DynamicTags", &DeviceSettings::szH1_DynamicTags},
    {"nH1_PLCType", &DeviceSettings::nH1_PLCType},
    {"szH1_Simulation", &DeviceSettings::szH1_Simulation},
    {"nTCPISO_PLCType", &DeviceSettings::nTCPISO_PLCType},
    {"nTCPISO_SlotNo", &DeviceSettings::nTCPISO_SlotNo},
    {"szTCPISO_RemoteIP", &DeviceSettings::szTCPISO_RemoteIP},
    {"szTCPISO_DynamicTags", &DeviceSettings::szTCPISO_DynamicTags},
    {"nTCPISO_CyclicTime", &DeviceSettings::nTCPISO_CyclicTime},
    {"szTCPISO_Simulation", &DeviceSettings::szTCPISO_Simulation},
    {"nTCPISO_PingEnabled", &DeviceSettings::nTCPISO_PingEnabled},
    {"nTCPISO_MaxPDUSize", &DeviceSettings::nTCPISO_MaxPDUSize},
    {"nTCPRW_LocalPortRead", &DeviceSettings::nTCPRW_LocalPortRead},
    {"nTCPRW_LocalPortWrite", &DeviceSettings::nTCPRW_LocalPortWrite},
    {"szTCPRW_RemoteIP", &DeviceSettings::szTCPRW_RemoteIP},
    {"nTCPRW_RemotePortRead", &DeviceSettings::nTCPRW_RemotePortRead},
    {"nTCPRW_RemotePortWrite", &DeviceSettings::nTCPRW_RemotePortWrite},
    {"szTCPRW_DynamicTags", &DeviceSettings::szTCPRW_DynamicTags},
    {"nTCPRW_PLCType", &DeviceSettings::nTCPRW_PLCType},
    {"szTCPRW_Simulation", &DeviceSettings::szTCPRW_Simulation},
    {"nTCPRW_MaxGapSize", &DeviceSettings::nTCPRW_MaxGapSize},
    {"nTCPRW_PingEnabled", &DeviceSettings::nTCPRW_PingEnabled},
    {"nTCPIPK_LocalPortRead", &DeviceSettings::nTCPIPK_LocalPortRead},
    {"nTCPIPK_LocalPortWrite", &DeviceSettings::nTCPIPK_LocalPortWrite},
    {"szTCPIPK_RemoteIP", &DeviceSettings::szTCPIPK_RemoteIP},
    {"nTCPIPK_RemotePortRead", &DeviceSettings::nTCPIPK_RemotePortRead},
    {"nTCPIPK_RemotePortWrite", &DeviceSettings::nTCPIPK_RemotePortWrite},
    {"szTCPIPK_DynamicTags", &DeviceSettings::szTCPIPK_DynamicTags},
    {"nTCPIPK_PLCType", &DeviceSettings::nTCPIPK_PLCType},
    {"szTCPIPK_Simulation", &DeviceSettings::szTCPIPK_Simulation},
});

}  // namespace tavrin
