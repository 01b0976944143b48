#include "model/sheets/NetworkSheets.h"

#include <array>

#include "model/Choices.h"
#include "model/cNetwork.h"

namespace tavrin {

namespace {

using S = Shown<cNetwork>;
using E = Edited<cNetwork>;
using Row = SheetRow<cNetwork>;

constexpr Row kTypeName{"szNetworkTypeName", 107, S::Text<&cNetwork::szNetworkTypeName>, {}};
constexpr Row kFileName{"szFileName", 100, S::Text<&cNetwork::szFileName>, E::ClosedText<&cNetwork::szFileName>()};

constexpr auto kMpi = std::to_array<Row>({
    kTypeName,
    kFileName,
    {"nMPI_Baudrate", 111, S::Text<&cNetwork::nMPI_Baudrate>,
     E::KnownNumberOf<&cNetwork::nMPI_Baudrate, kBaudrates>("19200|38400|57600|115200")},
    {"nMPI_COMPort", 112, S::Text<&cNetwork::nMPI_COMPort>, E::Number<&cNetwork::nMPI_COMPort>(KeyClass::Digits)},
    {"nMPI_MaxMPINo", 113, S::Text<&cNetwork::nMPI_MaxMPINo>,
     E::KnownNumberOf<&cNetwork::nMPI_MaxMPINo, kMaxMpiNumbers>("15|31|63|126")},
    {"nMPI_OwnMPINo", 114, S::Text<&cNetwork::nMPI_OwnMPINo>, E::Number<&cNetwork::nMPI_OwnMPINo>(KeyClass::Digits)},
    {"nMPI_CyclicTime", 115, S::Text<&cNetwork::nMPI_CyclicTime>,
     E::Number<&cNetwork::nMPI_CyclicTime>(KeyClass::Digits)},
    {"nMPI_MaxSimLines", 120, S::Text<&cNetwork::nMPI_MaxSimLines>,
     E::Number<&cNetwork::nMPI_MaxSimLines>(KeyClass::Digits)},
});

constexpr auto kH1 = std::to_array<Row>({
    kTypeName,
    kFileName,
    {"szH1_LocalMACAddress", 127, S::Text<&cNetwork::szH1_LocalMACAddress>,
     E::Text<&cNetwork::szH1_LocalMACAddress>(KeyClass::Digits)},
    {"szH1_BindMACAddress", 123, S::Text<&cNetwork::szH1_BindMACAddress>,
     E::Text<&cNetwork::szH1_BindMACAddress>(KeyClass::Free)},
    {"nH1_CyclicTime", 115, S::Text<&cNetwork::nH1_CyclicTime>, E::Number<&cNetwork::nH1_CyclicTime>(KeyClass::Free)},
});

constexpr auto kTcpIso = std::to_array<Row>({
    kTypeName,
    kFileName,
    {"szTCPISO_LocalIP", 131, S::Text<&cNetwork::szTCPISO_LocalIP>,
     E::Text<&cNetwork::szTCPISO_LocalIP>(KeyClass::Address)},
});

constexpr auto kTcpRw = std::to_array<Row>({
    kTypeName,
    kFileName,
    {"szTCPRW_LocalIP", 131, S::Text<&cNetwork::szTCPRW_LocalIP>,
     E::Text<&cNetwork::szTCPRW_LocalIP>(KeyClass::Address)},
});

constexpr auto kTcpIpk = std::to_array<Row>({
    kTypeName,
    kFileName,
    {"szTCPIPK_LocalIP", 131, S::Text<&cNetwork::szTCPIPK_LocalIP>,
     E::Text<&cNetwork::szTCPIPK_LocalIP>(KeyClass::Address)},
});

constexpr std::array<std::span<const Row>, kNetworkTypes> kSheets{kMpi, kH1, kTcpIso, kTcpRw, kTcpIpk};

}  // namespace

std::span<const SheetRow<cNetwork>> NetworkSheet(std::int32_t nNetworkType) {
  if (nNetworkType < 0 || nNetworkType >= kNetworkTypes) return {};
  return kSheets[static_cast<std::size_t>(nNetworkType)];
}

}  // namespace tavrin
