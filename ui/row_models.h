#pragma once

#include <QAbstractTableModel>
#include <QIcon>
#include <cstdint>
#include <vector>

#include "controls/list_view.h"
#include "controls/text_rows.h"

namespace quillmark {

/// The rows of a control, read from the control itself.
class RowsModel : public QAbstractTableModel {
 public:
  explicit RowsModel(const RowsControl& rows) : rows_(rows) {}

  int rowCount(const QModelIndex& parent = {}) const override;

  /// Tells the views that all rows are new, if they are.
  void Refresh();

 private:
  const RowsControl& rows_;
  int announced_ = 0;  ///< rows that the views know of, whatever the control holds meanwhile
  std::uint64_t announcedVersion_ = 0;
};

/// The rows of a combo or list box.
class TextsModel : public RowsModel {
 public:
  explicit TextsModel(const TextRows& control) : RowsModel(control), control_(control) {}

  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  const TextRows& control_;
};

/// The cells of a list view.
class CellsModel : public RowsModel {
 public:
  explicit CellsModel(const ListView& control);

  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  /// Tells the views that captions may be new.
  void RefreshHeader();

 private:
  const ListView& control_;
  std::vector<QIcon> pictures_;
};

}  // namespace quillmark
