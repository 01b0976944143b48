#pragma once

#include <QSizeF>
#include <QString>
#include <cstddef>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "app/manual/ManualDocument.h"
#include "app/manual/TablePieces.h"

class QPaintDevice;

namespace tavrin {

/// Where a heading has come to stand.
struct HeadingPlace {
  int level = 1;
  QString title;
  int page = 0;   ///< of the text, counted from 0
  qreal top = 0;  ///< on it, in units of the device
};

/// Has the text of the manual flow over pages. A heading is never torn from what follows, a picture not from its
/// caption, and no row of a table is cut.
class PageFlow {
 public:
  /// @param width of the text, pixels
  PageFlow(std::string markdown, ManualPictures pictures, qreal width);

  /// @param device that the text is laid out for, outlives the flow @param area of the text on a page, in its units
  /// @throws ManualFault when the text does not come to rest
  void LayOut(QPaintDevice& device, const QSizeF& area);
  /// The text in pages of that area, one below the other.
  [[nodiscard]] QTextDocument& Text() const { return document_->Text(); }
  [[nodiscard]] std::vector<HeadingPlace> Headings() const;

 private:
  /// Makes the document anew, with its tables cut where they have to be.
  void Build();
  /// @return false when something had to be moved to the next page
  [[nodiscard]] bool KeepTogether();
  [[nodiscard]] bool IsTorn(const QTextBlock& block) const;
  /// Rows of a table that fit on the page where it begins; all of them when it ends there.
  [[nodiscard]] int FittingRows(const QTextTable& table) const;
  /// Has a table go on as another one on the next page. @return false when it need not, or cannot
  [[nodiscard]] bool CutTable(const QTextTable& table);
  /// True when a whole page stands empty before what begins a page. The toolkit turns over twice behind a table that
  /// ends at the very edge of a page: what follows must not ask for a new page then, it has one.
  [[nodiscard]] bool LeavesPageEmpty(const QTextBlock& block) const;
  /// Takes the demand for a new page from the heading of a chapter. @return false when it is not in the way
  [[nodiscard]] bool LoosenChapter(const QTextBlock& block);
  [[nodiscard]] int PageOf(qreal y) const;
  /// Lower edge of the last line, and of the first one, a little inside of it.
  [[nodiscard]] qreal EndOf(const QTextBlock& block) const;
  [[nodiscard]] qreal FirstLineEnd(const QTextBlock& block) const;

  std::string markdown_;
  ManualPictures pictures_;
  qreal width_;
  QPaintDevice* device_ = nullptr;
  qreal unit_ = 1;  // device units of a pixel
  QSizeF area_;
  std::set<TableRow> cuts_;
  std::set<TableRow> overflowing_;          // pieces that come to a new page by themselves
  std::set<std::ptrdiff_t> looseChapters_;  // positions of headings that do the same
  std::vector<TableRow> pieces_;
  std::unique_ptr<ManualDocument> document_;
};

}  // namespace tavrin
