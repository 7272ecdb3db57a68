#include "engine/designer.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "engine/designer_merge.h"
#include "engine/designer_table.h"

namespace lupin::engine {

namespace {

using Json = nlohmann::json;

std::string_view DesignerText(std::string_view report_name) {
  const std::string file_name = std::string(report_name) + ".json";
  for (std::size_t i = 0; i < kDesignerSourceCount; ++i) {
    if (kDesignerSources[i].file_name == file_name) return kDesignerSources[i].text;
  }
  throw DesignerError(fmt::format("{}: デザイナーが組み込まれていません", file_name));
}

class Reader {
 public:
  explicit Reader(std::string_view file_name) : file_(file_name) {}

  [[noreturn]] void Fail(std::string_view where, std::string_view what) const {
    throw DesignerError(fmt::format("{}: {}: {}", file_, where, what));
  }

  // Every key of the object must be one of the allowed ones.
  void OnlyKeys(const Json& object, std::string_view where, std::initializer_list<std::string_view> allowed) const {
    if (!object.is_object()) Fail(where, "オブジェクトではありません");
    for (const auto& [key, value] : object.items()) {
      bool known = false;
      for (const auto name : allowed) known = known || key == name;
      if (!known) Fail(where, fmt::format("不明なプロパティ \"{}\"", key));
    }
  }

  template <typename T>
  T Number(const Json& object, std::string_view key, std::string_view where, T fallback) const {
    const auto found = object.find(std::string(key));
    if (found == object.end()) return fallback;
    if (!found->is_number()) Fail(where, fmt::format("\"{}\" は数値ではありません", key));
    return found->get<T>();
  }

  std::string Text(const Json& object, std::string_view key, std::string_view where, std::string fallback = "") const {
    const auto found = object.find(std::string(key));
    if (found == object.end()) return fallback;
    if (!found->is_string()) Fail(where, fmt::format("\"{}\" は文字列ではありません", key));
    return found->get<std::string>();
  }

  bool Flag(const Json& object, std::string_view key, std::string_view where, bool fallback) const {
    const auto found = object.find(std::string(key));
    if (found == object.end()) return fallback;
    if (!found->is_boolean()) Fail(where, fmt::format("\"{}\" は true か false です", key));
    return found->get<bool>();
  }

  // A word from a fixed list; its index.
  int Choice(const Json& object, std::string_view key, std::string_view where,
             std::initializer_list<std::string_view> words, int fallback) const {
    const auto found = object.find(std::string(key));
    if (found == object.end()) return fallback;
    const std::string word = found->is_string() ? found->get<std::string>() : std::string();
    int index = 0;
    for (const auto candidate : words) {
      if (candidate == word) return index;
      ++index;
    }
    Fail(where, fmt::format("\"{}\" の値 {} は使えません", key, found->dump()));
  }

  FontSpec Font(const Json& object, std::string_view where) const {
    FontSpec font;
    const auto found = object.find("font");
    if (found == object.end()) return font;
    const std::string font_where = fmt::format("{} font", where);
    OnlyKeys(*found, font_where, {"name", "size", "bold", "italic", "underline"});
    font.name = Text(*found, "name", font_where, font.name);
    font.size = Number<double>(*found, "size", font_where, font.size);
    font.bold = Flag(*found, "bold", font_where, false);
    font.italic = Flag(*found, "italic", font_where, false);
    font.underline = Flag(*found, "underline", font_where, false);
    return font;
  }

  void ReadControl(const Json& object, Section& section) const {
    if (!object.is_object()) Fail(section.Name, "コントロールがオブジェクトではありません");
    const std::string name = Text(object, "name", section.Name);
    if (name.empty()) Fail(section.Name, "名前のないコントロールがあります");
    const std::string where = fmt::format("コントロール {}", name);
    const std::string kind_name = Text(object, "kind", where);
    ControlKind kind;
    if (!KindFromName(kind_name, kind)) Fail(where, fmt::format("不明なコントロールの種類 \"{}\"", kind_name));

    switch (kind) {
      case ControlKind::Label:
        OnlyKeys(object, where, {"kind", "name", "left", "top", "width", "height", "visible", "tag", "font",
                                 "fore_color", "back_color", "caption", "alignment", "word_wrap", "can_grow"});
        break;
      case ControlKind::TextField:
        OnlyKeys(object, where, {"kind", "name", "left", "top", "width", "height", "visible", "tag", "font",
                                 "fore_color", "back_color", "alignment", "word_wrap", "can_grow", "data_field",
                                 "output_format", "text", "summary"});
        break;
      case ControlKind::Shape:
        OnlyKeys(object, where, {"kind", "name", "left", "top", "width", "height", "visible", "tag", "fore_color",
                                 "back_color", "shape", "line_weight"});
        break;
      case ControlKind::Line:
        OnlyKeys(object, where, {"kind", "name", "left", "top", "width", "height", "visible", "tag", "fore_color",
                                 "line_weight"});
        break;
      case ControlKind::Barcode:
        OnlyKeys(object, where, {"kind", "name", "left", "top", "width", "height", "visible", "tag", "font",
                                 "fore_color", "style", "data"});
        break;
    }

    Control& control = section.Controls().Add(kind, name);
    control.Left = Number<std::int32_t>(object, "left", where, 0);
    control.Top = Number<std::int32_t>(object, "top", where, 0);
    control.Width = Number<std::int32_t>(object, "width", where, 0);
    control.Height = Number<std::int32_t>(object, "height", where, 0);
    control.Visible = Flag(object, "visible", where, true);
    control.Tag = Text(object, "tag", where);
    control.Font = Font(object, where);
    control.ForeColor = Number<std::uint32_t>(object, "fore_color", where, 0);
    control.BackColor = Number<std::int32_t>(object, "back_color", where, -1);
    control.Caption = Text(object, "caption", where);
    control.alignment = static_cast<Alignment>(Choice(object, "alignment", where, {"left", "right", "center"}, 0));
    control.WordWrap = Flag(object, "word_wrap", where, true);
    control.CanGrow = Flag(object, "can_grow", where, false);
    control.DataField = Text(object, "data_field", where);
    control.OutputFormat = Text(object, "output_format", where);
    control.Text = Text(object, "text", where);
    control.Summary =
        static_cast<SummaryType>(Choice(object, "summary", where, {"none", "page_number", "page_count"}, 0));
    control.Shape =
        static_cast<ShapeKind>(Choice(object, "shape", where, {"rectangle", "ellipse", "round_rectangle"}, 0));
    control.LineWeight = Number<double>(object, "line_weight", where, 1.0);
    control.Style = Text(object, "style", where);
    control.Data = Text(object, "data", where);
  }

  Section ReadSection(const Json& object) const {
    if (!object.is_object()) Fail("sections", "セクションがオブジェクトではありません");
    const std::string name = Text(object, "name", "sections");
    if (name.empty()) Fail("sections", "名前のないセクションがあります");
    const std::string where = fmt::format("セクション {}", name);
    OnlyKeys(object, where, {"name", "type", "height", "visible", "new_page", "data_field", "columns",
                             "column_direction", "column_spacing", "header", "controls"});
    const std::string type_name = Text(object, "type", where);
    SectionType type;
    if (!SectionTypeFromName(type_name, type)) Fail(where, fmt::format("不明なセクションの種類 \"{}\"", type_name));
    Section section(type, name);
    section.Height = Number<std::int32_t>(object, "height", where, 0);
    section.Visible = Flag(object, "visible", where, true);
    section.PageBreak =
        static_cast<NewPage>(Choice(object, "new_page", where, {"none", "before", "after", "before_after"}, 0));
    section.DataField = Text(object, "data_field", where);
    section.HeaderName = Text(object, "header", where);
    if (!section.HeaderName.empty() && type != SectionType::GroupFooter)
      Fail(where, "\"header\" はグループフッターだけが持ちます");
    if (type == SectionType::GroupHeader && section.DataField.empty())
      Fail(where, "グループヘッダーに \"data_field\" がありません");
    section.ColumnCount = Number<int>(object, "columns", where, 1);
    if (section.ColumnCount < 1) Fail(where, "\"columns\" は 1 以上です");
    section.Direction = static_cast<ColumnDirection>(
        Choice(object, "column_direction", where, {"across_down", "down_across"}, 0));
    section.ColumnSpacing = Number<std::int32_t>(object, "column_spacing", where, 0);
    const auto controls = object.find("controls");
    if (controls != object.end()) {
      if (!controls->is_array()) Fail(where, "\"controls\" は配列です");
      for (const auto& control : *controls) ReadControl(control, section);
    }
    return section;
  }

  ReportLayout Read(std::string_view text) const {
    Json root;
    try {
      root = Json::parse(text);
    } catch (const Json::parse_error& error) {
      Fail("JSON", error.what());
    }
    root = ResolveDesigner(file_, std::move(root), [](std::string_view report_name) { return DesignerText(report_name); });
    OnlyKeys(root, "report", {"report", "title", "printer", "margins", "print_width", "fields", "sections"});
    ReportLayout layout;
    layout.name = Text(root, "report", "report");
    if (layout.name.empty()) Fail("report", "\"report\" がありません");
    layout.title = Text(root, "title", "report");
    if (const auto printer = root.find("printer"); printer != root.end()) {
      OnlyKeys(*printer, "printer", {"device_name", "paper_size", "paper_bin", "orientation", "paper_width", "paper_height"});
      layout.printer.DeviceName = Text(*printer, "device_name", "printer");
      layout.printer.PaperSize = Number<std::int16_t>(*printer, "paper_size", "printer", kPaperA4);
      layout.printer.PaperBin = Number<std::int16_t>(*printer, "paper_bin", "printer", 0);
      layout.printer.Orientation = Number<std::int16_t>(*printer, "orientation", "printer", kPortrait);
      layout.printer.PaperWidth = Number<std::int32_t>(*printer, "paper_width", "printer", 0);
      layout.printer.PaperHeight = Number<std::int32_t>(*printer, "paper_height", "printer", 0);
    }
    if (const auto margins = root.find("margins"); margins != root.end()) {
      OnlyKeys(*margins, "margins", {"left", "right", "top", "bottom"});
      layout.margins.Left = Number<std::int32_t>(*margins, "left", "margins", layout.margins.Left);
      layout.margins.Right = Number<std::int32_t>(*margins, "right", "margins", layout.margins.Right);
      layout.margins.Top = Number<std::int32_t>(*margins, "top", "margins", layout.margins.Top);
      layout.margins.Bottom = Number<std::int32_t>(*margins, "bottom", "margins", layout.margins.Bottom);
    }
    layout.print_width = Number<std::int32_t>(root, "print_width", "report", 0);
    if (const auto fields = root.find("fields"); fields != root.end()) {
      if (!fields->is_array()) Fail("fields", "配列ではありません");
      for (const auto& field : *fields) {
        if (!field.is_string()) Fail("fields", "フィールド名は文字列です");
        layout.fields.push_back(field.get<std::string>());
      }
    }
    const auto sections = root.find("sections");
    if (sections == root.end() || !sections->is_array()) Fail("report", "\"sections\" の配列がありません");
    bool has_detail = false;
    for (const auto& section : *sections) {
      layout.sections.push_back(ReadSection(section));
      has_detail = has_detail || layout.sections.back().Type() == SectionType::Detail;
    }
    if (!has_detail) Fail("sections", "Detail セクションがありません");
    return layout;
  }

 private:
  std::string file_;
};

}  // namespace

ReportLayout ParseDesigner(std::string_view file_name, std::string_view json_text) {
  return Reader(file_name).Read(json_text);
}

ReportLayout LoadDesigner(std::string_view report_name) {
  return ParseDesigner(std::string(report_name) + ".json", DesignerText(report_name));
}

std::vector<std::string> DesignerNames() {
  std::vector<std::string> names;
  for (std::size_t i = 0; i < kDesignerSourceCount; ++i) {
    std::string_view name = kDesignerSources[i].file_name;
    name.remove_suffix(5);
    names.emplace_back(name);
  }
  return names;
}

}  // namespace lupin::engine
