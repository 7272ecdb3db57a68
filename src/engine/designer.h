#pragma once
// Designer files: the layout of each report object as JSON (twips), compiled into the program.
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "engine/report.h"

namespace lupin::engine {

// A designer file that does not describe a layout: it names the file and what is wrong.
struct DesignerError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Reads a designer; file_name only labels the errors. Unknown properties, control kinds and
// section types are rejected.
ReportLayout ParseDesigner(std::string_view file_name, std::string_view json_text);
// The compiled-in designer of a report object ("rptPickingSyuDate" from rptPickingSyuDate.json).
ReportLayout LoadDesigner(std::string_view report_name);
// Names of the compiled-in designers, without ".json".
std::vector<std::string> DesignerNames();

}  // namespace lupin::engine
