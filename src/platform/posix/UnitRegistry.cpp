#include "platform/posix/UnitRegistry.h"

#include <array>

#include "platform/CodePage.h"
#include "platform/RuntimeError.h"

namespace tavrin {

namespace {

constexpr std::string_view kServices = "System\\CurrentControlSet\\Services\\";
// Directories of units in the order in which systemd prefers them.
constexpr std::array<std::string_view, 5> kUnitDirectories{"/etc/systemd/system/", "/run/systemd/system/",
                                                           "/usr/local/lib/systemd/system/", "/usr/lib/systemd/system/",
                                                           "/lib/systemd/system/"};
constexpr std::string_view kDescription = "Description=";

std::optional<std::string> DescriptionIn(std::string_view unit) {
  while (!unit.empty()) {
    const std::size_t end = unit.find('\n');
    const std::string_view line = unit.substr(0, end);
    if (line.substr(0, kDescription.size()) == kDescription) {
      const std::string text(line.substr(kDescription.size()));
      return FromUtf8(text).value_or(text);
    }
    unit.remove_prefix(end == std::string_view::npos ? unit.size() : end + 1);
  }
  return std::nullopt;
}

}  // namespace

std::string UnitOf(std::string_view keyPath) {
  if (!keyPath.starts_with(kServices)) return {};
  return std::string(keyPath.substr(kServices.size())) + ".service";
}

std::optional<std::string> UnitRegistry::DescriptionOf(const std::string& path) {
  try {
    return DescriptionIn(files_.ReadAll(path));
  } catch (const RuntimeError&) {
    return std::nullopt;  // no plain file, such as the device in place of a masked unit
  }
}

std::optional<std::string> UnitRegistry::QueryText(std::string_view keyPath, std::string_view valueName) {
  const std::string unit = UnitOf(keyPath);
  if (valueName != "DisplayName" || unit.empty()) return std::nullopt;
  for (const std::string_view directory : kUnitDirectories) {
    const std::string path = root_ + std::string(directory) + unit;
    const auto status = files_.Status(path);
    if (status && !status->directory) return DescriptionOf(path);
  }
  return std::nullopt;
}

}  // namespace tavrin
