#pragma once
// How the Yamato files break an address: behind the street number a full-width space separates
// the building and room, which go to the next field.
#include <array>
#include <string>
#include <string_view>

namespace lupin::exchange {

struct HouseNumberSplit {
  std::string address;  // blanks of the walked part dropped; "　" at the split
  int split_chars = 0;  // characters before the inserted space; 0 when there is no split
};

// Inserts one full-width space behind the end of the street number ("３－５－１ＡＢＣビル" →
// "３－５－１　ＡＢＣビル"). Without a place to split, the address without its blanks.
HouseNumberSplit SplitHouseNumber(std::string_view address);

// The B2 file's fields 12 to 15 from the split address, the company and the department: the
// street (64 bytes), the building (32), and two lines of 50 bytes for what is left of the address,
// the company and the department.
std::array<std::string, 4> B2AddressFields(std::string_view split_address, std::string company,
                                           std::string_view department);

// The text before the first full-width space and what follows it.
std::array<std::string, 2> AtFirstWideSpace(std::string_view text);

}  // namespace lupin::exchange
