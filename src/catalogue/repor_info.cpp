#include "catalogue/repor_info.h"

#include <unistd.h>

#include <array>
#include <string>
#include <system_error>

#include "catalogue/whole_number.h"
#include "common/settings.h"
#include "common/vb.h"

namespace lupin::catalogue {
namespace {

// Override keys in the order they are read and written.
constexpr std::string_view kPaperType = "PAPER_TYPE";
constexpr std::string_view kDeviceName = "DEVICE_NAME";
constexpr std::string_view kPaperSize = "PAPER_SIZE";
constexpr std::string_view kPaperBin = "PAPER_BIN";
constexpr std::string_view kMarginLeft = "MARGIN_LEFT";
constexpr std::string_view kMarginTop = "MARGIN_TOP";
constexpr std::string_view kOrientation = "ORIENTATION";

std::string ProgramName() {
  std::error_code error;
  const std::filesystem::path exe = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? std::string("lupinprint") : exe.filename().string();
}

// A stored value replaces the field only when it converts to something other than 0, so a 0 in
// the file never hides a table value; nor does a number too large to read ("1E+400").
template <typename T>
void OverrideNumber(const std::filesystem::path& file, std::string_view section, std::string_view key, T& field) {
  double value = 0;
  try {
    value = vb::Val(settings::ReadProfileString(file, section, key, ""));
  } catch (const vb::OverflowError&) {
    return;
  }
  if (value == 0) return;
  if (const auto whole = WholeNumber<T>(value)) field = *whole;
}

template <typename T>
T FieldNumber(const db::Recordset& rs, std::string_view name) {
  return WholeNumber<T>(rs[name].Number()).value_or(T{0});
}

}  // namespace

std::filesystem::path ProgramIniFile(const std::filesystem::path& component_directory) {
  const std::string name = ProgramName();
  return component_directory / (name.substr(0, name.find('.')) + ".INI");
}

clsReporInfo::clsReporInfo(const std::filesystem::path& component_directory)
    : ini_file_(ProgramIniFile(component_directory)) {
  Clear();
}

// The values only: the INI file chosen by the caller stays for the next read.
void clsReporInfo::Clear() {
  paper_type_ = 0;
  device_name_.clear();
  paper_size_ = 0;
  paper_bin_ = 0;
  margin_left_ = 0;
  margin_top_ = 0;
  orientation_ = 0;
  no_data_ = true;
}

void clsReporInfo::GetReportSetting(std::int32_t report_no) {
  Clear();
  if (connection_ == nullptr) throw db::DbError("データベースに接続されていません。");

  std::string report_name;
  db::Recordset rs = connection_->Open("SELECT * FROM [REPORT] WHERE [REPORT_NO] = " + std::to_string(report_no));
  if (!rs.Eof()) {
    no_data_ = false;
    report_name = rs["REPORT_NAME"].Text();
    paper_type_ = FieldNumber<std::uint8_t>(rs, "PAPER_TYPE");
    device_name_ = rs["DEVICE_NAME"].Text();
    paper_size_ = FieldNumber<std::int16_t>(rs, "PAPER_SIZE");
    paper_bin_ = FieldNumber<std::int16_t>(rs, "PAPER_BIN");
    margin_left_ = FieldNumber<std::int32_t>(rs, "MARGIN_LEFT");
    margin_top_ = FieldNumber<std::int32_t>(rs, "MARGIN_TOP");
    orientation_ = FieldNumber<std::int16_t>(rs, "Orientation");
  }
  rs.Close();
  if (no_data_) return;

  // The section follows REPORT_NAME: a renamed report no longer finds its overrides.
  OverrideNumber(ini_file_, report_name, kPaperType, paper_type_);
  std::string device = settings::ReadProfileString(ini_file_, report_name, kDeviceName, "");
  if (!device.empty()) device_name_ = std::move(device);
  OverrideNumber(ini_file_, report_name, kPaperSize, paper_size_);
  OverrideNumber(ini_file_, report_name, kPaperBin, paper_bin_);
  OverrideNumber(ini_file_, report_name, kMarginLeft, margin_left_);
  OverrideNumber(ini_file_, report_name, kMarginTop, margin_top_);
  OverrideNumber(ini_file_, report_name, kOrientation, orientation_);
}

bool clsReporInfo::SetReportSetting(std::string_view section) const {
  // Without a printer name the workstation prints to its default printer and stores nothing.
  if (device_name_.empty()) return true;
  const std::string paper_type = std::to_string(paper_type_), paper_size = std::to_string(paper_size_),
                    paper_bin = std::to_string(paper_bin_), margin_left = std::to_string(margin_left_),
                    margin_top = std::to_string(margin_top_), orientation = std::to_string(orientation_);
  const std::array<std::pair<std::string_view, std::string_view>, 7> entries{{
      {kPaperType, paper_type},
      {kDeviceName, device_name_},
      {kPaperSize, paper_size},
      {kPaperBin, paper_bin},
      {kMarginLeft, margin_left},
      {kMarginTop, margin_top},
      {kOrientation, orientation},
  }};
  return settings::WriteProfileStrings(ini_file_, section, entries);
}

}  // namespace lupin::catalogue
