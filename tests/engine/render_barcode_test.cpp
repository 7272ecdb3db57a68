#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>

#include "engine/barcode.h"

namespace lupin::engine {
namespace {

// Bar shapes in left-to-right order, whatever order the bars come in.
std::set<std::pair<double, std::pair<double, double>>> Bars(const BarcodeSymbol& symbol) {
  std::set<std::pair<double, std::pair<double, double>>> bars;
  for (const BarRect& bar : symbol.bars) bars.insert({bar.x, {bar.y, bar.height}});
  return bars;
}

// Start, 20 characters of three bars each (letters as two control codes, padded), check character
// and stop: every customer barcode has 67 bars of four kinds, whatever the data.
TEST(CustomerBarcode, ValidDataGivesTheFixedSixtySevenBars) {
  for (const char* data : {"1000001", "12345678901234567890", "1540023-5-11-3-B"}) {
    BarcodeSymbol symbol = EncodeBarcode("JapanPost", data);
    ASSERT_TRUE(symbol.ok) << data << ": " << symbol.message;
    EXPECT_EQ(symbol.bars.size(), 67u) << data;
    std::set<std::pair<double, double>> states;
    for (const BarRect& bar : symbol.bars) {
      EXPECT_GE(bar.x, 0) << data;
      EXPECT_LE(bar.x + bar.width, symbol.width + 1e-3) << data;
      EXPECT_LE(bar.y + bar.height, symbol.height + 1e-3) << data;
      states.emplace(bar.y, bar.height);
    }
    EXPECT_EQ(states.size(), 4u) << data << ": long, ascender, descender and tracker bars";
  }
  EXPECT_NE(Bars(EncodeBarcode("JapanPost", "1000001-1-1")), Bars(EncodeBarcode("JapanPost", "1000001-1-2")));
}

TEST(CustomerBarcode, InvalidDataIsReportedNotDrawn) {
  const std::tuple<const char*, std::string, const char*> cases[] = {
      {"JapanPost", "100_0001", "バーコードを作成できません"},
      {"JapanPost", "", "バーコードのデータがありません"},
      {"QRCode", "1000001", "未対応のバーコード種別です"},
  };
  for (const auto& [style, data, message_start] : cases) {
    BarcodeSymbol symbol = EncodeBarcode(style, data);
    EXPECT_FALSE(symbol.ok) << data;
    EXPECT_TRUE(symbol.bars.empty()) << data;
    EXPECT_EQ(symbol.message.rfind(message_start, 0), 0u) << data << ": " << symbol.message;
  }
}

}  // namespace
}  // namespace lupin::engine
