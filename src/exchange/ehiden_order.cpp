#include "exchange/ehiden_order.h"

#include "common/text.h"
#include "common/vb.h"
#include "exchange/ehiden_text.h"
#include "exchange/ehiden_time_zone.h"

namespace lupin::exchange {
namespace {


std::string Field(const db::Recordset& row, std::string_view name) { return row[name].Text(); }

// A recipient text: trimmed, line breaks as a full-width space, full-width.
std::string RecipientText(std::string_view value) { return WideEach(ReplaceCrLf(TrimBlanks(value), kWideSpace)); }
// A recipient telephone or postcode: a number, so half-width, line breaks removed, before any cut.
std::string RecipientNumber(std::string_view value) { return NarrowEach(ReplaceCrLf(TrimBlanks(value), "")); }

std::string DateField(const db::Recordset& row, std::string_view name) {
  const std::string value = TrimBlanks(Field(row, name));
  return value.empty() ? value : vb::FormatText(value, "yyyyMMdd");
}

bool IsCashOnDelivery(std::string_view payment) { return payment == "代引き" || payment.starts_with("代金引換"); }

std::string OrFallback(const std::string& report_text, const db::Recordset& row, std::string_view shop_field) {
  return report_text.empty() ? Field(row, shop_field) : report_text;
}

struct Recipient {
  std::string company, department, address, name, tel, zip;
};

Recipient ReadRecipient(const db::Recordset& row, const EhidenGridCells& cells, bool is_gift) {
  if (is_gift) {
    return {RecipientText(Field(row, "贈答先会社名")), RecipientText(Field(row, "贈答先所属")),
            RecipientText(Field(row, "贈答先住所")),   RecipientText(Field(row, "贈答先氏名")),
            RecipientNumber(Field(row, "贈答先電話番号")), RecipientNumber(Field(row, "贈答先郵便番号"))};
  }
  return {RecipientText(cells.company),           RecipientText(Field(row, "所属")),
          RecipientText(Field(row, "住所")),       RecipientText(cells.name),
          RecipientNumber(Field(row, "電話番号")), RecipientNumber(Field(row, "郵便番号"))};
}

void FillSender(const db::Recordset& row, bool customer_sends, const EhidenSetup& setup, EhidenOrder& order) {
  std::string tel, zip, address, name;
  if (customer_sends) {
    tel = Field(row, "電話番号");
    zip = Field(row, "郵便番号");
    address = Field(row, "住所");
    const std::string company = Field(row, "会社名");
    name = Field(row, "氏名");
    // The company fills the first 16-character name line so the person's name starts the second.
    if (setup.generation != EhidenGeneration::I && !company.empty())
      name = text::CharLeft(WideEach(company) + std::string(16, ' '), 16) + WideEach(name);
  } else {
    tel = OrFallback(setup.sender.tel, row, "ショップ電話番号");
    zip = OrFallback(setup.sender.zip, row, "ショップ郵便番号");
    address = OrFallback(setup.sender.address, row, "ショップ住所");
    name = OrFallback(setup.sender.name, row, "ショップ名");
  }
  order.sender_tel = NarrowEach(tel);
  order.sender_zip = CutBytes(8, NarrowEach(zip));
  order.sender_address = {Split16(address, 0), Split16(address, 1)};
  order.sender_name = {Split16(name, 0), Split16(name, 1)};
}

void FillItems(const db::Recordset& row, const std::string& item_name, EhidenOrder& order) {
  if (!item_name.empty()) {
    order.items = {CutBytes(32, WideEach(item_name)), {}, {}, {}, {}};
    return;
  }
  for (int k = 0; k < 5; ++k)
    order.items[static_cast<std::size_t>(k)] = CutBytes(32, WideEach(Field(row, "商品名" + std::to_string(k + 1))));
}

}  // namespace

EhidenSenderTexts EhidenSenderTexts::From(const std::array<std::string, 5>& fld_txt) {
  return {TrimBlanks(fld_txt[0]), TrimBlanks(fld_txt[1]), TrimBlanks(fld_txt[2]), TrimBlanks(fld_txt[3]),
          TrimBlanks(fld_txt[4])};
}

EhidenOrderResult ReadEhidenOrder(const db::Recordset& row, const EhidenGridCells& cells, bool atena,
                                  const EhidenSetup& setup) {
  EhidenOrderResult result;
  EhidenOrder& order = result.order;
  order.is_gift = !TrimBlanks(Field(row, "贈答先氏名")).empty();
  order.is_cod = IsCashOnDelivery(Field(row, "支払方法"));

  const Recipient to = ReadRecipient(row, cells, order.is_gift);
  if (to.address.empty()) {
    result.code = 5;
    result.message = "住所が設定されていません。";
    return result;
  }
  if (to.name.empty()) {
    result.code = 3;
    result.message = (setup.name_caption.empty() ? std::string("名前") : setup.name_caption) + "を入力して下さい。";
    return result;
  }
  order.tel = CutBytes(14, to.tel);
  if (order.tel.empty()) {
    result.code = 5;
    result.message = "電話番号が設定されていません。";
    return result;
  }
  order.zip = CutBytes(8, to.zip);
  order.lines = DistributeAddress(to.address, to.company, to.department, to.name);
  order.id = CutBytes(16, TrimBlanks(Field(row, "ID")));
  order.shipper_tel = CutBytes(14, NarrowEach(OrFallback(setup.sender.tel, row, "ショップ電話番号")));
  FillSender(row, !atena && order.is_gift, setup, order);
  FillItems(row, setup.item_name, order);
  order.delivery_date = DateField(row, "配達日");
  order.planned_ship_date = DateField(row, "出荷予定日");
  order.time_zone = TimeZoneCode(Field(row, "配達時間帯"), setup.generation, setup.sender.evening.empty());
  if (order.is_cod) {
    order.amount = TrimBlanks(cells.amount);
    order.tax = std::string(cells.tax);
  }
  if (setup.generation == EhidenGeneration::I) {
    if (!order.is_gift) order.email = CutBytes(50, NarrowEach(ReplaceCrLf(Field(row, "メールアドレス"), " ")));
    if (order.is_gift) order.gift_shop_name = CutBytes(20, ReplaceCrLf(Field(row, "ショップ名"), kWideSpace));
  }
  return result;
}

}  // namespace lupin::exchange
