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
  for (const char c : code) {
    const bool allowed = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || c == '-';
    if (!allowed) __builtin_trap();
  }
  const auto symbol = lupin::engine::EncodeBarcode("JapanPost", code);
  if (!symbol.ok && symbol.message.empty()) __builtin_trap();
  const auto raw = lupin::engine::EncodeBarcode("JapanPost", address);
  if (!raw.ok && raw.message.empty()) __builtin_trap();
  return 0;
}
