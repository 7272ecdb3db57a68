// People and addresses for the demo data.
#include "demo/people.h"

#include <string>

#include "demo/words.h"

namespace lupin::demo {
namespace {

constexpr int kPrefectureCount = static_cast<int>(std::size(kPrefectures));

std::string Number(int value, int width = 0) {
  std::string text = std::to_string(value);
  while (static_cast<int>(text.size()) < width) text.insert(text.begin(), '0');
  return text;
}

std::string Replace(std::string_view form, std::string_view with) {
  std::string out(form);
  const auto at = out.find("{0}");
  if (at != std::string::npos) out.replace(at, 3, with);
  return out;
}

// 丁目・番地・号 in the forms seen in real orders: kanji, hyphens of several kinds, both widths.
std::string HouseNumber(Random& r) {
  const std::string a = Number(r.Between(1, 9));
  const std::string b = Number(r.Between(1, 30));
  const std::string c = Number(r.Between(1, 25));
  switch (r.Below(10)) {
    case 0: return a + "丁目" + b + "番" + c + "号";
    case 1: return ToWideAscii(a) + "丁目" + ToWideAscii(b) + "番" + ToWideAscii(c) + "号";
    case 2: return a + "-" + b + "-" + c;
    case 3: return ToWideAscii(a + "-" + b + "-" + c);
    case 4: return a + "丁目" + b + "-" + c;
    case 5: return Number(r.Between(1, 2500)) + "番地";
    case 6: return Number(r.Between(1, 999)) + "番地" + c;
    case 7: return ToWideAscii(Number(r.Between(1, 999))) + "番地の" + ToWideAscii(c);
    case 8: return a + "‐" + b + "‐" + c;
    default: return a + "ー" + b + "ー" + c;  // the long-vowel mark typed for a hyphen
  }
}

std::string Building(Random& r) {
  const std::string room = Number(r.Between(1, 12)) + Number(r.Between(1, 9), 2);
  const std::string_view name = r.Pick(kBuildings);
  switch (r.Below(5)) {
    case 0: return std::string(" ").append(name).append(room);
    case 1: return std::string("　").append(name).append(" ").append(room).append("号室");
    case 2: return std::string(" ").append(name).append(ToWideAscii(room));
    case 3: return std::string(name).append(" ").append(Number(r.Between(2, 9))).append("F");
    default: return std::string("　").append(name).append(Number(r.Between(1, 3))).append("階");
  }
}

std::string Postcode(Random& r, int prefix) {
  const std::string digits = Number(prefix, 3) + Number(r.Between(0, 9999), 4);
  switch (r.Below(10)) {
    case 0: return digits;
    case 1: return ToWideAscii(digits.substr(0, 3) + "-" + digits.substr(3));
    default: return digits.substr(0, 3) + "-" + digits.substr(3);
  }
}

std::string Phone(Random& r, std::string_view area_code) {
  std::string text;
  if (r.Percent(40)) {
    static constexpr std::string_view kMobile[] = {"090", "080", "070"};
    text = std::string(r.Pick(kMobile)) + "-" + Number(r.Between(0, 9999), 4) + "-" + Number(r.Between(0, 9999), 4);
  } else {
    const int local_width = 10 - static_cast<int>(area_code.size());
    const int first = local_width - 4;
    text = std::string(area_code) + "-" + Number(r.Between(1, 9)) + Number(r.Between(0, 999), first - 1) + "-" +
           Number(r.Between(0, 9999), 4);
  }
  if (r.Percent(8)) return ToWideAscii(text);
  if (r.Percent(5)) return DigitsOf(text);
  return text;
}

}  // namespace

std::string ToWideAscii(std::string_view text) {
  std::string out;
  for (char c : text) {
    const auto u = static_cast<unsigned char>(c);
    if (c == '-') {
      out += "－";
    } else if (u > 0x20 && u < 0x7F) {
      // U+FF01.. mirrors ASCII 0x21..; encode the three UTF-8 bytes.
      const unsigned code = 0xFF01u + (u - 0x21u);
      out += static_cast<char>(0xE0 | (code >> 12));
      out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
      out += static_cast<char>(0x80 | (code & 0x3F));
    } else {
      out += c;
    }
  }
  return out;
}

std::string DigitsOf(std::string_view text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto u = static_cast<unsigned char>(text[i]);
    if (u >= '0' && u <= '9') {
      out += text[i];
    } else if (u == 0xEF && i + 2 < text.size() && static_cast<unsigned char>(text[i + 1]) == 0xBC) {
      const auto last = static_cast<unsigned char>(text[i + 2]);
      if (last >= 0x90 && last <= 0x99) out += static_cast<char>('0' + (last - 0x90));  // ０..９
      i += 2;
    }
  }
  return out;
}

Person MakePerson(Random& random, int company_percent) {
  return MakePersonIn(random, random.Between(0, kPrefectureCount - 1), company_percent);
}

Person MakePersonIn(Random& r, int prefecture, int company_percent, int place) {
  Person p;
  p.prefecture = prefecture;
  const Prefecture& pref = kPrefectures[prefecture];
  const NamePart& surname = r.Pick(kSurnames);
  const NamePart& given = r.Pick(kGivenNames);
  static constexpr std::string_view kNameGaps[] = {" ", "　", "", "　"};
  const std::string_view gap = r.Pick(kNameGaps);
  p.name = std::string(surname.kanji) + std::string(gap) + std::string(given.kanji);
  p.kana = std::string(surname.kana) + (r.Percent(80) ? "　" : " ") + std::string(given.kana);
  if (r.Percent(company_percent)) {
    p.company = Replace(r.Pick(kCompanyForms), r.Pick(kCompanyStems));
    if (r.Percent(70)) p.department = r.Pick(kDepartments);
  }
  p.postcode = Postcode(r, pref.postcode);
  // A few operators leave the prefecture out.
  std::string address = place < 0 && r.Percent(3) ? "" : std::string(pref.name);
  address += place < 0 ? r.Pick(pref.places) : pref.places[place % 4];
  address += r.Pick(kTowns);
  address += HouseNumber(r);
  if (r.Percent(30)) address += Building(r);
  p.address = std::move(address);
  p.phone = Phone(r, pref.area_code);
  p.phone_digits = DigitsOf(p.phone);
  if (r.Percent(85)) {
    static constexpr std::string_view kDomains[] = {"example.jp", "example.com", "example.ne.jp", "mail.example.org"};
    p.email = std::string(surname.romaji) + "." + std::string(given.romaji) + Number(r.Between(1, 999)) + "@" +
              std::string(r.Pick(kDomains));
  }
  return p;
}

}  // namespace lupin::demo
