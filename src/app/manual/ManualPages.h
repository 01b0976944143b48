#pragma once

#include <QPointF>
#include <QSizeF>
#include <QString>
#include <filesystem>
#include <string>
#include <vector>

#include "app/manual/ManualDocument.h"
#include "app/manual/PageFlow.h"
#include "app/manual/PdfOutline.h"

class QPainter;
class QPdfWriter;

namespace tavrin {

/// Words of the pages around the text.
struct PageWords {
  QString title;     ///< e.g. "Tavrin"
  QString kind;      ///< e.g. "Manual"
  QString subtitle;  ///< one sentence below the title
  QString version;   ///< e.g. "Version 1.0"
  QString contents;  ///< heading of the table of contents
};

/// Puts the manual on pages: title, contents, text with header and page numbers.
class ManualPages {
 public:
  ManualPages(std::string markdown, ManualPictures pictures, PageWords words);

  /// Width of the text, pixels.
  [[nodiscard]] static qreal TextWidth();
  /// @return the bookmarks of the file @throws ManualFault when the file cannot be written
  [[nodiscard]] std::vector<Bookmark> Write(const std::filesystem::path& file);

 private:
  void Measure(const QPdfWriter& writer);
  [[nodiscard]] int FirstTextPage() const { return 1 + ContentsPages(); }
  [[nodiscard]] int ContentsPages() const;
  [[nodiscard]] int LinesOnContentsPage(int page) const;
  void DrawTitle(QPainter& painter) const;
  void DrawContents(QPainter& painter, QPdfWriter& writer) const;
  void DrawContentsLine(QPainter& painter, const HeadingPlace& heading, qreal y) const;
  void DrawText(QPainter& painter, int page) const;
  void DrawFrame(QPainter& painter, int page, const QString& chapter) const;
  [[nodiscard]] QString ChapterOn(int page) const;
  [[nodiscard]] std::vector<Bookmark> Bookmarks() const;

  PageFlow flow_;
  PageWords words_;
  qreal unit_ = 1;  // device units of a pixel
  QSizeF area_;     // of the text, device units
  QPointF corner_;  // of the text on the page
  std::vector<HeadingPlace> headings_;
};

}  // namespace tavrin
