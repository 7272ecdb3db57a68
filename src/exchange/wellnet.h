#pragma once
// WellNet convenience-store payments (report 92): clsWellNet writes the payment-slip request file
// for a list of orders and reads back the receipts file; clsWellNetInputRow is one receipt.
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "db/connection.h"
#include "entry/context.h"
#include "entry/ui.h"
#include "exchange/file_writer.h"

namespace lupin::exchange {

struct clsWellNetInputRow {
  std::string id, Yubin, Jusyo, Simei;
  std::int32_t Kigen = 0, Gaku = 0, NyuYmd = 0, NyuTime = 0, SyoriYmd = 0;
  std::string Kbn;
};

// A receipts line that was not kept: its line number and the reason shown for it.
struct WellNetSkippedLine {
  int line = 0;
  std::string message;
};

class clsWellNet {
 public:
  db::Connection* Database = nullptr;
  std::filesystem::path fileName;
  std::vector<std::int64_t> id;  // the orders to output
  std::string ErrorMsg;
  int KigenDays = 0;             // days from the bill date to the payment limit; 0 or 99: none
  bool DisplayMsg = true;        // a warning box for each skipped receipts line
  entry::Ui* ui = nullptr;       // where the warning boxes go

  // Writes the request file in one piece; 0 done, otherwise ErrorMsg says why.
  int OutputFile();
  // Reads the receipts file at fileName; 0 done, otherwise ErrorMsg says why.
  int InputFile();
  int InputRowCount() const { return static_cast<int>(rows_.size()); }
  const clsWellNetInputRow& InputRow(int i) const { return rows_.at(static_cast<std::size_t>(i - 1)); }
  const std::vector<WellNetSkippedLine>& SkippedLines() const { return skipped_; }

  // The receipts text (UTF-8) into rows; what InputFile does after reading the file. Raises
  // OverflowError for a number beyond a whole-number field.
  void ReadReceipts(std::string_view content);

 private:
  std::vector<clsWellNetInputRow> rows_;
  std::vector<WellNetSkippedLine> skipped_;
};

// A receipts line split into fields: with at least two double quotes, commas inside quotes do not
// split and the quotes are dropped; otherwise every comma splits.
std::vector<std::string> SplitWellNetLine(std::string_view line);

// Report 92 from the print list: the checked orders, the term from the setting WellNetKigenDays.
class WellNetWriter final : public FileWriter {
 public:
  FileResult Write(entry::Context& context, entry::Ui& ui, const common::Grid& grid,
                   const std::filesystem::path& path) override;
};

}  // namespace lupin::exchange
