#pragma once
// The preview and the print command on the report engine: the report object of the number is
// made from the registry, given the page set-up of its definition and run once; its pages go to
// the preview files as they are laid out and are kept for the print command, which sends them to
// CUPS or to a PDF file after the bookkeeping.
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/printer.h"
#include "engine/report_registry.h"
#include "run/preview_runner.h"
#include "run/preview_runner_sinks.h"

namespace lupin::run {

class EnginePreviewRunner : public PreviewRunner {
 public:
  EnginePreviewRunner(engine::ReportRegistry registry, PreviewOutputs outputs,
                      PreviewProgress progress = nullptr);

  // False with Message() when the object is not registered, an output cannot be written or the
  // run fails; the preview files then keep their old content.
  bool Run(entry::Context& context, std::string_view object_name) override;
  int RecordCount() const override { return record_count_; }
  // Sends the kept pages out; true without doing anything when the print was not asked for.
  bool Print() override;
  std::string Message() const override { return message_; }

  int Pages() const override { return pages_; }
  bool Has(std::string_view object_name) const override { return registry_.Has(object_name); }
  std::vector<std::string> Written() const override { return written_; }
  // A window that shows the pages as they are laid out; not owned, kept for the next runs.
  void AddViewer(engine::PageSink* viewer) { viewer_ = viewer; }
  // The print command's destination, which a print dialog may change before Print.
  PreviewOutputs& Outputs() { return outputs_; }
  // The queue Print sends to: the named one, the report's, or the server's default.
  std::string PrintQueue() const;
  const engine::PrintOutcome& LastPrint() const { return last_print_; }
  // The job the print command submits for a rendered file: the report's printer, paper, bin and
  // orientation, the queue of outputs.printer when one is named.
  engine::PrintJob Job(const std::string& pdf_path) const;

 private:
  bool RenderKept(const PendingFile& file, const std::string& queue);

  engine::ReportRegistry registry_;
  engine::PageSink* viewer_ = nullptr;
  std::filesystem::path home_;
  std::int32_t report_no_ = 0;
  PreviewOutputs outputs_;
  PreviewProgress progress_;
  std::unique_ptr<KeptPages> kept_;
  engine::PrinterSettings printer_;
  std::string title_;
  std::string message_;
  engine::PrintOutcome last_print_;
  std::vector<std::string> written_;
  int pages_ = 0;
  int record_count_ = 0;
};

// Every report object the engine can run, by object name. Each call gives a registry of its own:
// the objects of one registry share what they cache for a run of the process.
engine::ReportRegistry ReportObjects();

// Makes EnginePreviewRunner over ReportObjects() the run command's preview.
void RegisterEnginePreviewRunner();

}  // namespace lupin::run
