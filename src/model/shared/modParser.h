#pragma once

#include <cstdint>
#include <string>

namespace tavrin {

/// The server's checks of names and sources (platform/ServerSyntax.h) under the names by which the program asks them.
[[nodiscard]] std::int32_t ParserIsValidTagName(std::string& szName);
[[nodiscard]] std::int32_t ParserIsValidNodeName(std::string& szName);
[[nodiscard]] std::int32_t ParserIsValidSource(std::string& szSource, std::int32_t nDeviceType, std::int32_t nPLCType);

}  // namespace tavrin
