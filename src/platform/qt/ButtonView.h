#pragma once

#include <QCheckBox>
#include <QPushButton>

#include "platform/controls/Button.h"

namespace tavrin {

/// Draws a push button. Enter presses the one that has the keyboard, and from anywhere else the default button of the
/// window; without one it presses none.
class ButtonView : public QPushButton {
 public:
  ButtonView(Button& button, QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

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
