// A slip of each carrier family through the run command: selected, listed, staged, booked,
// numbered and printed to a file. The carriers with waybills number the slips in the print
// list's order, slip k with number k, whatever order the rows were written in; Fukuyama and
// Seino number nothing.
#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "common/settings.h"
#include "engine/json_dump.h"
#include "entry/catalogue.h"
#include "demo/demo_data.h"
#include "run/headless_run.h"
#include "run/preview_runner_engine.h"
#include "report_fixture.h"

namespace lupin::reports::testing {
namespace {

class CarrierRoad : public ReportDb {
 protected:
  // Orders 7003, 7001, 7002 written in that order, their names telling them apart.
  void InsertOrders(const std::string& carrier) {
    ClearOrders();
    for (const int id : {7003, 7001, 7002}) {
      Order order = SlipOrder(id);
      order.name = "顧客 " + std::to_string(id);
      order.carrier = carrier;
      order.staged = false;
      Insert(order);
    }
  }

  long LedgerRows(int report_no) {
    auto rs = Db().Open("SELECT COUNT(*) AS CNT FROM [PRINTED] WHERE [REPORT_NO] = " + std::to_string(report_no));
    return rs["CNT"].Long();
  }

  // The order names on the pages of the dump, page by page.
  std::vector<std::string> NamesOnPages(const std::string& dump_path, const std::string& control) {
    const std::string text = lupin::testing::ReadBytes(dump_path);
    std::vector<std::string> names;
    std::size_t at = 0;
    const std::string key = "\"name\":\"" + control + "\"";
    while ((at = text.find(key, at)) != std::string::npos) {
      const std::size_t start = text.find("\"text\":\"", at) + 8;
      names.push_back(text.substr(start, text.find('"', start) - start));
      at = start;
    }
    return names;
  }

  int RunCommand(int report_no, const std::string& dump) {
    run::RunOptions options;
    options.db_url = lupin::testing::UrlOf(Db());
    options.login_user = "山田";
    options.login_number = 1;
    options.client_name = "WS1";
    options.home = home_.string();
    options.settings_dir = (home_ / "settings").string();
    options.report = report_no;
    options.clear_criteria = true;
    options.date = run::Range{"2024/06/01", "2024/06/30"};
    if (entry::IsWaybillReport(report_no)) options.denno = "1234-5678-9013";
    options.quiet = true;
    options.book = true;
    options.outputs.dump = dump;
    options.outputs.print = true;
    options.outputs.print_pdf = (home_ / "slips.pdf").string();
    std::ostringstream out, err;
    run::EnginePreviewRunner runner(run::ReportObjects(), options.outputs);
    const int code = run::RunHeadless(options, out, err, &runner);
    EXPECT_EQ(code, 0) << err.str();
    EXPECT_EQ(runner.Pages(), 3) << err.str();
    return code;
  }

  void SetUp() override {
    ReportDb::SetUp();
    demo::FillCatalogue(Db());
    settings::Settings settings(settings::StorePaths::InFolder(home_ / "settings"));
    // Date literals between quotes, which both engines read.
    settings.SaveSetting(0, "0", "ResouceMode");
  }
};

TEST_P(CarrierRoad, EachFamilyPrintsBooksAndNumbersInTheListsOrder) {
  const struct {
    int report_no;
    const char* carrier;
    const char* name_control;  // the recipient's name on the form
    bool waybill;
  } families[] = {
      {25, "ヤマト運輸", "lblNAME", true},  {18, "佐川急便", "lblName", true},   {16, "日本通運", "lblName", true},
      {20, "ゆうパック", "lblName", true},  {31, "福山通運", "lblNAME", false}, {33, "西濃運輸", "lblNAME", false},
  };
  for (const auto& family : families) {
    SCOPED_TRACE(family.report_no);
    InsertOrders(family.carrier);
    const std::string dump = (home_ / ("slips_" + std::to_string(family.report_no) + ".json")).string();
    ASSERT_EQ(RunCommand(family.report_no, dump), 0);
    EXPECT_EQ(NamesOnPages(dump, family.name_control),
              (std::vector<std::string>{"顧客 7001", "顧客 7002", "顧客 7003"}));
    const auto numbers = Waybills();
    if (family.waybill) {
      EXPECT_EQ(numbers, (std::map<int, std::string>{
                             {7001, "1234-5678-9013"}, {7002, "1234-5678-9024"}, {7003, "1234-5678-9035"}}));
    } else {
      EXPECT_EQ(numbers, (std::map<int, std::string>{{7001, ""}, {7002, ""}, {7003, ""}}));
    }
    EXPECT_EQ(LedgerRows(family.report_no), 3);
  }
}

// ListSort turns the list round: the slips and the numbers follow it.
TEST_P(CarrierRoad, ListSortOrdersTheSlipsAndTheirNumbersAlike) {
  settings::Settings(settings::StorePaths::InFolder(home_ / "settings")).SaveSetting(34, "DESC", "ListSort");
  InsertOrders("佐川急便");
  const std::string dump = (home_ / "sagawa_desc.json").string();
  ASSERT_EQ(RunCommand(18, dump), 0);
  EXPECT_EQ(NamesOnPages(dump, "lblName"), (std::vector<std::string>{"顧客 7003", "顧客 7002", "顧客 7001"}));
  EXPECT_EQ(Waybills(), (std::map<int, std::string>{
                            {7003, "1234-5678-9013"}, {7002, "1234-5678-9024"}, {7001, "1234-5678-9035"}}));
}

LUPIN_INSTANTIATE_ENGINES(CarrierRoad);

}  // namespace
}  // namespace lupin::reports::testing
