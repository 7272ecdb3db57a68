#include "engine/render_pdf.h"

#include <cairo-pdf.h>

#include "engine/render_draw.h"
#include "engine/render_error.h"

namespace lupin::engine {

struct PdfRenderer::Impl {
  cairo_surface_t* surface = nullptr;
  cairo_t* cr = nullptr;
  PageDrawer drawer;

  void Close() {
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

PdfRenderer::PdfRenderer(std::string path) : path_(std::move(path)) {}

PdfRenderer::~PdfRenderer() = default;

void PdfRenderer::Begin(const DocumentInfo& info) {
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
}

void PdfRenderer::AddPage(const Page& page) {
  if (!impl_) throw RenderError("PDF の出力が開始されていません");
  if (page.width > 0 && page.height > 0) {
    cairo_pdf_surface_set_size(impl_->surface, page.width / 20.0, page.height / 20.0);
  }
  impl_->drawer.Draw(impl_->cr, page, problems_);
  cairo_show_page(impl_->cr);
  ++pages_;
  if (cairo_status(impl_->cr) != CAIRO_STATUS_SUCCESS) {
    const std::string reason = cairo_status_to_string(cairo_status(impl_->cr));
    impl_.reset();
    throw RenderError("PDF ファイル '" + path_ + "' に書き込めません: " + reason);
  }
}

void PdfRenderer::End() {
  if (!impl_) return;
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
