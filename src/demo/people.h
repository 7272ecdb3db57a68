#pragma once
// People, companies, addresses and telephone numbers in the forms operators really enter.
#include <string>
#include <string_view>

#include "demo/random.h"

namespace lupin::demo {

struct Person {
  std::string company;
  std::string department;
  std::string name;
  std::string kana;
  std::string postcode;
  std::string address;
  std::string phone;         // as typed: hyphens, sometimes full-width
  std::string phone_digits;  // half-width digits only, the search form
  std::string email;
  int prefecture = 0;        // index into kPrefectures
};

// company_percent: the chance that the person writes a company and department.
Person MakePerson(Random& random, int company_percent);
// The prefecture, and the place when `place` is 0..3, are chosen by the caller, so that a run can
// cover all of them; a covering person always writes the prefecture.
Person MakePersonIn(Random& random, int prefecture, int company_percent, int place = -1);

// ASCII digits, "-" and letters to their full-width forms.
std::string ToWideAscii(std::string_view text);
// Only the digits, full-width ones narrowed.
std::string DigitsOf(std::string_view text);

}  // namespace lupin::demo
