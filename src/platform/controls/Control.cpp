#include "platform/controls/Control.h"

#include "platform/RuntimeError.h"
#include "platform/controls/Form.h"

namespace tavrin {

Control::Control(Form& form, std::string name, int index) : form_(form), name_(std::move(name)), index_(index) {
  form_.Register(*this);
}

Control::~Control() { form_.Forget(*this); }

void Control::Visible(bool value) {
  Assign(visible_, value);
  if (!value && Focused()) form_.LoseFocus();
}

void Control::Place(const Rect& value) {
  if (value.width < 0 || value.height < 0) throw RuntimeError(ErrorNumber::InvalidCall);
  Assign(place_, value);
}

bool Control::Focused() const { return form_.FocusedControl() == this; }

void Control::SetFocus() {
  if (Focused() || !visible_ || !enabled_) return;
  UserFocus();
  form_.FocusChanged();
}

void Control::UserFocus() {
  if (Focused() || !visible_ || !enabled_) return;
  form_.Focus(*this);
}

}  // namespace tavrin
