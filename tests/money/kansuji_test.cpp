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

class KansujiToDigitsTest : public ::testing::TestWithParam<TextCase> {};

TEST_P(KansujiToDigitsTest, ReadsTheNumber) {
  EXPECT_EQ(KansujiToDigits(GetParam().input), GetParam().expected) << GetParam().input;
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, KansujiToDigitsTest,
    ::testing::Values(TextCase{"廿三", "23"}, TextCase{"壱萬弐千", "12000"}, TextCase{"一億", "100000000"},
                      TextCase{"", "0"}, TextCase{"二十一", "21"}, TextCase{"十", "10"},
                      TextCase{"千五", "1005"}, TextCase{"零", "0"}, TextCase{"三", "3"},
                      TextCase{"百十一", "111"}, TextCase{"卅", "30"}, TextCase{"参阡陌拾", "3110"},
                      TextCase{"四千三百二十一万五千六百七十八", "43215678"},
                      TextCase{"一兆二億", "1000200000000"}, TextCase{"九千九百九十九兆", "9999000000000000"},
                      TextCase{"一億五", "100000005"}, TextCase{"二万", "20000"},
                      TextCase{"一千零五", "1005"}));

class NormalizeDaijiTest : public ::testing::TestWithParam<TextCase> {};

TEST_P(NormalizeDaijiTest, ReplacesFormalNumerals) {
  std::string text = GetParam().input;
  NormalizeDaiji(text);
  EXPECT_EQ(text, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Forms, NormalizeDaijiTest,
    ::testing::Values(TextCase{"壱萬弐千", "一万二千"}, TextCase{"廿三", "二十三"}, TextCase{"卅", "三十"},
                      TextCase{"仟阡佰陌拾", "千千百百十"}, TextCase{"玖捌漆陸伍肆", "九八七六五四"},
                      TextCase{"参參弐貳弍壱壹弌", "三三二二二一一一"},
                      TextCase{"東京都千代田区参番町", "東京都千代田区三番町"}, TextCase{"", ""},
                      TextCase{"ABC 123", "ABC 123"}));

struct CharCase {
  std::string ch;
  std::string next;
  bool expected;
};

class IsKansujiCharTest : public ::testing::TestWithParam<CharCase> {};

TEST_P(IsKansujiCharTest, Classifies) {
  EXPECT_EQ(IsKansujiChar(GetParam().ch, GetParam().next), GetParam().expected)
      << GetParam().ch << " before " << GetParam().next;
}

INSTANTIATE_TEST_SUITE_P(
    Chars, IsKansujiCharTest,
    ::testing::Values(CharCase{"一", "", true}, CharCase{"九", "丁", true}, CharCase{"零", "", true},
                      CharCase{"十", "", true}, CharCase{"兆", "", true}, CharCase{"億", "", true},
                      CharCase{"萬", "", true}, CharCase{"廿", "", true}, CharCase{"弌", "", true},
                      CharCase{"〇", "三", true}, CharCase{"０", "五", true}, CharCase{"〇", "〇", true},
                      CharCase{"〇", "", false}, CharCase{"〇", "丁", false}, CharCase{"０", "A", false},
                      CharCase{"丁", "一", false}, CharCase{"1", "", false}, CharCase{"", "一", false}));

class FillPositionalTest : public ::testing::TestWithParam<TextCase> {};

TEST_P(FillPositionalTest, GivesUnits) {
  std::string text = GetParam().input;
  FillPositional(text);
  EXPECT_EQ(text, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Runs, FillPositionalTest,
    ::testing::Values(TextCase{"二〇三", "二百三"}, TextCase{"二〇二四", "二千二十四"},
                      TextCase{"一〇", "一十"}, TextCase{"一〇〇〇〇", "一万"},
                      TextCase{"三０五", "三百五"}, TextCase{"青葉台二〇三号", "青葉台二百三号"},
                      TextCase{"一〇丁目二〇三", "一十丁目二百三"},
                      // No zero sign: not a positional number, left alone.
                      TextCase{"二三", "二三"}, TextCase{"二十三", "二十三"},
                      // A lone or all-zero run already reads as 0.
                      TextCase{"〇", "〇"}, TextCase{"〇〇", "〇〇"}, TextCase{"", ""}));

std::string Positional(const std::string& digits, const std::string& zero_sign) {
  static const char* const kDigit[] = {"", "一", "二", "三", "四", "五", "六", "七", "八", "九"};
  std::string out;
  for (char d : digits) out += d == '0' ? zero_sign : kDigit[d - '0'];
  return out;
}

// Every number with a zero digit, written digit by digit, reads back as itself.
TEST(FillPositionalRoundTrip, ReadsBackAsTheSameNumber) {
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
