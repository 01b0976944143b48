#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Registry.h"

namespace tavrin {

/// A machine on which nothing is installed, so that what a script shows does not depend on the machine that it runs on.
class EmptyRegistry : public Registry {
 public:
  [[nodiscard]] std::optional<std::string> QueryText(std::string_view /*keyPath*/,
                                                     std::string_view /*valueName*/) override {
    return std::nullopt;
  }
};

}  // namespace tavrin
