#include "reports/slips/yamato_slip.h"

#include "common/sql.h"
#include "common/text.h"
#include "common/vb.h"
#include "engine/measure.h"
#include "layout/format_apply.h"
#include "reports/slips/yamato_item_block.h"
#include "reports/slips/yamato_text.h"
#include "reports/slips/yamato_time_mark.h"

namespace lupin::reports {

namespace {

constexpr const char* kSenderControls[] = {"lblJJUSYO", "lblJTEL", "lblSHOP_NAME"};

std::string Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return "";
  const std::size_t last = text.find_last_not_of(' ');
  return std::string(text.substr(first, last - first + 1));
}

}  // namespace

YamatoSlip::YamatoSlip(entry::Context& context, std::string_view designer_name,
                       std::shared_ptr<YamatoShopMembers> shop, engine::TextMeasurer& measurer, bool collect)
    : ReportFrame(context, designer_name), shop_(std::move(shop)), measurer_(measurer), collect_(collect) {
  Detail().Format = [this] { Detail_Format(); };
}

bool YamatoSlip::CustomerMode() const {
  const std::int32_t number = context_.current.report_no;
  return number == 29 || number == 30;
}

std::string YamatoSlip::Query() const {
  std::string sql;
  if (CustomerMode()) {
    // Customer staging carries the customer number in SEK_GAKU.
    sql = "SELECT [CUSTOMER].*,[WK_PRINT].[COMPANY],[WK_PRINT].[SIMEI] ";
    sql += "FROM [CUSTOMER],[WK_PRINT] ";
    sql += "WHERE [CUSTOMER].[顧客NO] = [WK_PRINT].[SEK_GAKU]";
  } else {
    sql = "SELECT [CHUMON].*,[WK_PRINT].[COMPANY],[WK_PRINT].[SIMEI], [WK_PRINT].[ORD_DATE], [WK_PRINT].[DATE], "
          "[WK_PRINT].[BIKO1], [WK_PRINT].[BIKO2], [WK_PRINT].[ITEM_ID1], [WK_PRINT].[SEK_GAKU] ";
    sql += "FROM [CHUMON], [WK_PRINT] ";
    sql += "WHERE [CHUMON].[ID] = [WK_PRINT].[ID]";
  }
  return sql + WorkstationRestriction();
}

void YamatoSlip::ActiveReport_DataInitialize() {
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
    for (const char* memo : {"lblMemo1", "lblMemo2", "lblMemo3"}) DetailControl(memo).Caption.clear();
    SetSenderBlock(false);
  } else {
    DetailControl("lblMemo1").Caption = definition.fld_txt[0];
    const MemoPieces pieces = SplitMemo2(definition.fld_txt[1]);
    DetailControl("lblMemo2").Caption = pieces.memo2;
    DetailControl("lblMemo3").Caption = pieces.memo3;
    SetSenderBlock(true);
  }
  ApplyFormat();
}

void YamatoSlip::SetPaper() {
  if (platform_id == kPlatformNt || context_.current.paper_size != engine::kPaperUser) return;
  if (Printer.Orientation == engine::kPortrait) {
    Printer.PaperWidth = kSlipPaperWidth;
    Printer.PaperHeight = kSlipPaperHeight;
  } else {
    // Height twice and the width untouched: the driver turns the form this way.
    Printer.PaperHeight = kSlipPaperHeight;
    Printer.PaperHeight = kSlipPaperWidth;
  }
}

void YamatoSlip::SetSenderBlock(bool printed) {
  for (const char* name : kSenderControls) DetailControl(name).Visible = printed;
  for (int i = 1; i <= kPostcodeBoxes; ++i) DetailControl("lblJYubin_" + std::to_string(i)).Visible = printed;
}

void YamatoSlip::Detail_Format() {
  const auto& recordset = DataControl1.Recordset;
  if (!recordset || recordset->Eof()) return;
  const bool customers = CustomerMode();

  DetailControl("lblDELIVERY_DATE").Caption = customers ? "" : DeliveryDateText(FieldText("配達日"));
  engine::Control& company3 = DetailControl("lblCompany3");
  company3.Caption.clear();

  if (customers) {
    FillRecipient({FieldText("郵便番号"), FieldText("TEL番号"), FieldText("住所"), FieldText("Company"),
                   FieldText("顧客所属"), FieldText("Simei")},
                  true);
    company3.Visible = false;
    FillSender(shop_->postcode, shop_->tel, shop_->address, shop_->name);
    DetailControl("lblITEM").Caption.clear();
    // In this mode the column holds the customer number.
    if (collect_) DetailControl("fldSEK_GAKU").Text.clear();
    MarkTime("");
    return;
  }

  const std::uint8_t atena = Atena(FieldText("ショップID"));
  *shop_ = {FieldText("ショップ名"), FieldText("ショップ郵便番号"), FieldText("ショップ住所"), FieldText("ショップ電話番号")};
  const bool gift = !FieldText("贈答先氏名").empty();

  if (gift) {
    FillRecipient({FieldText("贈答先郵便番号"), FieldText("贈答先電話番号"), FieldText("贈答先住所"),
                   FieldText("贈答先会社名"), FieldText("贈答先所属"), FieldText("贈答先氏名")},
                  false);
  } else {
    company3.Visible = false;
    FillRecipient({FieldText("郵便番号"), FieldText("電話番号"), FieldText("住所"), FieldText("Company"),
                   FieldText("所属"), FieldText("Simei")},
                  true);
  }

  if (!gift || atena != 0) {
    FillSender(shop_->postcode, shop_->tel, shop_->address, shop_->name);
  } else {
    FillSender(FieldText("郵便番号"), FieldText("電話番号"), Trim(FieldText("住所")), FieldText("Simei"));
    const std::string company = FieldText("Company");
    company3.Caption = company;
    layout::ShowUnlessHidden(company3, !company.empty());
  }

  DetailControl("lblITEM").Caption =
      context_.default_item_name.empty() ? Items(FieldText("ID")) : context_.default_item_name;
  MarkTime(FieldText("配達時間帯"));
}

void YamatoSlip::FillRecipient(Party party, bool break_name) {
  FillPostcode("lblYubin_", party.postcode);
  DetailControl("lblTEL").Caption = party.tel;
  DetailControl("lblADDRESS").Caption = BreakAddress(DetailControl("lblADDRESS"), party.address);
  FillCompanyBlock(std::move(party.company), std::move(party.department));

  engine::Control& name = DetailControl("lblNAME");
  if (!break_name) {
    name.Caption = party.name;
    return;
  }
  crlf_.LineBytes = crlf_.FitLineBytes(measurer_, name.Font, name.Width, party.name);
  const std::string broken = crlf_.InsertCrLfName(party.name);
  // A name that needs two lines is printed unbroken, and the box cuts it.
  name.Caption = broken.find(kCrLf) == std::string::npos ? broken : party.name;
}

void YamatoSlip::FillCompanyBlock(std::string company, std::string department) {
  engine::Control& upper = DetailControl("lblCompany");
  engine::Control& lower = DetailControl("lblCompany2");
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

void YamatoSlip::FillSender(const std::string& postcode, const std::string& tel, const std::string& address,
                            const std::string& name) {
  FillPostcode("lblJYubin_", postcode);
  DetailControl("lblJJUSYO").Caption = BreakAddress(DetailControl("lblJJUSYO"), address);
  DetailControl("lblJTEL").Caption = tel;
  DetailControl("lblSHOP_NAME").Caption = name;
}

void YamatoSlip::FillPostcode(const char* prefix, std::string_view postcode) {
  const auto boxes = PostcodeBoxes(postcode);
  for (int i = 0; i < kPostcodeBoxes; ++i)
    DetailControl(prefix + std::to_string(i + 1)).Caption = boxes[static_cast<std::size_t>(i)];
}

std::string YamatoSlip::BreakAddress(engine::Control& box, std::string_view address) {
  crlf_.LineBytes = crlf_.FitLineBytes(measurer_, box.Font, box.Width, address);
  return crlf_.InsertCrLfAddress(address);
}

std::uint8_t YamatoSlip::Atena(const std::string& shop_id) {
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

std::string YamatoSlip::Items(const std::string& id) {
  // One read serves both the quantity picture and the lines.
  db::Recordset rows = context_.Db().Open("SELECT [ITEM_MEI],[ITEM_QTY] FROM [CHUMON_D] WHERE [ID] = " + id +
                                          " ORDER BY [ITEM_NO]");
  std::vector<ItemLine> lines;
  for (; !rows.Eof(); rows.MoveNext()) lines.push_back({rows["ITEM_MEI"].Text(), rows["ITEM_QTY"].Number()});
  return ItemBlock(lines);
}

void YamatoSlip::MarkTime(std::string_view time_band) {
  engine::Control* marks[kTimeMarkCount];
  for (int i = 0; i < kTimeMarkCount; ++i) {
    marks[i] = &DetailControl("shpDelivery" + std::to_string(i + 1));
    marks[i]->Visible = false;
  }
  if (const int mark = DeliveryTimeMark(time_band); mark > 0) layout::ShowUnlessHidden(*marks[mark - 1], true);
}

void RegisterYamatoReports(engine::ReportRegistry& registry, std::shared_ptr<engine::TextMeasurer> measurer) {
  // The Pango measurer is made when the first slip is, not when the program starts.
  auto shared_measurer = std::make_shared<std::shared_ptr<engine::TextMeasurer>>(std::move(measurer));
  const auto measurer_of = [shared_measurer]() -> engine::TextMeasurer& {
    if (!*shared_measurer) *shared_measurer = std::make_shared<engine::PangoTextMeasurer>();
    return **shared_measurer;
  };
  auto plain_shop = std::make_shared<YamatoShopMembers>();
  registry.Register("rptYamatoNew", [plain_shop, measurer_of](entry::Context& context) {
    return std::make_unique<rptYamatoNew>(context, plain_shop, measurer_of());
  });
  auto collect_shop = std::make_shared<YamatoShopMembers>();
  registry.Register("rptYamato_ColectNew", [collect_shop, measurer_of](entry::Context& context) {
    return std::make_unique<rptYamato_ColectNew>(context, collect_shop, measurer_of());
  });
}

}  // namespace lupin::reports
