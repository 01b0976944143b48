#include "app/manual/ManualDocument.h"

#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextFrame>
#include <QTextList>
#include <QTextTable>
#include <QUrl>
#include <algorithm>
#include <array>
#include <numeric>

#include "app/manual/ManualSource.h"

namespace tavrin {

namespace {

constexpr qreal kTextPoints = 9.5;
constexpr qreal kTablePoints = 8.5;
constexpr qreal kCellPadding = 3.5;
constexpr qreal kCodeShare = 0.92;  // code letters are wide
/// Pixels of the page for a pixel of the screen: windows keep their sizes beside each other.
constexpr qreal kPictureScale = 0.8;
/// Pictures are taken with so many pixels for one of the screen.
constexpr qreal kPictureDensity = 2;

struct HeadingLook {
  qreal points;
  qreal above;
  qreal below;
};
constexpr std::array kHeadings{HeadingLook{19, 0, 10}, HeadingLook{13, 18, 5}, HeadingLook{10.5, 13, 3}};

const QColor kDark(0x1f, 0x3f, 0x66);
const QColor kShade(0xf1, 0xf3, 0xf6);
const QColor kLine(0xb8, 0xbf, 0xc8);

bool IsCode(const QTextBlock& block) {
  const QTextBlockFormat format = block.blockFormat();
  return format.hasProperty(QTextFormat::BlockCodeLanguage) || format.hasProperty(QTextFormat::BlockCodeFence);
}

bool HasImage(const QTextBlock& block) { return block.text().contains(QChar::ObjectReplacementCharacter); }

bool IsCaption(const QTextBlock& block) { return block.previous().isValid() && HasImage(block.previous()); }

bool InTable(const QTextBlock& block) { return QTextCursor(block).currentTable() != nullptr; }

/// Width of the longest word and of the whole text of a column, pixels.
struct ColumnNeed {
  qreal word = 0;
  qreal text = 0;
};

/// The letters that a cell begins with stand for all of it.
QFontMetricsF LettersOf(const QTextBlock& block, bool heading) {
  const QTextCharFormat format = block.begin().atEnd() ? QTextCharFormat() : block.begin().fragment().charFormat();
  QFont font(QString::fromLatin1(format.fontFixedPitch() ? ManualDocument::kCodeFamily : ManualDocument::kFamily));
  font.setPointSizeF(format.fontFixedPitch() ? kTablePoints * kCodeShare : kTablePoints);
  font.setBold(heading || format.fontWeight() >= QFont::Bold);
  return QFontMetricsF(font);
}

ColumnNeed NeedOf(const QTextTable& table, int column) {
  constexpr qreal kLongestWord = 190;
  constexpr qreal kPrintIsWider = 1.09;
  ColumnNeed need;
  for (int row = 0; row < table.rows(); ++row) {
    const QTextBlock block = table.cellAt(row, column).firstCursorPosition().block();
    const QFontMetricsF letters = LettersOf(block, row == 0);
    need.text = std::max(need.text, letters.horizontalAdvance(block.text()));
    for (const QString& word : block.text().split(QLatin1Char(' '))) {
      need.word = std::max(need.word, std::min(kPrintIsWider * letters.horizontalAdvance(word), kLongestWord));
    }
  }
  return need;
}

/// Shares of the columns in hundredths: each has room for its longest word, and what is left goes where most text is.
QList<QTextLength> ShareOut(const QTextTable& table, qreal width) {
  constexpr qreal kPadding = 2 * kCellPadding + 4;
  constexpr qreal kMostText = 900;  // a longer text has no more need than this
  std::vector<qreal> least;
  std::vector<qreal> wanted;
  for (int column = 0; column < table.columns(); ++column) {
    const ColumnNeed need = NeedOf(table, column);
    least.push_back(need.word + kPadding);
    wanted.push_back(std::max<qreal>(0, std::min(need.text, kMostText) - need.word));
  }
  const qreal wish = std::accumulate(wanted.begin(), wanted.end(), qreal(0));
  const qreal spare = std::max<qreal>(0, width - std::accumulate(least.begin(), least.end(), qreal(0)));
  for (std::size_t i = 0; i < least.size(); ++i) {
    least[i] += wish > 0 ? spare * wanted[i] / wish : spare / static_cast<qreal>(least.size());
  }
  const qreal sum = std::accumulate(least.begin(), least.end(), qreal(0));
  QList<QTextLength> shares;
  for (const qreal share : least) shares.append(QTextLength(QTextLength::PercentageLength, 100 * share / sum));
  return shares;
}

}  // namespace

ManualPictures ReadPictures(const std::vector<std::string>& names, const std::filesystem::path& folder) {
  ManualPictures pictures;
  for (const std::string& name : names) {
    QImage image(QString::fromStdString((folder / (name + ".png")).string()));
    if (image.isNull()) throw ManualFault("there is no picture " + name);
    pictures[name] = std::move(image);
  }
  return pictures;
}

ManualDocument::ManualDocument(const std::string& markdown, const ManualPictures& pictures, qreal width)
    : width_(width) {
  QFont font(QString::fromLatin1(kFamily));
  font.setPointSizeF(kTextPoints);
  text_.setDefaultFont(font);
  text_.setDocumentMargin(0);
  text_.setUndoRedoEnabled(false);
  text_.setMarkdown(QString::fromStdString(markdown),
                    QTextDocument::MarkdownFeatures(QTextDocument::MarkdownDialectGitHub) |
                        QTextDocument::MarkdownNoHTML);
  for (const auto& [name, image] : pictures) {
    text_.addResource(QTextDocument::ImageResource, QUrl(QString::fromStdString(name)), image);
  }
  StyleBlocks();
}

void ManualDocument::StyleBlocks() {
  for (QTextFrame* frame : text_.rootFrame()->childFrames()) {
    auto* const table = qobject_cast<QTextTable*>(frame);
    if (table == nullptr) continue;
    StyleTable(*table);
    tables_.append(table);
  }
  for (QTextBlock block = text_.begin(); block.isValid(); block = block.next()) StyleBlock(block);
}

void ManualDocument::StyleBlock(const QTextBlock& block) {
  const int level = block.blockFormat().headingLevel();
  if (level > 0) return StyleHeading(block, level);
  StyleLetters(block);
  QTextBlockFormat format = block.blockFormat();
  format.setLineHeight(118, QTextBlockFormat::ProportionalHeight);
  if (IsCode(block)) {
    format.setBackground(kShade);
    format.setLineHeight(100, QTextBlockFormat::ProportionalHeight);
    format.setLeftMargin(6);
    format.setTopMargin(0);
    format.setBottomMargin(IsCode(block.next()) ? 0 : 8);
  } else if (HasImage(block)) {
    format.setLineHeight(100, QTextBlockFormat::ProportionalHeight);
    format.setTopMargin(8);
    format.setBottomMargin(2);
  } else if (IsCaption(block)) {
    format.setTopMargin(0);
    format.setBottomMargin(11);
  } else if (InTable(block)) {
    format.setTopMargin(0);
    format.setBottomMargin(0);
    format.setLineHeight(108, QTextBlockFormat::ProportionalHeight);
  } else {
    format.setTopMargin(0);
    format.setBottomMargin(block.textList() != nullptr && block.next().textList() != nullptr ? 2.5 : 7);
  }
  if (block.length() == 1 && !InTable(block)) {
    format.setLineHeight(1, QTextBlockFormat::FixedHeight);  // stands between two tables
    format.setBottomMargin(0);
  }
  QTextCursor(block).setBlockFormat(format);
}

void ManualDocument::StyleHeading(const QTextBlock& block, int level) {
  const HeadingLook& look = kHeadings[static_cast<std::size_t>(std::clamp(level, 1, 3)) - 1];
  QTextBlockFormat format = block.blockFormat();
  format.setTopMargin(look.above);
  format.setBottomMargin(look.below);
  if (level == 1 && block.blockNumber() > 0) format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
  QTextCursor cursor(block);
  cursor.setBlockFormat(format);
  cursor.select(QTextCursor::BlockUnderCursor);
  QTextCharFormat letters;
  letters.setFontFamilies({QString::fromLatin1(kFamily)});
  letters.setFontPointSize(look.points);
  letters.setFontWeight(QFont::Bold);
  letters.setForeground(kDark);
  cursor.setCharFormat(letters);
  if (level <= 2) headings_.push_back({level, block.text(), block.blockNumber()});
}

void ManualDocument::StyleLetters(const QTextBlock& block) {
  struct Piece {
    int begin;
    int end;
    QTextCharFormat format;
  };
  std::vector<Piece> pieces;
  for (auto it = block.begin(); !it.atEnd(); ++it) {
    const QTextFragment piece = it.fragment();
    pieces.push_back({piece.position(), piece.position() + piece.length(), piece.charFormat()});
  }
  const bool caption = IsCaption(block);
  for (auto& [begin, end, format] : pieces) {
    QTextCursor cursor(&text_);
    cursor.setPosition(begin);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    if (format.isImageFormat()) {
      QTextImageFormat image = format.toImageFormat();
      const QImage pixels = text_.resource(QTextDocument::ImageResource, QUrl(image.name())).value<QImage>();
      const qreal wanted = pixels.width() / kPictureDensity * kPictureScale;
      const qreal scale = std::min(wanted, width_) / pixels.width();
      image.setWidth(pixels.width() * scale);
      image.setHeight(pixels.height() * scale);
      cursor.setCharFormat(image);
      continue;
    }
    const bool code = format.fontFixedPitch() || IsCode(block);
    const qreal points = InTable(block) || caption ? kTablePoints : kTextPoints;
    format.setFontFamilies({QString::fromLatin1(code ? kCodeFamily : kFamily)});
    format.setFontPointSize(code ? points * kCodeShare : points);
    if (caption) format.setForeground(QColor(0x50, 0x55, 0x5c));
    cursor.setCharFormat(format);
  }
}

void ManualDocument::StyleTable(QTextTable& table) {
  // The toolkit lets the end of a code block behind in the first cell of a table that follows it.
  QTextCursor begin = table.cellAt(0, 0).firstCursorPosition();
  if (begin.block().length() == 1 && begin.block() != table.cellAt(0, 0).lastCursorPosition().block())
    begin.deleteChar();
  QTextTableFormat format = table.format();
  format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
  format.setColumnWidthConstraints(ShareOut(table, width_));
  format.setBorder(1);
  format.setBorderCollapse(true);
  format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
  format.setBorderBrush(kLine);
  format.setCellPadding(kCellPadding);
  format.setCellSpacing(0);
  format.setTopMargin(3);
  format.setBottomMargin(10);
  format.setHeaderRowCount(0);  // a table that goes on is a table of its own
  table.setFormat(format);
  for (int column = 0; column < table.columns(); ++column) {
    QTextTableCell cell = table.cellAt(0, column);
    QTextTableCellFormat head = cell.format().toTableCellFormat();
    head.setBackground(kShade);
    cell.setFormat(head);
    QTextCursor cursor = cell.firstCursorPosition();
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    cursor.mergeCharFormat(bold);
  }
}

}  // namespace tavrin
