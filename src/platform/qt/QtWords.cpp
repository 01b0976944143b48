#include "platform/qt/QtWords.h"

#include <QCoreApplication>
#include <QLibraryInfo>

namespace tavrin {

void QtWords::Match() {
  const std::string language = language_();
  if (language == matched_) return;
  matched_ = language;
  QCoreApplication::removeTranslator(&translator_);
  const QString name = QStringLiteral("qtbase_") + QString::fromStdString(language);
  if (translator_.load(name, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(&translator_);
  }
}

}  // namespace tavrin
