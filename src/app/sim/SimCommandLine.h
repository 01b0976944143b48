#pragma once

namespace tavrin {

/// Runs tavrin-sim until a signal ends it.
/// @return exit status: 0 ended by a signal, 2 could not begin
[[nodiscard]] int RunTavrinSim(int argc, const char* const* argv);

}  // namespace tavrin
