#pragma once
// The reader and writer of one report's printer settings: the REPORT row, overridden per
// workstation by the section of REPORT.INI named after the report.
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "db/connection.h"

namespace lupin::catalogue {

class clsReporInfo {
 public:
  // component_directory is where the default INI file lies.
  explicit clsReporInfo(const std::filesystem::path& component_directory = {});
  ~clsReporInfo() { connection_ = nullptr; }
  clsReporInfo(const clsReporInfo&) = delete;
  clsReporInfo& operator=(const clsReporInfo&) = delete;

  void INIFile(std::filesystem::path file) { ini_file_ = std::move(file); }
  const std::filesystem::path& INIFile() const { return ini_file_; }
  // Not owned; the caller's connection.
  void Connection(db::Connection* connection) { connection_ = connection; }

  std::uint8_t PaperType() const { return paper_type_; }
  void PaperType(std::uint8_t value) { paper_type_ = value; }
  const std::string& DeviceName() const { return device_name_; }
  void DeviceName(std::string value) { device_name_ = std::move(value); }
  std::int16_t PaperSize() const { return paper_size_; }
  void PaperSize(std::int16_t value) { paper_size_ = value; }
  std::int16_t PaperBin() const { return paper_bin_; }
  void PaperBin(std::int16_t value) { paper_bin_ = value; }
  std::int32_t MarginLeft() const { return margin_left_; }
  void MarginLeft(std::int32_t value) { margin_left_ = value; }
  std::int32_t MarginTop() const { return margin_top_; }
  void MarginTop(std::int32_t value) { margin_top_ = value; }
  std::int16_t Orientation() const { return orientation_; }
  void Orientation(std::int16_t value) { orientation_ = value; }
  // True until a REPORT row was found by the last read.
  bool NoData() const { return no_data_; }

  // Reads the row of the number, then lets non-zero numbers and a non-empty printer name from the
  // INI section named after REPORT_NAME replace the row's values. Database errors propagate.
  void GetReportSetting(std::int32_t report_no);
  // Writes all seven keys into the section, only when a printer name is set. False when the file
  // could not be written.
  bool SetReportSetting(std::string_view section) const;

 private:
  void Clear();

  std::filesystem::path ini_file_;
  db::Connection* connection_ = nullptr;
  std::uint8_t paper_type_ = 0;
  std::string device_name_;
  std::int16_t paper_size_ = 0;
  std::int16_t paper_bin_ = 0;
  std::int32_t margin_left_ = 0;
  std::int32_t margin_top_ = 0;
  std::int16_t orientation_ = 0;
  bool no_data_ = true;
};

// The program's own INI name beside the component: the program name up to its first ".", ".INI".
std::filesystem::path ProgramIniFile(const std::filesystem::path& component_directory);

}  // namespace lupin::catalogue
