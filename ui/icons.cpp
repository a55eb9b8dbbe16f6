#include "ui/icons.h"

#include <QPainter>
#include <array>

namespace quillmark {
namespace {

constexpr std::array kSizes = {16, 20, 24, 32, 48};

QString ImagePath(const QString& name, int size) {
  return QStringLiteral(":/icons/%1_%2.png").arg(name).arg(size);
}

QPixmap Tinted(QPixmap pixmap, const QColor& colour) {
  QPainter painter(&pixmap);
  painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
  painter.fillRect(pixmap.rect(), colour);
  return pixmap;
}

template <class Sizes>
QIcon Assembled(const QString& name, const Sizes& sizes) {
  QIcon icon;
  for (const int size : sizes) icon.addPixmap(QPixmap(ImagePath(name, size)));
  return icon;
}

}  // namespace

QIcon LineIcon(const QString& name, const QPalette& palette) {
  QIcon icon;
  for (const int size : kSizes) {
    const QPixmap line(ImagePath(name, size));
    if (line.isNull()) continue;
    icon.addPixmap(Tinted(line, palette.color(QPalette::Active, QPalette::ButtonText)));
    icon.addPixmap(Tinted(line, palette.color(QPalette::Disabled, QPalette::ButtonText)),
                   QIcon::Disabled);
  }
  return icon;
}

QIcon PictureIcon(std::string_view name) {
  return Assembled(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())), kSizes);
}

QIcon ProgramIcon() {
  return Assembled(QStringLiteral("quillmark"), std::array{16, 20, 24, 32, 48, 64, 128, 256});
}

QPixmap LargePicture(const QString& name, qreal pixelRatio) {
  const int scale = pixelRatio > 1.0 ? 2 : 1;
  QPixmap picture(QStringLiteral(":/icons/%1_%2x.png").arg(name).arg(scale));
  picture.setDevicePixelRatio(scale);
  return picture;
}

}  // namespace quillmark
