// Demo data on both engines: deterministic, internally consistent, and covering the forms the
// reports and files must cope with.
#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "common/settings.h"
#include "demo/demo_data.h"
#include "demo/words.h"
#include "entry/catalogue.h"
#include "entry/schema.h"
#include "money/calc_chumon_t.h"
#include "support/test_databases.h"

namespace lupin::demo {
namespace {

constexpr int kOrders = 1000;

void Fill(db::Connection& connection, std::uint64_t seed, int orders = kOrders) {
  entry::CreateSchema(connection);
  FillCatalogue(connection);
  DemoOptions options;
  options.orders = orders;
  options.seed = seed;
  options.batch = 300;  // several batches, the last one short
  FillDemoData(connection, options);
}

// FNV-1a over every field of every row, in key order.
std::uint64_t Checksum(db::Connection& connection, const std::string& sql) {
  std::uint64_t hash = 1469598103934665603ULL;
  auto rs = connection.Open(sql);
  for (; !rs.Eof(); rs.MoveNext()) {
    for (std::size_t i = 0; i < rs.FieldCount(); ++i) {
      const db::Value& v = rs.Field(i);
      const std::string text = v.IsNull() ? std::string("\x01NULL") : v.Text();
      for (unsigned char c : text + '\x1f') hash = (hash ^ c) * 1099511628211ULL;
    }
  }
  return hash;
}

std::uint64_t DatabaseChecksum(db::Connection& connection) {
  return Checksum(connection, "SELECT * FROM [CHUMON] ORDER BY [ID]") ^
         (Checksum(connection, "SELECT * FROM [CHUMON_D] ORDER BY [ID], [ITEM_NO]") * 3) ^
         (Checksum(connection, "SELECT * FROM [CUSTOMER] ORDER BY [顧客NO]") * 7) ^
         (Checksum(connection, "SELECT * FROM [ITEM] ORDER BY [SHOP_ID], [ITEM_ID]") * 11);
}

long Count(db::Connection& connection, const std::string& where, const std::string& table = "CHUMON") {
  auto rs = connection.Open("SELECT COUNT(*) AS CNT FROM [" + table + "] WHERE " + where);
  return rs.Eof() ? 0 : static_cast<long>(rs["CNT"].Long());
}

class DemoData : public lupin::testing::EngineTest {};

TEST_P(DemoData, SameSeedGivesTheSameRowsAndAnotherSeedOthers) {
  Fill(Db(), 42);
  auto same = lupin::testing::FreshDatabase(GetParam());
  Fill(*same, 42);
  auto other = lupin::testing::FreshDatabase(GetParam());
  Fill(*other, 43);
  const std::uint64_t checksum = DatabaseChecksum(Db());
  EXPECT_EQ(checksum, DatabaseChecksum(*same));
  EXPECT_NE(checksum, DatabaseChecksum(*other));
  EXPECT_EQ(CountOrders(Db()), kOrders);
}

TEST_P(DemoData, SlotsAgreeWithTheLineTable) {
  Fill(Db(), 5);
  std::map<long, std::vector<std::vector<std::string>>> lines;  // ID → per line: id, name, qty, amount
  auto d = Db().Open("SELECT [ID],[ITEM_NO],[ITEM_ID],[ITEM_MEI],[ITEM_QTY],[ITEM_PRICE] FROM [CHUMON_D] "
                     "ORDER BY [ID],[ITEM_NO]");
  for (; !d.Eof(); d.MoveNext()) {
    auto& of_order = lines[static_cast<long>(d["ID"].Long())];
    ASSERT_EQ(d["ITEM_NO"].Long(), static_cast<std::int64_t>(of_order.size() + 1)) << "line numbers run from 1";
    of_order.push_back({d["ITEM_ID"].Text(), d["ITEM_MEI"].Text(), std::to_string(d["ITEM_QTY"].Long()),
                        std::to_string(d["ITEM_PRICE"].Long())});
  }
  auto o = Db().Open("SELECT * FROM [CHUMON] ORDER BY [ID]");
  std::set<std::size_t> line_counts;
  for (; !o.Eof(); o.MoveNext()) {
    const long id = static_cast<long>(o["ID"].Long());
    const auto& expected = lines[id];
    line_counts.insert(expected.size());
    std::int64_t sum = 0;
    for (int n = 1; n <= entry::kChumonSlots; ++n) {
      const std::string s = std::to_string(n);
      const std::string item = o["商品ID" + s].Text();
      if (static_cast<std::size_t>(n) > expected.size()) {
        ASSERT_EQ(item, "") << "order " << id << " slot " << n;
        continue;
      }
      const auto& line = expected[static_cast<std::size_t>(n - 1)];
      ASSERT_EQ(item, line[0]) << "order " << id << " slot " << n;
      EXPECT_EQ(o["商品名" + s].Text(), line[1]);
      EXPECT_EQ(std::to_string(o["注文数量" + s].Long()), line[2]);
      EXPECT_EQ(std::to_string(o["小計" + s].Long()), line[3]);
      EXPECT_EQ(o["単価" + s].Long() * o["注文数量" + s].Long(), o["小計" + s].Long());
      sum += o["小計" + s].Long();
    }
    ASSERT_FALSE(expected.empty()) << "order " << id << " has no line";
    EXPECT_EQ(o["商品代金"].Long(), sum) << "order " << id;
    EXPECT_EQ(o["ポイント利用"].Long(), o["ポイント利用１０％"].Long() + o["ポイント利用８％"].Long());
  }
  // One page, exactly ten lines, eleven lines and a full order all occur.
  for (std::size_t n : {1u, 10u, 11u}) EXPECT_TRUE(line_counts.count(n)) << n << " lines";
  EXPECT_EQ(*line_counts.rbegin(), static_cast<std::size_t>(entry::kChumonSlots));
}

// One fill holds every form the reports and files must cope with.
TEST_P(DemoData, CoversTheFormsTheReportsMustCopeWith) {
  Fill(Db(), 9);
  std::vector<std::string> addresses;
  for (auto rs = Db().Open("SELECT [住所] FROM [CHUMON]"); !rs.Eof(); rs.MoveNext()) addresses.push_back(rs["住所"].Text());
  auto present = [&](std::string_view word) {
    for (const auto& a : addresses) {
      if (a.find(word) != std::string::npos) return true;
    }
    return false;
  };
  for (const auto& pref : demo::kPrefectures) EXPECT_TRUE(present(pref.name)) << pref.name;
  for (const char* place : {"小郡市", "八日市場市", "今市市", "四日市市", "八日市市", "廿日市市", "余市郡", "高市郡",
                            "杵島郡", "大町町", "北松浦郡鹿町町", "蒲郡市", "佐波郡玉村町", "恵那郡岩村町",
                            "東宇和島郡野村町"}) {
    EXPECT_TRUE(present(place)) << place;
  }
  // Hyphens and digits of both widths, and 番地 forms.
  for (const char* form : {"丁目", "番地", "－", "-", "１", "号"}) EXPECT_TRUE(present(form)) << form;

  // Unpaid and unassigned occur both as NULL and as empty text.
  for (const char* where : {"[入金日] IS NULL", "[入金日] = ''", "[入金日] <> ''", "[出荷伝票番号] IS NULL",
                            "[出荷伝票番号] = ''", "[出荷伝票番号] <> ''", "[出荷日] = ''", "[出荷日] <> ''",
                            "[贈答先氏名] <> ''", "[会社名] <> ''", "[検索用電話番号] IS NULL", "[消費税区分1] = 1",
                            "[ポイント利用８％] > 0", "[請求額] >= 30000"}) {
    EXPECT_GT(Count(Db(), where), 0) << where;
  }
  // Reduced and former-rate lines, and included-tax lines.
  EXPECT_GT(Count(Db(), "[REDUCEDKBN] = 1", "CHUMON_D"), 0);
  EXPECT_GT(Count(Db(), "[ITEM_TAX] = 2", "CHUMON_D"), 0);
  // Paid means paid in full; a shipped order's lines are shipped on its day.
  EXPECT_EQ(Count(Db(), "[入金日] <> '' AND [入金額] <> [請求額]"), 0);
  EXPECT_EQ(Count(Db(), "[出荷日] <> '' AND [出荷日] < [受注日]"), 0);

  // Every carrier class of the print list, and the time bands operators type in both widths.
  const std::vector<std::vector<const char*>> classes = {
      {"ヤマト", "クロネコ"}, {"日通", "日本通運"}, {"佐川"}, {"郵", "ゆう"}, {"福"}, {"西濃", "カンガル"}};
  for (const auto& words : classes) {
    std::string where;
    for (const char* word : words) where += std::string(where.empty() ? "" : " OR ") + "[宅配業者] LIKE '%" + word + "%'";
    EXPECT_GT(Count(Db(), where), 0) << words.front();
  }
  for (const char* band : {"午前中", "１４時～１６時", "AM", "PM", "18:00-20:00", "指定なし"}) {
    EXPECT_GT(Count(Db(), "[配達時間帯] = '" + std::string(band) + "'"), 0) << band;
  }
}

TEST_P(DemoData, CustomersCarryTheirOrdersSales) {
  Fill(Db(), 17);
  // The orders of a customer in a fiscal year add up to its yearly sales column.
  auto rs = Db().Open("SELECT [顧客NO],[年度純売上額2020],[最終取引日],[顧客区分] FROM [CUSTOMER] ORDER BY [顧客NO]");
  int checked = 0;
  for (; !rs.Eof(); rs.MoveNext()) {
    const std::string no = rs["顧客NO"].Text();
    auto sum = Db().Open("SELECT SUM([請求額]) AS S, MAX([受注日]) AS M, COUNT(*) AS C FROM [CHUMON] WHERE [顧客番号] = " +
                         no + " AND [受注日] >= '2020/04/01' AND [受注日] <= '2021/03/31'");
    EXPECT_EQ(sum["S"].Long(), rs["年度純売上額2020"].Long()) << "customer " << no;
    auto all = Db().Open("SELECT MAX([受注日]) AS M, COUNT(*) AS C FROM [CHUMON] WHERE [顧客番号] = " + no);
    EXPECT_EQ(all["M"].Text(), rs["最終取引日"].Text()) << "customer " << no;
    // Prospects have never ordered; everyone else has.
    EXPECT_EQ(all["C"].Long() == 0, rs["顧客区分"].Long() == 2) << "customer " << no;
    ++checked;
  }
  EXPECT_GT(checked, kOrders / 3);
  EXPECT_GT(Count(Db(), "[顧客電話番号枝番] = '2'", "CUSTOMER"), 0);
}

// What a newcomer sees first adds up: the stored tax and bill are what `lupinprint tax` computes.
TEST_P(DemoData, StoredTaxIsWhatTheTaxServiceComputes) {
  Fill(Db(), 23, 400);
  const auto folder = std::filesystem::temp_directory_path() / ("lupin_demo_tax_" + std::to_string(::getpid()));
  std::filesystem::create_directories(folder);
  money::clsCalcChumonT calc{settings::Settings(settings::StorePaths::InFolder(folder))};
  calc.SetDb(Db());
  int checked = 0, with_inner_tax = 0;
  for (auto o = Db().Open("SELECT * FROM [CHUMON] WHERE [ID] <= 400 ORDER BY [ID]"); !o.Eof(); o.MoveNext()) {
    if (o["ID"].Long() % 3 != 0) continue;
    calc.SetId(static_cast<std::int32_t>(o["ID"].Long()));
    calc.Calc();
    const std::int64_t tax = calc.Zeikin1() + calc.Zeikin2() + calc.Zeikin3();
    const std::int64_t billed = calc.Komikin1() + calc.Komikin2() + calc.Komikin3();
    EXPECT_EQ(o["消費税"].Long(), tax) << "order " << o["ID"].Text();
    EXPECT_EQ(o["請求額"].Long(), billed) << "order " << o["ID"].Text();
    // The bill is goods and charges with the tax added on top, less the points.
    const std::int64_t before_tax = o["商品代金"].Long() + o["送料"].Long() + o["決済手数料"].Long() - o["ポイント利用"].Long();
    EXPECT_GE(billed, before_tax) << "order " << o["ID"].Text();
    if (billed - before_tax != tax) ++with_inner_tax;
    ++checked;
  }
  std::filesystem::remove_all(folder);
  EXPECT_GT(checked, 100);
  EXPECT_GT(with_inner_tax, 0) << "no order holds tax in its prices or points";
}

class DemoCatalogue : public lupin::testing::EngineTest {};

TEST_P(DemoCatalogue, OneRowPerReportWithItsDefinitionAndNoDuplicatesOnRerun) {
  entry::CreateSchema(Db());
  const CatalogueSummary first = FillCatalogue(Db());
  const CatalogueSummary again = FillCatalogue(Db());
  EXPECT_EQ(again.reports_added, 0);
  EXPECT_EQ(again.tax_rows_added, 0);

  std::set<std::string> names;
  int expected = 0;
  for (const entry::CatalogueEntry* e = entry::CatalogueBegin(); e != entry::CatalogueEnd(); ++e) {
    if (e->output == entry::OutputKind::None && e->report_no != 2 && e->report_no != 3) continue;
    ++expected;
    auto rs = Db().Open("SELECT * FROM [REPORT] WHERE [REPORT_NO] = " + std::to_string(e->report_no));
    ASSERT_FALSE(rs.Eof()) << e->report_no;
    const std::string name = rs["REPORT_NAME"].Text();
    EXPECT_FALSE(name.empty()) << e->report_no;
    EXPECT_TRUE(names.insert(name).second) << "duplicate name " << name;
    if (!e->delivery_name.empty()) {
      EXPECT_EQ(name, e->delivery_name);
    }
    const bool customers = e->source == entry::SourceRows::Customers;
    EXPECT_EQ(rs["OTHER_TBL_NAME"].Text() == "CUSTOMER", customers) << e->report_no;
    EXPECT_EQ(rs["LBL_RPT"].Long(), e->report_no == 22 || e->report_no == 23 ? 12 : 0) << e->report_no;
    if (entry::IsCollectReport(e->report_no)) {
      EXPECT_EQ(rs["PAYMENT_INIT"].Long(), 2) << e->report_no;
    }
    EXPECT_LE(rs["Where"].Long(), 15);
    // A date criterion names a column of the orders.
    const std::string field = rs["DATE_FIELD"].Text();
    if (!field.empty()) {
      EXPECT_NE(entry::FindTable("CHUMON")->Find(field), nullptr) << field;
    }
    for (int k = 1; k <= 3; ++k) {
      const std::string biko = rs["BIKO_FLD" + std::to_string(k)].Text();
      if (!biko.empty()) {
        EXPECT_NE(entry::FindTable("CHUMON")->Find(biko), nullptr) << biko;
      }
    }
  }
  EXPECT_EQ(first.reports_added, expected);

  // The generation of 2019/10/01 holds the normal and the reduced rate.
  auto tax = Db().Open("SELECT MAIN.[REDUCEDKBN],MAIN.[RATE],MAIN.[OLDRATE] FROM [TAX] MAIN WHERE MAIN.[FROM_DATE] = "
                       "(SELECT MAX(SUB.[FROM_DATE]) FROM [TAX] SUB WHERE SUB.[FROM_DATE] <= '2024/01/01') "
                       "ORDER BY MAIN.[REDUCEDKBN]");
  ASSERT_EQ(tax.RecordCount(), 2u);
  EXPECT_EQ(tax["RATE"].Long(), 10);
  EXPECT_EQ(tax["OLDRATE"].Long(), 8);
  tax.MoveNext();
  EXPECT_EQ(tax["RATE"].Long(), 8);
  auto before = Db().Open("SELECT [RATE] FROM [TAX] WHERE [FROM_DATE] <= '2014/03/31' AND [REDUCEDKBN] = 0 "
                          "ORDER BY [FROM_DATE] DESC");
  ASSERT_FALSE(before.Eof());
  EXPECT_EQ(before["RATE"].Long(), 5);
}

LUPIN_INSTANTIATE_ENGINES(DemoData);
LUPIN_INSTANTIATE_ENGINES(DemoCatalogue);

}  // namespace
}  // namespace lupin::demo
