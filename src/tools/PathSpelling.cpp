#include "tools/PathSpelling.h"

#include <algorithm>
#include <optional>

#include "model/shared/modMain.h"
#include "platform/CodePage.h"
#include "platform/FileProperties.h"
#include "platform/Files.h"

namespace tavrin {
namespace {

bool IsDrive(std::string_view piece) { return piece.size() == 2 && piece[1] == ':'; }

/// What of a path is no name on a disk: its root, its drive, or server and share.
std::size_t RootLength(std::string_view path) {
  const std::string network(2, kPathSeparator);
  if (path.starts_with(network)) {
    const std::size_t server = path.find(kPathSeparator, network.size());
    return server == path.npos ? path.size() : std::min(path.find(kPathSeparator, server + 1), path.size());
  }
  return IsDrive(path.substr(0, path.find(kPathSeparator))) ? 2 : 0;
}

}  // namespace

std::size_t FolderLength(std::string_view path) { return path.rfind(kPathSeparator) + 1; }

std::string AsSpelledOnDisk(std::string_view folder) {
  FileProperties& properties = modMain::Platform().around.fileProperties;
  const std::size_t root = RootLength(folder);
  std::string result(folder.substr(0, root));
  if (IsDrive(result)) result = UpperCase(result);
  for (std::size_t at = root; at < folder.size();) {
    if (folder[at] == kPathSeparator) {
      result += folder[at++];
      continue;
    }
    const std::size_t end = std::min(folder.find(kPathSeparator, at), folder.size());
    const std::string_view piece = folder.substr(at, end - at);
    const std::optional<FileRecord> found = properties.Find(result + std::string(piece));
    result += found ? std::string_view(found->name) : piece;
    at = end;
  }
  return result;
}

}  // namespace tavrin
