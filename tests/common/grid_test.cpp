#include <gtest/gtest.h>

#include "common/grid.h"

namespace lupin::common {
namespace {

TEST(Grid, CellsOutsideTheGridReadEmptyAndIgnoreWrites) {
  Grid grid(2, 3);
  grid.SetText(3, 1, "x");
  grid.SetText(1, 4, "x");
  EXPECT_EQ(grid.Text(3, 1) + grid.Text(1, 4) + grid.Text(-1, -1), "");
  EXPECT_EQ(grid.MaxRows(), 2);
  EXPECT_EQ(grid.MaxCols(), 3);
}

TEST(Grid, ResizingKeepsCellsAndCaptions) {
  Grid grid(1, 2);
  grid.SetCaption(2, "ID");
  grid.SetText(1, 2, "100");
  grid.SetMaxCols(5);
  grid.SetText(1, 5, "end");
  EXPECT_EQ(grid.Caption(2), "ID");
  EXPECT_EQ(grid.Text(1, 2), "100");
  const int row = grid.AddRow();
  EXPECT_EQ(row, 2);
  EXPECT_EQ(grid.Text(1, 5), "end");
  EXPECT_EQ(grid.Text(2, 5), "");
  grid.SetMaxCols(2);
  EXPECT_EQ(grid.Text(1, 2), "100");
  EXPECT_EQ(grid.Text(1, 5), "");
  grid.Clear();
  EXPECT_EQ(grid.MaxRows(), 0);
  EXPECT_EQ(grid.Caption(2), "ID");
}

TEST(Grid, CheckColumnFollowsTheValueOfColumnOne) {
  Grid grid(3, 4);
  grid.SetValue(1, 1, 1);
  grid.SetText(2, 1, "0");
  grid.SetValue(3, 1, true);
  EXPECT_TRUE(grid.Checked(1));
  EXPECT_FALSE(grid.Checked(2));
  EXPECT_TRUE(grid.Checked(3));
  EXPECT_EQ(grid.CheckedCount(), 2);
  grid.CheckAll(false);
  EXPECT_EQ(grid.CheckedCount(), 0);
  grid.CheckAll(true);
  EXPECT_EQ(grid.CheckedCount(), 3);
  EXPECT_FALSE(grid.Checked(0)) << "the caption row is never a selection";
}

TEST(Grid, NumbersReadBackThroughVal) {
  Grid grid(1, 3);
  grid.SetValue(1, 2, 12345.5);
  grid.SetValue(1, 3, 30000LL);
  EXPECT_DOUBLE_EQ(grid.Value(1, 2), 12345.5);
  EXPECT_EQ(grid.Text(1, 3), "30000");
  EXPECT_DOUBLE_EQ(grid.Value(1, 1), 0) << "an empty cell is 0";
}

TEST(Grid, HiddenFlagsSurviveGrowth) {
  Grid grid(0, 3);
  grid.SetColHidden(3, true);
  grid.SetMaxCols(6);
  EXPECT_TRUE(grid.ColHidden(3));
  EXPECT_FALSE(grid.ColHidden(6));
  EXPECT_FALSE(grid.ColHidden(40));
}

// A season's list: rows beyond a megabyte go to the temporary file and still read back, change,
// copy and shrink like rows in memory.
TEST(Grid, LongListsLeaveMemoryAndReadBack) {
  Grid grid(0, 4);
  const auto name = [](int row) { return "山田 太郎 " + std::to_string(row) + " 東京都千代田区千代田一丁目"; };
  for (int k = 1; k <= 30000; ++k) {
    const int row = grid.AddRow();
    grid.SetValue(row, 1, 1);
    grid.SetText(row, 2, std::to_string(k));
    grid.SetText(row, 4, name(k));
  }
  EXPECT_LT(grid.PackedBytesInMemory(), 1u << 20);
  grid.SetChecked(7, false);
  grid.SetText(29999, 3, "後から");
  const Grid copy = grid;
  grid.SetMaxRows(20000);
  int bad = 0;
  for (int row = 1; row <= 20000; ++row) {
    bad += grid.Text(row, 2) != std::to_string(row) || grid.Text(row, 4) != name(row) || grid.Text(row, 3) != "";
  }
  EXPECT_EQ(bad, 0);
  EXPECT_EQ(grid.CheckedCount(), 19999);
  EXPECT_EQ(copy.MaxRows(), 30000);
  EXPECT_EQ(copy.Text(29999, 3) + copy.Text(30000, 2), "後から30000");
  EXPECT_FALSE(copy.Checked(7));
  EXPECT_EQ(grid.Text(20001, 2), "");
}

}  // namespace
}  // namespace lupin::common
