// Kanji numerals as addresses write them.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "money/kansuji.h"

namespace lupin::money {
namespace {

struct TextCase {
  std::string input, expected;
};

TEST(Kansuji, ReadingAndRewriting) {
  const TextCase digits[] = {
      {"廿三", "23"}, {"参阡陌拾", "3110"}, {"", "0"}, {"千五", "1005"}, {"一千零五", "1005"},
      {"四千三百二十一万五千六百七十八", "43215678"}, {"九千九百九十九兆", "9999000000000000"},
  };
  for (const TextCase& c : digits) EXPECT_EQ(KansujiToDigits(c.input), c.expected) << c.input;
  const TextCase daiji[] = {
      {"仟阡佰陌拾玖捌漆陸伍肆参參弐貳弍壱壹弌", "千千百百十九八七六五四三三二二二一一一"},
      {"卅", "三十"}, {"東京都千代田区参番町", "東京都千代田区三番町"},
  };
  for (const TextCase& c : daiji) {
    std::string text = c.input;
    NormalizeDaiji(text);
    EXPECT_EQ(text, c.expected) << c.input;
  }
  // No zero sign is not positional; a lone zero already reads as 0.
  const TextCase positional[] = {{"一〇丁目二〇三", "一十丁目二百三"}, {"二三", "二三"}, {"〇", "〇"},
                                 {"弐〇参", "二百三"}, {"壱〇〇伍", "一千五"}};
  for (const TextCase& c : positional) {
    std::string text = c.input;
    FillPositional(text);
    EXPECT_EQ(text, c.expected) << c.input;
  }
}

// Read backwards, each character with the one before it as its company: a zero sign counts only
// when its company counts, by the same rule.
TEST(Kansuji, ZeroSignCountsOnlyInTheCompanyOfANumeral) {
  struct Case {
    std::u32string text;
    std::size_t pos;
    bool expected;
  };
  const Case cases[] = {
      {U"丁九", 1, true}, {U"廿", 0, true}, {U"三〇", 1, true}, {U"五０", 1, true}, {U"二〇〇", 2, true},
      {U"〇", 0, false}, {U"丁〇", 1, false}, {U"一丁", 1, false}, {U"1", 0, false},
      {U"X〇〇", 2, false}, {U"〇〇", 1, false}, {U"弐〇", 1, true},
  };
  for (const Case& c : cases) EXPECT_EQ(IsKansujiChar(c.text, c.pos), c.expected) << c.pos;
}

std::string Positional(const std::string& digits, const std::string& zero_sign) {
  static const char* const kDigit[] = {"", "一", "二", "三", "四", "五", "六", "七", "八", "九"};
  std::string out;
  for (char d : digits) out += d == '0' ? zero_sign : kDigit[d - '0'];
  return out;
}

// Every number with a zero digit, written digit by digit, reads back as itself.
TEST(Kansuji, FillPositionalReadsBackAsTheSameNumber) {
  std::vector<std::string> numbers = {"100000000", "2024000000301", "9090909090909090", "3000000000000007"};
  for (long n = 10; n <= 120000; ++n) numbers.push_back(std::to_string(n));
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
