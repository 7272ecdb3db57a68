#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/text.h"
#include "reports/slips/insert_crlf.h"
#include "reports/slips/insert_crlf_chars.h"

namespace lupin::reports {
namespace {

struct TextCase {
  const char* name;
  std::string text;
  int line_bytes;
  std::string expected;
};

InsertCrLf WithWidth(int line_bytes, int min_line_bytes = -1) {
  InsertCrLf crlf;
  crlf.LineBytes = static_cast<std::int16_t>(line_bytes);
  crlf.MinLineBytes = static_cast<std::int16_t>(min_line_bytes >= 0 ? min_line_bytes : line_bytes * 6 / 10);
  return crlf;
}

TEST(InsertCrLfAddress, BreaksWhereTheFormWants) {
  const TextCase cases[] = {
      {"ExactlyTheWidthUntouched", "東京都千代田区丸の内", 20, "東京都千代田区丸の内"},
      {"BlankLinesGoEvenWhenShort", "東京都\r\n\r\n港区", 20, "東京都\r\n港区"},
      // 東京都千代田区 is 14 bytes: below 20, above 60 per cent of it.
      {"TokyoBreaksBehindWard", "東京都千代田区丸の内一丁目１番", 20, "東京都千代田区\r\n丸の内一丁目１番"},
      {"CityFromTheExceptionTable", "三重県四日市市安島一丁目２番３号", 20, "三重県四日市市\r\n安島一丁目２番３号"},
      // 東京都港区 is under 60 per cent of 20, and what stands before the number is too long.
      {"ShortCityNotUsed", "東京都港区芝公園四丁目２番８号", 20, "東京都港区芝公園四丁\r\n目２番８号"},
      // A full-width number that starts a line and does not fit is not printed at all.
      {"FullWidthRunStartingALineIsLost", "東京都港区\r\n１２３４５６７８９０１２", 10, "東京都港区"},
      {"BoxTooNarrow", "東京都千代田区", 1, "東京都千代田区"},
  };
  for (const auto& c : cases) EXPECT_EQ(WithWidth(c.line_bytes, 0).InsertCrLfAddress(c.text), c.expected) << c.name;
  InsertCrLf crlf = WithWidth(21, 0);
  crlf.InsertCrLfAddress(std::string(40, 'x'));
  EXPECT_EQ(crlf.MinLineBytes, 12) << "the shortest first line is 60 per cent of the width, rounded down";
}

TEST(SplitAtCity, FindsTheEndOfTheMunicipality) {
  const TextCase cases[] = {
      {"HokkaidoExceptionDistrict", "北海道余市郡余市町黒川町１２", 20, "北海道余市郡\r\n余市町黒川町１２"},
      // 県 as the sixth character is part of a town name: no prefecture, no city search.
      {"LateKenIsNoPrefecture", "さいたま市県民町１２３４", 20, "さいたま市県民町１２３４"},
      // 町 straight behind 郡 is skipped by the search that starts two characters on.
      {"TownRightBehindDistrictSkipped", "山口県熊毛郡町田村１２", 24, "山口県熊毛郡町田村\r\n１２"},
      // The first line must stay below the width: 14 bytes of 東京都千代田区 need at least 15.
      {"CityAsWideAsTheLine", "東京都千代田区丸の内", 14, "東京都千代田区丸の内"},
      {"BeforeNumberOneByteTooLong", "東京都港区芝公園四丁a２", 20, "東京都港区芝公園四丁\r\na２"},
  };
  for (const auto& c : cases) EXPECT_EQ(WithWidth(c.line_bytes).SplitAtCity(c.text), c.expected) << c.name;
}

enum class Pass { Space, Digit, LongLine, NameLines };

struct PassCase {
  const char* name;
  Pass pass;
  std::vector<std::string> lines;
  int line_bytes;
  int min_line_bytes;
  std::vector<std::string> expected;
};

TEST(LinePasses, SplitEachLineAtMostOnce) {
  const PassCase cases[] = {
      // A blank breaks only when it leaves 60 to 99 per cent of a line.
      {"SpaceAtTheWidthTooLate", Pass::Space, {"東京都港区芝公園 四丁目"}, 17, 6, {"東京都港区芝公園 四丁目"}},
      {"SpaceJustBeforeTheWidth", Pass::Space, {"東京都港区芝公園 四丁目"}, 18, 6, {"東京都港区芝公園", "四丁目"}},
      {"DigitNoUpperBound", Pass::Digit, {"芝公園四丁目２番８号"}, 8, 4, {"芝公園四丁目", "２番８号"}},
      {"DigitFirstIsNoBreak", Pass::Digit, {"１芝公園四丁目公園"}, 12, 6, {"１芝公園四丁目公園"}},
      {"LongTrailByteAtWidth", Pass::LongLine, {"東京都港区芝公園"}, 4, 2, {"東京", "都港区芝公園"}},
      {"LongLeadByteAtWidth", Pass::LongLine, {"A東京"}, 4, 2, {"A東", "京"}},
      {"LongFullWidthNumberMovesTheCut", Pass::LongLine, {"住所１２３４５６７８９０"}, 10, 6, {"住所", "１２３４５６７８９０"}},
      {"LongHalfWidthRunStaysWhole", Pass::LongLine, {"123456789012"}, 10, 6, {"123456789012"}},
      // A digit meeting a letter is no number and no word: the natural cut stands.
      {"LongDigitMeetingLetter", Pass::LongLine, {"棟12AB34"}, 4, 2, {"棟12", "AB34"}},
      {"NameBlankWithoutBounds", Pass::NameLines, {"AB 山田太郎鈴木花子"}, 10, 6, {"AB", "山田太郎鈴木花子"}},
      {"NameLeadByteAtWidth", Pass::NameLines, {"A山田太郎鈴木花子"}, 10, 6, {"A山田太郎", "鈴木花子"}},
  };
  for (const auto& c : cases) {
    const InsertCrLf crlf = WithWidth(c.line_bytes, c.min_line_bytes);
    std::vector<std::string> lines = c.lines;
    switch (c.pass) {
      case Pass::Space: crlf.SplitAtSpace(lines); break;
      case Pass::Digit: crlf.SplitAtDigit(lines); break;
      case Pass::LongLine: crlf.SplitLongLine(lines); break;
      case Pass::NameLines: crlf.SplitNameLines(lines); break;
    }
    EXPECT_EQ(lines, c.expected) << c.name;
  }
}

TEST(HardBreakAndBlankLines, NeverCutADoubleByteCharacterAndDropOnlySeveralEmptyLines) {
  EXPECT_EQ(HardBreak("東京都", 3), "東\r\n京都");  // byte 3 starts 京
  EXPECT_EQ(HardBreak("東京都", 4), "東京\r\n都");  // byte 4 ends 京
  for (const auto& [in, expected] : {std::pair{"\r\n東京都\r\n", "東京都"}, {"東京都\n港区", "東京都\n港区"}}) {
    std::string text = in;
    RemoveBlankLines(text);
    EXPECT_EQ(text, expected) << in;
  }
}

// The passes find blanks and digits themselves; they must agree with the byte helpers' text
// compare search, first-character quirk included.
TEST(CharacterSearch, AgreesWithByteInStrTextCompare) {
  for (const char* line : {" ", "　", "東京都 港区", " 東京都", "ｶﾞｽ 1", "芝公園四丁目２番", "２丁目", "髙橋　3", "😀 3"}) {
    EXPECT_EQ(crlf::BlankBytePosition(line), text::ByteInStr(line, " ", 1, 1)) << line;
    for (const char* digit : {"2", "3"}) {
      EXPECT_EQ(crlf::DigitBytePosition(line, static_cast<char32_t>(digit[0])), text::ByteInStr(line, digit, 1, 1))
          << line << " " << digit;
    }
  }
}

}  // namespace
}  // namespace lupin::reports
