#include "run/carrier_filter.h"

#include <array>

namespace lupin::run {

namespace {

constexpr std::array<std::string_view, 2> kYamato{"ヤマト", "クロネコ"};
constexpr std::array<std::string_view, 2> kNittsu{"日通", "日本通運"};
constexpr std::array<std::string_view, 1> kSagawa{"佐川"};
constexpr std::array<std::string_view, 2> kYuPack{"郵", "ゆう"};
// Any carrier text holding this character passes, whatever the company.
constexpr std::array<std::string_view, 1> kFukuyama{"福"};
constexpr std::array<std::string_view, 2> kSeino{"西濃", "カンガル"};

}  // namespace

std::span<const std::string_view> CarrierWords(std::int32_t report_no) {
  switch (report_no) {
    case 2: case 3: case 25: case 26: case 90: case 97:
      return kYamato;
    case 16: case 17: case 42: case 43:
      return kNittsu;
    case 18: case 19: case 51: case 52: case 91: case 96: case 104:
      return kSagawa;
    case 20: case 21: case 40: case 41: case 47: case 48: case 49: case 89: case 95: case 102:
      return kYuPack;
    case 31: case 32: case 50: case 53:
      return kFukuyama;
    case 33: case 34:
      return kSeino;
    default:
      return {};
  }
}

bool CarrierMatches(std::int32_t report_no, std::string_view carrier_text) {
  const auto words = CarrierWords(report_no);
  if (words.empty()) return true;
  for (const auto word : words) {
    if (carrier_text.find(word) != std::string_view::npos) return true;
  }
  return false;
}

}  // namespace lupin::run
