// An INI store as it may come from another machine (Shift-JIS, stray brackets, long lines): reading
// any key gives at most 1,024 characters, and writing a key keeps the file readable. The settings
// files read through it (a form's window size, a printer's calibration offsets, a report's printer
// overrides in REPORT.INI) take whatever the file holds.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "catalogue/calibration.h"
#include "catalogue/repor_info.h"
#include "common/settings.h"
#include "common/text.h"
#include "db/connection.h"
#include "desktop/window_size.h"
#include "fuzz_input.h"
#include "fuzz_scratch.h"

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

// Names are UTF-8, and a file carried over in Shift-JIS can only hold what Shift-JIS can say.
bool Writable(const std::string& name) {
  return lupin::text::IsValidUtf8(name) && lupin::text::FromCp932(lupin::text::ToCp932(name).bytes) == name;
}

std::string Numbers(const lupin::catalogue::clsReporInfo& info) {
  return std::to_string(info.PaperType()) + " " + std::to_string(info.PaperSize()) + " " + std::to_string(info.PaperBin()) +
         " " + std::to_string(info.MarginLeft()) + " " + std::to_string(info.MarginTop()) + " " +
         std::to_string(info.Orientation());
}

void CheckSettingsFiles(const fs::path& folder, const fs::path& file, const std::string& section, int report_no) {
  if (const auto size = lupin::desktop::ReadWindowSize(file); size && (size->width <= 0 || size->height <= 0)) {
    lupin::fuzz::Fail("window size read with no width or height");
  }
  (void)lupin::catalogue::CalibrationStore(folder).Get(section, report_no);

  // The overrides written back read back as themselves; a printer name only when Shift-JIS can say
  // it (the file may be rewritten in it) and it holds no lone CR (a written value ends at one).
  lupin::catalogue::clsReporInfo info(folder);
  info.Connection(&ReportDb());
  info.INIFile(file);
  info.GetReportSetting(25);
  if (info.NoData() || !info.SetReportSetting("ヤマト宅配伝票")) lupin::fuzz::Fail("report row not found or its overrides not written");
  lupin::catalogue::clsReporInfo again(folder);
  again.Connection(&ReportDb());
  again.INIFile(file);
  again.GetReportSetting(25);
  // Nor one a profile reads back otherwise: blanks at its ends are trimmed, enclosing quotes
  // dropped, control characters end or split the line.
  const std::string& name = info.DeviceName();
  const bool blank_ends = !name.empty() && (name.front() == ' ' || name.front() == '\t' || name.back() == ' ' || name.back() == '\t');
  const bool plain = std::none_of(name.begin(), name.end(), [](char c) { return c == '"' || static_cast<unsigned char>(c) < 0x20; });
  const bool device_kept = Writable(name) && plain && !blank_ends;
  if ((device_kept && again.DeviceName() != info.DeviceName()) || Numbers(again) != Numbers(info)) {
    std::fprintf(stderr, "first [%s] %s, again [%s] %s\n", info.DeviceName().c_str(), Numbers(info).c_str(),
                 again.DeviceName().c_str(), Numbers(again).c_str());
    lupin::fuzz::Fail("report overrides read back differently");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const fs::path& folder = lupin::fuzz::ScratchFolder();
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
  if (value.size() > 4 * 1024) lupin::fuzz::Fail("value longer than a profile holds");
  if (!key.empty() && key.find_first_of("=\r\n") == std::string::npos && section.find_first_of("]\r\n") == std::string::npos &&
      Writable(key) && Writable(section) && lupin::settings::WriteProfileString(file, section, key, "値")) {
    // What was written reads back, unless the key or section has blanks a profile trims.
    const bool trimmed = key.front() == ' ' || key.back() == ' ' || key.front() == '\t' || key.back() == '\t' ||
                         (!section.empty() && (section.front() == ' ' || section.back() == ' '));
    if (!trimmed && key[0] != ';' && key[0] != '[' && lupin::settings::ReadProfileString(file, section, key, "") != "値") {
      lupin::fuzz::Fail("written key does not read back");
    }
  }
  CheckSettingsFiles(folder, file, section, report_no);
  return 0;
}
