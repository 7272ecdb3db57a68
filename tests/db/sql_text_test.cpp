// Rewriting of statement texts for PostgreSQL and the choice of what may wait in a batch.
#include <gtest/gtest.h>

#include "db/identifier_quotes.h"
#include "db/postgres/statement_batch.h"

namespace lupin::db {
namespace {

TEST(EngineSqlText, RewritesNamesAndDatesOnlyOutsideLiterals) {
  const struct {
    const char* sql;
    const char* postgres;  // brackets too
    const char* sqlite;    // dates only
  } cases[] = {
      {"SELECT [CHUMON].* FROM [CHUMON]", "SELECT \"chumon\".* FROM \"chumon\"", "SELECT [CHUMON].* FROM [CHUMON]"},
      {"WHERE [顧客NO] = 3", "WHERE \"顧客no\" = 3", "WHERE [顧客NO] = 3"},
      {"WHERE [A] = 'It''s [B]' AND [C] = 1", "WHERE \"a\" = 'It''s [B]' AND \"c\" = 1", nullptr},
      {"SELECT \"[Keep]\" FROM t", "SELECT \"[Keep]\" FROM t", nullptr},
      {"SELECT 1 -- [Note]\nFROM [T]", "SELECT 1 -- [Note]\nFROM \"t\"", nullptr},
      {"SELECT /* [Note] */ [T]", "SELECT /* [Note] */ \"t\"", nullptr},
      {"SELECT [a\"b]", "SELECT \"a\"\"b\"", nullptr},
      {"SELECT [UNCLOSED", "SELECT [UNCLOSED", nullptr},
      // Dialect 1's dates, as the criteria and the tax lookups write them.
      {"WHERE [FROM_DATE] <= #2024/03/31# AND [X] >= #2024/1/5#", "WHERE \"from_date\" <= '2024/03/31' AND \"x\" >= '2024/1/5'",
       "WHERE [FROM_DATE] <= '2024/03/31' AND [X] >= '2024/1/5'"},
      // Not dates: inside a literal, a name or a comment, unclosed, blank-edged, or empty.
      {"WHERE [A#] = '#2024/01/01#' -- #1#", "WHERE \"a#\" = '#2024/01/01#' -- #1#", "WHERE [A#] = '#2024/01/01#' -- #1#"},
      {"SELECT 5 # 3, # 1 #, ##, #2024", "SELECT 5 # 3, # 1 #, ##, #2024", "SELECT 5 # 3, # 1 #, ##, #2024"},
      {"SELECT #a'b#", "SELECT #a'b#", "SELECT #a'b#"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(EngineSqlText(c.sql, true), c.postgres) << c.sql;
    EXPECT_EQ(EngineSqlText(c.sql, false), c.sqlite ? c.sqlite : c.sql) << c.sql;
  }
}

TEST(IsDeferrable, OnlyStatementsThatReturnNothing) {
  const struct {
    const char* sql;
    bool deferrable;
  } cases[] = {
      {"  delete FROM x", true},
      {"CREATE TABLE x (a INT)", true},
      {"WITH a AS (SELECT 1) SELECT * FROM a", false},
      {"INSERTX", false},
      {"SET search_path = a", false},
  };
  for (const auto& c : cases) EXPECT_EQ(IsDeferrable(c.sql), c.deferrable) << c.sql;
}

TEST(StatementBatch, FillsByCountOrBySize) {
  StatementBatch by_count;
  std::size_t full_at = 0;
  for (std::size_t i = 1; i <= StatementBatch::kMaxStatements && full_at == 0; ++i) {
    if (by_count.Add("DELETE FROM x")) full_at = i;
  }
  EXPECT_EQ(full_at, StatementBatch::kMaxStatements);

  StatementBatch by_size;
  const std::string big(StatementBatch::kMaxBytes / 2, 'x');
  EXPECT_FALSE(by_size.Add("INSERT INTO t VALUES ('" + big + "')"));
  EXPECT_TRUE(by_size.Add("INSERT INTO t VALUES ('" + big + "')"));
  by_size.Clear();
  EXPECT_TRUE(by_size.Empty());
  // A trailing comment must not swallow the next statement.
  by_size.Add("DELETE FROM a -- old rows");
  by_size.Add("DELETE FROM b");
  EXPECT_NE(by_size.Text().find("\nDELETE FROM b"), std::string::npos) << by_size.Text();
}

}  // namespace
}  // namespace lupin::db
