// The rules of the e-飛伝 files: byte cuts, 16-character splits, the distribution of company,
// department and name over the five recipient lines, the time-zone code and the option file.
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "exchange/ehiden_option.h"
#include "exchange/ehiden_text.h"
#include "exchange/ehiden_time_zone.h"
#include "exchange_fixture.h"

namespace lupin::exchange {
namespace {

using testing::Rep;

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


using G = EhidenGeneration;

struct ZoneCase {
  std::string text;
  G generation;
  bool evening_empty;
  std::string expected;
};

TEST(EhidenTimeZone, MapsTheHourOfTheText) {
  const ZoneCase cases[] = {
      {" 指定なし ", G::II, true, ""},
      {"９時～１２時", G::III, false, "01"},
      {"ｐｍ5", G::III, false, "16"},
      {"午後１２時", G::III, false, ""},  // 24 o'clock
      {"0018", G::III, false, "18"},
      // The older generations send "04" for 18 to 21 o'clock while the fourth free text is empty;
      // the golden files hold the other forms.
      {"21時", G::II, true, "04"},
      {"17時", G::I, true, "16"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(TimeZoneCode(c.text, c.generation, c.evening_empty), c.expected)
        << c.text << " generation " << static_cast<int>(c.generation);
}


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
