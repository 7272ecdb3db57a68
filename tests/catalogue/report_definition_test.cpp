#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "catalogue/load_report_definition.h"
#include "common/settings.h"
#include "common/text.h"
#include "report_test_fixture.h"

namespace lupin::catalogue {
namespace {

namespace fs = std::filesystem;

class LoadDefinitionTest : public testing::ReportDbTest {
 protected:
  // A Sagawa slip row as a shop would have it: a printer, paper and margins in the table.
  void InsertSagawa(const std::string& name = "佐川宅配伝票") {
    Db().Execute(
        "INSERT INTO [REPORT] ([REPORT_NO], [REPORT_NAME], [PAPER_TYPE], [DEVICE_NAME], [PAPER_SIZE], [PAPER_BIN], "
        "[MARGIN_LEFT], [MARGIN_TOP], [MARGIN_RIGHT], [MARGIN_BOTTOM], [Orientation], [DATE_LABEL], [MEMO1], [MEMO2], "
        "[MEMO3], [FLD_LBL1], [FLD_LBL2], [FLD_TXT1], [FLD_TXT2], [FLD_TXT3], [BIKO_LBL1], [BIKO_FLD1], [BIKO_FLD2]) "
        "VALUES (18, '" + name + "', 1, 'Slip-Printer', 256, 4, 120, 80, 60, 40, 2, '出荷日', 'メモ一', '', 'メモ三', "
        "'お届け時間', '', '午前中', '隠れた文字', '孤立した文字', '備考', '備考1', '備考2')");
  }
};

TEST_P(LoadDefinitionTest, ReadsTheRowIntoTheCurrentDefinition) {
  InsertSagawa();
  ASSERT_TRUE(LoadReportDefinition(*context_, 18));
  const entry::ReportDefinition& def = context_->current;
  EXPECT_EQ(def.report_name + "|" + def.device_name + "|" + def.date_label, "佐川宅配伝票|Slip-Printer|出荷日");
  EXPECT_EQ((std::array<int, 4>{def.paper_type, def.paper_size, def.paper_bin, def.orientation}),
            (std::array<int, 4>{1, 256, 4, 2}));
  EXPECT_EQ((std::array{def.margin_left, def.margin_top, def.margin_right, def.margin_bottom}),
            (std::array<std::int32_t, 4>{120, 80, 60, 40}));
  EXPECT_EQ(def.memo, (std::array<std::string, 3>{"メモ一", "", "メモ三"}));
  // Texts count only under a label: FLD_TXT2 and FLD_TXT3 hold text, but their labels are empty.
  EXPECT_EQ((std::array{def.fld_txt[0], def.fld_txt[1], def.fld_txt[2]}),
            (std::array<std::string, 3>{"午前中", "", ""}));
  EXPECT_EQ((std::array{def.biko_fld[0], def.biko_fld[1]}), (std::array<std::string, 2>{"備考1", ""}));
  // A missing number keeps the previous definition.
  EXPECT_FALSE(LoadReportDefinition(*context_, 25));
  EXPECT_EQ(def.report_name, "佐川宅配伝票");
}

TEST_P(LoadDefinitionTest, NullColumnsReadAsEmptyAndZero) {
  context_->current.device_name = "left over";
  context_->current.paper_size = 9;
  context_->current.fld_txt[0] = "left over";
  Db().Execute("INSERT INTO [REPORT] ([REPORT_NO], [REPORT_NAME]) VALUES (4, '注文一覧表')");
  Db().Execute("UPDATE [REPORT] SET [PAPER_TYPE] = NULL, [Where] = NULL, [LBL_RPT] = NULL WHERE [REPORT_NO] = 4");
  ASSERT_TRUE(LoadReportDefinition(*context_, 4));
  const entry::ReportDefinition& def = context_->current;
  EXPECT_EQ(def.report_no, 4);
  EXPECT_EQ(def.device_name + def.fld_txt[0] + def.date_field, "");
  EXPECT_EQ((std::array<int, 4>{def.paper_size, def.paper_type, def.where, def.lbl_rpt}), (std::array<int, 4>{}));
}

// A REPORT.INI carried over from Windows is Shift-JIS; it must override exactly as a UTF-8 one.
TEST_P(LoadDefinitionTest, WorkstationFileOverridesPrinterButNeverRightAndBottom) {
  InsertSagawa();
  const std::string ini =
      "[佐川宅配伝票]\r\nPAPER_TYPE=0\r\nDEVICE_NAME=事務所のプリンタ\r\nPAPER_SIZE=9\r\nPAPER_BIN=7\r\n"
      "MARGIN_LEFT=300\r\nMARGIN_TOP=0\r\nORIENTATION=1\r\nMARGIN_RIGHT=999\r\nMARGIN_BOTTOM=999\r\n";
  for (const std::string& file : {ini, "\xEF\xBB\xBF" + ini, text::ToCp932(ini).bytes}) {
    PutReportIni(file);
    context_->current = {};
    ASSERT_TRUE(LoadReportDefinition(*context_, 18));
    const entry::ReportDefinition& def = context_->current;
    EXPECT_EQ(def.device_name, "事務所のプリンタ");
    EXPECT_EQ((std::array<int, 3>{def.paper_size, def.paper_bin, def.orientation}), (std::array{9, 7, 1}));
    // Stored zeros do not override.
    EXPECT_EQ(def.paper_type, 1);
    EXPECT_EQ((std::array{def.margin_left, def.margin_top, def.margin_right, def.margin_bottom}),
              (std::array<std::int32_t, 4>{300, 80, 60, 40}));
  }
}

// Overrides are found by the report's name, and only in the component directory's REPORT.INI.
TEST_P(LoadDefinitionTest, OverridesElsewhereDoNotCount) {
  InsertSagawa("佐川 (新)");
  PutReportIni("[佐川宅配伝票]\nDEVICE_NAME=Office\nPAPER_SIZE=9\n");
  std::ofstream(home_ / "lupin_catalogue_tests.INI") << "[佐川 (新)]\nPAPER_SIZE=9\n";
  fs::create_directories(home_ / "other");
  std::ofstream(home_ / "other" / "REPORT.INI") << "[佐川 (新)]\nPAPER_SIZE=9\n";
  ASSERT_TRUE(LoadReportDefinition(*context_, 18));
  EXPECT_EQ(context_->current.device_name, "Slip-Printer");
  EXPECT_EQ(context_->current.paper_size, 256);
}

LUPIN_INSTANTIATE_ENGINES(LoadDefinitionTest);

}  // namespace
}  // namespace lupin::catalogue
