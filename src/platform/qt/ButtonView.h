#pragma once

#include <QCheckBox>
#include <QPushButton>

#include "platform/controls/Button.h"

namespace tavrin {

/// Draws a push button.
class ButtonView : public QPushButton {
 public:
  ButtonView(Button& button, QWidget* parent);

 private:
  void Follow(const Button& button);

  Connection changed_;
};

/// Draws a check box.
class CheckBoxView : public QCheckBox {
 public:
  CheckBoxView(CheckBox& box, QWidget* parent);

 private:
  void Follow(const CheckBox& box);

  Connection changed_;
};

}  // namespace tavrin
