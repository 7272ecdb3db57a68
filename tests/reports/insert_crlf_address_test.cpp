#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/text.h"
#include "reports/slips/insert_crlf.h"
#include "reports/slips/insert_crlf_chars.h"

namespace lupin::reports {
namespace {

struct AddressCase {
  const char* name;
  std::string address;
  int line_bytes;
  std::string expected;
};

class InsertCrLfAddressTest : public ::testing::TestWithParam<AddressCase> {};

TEST_P(InsertCrLfAddressTest, BreaksWhereTheFormWants) {
  const auto& c = GetParam();
  InsertCrLf crlf;
  crlf.LineBytes = static_cast<std::int16_t>(c.line_bytes);
  EXPECT_EQ(crlf.InsertCrLfAddress(c.address), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, InsertCrLfAddressTest,
    ::testing::Values(
        AddressCase{"ExactlyTheWidthUntouched", "東京都千代田区丸の内", 20, "東京都千代田区丸の内"},
        AddressCase{"EmptyStaysEmpty", "", 20, ""},
        AddressCase{"BlankLinesGoEvenWhenShort", "東京都\r\n\r\n港区", 20, "東京都\r\n港区"},
        // 東京都千代田区 is 14 bytes: below 20, above 60 per cent of it.
        AddressCase{"TokyoBreaksBehindWard", "東京都千代田区丸の内一丁目１番", 20, "東京都千代田区\r\n丸の内一丁目１番"},
        AddressCase{"CityFromTheExceptionTable", "三重県四日市市安島一丁目２番３号", 20, "三重県四日市市\r\n安島一丁目２番３号"},
        AddressCase{"DistrictClosedByVillage", "長野県北安曇郡白馬村北城１２３４", 24, "長野県北安曇郡白馬村\r\n北城１２３４"},
        AddressCase{"FourCharacterPrefecture", "神奈川県横浜市中区山下町１２３", 20, "神奈川県横浜市\r\n中区山下町１２３"},
        // 東京都港区 (10 bytes) is under 60 per cent of 20: the text before the number is too long
        // for a line, so it is cut at the width.
        AddressCase{"ShortCityNotUsed", "東京都港区芝公園四丁目２番８号", 20, "東京都港区芝公園四丁\r\n目２番８号"},
        AddressCase{"CityWiderThanTheLineNotUsed", "東京都千代田区丸の内", 13, "東京都千代田\r\n区丸の内"},
        AddressCase{"CityOneByteNarrowerUsed", "東京都千代田区丸の内", 15, "東京都千代田区\r\n丸の内"},
        AddressCase{"BlankBreaks", "さいたま市浦和区高砂 パレスハイツ", 24, "さいたま市浦和区高砂\r\nパレスハイツ"},
        AddressCase{"FullWidthBlankDroppedWhole", "さいたま市浦和区高砂　パレスハイツ", 24, "さいたま市浦和区高砂\r\nパレスハイツ"},
        // No prefecture: kind 0, so the house number gives the break.
        AddressCase{"NoPrefectureBreaksAtDigit", "大字上野字中島１２３４番地", 20, "大字上野字中島\r\n１２３４番地"},
        AddressCase{"SameDigitAtEitherWidth", "大字上野字中島1234番地", 20, "大字上野字中島\r\n1234番地"},
        AddressCase{"HalfWidthRunKeptWhole", "住所123456789012", 10, "住所\r\n123456789012"},
        AddressCase{"LatinWordKeptWhole", "館PRESIDENTIAL", 8, "館\r\nPRESIDENTIAL"},
        // A full-width number that starts a line and does not fit is not printed at all.
        AddressCase{"FullWidthRunStartingALineIsLost", "東京都港区\r\n１２３４５６７８９０１２", 10, "東京都港区"}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(InsertCrLfAddress, SetsTheShortestFirstLineFromTheWidth) {
  const struct {
    int line_bytes;
    int min_line_bytes;
  } cases[] = {{20, 12}, {21, 12}, {25, 15}, {34, 20}, {2, 1}};
  for (const auto& c : cases) {
    InsertCrLf crlf;
    crlf.LineBytes = static_cast<std::int16_t>(c.line_bytes);
    crlf.InsertCrLfAddress(std::string(40, 'x'));
    EXPECT_EQ(crlf.MinLineBytes, c.min_line_bytes) << c.line_bytes;
  }
}

TEST(InsertCrLfAddress, BoxTooNarrowForAnyCharacterGetsTheTextUnbroken) {
  for (int width : {-3, 0, 1}) {
    InsertCrLf crlf;
    crlf.LineBytes = static_cast<std::int16_t>(width);
    EXPECT_EQ(crlf.InsertCrLfAddress("東京都千代田区"), "東京都千代田区") << width;
    EXPECT_EQ(crlf.InsertCrLfName("山田　太郎"), "山田　太郎") << width;
  }
}

struct CityCase {
  const char* name;
  std::string address;
  int line_bytes;
  std::string expected;
};

class SplitAtCityTest : public ::testing::TestWithParam<CityCase> {};

TEST_P(SplitAtCityTest, FindsTheEndOfTheMunicipality) {
  const auto& c = GetParam();
  InsertCrLf crlf;
  crlf.LineBytes = static_cast<std::int16_t>(c.line_bytes);
  crlf.MinLineBytes = static_cast<std::int16_t>(c.line_bytes * 6 / 10);
  EXPECT_EQ(crlf.SplitAtCity(c.address), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, SplitAtCityTest,
    ::testing::Values(
        CityCase{"TokyoCity", "東京都八王子市元本郷町三丁目", 20, "東京都八王子市\r\n元本郷町三丁目"},
        CityCase{"TokyoDistrictTown", "東京都西多摩郡奥多摩町氷川１２３", 30, "東京都西多摩郡奥多摩町\r\n氷川１２３"},
        CityCase{"HokkaidoCity", "北海道札幌市中央区北一条西２丁目", 20, "北海道札幌市\r\n中央区北一条西２丁目"},
        CityCase{"HokkaidoExceptionDistrict", "北海道余市郡余市町黒川町１２", 20, "北海道余市郡\r\n余市町黒川町１２"},
        CityCase{"Kyoto", "京都府京都市中京区河原町通１", 20, "京都府京都市\r\n中京区河原町通１"},
        CityCase{"OsakaByFu", "大阪府大阪市北区梅田１－２－３", 20, "大阪府大阪市\r\n北区梅田１－２－３"},
        CityCase{"KagoshimaFourCharacters", "鹿児島県鹿児島市山下町１１－１", 24, "鹿児島県鹿児島市\r\n山下町１１－１"},
        // 県 as the sixth character is part of a town name: no prefecture, no city search.
        CityCase{"LateKenIsNoPrefecture", "さいたま市県民町１２３４", 20, "さいたま市県民町１２３４"},
        CityCase{"DistrictWithoutTownEndsAtDistrict", "岩手県岩手郡大字雫石１２３", 20, "岩手県岩手郡\r\n大字雫石１２３"},
        // 町 straight behind 郡 is skipped by the search that starts two characters on.
        CityCase{"TownRightBehindDistrictSkipped", "山口県熊毛郡町田村１２", 24, "山口県熊毛郡町田村\r\n１２"},
        CityCase{"DistrictEarlierOfTownAndVillage", "青森県北津軽郡板柳町大字村岡１", 24, "青森県北津軽郡板柳町\r\n大字村岡１"},
        CityCase{"VillageBeforeTown", "岩手県下閉伊郡田野畑村大字町１", 24, "岩手県下閉伊郡田野畑村\r\n大字町１"},
        CityCase{"ExceptionWithinKindZero", "四日市市安島一丁目２番３号", 12, "四日市市\r\n安島一丁目２番３号"},
        CityCase{"LongExceptionWord", "長崎県北松浦郡鹿町町長串１２", 24, "長崎県北松浦郡鹿町町\r\n長串１２"},
        // The first line may not reach the width: 14 bytes of 東京都千代田区 need at least 15.
        CityCase{"CityAsWideAsTheLine", "東京都千代田区丸の内", 14, "東京都千代田区丸の内"},
        // No digit at all: nothing can be forced.
        CityCase{"TooShortAndNoDigit", "東京都港区芝公園四丁目", 20, "東京都港区芝公園四丁目"},
        // The text before the number fits on one line exactly: the later passes break it.
        CityCase{"BeforeNumberFitsExactly", "東京都港区芝公園四丁２", 20, "東京都港区芝公園四丁２"},
        CityCase{"BeforeNumberOneByteTooLong", "東京都港区芝公園四丁a２", 20, "東京都港区芝公園四丁\r\na２"}),
    [](const auto& test) { return std::string(test.param.name); });

using Lines = std::vector<std::string>;

struct PassCase {
  const char* name;
  Lines lines;
  int line_bytes;
  int min_line_bytes;
  Lines expected;
};

class SplitLongLineTest : public ::testing::TestWithParam<PassCase> {};

TEST_P(SplitLongLineTest, CutsAtTheWidthButNeverInsideANumberOrWord) {
  const auto& c = GetParam();
  InsertCrLf crlf;
  crlf.LineBytes = static_cast<std::int16_t>(c.line_bytes);
  crlf.MinLineBytes = static_cast<std::int16_t>(c.min_line_bytes);
  Lines lines = c.lines;
  crlf.SplitLongLine(lines);
  EXPECT_EQ(lines, c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, SplitLongLineTest,
    ::testing::Values(
        PassCase{"ShortLinesStay", {"東京都", "港区"}, 6, 3, {"東京都", "港区"}},
        PassCase{"TrailByteAtWidth", {"東京都港区"}, 6, 3, {"東京都", "港区"}},
        PassCase{"LeadByteAtWidthCutsBefore", {"A東京都"}, 2, 1, {"A", "東京都"}},
        PassCase{"LeadByteAfterDoubleByte", {"A東京"}, 4, 2, {"A東", "京"}},
        PassCase{"SingleByteAtWidth", {"ABC-DEF"}, 4, 2, {"ABC-", "DEF"}},
        PassCase{"NumberAfterKanjiMovesTheCut", {"住所123456789012"}, 10, 6, {"住所", "123456789012"}},
        PassCase{"FullWidthNumberMovesTheCut", {"住所１２３４５６７８９０"}, 10, 6, {"住所", "１２３４５６７８９０"}},
        PassCase{"HalfWidthRunStartingLineStaysWhole", {"123456789012"}, 10, 6, {"123456789012"}},
        PassCase{"FullWidthRunStartingLineIsLost", {"丸の内", "１２３４５６７８９０１２"}, 10, 6, {"丸の内"}},
        PassCase{"LatinWordMovesTheCut", {"館PRESIDENTIAL"}, 8, 4, {"館", "PRESIDENTIAL"}},
        PassCase{"FullWidthLatinCountsAsLatin", {"館ＡＢＣＤＥＦ"}, 8, 4, {"館", "ＡＢＣＤＥＦ"}},
        // A digit meeting a letter is no number and no word: the natural cut stands.
        PassCase{"DigitMeetingLetterCuts", {"棟12AB34"}, 4, 2, {"棟12", "AB34"}},
        PassCase{"EachLineOncePerPass", {"東京都港区芝公園"}, 4, 2, {"東京", "都港区芝公園"}}),
    [](const auto& test) { return std::string(test.param.name); });

class SplitAtSpaceTest : public ::testing::TestWithParam<PassCase> {};

TEST_P(SplitAtSpaceTest, BreaksAtTheFirstBlankWithinBounds) {
  const auto& c = GetParam();
  InsertCrLf crlf;
  crlf.LineBytes = static_cast<std::int16_t>(c.line_bytes);
  crlf.MinLineBytes = static_cast<std::int16_t>(c.min_line_bytes);
  Lines lines = c.lines;
  crlf.SplitAtSpace(lines);
  EXPECT_EQ(lines, c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, SplitAtSpaceTest,
    ::testing::Values(
        // The blank at byte 11: within 6 to 19.
        PassCase{"HalfWidth", {"東京都港区 芝公園"}, 20, 6, {"東京都港区", "芝公園"}},
        PassCase{"FullWidth", {"東京都港区　芝公園"}, 20, 6, {"東京都港区", "芝公園"}},
        PassCase{"ShortLinesSplitToo", {"港区 芝"}, 20, 4, {"港区", "芝"}},
        PassCase{"BlankTooEarly", {"港区 芝公園四丁目"}, 20, 6, {"港区 芝公園四丁目"}},
        PassCase{"BlankAtTheWidthIsTooLate", {"東京都港区芝公園 四丁目"}, 17, 6, {"東京都港区芝公園 四丁目"}},
        PassCase{"BlankJustBeforeTheWidth", {"東京都港区芝公園 四丁目"}, 18, 6, {"東京都港区芝公園", "四丁目"}},
        PassCase{"LeadingBlankIsNoBreak", {" 東京都港区"}, 20, 1, {" 東京都港区"}},
        PassCase{"OnlyTheFirstBlank", {"東京都港区 芝 公園"}, 20, 6, {"東京都港区", "芝 公園"}}),
    [](const auto& test) { return std::string(test.param.name); });

class SplitAtDigitTest : public ::testing::TestWithParam<PassCase> {};

TEST_P(SplitAtDigitTest, BreaksBeforeTheHouseNumber) {
  const auto& c = GetParam();
  InsertCrLf crlf;
  crlf.LineBytes = static_cast<std::int16_t>(c.line_bytes);
  crlf.MinLineBytes = static_cast<std::int16_t>(c.min_line_bytes);
  Lines lines = c.lines;
  crlf.SplitAtDigit(lines);
  EXPECT_EQ(lines, c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, SplitAtDigitTest,
    ::testing::Values(
        PassCase{"FullWidthDigit", {"芝公園四丁目２番８号"}, 12, 6, {"芝公園四丁目", "２番８号"}},
        // No upper bound: the first line may stay too long for the later passes.
        PassCase{"NoUpperBound", {"芝公園四丁目２番８号"}, 8, 4, {"芝公園四丁目", "２番８号"}},
        PassCase{"DigitTooEarly", {"芝２丁目公園前広場"}, 12, 6, {"芝２丁目公園前広場"}},
        PassCase{"ShortLineStays", {"芝公園２"}, 12, 6, {"芝公園２"}},
        PassCase{"NoDigitStays", {"芝公園四丁目公園前"}, 12, 6, {"芝公園四丁目公園前"}},
        PassCase{"HalfWidthDigit", {"芝公園四丁目2番8号"}, 12, 6, {"芝公園四丁目", "2番8号"}},
        // A digit as the first character is reported at byte 0, which is below any bound.
        PassCase{"DigitFirstIsNoBreak", {"１芝公園四丁目公園"}, 12, 6, {"１芝公園四丁目公園"}}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(HardBreak, NeverCutsADoubleByteCharacter) {
  const struct {
    const char* text;
    int n;
    const char* expected;
  } cases[] = {
      {"東京都", 3, "東\r\n京都"},   // byte 3 starts 京
      {"東京都", 4, "東京\r\n都"},   // byte 4 ends 京
      {"AB東京", 2, "AB\r\n東京"},
      {"A東京", 2, "A\r\n東京"},
      {"東京", 4, "東京\r\n"},
  };
  for (const auto& c : cases) EXPECT_EQ(HardBreak(c.text, c.n), c.expected) << c.text << " " << c.n;
}

TEST(RemoveBlankLines, DropsEmptyLinesOnlyWhenThereAreSeveral) {
  const struct {
    const char* text;
    const char* expected;
  } cases[] = {
      {"", ""}, {"東京都", "東京都"}, {"東京都\r\n\r\n港区", "東京都\r\n港区"}, {"\r\n東京都\r\n", "東京都"},
      {"\r\n", ""}, {"東京都\n港区", "東京都\n港区"},
  };
  for (const auto& c : cases) {
    std::string text = c.text;
    RemoveBlankLines(text);
    EXPECT_EQ(text, c.expected) << c.text;
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
