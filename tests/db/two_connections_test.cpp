// Two workstations on one database.
#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <thread>

#include "support/test_databases.h"

namespace lupin::db {
namespace {

using testing::EngineTest;
using testing::UrlOf;

class TwoConnections : public EngineTest {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    if (HasFatalFailure()) return;
    Db().Execute("CREATE TABLE [PRINTED] ([REPORT_NO] INTEGER, [ID] INTEGER, [CNT] INTEGER)");
    other_ = OpenConnection(UrlOf(Db()));
  }
  void TearDown() override { other_.reset(); }

  static std::int64_t Count(Connection& connection) {
    return connection.Open("SELECT COUNT(*) AS [N] FROM [PRINTED]")["N"].Long();
  }

  std::unique_ptr<Connection> other_;
};

TEST_P(TwoConnections, CommittedRowsAreSeenAndUncommittedAreNot) {
  Db().BeginTrans();
  Db().Execute("INSERT INTO [PRINTED] VALUES (25, 1, 1)");
  Db().Open("SELECT 1 AS [X]");  // sends what waits
  EXPECT_EQ(Count(*other_), 0);
  Db().CommitTrans();
  EXPECT_EQ(Count(*other_), 1);
}

TEST_P(TwoConnections, WritersTakeTurns) {
  for (int round = 0; round < 20; ++round) {
    Connection& writer = round % 2 == 0 ? Db() : *other_;
    Transaction guard(writer);
    writer.Execute("UPDATE [PRINTED] SET [CNT] = [CNT] + 1");
    writer.Execute("INSERT INTO [PRINTED] VALUES (25, " + std::to_string(round) + ", 1)");
    guard.Commit();
  }
  EXPECT_EQ(Count(Db()), 20);
  EXPECT_EQ(Count(*other_), 20);
  EXPECT_EQ(Db().Open("SELECT SUM([CNT]) AS [S] FROM [PRINTED]")["S"].Long(), 20 + 19 * 20 / 2);
}

// The second writer waits for the first one's commit instead of failing with "database is locked".
TEST_P(TwoConnections, ASecondWriterWaitsForTheFirst) {
  Db().BeginTrans();
  Db().Execute("INSERT INTO [PRINTED] VALUES (25, 1, 1)");
  Db().Open("SELECT 1 AS [X]");
  auto second = std::async(std::launch::async, [this] {
    Transaction guard(*other_);
    other_->Execute("INSERT INTO [PRINTED] VALUES (25, 2, 1)");
    guard.Commit();
  });
  EXPECT_EQ(second.wait_for(std::chrono::milliseconds(200)), GetParam() == Engine::Sqlite
                                                                   ? std::future_status::timeout
                                                                   : std::future_status::ready);
  Db().CommitTrans();
  second.get();
  EXPECT_EQ(Count(Db()), 2);
}

LUPIN_INSTANTIATE_ENGINES(TwoConnections);

}  // namespace
}  // namespace lupin::db
