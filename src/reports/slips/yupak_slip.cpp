#include "reports/slips/yupak_slip.h"

#include "common/text.h"
#include "layout/form_fill.h"
#include "reports/slips/slip_boxes.h"
#include "reports/slips/slip_registration.h"

namespace lupin::reports {

namespace {

constexpr int kAmountBoxes = 7;
// The revenue stamp comes out of the remittance.
constexpr std::int64_t kStampAmount = 200;

TimeSlotTable Slots(YupakForm::Generation generation) {
  using G = YupakForm::Generation;
  switch (generation) {
    case G::Old:
      return {"shpDelivery1",
              "",
              {{13, 16, "shpDelivery2"}, {17, 19, "shpDelivery3"}, {19, 21, "shpDelivery4"}},
              {{0, 4, "shpDelivery2"}, {5, 7, "shpDelivery3"}, {7, 9, "shpDelivery4"}}};
    case G::New:
      return {"shpDelivery1",
              "",
              {{12, 14, "shpDelivery2"}, {14, 17, "shpDelivery3"}, {17, 19, "shpDelivery4"}, {19, 21, "shpDelivery5"}},
              {{0, 2, "shpDelivery2"}, {2, 5, "shpDelivery3"}, {5, 7, "shpDelivery4"}, {7, 9, "shpDelivery5"}}};
    case G::Y2010: break;
  }
  return {"shpDelivery1",
          "",
          {{12, 14, "shpDelivery2"}, {14, 16, "shpDelivery3"}, {16, 18, "shpDelivery4"}, {18, 20, "shpDelivery5"},
           {20, 21, "shpDelivery6"}},
          {{0, 2, "shpDelivery2"}, {2, 4, "shpDelivery3"}, {4, 6, "shpDelivery4"}, {6, 8, "shpDelivery5"},
           {8, 9, "shpDelivery6"}}};
}

std::string AmountText(std::int64_t amount) { return layout::RightAligned(std::to_string(amount), kAmountBoxes); }

YupakForm FormOf(const std::string& designer) {
  YupakForm form;
  form.collect = designer.find("_Colect") != std::string::npos;
  form.generation = designer.ends_with("2010")                        ? YupakForm::Generation::Y2010
                    : designer.find("New") != std::string::npos ? YupakForm::Generation::New
                                                                      : YupakForm::Generation::Old;
  form.extra_account_box = designer.ends_with("E") || designer.ends_with("E2010");
  return form;
}

}  // namespace

std::string AccountBoxText(std::string_view account, int boxes) {
  const std::string digits = text::TextReplace(account, "-", "");
  const std::string symbol = text::CharLeft(digits, 5);
  const std::string check = text::CharMid(digits, 6, 1);
  std::string number = text::CharMid(digits, 7);
  const std::size_t first = number.find_first_not_of(' '), last = number.find_last_not_of(' ');
  number = first == std::string::npos ? "" : number.substr(first, last - first + 1);
  const int number_boxes = boxes - 6;
  return symbol + std::string(static_cast<std::size_t>(5 - text::CharLen(symbol)), ' ') + (check.empty() ? " " : check) +
         layout::RSet(number, number_boxes);
}

SlipSpec YupakSpec(const std::string& designer, YupakForm form) {
  using G = YupakForm::Generation;
  SlipSpec spec;
  spec.designer = designer;
  // The newer collect forms take their paper from the print settings alone.
  if (form.generation == G::Old || !form.collect) {
    spec.paper = {SlipPaper::Rule::Always, form.collect ? 13891 : 11057, 7201, 7201, form.collect ? 13891 : 11057};
  }
  spec.recipient = {{PostcodeSpec::Style::DigitBoxes, "lblYubin_"}, {TelSpec::Style::Text, "lblTel"}, "lblJUSYO",
                    "lblCompany", "lblCompany2", "lblName"};
  spec.sender.postcode = {PostcodeSpec::Style::Text, "lblYubin2"};
  spec.sender.tel = {TelSpec::Style::Text, "lblTel2"};
  spec.sender.address = "lblJusyo2";
  spec.sender.name = "lblName2";
  spec.sender.name_upper = "lblNameSub2";
  spec.sender_printed_hides = {"lblYubin2", "lblJusyo2", "lblNameSub2", "lblName2", "lblTel2"};
  if (form.generation != G::Old) spec.dates = {{"lblDELIVERY_DATE", "配達日", "mm  dd"}};
  spec.time_slots = Slots(form.generation);
  if (!form.collect) spec.items = {"fldItem", {20, 9, 19, 9}, false};
  return spec;
}

YupakSlip::YupakSlip(entry::Context& context, const std::string& designer, engine::TextMeasurer& measurer, YupakForm form)
    : SlipFrame(context, YupakSpec(designer, form), measurer), form_(form) {}

void YupakSlip::InitialiseCarrierExtras() {
  if (!form_.collect) return;
  const int boxes = form_.extra_account_box ? 14 : 13;
  SetBoxes("lblKoza_digit_", boxes, AccountBoxText(context_.current.fld_txt[0], boxes));
  if (form_.generation != YupakForm::Generation::Old) DetailControl("lblKozaMei").Caption = context_.current.fld_txt[1];
}

void YupakSlip::FillCarrierExtras(const SlipParties& parties) {
  (void)parties;
  if (!form_.collect) return;
  const std::int64_t amount = WholeField("SEK_GAKU");
  SetBoxes("lblSek_gaku_", kAmountBoxes, AmountText(amount));
  if (form_.generation == YupakForm::Generation::Old) return;
  SetBoxes("lblTax_gaku_", kAmountBoxes, AmountText(WholeField("TAX")));
  const bool stamp = WholeField("INSHI") != 0;
  DetailControl("lblInshi").Caption = stamp ? "レ" : "";
  SetBoxes("lblSok_gaku_", kAmountBoxes, AmountText(stamp ? amount - kStampAmount : amount));
}

void RegisterYupakReports(engine::ReportRegistry& registry, MeasurerSource measurer_of) {
  for (const char* designer : {"rptYupak", "rptYupak_Colect", "rptYupak_ColectNew", "rptYupak_ColectNewE",
                               "rptYupak2010", "rptYupak_Colect2010", "rptYupak_ColectE2010"}) {
    registry.Register(designer, [designer = std::string(designer), measurer_of](entry::Context& context) {
      return std::make_unique<YupakSlip>(context, designer, measurer_of(), FormOf(designer));
    });
  }
}

}  // namespace lupin::reports
