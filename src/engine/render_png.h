#pragma once
// Page images for the preview and for tests: one page at a chosen resolution.
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "engine/page_model.h"

namespace lupin::engine {

struct RasterImage {
  int width = 0, height = 0;
  std::vector<std::uint32_t> pixels;  // 0xAARRGGBB, row by row, white background
  std::uint32_t At(int x, int y) const {
    return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(x)];
  }
};

// Draws pages into memory; keeps its shaped-text cache between pages.
class PageRasterizer {
 public:
  PageRasterizer();
  ~PageRasterizer();
  PageRasterizer(const PageRasterizer&) = delete;
  PageRasterizer& operator=(const PageRasterizer&) = delete;

  // Size in pixels is the page's size in inches times dpi, rounded.
  RasterImage Render(const Page& page, double dpi, std::vector<std::string>& problems);
  // Empty on success, otherwise why the file could not be written.
  std::string WritePng(const Page& page, double dpi, const std::string& path,
                       std::vector<std::string>& problems);

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

// Each page into a folder as page-0001.png, page-0002.png …
class PngRenderer : public PageSink {
 public:
  PngRenderer(std::string folder, double dpi);
  ~PngRenderer() override;

  // Throws RenderError when the folder or a file cannot be written.
  void Begin(const DocumentInfo& info) override;
  void AddPage(const Page& page) override;
  void End() override;

  const std::vector<std::string>& Files() const { return files_; }
  const std::vector<std::string>& Problems() const { return problems_; }

 private:
  PageRasterizer rasterizer_;
  std::string folder_;
  double dpi_;
  std::vector<std::string> files_;
  std::vector<std::string> problems_;
};

}  // namespace lupin::engine
