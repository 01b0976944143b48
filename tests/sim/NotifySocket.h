#pragma once

#include <array>
#include <cstdlib>
#include <string>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace tavrin {

/// Stands in for a service manager that waits to hear from the programs that it starts.
class NotifySocket {
 public:
  /// @param path of the socket
  explicit NotifySocket(const std::string& path) : number_(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    bind(number_, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    setenv("NOTIFY_SOCKET", path.c_str(), 1);
  }
  NotifySocket(const NotifySocket&) = delete;
  NotifySocket& operator=(const NotifySocket&) = delete;
  ~NotifySocket() {
    unsetenv("NOTIFY_SOCKET");
    close(number_);
  }

  /// The next message; empty when none comes within some seconds.
  [[nodiscard]] std::string Next() const {
    pollfd waiting{number_, POLLIN, 0};
    std::array<char, 256> text{};
    if (poll(&waiting, 1, 4000) <= 0) return {};
    const ssize_t got = recv(number_, text.data(), text.size(), 0);
    return {text.data(), got > 0 ? static_cast<std::size_t>(got) : 0};
  }

 private:
  int number_;
};

}  // namespace tavrin
