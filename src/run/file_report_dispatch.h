#pragma once
// The file reports: where each writes by default, and the writer that turns the print-list grid
// into the file of an outside system.
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include "entry/context.h"
#include "exchange/file_writer.h"

namespace lupin::run {

// The output file of a file report: its setting, what the file dialog offers when the setting is
// empty, and the dialog's filter.
struct FileReportTarget {
  std::string setting;        // "EHidenPath" …
  std::string default_path;   // a folder for the I-CATS and B2 files, else a file
  std::string filter;
  std::string current;        // the setting's value, "" when not set
};

FileReportTarget FileReportTargetOf(const entry::Context& context, std::int32_t report_no);

// The writer of a file report, found by the catalogue's object name; null when that writer is not
// part of this build.
std::unique_ptr<exchange::FileWriter> FileWriterFor(std::int32_t report_no);

// The message for a file report whose writer is missing.
std::string MissingWriterMessage(std::int32_t report_no);

}  // namespace lupin::run
