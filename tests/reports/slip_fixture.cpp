#include "slip_fixture.h"

#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>

#include "common/sql.h"
#include "common/text.h"
#include "engine/display.h"
#include "engine/json_dump.h"
#include "entry/catalogue.h"
#include "entry/schema.h"
#include "layout/format_parser.h"
#include "reports/slips/slip_registration.h"
#include "reports/slips/yamato_slip.h"
#include "support/golden_files.h"

namespace lupin::reports::testing {

namespace {

std::string Quoted(const std::string& text) { return "'" + sql::SqlQuote(text) + "'"; }

}  // namespace

void SlipDb::SetUp() {
  EngineTest::SetUp();
  entry::CreateSchema(Db());
  std::random_device seed;
  home_ = std::filesystem::temp_directory_path() / ("lupin_yamato_" + std::to_string(::getpid()) + "_" + std::to_string(seed()));
  std::filesystem::create_directories(home_);
  Db().Execute("INSERT INTO [SHOP]([SHOP_ID],[ATENA],[SHIPPING_TAXKBN],[HANDLING_TAXKBN],[TAX_CALKBN]) VALUES('S1',1,0,1,0)");
  Db().Execute("INSERT INTO [SHOP]([SHOP_ID],[ATENA],[SHIPPING_TAXKBN],[HANDLING_TAXKBN],[TAX_CALKBN]) VALUES('S0',0,1,0,2)");
  Db().Execute("INSERT INTO [TAX]([RATE],[FROM_DATE],[REDUCEDKBN]) VALUES(8,'2014/04/01',0)");
  Db().Execute("INSERT INTO [TAX]([RATE],[FROM_DATE],[REDUCEDKBN]) VALUES(10,'2019/10/01',0)");
  Db().Execute("INSERT INTO [TAX]([RATE],[FROM_DATE],[REDUCEDKBN]) VALUES(8,'2019/10/01',1)");
  RegisterSlipReports(registry_);
}

void SlipDb::TearDown() {
  std::error_code ignored;
  std::filesystem::remove_all(home_, ignored);
}

void SlipDb::InsertOrder(const SlipOrder& o, bool staged) {
  const std::string id = std::to_string(o.id);
  std::string line_columns, line_values;
  long goods_value = 0;
  for (std::size_t n = 0; n < o.goods.size() && n < 20; ++n) {
    const std::string s = std::to_string(n + 1);
    const long unit = static_cast<long>(n + 1) * 1000;
    const long subtotal = static_cast<long>(unit * o.goods[n].quantity);
    goods_value += subtotal;
    std::ostringstream quantity;
    quantity << o.goods[n].quantity;
    line_columns += ",[商品ID" + s + "],[商品名" + s + "],[単価" + s + "],[注文数量" + s + "],[小計" + s + "],[消費税区分" + s + "]";
    line_values += ",'I" + s + "'," + Quoted(o.goods[n].name) + "," + std::to_string(unit) + "," + quantity.str() + "," +
                   std::to_string(subtotal) + "," + (n % 2 == 1 ? "1" : "0");
  }
  Db().Execute(
      "INSERT INTO [CHUMON]([ID],[受注日],[出荷予定日],[出荷日],[会社名],[所属],[氏名],[郵便番号],[住所],[電話番号],"
      "[贈答先会社名],[贈答先所属],[贈答先氏名],[贈答先郵便番号],[贈答先住所],[贈答先電話番号],[配達日],[配達時間帯],"
      "[宅配業者],[請求額],[商品代金],[送料],[決済手数料],[ポイント利用],[消費税],"
      "[ショップID],[ショップ名],[ショップ郵便番号],[ショップ住所],[ショップ電話番号]" + line_columns + ") VALUES(" +
      id + ",'2024/06/01','2024/06/03'," + Quoted(o.ship_date) + "," + Quoted(o.company) + "," + Quoted(o.department) + "," +
      Quoted(o.name) + "," + Quoted(o.postcode) + "," + Quoted(o.address) + "," + Quoted(o.tel) + "," +
      Quoted(o.gift_company) + "," + Quoted(o.gift_department) + "," + Quoted(o.gift_name) + "," +
      Quoted(o.gift_postcode) + "," + Quoted(o.gift_address) + "," + Quoted(o.gift_tel) + "," +
      Quoted(o.delivery_date) + "," + Quoted(o.time_band) + "," + Quoted(o.carrier) + "," + std::to_string(o.amount) +
      "," + std::to_string(goods_value) + "," + std::to_string(o.postage) + "," + std::to_string(o.fee) + "," +
      std::to_string(o.points) + "," + std::to_string(o.tax) + "," + Quoted(o.shop) +
      ",'ルパン堂 本店','150-0001','東京都渋谷区神宮前1-2-3 ルパンビル5F','03-9876-5432'" + line_values + ")");
  for (std::size_t n = 0; n < o.goods.size(); ++n) {
    std::ostringstream quantity;
    quantity << o.goods[n].quantity;
    Db().Execute("INSERT INTO [CHUMON_D]([ID],[ITEM_NO],[ITEM_ID],[ITEM_MEI],[ITEM_QTY]) VALUES(" + id + "," +
                 std::to_string(n + 1) + ",'I" + std::to_string(n + 1) + "'," + Quoted(o.goods[n].name) + "," +
                 quantity.str() + ")");
  }
  if (!staged) return;
  const std::string first_item = o.goods.empty() ? "" : o.goods[0].name;
  Db().Execute("INSERT INTO [WK_PRINT]([ID],[COMPANY],[SIMEI],[SEK_GAKU],[TAX],[INSHI],[BIKO1],[ITEM_ID1],[CLIENT_NAME]) VALUES(" +
               id + "," + Quoted(o.company) + "," + Quoted(o.name) + "," + std::to_string(o.amount) + "," +
               std::to_string(o.tax) + "," + std::to_string(o.inshi) + "," + Quoted(first_item) + "," +
               (o.goods.empty() ? "''" : "'I1'") + "," + Quoted(o.client) + ")");
}

void SlipDb::ClearOrders() {
  for (const char* table : {"CHUMON", "CHUMON_D", "WK_PRINT"}) Db().Execute(std::string("DELETE FROM [") + table + "]");
}

void SlipDb::InsertCustomer(const SlipCustomer& c) {
  const std::string number = std::to_string(c.number);
  Db().Execute("INSERT INTO [CUSTOMER]([顧客NO],[顧客会社名],[顧客所属],[顧客名],[郵便番号],[住所],[TEL番号]) VALUES(" +
               number + "," + Quoted(c.company) + "," + Quoted(c.department) + "," + Quoted(c.name) + "," +
               Quoted(c.postcode) + "," + Quoted(c.address) + "," + Quoted(c.tel) + ")");
  Db().Execute("INSERT INTO [WK_PRINT]([ID],[COMPANY],[SIMEI],[SEK_GAKU],[CLIENT_NAME]) VALUES(" + number + "," +
               Quoted(c.company) + "," + Quoted(c.name) + "," + number + "," + Quoted(c.client) + ")");
}

std::unique_ptr<entry::Context> SlipDb::MakeContext(int report_no, int paper_type) {
  auto context = std::make_unique<entry::Context>(&Db(), settings::StorePaths::InFolder(home_), home_);
  context->login.client_name = "WS1";
  auto& d = context->current;
  d.report_no = report_no;
  d.report_name = "ヤマト宅配伝票";
  d.paper_type = paper_type;
  d.paper_size = 256;
  d.orientation = 1;
  d.fld_txt[0] = "0312345678";
  d.fld_txt[1] = "031234567801-01";
  // Date literals between quotes, which both engines read.
  context->dialect = 0;
  return context;
}

engine::PageCollection SlipDb::RunSlip(entry::Context& context, const std::string& object) {
  const std::string name = object.empty() ? std::string(entry::CatalogueOf(context.current.report_no).object) : object;
  auto report = registry_.Create(name, context);
  engine::ApplyReportSettings(*report, context.current);
  engine::PageCollection pages;
  const auto result = report->Run(pages);
  EXPECT_TRUE(result.ok) << result.fault.description;
  return pages;
}

void SlipDb::ExpectGolden(const engine::PageCollection& pages, const std::string& name, const std::string& folder) {
  lupin::testing::ExpectGoldenFile(std::filesystem::path(folder) / name, engine::JsonDump(pages.Info(), pages.Pages()),
                                   GetParam() == db::Engine::Sqlite);
}

void SlipDb::WriteFormat(int report_no, const std::string& fields) {
  std::filesystem::create_directories(home_ / "Format");
  std::ofstream(home_ / "Format" / layout::FormatFileName(report_no), std::ios::binary)
      << text::ToCp932("<name=test>\r\n<section=Detail>\r\n" + fields + "\r\n</section>\r\n").bytes;
}

const engine::PageItem& ItemOn(const engine::Page& page, const std::string& name) {
  for (const auto& item : page.items) {
    if (item.name == name) return item;
  }
  ADD_FAILURE() << "no item " << name << " on page " << page.number;
  static const engine::PageItem kMissing;
  return kMissing;
}

}  // namespace lupin::reports::testing
