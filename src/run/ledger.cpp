#include "run/ledger.h"

#include <exception>
#include <vector>

#include "common/sql.h"
#include "common/text.h"
#include "common/vb.h"
#include "entry/catalogue.h"
#include "run/conflict_retry.h"
#include "run/print_form.h"

namespace lupin::run {

namespace {

std::string Quoted(std::string_view text) { return "'" + sql::SqlQuote(text) + "'"; }

// The three statements of one ledger row, with the order id still to append.
struct LedgerStatements {
  std::string count, update, insert;

  LedgerStatements(std::int32_t number, std::string_view date, bool raise_count) {
    const std::string n = std::to_string(number);
    count = "SELECT COUNT(*) AS CNT FROM [PRINTED] WHERE [REPORT_NO] = " + n + " AND [ID] = ";
    update = raise_count ? "UPDATE [PRINTED] SET [CNT] = [CNT] + 1,[UPDATE] = " + std::string(date) +
                               " WHERE [REPORT_NO] = " + n + " AND [ID] = "
                         : "UPDATE [PRINTED] SET [UPDATE] = " + std::string(date) + " WHERE [REPORT_NO] = " + n +
                               " AND [ID] = ";
    insert = "INSERT INTO [PRINTED]([REPORT_NO],[UPDATE],[ID])VALUES(" + n + "," + std::string(date) + ",";
  }

  void Write(db::Connection& connection, std::string_view id) const {
    auto rs = connection.Open(count + std::string(id));
    const bool exists = !rs.Eof() && rs["CNT"].Number() > 0;
    if (exists) {
      connection.Execute(update + std::string(id));
    } else {
      connection.Execute(insert + std::string(id) + ")");
    }
  }
};

std::vector<std::string> SplitIds(std::string_view id_string) {
  std::vector<std::string> ids;
  std::size_t start = 0;
  while (true) {
    const auto comma = id_string.find(',', start);
    std::string_view piece = id_string.substr(start, comma == std::string_view::npos ? std::string_view::npos : comma - start);
    while (!piece.empty() && piece.front() == ' ') piece.remove_prefix(1);
    while (!piece.empty() && piece.back() == ' ') piece.remove_suffix(1);
    ids.emplace_back(piece);
    if (comma == std::string_view::npos) break;
    start = comma + 1;
  }
  return ids;
}

int GeneralRule(db::Connection& c, std::string_view client, const LedgerStatements& ledger) {
  auto rs = c.Open("SELECT [ID] FROM [WK_PRINT] WHERE [CLIENT_NAME] = " + Quoted(client));
  int rows = 0;
  for (; !rs.Eof(); rs.MoveNext(), ++rows) ledger.Write(c, rs["ID"].Text());
  return rows;
}

// Orders dropped from the list as duplicates of a printed person count as printed too.
int LabelRule(db::Connection& c, std::string_view client, const LedgerStatements& ledger) {
  auto people = c.Open("SELECT [SIMEI],[TEL] FROM [WK_PRINT] WHERE [CLIENT_NAME] = " + Quoted(client));
  int rows = 0;
  for (; !people.Eof(); people.MoveNext()) {
    const std::string tel = people["TEL"].Text();
    std::string statement = "SELECT [ID] FROM [CHUMON] WHERE [氏名] = " + Quoted(people["SIMEI"].Text());
    statement += tel.empty() ? std::string(" AND [検索用電話番号] IS NULL") : " AND [検索用電話番号] = " + Quoted(tel);
    auto orders = c.Open(statement);
    for (; !orders.Eof(); orders.MoveNext(), ++rows) ledger.Write(c, orders["ID"].Text());
  }
  return rows;
}

// The billing number of a statement is the order number of its first order.
int BillingRule(db::Connection& c, std::string_view client, const LedgerStatements& ledger) {
  auto statements = c.Open("SELECT [ID_STRING],[出荷日],[請求額] FROM [WK_SEIKYU] WHERE [CLIENT_NAME] = " + Quoted(client));
  int rows = 0;
  std::string last_id_string;
  for (; !statements.Eof(); statements.MoveNext()) {
    const std::string id_string = statements["ID_STRING"].Text();
    if (id_string.empty()) continue;
    const auto ids = SplitIds(id_string);
    std::vector<std::int64_t> order_ids(ids.size()), amounts(ids.size());
    for (std::size_t j = 0; j < ids.size(); ++j) {
      const std::string& id = ids[j];
      ledger.Write(c, id);
      ++rows;
      order_ids[j] = static_cast<std::int64_t>(vb::Val(id));
      auto order = c.Open("SELECT [ID],[請求額] FROM [CHUMON] WHERE [ID] = " + id);
      amounts[j] = order.Eof() ? 0 : order["請求額"].Long();

      const std::string first = ids.front();
      auto group = c.Open("SELECT [請求NO] FROM [SEIKYU_S] WHERE [注文番号] = " + id);
      const std::string insert = "INSERT INTO [SEIKYU_S] VALUES(" + id + "," + first + ")";
      if (group.Eof()) {
        c.Execute(insert);
      } else if (text::TextInStr(last_id_string, id_string) == 0) {
        c.Execute("DELETE FROM [SEIKYU_S] WHERE [請求NO] = " + group["請求NO"].Text());
        c.Execute(insert);
      } else {
        c.Execute("UPDATE [SEIKYU_S] SET [請求NO] = " + first + " WHERE [注文番号] = " + id);
      }
      last_id_string = id_string;
    }
  }
  return rows;
}

}  // namespace

std::string LedgerDate() { return vb::FormatDate(vb::Today(), "yyyymmdd"); }

void WriteFileLedger(db::Connection& connection, std::int32_t report_no, const common::Grid& spr_list,
                     std::string_view date) {
  const LedgerStatements ledger(entry::LedgerReportNo(report_no), date, true);
  RetryOnConflict([&] {
    db::Transaction transaction(connection);
    for (int row = 1; row <= spr_list.MaxRows(); ++row) {
      if (spr_list.Checked(row)) ledger.Write(connection, spr_list.Text(row, kColId));
    }
    transaction.Commit();
  });
}

LedgerResult WritePreviewLedger(db::Connection& connection, std::string_view client_name, std::int32_t report_no,
                                bool dedupe, std::string_view date) {
  LedgerResult result;
  const std::int32_t number = entry::LedgerReportNo(report_no);
  if (entry::IsDirectReport(number)) return result;
  const LedgerStatements ledger(number, date, false);
  try {
    result.rows = RetryOnConflict([&] {
      db::Transaction transaction(connection);
      int rows = 0;
      if (number == 22 && dedupe) {
        rows = LabelRule(connection, client_name, ledger);
      } else if (number == 24) {
        rows = BillingRule(connection, client_name, ledger);
      } else {
        rows = GeneralRule(connection, client_name, ledger);
      }
      transaction.Commit();
      return rows;
    });
  } catch (const std::exception& e) {
    result = LedgerResult{false, 0, e.what()};
  }
  return result;
}

}  // namespace lupin::run
