#pragma once

#include <QLabel>
#include <QTextEdit>

#include "platform/controls/Label.h"

namespace tavrin {

/// A label as a widget that layouts can give the height it needs. Its text can be selected by the mouse.
class TextLabel : public QLabel {
 public:
  TextLabel(Label& label, QWidget* parent);

  /// A text that is not long is broken only where the room is short.
  [[nodiscard]] QSize sizeHint() const override;

 private:
  void Follow(const Label& label);

  Connection changed_;
};

/// A label at a fixed place. A text that needs more room can be scrolled; only then it takes the keyboard. A word that
/// is longer than a line is broken.
class LabelView : public QTextEdit {
 public:
  LabelView(Label& label, QWidget* parent);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void Follow(const Label& label);
  void ShowWhetherItFits();

  Connection changed_;
};

}  // namespace tavrin
