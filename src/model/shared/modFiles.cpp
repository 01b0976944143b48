#include "model/shared/modFiles.h"

#include <algorithm>

#include "model/shared/NamePattern.h"
#include "model/shared/modMain.h"

namespace tavrin {

bool FileExists(std::string_view path) {
  bool exists = false;
  modMain::IgnoreErrors([&] {
    const auto status = modMain::Platform().files.Status(path);
    exists = status && !status->directory;
  });
  return exists;
}

std::string_view StripNulls(std::string& text) {
  text.resize(std::min(text.size(), text.find('\0')));
  return text;
}

std::vector<std::string> ListFiles(std::string_view directory, std::string_view pattern) try {
  Files& files = modMain::Platform().files;
  std::string folder(directory);
  if (!folder.ends_with(kPathSeparator)) folder += kPathSeparator;
  std::vector<std::string> paths(1);
  for (std::string& entry : files.List(folder)) {
    const std::string_view name = StripNulls(entry);
    if (!MatchesPattern(name, pattern)) continue;
    std::string path = folder + std::string(name);
    const std::optional<FileStatus> status = files.Status(path);
    if (status && !status->directory) paths.push_back(std::move(path));
  }
  return paths;
} catch (...) {
  modMain::Trap("modFiles.ListFiles : ");
  return std::vector<std::string>(1);
}

std::string SystemDirectory() try { return modMain::Platform().files.SystemDirectory(); } catch (...) {
  modMain::Trap("modFiles.SystemDirectory : ");
  return {};
}

// The next two labels name the module without its last letter: that is how users know these two messages.

std::string BrowseForFolder(std::string_view title) try {
  return modMain::Platform().desktop.AskFolder(title);
} catch (...) {
  modMain::Trap("modFile.BrowseForFolder : ");
  return {};
}

bool FolderExists(std::string_view path) try {
  const std::optional<FileStatus> status = modMain::Platform().files.Status(path);
  return status && status->directory;
} catch (...) {
  modMain::Trap("modFile.FolderExists : ");
  return false;
}

}  // namespace tavrin
