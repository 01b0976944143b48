#include "platform/qt/ButtonView.h"

#include "platform/qt/Text.h"
#include "platform/qt/ViewCommon.h"

namespace tavrin {

ButtonView::ButtonView(Button& button, QWidget* parent) : QPushButton(parent) {
  QObject::connect(this, &QPushButton::clicked, this, [&button] { button.UserClick(); });
  changed_ = button.Changed.Connect([this, &button] { Follow(button); });
  Follow(button);
}

void ButtonView::Follow(const Button& button) {
  ShowCommon(*this, button);
  setText(ToQt(button.Caption()));
  setDefault(button.Role() == ButtonRole::Default);
}

CheckBoxView::CheckBoxView(CheckBox& box, QWidget* parent) : QCheckBox(parent) {
  // The toolkit has ticked the box already: what the control says afterwards holds.
  QObject::connect(this, &QCheckBox::clicked, this, [this, &box] {
    box.UserClick();
    Follow(box);
  });
  changed_ = box.Changed.Connect([this, &box] { Follow(box); });
  Follow(box);
}

void CheckBoxView::Follow(const CheckBox& box) {
  ShowCommon(*this, box);
  setText(ToQt(box.Caption()));
  setChecked(box.Checked());
}

}  // namespace tavrin
