#include "app/sim/PortProbe.h"

#include <cerrno>
#include <memory>
#include <string>

#include <netdb.h>
#include <sys/socket.h>
#include <unistd.h>

namespace tavrin {

namespace {

/// True for an address that a listener holds. Connections of the past that linger there do not count.
bool IsHeld(const addrinfo& address) {
  const int socketNumber = socket(address.ai_family, address.ai_socktype | SOCK_CLOEXEC, address.ai_protocol);
  if (socketNumber < 0) return false;
  const int on = 1;
  setsockopt(socketNumber, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
  const bool held = bind(socketNumber, address.ai_addr, address.ai_addrlen) != 0 && errno == EADDRINUSE;
  close(socketNumber);
  return held;
}

}  // namespace

bool IsTaken(const ListenPlace& place) {
  if (place.port == 0) return false;
  addrinfo wanted{};
  wanted.ai_family = AF_UNSPEC;
  wanted.ai_socktype = SOCK_STREAM;
  wanted.ai_flags = AI_PASSIVE;
  addrinfo* found = nullptr;
  const char* const host = place.address.empty() ? nullptr : place.address.c_str();
  if (getaddrinfo(host, std::to_string(place.port).c_str(), &wanted, &found) != 0) return false;
  const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> list(found, freeaddrinfo);
  for (const addrinfo* address = found; address != nullptr; address = address->ai_next) {
    if (IsHeld(*address)) return true;
  }
  return false;
}

}  // namespace tavrin
