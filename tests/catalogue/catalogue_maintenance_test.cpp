// The catalogue-maintenance model: moving rows at and between the ends, saving ENABLED and ORD.
#include <gtest/gtest.h>

#include <filesystem>

#include "catalogue/all_format_form.h"
#include "demo/demo_data.h"
#include "entry/schema.h"
#include "support/test_databases.h"

namespace lupin::catalogue {
namespace {

class AllFormatFormTest : public lupin::testing::EngineTest {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    entry::CreateSchema(Db());
    for (auto [no, ord, enabled] : {std::tuple{4, 10, 1}, std::tuple{5, 30, 0}, std::tuple{25, 20, 1}}) {
      Db().Execute("INSERT INTO [REPORT]([REPORT_NO],[REPORT_NAME],[ORD],[ENABLED]) VALUES(" + std::to_string(no) +
                   ",'r" + std::to_string(no) + "'," + std::to_string(ord) + "," + std::to_string(enabled) + ")");
    }
    context_ = std::make_unique<entry::Context>(&Db(), settings::StorePaths::InFolder(std::filesystem::temp_directory_path()),
                                                std::filesystem::temp_directory_path());
    form_ = std::make_unique<AllFormatForm>(*context_, ui_);
    form_->Form_Load();
  }
  std::string Order() {
    std::string order;
    auto rs = Db().Open("SELECT [REPORT_NO],[ORD],[ENABLED] FROM [REPORT] ORDER BY [ORD]");
    for (; !rs.Eof(); rs.MoveNext()) {
      order += std::to_string(rs["REPORT_NO"].Long()) + ":" + std::to_string(rs["ORD"].Long()) + ":" +
               std::to_string(rs["ENABLED"].Long()) + " ";
    }
    return order;
  }
  entry::RecordingUi ui_;
  std::unique_ptr<entry::Context> context_;
  std::unique_ptr<AllFormatForm> form_;
};

TEST_P(AllFormatFormTest, RowsMoveWithTheSelectionAndSaveInGridOrder) {
  auto& grid = form_->sprList;
  ASSERT_EQ(grid.MaxRows(), 3);
  EXPECT_EQ(grid.Text(2, kFmtReportNo), "25");
  EXPECT_TRUE(grid.ColHidden(kFmtReportNo));
  grid.SetRow(3);
  form_->cmdLower();  // the last row stays
  EXPECT_EQ(grid.Row(), 3);
  form_->cmdUpper();
  EXPECT_EQ(grid.Row(), 2);
  EXPECT_EQ(grid.Text(2, kFmtReportNo), "5");
  EXPECT_FALSE(grid.Checked(2));  // the check moves with its row
  grid.SetRow(1);
  form_->cmdUpper();
  EXPECT_EQ(grid.Text(1, kFmtReportNo), "4");
  EXPECT_EQ(form_->cmdSetting(), 4);
  EXPECT_EQ(context_->current.report_no, 4);

  ui_ = {};
  form_->cmdClose();  // RecordingUi answers yes
  EXPECT_EQ(ui_.last_text, "変更を保存しますか？");
  EXPECT_EQ(Order(), "4:1:1 5:2:0 25:3:1 ");
}

LUPIN_INSTANTIATE_ENGINES(AllFormatFormTest);

}  // namespace
}  // namespace lupin::catalogue
