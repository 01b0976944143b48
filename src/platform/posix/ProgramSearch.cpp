#include "platform/posix/ProgramSearch.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <vector>

#include <sys/stat.h>
#include <unistd.h>

namespace tavrin {
namespace {

using Pieces = std::vector<std::string>;

/// The value of a variable of the environment; the other text when it is not set or empty.
std::string Variable(const char* name, std::string_view otherwise) {
  const char* const value = std::getenv(name);
  return std::string(value == nullptr || *value == '\0' ? otherwise : std::string_view(value));
}

Pieces Split(std::string_view text, char separator) {
  Pieces pieces;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(separator), text.size());
    if (end > 0) pieces.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return pieces;
}

bool IsRegular(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

/// The folders of a list of the environment, after the user's own one.
Pieces Folders(const char* ownName, std::string_view ownBelowHome, const char* listName, std::string_view list) {
  Pieces folders{Variable(ownName, Variable("HOME", "/") + std::string(ownBelowHome))};
  for (std::string& folder : Split(Variable(listName, list), ':')) folders.push_back(std::move(folder));
  return folders;
}

Pieces ConfigurationFolders() { return Folders("XDG_CONFIG_HOME", "/.config", "XDG_CONFIG_DIRS", "/etc/xdg"); }
Pieces ApplicationFolders() {
  Pieces folders = Folders("XDG_DATA_HOME", "/.local/share", "XDG_DATA_DIRS", "/usr/local/share:/usr/share");
  for (std::string& folder : folders) folder += "/applications";
  return folders;
}

/// The sections of such a list that say which program opens a type; the others take one away.
constexpr std::array<std::string_view, 3> kGiving{"[Default Applications]", "[Added Associations]", "[MIME Cache]"};

/// The programs that a list names for a type, as names of their description files.
Pieces HandlersIn(const std::string& path, std::string_view mediaType) {
  const std::string key = std::string(mediaType) + "=";
  Pieces handlers;
  bool giving = false;
  std::ifstream list(path);
  for (std::string line; std::getline(list, line);) {
    if (line.starts_with('[')) giving = std::find(kGiving.begin(), kGiving.end(), line) != kGiving.end();
    if (!giving || !line.starts_with(key)) continue;
    for (std::string& name : Split(std::string_view(line).substr(key.size()), ';')) handlers.push_back(std::move(name));
  }
  return handlers;
}

bool IsInstalled(const std::string& description) {
  if (description.find('/') != std::string::npos) return false;
  const Pieces folders = ApplicationFolders();
  return std::any_of(folders.begin(), folders.end(),
                     [&](const std::string& folder) { return IsRegular(folder + "/" + description); });
}

/// The lists, without those that hold for one desktop only.
Pieces HandlerLists() {
  Pieces lists;
  for (const std::string& folder : ConfigurationFolders()) lists.push_back(folder + "/mimeapps.list");
  for (const std::string& folder : ApplicationFolders()) {
    lists.push_back(folder + "/mimeapps.list");
    lists.push_back(folder + "/mimeinfo.cache");
  }
  return lists;
}

}  // namespace

std::optional<std::string> FindProgram(std::string_view name) {
  for (const std::string& folder : Split(Variable("PATH", "/usr/local/bin:/usr/bin:/bin"), ':')) {
    if (!folder.starts_with('/')) continue;
    std::string path = folder + "/" + std::string(name);
    if (IsRegular(path) && access(path.c_str(), X_OK) == 0) return path;
  }
  return std::nullopt;
}

bool IsDesktop(std::string_view name) {
  const Pieces names = Split(Variable("XDG_CURRENT_DESKTOP", {}), ':');
  return std::find(names.begin(), names.end(), name) != names.end();
}

bool HasHandler(std::string_view mediaType) {
  const Pieces lists = HandlerLists();
  return std::any_of(lists.begin(), lists.end(), [mediaType](const std::string& list) {
    const Pieces handlers = HandlersIn(list, mediaType);
    return std::any_of(handlers.begin(), handlers.end(), IsInstalled);
  });
}

}  // namespace tavrin
