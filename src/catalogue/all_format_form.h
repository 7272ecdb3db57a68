#pragma once
// frmAllFormat: which reports the selection form offers, and in which order. The grid holds a
// check bound to ENABLED, the name and the hidden number; a row's position is its order.
#include <cstdint>
#include <string_view>

#include "common/controls.h"
#include "common/grid.h"
#include "entry/context.h"
#include "entry/ui.h"

namespace lupin::catalogue {

inline constexpr std::string_view kAllFormatCaption = "帳票設定";

// sprList columns of frmAllFormat.
enum AllFormatColumn : int { kFmtEnabled = 1, kFmtName, kFmtReportNo, kAllFormatColumns = kFmtReportNo };

class AllFormatForm {
 public:
  AllFormatForm(entry::Context& context, entry::Ui& ui);

  void Form_Load();
  // Move the selected row (sprList.Row()) one up or down; the selection follows. Nothing at the ends.
  void cmdUpper();
  void cmdLower();
  // The report number of the selected row, made current, for the print settings; 0 without a row.
  std::int32_t cmdSetting();
  // Asks to save; on yes writes ENABLED and ORD of every row in grid order. Returns true when the
  // form closes (the selection form then reloads its list).
  bool cmdClose();
  // The statements of a save, in order.
  void Save();

  common::Grid sprList{0, kAllFormatColumns};
  common::Button cmdUpperButton{"↑"};
  common::Button cmdLowerButton{"↓"};
  common::Button cmdSettingButton{"印刷設定"};
  common::Button cmdCloseButton{"閉じる"};
  bool closed = false;

 private:
  void SwapRows(int a, int b);

  entry::Context& context_;
  entry::Ui& ui_;
};

}  // namespace lupin::catalogue
