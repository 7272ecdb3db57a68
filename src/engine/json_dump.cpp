#include "engine/json_dump.h"

#include <nlohmann/json.hpp>
#include <sstream>

#include "engine/control.h"

namespace lupin::engine {

namespace {

using Json = nlohmann::ordered_json;

std::string_view AlignmentName(Alignment alignment) {
  switch (alignment) {
    case Alignment::Right: return "right";
    case Alignment::Center: return "center";
    case Alignment::Left: break;
  }
  return "left";
}

std::string Dump(const Json& value) { return value.dump(-1, ' ', false, Json::error_handler_t::replace); }

}  // namespace

void JsonDumpSink::Begin(const DocumentInfo& info) {
  first_page_ = true;
  out_ << "{\"report\": " << Dump(Json(info.report)) << ",\n \"pages\": [";
}

void JsonDumpSink::AddPage(const Page& page) {
  out_ << (first_page_ ? "\n" : ",\n");
  first_page_ = false;
  out_ << "  {\"number\": " << page.number << ", \"width\": " << page.width << ", \"height\": " << page.height
       << ", \"items\": [";
  bool first_item = true;
  for (const auto& item : page.items) {
    Json entry;
    entry["section"] = item.section;
    entry["name"] = item.name;
    entry["kind"] = KindName(item.kind);
    entry["text"] = item.text;
    entry["visible"] = item.visible;
    entry["left"] = item.left;
    entry["top"] = item.top;
    entry["width"] = item.width;
    entry["height"] = item.height;
    entry["font"] = Json{{"name", item.font.name}, {"size", item.font.size}};
    entry["alignment"] = AlignmentName(item.alignment);
    out_ << (first_item ? "\n    " : ",\n    ") << Dump(entry);
    first_item = false;
  }
  out_ << (first_item ? "]}" : "\n  ]}");
}

void JsonDumpSink::End() { out_ << (first_page_ ? "]}\n" : "\n ]}\n"); }

std::string JsonDump(const DocumentInfo& info, const std::vector<Page>& pages) {
  std::ostringstream out;
  JsonDumpSink sink(out);
  sink.Begin(info);
  for (const auto& page : pages) sink.AddPage(page);
  sink.End();
  return out.str();
}

}  // namespace lupin::engine
