#include "model/shared/IniAccess.h"

#include <array>

#include "model/shared/modMain.h"

namespace tavrin {

namespace {
constexpr std::size_t kValueBuffer = 255;
constexpr std::size_t kSectionListBuffer = 1024;
}  // namespace

IniValue ReadIniValue(std::string_view section, std::string_view key, std::string_view fallback,
                      const std::string& file) {
  std::array<char, kValueBuffer> buffer{};
  const std::size_t count = modMain::Platform().profiles.GetString(section, key, fallback, buffer, file);
  if (count == 0) return {};
  return {true, modMain::ParseINISetting({buffer.data(), buffer.size()})};
}

std::vector<std::string> ReadIniSections(const std::string& file) {
  std::array<char, kSectionListBuffer> buffer{};
  buffer.fill(' ');
  static_cast<void>(modMain::Platform().profiles.GetSectionNames(buffer, file));
  std::string_view rest = modMain::TrimBlanks({buffer.data(), buffer.size()});
  std::vector<std::string> names;
  while (!rest.empty()) {
    const std::size_t end = rest.find('\0');
    const std::string_view name = rest.substr(0, end);
    if (!modMain::TrimBlanks(name).empty()) names.emplace_back(name);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  }
  return names;
}

void WriteIniValue(std::string_view section, std::string_view key, std::string_view value, const std::string& file) {
  static_cast<void>(modMain::Platform().profiles.WriteString(section, key, value, file));
}

void AppendEmptyLine(const std::string& file) {
  modMain::IgnoreErrors([&] { modMain::Platform().files.Append(file, "\r\n"); });
}

void RemoveBeforeRewrite(const std::string& file) {
  modMain::IgnoreErrors([&] { modMain::Platform().files.Remove(file); });
}

}  // namespace tavrin
