#include "reports/slips/slip_registration.h"

#include "engine/measure.h"
#include "reports/slips/yamato_slip.h"

namespace lupin::reports {

MeasurerSource SlipMeasurer(std::shared_ptr<engine::TextMeasurer> given) {
  auto shared = std::make_shared<std::shared_ptr<engine::TextMeasurer>>(std::move(given));
  return [shared]() -> engine::TextMeasurer& {
    if (!*shared) *shared = std::make_shared<engine::PangoTextMeasurer>();
    return **shared;
  };
}

void RegisterYamatoReports(engine::ReportRegistry& registry, MeasurerSource measurer_of) {
  for (const bool collect : {false, true}) {
    const std::string designer = collect ? "rptYamato_ColectNew" : "rptYamatoNew";
    // Each designer instance kept its own shop members.
    auto shop = std::make_shared<SlipShopMembers>();
    registry.Register(designer, [designer, shop, measurer_of, collect](entry::Context& context) {
      return std::make_unique<YamatoSlip>(context, designer, shop, measurer_of(), collect);
    });
  }
}

void RegisterSlipReports(engine::ReportRegistry& registry, std::shared_ptr<engine::TextMeasurer> measurer) {
  const MeasurerSource source = SlipMeasurer(std::move(measurer));
  RegisterYamatoReports(registry, source);
  RegisterSagawaReports(registry, source);
  RegisterNittuReports(registry, source);
  RegisterYupakReports(registry, source);
  RegisterFukuyamaSeinoReports(registry, source);
}

}  // namespace lupin::reports
