#pragma once
// The settings keys lupinprint knows, for --set and the settings command: the numbered keys and
// the keys the component reads by name.
#include <string>
#include <string_view>
#include <vector>

namespace lupin::app {

struct SettingName {
  std::string name;
  int number;  // the key number, 0 for a key read by name
};

const std::vector<SettingName>& KnownSettings();
// The known key of that name, compared without case; null when unknown.
const SettingName* FindSetting(std::string_view name);
// "BDBPath, AttachPath, …" for a refusal.
std::string KnownSettingList();

}  // namespace lupin::app
