#include "house/SourceRules.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <fstream>
#include <functional>
#include <span>

namespace tavrin {
namespace {

namespace fs = std::filesystem;

/// One folder of src/ and what its files may include besides each other: folders, separated by blanks.
struct Layer {
  std::string_view folder;
  std::string_view mayUse;
  bool systemHeaders = false;
  bool qtHeaders = false;
};

constexpr std::string_view kEverything = "*";
constexpr std::string_view kPlatform = "platform platform/controls";
constexpr std::string_view kModel = "model platform platform/controls";

constexpr std::array kLayers{
    Layer{"platform", ""},
    Layer{"platform/controls", "platform"},
    Layer{"platform/headless", kPlatform},
    Layer{"platform/posix", kPlatform, true},
    Layer{"platform/profile", kPlatform},
    Layer{"platform/qt", kPlatform, false, true},
    Layer{"platform/version", "platform"},
    Layer{"platform/windows", kPlatform, true},
    Layer{"model", kPlatform},
    Layer{"editing", kModel},
    Layer{"brand", ""},
    Layer{"tools", "model platform platform/controls platform/version"},
    Layer{"online/opc", kPlatform},
    Layer{"online", "brand online/opc model platform platform/controls"},
    Layer{"sim", "online/opc model platform platform/controls"},
    Layer{"shell", "brand editing model online tools platform platform/controls"},
    Layer{"app", kEverything, true, true},
};

/// Folders of the libraries' headers, allowed everywhere.
constexpr std::array<std::string_view, 5> kLibraries{"CLI/", "fmt/", "nlohmann/", "open62541/", "rapidjson/"};

/// First folders of paths that belong to one machine.
constexpr std::array<std::string_view, 5> kMachineFolders{"Users", "home", "mnt", "root", "work"};

constexpr std::array<std::string_view, 4> kSourceFolders{"bench", "fuzz", "src", "tests"};
constexpr std::array<std::string_view, 8> kTextFolders{"bench",     "cmake", "docs",  "fuzz",
                                                       "packaging", "src",   "tests", "texts"};

/// Recorded files, which are what they are.
constexpr std::array<std::string_view, 2> kDataFolders{"fuzz/corpus", "tests/data"};

bool IsInFolder(std::string_view path, std::string_view folder) {
  return path.starts_with(folder) && path.size() > folder.size() && path[folder.size()] == '/';
}

bool IsWordOf(std::string_view list, std::string_view word) {
  for (std::size_t begin = 0; begin < list.size();) {
    const std::size_t end = std::min(list.find(' ', begin), list.size());
    if (list.substr(begin, end - begin) == word) return true;
    begin = end + 1;
  }
  return false;
}

/// The row of the innermost folder that holds the file, null when there is none.
const Layer* LayerOf(std::string_view file) {
  const Layer* best = nullptr;
  for (const Layer& layer : kLayers) {
    const bool better = best == nullptr || layer.folder.size() > best->folder.size();
    if (better && IsInFolder(file, layer.folder)) best = &layer;
  }
  return best;
}

bool IsQtHeader(std::string_view name) {
  return name.size() > 1 && name[0] == 'Q' &&
         (std::isupper(static_cast<unsigned char>(name[1])) != 0 || name[1] == 't');
}

/// Headers of the C++ standard library have neither a folder nor an extension.
bool IsSystemHeader(std::string_view name) {
  const bool library = std::any_of(kLibraries.begin(), kLibraries.end(),
                                   [name](std::string_view folder) { return name.starts_with(folder); });
  return !library && name.find_first_of("./") != std::string_view::npos;
}

std::optional<std::string> ForeignHeaderFault(const Layer& layer, std::string_view name) {
  const std::string where = std::string(layer.folder) + " must not include ";
  if (IsQtHeader(name)) {
    if (!layer.qtHeaders) return where + "the Qt header " + std::string(name);
  } else if (IsSystemHeader(name) && !layer.systemHeaders) {
    return where + "the system header " + std::string(name);
  }
  return std::nullopt;
}

std::optional<std::string> OwnHeaderFault(const Layer& layer, std::string_view name) {
  const Layer* target = LayerOf(name);
  if (target == nullptr) return std::string(name) + " is no path below src/ in a known folder";
  if (target == &layer || layer.mayUse == kEverything || IsWordOf(layer.mayUse, target->folder)) return std::nullopt;
  return std::string(layer.folder) + " must not include " + std::string(name);
}

/// What stands behind #include, with its delimiters; empty for any other line.
std::string_view IncludeTarget(std::string_view line) {
  for (const std::string_view piece : {"#", "include"}) {
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    if (!line.starts_with(piece)) return {};
    line.remove_prefix(piece.size());
  }
  line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
  if (line.empty() || (line[0] != '"' && line[0] != '<')) return {};
  const std::size_t end = line.find(line[0] == '<' ? '>' : '"', 1);
  return end == std::string_view::npos ? std::string_view{} : line.substr(0, end + 1);
}

bool IsSource(const fs::path& path) { return path.extension() == ".h" || path.extension() == ".cpp"; }

bool IsRecordedData(std::string_view path) {
  return std::any_of(kDataFolders.begin(), kDataFolders.end(),
                     [path](std::string_view folder) { return IsInFolder(path, folder); });
}

using Lines = std::vector<std::string>;
using FileCheck = std::function<void(const std::string& path, const Lines& lines, std::vector<std::string>& breaches)>;

Lines ReadLines(const fs::path& file) {
  Lines lines;
  std::ifstream in(file, std::ios::binary);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

std::string Place(const std::string& path, std::size_t lineNumber) {
  return path + ":" + std::to_string(lineNumber) + ": ";
}

/// Hands every regular file of the folders to `check`, in the order of the paths.
TreeReport WalkFiles(const fs::path& root, std::span<const std::string_view> folders, bool sourcesOnly,
                     const FileCheck& check) {
  std::vector<std::string> paths;
  for (const std::string_view folder : folders) {
    if (!fs::is_directory(root / folder)) continue;
    for (const auto& entry : fs::recursive_directory_iterator(root / folder)) {
      std::string path = entry.path().lexically_relative(root).generic_string();
      const bool wanted = entry.is_regular_file() && !IsRecordedData(path) && (!sourcesOnly || IsSource(entry.path()));
      if (wanted) paths.push_back(std::move(path));
    }
  }
  std::sort(paths.begin(), paths.end());

  TreeReport report;
  for (const std::string& path : paths) {
    ++report.filesRead;
    check(path, ReadLines(root / path), report.breaches);
  }
  return report;
}

}  // namespace

std::optional<std::string> IncludeFault(std::string_view file, std::string_view target) {
  const Layer* layer = LayerOf(file);
  if (layer == nullptr) return std::string(file) + " is in no known folder";
  const std::string_view name = target.substr(1, target.size() - 2);
  if (target[0] == '<' || IsQtHeader(name)) return ForeignHeaderFault(*layer, name);
  return OwnHeaderFault(*layer, name);
}

bool NamesMachinePath(std::string_view line) {
  constexpr std::string_view kInsideOfPath = "_-.)}/~";  // before a slash that continues a path
  for (std::size_t slash = line.find('/'); slash != std::string_view::npos; slash = line.find('/', slash + 1)) {
    const char before = slash == 0 ? ' ' : line[slash - 1];
    const bool continues =
        std::isalnum(static_cast<unsigned char>(before)) != 0 || kInsideOfPath.find(before) != std::string_view::npos;
    const auto startsHere = [rest = line.substr(slash + 1)](std::string_view folder) {
      return IsInFolder(rest, folder);
    };
    if (!continues && std::any_of(kMachineFolders.begin(), kMachineFolders.end(), startsHere)) return true;
  }
  return false;
}

TreeReport CheckIncludes(const fs::path& root) {
  static constexpr std::array<std::string_view, 1> kFolders{"src"};
  return WalkFiles(root, kFolders, true, [](const std::string& path, const Lines& lines, auto& breaches) {
    for (std::size_t i = 0; i < lines.size(); ++i) {
      const std::string_view target = IncludeTarget(lines[i]);
      if (target.empty()) continue;
      const auto fault = IncludeFault(std::string_view(path).substr(4), target);  // without "src/"
      if (fault) breaches.push_back(Place(path, i + 1) + *fault);
    }
  });
}

TreeReport CheckLengths(const fs::path& root) {
  return WalkFiles(root, kSourceFolders, true, [](const std::string& path, const Lines& lines, auto& breaches) {
    if (lines.size() > kMaxLines) breaches.push_back(Place(path, lines.size()) + "too long");
  });
}

TreeReport CheckMachinePaths(const fs::path& root) {
  return WalkFiles(root, kTextFolders, false, [](const std::string& path, const Lines& lines, auto& breaches) {
    for (std::size_t i = 0; i < lines.size(); ++i) {
      if (NamesMachinePath(lines[i])) breaches.push_back(Place(path, i + 1) + "names a path of one machine");
    }
  });
}

}  // namespace tavrin
