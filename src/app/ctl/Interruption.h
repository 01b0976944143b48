#pragma once

namespace tavrin {

/// While it lives, SIGINT and SIGTERM do not end the process but are remembered, so that work without an end of its own
/// comes to an orderly one. A second signal ends the process.
class Interruption {
 public:
  Interruption();
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;
  ~Interruption();

  [[nodiscard]] bool Came() const;
};

}  // namespace tavrin
