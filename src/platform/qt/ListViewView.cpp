#include "platform/qt/ListViewView.h"

#include <QHeaderView>
#include <QPointer>

#include "platform/qt/ItemDelegate.h"
#include "platform/qt/Showing.h"
#include "platform/qt/ViewCommon.h"

namespace tavrin {

ListViewView::ListViewView(ListView& list, QWidget* parent) : QTreeView(parent), list_(list), model_(list) {
  SetUp();
  following_ = list_.Changed.Connect([this] { Follow(); });
  list_.Listen(this);
  Follow();
  ShowCurrent();
}

ListViewView::~ListViewView() { list_.Listen(nullptr); }

void ListViewView::SetUp() {
  setItemDelegate(new ItemDelegate(*this));
  setModel(&model_);
  setEditTriggers(NoEditTriggers);
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setUniformRowHeights(true);
  setTextElideMode(Qt::ElideMiddle);
  header()->setTextElideMode(Qt::ElideMiddle);
  header()->setStretchLastSection(true);
  header()->setSectionsClickable(false);
}

void ListViewView::Follow() {
  ShowCommon(*this, list_);
  model_.TellHeader();
}

void ListViewView::ShowCurrent() {
  const Showing showing(showing_);
  selectionModel()->setCurrentIndex(model_.IndexOf(list_.Current()), QItemSelectionModel::ClearAndSelect);
}

void ListViewView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTreeView::currentChanged(current, previous);
  if (showing_ || !current.isValid()) return;
  const QPointer<QObject> alive(this);
  list_.UserSelect(current.row());
  if (alive) ShowCurrent();
}

void ListViewView::OnAboutToReset() { model_.BeginReset(); }

void ListViewView::OnReset() {
  {
    const Showing showing(showing_);
    model_.EndReset();
  }
  ShowCurrent();
}

void ListViewView::OnItemChanged(int row) { model_.TellItem(row); }

void ListViewView::OnCurrentChanged() {
  ShowCurrent();
  if (isVisible()) scrollTo(currentIndex());
}

}  // namespace tavrin
