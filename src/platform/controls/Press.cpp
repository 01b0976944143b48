// The gestures of the controls that are pressed: buttons, boxes, pictures.
#include "platform/controls/Button.h"
#include "platform/controls/Form.h"
#include "platform/controls/Picture.h"
#include "platform/controls/Toolbar.h"

namespace tavrin {

namespace {

bool InUse(const Control& control) { return control.Visible() && control.Enabled(); }

/// Ends open edits, whose rules may hide or disable the very control that is pressed.
bool TakesPress(const Control& control) {
  if (!InUse(control)) return false;
  control.Owner().EndPendingEdits();
  return InUse(control);
}

}  // namespace

void ToolButton::UserClick() {
  if (TakesPress(*this)) Run(OnClick);
}

void Button::UserClick() {
  if (TakesPress(*this)) Run(OnClick);
}

void CheckBox::UserClick() {
  if (!TakesPress(*this)) return;
  Checked(!Checked());
  Run(OnClick);
}

void Picture::UserPress(float x, float y) {
  Owner().EndPendingEdits();
  Run(OnMouseDown, x, y);
}

}  // namespace tavrin
