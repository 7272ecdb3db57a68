// The pure rules of the Yamato, Yu-Pack, NP, AB and Amazon files, one table each, and the record
// builder every file shares.
#include <gtest/gtest.h>

#include <string>

#include "exchange/ab_export.h"
#include "exchange/amazon_export.h"
#include "exchange/csv_line.h"
#include "exchange/icats_export.h"
#include "exchange/np_export.h"
#include "exchange/yamato_address.h"
#include "exchange/yupack_export.h"
#include "exchange_fixture.h"

namespace lupin::exchange {
namespace {

using testing::Rep;

TEST(SplitHouseNumber, SplitsBehindTheStreetNumberOnly) {
  const struct {
    std::string address, expected;
    int split_chars;
  } cases[] = {
      {"３－５－１ＡＢＣビル", "３－５－１　ＡＢＣビル", 5},
      {"１丁目２番地３号", "１丁目２番地３号", 0},                    // no split before "３号", none at the end
      {"芝公園４丁目 ２番 ８号 タワー", "芝公園４丁目　２番 ８号 タワー", 6},  // a blank after "丁目" is no number
      {"本町２番地の３", "本町２番地の３", 0},                        // "地" before "の" stays
      {"本町２番ビル", "本町２　番ビル", 3},  // only "番地" keeps the number joined
      {" 本 町２ 番館", "本町２　番館", 3},  // blanks of the walked part dropped, the rest trimmed
      {"大手町１ー２", "大手町１ー２", 0},
      {"港区芝５", "港区芝５", 0},
  };
  for (const auto& c : cases) {
    const auto split = SplitHouseNumber(c.address);
    EXPECT_EQ(split.address, c.expected) << c.address;
    EXPECT_EQ(split.split_chars, c.split_chars) << c.address;
  }
}

TEST(B2AddressFields, StreetBuildingThenWhatIsLeftWithCompanyAndDepartment) {
  const struct {
    const char* what;
    std::string address, company, department;
    std::array<std::string, 4> expected;
  } cases[] = {
      {"a building that fits: the company moves up to 14", "本町１　ルパンビル", "株式会社Ａ", "営業部",
       {"本町１", "ルパンビル", "株式会社Ａ", "営業部"}},
      {"the building's rest fills 14: company and department to 15", "本町１　" + Rep("ビ", 17), "株式会社Ａ", "営業部",
       {"本町１", Rep("ビ", 16), "ビ", "株式会社Ａ 営業部"}},
      {"a 60-byte company keeps its tail ahead of the department", "本町１", Rep("社", 30), "部",
       {"本町１", "", Rep("社", 25), Rep("社", 5) + " 部"}},
      {"a building over 32 bytes goes on in 14", "本町１　" + Rep("ビ", 20), "", "",
       {"本町１", Rep("ビ", 16), Rep("ビ", 4), ""}},
  };
  for (const auto& c : cases) EXPECT_EQ(B2AddressFields(c.address, c.company, c.department), c.expected) << c.what;
}

TEST(DeliveryTimeCodes, EachFileMapsTheStartHour) {
  using Form = YupackWriter::Form;
  const struct {
    std::string text, yamato, r, v4, classic;
  } cases[] = {
      {"", "", "00", "67", "9"},
      {"指定なし", "", "00", "99", "9"},
      {"希望 無し", "", "00", "99", "9"},
      {"午前中", "0812", "51", "60", "0"},
      {"午前", "", "51", "60", "0"},
      {"14時", "", "00", "99", "9"},  // no range mark: no hour
      {"14-16", "1416", "53", "63", "2"},
      {"１６～１８", "1618", "54", "64", "2"},
      {"PM", "1214", "52", "62", "1"},
      {"pm2-4", "1416", "53", "63", "2"},
      {"ＡＭ１０－１２", "0812", "51", "60", "0"},
      {"17-19", "1618", "54", "64", "3"},
      {"18-20", "1820", "55", "65", "3"},
      {"19:00-21:00", "1921", "55", "65", "4"},
      {"21-", "2021", "56", "66", "4"},
      {"22-24", "", "00", "99", "9"},
      {"夕方-", "", "00", "99", "9"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(YamatoTimeCode(c.text), c.yamato) << c.text;
    EXPECT_EQ(YupackTimeCode(c.text, Form::R), c.r) << c.text;
    EXPECT_EQ(YupackTimeCode(c.text, Form::V4), c.v4) << c.text;
    EXPECT_EQ(YupackTimeCode(c.text, Form::Classic), c.classic) << c.text;
  }
}

TEST(YamatoSlipKind, CashOnDeliveryWinsAndExpressMailIsB2Only) {
  const struct {
    std::string carrier;
    bool cod;
    std::string b2, icats;
  } cases[] = {{"クロネコメール便 速達", true, "2", "2"}, {"クロネコメール便 速達", false, "6", "3"},
               {"ｸﾛﾈｺﾒｰﾙ便", false, "3", "3"},          {"ネコポス", false, "7", "7"},
               {"ヤマト運輸", false, "0", "0"}};
  for (const auto& c : cases) {
    EXPECT_EQ(YamatoSlipKind(c.carrier, c.cod, true), c.b2) << c.carrier;
    EXPECT_EQ(YamatoSlipKind(c.carrier, c.cod, false), c.icats) << c.carrier;
  }
}

TEST(YupackText, DigitsAndAddressFieldsMeasuredTwoWays) {
  EXPECT_EQ(DigitsOnly("2026/03/04"), "20260304");
  EXPECT_EQ(DigitsOnly(""), "0");
  EXPECT_EQ(DigitsOnly("-1.2.3円"), "-1.23");
  EXPECT_EQ(DigitsOnly("1-2"), "12");
  const struct {
    const char* what;
    std::string address;
    std::array<std::string, 3> expected;
  } cases[] = {
      {"25 characters fit whole though 50 bytes", Rep("あ", 25), {Rep("あ", 25), "", ""}},
      {"26 double-byte characters: the last goes on", Rep("あ", 26), {Rep("あ", 25), "あ", ""}},
      {"half-width text counts two per character", Rep("a", 30), {Rep("a", 30), "", ""}},
      {"over 50 characters: a third field, uncut", Rep("あ", 120), {Rep("あ", 25), Rep("あ", 25), Rep("あ", 70)}},
      {"line breaks removed first", "東京\r\n都", {"東京都", "", ""}},
  };
  for (const auto& c : cases) EXPECT_EQ(YupackAddress(c.address), c.expected) << c.what;
}

TEST(CardInfo, LongAndShortMemosAndPayCounts) {
  const struct {
    std::string memo, number, expiry;
    int count;
  } cases[] = {
      {"VISA:名:x:1234-5678-9012:12/2027:リボ払い", "1234-5678-9012", "27/12", 90},
      {"VISA:名:x:1234-5678-9012:1/27:ボーナス払い", "1234-5678-9012", "27/1", 80},
      {"JCB:x:4111111111111111:03/28:x:x:3回", "4111111111111111", "28/03", 3},
      {"JCB:x:4111111111111111:03/28:x:x:一括払い", "4111111111111111", "28/03", 0},
      {"JCB:x:4111:03/28", "4111", "28/03", 0},
      {"a:b", "", "", 0},
      {"a:b:c:1234--9012:x", "c", "1234--9012", 0},  // an empty piece: the short layout
  };
  for (const auto& c : cases) {
    const CardInfo info = CardInfoOf(c.memo);
    EXPECT_EQ(info.number, c.number) << c.memo;
    EXPECT_EQ(info.expiry, c.expiry) << c.memo;
    EXPECT_EQ(info.pay_count, c.count) << c.memo;
  }
}

TEST(ABRules, CarrierNamesAndSiteIds) {
  const struct {
    std::string carrier, expected;
  } carriers[] = {{"ヤマト運輸", "クロネコヤマト"}, {"日通", "日本通運"}, {"日本通運", "日本通運"},
                  {"ゆうパック便", "ゆうパック"}, {"郵便局", "ゆうパック"},     {"佐川 急便", "佐川急便"},
                  {"ＥＭＳ", "ＥＭＳ"},           {"メール便", "メール便"},      {"赤帽", "赤帽"}};
  for (const auto& c : carriers) EXPECT_EQ(ABTransfer(c.carrier), c.expected) << c.carrier;
  const std::vector<std::string> lines = {"123,abc", "12,def", "12,ghi"};
  EXPECT_EQ(FindSiteId(lines, "12"), "def");
  EXPECT_EQ(FindSiteId(lines, "1"), "");
}

TEST(AmazonCarrierCode, IgnoresCaseAndWidth) {
  const struct {
    std::string carrier, code;
  } cases[] = {{"fedex", "FedEx"},           {"ＤＦＬ", "DFL"},       {"nipponexpress", "NipponExpress"},
               {"日本通運 東京", "NipponExpress"}, {"ﾆｯﾂｳ", "Other"}, {"ヤマト運輸", "Other"}};
  for (const auto& c : cases) EXPECT_EQ(AmazonCarrierCode(c.carrier), c.code) << c.carrier;
}

TEST(CsvLine, QuotesEachFieldByItsChoiceAndKeepsEveryValueInsideItsRecord) {
  const struct {
    const char* what;
    std::string value;
    Quote quote;
    char separator;
    std::string expected;
  } cases[] = {
      {"always, empty", "", Quote::Always, ',', "\"\",x\r\n"},
      {"text only, empty", "", Quote::TextOnly, ',', ",x\r\n"},
      {"text only, text", "ab", Quote::TextOnly, ',', "\"ab\",x\r\n"},
      {"bare", "12", Quote::None, ',', "12,x\r\n"},
      {"a quote becomes a full-width quote", "ルパン\"本店\"", Quote::Always, ',', "\"ルパン＂本店＂\",x\r\n"},
      {"CR LF is one full-width space, lone CR and LF one each", "a\r\nb\rc\nd", Quote::Always, ',',
       "\"a　b　c　d\",x\r\n"},
      {"a comma inside quotes stays", "a,b", Quote::Always, ',', "\"a,b\",x\r\n"},
      {"a comma in a bare field cannot split it", "1,100", Quote::None, ',', "1　100,x\r\n"},
      {"a tab in a tab-separated bare field", "a\tb", Quote::None, '\t', "a　b\tx\r\n"},
      {"a line break at the very end", "a\r", Quote::None, '\t', "a　\tx\r\n"},
  };
  for (const auto& c : cases) {
    std::string out;
    CsvLine(out, c.separator).Add(c.value, c.quote).Add("x", Quote::None).End();
    EXPECT_EQ(out, c.expected) << c.what;
  }
}

}  // namespace
}  // namespace lupin::exchange
