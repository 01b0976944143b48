// The gestures of the controls that are pressed: buttons, boxes, pictures.
#include "platform/controls/Button.h"
#include "platform/controls/Form.h"
#include "platform/controls/Picture.h"
#include "platform/controls/Toolbar.h"

namespace tavrin {

void ToolButton::UserClick() {
  if (!Visible() || !Enabled()) return;
  Owner().EndPendingEdits();
  Run(OnClick);
}

void Button::UserClick() {
  if (!Visible() || !Enabled()) return;
  Owner().EndPendingEdits();
  Run(OnClick);
}

void CheckBox::UserClick() {
  if (!Visible() || !Enabled()) return;
  Owner().EndPendingEdits();
  Checked(!Checked());
  Run(OnClick);
}

void Picture::UserPress(float x, float y) {
  Owner().EndPendingEdits();
  Run(OnMouseDown, x, y);
}

}  // namespace tavrin
