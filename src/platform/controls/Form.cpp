#include "platform/controls/Form.h"

#include <algorithm>
#include <utility>

namespace tavrin {

Form::Form(std::string name) : name_(std::move(name)) {}

Form::~Form() = default;

void Form::Caption(std::string_view value) {
  if (caption_ == value) return;
  caption_ = value;
  Changed();
}

void Form::Place(const Rect& value) {
  if (place_ == value) return;
  const bool resized = place_.width != value.width || place_.height != value.height;
  place_ = value;
  Changed();
  if (visible_ && resized) Run(OnResize);
}

void Form::MinimumSize(float width, float height) {
  if (minimumWidth_ == width && minimumHeight_ == height) return;
  minimumWidth_ = width;
  minimumHeight_ = height;
  Changed();
}

void Form::Show() {
  if (visible_) return;
  visible_ = true;
  Changed();
  Run(OnResize);
}

void Form::Hide() {
  if (!visible_) return;
  visible_ = false;
  Changed();
}

Control* Form::Find(std::string_view name, int index) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(), [&](const Control* control) {
    return control->Name() == name && control->Index() == index;
  });
  return found == controls_.end() ? nullptr : *found;
}

void Form::EndPendingEdits() {
  // A handler may make or remove controls.
  for (std::size_t i = 0; i < controls_.size(); ++i) controls_[i]->EndPendingEdit();
}

void Form::UserPlace(const Rect& place) { Place(place); }

void Form::UserState(WindowState state) {
  if (state_ == state) return;
  state_ = state;
  Changed();
}

void Form::UserClose() {
  EndPendingEdits();
  bool cancel = false;
  Run(OnUnload, cancel);
  if (!cancel) Hide();
}

void Form::UserDropFile(std::string_view path) {
  EndPendingEdits();
  Run(OnDropFile, std::string(path));
}

void Form::Register(Control& control) {
  controls_.push_back(&control);
  Changed();
}

void Form::Forget(Control& control) {
  std::erase(controls_, &control);
  if (focused_ == &control) focused_ = nullptr;
  Changed();
}

void Form::Focus(Control& control) {
  EndPendingEdits();
  if (!control.Visible() || !control.Enabled() || focused_ == &control) return;
  if (Control* const before = std::exchange(focused_, &control)) Run(before->OnLostFocus);
  if (focused_ == &control) Run(control.OnGotFocus);
}

void Form::LoseFocus() {
  if (Control* const before = std::exchange(focused_, nullptr)) Run(before->OnLostFocus);
}

}  // namespace tavrin
