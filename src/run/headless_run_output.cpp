#include "run/headless_run_output.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <ostream>

#include "common/text.h"
#include "entry/catalogue.h"
#include "run/carrier_filter.h"
#include "run/print_form.h"
#include "run/select_form.h"

namespace lupin::run {

namespace {

enum class Kind { Text, Number, Flag };

struct ColumnKey {
  int col;
  const char* key;
  Kind kind;
};

// Stable names of the print list's columns, whatever captions a report gives them.
constexpr ColumnKey kListKeys[] = {
    {kColCheck, "checked", Kind::Flag},      {kColId, "id", Kind::Number},
    {kColCompany, "company", Kind::Text},    {kColName, "name", Kind::Text},
    {kColBiko3, "biko3", Kind::Text},        {kColOrderDate, "order_date", Kind::Text},
    {kColReportDate, "date", Kind::Text},    {kColBiko1, "biko1", Kind::Text},
    {kColBiko2, "biko2", Kind::Text},        {kColItem1, "item_id1", Kind::Text},
    {kColAmount, "amount", Kind::Number},    {kColTax, "tax", Kind::Number},
    {kColStamp, "stamp", Kind::Flag},        {kColMail, "email", Kind::Text},
    {kColTel, "tel", Kind::Text},            {kColZip, "zip", Kind::Text},
};
constexpr ColumnKey kCustomerKeys[] = {
    {kCusCheck, "checked", Kind::Flag},   {kCusCompany, "company", Kind::Text}, {kCusName, "name", Kind::Text},
    {kCusAddress, "address", Kind::Text}, {kCusTel, "tel", Kind::Text},         {kCusZip, "zip", Kind::Text},
    {kCusNo, "customer_no", Kind::Number},
};

std::string Span(const std::string& from, const std::string& to) { return from == to ? from : from + " 〜 " + to; }

// Display width: a character of two Shift-JIS bytes takes two columns.
int Width(const std::string& text) { return text::ByteLen(text); }

nlohmann::ordered_json Cell(const common::Grid& grid, int row, const ColumnKey& column) {
  const std::string& text = grid.Text(row, column.col);
  switch (column.kind) {
    case Kind::Flag:
      return column.col == 1 ? grid.Checked(row) : (!text.empty() && text != "0" && text != "False");
    case Kind::Number:
      if (text.empty()) return nullptr;
      if (const double value = grid.Value(row, column.col); value == std::floor(value) && std::fabs(value) < 1e15) {
        return static_cast<long long>(value);  // whole yen and numbers print without a fraction
      }
      return grid.Value(row, column.col);
    case Kind::Text:
      break;
  }
  return text;
}

nlohmann::ordered_json CriteriaJson(const SelectForm& form) {
  nlohmann::ordered_json criteria = nlohmann::ordered_json::object();
  for (const auto& [caption, value] : AppliedCriteria(form)) criteria[caption] = value;
  return criteria;
}

}  // namespace

std::vector<std::pair<std::string, std::string>> AppliedCriteria(const SelectForm& f) {
  std::vector<std::pair<std::string, std::string>> applied;
  const auto& current = f.Context().current;
  if (current.other_tbl_name.empty()) {
    if (f.chkChumonOption[0].Checked()) applied.emplace_back(f.chkChumonOption[0].caption, Span(f.txtDate[0].text, f.txtDate[1].text));
    if (f.chkChumonOption[1].Checked()) applied.emplace_back("ID", Span(f.txtId[0].text, f.txtId[1].text));
    if (f.chkChumonOption[2].Checked() && f.cboPayment.list_index > 0) applied.emplace_back("支払方法", f.cboPayment.Text());
    if (f.cboShop_id.list_index > 0) applied.emplace_back("ショップ", f.cboShop_id.Text());
    if (f.chkChumonOption[3].Checked()) applied.emplace_back("未印字のみ", "(帳票 " + std::to_string(entry::LedgerReportNo(current.report_no)) + " の印刷台帳にない受注)");
    const auto words = CarrierWords(current.report_no);
    if (f.NoCarrierFilter == 1 && !words.empty()) {
      std::string list;
      for (const auto word : words) list += (list.empty() ? "「" : "」か「") + std::string(word);
      applied.emplace_back("配送業者", list + "」を含む");
    }
    return applied;
  }
  const auto checked = [&](int i) { return f.chkOption[static_cast<std::size_t>(i)].Checked(); };
  const auto caption = [&](int i) { return f.chkOption[static_cast<std::size_t>(i)].caption; };
  if (checked(0)) applied.emplace_back(caption(0), f.txtCustomer.text);
  if (checked(1)) applied.emplace_back(caption(1), f.cboKbn.Text());
  if (checked(2)) applied.emplace_back(caption(2), Span(f.txtDate[2].text, f.txtDate[3].text));
  if (checked(3)) applied.emplace_back(caption(3), Span(f.txtTanto[0].text, f.txtTanto[1].text));
  if (checked(4)) applied.emplace_back(caption(4), Span(f.txtTiku[0].text, f.txtTiku[1].text));
  if (checked(5)) applied.emplace_back(caption(5), f.cboNendo.Text() + " " + Span(f.txtGaku[0].text, f.txtGaku[1].text));
  if (checked(6)) applied.emplace_back(caption(6), Span(f.txtItem_id[0].text, f.txtItem_id[1].text));
  if (checked(7)) applied.emplace_back(caption(7), f.cboDMKbn.Text());
  return applied;
}

void PrintListTable(const common::Grid& grid, bool customer, const SelectForm& form, std::ostream& out) {
  (void)customer;
  std::vector<int> cols;
  for (int col = 1; col <= grid.MaxCols(); ++col) {
    if (!grid.ColHidden(col)) cols.push_back(col);
  }
  const auto cell = [&](int row, int col) -> std::string {
    if (col == 1) return row == 0 ? "" : grid.Checked(row) ? "[x]" : "[ ]";
    return grid.Text(row, col);
  };
  std::vector<int> widths(cols.size(), 0);
  for (int row = 0; row <= grid.MaxRows(); ++row) {
    for (std::size_t i = 0; i < cols.size(); ++i) widths[i] = std::max(widths[i], Width(cell(row, cols[i])));
  }
  for (int row = 0; row <= grid.MaxRows(); ++row) {
    std::string line;
    for (std::size_t i = 0; i < cols.size(); ++i) {
      const std::string text = cell(row, cols[i]);
      line += text;
      if (i + 1 < cols.size()) line += std::string(static_cast<std::size_t>(widths[i] - Width(text) + 2), ' ');
    }
    out << line << '\n';
  }
  const auto applied = AppliedCriteria(form);
  out << "条件: ";
  if (applied.empty()) out << "なし (すべて)";
  for (std::size_t i = 0; i < applied.size(); ++i) out << (i ? "、" : "") << applied[i].first << " " << applied[i].second;
  out << '\n' << grid.MaxRows() << " 件 (チェック " << grid.CheckedCount() << " 件)\n";
}

void PrintListJson(const common::Grid& grid, bool customer, const SelectForm& form, std::ostream& out) {
  nlohmann::ordered_json rows = nlohmann::ordered_json::array();
  const auto columns = customer ? std::vector<ColumnKey>(std::begin(kCustomerKeys), std::end(kCustomerKeys))
                                : std::vector<ColumnKey>(std::begin(kListKeys), std::end(kListKeys));
  for (int row = 1; row <= grid.MaxRows(); ++row) {
    nlohmann::ordered_json object = nlohmann::ordered_json::object();
    for (const ColumnKey& column : columns) object[column.key] = Cell(grid, row, column);
    rows.push_back(std::move(object));
  }
  nlohmann::ordered_json document = {{"report", form.Context().current.report_no},
                                     {"criteria", CriteriaJson(form)},
                                     {"count", grid.MaxRows()},
                                     {"checked", grid.CheckedCount()},
                                     {"rows", rows}};
  out << document.dump(1) << '\n';
}

void PrintEmptyListJson(const SelectForm& form, std::ostream& out) {
  nlohmann::ordered_json document = {{"report", form.Context().current.report_no},
                                     {"criteria", CriteriaJson(form)},
                                     {"count", 0},
                                     {"checked", 0},
                                     {"rows", nlohmann::ordered_json::array()}};
  out << document.dump(1) << '\n';
}

}  // namespace lupin::run
