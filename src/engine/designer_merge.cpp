#include "engine/designer_merge.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>

#include "engine/designer.h"

namespace lupin::engine {

namespace {

using Json = nlohmann::json;

constexpr int kMaxBaseDepth = 8;

[[noreturn]] void Fail(std::string_view file, std::string_view where, std::string_view what) {
  throw DesignerError(fmt::format("{}: {}: {}", file, where, what));
}

std::string Numbered(std::string text, const std::string& number) {
  for (auto at = text.find("{n}"); at != std::string::npos; at = text.find("{n}", at + number.size()))
    text.replace(at, 3, number);
  return text;
}

// {"name": "lblTel_", "count": 13, "left": 4451, "step": {"left": 260}} or with "lefts"/"tops"
// lists: the run's controls, named prefix1 … prefixN. A name with "{n}" takes the number there
// instead, as do "{n}" in the caption and the data field; "first" starts the numbers elsewhere than 1.
Json ExpandRun(std::string_view file, const Json& run) {
  const std::string prefix = run.value("name", std::string());
  const auto count = run["count"];
  if (!count.is_number_integer() || count.get<int>() < 1) Fail(file, prefix, "\"count\" は 1 以上の整数です");
  const int first = run.value("first", 1);
  Json out = Json::array();
  for (int i = 0; i < count.get<int>(); ++i) {
    Json control = run;
    control.erase("count");
    control.erase("step");
    control.erase("lefts");
    control.erase("tops");
    control.erase("first");
    const std::string number = std::to_string(first + i);
    control["name"] = prefix.find("{n}") == std::string::npos ? prefix + number : Numbered(prefix, number);
    for (const char* key : {"caption", "data_field"}) {
      if (control.contains(key) && control[key].is_string()) control[key] = Numbered(control[key].get<std::string>(), number);
    }
    for (const char* axis : {"left", "top"}) {
      const std::string list = std::string(axis) + "s";
      if (run.contains(list)) {
        const Json& values = run[list];
        if (!values.is_array() || values.size() != count.get<std::size_t>())
          Fail(file, prefix, fmt::format("\"{}\" は \"count\" 個の数値です", list));
        control[axis] = values[static_cast<std::size_t>(i)];
      } else if (run.contains("step") && run["step"].contains(axis)) {
        control[axis] = run.value(axis, 0) + i * run["step"][axis].get<int>();
      }
    }
    out.push_back(std::move(control));
  }
  return out;
}

void ExpandRuns(std::string_view file, Json& root) {
  if (!root.contains("sections") || !root["sections"].is_array()) return;
  for (Json& section : root["sections"]) {
    if (!section.is_object() || !section.contains("controls") || !section["controls"].is_array()) continue;
    Json expanded = Json::array();
    for (const Json& control : section["controls"]) {
      if (control.is_object() && control.contains("count")) {
        for (Json& one : ExpandRun(file, control)) expanded.push_back(std::move(one));
      } else {
        expanded.push_back(control);
      }
    }
    section["controls"] = std::move(expanded);
  }
}

Json* Named(Json& list, const std::string& name) {
  for (Json& item : list) {
    if (item.is_object() && item.value("name", std::string()) == name) return &item;
  }
  return nullptr;
}

// A variant's control: its properties over the base's, the font property by property.
void MergeControl(Json& base, const Json& variant) {
  for (const auto& [key, value] : variant.items()) {
    if (key == "font" && base.contains("font") && value.is_object()) {
      base["font"].update(value);
    } else {
      base[key] = value;
    }
  }
}

void MergeSection(std::string_view file, Json& base, const Json& variant) {
  for (const auto& [key, value] : variant.items()) {
    if (key == "controls" || key == "remove") continue;
    base[key] = value;
  }
  if (variant.contains("remove")) {
    for (const Json& name : variant["remove"]) {
      Json& controls = base["controls"];
      const auto before = controls.size();
      controls.erase(std::remove_if(controls.begin(), controls.end(),
                                    [&](const Json& c) { return c.value("name", std::string()) == name; }),
                     controls.end());
      if (controls.size() == before) Fail(file, "remove", fmt::format("コントロール {} は基のデザイナーにありません", name.dump()));
    }
  }
  if (!variant.contains("controls")) return;
  for (const Json& control : variant["controls"]) {
    const std::string name = control.value("name", std::string());
    if (Json* existing = Named(base["controls"], name)) {
      MergeControl(*existing, control);
    } else {
      base["controls"].push_back(control);
    }
  }
}

Json Resolve(std::string_view file, Json root, const DesignerLookup& lookup, int depth) {
  if (!root.is_object()) return root;
  ExpandRuns(file, root);
  if (!root.contains("extends")) return root;
  if (depth >= kMaxBaseDepth) Fail(file, "extends", "基のデザイナーが深すぎます");
  if (!root["extends"].is_string()) Fail(file, "extends", "デザイナー名は文字列です");
  const std::string base_name = root["extends"].get<std::string>();
  Json base;
  try {
    base = Json::parse(lookup(base_name));
  } catch (const Json::parse_error& error) {
    Fail(file, "extends", fmt::format("{}: {}", base_name, error.what()));
  } catch (const DesignerError&) {
    Fail(file, "extends", fmt::format("基のデザイナー {} が組み込まれていません", base_name));
  }
  base = Resolve(base_name + ".json", std::move(base), lookup, depth + 1);
  root.erase("extends");
  for (const auto& [key, value] : root.items()) {
    if (key == "sections") continue;
    if ((key == "printer" || key == "margins") && base.contains(key)) {
      base[key].update(value);
    } else {
      base[key] = value;
    }
  }
  if (root.contains("sections")) {
    for (const Json& section : root["sections"]) {
      const std::string name = section.value("name", std::string());
      if (Json* existing = Named(base["sections"], name)) {
        MergeSection(file, *existing, section);
      } else {
        base["sections"].push_back(section);
      }
    }
  }
  return base;
}

}  // namespace

nlohmann::json ResolveDesigner(std::string_view file_name, nlohmann::json root, const DesignerLookup& lookup) {
  return Resolve(file_name, std::move(root), lookup, 0);
}

}  // namespace lupin::engine
