#include "app/setting_names.h"

#include <algorithm>
#include <cctype>

#include "common/settings.h"

namespace lupin::app {

namespace {

constexpr int kHighestNumber = 34;

// Keys the component reads by name; the file reports' paths among them.
constexpr std::string_view kNamedKeys[] = {
    "ResouceMode", "ConnectString", "ICatsPath", "EHidenPath", "WellNetPath", "NPUriagePath", "NPSyukkaPath",
    "ABUriagePath", "ABSyukkaPath", "YupackPath", "AmazonSyukkaPath", "AmazonShop", "TaxCheckDate", "WellNetKigenDays",
};

bool SameNoCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
    return std::tolower(static_cast<unsigned char>(x)) == std::tolower(static_cast<unsigned char>(y));
  });
}

}  // namespace

const std::vector<SettingName>& KnownSettings() {
  static const std::vector<SettingName> names = [] {
    std::vector<SettingName> list;
    for (int number = 1; number <= kHighestNumber; ++number) {
      // 19 has a name only for writing and 32 only for reading; either makes it a key.
      std::string_view name = settings::SettingNameForRead(number);
      if (name.empty()) name = settings::SettingNameForWrite(number);
      if (!name.empty()) list.push_back({std::string(name), number});
    }
    for (const std::string_view name : kNamedKeys) list.push_back({std::string(name), 0});
    return list;
  }();
  return names;
}

const SettingName* FindSetting(std::string_view name) {
  for (const SettingName& known : KnownSettings()) {
    if (SameNoCase(known.name, name)) return &known;
  }
  return nullptr;
}

std::string KnownSettingList() {
  std::string list;
  for (const SettingName& known : KnownSettings()) list += (list.empty() ? "" : ", ") + known.name;
  return list;
}

}  // namespace lupin::app
