#include "platform/qt/ItemDelegate.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

namespace tavrin {
namespace {

/// Percents of the first colour in a mixture.
constexpr int kFaint = 35;
constexpr int kWhole = 100;
/// Pixels of the ring with the keyboard in the view, and without.
constexpr int kStrong = 2;
constexpr int kThin = 1;

QColor Mixed(const QColor& first, const QColor& second, int percent) {
  const auto part = [percent](int one, int other) { return (one * percent + other * (kWhole - percent)) / kWhole; };
  return {part(first.red(), second.red()), part(first.green(), second.green()), part(first.blue(), second.blue())};
}

/// As markup, since a plain text is never broken into lines and one with angle brackets would be taken as markup.
QString AsToolTip(const QString& text) {
  return QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(text.toHtmlEscaped());
}

}  // namespace

ItemDelegate::ItemDelegate(QAbstractItemView& view) : QStyledItemDelegate(&view), view_(view) {}

QRect ItemDelegate::InsideOfRing(const QRect& item) {
  return item.isEmpty() ? QRect() : item.adjusted(kStrong, kStrong, -kStrong, -kStrong);
}

bool ItemDelegate::HasKeyboard() const {
  const QWidget* const keyboard = QApplication::focusWidget();
  return keyboard != nullptr && (keyboard == &view_ || view_.isAncestorOf(keyboard));
}

void ItemDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  option->state &= ~QStyle::State_HasFocus;  // the ring stands for it
  option->showDecorationSelected = true;
  option->palette = view_.palette();
  QPalette& palette = option->palette;
  if (!index.flags().testFlag(Qt::ItemIsSelectable)) {
    option->state &= ~QStyle::State_Selected;
    option->backgroundBrush = palette.button();
    palette.setColor(QPalette::Text, palette.color(QPalette::ButtonText));
  } else if (!HasKeyboard()) {
    palette.setColor(QPalette::Highlight,
                     Mixed(palette.color(QPalette::Highlight), palette.color(QPalette::Base), kFaint));
    palette.setColor(QPalette::HighlightedText, palette.color(QPalette::Text));
  }
}

void ItemDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QStyledItemDelegate::paint(painter, option, index);
  if (index != view_.currentIndex()) return;
  const int strength = HasKeyboard() ? kStrong : kThin;
  painter->save();
  painter->setBrush(Qt::NoBrush);
  QPen pen(option.palette.color(QPalette::Text), strength);
  pen.setJoinStyle(Qt::MiterJoin);
  painter->setPen(pen);
  const int inner = strength / 2;
  painter->drawRect(option.rect.adjusted(inner, inner, -1, -1));
  painter->restore();
}

bool ItemDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                             const QModelIndex& index) {
  if (event->type() != QEvent::ToolTip || !index.isValid()) {
    return QStyledItemDelegate::helpEvent(event, view, option, index);
  }
  const QRect seen = option.rect & view->viewport()->rect();
  if (sizeHint(option, index).width() <= seen.width()) return false;
  QToolTip::showText(event->globalPos(), AsToolTip(index.data().toString()), view, option.rect);
  return true;
}

QString ItemDelegate::displayText(const QVariant& value, const QLocale& locale) const {
  QString text = QStyledItemDelegate::displayText(value, locale);
  std::replace_if(
      text.begin(), text.end(), [](QChar c) { return c < QChar(u' ') || c == QChar::LineSeparator; }, u' ');
  return text;
}

}  // namespace tavrin
