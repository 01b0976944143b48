#include "platform/qt/DialogView.h"

#include <QAbstractScrollArea>
#include <QCloseEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <algorithm>

#include "platform/controls/Button.h"
#include "platform/controls/Picture.h"
#include "platform/controls/TextBox.h"
#include "platform/qt/Text.h"
#include "platform/qt/ViewCommon.h"

namespace tavrin {

namespace {

constexpr float kGapAboveButtons = 150;  // twips

/// What a user would like to see more of.
bool IsLarge(const QWidget* view) { return qobject_cast<const QAbstractScrollArea*>(view) != nullptr; }

bool IsButton(const Control* control) { return dynamic_cast<const Button*>(control) != nullptr; }

Button* CancelButton(const Form& form) {
  for (Control* control : form.Controls()) {
    auto* const button = dynamic_cast<Button*>(control);
    if (button != nullptr && button->Role() == ButtonRole::Cancel) return button;
  }
  return nullptr;
}

}  // namespace

DialogView::DialogView(Form& form, QWidget* parent)
    : QDialog(parent), form_(form), views_(form, *this, ControlViews::Places::OfLayouts) {
  auto* const grid = new QGridLayout(this);
  grid->setSizeConstraint(QLayout::SetMinimumSize);
  std::size_t columns = 1;
  for (const auto& row : form.Arrangement()) columns = std::max(columns, row.size());
  for (const auto& row : form.Arrangement()) AddRow(*grid, row, static_cast<int>(columns));
  changed_ = form.Changed.Connect([this] { Follow(); });
  Follow();
  views_.ShowFocus();
}

void DialogView::TakeRoom(QGridLayout& grid, int row, int column) {
  grid.setRowStretch(row, 1);
  grid.setColumnStretch(column, 1);
  setSizeGripEnabled(true);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
}

void DialogView::AddRow(QGridLayout& grid, const std::vector<Control*>& controls, int columns) {
  const int row = grid.rowCount();
  if (std::all_of(controls.begin(), controls.end(), IsButton)) {
    auto* const buttons = new QHBoxLayout;
    buttons->setContentsMargins(0, ToPixels(*this, kGapAboveButtons), 0, 0);
    buttons->addStretch();
    for (const Control* control : controls) buttons->addWidget(views_.WidgetOf(*control));
    grid.addLayout(buttons, row, 0, 1, columns);
    return;
  }
  const int span = controls.size() == 1 ? columns : 1;
  int column = 0;
  QLabel* before = nullptr;
  for (const Control* control : controls) {
    QWidget* const view = control == nullptr ? nullptr : views_.WidgetOf(*control);
    // A screen reader ties the two together.
    if (before != nullptr && dynamic_cast<const TextBox*>(control) != nullptr) before->setBuddy(view);
    auto* const label = before = qobject_cast<QLabel*>(view);
    if (label != nullptr && span == 1) {
      label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);  // in line with the field beside it
    }
    const bool own = IsButton(control) || dynamic_cast<const Picture*>(control) != nullptr;  // has a size of its own
    const Qt::Alignment alignment = own ? Qt::AlignLeft | Qt::AlignVCenter : Qt::Alignment();
    if (view != nullptr) grid.addWidget(view, row, column, 1, span, alignment);
    if (IsLarge(view)) TakeRoom(grid, row, column + span - 1);
    ++column;
  }
}

void DialogView::Follow() {
  setWindowTitle(ToQt(form_.Caption()));
  ShowSize();
  if (!form_.Visible() && isVisible()) hide();
}

QSize DialogView::WantedSize() const {
  return {ToPixels(*this, form_.Place().width), ToPixels(*this, form_.Place().height)};
}

void DialogView::ShowSize() {
  const QSize wanted = WantedSize();
  if (wanted.isEmpty() || wanted == size() || StateOf(windowState()) != WindowState::Normal) return;
  resize(wanted.boundedTo(screen()->availableSize()));
}

void DialogView::TellSize() {
  if (!isVisible() || size() == WantedSize()) return;
  Rect place = form_.Place();
  place.width = ToTwips(*this, width());
  place.height = ToTwips(*this, height());
  form_.UserPlace(place);
}

void DialogView::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  TellSize();
}

void DialogView::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  TellSize();
}

void DialogView::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange) form_.UserState(StateOf(windowState()));
}

void DialogView::reject() {
  if (Button* const cancel = CancelButton(form_)) {
    cancel->UserClick();
  } else {
    form_.UserClose();
  }
}

void DialogView::closeEvent(QCloseEvent* event) {
  event->ignore();
  form_.UserClose();
}

}  // namespace tavrin
