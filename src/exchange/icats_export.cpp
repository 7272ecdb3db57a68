#include "exchange/icats_export.h"

#include "common/text.h"
#include "common/vb.h"
#include "exchange/csv_line.h"
#include "exchange/delivery_time.h"
#include "exchange/field_text.h"
#include "exchange/numbered_fields.h"
#include "exchange/order_values.h"
#include "exchange/yamato_address.h"

namespace lupin::exchange {
namespace {

constexpr int kICatsFields = 47;
constexpr int kB2Fields = 71;

// Trimmed; in telephones and postcodes a line break is removed.
std::string NumberText(std::string_view value) { return ReplaceCrLf(TrimBlanks(value), ""); }
std::string LineText(std::string_view value) { return ReplaceCrLf(TrimBlanks(value), kWideSpace); }

struct Party {
  std::string tel, zip, address, company, department, name;
};

struct YamatoOrder {
  bool is_cod = false, is_gift = false, is_payment = false;
  Party to, from;
};

Party Recipient(const CheckedOrder& o, bool is_gift) {
  Party p;
  if (is_gift) {
    p = {NumberText(o.Field("贈答先電話番号")), NumberText(o.Field("贈答先郵便番号")), LineText(o.Field("贈答先住所")),
         LineText(o.Field("贈答先会社名")),     LineText(o.Field("贈答先所属")),
         ReplaceCrLf(TrimBlanks(o.Field("贈答先氏名")), " ")};
  } else {
    p = {NumberText(o.Field("電話番号")), NumberText(o.Field("郵便番号")), LineText(o.Field("住所")),
         LineText(o.Cell(3)),            LineText(o.Field("所属")),     TrimBlanks(o.Cell(4))};
  }
  p.address = WideEach(p.address);
  return p;
}

Party Sender(const CheckedOrder& o, bool customer_sends, const ICatsSetup& s) {
  const auto either = [&](int k, std::string_view shop_field) {
    const std::string& report_text = s.fld_txt[static_cast<std::size_t>(k)];
    return report_text.empty() ? o.Field(shop_field) : report_text;
  };
  Party p;
  if (customer_sends) {
    p = {o.Field("電話番号"), o.Field("郵便番号"), o.Field("住所"), {}, {}, o.Field("氏名")};
  } else {
    p = {either(2, "ショップ電話番号"), either(1, "ショップ郵便番号"), either(4, "ショップ住所"), {}, {},
         either(0, "ショップ名")};
  }
  p.tel = NumberText(p.tel);
  p.zip = NumberText(p.zip);
  p.address = WideEach(LineText(p.address));
  p.name = LineText(p.name);
  return p;
}

bool IsPayment(std::string_view payment) {
  return text::TextEquals(payment, "クロネコ＠ペイメント") || text::TextEquals(payment, "クロネコwebコレクト");
}

std::string DeliveryDate(const CheckedOrder& o) {
  const std::string date = TrimBlanks(o.Field("配達日"));
  return date.empty() ? date : vb::FormatText(date, "yyyy/mm/dd");
}

struct Items {
  std::string code1, name1, code2, name2;
};

Items ItemsOf(const CheckedOrder& o, const ICatsSetup& s) {
  Items items;
  items.code1 = CutBytes(30, TrimBlanks(o.Cell(10)));
  const bool fixed = !s.item_name.empty();
  items.name1 = CutBytes(50, ReplaceCrLf(fixed ? s.item_name : o.Field("商品名1"), " "));
  if (!fixed) {
    items.code2 = CutBytes(30, o.Field("商品ID2"));
    items.name2 = CutBytes(50, o.Field("商品名2"));
  }
  return items;
}

}  // namespace

std::string YamatoSlipKind(std::string_view carrier, bool is_cod, bool b2) {
  if (is_cod) return "2";
  const bool mail = text::TextInStr(carrier, "メール便") > 0;
  if (b2 && mail && text::TextInStr(carrier, "速達") > 0) return "6";
  if (mail) return "3";
  if (text::TextInStr(carrier, "ネコポス") > 0) return "7";
  return "0";
}

std::string YamatoTimeCode(std::string_view delivery_time) {
  const DeliveryTime time = ParseDeliveryTime(delivery_time);
  if (time.kind != DeliveryTime::Kind::Text) return {};
  if (time.text == "午前中") return "0812";
  const int hour = time.hour;
  if (hour >= 1 && hour <= 11) return "0812";
  switch (hour) {
    case 12: case 13: return "1214";
    case 14: case 15: return "1416";
    case 16: case 17: return "1618";
    case 18: return "1820";
    case 19: return "1921";
    case 20: case 21: return "2021";
    default: return {};
  }
}

void ICatsCsvWriter::Begin(entry::Context& context, entry::Ui& ui, const common::Grid& grid) {
  setup_ = {};
  for (std::size_t k = 0; k < 5; ++k) setup_.fld_txt[k] = TrimBlanks(context.current.fld_txt[k]);
  std::string_view codes = setup_.fld_txt[3];
  for (std::size_t k = 0; k < 3 && !codes.empty(); ++k) {
    const std::size_t comma = codes.find(',');
    setup_.carrier_codes[k] = std::string(codes.substr(0, comma));
    codes = comma == std::string_view::npos ? std::string_view() : codes.substr(comma + 1);
  }
  setup_.item_name = context.default_item_name;
  setup_.ship_date_caption = CaptionOr(grid, 7, "出荷予定日");
  setup_.name_caption = CaptionOr(grid, 4, "名前");
  setup_.amount_caption = CaptionOr(grid, 11, "請求金額");
  setup_.box_caption = context.current.report_name;
  atena_.Clear();
  ui_ = &ui;
}

RowFailure ICatsCsvWriter::Line(const CheckedOrder& o, db::Connection& db, std::string& out) {
  const bool b2 = form_ == Form::B2;
  const bool is_gift = IsGift(o.order);
  const bool is_cod = IsCashOnDelivery(o.Field("支払方法"));
  const bool is_payment = b2 && IsPayment(o.Field("支払方法"));
  const bool customer_sends = is_gift && !atena_.Of(db, o.Field("ショップID"));

  const std::string ship_date = TrimBlanks(o.Cell(7));
  if (ship_date.empty()) return {3, setup_.ship_date_caption + "を入力して下さい。"};
  if (!vb::IsDate(ship_date)) return {4, setup_.ship_date_caption + "を正しく入力して下さい。"};

  const Party to = Recipient(o, is_gift);
  const std::string tel = CutBytes(b2 ? 15 : 13, to.tel, true);
  if (tel.empty()) return {3, "電話番号が設定されていません。"};
  std::string zip = CutBytes(7, RemoveAll(to.zip, "-"));
  if (zip.empty()) return {5, "郵便番号が設定されていません。"};
  if (to.address.empty()) return {5, "住所が設定されていません。"};
  const std::string name = CutBytes(b2 ? 32 : 30, to.name);
  if (name.empty()) return {3, setup_.name_caption + "を入力してください。"};

  const Party from = Sender(o, customer_sends, setup_);
  const std::string from_tel = CutBytes(b2 ? 15 : 13, from.tel, true);
  if (from_tel.empty()) return {5, "ショップ電話番号が設定されていません。"};
  std::string from_zip = CutBytes(7, RemoveAll(from.zip, "-"));
  if (from_zip.empty()) return {5, "ショップ郵便番号が設定されていません。"};
  if (from.address.empty()) return {5, "ショップ住所が設定されていません。"};
  const std::string from_name = CutBytes(b2 ? 32 : 30, from.name);
  if (from_name.empty()) return {5, "ショップ名が設定されていません。"};

  const Items items = ItemsOf(o, setup_);
  if (items.name1.empty()) return {5, "商品名1が設定されていません。"};
  std::string amount = "0", tax = "0";
  if (is_cod) {
    amount = TrimBlanks(o.Cell(11));
    if (amount.empty()) return {3, setup_.amount_caption + "を入力して下さい。"};
    tax = o.Cell(12);
    if (tax.empty()) return {5, "消費税が設定されていません。"};
  }
  const std::string payment_no = CutBytes(23, TrimBlanks(o.Field("電子決済受付No")));
  if (is_payment && payment_no.empty()) return {5, "ペイメント申込受付番号が設定されていません。"};

  const std::string id = CutBytes(20, TrimBlanks(o.Field("ID")));
  const std::string kind = YamatoSlipKind(o.Field("宅配業者"), is_cod, b2);
  const std::string time_code = YamatoTimeCode(o.Field("配達時間帯"));
  const std::string gift_shop = is_gift ? CutBytes(24, ReplaceCrLf(o.Field("ショップ名"), " ")) : std::string();
  const HouseNumberSplit split = SplitHouseNumber(to.address);

  if (b2) {
    NumberedFields f(kB2Fields);
    f.Set(1, id);
    f.Set(2, kind);
    f.Set(5, ship_date);
    f.Set(6, DeliveryDate(o));
    f.Set(7, time_code);
    f.Set(9, tel);
    f.Set(11, zip);
    f.SetRun(12, B2AddressFields(split.address, to.company, to.department));
    f.Set(16, name);
    f.Set(18, "様");
    f.Set(20, from_tel);
    f.Set(22, from_zip);
    const auto from_address = AtFirstWideSpace(SplitHouseNumber(from.address).address);
    f.Set(23, CutBytes(64, from_address[0]));
    f.Set(24, CutBytes(32, from_address[1]));
    f.Set(25, from_name);
    f.SetRun(27, std::array{items.code1, items.name1, items.code2, items.name2});
    f.Set(33, gift_shop);
    f.Set(34, amount);
    f.Set(35, tax);
    f.Set(36, "0");
    f.Set(38, "1");
    f.Set(39, "2");
    f.Set(40, CutBytes(12, setup_.carrier_codes[0]));
    f.Set(41, CutBytes(3, setup_.carrier_codes[1]));
    f.Set(42, CutBytes(2, setup_.carrier_codes[2]));
    f.Set(43, is_payment ? "1" : "0");
    f.Set(45, payment_no);
    f.Set(48, "0");
    f.Set(52, "0");
    f.Set(53, "0");
    AppendQuotedLine(out, f.Values());
    return {};
  }

  // I-CATS pads a short postcode with zeros after telling the user, and goes on.
  const auto pad = [&](std::string& code, std::string_view whose) {
    if (text::ByteLen(code) >= 7) return;
    ui_->MessageBox("ID : " + o.id + " の" + std::string(whose) + "の郵便番号が7桁未満です。左0埋めします。",
                    setup_.box_caption, entry::kInformation);
    code = text::CharRight("0000000" + code, 7);
  };
  pad(zip, "の届先");
  pad(from_zip, "の依頼主");
  // A long address keeps 16 characters behind the split; the rest goes ahead of the company.
  std::string address1 = split.address, company = to.company;
  if (split.split_chars > 0 && text::CharLen(split.address) > split.split_chars + 16) {
    address1 = text::CharLeft(split.address, split.split_chars + 16);
    company = text::CharMid(split.address, split.split_chars + 17) + company;
  }
  NumberedFields f(kICatsFields);
  f.Set(1, ship_date);
  f.Set(2, id);
  f.Set(3, kind);
  f.Set(6, tel);
  f.Set(8, zip);
  f.Set(9, CutBytes(96, address1));
  f.Set(10, company);
  f.Set(11, to.department);
  f.Set(12, name);
  f.Set(14, "様");
  f.Set(16, from_tel);
  f.Set(18, from_zip);
  f.Set(19, CutBytes(96, from.address));
  f.Set(20, from_name);
  f.Set(22, CutBytes(12, setup_.carrier_codes[0]));
  f.Set(23, CutBytes(3, setup_.carrier_codes[1]));
  f.Set(24, CutBytes(2, setup_.carrier_codes[2]));
  f.SetRun(25, std::array{items.code1, items.name1, items.code2, items.name2});
  f.Set(31, gift_shop);
  f.Set(32, DeliveryDate(o));
  f.Set(33, time_code);
  f.Set(34, amount);
  f.Set(35, tax);
  f.Set(36, "0");
  f.Set(38, payment_no);
  f.Set(41, "0");
  f.Set(45, "0");
  AppendQuotedLine(out, f.Values());
  return {};
}

}  // namespace lupin::exchange
