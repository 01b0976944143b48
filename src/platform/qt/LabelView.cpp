#include "platform/qt/LabelView.h"

#include <QScrollBar>

#include "platform/qt/Text.h"
#include "platform/qt/ViewCommon.h"

namespace tavrin {

TextLabel::TextLabel(Label& label, QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setWordWrap(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse);
  setFocusPolicy(Qt::NoFocus);
  setAlignment(Qt::AlignLeft | Qt::AlignTop);
  changed_ = label.Changed.Connect([this, &label] { Follow(label); });
  Follow(label);
}

QSize TextLabel::sizeHint() const {
  constexpr int kLongLine = 50;  // characters
  const QSize whole = fontMetrics().size(0, text());
  if (whole.width() > kLongLine * fontMetrics().averageCharWidth()) return QLabel::sizeHint();
  const QMargins margins = contentsMargins();
  return whole.grownBy(margins) + QSize(1, 0);
}

void TextLabel::Follow(const Label& label) {
  ShowCommon(*this, label);
  setText(ToQt(label.Caption()));
}

LabelView::LabelView(Label& label, QWidget* parent) : QTextEdit(parent) {
  setReadOnly(true);
  setAcceptRichText(false);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFrameShape(QFrame::NoFrame);
  document()->setDocumentMargin(1);
  viewport()->setAutoFillBackground(false);
  changed_ = label.Changed.Connect([this, &label] { Follow(label); });
  Follow(label);
}

void LabelView::Follow(const Label& label) {
  ShowCommon(*this, label);
  const QString text = ToQt(label.Caption());
  if (toPlainText() == text) return;
  setPlainText(text);
  verticalScrollBar()->setValue(0);
  ShowWhetherItFits();
}

void LabelView::resizeEvent(QResizeEvent* event) {
  QTextEdit::resizeEvent(event);
  ShowWhetherItFits();
}

void LabelView::focusInEvent(QFocusEvent* event) {
  QTextEdit::focusInEvent(event);
  setFrameShape(QFrame::Box);
}

void LabelView::focusOutEvent(QFocusEvent* event) {
  QTextEdit::focusOutEvent(event);
  setFrameShape(QFrame::NoFrame);
}

void LabelView::ShowWhetherItFits() {
  const bool fits = document()->size().height() <= viewport()->height();
  setFocusPolicy(fits ? Qt::NoFocus : Qt::StrongFocus);
  setVerticalScrollBarPolicy(fits ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
}

}  // namespace tavrin
