#pragma once
// A sink that keeps every page: for the preview and for tests. A long run that only prints should
// stream to its renderer instead.
#include <vector>

#include "engine/page_model.h"

namespace lupin::engine {

class PageCollection : public PageSink {
 public:
  void Begin(const DocumentInfo& info) override {
    info_ = info;
    pages_.clear();
    ended_ = false;
  }
  void AddPage(const Page& page) override { pages_.push_back(page); }
  void End() override { ended_ = true; }

  const DocumentInfo& Info() const { return info_; }
  const std::vector<Page>& Pages() const { return pages_; }
  bool Ended() const { return ended_; }

 private:
  DocumentInfo info_;
  std::vector<Page> pages_;
  bool ended_ = false;
};

}  // namespace lupin::engine
