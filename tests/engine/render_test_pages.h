#pragma once
// Pages built by hand for the renderer tests.
#include <cstdint>
#include <string>

#include "engine/page_model.h"

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

}  // namespace lupin::engine::test
