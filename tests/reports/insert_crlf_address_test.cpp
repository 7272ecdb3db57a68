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
      {"FourCharacterPrefecture", "神奈川県横浜市中区山下町１２３", 20, "神奈川県横浜市\r\n中区山下町１２３"},
      // 東京都港区 is under 60 per cent of 20, and what stands before the number is too long.
      {"ShortCityNotUsed", "東京都港区芝公園四丁目２番８号", 20, "東京都港区芝公園四丁\r\n目２番８号"},
      {"CityWiderThanTheLineNotUsed", "東京都千代田区丸の内", 13, "東京都千代田\r\n区丸の内"},
      {"FullWidthBlankDroppedWhole", "さいたま市浦和区高砂　パレスハイツ", 24, "さいたま市浦和区高砂\r\nパレスハイツ"},
      {"NoPrefectureBreaksAtDigit", "大字上野字中島１２３４番地", 20, "大字上野字中島\r\n１２３４番地"},
      // A full-width number that starts a line and does not fit is not printed at all.
      {"FullWidthRunStartingALineIsLost", "東京都港区\r\n１２３４５６７８９０１２", 10, "東京都港区"},
      // Below two bytes no character fits: the text is given back unbroken.
      {"BoxTooNarrow", "東京都千代田区", 1, "東京都千代田区"},
  };
  for (const auto& c : cases) EXPECT_EQ(WithWidth(c.line_bytes, 0).InsertCrLfAddress(c.text), c.expected) << c.name;
}

TEST(InsertCrLfAddress, SetsTheShortestFirstLineFromTheWidth) {
  for (const auto& [line_bytes, min_line_bytes] : {std::pair{20, 12}, {21, 12}, {34, 20}, {2, 1}}) {
    InsertCrLf crlf = WithWidth(line_bytes, 0);
    crlf.InsertCrLfAddress(std::string(40, 'x'));
    EXPECT_EQ(crlf.MinLineBytes, min_line_bytes) << line_bytes;
  }
}

TEST(SplitAtCity, FindsTheEndOfTheMunicipality) {
  const TextCase cases[] = {
      {"TokyoDistrictTown", "東京都西多摩郡奥多摩町氷川１２３", 30, "東京都西多摩郡奥多摩町\r\n氷川１２３"},
      {"HokkaidoExceptionDistrict", "北海道余市郡余市町黒川町１２", 20, "北海道余市郡\r\n余市町黒川町１２"},
      {"OsakaByFu", "大阪府大阪市北区梅田１－２－３", 20, "大阪府大阪市\r\n北区梅田１－２－３"},
      // 県 as the sixth character is part of a town name: no prefecture, no city search.
      {"LateKenIsNoPrefecture", "さいたま市県民町１２３４", 20, "さいたま市県民町１２３４"},
      {"DistrictWithoutTownEndsAtDistrict", "岩手県岩手郡大字雫石１２３", 20, "岩手県岩手郡\r\n大字雫石１２３"},
      // 町 straight behind 郡 is skipped by the search that starts two characters on.
      {"TownRightBehindDistrictSkipped", "山口県熊毛郡町田村１２", 24, "山口県熊毛郡町田村\r\n１２"},
      {"VillageBeforeTown", "岩手県下閉伊郡田野畑村大字町１", 24, "岩手県下閉伊郡田野畑村\r\n大字町１"},
      {"ExceptionWithinKindZero", "四日市市安島一丁目２番３号", 12, "四日市市\r\n安島一丁目２番３号"},
      {"LongExceptionWord", "長崎県北松浦郡鹿町町長串１２", 24, "長崎県北松浦郡鹿町町\r\n長串１２"},
      // The first line must stay below the width: 14 bytes of 東京都千代田区 need at least 15.
      {"CityAsWideAsTheLine", "東京都千代田区丸の内", 14, "東京都千代田区丸の内"},
      {"BeforeNumberFitsExactly", "東京都港区芝公園四丁２", 20, "東京都港区芝公園四丁２"},
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
      // SplitAtSpace: the first blank, when it leaves 60 to 99 per cent of a line.
      {"SpaceHalfWidth", Pass::Space, {"東京都港区 芝 公園"}, 20, 6, {"東京都港区", "芝 公園"}},
      {"SpaceTooEarly", Pass::Space, {"港区 芝公園四丁目"}, 20, 6, {"港区 芝公園四丁目"}},
      {"SpaceAtTheWidthTooLate", Pass::Space, {"東京都港区芝公園 四丁目"}, 17, 6, {"東京都港区芝公園 四丁目"}},
      {"SpaceJustBeforeTheWidth", Pass::Space, {"東京都港区芝公園 四丁目"}, 18, 6, {"東京都港区芝公園", "四丁目"}},
      {"SpaceFirstIsNoBreak", Pass::Space, {" 東京都港区"}, 20, 1, {" 東京都港区"}},
      // SplitAtDigit: before the house number, with no upper bound.
      {"DigitNoUpperBound", Pass::Digit, {"芝公園四丁目２番８号"}, 8, 4, {"芝公園四丁目", "２番８号"}},
      {"DigitTooEarly", Pass::Digit, {"芝２丁目公園前広場"}, 12, 6, {"芝２丁目公園前広場"}},
      {"DigitShortLineStays", Pass::Digit, {"芝公園２"}, 12, 6, {"芝公園２"}},
      {"DigitFirstIsNoBreak", Pass::Digit, {"１芝公園四丁目公園"}, 12, 6, {"１芝公園四丁目公園"}},
      // SplitLongLine: at the width, never inside a number or a Latin word.
      {"LongTrailByteAtWidth", Pass::LongLine, {"東京都港区芝公園"}, 4, 2, {"東京", "都港区芝公園"}},
      {"LongLeadByteAtWidth", Pass::LongLine, {"A東京"}, 4, 2, {"A東", "京"}},
      {"LongSingleByteAtWidth", Pass::LongLine, {"ABC-DEF"}, 4, 2, {"ABC-", "DEF"}},
      {"LongFullWidthNumberMovesTheCut", Pass::LongLine, {"住所１２３４５６７８９０"}, 10, 6, {"住所", "１２３４５６７８９０"}},
      {"LongFullWidthLatin", Pass::LongLine, {"館ＡＢＣＤＥＦ"}, 8, 4, {"館", "ＡＢＣＤＥＦ"}},
      {"LongHalfWidthRunStaysWhole", Pass::LongLine, {"123456789012"}, 10, 6, {"123456789012"}},
      {"LongFullWidthRunIsLost", Pass::LongLine, {"丸の内", "１２３４５６７８９０１２"}, 10, 6, {"丸の内"}},
      // A digit meeting a letter is no number and no word: the natural cut stands.
      {"LongDigitMeetingLetter", Pass::LongLine, {"棟12AB34"}, 4, 2, {"棟12", "AB34"}},
      // SplitNameLines: at any blank, else at the width.
      {"NameFullWidthBlank", Pass::NameLines, {"山田　太郎鈴木"}, 10, 6, {"山田", "太郎鈴木"}},
      {"NameBlankWithoutBounds", Pass::NameLines, {"AB 山田太郎鈴木花子"}, 10, 6, {"AB", "山田太郎鈴木花子"}},
      {"NameTrailByteAtWidth", Pass::NameLines, {"山田太郎鈴木花子"}, 10, 6, {"山田太郎鈴", "木花子"}},
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

TEST(HardBreak, NeverCutsADoubleByteCharacter) {
  EXPECT_EQ(HardBreak("東京都", 3), "東\r\n京都");  // byte 3 starts 京
  EXPECT_EQ(HardBreak("東京都", 4), "東京\r\n都");  // byte 4 ends 京
  EXPECT_EQ(HardBreak("AB東京", 2), "AB\r\n東京");
}

TEST(RemoveBlankLines, DropsEmptyLinesOnlyWhenThereAreSeveral) {
  for (const auto& [in, expected] : {std::pair{"", ""}, {"\r\n東京都\r\n", "東京都"}, {"\r\n", ""}, {"東京都\n港区", "東京都\n港区"}}) {
    std::string text = in;
    RemoveBlankLines(text);
    EXPECT_EQ(text, expected) << in;
  }
}

// The passes find blanks and digits themselves; they must agree with the byte helpers' text
// compare search, first-character quirk included.
TEST(CharacterSearch, AgreesWithByteInStrTextCompare) {
  const char* lines[] = {"", " ", "　", "東京都 港区", "東京都　港区", " 東京都", "ｶﾞｽ 1", "ＡＢ　1", "1-2-3",
                         "芝公園四丁目２番", "芝公園四丁目2番", "２丁目", "ﾋﾞﾙ３", "髙橋　3", "A\r\nB 3", "😀 3"};
  for (const char* line : lines) {
    EXPECT_EQ(crlf::BlankBytePosition(line), text::ByteInStr(line, " ", 1, 1)) << line;
    for (const char* digit : {"2", "3", "1"}) {
      EXPECT_EQ(crlf::DigitBytePosition(line, static_cast<char32_t>(digit[0])), text::ByteInStr(line, digit, 1, 1))
          << line << " " << digit;
    }
  }
}

}  // namespace
}  // namespace lupin::reports
