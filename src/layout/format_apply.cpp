#include "layout/format_apply.h"

#include <cstdio>
#include <exception>
#include <vector>

#include "common/text.h"
#include "layout/format_parser.h"

namespace lupin::layout {

bool ControlExists(engine::Report& report, std::string_view name) {
  return report.Detail().Controls().Item(name) != nullptr;
}

engine::Control& AddLabelControl(engine::Report& report, std::string_view name) {
  engine::Control& label = report.Detail().Controls().Add(engine::ControlKind::Label, std::string(name));
  label.Font.name = "ＭＳ Ｐ明朝";
  label.Font.size = 9;
  return label;
}

void ShowUnlessHidden(engine::Control& control, bool show) {
  control.Visible = false;
  if (show && control.Tag != kHiddenTag) control.Visible = true;
}

namespace {

// Each statement of a row on its own: a fault (a property the control lacks, a value no position
// can hold) skips that statement only, and the next one goes on.
template <typename Statement>
void ResumeNext(Statement&& statement) {
  try {
    statement();
  } catch (const std::exception&) {
  }
}

}  // namespace

void ApplyReportFormat(engine::Report& report, std::string_view file_name, const clsRptFmtConstat& constants) {
  const std::filesystem::path path = constants.ReportFormatDirName() / std::string(file_name);
  clsRptFmtParser parser;
  parser.fileName(path);
  std::vector<clsRptFmtRow> rows;
  const int last = parser.Parse(rows);
  for (int index = 0; index <= last && index < static_cast<int>(rows.size()); ++index) {
    const clsRptFmtRow& row = rows[static_cast<std::size_t>(index)];
    // A name with any double-byte character never reaches the report.
    if (row.Name.empty() || text::ByteLen(row.Name) != text::CharLen(row.Name)) continue;
    engine::Control* control = report.Detail().Controls().Item(row.Name);
    if (control == nullptr) {
      control = &AddLabelControl(report, row.Name);
      if (!row.Text.empty()) control->Caption = row.Text;
    }
    engine::Control& c = *control;
    c.Visible = row.Visible;
    if (!row.Visible) c.Tag = kHiddenTag;
    // Shapes and lines have no font: the set fails and is skipped.
    if (!row.FontName.empty()) ResumeNext([&] { c.SetProperty("Font.Name", row.FontName); });
    if (row.FontSize > 0) ResumeNext([&] { c.SetProperty("Font.Size", std::to_string(row.FontSize)); });
    if (row.Width > 0) ResumeNext([&] { c.Width = engine::MmToTwips(row.Width); });
    if (row.Height > 0) ResumeNext([&] { c.Height = engine::MmToTwips(row.Height); });
    ResumeNext([&] { c.Left = engine::MmToTwips(row.Left); });
    ResumeNext([&] { c.Top = engine::MmToTwips(row.Top); });
    for (int pair = 0; pair <= row.OtherUBound(); ++pair) {
      ResumeNext([&] { c.SetProperty(row.GetOther(0, pair), row.GetOther(1, pair)); });
    }
  }
}

}  // namespace lupin::layout
