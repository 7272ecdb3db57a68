// Navigation and field lookup on a materialised result.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "db/connection.h"
#include "db/recordset.h"

namespace lupin::db {
namespace {

Recordset ThreeRows() {
  return Recordset({"ID", "氏名"}, {{Value(1), Value("一")}, {Value(2), Value("二")}, {Value(3), Value("三")}});
}

// Each step is an action followed by the expected position (-1 BOF, 3 EOF).
TEST(RecordsetNavigation, MovesLikeAKeysetCursor) {
  enum Move { First, Last, Next, Previous };
  const struct {
    const char* name;
    std::vector<Move> moves;
    bool bof;
    bool eof;
    int id;  // 0 when neither
  } cases[] = {
      {"opened", {}, false, false, 1},
      {"next", {Next}, false, false, 2},
      {"past the end", {Next, Next, Next}, false, true, 0},
      {"next at the end stays", {Next, Next, Next, Next}, false, true, 0},
      {"back from the end", {Next, Next, Next, Previous}, false, false, 3},
      {"before the first", {Previous}, true, false, 0},
      {"previous at BOF stays", {Previous, Previous}, true, false, 0},
      {"next from BOF", {Previous, Next}, false, false, 1},
      {"last", {Last}, false, false, 3},
      {"last then previous", {Last, Previous}, false, false, 2},
      {"first after the end", {Last, Next, First}, false, false, 1},
  };
  for (const auto& c : cases) {
    Recordset rs = ThreeRows();
    for (Move move : c.moves) {
      switch (move) {
        case First: rs.MoveFirst(); break;
        case Last: rs.MoveLast(); break;
        case Next: rs.MoveNext(); break;
        case Previous: rs.MovePrevious(); break;
      }
    }
    EXPECT_EQ(rs.Bof(), c.bof) << c.name;
    EXPECT_EQ(rs.Eof(), c.eof) << c.name;
    if (c.id != 0) {
      EXPECT_EQ(rs["id"].Long(), c.id) << c.name;
    } else {
      EXPECT_THROW((void)rs["ID"], DbError) << c.name;
    }
  }
}

TEST(RecordsetNavigation, EmptyResultIsBothBofAndEof) {
  Recordset rs({"ID"}, {});
  EXPECT_TRUE(rs.Eof());
  EXPECT_TRUE(rs.Bof());
  rs.MoveNext();
  rs.MovePrevious();
  EXPECT_TRUE(rs.Eof());
  EXPECT_THROW((void)rs.Field(0), DbError);
}

TEST(RecordsetFields, LookupFoldsAsciiOnly) {
  const struct {
    const char* name;
    int index;
  } cases[] = {
      {"ID", 0},       {"id", 0},        {"氏名", 1},     {"ＩＤ", -1},
      {"顧客no", 2},   {"顧客NO", 2},    {"顧客ＮＯ", -1}, {"返信(出荷)", 3},
      {"返信（出荷）", 4}, {"", -1},      {"I", -1},
  };
  Recordset rs({"ID", "氏名", "顧客NO", "返信(出荷)", "返信（出荷）"}, {{Value(1), Value("a"), Value(2), Value("x"), Value("y")}});
  for (const auto& c : cases) EXPECT_EQ(rs.FieldIndex(c.name), c.index) << c.name;
  EXPECT_EQ(rs["返信(出荷)"].Text(), "x");
  EXPECT_EQ(rs["返信（出荷）"].Text(), "y");
}

// Wide rows use an index instead of a scan; it must agree with the scan, first duplicate winning.
TEST(RecordsetFields, WideRowsFindEveryFieldAndTheFirstDuplicate) {
  std::vector<std::string> names;
  std::vector<Value> row;
  for (int i = 1; i <= 40; ++i) {
    names.push_back("商品ID" + std::to_string(i));
    row.emplace_back(i);
  }
  names.push_back("商品id1");
  row.emplace_back(999);
  Recordset rs(names, {row});
  for (int i = 1; i <= 40; ++i) {
    EXPECT_EQ(rs.FieldIndex("商品Id" + std::to_string(i)), i - 1);
    EXPECT_EQ(rs["商品ID" + std::to_string(i)].Long(), i);
  }
  EXPECT_EQ(rs.FieldIndex("商品ID41"), -1);
  EXPECT_THROW((void)rs["商品ID41"], DbError);
  Recordset copy = rs;
  EXPECT_EQ(copy["商品ID1"].Long(), 1);
}

TEST(RecordsetFields, MissingFieldErrorNamesTheField) {
  Recordset rs = ThreeRows();
  try {
    (void)rs["請求額"];
    FAIL() << "no error";
  } catch (const DbError& error) {
    EXPECT_STREQ(error.what(), "項目 '請求額' がありません。");
  }
}

}  // namespace
}  // namespace lupin::db
