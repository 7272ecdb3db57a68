#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "common/settings.h"

namespace lupin::settings {
namespace {

namespace fs = std::filesystem;

class StoreTest : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ = fs::temp_directory_path() /
              ("lupin_store_" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
    fs::remove_all(folder_);
    fs::create_directories(folder_);
    paths_ = StorePaths::InFolder(folder_);
  }
  void TearDown() override { fs::remove_all(folder_); }

  void CreateMachineStore() { std::ofstream(paths_.machine_ini) << "[LupinOrder6]\n"; }
  // Which store holds the key afterwards: "machine", "user", "fallback" or "" when none.
  std::string StoreHolding(std::string_view key) const {
    std::string where;
    const auto probe = [&](const fs::path& file, const char* label) {
      if (ReadProfileString(file, "LupinOrder6", key, "\x01") != "\x01") where += label;
    };
    probe(paths_.machine_ini, "machine");
    probe(paths_.user_ini, "user");
    probe(paths_.fallback_ini, "fallback");
    return where;
  }

  fs::path folder_;
  StorePaths paths_;
};

TEST(SettingNames, ReadAndWriteDifferOnlyAt19And32) {
  for (int number = -1; number <= 40; ++number) {
    SCOPED_TRACE(number);
    if (number == 19) {
      EXPECT_EQ(SettingNameForRead(number), "");
      EXPECT_EQ(SettingNameForWrite(number), "RDbPath");
    } else if (number == 32) {
      EXPECT_EQ(SettingNameForRead(number), "RFormatPath");
      EXPECT_EQ(SettingNameForWrite(number), "");
    } else {
      EXPECT_EQ(SettingNameForRead(number), SettingNameForWrite(number));
    }
  }
  for (int unused : {0, 30, 31, 35, -1}) EXPECT_EQ(SettingNameForRead(unused), "") << unused;
  EXPECT_EQ(SettingNameForRead(1), "BDBPath");
  EXPECT_EQ(SettingNameForRead(34), "ListSort");
}

struct WriteRoute {
  int number;
  const char* name;
  const char* key;    // the key that ends up written
  const char* store;  // where, with the machine store present
};

class SaveRouteTest : public StoreTest, public ::testing::WithParamInterface<WriteRoute> {};

TEST_P(SaveRouteTest, GoesToItsStore) {
  CreateMachineStore();
  Settings settings(paths_);
  settings.SaveSetting(GetParam().number, "value", GetParam().name);
  EXPECT_EQ(StoreHolding(GetParam().key), GetParam().store);
}

TEST_P(SaveRouteTest, GoesToFallbackWithoutMachineStore) {
  Settings settings(paths_);
  settings.SaveSetting(GetParam().number, "value", GetParam().name);
  EXPECT_EQ(StoreHolding(GetParam().key), "fallback");
  EXPECT_FALSE(fs::exists(paths_.machine_ini));
}

INSTANTIATE_TEST_SUITE_P(
    Routes, SaveRouteTest,
    ::testing::Values(WriteRoute{2, "", "AttachPath", "machine"}, WriteRoute{7, "", "DBPath", "machine"},
                      WriteRoute{13, "", "LogPath", "machine"}, WriteRoute{15, "", "SendBox", "machine"},
                      WriteRoute{21, "", "UidlPath", "machine"},
                      // Read from the machine store, yet written to the user file.
                      WriteRoute{1, "", "BDBPath", "user"}, WriteRoute{6, "", "TDBPath", "user"},
                      WriteRoute{8, "", "Tax", "user"}, WriteRoute{19, "", "RDbPath", "user"},
                      // 32 has no name for writing: the given name is used.
                      WriteRoute{32, "MyFormat", "MyFormat", "user"},
                      WriteRoute{0, "ConnectString", "ConnectString", "machine"},
                      WriteRoute{0, "ResouceMode", "ResouceMode", "machine"},
                      WriteRoute{0, "YupackPath", "YupackPath", "user"}),
    [](const auto& p) { return "n" + std::to_string(p.param.number) + "_" + std::string(p.param.key); });

TEST_F(StoreTest, SaveWithNoNameWritesNothing) {
  CreateMachineStore();
  Settings settings(paths_);
  settings.SaveSetting(32, "x");
  settings.SaveSetting(0, "x");
  EXPECT_FALSE(fs::exists(paths_.user_ini));
  EXPECT_EQ(StoreHolding("RFormatPath"), "");
}

TEST_F(StoreTest, ReadNumber19TakesTheName) {
  CreateMachineStore();
  Settings settings(paths_);
  settings.SaveSetting(19, "C:\\r.mdb");
  // Written under RDbPath, but a read by 19 has no key name of its own.
  EXPECT_EQ(settings.GetSetting(19, "dflt"), "dflt");
  EXPECT_EQ(settings.GetSetting(19, "dflt", "RDbPath"), "C:\\r.mdb");
  EXPECT_EQ(settings.GetSetting(0, "dflt", "RDbPath"), "C:\\r.mdb");
}

TEST_F(StoreTest, ReadNumber32ComesFromMachineStore) {
  CreateMachineStore();
  WriteProfileString(paths_.machine_ini, "LupinOrder6", "RFormatPath", "/srv/format");
  WriteProfileString(paths_.user_ini, "LupinOrder6", "RFormatPath", "/home/format");
  Settings settings(paths_);
  EXPECT_EQ(settings.GetSetting(32, ""), "/srv/format");
}

struct ReadRoute {
  const char* label;
  int number;
  const char* name;
  const char* machine;   // value in the machine store, nullptr for absent
  const char* user;      // value in the user file
  const char* fallback;  // value in the fallback store
  bool machine_exists;
  const char* expected;
};

class GetRouteTest : public StoreTest, public ::testing::WithParamInterface<ReadRoute> {};

TEST_P(GetRouteTest, ReadsTheRightStore) {
  const ReadRoute& c = GetParam();
  if (c.machine_exists) CreateMachineStore();
  const std::string key = c.name[0] ? c.name : std::string(SettingNameForRead(c.number));
  if (c.machine && c.machine_exists) WriteProfileString(paths_.machine_ini, "LupinOrder6", key, c.machine);
  if (c.user) WriteProfileString(paths_.user_ini, "LupinOrder6", key, c.user);
  if (c.fallback) WriteProfileString(paths_.fallback_ini, "LupinOrder6", key, c.fallback);
  EXPECT_EQ(Settings(paths_).GetSetting(c.number, "D", c.name), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Routes, GetRouteTest,
    ::testing::Values(
        ReadRoute{"machine_key", 7, "", "m", "u", "f", true, "m"},
        ReadRoute{"machine_key_missing_gives_default", 7, "", nullptr, "u", "f", true, "D"},
        ReadRoute{"user_key", 8, "", "m", "u", "f", true, "u"},
        ReadRoute{"user_key_missing_gives_default", 8, "", "m", nullptr, "f", true, "D"},
        ReadRoute{"by_name_user_wins", 0, "ICatsPath", "m", "u", "f", true, "u"},
        ReadRoute{"by_name_empty_user_falls_to_machine", 0, "ICatsPath", "m", "", "f", true, "m"},
        ReadRoute{"by_name_nowhere", 0, "ICatsPath", nullptr, nullptr, "f", true, "D"},
        ReadRoute{"no_machine_store_uses_fallback", 7, "", nullptr, "u", "f", false, "f"},
        ReadRoute{"no_machine_store_by_name", 0, "ICatsPath", nullptr, "u", "f", false, "f"},
        ReadRoute{"no_machine_store_nothing", 8, "", nullptr, "u", nullptr, false, "D"},
        ReadRoute{"empty_user_value_is_empty", 8, "", "m", "", "f", true, ""},
        ReadRoute{"out_of_table_reads_user_only", 31, "Extra", "m", nullptr, nullptr, true, "D"}),
    [](const auto& p) { return std::string(p.param.label); });

TEST_F(StoreTest, EmptyNameOutOfTableGivesDefaultAtOnce) {
  CreateMachineStore();
  WriteProfileString(paths_.user_ini, "LupinOrder6", "", "x");
  Settings settings(paths_);
  EXPECT_EQ(settings.GetSetting(0, "D"), "D");
  EXPECT_EQ(settings.GetSetting(30, "D"), "D");
}

TEST_F(StoreTest, SaveThenGetRoundTripsThroughTheSameStore) {
  CreateMachineStore();
  Settings settings(paths_);
  settings.SaveSetting(0, "2", "ResouceMode");
  settings.SaveSetting(8, "0.1");
  settings.SaveSetting(7, "/data/lupin.db");
  EXPECT_EQ(settings.GetSetting(0, "1", "ResouceMode"), "2");
  EXPECT_EQ(settings.GetSetting(8, "0.05"), "0.1");
  EXPECT_EQ(settings.GetSetting(7, ""), "/data/lupin.db");
}

TEST_F(StoreTest, SaveMakesTheUserFolder) {
  paths_.user_ini = folder_ / "Veltrona" / "LupinOrder6" / "lupin.ini";
  CreateMachineStore();
  Settings settings(paths_);
  settings.SaveSetting(8, "0.08");
  EXPECT_EQ(settings.GetSetting(8, ""), "0.08");
}

TEST(StorePathsTest, DefaultFollowsEnvironment) {
  const char* old_config = std::getenv("XDG_CONFIG_HOME");
  const std::string saved = old_config ? old_config : "";
  ::setenv("XDG_CONFIG_HOME", "/tmp/cfg_probe", 1);
  ::setenv("LUPIN_MACHINE_INI", "/tmp/machine_probe.ini", 1);
  const StorePaths paths = StorePaths::Default();
  EXPECT_EQ(paths.user_ini, fs::path("/tmp/cfg_probe/Veltrona/LupinOrder6/lupin.ini"));
  EXPECT_EQ(paths.fallback_ini.parent_path(), paths.user_ini.parent_path());
  EXPECT_EQ(paths.machine_ini, fs::path("/tmp/machine_probe.ini"));
  ::unsetenv("LUPIN_MACHINE_INI");
  if (old_config) ::setenv("XDG_CONFIG_HOME", saved.c_str(), 1); else ::unsetenv("XDG_CONFIG_HOME");
  EXPECT_EQ(StorePaths::Default().machine_ini, fs::path("/etc/xdg/Veltrona/LupinOrder6/machine.ini"));
}

}  // namespace
}  // namespace lupin::settings
