#include "reports/slips/fukuyama_seino_slip.h"

#include "reports/slips/slip_registration.h"

namespace lupin::reports {

namespace {

constexpr const char* kFukuyama = "rptFukuyama";
constexpr const char* kFukuyamaNew = "rptFukuyamaNew";
constexpr const char* kFukuyamaColectNew = "rptFukuyamaColectNew";
constexpr const char* kSeino = "rptSeino";
constexpr const char* kSeinoColect = "rptSeinoColect";
constexpr int kOrderLines = 20;

}  // namespace

SlipSpec FukuyamaSeinoSpec(const std::string& designer) {
  const bool seino = designer.starts_with(kSeino);
  SlipSpec spec;
  spec.designer = designer;
  spec.paper = {SlipPaper::Rule::Always, 12758, seino ? 6481 : 5761, seino ? 6481 : 5761, 12758};
  // The plain Seino form in the other orientation: only the width changes, to the Sagawa height.
  if (designer == kSeino) {
    spec.paper.other_width = 5761;
    spec.paper.other_height = 6481;
  }
  spec.sender_rule = designer == kFukuyama ? SenderRule::AtenaDecides : SenderRule::GiftOrdererSends;
  spec.names_from_order = true;
  spec.recipient = {{}, {TelSpec::Style::Text, "lblTEL"}, "lblADDRESS", "lblNameSub", "lblNameSub2", "lblNAME"};
  spec.sender.tel = {TelSpec::Style::Text, "lblJTEL"};
  spec.sender.address = "lblJJUSYO";
  spec.sender.name = "lblSHOP_NAME";
  if (designer != kSeinoColect) spec.sender.copies = {{"lblSHOP_NAME2", "lblSHOP_NAME"}, {"lblSHOP_TEL", "lblJTEL"}};
  if (designer == kFukuyamaNew || designer == kFukuyamaColectNew) {
    spec.recipient.postcode = {PostcodeSpec::Style::Mask, "lblYubin"};
    spec.sender.postcode = {PostcodeSpec::Style::Mask, "lblJYubin"};
  } else if (seino) {
    spec.sender.postcode = {PostcodeSpec::Style::Text, "lblJYubin"};
  }
  const char* picture = designer == kFukuyama ? "yy   mm  dd"
                        : seino               ? (designer == kSeino ? "yyyy      mm      dd" : " yy     mm     dd")
                                              : "yy    mm   dd";
  spec.dates = {{"lblDELIVERY_DATE", "出荷日", picture}};
  if (designer == kFukuyamaNew) {
    spec.dates.push_back({"lblKiboubi", "配達日", "mm    dd"});
    // The evening band has the fifth ring, the one left of the morning's.
    spec.time_slots = {"shpDelivery1",
                       "",
                       {{12, 14, "shpDelivery2"}, {14, 16, "shpDelivery3"}, {16, 18, "shpDelivery4"},
                        {18, 21, "shpDelivery0"}},
                       {}};
  }
  return spec;
}

FukuyamaSeinoSlip::FukuyamaSeinoSlip(entry::Context& context, const std::string& designer,
                                     engine::TextMeasurer& measurer)
    : SlipFrame(context, FukuyamaSeinoSpec(designer), measurer) {
  if (designer == kSeinoColect) amounts_.emplace(context_, [this](std::string_view column) { return FieldText(column); });
}

void FukuyamaSeinoSlip::InitialiseCarrierExtras() {
  // One designer serves the plain slip (31) and the collect slip (32).
  if (spec_.designer == kFukuyama) DetailControl("fldSEK_GAKU").Visible = context_.current.report_no == 32;
}

void FukuyamaSeinoSlip::FillCarrierExtras(const SlipParties& parties) {
  if (amounts_) FillSeinoRows(parties);
}

void FukuyamaSeinoSlip::FillSeinoRows(const SlipParties& parties) {
  CollectAmounts& amounts = *amounts_;
  amounts.Start();
  DetailControl("lblSource_name").Caption = parties.sender.name;
  DetailControl("lblDest_name").Caption = parties.recipient.name;

  const bool first = !FieldText("商品ID1").empty();
  DetailControl("lblItem_gaku1").Caption = first ? Yen(amounts.Whole("小計1")) : "";
  DetailControl("lblItem_tanka1").Caption = first ? Yen(amounts.Whole("単価1")) : "";

  if (FieldText("商品ID3").empty()) {
    const bool second = !FieldText("商品ID2").empty();
    DetailControl("lblItem_gaku2").Caption = second ? Yen(amounts.Whole("小計2")) : "";
    DetailControl("lblItem_tanka2").Caption = second ? Yen(amounts.Whole("単価2")) : "";
  } else {
    // More goods than rows: the second row sums all but the first.
    std::int64_t rest = 0;
    for (int n = 2; n <= kOrderLines; ++n) {
      if (!FieldText("商品ID" + std::to_string(n)).empty()) rest += amounts.Whole("小計" + std::to_string(n));
    }
    SetText("fldITEM_NAME2", "その他");
    DetailControl("lblItem_tanka2").Caption.clear();
    SetText("fldITEM_SURYO2", "");
    DetailControl("lblItem_gaku2").Caption = Yen(rest);
  }
  DetailControl("lblShipping").Caption = Yen(amounts.PostageAndFees());
  DetailControl("lblGaku").Caption = Yen(amounts.Whole("商品代金"));
  DetailControl("lblMemo1").Caption = context_.current.fld_txt[0];
}

void RegisterFukuyamaSeinoReports(engine::ReportRegistry& registry, MeasurerSource measurer_of) {
  for (const char* designer : {kFukuyama, kFukuyamaNew, kFukuyamaColectNew, kSeino, kSeinoColect}) {
    registry.Register(designer, [designer = std::string(designer), measurer_of](entry::Context& context) {
      return std::make_unique<FukuyamaSeinoSlip>(context, designer, measurer_of());
    });
  }
}

}  // namespace lupin::reports
