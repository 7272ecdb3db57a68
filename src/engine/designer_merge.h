#pragma once
// What a designer file may say in short: a variant names its base with "extends" and lists only
// what differs, and a numbered run of controls ("lblTel_1" to "lblTel_13") is declared once.
// Both are resolved on the JSON before the layout is read.
#include <functional>
#include <string_view>

#include <nlohmann/json.hpp>

namespace lupin::engine {

// The text of another compiled-in designer by report name; throws DesignerError when missing.
using DesignerLookup = std::function<std::string_view(std::string_view report_name)>;

// The designer with its base merged in and its runs expanded. Errors name file_name.
nlohmann::json ResolveDesigner(std::string_view file_name, nlohmann::json root, const DesignerLookup& lookup);

}  // namespace lupin::engine
