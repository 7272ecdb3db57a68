// frmSetting and frmAllFormat through their widgets: the printer's sizes and bins, the checks of
// cmdSet, what is stored, and moving and saving the catalogue's rows.
#include <QTest>
#include <QToolButton>

#include "catalogue/calibration.h"
#include "common/settings.h"
#include "ui/all_format_window.h"
#include "ui/setting_window.h"
#include "ui_fixture.h"

namespace lupin::ui::testing {
namespace {

class SettingWindowTest : public DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    Session().Show();
    Pick(25);
  }
  // Opens frmSetting from the selection form's button and hands it to the test.
  void WithSetting(const std::function<void(SettingWindow&)>& test) {
    bool opened = false;
    Session().drive_modal = [&](std::string_view form, QWidget& window) {
      ASSERT_EQ(form, "frmSetting");
      opened = true;
      test(static_cast<SettingWindow&>(window));
    };
    Select().cmdFormat->click();
    EXPECT_TRUE(opened);
  }
  static void Choose(QComboBox* combo, const char* text) {
    const int index = combo->findText(QString::fromUtf8(text));
    ASSERT_GE(index, 0) << text;
    combo->setCurrentIndex(index);
    emit combo->activated(index);
  }
};

TEST_F(SettingWindowTest, SetAsksForPrinterPaperAndBinThenStoresTheRow) {
  WithSetting([&](SettingWindow& w) {
    EXPECT_EQ(w.cboList->currentText(), QString::fromUtf8("ヤマト宅配伝票"));
    EXPECT_EQ(w.cboDeviceName->count(), 2);
    w.cmdSetButton->click();
    EXPECT_EQ(messages.back(), "LupinOrder6: プリンタ名を選択して下さい。");
    Choose(w.cboDeviceName, "LaserA");
    EXPECT_EQ(w.cboPaperSize->count(), 2);
    EXPECT_EQ(w.cboPaperBin->count(), 2);
    w.cmdSetButton->click();
    EXPECT_EQ(messages.back(), "LupinOrder6: 用紙サイズを選択して下さい。");
    Choose(w.cboPaperSize, "B5、182 x 257 mm");
    Choose(w.cboPaperBin, "手差し");
    // The other printer has no B5 and no manual feed: nothing is selected and cmdSet asks again.
    Choose(w.cboDeviceName, "SlipB");
    EXPECT_EQ(w.cboPaperSize->currentIndex(), -1);
    EXPECT_EQ(w.cboPaperBin->currentIndex(), -1);
    Choose(w.cboDeviceName, "LaserA");
    Choose(w.cboPaperSize, "B5、182 x 257 mm");
    Choose(w.cboPaperBin, "手差し");
    w.txtLeftMargin->clear();
    QTest::keyClicks(w.txtLeftMargin, "1a5");
    EXPECT_EQ(w.txtLeftMargin->text(), "15");
    w.findChild<QWidget*>("vsrlTop")->findChildren<QToolButton*>().at(0)->click();
    EXPECT_EQ(w.txtTopMargin->text(), "1");
    w.optPaperType[0]->setChecked(true);
    w.txtFld_txt[0]->setText(QString::fromUtf8("O'Neil"));
    w.txtOffsetX->setText("12");
    w.txtOffsetY->setText("-4");
    w.cmdSetButton->click();
    EXPECT_FALSE(w.isVisible() && !w.Model().closed);
  });
  auto rs = Db().Open("SELECT * FROM [REPORT] WHERE [REPORT_NO] = 25");
  EXPECT_EQ(rs["DEVICE_NAME"].Text(), "LaserA");
  EXPECT_EQ(rs["PAPER_SIZE"].Long(), 13);
  EXPECT_EQ(rs["PAPER_BIN"].Long(), 4);
  EXPECT_EQ(rs["MARGIN_LEFT"].Long(), 15);
  EXPECT_EQ(rs["MARGIN_TOP"].Long(), 1);
  EXPECT_EQ(rs["PAPER_TYPE"].Long(), 0);
  EXPECT_EQ(rs["FLD_TXT1"].Text(), "O'Neil");
  EXPECT_EQ(Session().Context().current.device_name, "LaserA");
  EXPECT_EQ(catalogue::CalibrationStore(home_.Path()).Get("LaserA", 25), (catalogue::CalibrationOffset{12, -4}));
}

TEST_F(SettingWindowTest, AWorkstationWithItsOwnReportIniKeepsTheRowUntouched) {
  settings::WriteProfileString(home_.Path() / "REPORT.INI", "他の帳票", "DEVICE_NAME", "X");
  WithSetting([&](SettingWindow& w) {
    Choose(w.cboDeviceName, "SlipB");
    Choose(w.cboPaperSize, "A4、210 x 297 mm");
    w.cmdSetButton->click();  // SlipB names its tray: nothing selected yet
    EXPECT_EQ(messages.back(), "LupinOrder6: 給紙方法を選択して下さい。");
    Choose(w.cboPaperBin, "tray-1");
    w.cmdSetButton->click();
  });
  EXPECT_EQ(settings::ReadProfileString(home_.Path() / "REPORT.INI", "ヤマト宅配伝票", "DEVICE_NAME", ""), "SlipB");
  EXPECT_EQ(settings::ReadProfileString(home_.Path() / "REPORT.INI", "ヤマト宅配伝票", "PAPER_BIN", ""), "256");
  EXPECT_EQ(Count("FROM [REPORT] WHERE [DEVICE_NAME] = 'SlipB'"), 0);
}

TEST_F(DesktopTest, CatalogueRowsMoveAndSaveTheirOrder) {
  Session().Show();
  Session().drive_modal = [&](std::string_view form, QWidget& window) {
    ASSERT_EQ(form, "frmAllFormat");
    auto& w = static_cast<AllFormatWindow&>(window);
    auto& grid = w.Model().sprList;
    ASSERT_GT(grid.MaxRows(), 3);
    const std::string first = grid.Text(1, catalogue::kFmtName), second = grid.Text(2, catalogue::kFmtName);
    w.SelectRow(1);
    w.cmdUpperButton->click();  // the first row stays
    EXPECT_EQ(grid.Text(1, catalogue::kFmtName), first);
    w.cmdLowerButton->click();
    EXPECT_EQ(grid.Text(2, catalogue::kFmtName), first);
    EXPECT_EQ(grid.Text(1, catalogue::kFmtName), second);
    EXPECT_EQ(w.sprList->currentIndex().row(), 1);  // the selection follows
    // The user unchecks the row now first.
    w.sprList->model()->setData(w.sprList->model()->index(0, 0), Qt::Unchecked, Qt::CheckStateRole);
    w.cmdCloseButton->click();
  };
  const std::string second_name = [&] {
    auto rs = Db().Open("SELECT [REPORT_NAME] FROM [REPORT] ORDER BY [ORD]");
    rs.MoveNext();
    return rs["REPORT_NAME"].Text();
  }();
  Session().ShowModal("frmAllFormat");
  EXPECT_EQ(messages.back(), "帳票設定: 変更を保存しますか？");
  auto rs = Db().Open("SELECT [REPORT_NAME],[ENABLED],[ORD] FROM [REPORT] ORDER BY [ORD]");
  EXPECT_EQ(rs["REPORT_NAME"].Text(), second_name);
  EXPECT_EQ(rs["ENABLED"].Long(), 0);
  EXPECT_EQ(rs["ORD"].Long(), 1);  // ORD is rewritten 1, 2, 3 …
  rs.MoveLast();
  EXPECT_EQ(rs["ORD"].Long(), Count("FROM [REPORT]"));
  // The selection form lists the reports anew: the disabled one is gone.
  EXPECT_EQ(Select().cboList->findText(QString::fromStdString(second_name)), -1);
}

}  // namespace
}  // namespace lupin::ui::testing
