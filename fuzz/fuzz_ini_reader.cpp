// An INI store as it may come from another machine (Shift-JIS, stray brackets, long lines): reading
// any key gives at most 1,024 characters, and writing a key keeps the file readable. The settings
// files read through it (a form's window size, a printer's calibration offsets, a report's printer
// overrides in REPORT.INI) take whatever the file holds.
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "catalogue/calibration.h"
#include "catalogue/repor_info.h"
#include "common/settings.h"
#include "db/connection.h"
#include "desktop/window_size.h"
#include "fuzz_input.h"

namespace {

namespace fs = std::filesystem;

// One report row whose section the seeds name, in a database that lives as long as the fuzzer.
lupin::db::Connection& ReportDb() {
  static const std::unique_ptr<lupin::db::Connection> db = [] {
    auto connection = lupin::db::OpenConnection("sqlite::memory:");
    connection->Execute(
        "CREATE TABLE [REPORT] ([REPORT_NO] INTEGER, [REPORT_NAME] TEXT, [PAPER_TYPE] INTEGER, [DEVICE_NAME] TEXT, "
        "[PAPER_SIZE] INTEGER, [PAPER_BIN] INTEGER, [MARGIN_LEFT] INTEGER, [MARGIN_TOP] INTEGER, [Orientation] INTEGER)");
    connection->Execute("INSERT INTO [REPORT] VALUES (25, 'ヤマト宅配伝票', 1, 'Yamato-LBP', 260, 7, 100, 200, 1)");
    return connection;
  }();
  return *db;
}

void CheckSettingsFiles(const fs::path& folder, const fs::path& file, const std::string& section, int report_no) {
  if (const auto size = lupin::desktop::ReadWindowSize(file); size && (size->width <= 0 || size->height <= 0)) {
    __builtin_trap();
  }
  (void)lupin::catalogue::CalibrationStore(folder).Get(section, report_no);

  // The overrides written back read back as themselves.
  lupin::catalogue::clsReporInfo info(folder);
  info.Connection(&ReportDb());
  info.INIFile(file);
  info.GetReportSetting(25);
  if (info.NoData() || !info.SetReportSetting("ヤマト宅配伝票")) __builtin_trap();
  lupin::catalogue::clsReporInfo again(folder);
  again.Connection(&ReportDb());
  again.INIFile(file);
  again.GetReportSetting(25);
  if (again.DeviceName() != info.DeviceName() || again.PaperType() != info.PaperType() ||
      again.PaperSize() != info.PaperSize() || again.PaperBin() != info.PaperBin() ||
      again.MarginLeft() != info.MarginLeft() || again.MarginTop() != info.MarginTop() ||
      again.Orientation() != info.Orientation()) {
    __builtin_trap();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const fs::path folder = [] {
    const fs::path path = fs::temp_directory_path() / ("lupin-fuzz-ini-" + std::to_string(::getpid()));
    fs::create_directories(path);
    return path;
  }();
  const fs::path file = folder / "CALIBRATE.INI";
  lupin::fuzz::Input input(data, size);
  const int report_no = input.Byte();
  const std::string section = input.Piece();
  const std::string key = input.Piece();
  {
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out << input.Rest();
  }
  const std::string value = lupin::settings::ReadProfileString(file, section, key, "既定");
  if (value.size() > 4 * 1024) __builtin_trap();
  if (!key.empty() && key.find_first_of("=\r\n") == std::string::npos && section.find_first_of("]\r\n") == std::string::npos &&
      lupin::settings::WriteProfileString(file, section, key, "値")) {
    // What was written reads back, unless the key or section has blanks a profile trims.
    const bool trimmed = key.front() == ' ' || key.back() == ' ' || key.front() == '\t' || key.back() == '\t' ||
                         (!section.empty() && (section.front() == ' ' || section.back() == ' '));
    if (!trimmed && key[0] != ';' && key[0] != '[' && lupin::settings::ReadProfileString(file, section, key, "") != "値") {
      __builtin_trap();
    }
  }
  CheckSettingsFiles(folder, file, section, report_no);
  return 0;
}
