#include <gtest/gtest.h>

#include <string>

#include "common/sql.h"

namespace lupin::sql {
namespace {

struct TextCase {
  const char* input;
  const char* expected;
};

class SqlQuoteTest : public ::testing::TestWithParam<TextCase> {};

TEST_P(SqlQuoteTest, DoublesEveryApostrophe) { EXPECT_EQ(SqlQuote(GetParam().input), GetParam().expected); }

INSTANTIATE_TEST_SUITE_P(Cases, SqlQuoteTest,
                         ::testing::Values(TextCase{"", ""}, TextCase{"abc", "abc"}, TextCase{"O'Neil", "O''Neil"},
                                           TextCase{"''", "''''"}, TextCase{"'a'", "''a''"},
                                           TextCase{"山田's 店", "山田''s 店"}, TextCase{"\"x\"", "\"x\""}));

class NumericTextTest : public ::testing::TestWithParam<TextCase> {};

TEST_P(NumericTextTest, KeepsOnlyANumber) { EXPECT_EQ(NumericText(GetParam().input), GetParam().expected); }

INSTANTIATE_TEST_SUITE_P(Cases, NumericTextTest,
                         ::testing::Values(TextCase{"", "0"}, TextCase{"abc", "0"}, TextCase{"123", "123"},
                                           TextCase{"-12", "-12"}, TextCase{"1-2", "12"}, TextCase{"--5", "-5"},
                                           TextCase{"1.2.3", "1.23"}, TextCase{"¥1,234円", "1234"},
                                           TextCase{" -1", "1"}, TextCase{"-", "-"}, TextCase{".5", ".5"},
                                           TextCase{"１２", "0"}));

struct DialectCase {
  int mode;
  int index;
  const char* fragment;
  const char* with_field;  // DialectField(mode, index, "AMOUNT")
};

class DialectTest : public ::testing::TestWithParam<DialectCase> {};

TEST_P(DialectTest, FragmentAndField) {
  EXPECT_EQ(DialectFragment(GetParam().mode, GetParam().index), GetParam().fragment);
  EXPECT_EQ(DialectField(GetParam().mode, GetParam().index, "AMOUNT"), GetParam().with_field);
}

INSTANTIATE_TEST_SUITE_P(
    Table, DialectTest,
    ::testing::Values(DialectCase{0, 1, "'", "'"}, DialectCase{1, 1, "#", "#"}, DialectCase{0, 3, "CHAR", "CHAR"},
                      DialectCase{1, 4, "FORMAT(%FIELD%)", "FORMAT(AMOUNT)"},
                      DialectCase{0, 5, "CAST(%FIELD% AS VARCHAR(255))", "CAST(AMOUNT AS VARCHAR(255))"},
                      DialectCase{1, 5, "CSTR(%FIELD% & '')", "CSTR(AMOUNT & '')"},
                      DialectCase{2, 6, "%FIELD%", "AMOUNT"}, DialectCase{1, 7, "[%FIELD%]", "[AMOUNT]"},
                      DialectCase{2, 7, "\"%FIELD%\"", "\"AMOUNT\""},
                      // Another mode or an index outside the table yields the empty fragment.
                      DialectCase{3, 1, "", ""}, DialectCase{-1, 6, "", ""}, DialectCase{1, 0, "", ""},
                      DialectCase{1, 8, "", ""}));

TEST(DialectFieldTest, ReplacesEveryPlaceholderCaseSensitively) {
  // The field text itself may look like a placeholder; it must not be replaced again.
  EXPECT_EQ(DialectField(1, 5, "%FIELD%"), "CSTR(%FIELD% & '')");
  EXPECT_EQ(DialectField(0, 6, "出荷伝票番号"), "[出荷伝票番号]");
  EXPECT_EQ(DialectField(2, 5, ""), "");
}

}  // namespace
}  // namespace lupin::sql
