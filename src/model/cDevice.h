#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/DeviceSettings.h"
#include "model/DirtySettings.h"
#include "model/tags/cTags.h"

namespace tavrin {

class Grid;

/// One controller on a network. One class for all five types: the type number, always that of its network, says which
/// settings count. A setter refuses a bad value by a message box and leaves the field; a stored value marks the device
/// dirty. Loaded values go past the setters, so a field may lie outside its setter's range.
class cDevice : public DirtySettings<DeviceSettings> {
 public:
  /// Number in its collection; does not mark dirty.
  [[nodiscard]] std::int32_t nID() const { return settings_.nID; }
  void nID(std::int32_t value) { settings_.nID = value; }
  [[nodiscard]] std::int32_t nDeviceType() const { return settings_.nDeviceType; }
  void nDeviceType(std::int32_t value);
  /// The name of the network's type; "unbekannt !!!" for a number outside 0 to 4, in every language,
  /// as a mark of a broken object and not a text for users.
  [[nodiscard]] std::string_view szDeviceTypeName() const;
  /// Name in the tree and of the section; uniqueness is asked by the caller.
  [[nodiscard]] const std::string& szDeviceName() const { return settings_.szDeviceName; }
  void szDeviceName(std::string_view value);
  /// File of the network, without directory.
  [[nodiscard]] const std::string& szFileName() const { return settings_.szFileName; }
  void szFileName(std::string_view value);
  /// File of the tag list, without directory.
  [[nodiscard]] const std::string& szTagFileName() const { return tags_.szFileName(); }
  void szTagFileName(std::string_view value);

  /// Must be free in the network selected in the tree, as all numbers and ports below that are told to be free.
  [[nodiscard]] std::int32_t nMPI_SlaveNo() const { return settings_.nMPI_SlaveNo; }
  void nMPI_SlaveNo(std::int32_t value);
  [[nodiscard]] const std::string& szMPI_DynamicTags() const { return settings_.szMPI_DynamicTags; }
  void szMPI_DynamicTags(std::string_view value);
  /// Any number, unmarked.
  [[nodiscard]] std::int32_t nMPI_PLCType() const { return settings_.nMPI_PLCType; }
  void nMPI_PLCType(std::int32_t value);
  /// Always "S7".
  [[nodiscard]] std::string_view szMPI_PLCType() const;
  void szMPI_PLCType(std::string_view value);
  [[nodiscard]] const std::string& szMPI_Simulation() const { return settings_.szMPI_Simulation; }
  void szMPI_Simulation(std::string_view value);

  [[nodiscard]] const std::string& szH1_LocalTSAP() const { return settings_.szH1_LocalTSAP; }
  void szH1_LocalTSAP(std::string_view value);
  [[nodiscard]] const std::string& szH1_RemoteTSAP() const { return settings_.szH1_RemoteTSAP; }
  void szH1_RemoteTSAP(std::string_view value);
  [[nodiscard]] const std::string& szH1_RemoteMACAddress() const { return settings_.szH1_RemoteMACAddress; }
  void szH1_RemoteMACAddress(std::string_view value);
  [[nodiscard]] const std::string& szH1_Active() const { return settings_.szH1_Active; }
  void szH1_Active(std::string_view value);
  [[nodiscard]] const std::string& szH1_DynamicTags() const { return settings_.szH1_DynamicTags; }
  void szH1_DynamicTags(std::string_view value);
  [[nodiscard]] std::int32_t nH1_PLCType() const { return settings_.nH1_PLCType; }
  void nH1_PLCType(std::int32_t value);
  /// Text of the PLC number; empty for a number without one.
  [[nodiscard]] std::string_view szH1_PLCType() const;
  void szH1_PLCType(std::string_view value);
  [[nodiscard]] const std::string& szH1_Simulation() const { return settings_.szH1_Simulation; }
  void szH1_Simulation(std::string_view value);

  /// Stores 1, whatever it is given, unmarked.
  [[nodiscard]] std::int32_t nTCPISO_PLCType() const { return settings_.nTCPISO_PLCType; }
  void nTCPISO_PLCType(std::int32_t value);
  /// Always "S7".
  [[nodiscard]] std::string_view szTCPISO_PLCType() const;
  void szTCPISO_PLCType(std::string_view value);
  [[nodiscard]] std::int32_t nTCPISO_SlotNo() const { return settings_.nTCPISO_SlotNo; }
  void nTCPISO_SlotNo(std::int32_t value);
  /// Only tested for being empty, as is that of Read/Write.
  [[nodiscard]] const std::string& szTCPISO_RemoteIP() const { return settings_.szTCPISO_RemoteIP; }
  void szTCPISO_RemoteIP(std::string_view value);
  [[nodiscard]] const std::string& szTCPISO_DynamicTags() const { return settings_.szTCPISO_DynamicTags; }
  void szTCPISO_DynamicTags(std::string_view value);
  [[nodiscard]] std::int32_t nTCPISO_CyclicTime() const { return settings_.nTCPISO_CyclicTime; }
  void nTCPISO_CyclicTime(std::int32_t value);
  [[nodiscard]] const std::string& szTCPISO_Simulation() const { return settings_.szTCPISO_Simulation; }
  void szTCPISO_Simulation(std::string_view value);
  [[nodiscard]] std::int32_t nTCPISO_PingEnabled() const { return settings_.nTCPISO_PingEnabled; }
  void nTCPISO_PingEnabled(std::int32_t value);
  [[nodiscard]] std::int32_t nTCPISO_MaxPDUSize() const { return settings_.nTCPISO_MaxPDUSize; }
  void nTCPISO_MaxPDUSize(std::int32_t value);

  [[nodiscard]] std::int32_t nTCPIPK_LocalPortRead() const { return settings_.nTCPIPK_LocalPortRead; }
  void nTCPIPK_LocalPortRead(std::int32_t value);
  [[nodiscard]] std::int32_t nTCPIPK_LocalPortWrite() const { return settings_.nTCPIPK_LocalPortWrite; }
  void nTCPIPK_LocalPortWrite(std::int32_t value);
  /// The one remote address whose form is tested.
  [[nodiscard]] const std::string& szTCPIPK_RemoteIP() const { return settings_.szTCPIPK_RemoteIP; }
  void szTCPIPK_RemoteIP(std::string_view value);
  [[nodiscard]] std::int32_t nTCPIPK_RemotePortRead() const { return settings_.nTCPIPK_RemotePortRead; }
  void nTCPIPK_RemotePortRead(std::int32_t value);
  [[nodiscard]] std::int32_t nTCPIPK_RemotePortWrite() const { return settings_.nTCPIPK_RemotePortWrite; }
  void nTCPIPK_RemotePortWrite(std::int32_t value);
  [[nodiscard]] const std::string& szTCPIPK_DynamicTags() const { return settings_.szTCPIPK_DynamicTags; }
  void szTCPIPK_DynamicTags(std::string_view value);
  [[nodiscard]] std::int32_t nTCPIPK_PLCType() const { return settings_.nTCPIPK_PLCType; }
  void nTCPIPK_PLCType(std::int32_t value);
  [[nodiscard]] std::string_view szTCPIPK_PLCType() const;
  void szTCPIPK_PLCType(std::string_view value);
  [[nodiscard]] const std::string& szTCPIPK_Simulation() const { return settings_.szTCPIPK_Simulation; }
  void szTCPIPK_Simulation(std::string_view value);

  [[nodiscard]] std::int32_t nTCPRW_LocalPortRead() const { return settings_.nTCPRW_LocalPortRead; }
  void nTCPRW_LocalPortRead(std::int32_t value);
  [[nodiscard]] std::int32_t nTCPRW_LocalPortWrite() const { return settings_.nTCPRW_LocalPortWrite; }
  void nTCPRW_LocalPortWrite(std::int32_t value);
  [[nodiscard]] const std::string& szTCPRW_RemoteIP() const { return settings_.szTCPRW_RemoteIP; }
  void szTCPRW_RemoteIP(std::string_view value);
  /// 0 is always accepted: no port. Another number must differ from the other direction.
  [[nodiscard]] std::int32_t nTCPRW_RemotePortRead() const { return settings_.nTCPRW_RemotePortRead; }
  void nTCPRW_RemotePortRead(std::int32_t value);
  [[nodiscard]] std::int32_t nTCPRW_RemotePortWrite() const { return settings_.nTCPRW_RemotePortWrite; }
  void nTCPRW_RemotePortWrite(std::int32_t value);
  [[nodiscard]] const std::string& szTCPRW_DynamicTags() const { return settings_.szTCPRW_DynamicTags; }
  void szTCPRW_DynamicTags(std::string_view value);
  [[nodiscard]] std::int32_t nTCPRW_PLCType() const { return settings_.nTCPRW_PLCType; }
  void nTCPRW_PLCType(std::int32_t value);
  [[nodiscard]] std::string_view szTCPRW_PLCType() const;
  void szTCPRW_PLCType(std::string_view value);
  [[nodiscard]] const std::string& szTCPRW_Simulation() const { return settings_.szTCPRW_Simulation; }
  void szTCPRW_Simulation(std::string_view value);
  /// Kept as text; a fraction is rounded here. Setting 0 does nothing at all.
  [[nodiscard]] std::int32_t nTCPRW_MaxGapSize() const;
  void nTCPRW_MaxGapSize(std::int32_t value);
  [[nodiscard]] std::int32_t nTCPRW_PingEnabled() const { return settings_.nTCPRW_PingEnabled; }
  void nTCPRW_PingEnabled(std::int32_t value);

  [[nodiscard]] cTags& Tags() { return tags_; }
  [[nodiscard]] const cTags& Tags() const { return tags_; }

  /// Reads the device's section of the network file and then its tag file; bad values become read warnings. `bOK`
  /// false: a key of the section is missing or bad; the tag file has no part in it.
  void Refresh(bool& bOK);
  /// Writes the section into the network file, which the network has just made anew. `bKeepDirty` true leaves the
  /// mark. `bOK` false only after an error.
  void Update(bool bKeepDirty, bool& bOK);

  /// Fills the grid of the device's type and the tag grid of the pane, and brings both on show, under the hourglass. A
  /// type outside 0 to 4 leaves the sheet as it is and shows no tag.
  void Show(Grid& grid) const;

 private:
  void StoreRights(std::string DeviceSettings::*field, std::string_view value);
  void StoreSimulation(std::string DeviceSettings::*field, std::string_view value);
  void StoreLocalPort(std::int32_t DeviceSettings::*field, std::int32_t value, bool isFree(std::int32_t));
  void StoreRwRemotePort(std::int32_t DeviceSettings::*field, std::int32_t value, std::int32_t otherDirection);
  void StoreIpkRemotePort(std::int32_t DeviceSettings::*field, std::int32_t value);

  [[nodiscard]] std::string szFullName() const;
  [[nodiscard]] std::int32_t PlcTypeForTags() const;

  cTags tags_;
};

}  // namespace tavrin
