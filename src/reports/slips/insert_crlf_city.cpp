// The break behind the prefecture and municipality of an address.
#include <algorithm>

#include "common/text.h"
#include "reports/slips/insert_crlf.h"
#include "reports/slips/insert_crlf_chars.h"

namespace lupin::reports {

namespace {

enum class PrefectureKind { None = 0, Tokyo = 1, Hokkaido = 2, Fu = 3, Ken = 4 };

struct Prefecture {
  std::u32string name;
  PrefectureKind kind = PrefectureKind::None;
};

Prefecture FindPrefecture(const std::u32string& text) {
  if (text.starts_with(U"京都府")) return {U"京都府", PrefectureKind::Fu};
  if (text.starts_with(U"北海道")) return {U"北海道", PrefectureKind::Hokkaido};
  if (text.starts_with(U"東京都")) return {U"東京都", PrefectureKind::Tokyo};
  // A prefecture name has at most four characters (神奈川県); a later 県 belongs to a town name.
  for (const auto& [word, kind] : {std::pair{U"府", PrefectureKind::Fu}, std::pair{U"県", PrefectureKind::Ken}}) {
    const int at = crlf::CharInStr(text, word, 2);
    if (at >= 1 && at <= 4) return {text.substr(0, static_cast<std::size_t>(at)), kind};
  }
  return {};
}

// Characters of rest that belong to the first line, behind the prefecture.
std::size_t MunicipalityLength(const std::u32string& rest, PrefectureKind kind) {
  static const std::vector<std::u32string> exceptions = [] {
    std::vector<std::u32string> words;
    for (std::string_view exception : CityExceptions()) words.push_back(text::ToU32(exception));
    return words;
  }();
  for (const std::u32string& word : exceptions) {
    if (rest.starts_with(word)) return word.size();
  }
  if (kind == PrefectureKind::None) return 0;

  const int shi = crlf::CharInStr(rest, U"市", 2);
  const int gun = crlf::CharInStr(rest, U"郡", 2);
  int first = 0;
  bool first_is_gun = false;
  auto consider = [&](int at, bool is_gun) {
    if (at != 0 && (first == 0 || at < first)) first = at, first_is_gun = is_gun;
  };
  if (kind == PrefectureKind::Tokyo) consider(crlf::CharInStr(rest, U"区", 2), false);
  consider(shi, false);
  consider(gun, true);
  if (first == 0) return 0;
  if (!first_is_gun) return static_cast<std::size_t>(first);

  // Inside a district the town or village closes the municipality (北安曇郡白馬村).
  const int machi = crlf::CharInStr(rest, U"町", gun + 2);
  const int mura = crlf::CharInStr(rest, U"村", gun + 2);
  if (machi != 0 && mura != 0) return static_cast<std::size_t>(std::min(machi, mura));
  if (machi != 0 || mura != 0) return static_cast<std::size_t>(std::max(machi, mura));
  return static_cast<std::size_t>(gun);
}

}  // namespace

const std::vector<std::string_view>& CityExceptions() {
  static const std::vector<std::string_view> exceptions{
      "小郡市", "八日市場市", "今市市", "四日市市", "八日市市", "廿日市市", "余市郡", "高市郡",
      "杵島郡", "大町町", "北松浦郡鹿町町", "蒲郡市", "佐波郡玉村町", "恵那郡岩村町", "東宇和島郡野村町"};
  return exceptions;
}

std::string InsertCrLf::SplitAtCity(std::string_view text) const {
  const std::u32string whole = text::ToU32(text);
  const Prefecture prefecture = FindPrefecture(whole);
  const std::u32string rest = whole.substr(prefecture.name.size());
  const std::size_t first_chars = prefecture.name.size() + MunicipalityLength(rest, prefecture.kind);
  const std::string first = text::FromU32(std::u32string_view(whole).substr(0, first_chars));

  const int first_bytes = text::ByteLen(first);
  if (first_bytes < LineBytes && first_bytes >= MinLineBytes) {
    return first + std::string(kCrLf) + text::FromU32(std::u32string_view(whole).substr(first_chars));
  }

  // The city break would leave a line too short or too long: break before the house number,
  // and only when what stands before it cannot fit on one line anyway.
  int bytes_before = 0;
  for (const crlf::CharAt& ch : crlf::Characters(text)) {
    if (crlf::IsNumericChar(ch.code_point)) {
      return bytes_before > LineBytes ? HardBreak(text, LineBytes) : std::string(text);
    }
    bytes_before += ch.sjis_bytes;
  }
  return std::string(text);
}

}  // namespace lupin::reports
