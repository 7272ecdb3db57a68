#include "engine/render_png.h"

#include <cairo.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "engine/render_draw.h"
#include "engine/render_error.h"

namespace lupin::engine {
namespace {

// A surface holding the drawn page; caller destroys it.
cairo_surface_t* DrawPage(PageDrawer& drawer, const Page& page, double dpi,
                          std::vector<std::string>& problems) {
  const int width = std::max(1, static_cast<int>(std::lround(page.width * dpi / 1440.0)));
  const int height = std::max(1, static_cast<int>(std::lround(page.height * dpi / 1440.0)));
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
  cairo_t* cr = cairo_create(surface);
  cairo_set_source_rgb(cr, 1, 1, 1);
  cairo_paint(cr);
  cairo_scale(cr, dpi / 72.0, dpi / 72.0);
  drawer.Draw(cr, page, problems);
  cairo_destroy(cr);
  cairo_surface_flush(surface);
  return surface;
}

}  // namespace

struct PageRasterizer::Impl {
  PageDrawer drawer;
};

PageRasterizer::PageRasterizer() : impl_(std::make_unique<Impl>()) {}
PageRasterizer::~PageRasterizer() = default;

RasterImage PageRasterizer::Render(const Page& page, double dpi,
                                   std::vector<std::string>& problems) {
  cairo_surface_t* surface = DrawPage(impl_->drawer, page, dpi, problems);
  RasterImage image;
  image.width = cairo_image_surface_get_width(surface);
  image.height = cairo_image_surface_get_height(surface);
  const int stride = cairo_image_surface_get_stride(surface);
  const unsigned char* data = cairo_image_surface_get_data(surface);
  image.pixels.resize(static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height));
  for (int y = 0; y < image.height; ++y) {
    std::memcpy(&image.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(image.width)],
                data + static_cast<std::ptrdiff_t>(y) * stride,
                static_cast<std::size_t>(image.width) * sizeof(std::uint32_t));
  }
  cairo_surface_destroy(surface);
  return image;
}

std::string PageRasterizer::WritePng(const Page& page, double dpi, const std::string& path,
                                     std::vector<std::string>& problems) {
  cairo_surface_t* surface = DrawPage(impl_->drawer, page, dpi, problems);
  const cairo_status_t status = cairo_surface_write_to_png(surface, path.c_str());
  cairo_surface_destroy(surface);
  if (status == CAIRO_STATUS_SUCCESS) return {};
  return "画像ファイル '" + path + "' に書き込めません: " + cairo_status_to_string(status);
}

PngRenderer::PngRenderer(std::string folder, double dpi) : folder_(std::move(folder)), dpi_(dpi) {}
PngRenderer::~PngRenderer() = default;

void PngRenderer::Begin(const DocumentInfo&) {
  files_.clear();
  problems_.clear();
  std::error_code ec;
  std::filesystem::create_directories(folder_, ec);
  if (ec) throw RenderError("フォルダ '" + folder_ + "' を作成できません: " + ec.message());
}

void PngRenderer::AddPage(const Page& page) {
  char name[32];
  std::snprintf(name, sizeof name, "page-%04zu.png", files_.size() + 1);
  const std::string path = (std::filesystem::path(folder_) / name).string();
  if (std::string error = rasterizer_.WritePng(page, dpi_, path, problems_); !error.empty()) {
    throw RenderError(error);
  }
  files_.push_back(path);
}

void PngRenderer::End() {}

}  // namespace lupin::engine
