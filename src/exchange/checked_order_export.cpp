#include "exchange/checked_order_export.h"

#include <exception>

#include "common/files.h"
#include "common/text.h"
#include "exchange/checked_order_fetch.h"

namespace lupin::exchange {

std::int16_t CheckedOrderExport::Fail(std::int16_t code, std::string message) {
  error_text_ = std::move(message);
  return code;
}

std::int16_t CheckedOrderExport::Export(entry::Context& context, entry::Ui& ui, const common::Grid& grid,
                                        const std::filesystem::path& path) {
  if (path.empty()) return Fail(kExportNoPath, NoPathMessage());
  try {
    Begin(context, ui, grid);
    std::string head;
    AppendHead(head);
    std::string text = HeadAlone() ? head : std::string();
    const std::size_t lines_from = text.size();
    db::Connection& db = context.Db();
    CheckedOrderFetch orders(db, grid);
    for (int row = 1; row <= grid.MaxRows(); ++row) {
      if (grid.Text(row, 1) != "1") continue;
      const db::Recordset* order = orders.Order(row);
      if (order == nullptr) continue;
      const std::string& id = grid.Text(row, 2);
      RowFailure failure = Line(CheckedOrder{grid, row, id, *order}, db, text);
      if (failure.code != 0) return Fail(failure.code, "ID : " + id + " の" + failure.message);
    }
    if (!HeadAlone() && text.size() > lines_from) text.insert(0, head);
    // With nothing to write an earlier file stays.
    if (text.empty() && !ReplacesWhenEmpty()) return kExportDone;
    error_text_ = NotWrittenMessage();
    if (!files::ReplaceFileAtomically(path, text::ToCp932(text).bytes)) return kExportNotWritten;
    return kExportDone;
  } catch (const std::exception& e) {
    // Data layer, tax calculation: the export ends with the error's description.
    return Fail(kExportDataError, e.what());
  }
}

FileResult CheckedOrderExport::Write(entry::Context& context, entry::Ui& ui, const common::Grid& grid,
                                     const std::filesystem::path& path) {
  const std::int16_t code = Export(context, ui, grid, path);
  return {code, code == kExportDone ? std::string() : error_text_};
}

}  // namespace lupin::exchange
