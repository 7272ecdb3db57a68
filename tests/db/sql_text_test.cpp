// Rewriting of statement texts for PostgreSQL and the choice of what may wait in a batch.
#include <gtest/gtest.h>

#include "db/identifier_quotes.h"
#include "db/postgres/statement_batch.h"

namespace lupin::db {
namespace {

TEST(BracketsToDoubleQuotes, RewritesNamesOnlyOutsideLiterals) {
  const struct {
    const char* sql;
    const char* expected;
  } cases[] = {
      {"SELECT [CHUMON].* FROM [CHUMON]", "SELECT \"chumon\".* FROM \"chumon\""},
      {"WHERE [顧客NO] = 3", "WHERE \"顧客no\" = 3"},
      {"WHERE [A] = 'It''s [B]' AND [C] = 1", "WHERE \"a\" = 'It''s [B]' AND \"c\" = 1"},
      {"SELECT \"[Keep]\" FROM t", "SELECT \"[Keep]\" FROM t"},
      {"SELECT 1 -- [Note]\nFROM [T]", "SELECT 1 -- [Note]\nFROM \"t\""},
      {"SELECT /* [Note] */ [T]", "SELECT /* [Note] */ \"t\""},
      {"SELECT [a\"b]", "SELECT \"a\"\"b\""},
      {"SELECT [UNCLOSED", "SELECT [UNCLOSED"},
  };
  for (const auto& c : cases) EXPECT_EQ(BracketsToDoubleQuotes(c.sql), c.expected) << c.sql;
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
