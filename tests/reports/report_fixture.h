#pragma once
// The one database fixture of the report tests: orders with their lines and staging rows,
// customers, shops, tax rates and items; a context and a run of a report object into pages; and
// what the pages show against the golden files.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "common/vb.h"
#include "engine/page_collection.h"
#include "engine/report_registry.h"
#include "entry/context.h"
#include "support/temp_files.h"
#include "support/test_databases.h"

namespace lupin::reports::testing {

// A line of an order: its columns 商品IDn … of CHUMON and its CHUMON_D row. A line with an empty
// id is a gap in the numbering and writes nothing.
struct OrderLine {
  std::string id = "", name = "";
  int price = 0;          // 単価
  double quantity = 1;
  int shipped = 1;        // ITEM_SYUKKA
  std::string ship_date = "";  // ITEM_SYUDATE
  int item_tax = 1;       // ITEM_TAX; a tax-included line or order writes 2 whatever this says
  std::string color = "", size = "";
  int tax_kbn = 0;        // 消費税区分: not 0 for a tax-included line
  int reduced = 0;        // CHUMON_D.REDUCEDKBN

  int Amount() const { return static_cast<int>(price * quantity); }
};

// An order and its staging row. The defaults are a list order: unshipped, from 見本ショップ, taxed
// at nothing; DocumentOrder and SlipOrder give the orders of the forms. The first fields stand in
// the order the list tests name them in designated initialisers.
struct Order {
  int id = 1001;
  std::string name = "山田 太郎";
  std::string ordered = "2024/06/01";  // 受注日
  std::string shipped = "";            // 出荷日
  std::string payment = "代金引換";
  int postage = 800, fee = 330, paid = 0;
  std::string paid_date = "";  // 入金日
  std::vector<OrderLine> lines;
  int customer = 0;  // 顧客NO and 顧客番号
  std::string postcode = "100-0001";
  std::string address = "東京都千代田区千代田1-1";
  std::string tel = "03-1234-5678";
  std::string gift_name = "", gift_company = "", gift_department = "", gift_postcode = "", gift_address = "",
              gift_tel = "";
  std::string shop = "S1";
  bool staged = true;  // a WK_PRINT row of `client`

  std::string company = "株式会社見本", department = "営業部";
  std::string kana = "";                // 氏名カナ
  std::string how_ordered = "";         // 受注方法
  std::string planned = "2024/06/20";   // 出荷予定日
  std::string bill_date = "";           // 請求日
  std::string bill_company = "", bill_department = "", bill_name = "", bill_postcode = "", bill_address = "",
              bill_tel = "";
  std::string carrier = "", delivery_date = "", time_band = "";  // 宅配業者, 配達日, 配達時間帯
  std::string opinion = "午前中に\r\n届けてください";  // 意見
  std::optional<int> tax = 0;   // 消費税; unset: a tenth of the goods, none on a tax-included order
  std::optional<int> amount = std::nullopt;  // 請求額; unset: goods, postage, fee and tax less points
  int points = 0;               // ポイント利用
  bool tax_included = false;    // the whole order is tax-included
  int inshi = 0;                // staged INSHI: a stamp on the slip
  std::string biko1 = "#first";  // staged BIKO1; "#first" stands for the first line's name
  std::string client = "WS1";
  std::string shop_name = "見本ショップ", shop_postcode = "", shop_address = "", shop_tel = "";

  int Goods() const;
  int Tax() const { return tax ? *tax : tax_included ? 0 : Goods() / 10; }
  int Billed() const { return amount ? *amount : Goods() + postage + fee + Tax() - points; }
};

// The order of a delivery note, statement or transfer form: shipped 2024/06/03 and billed to the
// orderer, the address and the shop's address on two lines, taxed at a tenth of the goods, and
// customer number id % 100 + 500.
Order DocumentOrder(int id, std::vector<OrderLine> lines);
// n lines alternating two items of S1, some with colour and size, none tax-included.
std::vector<OrderLine> Lines(int count);

// The order of a carrier slip: no company, delivered 2024/06/05 by Yamato from S2, 12,800 yen to
// collect with 1,164 of tax, two of one item.
Order SlipOrder(int id = 1001);
// A slip order of 株式会社見本 sending a gift to 佐藤 花子 in Osaka, delivered 14-16.
Order SlipGift(const std::string& shop, int id = 1001);
// Goods of a slip: line n (from 1) is item In, n pieces (the second plus a fraction) at n × 1000
// yen, every second line tax-included.
std::vector<OrderLine> SlipGoods(int count, double fraction = 0);
// Texts longer than the boxes of every slip.
inline const std::string kLongAddress = "北海道札幌市中央区北一条西二十丁目1-23 ルパンレジデンス札幌大通公園前 1502号室";
inline const std::string kLongCompany = "ルパン・エンタープライズ・インターナショナル・ホールディングス株式会社";
inline const std::string kLongName = "ルパン・エンタープライズ・インターナショナル株式会社 代表取締役社長 山田 太郎";

// A prospect of the CUSTOMER table, staged by its number as the customer reports stage.
struct Customer {
  int number = 501;
  std::string company, department;
  std::string name = "鈴木 一郎";
  std::string postcode = "530-0001";
  std::string address = "大阪府大阪市北区梅田1-1-1";
  std::string tel = "06-1111-2222";
  std::string client = "WS1";
};

// Shops: S1 prints for the orderer (ATENA 0), adds tax to postage and has a registration number;
// S2 addresses a gift's recipient and sends itself (ATENA 1), adds tax to fees and has none; S0 lets
// the orderer send, adds tax to postage and rounds up from 0.1. TAX: 8 % from 2014/04/01; 10 % and
// reduced 8 % from 2019/10/01. ITEM: A-100 and B-200 of S1, A-100 of S2.
class ReportDb : public lupin::testing::EngineTest {
 protected:
  void SetUp() override;

  void Insert(const Order& order);
  void InsertCustomer(const Customer& customer);
  void InsertPayment(const std::string& method, int ord, const std::string& shop = "S1");
  // Empties the order tables and the staging, for the next case of a table.
  void ClearOrders();
  // Order id → 出荷伝票番号 of every order.
  std::map<int, std::string> Waybills();

  // Print settings of an A4 delivery note with its margins and the postal account of the
  // transfer slips; paper type 1 is preprinted paper.
  std::unique_ptr<entry::Context> NoteContext(int report_no, int paper_type = 0);
  // Print settings of a carrier slip form with the sender's telephone and customer code; paper
  // type 1 is a form with the sender printed.
  std::unique_ptr<entry::Context> SlipContext(int report_no, int paper_type = 0);
  // Runs the object (the catalogue's object of the context's number when none is named) with the
  // preview's page set-up from the context's print settings.
  engine::PageCollection Run(entry::Context& context, const std::string& object = "");
  // Runs the catalogue's object of the number as designed, with no print settings, on a context
  // of this workstation with these run values.
  engine::PageCollection Run(std::int32_t report_no, const entry::RunValues& run = {});

  // Writes form_NN.lprf in the home's format folder, with these field rows in Detail.
  void WriteFormat(int report_no, const std::string& fields);
  // The full page dump, positions and fonts included, against tests/golden/NAME; LUPIN_UPDATE_GOLDEN=1
  // writes it instead, LUPIN_PNG_DIR=folder also writes the pages as images to look at.
  void ExpectDump(const engine::PageCollection& pages, const std::string& name);
  // What each page shows (visible controls with text, one a line) against tests/golden/NAME.
  void ExpectShown(const engine::PageCollection& pages, const std::string& name);

  lupin::testing::TempFolder folder_{"lupin_reports_"};
  const std::filesystem::path& home_ = folder_.Path();
  engine::ReportRegistry registry_;
  // What the reports print as now.
  vb::DateSerial now_ = vb::DateSerialOf(2024, 7, 1) + vb::TimeSerialOf(9, 30, 5);

 private:
  // Column names and their SQL literals.
  using Row = std::vector<std::pair<std::string, std::string>>;
  void Put(const std::string& table, const Row& row);
  engine::PageCollection RunReport(entry::Context& context, const std::string& object, bool page_setup);
};

// The text of the first control of that name on a page, "<none>" when the page lacks it,
// "<hidden>" when it is hidden.
std::string Shown(const engine::Page& page, const std::string& name);
// The text of every control of that name on a page, hidden or not, in placing order.
std::vector<std::string> TextsOf(const engine::Page& page, const std::string& name);
// The control of that name on the page; fails the test when it is missing.
const engine::PageItem& ItemOn(const engine::Page& page, const std::string& name);

}  // namespace lupin::reports::testing
