#include "platform/qt/ListBoxView.h"

#include <QScrollBar>

#include "platform/qt/Text.h"
#include "platform/qt/ViewCommon.h"

namespace tavrin {

ListBoxView::ListBoxView(ListBox& box, QWidget* parent) : QPlainTextEdit(parent), box_(box) {
  setReadOnly(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setTabChangesFocus(true);
  setUndoRedoEnabled(false);
  changed_ = box.Changed.Connect([this] { Follow(); });
  Follow();
}

void ListBoxView::Follow() {
  ShowCommon(*this, box_);
  const auto& lines = box_.Lines();
  if (lines.size() == shown_) return;
  if (lines.size() < shown_) {
    clear();
    shown_ = 0;
  }
  const QTextCursor marked = textCursor();
  const int anchor = marked.anchor();
  const int position = marked.position();
  while (shown_ < lines.size()) {
    Append(ToQt(lines[shown_]));
    ++shown_;
  }
  Mark(anchor, position);
  ShowEnd();
}

void ListBoxView::Append(const QString& line) {
  // To the toolkit a text of one empty line is no text, and what is appended would take that line's place.
  if (shown_ > 0 && document()->isEmpty()) {
    setPlainText(QStringLiteral("\n") + line);
  } else {
    appendPlainText(line);
  }
}

// What is marked up to the end would grow with the lines that come.
void ListBoxView::Mark(int anchor, int position) {
  QTextCursor cursor = textCursor();
  cursor.setPosition(anchor);
  cursor.setPosition(position, QTextCursor::KeepAnchor);
  setTextCursor(cursor);
}

void ListBoxView::ShowEnd() { verticalScrollBar()->setValue(verticalScrollBar()->maximum()); }

void ListBoxView::showEvent(QShowEvent* event) {
  QPlainTextEdit::showEvent(event);
  ShowEnd();
}

}  // namespace tavrin
