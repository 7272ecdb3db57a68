#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "catalogue/repor_info.h"
#include "common/settings.h"
#include "report_test_fixture.h"

namespace lupin::catalogue {
namespace {

namespace fs = std::filesystem;

std::string ReadAll(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

class ReporInfoTest : public testing::ReportDbTest {
 protected:
  void SetUp() override {
    ReportDbTest::SetUp();
    Db().Execute(
        "INSERT INTO [REPORT] ([REPORT_NO], [REPORT_NAME], [PAPER_TYPE], [DEVICE_NAME], [PAPER_SIZE], "
        "[PAPER_BIN], [MARGIN_LEFT], [MARGIN_TOP], [Orientation]) "
        "VALUES (25, 'ヤマト宅配伝票', 1, 'Yamato-LBP', 260, 15, 100, 200, 1)");
    Db().Execute("INSERT INTO [REPORT] ([REPORT_NO], [REPORT_NAME]) VALUES (0, '納品書')");
  }
  void Attach(clsReporInfo& info) {
    info.Connection(&Db());
    info.INIFile(home_ / "REPORT.INI");
  }
};

struct OverrideCase {
  const char* key;
  const char* stored;
  long expected;  // the field afterwards; the table holds PAPER_SIZE 260 and MARGIN_TOP 200
};

// Which stored texts may replace a number from the table.
const OverrideCase kOverrideCases[] = {
    {"PAPER_SIZE", "9", 9},
    {"PAPER_SIZE", "0", 260},       // a stored zero never replaces
    {"MARGIN_TOP", "0.0", 200},
    {"PAPER_SIZE", "A4", 260},      // text reads as zero
    {"PAPER_SIZE", "11 (B5)", 11},  // the leading number counts
    {"PAPER_SIZE", "", 260},
    {"MARGIN_TOP", "-50", -50},
    {"PAPER_SIZE", "70000", 260},   // does not fit the field
};

long FieldOf(const clsReporInfo& info, std::string_view key) {
  return key == "PAPER_SIZE" ? info.PaperSize() : info.MarginTop();
}

TEST_P(ReporInfoTest, StoredNumbersReplaceOnlyWhenNonZero) {
  for (const OverrideCase& c : kOverrideCases) {
    SCOPED_TRACE(std::string(c.key) + "=" + c.stored);
    PutReportIni(std::string("[ヤマト宅配伝票]\n") + c.key + "=" + c.stored + "\n");
    clsReporInfo info(home_);
    Attach(info);
    info.GetReportSetting(25);
    ASSERT_FALSE(info.NoData());
    EXPECT_EQ(FieldOf(info, c.key), c.expected);
  }
}

TEST_P(ReporInfoTest, EmptyDeviceNameInFileKeepsTheTables) {
  PutReportIni("[ヤマト宅配伝票]\nDEVICE_NAME=\nPAPER_BIN=3\n");
  clsReporInfo info(home_);
  Attach(info);
  info.GetReportSetting(25);
  EXPECT_EQ(info.DeviceName(), "Yamato-LBP");
  EXPECT_EQ(info.PaperBin(), 3);
}

TEST_P(ReporInfoTest, MissingRowClearsAndReportsNoData) {
  clsReporInfo info(home_);
  Attach(info);
  info.GetReportSetting(25);
  ASSERT_FALSE(info.NoData());
  info.GetReportSetting(26);
  EXPECT_TRUE(info.NoData());
  EXPECT_EQ(info.DeviceName(), "");
  EXPECT_EQ(info.PaperSize(), 0);
  EXPECT_EQ(info.MarginLeft(), 0);
  EXPECT_EQ(info.INIFile(), home_ / "REPORT.INI");
}

TEST_P(ReporInfoTest, SavedSettingsComeBackOnTheNextRead) {
  clsReporInfo writer(home_);
  Attach(writer);
  writer.GetReportSetting(0);
  writer.DeviceName("Office");
  writer.PaperSize(9);
  writer.MarginTop(-30);
  writer.Orientation(2);
  ASSERT_TRUE(writer.SetReportSetting("納品書"));
  EXPECT_EQ(ReadAll(home_ / "REPORT.INI"),
            "[納品書]\nPAPER_TYPE=0\nDEVICE_NAME=Office\nPAPER_SIZE=9\nPAPER_BIN=0\nMARGIN_LEFT=0\n"
            "MARGIN_TOP=-30\nORIENTATION=2\n");

  clsReporInfo reader(home_);
  Attach(reader);
  reader.GetReportSetting(0);
  EXPECT_EQ(reader.DeviceName(), "Office");
  EXPECT_EQ(reader.PaperSize(), 9);
  EXPECT_EQ(reader.MarginTop(), -30);
  EXPECT_EQ(reader.Orientation(), 2);
}

TEST_P(ReporInfoTest, EmptyDeviceNameWritesNothing) {
  PutReportIni("; kept as is\n[ヤマト宅配伝票]\nPAPER_SIZE=9\n");
  const std::string before = ReadAll(home_ / "REPORT.INI");
  clsReporInfo info(home_);
  Attach(info);
  info.GetReportSetting(0);
  info.PaperSize(11);
  EXPECT_TRUE(info.SetReportSetting("納品書"));
  EXPECT_TRUE(info.SetReportSetting("ヤマト宅配伝票"));
  EXPECT_EQ(ReadAll(home_ / "REPORT.INI"), before);

  fs::remove(home_ / "REPORT.INI");
  EXPECT_TRUE(info.SetReportSetting("納品書"));
  EXPECT_FALSE(fs::exists(home_ / "REPORT.INI"));
}

LUPIN_INSTANTIATE_ENGINES(ReporInfoTest);

}  // namespace
}  // namespace lupin::catalogue
