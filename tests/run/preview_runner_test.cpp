// The engine-backed runner on its own: preview files appear whole or not at all, and the record
// count and page count come from the run.
#include <nlohmann/json.hpp>

#include <stdexcept>

#include "catalogue/load_report_definition.h"
#include "reports/documents/picking.h"
#include "run/preview_fixture.h"

namespace lupin::run {
namespace {

using testing::PartFiles;
using testing::ReadBytes;

// The picking list with a data source that breaks after two records, as a lost connection would.
class BreakingPickingList : public reports::rptPickingSyuDate {
 public:
  using rptPickingSyuDate::rptPickingSyuDate;

 protected:
  void ActiveReport_FetchData(bool& eof) override {
    if (!eof && ++fetched_ > 2) throw std::runtime_error("接続が切れました");
  }

 private:
  int fetched_ = 0;
};

class PreviewRunner : public ::testing::Test {
 protected:
  void SetUp() override {
    connection_ = lupin::testing::FreshDatabase(db::Engine::Sqlite);
    ASSERT_NE(connection_, nullptr);
    entry::CreateSchema(*connection_);
    demo::FillCatalogue(*connection_);
    demo::FillDemoData(*connection_, {.orders = 6, .seed = 9});
    for (int id : {2, 3, 5, 6}) {
      connection_->Execute("INSERT INTO [WK_PRINT]([ID],[CLIENT_NAME]) VALUES(" + std::to_string(id) + ",'PC01')");
    }
    context_.connection = connection_.get();
    context_.login.client_name = "PC01";
    catalogue::LoadReportDefinition(context_, 54);
  }
  std::filesystem::path File(const std::string& name) const { return folder_.Path() / name; }

  testing::TempFolder folder_;
  std::unique_ptr<db::Connection> connection_;
  entry::Context context_{nullptr, settings::StorePaths::InFolder(folder_.Path()), folder_.Path()};
};

TEST_F(PreviewRunner, ARunThatBreaksKeepsTheOldFilesAndLeavesNoTemporaries) {
  for (const char* name : {"list.pdf", "list.json"}) std::ofstream(File(name)) << "old";
  const PreviewOutputs outputs{.pdf = File("list.pdf").string(), .dump = File("list.json").string()};

  engine::ReportRegistry breaking;
  breaking.Register("rptPickingSyuDate",
                    [](entry::Context& context) { return std::make_unique<BreakingPickingList>(context); });
  EnginePreviewRunner broken(std::move(breaking), outputs);
  EXPECT_FALSE(broken.Run(context_, "rptPickingSyuDate"));
  EXPECT_EQ(broken.Message(), "帳票を作成できません: 接続が切れました");
  EXPECT_EQ(ReadBytes(File("list.pdf")), "old");
  EXPECT_EQ(ReadBytes(File("list.json")), "old");
  EXPECT_EQ(PartFiles(folder_.Path()), 0);

  EnginePreviewRunner whole(ReportObjects(), outputs);
  ASSERT_TRUE(whole.Run(context_, "rptPickingSyuDate")) << whole.Message();
  EXPECT_EQ(ReadBytes(File("list.pdf")).rfind("%PDF-", 0), 0u);
  EXPECT_EQ(nlohmann::json::parse(ReadBytes(File("list.json")))["pages"].size(), 4u);
  EXPECT_EQ(PartFiles(folder_.Path()), 0);
}

TEST_F(PreviewRunner, CountsComeFromTheRunAndAPreviewPrintsNothing) {
  std::vector<int> progress;
  EnginePreviewRunner runner(ReportObjects(), {}, [&](int pages) { progress.push_back(pages); });
  ASSERT_TRUE(runner.Run(context_, "rptPickingSyuYDate")) << runner.Message();
  EXPECT_EQ(runner.RecordCount(), 4) << "the waybill series is as long as the rows the report read";
  EXPECT_EQ(runner.Pages(), 4);
  EXPECT_EQ(progress, (std::vector<int>{1, 2, 3, 4}));
  EXPECT_FALSE(runner.Print()) << "a run without a print target never claims to have printed";
  EXPECT_EQ(runner.LastPrint().job_id, 0);

  connection_->Execute("DELETE FROM [WK_PRINT] WHERE [ID] > 2");
  ASSERT_TRUE(runner.Run(context_, "rptPickingSyuYDate"));
  EXPECT_EQ(runner.RecordCount(), 1) << "a second run starts again";
}

}  // namespace
}  // namespace lupin::run
