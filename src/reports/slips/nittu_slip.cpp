#include "reports/slips/nittu_slip.h"

#include "reports/slips/slip_registration.h"

namespace lupin::reports {

namespace {

constexpr int kBoundRows = 3;
constexpr int kOtherRow = 4;

TimeSlotTable OldSlots() {
  return {"shpDelivery1",
          "shpDelivery0",
          {{12, 16, "shpDelivery2"}, {16, 19, "shpDelivery3"}, {19, 22, "shpDelivery4"}},
          {{0, 4, "shpDelivery2"}, {4, 7, "shpDelivery3"}, {7, 10, "shpDelivery4"}}};
}

TimeSlotTable NewSlots() {
  return {"shpDelivery0",
          "shpDeliveryNone",
          {{12, 14, "shpDelivery1"}, {14, 16, "shpDelivery2"}, {16, 18, "shpDelivery3"}, {18, 20, "shpDelivery4"},
           {20, 21, "shpDelivery5"}},
          {{0, 2, "shpDelivery1"}, {2, 4, "shpDelivery2"}, {4, 6, "shpDelivery3"}, {6, 8, "shpDelivery4"},
           {8, 9, "shpDelivery5"}}};
}

}  // namespace

SlipSpec NittuSpec(const std::string& designer, bool collect, bool new_form) {
  SlipSpec spec;
  spec.designer = designer;
  spec.paper = collect ? SlipPaper{SlipPaper::Rule::Always, 13324, 6481, 6481, 13324}
                       : SlipPaper{SlipPaper::Rule::Always, 11623, 5761, 5761, 11623};
  spec.recipient = {{}, {TelSpec::Style::Text, "lblTel"}, "lblJUSYO", "lblCompany", "lblCompany2", "lblName"};
  if (new_form) {
    spec.recipient.postcode = {PostcodeSpec::Style::Boxes, "lblYubin_"};
  } else if (!collect) {
    spec.recipient.postcode = {PostcodeSpec::Style::Text, "lblYubin"};
  }
  spec.sender.postcode = new_form && !collect ? PostcodeSpec{PostcodeSpec::Style::Boxes, "lblJYubin_"}
                                              : PostcodeSpec{PostcodeSpec::Style::Text, "lblYubin2"};
  spec.sender.tel = {TelSpec::Style::Text, "lblTel2"};
  spec.sender.address = "lblJusyo2";
  spec.sender.name = "lblName2";
  spec.sender.name_upper = "lblNameSub2";
  spec.sender_printed_hides = {"lblJusyo2", "lblNameSub2", "lblName2", "lblTel2"};
  if (spec.sender.postcode.style == PostcodeSpec::Style::Boxes) {
    for (auto& box : Numbered("lblJYubin_", 7)) spec.sender_printed_hides.push_back(std::move(box));
  } else {
    spec.sender_printed_hides.emplace_back("lblYubin2");
  }
  if (!collect) spec.dates.push_back({"lblDelivery_y", "配達日", "yyyy"});
  spec.dates.push_back({"lblDelivery_m", "配達日", "mm"});
  spec.dates.push_back({"lblDelivery_d", "配達日", "dd"});
  spec.time_slots = new_form ? NewSlots() : OldSlots();
  if (!collect) spec.items = {"fldItem", {20, 9, 19, 9}, false};
  return spec;
}

NittuSlip::NittuSlip(entry::Context& context, const std::string& designer, engine::TextMeasurer& measurer)
    : SlipFrame(context,
                NittuSpec(designer, designer.find("_Colect") != std::string::npos, designer.ends_with("New")),
                measurer) {
  if (designer.find("_Colect") != std::string::npos)
    amounts_.emplace(context_, [this](std::string_view column) { return FieldText(column); });
}

void NittuSlip::FillCarrierExtras(const SlipParties& parties) {
  (void)parties;
  if (amounts_) FillGoodsRows();
}

void NittuSlip::FillGoodsRows() {
  CollectAmounts& amounts = *amounts_;
  amounts.Start();
  const auto shown = [](std::optional<std::int64_t> amount) { return amount ? Yen(*amount) : std::string(); };
  for (int n = 1; n <= kBoundRows; ++n) DetailControl("lblItem_gaku" + std::to_string(n)).Caption = shown(amounts.Line(n));

  // A fifth line means more goods than rows: row 4 sums all the rest.
  if (!FieldText("商品ID5").empty()) {
    std::int64_t rest = 0;
    for (int n = kOtherRow; n <= 20; ++n) rest += amounts.Line(n).value_or(0);
    DetailControl("lblITEM_ID4").Caption.clear();
    DetailControl("lblITEM_NAME4").Caption = "その他";
    DetailControl("lblItem_suryo4").Caption.clear();
    DetailControl("lblItem_gaku4").Caption = Yen(rest);
  } else {
    DetailControl("lblITEM_ID4").Caption = FieldText("商品ID4");
    DetailControl("lblITEM_NAME4").Caption = FieldText("商品名4");
    DetailControl("lblItem_suryo4").Caption = FieldText("注文数量4");
    DetailControl("lblItem_gaku4").Caption = shown(amounts.Line(kOtherRow));
  }
  DetailControl("lblItem_id5").Caption.clear();
  DetailControl("lblITEM_SURYO5").Caption.clear();
  DetailControl("lblItem_name5").Caption = "送料 および 代引き手数料 等";
  DetailControl("lblITEM_GAKU5").Caption = Yen(amounts.PostageAndFees());
  DetailControl("lblDaikin").Caption = Yen(amounts.Whole("SEK_GAKU"));
}

void RegisterNittuReports(engine::ReportRegistry& registry, MeasurerSource measurer_of) {
  for (const char* designer : {"rptNittu", "rptNittu_Colect", "rptNittuNew", "rptNittu_ColectNew"}) {
    registry.Register(designer, [designer = std::string(designer), measurer_of](entry::Context& context) {
      return std::make_unique<NittuSlip>(context, designer, measurer_of());
    });
  }
}

}  // namespace lupin::reports
