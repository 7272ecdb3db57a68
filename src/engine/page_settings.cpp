#include "engine/page_settings.h"

#include <cmath>
#include <utility>

namespace lupin::engine {

namespace {

std::int32_t MmToTwips(double mm) { return static_cast<std::int32_t>(std::lround(mm * 1440.0 / 25.4)); }

struct Paper {
  std::int16_t code;
  double width_mm, height_mm;
};

constexpr Paper kPapers[] = {
    {kPaperLetter, 215.9, 279.4}, {kPaperA3, 297, 420}, {kPaperA4, 210, 297}, {kPaperA5, 148, 210},
    {kPaperB4, 257, 364},         {kPaperB5, 182, 257}, {kPaperPostcard, 100, 148},
};

}  // namespace

bool PaperDimensions(std::int16_t code, std::int32_t& width, std::int32_t& height) {
  for (const auto& paper : kPapers) {
    if (paper.code == code) {
      width = MmToTwips(paper.width_mm);
      height = MmToTwips(paper.height_mm);
      return true;
    }
  }
  return false;
}

void SheetSize(const PrinterSettings& printer, std::int32_t& width, std::int32_t& height) {
  if (printer.PaperSize == kPaperUser && printer.PaperWidth > 0 && printer.PaperHeight > 0) {
    width = printer.PaperWidth;
    height = printer.PaperHeight;
  } else if (!PaperDimensions(printer.PaperSize, width, height)) {
    PaperDimensions(kPaperA4, width, height);
  }
  if (printer.Orientation == kLandscape) std::swap(width, height);
}

}  // namespace lupin::engine
