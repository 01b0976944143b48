#include "platform/qt/InPlaceEditor.h"

#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QShortcut>
#include <algorithm>
#include <utility>

#include "platform/qt/Text.h"

namespace tavrin {
namespace {

/// What a change by the user took out of a text and put in, both at `start`.
struct TextChange {
  qsizetype start = 0;
  QString removed;
  QString inserted;
};

TextChange ChangeBetween(const QString& before, const QString& after) {
  const qsizetype shorter = std::min(before.size(), after.size());
  qsizetype start = 0;
  while (start < shorter && before[start] == after[start]) ++start;
  qsizetype end = 0;
  while (end < shorter - start && before[before.size() - 1 - end] == after[after.size() - 1 - end]) ++end;
  return {start, before.mid(start, before.size() - end - start), after.mid(start, after.size() - end - start)};
}

/// Through the field's own editing, so that Undo stays.
void Replace(QLineEdit& line, const TextChange& change, const QString& by) {
  line.setSelection(static_cast<int>(change.start), static_cast<int>(change.inserted.size()));
  line.insert(by);
}

/// True for the keys of a command of the window. The field would keep some of them to itself, as keys of its own
/// editing: which ones differs from system to system.
bool IsShortcutOf(const QWidget& window, const QKeyEvent& key) {
  const QKeySequence keys(key.keyCombination());
  const auto shortcuts = window.findChildren<QShortcut*>();
  return std::any_of(shortcuts.begin(), shortcuts.end(),
                     [&](const QShortcut* shortcut) { return shortcut->isEnabled() && shortcut->key() == keys; });
}

}  // namespace

bool IsVisit(Qt::FocusReason reason) {
  return reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason || reason == Qt::MenuBarFocusReason;
}

InPlaceEditor::InPlaceEditor(QWidget& view, QWidget& area, Rules rules)
    : view_(view), area_(area), rules_(std::move(rules)) {}

void InPlaceEditor::Open(const QString& text, const QStringList& choices, bool selectAll) {
  Close();
  MakeLine();
  if (!choices.isEmpty()) MakeList(choices, text);
  field_->setFont(view_.font());
  field_->setAccessibleName(view_.accessibleName());
  field_->installEventFilter(this);
  Show(text);
  if (selectAll) line_->selectAll();
  field_->show();
  TakeKeyboard();
}

void InPlaceEditor::MakeLine() {
  line_ = new QLineEdit(&area_);
  line_->setFrame(false);
  field_ = line_;
  connect(line_, &QLineEdit::textEdited, this, [this](const QString& text) { Typed(text); });
}

void InPlaceEditor::MakeList(const QStringList& choices, const QString& text) {
  auto* const list = new QComboBox(&area_);
  list->setEditable(true);
  list->setLineEdit(line_);
  list->setCompleter(nullptr);
  list->setInsertPolicy(QComboBox::NoInsert);
  list->setFrame(false);
  list->addItems(choices);
  list->setCurrentIndex(list->findText(text));
  connect(list, &QComboBox::textActivated, this, [this](const QString& choice) { Choose(choice); });
  field_ = list;
}

void InPlaceEditor::Show(const QString& text) {
  told_ = text;
  if (!line_ || line_->text() == text) return;
  const bool before = std::exchange(changing_, true);
  line_->setText(text);
  changing_ = before;
}

void InPlaceEditor::Place(const QRect& place) {
  if (!field_) return;
  field_->setGeometry(place);
}

void InPlaceEditor::TakeKeyboard() {
  if (field_) field_->setFocus(Qt::OtherFocusReason);
}

void InPlaceEditor::Close() {
  if (!field_) return;
  QWidget* const field = std::exchange(field_, nullptr);
  line_ = nullptr;
  field->removeEventFilter(this);
  const QWidget* const keyboard = view_.window()->focusWidget();
  if (keyboard != nullptr && (keyboard == field || field->isAncestorOf(keyboard))) {
    view_.setFocus(Qt::OtherFocusReason);  // else hiding the field hands it to the next widget of the window
  }
  field->hide();
  field->deleteLater();  // it may be in the middle of a key
}

bool InPlaceEditor::IsLeft(Qt::FocusReason reason) const {
  // An open list takes the keyboard without saying so, and the view gives it back by itself.
  const bool stays = QApplication::activePopupWidget() != nullptr || QApplication::focusWidget() == &view_;
  return !IsVisit(reason) && !stays;
}

bool InPlaceEditor::eventFilter(QObject* watched, QEvent* event) {
  if (watched != field_) return false;
  switch (event->type()) {
    case QEvent::ShortcutOverride:
      if (!IsShortcutOf(*view_.window(), static_cast<QKeyEvent&>(*event))) return false;
      event->ignore();
      return true;
    case QEvent::KeyPress: return rules_.key(static_cast<QKeyEvent&>(*event));
    case QEvent::FocusOut:
      if (IsLeft(static_cast<QFocusEvent*>(event)->reason())) rules_.left();
      return false;
    case QEvent::Wheel:
      event->ignore();  // the wheel scrolls the view and never changes the choice
      return qobject_cast<QComboBox*>(watched) != nullptr;
    default: return false;
  }
}

void InPlaceEditor::Choose(const QString& choice) {
  told_ = choice;
  if (const auto text = FromQt(choice)) rules_.changed(*text);
}

void InPlaceEditor::Typed(const QString& text) {
  if (changing_) return;
  changing_ = true;
  const TextChange change = ChangeBetween(told_, text);
  const QPointer<QLineEdit> line = line_;
  const bool adds = !change.inserted.isEmpty();
  const QString taken = adds ? ToQt(rules_.filter(KnownCharacters(change.inserted))) : QString();
  if (line && line == line_) {
    // A key that is refused must not delete what was selected.
    const bool refused = adds && taken.isEmpty();
    if (taken != change.inserted) Replace(*line, change, refused ? change.removed : taken);
    told_ = line->text();
    if (const auto whole = FromQt(told_); !refused && whole) rules_.changed(*whole);
  }
  changing_ = false;
}

}  // namespace tavrin
