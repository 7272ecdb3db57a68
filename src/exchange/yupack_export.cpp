#include "exchange/yupack_export.h"

#include <array>

#include "common/text.h"
#include "common/vb.h"
#include "exchange/csv_line.h"
#include "exchange/delivery_time.h"
#include "exchange/field_text.h"
#include "exchange/order_values.h"

namespace lupin::exchange {
namespace {

constexpr std::array<std::string_view, 119> kYupackRHeader = {
    "お客様側管理番号", "お問い合わせ番号", "代表お問い合わせ番号", "発送予定日", "発送予定時間区分", "出荷期限日",
    "到着期限日", "郵便種別", "保冷種別", "元／着払／代引", "書留／セキュリティ種別", "配達時間帯指定郵便種別",
    "送り状種別", "お届け先 コード", "お届け先 郵便番号", "お届け先 住所1", "お届け先 住所2", "お届け先 住所3",
    "お届け先 名称1", "お届け先 名称2", "お届け先 敬称区分", "お届け先 電話番号", "お届け先 メールアドレス１",
    "お届け先 局留め区分", "お届け先 局留め郵便局名", "お届け先 局留めメール使用区分", "お届け先 局留め郵便番号",
    "お届け先 配達予告メール使用区分", "お届け先 再配達予告メール使用区分", "ご依頼主 コード",
    "ご依頼主 集荷先と同一区分", "ご依頼主 郵便番号", "ご依頼主 住所1", "ご依頼主 住所2", "ご依頼主 住所3",
    "ご依頼主 名称1", "ご依頼主 名称2", "ご依頼主 敬称", "ご依頼主 電話番号", "ご依頼主 メールアドレス１",
    "ご依頼主 荷送人指図区分", "ご依頼主 お届け通知メール使用区分", "ご依頼主 お届け通知はがき使用区分",
    "集荷先 コード", "集荷先連携可否区分", "集荷先 会社コード", "集荷先 依頼先店所名", "集荷先 郵便番号",
    "集荷先 住所1", "集荷先 住所2", "集荷先 住所3", "集荷先 名称1", "集荷先 名称2", "集荷先 敬称",
    "集荷先 電話番号", "受注番号", "こわれもの区分", "なまもの区分", "ビン類区分", "逆さま厳禁区分", "下積み厳禁区分",
    "商品サイズ区分", "重量（ｇ）", "25kg超重量物区分", "損害要償額", "速達・配達日指定種別", "配達指定日／希望日",
    "配達時間帯区分", "差出方法区分", "ゆうパック複数個割引", "ゆうパック同一割引", "セット商品コード",
    "セット品名ラベル印字区分", "複数個口数", "記事名１", "記事名２", "フリー項目０１", "フリー項目０２",
    "フリー項目０３", "フリー項目０４", "フリー項目０５", "フリー項目０６", "フリー項目０７", "フリー項目０８",
    "フリー項目０９", "フリー項目１０", "空港利用区分", "空港・局／支店名", "航空会社名", "利用便名", "レジャー区分",
    "プレー・搭乗日", "プレー・搭乗時間", "クラブ本数", "復路集貨日", "出荷先登録名", "集荷希望区分", "集荷日付",
    "集荷時間帯区分", "支店連携先選択用名称", "代引金額", "代引消費税金額", "送り状発行年月日", "商品番号（明細）",
    "品名（明細）", "個数（明細）", "重量（ｇ）　（明細）", "単価（明細）", "金額（明細）", "商品備考０１（明細）",
    "商品備考０２（明細）", "商品備考０３（明細）", "商品備考０４（明細）", "商品備考０５（明細）",
    "商品備考０６（明細）", "商品備考０７（明細）", "商品備考０８（明細）", "商品備考０９（明細）",
    "商品備考１０（明細）",
};

// Company and department, joined and trimmed, then the person; or the person alone.
std::array<std::string, 2> NamePair(std::string_view company, std::string_view department, std::string_view name) {
  const std::string firm = TrimBlanks(std::string(company) + " " + std::string(department));
  if (!firm.empty()) return {firm, std::string(name)};
  return {std::string(name), {}};
}

struct Party {
  std::string zip, address, tel, mail, kana;
  std::array<std::string, 2> name;
};

Party RecipientOf(const CheckedOrder& o, bool is_gift) {
  if (is_gift) {
    return {TrimBlanks(o.Field("贈答先郵便番号")), o.Field("贈答先住所"), TrimBlanks(o.Field("贈答先電話番号")), {}, {},
            NamePair(o.Field("贈答先会社名"), o.Field("贈答先所属"), o.Field("贈答先氏名"))};
  }
  return {TrimBlanks(o.Field("郵便番号")), o.Field("住所"), TrimBlanks(o.Field("電話番号")), o.Field("メールアドレス"),
          o.Field("氏名カナ"), NamePair(o.Field("会社名"), o.Field("所属"), o.Field("氏名"))};
}

// The customer sends a gift; the shop sends everything else.
Party SenderOf(const CheckedOrder& o, bool is_gift) {
  if (is_gift) {
    return {o.Field("郵便番号"), o.Field("住所"), o.Field("電話番号"), o.Field("メールアドレス"), o.Field("氏名カナ"),
            NamePair(o.Field("会社名"), o.Field("所属"), o.Field("氏名"))};
  }
  return {o.Field("ショップ郵便番号"), o.Field("ショップ住所"), o.Field("ショップ電話番号"),
          o.Field("ショップ問合せメールアドレス"), {}, {o.Field("ショップ名"), {}}};
}

std::string WholeAmount(double value) { return vb::Format(value, "0"); }

// The older files: a value field is quoted, an unused position is a bare empty.
class Positional {
 public:
  explicit Positional(std::string& out) : line_(out) {}
  Positional& Value(std::string_view value) { return line_.Add(value, Quote::Always), *this; }
  Positional& ValueIf(bool present, std::string_view value) {
    return present ? Value(value) : Empty(1);
  }
  Positional& Empty(int count) { return line_.Empty(count, Quote::None), *this; }
  void End() { line_.End(); }

 private:
  CsvLine line_;
};

}  // namespace

int YupackFieldCount(YupackWriter::Form form) {
  switch (form) {
    case YupackWriter::Form::Classic: return 84;
    case YupackWriter::Form::V4: return 132;
    case YupackWriter::Form::R: break;
  }
  return static_cast<int>(kYupackRHeader.size());
}

std::string DigitsOnly(std::string_view text) {
  std::string out;
  bool point = false;
  for (const char c : text) {
    if (c >= '0' && c <= '9') {
      out += c;
    } else if (c == '.' && !point) {
      point = true;
      out += c;
    } else if (c == '-' && out.empty()) {
      out += c;
    }
  }
  return out.empty() ? "0" : out;
}

std::array<std::string, 3> YupackAddress(std::string_view address) {
  const std::string whole = ReplaceCrLf(address, "");
  // The length counted in 16-bit characters, two bytes each.
  const int units = text::CharLen(whole) * 2;
  if (units <= 50) return {whole, {}, {}};
  const std::string first = text::ByteLeft(whole, 50);
  const std::string rest = whole.substr(first.size());
  if (units <= 100) return {first, rest, {}};
  const std::string second = text::ByteLeft(rest, 50);
  return {first, second, rest.substr(second.size())};
}

std::string YupackTimeCode(std::string_view delivery_time, YupackWriter::Form form) {
  using Form = YupackWriter::Form;
  const DeliveryTime time = ParseDeliveryTime(delivery_time);
  if (time.kind == DeliveryTime::Kind::Empty) return form == Form::R ? "00" : form == Form::V4 ? "67" : "9";
  const bool morning = time.kind == DeliveryTime::Kind::Text && (time.text == "午前中" || time.text == "午前");
  const int hour = time.kind == DeliveryTime::Kind::Text ? (morning ? 9 : time.hour) : 0;
  // A table row per start hour: R, V4, the first form.
  struct Row {
    int from, to;
    std::string_view r, v4, classic;
  };
  static constexpr Row kRows[] = {
      {1, 11, "51", "60", "0"},  {12, 13, "52", "62", "1"}, {14, 14, "53", "63", "2"}, {15, 15, "53", "63", "2"},
      {16, 16, "54", "64", "2"}, {17, 17, "54", "64", "3"}, {18, 18, "55", "65", "3"}, {19, 19, "55", "65", "4"},
      {20, 21, "56", "66", "4"},
  };
  for (const Row& row : kRows) {
    if (hour < row.from || hour > row.to) continue;
    return std::string(form == Form::R ? row.r : form == Form::V4 ? row.v4 : row.classic);
  }
  return form == Form::R ? "00" : form == Form::V4 ? "99" : "9";
}

void YupackWriter::AppendHead(std::string& out) const {
  if (form_ == Form::R) {
    CsvLine line(out);
    for (const std::string_view name : kYupackRHeader) line.Add(name, Quote::None);
    line.End();
    return;
  }
  out.append(static_cast<std::size_t>(YupackFieldCount(form_) - 1), ',').append("\r\n");
}

RowFailure YupackWriter::Line(const CheckedOrder& o, db::Connection&, std::string& out) {
  const bool is_gift = IsGift(o.order);
  const bool is_cod = IsCashOnDelivery(o.Field("支払方法"));
  const Party to = RecipientOf(o, is_gift);
  const Party from = SenderOf(o, is_gift);
  const std::string time_code = YupackTimeCode(o.Field("配達時間帯"), form_);
  const std::string billed = WholeAmount(o.order["請求額"].Number());
  const std::string delivery = TrimBlanks(o.Field("配達日"));

  if (form_ == Form::R) {
    CsvLine line(out);
    const auto text = [&](std::string_view value) { line.Add(value, Quote::TextOnly); };
    const auto empty = [&](int count) { line.Empty(count, Quote::None); };
    const auto address = [&](std::string_view value) {
      for (const auto& part : YupackAddress(value)) text(part);
    };
    // Postcode, three address parts, two name lines, a free column and the telephone.
    const auto party = [&](const Party& p) {
      text(p.zip);
      address(p.address);
      text(p.name[0]);
      text(p.name[1]);
      empty(1);
      text(p.tel);
    };
    line.Add(o.id, Quote::None);                                            // 1
    empty(2);
    text(DigitsOnly(TrimBlanks(o.Field("出荷日"))));                         // 4
    empty(3);
    text(text::TextInStr(o.Field("宅配業者"), "メール") > 0 ? "1" : "0");     // 8
    empty(1);
    text(is_cod ? "2" : "0");                                               // 10
    empty(4);
    party(to);                                                              // 15-22
    text(is_gift ? std::string() : o.Field("メールアドレス"));                 // 23
    empty(8);
    party(from);                                                            // 32-39
    text(from.mail);                                                        // 40
    empty(7);
    text(o.Field("ショップ郵便番号"));                                         // 48
    address(o.Field("ショップ住所"));                                          // 49-51
    text(o.Field("ショップ名"));                                              // 52
    empty(2);
    text(o.Field("ショップ電話番号"));                                         // 55
    text(o.Field("ID"));                                                    // 56
    empty(10);
    text(delivery.empty() ? std::string() : DigitsOnly(delivery));          // 67
    text(time_code);                                                        // 68
    empty(32);
    line.Add(is_cod ? billed : "0", Quote::None);                           // 101
    line.Add(is_cod ? RemoveAll(o.Cell(12), ",") : "0", Quote::None);       // 102
    empty(1);
    text(o.Field("商品ID1"));                                                // 104
    text(o.Field("商品名1"));                                                // 105
    empty(14);
    line.End();
    return {};
  }

  const std::string to_address = ReplaceCrLf(to.address, "");
  const std::string from_address = ReplaceCrLf(from.address, "");
  const std::string from_name =
      is_gift ? TrimBlanks(from.name[0] + std::string(kWideSpace) + from.name[1]) : from.name[0];
  const bool dated = !delivery.empty();
  const std::string to_name2 = is_gift ? std::string() : to.name[1];
  const std::string to_name1 = is_gift ? TrimBlanks(o.Field("贈答先氏名")) : to.name[0];
  Positional p(out);
  if (form_ == Form::Classic) {
    p.Value(to.zip).Value(to_address).Value(to_name1).Value(to_name2).ValueIf(!is_gift, to.kana).Value(to.tel);
    p.ValueIf(!is_gift, to.mail).Empty(1);
    p.Value(from.zip).Value(from_address).Value(from_name).ValueIf(is_gift, from.kana).Empty(1);
    p.Value(from.tel).Value(from.mail).Empty(4);
    p.Value(o.Field("商品ID1")).Value(o.Field("商品名1")).Empty(5);
    p.Value(o.Field("ID")).Empty(1).ValueIf(is_cod, billed).Empty(6);
    p.ValueIf(dated, "2").ValueIf(dated, delivery).Value("1").Empty(3).Value(time_code).Empty(5 + 9 + 3);
    p.Value("Yes").Empty(2 + 2).Value(is_cod ? billed : "0");
    // The first line has 84 fields; the date ends the line.
    p.Empty(18).Value(o.Field("出荷日"));
  } else {
    p.Empty(7).Value(to.zip).Value(to_address).Empty(3);
    p.Value(to_name1).Value(to_name2).ValueIf(!is_gift, to.kana).Value(to.tel).ValueIf(!is_gift, to.mail).Empty(3);
    p.Value(from.zip).Value(from_address).Empty(1).Value(from_name).ValueIf(is_gift, from.kana).Empty(2);
    p.Value(from.tel).Empty(1).Value(from.mail).Empty(7);
    p.Value(o.Field("商品ID1")).Value(o.Field("商品名1")).Empty(1).ValueIf(is_cod, billed).Empty(8 + 10);
    p.ValueIf(dated, "2").ValueIf(dated, delivery).Empty(1).Value(time_code).Empty(7 + 13);
    p.Value("1").Empty(2).Value(is_cod ? billed : "0").Empty(2 + 13);
    p.Value(o.Field("ID")).Empty(1 + 15 + 5).Value(o.Field("出荷日"));
    // The first line has 132 fields.
    p.Empty(7);
  }
  p.End();
  return {};
}

}  // namespace lupin::exchange
