#include "reports/slips/den_no.h"

#include <cmath>

#include "common/text.h"
#include "common/vb.h"

namespace lupin::reports {

std::vector<int> RecordHyphens(std::string_view number) {
  std::vector<int> positions;
  int at = text::TextInStr(number, "-", 1);
  while (at > 0) {
    positions.push_back(at);
    at = text::TextInStr(number, "-", at + 1);
  }
  if (positions.empty()) positions.push_back(0);
  return positions;
}

int DenNoCheckDigit(double body) {
  return static_cast<int>(body - 7.0 * std::floor(body / 7.0));
}

void DenNoSeries::PrepareDenNo(std::string_view start_number) { hyphens_ = RecordHyphens(start_number); }

void DenNoSeries::MakeDenNoSeries(std::string_view start_number, int count) {
  if (start_number.empty()) return;
  std::string body = text::TextReplace(start_number, "-", "");
  body = text::CharLeft(body, text::CharLen(body) - 1);
  series_.assign(static_cast<std::size_t>(count > 0 ? count : 0), std::string());
  if (hyphens_.empty()) hyphens_.push_back(0);
  for (auto& element : series_) {
    const double value = vb::Val(body);
    element = body + vb::Format(static_cast<double>(DenNoCheckDigit(value)));
    if (hyphens_.front() != 0) {
      // Positions refer to the final text, so each insertion shifts the ones after it.
      for (const int position : hyphens_) {
        element = text::CharLeft(element, position - 1) + "-" + text::CharMid(element, position);
      }
    }
    body = vb::Format(value + 1.0);
  }
}

void DenNoSeries::ClearDenNo() {
  series_.clear();
  hyphens_.clear();
}

}  // namespace lupin::reports
