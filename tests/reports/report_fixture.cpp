#include "report_fixture.h"

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "common/sql.h"
#include "common/text.h"
#include "engine/display.h"
#include "engine/json_dump.h"
#include "engine/render_png.h"
#include "entry/catalogue.h"
#include "entry/schema.h"
#include "layout/format_parser.h"
#include "layout/report_frame.h"
#include "run/preview_runner_engine.h"
#include "support/golden_files.h"

namespace lupin::reports::testing {

namespace {

// SQL literals of a text, a whole number and a quantity.
std::string Q(const std::string& text) { return "'" + sql::SqlQuote(text) + "'"; }
std::string I(long number) { return std::to_string(number); }

std::string N(double value) {
  std::ostringstream out;
  out << value;
  return out.str();
}

std::string Digits(const std::string& text) {
  std::string digits;
  for (const char c : text)
    if (c >= '0' && c <= '9') digits += c;
  return digits;
}

}  // namespace

int Order::Goods() const {
  int goods = 0;
  for (const auto& line : lines) goods += line.Amount();
  return goods;
}

Order DocumentOrder(int id, std::vector<OrderLine> lines) {
  Order o;
  o.id = id;
  o.customer = id % 100 + 500;
  o.lines = std::move(lines);
  o.ordered = "2024/05/30";
  o.planned = "2024/06/02";
  o.shipped = o.bill_date = "2024/06/03";
  o.address = "東京都千代田区千代田1-1\r\n見本ビル3階";
  o.bill_name = o.name;
  o.bill_postcode = o.postcode;
  o.bill_address = "東京都千代田区千代田1-1";
  o.bill_tel = o.tel;
  o.opinion.clear();
  o.tax.reset();
  o.shop_name = "ルパン堂 本店";
  o.shop_postcode = "150-0001";
  o.shop_address = "東京都渋谷区神宮前1-2-3\r\nルパンビル5F";
  o.shop_tel = "03-9876-5432";
  return o;
}

std::vector<OrderLine> Lines(int count) {
  std::vector<OrderLine> lines;
  for (int n = 1; n <= count; ++n) {
    const bool tea = n % 2 == 1;
    OrderLine line{tea ? "A-100" : "B-200", (tea ? "緑茶 極上 100g " : "湯呑 有田焼 ") + std::to_string(n), 1000 + n * 10,
                   static_cast<double>(n % 3 + 1)};
    line.item_tax = 0;
    line.color = n % 3 == 0 ? "白" : "";
    line.size = n % 4 == 0 ? "L" : "";
    lines.push_back(line);
  }
  return lines;
}

Order SlipOrder(int id) {
  Order o;
  o.id = id;
  o.lines = SlipGoods(1);
  o.lines[0].name = "緑茶 極上 100g";
  o.lines[0].quantity = 2;
  o.company.clear();
  o.department.clear();
  o.planned = o.shipped = "2024/06/03";
  o.delivery_date = "2024/06/05";
  o.carrier = "ヤマト運輸";
  o.opinion.clear();
  o.amount = 12800;
  o.tax = 1164;
  o.shop = "S2";
  o.shop_name = "ルパン堂 本店";
  o.shop_postcode = "150-0001";
  o.shop_address = "東京都渋谷区神宮前1-2-3 ルパンビル5F";
  o.shop_tel = "03-9876-5432";
  return o;
}

Order SlipGift(const std::string& shop, int id) {
  Order o = SlipOrder(id);
  o.company = "株式会社見本";
  o.shop = shop;
  o.gift_name = "佐藤 花子";
  o.gift_postcode = "530-0001";
  o.gift_address = "大阪府大阪市北区梅田1-1-1";
  o.gift_tel = "06-1234-5678";
  o.time_band = "14-16";
  return o;
}

std::vector<OrderLine> SlipGoods(int count, double fraction) {
  std::vector<OrderLine> lines;
  for (int n = 1; n <= count; ++n) {
    OrderLine line{"I" + std::to_string(n), "有機緑茶 極上 100g 第" + std::to_string(n) + "便", n * 1000,
                   n + (n == 2 ? fraction : 0)};
    line.tax_kbn = n % 2 == 0 ? 1 : 0;
    lines.push_back(line);
  }
  return lines;
}

void ReportDb::SetUp() {
  EngineTest::SetUp();
  entry::CreateSchema(Db());
  for (const char* shop : {"('S0',0,1,0,2,NULL,NULL,NULL)", "('S1',0,1,0,0,0.1,'ルパン堂','T1234567890123')",
                           "('S2',1,0,1,0,0.1,'',NULL)"})
    Db().Execute(std::string("INSERT INTO [SHOP]([SHOP_ID],[ATENA],[SHIPPING_TAXKBN],[HANDLING_TAXKBN],[TAX_CALKBN],"
                             "[TAX_RATE],[INVOICE_NAME],[INVOICE_NO]) VALUES") + shop);
  for (const char* item : {"('A-100','緑茶','袋','S1')", "('B-200','湯呑','個入りセット','S1')", "('A-100','緑茶','箱','S2')"})
    Db().Execute(std::string("INSERT INTO [ITEM]([ITEM_ID],[ITEM_NAME],[TANI],[SHOP_ID]) VALUES") + item);
  for (const char* rate : {"(8,'2014/04/01',0,5)", "(10,'2019/10/01',0,8)", "(8,'2019/10/01',1,0)"})
    Db().Execute(std::string("INSERT INTO [TAX]([RATE],[FROM_DATE],[REDUCEDKBN],[OLDRATE]) VALUES") + rate);
  registry_ = run::ReportObjects();
}

void ReportDb::Insert(const Order& o) {
  Row order = {
      {"ID", I(o.id)}, {"顧客NO", I(o.customer)}, {"顧客番号", I(o.customer)}, {"受注日", Q(o.ordered)},
      {"出荷予定日", Q(o.planned)}, {"出荷日", Q(o.shipped)}, {"請求日", Q(o.bill_date)}, {"受注方法", Q(o.how_ordered)},
      {"会社名", Q(o.company)}, {"所属", Q(o.department)}, {"氏名", Q(o.name)}, {"氏名カナ", Q(o.kana)},
      {"郵便番号", Q(o.postcode)}, {"住所", Q(o.address)}, {"電話番号", Q(o.tel)}, {"検索用電話番号", Q(Digits(o.tel))},
      {"メールアドレス", Q("taro@example.jp")}, {"請求先会社名", Q(o.bill_company)}, {"請求先所属", Q(o.bill_department)},
      {"請求先氏名", Q(o.bill_name)}, {"請求先郵便番号", Q(o.bill_postcode)}, {"請求先住所", Q(o.bill_address)},
      {"請求先電話番号", Q(o.bill_tel)}, {"請求先検索用電話番号", Q(Digits(o.bill_tel))},
      {"贈答先会社名", Q(o.gift_company)}, {"贈答先所属", Q(o.gift_department)}, {"贈答先氏名", Q(o.gift_name)},
      {"贈答先郵便番号", Q(o.gift_postcode)}, {"贈答先住所", Q(o.gift_address)}, {"贈答先電話番号", Q(o.gift_tel)},
      {"のし", Q(o.gift_name.empty() ? "" : "御中元")}, {"支払方法", Q(o.payment)}, {"宅配業者", Q(o.carrier)},
      {"配達日", Q(o.delivery_date)}, {"配達時間帯", Q(o.time_band)}, {"意見", Q(o.opinion)}, {"メモ", Q("")},
      {"商品代金", I(o.Goods())}, {"送料", I(o.postage)}, {"決済手数料", I(o.fee)}, {"消費税", I(o.Tax())},
      {"ポイント利用", I(o.points)}, {"請求額", I(o.Billed())}, {"入金額", I(o.paid)}, {"入金日", Q(o.paid_date)},
      {"ショップID", Q(o.shop)}, {"ショップ名", Q(o.shop_name)}, {"ショップ郵便番号", Q(o.shop_postcode)},
      {"ショップ住所", Q(o.shop_address)}, {"ショップ電話番号", Q(o.shop_tel)}};
  for (std::size_t n = 0; n < o.lines.size() && n < 20; ++n) {
    const OrderLine& line = o.lines[n];
    if (line.id.empty()) continue;
    const std::string i = std::to_string(n + 1);
    order.insert(order.end(), {{"商品ID" + i, Q(line.id)}, {"商品名" + i, Q(line.name)}, {"商品カラー" + i, Q(line.color)},
                               {"商品サイズ" + i, Q(line.size)}, {"単価" + i, I(line.price)}, {"注文数量" + i, N(line.quantity)},
                               {"小計" + i, I(line.Amount())}, {"消費税区分" + i, I(line.tax_kbn)}});
    const bool included = line.tax_kbn != 0 || o.tax_included;
    // The cost is half the price and 50 sen, so that it is never a whole number.
    Put("CHUMON_D", {{"ID", I(o.id)}, {"ITEM_NO", i}, {"ITEM_ID", Q(line.id)}, {"ITEM_MEI", Q(line.name)},
                     {"ITEM_TANKA", I(line.price)}, {"ITEM_GENKA", I(line.price / 2) + ".5"}, {"ITEM_PRICE", I(line.Amount())},
                     {"ITEM_QTY", N(line.quantity)}, {"ITEM_TAX", I(included ? 2 : line.item_tax)},
                     {"ITEM_SYUKKA", I(line.shipped)}, {"ITEM_SYUDATE", Q(line.ship_date)}, {"REDUCEDKBN", I(line.reduced)}});
  }
  Put("CHUMON", order);
  if (!o.staged) return;
  const std::string biko1 = o.biko1 == "#first" ? (o.lines.empty() ? "" : o.lines[0].name) : o.biko1;
  Put("WK_PRINT", {{"ID", I(o.id)}, {"COMPANY", Q(o.company)}, {"SIMEI", Q(o.name)}, {"ORD_DATE", Q(o.ordered)},
                   {"YUBIN", Q(o.postcode)}, {"TEL", Q(o.tel)}, {"BIKO1", Q(biko1)}, {"BIKO3", Q(o.payment)},
                   {"ITEM_ID1", Q(o.lines.empty() ? "" : o.lines[0].id)}, {"SEK_GAKU", I(o.Billed())}, {"TAX", I(o.Tax())},
                   {"INSHI", I(o.inshi)}, {"CLIENT_NAME", Q(o.client)}});
}

void ReportDb::InsertCustomer(const Customer& c) {
  Put("CUSTOMER", {{"顧客NO", I(c.number)}, {"顧客会社名", Q(c.company)}, {"顧客所属", Q(c.department)},
                   {"顧客名", Q(c.name)}, {"郵便番号", Q(c.postcode)}, {"住所", Q(c.address)}, {"TEL番号", Q(c.tel)},
                   {"検索用TEL番号", Q(Digits(c.tel))}});
  Put("WK_PRINT", {{"ID", I(c.number)}, {"COMPANY", Q(c.company)}, {"SIMEI", Q(c.name)}, {"SEK_GAKU", I(c.number)},
                   {"CLIENT_NAME", Q(c.client)}});
}

void ReportDb::Put(const std::string& table, const Row& row) {
  std::string columns, values;
  for (const auto& [column, value] : row) {
    columns += (columns.empty() ? "[" : ",[") + column + "]";
    values += (values.empty() ? "" : ",") + value;
  }
  Db().Execute("INSERT INTO [" + table + "](" + columns + ") VALUES(" + values + ")");
}

void ReportDb::InsertPayment(const std::string& method, int ord, const std::string& shop) {
  Put("PAYMENT", {{"METHOD", Q(method)}, {"ORD", I(ord)}, {"OK", "1"}, {"SHOP_ID", Q(shop)}});
}

void ReportDb::ClearOrders() {
  for (const char* table : {"CHUMON", "CHUMON_D", "CHUMON_T", "WK_PRINT", "WK_SEIKYU"})
    Db().Execute(std::string("DELETE FROM [") + table + "]");
}

std::map<int, std::string> ReportDb::Waybills() {
  std::map<int, std::string> numbers;
  for (auto rs = Db().Open("SELECT [ID],[出荷伝票番号] FROM [CHUMON]"); !rs.Eof(); rs.MoveNext())
    numbers[static_cast<int>(rs["ID"].Long())] = rs["出荷伝票番号"].Text();
  return numbers;
}

std::unique_ptr<entry::Context> ReportDb::NoteContext(int report_no, int paper_type) {
  auto context = std::make_unique<entry::Context>(&Db(), settings::StorePaths::InFolder(home_), home_);
  context->login.client_name = "WS1";
  context->dialect = 0;  // ResouceMode 0: date literals between quotes, which both engines read
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

std::unique_ptr<entry::Context> ReportDb::SlipContext(int report_no, int paper_type) {
  auto context = NoteContext(report_no, paper_type);
  auto& d = context->current;
  d.report_name = "ヤマト宅配伝票";
  d.paper_size = 256;
  d.margin_left = d.margin_right = d.margin_top = d.margin_bottom = 0;
  d.fld_txt[0] = "0312345678";
  d.fld_txt[1] = "031234567801-01";
  return context;
}

engine::PageCollection ReportDb::Run(entry::Context& context, const std::string& object) {
  return RunReport(context, object, true);
}

engine::PageCollection ReportDb::Run(std::int32_t report_no, const entry::RunValues& run) {
  entry::Context context(&Db(), settings::StorePaths::InFolder(home_), home_);
  context.login.client_name = "WS1";
  context.current.report_no = report_no;
  context.run = run;
  return RunReport(context, "", false);
}

engine::PageCollection ReportDb::RunReport(entry::Context& context, const std::string& object, bool page_setup) {
  const std::string name = object.empty() ? std::string(entry::CatalogueOf(context.current.report_no).object) : object;
  auto report = registry_.Create(name, context);
  EXPECT_NE(report, nullptr) << name;
  if (!report) return {};
  if (auto* frame = dynamic_cast<layout::ReportFrame*>(report.get())) frame->clock = [now = now_] { return now; };
  if (page_setup) engine::ApplyReportSettings(*report, context.current);
  engine::PageCollection pages;
  const auto result = report->Run(pages);
  EXPECT_TRUE(result.ok) << result.fault.description;
  return pages;
}

void ReportDb::WriteFormat(int report_no, const std::string& fields) {
  std::filesystem::create_directories(home_ / "Format");
  std::ofstream(home_ / "Format" / layout::FormatFileName(report_no), std::ios::binary)
      << text::ToCp932("<name=test>\r\n<section=Detail>\r\n" + fields + "\r\n</section>\r\n").bytes;
}

void ReportDb::ExpectDump(const engine::PageCollection& pages, const std::string& name) {
  const bool writer = GetParam() == db::Engine::Sqlite;
  if (const char* folder = std::getenv("LUPIN_PNG_DIR"); folder != nullptr && writer) {
    engine::PageRasterizer rasterizer;
    std::vector<std::string> problems;
    const std::string stem = text::TextReplace(std::filesystem::path(name).replace_extension().string(), "/", "_");
    for (const auto& page : pages.Pages())
      rasterizer.WritePng(page, 144, std::string(folder) + "/" + stem + "-" + std::to_string(page.number) + ".png", problems);
  }
  lupin::testing::ExpectGoldenFile(name, engine::JsonDump(pages.Info(), pages.Pages()), writer);
}

void ReportDb::ExpectShown(const engine::PageCollection& pages, const std::string& name) {
  std::ostringstream out;
  for (const auto& page : pages.Pages()) {
    out << "== page " << page.number << "\n";
    for (const auto& item : page.items) {
      if (!item.visible || item.text.empty() || item.kind == engine::ItemKind::Shape || item.kind == engine::ItemKind::Line)
        continue;
      out << item.name << " " << item.font.size << (item.alignment == engine::Alignment::Center ? "c" : "") << " "
          << text::TextReplace(item.text, "\r\n", "⏎") << "\n";
    }
  }
  lupin::testing::ExpectGoldenFile(name, out.str(), GetParam() == db::Engine::Sqlite);
}

std::string Shown(const engine::Page& page, const std::string& name) {
  for (const auto& item : page.items)
    if (item.name == name) return item.visible ? item.text : "<hidden>";
  return "<none>";
}

std::vector<std::string> TextsOf(const engine::Page& page, const std::string& name) {
  std::vector<std::string> texts;
  for (const auto& item : page.items)
    if (item.name == name) texts.push_back(item.text);
  return texts;
}

const engine::PageItem& ItemOn(const engine::Page& page, const std::string& name) {
  for (const auto& item : page.items)
    if (item.name == name) return item;
  ADD_FAILURE() << "no item " << name << " on page " << page.number;
  static const engine::PageItem kMissing;
  return kMissing;
}

}  // namespace lupin::reports::testing
