#include "platform/qt/MenuView.h"

#include <QAction>
#include <QKeySequence>
#include <algorithm>

#include "platform/qt/Text.h"

namespace tavrin {

namespace {

/// The toolkit takes a single "&" for the mark of a letter.
QString CaptionOf(const MenuEntry& entry) {
  QString caption = ToQt(entry.Caption());
  return entry.Literal() ? caption.replace(QLatin1Char('&'), QStringLiteral("&&")) : caption;
}

/// The keys stand behind a tab and are not those of the action: a key has to bring the menus up to date first, and an
/// action that is disabled until then would swallow it.
QString WithShortcut(const MenuEntry& entry) {
  QString text = CaptionOf(entry);
  if (entry.Shortcut().empty()) return text;
  const QKeySequence keys = QKeySequence::fromString(ToQt(entry.Shortcut()), QKeySequence::PortableText);
  return text + QLatin1Char('\t') + keys.toString(QKeySequence::NativeText);
}

}  // namespace

MenuView::MenuView(MenuEntry& entry, QtWords& words, QWidget* parent) : QMenu(parent), entry_(entry), words_(words) {
  QObject::connect(this, &QMenu::aboutToShow, this, [this] { Open(); });
  changed_ = entry.Changed.Connect([this] { Follow(); });
  Rebuild();
  Follow();
}

QAction* MenuView::ActionOf(const MenuEntry& entry) const {
  for (const Row& row : rows_) {
    if (row.entry == &entry) return row.action;
    QAction* const below = row.submenu == nullptr ? nullptr : row.submenu->ActionOf(entry);
    if (below != nullptr) return below;
  }
  return nullptr;
}

void MenuView::Open() {
  entry_.UserOpen();
  words_.Match();
  for (const Row& row : rows_) ShowRow(row);
}

void MenuView::Follow() {
  setTitle(CaptionOf(entry_));
  menuAction()->setVisible(entry_.Visible());
  menuAction()->setEnabled(entry_.Enabled());
  if (!HasShapeOfEntry()) Rebuild();
}

bool MenuView::HasShapeOfEntry() const {
  const auto& entries = entry_.Entries();
  return std::equal(rows_.begin(), rows_.end(), entries.begin(), entries.end(),
                    [](const Row& row, const MenuEntry* entry) { return row.entry == entry; });
}

void MenuView::Rebuild() {
  for (const Row& row : rows_) {
    removeAction(row.action);
    if (row.submenu != nullptr) {
      row.submenu->deleteLater();
    } else {
      row.action->deleteLater();
    }
  }
  rows_.clear();
  for (MenuEntry* entry : entry_.Entries()) AddRow(*entry);
}

void MenuView::AddRow(MenuEntry& entry) {
  Row row{&entry, nullptr, nullptr, nullptr};
  if (entry.Entries().empty()) {
    row.action = addAction(QString());
    QObject::connect(row.action, &QAction::triggered, this, [&entry, action = row.action] {
      entry.UserClick();
      // The toolkit has moved the check mark by itself.
      action->setChecked(entry.Checked());
    });
  } else {
    row.submenu = new MenuView(entry, words_, this);
    row.action = addMenu(row.submenu);
  }
  row.changed = entry.Changed.Connect([this, &entry] {
    const auto known = std::find_if(rows_.begin(), rows_.end(), [&](const Row& each) { return each.entry == &entry; });
    if (known == rows_.end()) return;
    if ((known->submenu == nullptr) != entry.Entries().empty()) return Rebuild();
    ShowRow(*known);
  });
  rows_.push_back(row);
  ShowRow(row);
}

void MenuView::ShowRow(const Row& row) {
  if (row.submenu != nullptr) return;  // shows itself
  words_.Match();
  const MenuEntry& entry = *row.entry;
  row.action->setSeparator(entry.IsSeparator());
  row.action->setText(entry.IsSeparator() ? QString() : WithShortcut(entry));
  row.action->setVisible(entry.Visible());
  row.action->setEnabled(entry.Enabled());
  row.action->setCheckable(entry.Checked());
  row.action->setChecked(entry.Checked());
}

}  // namespace tavrin
