#pragma once

#include <string>
#include <string_view>

namespace tavrin {

/// A new directory that goes with its content when the object goes.
class TemporaryDirectory {
 public:
  TemporaryDirectory();
  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;
  ~TemporaryDirectory();

  /// With a trailing separator.
  [[nodiscard]] const std::string& Path() const { return path_; }

  /// Bytes as they are. Names are UTF-8.
  void Write(std::string_view name, std::string_view bytes) const;
  /// The file's bytes. @throws std::runtime_error when it is missing
  [[nodiscard]] std::string Read(std::string_view name) const;
  [[nodiscard]] bool Has(std::string_view name) const;

 private:
  std::string path_;
};

}  // namespace tavrin
