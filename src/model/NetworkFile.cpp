#include "model/NetworkFile.h"

#include <array>

#include "model/Choices.h"
#include "model/KeyTable.h"
#include "model/cOPC.h"
#include "model/shared/Messages.h"
#include "model/shared/modMain.h"
#include "model/shared/modText.h"

namespace tavrin {

namespace {

using enum NetworkType;
using S = NetworkSettings;

constexpr KeyLimits kNotNegative{};
// 0.0.0.0 means any local interface.
constexpr KeyLimits kLocalAddress{.allowZeroAddress = true};

// clang-format off
const auto kKeys = std::to_array<KeyRow<S>>({
    // type     key                      form              read member
    {Mpi,    "Baudrate",                KeyForm::Number,  1, &S::nMPI_Baudrate,
        {.oneOf = kBaudrates, .wholeText = false, .tellValue = false}},
    {Mpi,    "ComPort",                 KeyForm::ComPort, 2, &S::nMPI_COMPort, {.lowest = 1}},
    {Mpi,    "MaxMPISlaveNo",           KeyForm::Number,  3, &S::nMPI_MaxMPINo,
        {.oneOf = kMaxMpiNumbers, .wholeText = false, .tellValue = false}},
    {Mpi,    "OwnMPISlaveNo",           KeyForm::Number,  4, &S::nMPI_OwnMPINo,        kNotNegative},
    {Mpi,    "CyclicTime",              KeyForm::Number,  5, &S::nMPI_CyclicTime,      kNotNegative},
    {Mpi,    "MaxSimultaneousMPILines", KeyForm::Number,  6, &S::nMPI_MaxSimLines,     kNotNegative},
    {H1,     "CyclicTime",              KeyForm::Number,  1, &S::nH1_CyclicTime,       kNotNegative},
    {H1,     "LocalMacAddress",         KeyForm::Text,    2, &S::szH1_LocalMACAddress, {}},
    {H1,     "BindMacAddress",          KeyForm::Text,    3, &S::szH1_BindMACAddress,  {}},
    {TcpIso, "LocalIPAddress",          KeyForm::Address, 1, &S::szTCPISO_LocalIP,     kLocalAddress},
    {TcpRw,  "LocalIPAddress",          KeyForm::Address, 1, &S::szTCPRW_LocalIP,      kLocalAddress},
    {TcpIpk, "LocalIPAddress",          KeyForm::Address, 1, &S::szTCPIPK_LocalIP,     kLocalAddress},
});
// clang-format on

/// The port stays with the network that was loaded first; a later one keeps its default.
void ReadComPort(KeyReader& reader, const KeyRow<S>& row, S& settings) {
  const auto value = reader.ReadNumber(row.key, row.limits);
  if (!value) return;
  const std::int32_t port = RoundToInt32(*value);
  if (modMain::OpenProject().CheckMPICOMPortUnique(port)) {
    settings.nMPI_COMPort = port;
  } else {
    reader.Fail(BadKey(row.key, reader.LastValue()) + " " + ResText(230));
  }
}

/// Told whatever came of the key itself, and no failure: the number stands.
void CheckOwnNumber(const KeyReader& reader, const KeyRow<S>& row, const S& settings) {
  if (settings.nMPI_OwnMPINo > settings.nMPI_MaxMPINo) {
    reader.Warn(TextAnd(236, row.key) + " (" + reader.LastValue() + ")");
  }
}

}  // namespace

void ReadNetworkKeys(NetworkSettings& settings, const std::string& file, bool& bOK) {
  KeyReader reader(WarningKind::Network, settings.szFileName, std::string(kGeneralSection), file);
  ReadSection<S>(reader, kKeys, settings.nNetworkType, bOK, [&](const KeyRow<S>& row) {
    if (row.form == KeyForm::ComPort) {
      ReadComPort(reader, row, settings);
    } else {
      ReadKey(reader, row, settings);
    }
    if (row.member == SettingMember<S>(&S::nMPI_OwnMPINo)) CheckOwnNumber(reader, row, settings);
  });
}

void WriteNetworkKeys(const NetworkSettings& settings, const std::string& file) {
  WriteSection<S>(std::string(kGeneralSection), file, kKeys, settings.nNetworkType,
                  [&](const KeyRow<S>& row) { return KeyText(row, settings); });
}

}  // namespace tavrin
