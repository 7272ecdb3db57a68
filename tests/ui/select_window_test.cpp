// frmSelect through its widgets: the frames of a report, validation with the focus kept, F12 and the
// input method, the list windows' strings over the local socket, and Show's loop.
#include <QInputMethodEvent>
#include <QLocalSocket>
#include <QTest>
#include <QTimer>

#include "desktop/list_channel.h"
#include "entry/lupns6pt.h"
#include "ui/list_window.h"
#include "ui/qt_select_form_runner.h"
#include "ui_fixture.h"

namespace lupin::ui::testing {
namespace {

class SelectWindowTest : public DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    Session().Show();
    QApplication::processEvents();
  }
};

TEST_F(SelectWindowTest, PickingAReportShowsItsFrames) {
  struct Case {
    int report;
    bool den_no, label, select_enabled, customer_enabled, item_list;
  };
  const Case cases[] = {
      {25, true, false, true, false, false},   // a waybill slip
      {22, false, true, true, false, false},   // labels
      {23, false, true, false, true, false},   // labels from customers
      {35, false, false, false, false, true},  // the item sales list
      {4, false, false, true, false, false},   // an order list
  };
  SelectWindow& w = Select();
  for (const Case& c : cases) {
    SCOPED_TRACE(c.report);
    Pick(c.report);
    EXPECT_EQ(w.fraDenNo->isVisible(), c.den_no);
    EXPECT_EQ(w.fraLabel->isVisible(), c.label);
    EXPECT_EQ(w.fraSelect->isEnabled(), c.select_enabled);
    EXPECT_EQ(w.fraCustomer->isEnabled(), c.customer_enabled);
    EXPECT_EQ(w.fraItemList->isVisible(), c.item_list);
    EXPECT_EQ(w.cmdCustomer->isEnabled(), c.customer_enabled);
    EXPECT_EQ(Session().Context().current.report_no, c.report);
  }
}

TEST_F(SelectWindowTest, AWrongDateIsRefusedWithTheFormCaptionAndKeepsTheFocus) {
  Pick(25);
  SelectWindow& w = Select();
  w.activateWindow();
  w.txtDate[0]->setFocus();
  w.txtDate[0]->setText("2024/13/45");
  emit w.txtDate[0]->editingFinished();
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0], "印刷選択: 日付を入力してください。");
  EXPECT_TRUE(w.txtDate[0]->hasFocus());
  // Typing a customer's telephone checks its criterion; clearing it unchecks it.
  Pick(23);
  QTest::keyClicks(w.txtCustomer, "0312345678");
  EXPECT_TRUE(w.chkOption[0]->isChecked());
  w.txtCustomer->selectAll();
  QTest::keyClick(w.txtCustomer, Qt::Key_Delete);
  EXPECT_FALSE(w.chkOption[0]->isChecked());
}

TEST_F(SelectWindowTest, F12ClosesTheFormUnlessTheInputMethodIsComposing) {
  SelectWindow& w = Select();
  QApplication::setActiveWindow(&w);
  w.txtCustomer->setFocus();
  QInputMethodEvent composing(QString::fromUtf8("やまだ"), {});
  QApplication::sendEvent(w.txtCustomer, &composing);
  QTest::keyClick(w.txtCustomer, Qt::Key_F12);
  EXPECT_FALSE(Session().Closed());
  QInputMethodEvent committed;
  committed.setCommitString(QString::fromUtf8("山田"));
  QApplication::sendEvent(w.txtCustomer, &committed);
  QTest::keyClick(w.txtCustomer, Qt::Key_F12, Qt::ShiftModifier);
  EXPECT_FALSE(Session().Closed());
  QTest::keyClick(w.txtCustomer, Qt::Key_F12);
  EXPECT_TRUE(Session().Closed());
}

TEST_F(SelectWindowTest, ListWindowsAnswerThroughTheLocalSocketAndCloseOnCloseMsg) {
  Pick(4);
  SelectWindow& w = Select();
  ASSERT_FALSE(w.ChannelName().isEmpty());
  ListWindow* orders = w.OpenList(desktop::kOrderListTitle);
  ASSERT_NE(orders, nullptr);
  ASSERT_GT(orders->sprList->rowCount(), 1);
  orders->sprList->selectRow(1);  // the second newest order
  const std::string id = S(orders->sprList->item(1, 0)->text());
  QPointer<ListWindow> watch(orders);
  ASSERT_TRUE(orders->cmdOK());
  for (int i = 0; i < 50 && watch != nullptr && watch->isVisible(); ++i) QTest::qWait(20);
  EXPECT_EQ(S(w.txtId[0]->text()), id);
  EXPECT_EQ(S(w.txtId[1]->text()), id);
  EXPECT_FALSE(w.lblName[0]->text().isEmpty());
  EXPECT_TRUE(watch == nullptr || !watch->isVisible()) << "the list window stays open";

  // A string from another program of the package: no prefix of ours is ignored and not answered.
  QLocalSocket outside;
  outside.connectToServer(w.ChannelName());
  ASSERT_TRUE(outside.waitForConnected(1000));
  outside.write("HELLO=1\nCUSNO=1\n");
  outside.flush();
  for (int i = 0; i < 50 && outside.bytesAvailable() == 0; ++i) QTest::qWait(20);
  EXPECT_EQ(outside.readAll().toStdString(), "CLOSEMSG\n");
}

TEST(ShowLoop, ShowReturnsWhenTheSelectionFormIsClosed) {
  App();
  auto db = lupin::testing::FreshDatabase(db::Engine::Sqlite);
  entry::CreateSchema(*db);
  demo::FillCatalogue(*db);
  TempHome home;
  entry::Lupns6pt lupns6pt(settings::StorePaths::InFolder(home.Path() / "settings"), home.Path());
  lupns6pt.dbConnection(db.get());
  lupns6pt.Report("ヤマト宅配伝票");
  QtSelectFormRunner runner;
  lupns6pt.SetSelectFormRunner(&runner);
  bool shown_named = false;
  QTimer::singleShot(300, [&] {
    for (QWidget* top : QApplication::topLevelWidgets()) {
      auto* select = dynamic_cast<SelectWindow*>(top);
      if (select == nullptr || !select->isVisible()) continue;
      shown_named = select->lblReport->isVisible() && !select->cboList->isVisible() &&
                    select->lblReport->text() == QString::fromUtf8("ヤマト宅配伝票");
      select->close();
    }
  });
  lupns6pt.Show();  // returns only when the form is closed
  EXPECT_TRUE(shown_named);
  EXPECT_EQ(lupns6pt.GetContext().current.report_no, 25);
}

}  // namespace
}  // namespace lupin::ui::testing
