#include "run/staging.h"

#include <exception>

#include "common/sql.h"
#include "common/vb.h"
#include "run/print_form.h"

namespace lupin::run {

namespace {

std::string Quoted(std::string_view text) { return "'" + sql::SqlQuote(text) + "'"; }
std::string NumberOf(const common::Grid& grid, int row, int col) { return vb::Format(grid.Value(row, col)); }

constexpr std::string_view kInsertHead =
    "INSERT INTO WK_PRINT([ID], [SIMEI], [ORD_DATE], [DATE], [BIKO1], [BIKO2], [BIKO3], [ITEM_ID1], [SEK_GAKU], "
    "[EMAIL], [TEL],[YUBIN],[COMPANY],[CLIENT_NAME],[TAX],[INSHI])VALUES(";

}  // namespace

std::string OrderInsert(const common::Grid& g, int row, std::string_view client_name) {
  std::string s(kInsertHead);
  s += g.Text(row, kColId) + ",";
  s += Quoted(g.Text(row, kColName)) + ",";
  s += Quoted(g.Text(row, kColOrderDate)) + ",";
  s += Quoted(g.Text(row, kColReportDate)) + ",";
  s += Quoted(g.Text(row, kColBiko1)) + ",";
  s += Quoted(g.Text(row, kColBiko2)) + ",";
  s += Quoted(g.Text(row, kColBiko3)) + ",";
  s += Quoted(g.Text(row, kColItem1)) + ",";
  s += NumberOf(g, row, kColAmount) + ",";
  s += Quoted(g.Text(row, kColMail)) + ",";
  s += Quoted(g.Text(row, kColTel)) + ",";
  s += Quoted(g.Text(row, kColZip)) + ",";
  s += Quoted(g.Text(row, kColCompany)) + ",";
  s += Quoted(client_name) + ",";
  s += NumberOf(g, row, kColTax) + ",";
  s += g.Value(row, kColStamp) != 0 ? "1" : "0";
  s += ")";
  return s;
}

std::string CustomerInsert(const common::Grid& g, int row, int running_no, std::string_view client_name) {
  std::string s(kInsertHead);
  s += std::to_string(running_no) + ",";
  s += Quoted(g.Text(row, kCusName)) + ",";
  s += "'','','','','','',";
  s += NumberOf(g, row, kCusNo) + ",";
  s += "'',";
  s += Quoted(g.Text(row, kCusTel)) + ",";
  s += Quoted(g.Text(row, kCusZip)) + ",";
  s += Quoted(g.Text(row, kCusCompany)) + ",";
  s += Quoted(client_name) + ",";
  s += "0,";
  s += "0";
  s += ")";
  return s;
}

StagingResult StageRows(db::Connection& connection, std::string_view client_name, const common::Grid& grid,
                        bool customer_report, std::int32_t report_no) {
  StagingResult result;
  bool open = false;
  try {
    connection.BeginTrans();
    open = true;
    connection.Execute("DELETE FROM [WK_PRINT] WHERE [CLIENT_NAME] = " + Quoted(client_name));
    connection.Execute("DELETE FROM [WK_CUSTOMER] WHERE [CLIENT_NAME] = " + Quoted(client_name));
    if (!customer_report) {
      for (int row = 1; row <= grid.MaxRows(); ++row) {
        if (!grid.Checked(row)) continue;
        result.has_data = true;
        connection.Execute(OrderInsert(grid, row, client_name));
        ++result.rows;
      }
    } else if (report_no == 27) {
      result.has_data = true;
    } else {
      for (int row = 1; row <= grid.MaxRows(); ++row) {
        if (!grid.Checked(row)) continue;
        result.has_data = true;
        ++result.rows;
        connection.Execute(CustomerInsert(grid, row, result.rows, client_name));
      }
    }
    connection.CommitTrans();
    open = false;
    result.ok = true;
  } catch (const std::exception& e) {
    if (open) {
      try { connection.RollbackTrans(); } catch (const std::exception&) {}
    }
    result = StagingResult{};
    result.error = e.what();
  }
  return result;
}

}  // namespace lupin::run
