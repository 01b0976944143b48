#include "platform/posix/PosixPath.h"

#include <cerrno>
#include <memory>

#include <dirent.h>
#include <sys/stat.h>

#include "platform/CodePage.h"
#include "platform/Files.h"

namespace tavrin {
namespace {

int Retried(const PosixPathFinder::Act& act, const std::string& path) {
  int result = act(path.c_str());
  while (result < 0 && errno == EINTR) result = act(path.c_str());
  return result;
}

bool IsMissing(int result) { return result < 0 && errno == ENOENT; }

/// An entry whose name the code page cannot spell is nobody's.
bool IsSameButCase(const char* entry, const std::string& name) {
  const std::optional<std::string> spelled = FromUtf8(entry);
  return spelled && EqualIgnoringCase(*spelled, name);
}

/// There is such an entry, be it a link to nothing.
bool IsEntry(const std::string& path) {
  struct stat status {};
  return lstat(path.c_str(), &status) == 0;
}

std::size_t FolderLength(std::string_view path) { return path.rfind(kPathSeparator) + 1; }

}  // namespace

PosixPath::PosixPath(std::string_view path)
    : valid(path.find('\0') == std::string_view::npos),
      whole(ToUtf8(path)),
      folder(ToUtf8(path.substr(0, FolderLength(path)))),
      name(path.substr(FolderLength(path))) {}

int PosixPathFinder::OnExisting(const PosixPath& path, const Act& act) {
  if (!path.valid) {
    errno = EACCES;
    return -1;
  }
  int result = Retried(act, path.whole);
  if (!IsMissing(result)) {
    removed_.erase(path.whole);
    return result;
  }
  if (removed_.contains(path.whole) || IsEntry(path.whole)) {
    errno = ENOENT;
    return -1;
  }
  if (asked_ == path.whole) result = Retried(act, found_);
  if (!IsMissing(result)) return result;
  const std::optional<std::string> other = InOtherCase(path);
  errno = ENOENT;
  if (!other) return -1;
  asked_ = path.whole;
  found_ = *other;
  return Retried(act, found_);
}

std::optional<std::string> PosixPathFinder::InOtherCase(const PosixPath& path) const {
  if (path.name.empty()) return std::nullopt;
  const std::unique_ptr<DIR, int (*)(DIR*)> folder(opendir(path.FolderToOpen().c_str()), &closedir);
  if (!folder) return std::nullopt;
  std::optional<std::string> first;
  while (const dirent* entry = readdir(folder.get())) {
    const char* name = &entry->d_name[0];
    if (IsSameButCase(name, path.name) && (!first || name < *first)) first = name;
  }
  if (first) first->insert(0, path.folder);
  return first;
}

}  // namespace tavrin
