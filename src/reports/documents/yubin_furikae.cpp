#include "reports/documents/yubin_furikae.h"

#include "common/sql.h"
#include "common/text.h"
#include "common/vb.h"
#include "desktop/template.h"
#include "engine/measure.h"
#include "layout/form_fill.h"

namespace lupin::reports {

namespace {

constexpr const char* kMemoControls[] = {"lblMemo1", "lblMemo2_1", "lblMemo2_2"};

}  // namespace

rptYubinFurikae::rptYubinFurikae(entry::Context& context, engine::TextMeasurer& measurer)
    : ReportFrame(context, "rptYubinFurikae"), measurer_(measurer) {
  Detail().Format = [this] { Detail_Format(); };
}

std::string rptYubinFurikae::Query() const {
  return "SELECT [CHUMON].*,[WK_PRINT].[COMPANY],[WK_PRINT].[SIMEI], [WK_PRINT].[ORD_DATE], [WK_PRINT].[DATE], "
         "[WK_PRINT].[BIKO1], [WK_PRINT].[BIKO2], [WK_PRINT].[BIKO3], [WK_PRINT].[ITEM_ID1], [WK_PRINT].[SEK_GAKU] "
         "FROM [CHUMON], [WK_PRINT] "
         "WHERE [CHUMON].[ID] = [WK_PRINT].[ID]"
         " AND [WK_PRINT].[CLIENT_NAME] = '" + sql::SqlQuote(context_.ClientName()) + "'";
}

void rptYubinFurikae::ActiveReport_DataInitialize() {
  OpenData(Query());
  SetPrintWidth();
  FillAccount();
  for (int i = 0; i < 3; ++i) DetailControl(kMemoControls[i]).Caption = context_.current.memo[static_cast<std::size_t>(i)];
  ApplyFormat();
  // A format's text replaces a memo; the record fills what then stands.
  for (int i = 0; i < 3; ++i) memos_[static_cast<std::size_t>(i)] = DetailControl(kMemoControls[i]).Caption;
}

void rptYubinFurikae::FillAccount() {
  const std::string plain = text::TextReplace(context_.current.fld_txt[0], "-", "");
  // Right-aligned to box 13; a number of more than five digits goes on leftwards, never cut.
  const std::string number = layout::RightAligned(text::CharMid(plain, 7), 7);
  engine::Section& detail = Detail();
  for (const int first : {1, 21}) {
    layout::FillBoxes(detail, "lblKoza_digit_", first, first + 4, text::CharLeft(plain, 5));
    layout::FillBoxes(detail, "lblKoza_digit_", first + 5, first + 5, text::CharMid(plain, 6, 1));
    layout::FillBoxes(detail, "lblKoza_digit_", first + 6, first + 12, number);
  }
  DetailControl("lblKozaMei").Caption = context_.current.fld_txt[1];
  DetailControl("lblKozaMei2").Caption = context_.current.fld_txt[1];
}

void rptYubinFurikae::Detail_Format() {
  const auto& recordset = DataControl1.Recordset;
  if (!recordset || recordset->Eof()) return;
  engine::Section& detail = Detail();

  const std::string company = FieldText("請求先会社名");
  const std::string department = FieldText("請求先所属");
  const std::string name = FieldText("請求先氏名") + "　様";
  if (!company.empty() || !department.empty()) {
    DetailControl("lblMemo3").Caption = company + "   " + department + "\r\n" + name;
    DetailControl("lblNAME").Caption.clear();
  } else {
    DetailControl("lblMemo3").Caption.clear();
    DetailControl("lblNAME").Caption = name;
  }
  layout::CopyCaption(detail, "lblNAME", {"lblNAME2"});
  layout::CopyCaption(detail, "fldTel", {"fldTel2"});
  layout::CopyCaption(detail, "lblMemo3", {"lblMemo3_2"});

  const std::string amount = vb::Format(vb::Val(FieldText("SEK_GAKU")), "0");
  const std::string boxes = layout::RightAligned(amount, kFurikaeAmountBoxes);
  layout::FillBoxes(detail, "lblSek_gaku_", 2, 8, boxes);
  layout::FillBoxes(detail, "lblSek_gaku_", 22, 28, boxes);
  // The receipt half's sixth account box takes the amount's last character as well.
  DetailControl("lblKoza_digit_26").Caption = text::CharRight(boxes, 1);

  Memos(FieldText("ID"));

  engine::Control& address = DetailControl("lblADDRESS");
  const std::string text = FieldText("請求先住所");
  crlf_.LineBytes = crlf_.FitLineBytes(measurer_, address.Font, address.Width, text);
  address.Caption = crlf_.InsertCrLfAddress(text);
}

void rptYubinFurikae::Memos(const std::string& id) {
  db::Recordset order = context_.Db().Open("SELECT * FROM [CHUMON] WHERE [ID] = " + vb::Format(vb::Val(id), "0"));
  for (int i = 0; i < 3; ++i) {
    std::string memo = memos_[static_cast<std::size_t>(i)];
    if (memo.find("<@") != std::string::npos && !order.Eof()) desktop::ExpandTemplate(memo, order);
    DetailControl(kMemoControls[i]).Caption = memo;
  }
  order.Close();
}

void RegisterYubinFurikaeReport(engine::ReportRegistry& registry, std::shared_ptr<engine::TextMeasurer> measurer) {
  auto shared_measurer = std::make_shared<std::shared_ptr<engine::TextMeasurer>>(std::move(measurer));
  registry.Register("rptYubinFurikae", [shared_measurer](entry::Context& context) {
    if (!*shared_measurer) *shared_measurer = std::make_shared<engine::PangoTextMeasurer>();
    return std::make_unique<rptYubinFurikae>(context, **shared_measurer);
  });
}

}  // namespace lupin::reports
