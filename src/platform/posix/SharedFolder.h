#pragma once

#include <sys/stat.h>

namespace tavrin {

/// A directory in which everybody may make files and nobody may take away another's, such as the LOG of an installation
/// for all users. The names that the program writes there are known beforehand: anybody can lay something there that
/// bears one of them and waits for another user's program. So in such a directory only a file of the user's own is ever
/// written: no link is followed, no other's file is filled, which he could read or change, and none that has a
/// second name elsewhere. It does not hang on the protection that some systems have of their own.
[[nodiscard]] bool IsShared(const struct stat& folder);

/// True for a file in such a directory that the user may write.
[[nodiscard]] bool IsOnlyOf(const struct stat& file, uid_t user);

/// Opens a file for writing as the system call does, but in a shared directory only one for which IsOnlyOf holds, which
/// others then cannot write. The flags must not empty it: what it is, is known only when it is open.
/// @return negative, with errno, for a failure; EPERM for a file that is not the user's
[[nodiscard]] int OpenForWriting(const char* path, int flags, mode_t mode = 0);

}  // namespace tavrin
