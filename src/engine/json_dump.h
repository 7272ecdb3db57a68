#pragma once
// The page dump: every placed item of every page as JSON, written page by page. Tests compare it
// with the golden files; keys come in a fixed order so a dump diffs cleanly.
#include <ostream>
#include <string>
#include <vector>

#include "engine/page_model.h"

namespace lupin::engine {

class JsonDumpSink : public PageSink {
 public:
  explicit JsonDumpSink(std::ostream& out) : out_(out) {}
  void Begin(const DocumentInfo& info) override;
  void AddPage(const Page& page) override;
  void End() override;

 private:
  std::ostream& out_;
  bool first_page_ = true;
};

// The whole dump of pages held in memory, for tests.
std::string JsonDump(const DocumentInfo& info, const std::vector<Page>& pages);

}  // namespace lupin::engine
