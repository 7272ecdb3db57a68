#pragma once
// Pages built by hand for the renderer and printer tests, the ink they leave, and the
// command-line tools that check the documents.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "engine/page_model.h"
#include "engine/render_png.h"
#include "support/temp_files.h"

namespace lupin::engine::test {

constexpr std::int32_t kA4Width = 11906;   // 210 mm in twips
constexpr std::int32_t kA4Height = 16838;  // 297 mm

inline PageItem Label(std::string name, std::string text, std::int32_t left, std::int32_t top,
                      std::int32_t width, std::int32_t height, std::string font = "ＭＳ 明朝",
                      double size = 10.5) {
  PageItem item;
  item.section = "Detail";
  item.name = std::move(name);
  item.kind = ItemKind::Label;
  item.text = std::move(text);
  item.left = left;
  item.top = top;
  item.width = width;
  item.height = height;
  item.font.name = std::move(font);
  item.font.size = size;
  return item;
}

// A shape, line or barcode box.
inline PageItem Item(ItemKind kind, std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height) {
  PageItem item = Label("", "", left, top, width, height);
  item.kind = kind;
  item.line_weight = 2;
  return item;
}

inline Page A4Page(int number = 1) {
  Page page;
  page.number = number;
  page.width = kA4Width;
  page.height = kA4Height;
  return page;
}

// Dark pixels inside a rectangle given in twips, at the image's dpi.
inline int InkIn(const RasterImage& image, double dpi, std::int32_t left, std::int32_t top, std::int32_t width,
                 std::int32_t height) {
  const int x0 = static_cast<int>(left * dpi / 1440), y0 = static_cast<int>(top * dpi / 1440);
  const int x1 = std::min(image.width, static_cast<int>((left + width) * dpi / 1440));
  const int y1 = std::min(image.height, static_cast<int>((top + height) * dpi / 1440));
  int count = 0;
  for (int y = std::max(0, y0); y < y1; ++y)
    for (int x = std::max(0, x0); x < x1; ++x) {
      const std::uint32_t pixel = image.At(x, y);
      count += ((pixel >> 16) & 0xff) + ((pixel >> 8) & 0xff) + (pixel & 0xff) < 3 * 160 ? 1 : 0;
    }
  return count;
}

inline RasterImage Render(const Page& page, double dpi) {
  std::vector<std::string> problems;
  RasterImage image = PageRasterizer().Render(page, dpi, problems);
  EXPECT_TRUE(problems.empty());
  return image;
}

using lupin::testing::RunCommand;

}  // namespace lupin::engine::test
