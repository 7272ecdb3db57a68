// ehiden2_option.txt: six slots by line prefix.
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "exchange/ehiden_option.h"

namespace lupin::exchange {
namespace {

using Slots = std::array<std::string, 6>;

TEST(EhidenOptions, ReadsSlotsByTheLineBeginning) {
  const struct {
    const char* what;
    std::string content;
    Slots expected;
  } cases[] = {
      // The golden files hold a complete file with CR LF.
      {"last slot, LF", "指定シール③：013\n", {"", "", "", "", "", "013"}},
      {"later line wins, unknown skipped", "荷姿コード：1\r# comment\r荷姿：9\r荷姿コード：2", {"2", "", "", "", "", ""}},
      {"key must begin the line", " 荷姿コード：1\n", {"", "", "", "", "", ""}},
      {"hiragana key matches by text compare", "便種（すぴーど）：020\n", {"", "020", "", "", "", ""}},
      {"half-width key is longer in characters, no match", "便種（ｽﾋﾟｰﾄﾞ）：020\n", {"", "", "", "", "", ""}},
  };
  for (const auto& c : cases) EXPECT_EQ(ParseEhidenOptions(c.content).slots, c.expected) << c.what;
}

}  // namespace
}  // namespace lupin::exchange
