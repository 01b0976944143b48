#pragma once

#include <string>
#include <string_view>

#include "platform/Files.h"
#include "platform/Registry.h"

namespace tavrin {

/// Name of the unit that stands for a service key, e.g. "TheServer.service"; empty for a key that is of no service.
[[nodiscard]] std::string UnitOf(std::string_view keyPath);

/// What stands for the machine-wide service entries on a system with systemd: the value "DisplayName" below the key of
/// a service is the Description= of the unit file of that name, looked for where systemd looks. No unit, no value.
class UnitRegistry : public Registry {
 public:
  /// `files` must live longer than this object. `root` goes before every directory, for tests.
  explicit UnitRegistry(Files& files, std::string root = {}) : files_(files), root_(std::move(root)) {}

  [[nodiscard]] std::optional<std::string> QueryText(std::string_view keyPath, std::string_view valueName) override;

 private:
  [[nodiscard]] std::optional<std::string> DescriptionOf(const std::string& path);

  Files& files_;
  std::string root_;
};

}  // namespace tavrin
