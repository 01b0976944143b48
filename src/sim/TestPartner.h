#pragma once

#include <memory>
#include <vector>

#include "sim/SimItem.h"

namespace tavrin {

/// The controller's side of a test run, played on the reserved tags of a device that has COMMAND. A command is obeyed
/// when it is another one than the last: a controller looks at its memory and does not see that the same number was
/// written again.
///
/// 1 initialises: all other tags stand at their start values, and the device answers. 2 checks: the tags that have a
/// test value are compared with it; RESULTARRAY has an element for each tag but the reserved ones, in their order, 1
/// for one that differs; RESULT is the number of these. 0 goes back: both are 0, and what has not been written since
/// moves again. Any other number does nothing.
class TestPartner {
 public:
  using Items = std::vector<std::unique_ptr<SimItem>>;

  /// Watches other items than before. What it was told stays as long as COMMAND is among them.
  void Watch(const Items& items, Moment now);
  /// True from the first command of a test until the way back.
  [[nodiscard]] bool IsTesting() const { return testing_; }
  /// COMMAND has been written.
  void Command(double number, Moment now);

 private:
  void Initialise(Moment now);
  void Check(Moment now);
  void Back(Moment now);
  void TellResult(Values differences, Moment now);

  SimItem* command_ = nullptr;
  SimItem* result_ = nullptr;
  SimItem* resultArray_ = nullptr;
  std::vector<SimItem*> plain_;
  double last_ = 0;
  bool testing_ = false;
};

}  // namespace tavrin
