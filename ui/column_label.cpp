#include "ui/column_label.h"

#include <QAbstractItemModel>
#include <QVariant>

namespace quillmark {

void ColumnLabel::Follow(const QWidget& drawing) {
  const auto* view = drawing.findChild<QTreeView*>(property("columnOf").toString());
  if (view == nullptr || view->model() == nullptr) return;
  connect(view->model(), &QAbstractItemModel::headerDataChanged, this,
          [this, view] { Show(*view); });
  Show(*view);
}

void ColumnLabel::Show(const QTreeView& view) {
  const QString caption =
      view.model()->headerData(property("column").toInt(), Qt::Horizontal).toString();
  if (caption == caption_) return;
  caption_ = caption;
  setText(caption);
}

}  // namespace quillmark
