#include "catalogue/setting_form.h"

#include <algorithm>
#include <cctype>

#include "catalogue/repor_info.h"
#include "common/sql.h"

namespace lupin::catalogue {

namespace {

std::string DigitsOnly(std::string_view text) {
  std::string out;
  for (char c : text) {
    if (std::isdigit(static_cast<unsigned char>(c))) out.push_back(c);
  }
  return out;
}

void Fill(common::ComboModel& combo, const std::vector<NamedCode>& entries) {
  combo.Clear();
  for (const auto& entry : entries) combo.AddItem(entry.name, entry.code);
}

void SelectData(common::ComboModel& combo, std::int32_t code) {
  combo.list_index = -1;
  for (int i = 0; i < combo.ListCount(); ++i) {
    if (combo.item_data[i] == code) combo.list_index = i;
  }
}

}  // namespace

SettingForm::SettingForm(entry::Context& context, entry::Ui& ui, PrinterCapabilities& printers)
    : context_(context), ui_(ui), printers_(printers) {}

void SettingForm::S_SetReportSet(std::int32_t report_no) {
  cboList.Clear();
  auto rs = context_.Db().Open("SELECT [REPORT_NO], [REPORT_NAME] FROM [REPORT] ORDER BY [ORD]");
  for (; !rs.Eof(); rs.MoveNext()) {
    cboList.AddItem(rs["REPORT_NAME"].Text(), static_cast<std::int32_t>(rs["REPORT_NO"].Long()));
  }
  rs.Close();
  cboDeviceName.Clear();
  for (auto& name : printers_.Printers()) cboDeviceName.AddItem(std::move(name));
  SelectData(cboList, report_no);
  cboList_Click();
}

void SettingForm::SelectDevice(std::string_view name) {
  cboDeviceName.list_index = -1;
  for (int i = 0; i < cboDeviceName.ListCount(); ++i) {
    if (cboDeviceName.items[i] == name) cboDeviceName.list_index = i;
  }
}

void SettingForm::cboList_Click() {
  if (cboList.list_index < 0) return;
  const std::int32_t report_no = cboList.ItemData();
  report_name_ = cboList.Text();
  clsReporInfo info;
  info.Connection(context_.connection);
  info.INIFile(context_.home / "REPORT.INI");
  info.GetReportSetting(report_no);

  optPaperType = info.PaperType() == 1 ? 1 : 0;
  SelectDevice(info.DeviceName());
  cboDeviceName_Click();
  SelectData(cboPaperSize, info.PaperSize());
  SelectData(cboPaperBin, info.PaperBin());
  txtLeftMargin.text = std::to_string(info.MarginLeft());
  txtTopMargin.text = std::to_string(info.MarginTop());
  lblLeftMargin.caption = "現在値 " + txtLeftMargin.text + "mm";
  lblTopMargin.caption = "現在値 " + txtTopMargin.text + "mm";

  // The free-text labels and texts are the shop's, always from the REPORT row.
  auto rs = context_.Db().Open("SELECT * FROM [REPORT] WHERE [REPORT_NO] = " + std::to_string(report_no));
  for (int k = 0; k < 5; ++k) {
    const std::string n = std::to_string(k + 1);
    lblFld_lbl[k].caption = rs.Eof() ? std::string() : rs["FLD_LBL" + n].Text();
    const bool shown = !lblFld_lbl[k].caption.empty();
    lblFld_lbl[k].visible = shown;
    txtFld_txt[k].visible = shown;
    txtFld_txt[k].text = shown && !rs.Eof() ? rs["FLD_TXT" + n].Text() : std::string();
  }
  rs.Close();
  ShowCalibration();
}

void SettingForm::cboDeviceName_Click() {
  const std::int32_t paper = cboPaperSize.ItemData(), bin = cboPaperBin.ItemData();
  const bool had_paper = cboPaperSize.list_index >= 0, had_bin = cboPaperBin.list_index >= 0;
  cboPaperSize.Clear();
  cboPaperBin.Clear();
  if (cboDeviceName.list_index < 0) return;
  const DeviceCapabilities caps = printers_.Capabilities(cboDeviceName.Text());
  if (!caps.readable) {
    ui_.MessageBox("プリンタの情報を取得できませんでした。", kSettingCaption, entry::kExclamation);
    return;
  }
  Fill(cboPaperSize, caps.papers);
  Fill(cboPaperBin, caps.bins);
  // The same size and bin again when the new printer offers them, found by code.
  if (had_paper) SelectData(cboPaperSize, paper);
  if (had_bin) SelectData(cboPaperBin, bin);
  ShowCalibration();
}

void SettingForm::ShowCalibration() {
  const CalibrationOffset offset = CalibrationStore(context_.home).Get(cboDeviceName.Text(), ReportNo());
  txtOffsetX.text = std::to_string(offset.x);
  txtOffsetY.text = std::to_string(offset.y);
}

void SettingForm::txtMargin_Change(int which) {
  auto& box = which == 0 ? txtLeftMargin : txtTopMargin;
  box.text = DigitsOnly(box.text);
}

void SettingForm::txtMargin_LostFocus(int which) {
  auto& box = which == 0 ? txtLeftMargin : txtTopMargin;
  if (box.text.empty()) box.text = "0";
}

void SettingForm::vsrlMargin_Change(int which, int direction) {
  auto& box = which == 0 ? txtLeftMargin : txtTopMargin;
  const long value = std::max(0L, std::atol(DigitsOnly(box.text).c_str()) + direction);
  box.text = std::to_string(value);
}

std::string SettingForm::UpdateStatement() const {
  std::string sql = "UPDATE REPORT SET ";
  sql += optPaperType == 1 ? "PAPER_TYPE = 1," : "PAPER_TYPE = 0,";
  sql += "DEVICE_NAME = '" + sql::SqlQuote(cboDeviceName.Text()) + "',";
  sql += "PAPER_SIZE = " + std::to_string(cboPaperSize.ItemData()) + ",";
  sql += "PAPER_BIN = " + std::to_string(cboPaperBin.ItemData()) + ",";
  sql += "MARGIN_LEFT = " + std::to_string(std::atol(txtLeftMargin.text.c_str())) + ",";
  sql += "MARGIN_TOP = " + std::to_string(std::atol(txtTopMargin.text.c_str()));
  for (int k = 0; k < 5; ++k) {
    if (lblFld_lbl[k].caption.empty()) continue;
    sql += ",FLD_TXT" + std::to_string(k + 1) + " = '" + sql::SqlQuote(txtFld_txt[k].text) + "'";
  }
  sql += " WHERE REPORT_NO = " + std::to_string(ReportNo());
  return sql;
}

bool SettingForm::WorkstationKeepsOwnSettings() const {
  std::error_code error;
  return std::filesystem::exists(context_.home / "REPORT.INI", error);
}

bool SettingForm::cmdSet() {
  if (cboDeviceName.list_index < 0) {
    ui_.MessageBox("プリンタ名を選択して下さい。", kProductTitle, entry::kInformation);
    ui_.SetFocus("cboDeviceName");
    return false;
  }
  if (cboPaperSize.list_index < 0) {
    ui_.MessageBox("用紙サイズを選択して下さい。", kProductTitle, entry::kInformation);
    ui_.SetFocus("cboPaperSize");
    return false;
  }
  if (cboPaperBin.list_index < 0) {
    ui_.MessageBox("給紙方法を選択して下さい。", kProductTitle, entry::kInformation);
    ui_.SetFocus("cboPaperBin");
    return false;
  }
  const auto paper_size = static_cast<std::int16_t>(cboPaperSize.ItemData());
  const auto paper_bin = static_cast<std::int16_t>(cboPaperBin.ItemData());
  const auto margin_left = static_cast<std::int32_t>(std::atol(txtLeftMargin.text.c_str()));
  const auto margin_top = static_cast<std::int32_t>(std::atol(txtTopMargin.text.c_str()));
  if (WorkstationKeepsOwnSettings()) {
    clsReporInfo info;
    info.Connection(context_.connection);
    info.INIFile(context_.home / "REPORT.INI");
    info.GetReportSetting(ReportNo());
    info.PaperType(static_cast<std::uint8_t>(optPaperType));
    info.DeviceName(cboDeviceName.Text());
    info.PaperSize(paper_size);
    info.PaperBin(paper_bin);
    info.MarginLeft(margin_left);
    info.MarginTop(margin_top);
    if (!info.SetReportSetting(report_name_)) {
      ui_.MessageBox("REPORT.INI に書き込めません。", kSettingCaption, entry::kExclamation);
      return false;
    }
  } else {
    context_.Db().Execute(UpdateStatement());
  }

  CalibrationOffset offset;
  offset.x = std::atoi(txtOffsetX.text.c_str());
  offset.y = std::atoi(txtOffsetY.text.c_str());
  const CalibrationStore calibration(context_.home);
  if (!(offset == calibration.Get(cboDeviceName.Text(), ReportNo()))) {
    calibration.Set(cboDeviceName.Text(), ReportNo(), offset);
  }

  // The open selection form sees the new values at once.
  if (context_.current.report_no == ReportNo()) {
    context_.current.paper_type = optPaperType;
    context_.current.device_name = cboDeviceName.Text();
    context_.current.paper_size = paper_size;
    context_.current.paper_bin = paper_bin;
    context_.current.margin_left = margin_left;
    context_.current.margin_top = margin_top;
  }
  closed = true;
  return true;
}

}  // namespace lupin::catalogue
