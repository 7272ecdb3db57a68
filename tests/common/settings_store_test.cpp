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
  for (int unused : {0, 30, 31, 35}) EXPECT_EQ(SettingNameForRead(unused), "") << unused;
}

struct WriteRoute {
  int number;
  const char* name;
  const char* key;    // the key that ends up written
  const char* store;  // where, with the machine store present
};

class SaveRouteTest : public StoreTest, public ::testing::WithParamInterface<WriteRoute> {};

TEST_P(SaveRouteTest, GoesToItsStoreOrToFallbackWithoutMachineStore) {
  Settings settings(paths_);
  settings.SaveSetting(GetParam().number, "value", GetParam().name);
  EXPECT_EQ(StoreHolding(GetParam().key), "fallback");
  EXPECT_FALSE(fs::exists(paths_.machine_ini));
  fs::remove(paths_.fallback_ini);
  CreateMachineStore();
  settings.SaveSetting(GetParam().number, "value", GetParam().name);
  EXPECT_EQ(StoreHolding(GetParam().key), GetParam().store);
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
        ReadRoute{"out_of_table_reads_user_only", 31, "Extra", "m", nullptr, nullptr, true, "D"},
        ReadRoute{"n32_reads_machine", 32, "", "m", "u", "f", true, "m"},
        ReadRoute{"n1_reads_machine_only", 1, "", nullptr, "u", "f", true, "D"}),
    [](const auto& p) { return std::string(p.param.label); });

}  // namespace
}  // namespace lupin::settings
