#pragma once
// Bar codes drawn by the renderers: the Japan Post customer barcode from its data string.
#include <string>
#include <string_view>
#include <vector>

namespace lupin::engine {

struct BarRect {
  double x = 0, y = 0, width = 0, height = 0;  // in the symbol's own units
};

struct BarcodeSymbol {
  bool ok = false;
  std::string message;  // why the data cannot be encoded, for the user
  double width = 0, height = 0;  // extent of the symbol in its own units
  std::vector<BarRect> bars;
};

// style "JapanPost": digits, capital letters and hyphens, the data field of the customer barcode
// (start and stop codes, control codes, padding and check digit are added here).
BarcodeSymbol EncodeBarcode(std::string_view style, std::string_view data);

}  // namespace lupin::engine
