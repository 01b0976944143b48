#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace tavrin {

/// A path of the program (code page) as the system wants it (UTF-8), taken apart once.
struct PosixPath {
  explicit PosixPath(std::string_view path);

  /// The folder as a path of its own: "." when the path has none.
  [[nodiscard]] std::string FolderToOpen() const { return folder.empty() ? "." : folder; }

  bool valid;          ///< false: holds a NUL, which would end the path early and make it another file's
  std::string whole;   ///< UTF-8
  std::string folder;  ///< UTF-8, up to the last separator, which belongs to it; empty without one
  std::string name;    ///< last piece, in the code page
};

/// Finds the file that a path stands for.
class PosixPathFinder {
 public:
  /// A system call on a path: negative, with errno, for a failure.
  using Act = std::function<int(const char*)>;

  /// Acts on the path or, when there is no such entry, on the entry that differs from it only in case: the first one
  /// in byte order, so that the answer does not hang on the order in which a disk lists them. A link to nothing is an
  /// entry. Only for a path without one the directory is read, so that a walk over listed names is not quadratic.
  int OnExisting(const PosixPath& path, const Act& act);

  /// To be told of every file that was removed: until there is an entry of exactly this spelling again, nothing stands
  /// for the path. Otherwise a writer that removes a file to make it anew would go on with its namesake.
  void MarkRemoved(const PosixPath& path) { removed_.insert(path.whole); }
  /// To be told of every file that was made new.
  void MarkMade(const PosixPath& path) { removed_.erase(path.whole); }

 private:
  [[nodiscard]] std::optional<std::string> InOtherCase(const PosixPath& path) const;

  // What the last search has found. A program uses a file several times in a row, and a search reads the directory.
  std::string asked_;
  std::string found_;
  std::set<std::string> removed_;
};

}  // namespace tavrin
