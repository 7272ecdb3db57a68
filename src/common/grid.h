#pragma once
// The spreadsheet grid model: what the print list shows and what the file writers read.
// Rows and columns are 1-based as the old grid control had them; row 0 holds the column captions and
// column 0 the row headers. Cells hold text; a check-box cell holds "1" or "0".
//
// A season's list holds a hundred thousand rows, so rows are kept packed, one run of bytes each,
// and beyond a megabyte they go to an unlinked temporary file: memory stays flat however long the
// list. A few rows stay unpacked for reading and writing; a reference from Text stays valid until
// eight other rows have been touched.
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace lupin::common {

class Grid {
 public:
  Grid();
  Grid(int max_rows, int max_cols);
  ~Grid();
  Grid(const Grid& other);
  Grid& operator=(const Grid& other);
  Grid(Grid&& other) noexcept;
  Grid& operator=(Grid&& other) noexcept;

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

  // Bytes of packed rows held in memory (the rest is in the temporary file), for the tests.
  std::size_t PackedBytesInMemory() const;

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
  struct RowStore;
  bool Inside(int row, int col) const;
  std::vector<std::string>& Unpacked(int row) const;

  int max_rows_ = 0;
  int max_cols_ = 0;
  std::vector<std::string> captions_ = std::vector<std::string>(1);  // row 0
  std::vector<bool> hidden_ = std::vector<bool>(1, false);
  std::unique_ptr<RowStore> store_;  // rows 1 .. max_rows_
  int row_ = 0;
  int col_ = 0;
  bool redraw_ = true;
  bool visible_ = true;
};

}  // namespace lupin::common
