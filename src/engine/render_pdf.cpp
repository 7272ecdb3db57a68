#include "engine/render_pdf.h"

#include <cerrno>
#include <condition_variable>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <exception>
#include <map>
#include <mutex>
#include <thread>

#include "engine/pdf_file.h"
#include "engine/pdf_fonts.h"
#include "engine/pdf_page_content.h"
#include "engine/pdf_syntax.h"
#include "engine/render_draw.h"
#include "engine/render_error.h"

namespace lupin::engine {

namespace {

// Pages laid out but not yet written; the layout runs this far ahead at most.
constexpr std::size_t kPagesInFlight = 16;
constexpr double kTwipsPerPoint = 20.0;

struct PageJob {
  std::uint64_t sequence = 0;
  Page page;
  PagePreparation preparation;
  pdf::PageFonts fonts;
  double width = 0, height = 0;  // points
  std::string content;           // compressed, once drawn
  std::vector<std::string> problems;
};

}  // namespace

int DefaultRenderThreads() {
  if (const char* forced = std::getenv("LUPIN_RENDER_THREADS"); forced != nullptr && *forced != '\0') {
    return std::atoi(forced) >= 2 ? 2 : 1;
  }
  return std::thread::hardware_concurrency() >= 2 ? 2 : 1;
}

// The caller lays out and shapes the pages in order; with two threads, two drawing threads turn
// pages into compressed content streams in any order, and whichever finishes the next page in
// order writes it. Object numbers follow the writing order and fonts are numbered as the layout
// first meets them, so the file is the same byte for byte however the threads ran.
struct PdfRenderer::Impl {
  pdf::PdfFile file;
  pdf::Fonts fonts;
  PageDrawer drawer;  // its preparing half only
  std::string path;
  int catalog = 0, pages_root = 0, resources = 0, info = 0;
  // Pages take two objects each, content then page, numbered on from the first page's content.
  int first_page_content = 0;
  std::int64_t pages_written = 0;
  double width = 595.28, height = 841.89;  // A4 until a page says otherwise
  std::uint64_t laid_out = 0;

  std::vector<std::thread> drawers;
  std::mutex mutex;
  std::condition_variable work;      // a page waits to be drawn, or the drawers are to stop
  std::condition_variable progress;  // a page was written, or the run failed
  std::deque<std::unique_ptr<PageJob>> waiting;           // laid out, not drawn
  // Written pages' jobs, taken again by the layout: their buffers keep their size, so a page costs
  // no allocation on one thread and release on another.
  std::vector<std::unique_ptr<PageJob>> spare;
  std::string caller_scratch;  // the uncompressed page when the caller draws
  pdf::Deflater caller_deflater;
  std::map<std::uint64_t, std::unique_ptr<PageJob>> drawn;  // drawn, waiting for their turn
  std::uint64_t next_to_write = 0;
  std::size_t in_flight = 0;
  bool writing = false;
  bool closing = false;
  std::exception_ptr failure;
  std::vector<std::string> problems;  // in page order

  static void Draw(PageJob& job, std::string& scratch, pdf::Deflater& deflater) {
    pdf::WritePageContent(job.page, job.preparation, job.fonts, job.height, scratch, job.problems);
    deflater.Compress(scratch, job.content);
  }

  // Under no lock: only one thread writes at a time.
  void Write(const PageJob& job) {
    const int content = file.Reserve(), page = file.Reserve();
    if (pages_written == 0) first_page_content = content;
    file.Stream(content, "/Filter /FlateDecode", job.content);
    std::string body = "<< /Type /Page /Parent ";
    pdf::AppendInt(body, pages_root);
    body += " 0 R /MediaBox [0 0 ";
    pdf::AppendReal(body, job.width);
    body += ' ';
    pdf::AppendReal(body, job.height);
    body += "] /Resources ";
    pdf::AppendInt(body, resources);
    body += " 0 R /Contents ";
    pdf::AppendInt(body, content);
    body += " 0 R >>";
    file.Object(page, body);
    ++pages_written;
    problems.insert(problems.end(), job.problems.begin(), job.problems.end());
    if (file.Failed()) throw RenderError("PDF ファイル '" + path + "' に書き込めません: " + std::strerror(errno));
  }

  // Takes a drawn page and writes every page whose turn has come.
  void Finished(std::unique_ptr<PageJob> job) {
    std::unique_lock lock(mutex);
    drawn.emplace(job->sequence, std::move(job));
    if (writing) return;
    writing = true;
    while (!failure) {
      auto next = drawn.find(next_to_write);
      if (next == drawn.end()) break;
      std::unique_ptr<PageJob> turn = std::move(next->second);
      drawn.erase(next);
      lock.unlock();
      try {
        Write(*turn);
      } catch (...) {
        lock.lock();
        failure = std::current_exception();
        break;
      }
      lock.lock();
      turn->problems.clear();
      spare.push_back(std::move(turn));
      ++next_to_write;
      --in_flight;
      progress.notify_all();
    }
    writing = false;
    if (failure) progress.notify_all();
  }

  void DrawerLoop() {
    std::string scratch;
    pdf::Deflater deflater;
    for (;;) {
      std::unique_ptr<PageJob> job;
      {
        std::unique_lock lock(mutex);
        work.wait(lock, [&] { return !waiting.empty() || closing; });
        if (waiting.empty() || failure) return;
        job = std::move(waiting.front());
        waiting.pop_front();
      }
      try {
        Draw(*job, scratch, deflater);
      } catch (...) {
        std::lock_guard lock(mutex);
        failure = std::current_exception();
        progress.notify_all();
        return;
      }
      Finished(std::move(job));
    }
  }

  void StopDrawers() {
    {
      std::lock_guard lock(mutex);
      closing = true;
      waiting.clear();  // an abandoned run's pages are not drawn
    }
    work.notify_all();
    for (std::thread& t : drawers) t.join();
    drawers.clear();
  }

  ~Impl() { StopDrawers(); }
};

PdfRenderer::PdfRenderer(std::string path, int threads) : path_(std::move(path)), threads_(threads) {}

PdfRenderer::~PdfRenderer() = default;

void PdfRenderer::Begin(const DocumentInfo& info) {
  impl_ = std::make_unique<Impl>();
  impl_->path = path_;
  pages_ = 0;
  problems_.clear();
  if (!impl_->file.Open(path_)) {
    const std::string reason = std::strerror(errno);
    impl_.reset();
    throw RenderError("PDF ファイル '" + path_ + "' を作成できません: " + reason);
  }
  impl_->catalog = impl_->file.Reserve();
  impl_->pages_root = impl_->file.Reserve();
  impl_->resources = impl_->file.Reserve();
  impl_->info = impl_->file.Reserve();
  const std::string title = info.title.empty() ? info.report : info.title;
  std::string body = "<<";
  if (!title.empty()) body += " /Title " + pdf::TextString(title);
  body += " /Creator (Lupin Print) /Producer (Lupin Print) >>";
  impl_->file.Object(impl_->info, body);
  if (threads_ >= 2) {
    for (int n = 0; n < threads_; ++n) impl_->drawers.emplace_back([impl = impl_.get()] { impl->DrawerLoop(); });
  }
}

void PdfRenderer::AddPage(const Page& page) {
  if (!impl_) throw RenderError("PDF の出力が開始されていません");
  Impl& impl = *impl_;
  std::unique_ptr<PageJob> job;
  {
    std::lock_guard lock(impl.mutex);
    if (!impl.spare.empty()) {
      job = std::move(impl.spare.back());
      impl.spare.pop_back();
    }
  }
  if (!job) job = std::make_unique<PageJob>();
  job->sequence = impl.laid_out++;
  job->page = page;
  if (page.width > 0 && page.height > 0) {
    impl.width = page.width / kTwipsPerPoint;
    impl.height = page.height / kTwipsPerPoint;
  }
  job->width = impl.width;
  job->height = impl.height;
  impl.drawer.Prepare(job->page, job->preparation);
  pdf::CollectFonts(job->preparation, impl.fonts, job->fonts);
  try {
    if (impl.drawers.empty()) {
      Impl::Draw(*job, impl.caller_scratch, impl.caller_deflater);
      impl.Write(*job);
      problems_.insert(problems_.end(), impl.problems.begin(), impl.problems.end());
      impl.problems.clear();
      job->problems.clear();
      impl.spare.push_back(std::move(job));
      ++pages_;
      return;
    }
  } catch (...) {
    impl_.reset();
    throw;
  }
  std::exception_ptr failure;
  {
    std::unique_lock lock(impl.mutex);
    impl.progress.wait(lock, [&] { return impl.in_flight < kPagesInFlight || impl.failure; });
    failure = impl.failure;
    if (!failure) {
      impl.waiting.push_back(std::move(job));
      ++impl.in_flight;
    }
  }
  if (failure) {
    impl_.reset();
    std::rethrow_exception(failure);
  }
  impl.work.notify_one();
  ++pages_;
}

void PdfRenderer::End() {
  if (!impl_) return;
  Impl& impl = *impl_;
  std::exception_ptr failure;
  {
    std::unique_lock lock(impl.mutex);
    impl.progress.wait(lock, [&] { return impl.in_flight == 0 || impl.failure; });
    failure = impl.failure;
  }
  impl.StopDrawers();
  if (failure) {
    impl_.reset();
    std::rethrow_exception(failure);
  }
  problems_.insert(problems_.end(), impl.problems.begin(), impl.problems.end());

  const std::string font_entries = impl.fonts.Embed(impl.file);
  std::string body = "<< /Font << " + font_entries + ">> /ProcSet [/PDF /Text] >>";
  impl.file.Object(impl.resources, body);
  body = "<< /Type /Pages /Count ";
  pdf::AppendInt(body, impl.pages_written);
  body += " /Kids [";
  impl.file.BeginObject(impl.pages_root);
  impl.file.Append(body);
  for (std::int64_t i = 0; i < impl.pages_written; ++i) {
    body.clear();
    if (i > 0) body += ' ';
    pdf::AppendInt(body, impl.first_page_content + 2 * i + 1);
    body += " 0 R";
    impl.file.Append(body);
  }
  impl.file.Append("] >>");
  impl.file.EndObject();
  body = "<< /Type /Catalog /Pages ";
  pdf::AppendInt(body, impl.pages_root);
  body += " 0 R >>";
  impl.file.Object(impl.catalog, body);
  const bool written = impl.file.Finish(impl.catalog, impl.info);
  const std::string reason = std::strerror(errno);
  impl_.reset();
  if (!written) throw RenderError("PDF ファイル '" + path_ + "' に書き込めません: " + reason);
}

}  // namespace lupin::engine
