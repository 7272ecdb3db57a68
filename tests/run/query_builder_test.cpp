#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "run/query_builder.h"
#include "run/run_test_support.h"
#include "run/select_form.h"

namespace lupin::run {
namespace {

using Setup = std::function<void(SelectForm&, entry::ReportDefinition&)>;

struct SqlCase {
  const char* name;
  Setup setup;
  std::string expected;
  int no_carrier_filter = 0;
  std::string list_sort;
};

// A form in the state after a report change: nothing checked, shop "すべて", payments of all shops
// with the cash-on-delivery pair.
struct BlankForm {
  BlankForm() : form(env.context, ui) {
    for (auto& box : form.chkChumonOption) box.value = 0;
    form.cboShop_id.AddItem("すべて", 0);
    form.cboShop_id.AddItem("A");
    form.cboShop_id.AddItem("O'Neil");
    form.cboShop_id.list_index = 0;
    for (const char* item : {"すべて", "代引以外", "代引", "銀行振込"}) form.cboPayment.AddItem(item);
    form.cod_position = 2;
    form.cboPayment.list_index = 0;
    auto& def = env.context.current;
    def.report_no = 18;
    def.date_field = "出荷日";
  }
  testing::TestContext env{nullptr};
  testing::ListUi ui;
  SelectForm form;
};

void ExpectStatements(const std::vector<SqlCase>& cases) {
  for (const SqlCase& c : cases) {
    SCOPED_TRACE(c.name);
    BlankForm blank;
    c.setup(blank.form, blank.env.context.current);
    const Selection selection = BuildSelection(blank.form, c.list_sort);
    EXPECT_EQ(selection.sql, c.expected);
    EXPECT_EQ(selection.no_carrier_filter, c.no_carrier_filter);
  }
}

const std::string kOrderBy = " ORDER BY [CHUMON].[ID] ";
const std::string kCustomerOrder = " ORDER BY [郵便番号],[顧客NO]";
const std::string kItemJoin =
    "[顧客NO]  IN (SELECT DISTINCT CUSTOMER.顧客NO FROM (CHUMON_D INNER JOIN CHUMON ON CHUMON_D.ID = CHUMON.ID) "
    "INNER JOIN CUSTOMER ON CHUMON.顧客番号 = CUSTOMER.顧客NO";

void Customer(SelectForm& f, entry::ReportDefinition& d) {
  d.report_no = 23;
  d.other_tbl_name = "CUSTOMER";
  for (auto& box : f.chkOption) box.value = 0;
}

TEST(QueryBuilder, OrderStatements) {
  ExpectStatements({
        SqlCase{"NoCriterionListsEveryOrder", [](auto&, auto&) {}, "SELECT [CHUMON].* FROM [CHUMON]" + kOrderBy, 1},
        SqlCase{"UnprintedOnly",
                [](SelectForm& f, auto&) { f.chkChumonOption[3].value = 1; },
                "SELECT [CHUMON].* FROM [CHUMON] WHERE [ID] NOT IN (SELECT [ID] FROM [PRINTED] WHERE [REPORT_NO] = 18)" +
                    kOrderBy,
                1},
        SqlCase{"DatesGoInAsTyped",
                [](SelectForm& f, auto&) {
                  f.chkChumonOption[0].value = 1;
                  f.txtDate[0].text = "2024/4/1";
                  f.txtDate[1].text = "2024/04/30";
                },
                "SELECT [CHUMON].* FROM [CHUMON] WHERE ([出荷日] BETWEEN '2024/4/1' AND '2024/04/30')" + kOrderBy, 1},
        SqlCase{"IdRangeTurnsTheCarrierFilterOff",
                [](SelectForm& f, auto&) {
                  f.chkChumonOption[1].value = 1;
                  f.txtId[0].text = "0010";
                  f.txtId[1].text = "20abc";
                },
                "SELECT [CHUMON].* FROM [CHUMON] WHERE ([ID] BETWEEN 10 AND 20)" + kOrderBy, 0},
        SqlCase{"PaymentItemOneExcludesCashOnDelivery",
                [](SelectForm& f, auto&) {
                  f.chkChumonOption[2].value = 1;
                  f.cboPayment.list_index = 1;
                },
                "SELECT [CHUMON].* FROM [CHUMON] WHERE ([支払方法] <> '代引')" + kOrderBy, 1},
        SqlCase{"PaymentMethodByPrefix",
                [](SelectForm& f, auto&) {
                  f.chkChumonOption[2].value = 1;
                  f.cboPayment.list_index = 3;
                },
                "SELECT [CHUMON].* FROM [CHUMON] WHERE ([支払方法] LIKE '銀行振込%')" + kOrderBy, 1},
        SqlCase{"AllCriteriaInOrderWithMappedLedger",
                [](SelectForm& f, entry::ReportDefinition& d) {
                  d.report_no = 96;
                  d.date_field = "受注日";
                  for (auto& box : f.chkChumonOption) box.value = 1;
                  f.txtDate[0].text = "2024/01/01";
                  f.txtDate[1].text = "2024/12/31";
                  f.txtId[0].text = "1";
                  f.txtId[1].text = "99";
                  f.cboPayment.list_index = 2;
                  f.cboShop_id.list_index = 2;
                },
                "SELECT [CHUMON].* FROM [CHUMON] WHERE ([受注日] BETWEEN '2024/01/01' AND '2024/12/31') AND "
                "([ID] BETWEEN 1 AND 99) AND ([支払方法] LIKE '代引%') AND [ショップID] = 'O''Neil' AND [ID] NOT IN "
                "(SELECT [ID] FROM [PRINTED] WHERE [REPORT_NO] = 91)" + kOrderBy,
                0},
  });
}

TEST(QueryBuilder, CustomerStatements) {
  ExpectStatements({
        SqlCase{"NoCriterion", Customer, "SELECT * FROM [CUSTOMER]" + kCustomerOrder},
        SqlCase{"TelephoneDigitsOnly",
                [](SelectForm& f, entry::ReportDefinition& d) {
                  Customer(f, d);
                  f.chkOption[0].value = 1;
                  f.txtCustomer.text = "03-1234-5678";
                },
                "SELECT * FROM [CUSTOMER] WHERE ([検索用TEL番号] = '0312345678')" + kCustomerOrder},
        SqlCase{"KindByItemData",
                [](SelectForm& f, entry::ReportDefinition& d) {
                  Customer(f, d);
                  f.chkOption[1].value = 1;
                  f.cboKbn.list_index = 2;
                },
                "SELECT * FROM [CUSTOMER] WHERE ([顧客区分] = 2)" + kCustomerOrder},
        SqlCase{"LastSaleHalfWithDialectDelimiter",
                [](SelectForm& f, entry::ReportDefinition& d) {
                  Customer(f, d);
                  f.Context().dialect = 1;
                  f.chkOption[2].value = 1;
                  f.txtDate[2].text = "2024/01/01";
                  f.txtDate[3].text = "";
                },
                "SELECT * FROM [CUSTOMER] WHERE ([最終取引日] >= #2024/01/01#)" + kCustomerOrder},
        SqlCase{"StaffZipAndSalesRanges",
                [](SelectForm& f, entry::ReportDefinition& d) {
                  Customer(f, d);
                  f.chkOption[3].value = 1;
                  f.txtTanto[0].text = "05";
                  f.txtTanto[1].text = "7";
                  f.chkOption[4].value = 1;
                  f.txtTiku[0].text = "100";
                  f.txtTiku[1].text = "1'9";
                  f.chkOption[5].value = 1;
                  f.cboNendo.Clear();
                  f.cboNendo.AddItem("2023", 2023);
                  f.cboNendo.list_index = 0;
                  f.txtGaku[0].text = "1,000";
                },
                "SELECT * FROM [CUSTOMER] WHERE ([担当者コード] >= 5) AND ([担当者コード] <= 7) AND ([郵便番号] >= '100') "
                "AND ([郵便番号] <= '1''9') AND ([年度純売上額2023] >= 1000)" + kCustomerOrder},
        SqlCase{"ItemBothBoundsAndDirectMail",
                [](SelectForm& f, entry::ReportDefinition& d) {
                  Customer(f, d);
                  f.chkOption[6].value = 1;
                  f.txtItem_id[0].text = "A";
                  f.txtItem_id[1].text = "B";
                  f.chkOption[7].value = 1;
                  f.cboDMKbn.list_index = 2;
                },
                "SELECT * FROM [CUSTOMER] WHERE " + kItemJoin +
                    " WHERE [CHUMON_D].[ITEM_ID] >= 'A' AND [CHUMON_D].[ITEM_ID] <= 'B') AND ([DM区分3] = 1)" +
                    kCustomerOrder},
  });
}

class FilterTest : public ::testing::Test, public BlankForm {};

TEST_F(FilterTest, ItemListTakesShopPeriodKindAndOrder) {
  env.context.current.report_no = 35;
  form.cboShop_id2.AddItem("すべて", 0);
  form.cboShop_id2.AddItem("B");
  form.cboShop_id2.list_index = 1;
  form.txtDate[5].text = "2024/03/01";
  form.txtDate[4].text = "2024/03/31";
  form.cboDate.list_index = 1;
  form.cboOrderBy.list_index = 2;
  form.chkDate.value = 0;
  Selection off = BuildSelection(form, "");
  EXPECT_EQ(off.item_list, (ItemListFilter{"B", "", "", 1, 2}));
  EXPECT_TRUE(off.sql.empty());
  form.chkDate.value = 1;
  form.cboShop_id2.list_index = 0;
  EXPECT_EQ(BuildSelection(form, "").item_list, (ItemListFilter{"", "2024/03/01", "2024/03/31", 1, 2}));
}

TEST_F(FilterTest, SalesSummaryResolvesTheCashOnDeliveryItem) {
  env.context.current.report_no = 45;
  form.chkChumonOption[0].value = 1;
  form.txtDate[0].text = "2024/01/01";
  form.txtDate[1].text = "2024/01/31";
  form.chkChumonOption[1].value = 1;
  form.txtId[0].text = "5";
  form.txtId[1].text = "9";
  form.chkChumonOption[2].value = 1;
  form.cboPayment.list_index = 1;
  form.cboShop_id.list_index = 1;
  EXPECT_EQ(BuildSelection(form, "").sales_summary,
            (SalesSummaryFilter{"2024/01/01", "2024/01/31", "5", "9", "代引", "A", true}));
  form.cboPayment.list_index = 3;
  form.chkChumonOption[1].value = 0;
  form.cboShop_id.list_index = -1;
  EXPECT_EQ(BuildSelection(form, "").sales_summary,
            (SalesSummaryFilter{"2024/01/01", "2024/01/31", "", "", "銀行振込", ""}));
  form.chkChumonOption[2].value = 0;
  EXPECT_EQ(BuildSelection(form, "").sales_summary.payment, "");
}

}  // namespace
}  // namespace lupin::run
