#pragma once

#include <QPlainTextEdit>

#include "platform/controls/ListBox.h"

namespace tavrin {

/// Draws a list of lines as one text, so that any part of it can be marked and copied. A long line is broken, and the
/// last line is in sight whenever one comes.
class ListBoxView : public QPlainTextEdit {
 public:
  /// @param box outlives the view
  ListBoxView(ListBox& box, QWidget* parent);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void Follow();
  void Append(const QString& line);
  void Mark(int anchor, int position);
  void ShowEnd();

  ListBox& box_;
  std::size_t shown_ = 0;
  Connection changed_;
};

}  // namespace tavrin
