#pragma once

#include <string>
#include <string_view>

#include "platform/controls/ControlArray.h"

namespace tavrin {

/// A button of a tool bar: a picture, whose words are its tool tip. It never takes the keyboard from the window, as
/// its commands stand in the menus too.
class ToolButton : public Control {
 public:
  using Control::Control;

  /// Key of the picture.
  [[nodiscard]] const std::string& Image() const { return image_; }
  void Image(std::string_view value) { Assign(image_, std::string(value)); }
  /// A number that the program ties to the button.
  [[nodiscard]] int Tag() const { return tag_; }
  void Tag(int value) { Assign(tag_, value); }

  /// The user presses the button. Ends an open edit first. Without effect while it is hidden or disabled.
  void UserClick();

  std::function<void()> OnClick;

 private:
  std::string image_;
  int tag_ = 0;
};

/// A row of tool buttons, numbered from 1; a number without a button is a gap between groups.
class Toolbar : public Control {
 public:
  Toolbar(Form& form, const std::string& name) : Control(form, name), Buttons(form, name) {}

  ControlArray<ToolButton> Buttons;
};

}  // namespace tavrin
