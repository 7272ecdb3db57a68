#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "catalogue/repor_info.h"
#include "common/settings.h"
#include "report_test_fixture.h"

namespace lupin::catalogue {
namespace {

namespace fs = std::filesystem;

using lupin::testing::ReadBytes;

class ReporInfoTest : public testing::ReportDbTest {
 protected:
  void SetUp() override {
    ReportDbTest::SetUp();
    Db().Execute("INSERT INTO [REPORT] ([REPORT_NO], [REPORT_NAME], [DEVICE_NAME], [PAPER_SIZE]) "
                 "VALUES (25, 'ヤマト宅配伝票', 'Yamato-LBP', 260), (0, '納品書', NULL, NULL)");
  }
  void Attach(clsReporInfo& info) {
    info.Connection(&Db());
    info.INIFile(home_ / "REPORT.INI");
  }
};

TEST_P(ReporInfoTest, StoredNumbersReplaceOnlyWhenNonZero) {
  // The table holds PAPER_SIZE 260 and device Yamato-LBP.
  const struct {
    const char* stored;
    long expected;
  } cases[] = {{"9", 9}, {"0", 260}, {"11 (B5)", 11}, {"A4", 260}, {"70000", 260}, {"1E+3120", 260}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.stored);
    PutReportIni(std::string("[ヤマト宅配伝票]\nDEVICE_NAME=\nPAPER_SIZE=") + c.stored + "\n");
    clsReporInfo info(home_);
    Attach(info);
    info.GetReportSetting(25);
    ASSERT_FALSE(info.NoData());
    EXPECT_EQ(info.PaperSize(), c.expected);
    EXPECT_EQ(info.DeviceName(), "Yamato-LBP");  // an empty stored name keeps the table's
  }
  clsReporInfo info(home_);
  Attach(info);
  info.GetReportSetting(25);
  info.GetReportSetting(26);
  EXPECT_TRUE(info.NoData());
  EXPECT_EQ(info.DeviceName() + std::to_string(info.PaperSize()), "0");
}

// With no device name nothing is written, not even a new file.
TEST_P(ReporInfoTest, SavedSettingsComeBackOnTheNextRead) {
  clsReporInfo writer(home_);
  Attach(writer);
  writer.GetReportSetting(0);
  writer.PaperSize(11);
  EXPECT_TRUE(writer.SetReportSetting("納品書"));
  EXPECT_FALSE(fs::exists(home_ / "REPORT.INI"));
  writer.DeviceName("Office");
  writer.PaperSize(9);
  writer.MarginTop(-30);
  writer.Orientation(2);
  ASSERT_TRUE(writer.SetReportSetting("納品書"));
  EXPECT_EQ(ReadBytes(home_ / "REPORT.INI"),
            "[納品書]\nPAPER_TYPE=0\nDEVICE_NAME=Office\nPAPER_SIZE=9\nPAPER_BIN=0\nMARGIN_LEFT=0\n"
            "MARGIN_TOP=-30\nORIENTATION=2\n");
  clsReporInfo reader(home_);
  Attach(reader);
  reader.GetReportSetting(0);
  EXPECT_EQ(reader.DeviceName() + std::to_string(reader.PaperSize()) + std::to_string(reader.MarginTop()) +
                std::to_string(reader.Orientation()),
            "Office9-302");
}

LUPIN_INSTANTIATE_ENGINES(ReporInfoTest);

}  // namespace
}  // namespace lupin::catalogue
