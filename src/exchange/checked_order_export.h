#pragma once
// The flow every file of checked print-list orders shares: no path gives code 1; each checked row's
// order is read (a vanished order is passed over in silence); a row that fails ends the export with
// its code and "ID : n の" + its message; the whole text is built in memory and, when there is
// something to write, converted to Shift-JIS and put in place of the old file atomically, so a
// failed export leaves the old file as it was. Any other error (a failing statement, a tax
// that cannot be computed) gives code 440 and its text.
//
// A writer supplies its messages, an optional head and Line(order) → failure.
#include <cstdint>
#include <filesystem>
#include <string>

#include "common/grid.h"
#include "db/connection.h"
#include "entry/context.h"
#include "entry/ui.h"
#include "exchange/file_writer.h"

namespace lupin::exchange {

inline constexpr std::int16_t kExportDone = 0;
inline constexpr std::int16_t kExportNoPath = 1;
inline constexpr std::int16_t kExportNotWritten = 2;
// A failing statement of the data layer; its description is the failure text.
inline constexpr std::int16_t kExportDataError = 440;

// A row's failure: code 0 means the line was appended.
struct RowFailure {
  std::int16_t code = 0;
  std::string message;  // without the "ID : n の" prefix
};

// One checked row of the print list and its order.
struct CheckedOrder {
  const common::Grid& grid;
  int row;                     // grid row
  const std::string& id;       // grid column 2, as the prefix shows it
  const db::Recordset& order;  // positioned on "SELECT * FROM CHUMON WHERE ID = " id
  const std::string& Cell(int col) const { return grid.Text(row, col); }
  std::string Field(std::string_view name) const { return order[name].Text(); }
};

class CheckedOrderExport : public FileWriter {
 public:
  FileResult Write(entry::Context& context, entry::Ui& ui, const common::Grid& grid,
                   const std::filesystem::path& path) override;
  // The export entry: the result code, with ErrorText() holding the message.
  std::int16_t Export(entry::Context& context, entry::Ui& ui, const common::Grid& grid,
                      const std::filesystem::path& path);
  // The message of the last export; after a successful write it still holds the write-failure text.
  const std::string& ErrorText() const { return error_text_; }

 protected:
  virtual std::string NoPathMessage() const { return "出荷データ出力先が設定されていません。"; }
  virtual std::string NotWrittenMessage() const { return "出荷データファイルに書込みできませんでした。"; }
  // Once per export, before the first row: read the report's texts and side files.
  virtual void Begin(entry::Context& context, entry::Ui& ui, const common::Grid& grid) {
    (void)context, (void)ui, (void)grid;
  }
  // The lines before the first order's.
  virtual void AppendHead(std::string& out) const { (void)out; }
  // True when the head alone is a file worth writing; otherwise it goes out only with lines.
  virtual bool HeadAlone() const { return true; }
  // True when even an empty text replaces the file, as opening a file for output did.
  virtual bool ReplacesWhenEmpty() const { return false; }
  virtual RowFailure Line(const CheckedOrder& order, db::Connection& db, std::string& out) = 0;

 private:
  std::int16_t Fail(std::int16_t code, std::string message);

  std::string error_text_;
};

}  // namespace lupin::exchange
