#pragma once
// The hook through which the preview runs a report object. The report engine implements it.
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "entry/context.h"

namespace lupin::run {

// Where the pages of a run go. The preview outputs write nothing but their files; the print
// command books first and then sends the same pages out.
struct PreviewOutputs {
  std::string pdf;         // the preview as one PDF file
  std::string png_dir;     // the preview as page-0001.png … in this folder
  double png_dpi = 96;
  std::string dump;        // the preview as the page dump (JSON)
  bool print = false;      // the print command sends the pages out
  std::string printer;     // with print: this queue instead of the report's DEVICE_NAME
  std::string print_pdf;   // with print: this file instead of a printer

  bool Previews() const { return !pdf.empty() || !png_dir.empty() || !dump.empty(); }
};

// Called with the number of pages laid out so far, after each page.
using PreviewProgress = std::function<void(int pages)>;

class PreviewRunner {
 public:
  virtual ~PreviewRunner() = default;
  // Creates and runs the report object (e.g. "rptSagawa"; "rptWellNet" for the request-for-
  // material run). False when it could not be run.
  virtual bool Run(entry::Context& context, std::string_view object_name) = 0;
  // The number of records the report read at its data initialisation: the length of the
  // waybill series.
  virtual int RecordCount() const = 0;
  // Hands the pages to the printer with the print dialog; false when cancelled or failed.
  virtual bool Print() = 0;
  // Why the last Run or Print failed, for the user; empty when there is nothing to say.
  virtual std::string Message() const { return {}; }
  // Pages the last Run laid out.
  virtual int Pages() const { return 0; }
  // True when Run can make the report object of that name; asked before anything is booked.
  virtual bool Has(std::string_view object_name) const {
    (void)object_name;
    return true;
  }
  // The files the last Run and Print wrote, in order.
  virtual std::vector<std::string> Written() const { return {}; }
};

// The report engine registers how to make its runner at start-up; the run command then previews
// and prints through it. Without one, page reports stop after staging.
using PreviewRunnerFactory =
    std::function<std::unique_ptr<PreviewRunner>(const PreviewOutputs& outputs, PreviewProgress progress)>;
inline PreviewRunnerFactory& RegisteredPreviewRunnerSlot() {
  static PreviewRunnerFactory factory;
  return factory;
}
inline void RegisterPreviewRunner(PreviewRunnerFactory factory) { RegisteredPreviewRunnerSlot() = std::move(factory); }
inline std::unique_ptr<PreviewRunner> MakeRegisteredPreviewRunner(const PreviewOutputs& outputs = {},
                                                                  PreviewProgress progress = nullptr) {
  const auto& factory = RegisteredPreviewRunnerSlot();
  return factory ? factory(outputs, std::move(progress)) : nullptr;
}

}  // namespace lupin::run
