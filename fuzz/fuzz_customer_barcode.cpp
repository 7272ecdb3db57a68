// The customer barcode data from a postcode and an address: any text gives at most 20 units of
// the characters the Japan Post symbol can carry, and the symbol encoder accepts what it is given
// or says why not.
#include <string>

#include "engine/barcode.h"
#include "fuzz_input.h"
#include "reports/slips/customer_barcode.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  lupin::fuzz::Input input(data, size);
  const std::string zip = input.Piece();
  const std::string address = input.Rest();
  const std::string code = lupin::reports::MakeCustomerBarcode(zip, address);
  // The postcode is taken as the shop typed it once it reads as a number; the address part is
  // what the bar code can say.
  if (!zip.empty() && zip.find_first_not_of("0123456789") == std::string::npos) {
    for (const char c : code) {
      const bool allowed = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || c == '-';
      if (!allowed) lupin::fuzz::Fail("barcode data holds a character the symbol cannot carry");
    }
  }
  const auto symbol = lupin::engine::EncodeBarcode("JapanPost", code);
  if (!symbol.ok && symbol.message.empty()) lupin::fuzz::Fail("barcode refused without a reason");
  const auto raw = lupin::engine::EncodeBarcode("JapanPost", address);
  if (!raw.ok && raw.message.empty()) lupin::fuzz::Fail("barcode of raw text refused without a reason");
  return 0;
}
