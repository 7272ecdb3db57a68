#pragma once
// What every report object shares: its context, the query restricted to this workstation, the
// data control, the print width, the format file and the remembered base font size.
#include <functional>
#include <string>
#include <string_view>

#include "common/vb.h"
#include "engine/report.h"
#include "entry/context.h"

namespace lupin::layout {

class ReportFrame : public engine::Report {
 public:
  // The layout comes from the compiled-in designer of that name.
  ReportFrame(entry::Context& context, std::string_view designer_name);
  // A layout given directly, for report objects built in code.
  ReportFrame(entry::Context& context, engine::ReportLayout layout);

  double BaseFontSize() const { return base_font_size_; }

  // What the report prints as "now"; unset means the system clock. Tests fix it.
  std::function<vb::DateSerial()> clock;
  vb::DateSerial Now() const { return clock ? clock() : vb::Now(); }

 protected:
  // " AND [WK_PRINT].[CLIENT_NAME] = '" + the quoted workstation name + "'"
  std::string WorkstationRestriction() const;
  // Opens the query on the shared connection, moves to the first record when there is one, and
  // hands the recordset to DataControl1.
  void OpenData(std::string_view sql);
  // The printer's paper width less the left and right page margins.
  void SetPrintWidth();
  // The format file of the current report number, from the format folder.
  void ApplyFormat();
  // Remembers a Detail control's font size as the base; read after the format, so a format
  // changes it.
  void RememberBaseFontSize(std::string_view control_name);

  // A Detail control that the designer holds; a missing one is a fault of the report object.
  engine::Control& DetailControl(std::string_view name);
  // field & "": Null reads as "".
  std::string FieldText(std::string_view name) const;

  // Faults are shown by the engine's own display; the handler only lets it.
  void ActiveReport_Error(int number, const std::string& description, bool& cancel_display) override;

  entry::Context& context_;

 private:
  double base_font_size_ = 0;
};

}  // namespace lupin::layout
