// Results read as the cursor moves (the print list, a report's data): the moves a report makes,
// other statements running meanwhile, and the counting of a result that was not read to its end.
#include <gtest/gtest.h>

#include <string>

#include "support/test_databases.h"

namespace lupin::db {
namespace {

using testing::EngineTest;

class StreamedRecordset : public EngineTest {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    if (HasFatalFailure()) return;
    Db().Execute("CREATE TABLE [T] ([ID] INTEGER PRIMARY KEY, [NAME] VARCHAR(20))");
    Db().BeginTrans();
    for (int id = 1; id <= 500; ++id) Db().Execute("INSERT INTO [T] VALUES (" + std::to_string(id) + ", 'n" + std::to_string(id) + "')");
    Db().CommitTrans();
  }
};

// Moves are F(irst), L(ast), N(ext) and P(revious); 0 means the cursor is on no row.
TEST_P(StreamedRecordset, MovesAsTheEngineAndTheSlipsMoveIt) {
  const struct {
    std::string moves;
    int id;
  } cases[] = {{"", 1}, {"NNN", 4}, {"NNNP", 3}, {"NNNPN", 4}, {"L", 500}, {"LF", 1}, {"LNP", 500}, {"NNNNF", 1}, {"P", 0}};
  for (const auto& c : cases) {
    Recordset rs = Db().OpenForward("SELECT [ID],[NAME] FROM [T] ORDER BY [ID]");
    for (char move : c.moves) {
      if (move == 'F') rs.MoveFirst();
      if (move == 'L') rs.MoveLast();
      if (move == 'N') rs.MoveNext();
      if (move == 'P') rs.MovePrevious();
    }
    if (c.id == 0) {
      EXPECT_TRUE(rs.Bof()) << c.moves;
    } else {
      ASSERT_FALSE(rs.Eof()) << c.moves;
      EXPECT_EQ(rs["ID"].Long(), c.id) << c.moves;
      EXPECT_EQ(rs["name"].Text(), "n" + std::to_string(c.id)) << c.moves;
    }
  }
}

TEST_P(StreamedRecordset, ReadsToTheEndWhileOtherStatementsRun) {
  Recordset rs = Db().OpenForward("SELECT [ID] FROM [T] WHERE [ID] > 100 ORDER BY [ID]");
  EXPECT_EQ(rs.RecordCount(), 400u) << "counted without reading";
  long sum = 0;
  int rows = 0;
  for (; !rs.Eof(); rs.MoveNext(), ++rows) {
    sum += static_cast<long>(rs["ID"].Long());
    // The report objects look up other tables per record.
    if (rows % 100 == 0) {
      EXPECT_EQ(Db().Open("SELECT COUNT(*) AS [N] FROM [T]")["N"].Long(), 500);
    }
  }
  EXPECT_EQ(rows, 400);
  EXPECT_EQ(sum, (101 + 500) * 400 / 2);
  EXPECT_THROW((void)rs["ID"], DbError) << "at the end there is no row";
  rs.MovePrevious();
  EXPECT_EQ(rs["ID"].Long(), 500) << "the group footer's step back from the end";
  // SQLite streams the rows; the PostgreSQL driver reads them whole.
  ASSERT_EQ(rs.Streamed(), GetParam() == Engine::Sqlite);
  if (rs.Streamed()) {
    EXPECT_THROW({ rs.MovePrevious(); rs.MovePrevious(); }, DbError) << "no further back than two rows";
  }
  // The statement let go of its read: a write transaction goes through.
  Db().BeginTrans();
  Db().Execute("UPDATE [T] SET [NAME] = 'x' WHERE [ID] = 1");
  Db().CommitTrans();
  Recordset none = Db().OpenForward("SELECT [ID] FROM [T] WHERE [ID] < 0");
  EXPECT_TRUE(none.Eof() && none.Bof());
  EXPECT_EQ(none.RecordCount(), 0u);
}

LUPIN_INSTANTIATE_ENGINES(StreamedRecordset);

}  // namespace
}  // namespace lupin::db
