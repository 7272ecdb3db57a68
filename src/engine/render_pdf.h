#pragma once
// PDF output: each page is written to the file as it arrives, so memory stays flat however long
// the run. Fonts are embedded as subsets at the end; text stays extractable. With two threads the
// pages are drawn and compressed on two threads while the caller lays out the next ones, and
// written in their order: the file is the same byte for byte.
#include <memory>
#include <string>
#include <vector>

#include "engine/page_model.h"

namespace lupin::engine {

// Drawing threads: two when the machine has two cores; LUPIN_RENDER_THREADS=1 draws on the caller's.
int DefaultRenderThreads();

class PdfRenderer : public PageSink {
 public:
  explicit PdfRenderer(std::string path, int threads = DefaultRenderThreads());
  ~PdfRenderer() override;
  PdfRenderer(const PdfRenderer&) = delete;
  PdfRenderer& operator=(const PdfRenderer&) = delete;

  // Throws RenderError when the file cannot be created or written.
  void Begin(const DocumentInfo& info) override;
  void AddPage(const Page& page) override;
  void End() override;

  int PageCount() const { return pages_; }
  // Items that could not be drawn, "name: reason"; the pages are complete otherwise.
  const std::vector<std::string>& Problems() const { return problems_; }

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
  std::string path_;
  int threads_ = 1;
  int pages_ = 0;
  std::vector<std::string> problems_;
};

}  // namespace lupin::engine
