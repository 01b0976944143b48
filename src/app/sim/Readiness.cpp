#include "app/sim/Readiness.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <string_view>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace tavrin {

void TellServiceManagerReady() {
  const char* const place = std::getenv("NOTIFY_SOCKET");
  const std::string_view path = place == nullptr ? "" : place;
  sockaddr_un address{};
  if (path.empty() || path.size() >= sizeof address.sun_path) return;
  address.sun_family = AF_UNIX;
  std::copy(path.begin(), path.end(), address.sun_path);
  if (path[0] == '@') address.sun_path[0] = '\0';  // a socket without a file

  constexpr std::string_view kReady = "READY=1";
  const int socketNumber = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  if (socketNumber < 0) return;
  const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + path.size());
  sendto(socketNumber, kReady.data(), kReady.size(), MSG_NOSIGNAL, reinterpret_cast<const sockaddr*>(&address), length);
  close(socketNumber);
}

}  // namespace tavrin
