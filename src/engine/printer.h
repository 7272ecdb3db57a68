#pragma once
// Printing through CUPS: the rendered PDF goes to the report's printer with its paper, bin and
// orientation. Failures are values with a message for the user; nothing here throws.
#include <string>
#include <utility>
#include <vector>

namespace lupin::engine {

struct PrintJob {
  std::string pdf_path;
  std::string device_name;  // empty: the default printer
  std::string title;        // job name shown in the queue
  int paper_size = 0;       // the layouts' paper size code; 0 keeps the printer's default
  double paper_width_mm = 0, paper_height_mm = 0;  // for the user-defined size 256
  int paper_bin = 0;        // the layouts' bin code; 0 keeps the printer's default
  int orientation = 0;      // 1 portrait, 2 landscape, 0 as the document
  int copies = 1;
};

struct PrintOutcome {
  bool ok = false;
  int job_id = 0;
  std::string printer;  // the queue the job went to
  std::string message;  // for the user when not ok
};

struct PrinterInfo {
  std::string name;
  bool is_default = false;
  std::string description;               // printer-info
  std::vector<std::string> media;        // PWG media names, "iso_a4_210x297mm"
  std::vector<std::string> input_slots;  // media-source keywords, "tray-1", "manual"
};

// PWG media name for a paper size code: 9 gives "iso_a4_210x297mm", 256 the user-defined size in
// whole millimetres. Empty for 0 and for codes without a standard size.
std::string MediaForPaperSize(int code, double width_mm = 0, double height_mm = 0);

// media-source keyword for a bin code: 1 "top", 4 "manual", 7 "auto", from 256 the driver's own
// trays "tray-1" onwards. Empty for 0.
std::string MediaSourceForBin(int bin);

// The job's CUPS options, name and value, in the order they are sent.
std::vector<std::pair<std::string, std::string>> PrintOptions(const PrintJob& job);

// Submits the PDF; the server named by CUPS_SERVER (or the client configuration) is used.
PrintOutcome SubmitPdf(const PrintJob& job);

// Printers of the server with their media and input slots. Empty when the server cannot be
// reached or has no printer; message then says why (empty when there simply is none).
std::vector<PrinterInfo> ListPrinters(std::string* message = nullptr);

}  // namespace lupin::engine
