#include "exchange/amazon_export.h"

#include <algorithm>
#include <array>

#include "common/text.h"
#include "common/vb.h"
#include "exchange/csv_line.h"
#include "exchange/field_text.h"
#include "exchange/order_values.h"

namespace lupin::exchange {

std::string AmazonCarrierCode(std::string_view carrier) {
  if (text::TextEquals(carrier, "FedEx")) return "FedEx";
  if (text::TextEquals(carrier, "DFL")) return "DFL";
  if (text::TextEquals(carrier, "NipponExpress") || text::TextInStr(carrier, "日通") > 0 ||
      text::TextInStr(carrier, "日本通運") > 0)
    return "NipponExpress";
  return "Other";
}

void modAmazonSyukka::Begin(entry::Context&, entry::Ui&, const common::Grid& grid) {
  date_caption_ = CaptionOr(grid, 7, "出荷日");
}

void modAmazonSyukka::AppendHead(std::string& out) const {
  CsvLine(out, '\t')
      .Add("TemplateType=OrderFulfillment", Quote::None)
      .Add("Version=2011.1102", Quote::None)
      .Add("この行はAmazonが使用しますので変更や削除しないでください。", Quote::None)
      .End();
  for (const auto& names : {std::array<std::string_view, 9>{"注文番号", "注文商品番号", "出荷数", "出荷日", "配送業者コード",
                                                           "配送業者名", "お問い合わせ伝票番号", "配送方法", "代金引換"},
                            std::array<std::string_view, 9>{"order-id", "order-item-id", "quantity", "ship-date",
                                                           "carrier-code", "carrier-name", "tracking-number",
                                                           "ship-method", "cod-collection-method"}}) {
    CsvLine line(out, '\t');
    for (const std::string_view name : names) line.Add(name, Quote::None);
    line.End();
  }
}

RowFailure modAmazonSyukka::Line(const CheckedOrder& o, db::Connection&, std::string& out) {
  const std::string order_id = o.Field("電子決済受付No");
  if (order_id.empty()) return {3, "注文番号を入力して下さい。"};
  const std::string ship_date = TrimBlanks(o.Cell(7));
  if (ship_date.empty()) return {3, date_caption_ + "を入力して下さい。"};
  if (!vb::IsDate(ship_date)) return {4, date_caption_ + "を正しく入力して下さい。"};
  const std::string carrier = o.Field("宅配業者");
  if (carrier.empty()) return {3, "宅配業者を入力して下さい。"};
  const bool is_cod = IsCashOnDelivery(o.Field("支払方法"));
  const std::string tracking = RemoveAll(o.Field("出荷伝票番号"), "-");
  if (is_cod && tracking.empty()) return {3, "出荷伝票番号を入力して下さい。"};
  const std::string code = AmazonCarrierCode(carrier);
  std::string date = ship_date;
  std::replace(date.begin(), date.end(), '/', '-');
  CsvLine(out, '\t')
      .Add(order_id, Quote::None)
      .Empty(2, Quote::None)
      .Add(date + "T00:00:00+09:00", Quote::None)
      .Add(code, Quote::None)
      .Add(code == "Other" ? carrier : std::string(), Quote::None)
      .Add(tracking, Quote::None)
      .Empty(1, Quote::None)
      .Add(is_cod ? "DirectPayment" : "", Quote::None)
      .End();
  return {};
}

}  // namespace lupin::exchange
