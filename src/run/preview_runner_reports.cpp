#include "reports/documents/address_label.h"
#include "reports/documents/item_list.h"
#include "reports/documents/order_list.h"
#include "reports/documents/picking.h"
#include "reports/documents/sales_summary.h"
#include "reports/slips/yamato_slip.h"
#include "run/preview_runner_engine.h"

namespace lupin::run {

engine::ReportRegistry ReportObjects() {
  engine::ReportRegistry objects;
  reports::RegisterPickingReports(objects);
  reports::RegisterOrderListReport(objects);
  reports::RegisterItemListReport(objects);
  reports::RegisterAddressLabelReports(objects);
  reports::RegisterSalesSummaryReport(objects);
  reports::RegisterYamatoReports(objects);
  return objects;
}

void RegisterEnginePreviewRunner() {
  RegisterPreviewRunner([](const PreviewOutputs& outputs, PreviewProgress progress) -> std::unique_ptr<PreviewRunner> {
    return std::make_unique<EnginePreviewRunner>(ReportObjects(), outputs, std::move(progress));
  });
}

}  // namespace lupin::run
