#pragma once

#include <QStyledItemDelegate>

class QAbstractItemView;

namespace tavrin {

/// Draws the items of a view. The current item has a ring, strong while the keyboard is in the view and thin while it
/// is not, so that it never depends on the colours of a selection alone. Items that cannot be selected look like
/// labels. A text that does not fit is shown in full as a tool tip.
class ItemDelegate : public QStyledItemDelegate {
 public:
  explicit ItemDelegate(QAbstractItemView& view);

  /// What the ring of the current item leaves for an editor.
  [[nodiscard]] static QRect InsideOfRing(const QRect& item);

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;
  /// On one line.
  [[nodiscard]] QString displayText(const QVariant& value, const QLocale& locale) const override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 private:
  [[nodiscard]] bool HasKeyboard() const;

  QAbstractItemView& view_;
};

}  // namespace tavrin
