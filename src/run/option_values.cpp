#include "run/option_values.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <limits>
#include <optional>

#include "entry/catalogue.h"
#include "reports/slips/den_no.h"

namespace lupin::run {

namespace {

constexpr std::string_view kDateForm = "YYYY/MM/DD の日付 (2026/09/01、2026-09-01、2026/9/1 の形)";

std::string Quoted(std::string_view value) { return "'" + std::string(value) + "'"; }

std::optional<long long> WholeNumber(std::string_view text) {
  long long value = 0;
  const char* end = text.data() + text.size();
  const auto [at, error] = std::from_chars(text.data(), end, value);
  if (text.empty() || error != std::errc() || at != end) return std::nullopt;
  return value;
}

bool LeapYear(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

int DaysIn(int year, int month) {
  constexpr std::array<int, 12> kDays{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && LeapYear(year) ? 29 : kDays[static_cast<std::size_t>(month - 1)];
}

std::string Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return "";
  const auto last = text.find_last_not_of(" \t");
  return std::string(text.substr(first, last - first + 1));
}

// Waybill pads: eleven digits of running number and the check digit, for every carrier that
// gets numbers from this component.
struct CarrierPad {
  entry::Carrier carrier;
  std::string_view name;
  int digits;
};
constexpr std::array<CarrierPad, 4> kPads{{
    {entry::Carrier::Yamato, "ヤマト運輸", 12},
    {entry::Carrier::NipponExpress, "日本通運", 12},
    {entry::Carrier::Sagawa, "佐川急便", 12},
    {entry::Carrier::YuPack, "ゆうパック", 12},
}};

const CarrierPad* PadOf(std::int32_t report_no) {
  if (!entry::IsWaybillReport(report_no)) return nullptr;
  for (const CarrierPad& pad : kPads) {
    if (pad.carrier == entry::CatalogueOf(report_no).carrier) return &pad;
  }
  return nullptr;
}

}  // namespace

Range ParseRange(const std::string& text) {
  const auto colon = text.find(':');
  if (colon == std::string::npos) return {text, text};
  return {text.substr(0, colon), text.substr(colon + 1)};
}

std::string NormalisedDate(std::string_view text) {
  const char separator = text.find('-') != std::string_view::npos ? '-' : '/';
  const auto first = text.find(separator);
  const auto second = first == std::string_view::npos ? first : text.find(separator, first + 1);
  if (second == std::string_view::npos || text.find(separator, second + 1) != std::string_view::npos) return "";
  const std::string_view year_text = text.substr(0, first);
  const std::string_view month_text = text.substr(first + 1, second - first - 1);
  const std::string_view day_text = text.substr(second + 1);
  if (year_text.size() != 4 || month_text.empty() || month_text.size() > 2 || day_text.empty() ||
      day_text.size() > 2) {
    return "";
  }
  const auto year = WholeNumber(year_text), month = WholeNumber(month_text), day = WholeNumber(day_text);
  if (!year || !month || !day || *year < 1601 || *month < 1 || *month > 12 || *day < 1 ||
      *day > DaysIn(static_cast<int>(*year), static_cast<int>(*month))) {
    return "";
  }
  char out[16];
  std::snprintf(out, sizeof out, "%04lld/%02lld/%02lld", *year, *month, *day);
  return out;
}

std::string CheckDateRange(std::string_view option, Range& range, bool empty_side_allowed) {
  const std::string given = range.first + ":" + range.second;
  for (std::string* side : {&range.first, &range.second}) {
    if (side->empty()) {
      if (empty_side_allowed) continue;
      return std::string(option) + " の値 " + Quoted(given) + " には FROM:TO の両方の日付が必要です。" +
             std::string(kDateForm) + "で指定してください。";
    }
    const std::string date = NormalisedDate(*side);
    if (date.empty()) {
      return std::string(option) + " の値 " + Quoted(given) + " の " + Quoted(*side) + " は日付ではありません。" +
             std::string(kDateForm) + "で指定してください。";
    }
    *side = date;
  }
  if (!range.first.empty() && !range.second.empty() && range.second < range.first) {
    return std::string(option) + " の範囲 " + Quoted(given) + " は終わり (" + range.second + ") が始め (" +
           range.first + ") より前です。FROM:TO の順で指定してください。";
  }
  return "";
}

std::string CheckNumberRange(std::string_view option, const Range& range) {
  const std::string given = range.first + ":" + range.second;
  std::optional<long long> values[2];
  const std::string* sides[2] = {&range.first, &range.second};
  for (int i = 0; i < 2; ++i) {
    if (sides[i]->empty()) continue;
    values[i] = WholeNumber(*sides[i]);
    if (!values[i] || *values[i] < 0 || *values[i] > std::numeric_limits<std::int32_t>::max()) {
      return std::string(option) + " の値 " + Quoted(given) + " の " + Quoted(*sides[i]) +
             " は番号ではありません。0 以上の整数で FROM:TO の形に指定してください。";
    }
  }
  if (values[0] && values[1] && *values[1] < *values[0]) {
    return std::string(option) + " の範囲 " + Quoted(given) + " は終わりが始めより小さい値です。FROM:TO の順で指定してください。";
  }
  return "";
}

std::string CheckLogin(std::string_view text, LoginParts& parts) {
  std::string_view rest = text;
  std::string pieces[3];
  int count = 0;
  for (;;) {
    const auto comma = rest.find(',');
    if (count < 3) pieces[count] = std::string(rest.substr(0, comma));
    ++count;
    if (comma == std::string_view::npos) break;
    rest.remove_prefix(comma + 1);
  }
  const auto number = count == 3 ? WholeNumber(pieces[1]) : std::nullopt;
  if (!number || *number < std::numeric_limits<std::int16_t>::min() ||
      *number > std::numeric_limits<std::int16_t>::max()) {
    return "--login の値 " + Quoted(text) +
           " は使えません。利用者,番号,端末名 の 3 つをカンマで区切って指定してください "
           "(番号は -32768〜32767 の整数、端末名は CLIENT_NAME。例: 山田,1,PC01)。";
  }
  parts = {pieces[0], static_cast<std::int16_t>(*number), pieces[2]};
  return "";
}

std::string_view WaybillCarrierName(std::int32_t report_no) {
  const CarrierPad* pad = PadOf(report_no);
  return pad ? pad->name : std::string_view();
}

std::string CheckDenNo(std::int32_t report_no, std::string_view text, DenNoStart& start) {
  start.typed = Trimmed(text);
  start.used.clear();
  if (start.typed.empty()) return "";
  const CarrierPad* pad = PadOf(report_no);
  if (pad == nullptr) {
    return "--denno は宅配伝票番号を付番する帳票 (ヤマト、日通、佐川、ゆうパックの伝票) だけで指定できます。帳票番号 " +
           std::to_string(report_no) + " には付番しません。";
  }
  int digits = 0;
  bool other = false;
  for (char c : start.typed) {
    if (c >= '0' && c <= '9') {
      ++digits;
    } else if (c != '-') {
      other = true;
    }
  }
  if (other || digits != pad->digits) {
    return "--denno の値 " + Quoted(start.typed) + " は" + std::string(pad->name) + "の伝票番号ではありません。" +
           std::to_string(pad->digits) + " 桁の数字 (最後の 1 桁はチェックデジット、ハイフン可。例: 1234-5678-9013) で指定してください。";
  }
  reports::DenNoSeries series;
  series.PrepareDenNo(start.typed);
  series.MakeDenNoSeries(start.typed, 1);
  start.used = series.Series().front();
  return "";
}

}  // namespace lupin::run
