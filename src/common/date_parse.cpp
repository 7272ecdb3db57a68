// Date texts as the order tables and the users write them.
#include <optional>

#include "common/date_calendar.h"
#include "common/text.h"
#include "common/vb.h"

namespace lupin::vb {

namespace {

class Scanner {
 public:
  explicit Scanner(std::string_view text) : text_(text) {}

  bool AtEnd() const { return pos_ == text_.size(); }
  bool Take(std::string_view token) {
    if (!text_.substr(pos_).starts_with(token)) return false;
    pos_ += token.size();
    return true;
  }
  // Up to max_digits digits; the count read goes to digits.
  std::optional<int> Number(int max_digits, int& digits) {
    int value = 0;
    digits = 0;
    while (pos_ < text_.size() && digits < max_digits && text_[pos_] >= '0' && text_[pos_] <= '9') {
      value = value * 10 + (text_[pos_++] - '0');
      ++digits;
    }
    if (digits == 0) return std::nullopt;
    return value;
  }
  bool SkipBlanks() {
    const std::size_t before = pos_;
    while (pos_ < text_.size() && text_[pos_] == ' ') ++pos_;
    return pos_ != before;
  }
  std::size_t Position() const { return pos_; }
  void Rewind(std::size_t pos) { pos_ = pos; }

 private:
  std::string_view text_;
  std::size_t pos_ = 0;
};

// "YYYY/M/D", "YYYY-MM-DD" or "YYYY年M月D日"; the day number, or nothing.
std::optional<std::int64_t> ScanDate(Scanner& in) {
  int digits = 0;
  const auto year_read = in.Number(4, digits);
  if (!year_read) return std::nullopt;
  int year = *year_read;
  if (digits <= 2) year += year < 30 ? 2000 : 1900;
  else if (year < 100) return std::nullopt;
  std::string_view second_separator;
  if (in.Take("/")) second_separator = "/";
  else if (in.Take("-")) second_separator = "-";
  else if (in.Take("年")) second_separator = "月";
  else return std::nullopt;
  const auto month = in.Number(2, digits);
  if (!month || !in.Take(second_separator)) return std::nullopt;
  const auto day = in.Number(2, digits);
  if (!day) return std::nullopt;
  if (second_separator == "月" && !in.Take("日")) return std::nullopt;
  if (*month < 1 || *month > 12 || *day < 1 || *day > DaysInMonth(year, *month)) return std::nullopt;
  return DayNumberOf(year, *month, *day);
}

// "H:MM" or "H:MM:SS"; seconds of the day, or nothing.
std::optional<int> ScanTime(Scanner& in) {
  int digits = 0;
  const auto hour = in.Number(2, digits);
  if (!hour || !in.Take(":")) return std::nullopt;
  const auto minute = in.Number(2, digits);
  if (!minute) return std::nullopt;
  int second = 0;
  if (in.Take(":")) {
    const auto read = in.Number(2, digits);
    if (!read) return std::nullopt;
    second = *read;
  }
  if (*hour > 23 || *minute > 59 || second > 59) return std::nullopt;
  return *hour * 3600 + *minute * 60 + second;
}

}  // namespace

std::optional<DateSerial> CDate(std::string_view text) {
  // Full-width digits and separators read as their half-width forms.
  const std::string narrow = text::ToNarrow(text);
  std::string_view s = narrow;
  while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
  while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
  if (s.empty()) return std::nullopt;

  Scanner in(s);
  std::int64_t day = 0;
  int second = 0;
  if (const auto date = ScanDate(in)) {
    day = *date;
    if (!in.AtEnd()) {
      if (!in.SkipBlanks()) return std::nullopt;
      const auto time = ScanTime(in);
      if (!time) return std::nullopt;
      second = *time;
    }
  } else {
    in.Rewind(0);
    const auto time = ScanTime(in);
    if (!time) return std::nullopt;
    second = *time;
  }
  if (!in.AtEnd()) return std::nullopt;
  if (day < static_cast<std::int64_t>(kLowestDate)) return std::nullopt;
  return JoinSerial(day, second);
}

bool IsDate(std::string_view text) { return CDate(text).has_value(); }

}  // namespace lupin::vb
