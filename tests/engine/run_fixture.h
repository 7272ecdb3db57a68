#pragma once
// A small report for engine tests: its layout from inline designer JSON, its data from a table in
// memory, and a log of the events in the order they fired.
#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "db/recordset.h"
#include "engine/designer.h"
#include "engine/page_collection.h"
#include "engine/report.h"

namespace lupin::engine::testing {

class LoggingReport : public Report {
 public:
  explicit LoggingReport(const std::string& designer_json)
      : Report(ParseDesigner("test.json", designer_json)) {
    for (Section* section : Sections()) {
      const std::string name = section->Name;
      section->Format = [this, name] {
        log.push_back(name + "_Format");
        if (on_format) on_format(name);
      };
      if (name == "Detail") section->AfterPrint = [this] { log.push_back("Detail_AfterPrint"); };
    }
  }

  void SetRows(std::vector<std::string> names, std::vector<std::vector<db::Value>> rows) {
    names_ = std::move(names);
    rows_ = std::move(rows);
  }

  std::vector<std::string> log;
  std::function<void(const std::string&)> on_format;
  std::function<void(bool&)> on_fetch;

 protected:
  void ActiveReport_ReportStart() override { log.push_back("ReportStart"); }
  void ActiveReport_DataInitialize() override {
    log.push_back("DataInitialize");
    DataControl1.Recordset = db::Recordset(names_, rows_);
  }
  void ActiveReport_FetchData(bool& eof) override {
    log.push_back(eof ? "FetchData(eof)" : "FetchData");
    if (on_fetch) on_fetch(eof);
  }
  void ActiveReport_NoData() override { log.push_back("NoData"); }
  void ActiveReport_ReportEnd() override { log.push_back("ReportEnd"); }
  void ActiveReport_Error(int number, const std::string& description, bool&) override {
    log.push_back("Error " + std::to_string(number) + " " + description);
  }

 private:
  std::vector<std::string> names_;
  std::vector<std::vector<db::Value>> rows_;
};

// Every character 100 twips wide, so breaks and heights are easy to read.
class FixedMeasurer : public TextMeasurer {
 public:
  double WidthTwips(std::string_view text, const FontSpec&) override {
    const auto starts = std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; });
    return 100.0 * static_cast<double>(starts);
  }
};

// Items of one section name on a page, in placing order.
inline std::vector<const PageItem*> ItemsNamed(const Page& page, const std::string& name) {
  std::vector<const PageItem*> found;
  for (const auto& item : page.items)
    if (item.name == name) found.push_back(&item);
  return found;
}

}  // namespace lupin::engine::testing
