#include "engine/render_pdf.h"

#include <cairo-pdf.h>
#include <malloc.h>

#include <condition_variable>
#include <cstdlib>
#include <deque>
#include <exception>
#include <mutex>
#include <thread>

#include "engine/render_draw.h"
#include "engine/render_error.h"

namespace lupin::engine {

namespace {

// Pages waiting for the writer; the layout runs this far ahead at most.
constexpr std::size_t kQueueDepth = 16;

// cairo compresses every page through a deflate stream of its own: some 300 KB allocated and freed
// per page. By default glibc hands that back to the kernel after each page and faults it in again
// for the next, and on two threads each give-back interrupts the other core to flush its TLB. A
// higher trim threshold keeps the freed top of the heap for the next page.
void KeepPageBuffers() {
  static std::once_flag once;
  std::call_once(once, [] { mallopt(M_TRIM_THRESHOLD, 1 << 20); });
}

struct QueuedPage {
  Page page;
  PagePreparation preparation;
};

}  // namespace

int DefaultRenderThreads() {
  if (const char* forced = std::getenv("LUPIN_RENDER_THREADS"); forced != nullptr && *forced != '\0') {
    return std::atoi(forced) >= 2 ? 2 : 1;
  }
  return std::thread::hardware_concurrency() >= 2 ? 2 : 1;
}

// With two threads the caller lays out and shapes page n + 1 while the writer thread makes the
// cairo calls of page n; the surface only ever sees one thread, and the pages in their order, so
// the file is the same byte for byte.
struct PdfRenderer::Impl {
  cairo_surface_t* surface = nullptr;
  cairo_t* cr = nullptr;
  PageDrawer drawer;

  std::thread writer;
  std::mutex mutex;
  std::condition_variable changed;
  std::deque<QueuedPage> queue;
  bool closing = false;
  std::exception_ptr failure;           // the writer's, handed to the caller at its next call
  std::vector<std::string> problems;    // the writer's, read after End

  // Draws one page and ends it; throws RenderError on a surface error.
  void Write(const Page& page, const PagePreparation& preparation, std::vector<std::string>& found,
             const std::string& path) {
    if (page.width > 0 && page.height > 0) cairo_pdf_surface_set_size(surface, page.width / 20.0, page.height / 20.0);
    drawer.Draw(cr, page, preparation, found);
    cairo_show_page(cr);
    if (cairo_status(cr) != CAIRO_STATUS_SUCCESS) {
      throw RenderError("PDF ファイル '" + path + "' に書き込めません: " + cairo_status_to_string(cairo_status(cr)));
    }
  }

  void WriterLoop(const std::string& path) {
    for (;;) {
      QueuedPage next;
      {
        std::unique_lock lock(mutex);
        changed.wait(lock, [&] { return !queue.empty() || closing; });
        if (queue.empty()) return;
        next = std::move(queue.front());
        queue.pop_front();
      }
      changed.notify_all();
      try {
        Write(next.page, next.preparation, problems, path);
      } catch (...) {
        std::lock_guard lock(mutex);
        failure = std::current_exception();
        queue.clear();
        changed.notify_all();
        return;
      }
    }
  }

  void StopWriter() {
    if (!writer.joinable()) return;
    {
      std::lock_guard lock(mutex);
      closing = true;
    }
    changed.notify_all();
    writer.join();
  }

  void Close() {
    StopWriter();
    if (cr != nullptr) cairo_destroy(cr);
    if (surface != nullptr) {
      cairo_surface_finish(surface);
      cairo_surface_destroy(surface);
    }
    cr = nullptr;
    surface = nullptr;
  }
  ~Impl() { Close(); }
};

PdfRenderer::PdfRenderer(std::string path, int threads) : path_(std::move(path)), threads_(threads) {}

PdfRenderer::~PdfRenderer() = default;

void PdfRenderer::Begin(const DocumentInfo& info) {
  KeepPageBuffers();
  impl_ = std::make_unique<Impl>();
  pages_ = 0;
  problems_.clear();
  // A4 until the first page says otherwise.
  impl_->surface = cairo_pdf_surface_create(path_.c_str(), 595.28, 841.89);
  if (cairo_surface_status(impl_->surface) != CAIRO_STATUS_SUCCESS) {
    const std::string reason = cairo_status_to_string(cairo_surface_status(impl_->surface));
    impl_.reset();
    throw RenderError("PDF ファイル '" + path_ + "' を作成できません: " + reason);
  }
  const std::string title = info.title.empty() ? info.report : info.title;
  if (!title.empty()) {
    cairo_pdf_surface_set_metadata(impl_->surface, CAIRO_PDF_METADATA_TITLE, title.c_str());
  }
  cairo_pdf_surface_set_metadata(impl_->surface, CAIRO_PDF_METADATA_CREATOR, "Lupin Print");
  impl_->cr = cairo_create(impl_->surface);
  if (threads_ >= 2) impl_->writer = std::thread([impl = impl_.get(), path = path_] { impl->WriterLoop(path); });
}

void PdfRenderer::AddPage(const Page& page) {
  if (!impl_) throw RenderError("PDF の出力が開始されていません");
  if (!impl_->writer.joinable()) {
    try {
      PagePreparation preparation;
      impl_->drawer.Prepare(page, preparation);
      impl_->Write(page, preparation, problems_, path_);
    } catch (const RenderError&) {
      impl_.reset();
      throw;
    }
    ++pages_;
    return;
  }
  QueuedPage queued{page, {}};
  impl_->drawer.Prepare(queued.page, queued.preparation);
  std::exception_ptr failure;
  {
    std::unique_lock lock(impl_->mutex);
    impl_->changed.wait(lock, [&] { return impl_->queue.size() < kQueueDepth || impl_->failure; });
    failure = impl_->failure;
    if (!failure) impl_->queue.push_back(std::move(queued));
  }
  if (failure) {
    impl_.reset();
    std::rethrow_exception(failure);
  }
  impl_->changed.notify_all();
  ++pages_;
}

void PdfRenderer::End() {
  if (!impl_) return;
  impl_->StopWriter();
  if (impl_->failure) {
    const std::exception_ptr failure = impl_->failure;
    impl_.reset();
    std::rethrow_exception(failure);
  }
  problems_.insert(problems_.end(), impl_->problems.begin(), impl_->problems.end());
  cairo_destroy(impl_->cr);
  impl_->cr = nullptr;
  cairo_surface_finish(impl_->surface);
  const cairo_status_t status = cairo_surface_status(impl_->surface);
  impl_.reset();
  if (status != CAIRO_STATUS_SUCCESS) {
    throw RenderError("PDF ファイル '" + path_ + "' に書き込めません: " +
                      cairo_status_to_string(status));
  }
}

}  // namespace lupin::engine
