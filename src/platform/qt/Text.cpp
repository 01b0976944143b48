#include "platform/qt/Text.h"

#include <QByteArray>

#include "platform/CodePage.h"

namespace tavrin {
namespace {

std::optional<std::string> BytesOf(const QString& composed) {
  const QByteArray utf8 = composed.toUtf8();
  return FromUtf8({utf8.constData(), static_cast<std::size_t>(utf8.size())});
}

}  // namespace

QString ToQt(std::string_view text) {
  const auto& unicode = ActiveCodePage().unicode;
  QString drawn(static_cast<qsizetype>(text.size()), Qt::Uninitialized);
  QChar* out = drawn.data();
  for (const char character : text)
    *out++ = QChar(static_cast<char16_t>(unicode[static_cast<unsigned char>(character)]));
  return drawn;
}

std::optional<std::string> FromQt(const QString& text) {
  return BytesOf(text.normalized(QString::NormalizationForm_C));
}

std::string KnownCharacters(const QString& text) {
  std::string known;
  const QString composed = text.normalized(QString::NormalizationForm_C);
  for (const char32_t character : composed.toStdU32String())
    known += BytesOf(QString::fromUcs4(&character, 1)).value_or("");
  return known;
}

}  // namespace tavrin
