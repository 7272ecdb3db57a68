#include "ui/grid_table_model.h"

#include "ui/form_binder.h"

namespace lupin::ui {

QVariant GridTableModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const int row = index.row() + 1, col = index.column() + 1;
  if (col == 1) {
    if (role == Qt::CheckStateRole) return grid_.Checked(row) ? Qt::Checked : Qt::Unchecked;
    return {};
  }
  if (role == Qt::DisplayRole) return Q(grid_.Text(row, col));
  return {};
}

bool GridTableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || index.column() != 0 || role != Qt::CheckStateRole) return false;
  grid_.SetChecked(index.row() + 1, value.toInt() == Qt::Checked);
  emit dataChanged(index, index, {Qt::CheckStateRole});
  return true;
}

QVariant GridTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return {};
  if (orientation == Qt::Vertical) return section + 1;
  return Q(grid_.Caption(section + 1));
}

Qt::ItemFlags GridTableModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  if (index.column() == 0) flags |= Qt::ItemIsUserCheckable;
  return flags;
}

void GridTableModel::Reload() {
  beginResetModel();
  endResetModel();
}

void ApplyHiddenColumns(QTableView& view, const common::Grid& grid) {
  for (int col = 1; col <= grid.MaxCols(); ++col) view.setColumnHidden(col - 1, grid.ColHidden(col));
}

}  // namespace lupin::ui
