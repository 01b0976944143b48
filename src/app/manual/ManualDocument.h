#pragma once

#include <QImage>
#include <QList>
#include <QString>
#include <QTextDocument>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

class QTextBlock;
class QTextTable;

namespace tavrin {

/// A heading of the manual: 1 a chapter, 2 a section.
struct ManualHeading {
  int level = 1;
  QString title;
  int block = 0;  ///< number of its block in the document
};

/// The pictures of the manual by name.
using ManualPictures = std::map<std::string, QImage>;

/// @param folder holds NAME.png for each name @throws ManualFault for one that cannot be read
[[nodiscard]] ManualPictures ReadPictures(const std::vector<std::string>& names, const std::filesystem::path& folder);

/// The text of the manual with its pictures, in the look of print: letters, tables, code. Widths are in pixels, 96 an
/// inch.
class ManualDocument {
 public:
  ManualDocument(const std::string& markdown, const ManualPictures& pictures, qreal width);

  [[nodiscard]] QTextDocument& Text() { return text_; }
  [[nodiscard]] const std::vector<ManualHeading>& Headings() const { return headings_; }
  /// The tables in the order of the text.
  [[nodiscard]] const QList<QTextTable*>& Tables() const { return tables_; }

  /// Letters of the text and of code.
  static constexpr const char* kFamily = "DejaVu Sans";
  static constexpr const char* kCodeFamily = "DejaVu Sans Mono";

 private:
  void StyleBlocks();
  void StyleBlock(const QTextBlock& block);
  void StyleHeading(const QTextBlock& block, int level);
  void StyleLetters(const QTextBlock& block);
  void StyleTable(QTextTable& table);

  QTextDocument text_;
  std::vector<ManualHeading> headings_;
  QList<QTextTable*> tables_;
  qreal width_;
};

}  // namespace tavrin
