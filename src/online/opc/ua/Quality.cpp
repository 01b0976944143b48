#include <algorithm>
#include <array>

#include "online/opc/ua/Values.h"

namespace tavrin::ua {

namespace {

struct Row {
  UA_StatusCode status;
  std::uint16_t quality;
};

/// OPC UA part 8, annex A. What says that the server cannot be talked to is a failed communication; an unknown name is
/// a fault of the configuration.
constexpr std::array kRows{
    Row{UA_STATUSCODE_GOODLOCALOVERRIDE, 0xD8},
    Row{UA_STATUSCODE_UNCERTAINLASTUSABLEVALUE, 0x44},
    Row{UA_STATUSCODE_UNCERTAINSENSORNOTACCURATE, 0x50},
    Row{UA_STATUSCODE_UNCERTAINENGINEERINGUNITSEXCEEDED, 0x54},
    Row{UA_STATUSCODE_UNCERTAINSUBNORMAL, 0x58},
    Row{UA_STATUSCODE_UNCERTAINNOCOMMUNICATIONLASTUSABLEVALUE, 0x14},
    Row{UA_STATUSCODE_BADCONFIGURATIONERROR, 0x04},
    Row{UA_STATUSCODE_BADNODEIDUNKNOWN, 0x04},
    Row{UA_STATUSCODE_BADNODEIDINVALID, 0x04},
    Row{UA_STATUSCODE_BADNOTCONNECTED, 0x08},
    Row{UA_STATUSCODE_BADDEVICEFAILURE, 0x0C},
    Row{UA_STATUSCODE_BADSENSORFAILURE, 0x10},
    Row{UA_STATUSCODE_BADNOCOMMUNICATION, 0x18},
    Row{UA_STATUSCODE_BADCOMMUNICATIONERROR, 0x18},
    Row{UA_STATUSCODE_BADTIMEOUT, 0x18},
    Row{UA_STATUSCODE_BADREQUESTTIMEOUT, 0x18},
    Row{UA_STATUSCODE_BADOUTOFSERVICE, 0x1C},
};

constexpr std::uint16_t kUncertain = 0x40;

std::uint16_t QualityOfSeverity(UA_StatusCode status) {
  constexpr std::array<std::uint16_t, 4> kSeverities{kGood, kUncertain, kBad, kBad};
  return kSeverities.at(status >> 30U);
}

/// The low bits hold limits only when the code says that they belong to a value.
std::uint16_t LimitOf(UA_StatusCode status) {
  constexpr UA_StatusCode kInfoType = 0x0C00;
  constexpr UA_StatusCode kOfValue = 0x0400;
  if ((status & kInfoType) != kOfValue) return 0;
  return static_cast<std::uint16_t>((status >> 8U) & 3U);
}

}  // namespace

std::uint16_t QualityOf(UA_StatusCode status) {
  constexpr UA_StatusCode kMeaning = 0xFFFF0000;
  const auto found =
      std::find_if(kRows.begin(), kRows.end(), [status](const Row& row) { return row.status == (status & kMeaning); });
  const std::uint16_t quality = found == kRows.end() ? QualityOfSeverity(status) : found->quality;
  return static_cast<std::uint16_t>(quality | LimitOf(status));
}

}  // namespace tavrin::ua
