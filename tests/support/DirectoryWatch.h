#pragma once

#include <string>

namespace tavrin {

/// Counts how often a directory itself is opened, which is what reading its entries takes, from now on.
class DirectoryWatch {
 public:
  /// @throws std::runtime_error when the system cannot watch it
  explicit DirectoryWatch(const std::string& directory);
  DirectoryWatch(const DirectoryWatch&) = delete;
  DirectoryWatch& operator=(const DirectoryWatch&) = delete;
  ~DirectoryWatch();

  /// Since the last call.
  [[nodiscard]] int Opened() const;

 private:
  int number_;
};

}  // namespace tavrin
