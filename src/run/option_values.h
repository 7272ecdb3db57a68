#pragma once
// Values typed on the command line: checked before they reach a form, and put in the form the
// selection form takes. Each check returns "" when the value is accepted, otherwise the refusal in
// Japanese, naming the option, the value and what is expected.
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace lupin::run {

using Range = std::pair<std::string, std::string>;  // FROM:TO, either side may be empty

// Parses "FROM:TO"; a missing colon gives FROM:FROM.
Range ParseRange(const std::string& text);

// "2026-09-01", "2026/9/1" → "2026/09/01"; "" when the text is no calendar date.
std::string NormalisedDate(std::string_view text);

// Normalises both dates of a range in place; refuses a side that is no date, an empty side unless
// allowed, and an end before the start.
std::string CheckDateRange(std::string_view option, Range& range, bool empty_side_allowed);

// Whole numbers on both sides (either may be empty), the end not below the start.
std::string CheckNumberRange(std::string_view option, const Range& range);

struct LoginParts {
  std::string user;
  std::int16_t number = 0;
  std::string client;
};
// "USER,NUMBER,CLIENT", exactly three parts, NUMBER a 16-bit whole number.
std::string CheckLogin(std::string_view text, LoginParts& parts);

// The first waybill number a slip run starts from: the typed text, trimmed, and the number the
// series gives it (the body kept, the check digit computed anew).
struct DenNoStart {
  std::string typed;
  std::string used;
  bool check_digit_replaced() const { return typed != used; }
};
// Refuses a start that is no waybill number of the report's carrier: other characters than
// digits and hyphens, or another count of digits than the carrier's pads carry.
std::string CheckDenNo(std::int32_t report_no, std::string_view text, DenNoStart& start);

// The carrier whose pads a waybill report prints on, "" for other reports.
std::string_view WaybillCarrierName(std::int32_t report_no);

}  // namespace lupin::run
