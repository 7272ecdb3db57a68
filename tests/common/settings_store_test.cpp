#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "common/settings.h"
#include "folder_test.h"

namespace lupin::settings {
namespace {

namespace fs = std::filesystem;

class StoreTest : public common::testing::FolderTest {
 protected:
  void SetUp() override {
    FolderTest::SetUp();
    paths_ = StorePaths::InFolder(folder_);
  }

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

TEST_F(StoreTest, SaveGoesToItsStoreOrToFallbackWithoutMachineStore) {
  const struct {
    int number;
    const char* name;
    const char* key;    // the key that ends up written
    const char* store;  // where, with the machine store present
  } cases[] = {
      {7, "", "DBPath", "machine"},
      // Read from the machine store, yet written to the user file.
      {19, "", "RDbPath", "user"},
      // 32 has no name for writing: the given name is used.
      {32, "MyFormat", "MyFormat", "user"},
      {0, "ConnectString", "ConnectString", "machine"}, {0, "YupackPath", "YupackPath", "user"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.number) + " " + c.key);
    Reset();
    Settings settings(paths_);
    settings.SaveSetting(c.number, "value", c.name);
    EXPECT_EQ(StoreHolding(c.key), "fallback");
    EXPECT_FALSE(fs::exists(paths_.machine_ini));
    fs::remove(paths_.fallback_ini);
    CreateMachineStore();
    settings.SaveSetting(c.number, "value", c.name);
    EXPECT_EQ(StoreHolding(c.key), c.store);
  }
}

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

TEST_F(StoreTest, GetReadsTheRightStore) {
  const struct {
    int number;
    const char* name;
    const char* machine;   // value in the machine store, nullptr for absent
    const char* user;      // value in the user file
    const char* fallback;  // value in the fallback store
    bool machine_exists;
    const char* expected;
  } cases[] = {
      {7, "", "m", "u", "f", true, "m"},
      {7, "", nullptr, "u", "f", true, "D"},  // a machine key missing gives the default
      {8, "", "m", "u", "f", true, "u"},
      {0, "ICatsPath", "m", "", "f", true, "m"},  // by name an empty user value falls to the machine
      {8, "", "m", "", "f", true, ""},            // by number an empty user value is empty
      // Without a machine store everything comes from the fallback.
      {0, "ICatsPath", nullptr, "u", "f", false, "f"}, {8, "", nullptr, "u", nullptr, false, "D"},
      {31, "Extra", "m", nullptr, nullptr, true, "D"},  // outside the table: the user file only
      {32, "", "m", "u", "f", true, "m"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.number) + " " + c.name + (c.machine_exists ? "" : " without machine store"));
    Reset();
    if (c.machine_exists) CreateMachineStore();
    const std::string key = c.name[0] ? c.name : std::string(SettingNameForRead(c.number));
    if (c.machine && c.machine_exists) WriteProfileString(paths_.machine_ini, "LupinOrder6", key, c.machine);
    if (c.user) WriteProfileString(paths_.user_ini, "LupinOrder6", key, c.user);
    if (c.fallback) WriteProfileString(paths_.fallback_ini, "LupinOrder6", key, c.fallback);
    EXPECT_EQ(Settings(paths_).GetSetting(c.number, "D", c.name), c.expected);
  }
}

}  // namespace
}  // namespace lupin::settings
