#include <gtest/gtest.h>

#include <string>

#include "common/text.h"
#include "db/connection.h"
#include "demo/demo_data.h"
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
      {"FullWidthRoomNumber", "100-0001", "中央 ２０２号", "1000001202"},
      {"LoneTenIsNoDigit", "100-0001", "中央 十和田3", "10000013"},
      {"SingleLetterKept", "100-0001", "中央 Ａ棟３０１", "1000001A301"},
      // Thirteen places: the field stops at 20 characters.
      {"UnitLimit", "100-0001", "千代田 1-2-3-4-5-6-7-8", "10000011-2-3-4-5-6-7"},
      {"UmedaBuildingFloor", "530-0001", "大阪府大阪市北区梅田 三丁目１番３号 ＡＢＣビル１２Ｆ", "53000013-1-3-12"},
      // The first blank follows the house number: only the floor is left to tell.
      {"BlankAfterTheHouseNumber", "150-0002", "東京都渋谷区渋谷２－２１－１　渋谷ヒカリエ３４階", "150000234"},
      {"KanjiZeroInRoom", "810-0001", "福岡県福岡市中央区天神 一丁目一番一号 一〇二号室", "81000011-1-1-102"},
      {"FullWidthPostcodeGivesNone", "１００－０００１", "千代田 1-1", ""},
      {"MisshapenPostcodeGivesNone", "100-00-01", "千代田 1-1", ""},
  };
  for (const auto& c : cases) EXPECT_EQ(MakeCustomerBarcode(c.zip, c.address), c.expected) << c.name;
}

// Every customer of the demo data gets a field the barcode element can encode: the seven postcode
// digits, then only digits, hyphens and capitals, never more than 20 characters.
TEST(MakeCustomerBarcode, DemoCustomersGiveEncodableFields) {
  auto connection = db::OpenConnection("sqlite::memory:");
  entry::CreateSchema(*connection);
  demo::DemoOptions options;
  options.orders = 200;
  demo::FillDemoData(*connection, options);
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
      // 千 of 千代田 is a numeral too, but 田 ends the run.
      {"RunStopsAtAWord", "千代田一丁目", "千代田1丁目"},
      {"LoneZeroSignIsNoNumeral", "〇号", "〇号"},
      {"ZeroSignsCountOnlyBehindANumeral", "町〇〇号", "町〇〇号"},
      {"FormalDigitByDigit", "弐〇参号", "203号"},
      // A word as the first character has nothing before it; the search moves past it.
      {"WordAtTheVeryStart", "丁目三番", "丁目3番"},
  };
  for (const auto& c : cases) EXPECT_EQ(ConvertKanjiNumerals(c.in), c.expected) << c.name;
}

TEST(ReduceToDigits, KeepsWhatTheBarcodeCanSay) {
  const StepCase cases[] = {
      {"OneHyphenPerRunOfDropped", "1丁目2番地3", "1-2-3"},
      {"OnlyOneTrailingHyphenDropped", "12 ", "12"},
      {"LeadingHyphenStays", "町1", "-1"},
      {"LongVowelBeforeKanjiZero", "1ー〇", "1-0"},
      {"FloorMarkAfterFullWidthDigit", "３F", "3"},
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
      {"CollapseHyphens", CollapseHyphens, "1---2--3", "1-2-3"},
      // A run at the very end has no character behind it to trigger the collapse.
      {"CollapseHyphens", CollapseHyphens, "1--", "1--"},
      {"TrimHyphensAroundLetters", TrimHyphensAroundLetters, "1-A-2", "1A2"},
      {"LimitBarcodeUnits", LimitBarcodeUnits, "12345678901A2", "12345678901A"},
      // At twelve units a letter no longer fits.
      {"LimitBarcodeUnits", LimitBarcodeUnits, "123456789012A", "123456789012"},
  };
  for (const auto& c : cases) EXPECT_EQ(c.apply(c.in), c.expected) << c.step << " " << c.in;
}

TEST(IsNextToLetter, LooksBehindThenBefore) {
  const struct {
    std::u32string text;
    int position;
    bool expected;
  } cases[] = {
      {U"AB", 2, true}, {U"A1", 1, false}, {U"1A", 1, true}, {U"xA", 2, false}, {U"", 1, false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(IsNextToLetter(c.text, c.position), c.expected) << text::FromU32(c.text) << " " << c.position;
  }
}

}  // namespace
}  // namespace lupin::reports
