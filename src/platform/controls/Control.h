#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/controls/Signal.h"
#include "platform/controls/Twips.h"

namespace tavrin {

class Form;

/// What every control of a window has. A control holds what some rule reads or writes, and nothing of how it is drawn.
///
/// Two kinds of members change it. The program uses the properties, pairs of overloads; setting an equal value tells
/// nobody. The user changes it only through the gestures, whose names begin with User: the toolkit, tests and
/// scripts call exactly these, so that they all take the same road. Gestures run the program's handlers (On...).
/// Texts are in the code page.
class Control {
 public:
  /// @param form owns the control or outlives it
  /// @param index position in a control array, e.g. 3 for mnuFile(3); 0 for a control that is in none
  Control(Form& form, std::string name, int index = 0);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control();

  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] int Index() const { return index_; }
  [[nodiscard]] Form& Owner() const { return form_; }

  [[nodiscard]] bool Visible() const { return visible_; }
  /// A control that is hidden loses the keyboard.
  void Visible(bool value);
  [[nodiscard]] bool Enabled() const { return enabled_; }
  void Enabled(bool value) { Assign(enabled_, value); }
  /// Place in the window. A negative width or height is no place: RuntimeError 5.
  [[nodiscard]] const Rect& Place() const { return place_; }
  void Place(const Rect& value);
  [[nodiscard]] const std::string& ToolTip() const { return toolTip_; }
  void ToolTip(std::string_view value) { Assign(toolTip_, std::string(value)); }
  /// What a screen reader calls the control, for one that shows no caption of its own.
  [[nodiscard]] const std::string& SpokenName() const { return spokenName_; }
  void SpokenName(std::string_view value) { Assign(spokenName_, std::string(value)); }

  /// True while the keyboard belongs to the control.
  [[nodiscard]] bool Focused() const;
  /// Hands the keyboard to the control, as UserFocus does. Without effect on one that is hidden or disabled.
  void SetFocus();

  /// The user gives the keyboard to the control: an open edit elsewhere ends, the control that had the keyboard loses
  /// it first. Without effect when the control has it already, is hidden or disabled.
  void UserFocus();

  std::function<void()> OnGotFocus;
  std::function<void()> OnLostFocus;

  /// Any property has changed. Views listen.
  Signal<> Changed;

  /// Ends an edit that is open in the control as if the user had entered it. Most controls have none.
  virtual void EndPendingEdit() {}

 protected:
  /// Stores a value that differs, and tells.
  template <class Value>
  void Assign(Value& property, Value value) {
    if (property == value) return;
    property = std::move(value);
    Changed();
  }

 private:
  Form& form_;
  std::string name_;
  int index_;
  bool visible_ = true;
  bool enabled_ = true;
  Rect place_;
  std::string toolTip_;
  std::string spokenName_;
};

/// Runs a handler that may not be set.
template <class Handler, class... Args>
void Run(const Handler& handler, Args&&... args) {
  if (handler) handler(std::forward<Args>(args)...);
}

}  // namespace tavrin
