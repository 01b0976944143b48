#include "support/DirectoryWatch.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <stdexcept>

#include <sys/inotify.h>
#include <unistd.h>

namespace tavrin {
namespace {

/// The system joins equal events that follow each other: the ends are watched too, to keep the beginnings apart.
constexpr std::uint32_t kEvents = IN_OPEN | IN_CLOSE_NOWRITE;

}  // namespace

DirectoryWatch::DirectoryWatch(const std::string& directory) : number_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
  if (number_ >= 0 && inotify_add_watch(number_, directory.c_str(), kEvents | IN_ONLYDIR) >= 0) return;
  if (number_ >= 0) close(number_);
  throw std::runtime_error("cannot watch " + directory);
}

DirectoryWatch::~DirectoryWatch() { close(number_); }

int DirectoryWatch::Opened() const {
  int opened = 0;
  std::array<char, 65536> events{};
  for (ssize_t size = 0; (size = read(number_, events.data(), events.size())) > 0;) {
    for (std::size_t at = 0; at < static_cast<std::size_t>(size);) {
      inotify_event event{};
      std::memcpy(&event, events.data() + at, sizeof event);
      if (event.len == 0 && (event.mask & IN_OPEN) != 0) ++opened;  // the entries in it have names
      at += sizeof event + event.len;
    }
  }
  return opened;
}

}  // namespace tavrin
