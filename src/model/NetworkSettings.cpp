#include "model/NetworkSettings.h"

namespace tavrin {

std::string_view NetworkTypeName(std::int32_t nNetworkType) {
  static constexpr std::array<std::string_view, kNetworkTypes> kNames{"MPI over COMPort", "H1", "ISO over TCP/IP",
                                                                      "Read/Write over TCP/IP", "IPK over TCP/IP"};
  return nNetworkType >= 0 && nNetworkType < kNetworkTypes ? kNames[static_cast<std::size_t>(nNetworkType)]
                                                           : std::string_view{};
}

}  // namespace tavrin
