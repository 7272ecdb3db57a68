#pragma once
// frmPreview, its bookkeeping half: it runs the report object through a PreviewRunner, and at the
// print command writes the ledger, then the waybill numbers, and only then prints. A cancelled
// print leaves both writes standing.
#include <string>
#include <string_view>

#include "entry/context.h"
#include "entry/ui.h"
#include "run/den_no_assign.h"
#include "run/ledger.h"
#include "run/preview_runner.h"

namespace lupin::run {

class SelectForm;

inline constexpr std::string_view kPreviewCaption = "印刷プレビュー";

class PreviewForm {
 public:
  // siryo: the request-for-material run of report 92, which books nothing.
  PreviewForm(entry::Context& context, entry::Ui& ui, const SelectForm& select, PreviewRunner& runner, bool siryo);

  // False when there is no report object (with the message, or in silence for 9-15).
  bool S_DisplayReport();
  // The bookkeeping and the print; true when the print went out.
  bool cmdPrint();

  std::string caption{kPreviewCaption};
  LedgerResult last_ledger;
  DenNoResult last_den_no;
  std::string ledger_date;  // "YYYYMMDD"; today when empty

 private:
  entry::Context& context_;
  entry::Ui& ui_;
  const SelectForm& select_;
  PreviewRunner& runner_;
  bool siryo_;
};

}  // namespace lupin::run
