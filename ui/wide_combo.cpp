#include "ui/wide_combo.h"

#include <QAbstractItemView>
#include <QFontMetrics>
#include <QScreen>
#include <QScrollBar>
#include <algorithm>

namespace quillmark {

void WideCombo::showPopup() {
  // Whole pixels would not tell the widest of two texts, and measuring all rows as the list does
  // would take seconds.
  const QFontMetricsF metrics(view()->font());
  double widest = 0;
  int widestRow = 0;
  for (int row = 0; row < count(); ++row) {
    const double width = metrics.horizontalAdvance(itemText(row));
    if (width <= widest) continue;
    widest = width;
    widestRow = row;
  }
  const int needed = view()->sizeHintForIndex(model()->index(widestRow, modelColumn())).width();
  const int around = 2 * view()->frameWidth() + view()->verticalScrollBar()->sizeHint().width();
  view()->setMinimumWidth(std::min(needed + around, screen()->availableSize().width()));
  QComboBox::showPopup();
}

}  // namespace quillmark
