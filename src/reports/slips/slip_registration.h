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
using MeasurerSource = std::function<engine::TextMeasurer&()>;
MeasurerSource SlipMeasurer(std::shared_ptr<engine::TextMeasurer> given = nullptr);

void RegisterYamatoReports(engine::ReportRegistry& registry, MeasurerSource measurer_of = SlipMeasurer());
void RegisterSagawaReports(engine::ReportRegistry& registry, MeasurerSource measurer_of = SlipMeasurer());
void RegisterNittuReports(engine::ReportRegistry& registry, MeasurerSource measurer_of = SlipMeasurer());
void RegisterYupakReports(engine::ReportRegistry& registry, MeasurerSource measurer_of = SlipMeasurer());
void RegisterFukuyamaSeinoReports(engine::ReportRegistry& registry, MeasurerSource measurer_of = SlipMeasurer());
// Every carrier family above, sharing one measurer.
void RegisterSlipReports(engine::ReportRegistry& registry, std::shared_ptr<engine::TextMeasurer> measurer = nullptr);

}  // namespace lupin::reports
