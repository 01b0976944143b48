#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavrin {

/// Read access to the machine-wide settings of the system.
class Registry {
 public:
  Registry() = default;
  Registry(const Registry&) = delete;
  Registry& operator=(const Registry&) = delete;
  virtual ~Registry() = default;

  /// A text value below HKEY_LOCAL_MACHINE; nothing when key or value is missing or cannot be read.
  /// `keyPath` has its pieces joined by backslashes, e.g. "System\CurrentControlSet\Services\Name".
  [[nodiscard]] virtual std::optional<std::string> QueryText(std::string_view keyPath, std::string_view valueName) = 0;
};

}  // namespace tavrin
