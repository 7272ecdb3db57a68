#pragma once
// Reads a report format file into rows. The format has no syntax errors: what the scanner cannot
// match is skipped, and any fault while reading gives no rows.
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "layout/format_constants.h"
#include "layout/format_row.h"

namespace lupin::layout {

// "form_" + the number in at least two digits + ".lprf": form_07.lprf, form_112.lprf.
std::string FormatFileName(std::int32_t report_number);

class clsRptFmtParser {
 public:
  // The full path of the format file.
  void fileName(std::filesystem::path path) { path_ = std::move(path); }
  // The display name from the first line; empty when there is no file or no name.
  std::string formatName() const;
  // Fills rows from index 0; the index of the last row, -1 for none or for any fault.
  std::int16_t Parse(std::vector<clsRptFmtRow>& rows);

  // The rows of format text already read and converted (line ends and tabs still in it); what
  // Parse does after reading the file. Throws on a value out of range.
  std::int16_t ParseText(std::string text, std::vector<clsRptFmtRow>& rows);

 private:
  void ParseSections(const std::string& text, std::vector<clsRptFmtRow>& rows);
  void ParseFields(const std::string& section_text, const std::string& section_name, std::vector<clsRptFmtRow>& rows);
  void ParseField(std::string field_text, clsRptFmtRow& row);
  // The file as it is on disk: names compare without regard to ASCII case, as on the old
  // platform. nullopt when it does not exist.
  std::optional<std::filesystem::path> FormatFileExists(const std::filesystem::path& path) const;
  static std::filesystem::path DirectoryOfPath(const std::filesystem::path& path);

  std::filesystem::path path_;
  std::int16_t row_index_ = -1;
  clsRptFmtConstat constants_;
};

}  // namespace lupin::layout
