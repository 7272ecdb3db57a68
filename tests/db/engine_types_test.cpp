// Values, names and quoting as they come back from each engine.
#include <gtest/gtest.h>

#include "support/test_databases.h"

namespace lupin::db {
namespace {

using testing::EngineTest;

class EngineTypes : public EngineTest {};

TEST_P(EngineTypes, ColumnTypesRoundTrip) {
  Db().Execute("CREATE TABLE [T] ([I] INTEGER, [B] BIGINT, [R] DOUBLE PRECISION, [S] VARCHAR(50), [N] NUMERIC(12,2), [Z] INTEGER)");
  Db().Execute("INSERT INTO [T] VALUES (42, 9000000000, 0.5, '受注', 12.25, NULL)");
  Recordset rs = Db().Open("SELECT [I], [B], [R], [S], [N], [Z] FROM [T]");
  ASSERT_EQ(rs.RecordCount(), 1u);
  EXPECT_EQ(rs["I"], Value(42));
  EXPECT_EQ(rs["B"], Value(std::int64_t{9000000000}));
  EXPECT_EQ(rs["R"], Value(0.5));
  EXPECT_EQ(rs["S"], Value("受注"));
  EXPECT_EQ(rs["N"].Number(), 12.25);
  EXPECT_TRUE(rs["Z"].IsNull());
  EXPECT_EQ(rs["Z"].Text(), "");
}

TEST_P(EngineTypes, NullAndEmptyTextStayDistinct) {
  Db().Execute("CREATE TABLE [CHUMON] ([ID] INTEGER, [入金日] VARCHAR(10))");
  Db().Execute("INSERT INTO [CHUMON] VALUES (1, NULL)");
  Db().Execute("INSERT INTO [CHUMON] VALUES (2, '')");
  Db().Execute("INSERT INTO [CHUMON] VALUES (3, '2024/01/05')");
  struct Case {
    const char* where;
    std::int64_t id;
  };
  for (const Case& c : {Case{"[入金日] IS NULL", 1}, Case{"[入金日] = ''", 2}, Case{"[入金日] > ''", 3}}) {
    Recordset rs = Db().Open(std::string("SELECT [ID] FROM [CHUMON] WHERE ") + c.where);
    ASSERT_EQ(rs.RecordCount(), 1u) << c.where;
    EXPECT_EQ(rs["ID"].Long(), c.id) << c.where;
  }
  Recordset both = Db().Open("SELECT [ID] FROM [CHUMON] WHERE [入金日] IS NULL OR [入金日] = '' ORDER BY [ID]");
  EXPECT_EQ(both.RecordCount(), 2u);
}

TEST_P(EngineTypes, JapaneseNamesWithBothBracketFormsAreTwoColumns) {
  Db().Execute("CREATE TABLE [CHUMON] ([ID] INTEGER, [返信（出荷）] VARCHAR(10), [返信(出荷)] VARCHAR(10), [顧客NO] INTEGER)");
  Db().Execute("INSERT INTO [CHUMON] ([ID], [返信（出荷）], [返信(出荷)], [顧客NO]) VALUES (1, '全角', '半角', 7)");
  Db().Execute("UPDATE [CHUMON] SET [返信(出荷)] = '済' WHERE [ID] = 1");
  Recordset rs = Db().Open("SELECT [CHUMON].* FROM [CHUMON]");
  ASSERT_FALSE(rs.Eof());
  EXPECT_EQ(rs["返信（出荷）"].Text(), "全角");
  EXPECT_EQ(rs["返信(出荷)"].Text(), "済");
  EXPECT_EQ(rs["顧客no"].Long(), 7);
  EXPECT_EQ(rs["顧客NO"].Long(), 7);
}

TEST_P(EngineTypes, BracketsInsideStringLiteralsAreData) {
  Db().Execute("CREATE TABLE [M] ([ID] INTEGER, [MEMO] VARCHAR(50))");
  const struct {
    const char* literal;
    const char* stored;
  } cases[] = {
      {"'[x]'", "[x]"},
      {"'It''s [A]'", "It's [A]"},
      {"'['", "["},
      {"'a]b[c'", "a]b[c"},
  };
  int id = 0;
  for (const auto& c : cases) {
    ++id;
    Db().Execute("INSERT INTO [M] ([ID], [MEMO]) VALUES (" + std::to_string(id) + ", " + c.literal + ")");
    Recordset rs = Db().Open("SELECT [MEMO] FROM [M] WHERE [ID] = " + std::to_string(id));
    ASSERT_FALSE(rs.Eof()) << c.literal;
    EXPECT_EQ(rs["memo"].Text(), c.stored) << c.literal;
  }
}

TEST_P(EngineTypes, FieldNamesMatchWhateverCaseTheQueryUsed) {
  Db().Execute("CREATE TABLE [WK_PRINT] ([ID] INTEGER, [CLIENT_NAME] VARCHAR(20), [Simei] VARCHAR(20))");
  Db().Execute("INSERT INTO [WK_PRINT] VALUES (5, 'PC1', '山田')");
  Recordset rs = Db().Open("SELECT * FROM [WK_PRINT]");
  for (const char* name : {"ID", "id", "Id", "CLIENT_NAME", "client_name", "SIMEI", "simei"}) {
    EXPECT_TRUE(rs.HasField(name)) << name;
  }
  EXPECT_EQ(rs["client_NAME"].Text(), "PC1");
  EXPECT_EQ(rs.FieldIndex("nothing"), -1);
  try {
    (void)rs["NOTHING"];
    ADD_FAILURE() << "a missing field must throw";
  } catch (const DbError& error) {
    EXPECT_NE(std::string(error.what()).find("NOTHING"), std::string::npos) << error.what();
  }
}

TEST_P(EngineTypes, SyntaxErrorsCarryTheEngineMessage) {
  try {
    Db().Execute("SELEKT 1");
    ADD_FAILURE() << "no error";
  } catch (const DbError& error) {
    EXPECT_NE(std::string(error.what()).find("syntax error"), std::string::npos) << error.what();
  }
}

// Loops run one text many times; a reused statement must see the rows written in between.
TEST_P(EngineTypes, RepeatedTextSeesNewRows) {
  Db().Execute("CREATE TABLE [T] ([ID] INTEGER)");
  for (int i = 1; i <= 3; ++i) {
    EXPECT_EQ(Db().Execute("INSERT INTO [T] VALUES (7)"), 1);
    Recordset rs = Db().Open("SELECT COUNT(*) AS [N], SUM([ID]) AS [S] FROM [T]");
    EXPECT_EQ(rs["N"].Long(), i);
    EXPECT_EQ(rs["S"].Long(), 7 * i);
  }
}

TEST_P(EngineTypes, SeveralStatementsInOneText) {
  Db().Execute("CREATE TABLE [T] ([ID] INTEGER); INSERT INTO [T] VALUES (1); INSERT INTO [T] VALUES (2);");
  Recordset rs = Db().Open("DELETE FROM [T] WHERE [ID] = 1; SELECT [ID] FROM [T]");
  ASSERT_EQ(rs.RecordCount(), 1u);
  EXPECT_EQ(rs["ID"].Long(), 2);
  EXPECT_EQ(Db().Execute("UPDATE [T] SET [ID] = 3"), 1);
  EXPECT_EQ(Db().Execute("UPDATE [T] SET [ID] = 3 WHERE [ID] = 99"), 0);
}

TEST_P(EngineTypes, RepeatedFailingTextFailsEveryTimeAndLeavesTheConnectionUsable) {
  Db().Execute("CREATE TABLE [T] ([ID] INTEGER PRIMARY KEY)");
  Db().Execute("INSERT INTO [T] VALUES (1)");
  for (int attempt = 0; attempt < 3; ++attempt) {
    EXPECT_THROW(Db().Execute("INSERT INTO [T] VALUES (1)"), DbError) << attempt;
  }
  EXPECT_EQ(Db().Execute("INSERT INTO [T] VALUES (2)"), 1);
  EXPECT_EQ(Db().Open("SELECT COUNT(*) AS [N] FROM [T]")["N"].Long(), 2);
}

// Sums and whole decimals come back as integers, so their text has no decimal point.
TEST_P(EngineTypes, WholeNumbersReadAsIntegers) {
  Db().Execute("CREATE TABLE [T] ([A] INTEGER, [B] NUMERIC(10,0), [C] BIGINT)");
  Db().Execute("INSERT INTO [T] VALUES (1900, 250, 4000000000)");
  Db().Execute("INSERT INTO [T] VALUES (100, 50, 4000000000)");
  Recordset rs = Db().Open("SELECT SUM([A]) AS [SA], SUM([B]) AS [SB], SUM([C]) AS [SC], COUNT(*) AS [N] FROM [T]");
  const struct {
    const char* field;
    const char* text;
  } cases[] = {{"SA", "2000"}, {"SB", "300"}, {"SC", "8000000000"}, {"N", "2"}};
  for (const auto& c : cases) EXPECT_EQ(rs[c.field].Text(), c.text) << c.field;
}

LUPIN_INSTANTIATE_ENGINES(EngineTypes);

TEST(OpenConnection, RejectsWhatItCannotOpen) {
  for (const char* url : {"mysql://x", "", "sqlite:/nonexistent-dir/x/y.sqlite",
                          "postgresql://nobody@127.0.0.1:1/none?connect_timeout=2"}) {
    EXPECT_THROW(OpenConnection(url), DbError) << url;
  }
  auto memory = OpenConnection("sqlite::memory:");
  EXPECT_EQ(memory->GetEngine(), Engine::Sqlite);
  EXPECT_EQ(memory->Open("SELECT 1 + 1 AS [N]")["n"].Long(), 2);
}

}  // namespace
}  // namespace lupin::db
