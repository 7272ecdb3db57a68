#pragma once
// Applying a shop's format file to a report's Detail: controls move, resize, hide and restyle;
// names the Detail lacks become new labels. Nothing here reports a failure: a report without a
// usable format simply prints as designed.
#include <string>
#include <string_view>

#include "engine/report.h"
#include "engine/units.h"
#include "layout/format_constants.h"

namespace lupin::layout {

using engine::TenthsMmToTwips;

// The Tag of a control that a format file has hidden for good.
inline constexpr std::string_view kHiddenTag = "HIDDEN";

void ApplyReportFormat(engine::Report& report, std::string_view file_name, const clsRptFmtConstat& constants);
bool ControlExists(engine::Report& report, std::string_view name);
// A new label in Detail, in the font the format editor assumes.
engine::Control& AddLabelControl(engine::Report& report, std::string_view name);

// The rule every handler follows when it shows a control for a record: a control the format hid
// stays hidden.
void ShowUnlessHidden(engine::Control& control, bool show);

}  // namespace lupin::layout
