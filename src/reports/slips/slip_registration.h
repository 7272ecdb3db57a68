#pragma once
// Registration of the carrier slips: one call per carrier family. The objects of one registry
// share the text measurer and, for the Yamato slips, the shop members, for the registry's life.
#include <functional>
#include <memory>

#include "engine/report_registry.h"
#include "engine/text_measure.h"

namespace lupin::reports {

// The measurer given, or the renderers' own made when the first slip needs it (not when the
// program starts).
std::function<engine::TextMeasurer&()> SlipMeasurer(std::shared_ptr<engine::TextMeasurer> given);

void RegisterYamatoReports(engine::ReportRegistry& registry, std::shared_ptr<engine::TextMeasurer> measurer = nullptr);
// Every carrier family above.
void RegisterSlipReports(engine::ReportRegistry& registry, std::shared_ptr<engine::TextMeasurer> measurer = nullptr);

}  // namespace lupin::reports
