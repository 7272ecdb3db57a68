// The print-settings model: printer capabilities as codes and names, the checks of cmdSet, the
// UPDATE statement, and where a workstation's settings go.
#include <gtest/gtest.h>

#include <filesystem>

#include "catalogue/calibration.h"
#include "catalogue/printer_capabilities.h"
#include "catalogue/setting_form.h"
#include "common/settings.h"
#include "demo/demo_data.h"
#include "entry/schema.h"
#include "support/temp_files.h"
#include "support/test_databases.h"

namespace lupin::catalogue {
namespace {

TEST(PrinterCapabilities, CupsNamesBecomeCodesWithTheFixedNames) {
  const DeviceCapabilities caps = CapabilitiesOf(
      {"iso_a4_210x297mm", "iso_a4_210x297mm", "jis_b5_182x257mm", "jpn_hagaki_100x148mm", "iso_2a0_1189x1682mm"},
      {"manual", "tray-2", "auto", "fancy-slot"});
  ASSERT_EQ(caps.papers.size(), 3u);  // the A0 the print command cannot ask for is left out
  EXPECT_EQ(caps.papers[0].code, 9);
  EXPECT_EQ(caps.papers[0].name, "A4、210 x 297 mm");
  EXPECT_EQ(caps.papers[1].name, "B5、182 x 257 mm");
  EXPECT_EQ(caps.papers[2].code, 43);  // no fixed name: the driver's
  EXPECT_EQ(caps.papers[2].name, "jpn_hagaki_100x148mm");
  ASSERT_EQ(caps.bins.size(), 3u);
  EXPECT_EQ(caps.bins[0].name, "手差し");
  EXPECT_EQ(caps.bins[1].code, 257);
  EXPECT_EQ(caps.bins[1].name, "tray-2");
  EXPECT_EQ(caps.bins[2].name, "自動");
  // A driver naming no trays still offers the automatic one.
  EXPECT_EQ(CapabilitiesOf({"iso_a4_210x297mm"}, {}).bins.at(0).code, 7);
  EXPECT_EQ(PaperSizeName(1), "レター、8 1/2 x 11 ｲﾝﾁ");
  EXPECT_EQ(PaperSizeName(41), "ドイツ リーガル ファンフォールド、8 1/2 x 13 ｲﾝﾁ");
  EXPECT_EQ(PaperSizeName(256), "ユーザー定義のサイズ");
  EXPECT_EQ(PaperSizeName(300), "不明");
}

class FakePrinters : public PrinterCapabilities {
 public:
  std::vector<std::string> Printers() override { return {"LaserA", "Unreadable"}; }
  DeviceCapabilities Capabilities(std::string_view device) override {
    if (device == "LaserA") return CapabilitiesOf({"iso_a4_210x297mm"}, {"manual"});
    return {};
  }
};

class SettingFormTest : public ::testing::Test {
 protected:
  void SetUp() override {
    db_ = lupin::testing::FreshDatabase(db::Engine::Sqlite);
    entry::CreateSchema(*db_);
    demo::FillCatalogue(*db_);
    db_->Execute("UPDATE [REPORT] SET [FLD_LBL1] = 'お客様コード', [FLD_LBL2] = '', [FLD_LBL3] = '備考' "
                 "WHERE [REPORT_NO] = 25");
    context_ = std::make_unique<entry::Context>(db_.get(), settings::StorePaths::InFolder(home_), home_);
    form_ = std::make_unique<SettingForm>(*context_, ui_, printers_);
    form_->S_SetReportSet(25);
  }
  std::unique_ptr<db::Connection> db_;
  lupin::testing::TempFolder folder_{"lupin_setting_"};
  const std::filesystem::path home_ = folder_.Path();
  std::unique_ptr<entry::Context> context_;
  entry::RecordingUi ui_;
  FakePrinters printers_;
  std::unique_ptr<SettingForm> form_;
};

TEST_F(SettingFormTest, SetWritesTheStatementWithQuotedFieldsOfShownRowsOnly) {
  SettingForm& f = *form_;
  EXPECT_FALSE(f.lblFld_lbl[1].visible);
  EXPECT_FALSE(f.txtFld_txt[1].visible);
  f.cboDeviceName.list_index = 0;
  f.cboDeviceName_Click();
  f.cboPaperSize.list_index = 0;
  f.cboPaperBin.list_index = 0;
  f.optPaperType = 1;
  f.txtLeftMargin.text = "12";
  f.txtTopMargin.text = "";
  f.txtMargin_LostFocus(1);
  f.vsrlMargin_Change(1, +1);
  f.txtFld_txt[0].text = "O'Brien";
  f.txtFld_txt[2].text = "x";
  EXPECT_EQ(f.UpdateStatement(),
            "UPDATE REPORT SET PAPER_TYPE = 1,DEVICE_NAME = 'LaserA',PAPER_SIZE = 9,PAPER_BIN = 4,MARGIN_LEFT = 12,"
            "MARGIN_TOP = 1,FLD_TXT1 = 'O''Brien',FLD_TXT3 = 'x' WHERE REPORT_NO = 25");
  context_->current.report_no = 25;
  ASSERT_TRUE(f.cmdSet());
  auto rs = db_->Open("SELECT * FROM [REPORT] WHERE [REPORT_NO] = 25");
  EXPECT_EQ(rs["FLD_TXT1"].Text(), "O'Brien");
  EXPECT_EQ(rs["MARGIN_TOP"].Long(), 1);
  EXPECT_EQ(context_->current.device_name, "LaserA");
  EXPECT_EQ(context_->current.paper_bin, 4);
}

TEST_F(SettingFormTest, ChecksComeInOrderAndAnUnreadablePrinterLeavesTheListsEmpty) {
  SettingForm& f = *form_;
  struct Step {
    int device, paper, bin;
    const char* message;
  };
  const Step steps[] = {{-1, -1, -1, "プリンタ名を選択して下さい。"},
                        {1, -1, -1, "用紙サイズを選択して下さい。"}};
  for (const Step& s : steps) {
    f.cboDeviceName.list_index = s.device;
    f.cboDeviceName_Click();
    EXPECT_FALSE(f.cmdSet());
    EXPECT_EQ(ui_.last_text, s.message);
    EXPECT_EQ(ui_.last_caption, kProductTitle);
  }
  EXPECT_EQ(f.cboPaperSize.ListCount(), 0);
  const int before = ui_.count;
  f.cboDeviceName.list_index = 1;
  f.cboDeviceName_Click();
  EXPECT_EQ(ui_.count, before + 1);
  EXPECT_EQ(ui_.last_text, "プリンタの情報を取得できませんでした。");
  f.cboDeviceName.list_index = 0;
  f.cboDeviceName_Click();
  f.cboPaperSize.list_index = 0;
  EXPECT_FALSE(f.cmdSet());
  EXPECT_EQ(ui_.last_text, "給紙方法を選択して下さい。");
}

TEST_F(SettingFormTest, AWorkstationWithReportIniWritesItsSectionAndItsCalibration) {
  settings::WriteProfileString(home_ / "REPORT.INI", "other", "DEVICE_NAME", "X");
  SettingForm& f = *form_;
  f.cboDeviceName.list_index = 0;
  f.cboDeviceName_Click();
  f.cboPaperSize.list_index = 0;
  f.cboPaperBin.list_index = 0;
  f.txtOffsetX.text = "-15";
  f.txtOffsetY.text = "7";
  ASSERT_TRUE(f.cmdSet());
  EXPECT_EQ(settings::ReadProfileString(home_ / "REPORT.INI", f.cboList.Text(), "PAPER_SIZE", ""), "9");
  auto rs = db_->Open("SELECT [DEVICE_NAME] FROM [REPORT] WHERE [REPORT_NO] = 25");
  EXPECT_EQ(rs["DEVICE_NAME"].Text(), "");
  EXPECT_EQ(CalibrationStore(home_).Get("LaserA", 25), (CalibrationOffset{-15, 7}));
  // Shown again for the printer and report.
  form_->S_SetReportSet(25);
  EXPECT_EQ(f.cboDeviceName.Text(), "LaserA");
  EXPECT_EQ(f.txtOffsetX.text, "-15");
}

}  // namespace
}  // namespace lupin::catalogue
