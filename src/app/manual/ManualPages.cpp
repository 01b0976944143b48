#include "app/manual/ManualPages.h"

#include <QAbstractTextDocumentLayout>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <utility>

#include "app/manual/ManualSource.h"

namespace tavrin {

namespace {

// Millimetres.
constexpr qreal kPageWidth = 210;
constexpr qreal kPageHeight = 297;
constexpr qreal kSide = 20;
constexpr qreal kTop = 24;
constexpr qreal kBottom = 22;
constexpr qreal kPixelsOfMillimetre = 96 / 25.4;
constexpr int kResolution = 600;
constexpr qreal kContentsLine = 19.5;  // pixels
constexpr qreal kContentsTop = 50;

const QColor kDark(0x1f, 0x3f, 0x66);
const QColor kFaint(0x6a, 0x70, 0x78);

QFont Letters(qreal points, bool bold = false) {
  QFont font(QString::fromLatin1(ManualDocument::kFamily));
  font.setPointSizeF(points);
  font.setBold(bold);
  return font;
}

}  // namespace

ManualPages::ManualPages(std::string markdown, ManualPictures pictures, PageWords words)
    : flow_(std::move(markdown), std::move(pictures), TextWidth()), words_(std::move(words)) {}

qreal ManualPages::TextWidth() { return (kPageWidth - 2 * kSide) * kPixelsOfMillimetre; }

std::vector<Bookmark> ManualPages::Write(const std::filesystem::path& file) {
  QPdfWriter writer(QString::fromStdString(file.string()));
  writer.setResolution(kResolution);
  writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF()));
  writer.setTitle(words_.title + QStringLiteral(" \u2013 ") + words_.kind);
  writer.setCreator(words_.title);
  Measure(writer);
  flow_.LayOut(writer, area_);
  headings_ = flow_.Headings();
  QPainter painter;
  if (!painter.begin(&writer)) throw ManualFault(file.string() + " cannot be written");
  DrawTitle(painter);
  writer.newPage();
  DrawContents(painter, writer);
  for (int page = 0; page < flow_.Text().pageCount(); ++page) {
    writer.newPage();
    DrawText(painter, page);
  }
  if (!painter.end()) throw ManualFault(file.string() + " cannot be written");
  return Bookmarks();
}

void ManualPages::Measure(const QPdfWriter& writer) {
  unit_ = writer.logicalDpiX() / 96.0;
  const qreal millimetre = unit_ * kPixelsOfMillimetre;
  area_ = (QSizeF(kPageWidth - 2 * kSide, kPageHeight - kTop - kBottom) * millimetre).toSize();
  corner_ = QPointF(kSide, kTop) * millimetre;
}

void ManualPages::DrawTitle(QPainter& painter) const {
  const qreal middle = kPageWidth / 2 * kPixelsOfMillimetre * unit_;
  const auto line = [&](qreal millimetres, const QString& words, const QFont& font, const QColor& colour) {
    painter.setFont(font);
    painter.setPen(colour);
    const qreal y = millimetres * kPixelsOfMillimetre * unit_;
    painter.drawText(QRectF(0, y, 2 * middle, 40 * unit_ * kPixelsOfMillimetre), Qt::AlignHCenter | Qt::AlignTop,
                     words);
  };
  line(80, words_.title, Letters(46, true), kDark);
  line(104, words_.subtitle, Letters(14), Qt::black);
  line(128, words_.kind, Letters(22), kDark);
  line(262, words_.version, Letters(10), kFaint);
}

int ManualPages::LinesOnContentsPage(int page) const {
  return static_cast<int>((area_.height() / unit_ - (page == 0 ? kContentsTop : 0)) / kContentsLine);
}

int ManualPages::ContentsPages() const {
  int pages = 0;
  for (int lines = static_cast<int>(headings_.size()); lines > 0; lines -= LinesOnContentsPage(pages++)) {
  }
  return pages;
}

void ManualPages::DrawContents(QPainter& painter, QPdfWriter& writer) const {
  painter.setFont(Letters(19, true));
  painter.setPen(kDark);
  painter.drawText(QRectF(corner_, area_), Qt::AlignLeft | Qt::AlignTop, words_.contents);
  int page = 0;
  int line = 0;
  for (const HeadingPlace& heading : headings_) {
    if (line == LinesOnContentsPage(page)) {
      DrawFrame(painter, ++page, words_.contents);
      writer.newPage();
      line = 0;
    }
    const qreal top = page == 0 ? kContentsTop : 0;
    DrawContentsLine(painter, heading, corner_.y() + (top + kContentsLine * line++) * unit_);
  }
  DrawFrame(painter, ++page, words_.contents);
}

void ManualPages::DrawContentsLine(QPainter& painter, const HeadingPlace& heading, qreal y) const {
  const QString page = QString::number(heading.page + FirstTextPage() + 1);
  const qreal left = corner_.x() + (heading.level == 1 ? 0 : 18 * unit_);
  const QRectF row(left, y, corner_.x() + area_.width() - left, kContentsLine * unit_);
  painter.setFont(Letters(9.5, heading.level == 1));
  painter.setPen(heading.level == 1 ? kDark : QColor(Qt::black));
  painter.drawText(row, Qt::AlignLeft | Qt::AlignVCenter, heading.title);
  painter.drawText(row, Qt::AlignRight | Qt::AlignVCenter, page);
  const qreal begin = row.left() + painter.fontMetrics().horizontalAdvance(heading.title) + 8 * unit_;
  const qreal end = row.right() - painter.fontMetrics().horizontalAdvance(page) - 8 * unit_;
  painter.setPen(QPen(kFaint, 0.7 * unit_, Qt::DotLine));
  if (heading.level > 1 && end > begin)
    painter.drawLine(QLineF(begin, row.bottom() - 6 * unit_, end, row.bottom() - 6 * unit_));
}

void ManualPages::DrawText(QPainter& painter, int page) const {
  painter.save();
  painter.translate(corner_.x(), corner_.y() - page * area_.height());
  const QRectF part(0, page * area_.height(), area_.width(), area_.height());
  painter.setClipRect(part);
  QAbstractTextDocumentLayout::PaintContext context;
  context.clip = part;
  context.palette.setColor(QPalette::Text, Qt::black);
  flow_.Text().documentLayout()->draw(&painter, context);
  painter.restore();
  DrawFrame(painter, page + FirstTextPage(), ChapterOn(page));
}

void ManualPages::DrawFrame(QPainter& painter, int page, const QString& chapter) const {
  const qreal millimetre = unit_ * kPixelsOfMillimetre;
  const QRectF head(corner_.x(), 11 * millimetre, area_.width(), 6 * millimetre);
  const QRectF foot(corner_.x(), (kPageHeight - 16) * millimetre, area_.width(), 6 * millimetre);
  painter.setFont(Letters(8));
  painter.setPen(kFaint);
  painter.drawText(head, Qt::AlignLeft | Qt::AlignVCenter, words_.title + QStringLiteral(" \u2013 ") + words_.kind);
  painter.drawText(head, Qt::AlignRight | Qt::AlignVCenter, chapter);
  painter.drawText(foot, Qt::AlignLeft | Qt::AlignVCenter, words_.version);
  painter.drawText(foot, Qt::AlignRight | Qt::AlignVCenter, QString::number(page + 1));
  painter.setPen(QPen(kFaint, 0.5 * unit_));
  painter.drawLine(QLineF(head.bottomLeft(), head.bottomRight()));
}

QString ManualPages::ChapterOn(int page) const {
  QString chapter;
  for (const HeadingPlace& heading : headings_) {
    if (heading.level == 1 && heading.page <= page) chapter = heading.title;
  }
  return chapter;
}

std::vector<Bookmark> ManualPages::Bookmarks() const {
  const qreal height = kPageHeight * kPixelsOfMillimetre * unit_;
  std::vector<Bookmark> marks;
  for (const HeadingPlace& heading : headings_) {
    const qreal fromTop = (corner_.y() + heading.top) / height;
    marks.push_back({heading.title.toStdU16String(), heading.level, heading.page + FirstTextPage(), fromTop});
  }
  return marks;
}

}  // namespace tavrin
