#include "ui/colour_swatch.h"

#include <QPainter>
#include <QVariant>
#include <array>

namespace quillmark {

ColourSwatch::ColourSwatch(QWidget* parent) : QFrame(parent) {
  setFrameShape(QFrame::StyledPanel);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void ColourSwatch::Follow(const QWidget& drawing) {
  for (const QString& name : property("colourOf").toString().split(QLatin1Char(' '))) {
    auto* box = drawing.findChild<QLineEdit*>(name);
    if (box == nullptr) continue;
    boxes_.push_back(box);
    connect(box, &QLineEdit::textChanged, this, [this] { update(); });
  }
}

QSize ColourSwatch::sizeHint() const {
  const int side = fontMetrics().height() + 4;
  return {side, side};
}

void ColourSwatch::paintEvent(QPaintEvent* event) {
  std::array<int, 3> parts = {};
  bool valid = boxes_.size() == parts.size();
  for (std::size_t i = 0; valid && i < parts.size(); ++i) {
    parts[i] = boxes_[i]->text().toInt(&valid);
    valid = valid && parts[i] >= 0 && parts[i] <= 255 && boxes_[i]->isEnabled();
  }
  if (valid) {
    QPainter painter(this);
    painter.fillRect(contentsRect(), QColor(parts[0], parts[1], parts[2]));
  }
  QFrame::paintEvent(event);
}

}  // namespace quillmark
