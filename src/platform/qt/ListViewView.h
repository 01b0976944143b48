#pragma once

#include <QTreeView>

#include "platform/controls/ListView.h"
#include "platform/qt/ListViewModel.h"

namespace tavrin {

/// A list of rows with boxes on the screen. It shows what the list holds, and turns what the user does into the list's
/// gestures: the mouse on a box or the space bar ticks, a press or the arrow keys go to a row. The column fills the
/// view; a text that does not fit is cut in the middle and shown in full as a tool tip.
class ListViewView : public QTreeView, private ListViewListener {
 public:
  /// @param list outlives the view
  explicit ListViewView(ListView& list, QWidget* parent = nullptr);
  ~ListViewView() override;

 protected:
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
  void OnAboutToReset() override;
  void OnReset() override;
  void OnItemChanged(int row) override;
  void OnCurrentChanged() override;

  void SetUp();
  void Follow();
  void ShowCurrent();

  ListView& list_;
  ListViewModel model_;
  Connection following_;
  /// The view brings itself in line with the list: what the toolkit reports meanwhile is no gesture.
  bool showing_ = false;
};

}  // namespace tavrin
