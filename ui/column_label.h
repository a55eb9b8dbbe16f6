#pragma once

#include <QLabel>
#include <QTreeView>

namespace quillmark {

/// Repeats the caption of a column of a list view beside the box that edits it. The dynamic
/// properties `columnOf` and `column` (from 0) name the list view and the column.
class ColumnLabel : public QLabel {
  Q_OBJECT

 public:
  explicit ColumnLabel(QWidget* parent = nullptr) : QLabel(parent) {}

  /// Finds its list view, which has a model by now, among the children of `drawing`.
  void Follow(const QWidget& drawing);

  /// The column's caption; what is shown may have a mark for an access key in it.
  const QString& Caption() const { return caption_; }

 private:
  void Show(const QTreeView& view);

  QString caption_;
};

}  // namespace quillmark
