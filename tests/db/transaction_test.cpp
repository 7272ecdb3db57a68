// Transactions, deferred statements and failures, on both engines.
#include <gtest/gtest.h>

#include <string>

#include "support/test_databases.h"

namespace lupin::db {
namespace {

using testing::EngineTest;

class Transactions : public EngineTest {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    if (HasFatalFailure()) return;
    Db().Execute("CREATE TABLE [WK_PRINT] ([ID] INTEGER PRIMARY KEY, [CLIENT_NAME] VARCHAR(20))");
    Db().Execute("INSERT INTO [WK_PRINT] VALUES (1, 'OLD')");
  }

  std::int64_t Count(const std::string& where = "1 = 1") {
    return Db().Open("SELECT COUNT(*) AS [N] FROM [WK_PRINT] WHERE " + where)["N"].Long();
  }

  std::string Insert(int id) {
    return "INSERT INTO [WK_PRINT] ([ID], [CLIENT_NAME]) VALUES (" + std::to_string(id) + ", 'PC1')";
  }
};

// A commit without a transaction and a nested begin are errors; a second rollback is not.
TEST_P(Transactions, RollbackLeavesTheOldRows) {
  EXPECT_THROW(Db().CommitTrans(), DbError);
  Db().BeginTrans();
  EXPECT_THROW(Db().BeginTrans(), DbError);
  Db().Execute("DELETE FROM [WK_PRINT]");
  for (int id = 10; id < 15; ++id) Db().Execute(Insert(id));
  Db().RollbackTrans();
  Db().RollbackTrans();
  EXPECT_FALSE(Db().InTransaction());
  EXPECT_EQ(Count("[CLIENT_NAME] = 'OLD'"), 1);
  {
    Transaction guard(Db());
    Db().Execute(Insert(20));
  }
  EXPECT_EQ(Count(), 1);
}

TEST_P(Transactions, CommitKeepsEveryStatementInOrder) {
  Db().BeginTrans();
  Db().Execute("DELETE FROM [WK_PRINT] WHERE [CLIENT_NAME] = 'OLD'");
  // More statements than one batch holds, and a delete that must run after the inserts it removes.
  for (int id = 100; id < 550; ++id) Db().Execute(Insert(id));
  Db().Execute("DELETE FROM [WK_PRINT] WHERE [ID] >= 500");
  Db().CommitTrans();
  EXPECT_EQ(Count(), 400);
  EXPECT_EQ(Count("[CLIENT_NAME] = 'OLD'"), 0);
}

TEST_P(Transactions, QueriesInsideSeeEarlierStatements) {
  Transaction guard(Db());
  // PostgreSQL defers the statement to a batch, so its count is unknown.
  EXPECT_EQ(Db().Execute(Insert(2)), GetParam() == Engine::Sqlite ? 1 : -1);
  EXPECT_EQ(Count(), 2);
  EXPECT_EQ(Db().ExecuteNow("UPDATE [WK_PRINT] SET [CLIENT_NAME] = 'X' WHERE [ID] >= 1"), 2);
  EXPECT_EQ(Db().ExecuteNow("UPDATE [WK_PRINT] SET [CLIENT_NAME] = 'X' WHERE [ID] = 99"), 0);
  guard.Commit();
  EXPECT_EQ(Db().Execute("DELETE FROM [WK_PRINT] WHERE [ID] = 2"), 1);
}

// The duplicate key fails at once on SQLite and at the next round trip on PostgreSQL; either way
// the commit reports the first error and nothing of the transaction stays behind.
TEST_P(Transactions, FailingStatementRollsBackEverything) {
  Db().BeginTrans();
  Db().Execute("DELETE FROM [WK_PRINT]");
  Db().Execute(Insert(7));
  try {
    Db().Execute(Insert(7));
    Db().Execute(Insert(8));
  } catch (const DbError&) {
  }
  std::string message;
  try {
    Db().CommitTrans();
  } catch (const DbError& error) {
    message = error.what();
  }
  EXPECT_NE(message.find(GetParam() == Engine::Sqlite ? "UNIQUE constraint failed" : "duplicate key value"),
            std::string::npos) << message;
  EXPECT_FALSE(Db().InTransaction());
  Db().RollbackTrans();  // a handler's rollback after the failed commit is harmless
  EXPECT_EQ(Count("[CLIENT_NAME] = 'OLD'"), 1);
  Db().Execute(Insert(9));  // usable again afterwards
  EXPECT_EQ(Count(), 2);
}

LUPIN_INSTANTIATE_ENGINES(Transactions);

}  // namespace
}  // namespace lupin::db
