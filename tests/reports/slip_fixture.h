#pragma once
// Orders, customers, shops and tax rates for the carrier slip tests, and a run of a slip into pages.
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "engine/page_collection.h"
#include "engine/report_registry.h"
#include "entry/context.h"
#include "reports/slips/slip_item_block.h"
#include "support/test_databases.h"

namespace lupin::reports::testing {

struct SlipOrder {
  int id = 1001;
  std::string company, department;
  std::string name = "山田 太郎";
  std::string postcode = "100-0001";
  std::string address = "東京都千代田区千代田1-1";
  std::string tel = "03-1234-5678";
  std::string gift_company, gift_department, gift_name, gift_postcode, gift_address, gift_tel;
  std::string shop = "S1";
  std::string delivery_date = "2024/06/05";
  std::string time_band;
  std::vector<ItemLine> goods = {{"緑茶 極上 100g", 2}};
  long amount = 12800;   // 請求額, staged as SEK_GAKU
  long tax = 1164;       // staged as TAX
  int inshi = 0;         // staged as INSHI
  long postage = 800, fee = 330, points = 0;
  std::string ship_date = "2024/06/03";
  std::string carrier = "ヤマト運輸";
  std::string client = "WS1";
};

struct SlipCustomer {
  int number = 501;
  std::string company, department;
  std::string name = "鈴木 一郎";
  std::string postcode = "530-0001";
  std::string address = "大阪府大阪市北区梅田1-1-1";
  std::string tel = "06-1111-2222";
  std::string client = "WS1";
};

// The shop S1 sends for itself (ATENA 1), S0 lets a gift's orderer send (ATENA 0). S1 adds tax to
// postage but not to fees and rounds half up; S0 the other way round and rounds up from 0.1. The
// normal rate is 10 % from 2019/10/01. The goods of an order are its CHUMON_D rows and its line
// columns: line n costs n × 1000 yen a unit, and even lines are tax-included.
class SlipDb : public lupin::testing::EngineTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  void InsertOrder(const SlipOrder& order, bool staged = true);
  void InsertCustomer(const SlipCustomer& customer);
  // Empties the order tables and the staging, for the next case of a table.
  void ClearOrders();
  // A context for report_no with a sender-less form (paper type 1) or a plain one (0).
  std::unique_ptr<entry::Context> MakeContext(int report_no, int paper_type = 0);
  // Runs the slip object of the number (object: another than the catalogue's) with the
  // preview's page set-up.
  engine::PageCollection RunSlip(entry::Context& context, const std::string& object = "");
  // The dump against tests/golden/FOLDER/NAME; LUPIN_UPDATE_GOLDEN=1 writes it instead.
  void ExpectGolden(const engine::PageCollection& pages, const std::string& name, const std::string& folder = "yamato");
  void WriteFormat(int report_no, const std::string& fields);

  std::filesystem::path home_;
  engine::ReportRegistry registry_;
};

// The item of that name on the page; fails the test when it is missing.
const engine::PageItem& ItemOn(const engine::Page& page, const std::string& name);

}  // namespace lupin::reports::testing
