#pragma once
// Paper, orientation and margins of a report, in twips.
#include <cstdint>
#include <string>

namespace lupin::engine {

// Paper size codes as the printer drivers number them.
enum PaperSizeCode : std::int16_t {
  kPaperLetter = 1,
  kPaperA3 = 8,
  kPaperA4 = 9,
  kPaperA5 = 11,
  kPaperB4 = 12,  // JIS
  kPaperB5 = 13,  // JIS
  kPaperPostcard = 43,
  kPaperUser = 256,  // width and height given in twips
};

enum Orientation : std::int16_t { kPortrait = 1, kLandscape = 2 };

// The printer a report goes to.
struct PrinterSettings {
  std::string DeviceName;  // empty: the default printer
  std::int16_t PaperSize = kPaperA4;
  std::int16_t PaperBin = 0;
  std::int16_t Orientation = kPortrait;
  // Used for kPaperUser; for a known code the size of the code wins.
  std::int32_t PaperWidth = 0, PaperHeight = 0;
};

struct PageMargins {
  std::int32_t Left = 1440, Right = 1440, Top = 1440, Bottom = 1440;
};

// Portrait width and height in twips of a paper code; false for a code the engine does not know.
bool PaperDimensions(std::int16_t code, std::int32_t& width, std::int32_t& height);

// The sheet as laid out: orientation applied. An unknown code falls back to A4.
void SheetSize(const PrinterSettings& printer, std::int32_t& width, std::int32_t& height);

}  // namespace lupin::engine
