#pragma once

namespace tavrin {

/// Runs tavrinctl with the arguments of `main` and gives its exit status.
[[nodiscard]] int RunTavrinctl(int argc, const char* const* argv);

}  // namespace tavrin
