#include "model/shared/LengthSyntax.h"

#include <cstring>
#include <string_view>

namespace tavrin {

namespace {

constexpr std::size_t kLongest = 32;

std::int32_t CheckLength(const std::string& text) {
  const std::size_t length = strnlen(text.c_str(), kLongest + 1);
  if (length == 0) return 3;
  return length > kLongest ? 1 : 0;
}

}  // namespace

std::int32_t LengthSyntax::CheckTagName(std::string& name) { return CheckLength(name); }

std::int32_t LengthSyntax::CheckNodeName(std::string& name) { return CheckLength(name); }

std::int32_t LengthSyntax::CheckSource(std::string& source, std::int32_t /*deviceType*/, std::int32_t /*plcType*/) {
  return CheckLength(source);
}

}  // namespace tavrin
