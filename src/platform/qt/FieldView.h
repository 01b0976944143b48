#pragma once

#include <QLineEdit>
#include <QRadioButton>

#include "platform/controls/TextBox.h"

namespace tavrin {

/// Draws a field for one line of text.
class TextBoxView : public QLineEdit {
 public:
  TextBoxView(TextBox& box, QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;

 private:
  void Follow();
  /// What of typed characters may come in.
  [[nodiscard]] QString Filtered(const QString& typed) const;
  /// @param entered the whole text after a change by the user
  void Tell(const QString& entered);

  TextBox& box_;
  Connection changed_;
};

/// Draws a radio button. Tab reaches one of a window's radio buttons, the arrow keys the others.
class RadioButtonView : public QRadioButton {
 public:
  RadioButtonView(RadioButton& button, QWidget* parent);

 protected:
  /// Nothing: which button is chosen is the control's word alone.
  void nextCheckState() override {}

 private:
  void Follow(const RadioButton& button);

  Connection changed_;
};

}  // namespace tavrin
