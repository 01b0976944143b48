#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/DirtySettings.h"
#include "model/NetworkSettings.h"
#include "model/cDevices.h"

namespace tavrin {

class Grid;

/// One connection medium of the server with its own file. One class for all five types: the type number says which
/// settings count. A setter refuses a bad value by a message box and leaves the field; a stored value marks the
/// network dirty. Loaded values go past the setters, so a field may lie outside its setter's range.
class cNetwork : public DirtySettings<NetworkSettings> {
 public:
  /// Number in its collection; does not mark dirty.
  [[nodiscard]] std::int32_t nID() const { return settings_.nID; }
  void nID(std::int32_t value) { settings_.nID = value; }
  [[nodiscard]] std::int32_t nNetworkType() const { return settings_.nNetworkType; }
  void nNetworkType(std::int32_t value);
  [[nodiscard]] std::string_view szNetworkTypeName() const { return NetworkTypeName(settings_.nNetworkType); }
  /// Uniqueness is asked by the caller.
  [[nodiscard]] const std::string& szNetworkName() const { return settings_.szNetworkName; }
  void szNetworkName(std::string_view value);
  /// Also becomes the file name of every device, whose sections lie in the same file.
  [[nodiscard]] const std::string& szFileName() const { return settings_.szFileName; }
  void szFileName(std::string_view value);
  /// Directory of the project and szFileName.
  [[nodiscard]] std::string szFullName() const;

  [[nodiscard]] std::int32_t nMPI_Baudrate() const { return settings_.nMPI_Baudrate; }
  void nMPI_Baudrate(std::int32_t value);
  [[nodiscard]] std::int32_t nMPI_COMPort() const { return settings_.nMPI_COMPort; }
  void nMPI_COMPort(std::int32_t value);
  /// A maximum below the own number is stored all the same and then told; a refused value may so give two messages.
  [[nodiscard]] std::int32_t nMPI_MaxMPINo() const { return settings_.nMPI_MaxMPINo; }
  void nMPI_MaxMPINo(std::int32_t value);
  /// Must be free in the network that is selected in the tree. @throws RuntimeError 91 when none is selected
  [[nodiscard]] std::int32_t nMPI_OwnMPINo() const { return settings_.nMPI_OwnMPINo; }
  void nMPI_OwnMPINo(std::int32_t value);
  [[nodiscard]] std::int32_t nMPI_CyclicTime() const { return settings_.nMPI_CyclicTime; }
  void nMPI_CyclicTime(std::int32_t value);
  [[nodiscard]] std::int32_t nMPI_MaxSimLines() const { return settings_.nMPI_MaxSimLines; }
  void nMPI_MaxSimLines(std::int32_t value);
  [[nodiscard]] const std::string& szH1_LocalMACAddress() const { return settings_.szH1_LocalMACAddress; }
  void szH1_LocalMACAddress(std::string_view value);
  [[nodiscard]] const std::string& szH1_BindMACAddress() const { return settings_.szH1_BindMACAddress; }
  void szH1_BindMACAddress(std::string_view value);
  [[nodiscard]] std::int32_t nH1_CyclicTime() const { return settings_.nH1_CyclicTime; }
  void nH1_CyclicTime(std::int32_t value);
  [[nodiscard]] const std::string& szTCPIPK_LocalIP() const { return settings_.szTCPIPK_LocalIP; }
  void szTCPIPK_LocalIP(std::string_view value);
  [[nodiscard]] const std::string& szTCPISO_LocalIP() const { return settings_.szTCPISO_LocalIP; }
  void szTCPISO_LocalIP(std::string_view value);
  [[nodiscard]] const std::string& szTCPRW_LocalIP() const { return settings_.szTCPRW_LocalIP; }
  void szTCPRW_LocalIP(std::string_view value);

  [[nodiscard]] cDevices& Devices() { return devices_; }
  [[nodiscard]] const cDevices& Devices() const { return devices_; }

  /// Reads the network file, its devices and their tags; bad values become read warnings. Only appends: meant for a
  /// fresh object. `bOK` false: the file or one of the network's own keys is missing or bad.
  void Refresh(bool& bOK);
  /// Writes the network file anew, without the sections of the devices, which follow by their own Update.
  /// `bKeepDirty` true leaves the mark. `bOK` false only after an error.
  void Update(bool bKeepDirty, bool& bOK);

  /// Fills the grid of the network's type and brings it on show; a type outside 0 to 4 fills nothing.
  void Show(Grid& grid) const;

  /// True when no MPI device of this network and not the network itself has the number. The device or network that
  /// is being edited is not left out.
  [[nodiscard]] bool CheckMPISlaveNoUnique(std::int32_t number) const;
  /// True for 0 and for a port that no Read/Write device of this network uses on its own side.
  [[nodiscard]] bool CheckTCPRWPortNoUnique(std::int32_t port) const;
  /// True when no IPK device of this network uses the port on the side asked for; 0 is a port like others here.
  [[nodiscard]] bool CheckTCPIPKPortNoUnique(std::int32_t port, bool local) const;
  /// Number for a new MPI device: the highest in use plus 1, at least 2. May be the network's own number.
  [[nodiscard]] std::int32_t GetNewMPISlaveNo() const;

 private:
  void AddDevice(std::string szDeviceName);

  cDevices devices_;
};

}  // namespace tavrin
