#include <gtest/gtest.h>

#include "common/vb.h"
#include "run/run_db_support.h"
#include "run/run_test_support.h"
#include "run/select_form.h"
#include "support/test_databases.h"

namespace lupin::run {
namespace {

using testing::AddOrder;
using testing::AddReport;

std::string Today() { return vb::FormatDate(vb::Today(), "YYYY/MM/DD"); }

class SelectFormTest : public testing::SchemaTest {
 protected:
  void SetUp() override {
    SchemaTest::SetUp();
    const std::tuple<const char*, int, const char*> payments[] = {
        {"銀行振込", 1, "A"}, {"代引", 2, "A"}, {"カード", 3, "A"}, {"代引き", 4, "B"}, {"カード", 1, "B"}};
    for (const auto& [method, ord, shop] : payments) {
      Db().Execute("INSERT INTO [PAYMENT]([METHOD],[ORD],[OK],[SHOP_ID]) VALUES('" + std::string(method) + "'," +
                   std::to_string(ord) + ",1,'" + shop + "')");
    }
    Db().Execute("INSERT INTO [PAYMENT]([METHOD],[ORD],[OK],[SHOP_ID]) VALUES('停止',0,0,'A')");
    Db().Execute("INSERT INTO [SHOP]([SHOP_ID]) VALUES('A')");
    Db().Execute("INSERT INTO [SHOP]([SHOP_ID]) VALUES('B')");
    AddReport(Db(), {.no = 18, .name = "佐川宅配伝票", .where = 10, .payment_init = 2, .date_label = "出荷予定"});
    AddReport(Db(), {.no = 22, .name = "宛名ラベル", .where = 1, .lbl_rpt = 12});
    AddReport(Db(), {.no = 23, .name = "宛名ラベル (顧客情報)", .lbl_rpt = 12, .other_tbl = "CUSTOMER"});
    AddReport(Db(), {.no = 35, .name = "商品別売上集計表"});
    AddReport(Db(), {.no = 44, .name = "日別売上集計表", .where = 1, .payment_init = 1});
    AddReport(Db(), {.no = 101, .name = "Amazon"});
    AddOrder(Db(), {.id = 5, .name = "古い"});
    AddOrder(Db(), {.id = 9, .name = "とても長いお名前の人です", .company = "株式会社"});
    env = std::make_unique<testing::TestContext>(&Db());
    form = std::make_unique<SelectForm>(env->context, ui);
    form->Form_Load();
    form->Form_Activate();
  }
  void Pick(int report) {
    for (int i = 0; i < form->cboList.ListCount(); ++i) {
      if (form->cboList.item_data[static_cast<std::size_t>(i)] == report) form->cboList.list_index = i;
    }
    form->cboList_Click();
  }
  std::unique_ptr<testing::TestContext> env;
  testing::ListUi ui;
  std::unique_ptr<SelectForm> form;
};

TEST_P(SelectFormTest, PaymentListPutsTheExclusionBeforeCashOnDelivery) {
  EXPECT_EQ(form->cboPayment.items, (std::vector<std::string>{"すべて", "銀行振込", "代引以外", "代引", "カード", "代引き"}));
  EXPECT_EQ(form->cod_position, 3);
  EXPECT_EQ(form->cboPayment.list_index, 0);
  form->cboShop_id.list_index = 2;
  form->cboShop_id_Click();
  EXPECT_EQ(form->cboPayment.items, (std::vector<std::string>{"すべて", "カード", "代引き以外", "代引き"}));
  EXPECT_EQ(form->cod_position, 3);
  form->cboShop_id.list_index = 0;
  form->cboShop_id_Click();
  EXPECT_EQ(form->cboPayment.ListCount(), 6);
}

TEST_P(SelectFormTest, FirstActivationFillsListsAndDates) {
  EXPECT_EQ(form->cboList.items.front(), "佐川宅配伝票");
  EXPECT_EQ(form->cboShop_id.items, (std::vector<std::string>{"すべて", "A", "B"}));
  EXPECT_EQ(form->txtDate[0].text, Today());
  int year = 0, month = 0, day = 0;
  vb::SplitDate(vb::Today(), year, month, day);
  const auto last = vb::DateAdd("d", -1, vb::DateSerialOf(year, month, 1));
  EXPECT_EQ(form->txtDate[4].text, vb::FormatDate(last, "YYYY/MM/DD"));
  EXPECT_EQ(form->txtDate[5].text, vb::FormatDate(last, "YYYY/MM/") + "01");
}

TEST_P(SelectFormTest, ReportChangeAppliesTheDefinition) {
  Pick(18);
  EXPECT_EQ(form->txtId[0].text, "9");
  EXPECT_EQ(form->lblName[1].caption, "株式会社とても長いお");
  const int expected_checks[] = {0, 1, 0, 1};
  for (int k = 0; k < 4; ++k) EXPECT_EQ(form->chkChumonOption[k].value, expected_checks[k]) << k;
  EXPECT_EQ(form->chkChumonOption[0].caption, "出荷予定");
  EXPECT_TRUE(form->fraDenNo.visible);
  EXPECT_FALSE(form->fraLabel.visible);
  EXPECT_EQ(form->cboPayment.list_index, form->cod_position);
  EXPECT_TRUE(form->fraSelect.enabled);
  EXPECT_FALSE(form->fraCustomer.enabled);

  form->txtDenNo.text = "123";
  form->chkReDenNo.value = 0;
  Pick(22);
  EXPECT_TRUE(form->fraLabel.visible);
  EXPECT_TRUE(form->chkDistinct.enabled);
  EXPECT_FALSE(form->fraDenNo.visible);
  EXPECT_TRUE(form->txtDenNo.text.empty());
  EXPECT_EQ(form->chkReDenNo.value, 1);
  EXPECT_EQ(form->cboPayment.list_index, 0);

  Pick(23);
  EXPECT_FALSE(form->chkDistinct.enabled) << "customers are not deduplicated";
  EXPECT_TRUE(form->fraCustomer.enabled);
  EXPECT_FALSE(form->fraSelect.enabled);
  EXPECT_TRUE(form->cmdCustomer.enabled);
  EXPECT_FALSE(form->cmdChumon.enabled);

  Pick(35);
  EXPECT_TRUE(form->fraItemList.visible);
  EXPECT_FALSE(form->fraSelect.visible);

  Pick(44);
  EXPECT_TRUE(form->txtDate[0].text.empty());
  EXPECT_EQ(form->txtDate[1].text, Today());
  EXPECT_EQ(form->cboPayment.list_index, 1);
}

struct SelectCheck {
  const char* name;
  std::function<void(SelectForm&)> setup;
  std::string message;
  std::string focus;
};

TEST_P(SelectFormTest, SalesSummaryNeedsAnOrderedDateRange) {
  Pick(44);
  const SelectCheck cases[] = {
      {"Unchecked", [](SelectForm& f) { f.chkChumonOption[0].value = 0; f.txtDate[0].text = "2024/01/01"; },
       "出荷日の範囲は必須です。", "chkChumonOption[0]"},
      {"FromEmpty", [](SelectForm& f) { f.chkChumonOption[0].value = 1; f.txtDate[0].text = ""; },
       "出荷日の範囲は必須です。", "txtDate[0]"},
      // Compared as text: "2024/9/1" sorts after "2024/10/01".
      {"ReversedAsText", [](SelectForm& f) { f.txtDate[0].text = "2024/9/1"; f.txtDate[1].text = "2024/10/01"; },
       "出荷日の範囲が不正です。", "txtDate[1]"},
  };
  for (const auto& c : cases) {
    c.setup(*form);
    EXPECT_EQ(form->cmdSelect(), SelectOutcome::Stopped) << c.name;
    EXPECT_EQ(ui.texts.back(), c.message) << c.name;
    EXPECT_EQ(ui.focus, c.focus) << c.name;
  }
  form->txtDate[0].text = "2024/09/01";
  EXPECT_EQ(form->cmdSelect(), SelectOutcome::Preview);
  EXPECT_EQ(form->selection.sales_summary.date_from, "2024/09/01");
  EXPECT_TRUE(form->SQL.empty());
}

TEST_P(SelectFormTest, AmazonNeedsAShopAndRemembersIt) {
  Pick(101);
  EXPECT_EQ(form->cmdSelect(), SelectOutcome::Stopped);
  EXPECT_EQ(ui.texts.back(), "ショップを選択して下さい。");
  form->cboShop_id.list_index = 2;
  EXPECT_EQ(form->cmdSelect(), SelectOutcome::PrintList);
  EXPECT_EQ(env->context.settings.GetSetting(0, "", "AmazonShop"), "B");
  form->cboShop_id.list_index = 0;
  Pick(101);
  EXPECT_EQ(form->cboShop_id.Text(), "B");
}

TEST_P(SelectFormTest, FieldValidationMessages) {
  form->txtDate[2].text = "2024/02/30";
  EXPECT_FALSE(form->txtDate_Validate(2));
  EXPECT_EQ(ui.texts.back(), "日付を入力してください。");
  EXPECT_EQ(ui.captions.back(), "印刷選択");
  form->txtDate[2].text = "";
  EXPECT_TRUE(form->txtDate_Validate(2));

  Pick(18);
  form->txtId[0].text = "6";
  EXPECT_FALSE(form->txtId_Validate(0));
  EXPECT_EQ(ui.texts.back(), "IDが見つかりません。");
  form->txtId[0].text = "5";
  EXPECT_TRUE(form->txtId_Validate(0));
  EXPECT_EQ(form->lblName[0].caption, "古い");

  form->txtItem_id[1].text = "NONE";
  EXPECT_FALSE(form->txtItem_id_Validate(1));
  EXPECT_EQ(ui.texts.back(), "商品IDが誤っています。");

  form->txtCustomer.text = "03-0000-0000";
  EXPECT_FALSE(form->txtCustomer_Validate());
  EXPECT_EQ(ui.texts.back(), "見つかりません。");
}

TEST_P(SelectFormTest, SpinsStepOverMonthEndsAndStopAtTheLastRecord) {
  Pick(22);
  form->txtDate[0].text = "2024/02/28";
  form->vsrlDate_Change(0, 1);
  form->vsrlDate_Change(0, 1);
  EXPECT_EQ(form->txtDate[0].text, "2024/03/01");
  form->txtId[1].text = "9";
  form->vsrlId_Change(1, -1);
  form->vsrlId_Change(1, -1);
  EXPECT_EQ(form->txtId[1].text, "5") << "no earlier record leaves the box";
}

TEST_P(SelectFormTest, DataStringsFromTheListWindows) {
  Pick(18);
  Db().Execute("INSERT INTO [CUSTOMER]([顧客NO],[顧客会社名],[顧客名],[TEL番号]) VALUES(77,'社','客','03-5555')");
  Db().Execute("INSERT INTO [ITEM]([ITEM_ID],[ITEM_NAME]) VALUES('X1','品物')");
  EXPECT_TRUE(form->S_RecvData("CUSNO=77"));
  EXPECT_EQ(form->txtCustomer.text, "03-5555");
  EXPECT_EQ(form->chkOption[0].value, 1);
  EXPECT_TRUE(form->S_RecvData("ORDERNO=5"));
  EXPECT_EQ(form->txtId[0].text, "5");
  EXPECT_EQ(form->txtId[1].text, "5");
  EXPECT_TRUE(form->S_RecvData("ITEM=X1"));
  EXPECT_EQ(form->lblItem_name[0].caption, "品物");
  EXPECT_FALSE(form->S_RecvData("CLOSEMSG"));
  EXPECT_TRUE(form->S_RecvData("CUSNO=1"));
  EXPECT_TRUE(form->txtCustomer.text.empty()) << "an unknown customer clears the box";
}

LUPIN_INSTANTIATE_ENGINES(SelectFormTest);

}  // namespace
}  // namespace lupin::run
