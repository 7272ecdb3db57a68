#pragma once
// The machine-read line of the postal payment slip: four blocks of digits, printed in OCR-B. The
// 12-digit blocks 5, 6 and 8 carry the account, the order and the amount; block 7 closes the line
// with a check digit over the three.
#include <array>
#include <string>
#include <string_view>

namespace lupin::reports {

// The slip's account as the settings give it: "00120-3-456789" or "001203456789 (note)".
struct SlipAccount {
  std::string symbol = "00000";  // office symbol part, 5 characters
  std::string check;             // check character
  std::string number;            // the account number, trimmed
  std::string text;              // the whole text, before the first blank, without "-"

  // symbol + number right-aligned with zeros in 6 places: the member string of the line.
  std::string Member() const;
};

SlipAccount ParseSlipAccount(std::string_view settings_text);

struct OcrLine {
  std::string block5, block6, block7, block8;
};

// 3 × the digits at even places + the digits at odd places, of a 12-digit block.
int OcrBlockSum(std::string_view block);
OcrLine MakeOcrLine(const SlipAccount& account, std::string_view order_id, std::string_view count, long amount);

}  // namespace lupin::reports
