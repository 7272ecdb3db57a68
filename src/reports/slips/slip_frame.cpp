#include "reports/slips/slip_frame.h"

#include <cmath>

#include "common/sql.h"
#include "common/text.h"
#include "common/vb.h"
#include "layout/format_apply.h"
#include "layout/form_fill.h"
#include "reports/slips/slip_boxes.h"
#include "reports/slips/slip_query.h"
#include "reports/slips/yamato_text.h"

namespace lupin::reports {

namespace {

std::string Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return "";
  const std::size_t last = text.find_last_not_of(' ');
  return std::string(text.substr(first, last - first + 1));
}

constexpr const char* kPostcodeMask = "!@  @  @    @  @  @  @";

}  // namespace

std::vector<std::string> Numbered(const std::string& prefix, int count) {
  std::vector<std::string> names;
  for (int i = 1; i <= count; ++i) names.push_back(prefix + std::to_string(i));
  return names;
}

SlipFrame::SlipFrame(entry::Context& context, SlipSpec spec, engine::TextMeasurer& measurer)
    : ReportFrame(context, spec.designer), spec_(std::move(spec)), measurer_(measurer) {
  Detail().Format = [this] { Detail_Format(); };
  for (const auto& control : Detail().Controls()) {
    if (control->Name.starts_with("shpDelivery")) time_marks_.push_back(control.get());
  }
}

std::string SlipFrame::Query() const { return StagedOrderQuery(context_); }

void SlipFrame::ActiveReport_DataInitialize() {
  atena_.clear();
  OpenData(Query());
  auto& recordset = *DataControl1.Recordset;
  if (!recordset.Eof()) {
    recordset.MoveLast();
    recordset.MoveFirst();
  }
  record_count_ = static_cast<int>(recordset.RecordCount());

  SetPaper();
  const auto& definition = context_.current;
  if (definition.paper_type != 0) {
    // The form has the sender printed on it already.
    if (spec_.memo_fields) {
      for (const char* memo : {"lblMemo1", "lblMemo2", "lblMemo3"}) DetailControl(memo).Caption.clear();
    }
    SetSenderBlock(false);
  } else {
    if (spec_.memo_fields) {
      DetailControl("lblMemo1").Caption = definition.fld_txt[0];
      const MemoPieces pieces = SplitMemo2(definition.fld_txt[1]);
      DetailControl("lblMemo2").Caption = pieces.memo2;
      DetailControl("lblMemo3").Caption = pieces.memo3;
    }
    SetSenderBlock(true);
  }
  InitialiseCarrierExtras();
  ApplyFormat();
}

void SlipFrame::SetPaper() {
  const SlipPaper& paper = spec_.paper;
  if (paper.rule == SlipPaper::Rule::None || platform_id == kPlatformNt) return;
  if (paper.rule == SlipPaper::Rule::UserDefinedSize && context_.current.paper_size != engine::kPaperUser) return;
  if (Printer.Orientation == engine::kPortrait) {
    Printer.PaperWidth = paper.portrait_width;
    Printer.PaperHeight = paper.portrait_height;
    return;
  }
  if (paper.other_width != 0) Printer.PaperWidth = paper.other_width;
  Printer.PaperHeight = paper.other_height;
}

void SlipFrame::SetSenderBlock(bool printed) {
  for (const auto& name : spec_.sender_printed_hides) DetailControl(name).Visible = printed;
}

void SlipFrame::Detail_Format() {
  const auto& recordset = DataControl1.Recordset;
  if (!recordset || recordset->Eof()) return;
  const bool customers = CustomerMode();

  FillDates(customers);
  engine::Control* company = spec_.sender.company.empty() ? nullptr : &DetailControl(spec_.sender.company);
  if (company != nullptr) company->Caption.clear();

  const SlipParties parties = customers ? CustomerParties() : OrderParties();
  FillRecipient(parties.recipient, !parties.gift);
  // The sender's company line belongs to an orderer who sends a gift.
  if (company != nullptr && (customers || !parties.gift)) company->Visible = false;
  FillSender(parties);

  if (!spec_.items.control.empty()) {
    std::string block;
    if (customers) {
      block.clear();
    } else if (spec_.items.hinmei_override && !context_.default_item_name.empty()) {
      block = context_.default_item_name;
    } else {
      block = Items(FieldText("ID"));
    }
    SetText(spec_.items.control, std::move(block));
  }
  MarkTime(customers ? "" : FieldText("配達時間帯"));
  if (!spec_.time_caption.empty()) {
    const engine::Control& field = DetailControl(spec_.time_field);
    if (field.Tag != layout::kHiddenTag)
      layout::ShowUnlessHidden(DetailControl(spec_.time_caption), !FieldText("配達時間帯").empty());
  }
  for (const auto& [copy, original] : spec_.sender.copies) DetailControl(copy).Caption = DetailControl(original).Caption;
  FillCarrierExtras(parties);
}

SlipParties SlipFrame::CustomerParties() {
  SlipParties parties;
  parties.recipient = {FieldText("郵便番号"), FieldText("TEL番号"), FieldText("住所"),
                       FieldText("Company"),   FieldText("顧客所属"), FieldText("Simei")};
  if (shop_) parties.sender = {shop_->postcode, shop_->tel, shop_->address, "", "", shop_->name};
  return parties;
}

SlipParties SlipFrame::OrderParties() {
  SlipParties parties;
  SlipParty orderer;
  if (spec_.names_from_order) {
    const std::string company = FieldText("会社名"), department = FieldText("所属");
    // Simei serves when the company block stays empty.
    const std::string name = company.empty() && department.empty() ? FieldText("Simei") : FieldText("氏名");
    orderer = {FieldText("郵便番号"), FieldText("電話番号"), FieldText("住所"), company, department, name};
  } else {
    orderer = {FieldText("郵便番号"), FieldText("電話番号"), FieldText("住所"),
               FieldText("Company"),  FieldText("所属"),     FieldText("Simei")};
  }
  const SlipParty shop = {FieldText("ショップ郵便番号"), FieldText("ショップ電話番号"), FieldText("ショップ住所"), "", "",
                          FieldText("ショップ名")};
  if (shop_) *shop_ = {shop.name, shop.postcode, shop.address, shop.tel};

  parties.gift = !FieldText("贈答先氏名").empty();
  if (!parties.gift) {
    parties.recipient = std::move(orderer);
    parties.sender = shop;
    return parties;
  }
  parties.recipient = {FieldText("贈答先郵便番号"), FieldText("贈答先電話番号"), FieldText("贈答先住所"),
                       FieldText("贈答先会社名"),   FieldText("贈答先所属"),     FieldText("贈答先氏名")};
  parties.orderer_sends = spec_.sender_rule == SenderRule::GiftOrdererSends || Atena(FieldText("ショップID")) == 0;
  if (!parties.orderer_sends) {
    parties.sender = shop;
    return parties;
  }
  parties.sender = std::move(orderer);
  parties.sender.address = Trim(parties.sender.address);
  parties.sender.department.clear();
  return parties;
}

void SlipFrame::FillDates(bool customers) {
  for (const DateBox& box : spec_.dates) {
    std::string shown;
    if (!customers) {
      if (const auto date = vb::CDate(FieldText(box.column))) shown = vb::FormatDate(*date, box.picture);
    }
    DetailControl(box.control).Caption = std::move(shown);
  }
}

void SlipFrame::FillRecipient(const SlipParty& party, bool break_name) {
  const RecipientControls& controls = spec_.recipient;
  FillPostcode(controls.postcode, party.postcode);
  FillTel(controls.tel, party.tel);
  engine::Control& address = DetailControl(controls.address);
  address.Caption = BreakAddress(address, party.address);
  FillCompanyBlock(party.company, party.department);

  engine::Control& name = DetailControl(controls.name);
  if (!break_name) {
    name.Caption = party.name;
    return;
  }
  const std::string broken = BreakName(name, party.name);
  // A name that needs two lines is printed unbroken, and the box cuts it.
  name.Caption = broken.find(kCrLf) == std::string::npos ? broken : party.name;
}

void SlipFrame::FillCompanyBlock(std::string company, std::string department) {
  engine::Control& upper = DetailControl(spec_.recipient.company_upper);
  engine::Control& lower = DetailControl(spec_.recipient.company_lower);
  if (company.empty() && department.empty()) {
    upper.Visible = false;
    lower.Visible = false;
    return;
  }
  crlf_.FitCompanyLines(company, department, measurer_, lower.Font, lower.Width);
  if (!company.empty() && !department.empty()) {
    upper.Caption = company;
    lower.Caption = department;
    layout::ShowUnlessHidden(upper, true);
    layout::ShowUnlessHidden(lower, true);
    return;
  }
  upper.Visible = false;
  lower.Caption = company.empty() ? department : company;
  layout::ShowUnlessHidden(lower, true);
}

void SlipFrame::FillSender(const SlipParties& parties) {
  const SenderControls& controls = spec_.sender;
  const SlipParty& sender = parties.sender;
  FillPostcode(controls.postcode, sender.postcode);
  engine::Control& address = DetailControl(controls.address);
  address.Caption = BreakAddress(address, sender.address);
  FillTel(controls.tel, sender.tel);
  FillSenderName(sender, parties.orderer_sends);
}

void SlipFrame::FillSenderName(const SlipParty& sender, bool orderer) {
  const SenderControls& controls = spec_.sender;
  engine::Control& name = DetailControl(controls.name);
  if (controls.name_upper.empty()) {
    name.Caption = sender.name;
    if (orderer && !controls.company.empty()) {
      engine::Control& company = DetailControl(controls.company);
      company.Caption = sender.company;
      layout::ShowUnlessHidden(company, !sender.company.empty());
    }
    return;
  }
  engine::Control& upper = DetailControl(controls.name_upper);
  if (orderer && !sender.company.empty()) {
    upper.Caption = sender.company;
    name.Caption = sender.name;
    return;
  }
  // A long name takes both lines; whatever would need a third joins the second.
  const std::string broken = BreakName(name, sender.name);
  const std::size_t first_break = broken.find(kCrLf);
  upper.Caption = first_break == std::string::npos ? "" : broken.substr(0, first_break);
  std::string lower = first_break == std::string::npos ? broken : broken.substr(first_break + 2);
  for (std::size_t at = lower.find(kCrLf); at != std::string::npos; at = lower.find(kCrLf, at)) lower.erase(at, 2);
  name.Caption = std::move(lower);
}

void SlipFrame::FillPostcode(const PostcodeSpec& spec, std::string_view postcode) {
  using Style = PostcodeSpec::Style;
  switch (spec.style) {
    case Style::None: return;
    case Style::Boxes: SetBoxes(spec.control, kPostcodeBoxes, PostcodeBoxText(postcode)); return;
    case Style::DigitBoxes: SetBoxes(spec.control, kPostcodeBoxes, PostcodeDigits(postcode)); return;
    case Style::Text: DetailControl(spec.control).Caption = std::string(postcode); return;
    case Style::Mask:
      DetailControl(spec.control).Caption = vb::FormatText(text::TextReplace(postcode, "-", ""), kPostcodeMask);
      return;
  }
}

void SlipFrame::FillTel(const TelSpec& spec, std::string_view tel) {
  if (spec.style == TelSpec::Style::Boxes) {
    SetBoxes(spec.control, kTelBoxes, TelBoxText(tel));
    return;
  }
  DetailControl(spec.control).Caption = std::string(tel);
}

std::string SlipFrame::BreakAddress(engine::Control& box, std::string_view address) {
  crlf_.LineBytes = crlf_.FitLineBytes(measurer_, box.Font, box.Width, address);
  return crlf_.InsertCrLfAddress(address);
}

std::string SlipFrame::BreakName(engine::Control& box, std::string_view name) {
  crlf_.LineBytes = crlf_.FitLineBytes(measurer_, box.Font, box.Width, name);
  return crlf_.InsertCrLfName(name);
}

std::uint8_t SlipFrame::Atena(const std::string& shop_id) {
  if (const auto found = atena_.find(shop_id); found != atena_.end()) return found->second;
  std::uint8_t atena = 0;
  try {
    db::Recordset shop = context_.Db().Open("SELECT [ATENA] FROM [SHOP] WHERE [SHOP_ID] = '" + sql::SqlQuote(shop_id) + "'");
    if (!shop.Eof()) atena = AtenaByte(shop["Atena"].Text());
  } catch (const std::exception&) {
    // No shop row or no readable flag: the shop is not the addressee.
    atena = 0;
  }
  atena_.emplace(shop_id, atena);
  return atena;
}

std::string SlipFrame::Items(const std::string& id) {
  // One read serves both the quantity picture and the lines.
  db::Recordset rows = context_.Db().Open("SELECT [ITEM_MEI],[ITEM_QTY] FROM [CHUMON_D] WHERE [ID] = " + id +
                                          " ORDER BY [ITEM_NO]");
  std::vector<ItemLine> lines;
  for (; !rows.Eof(); rows.MoveNext()) lines.push_back({rows["ITEM_MEI"].Text(), rows["ITEM_QTY"].Number()});
  return ItemBlock(lines, spec_.items.columns);
}

void SlipFrame::MarkTime(std::string_view time_band) {
  for (engine::Control* mark : time_marks_) mark->Visible = false;
  if (const std::string mark = spec_.time_slots.MarkFor(time_band); !mark.empty())
    layout::ShowUnlessHidden(DetailControl(mark), true);
}

void SlipFrame::SetText(std::string_view control, std::string text) {
  engine::Control& target = DetailControl(control);
  if (target.Kind() == engine::ControlKind::TextField) {
    target.Text = std::move(text);
  } else {
    target.Caption = std::move(text);
  }
}

void SlipFrame::SetBoxes(std::string_view prefix, int boxes, std::string_view text) {
  layout::FillBoxes(Detail(), prefix, 1, boxes, text);
}

std::int64_t SlipFrame::WholeField(std::string_view column) const {
  return static_cast<std::int64_t>(std::trunc(vb::Val(FieldText(column))));
}

bool SlipFrame::HasDetailControl(std::string_view name) { return Detail().Controls().Item(name) != nullptr; }

}  // namespace lupin::reports
