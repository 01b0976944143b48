#pragma once

namespace tavrin {

class frmOPC;

/// The menu of the log files, which others write: they are only shown.
class LogFiles {
 public:
  explicit LogFiles(frmOPC& form);

  /// Shows LOG1.TXT or LOG2.TXT of the directory LOG beside the program. Has no trap of its own.
  /// @throws RuntimeError 53 when there is no program that shows texts
  static void mnuLog_Click(int index);
};

}  // namespace tavrin
