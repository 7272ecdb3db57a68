// Values, names and quoting as they come back from each engine.
#include <gtest/gtest.h>

#include "support/test_databases.h"

namespace lupin::db {
namespace {

using EngineTypes = testing::EngineTest;

// Sums and whole decimals come back as integers, so their text has no decimal point.
TEST_P(EngineTypes, ColumnTypesRoundTrip) {
  Db().Execute("CREATE TABLE [T] ([I] INTEGER, [B] BIGINT, [R] DOUBLE PRECISION, [S] VARCHAR(50), [N] NUMERIC(12,2), "
               "[W] NUMERIC(10,0), [Z] INTEGER)");
  Db().Execute("INSERT INTO [T] VALUES (42, 4000000000, 0.5, '受注', 12.25, 250, NULL)");
  Db().Execute("INSERT INTO [T] VALUES (1958, 4000000000, 0.5, '受注', 12.25, 50, NULL)");
  Recordset rs = Db().Open("SELECT [I], [B], [R], [S], [N], [Z], SUM([W]) OVER () AS [SW], SUM([B]) OVER () AS [SB], "
                           "SUM([I]) OVER () AS [SI] FROM [T] ORDER BY [I]");
  ASSERT_EQ(rs.RecordCount(), 2u);
  EXPECT_EQ(rs["I"], Value(42));
  EXPECT_EQ(rs["B"], Value(std::int64_t{4000000000}));
  EXPECT_EQ(rs["R"], Value(0.5));
  EXPECT_EQ(rs["S"], Value("受注"));
  EXPECT_EQ(rs["N"].Number(), 12.25);
  EXPECT_TRUE(rs["Z"].IsNull());
  EXPECT_EQ(rs["SW"].Text() + " " + rs["SB"].Text() + " " + rs["SI"].Text(), "300 8000000000 2000");
}

TEST_P(EngineTypes, NullAndEmptyTextStayDistinct) {
  Db().Execute("CREATE TABLE [CHUMON] ([ID] INTEGER, [入金日] VARCHAR(10))");
  Db().Execute("INSERT INTO [CHUMON] VALUES (1, NULL); INSERT INTO [CHUMON] VALUES (2, ''); "
               "INSERT INTO [CHUMON] VALUES (3, '2024/01/05')");
  for (const auto& [where, id] : {std::pair{"[入金日] IS NULL", 1}, {"[入金日] = ''", 2}, {"[入金日] > ''", 3}}) {
    Recordset rs = Db().Open(std::string("SELECT [ID] FROM [CHUMON] WHERE ") + where);
    ASSERT_EQ(rs.RecordCount(), 1u) << where;
    EXPECT_EQ(rs["ID"].Long(), id) << where;
  }
}

// Both bracket forms are two columns; ASCII case folds, whatever case the query used.
TEST_P(EngineTypes, JapaneseNamesAndCase) {
  Db().Execute("CREATE TABLE [CHUMON] ([ID] INTEGER, [返信（出荷）] VARCHAR(10), [返信(出荷)] VARCHAR(10), [顧客NO] INTEGER)");
  Db().Execute("INSERT INTO [CHUMON] ([ID], [返信（出荷）], [返信(出荷)], [顧客NO]) VALUES (1, '全角', '半角', 7)");
  Db().Execute("UPDATE [CHUMON] SET [返信(出荷)] = '済' WHERE [ID] = 1");
  Recordset rs = Db().Open("SELECT [CHUMON].* FROM [CHUMON]");
  ASSERT_FALSE(rs.Eof());
  EXPECT_EQ(rs["返信（出荷）"].Text(), "全角");
  EXPECT_EQ(rs["返信(出荷)"].Text(), "済");
  EXPECT_EQ(rs["顧客no"].Long(), 7);
  EXPECT_TRUE(rs.HasField("id"));
}

// A failing text fails every time with the engine's message and leaves the connection usable.
TEST_P(EngineTypes, ErrorsCarryTheEngineMessage) {
  try {
    Db().Execute("SELEKT 1");
    ADD_FAILURE() << "no error";
  } catch (const DbError& error) {
    EXPECT_NE(std::string(error.what()).find("syntax error"), std::string::npos) << error.what();
  }
  Db().Execute("CREATE TABLE [T] ([ID] INTEGER PRIMARY KEY); INSERT INTO [T] VALUES (1)");
  for (int attempt = 0; attempt < 3; ++attempt) EXPECT_THROW(Db().Execute("INSERT INTO [T] VALUES (1)"), DbError);
  EXPECT_EQ(Db().Execute("INSERT INTO [T] VALUES (2)"), 1);
}

// Loops run one text many times; a reused statement must see the rows written in between.
TEST_P(EngineTypes, StatementTexts) {
  Db().Execute("CREATE TABLE [T] ([ID] INTEGER, [MEMO] VARCHAR(50)); INSERT INTO [T] VALUES (1, 'It''s [A]');");
  for (int i = 1; i <= 3; ++i) {
    EXPECT_EQ(Db().Execute("INSERT INTO [T] VALUES (7, 'a]b[c')"), 1);
    EXPECT_EQ(Db().Open("SELECT SUM([ID]) AS [S] FROM [T]")["S"].Long(), 1 + 7 * i);
  }
  Recordset rs = Db().Open("DELETE FROM [T] WHERE [ID] = 7; SELECT [MEMO] FROM [T]");
  ASSERT_EQ(rs.RecordCount(), 1u);
  EXPECT_EQ(rs["memo"].Text(), "It's [A]");  // brackets inside literals are data
  EXPECT_EQ(Db().Execute("UPDATE [T] SET [ID] = 3 WHERE [ID] = 99"), 0);
}

LUPIN_INSTANTIATE_ENGINES(EngineTypes);

TEST(OpenConnection, RejectsWhatItCannotOpen) {
  for (const char* url : {"mysql://x", "sqlite:/nonexistent-dir/x/y.sqlite"}) {
    EXPECT_THROW(OpenConnection(url), DbError) << url;
  }
  EXPECT_EQ(OpenConnection("sqlite::memory:")->Open("SELECT 1 + 1 AS [N]")["n"].Long(), 2);
}

}  // namespace
}  // namespace lupin::db
