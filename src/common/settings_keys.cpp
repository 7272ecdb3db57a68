// The numbered settings keys and where each is read.
#include <array>

#include "common/settings_keys.h"

namespace lupin::settings {
namespace {

struct NumberedKey {
  int number;
  std::string_view name;
  bool machine_on_read;  // otherwise the user file
  bool named_for_read;
  bool named_for_write;
};

// 19 is named only for writing and 32 only for reading; callers have relied on that since the
// old forms, so both stay. 30 and 31 are not used here.
constexpr std::array<NumberedKey, 33> kKeys{{
    {1, "BDBPath", true, true, true},
    {2, "AttachPath", true, true, true},
    {3, "TimeOut", false, true, true},
    {4, "SavePathB", false, true, true},
    {5, "SavePathT", false, true, true},
    {6, "TDBPath", true, true, true},
    {7, "DBPath", true, true, true},
    {8, "Tax", false, true, true},
    {9, "AutoDelete", false, true, true},
    {10, "WaveFile", false, true, true},
    {11, "SendLog", false, true, true},
    {12, "GetLog", false, true, true},
    {13, "LogPath", true, true, true},
    {14, "NoAttach", false, true, true},
    {15, "SendBox", true, true, true},
    {16, "SendPreview", false, true, true},
    {17, "PrevSiwake", false, true, true},
    {18, "PrevTemplate", false, true, true},
    {19, "RDbPath", false, false, true},
    {20, "BackUpPath", false, true, true},
    {21, "UidlPath", true, true, true},
    {22, "WindowSize", false, true, true},
    {23, "WindowSizeIndex", false, true, true},
    {24, "SelectedShop", false, true, true},
    {25, "PrevLoginUser", false, true, true},
    {26, "SearchMode", false, true, true},
    {27, "SearchWindow", false, true, true},
    {28, "SearchWindowPos", false, true, true},
    {29, "DMKbnInitValue", false, true, true},
    {32, "RFormatPath", true, true, false},
    {33, "SiwakeSkipOverFlowMsg", false, true, true},
    {34, "ListSort", false, true, true},
    {0, "", false, false, false},
}};

const NumberedKey* Find(int number) {
  if (number == 0) return nullptr;
  for (const NumberedKey& key : kKeys)
    if (key.number == number) return &key;
  return nullptr;
}

}  // namespace

std::string_view SettingNameForRead(int number) {
  const NumberedKey* key = Find(number);
  return key && key->named_for_read ? key->name : std::string_view();
}

std::string_view SettingNameForWrite(int number) {
  const NumberedKey* key = Find(number);
  return key && key->named_for_write ? key->name : std::string_view();
}

bool IsMachineKeyOnRead(int number) {
  const NumberedKey* key = Find(number);
  return key && key->named_for_read && key->machine_on_read;
}

bool IsMachineKeyOnWrite(int number, std::string_view name) {
  switch (number) {
    case 2: case 7: case 13: case 15: case 21:
      return true;
    default:
      return name == "ConnectString" || name == "ResouceMode";
  }
}

}  // namespace lupin::settings
