#include "reports/slips/slip_time_slots.h"

#include <algorithm>

#include "common/text.h"
#include "common/vb.h"

namespace lupin::reports {

namespace {

// 1-based character position of the separator: the first hyphen, else the first wave dash. The
// comparison ignores width, so "－" and "~" count; the wave dash typed on this platform (U+301C)
// is what the old code page's "～" became.
int SeparatorAt(std::string_view band) {
  if (const int hyphen = text::TextInStr(band, "-"); hyphen > 0) return hyphen;
  const int tilde = text::TextInStr(band, "～");
  const int wave = text::TextInStr(band, "〜");
  if (tilde == 0) return wave;
  if (wave == 0) return tilde;
  return std::min(tilde, wave);
}

// "AM9-12" or "AM9-AM12": the numbers behind the prefix and behind the separator, the prefix
// allowed again behind it.
void PrefixedNumbers(const std::string& band, std::string_view prefix, int separator, double& a, double& b) {
  const int prefix_chars = text::CharLen(prefix);
  a = vb::Val(text::CharMid(band, prefix_chars + 1, separator - prefix_chars - 1));
  std::string rest = text::CharMid(band, separator + 1);
  if (rest.starts_with(prefix)) rest.erase(0, prefix.size());
  b = vb::Val(rest);
}

std::string SlotOf(const std::vector<TimeSlotTable::Slot>& slots, double a, double b) {
  for (const auto& slot : slots) {
    if (a == slot.from && b == slot.to) return slot.mark;
  }
  return "";
}

}  // namespace

TimeBand ReadTimeBand(std::string_view time_band) {
  using Kind = TimeBand::Kind;
  const std::string typed = text::TextReplace(text::TextReplace(time_band, " ", ""), "　", "");
  if (typed.empty()) return {};
  if (typed == "午前中") return {Kind::Morning};
  for (const char* none : {"指定なし", "指定無し", "希望なし", "希望無し"}) {
    if (typed == none) return {Kind::NoPreference};
  }

  const std::string band = text::ToUpper(text::ToNarrow(typed));
  const int separator = SeparatorAt(band);
  if (separator == 0) return {};

  if (vb::IsNumeric(text::CharLeft(band, 1))) {
    const double a = vb::Val(text::CharLeft(band, separator - 1));
    const double b = vb::Val(text::CharMid(band, separator + 1));
    if (a > 0 && b == 12) return {Kind::Morning};
    return {Kind::Hours, a, b};
  }
  double a = 0, b = 0;
  if (band.starts_with("AM")) {
    PrefixedNumbers(band, "AM", separator, a, b);
    return a <= 9 && b == 12 ? TimeBand{Kind::Morning} : TimeBand{};
  }
  if (band.starts_with("PM")) {
    PrefixedNumbers(band, "PM", separator, a, b);
    return {Kind::Afternoon, a, b};
  }
  return {};
}

std::string TimeSlotTable::MarkFor(std::string_view typed) const {
  const TimeBand band = ReadTimeBand(typed);
  switch (band.kind) {
    case TimeBand::Kind::Morning: return morning;
    case TimeBand::Kind::NoPreference: return no_preference;
    case TimeBand::Kind::Hours: return SlotOf(hours, band.from, band.to);
    case TimeBand::Kind::Afternoon: return SlotOf(afternoon, band.from, band.to);
    case TimeBand::Kind::None: break;
  }
  return "";
}

}  // namespace lupin::reports
