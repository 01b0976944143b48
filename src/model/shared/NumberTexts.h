#pragma once

#include <string>

#include "platform/TextLibrary.h"

namespace tavrin {

/// The catalogue in which the text of number N reads "#N": output that does not depend on a wording, for scripts and
/// tests.
class NumberTexts : public TextLibrary {
 public:
  void Init() override {}
  [[nodiscard]] std::string LoadText(int number, int /*language*/) override { return "#" + std::to_string(number); }
};

}  // namespace tavrin
