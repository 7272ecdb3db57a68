#pragma once
// frmPrint: the print list. It runs the selection's statement, shows the rows with a check mark
// each, and on cmdPrint stages the checked rows or writes the file of a file report. The grid is
// the hand-over: staging and the file writers read it, not the database.
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "common/grid.h"
#include "entry/context.h"
#include "entry/ui.h"
#include "run/controls.h"
#include "run/file_report_dispatch.h"

namespace lupin::run {

class SelectForm;

inline constexpr std::string_view kPrintCaption = "印刷一覧";

// sprList columns.
enum ListColumn : int {
  kColCheck = 1, kColId, kColCompany, kColName, kColBiko3, kColOrderDate, kColReportDate, kColBiko1,
  kColBiko2, kColItem1, kColAmount, kColTax, kColStamp, kColMail, kColTel, kColZip,
  kListColumns = kColZip,
};
// sprCustomer columns.
enum CustomerColumn : int {
  kCusCheck = 1, kCusCompany, kCusName, kCusAddress, kCusTel, kCusZip, kCusNo,
  kCustomerColumns = kCusNo,
};

// A net amount at or above this needs a revenue stamp on the receipt.
inline constexpr double kStampThreshold = 30000;

// What cmdPrint led to.
enum class PrintOutcome {
  Preview,     // rows staged, the preview follows
  NothingChecked,
  FileWritten,
  Failed,      // a message was shown; the form stays open
};

class PrintForm {
 public:
  PrintForm(entry::Context& context, entry::Ui& ui, const SelectForm& select);

  // Each activation; the list is loaded at the first one. False when the list is empty and the
  // form closed itself after its message.
  bool Form_Activate();
  void LoadList();
  // Sum of the order's three tax amounts in CHUMON_T, 0 without a row.
  double OrderTaxTotal(std::int64_t id);
  // Appends "HH:NN:SS<TAB>text" to trace.log in the component directory.
  void Trace(std::string_view text);

  void cmdAllSelect();
  void cmdAllEject();
  PrintOutcome cmdPrint();
  // Report 92's printed request-for-material run: the checked orders go to WK_PRINT, which
  // rptWellNet reads, and the preview follows; nothing is booked.
  PrintOutcome cmdSiryo();
  // The start of the file dialog of cmdPath, and the confirmed choice.
  FileReportTarget cmdPath_Start() const;
  void cmdPath_Confirm(std::string_view path);

  // The grid of the report: sprCustomer for customer reports, else sprList.
  common::Grid& VisibleGrid();
  const common::Grid& VisibleGrid() const;
  bool CustomerReport() const;

  // Called for a report with no writer of its own; by default the writers of the catalogue.
  std::function<std::unique_ptr<exchange::FileWriter>(std::int32_t report_no)> writer_for = FileWriterFor;
  // Called with the row number after each row added, for a progress display.
  std::function<void(int row)> progress;
  // Today as "YYYYMMDD" for the ledger; replaceable so a test can pin the date.
  std::function<std::string()> ledger_date;

  bool Siryo = false;
  bool unloaded = false;
  int staged_rows = 0;  // rows written to WK_PRINT by the last cmdPrint or cmdSiryo

  common::Grid sprList{0, kListColumns};
  common::Grid sprCustomer{0, kCustomerColumns};
  Button cmdPrintButton{"ﾌﾟﾚﾋﾞｭｰ"};
  Button cmdPathButton{"出力先", false};
  Button cmdSiryoButton{" 資料請求   印刷", false};
  Button cmdAllSelectButton{"全選択"};
  Button cmdAllEjectButton{"全解除"};
  Button cmdClose{"閉じる"};

 private:
  void Message(std::string_view text, int style = entry::kInformation);
  void PrepareColumns();
  PrintOutcome PrintFile();
  PrintOutcome StageAndPreview();

  // trace.log held open while the list loads: one line per row would otherwise cost an open and a
  // close each. Every line is still written at once, so the file holds everything up to a crash.
  int trace_fd_ = -1;
  std::int64_t trace_second_ = -1;
  char trace_clock_[16] = {};

  entry::Context& context_;
  entry::Ui& ui_;
  const SelectForm& select_;
  bool activated_ = false;
};

// The caption of cmdPrint for a report number.
std::string PrintButtonCaption(std::int32_t report_no);

}  // namespace lupin::run
