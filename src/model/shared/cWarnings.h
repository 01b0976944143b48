#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

#include "model/shared/cWarning.h"

namespace tavrin {

class Grid;
class Label;

/// The warnings of one load or save, in the order in which they were found.
class cWarnings {
 public:
  /// @param index counted from 1 @throws RuntimeError 9 for a position that does not exist
  [[nodiscard]] cWarning& Warning(std::int32_t index);

  /// Beyond kMost warnings nothing is added any more: a damaged file of hundreds of megabytes must not take memory
  /// without bound, and nobody reads that far.
  void Add(cWarning warning);
  static constexpr std::int32_t kMost = 10'000'000;
  /// Makes a warning and appends it; never shows it. A failure goes to the error trap.
  void AddWarning(WarningKind kind, std::string_view szFileName, std::string szText);

  [[nodiscard]] std::int32_t Count() const { return static_cast<std::int32_t>(warnings_.size()); }
  /// @param index counted from 1 @throws RuntimeError 9 for a position that does not exist
  void Remove(std::int32_t index);

  /// Fills the warnings grid, a row a warning, empties the label of its current cell, and brings the grid on show.
  void Show(Grid& grid, Label& label) const;

  [[nodiscard]] auto begin() const { return warnings_.begin(); }
  [[nodiscard]] auto end() const { return warnings_.end(); }

 private:
  [[nodiscard]] std::size_t Position(std::int32_t index) const;

  std::deque<cWarning> warnings_;
};

}  // namespace tavrin
