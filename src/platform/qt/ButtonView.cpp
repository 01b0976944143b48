#include "platform/qt/ButtonView.h"

#include <QKeyEvent>
#include <algorithm>

#include "platform/controls/Form.h"
#include "platform/qt/Text.h"
#include "platform/qt/ViewCommon.h"

namespace tavrin {

namespace {

bool HasDefaultButton(const Form& form) {
  return std::any_of(form.Controls().begin(), form.Controls().end(), [](const Control* control) {
    const auto* const button = dynamic_cast<const Button*>(control);
    return button != nullptr && button->Role() == ButtonRole::Default;
  });
}

}  // namespace

ButtonView::ButtonView(Button& button, QWidget* parent) : QPushButton(parent) {
  QObject::connect(this, &QPushButton::clicked, this, [&button] { button.UserClick(); });
  changed_ = button.Changed.Connect([this, &button] { Follow(button); });
  Follow(button);
}

void ButtonView::Follow(const Button& button) {
  ShowCommon(*this, button);
  setText(ToQt(button.Caption()));
  setDefault(button.Role() == ButtonRole::Default);
  // In a window without a default button the toolkit would take the first one for it.
  setAutoDefault(HasDefaultButton(button.Owner()));
}

void ButtonView::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && !autoDefault()) return click();
  QPushButton::keyPressEvent(event);
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
