#include "engine/control.h"

#include <cmath>
#include <cstdlib>
#include <optional>

#include "engine/names.h"

namespace lupin::engine {

namespace {

constexpr std::string_view kKindNames[] = {"Label", "TextField", "Shape", "Line", "Barcode"};

// A late-bound property set converts the text as the runtime's coercion did: blanks around a
// number are allowed, anything else that is not a number fails.
std::optional<double> ParseNumber(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  if (text.empty()) return std::nullopt;
  std::string owned(text);
  char* end = nullptr;
  const double value = std::strtod(owned.c_str(), &end);
  if (end != owned.c_str() + owned.size() || !std::isfinite(value)) return std::nullopt;
  return value;
}

std::optional<std::int32_t> ParseTwips(std::string_view text) {
  const auto value = ParseNumber(text);
  if (!value || *value < -2147483648.0 || *value > 2147483647.0) return std::nullopt;
  return static_cast<std::int32_t>(std::nearbyint(*value));
}

std::optional<bool> ParseBool(std::string_view text) {
  if (EqualsNoCase(text, "true")) return true;
  if (EqualsNoCase(text, "false")) return false;
  const auto value = ParseNumber(text);
  if (!value) return std::nullopt;
  return *value != 0;
}

}  // namespace

std::string_view KindName(ControlKind kind) { return kKindNames[static_cast<int>(kind)]; }

bool KindFromName(std::string_view name, ControlKind& kind) {
  for (int i = 0; i < 5; ++i) {
    if (kKindNames[i] == name) {
      kind = static_cast<ControlKind>(i);
      return true;
    }
  }
  return false;
}

std::string Control::TypeName() const {
  switch (kind_) {
    case ControlKind::Label: return "label";
    case ControlKind::TextField: return "textbox";
    case ControlKind::Shape: return "shape";
    case ControlKind::Line: return "line";
    case ControlKind::Barcode: return "barcode";
  }
  return "";
}

const std::string& Control::PrintedText() const {
  static const std::string kNone;
  switch (kind_) {
    case ControlKind::Label: return Caption;
    case ControlKind::TextField: return Text;
    case ControlKind::Barcode: return Data;
    default: return kNone;
  }
}

bool Control::SetProperty(std::string_view property, std::string_view value) {
  const bool is_label = kind_ == ControlKind::Label;
  const bool is_field = kind_ == ControlKind::TextField;
  const bool has_text = is_label || is_field;
  auto set_twips = [&](std::int32_t& target) {
    const auto twips = ParseTwips(value);
    if (twips) target = *twips;
    return twips.has_value();
  };
  auto set_bool = [&](bool& target) {
    const auto flag = ParseBool(value);
    if (flag) target = *flag;
    return flag.has_value();
  };

  if (EqualsNoCase(property, "Name")) { Name = value; return true; }
  if (EqualsNoCase(property, "Tag")) { Tag = value; return true; }
  if (EqualsNoCase(property, "Visible")) return set_bool(Visible);
  if (EqualsNoCase(property, "Left")) return set_twips(Left);
  if (EqualsNoCase(property, "Top")) return set_twips(Top);
  if (EqualsNoCase(property, "Width")) return set_twips(Width);
  if (EqualsNoCase(property, "Height")) return set_twips(Height);
  if (EqualsNoCase(property, "FontName") || EqualsNoCase(property, "Font.Name")) {
    if (kind_ == ControlKind::Shape || kind_ == ControlKind::Line) return false;
    Font.name = value;
    return true;
  }
  if (EqualsNoCase(property, "FontSize") || EqualsNoCase(property, "Font.Size")) {
    const auto size = ParseNumber(value);
    if (!size || *size <= 0 || kind_ == ControlKind::Shape || kind_ == ControlKind::Line) return false;
    Font.size = *size;
    return true;
  }
  if (EqualsNoCase(property, "Caption")) {
    if (!is_label) return false;
    Caption = value;
    return true;
  }
  if (EqualsNoCase(property, "Alignment")) {
    const auto number = ParseNumber(value);
    if (!has_text || !number || *number != std::floor(*number) || *number < 0 || *number > 2) return false;
    alignment = static_cast<Alignment>(static_cast<int>(*number));
    return true;
  }
  if (EqualsNoCase(property, "WordWrap")) return has_text && set_bool(WordWrap);
  if (EqualsNoCase(property, "CanGrow")) return has_text && set_bool(CanGrow);
  if (EqualsNoCase(property, "DataField")) {
    if (!is_field) return false;
    DataField = value;
    return true;
  }
  if (EqualsNoCase(property, "OutputFormat")) {
    if (!is_field) return false;
    OutputFormat = value;
    return true;
  }
  if (EqualsNoCase(property, "Text")) {
    if (!is_field) return false;
    Text = value;
    return true;
  }
  if (EqualsNoCase(property, "Shape")) {
    const auto number = ParseNumber(value);
    if (kind_ != ControlKind::Shape || !number || *number < 0 || *number > 2 || *number != std::floor(*number))
      return false;
    Shape = static_cast<ShapeKind>(static_cast<int>(*number));
    return true;
  }
  if (EqualsNoCase(property, "LineWeight")) {
    const auto number = ParseNumber(value);
    if ((kind_ != ControlKind::Shape && kind_ != ControlKind::Line) || !number || *number < 0) return false;
    LineWeight = *number;
    return true;
  }
  if (EqualsNoCase(property, "Style")) {
    if (kind_ != ControlKind::Barcode) return false;
    Style = value;
    return true;
  }
  if (EqualsNoCase(property, "Data") || EqualsNoCase(property, "Value")) {
    if (kind_ != ControlKind::Barcode) return false;
    Data = value;
    return true;
  }
  return false;
}

}  // namespace lupin::engine
