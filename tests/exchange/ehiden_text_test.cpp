// Byte cuts, 16-character splits and the distribution of company, department and name over the
// five recipient lines.
#include <gtest/gtest.h>

#include <string>

#include "exchange/ehiden_text.h"

namespace lupin::exchange {
namespace {

std::string Rep(const std::string& piece, int times) {
  std::string out;
  for (int i = 0; i < times; ++i) out += piece;
  return out;
}

struct CutCase {
  const char* what;
  int width;
  std::string text;
  bool remove_hyphens;
  std::string expected;
};

TEST(EhidenCutBytes, KeepsCutsOrDropsTheCharacterOnTheLimit) {
  const CutCase cases[] = {
      {"blanks only", 14, "  　", false, ""},
      {"fits, kept untrimmed", 14, " ab ", false, " ab "},
      {"double-byte on the limit dropped", 14, "a" + Rep("０", 8), false, "a" + Rep("０", 6)},
      {"half-width katakana is one byte", 2, "ｱｲｳ", false, "ｱｲ"},
      {"hyphens removed, still cut", 9, "03-1234-5678", true, "031234567"},
  };
  for (const auto& c : cases) EXPECT_EQ(CutBytes(c.width, c.text, c.remove_hyphens), c.expected) << c.what;
}

TEST(EhidenSplit16, CutsByCharactersAndTrimsTheLaterParts) {
  // 一 ×16, a full-width space, 二 ×16, a full-width space, 三三: the trim of part 1 moves its
  // window one character on, so part 2 starts inside what part 1 could have held.
  const std::string text = Rep("一", 16) + "　" + Rep("二", 16) + "　三三";
  EXPECT_EQ(Split16(text, 0), Rep("一", 16));
  EXPECT_EQ(Split16(text, 1), Rep("二", 16));
  EXPECT_EQ(Split16(text, 2), "二　三三");

  const struct {
    std::string text;
    int part;
    std::string expected;
  } cases[] = {{"東京都", 1, ""}, {Rep("あ", 16) + "  い", 1, "い"}, {" " + Rep("あ", 16), 0, " " + Rep("あ", 15)}};
  for (const auto& c : cases) EXPECT_EQ(Split16(c.text, c.part), c.expected) << c.text << " part " << c.part;
}

struct DistributeCase {
  const char* what;
  std::string address, company, department, name;
  std::string line3, line4, line5;
};

TEST(EhidenDistributeAddress, PlacesCompanyDepartmentAndName) {
  const std::string short_address = "東京都千代田区丸の内１－１";
  const std::string address32 = Rep("住", 32);
  const std::string address33 = Rep("住", 33);
  const std::string name22 = Rep("名", 22);
  const DistributeCase cases[] = {
      {"long name moves the company to line 3", address32, "株式会社ＡＢＣ", "営業部", name22, "株式会社ＡＢＣ",
       "営業部　" + Rep("名", 12), Rep("名", 10)},
      {"long name but the address needs line 3", address33, "株式会社ＡＢＣ", "営業部", name22, "住",
       "株式会社ＡＢＣ　営業部　" + Rep("名", 4), Rep("名", 16)},
      {"name of 17 but the whole is short", short_address, "ＡＢ", "", Rep("名", 17), "", "ＡＢ　　" + Rep("名", 12),
       Rep("名", 5)},
      {"company over 16 stays in the name lines", short_address, Rep("社", 17), "部", Rep("名", 15), "",
       Rep("社", 16), "社　部　" + Rep("名", 12)},
  };
  for (const auto& c : cases) {
    const auto lines = DistributeAddress(c.address, c.company, c.department, c.name);
    EXPECT_EQ(lines[0], Split16(c.address, 0)) << c.what;
    EXPECT_EQ(lines[2], c.line3) << c.what;
    EXPECT_EQ(lines[3], c.line4) << c.what;
    EXPECT_EQ(lines[4], c.line5) << c.what;
  }
}

}  // namespace
}  // namespace lupin::exchange
