#pragma once
// The hook through which the preview runs a report object. The report engine implements it; a
// batch run without pages uses StagedRowsRunner so that the bookkeeping still works.
#include <functional>
#include <memory>
#include <string_view>

#include "entry/context.h"

namespace lupin::run {

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
};

// Runs no report: the record count is the workstation's staged rows, and nothing is printed.
class StagedRowsRunner : public PreviewRunner {
 public:
  bool Run(entry::Context& context, std::string_view object_name) override;
  int RecordCount() const override { return count_; }
  bool Print() override { return true; }

 private:
  int count_ = 0;
};

// The report engine registers how to make its runner at start-up; the run command then previews
// and prints through it. Without one, page reports stop after staging.
using PreviewRunnerFactory = std::function<std::unique_ptr<PreviewRunner>()>;
inline PreviewRunnerFactory& RegisteredPreviewRunnerSlot() {
  static PreviewRunnerFactory factory;
  return factory;
}
inline void RegisterPreviewRunner(PreviewRunnerFactory factory) { RegisteredPreviewRunnerSlot() = std::move(factory); }
inline std::unique_ptr<PreviewRunner> MakeRegisteredPreviewRunner() {
  const auto& factory = RegisteredPreviewRunnerSlot();
  return factory ? factory() : nullptr;
}

}  // namespace lupin::run
