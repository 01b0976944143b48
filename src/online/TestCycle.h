#pragma once

#include <cstdint>

#include "online/TestCommand.h"

namespace tavrin {

class frmTest;

/// The script of the test run: one step a tick of the clock. A full cycle is the steps 0, 3, 1, 4, 2 and back to 0.
/// What fails in a step is passed over, and the next act follows.
class TestCycle {
 public:
  explicit TestCycle(frmTest& form) : form_(form) {}

  /// Back to before the first run.
  void Reset();
  void Timer1_Timer();

  /// Has the partner go back to its start, and forgets what the server has said.
  void Grundstellung();
  /// Has the partner get ready for a check.
  void Initialisieren();
  /// Has the partner check the values that were written.
  void Pruefen();
  /// Writes the set value of every tag. The first error is told by a box and ends the writing; the cycle goes on.
  void TagsUpdate();
  /// Subscribes anew. @throws RuntimeError 5 when the server cannot be reached; the step is then told nowhere
  void TagsAbonnieren();

  [[nodiscard]] std::int32_t Run() const { return run_; }
  [[nodiscard]] std::int32_t Step() const { return step_; }
  [[nodiscard]] TestCommand LastCommand() const { return lastCommand_; }

 private:
  void BeginRun();
  void UpdateWhenGood();
  void CheckAndGoOn();
  void SkipSubscription() { step_ = 3; }
  void Resubscribe();
  /// What the three commands have in common. `showRun`: the run counter is shown too.
  void Send(TestCommand command, bool showRun, std::int32_t nextStep);
  void ShowRun();

  frmTest& form_;
  std::int32_t run_ = 0;
  std::int32_t step_ = -1;
  TestCommand lastCommand_ = TestCommand::None;
  bool itemsCreated_ = false;
};

}  // namespace tavrin
