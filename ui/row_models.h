#pragma once

#include <QAbstractListModel>
#include <QAbstractTableModel>
#include <QIcon>
#include <vector>

#include "platform/controls.h"

namespace quillmark {

/// The rows of a combo or list box, read from the control itself.
class RowsModel : public QAbstractListModel {
 public:
  explicit RowsModel(const RowsControl& control) : control_(control) {}

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

  /// Tells the views that all rows are new.
  void Reset();

 private:
  const RowsControl& control_;
  int announced_ = 0;  ///< rows that the views know of, whatever the control holds meanwhile
};

/// The cells of a list view, read from the control itself.
class CellsModel : public QAbstractTableModel {
 public:
  explicit CellsModel(const ListView& control);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  /// Tells the views that all rows are new.
  void Reset();
  /// Tells the views that captions may be new.
  void RefreshHeader();

 private:
  const ListView& control_;
  std::vector<QIcon> pictures_;
  int announced_ = 0;
};

}  // namespace quillmark
