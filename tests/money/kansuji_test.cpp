// Kanji numerals as addresses write them.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "money/kansuji.h"

namespace lupin::money {
namespace {

struct TextCase {
  std::string input;
  std::string expected;
};

TEST(Kansuji, ToDigitsReadsTheNumber) {
  const TextCase cases[] = {
      {"廿三", "23"}, {"壱萬弐千", "12000"}, {"一億", "100000000"}, {"", "0"}, {"十", "10"},
      {"千五", "1005"}, {"零", "0"}, {"百十一", "111"}, {"参阡陌拾", "3110"},
      {"四千三百二十一万五千六百七十八", "43215678"}, {"一兆二億", "1000200000000"},
      {"九千九百九十九兆", "9999000000000000"}, {"一億五", "100000005"}, {"一千零五", "1005"},
  };
  for (const TextCase& c : cases) EXPECT_EQ(KansujiToDigits(c.input), c.expected) << c.input;
}

TEST(Kansuji, NormalizeDaijiReplacesFormalNumerals) {
  const TextCase cases[] = {
      {"壱萬弐千", "一万二千"}, {"廿三", "二十三"}, {"卅", "三十"},
      {"仟阡佰陌拾玖捌漆陸伍肆参參弐貳弍壱壹弌", "千千百百十九八七六五四三三二二二一一一"},
      {"東京都千代田区参番町", "東京都千代田区三番町"}, {"ABC 123", "ABC 123"},
  };
  for (const TextCase& c : cases) {
    std::string text = c.input;
    NormalizeDaiji(text);
    EXPECT_EQ(text, c.expected) << c.input;
  }
}

TEST(Kansuji, IsKansujiCharClassifies) {
  struct Case {
    std::string ch, next;
    bool expected;
  };
  const Case cases[] = {
      {"一", "", true}, {"九", "丁", true}, {"零", "", true}, {"十", "", true}, {"兆", "", true},
      {"萬", "", true}, {"廿", "", true}, {"弌", "", true},
      // A zero sign counts only when a numeral follows it.
      {"〇", "三", true}, {"０", "五", true}, {"〇", "〇", true}, {"〇", "", false}, {"〇", "丁", false},
      {"０", "A", false}, {"丁", "一", false}, {"1", "", false}, {"", "一", false},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(IsKansujiChar(c.ch, c.next), c.expected) << c.ch << " before " << c.next;
  }
}

TEST(Kansuji, FillPositionalGivesUnits) {
  const TextCase cases[] = {
      {"二〇三", "二百三"}, {"一〇", "一十"}, {"一〇〇〇〇", "一万"}, {"青葉台二〇三号", "青葉台二百三号"},
      {"一〇丁目二〇三", "一十丁目二百三"},
      // No zero sign: not a positional number, left alone.
      {"二三", "二三"},
      // A lone or all-zero run already reads as 0.
      {"〇", "〇"}, {"〇〇", "〇〇"},
  };
  for (const TextCase& c : cases) {
    std::string text = c.input;
    FillPositional(text);
    EXPECT_EQ(text, c.expected) << c.input;
  }
}

std::string Positional(const std::string& digits, const std::string& zero_sign) {
  static const char* const kDigit[] = {"", "一", "二", "三", "四", "五", "六", "七", "八", "九"};
  std::string out;
  for (char d : digits) out += d == '0' ? zero_sign : kDigit[d - '0'];
  return out;
}

// Every number with a zero digit, written digit by digit, reads back as itself.
TEST(Kansuji, FillPositionalReadsBackAsTheSameNumber) {
  std::vector<std::string> numbers;
  for (long n = 10; n <= 120000; ++n) numbers.push_back(std::to_string(n));
  for (const char* big : {"100000000", "1000000000000", "2024000000301", "9090909090909090",
                          "1000000000000000", "3000000000000007", "700000010"}) {
    numbers.emplace_back(big);
  }
  int checked = 0;
  for (const std::string& number : numbers) {
    if (number.find('0') == std::string::npos) continue;
    for (const char* zero : {"〇", "０"}) {
      std::string text = Positional(number, zero);
      FillPositional(text);
      ASSERT_EQ(KansujiToDigits(text), number) << Positional(number, zero) << " → " << text;
      ++checked;
    }
  }
  EXPECT_GT(checked, 20000);
}

}  // namespace
}  // namespace lupin::money
