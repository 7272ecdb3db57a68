#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>

#include "engine/barcode.h"

namespace lupin::engine {
namespace {

TEST(CustomerBarcode, ValidDataGivesTheFixedSixtySevenBars) {
  // Start, 20 characters of three bars each (letters as two control codes, padded), check
  // character and stop: every customer barcode has 67 bars, whatever the data.
  const char* valid[] = {
      "1000001-1-1", "1000001", "1000001A301", "0640941-3-8-7", "12345678901234567890",
      "1540023-5-11-3-B",
  };
  for (const char* data : valid) {
    BarcodeSymbol symbol = EncodeBarcode("JapanPost", data);
    ASSERT_TRUE(symbol.ok) << data << ": " << symbol.message;
    EXPECT_EQ(symbol.bars.size(), 67u) << data;
    EXPECT_GT(symbol.width, 0) << data;
    EXPECT_GT(symbol.height, 0) << data;
    std::set<std::pair<double, double>> states;
    for (const BarRect& bar : symbol.bars) {
      EXPECT_GE(bar.x, 0) << data;
      EXPECT_LE(bar.x + bar.width, symbol.width + 1e-3) << data;
      EXPECT_LE(bar.y + bar.height, symbol.height + 1e-3) << data;
      states.emplace(bar.y, bar.height);
    }
    EXPECT_EQ(states.size(), 4u) << data << ": long, ascender, descender and tracker bars";
  }
}

TEST(CustomerBarcode, DifferentDataDrawsDifferentBars) {
  // Bar shapes in left-to-right order, whatever order the bars come in.
  auto heights = [](const char* data) {
    std::set<std::pair<double, std::pair<double, double>>> bars;
    for (const BarRect& bar : EncodeBarcode("JapanPost", data).bars) {
      bars.insert({bar.x, {bar.y, bar.height}});
    }
    return bars;
  };
  EXPECT_NE(heights("1000001-1-1"), heights("1000001-1-2"));
  EXPECT_EQ(heights("1000001-1-1"), heights("1000001-1-1"));
}

TEST(CustomerBarcode, InvalidDataIsReportedNotDrawn) {
  struct Case {
    const char* style;
    std::string data;
    const char* message_start;
  };
  const Case cases[] = {
      {"JapanPost", "1000001あ", "バーコードを作成できません"},
      {"JapanPost", "100_0001", "バーコードを作成できません"},
      {"JapanPost", "", "バーコードのデータがありません"},
      {"QRCode", "1000001", "未対応のバーコード種別です"},
  };
  for (const Case& c : cases) {
    BarcodeSymbol symbol = EncodeBarcode(c.style, c.data);
    EXPECT_FALSE(symbol.ok) << c.data;
    EXPECT_TRUE(symbol.bars.empty()) << c.data;
    EXPECT_EQ(symbol.message.rfind(c.message_start, 0), 0u) << c.data << ": " << symbol.message;
  }
}

}  // namespace
}  // namespace lupin::engine
