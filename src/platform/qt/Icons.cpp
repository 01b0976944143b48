#include "platform/qt/Icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QHash>
#include <QIconEngine>
#include <QPalette>
#include <QPixmap>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace tavrin {

namespace {

/// The source of a picture, empty for an unknown key. In it, currentColor stands for the colour of the lines.
const QByteArray& SourceOf(const QString& key) {
  static QHash<QString, QByteArray> known;
  const auto found = known.constFind(key);
  if (found != known.constEnd()) return *found;
  QFile file(QStringLiteral(":/icons/") + key + QStringLiteral(".svg"));
  return *known.insert(key, file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
}

void Paint(QPainter& painter, const QString& key, const QRectF& place, const QColor& lines) {
  QByteArray source = SourceOf(key);
  if (source.isEmpty() || place.isEmpty()) return;
  QSvgRenderer renderer(source.replace("currentColor", lines.name().toLatin1()));
  const QSizeF size = QSizeF(renderer.defaultSize()).scaled(place.size(), Qt::KeepAspectRatio);
  renderer.render(&painter, QRectF(QPointF(place.left(), place.center().y() - size.height() / 2), size));
}

QColor LinesOf(QIcon::Mode mode) {
  const QPalette::ColorGroup group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
  return QGuiApplication::palette().color(group, QPalette::WindowText);
}

/// Draws at the size and in the colours that are asked for at that moment.
class PictureEngine : public QIconEngine {
 public:
  explicit PictureEngine(QString key) : key_(std::move(key)) {}

  [[nodiscard]] QIconEngine* clone() const override { return new PictureEngine(key_); }
  [[nodiscard]] QString key() const override { return QStringLiteral("tavrin"); }
  [[nodiscard]] bool isNull() override { return SourceOf(key_).isEmpty(); }

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
    const qreal scale = painter->device() == nullptr ? 1 : painter->device()->devicePixelRatioF();
    painter->drawPixmap(rect, pixmap((QSizeF(rect.size()) * scale).toSize(), mode, state));
  }

  [[nodiscard]] QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*state*/) override {
    const QColor lines = LinesOf(mode);
    const QString name = QStringLiteral("tavrin/%1/%2/%3/%4/%5")
                             .arg(key_)
                             .arg(size.width())
                             .arg(size.height())
                             .arg(lines.name())
                             .arg(static_cast<int>(mode));
    QPixmap picture;
    if (QPixmapCache::find(name, &picture)) return picture;
    picture = Draw(size, lines, mode == QIcon::Disabled ? kFaded : 1);
    QPixmapCache::insert(name, picture);
    return picture;
  }

 private:
  static constexpr qreal kFaded = 0.45;

  [[nodiscard]] QPixmap Draw(const QSize& size, const QColor& lines, qreal opacity) const {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setOpacity(opacity);
    Paint(painter, key_, QRectF(QPointF(), size), lines);
    return picture;
  }

  QString key_;
};

}  // namespace

QIcon IconOf(const std::string& key) { return QIcon(new PictureEngine(QString::fromStdString(key))); }

QSize PictureSize(const std::string& key) {
  const QByteArray& source = SourceOf(QString::fromStdString(key));
  return source.isEmpty() ? QSize() : QSvgRenderer(source).defaultSize();
}

void PaintPicture(QPainter& painter, const std::string& key, const QRectF& place, const QColor& lines) {
  Paint(painter, QString::fromStdString(key), place, lines);
}

}  // namespace tavrin
