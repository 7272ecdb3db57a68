// Names and addresses broken for a slip's boxes: any text and width give lines that hold only the
// text's own characters, and never cut a double-byte character.
#include <string>

#include "common/text.h"
#include "fuzz_input.h"
#include "reports/slips/insert_crlf.h"

namespace {

// Widths by Shift-JIS bytes, so the fuzzer needs no fonts.
class ByteMeasurer final : public lupin::engine::TextMeasurer {
 public:
  double WidthTwips(std::string_view text, const lupin::engine::FontSpec&) override {
    return 100.0 * static_cast<double>(lupin::text::ByteLen(text));
  }
};

// Whole UTF-8 sequences only (no overlong or surrogate check: the cut is what is looked for).
bool WholeUtf8(std::string_view text) {
  for (std::size_t i = 0; i < text.size();) {
    const auto lead = static_cast<unsigned char>(text[i]);
    const std::size_t length = lead < 0x80 ? 1 : (lead >> 5) == 6 ? 2 : (lead >> 4) == 14 ? 3 : (lead >> 3) == 30 ? 4 : 0;
    if (length == 0 || i + length > text.size()) return false;
    for (std::size_t k = 1; k < length; ++k) {
      if ((static_cast<unsigned char>(text[i + k]) & 0xC0) != 0x80) return false;
    }
    i += length;
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  lupin::fuzz::Input input(data, size);
  const int width = input.Byte() * 40;
  const int cut = input.Byte() % 64;
  const std::string text = input.Rest();
  ByteMeasurer measurer;
  lupin::reports::InsertCrLf breaker;
  lupin::engine::FontSpec font;
  breaker.LineBytes = breaker.FitLineBytes(measurer, font, width, text);
  const std::string address = breaker.InsertCrLfAddress(text);
  breaker.LineBytes = breaker.FitLineBytes(measurer, font, width, text);
  const std::string name = breaker.InsertCrLfName(text);
  const std::string hard = lupin::reports::HardBreak(text, cut);
  // A break never lands inside a character of a text that was whole.
  if (WholeUtf8(text) && (!WholeUtf8(address) || !WholeUtf8(name) || !WholeUtf8(hard))) lupin::fuzz::Fail("a break cut a character");
  return 0;
}
