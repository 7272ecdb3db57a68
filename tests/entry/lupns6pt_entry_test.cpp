#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "entry/lupns6pt.h"
#include "support/temp_files.h"

namespace lupin::entry {
namespace {

namespace fs = std::filesystem;

// Remembers what the selection form was given and what the context held at that moment.
class RecordingRunner : public SelectFormRunner {
 public:
  void Run(Context& context, std::string_view report, std::string_view command) override {
    reports.emplace_back(report);
    commands.emplace_back(command);
    item_names.push_back(context.default_item_name);
    client_names.push_back(context.ClientName());
  }
  std::vector<std::string> reports, commands, item_names, client_names;
};

class CountingLogin : public LoginInfoSource {
 public:
  std::string User() const override { order += "U"; return "山田"; }
  std::int16_t Number() const override { order += "N"; return 12; }
  std::string ClientName() const override { order += "C"; return "PC-01"; }
  mutable std::string order;
};

class EntryObjectTest : public ::testing::Test {
 protected:
  void SetUp() override { fs::create_directories(folder_ / "home"); }
  Lupns6pt Make() { return Lupns6pt(settings::StorePaths::InFolder(folder_), folder_ / "home"); }
  void PutItemName(const std::string& content) {
    lupin::testing::WriteBytes(folder_ / "home" / "hinmei.txt", content);
  }
  lupin::testing::TempFolder temp_{"lupin_entry_"};
  const fs::path& folder_ = temp_.Path();
  RecordingRunner runner_;
};

TEST_F(EntryObjectTest, ShowHandsReportAndCommandToTheSelectionForm) {
  Lupns6pt entry = Make();
  entry.SetSelectFormRunner(&runner_);
  entry.Report("ヤマト宅配伝票");
  entry.Command("-nohinoldver /x");
  entry.Show();
  ASSERT_EQ(runner_.reports.size(), 1u);
  EXPECT_EQ(runner_.reports[0], "ヤマト宅配伝票");
  EXPECT_EQ(runner_.commands[0], "-nohinoldver /x");
  EXPECT_EQ(entry.GetContext().command, "-nohinoldver /x");
}

TEST_F(EntryObjectTest, ItemNameIsReadOnEveryShow) {
  Lupns6pt entry = Make();
  entry.SetSelectFormRunner(&runner_);
  entry.Show();
  PutItemName("健康食品\r\nignored\r\n");
  entry.Show();
  PutItemName("雑貨");
  entry.Show();
  fs::remove(folder_ / "home" / "hinmei.txt");
  entry.Show();
  EXPECT_EQ(runner_.item_names, (std::vector<std::string>{"", "健康食品", "雑貨", ""}));
  // Without a login every workstation shares the empty key.
  EXPECT_EQ(runner_.client_names, std::vector<std::string>(4, ""));
}

TEST_F(EntryObjectTest, LoginIsReadOnceInOrder) {
  Lupns6pt entry = Make();
  entry.SetSelectFormRunner(&runner_);
  CountingLogin login;
  entry.LoginInfo(login);
  entry.Show();
  entry.Show();
  EXPECT_EQ(login.order, "UNC");
  EXPECT_EQ(entry.GetContext().login.user, "山田");
  EXPECT_EQ(entry.GetContext().login.number, 12);
  EXPECT_EQ(runner_.client_names, (std::vector<std::string>{"PC-01", "PC-01"}));
}

TEST_F(EntryObjectTest, RegisteredRunnerIsUsedWhenNoneGiven) {
  Lupns6pt entry = Make();
  RegisterSelectFormRunner(nullptr);
  EXPECT_THROW(entry.Show(), std::logic_error);
  RegisterSelectFormRunner(&runner_);
  entry.Show();
  RegisterSelectFormRunner(nullptr);
  EXPECT_EQ(runner_.reports.size(), 1u);
}

struct ContextSettingCase {
  const char* label;
  const char* resouce_mode;  // nullptr: key absent
  const char* tax;
  int dialect;
  float tax_rate;
};

class ContextSettingsTest : public EntryObjectTest, public ::testing::WithParamInterface<ContextSettingCase> {};

TEST_P(ContextSettingsTest, DialectAndTaxFromSettings) {
  settings::Settings store(settings::StorePaths::InFolder(folder_));
  std::ofstream(store.Paths().machine_ini) << "[LupinOrder6]\n";
  if (GetParam().resouce_mode) store.SaveSetting(0, GetParam().resouce_mode, "ResouceMode");
  if (GetParam().tax) store.SaveSetting(8, GetParam().tax);
  Context context(nullptr, store.Paths(), folder_);
  context.dialect = -7;
  context.tax_rate = -1;
  InitialiseContextSettings(context);
  EXPECT_EQ(context.dialect, GetParam().dialect);
  EXPECT_FLOAT_EQ(context.tax_rate, GetParam().tax_rate);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ContextSettingsTest,
    ::testing::Values(ContextSettingCase{"defaults", nullptr, nullptr, 1, 0.05f},
                      ContextSettingCase{"mode0", "0", "0.08", 0, 0.08f},
                      ContextSettingCase{"mode2_with_text", "2 (postgres)", "0.1", 2, 0.1f},
                      ContextSettingCase{"not_a_number", "abc", "x", 0, 0.0f},
                      ContextSettingCase{"empty_value_reads_as_zero", "", "", 0, 0.0f},
                      ContextSettingCase{"too_large_keeps_one", "99999999", "0.05", 1, 0.05f}),
    [](const auto& p) { return std::string(p.param.label); });

}  // namespace
}  // namespace lupin::entry
