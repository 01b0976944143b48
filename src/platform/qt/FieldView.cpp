#include "platform/qt/FieldView.h"

#include <QInputMethodEvent>
#include <QKeyEvent>

#include "platform/controls/Typed.h"
#include "platform/qt/Text.h"
#include "platform/qt/ViewCommon.h"

namespace tavrin {

TextBoxView::TextBoxView(TextBox& box, QWidget* parent) : QLineEdit(parent), box_(box) {
  QObject::connect(this, &QLineEdit::textEdited, this, [this](const QString& text) { Tell(text); });
  changed_ = box.Changed.Connect([this] { Follow(); });
  Follow();
}

void TextBoxView::keyPressEvent(QKeyEvent* event) {
  const QString text = event->text();
  // The line puts in what any other modifiers come with.
  const bool command = (event->modifiers() & ~Qt::KeyboardModifiers(Qt::ShiftModifier)) == Qt::ControlModifier;
  if (command || text.isEmpty() || !text[0].isPrint()) return QLineEdit::keyPressEvent(event);
  const QString taken = Filtered(text);
  if (taken == text) return QLineEdit::keyPressEvent(event);
  if (!taken.isEmpty()) insert(taken);
}

void TextBoxView::inputMethodEvent(QInputMethodEvent* event) {
  QInputMethodEvent filtered(event->preeditString(), event->attributes());
  filtered.setCommitString(Filtered(event->commitString()), event->replacementStart(), event->replacementLength());
  QLineEdit::inputMethodEvent(&filtered);
  event->accept();
}

QString TextBoxView::Filtered(const QString& typed) const { return ToQt(box_.FilterTyped(KnownCharacters(typed))); }

void TextBoxView::Tell(const QString& entered) {
  const std::size_t cursor = WithoutControlCharacters(KnownCharacters(entered.left(cursorPosition()))).size();
  box_.UserText(KnownCharacters(entered));
  Follow();
  if (text() != entered) setCursorPosition(static_cast<int>(cursor));
}

void TextBoxView::Follow() {
  ShowCommon(*this, box_);
  const QString wanted = ToQt(box_.Text());
  if (text() != wanted) setText(wanted);
}

RadioButtonView::RadioButtonView(RadioButton& button, QWidget* parent) : QRadioButton(parent) {
  QObject::connect(this, &QRadioButton::clicked, this, [&button] { button.UserClick(); });
  changed_ = button.Changed.Connect([this, &button] { Follow(button); });
  Follow(button);
}

void RadioButtonView::Follow(const RadioButton& button) {
  ShowCommon(*this, button);
  setText(ToQt(button.Caption()));
  setAutoExclusive(false);  // the toolkit lets nobody take the choice away
  setChecked(button.Checked());
  setAutoExclusive(true);
}

}  // namespace tavrin
