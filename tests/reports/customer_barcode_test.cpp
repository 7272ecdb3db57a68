#include <gtest/gtest.h>

#include <string>

#include "common/text.h"
#include "db/connection.h"
#include "entry/demo_data.h"
#include "entry/schema.h"
#include "reports/slips/customer_barcode.h"

namespace lupin::reports {
namespace {

struct BarcodeCase {
  const char* name;
  std::string zip;
  std::string address;
  std::string expected;
};

TEST(MakeCustomerBarcode, GivesPostcodeAndHouseNumber) {
  const BarcodeCase cases[] = {
      {"TownBeforeTheBlankDropped", "100-0001", "東京都千代田区千代田 一丁目１－１", "10000011-1-1"},
      // Without a blank the town names become hyphens, and the leading one goes.
      {"NoBlankReducedWhole", "100-0001", "東京都千代田区千代田一丁目１－１", "10000011-1-1"},
      {"FullWidthRoomNumber", "100-0001", "中央 ２０２号", "1000001202"},
      {"LoneTenIsNoDigit", "100-0001", "中央 十和田3", "10000013"},
      {"LettersOfAWordVanish", "100-0001", "中央 ＡＢ棟", "1000001"},
      {"SingleLetterKept", "100-0001", "中央 Ａ棟３０１", "1000001A301"},
      {"FloorMarkDropped", "100-0001", "中央 1-2-3 3F", "10000011-2-3-3"},
      {"LowerCaseLetter", "150-0001", "神宮前 5-52-2 b棟", "15000015-52-2B"},
      {"SymbolsJoinDigits", "150-0001", "神宮前 1/2.3&4", "15000011234"},
      {"LongVowelMarkBeforeDigit", "100-0001", "千代田 1ー2", "10000011-2"},
      // Thirteen places: the field stops at 20 characters.
      {"UnitLimit", "100-0001", "千代田 1-2-3-4-5-6-7-8", "10000011-2-3-4-5-6-7"},
      {"FullWidthDigitsHalfHyphen", "１００-０００１", "千代田 1-1", "10000011-1"},
      {"EmptyAddress", "100-0001", "", "1000001"},
      {"UmedaBuildingFloor", "530-0001", "大阪府大阪市北区梅田 三丁目１番３号 ＡＢＣビル１２Ｆ", "53000013-1-3-12"},
      // The first blank follows the house number: only the floor is left to tell.
      {"BlankAfterTheHouseNumber", "150-0002", "東京都渋谷区渋谷２－２１－１　渋谷ヒカリエ３４階", "150000234"},
      {"HakataTensAndUnits", "812-0011", "福岡県福岡市博多区博多駅前 二丁目十九番二十四号", "81200112-19-24"},
      {"BuildingLetterJoined", "460-0008", "愛知県名古屋市中区栄 3-5-1 B棟-201", "46000083-5-1B201"},
      {"IwateChiwari", "028-7111", "岩手県八幡平市 第二地割１５０", "02871112-150"},
      {"KanjiZeroInRoom", "810-0001", "福岡県福岡市中央区天神 一丁目一番一号 一〇二号室", "81000011-1-1-102"},
  };
  for (const auto& c : cases) EXPECT_EQ(MakeCustomerBarcode(c.zip, c.address), c.expected) << c.name;
}

TEST(MakeCustomerBarcode, NonNumericPostcodeGivesNoBarcode) {
  for (const char* zip : {"", "ABC-1234", "１００－０００１", "100-00-01", "〒100-0001"}) {
    EXPECT_EQ(MakeCustomerBarcode(zip, "千代田 1-1"), "") << zip;
  }
}

// Every customer of the demo data gets a field the barcode element can encode: the seven postcode
// digits, then only digits, hyphens and capitals, never more than 20 characters.
TEST(MakeCustomerBarcode, DemoCustomersGiveEncodableFields) {
  auto connection = db::OpenConnection("sqlite::memory:");
  entry::CreateSchema(*connection);
  entry::DemoOptions options;
  options.orders = 200;
  entry::FillDemoData(*connection, options);
  int filled = 0;
  for (auto rs = connection->Open("SELECT [郵便番号], [住所] FROM [CUSTOMER]"); !rs.Eof(); rs.MoveNext()) {
    const std::string zip = rs["郵便番号"].Text();
    const std::string field = MakeCustomerBarcode(zip, rs["住所"].Text());
    SCOPED_TRACE(zip + " " + rs["住所"].Text() + " → " + field);
    if (field.empty()) continue;
    ++filled;
    EXPECT_LE(field.size(), 20u);
    EXPECT_EQ(field.find_first_not_of("0123456789-ABCDEFGHIJKLMNOPQRSTUVWXYZ"), std::string::npos);
    EXPECT_EQ(field.substr(0, 7).find_first_not_of("0123456789"), std::string::npos);
  }
  EXPECT_GT(filled, 50);
}

struct StepCase {
  const char* name;
  std::string in;
  std::string expected;
};

TEST(ConvertKanjiNumerals, TurnsNumeralsBeforeAddressWordsIntoDigits) {
  const StepCase cases[] = {
      {"RunAtTheStart", "三丁目五番地", "3丁目5番地"},
      {"TensAndUnits", "二十一番地", "21番地"},
      {"PositionalZero", "二〇三号", "203号"},
      // 千 of 千代田 is a numeral too, but 田 ends the run.
      {"RunStopsAtAWord", "千代田一丁目", "千代田1丁目"},
      {"SecondOccurrence", "一丁目二丁目", "1丁目2丁目"},
      {"ChiwariAndSen", "第三地割五線", "第3地割5線"},
      {"LoneZeroSignIsNoNumeral", "〇号", "〇号"},
      {"NumeralWithoutWordStays", "一の二", "1の二"},
      // A word as the first character has nothing before it; the search moves past it.
      {"WordAtTheVeryStart", "丁目三番", "丁目3番"},
      {"WordAtTheStartThenRuns", "の一の二", "の1の二"},
  };
  for (const auto& c : cases) EXPECT_EQ(ConvertKanjiNumerals(c.in), c.expected) << c.name;
}

TEST(ReduceToDigits, KeepsWhatTheBarcodeCanSay) {
  const StepCase cases[] = {
      {"KanjiZero", "1〇5", "105"},
      {"OneHyphenPerRunOfDropped", "1丁目2番地3", "1-2-3"},
      {"OnlyOneTrailingHyphenDropped", "12 ", "12"},
      {"ExplicitHyphensStay", "1--", "1-"},
      {"LeadingHyphenStays", "町1", "-1"},
      {"LongVowelBeforeKanjiZero", "1ー〇", "1-0"},
      {"LongVowelBeforeLetter", "1ーA", "1-A"},
      {"WordOfLetters", "AB1", "-1"},
      {"FloorMarkAfterFullWidthDigit", "３F", "3"},
      {"OtherLetterAfterDigit", "3B", "3B"},
      {"Nothing", "ビル", ""},
  };
  for (const auto& c : cases) EXPECT_EQ(ReduceToDigits(c.in), c.expected) << c.name;
}

TEST(CustomerBarcodeSteps, NormalizeLatinRemoveSymbolsCollapseAndTrim) {
  const struct {
    const char* step;
    std::string (*apply)(std::string_view);
    std::string in, expected;
  } cases[] = {
      {"NormalizeLatin", NormalizeLatin, "abcＡｂ１棟", "ABCAB１棟"},
      {"RemoveSymbols", RemoveSymbols, "A&B/C・D.E", "ABCDE"},
      {"RemoveSymbols", RemoveSymbols, "1＆2－3", "1＆2－3"},
      {"CollapseHyphens", CollapseHyphens, "1---2--3", "1-2-3"},
      {"CollapseHyphens", CollapseHyphens, "--1", "-1"},
      // A run at the very end has no character behind it to trigger the collapse.
      {"CollapseHyphens", CollapseHyphens, "1--", "1--"},
      {"TrimHyphensAroundLetters", TrimHyphensAroundLetters, "1-A-2", "1A2"},
      {"TrimHyphensAroundLetters", TrimHyphensAroundLetters, "A--1", "A-1"},
      {"LimitBarcodeUnits", LimitBarcodeUnits, "123456789012345", "1234567890123"},
      {"LimitBarcodeUnits", LimitBarcodeUnits, "12345678901A2", "12345678901A"},
      // At twelve units a letter no longer fits.
      {"LimitBarcodeUnits", LimitBarcodeUnits, "123456789012A", "123456789012"},
      {"LimitBarcodeUnits", LimitBarcodeUnits, "A1B2C3D4E5", "A1B2C3D4"},
  };
  for (const auto& c : cases) EXPECT_EQ(c.apply(c.in), c.expected) << c.step << " " << c.in;
}

TEST(IsNextToLetter, LooksBehindThenBefore) {
  const struct {
    std::u32string text;
    int position;
    bool expected;
  } cases[] = {
      {U"AB", 1, true}, {U"AB", 2, true}, {U"A1", 1, false}, {U"1A", 1, true}, {U"xA", 2, false}, {U"", 1, false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(IsNextToLetter(c.text, c.position), c.expected) << text::FromU32(c.text) << " " << c.position;
  }
}

}  // namespace
}  // namespace lupin::reports
