#include "reports/slips/sagawa_slip.h"

#include "layout/form_fill.h"
#include "reports/slips/slip_boxes.h"
#include "reports/slips/slip_registration.h"

namespace lupin::reports {

namespace {

constexpr int kAmountBoxes = 7;

}  // namespace

SlipSpec SagawaSpec(const std::string& designer, bool form2010) {
  SlipSpec spec;
  spec.designer = designer;
  spec.paper = {SlipPaper::Rule::Always, 10773, 5761, 5761, 10773};
  spec.recipient = {{}, {TelSpec::Style::Boxes, "lblTel_"}, "lblJUSYO", "lblCompany", "lblCompany2", "lblName"};
  spec.sender.tel = {TelSpec::Style::Boxes, "lblTel2_"};
  spec.sender.address = "lblJusyo2";
  spec.sender.name = "lblName2";
  spec.sender.name_upper = "lblNameSub2";
  spec.sender_printed_hides = Numbered("lblTel2_", kTelBoxes);
  for (const char* name : {"lblJusyo2", "lblNameSub2", "lblName2"}) spec.sender_printed_hides.emplace_back(name);
  if (form2010) {
    spec.recipient.postcode = {PostcodeSpec::Style::Boxes, "lblYubin_"};
    spec.sender.postcode = {PostcodeSpec::Style::Text, "lblYubin2"};
    spec.sender_printed_hides.emplace_back("lblYubin2");
  } else {
    spec.dates.push_back({"lblDelivery_y", "配達日", "yy"});
  }
  spec.dates.push_back({"lblDelivery_m", "配達日", "mm"});
  spec.dates.push_back({"lblDelivery_d", "配達日", "dd"});
  spec.time_caption = "lblDelivery_time";
  spec.time_field = "fldDelivery_time";
  spec.items = {"fldItem", {20, 9, 19, 9}, false};
  return spec;
}

SagawaSlip::SagawaSlip(entry::Context& context, const std::string& designer, engine::TextMeasurer& measurer,
                       bool amount_boxes)
    : SlipFrame(context, SagawaSpec(designer, designer.ends_with("2010")), measurer), amount_boxes_(amount_boxes) {}

void SagawaSlip::FillCarrierExtras(const SlipParties& parties) {
  (void)parties;
  if (!amount_boxes_) return;
  SetBoxes("lblSek_gaku_", kAmountBoxes, layout::RightAligned(std::to_string(WholeField("SEK_GAKU")), kAmountBoxes));
}

void RegisterSagawaReports(engine::ReportRegistry& registry, MeasurerSource measurer_of) {
  for (const auto& [designer, boxes] : {std::pair{"rptSagawa", false}, {"rptSagawa_Colect", true},
                                        {"rptSagawa2010", false}, {"rptSagawa_Colect2010", false}}) {
    registry.Register(designer, [designer = std::string(designer), boxes = boxes, measurer_of](entry::Context& context) {
      return std::make_unique<SagawaSlip>(context, designer, measurer_of(), boxes);
    });
  }
}

}  // namespace lupin::reports
