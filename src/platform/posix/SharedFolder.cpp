#include "platform/posix/SharedFolder.h"

#include <cerrno>
#include <string>
#include <string_view>

#include <fcntl.h>
#include <unistd.h>

namespace tavrin {
namespace {

using SystemStatus = struct stat;

/// Closes without touching errno.
void Close(int number) {
  const int before = errno;
  close(number);
  errno = before;
}

/// @param folder open; what is opened is in it whatever becomes of its path meanwhile
int OpenInShared(int folder, const char* name, int flags, mode_t mode) {
  const int number = openat(folder, name, flags | O_NOFOLLOW, mode & ~mode_t{S_IWGRP | S_IWOTH});
  if (number < 0) return number;
  SystemStatus status{};
  if (fstat(number, &status) == 0 && IsOnlyOf(status, geteuid())) return number;
  Close(number);
  errno = EPERM;
  return -1;
}

int OpenIn(int folder, const char* name, int flags, mode_t mode) {
  SystemStatus status{};
  if (fstat(folder, &status) != 0) return -1;
  return IsShared(status) ? OpenInShared(folder, name, flags, mode) : openat(folder, name, flags, mode);
}

}  // namespace

bool IsShared(const struct stat& folder) { return (folder.st_mode & S_ISVTX) != 0 && (folder.st_mode & S_IWOTH) != 0; }

bool IsOnlyOf(const struct stat& file, uid_t user) {
  return S_ISREG(file.st_mode) && file.st_uid == user && file.st_nlink == 1;
}

int OpenForWriting(const char* path, int flags, mode_t mode) {
  const std::string_view whole(path);
  const std::size_t nameAt = whole.rfind('/') + 1;
  if (nameAt == whole.size()) return open(path, flags, mode);  // no name: nothing that could be opened for writing
  const std::string folderPath(nameAt == 0 ? "." : whole.substr(0, nameAt));
  const int folder = open(folderPath.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0) return -1;
  const int number = OpenIn(folder, path + nameAt, flags, mode);
  Close(folder);
  return number;
}

}  // namespace tavrin
