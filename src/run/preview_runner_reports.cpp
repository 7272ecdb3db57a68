#include "reports/documents/address_label.h"
#include "reports/documents/item_list.h"
#include "reports/documents/nouhin.h"
#include "reports/documents/order_list.h"
#include "reports/documents/picking.h"
#include "reports/documents/sales_summary.h"
#include "reports/documents/seikyu.h"
#include "reports/documents/wellnet_request.h"
#include "reports/documents/yubin_furikae.h"
#include "reports/slips/slip_registration.h"
#include "run/preview_runner_engine.h"

namespace lupin::run {

engine::ReportRegistry ReportObjects() {
  // One registration for the process: what a report object keeps between runs (the shop of the
  // last Yamato order run) reaches the next run, as the one designer instance did.
  static const engine::ReportRegistry objects = [] {
    engine::ReportRegistry registry;
    reports::RegisterNouhinReports(registry);
    reports::RegisterSeikyuReports(registry);
    reports::RegisterYubinFurikaeReport(registry);
    reports::RegisterOrderListReport(registry);
    reports::RegisterItemListReport(registry);
    reports::RegisterSalesSummaryReport(registry);
    reports::RegisterAddressLabelReports(registry);
    reports::RegisterPickingReports(registry);
    reports::RegisterWellNetReport(registry);
    const auto measurer = reports::SlipMeasurer();
    reports::RegisterYamatoReports(registry, measurer);
    reports::RegisterSagawaReports(registry, measurer);
    reports::RegisterNittuReports(registry, measurer);
    reports::RegisterYupakReports(registry, measurer);
    reports::RegisterFukuyamaSeinoReports(registry, measurer);
    return registry;
  }();
  return objects;
}

void RegisterEnginePreviewRunner() {
  RegisterPreviewRunner([](const PreviewOutputs& outputs, PreviewProgress progress) -> std::unique_ptr<PreviewRunner> {
    return std::make_unique<EnginePreviewRunner>(ReportObjects(), outputs, std::move(progress));
  });
}

}  // namespace lupin::run
