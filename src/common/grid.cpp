#include "common/grid.h"

#include <algorithm>

#include <fmt/format.h>

#include "common/vb.h"

namespace lupin::common {

namespace {
const std::string kEmpty;
}

Grid::Grid(int max_rows, int max_cols) {
  SetMaxCols(max_cols);
  SetMaxRows(max_rows);
}

std::size_t Grid::Index(int row, int col) const {
  return static_cast<std::size_t>(row) * static_cast<std::size_t>(max_cols_ + 1) +
         static_cast<std::size_t>(col);
}

bool Grid::Inside(int row, int col) const {
  return row >= 0 && col >= 0 && row <= max_rows_ && col <= max_cols_;
}

void Grid::SetMaxRows(int rows) {
  if (rows < 0) rows = 0;
  max_rows_ = rows;
  cells_.resize(Index(max_rows_ + 1, 0));
}

void Grid::SetMaxCols(int cols) {
  if (cols < 0) cols = 0;
  if (cols == max_cols_) return;
  std::vector<std::string> cells(static_cast<std::size_t>(max_rows_ + 1) *
                                 static_cast<std::size_t>(cols + 1));
  const int keep = std::min(cols, max_cols_);
  for (int r = 0; r <= max_rows_; ++r) {
    for (int c = 0; c <= keep; ++c) {
      cells[static_cast<std::size_t>(r) * static_cast<std::size_t>(cols + 1) +
            static_cast<std::size_t>(c)] = std::move(cells_[Index(r, c)]);
    }
  }
  cells_ = std::move(cells);
  max_cols_ = cols;
  hidden_.resize(static_cast<std::size_t>(cols + 1), false);
}

int Grid::AddRow() {
  SetMaxRows(max_rows_ + 1);
  return max_rows_;
}

void Grid::Clear() { SetMaxRows(0); }

const std::string& Grid::Text(int row, int col) const {
  if (!Inside(row, col)) return kEmpty;
  return cells_[Index(row, col)];
}

void Grid::SetText(int row, int col, std::string_view text) {
  if (!Inside(row, col)) return;
  cells_[Index(row, col)] = std::string(text);
}

double Grid::Value(int row, int col) const { return vb::Val(Text(row, col)); }

void Grid::SetValue(int row, int col, double value) { SetText(row, col, fmt::format("{}", value)); }

void Grid::SetValue(int row, int col, long long value) { SetText(row, col, fmt::format("{}", value)); }

void Grid::SetValue(int row, int col, bool value) { SetText(row, col, value ? "1" : "0"); }

bool Grid::Checked(int row) const { return row >= 1 && Value(row, 1) != 0; }

void Grid::SetChecked(int row, bool checked) {
  if (row >= 1) SetValue(row, 1, checked);
}

void Grid::CheckAll(bool checked) {
  for (int r = 1; r <= max_rows_; ++r) SetChecked(r, checked);
}

int Grid::CheckedCount() const {
  int count = 0;
  for (int r = 1; r <= max_rows_; ++r) count += Checked(r) ? 1 : 0;
  return count;
}

bool Grid::ColHidden(int col) const {
  return col >= 0 && col <= max_cols_ && hidden_[static_cast<std::size_t>(col)];
}

void Grid::SetColHidden(int col, bool hidden) {
  if (col >= 0 && col <= max_cols_) hidden_[static_cast<std::size_t>(col)] = hidden;
}

}  // namespace lupin::common
