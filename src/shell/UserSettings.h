#pragma once

namespace tavrin {

class frmOPC;

/// What survives between two runs, in the settings store: the one place that names every key.
class UserSettings {
 public:
  explicit UserSettings(frmOPC& form) : form_(form) {}

  /// Ends by choosing the language, which shows everything in it.
  void GetSettings();
  void SaveSettings();

 private:
  frmOPC& form_;
};

}  // namespace tavrin
