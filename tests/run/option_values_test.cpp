// Values typed on the command line: the forms the selection form takes, and what is refused.
#include <gtest/gtest.h>

#include "run/option_values.h"

namespace lupin::run {
namespace {

TEST(OptionValues, DatesReachTheFormAsYearMonthDay) {
  const std::pair<const char*, const char*> rows[] = {
      {"2026/09/01", "2026/09/01"}, {"2026-09-01", "2026/09/01"}, {"2026/9/1", "2026/09/01"},
      {"2024-2-29", "2024/02/29"},  {"2023/02/29", ""},           {"2024/13/01", ""},
      {"2024/04/31", ""},           {"26/09/01", ""},             {"2026/09-01", ""},
      {"2026/09/01/", ""},          {"2026/0x/01", ""},           {"", ""},
  };
  for (const auto& [typed, form] : rows) EXPECT_EQ(NormalisedDate(typed), form) << typed;
}

TEST(OptionValues, RangesInOrder) {
  Range range{"2026/9/30", "2026/09/01"};
  EXPECT_NE(CheckDateRange("--date", range, false).find("終わり (2026/09/01) が始め (2026/09/30) より前です"),
            std::string::npos);
  range = {"", "2026-1-5"};
  EXPECT_EQ(CheckDateRange("--last-sale", range, true), "");
  EXPECT_EQ(range, (Range{"", "2026/01/05"}));
  range = {"", "2026-1-5"};
  EXPECT_NE(CheckDateRange("--date", range, false), "") << "the order date range needs both ends";
  EXPECT_EQ(CheckNumberRange("--id", {"5", "5"}), "");
  EXPECT_NE(CheckNumberRange("--id", {"9", "5"}).find("終わりが始めより小さい"), std::string::npos);
  EXPECT_NE(CheckNumberRange("--id", {"1e3", ""}).find("'1e3' は番号ではありません"), std::string::npos);
}

TEST(OptionValues, LoginHasThreeParts) {
  LoginParts parts;
  EXPECT_EQ(CheckLogin("山田,7,PC01", parts), "");
  EXPECT_EQ(parts.user, "山田");
  EXPECT_EQ(parts.number, 7);
  EXPECT_EQ(parts.client, "PC01");
  for (const char* wrong : {"a,b,c", "a,b,c,d", "a,1", "a,40000,c", ""}) {
    EXPECT_NE(CheckLogin(wrong, parts).find("--login の値 '" + std::string(wrong) + "' は使えません。"), std::string::npos);
  }
}

TEST(OptionValues, WaybillStartOfTheReportsCarrier) {
  struct Row {
    int report;
    const char* typed;
    const char* used;      // "" when refused
    const char* refusal;   // part of the refusal
  };
  const Row rows[] = {
      {25, " 1234-5678-9013 ", "1234-5678-9013", ""},
      {25, "1234-5678-9019", "1234-5678-9013", ""},  // the check digit is computed anew
      {18, "123456789019", "123456789013", ""},
      {20, "abc", "", "'abc' はゆうパックの伝票番号ではありません。12 桁"},
      {25, "1234-5678-901", "", "ヤマト運輸の伝票番号ではありません"},
      {42, "1234567890123", "", "日本通運の伝票番号ではありません"},
      {54, "1234-5678-9013", "", "--denno は宅配伝票番号を付番する帳票"},
      {31, "1234-5678-9013", "", "帳票番号 31 には付番しません"},  // Fukuyama gets no numbers here
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.typed);
    DenNoStart start;
    const std::string refusal = CheckDenNo(row.report, row.typed, start);
    if (*row.used) {
      EXPECT_EQ(refusal, "");
      EXPECT_EQ(start.used, row.used);
    } else {
      EXPECT_NE(refusal.find(row.refusal), std::string::npos) << refusal;
    }
  }
}

}  // namespace
}  // namespace lupin::run
