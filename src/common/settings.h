#pragma once
// The three settings stores: a machine-wide INI file (the machine store), the user file lupin.ini,
// and a per-user fallback for a machine whose machine store does not exist.
#include <filesystem>
#include <map>
#include <span>
#include <string>
#include <utility>
#include <string_view>

namespace lupin::settings {

// Where the stores live. Every path can be redirected so tests never touch a real home.
struct StorePaths {
  std::filesystem::path machine_ini;   // the machine store; "exists" means this file exists
  std::filesystem::path user_ini;      // lupin.ini, section LupinOrder6
  std::filesystem::path fallback_ini;  // section LupinOrder6
  // Defaults: $LUPIN_MACHINE_INI or /etc/xdg/Veltrona/LupinOrder6/machine.ini;
  // $XDG_CONFIG_HOME (or ~/.config)/Veltrona/LupinOrder6/lupin.ini and fallback.ini beside it.
  static StorePaths Default();
  // All three inside one folder: machine.ini, lupin.ini, fallback.ini.
  static StorePaths InFolder(const std::filesystem::path& folder);
};

// Windows profile semantics: case-insensitive sections and keys, values up to 1,024 characters,
// writing one key keeps the rest of the file. A file is read as UTF-8 when it is valid UTF-8 (with
// or without BOM) and as CP932 otherwise, and written back in the encoding it was read in.
std::string ReadProfileString(const std::filesystem::path& file, std::string_view section,
                              std::string_view key, std::string_view default_value);
// Writes atomically (temporary file, then rename). Returns false when the file cannot be written.
bool WriteProfileString(const std::filesystem::path& file, std::string_view section,
                        std::string_view key, std::string_view value);
// Several keys of one section, in order, with one replacement of the file.
bool WriteProfileStrings(const std::filesystem::path& file, std::string_view section,
                         std::span<const std::pair<std::string_view, std::string_view>> entries);

class Settings {
 public:
  explicit Settings(StorePaths paths) : paths_(std::move(paths)) {}
  // Key numbers name most settings; 0 (or a number outside the table) takes `name`.
  std::string GetSetting(int number, std::string_view default_value, std::string_view name = "") const;
  void SaveSetting(int number, std::string_view value, std::string_view name = "");
  const StorePaths& Paths() const { return paths_; }
  // A value that every read of the key (by number or by name) returns for the life of this object,
  // without touching the stores: a batch run's setting for that run only. Keys compare without case.
  void Override(std::string_view key, std::string_view value);
  // The file a SaveSetting of the number or name writes to.
  std::filesystem::path StoreFileForWrite(int number, std::string_view name = "") const;

 private:
  struct NoCase {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const;
  };
  StorePaths paths_;
  std::map<std::string, std::string, NoCase> overrides_;
};

// Key names of the numbered settings, "" for a number outside the table (reading and writing differ
// at 19 and 32).
std::string_view SettingNameForRead(int number);
std::string_view SettingNameForWrite(int number);

}  // namespace lupin::settings
