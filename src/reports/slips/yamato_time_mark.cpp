#include "reports/slips/yamato_time_mark.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "common/text.h"
#include "common/vb.h"

namespace lupin::reports {

namespace {

struct Band {
  double from, to;
  int mark;
};

constexpr Band kHourBands[] = {{12, 14, 2}, {14, 16, 3}, {16, 18, 4}, {18, 20, 5}, {20, 21, 6}};
constexpr Band kAfternoonBands[] = {{0, 2, 2}, {2, 4, 3}, {4, 6, 4}, {6, 8, 5}, {8, 9, 6}};

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

int MarkOf(const Band* begin, const Band* end, double a, double b) {
  for (const Band* band = begin; band != end; ++band) {
    if (a == band->from && b == band->to) return band->mark;
  }
  return 0;
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

}  // namespace

int DeliveryTimeMark(std::string_view time_band) {
  const std::string typed = text::TextReplace(text::TextReplace(time_band, " ", ""), "　", "");
  if (typed.empty()) return 0;
  if (typed == "午前中") return 1;
  for (const char* none : {"指定なし", "指定無し", "希望なし", "希望無し"}) {
    if (typed == none) return 0;
  }

  const std::string band = text::ToUpper(text::ToNarrow(typed));
  const int separator = SeparatorAt(band);
  if (separator == 0) return 0;

  if (vb::IsNumeric(text::CharLeft(band, 1))) {
    const double a = vb::Val(text::CharLeft(band, separator - 1));
    const double b = vb::Val(text::CharMid(band, separator + 1));
    if (a > 0 && b == 12) return 1;
    return MarkOf(std::begin(kHourBands), std::end(kHourBands), a, b);
  }
  double a = 0, b = 0;
  if (band.starts_with("AM")) {
    PrefixedNumbers(band, "AM", separator, a, b);
    return a <= 9 && b == 12 ? 1 : 0;
  }
  if (band.starts_with("PM")) {
    PrefixedNumbers(band, "PM", separator, a, b);
    return MarkOf(std::begin(kAfternoonBands), std::end(kAfternoonBands), a, b);
  }
  return 0;
}

}  // namespace lupin::reports
