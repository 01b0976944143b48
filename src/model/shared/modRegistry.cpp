#include "model/shared/modRegistry.h"

#include "model/shared/modMain.h"

namespace tavrin {

namespace {
constexpr std::size_t kLongestValue = 254;  // the buffer of 255 less the closing NUL
}

std::string GetRegistryValue(std::string_view keyPath, std::string_view valueName, std::string_view fallback) {
  std::string result;
  modMain::IgnoreErrors([&] {
    const auto value = modMain::Platform().registry.QueryText(keyPath, valueName);
    result = value && value->size() <= kLongestValue ? *value : std::string(fallback);
  });
  return result;
}

}  // namespace tavrin
