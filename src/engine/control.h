#pragma once
// A report control: label, bound text field, shape, line or barcode. Positions are twips from the
// section's top-left corner.
#include <cstdint>
#include <string>
#include <string_view>

#include "engine/page_model.h"

namespace lupin::engine {

using ControlKind = ItemKind;

// The kind as a designer file and the late-bound "type name" checks spell it: "Label" …
std::string_view KindName(ControlKind kind);
// The inverse; false for an unknown word.
bool KindFromName(std::string_view name, ControlKind& kind);

// Summaries the engine fills in itself, when the page is known.
enum class SummaryType { None, PageNumber, PageCount };

class Control {
 public:
  Control(ControlKind kind, std::string name) : Name(std::move(name)), kind_(kind) {}

  ControlKind Kind() const { return kind_; }
  // Lower-case type name, what handlers compare when they walk a section ("label", "line" …).
  std::string TypeName() const;

  std::string Name;
  bool Visible = true;
  std::string Tag;
  std::int32_t Left = 0, Top = 0, Width = 0, Height = 0;
  FontSpec Font;

  // Label
  std::string Caption;
  Alignment alignment = Alignment::Left;
  bool WordWrap = true;
  // Grows downwards (and its section with it) when its text needs more lines than the box holds.
  bool CanGrow = false;
  // Text field: the column it is bound to, the picture its value is shown with, and the text.
  std::string DataField;
  std::string OutputFormat;
  std::string Text;
  SummaryType Summary = SummaryType::None;
  // Shape and line
  ShapeKind Shape = ShapeKind::Rectangle;
  double LineWeight = 1.0;
  // Barcode: style ("JapanPost") and the data it encodes
  std::string Style;
  std::string Data;

  std::uint32_t ForeColor = 0x000000;
  std::int32_t BackColor = -1;

  // The text this control prints: a label's caption, a field's text, a barcode's data.
  const std::string& PrintedText() const;
  // Sets a property by name from its text, as late binding does; false when this kind of control
  // has no such property or the value does not convert. Names compare without regard to case.
  bool SetProperty(std::string_view property, std::string_view value);

 private:
  ControlKind kind_;
};

}  // namespace lupin::engine
