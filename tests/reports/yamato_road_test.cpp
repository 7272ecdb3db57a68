// The road of one request: report 25 chosen, a shipping-date range and a first waybill number
// entered, three Yamato orders listed (the Sagawa one is not), staged, previewed and printed to a
// file; the ledger and the waybill numbers are written before the pages go out, and a second
// print of the same preview books no second ledger row.
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "db/connection.h"
#include "demo/demo_data.h"
#include "entry/ui.h"
#include "run/preview_form.h"
#include "run/preview_runner_engine.h"
#include "run/print_form.h"
#include "run/select_form.h"
#include "report_fixture.h"

namespace lupin::reports::testing {
namespace {

constexpr int kYamatoIds[] = {3001, 3002, 3003};

class YamatoRoad : public ReportDb {
 protected:
  void SetUp() override {
    ReportDb::SetUp();
    demo::FillCatalogue(Db());
    for (const int id : kYamatoIds) {
      Order order = SlipOrder(id);
      order.name = "顧客 " + std::to_string(id);
      order.time_band = "14-16";
      order.staged = false;
      Insert(order);
    }
    Order sagawa = SlipOrder(3004);
    sagawa.carrier = "佐川急便";
    sagawa.staged = false;
    Insert(sagawa);
  }

  // id → (rows of the ledger, [UPDATE]) for report 25
  std::map<int, std::pair<long, std::string>> Ledger() {
    std::map<int, std::pair<long, std::string>> rows;
    for (auto rs = Db().Open("SELECT [ID],[UPDATE] FROM [PRINTED] WHERE [REPORT_NO] = 25"); !rs.Eof(); rs.MoveNext()) {
      auto& row = rows[static_cast<int>(rs["ID"].Long())];
      ++row.first;
      row.second = rs["UPDATE"].Text();
    }
    return rows;
  }
};

TEST_P(YamatoRoad, SelectListStagePreviewPrintTwice) {
  auto context = SlipContext(25);
  entry::RecordingUi ui;
  run::SelectForm select(*context, ui);
  select.Form_Load();
  select.Form_Activate();
  for (int i = 0; i < select.cboList.ListCount(); ++i) {
    if (select.cboList.item_data[static_cast<std::size_t>(i)] == 25) select.cboList.list_index = i;
  }
  select.cboList_Click();
  select.chkChumonOption[0].value = 1;
  select.txtDate[0].text = "2024/06/01";
  select.txtDate[1].text = "2024/06/30";
  ASSERT_TRUE(select.txtDate_Validate(0) && select.txtDate_Validate(1));
  select.txtDenNo.text = "1234-5678-9013";
  select.txtDenNo_LostFocus();
  ASSERT_EQ(select.cmdSelect(), run::SelectOutcome::PrintList) << ui.last_text;

  run::PrintForm list(*context, ui, select);
  ASSERT_TRUE(list.Form_Activate()) << ui.last_text;
  ASSERT_EQ(list.sprList.MaxRows(), 3) << "only the Yamato orders are listed";
  ASSERT_EQ(list.cmdPrint(), run::PrintOutcome::Preview);
  EXPECT_EQ(list.staged_rows, 3);

  run::PreviewOutputs outputs;
  outputs.dump = (home_ / "preview.json").string();
  outputs.print = true;
  outputs.print_pdf = (home_ / "printed.pdf").string();
  run::EnginePreviewRunner runner(run::ReportObjects(), outputs);
  run::PreviewForm preview(*context, ui, select, runner, false);
  ASSERT_TRUE(preview.S_DisplayReport()) << runner.Message();
  EXPECT_EQ(runner.Pages(), 3);
  EXPECT_EQ(runner.RecordCount(), 3);
  const std::string dump = lupin::testing::ReadBytes(outputs.dump);
  for (const int id : kYamatoIds) EXPECT_NE(dump.find("顧客 " + std::to_string(id)), std::string::npos) << id;
  // The preview writes nothing: no ledger, no waybill number, nothing printed yet.
  EXPECT_TRUE(Ledger().empty());
  EXPECT_EQ(Waybills()[3001], "");
  EXPECT_FALSE(std::filesystem::exists(outputs.print_pdf));

  preview.ledger_date = "20240610";
  ASSERT_TRUE(preview.cmdPrint()) << runner.Message();
  EXPECT_EQ(lupin::testing::ReadBytes(outputs.print_pdf).substr(0, 5), "%PDF-");
  const auto numbers = Waybills();
  std::set<std::string> assigned;
  for (const int id : kYamatoIds) assigned.insert(numbers.at(id));
  // Check digits: 12345678901 mod 7 = 3, then 4 and 5 for the next two bodies.
  EXPECT_EQ(assigned, (std::set<std::string>{"1234-5678-9013", "1234-5678-9024", "1234-5678-9035"}));
  EXPECT_EQ(numbers.at(3004), "");
  auto ledger = Ledger();
  ASSERT_EQ(ledger.size(), 3u);
  for (const int id : kYamatoIds) EXPECT_EQ(ledger[id], std::make_pair(1L, std::string("20240610"))) << id;

  preview.ledger_date = "20240611";
  ASSERT_TRUE(preview.cmdPrint()) << runner.Message();
  ledger = Ledger();
  ASSERT_EQ(ledger.size(), 3u);
  for (const int id : kYamatoIds) EXPECT_EQ(ledger[id], std::make_pair(1L, std::string("20240611"))) << id;
}

LUPIN_INSTANTIATE_ENGINES(YamatoRoad);

}  // namespace
}  // namespace lupin::reports::testing
