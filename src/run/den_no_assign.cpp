#include "run/den_no_assign.h"

#include <exception>

#include "common/sql.h"
#include "common/vb.h"
#include "entry/print_list_order.h"
#include "reports/slips/den_no.h"
#include "run/conflict_retry.h"

namespace lupin::run {

DenNoResult AssignDenNo(db::Connection& connection, std::string_view client_name, std::string_view start_number,
                        bool re_den_no, int count, std::string_view list_sort) {
  DenNoResult result;
  if (start_number.empty()) return result;
  reports::DenNoSeries series;
  series.PrepareDenNo(start_number);
  series.MakeDenNoSeries(start_number, count);
  bool open = false;
  // Every failure ends the same way: rolled back, series erased, no message.
  const auto give_up = [&](std::string error) {
    if (open) {
      try { connection.RollbackTrans(); } catch (const std::exception&) {}
    }
    series.ClearDenNo();
    return DenNoResult{DenNoOutcome::RolledBack, 0, std::move(error)};
  };
  // The statement for "only orders without a number" was always put together with arithmetic
  // on its texts and failed before it ran, so numbering only ever happens with chkReDenNo on.
  if (!re_den_no) {
    try {
      connection.BeginTrans();
      open = true;
    } catch (const std::exception& e) {
      return give_up(e.what());
    }
    return give_up("型が一致しません。");
  }
  try {
    result.numbered = RetryOnConflict([&] {
      db::Transaction transaction(connection);
      // The print list's order, which the slips follow too: slip k carries number k.
      auto rs = connection.Open("SELECT [WK_PRINT].[ID] FROM [WK_PRINT],[CHUMON] WHERE [WK_PRINT].[ID] = [CHUMON].[ID]"
                                " AND [WK_PRINT].[CLIENT_NAME] = '" + sql::SqlQuote(client_name) + "'" +
                                entry::OrderListOrder(list_sort));
      const auto& numbers = series.Series();
      int numbered = 0;
      for (std::size_t i = 0; !rs.Eof(); rs.MoveNext(), ++i) {
        if (i >= numbers.size()) throw db::DbError("インデックスが有効範囲にありません。");
        connection.Execute("UPDATE [CHUMON] SET [出荷伝票番号] = '" + numbers[i] + "' WHERE [ID] = " +
                           vb::Format(rs["ID"].Number()));
        ++numbered;
      }
      transaction.Commit();
      return numbered;
    });
  } catch (const std::exception& e) {
    return give_up(e.what());
  }
  series.ClearDenNo();
  result.outcome = DenNoOutcome::Assigned;
  return result;
}

}  // namespace lupin::run
