// What a grid holds, on the screen; what the user does is in GridInput.cpp.
#include "platform/qt/GridView.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "platform/qt/ItemDelegate.h"
#include "platform/qt/Showing.h"
#include "platform/qt/Text.h"
#include "platform/qt/ViewCommon.h"

namespace tavrin {

GridView::GridView(Grid& grid, QWidget* parent)
    : QTableView(parent), grid_(grid), model_(grid), columns_(*this, grid), editor_(*this, *viewport(), EditorRules()) {
  SetUp();
  SetUpHeader();
  ListenToHeader();
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int value) { Scrolled(value); });
  connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] { ShowRing(); });
  following_ = grid_.Changed.Connect([this] { Follow(); });
  grid_.Listen(this);
  Follow();
  if (grid_.Redraw()) OnReset();
}

GridView::~GridView() { grid_.Listen(nullptr); }

void GridView::SetUp() {
  setItemDelegate(new ItemDelegate(*this));
  setModel(&model_);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setAutoScroll(false);
  setSelectionMode(ContiguousSelection);
  setWordWrap(false);
  setCornerButtonEnabled(false);
  setVerticalScrollMode(ScrollPerItem);
  setHorizontalScrollMode(ScrollPerPixel);
  viewport()->setMouseTracking(true);
}

void GridView::SetUpHeader() {
  // Rows of one height: a grid of a million rows is measured without a look at any.
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  QHeaderView& header = *horizontalHeader();
  header.setSectionsClickable(true);
  header.setHighlightSections(false);
  header.setMinimumSectionSize(1);
  header.viewport()->setMouseTracking(true);
}

void GridView::Follow() {
  ShowCommon(*this, grid_);
  ShowFont();
  viewport()->update();
}

void GridView::ShowFont() {
  if (!ShowFontSize(*this, grid_.FontSize())) return;
  const int height = fontMetrics().height();
  verticalHeader()->setMinimumSectionSize(height);
  verticalHeader()->setDefaultSectionSize(height + std::max(height / 3, 4));
  ShowColumns();
  ShowTopRow();
}

void GridView::ShowColumns() {
  const Showing showing(showing_);
  if (grid_.Redraw()) columns_.Apply();
}

void GridView::ShowSelection() {
  MarkSelection();
  ShowRing();
}

void GridView::MarkSelection() {
  const Showing showing(showing_);
  const QModelIndex current = model_.IndexOf(grid_.Current());
  const QModelIndex end = model_.IndexOf(grid_.SelectionEnd());
  selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
  if (!current.isValid() || !end.isValid()) return selectionModel()->clearSelection();
  const auto [top, bottom] = std::minmax({current.row(), end.row()});
  const auto [left, right] = std::minmax({current.column(), end.column()});
  selectionModel()->select(QItemSelection(model_.index(top, left), model_.index(bottom, right)),
                           QItemSelectionModel::ClearAndSelect);
}

void GridView::ShowRing() {
  const bool wanted = hasFocus() && !viewport()->rect().intersects(visualRect(model_.IndexOf(grid_.Current())));
  if (wanted || ringed_) viewport()->update();
  ringed_ = wanted;
}

void GridView::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  if (!ringed_) return;
  QPainter painter(viewport());
  painter.setPen(QPen(palette().color(QPalette::Text), 2));
  painter.drawRect(viewport()->rect().adjusted(1, 1, -1, -1));
}

int GridView::TopRowAt(int scrolled) const { return std::max(scrolled + 1, grid_.FixedRows()); }

void GridView::ShowTopRow() {
  const Showing showing(showing_);
  if (!isVisible() || !grid_.Redraw()) return;
  executeDelayedItemsLayout();
  if (TopRowAt(verticalScrollBar()->value()) == grid_.TopRow()) return;
  verticalScrollBar()->setValue(grid_.TopRow() <= grid_.FixedRows() ? 0 : grid_.TopRow() - 1);
}

void GridView::ShowEdit() {
  const Grid::Edit* const edit = grid_.OpenEdit();
  if (edit == nullptr || !grid_.Redraw()) return editor_.Close();
  if (editor_.IsOpen()) return editor_.Show(ToQt(edit->text));
  QStringList choices;
  std::transform(edit->choices.begin(), edit->choices.end(), std::back_inserter(choices), ToQt);
  scrollTo(model_.IndexOf(edit->cell));
  editor_.Open(ToQt(edit->text), choices, !edit->beganByTyping);
  updateEditorGeometries();
}

void GridView::updateEditorGeometries() {
  QTableView::updateEditorGeometries();
  const Grid::Edit* const edit = grid_.OpenEdit();
  if (edit != nullptr) editor_.Place(ItemDelegate::InsideOfRing(visualRect(model_.IndexOf(edit->cell))));
}

void GridView::OnAboutToReset() {
  setUpdatesEnabled(false);
  model_.BeginReset();
}

void GridView::OnReset() {
  {
    const Showing showing(showing_);
    if (!updatesEnabled()) model_.EndReset();
  }
  ShowColumns();
  ShowSelection();
  ShowTopRow();
  ShowEdit();
  setUpdatesEnabled(true);
}

void GridView::OnRowsAboutToBeAdded(int first, int count) { model_.BeginAdd(first, count); }

void GridView::OnRowsAdded() {
  model_.EndAdd();
  ShowSelection();
}

void GridView::OnRowsAboutToBeRemoved(int first, int count) {
  showing_ = true;
  model_.BeginRemove(first, count);
}

void GridView::OnRowsRemoved() {
  model_.EndRemove();
  showing_ = false;
  ShowSelection();
}

void GridView::OnCellChanged(Cell cell) {
  model_.TellCell(cell);
  if (grid_.IsFixed(cell)) ShowColumns();
}

void GridView::OnColumnsChanged() {
  ShowColumns();
  viewport()->update();
  horizontalHeader()->viewport()->update();
}

void GridView::OnSelectionChanged() {
  ShowSelection();
  if (isVisible()) scrollTo(currentIndex());
}

void GridView::OnTopRowChanged() { ShowTopRow(); }

void GridView::OnEditChanged() { ShowEdit(); }

void GridView::showEvent(QShowEvent* event) {
  QTableView::showEvent(event);
  ShowColumns();
  ShowTopRow();
}

void GridView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  ShowColumns();
}

}  // namespace tavrin
