#pragma once

namespace tavrin {

/// The stored fields of an object of the project tree with the mark that they differ from the object's file. Setters
/// store through here, loaders write the fields directly.
template <class Fields>
class DirtySettings {
 public:
  DirtySettings(const DirtySettings&) = delete;
  DirtySettings& operator=(const DirtySettings&) = delete;

  /// True when the object itself differs from its file; says nothing of what it owns.
  [[nodiscard]] bool bDataDirty() const { return bDataDirty_; }
  void bDataDirty(bool value) { bDataDirty_ = value; }

  /// All stored fields as they are.
  [[nodiscard]] const Fields& Settings() const { return settings_; }

 protected:
  DirtySettings() = default;
  ~DirtySettings() = default;

  /// Stores an accepted value and marks the object; a refused one changes nothing.
  template <class Value, class Given>
  void Store(Value Fields::*field, const Given& value, bool accepted) {
    if (!accepted) return;
    settings_.*field = Value(value);
    bDataDirty_ = true;
  }

  Fields settings_;
  bool bDataDirty_ = false;
};

}  // namespace tavrin
