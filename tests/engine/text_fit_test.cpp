// The check that a page's texts print whole and apart, on boxes measured against the IPA fonts.
#include <gtest/gtest.h>

#include "engine/text_fit.h"

namespace lupin::engine {
namespace {

PageItem Text(std::string name, std::string text, std::int32_t left, std::int32_t top, std::int32_t width,
              std::int32_t height, bool wrap = true) {
  PageItem item;
  item.name = std::move(name);
  item.text = std::move(text);
  item.left = left;
  item.top = top;
  item.width = width;
  item.height = height;
  item.font.size = 10;  // 200 twips a line, 100 a half-width digit
  item.word_wrap = wrap;
  return item;
}

TEST(TextFitCheck, NamesTheTextsThatDoNotPrintWhole) {
  Page page;
  page.items = {
      Text("lblFits", "東京都千代田区\r\n千代田1-1", 0, 0, 2000, 450),
      Text("lblDropped", "東京都千代田区\r\n千代田1-1\r\n三階", 0, 500, 2000, 450),
      Text("lblWide", "080-1478-1960", 0, 1000, 1000, 300, false),
      Text("lblTall", "山田", 0, 1400, 1000, 150),
      Text("lblHidden", "東京都千代田区千代田一丁目一番一号", 0, 1600, 300, 100),
  };
  page.items.back().visible = false;
  TextFitCheck fit;
  std::vector<std::string> found;
  for (const auto& cut : fit.Check(page)) found.push_back(cut.name + " " + cut.problem);
  EXPECT_EQ(found, (std::vector<std::string>{"lblDropped dropped lines", "lblWide too wide", "lblTall too tall"}));
}

}  // namespace
}  // namespace lupin::engine
