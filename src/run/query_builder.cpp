#include "run/query_builder.h"

#include "common/sql.h"
#include "common/vb.h"
#include "entry/catalogue.h"
#include "entry/print_list_order.h"
#include "run/select_form.h"

namespace lupin::run {

namespace {

std::string NumberText(std::string_view text) { return vb::Format(vb::Val(text)); }

void Join(std::string& conditions, std::string_view condition) {
  if (!conditions.empty()) conditions += " AND ";
  conditions += condition;
}

ItemListFilter ItemListOf(const SelectForm& f) {
  ItemListFilter filter;
  if (f.cboShop_id2.list_index != 0) filter.shop = f.cboShop_id2.Text();
  if (f.chkDate.Checked()) {
    filter.date_from = f.txtDate[5].text;
    filter.date_to = f.txtDate[4].text;
  }
  filter.date_kind = f.cboDate.list_index;
  filter.sort_kind = f.cboOrderBy.list_index;
  return filter;
}

SalesSummaryFilter SalesSummaryOf(const SelectForm& f) {
  SalesSummaryFilter filter;
  if (f.chkChumonOption[0].Checked()) {
    filter.date_from = f.txtDate[0].text;
    filter.date_to = f.txtDate[1].text;
  }
  if (f.chkChumonOption[1].Checked()) {
    filter.id_from = f.txtId[0].text;
    filter.id_to = f.txtId[1].text;
  }
  if (f.chkChumonOption[2].Checked()) {
    const int index = f.cboPayment.list_index;
    if (index == 1 && f.cod_position > 0) {
      filter.payment = f.cboPayment.items[static_cast<std::size_t>(f.cod_position)];
      filter.payment_excluded = true;
    } else if (index > 0) {
      filter.payment = f.cboPayment.Text();
    }
  }
  if (f.cboShop_id.list_index > 0) filter.shop = f.cboShop_id.Text();
  return filter;
}

std::string OrderStatement(const SelectForm& f, std::string_view list_sort, int& no_carrier_filter) {
  const auto& def = f.Context().current;
  std::string conditions;
  if (!f.chkChumonOption[1].Checked()) no_carrier_filter = 1;
  if (f.chkChumonOption[0].Checked()) {
    // The dates go in as typed: the form already refused what is not a date.
    Join(conditions, "([" + def.date_field + "] BETWEEN '" + f.txtDate[0].text + "' AND '" + f.txtDate[1].text + "')");
  }
  if (f.chkChumonOption[1].Checked()) {
    Join(conditions, "([ID] BETWEEN " + NumberText(f.txtId[0].text) + " AND " + NumberText(f.txtId[1].text) + ")");
  }
  if (f.chkChumonOption[2].Checked()) {
    const int index = f.cboPayment.list_index;
    if (index == 1 && f.cod_position > 0) {
      Join(conditions, "([支払方法] <> '" + f.cboPayment.items[static_cast<std::size_t>(f.cod_position)] + "')");
    } else if (index != 0) {
      Join(conditions, "([支払方法] LIKE '" + f.cboPayment.Text() + "%')");
    }
  }
  if (f.cboShop_id.list_index > 0) {
    Join(conditions, "[ショップID] = '" + sql::SqlQuote(f.cboShop_id.Text()) + "'");
  }

  std::string statement;
  if (!f.chkChumonOption[3].Checked()) {
    statement = conditions.empty() ? std::string("SELECT [CHUMON].* FROM [CHUMON]")
                                   : "SELECT [CHUMON].* FROM [CHUMON] WHERE " + conditions;
  } else {
    statement = conditions.empty() ? std::string("SELECT [CHUMON].* FROM [CHUMON] WHERE [ID] NOT IN (")
                                   : "SELECT [CHUMON].* FROM [CHUMON] WHERE " + conditions + " AND [ID] NOT IN (";
    statement += PrintedExclusion(def.report_no);
  }
  return statement + entry::OrderListOrder(list_sort);
}

std::string CustomerStatement(const SelectForm& f) {
  const int dialect = f.Context().dialect;
  const std::string delimiter = sql::DialectFragment(dialect, 1);
  std::string conditions;
  if (f.chkOption[0].Checked()) Join(conditions, "([検索用TEL番号] = '" + sql::NumericText(f.txtCustomer.text) + "')");
  if (f.chkOption[1].Checked()) Join(conditions, "([顧客区分] = " + std::to_string(f.cboKbn.ItemData()) + ")");
  if (f.chkOption[2].Checked()) {
    if (!f.txtDate[2].text.empty()) Join(conditions, "([最終取引日] >= " + delimiter + f.txtDate[2].text + delimiter + ")");
    if (!f.txtDate[3].text.empty()) Join(conditions, "([最終取引日] <= " + delimiter + f.txtDate[3].text + delimiter + ")");
  }
  if (f.chkOption[3].Checked()) {
    if (!f.txtTanto[0].text.empty()) Join(conditions, "([担当者コード] >= " + NumberText(f.txtTanto[0].text) + ")");
    if (!f.txtTanto[1].text.empty()) Join(conditions, "([担当者コード] <= " + NumberText(f.txtTanto[1].text) + ")");
  }
  if (f.chkOption[4].Checked()) {
    if (!f.txtTiku[0].text.empty()) Join(conditions, "([郵便番号] >= '" + sql::SqlQuote(f.txtTiku[0].text) + "')");
    if (!f.txtTiku[1].text.empty()) Join(conditions, "([郵便番号] <= '" + sql::SqlQuote(f.txtTiku[1].text) + "')");
  }
  if (f.chkOption[5].Checked() && f.cboNendo.list_index != -1) {
    const std::string column = "([年度純売上額" + f.cboNendo.Text();
    if (!f.txtGaku[0].text.empty()) Join(conditions, column + "] >= " + sql::NumericText(f.txtGaku[0].text) + ")");
    if (!f.txtGaku[1].text.empty()) Join(conditions, column + "] <= " + sql::NumericText(f.txtGaku[1].text) + ")");
  }
  if (f.chkOption[6].Checked()) {
    std::string condition =
        "[顧客NO]  IN (SELECT DISTINCT CUSTOMER.顧客NO FROM (CHUMON_D INNER JOIN CHUMON ON CHUMON_D.ID = CHUMON.ID) "
        "INNER JOIN CUSTOMER ON CHUMON.顧客番号 = CUSTOMER.顧客NO";
    const bool from = !f.txtItem_id[0].text.empty();
    if (from) condition += " WHERE [CHUMON_D].[ITEM_ID] >= '" + sql::SqlQuote(f.txtItem_id[0].text) + "'";
    if (!f.txtItem_id[1].text.empty()) {
      condition += from ? " AND " : " WHERE ";
      condition += "[CHUMON_D].[ITEM_ID] <= '" + sql::SqlQuote(f.txtItem_id[1].text) + "'";
    }
    condition += ")";
    Join(conditions, condition);
  }
  if (f.chkOption[7].Checked() && f.cboDMKbn.list_index != -1) {
    Join(conditions, "([DM区分" + std::to_string(f.cboDMKbn.ItemData()) + "] = 1)");
  }
  return conditions.empty() ? std::string("SELECT * FROM [CUSTOMER] ORDER BY [郵便番号],[顧客NO]")
                            : "SELECT * FROM [CUSTOMER] WHERE " + conditions + " ORDER BY [郵便番号],[顧客NO]";
}

}  // namespace

std::string PrintedExclusion(std::int32_t report_no) {
  return "SELECT [ID] FROM [PRINTED] WHERE [REPORT_NO] = " + std::to_string(entry::LedgerReportNo(report_no)) + ")";
}

Selection BuildSelection(const SelectForm& form, std::string_view list_sort) {
  Selection result;
  const auto& def = form.Context().current;
  if (def.report_no == 35) {
    result.item_list = ItemListOf(form);
  } else if (entry::IsSalesSummaryReport(def.report_no)) {
    result.sales_summary = SalesSummaryOf(form);
  } else if (entry::ListsCustomers(def.other_tbl_name)) {
    result.sql = CustomerStatement(form);
  } else {
    result.sql = OrderStatement(form, list_sort, result.no_carrier_filter);
  }
  return result;
}

}  // namespace lupin::run
