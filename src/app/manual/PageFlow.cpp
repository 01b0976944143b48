#include "app/manual/PageFlow.h"

#include <QAbstractTextDocumentLayout>
#include <QPaintDevice>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>
#include <QTextTable>
#include <algorithm>
#include <utility>

#include "app/manual/ManualSource.h"

namespace tavrin {

namespace {

constexpr int kMostRounds = 500;
constexpr int kFewestRows = 3;  // of a table at the end of a page, with its head
constexpr qreal kRowEdge = 8;   // pixels below the last line of a row
constexpr qreal kInside = 4;    // pixels above its lower edge a line still belongs to its page

qreal TopOf(const QTextDocument& text, const QTextBlock& block) {
  return text.documentLayout()->blockBoundingRect(block).top();
}

void BreakBefore(const QTextBlock& block) {
  QTextCursor cursor(block);
  if (QTextTable* const table = cursor.currentTable()) {
    QTextTableFormat format = table->format();
    format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    return table->setFormat(format);
  }
  QTextBlockFormat format = block.blockFormat();
  format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
  cursor.setBlockFormat(format);
}

bool HasBreak(const QTextBlock& block) {
  const QTextTable* const table = QTextCursor(block).currentTable();
  const auto policy = table != nullptr ? table->format().pageBreakPolicy() : block.blockFormat().pageBreakPolicy();
  return policy == QTextFormat::PageBreak_AlwaysBefore;
}

bool HasPicture(const QTextBlock& block) { return block.text().contains(QChar::ObjectReplacementCharacter); }

/// The first block of the table that it begins, nullptr for any other.
const QTextTable* TableBegunBy(const QTextBlock& block) {
  const QTextTable* const table = QTextCursor(block).currentTable();
  return table != nullptr && table->cellAt(0, 0).firstCursorPosition().block() == block ? table : nullptr;
}

}  // namespace

PageFlow::PageFlow(std::string markdown, ManualPictures pictures, qreal width)
    : markdown_(std::move(markdown)), pictures_(std::move(pictures)), width_(width) {}

void PageFlow::LayOut(QPaintDevice& device, const QSizeF& area) {
  device_ = &device;
  unit_ = device.logicalDpiX() / 96.0;
  area_ = area;
  Build();
  int rounds = 0;
  while (!KeepTogether()) {
    if (++rounds > kMostRounds) throw ManualFault("the text does not come to rest on its pages");
  }
}

void PageFlow::Build() {
  CutText cut = CutTables(markdown_, cuts_);
  pieces_ = std::move(cut.pieces);
  document_ = std::make_unique<ManualDocument>(cut.markdown, pictures_, width_);
  const auto& tables = document_->Tables();
  if (tables.size() != static_cast<qsizetype>(pieces_.size())) throw ManualFault("a table of the text is none");
  for (qsizetype i = 0; i < tables.size(); ++i) {
    const TableRow& piece = pieces_[static_cast<std::size_t>(i)];
    if (piece.row == 1) continue;
    // The empty line between two tables goes with the second one, or it would be all of a page. It follows the first
    // one closely, since a line that is on the next page already would break the page once more.
    QTextTableFormat before = tables[i - 1]->format();
    before.setBottomMargin(0);
    tables[i - 1]->setFormat(before);
    if (!overflowing_.contains(piece)) BreakBefore(tables[i]->firstCursorPosition().block().previous());
  }
  for (const std::ptrdiff_t chapter : looseChapters_) {
    const ManualHeading& heading = document_->Headings()[static_cast<std::size_t>(chapter)];
    const QTextBlock block = Text().findBlockByNumber(heading.block);
    QTextBlockFormat format = block.blockFormat();
    format.setPageBreakPolicy(QTextFormat::PageBreak_Auto);
    QTextCursor(block).setBlockFormat(format);
  }
  Text().documentLayout()->setPaintDevice(device_);
  Text().setPageSize(area_);
}

std::vector<HeadingPlace> PageFlow::Headings() const {
  std::vector<HeadingPlace> places;
  for (const ManualHeading& heading : document_->Headings()) {
    const qreal top = TopOf(Text(), Text().findBlockByNumber(heading.block));
    const int page = PageOf(top);
    places.push_back({heading.level, heading.title, page, std::max<qreal>(0, top - page * area_.height())});
  }
  return places;
}

qreal PageFlow::EndOf(const QTextBlock& block) const {
  return Text().documentLayout()->blockBoundingRect(block).bottom() - kInside * unit_;
}

qreal PageFlow::FirstLineEnd(const QTextBlock& block) const {
  const qreal height = block.layout()->lineCount() > 0 ? block.layout()->lineAt(0).rect().bottom() : 0;
  return TopOf(Text(), block) + std::max<qreal>(0, height - kInside * unit_);
}

// What begins at the very top of a page may be told a little above it.
int PageFlow::PageOf(qreal y) const { return static_cast<int>((y + unit_) / area_.height()); }

bool PageFlow::IsTorn(const QTextBlock& block) const {
  const int page = PageOf(TopOf(Text(), block));
  if (HasPicture(block)) return PageOf(EndOf(block.next().isValid() ? block.next() : block)) != page;
  if (block.blockFormat().headingLevel() == 0 || !block.next().isValid()) return false;
  QTextBlock next = block.next();
  if (PageOf(FirstLineEnd(next)) != page) return true;
  if (TableBegunBy(next) == nullptr && next.next().isValid()) next = next.next();  // a sentence before the table
  const QTextTable* const table = TableBegunBy(next);
  if (table == nullptr) return false;
  return PageOf(TopOf(Text(), next)) != page || FittingRows(*table) < std::min(kFewestRows, table->rows());
}

int PageFlow::FittingRows(const QTextTable& table) const {
  const int page = PageOf(TopOf(Text(), table.cellAt(0, 0).firstCursorPosition().block()));
  const qreal edge = (page + 1) * area_.height() - (kRowEdge + kInside) * unit_;
  for (int row = 0; row < table.rows(); ++row) {
    for (int column = 0; column < table.columns(); ++column) {
      if (EndOf(table.cellAt(row, column).lastCursorPosition().block()) > edge) return row;
    }
  }
  return table.rows();
}

bool PageFlow::LeavesPageEmpty(const QTextBlock& block) const {
  QTextBlock before = block.previous();
  while (before.isValid() && before.length() == 1 && QTextCursor(before).currentTable() == nullptr)
    before = before.previous();
  return before.isValid() && PageOf(TopOf(Text(), block)) > PageOf(EndOf(before)) + 1;
}

bool PageFlow::LoosenChapter(const QTextBlock& block) {
  if (block.blockFormat().headingLevel() != 1 || !LeavesPageEmpty(block)) return false;
  const auto& headings = document_->Headings();
  const auto found = std::find_if(headings.begin(), headings.end(), [&block](const ManualHeading& heading) {
    return heading.block == block.blockNumber();
  });
  return found != headings.end() && looseChapters_.insert(found - headings.begin()).second;
}

bool PageFlow::CutTable(const QTextTable& table) {
  const qsizetype index = document_->Tables().indexOf(&table);
  const TableRow piece = pieces_[static_cast<std::size_t>(index)];
  if (piece.row > 1 && LeavesPageEmpty(table.firstCursorPosition().block())) return overflowing_.insert(piece).second;
  const int fitting = FittingRows(table);
  const bool few = fitting < kFewestRows && !HasBreak(table.firstCursorPosition().block());
  if (fitting == table.rows() || fitting < 2 || few) return false;
  return cuts_.insert({piece.table, piece.row + fitting - 1}).second;
}

bool PageFlow::KeepTogether() {
  for (QTextBlock block = Text().begin(); block.isValid(); block = block.next()) {
    const QTextTable* const table = TableBegunBy(block);
    if (table != nullptr ? CutTable(*table) : LoosenChapter(block)) {
      Build();
      return false;
    }
    const bool torn = table != nullptr ? FittingRows(*table) < table->rows() : IsTorn(block);
    if (!torn || HasBreak(block)) continue;
    QTextBlock first = block;
    while (first.previous().isValid() && first.previous().blockFormat().headingLevel() > 0) first = first.previous();
    BreakBefore(first);
    // Laid out from the beginning: what the toolkit keeps of the layout before does not fit any more.
    Text().markContentsDirty(0, Text().characterCount());
    return false;
  }
  return true;
}

}  // namespace tavrin
