#pragma once
// The spreadsheet grid model: what the print list shows and what the file writers read.
// Rows and columns are 1-based as the old grid control had them; row 0 holds the column captions and
// column 0 the row headers. Cells hold text; a check-box cell holds "1" or "0".
#include <string>
#include <string_view>
#include <vector>

namespace lupin::common {

class Grid {
 public:
  Grid() = default;
  Grid(int max_rows, int max_cols);

  int MaxRows() const { return max_rows_; }
  int MaxCols() const { return max_cols_; }
  // Growing keeps the cells; shrinking drops the rows or columns beyond the new bound.
  void SetMaxRows(int rows);
  void SetMaxCols(int cols);
  // Adds one empty row at the end and returns its index.
  int AddRow();
  void Clear();  // MaxRows 0, captions and hidden flags kept

  // Cell text; a cell outside the grid reads as "" and a write outside it is ignored, as the
  // control ignored it.
  const std::string& Text(int row, int col) const;
  void SetText(int row, int col, std::string_view text);
  // Numeric view of a cell, as Val of its text; "" reads as 0.
  double Value(int row, int col) const;
  void SetValue(int row, int col, double value);
  void SetValue(int row, int col, long long value);
  void SetValue(int row, int col, int value) { SetValue(row, col, static_cast<long long>(value)); }
  void SetValue(int row, int col, bool value);

  // Column 1 is the selection check of the print list.
  bool Checked(int row) const;
  void SetChecked(int row, bool checked);
  void CheckAll(bool checked);
  int CheckedCount() const;

  const std::string& Caption(int col) const { return Text(0, col); }
  void SetCaption(int col, std::string_view text) { SetText(0, col, text); }

  bool ColHidden(int col) const;
  void SetColHidden(int col, bool hidden);

  // The active cell, as the control's Row and Col properties.
  int Row() const { return row_; }
  int Col() const { return col_; }
  void SetRow(int row) { row_ = row; }
  void SetCol(int col) { col_ = col; }

  // Redraw is only a hint for a view; the model records it so a view can defer painting.
  bool ReDraw() const { return redraw_; }
  void SetReDraw(bool redraw) { redraw_ = redraw; }

  bool Visible() const { return visible_; }
  void SetVisible(bool visible) { visible_ = visible; }

 private:
  std::size_t Index(int row, int col) const;
  bool Inside(int row, int col) const;

  int max_rows_ = 0;
  int max_cols_ = 0;
  // (max_rows_ + 1) × (max_cols_ + 1) cells, row-major, row 0 and column 0 included.
  std::vector<std::string> cells_ = std::vector<std::string>(1);
  std::vector<bool> hidden_ = std::vector<bool>(1, false);
  int row_ = 0;
  int col_ = 0;
  bool redraw_ = true;
  bool visible_ = true;
};

}  // namespace lupin::common
