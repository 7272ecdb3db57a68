#pragma once
// Pages parked in a temporary file, for a run that can only finish its pages once it knows how
// many there are ("page N of M"). Memory stays flat however long the run.
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "engine/page_model.h"

namespace lupin::engine {

class PageSpool {
 public:
  PageSpool();
  ~PageSpool();
  PageSpool(const PageSpool&) = delete;
  PageSpool& operator=(const PageSpool&) = delete;

  // deferred: indices of the page's items whose text waits for the page count.
  void Write(const Page& page, const std::vector<int>& deferred);
  int Count() const { return count_; }
  // Reads the pages back in order, one at a time.
  void Replay(const std::function<void(Page&, const std::vector<int>&)>& visit);

 private:
  std::FILE* file_ = nullptr;
  int count_ = 0;
  std::string buffer_;  // one page's bytes, kept for its capacity
};

}  // namespace lupin::engine
