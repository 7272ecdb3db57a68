#include "catalogue/all_format_form.h"

#include <string>

#include "catalogue/load_report_definition.h"

namespace lupin::catalogue {

AllFormatForm::AllFormatForm(entry::Context& context, entry::Ui& ui) : context_(context), ui_(ui) {
  sprList.SetCaption(kFmtEnabled, "表示");
  sprList.SetCaption(kFmtName, "帳票名");
  sprList.SetCaption(kFmtReportNo, "REPORT_NO");
  sprList.SetColHidden(kFmtReportNo, true);
}

void AllFormatForm::Form_Load() {
  sprList.SetReDraw(false);
  sprList.SetMaxRows(0);
  auto rs = context_.Db().Open("SELECT [REPORT_NO], [REPORT_NAME], [ENABLED] FROM [REPORT] ORDER BY [ORD]");
  for (; !rs.Eof(); rs.MoveNext()) {
    const int row = sprList.AddRow();
    sprList.SetChecked(row, rs["ENABLED"].Long() != 0);
    sprList.SetText(row, kFmtName, rs["REPORT_NAME"].Text());
    sprList.SetText(row, kFmtReportNo, std::to_string(rs["REPORT_NO"].Long()));
  }
  rs.Close();
  sprList.SetReDraw(true);
  sprList.SetRow(sprList.MaxRows() > 0 ? 1 : 0);
}

void AllFormatForm::SwapRows(int a, int b) {
  for (int col = 1; col <= kAllFormatColumns; ++col) {
    const std::string text = sprList.Text(a, col);
    sprList.SetText(a, col, sprList.Text(b, col));
    sprList.SetText(b, col, text);
  }
}

void AllFormatForm::cmdUpper() {
  const int row = sprList.Row();
  if (row <= 1 || row > sprList.MaxRows()) return;
  SwapRows(row, row - 1);
  sprList.SetRow(row - 1);
}

void AllFormatForm::cmdLower() {
  const int row = sprList.Row();
  if (row < 1 || row >= sprList.MaxRows()) return;
  SwapRows(row, row + 1);
  sprList.SetRow(row + 1);
}

std::int32_t AllFormatForm::cmdSetting() {
  const int row = sprList.Row();
  if (row < 1 || row > sprList.MaxRows()) return 0;
  const auto report_no = static_cast<std::int32_t>(sprList.Value(row, kFmtReportNo));
  LoadReportDefinition(context_, report_no);
  return report_no;
}

void AllFormatForm::Save() {
  for (int row = 1; row <= sprList.MaxRows(); ++row) {
    context_.Db().Execute("UPDATE [REPORT] SET [ENABLED] = " + std::string(sprList.Checked(row) ? "1" : "0") +
                          ", [ORD] = " + std::to_string(row) +
                          " WHERE [REPORT_NO] = " + sprList.Text(row, kFmtReportNo));
  }
}

bool AllFormatForm::cmdClose() {
  const auto answer = ui_.MessageBox("変更を保存しますか？", kAllFormatCaption, entry::kYesNo | entry::kQuestion);
  if (answer == entry::kYes) Save();
  closed = true;
  return true;
}

}  // namespace lupin::catalogue
