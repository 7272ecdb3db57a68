// Navigation and field lookup on a materialised result.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "db/connection.h"
#include "db/recordset.h"

namespace lupin::db {
namespace {

// Moves are F(irst), L(ast), N(ext) and P(revious); id 0 means the cursor is on no row.
TEST(RecordsetNavigation, MovesLikeAKeysetCursor) {
  const struct {
    std::string moves;
    bool bof, eof;
    int id;
  } cases[] = {{"NNNN", false, true, 0}, {"NNNP", false, false, 3}, {"PP", true, false, 0},
               {"PN", false, false, 1}, {"LNF", false, false, 1}};
  for (const auto& c : cases) {
    Recordset rs({"ID"}, {{Value(1)}, {Value(2)}, {Value(3)}});
    for (char move : c.moves) {
      if (move == 'F') rs.MoveFirst();
      if (move == 'L') rs.MoveLast();
      if (move == 'N') rs.MoveNext();
      if (move == 'P') rs.MovePrevious();
    }
    EXPECT_EQ(rs.Bof(), c.bof) << c.moves;
    EXPECT_EQ(rs.Eof(), c.eof) << c.moves;
    if (c.id != 0) {
      EXPECT_EQ(rs["id"].Long(), c.id) << c.moves;
    } else {
      EXPECT_THROW((void)rs["ID"], DbError) << c.moves;
    }
  }
  Recordset empty({"ID"}, std::vector<std::vector<Value>>{});
  empty.MoveNext();
  EXPECT_TRUE(empty.Eof() && empty.Bof());
}

TEST(RecordsetFields, LookupFoldsAsciiOnly) {
  const struct {
    const char* name;
    int index;
  } cases[] = {{"id", 0}, {"ＩＤ", -1}, {"顧客no", 2}, {"顧客ＮＯ", -1}, {"返信（出荷）", 4}, {"I", -1}};
  Recordset rs({"ID", "氏名", "顧客NO", "返信(出荷)", "返信（出荷）"}, {{Value(1), Value("a"), Value(2), Value("x"), Value("y")}});
  for (const auto& c : cases) EXPECT_EQ(rs.FieldIndex(c.name), c.index) << c.name;
  try {
    (void)rs["請求額"];
    FAIL() << "no error";
  } catch (const DbError& error) {
    EXPECT_STREQ(error.what(), "項目 '請求額' がありません。");
  }
}

// Wide rows use an index instead of a scan; it must agree with the scan, first duplicate winning.
TEST(RecordsetFields, WideRowsFindEveryFieldAndTheFirstDuplicate) {
  std::vector<std::string> names;
  std::vector<Value> row;
  for (int i = 1; i <= 41; ++i) {
    names.push_back(i <= 40 ? "商品ID" + std::to_string(i) : "商品id1");
    row.emplace_back(i <= 40 ? i : 999);
  }
  Recordset rs(names, {row});
  for (int i = 1; i <= 40; ++i) {
    EXPECT_EQ(rs.FieldIndex("商品Id" + std::to_string(i)), i - 1);
    EXPECT_EQ(rs["商品ID" + std::to_string(i)].Long(), i);
  }
  EXPECT_EQ(rs.FieldIndex("商品ID41"), -1);
  Recordset copy = rs;
  EXPECT_EQ(copy["商品ID1"].Long(), 1);
}

}  // namespace
}  // namespace lupin::db
