#pragma once

#include <string_view>

namespace tavrin {

/// The error box of the test run, German in every language. To be called in a `catch (...)`; `more` is what the routine
/// was at work on.
void TellTestError(std::string_view routine, std::string_view more = {});

}  // namespace tavrin
