#pragma once
// A view of the spreadsheet grid model (sprList, sprCustomer): column 1 is the check box, the other
// columns are text, row 0 gives the captions. The view reads the cells on demand, so a list of
// ten thousand rows is shown without copying it.
#include <QAbstractTableModel>
#include <QTableView>

#include "common/grid.h"

namespace lupin::ui {

class GridTableModel : public QAbstractTableModel {
 public:
  explicit GridTableModel(common::Grid& grid, QObject* parent = nullptr) : QAbstractTableModel(parent), grid_(grid) {}

  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : grid_.MaxRows(); }
  int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : grid_.MaxCols(); }
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

  // After the model's handlers changed the grid: rows, cells and captions anew.
  void Reload();
  common::Grid& Grid() { return grid_; }

 private:
  common::Grid& grid_;
};

// Hides the view's columns that the grid hides.
void ApplyHiddenColumns(QTableView& view, const common::Grid& grid);

}  // namespace lupin::ui
