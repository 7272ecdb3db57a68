// The record builder every file shares: quoting per field, and values that can never break a record.
#include <gtest/gtest.h>

#include "exchange/csv_line.h"

namespace lupin::exchange {
namespace {

TEST(CsvLine, QuotesEachFieldByItsChoiceAndKeepsEveryValueInsideItsRecord) {
  const struct {
    const char* what;
    std::string value;
    Quote quote;
    char separator;
    std::string expected;
  } cases[] = {
      {"always, empty", "", Quote::Always, ',', "\"\",x\r\n"},
      {"text only, empty", "", Quote::TextOnly, ',', ",x\r\n"},
      {"text only, text", "ab", Quote::TextOnly, ',', "\"ab\",x\r\n"},
      {"bare", "12", Quote::None, ',', "12,x\r\n"},
      {"a quote becomes a full-width quote", "ルパン\"本店\"", Quote::Always, ',', "\"ルパン＂本店＂\",x\r\n"},
      {"CR LF is one full-width space, lone CR and LF one each", "a\r\nb\rc\nd", Quote::Always, ',',
       "\"a　b　c　d\",x\r\n"},
      {"a comma inside quotes stays", "a,b", Quote::Always, ',', "\"a,b\",x\r\n"},
      {"a comma in a bare field cannot split it", "1,100", Quote::None, ',', "1　100,x\r\n"},
      {"a tab in a tab-separated bare field", "a\tb", Quote::None, '\t', "a　b\tx\r\n"},
      {"a line break at the very end", "a\r", Quote::None, '\t', "a　\tx\r\n"},
  };
  for (const auto& c : cases) {
    std::string out;
    CsvLine(out, c.separator).Add(c.value, c.quote).Add("x", Quote::None).End();
    EXPECT_EQ(out, c.expected) << c.what;
  }
}

}  // namespace
}  // namespace lupin::exchange
