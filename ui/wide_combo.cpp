#include "ui/wide_combo.h"

#include <QAbstractItemView>
#include <QFontMetrics>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <algorithm>

namespace quillmark {

void WideCombo::showPopup() {
  const QFontMetrics metrics(view()->font());
  int widest = 0;
  for (int row = 0; row < count(); ++row) {
    widest = std::max(widest, metrics.horizontalAdvance(itemText(row)));
  }
  const int around = 2 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, view()) + 1) +
                     2 * view()->frameWidth() + view()->verticalScrollBar()->sizeHint().width();
  view()->setMinimumWidth(std::min(widest + around, screen()->availableSize().width()));
  QComboBox::showPopup();
}

}  // namespace quillmark
