#include "document_fixture.h"

#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>

#include "common/sql.h"
#include "common/text.h"
#include "common/vb.h"
#include "engine/display.h"
#include "engine/json_dump.h"
#include "entry/schema.h"
#include "layout/format_parser.h"
#include "reports/documents/nouhin.h"
#include "support/golden_files.h"

namespace lupin::reports::testing {

namespace {

std::string Q(const std::string& text) { return "'" + sql::SqlQuote(text) + "'"; }
std::string N(double value) {
  std::ostringstream out;
  out << value;
  return out.str();
}

}  // namespace

int DocOrder::Goods() const {
  int goods = 0;
  for (const auto& line : lines) goods += static_cast<int>(line.price * line.quantity);
  return goods;
}

std::vector<DocLine> Lines(int count) {
  std::vector<DocLine> lines;
  for (int n = 1; n <= count; ++n) {
    const bool tea = n % 2 == 1;
    lines.push_back({tea ? "A-100" : "B-200", (tea ? "緑茶 極上 100g " : "湯呑 有田焼 ") + std::to_string(n),
                     n % 3 == 0 ? "白" : "", n % 4 == 0 ? "L" : "", 1000 + n * 10, static_cast<double>(n % 3 + 1)});
  }
  return lines;
}

void DocumentDb::SetUp() {
  EngineTest::SetUp();
  entry::CreateSchema(Db());
  std::random_device seed;
  home_ = std::filesystem::temp_directory_path() / ("lupin_docs_" + std::to_string(::getpid()) + "_" + std::to_string(seed()));
  std::filesystem::create_directories(home_);
  Db().Execute("INSERT INTO [SHOP]([SHOP_ID],[ATENA],[SHIPPING_TAXKBN],[HANDLING_TAXKBN],[TAX_CALKBN],[TAX_RATE],"
               "[INVOICE_NAME],[INVOICE_NO]) VALUES('S1',0,1,0,0,0.1,'ルパン堂','T1234567890123')");
  Db().Execute("INSERT INTO [SHOP]([SHOP_ID],[ATENA],[SHIPPING_TAXKBN],[HANDLING_TAXKBN],[TAX_CALKBN],[TAX_RATE],"
               "[INVOICE_NAME],[INVOICE_NO]) VALUES('S2',1,0,1,0,0.1,'',NULL)");
  for (const char* item : {"('A-100','緑茶','袋','S1')", "('B-200','湯呑','個入りセット','S1')", "('A-100','緑茶','箱','S2')"})
    Db().Execute(std::string("INSERT INTO [ITEM]([ITEM_ID],[ITEM_NAME],[TANI],[SHOP_ID]) VALUES") + item);
  for (const char* rate : {"(8,'2014/04/01',0,5)", "(10,'2019/10/01',0,8)", "(8,'2019/10/01',1,0)"})
    Db().Execute(std::string("INSERT INTO [TAX]([RATE],[FROM_DATE],[REDUCEDKBN],[OLDRATE]) VALUES") + rate);
  RegisterNouhinReports(registry_);
}

void DocumentDb::TearDown() {
  std::error_code ignored;
  std::filesystem::remove_all(home_, ignored);
}

void DocumentDb::Insert(const DocOrder& o, bool staged) {
  const std::string id = std::to_string(o.id);
  std::string columns =
      "[ID],[受注日],[出荷予定日],[出荷日],[請求日],[顧客番号],[会社名],[所属],[氏名],[郵便番号],[住所],[電話番号],"
      "[メールアドレス],[請求先会社名],[請求先所属],[請求先氏名],[請求先郵便番号],[請求先住所],[請求先電話番号],"
      "[請求先検索用電話番号],[贈答先会社名],[贈答先所属],[贈答先氏名],[贈答先郵便番号],[贈答先住所],[贈答先電話番号],"
      "[のし],[支払方法],[商品代金],[送料],[決済手数料],[消費税],[ポイント利用],[請求額],[ショップID],[ショップ名],"
      "[ショップ郵便番号],[ショップ住所],[ショップ電話番号]";
  std::string values = id + "," + Q(o.ordered) + "," + Q(o.planned) + "," + Q(o.shipped) + "," + Q(o.billed) + "," +
                       std::to_string(o.id % 100 + 500) + "," + Q(o.company) + "," + Q(o.department) + "," +
                       Q(o.name) + "," + Q(o.postcode) + "," + Q(o.address) + "," + Q(o.tel) + ",'taro@example.jp'," +
                       Q(o.bill_company) + "," + Q(o.bill_department) + "," + Q(o.bill_name) + "," +
                       Q(o.bill_postcode) + "," + Q(o.bill_address) + "," + Q(o.bill_tel) + "," +
                       Q(text::TextReplace(o.bill_tel, "-", "")) + "," + Q(o.gift_company) + "," +
                       Q(o.gift_department) + "," + Q(o.gift_name) + "," + Q(o.gift_postcode) + "," +
                       Q(o.gift_address) + "," + Q(o.gift_tel) + "," + Q(o.gift_name.empty() ? "" : "御中元") + "," +
                       Q(o.payment) + "," + std::to_string(o.Goods()) + "," + std::to_string(o.postage) + "," +
                       std::to_string(o.fee) + "," + std::to_string(o.Tax()) + "," + std::to_string(o.points) + "," +
                       std::to_string(o.Billed()) + "," + Q(o.shop) +
                       ",'ルパン堂 本店','150-0001','東京都渋谷区神宮前1-2-3\r\nルパンビル5F','03-9876-5432'";
  for (std::size_t n = 0; n < o.lines.size(); ++n) {
    const auto& line = o.lines[n];
    if (line.id.empty()) continue;
    const std::string i = std::to_string(n + 1);
    columns += ",[商品ID" + i + "],[商品名" + i + "],[商品カラー" + i + "],[商品サイズ" + i + "],[単価" + i + "],[注文数量" + i +
               "],[小計" + i + "],[消費税区分" + i + "]";
    values += "," + Q(line.id) + "," + Q(line.name) + "," + Q(line.color) + "," + Q(line.size) + "," +
              std::to_string(line.price) + "," + N(line.quantity) + "," +
              std::to_string(static_cast<int>(line.price * line.quantity)) + "," + std::to_string(line.tax_kbn);
    Db().Execute("INSERT INTO [CHUMON_D]([ID],[ITEM_NO],[ITEM_ID],[ITEM_MEI],[ITEM_QTY],[ITEM_PRICE],[ITEM_TAX],"
                 "[REDUCEDKBN]) VALUES(" + id + "," + i + "," + Q(line.id) + "," + Q(line.name) + "," +
                 N(line.quantity) + "," + std::to_string(static_cast<int>(line.price * line.quantity)) + "," +
                 (line.tax_kbn != 0 || o.tax_included ? "2" : "0") + "," + std::to_string(line.reduced) + ")");
  }
  Db().Execute("INSERT INTO [CHUMON](" + columns + ") VALUES(" + values + ")");
  if (!staged) return;
  const std::string biko1 = o.biko1 == "#first" ? (o.lines.empty() ? "" : o.lines[0].name) : o.biko1;
  Db().Execute("INSERT INTO [WK_PRINT]([ID],[COMPANY],[SIMEI],[BIKO1],[BIKO3],[ITEM_ID1],[SEK_GAKU],[CLIENT_NAME]) VALUES(" +
               id + "," + Q(o.company) + "," + Q(o.name) + "," + Q(biko1) + "," + Q(o.payment) + "," +
               Q(o.lines.empty() ? "" : o.lines[0].id) + "," + std::to_string(o.Billed()) + "," + Q(o.client) + ")");
}

void DocumentDb::ClearOrders() {
  for (const char* table : {"CHUMON", "CHUMON_D", "CHUMON_T", "WK_PRINT", "WK_SEIKYU"})
    Db().Execute(std::string("DELETE FROM [") + table + "]");
}

std::unique_ptr<entry::Context> DocumentDb::MakeContext(int report_no, int paper_type) {
  auto context = std::make_unique<entry::Context>(&Db(), settings::StorePaths::InFolder(home_), home_);
  context->login.client_name = "WS1";
  context->dialect = 0;  // ResouceMode 0: CAST(… AS VARCHAR(255)), as on both engines here
  auto& d = context->current;
  d.report_no = report_no;
  d.report_name = "納品書";
  d.paper_type = paper_type;
  d.paper_size = 9;
  d.orientation = 1;
  d.margin_left = d.margin_right = 100;
  d.margin_top = 64;
  d.margin_bottom = 53;
  d.fld_txt[0] = "00120-3-456789";
  d.fld_txt[1] = "カ）ルパンドウ";
  return context;
}

engine::PageCollection DocumentDb::Run(const std::string& object, entry::Context& context) {
  auto report = registry_.Create(object, context);
  EXPECT_NE(report, nullptr) << object;
  engine::ApplyReportSettings(*report, context.current);
  engine::PageCollection pages;
  const auto result = report->Run(pages);
  EXPECT_TRUE(result.ok) << result.fault.description;
  return pages;
}

void DocumentDb::WriteFormat(int report_no, const std::string& fields) {
  std::filesystem::create_directories(home_ / "Format");
  std::ofstream(home_ / "Format" / layout::FormatFileName(report_no), std::ios::binary)
      << text::ToCp932("<name=test>\r\n<section=Detail>\r\n" + fields + "\r\n</section>\r\n").bytes;
}

void DocumentDb::ExpectShown(const engine::PageCollection& pages, const std::string& name) {
  std::ostringstream out;
  for (const auto& page : pages.Pages()) {
    out << "== page " << page.number << "\n";
    for (const auto& item : page.items) {
      if (!item.visible || item.text.empty() || item.kind == engine::ItemKind::Shape || item.kind == engine::ItemKind::Line)
        continue;
      std::string text = text::TextReplace(item.text, "\r\n", "⏎");
      out << item.name << " " << item.font.size << (item.alignment == engine::Alignment::Center ? "c" : "") << " "
          << text << "\n";
    }
  }
  ExpectGoldenText(out.str(), name);
}

void DocumentDb::ExpectDump(const engine::PageCollection& pages, const std::string& name) {
  ExpectGoldenText(engine::JsonDump(pages.Info(), pages.Pages()), name);
}

void DocumentDb::ExpectGoldenText(const std::string& text, const std::string& name) {
  lupin::testing::ExpectGoldenFile(name, text, GetParam() == db::Engine::Sqlite);
}

std::string Shown(const engine::Page& page, const std::string& name) {
  for (const auto& item : page.items)
    if (item.name == name) return item.visible ? item.text : "<hidden>";
  return "<none>";
}

}  // namespace lupin::reports::testing
