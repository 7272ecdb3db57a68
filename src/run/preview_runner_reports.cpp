#include "reports/documents/nouhin.h"
#include "reports/documents/picking.h"
#include "reports/documents/seikyu.h"
#include "reports/documents/yubin_furikae.h"
#include "reports/slips/yamato_slip.h"
#include "run/preview_runner_engine.h"

namespace lupin::run {

engine::ReportRegistry ReportObjects() {
  engine::ReportRegistry objects;
  reports::RegisterNouhinReports(objects);
  reports::RegisterPickingReports(objects);
  reports::RegisterSeikyuReports(objects);
  reports::RegisterYubinFurikaeReport(objects);
  reports::RegisterYamatoReports(objects);
  return objects;
}

void RegisterEnginePreviewRunner() {
  RegisterPreviewRunner([](const PreviewOutputs& outputs, PreviewProgress progress) -> std::unique_ptr<PreviewRunner> {
    return std::make_unique<EnginePreviewRunner>(ReportObjects(), outputs, std::move(progress));
  });
}

}  // namespace lupin::run
