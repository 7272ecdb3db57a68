#include "run/preview_runner_engine.h"

#include <exception>
#include <fstream>
#include <optional>

#include "catalogue/calibration.h"
#include "engine/display.h"
#include "engine/json_dump.h"
#include "engine/render_pdf.h"
#include "engine/render_png.h"

namespace lupin::run {

namespace {

constexpr std::string_view kSiryoObject = "rptWellNet";

// The page dump, written under a temporary name until the run is complete.
struct DumpOutput {
  explicit DumpOutput(const std::string& path) : file(path), stream(file.TempPath(), std::ios::binary), sink(stream) {}
  PendingFile file;
  std::ofstream stream;
  engine::JsonDumpSink sink;
};

struct PdfOutput {
  explicit PdfOutput(const std::string& path) : file(path), renderer(file.TempPath().string()) {}
  PendingFile file;
  engine::PdfRenderer renderer;
};

double TwipsToMm(std::int32_t twips) { return twips / 56.7; }

// The page images of an earlier, longer run would read as pages of this one.
void RemoveLaterPageImages(const std::filesystem::path& folder, int pages) {
  std::error_code error;
  for (std::filesystem::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
    const std::string name = it->path().filename().string();
    if (name.size() != 13 || !name.starts_with("page-") || !name.ends_with(".png")) continue;
    const std::string digits = name.substr(5, 4);
    if (digits.find_first_not_of("0123456789") != std::string::npos) continue;
    if (std::stoi(digits) > pages) {
      std::error_code ignored;
      std::filesystem::remove(it->path(), ignored);
    }
  }
}

}  // namespace

EnginePreviewRunner::EnginePreviewRunner(engine::ReportRegistry registry, PreviewOutputs outputs,
                                         PreviewProgress progress)
    : registry_(std::move(registry)), outputs_(std::move(outputs)), progress_(std::move(progress)) {}

bool EnginePreviewRunner::Run(entry::Context& context, std::string_view object_name) {
  message_.clear();
  kept_.reset();
  written_.clear();
  pages_ = 0;
  record_count_ = 0;
  auto report = registry_.Create(object_name, context);
  if (!report) {
    message_ = engine::kNoReportMessage;
    return false;
  }
  engine::ApplyReportSettings(*report, context.current, object_name == kSiryoObject);
  home_ = context.home;
  report_no_ = context.current.report_no;
  printer_ = report->Printer;
  title_ = report->DocumentTitle;

  FanOutSink fan(progress_);
  std::optional<PdfOutput> pdf;
  std::optional<engine::PngRenderer> png;
  std::optional<DumpOutput> dump;
  auto kept = outputs_.print ? std::make_unique<KeptPages>() : nullptr;
  engine::RunResult result;
  try {
    if (!outputs_.pdf.empty()) fan.Add(pdf.emplace(outputs_.pdf).renderer);
    if (!outputs_.png_dir.empty()) fan.Add(png.emplace(outputs_.png_dir, outputs_.png_dpi));
    if (!outputs_.dump.empty()) {
      dump.emplace(outputs_.dump);
      if (!dump->stream) {
        message_ = "ファイル '" + outputs_.dump + "' を書き込めません。";
        return false;
      }
      fan.Add(dump->sink);
    }
    if (kept) fan.Add(*kept);
    if (viewer_ != nullptr) fan.Add(*viewer_);
    result = report->Run(fan);
  } catch (const std::exception& e) {
    // A renderer that cannot even start ends the preview; nothing was written.
    message_ = e.what();
    return false;
  }
  if (!result.ok) {
    message_ = "帳票を作成できません: " + result.fault.description;
    return false;
  }
  if (dump) {
    dump->stream.close();
    if (!dump->stream) {
      message_ = "ファイル '" + outputs_.dump + "' を書き込めません。";
      return false;
    }
  }
  if ((pdf && !pdf->file.Commit(message_)) || (dump && !dump->file.Commit(message_))) return false;

  pages_ = fan.Pages();
  if (pdf) written_.push_back(outputs_.pdf);
  if (png) {
    RemoveLaterPageImages(outputs_.png_dir, pages_);
    for (const std::string& file : png->Files()) written_.push_back(file);
  }
  if (dump) written_.push_back(outputs_.dump);
  const auto& recordset = report->DataControl1.Recordset;
  record_count_ = recordset ? static_cast<int>(recordset->RecordCount()) : 0;
  kept_ = std::move(kept);
  return true;
}

engine::PrintJob EnginePreviewRunner::Job(const std::string& pdf_path) const {
  engine::PrintJob job;
  job.pdf_path = pdf_path;
  job.device_name = outputs_.printer.empty() ? printer_.DeviceName : outputs_.printer;
  job.title = title_;
  job.paper_size = printer_.PaperSize;
  if (printer_.PaperSize == engine::kPaperUser) {
    job.paper_width_mm = TwipsToMm(printer_.PaperWidth);
    job.paper_height_mm = TwipsToMm(printer_.PaperHeight);
  }
  job.paper_bin = printer_.PaperBin;
  job.orientation = printer_.Orientation;
  return job;
}

std::string EnginePreviewRunner::PrintQueue() const {
  if (!outputs_.printer.empty()) return outputs_.printer;
  if (!printer_.DeviceName.empty()) return printer_.DeviceName;
  for (const auto& printer : engine::ListPrinters()) {
    if (printer.is_default) return printer.name;
  }
  return {};
}

bool EnginePreviewRunner::RenderKept(const PendingFile& file, const std::string& queue) {
  try {
    engine::PdfRenderer renderer(file.TempPath().string());
    // Every page sent to a printer moves by that printer's calibration for the report.
    catalogue::OffsetSink calibrated(renderer, catalogue::CalibrationStore(home_).Get(queue, report_no_));
    kept_->Replay(calibrated);
    return true;
  } catch (const std::exception& e) {
    message_ = "ファイル '" + file.Target().string() + "' を書き込めません (" + e.what() + ")";
    return false;
  }
}

bool EnginePreviewRunner::Print() {
  last_print_ = {};
  message_.clear();
  if (!outputs_.print) {
    message_ = "印刷先が指定されていません。";
    return false;
  }
  if (!kept_) {
    message_ = "印刷するページがありません。";
    return false;
  }
  if (!outputs_.print_pdf.empty()) {
    PendingFile file(outputs_.print_pdf);
    if (!RenderKept(file, "") || !file.Commit(message_)) return false;
    written_.push_back(outputs_.print_pdf);
    last_print_.ok = true;
    last_print_.printer = outputs_.print_pdf;
    return true;
  }
  // The job is copied to the server when it is submitted; the local file is not needed after.
  PendingFile spool(std::filesystem::temp_directory_path() / "lupinprint-job.pdf");
  if (!RenderKept(spool, PrintQueue())) return false;
  last_print_ = engine::SubmitPdf(Job(spool.TempPath().string()));
  if (!last_print_.ok) message_ = last_print_.message;
  return last_print_.ok;
}

}  // namespace lupin::run
