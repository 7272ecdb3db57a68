#pragma once
// Per-printer calibration: a saved offset per printer and report, added to every page sent to that
// printer, so preprinted forms line up without editing format files. The offsets live in
// CALIBRATE.INI in the component folder: a section per printer, a key per report number, the value
// "X,Y" in tenths of a millimetre (right and down positive).
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "engine/page_model.h"
#include "engine/printer.h"

namespace lupin::catalogue {

struct CalibrationOffset {
  int x = 0;  // tenths of a millimetre
  int y = 0;
  friend bool operator==(const CalibrationOffset&, const CalibrationOffset&) = default;
};

class CalibrationStore {
 public:
  explicit CalibrationStore(const std::filesystem::path& component_directory);
  // Zero for a printer or report without a saved offset.
  CalibrationOffset Get(std::string_view printer, std::int32_t report_no) const;
  // False when the file cannot be written.
  bool Set(std::string_view printer, std::int32_t report_no, CalibrationOffset offset) const;
  const std::filesystem::path& File() const { return file_; }

 private:
  std::filesystem::path file_;
};

// Parses "X,Y" in tenths of a millimetre; false for anything else.
bool ParseOffset(std::string_view text, CalibrationOffset& offset);
std::string OffsetText(CalibrationOffset offset);

// Moves every item of the page by the offset.
void ShiftPage(engine::Page& page, CalibrationOffset offset);

// Passes pages on to another sink, each moved by the offset.
class OffsetSink : public engine::PageSink {
 public:
  OffsetSink(engine::PageSink& target, CalibrationOffset offset) : target_(target), offset_(offset) {}
  void Begin(const engine::DocumentInfo& info) override { target_.Begin(info); }
  void AddPage(const engine::Page& page) override;
  void End() override { target_.End(); }

 private:
  engine::PageSink& target_;
  CalibrationOffset offset_;
};

// The calibration sheet: crosses every 50 mm from 20 mm in, each labelled with its position, on a
// page of the given size in millimetres. Printed through the offset, a cross that lands off its
// mark tells how far to correct.
engine::Page CalibrationSheet(double width_mm, double height_mm, std::string_view printer, std::int32_t report_no);

// Prints the A4 calibration sheet on the printer, moved by the offset as the report's pages are,
// with the report's paper size and bin.
engine::PrintOutcome PrintCalibrationSheet(std::string_view printer, std::int32_t report_no, CalibrationOffset offset,
                                           int paper_size, int paper_bin);

}  // namespace lupin::catalogue
