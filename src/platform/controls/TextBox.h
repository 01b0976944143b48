#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/controls/Control.h"

namespace tavrin {

/// A field for one line of text.
class TextBox : public Control {
 public:
  using Control::Control;

  [[nodiscard]] const std::string& Text() const { return text_; }
  void Text(std::string_view value);

  /// The user types characters one by one at the end of the text, each through OnKeyPress; control characters never
  /// pass. Gives the keyboard to the field.
  void UserType(std::string_view characters);
  /// For a field with a cursor of its own: what of the typed characters passes OnKeyPress, ...
  [[nodiscard]] std::string FilterTyped(std::string_view characters) const;
  /// ... and the whole text after it. A pasted text comes this way too and passes no OnKeyPress; it loses its control
  /// characters only, which one line of text does not have.
  void UserText(std::string_view text);

  /// A character that is typed; setting it to 0 swallows it.
  std::function<void(int& key)> OnKeyPress;
  /// The text has become another one, by the user or by program.
  std::function<void()> OnChange;

 private:
  std::string text_;
};

/// One of several choices: choosing it takes the choice from the other radio buttons of its window.
class RadioButton : public Control {
 public:
  using Control::Control;

  [[nodiscard]] const std::string& Caption() const { return caption_; }
  void Caption(std::string_view value) { Assign(caption_, std::string(value)); }
  [[nodiscard]] bool Checked() const { return checked_; }
  void Checked(bool value);

  /// The user chooses it. Without effect while it is hidden or disabled.
  void UserClick();

 private:
  std::string caption_;
  bool checked_ = false;
};

}  // namespace tavrin
