#pragma once
// Orders, lines and staging rows for the list, summary and label tests, a run of a report object
// by number on this workstation, and golden page dumps.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "engine/page_collection.h"
#include "engine/report_registry.h"
#include "entry/context.h"
#include "support/test_databases.h"

namespace lupin::reports::testing {

struct OrderLine {
  std::string item_id, name;
  int price = 0;
  double qty = 1;
  int shipped = 1;             // ITEM_SYUKKA
  std::string ship_date = "";  // ITEM_SYUDATE
  int tax = 1;                 // ITEM_TAX
};

struct FixtureOrder {
  int id = 0;
  std::string name = "山田 太郎";
  std::string ordered = "2024/06/01";  // 受注日
  std::string shipped = "";            // 出荷日
  std::string payment = "代金引換";
  int postage = 800, fee = 330, paid = 0;
  std::string paid_date = "";
  std::vector<OrderLine> lines;
  int customer = 0;  // 顧客NO
  std::string zip = "100-0001";
  std::string address = "東京都千代田区千代田1-1";
  std::string tel = "03-1234-5678";
  std::string gift_name = "";
  std::string shop = "S1";
  bool staged = true;
};

class DocumentsTest : public lupin::testing::EngineTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  // The order, its lines and (when staged) its WK_PRINT row of this workstation. 請求額 is the
  // lines' amounts with postage and fee.
  void Insert(const FixtureOrder& order);
  void InsertPayment(const std::string& method, int ord, const std::string& shop = "S1");
  // The billing of an order as Insert writes it.
  static int Billed(const FixtureOrder& order);

  // Runs the object of the report number with a fixed clock; the context's run values as given.
  engine::PageCollection Run(std::int32_t report_no, const entry::RunValues& run = {});
  // The dump against tests/golden/NAME; LUPIN_UPDATE_GOLDEN=1 writes it instead.
  void ExpectGolden(const engine::PageCollection& pages, const std::string& name);

  std::filesystem::path home_;
  engine::ReportRegistry registry_;
  int queries_ = 0;
};

// Text of every item of that name on a page, in placing order.
std::vector<std::string> TextsOf(const engine::Page& page, const std::string& name);
std::string TextOf(const engine::Page& page, const std::string& name);

}  // namespace lupin::reports::testing
