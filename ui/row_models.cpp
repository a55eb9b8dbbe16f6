#include "ui/row_models.h"

#include "ui/ansi_text.h"
#include "ui/icons.h"

namespace quillmark {

int RowsModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : announced_;
}

void RowsModel::Refresh() {
  if (announcedVersion_ == rows_.RowsVersion()) return;
  beginResetModel();
  announced_ = rows_.Count();
  announcedVersion_ = rows_.RowsVersion();
  endResetModel();
}

int TextsModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : 1; }

QVariant TextsModel::data(const QModelIndex& index, int role) const {
  if (role != Qt::DisplayRole || index.row() < 0 || index.row() >= control_.Count()) return {};
  return FromAnsi(control_.Rows()[static_cast<std::size_t>(index.row())]);
}

CellsModel::CellsModel(const ListView& control) : RowsModel(control), control_(control) {
  for (const std::string& name : control.Images()) pictures_.push_back(PictureIcon(name));
}

int CellsModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(control_.Columns().size());
}

QVariant CellsModel::data(const QModelIndex& index, int role) const {
  if (index.row() < 0 || index.row() >= control_.Count()) return {};
  const ListViewRow& row = control_.Rows()[static_cast<std::size_t>(index.row())];
  const auto column = static_cast<std::size_t>(index.column());
  if (role == Qt::DisplayRole && column < row.cells.size()) return FromAnsi(row.cells[column]);
  if (role == Qt::DecorationRole && column == 0 && row.icon > 0 &&
      static_cast<std::size_t>(row.icon) <= pictures_.size()) {
    return pictures_[static_cast<std::size_t>(row.icon) - 1];
  }
  return {};
}

QVariant CellsModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  if (role == Qt::TextAlignmentRole) return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
  if (role != Qt::DisplayRole) return {};
  return FromAnsi(control_.Columns()[static_cast<std::size_t>(section)].caption);
}

void CellsModel::RefreshHeader() { emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1); }

}  // namespace quillmark
