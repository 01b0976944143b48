#include "platform/controls/TextBox.h"

#include "platform/controls/Form.h"
#include "platform/controls/Typed.h"

namespace tavrin {

void TextBox::Text(std::string_view value) {
  if (text_ == value) return;
  text_ = value;
  Changed();
  Run(OnChange);
}

void TextBox::UserType(std::string_view characters) {
  if (!Visible() || !Enabled()) return;
  UserFocus();
  UserText(text_ + FilterTyped(characters));
}

std::string TextBox::FilterTyped(std::string_view characters) const {
  std::string passed;
  for (const char character : WithoutControlCharacters(characters)) {
    int key = static_cast<unsigned char>(character);
    Run(OnKeyPress, key);
    if (const auto taken = static_cast<char>(static_cast<unsigned char>(key)); CanBeTyped(taken)) passed += taken;
  }
  return passed;
}

void TextBox::UserText(std::string_view text) {
  if (!Visible() || !Enabled()) return;
  const std::string taken = WithoutControlCharacters(text);
  if (taken == text_ && taken != text) {
    Changed();  // the view shows what was not taken
  } else {
    Text(taken);
  }
}

void RadioButton::Checked(bool value) {
  if (value) {
    for (Control* const other : Owner().Controls()) {
      auto* const radio = dynamic_cast<RadioButton*>(other);
      if (radio != nullptr && radio != this) radio->Checked(false);
    }
  }
  Assign(checked_, value);
}

void RadioButton::UserClick() {
  if (!Visible() || !Enabled()) return;
  Owner().EndPendingEdits();
  if (Visible() && Enabled()) Checked(true);
}

}  // namespace tavrin
