#include "common/settings.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <system_error>

#include "common/settings_keys.h"

namespace lupin::settings {
namespace {

constexpr std::string_view kSection = "LupinOrder6";

std::filesystem::path EnvPath(const char* name) {
  const char* value = std::getenv(name);
  return value && *value ? std::filesystem::path(value) : std::filesystem::path();
}

bool MachineStoreExists(const StorePaths& paths) {
  std::error_code error;
  return std::filesystem::is_regular_file(paths.machine_ini, error);
}

// The store folders are made when first written, as the old component made its application-data
// folders when missing.
void MakeFolderOf(const std::filesystem::path& file) {
  std::error_code error;
  if (file.has_parent_path()) std::filesystem::create_directories(file.parent_path(), error);
}

}  // namespace

StorePaths StorePaths::Default() {
  StorePaths paths;
  paths.machine_ini = EnvPath("LUPIN_MACHINE_INI");
  if (paths.machine_ini.empty()) paths.machine_ini = "/etc/xdg/Veltrona/LupinOrder6/machine.ini";
  std::filesystem::path config = EnvPath("XDG_CONFIG_HOME");
  if (config.empty()) {
    const std::filesystem::path home = EnvPath("HOME");
    config = home.empty() ? std::filesystem::current_path() / ".config" : home / ".config";
  }
  const std::filesystem::path folder = config / "Veltrona" / "LupinOrder6";
  paths.user_ini = folder / "lupin.ini";
  paths.fallback_ini = folder / "fallback.ini";
  return paths;
}

StorePaths StorePaths::InFolder(const std::filesystem::path& folder) {
  return StorePaths{folder / "machine.ini", folder / "lupin.ini", folder / "fallback.ini"};
}

bool Settings::NoCase::operator()(std::string_view a, std::string_view b) const {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
    return std::tolower(static_cast<unsigned char>(x)) < std::tolower(static_cast<unsigned char>(y));
  });
}

void Settings::Override(std::string_view key, std::string_view value) { overrides_[std::string(key)] = value; }

std::filesystem::path Settings::StoreFileForWrite(int number, std::string_view name) const {
  std::string_view key = SettingNameForWrite(number);
  if (key.empty()) key = name;
  if (!MachineStoreExists(paths_)) return paths_.fallback_ini;
  return IsMachineKeyOnWrite(number, key) ? paths_.machine_ini : paths_.user_ini;
}

std::string Settings::GetSetting(int number, std::string_view default_value, std::string_view name) const {
  std::string_view key = SettingNameForRead(number);
  if (key.empty()) key = name;
  if (key.empty()) return std::string(default_value);
  if (const auto it = overrides_.find(key); it != overrides_.end()) return it->second;

  if (!MachineStoreExists(paths_)) return ReadProfileString(paths_.fallback_ini, kSection, key, default_value);

  if (number == 0) {
    std::string user = ReadProfileString(paths_.user_ini, kSection, key, "");
    if (!user.empty()) return user;
    return ReadProfileString(paths_.machine_ini, kSection, key, default_value);
  }
  if (IsMachineKeyOnRead(number)) return ReadProfileString(paths_.machine_ini, kSection, key, default_value);
  return ReadProfileString(paths_.user_ini, kSection, key, default_value);
}

void Settings::SaveSetting(int number, std::string_view value, std::string_view name) {
  std::string_view key = SettingNameForWrite(number);
  if (key.empty()) key = name;
  if (key.empty()) return;

  if (!MachineStoreExists(paths_)) {
    MakeFolderOf(paths_.fallback_ini);
    WriteProfileString(paths_.fallback_ini, kSection, key, value);
    return;
  }
  if (IsMachineKeyOnWrite(number, key)) {
    WriteProfileString(paths_.machine_ini, kSection, key, value);
    return;
  }
  MakeFolderOf(paths_.user_ini);
  WriteProfileString(paths_.user_ini, kSection, key, value);
}

}  // namespace lupin::settings
