#include "documents_fixture.h"

#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "catalogue/load_report_definition.h"
#include "common/vb.h"
#include "engine/json_dump.h"
#include "engine/render_png.h"
#include "entry/catalogue.h"
#include "entry/schema.h"
#include "layout/report_frame.h"
#include "run/preview_runner_engine.h"
#include "support/golden_files.h"

namespace lupin::reports::testing {

namespace {

std::string Digits(const std::string& text) {
  std::string digits;
  for (const char c : text)
    if (c >= '0' && c <= '9') digits += c;
  return digits;
}

}  // namespace

void DocumentsTest::SetUp() {
  EngineTest::SetUp();
  entry::CreateSchema(Db());
  home_ = std::filesystem::temp_directory_path() / ("lupin_documents_" + std::to_string(::getpid()));
  std::filesystem::create_directories(home_);
  registry_ = run::ReportObjects();
}

void DocumentsTest::TearDown() {
  std::error_code ignored;
  std::filesystem::remove_all(home_, ignored);
}

int DocumentsTest::Billed(const FixtureOrder& order) {
  double goods = 0;
  for (const auto& line : order.lines) goods += line.price * line.qty;
  return static_cast<int>(goods) + order.postage + order.fee;
}

void DocumentsTest::Insert(const FixtureOrder& order) {
  const std::string id = std::to_string(order.id);
  double goods = 0, qty[20] = {};
  for (std::size_t n = 0; n < order.lines.size(); ++n) {
    goods += order.lines[n].price * order.lines[n].qty;
    if (n < 20) qty[n] = order.lines[n].qty;
  }
  std::string columns =
      "[ID],[顧客NO],[顧客番号],[受注日],[出荷日],[出荷予定日],[会社名],[所属],[氏名],[郵便番号],[住所],[電話番号],"
      "[検索用電話番号],[メールアドレス],[支払方法],[意見],[メモ],[商品代金],[送料],[決済手数料],[消費税],[ポイント利用],"
      "[請求額],[入金額],[入金日],[ショップID],[ショップ名],[贈答先氏名],[贈答先住所],[贈答先郵便番号],[のし]";
  const std::string gift = order.gift_name;
  std::string values = id + "," + std::to_string(order.customer) + "," + std::to_string(order.customer) + ",'" +
                       order.ordered + "','" + order.shipped + "','2024/06/20','株式会社見本','営業部','" + order.name +
                       "','" + order.zip + "','" + order.address + "','" + order.tel + "','" +
                       Digits(order.tel) + "','taro@example.jp','" + order.payment +
                       "','午前中に\r\n届けてください','','" + std::to_string(static_cast<int>(goods)) + "'," +
                       std::to_string(order.postage) + "," + std::to_string(order.fee) + ",0,0," +
                       std::to_string(Billed(order)) + "," + std::to_string(order.paid) + ",'" + order.paid_date + "','" +
                       order.shop + "','見本ショップ','" + gift + "','" + (gift.empty() ? "" : "大阪府大阪市北区梅田1-1") +
                       "','" + (gift.empty() ? "" : "530-0001") + "','" + (gift.empty() ? "" : "御中元") + "'";
  for (int n = 0; n < 20; ++n) {
    if (qty[n] == 0) continue;
    columns += ",[注文数量" + std::to_string(n + 1) + "]";
    values += "," + vb::Format(qty[n]);
  }
  Db().Execute("INSERT INTO [CHUMON](" + columns + ") VALUES(" + values + ")");
  for (std::size_t n = 0; n < order.lines.size(); ++n) {
    const auto& line = order.lines[n];
    Db().Execute("INSERT INTO [CHUMON_D]([ID],[ITEM_NO],[ITEM_ID],[ITEM_MEI],[ITEM_TANKA],[ITEM_GENKA],[ITEM_PRICE],[ITEM_QTY],"
                 "[ITEM_TAX],[ITEM_SYUKKA],[ITEM_SYUDATE]) VALUES(" + id + "," + std::to_string(n + 1) + ",'" + line.item_id +
                 "','" + line.name + "'," + std::to_string(line.price) + "," + std::to_string(line.price / 2) + ".5," +
                 vb::Format(line.price * line.qty) + "," + vb::Format(line.qty) + "," + std::to_string(line.tax) + "," +
                 std::to_string(line.shipped) + ",'" + line.ship_date + "')");
  }
  if (order.staged)
    Db().Execute("INSERT INTO [WK_PRINT]([ID],[SIMEI],[ORD_DATE],[COMPANY],[YUBIN],[TEL],[CLIENT_NAME]) VALUES(" + id + ",'" +
                 order.name + "','" + order.ordered + "','株式会社見本','" + order.zip + "','" + order.tel + "','WS1')");
}

void DocumentsTest::InsertPayment(const std::string& method, int ord, const std::string& shop) {
  Db().Execute("INSERT INTO [PAYMENT]([METHOD],[ORD],[OK],[SHOP_ID]) VALUES('" + method + "'," + std::to_string(ord) +
               ",1,'" + shop + "')");
}

engine::PageCollection DocumentsTest::Run(std::int32_t report_no, const entry::RunValues& run) {
  entry::Context context(&Db(), settings::StorePaths::InFolder(home_), home_);
  context.login.client_name = "WS1";
  context.current.report_no = report_no;
  context.run = run;
  const std::string object(entry::CatalogueOf(report_no).object);
  auto report = registry_.Create(object, context);
  EXPECT_NE(report, nullptr) << object;
  if (!report) return {};
  dynamic_cast<layout::ReportFrame&>(*report).clock = [] { return vb::DateSerialOf(2024, 7, 1) + vb::TimeSerialOf(9, 30, 5); };
  engine::PageCollection pages;
  const auto result = report->Run(pages);
  EXPECT_TRUE(result.ok) << result.fault.description;
  return pages;
}

void DocumentsTest::ExpectGolden(const engine::PageCollection& pages, const std::string& name) {
  const std::string dump = engine::JsonDump(pages.Info(), pages.Pages());
  if (const char* folder = std::getenv("LUPIN_PNG_DIR"); folder != nullptr && GetParam() == db::Engine::Sqlite) {
    // For looking at the pages: LUPIN_PNG_DIR=/tmp/x writes them as NAME-N.png.
    engine::PageRasterizer rasterizer;
    std::vector<std::string> problems;
    for (const auto& page : pages.Pages())
      rasterizer.WritePng(page, 100, std::string(folder) + "/" + name + "-" + std::to_string(page.number) + ".png", problems);
  }
  lupin::testing::ExpectGoldenFile(name, dump, GetParam() == db::Engine::Sqlite);
}

std::vector<std::string> TextsOf(const engine::Page& page, const std::string& name) {
  std::vector<std::string> texts;
  for (const auto& item : page.items)
    if (item.name == name) texts.push_back(item.text);
  return texts;
}

std::string TextOf(const engine::Page& page, const std::string& name) {
  const auto texts = TextsOf(page, name);
  return texts.empty() ? "<none>" : texts.front();
}

}  // namespace lupin::reports::testing
