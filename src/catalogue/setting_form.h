#pragma once
// frmSetting: per report, the printer, paper, bin, paper type, margins and free texts. The values
// go to the REPORT row, or to REPORT.INI when the workstation keeps its own settings, and into the
// current definition so the open selection form sees them at once.
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "catalogue/calibration.h"
#include "catalogue/printer_capabilities.h"
#include "common/combo.h"
#include "common/controls.h"
#include "entry/context.h"
#include "entry/ui.h"

namespace lupin::catalogue {

inline constexpr std::string_view kSettingCaption = "印刷設定";
// The message-box title of cmdSet's checks: the product's title, not the form's.
inline constexpr std::string_view kProductTitle = "LupinOrder6";

class SettingForm {
 public:
  SettingForm(entry::Context& context, entry::Ui& ui, PrinterCapabilities& printers);

  // Opens the form for a report: fills cboList and the printers, and shows that report.
  void S_SetReportSet(std::int32_t report_no);
  void cboList_Click();
  void cboDeviceName_Click();
  // Digits only; an empty box reads "0" when the focus leaves it.
  void txtMargin_Change(int which);
  void txtMargin_LostFocus(int which);
  // which 0 left, 1 top; direction +1 or -1.
  void vsrlMargin_Change(int which, int direction);
  // True when the settings were saved and the form closes.
  bool cmdSet();

  // The statement cmdSet runs for the shop-wide settings.
  std::string UpdateStatement() const;
  // True when this workstation keeps its own settings: a REPORT.INI lies in the component folder.
  bool WorkstationKeepsOwnSettings() const;
  std::int32_t ReportNo() const { return cboList.ItemData(); }

  common::ComboModel cboList;
  common::ComboModel cboDeviceName;
  common::ComboModel cboPaperSize;
  common::ComboModel cboPaperBin;
  int optPaperType = 0;  // 0 汎用紙, 1 専用紙
  common::TextBox txtLeftMargin{"0"};
  common::TextBox txtTopMargin{"0"};
  common::Label lblLeftMargin;
  common::Label lblTopMargin;
  std::array<common::Label, 5> lblFld_lbl;
  std::array<common::TextBox, 5> txtFld_txt;
  // The calibration of the chosen printer for this report, in tenths of a millimetre.
  common::TextBox txtOffsetX{"0"};
  common::TextBox txtOffsetY{"0"};
  common::Button cmdSetButton{"設定"};
  bool closed = false;

 private:
  void ShowCalibration();
  void SelectDevice(std::string_view name);

  entry::Context& context_;
  entry::Ui& ui_;
  PrinterCapabilities& printers_;
  std::string report_name_;
};

}  // namespace lupin::catalogue
