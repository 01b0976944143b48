#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/controls/Control.h"

namespace tavrin {

/// Which key of the keyboard stands for a button of a dialog.
enum class ButtonRole { Plain, Default, Cancel };

/// A push button. In a caption "&" stands before the letter that presses it.
class Button : public Control {
 public:
  using Control::Control;

  [[nodiscard]] const std::string& Caption() const { return caption_; }
  void Caption(std::string_view value) { Assign(caption_, std::string(value)); }
  /// Enter presses the default button, Escape the cancel button.
  [[nodiscard]] ButtonRole Role() const { return role_; }
  void Role(ButtonRole value) { Assign(role_, value); }

  /// The user presses the button. Ends an open edit first. Without effect while it is hidden or disabled.
  void UserClick();

  std::function<void()> OnClick;

 private:
  std::string caption_;
  ButtonRole role_ = ButtonRole::Plain;
};

/// A box that is ticked or not.
class CheckBox : public Control {
 public:
  using Control::Control;

  [[nodiscard]] const std::string& Caption() const { return caption_; }
  void Caption(std::string_view value) { Assign(caption_, std::string(value)); }
  [[nodiscard]] bool Checked() const { return checked_; }
  void Checked(bool value) { Assign(checked_, value); }

  /// The user ticks the box or takes the tick away. Without effect while it is hidden or disabled.
  void UserClick();

  std::function<void()> OnClick;

 private:
  std::string caption_;
  bool checked_ = false;
};

}  // namespace tavrin
