#pragma once

#include <optional>

#include "platform/RuntimeError.h"

namespace tavrin {

/// Number of the run-time error that an action ends in; nothing when it ends well.
template <class Action>
std::optional<ErrorNumber> ErrorOf(const Action& action) {
  try {
    action();
    return std::nullopt;
  } catch (const RuntimeError& error) {
    return error.Number();
  }
}

}  // namespace tavrin
