// frmPrint and frmPreview through their widgets: the checks of the list, the preview's pages,
// paging with the ends disabled, zoom, and the print command's bookkeeping before the dialog.
#include <QCoreApplication>

#include <algorithm>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>

#include "ui/preview_window.h"
#include "ui/print_window.h"
#include "ui_fixture.h"

namespace lupin::ui::testing {
namespace {

class PrintPreviewTest : public DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    Session().Show();
    Pick(54);  // the picking list: one page per order
    // Every order, whatever the report's own criteria are.
    for (QCheckBox* check : Select().chkChumonOption) check->setChecked(false);
  }
  void SelectAndDrive(std::function<void(std::string_view, QWidget&)> drive) {
    Session().drive_modal = std::move(drive);
    Select().cmdSelect->click();
  }
};

TEST_F(PrintPreviewTest, ListChecksDecideWhatIsStagedAndBookedBeforeTheDialog) {
  int dialogs = 0;
  Session().answer_print_dialog = [&](const std::vector<std::string>& printers, const std::string&) {
    ++dialogs;
    EXPECT_EQ(printers, (std::vector<std::string>{"LaserA", "SlipB"}));
    return std::string();  // the user cancels
  };
  bool previewed = false;
  SelectAndDrive([&](std::string_view form, QWidget& window) {
    if (form == "frmPrint") {
      auto& print = static_cast<PrintWindow&>(window);
      ASSERT_EQ(print.sprList->model()->rowCount(), 12);
      EXPECT_TRUE(print.sprList->isVisible());
      EXPECT_FALSE(print.sprCustomer->isVisible());
      EXPECT_EQ(print.cmdPrintButton->text(), QString::fromUtf8("ﾌﾟﾚﾋﾞｭｰ"));
      print.cmdAllEject->click();
      print.cmdPrintButton->click();
      EXPECT_EQ(messages.back(), "印刷一覧: 印刷するデータを選択して下さい。");
      print.cmdAllSelect->click();
      // Two rows unchecked in the grid as the user clicks their boxes.
      for (int row : {0, 5}) print.sprList->model()->setData(print.sprList->model()->index(row, 0), Qt::Unchecked, Qt::CheckStateRole);
      print.cmdPrintButton->click();
      return;
    }
    ASSERT_EQ(form, "frmPreview");
    previewed = true;
    auto& preview = static_cast<PreviewWindow&>(window);
    EXPECT_EQ(preview.Paging().Count(), 10);
    EXPECT_EQ(preview.Paging().Page(), 1);
    EXPECT_FALSE(preview.tlbPrev->isEnabled());
    EXPECT_TRUE(preview.tlbNext->isEnabled());
    const int width = preview.PageImage().width();
    preview.tlbLarger->trigger();
    EXPECT_GT(preview.PageImage().width(), width);
    for (int i = 0; i < 12; ++i) preview.tlbNext->trigger();
    EXPECT_EQ(preview.Paging().Page(), 10);
    EXPECT_FALSE(preview.tlbNext->isEnabled());
    EXPECT_TRUE(preview.tlbPrev->isEnabled());
    EXPECT_EQ(Count("FROM [PRINTED] WHERE [REPORT_NO] = 54"), 0);

    // The print tool (id 900) and its menu item: the ledger is written before the dialog is
    // answered, and a cancelled dialog leaves it.
    preview.ToolClick(PreviewWindow::kPrintToolId);
    EXPECT_EQ(Count("FROM [PRINTED] WHERE [REPORT_NO] = 54"), 10);
    QMenuBar* bar = preview.findChild<QMenuBar*>();
    ASSERT_NE(bar, nullptr);
    auto* file = bar->findChild<QMenu*>("mnuFileSub");
    ASSERT_NE(file, nullptr);
    file->actions().at(0)->trigger();
    EXPECT_EQ(dialogs, 2);
    EXPECT_EQ(Count("FROM [PRINTED] WHERE [REPORT_NO] = 54"), 10);  // the second print only updates
  });
  EXPECT_TRUE(previewed);
  EXPECT_EQ(Count("FROM [WK_PRINT] WHERE [CLIENT_NAME] = 'PC01'"), 10);
  EXPECT_EQ(Count("FROM [WK_PRINT] WHERE [ID] = 1"), 0);
}

class LongRunTest : public PrintPreviewTest {
 protected:
  LongRunTest() { demo_orders_ = 150; }
};

TEST_F(LongRunTest, TheFirstPagesAreOnScreenWhileTheRunGoesOn) {
  // A timer of the event loop notes the pages on screen whenever it gets to run.
  std::vector<int> pages_seen;
  QTimer watch;
  watch.setInterval(1);
  QObject::connect(&watch, &QTimer::timeout, [&] {
    if (auto* preview = Session().OpenPreview()) pages_seen.push_back(preview->PagesShown());
  });
  SelectAndDrive([&](std::string_view form, QWidget& window) {
    if (form == "frmPrint") {
      watch.start();
      static_cast<PrintWindow&>(window).cmdPrint();
      watch.stop();
      return;
    }
    auto& preview = static_cast<PreviewWindow&>(window);
    EXPECT_EQ(preview.Paging().Count(), 150);
    EXPECT_LE(preview.first_page_ms, preview.last_page_ms);
  });
  EXPECT_TRUE(std::any_of(pages_seen.begin(), pages_seen.end(), [](int pages) { return pages >= 1 && pages < 150; }))
      << "the window did not answer between the first and the last page";
}

TEST_F(PrintPreviewTest, AReportWithoutObjectSaysSoAndShowsNoPage) {
  Db().Execute("UPDATE [REPORT] SET [ENABLED] = 1 WHERE [REPORT_NO] = 2");
  Select().Handle([&] { Session().SelectModel().S_SetReportSet(); });
  Pick(2);
  for (QCheckBox* check : Select().chkChumonOption) check->setChecked(false);
  int previews = 0;
  SelectAndDrive([&](std::string_view form, QWidget& window) {
    if (form == "frmPrint") {
      static_cast<PrintWindow&>(window).cmdPrint();
      return;
    }
    ++previews;
    EXPECT_EQ(static_cast<PreviewWindow&>(window).PagesShown(), 0);
  });
  EXPECT_EQ(previews, 1);
  ASSERT_FALSE(messages.empty());
  EXPECT_EQ(messages.back(), "印刷プレビュー: 帳票が登録されていません。");
}

}  // namespace
}  // namespace lupin::ui::testing
