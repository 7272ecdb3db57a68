// Orders of the demo shop: who ordered what, how it was paid and shipped, and the money of it.
#include "demo/orders.h"

#include <algorithm>
#include <string>

#include "demo/calendar.h"
#include "demo/masters.h"
#include "demo/insert_batch.h"
#include "demo/tax_rates.h"
#include "demo/words.h"
#include "money/order_tax.h"
#include "money/tax_date.h"

namespace lupin::demo {
namespace {

constexpr int kToday = DaysFromCivil(kLastOrderYear, kLastOrderMonth, kLastOrderDay);
constexpr int kRate8From = DaysFromCivil(2014, 4, 1);
constexpr int kRate10From = DaysFromCivil(2019, 10, 1);
constexpr int kOldRateUntil = DaysFromCivil(2019, 12, 31);
constexpr int kPrefectureCount = static_cast<int>(std::size(kPrefectures));

int NormalRate(int day) { return day >= kRate10From ? 10 : day >= kRate8From ? 8 : 5; }

template <typename T, std::size_t N>
const T& PickWeighted(Random& r, const T (&items)[N]) {
  int total = 0;
  for (const auto& item : items) total += item.weight;
  int at = static_cast<int>(r.Below(static_cast<std::uint32_t>(total)));
  for (const auto& item : items) {
    if (at < item.weight) return item;
    at -= item.weight;
  }
  return items[N - 1];
}

std::string Digits(Random& r, int count) {
  std::string out;
  for (int i = 0; i < count; ++i) out += static_cast<char>('0' + (i == 0 ? r.Between(1, 9) : r.Between(0, 9)));
  return out;
}

struct ChumonColumns {
  explicit ChumonColumns(const SqlRow& r) {
    auto ix = [&r](std::string_view column) { return r.Index(column); };
    id = ix("ID"); order_day = ix("受注日"); channel = ix("受注方法"); ship_day = ix("出荷日");
    planned_day = ix("出荷予定日"); bill_day = ix("請求日"); paid_day = ix("入金日"); paid = ix("入金額");
    wish_day = ix("配達希望日"); wish_band = ix("配達希望時間帯"); delivery_day = ix("配達日");
    delivery_band = ix("配達時間帯"); carrier = ix("宅配業者"); waybill = ix("出荷伝票番号"); payment = ix("支払方法");
    receipt = ix("電子決済受付No"); reply_wide = ix("返信（出荷）"); reply_ascii = ix("返信(出荷)");
    customer_bango = ix("顧客番号"); customer_no = ix("顧客NO"); tanto = ix("担当者コード");
    company = ix("会社名"); department = ix("所属"); name = ix("氏名"); kana = ix("氏名カナ");
    postcode = ix("郵便番号"); address = ix("住所"); phone = ix("電話番号"); phone_search = ix("検索用電話番号");
    email = ix("メールアドレス");
    bill_company = ix("請求先会社名"); bill_department = ix("請求先所属"); bill_name = ix("請求先氏名");
    bill_postcode = ix("請求先郵便番号"); bill_address = ix("請求先住所"); bill_phone = ix("請求先電話番号");
    bill_phone_search = ix("請求先検索用電話番号");
    gift_company = ix("贈答先会社名"); gift_department = ix("贈答先所属"); gift_name = ix("贈答先氏名");
    gift_postcode = ix("贈答先郵便番号"); gift_address = ix("贈答先住所"); gift_phone = ix("贈答先電話番号");
    noshi = ix("のし"); noshi_comment = ix("のしコメント");
    opinion = ix("意見"); memo = ix("メモ"); memo2 = ix("メモ2"); memo3 = ix("メモ3");
    goods = ix("商品代金"); postage = ix("送料"); fee = ix("決済手数料"); tax = ix("消費税"); billed = ix("請求額");
    points = ix("ポイント利用"); points10 = ix("ポイント利用１０％"); points8 = ix("ポイント利用８％");
    shop_id = ix("ショップID"); shop_name = ix("ショップ名"); shop_postcode = ix("ショップ郵便番号");
    shop_address = ix("ショップ住所"); shop_phone = ix("ショップ電話番号"); shop_fax = ix("ショップFAX");
    shop_url = ix("ショップURL"); shop_order_mail = ix("ショップ注文メールアドレス");
    shop_inquiry_mail = ix("ショップ問合せメールアドレス"); taxrate = ix("TAXRATE");
    for (int k = 0; k < 10; ++k) {
      noshi_n[k] = ix("のし" + std::to_string(k + 1));
      remark_n[k] = ix("備考" + std::to_string(k + 1));
    }
    for (int n = 0; n < entry::kChumonSlots; ++n) {
      const std::string s = std::to_string(n + 1);
      item_id[n] = ix("商品ID" + s); item_name[n] = ix("商品名" + s); color[n] = ix("商品カラー" + s);
      size[n] = ix("商品サイズ" + s); unit_price[n] = ix("単価" + s); qty[n] = ix("注文数量" + s);
      subtotal[n] = ix("小計" + s); tax_kbn[n] = ix("消費税区分" + s);
    }
  }
  int id, order_day, channel, ship_day, planned_day, bill_day, paid_day, paid, wish_day, wish_band, delivery_day,
      delivery_band, carrier, waybill, payment, receipt, reply_wide, reply_ascii, customer_bango, customer_no, tanto,
      company, department, name, kana, postcode, address, phone, phone_search, email, bill_company, bill_department,
      bill_name, bill_postcode, bill_address, bill_phone, bill_phone_search, gift_company, gift_department, gift_name,
      gift_postcode, gift_address, gift_phone, noshi, noshi_comment, opinion, memo, memo2, memo3, goods, postage, fee,
      tax, billed, points, points10, points8, shop_id, shop_name, shop_postcode, shop_address, shop_phone, shop_fax,
      shop_url, shop_order_mail, shop_inquiry_mail, taxrate;
  std::array<int, 10> noshi_n{}, remark_n{};
  std::array<int, entry::kChumonSlots> item_id{}, item_name{}, color{}, size{}, unit_price{}, qty{}, subtotal{}, tax_kbn{};
};

struct LineColumns {
  explicit LineColumns(const SqlRow& r)
      : id(r.Index("ID")), item_no(r.Index("ITEM_NO")), item_id(r.Index("ITEM_ID")), name(r.Index("ITEM_MEI")),
        color(r.Index("ITEM_COLOR")), size(r.Index("ITEM_SIZE")), unit_price(r.Index("ITEM_TANKA")),
        cost(r.Index("ITEM_GENKA")), amount(r.Index("ITEM_PRICE")), qty(r.Index("ITEM_QTY")),
        tax_mode(r.Index("ITEM_TAX")), reduced(r.Index("REDUCEDKBN")), rate(r.Index("TAXRATE")),
        shipped(r.Index("ITEM_SYUKKA")), ship_day(r.Index("ITEM_SYUDATE")) {}
  int id, item_no, item_id, name, color, size, unit_price, cost, amount, qty, tax_mode, reduced, rate, shipped,
      ship_day;
};

struct Line {
  std::string id;
  std::string name;
  std::string_view color, size;
  int unit_price = 0, cost = 0, qty = 0, amount = 0;
  bool included = false;  // the price holds its tax
  int reduced = 0;        // 0 normal, 1 reduced, 2 the former normal rate
  int rate = 0;
};

int LineCount(Random& r) {
  const int roll = r.Between(1, 100);
  if (roll <= 40) return 1;
  if (roll <= 70) return r.Between(2, 3);
  if (roll <= 92) return r.Between(4, 10);
  if (roll <= 97) return r.Between(11, 15);
  return r.Between(16, entry::kChumonSlots);
}

}  // namespace

struct OrderWriter::Impl {
  Impl(db::Connection& c, Random& r, std::vector<DemoCustomer>& cs)
      : random(r),
        customers(cs),
        order_row(*entry::FindTable("CHUMON")),
        line_row(*entry::FindTable("CHUMON_D")),
        oc(order_row),
        lc(line_row),
        orders(c, *entry::FindTable("CHUMON"), 25),
        lines(c, *entry::FindTable("CHUMON_D"), 100),
        tax_rates(c) {
    for (std::size_t i = 0; i < customers.size(); ++i) {
      if (customers[i].kbn != 2) returning.push_back(static_cast<int>(i));
    }
  }

  void Add(int id, int day, int first_time);
  std::vector<Line> MakeLines(int day, const ShopWord& shop);

  Random& random;
  std::vector<DemoCustomer>& customers;
  std::vector<int> returning;
  SqlRow order_row;
  SqlRow line_row;
  ChumonColumns oc;
  LineColumns lc;
  InsertBatch orders;
  InsertBatch lines;
  TaxRatesByDate tax_rates;
};

std::vector<Line> OrderWriter::Impl::MakeLines(int day, const ShopWord& shop) {
  Random& r = random;
  std::vector<Line> out(static_cast<std::size_t>(LineCount(r)));
  for (auto& line : out) {
    if (r.Percent(4)) {
      // A made-to-order item that no master lists.
      line.id = "Z-" + Digits(r, 4);
      line.name = r.Percent(50) ? "特注品 名入れ加工" : "オーダーメイド 表札（御影石）";
      line.unit_price = r.Between(10, 200) * 100;
      line.cost = line.unit_price / 2;
    } else {
      const ItemWord& item = r.Pick(kItems);
      line.id = item.id;
      line.name = item.name;
      line.unit_price = item.price;
      line.cost = item.cost;
      if (!item.colors[0].empty()) {
        do line.color = r.Pick(item.colors); while (line.color.empty());
      }
      if (!item.sizes[0].empty()) {
        do line.size = r.Pick(item.sizes); while (line.size.empty());
      }
      if (item.food && day >= kRate10From) line.reduced = 1;
    }
    // Orders taken just after the rate change may still carry the former rate.
    if (line.reduced == 0 && day >= kRate10From && day <= kOldRateUntil && r.Percent(5)) line.reduced = 2;
    line.rate = line.reduced == 1 || line.reduced == 2 ? 8 : NormalRate(day);
    line.included = shop.includes_declared != 0 || r.Percent(8);
    if (line.included) line.unit_price = line.unit_price * (100 + line.rate) / 100;
    static constexpr int kBulk[] = {5, 10, 12, 24};
    line.qty = r.Percent(90) ? r.Between(1, 3) : r.Pick(kBulk);
    line.amount = line.unit_price * line.qty;
  }
  return out;
}

void OrderWriter::Impl::Add(int id, int day, int first_time) {
  Random& r = random;
  SqlRow& o = order_row;
  o.Reset();

  static constexpr int kShopWeights[] = {45, 30, 15, 10};
  int shop_at = r.Between(1, 100), shop_index = 0;
  while (shop_index < 3 && shop_at > kShopWeights[shop_index]) shop_at -= kShopWeights[shop_index++];
  const ShopWord& shop = kShops[shop_index];

  DemoCustomer* customer = nullptr;
  Person guest;
  if (first_time >= 0) {
    customer = &customers[static_cast<std::size_t>(first_time)];
  } else if (!returning.empty() && r.Percent(88)) {
    customer = &customers[static_cast<std::size_t>(returning[r.Below(static_cast<std::uint32_t>(returning.size()))])];
  } else {
    guest = MakePerson(r, 10);
    if (r.Percent(10)) {
      guest.phone.clear();
      guest.phone_digits.clear();
    }
  }
  const Person& who = customer ? customer->person : guest;

  const PaymentWord* payment = &PickWeighted(r, kPayments);
  if (shop.id == "SHOP04" && payment->method != "代引き" && payment->method != "郵便振替") payment = &kPayments[2];
  const CarrierWord& carrier = PickWeighted(r, kCarriers);
  const std::vector<Line> order_lines = MakeLines(day, shop);

  // Status, judged against the last day of the demo range.
  const int planned = day + r.Between(1, 4);
  const int age = kToday - day;
  const int ship_chance = age > 14 ? 95 : age > 3 ? 60 : 20;
  const bool shipped = planned <= kToday && r.Percent(ship_chance);
  const int ship_day = shipped ? std::min(kToday, planned + r.Between(0, 1)) : -1;
  const bool cod = payment->method == "代引き";
  const bool prepaid = payment->method == "クレジットカード" || payment->method == "コンビニ決済" ||
                       payment->method == "クロネコwebコレクト";
  int paid_day = -1;
  if (prepaid) {
    paid_day = day + (payment->method == "コンビニ決済" ? r.Between(0, 3) : 0);
  } else if (cod) {
    if (shipped && ship_day + 2 <= kToday) paid_day = ship_day + 2;
  } else if (payment->method == "銀行振込") {
    if (r.Percent(85)) paid_day = day + r.Between(1, 5);
  } else if (shipped && r.Percent(80)) {
    paid_day = ship_day + r.Between(10, 30);
  }
  if (paid_day > kToday) paid_day = -1;

  // The bill date: the shipment, or the order for a transfer paid in advance.
  const int bill_day = shipped ? ship_day : payment->method == "銀行振込" ? day : -1;

  // Money, priced by the tax service's own rule at the rates of the order's tax date.
  std::int64_t goods = 0;
  std::int64_t reduced_goods = 0;
  std::vector<money::OrderTaxLine> tax_lines;
  for (const auto& line : order_lines) {
    goods += line.amount;
    if (line.reduced == 1) reduced_goods += line.amount;
    tax_lines.push_back({line.amount, static_cast<std::int16_t>(line.reduced), line.included ? 2.0 : 1.0});
  }
  const bool remote = who.prefecture == 0 || who.prefecture == kPrefectureCount - 1;
  static constexpr int kPostage[] = {550, 660, 770, 880};
  const int postage = goods >= 10000 ? 0 : remote ? 1320 : r.Pick(kPostage);
  const int fee = shop.id == "SHOP04" ? 0 : payment->fee;
  const int normal = NormalRate(day);
  std::int64_t points = 0, points8 = 0;
  if (goods > 1000 && r.Percent(15)) {
    points = std::min<std::int64_t>(r.Between(1, 15) * 100, goods / 2);
    points8 = goods > 0 ? points * reduced_goods / goods : 0;
  }
  const money::OrderCharges charges{postage,
                                    fee,
                                    static_cast<std::int32_t>(points8),
                                    static_cast<std::int32_t>(points - points8),
                                    static_cast<std::int16_t>(shop.includes_declared),
                                    static_cast<std::int16_t>(shop.shipping_taxkbn),
                                    static_cast<std::int16_t>(shop.handling_taxkbn),
                                    static_cast<std::int16_t>(shop.tax_calkbn)};
  // TaxCheckDate 0, the setting's default: the latest of the order's dates decides the rates.
  const vb::DateSerial tax_date = money::PickTaxDate(0, DateText(day), DateText(planned),
                                                     shipped ? DateText(ship_day) : "",
                                                     bill_day >= 0 ? DateText(bill_day) : "");
  const money::OrderTax priced = money::CalcOrderTax(charges, tax_lines, tax_rates.On(tax_date));
  // The stored tax is the sum over the rates, as the tax service reports it; the bill is what the
  // slots add up to: goods, postage and fee with their tax, less the points.
  std::int64_t tax = 0, billed = 0;
  for (std::size_t slot = 0; slot < 3; ++slot) {
    tax += priced.zeikin[slot];
    billed += priced.komikin[slot];
  }

  // The row.
  const auto& c = oc;
  o.Int(c.id, id);
  o.Text(c.order_day, DateText(day));
  o.Text(c.channel, shop.channel.empty() ? r.Pick(kOrderChannels) : shop.channel);
  o.Text(c.ship_day, shipped ? DateText(ship_day) : "");
  o.Text(c.planned_day, DateText(planned));
  o.Text(c.bill_day, bill_day >= 0 ? DateText(bill_day) : "");
  // Unpaid and unassigned are NULL in some rows and empty in others, as in real data.
  if (paid_day >= 0) {
    o.Text(c.paid_day, DateText(paid_day));
    o.Int(c.paid, billed);
  } else {
    if (r.Percent(50)) o.Text(c.paid_day, "");
    o.Int(c.paid, 0);
  }
  if (r.Percent(30)) {
    const int wish = planned + r.Between(2, 5);
    o.Text(c.wish_day, r.Percent(10) ? "指定なし" : DateText(wish));
    if (shipped) o.Text(c.delivery_day, DateText(wish));
  } else {
    o.Text(c.wish_day, "");
  }
  if (r.Percent(45)) {
    const std::string_view band = r.Pick(kTimeBands);
    o.Text(c.wish_band, band);
    o.Text(c.delivery_band, r.Percent(90) ? band : r.Pick(kTimeBands));
  }
  o.Text(c.carrier, carrier.name);
  if (shipped && carrier.waybill_digits > 0 && r.Percent(70)) {
    std::string number = Digits(r, carrier.waybill_digits);
    if (carrier.waybill_digits == 12 && r.Percent(20)) {
      number = number.substr(0, 4) + "-" + number.substr(4, 4) + "-" + number.substr(8);
    }
    o.Text(c.waybill, number);
  } else if (r.Percent(50)) {
    o.Text(c.waybill, "");
  }
  o.Text(c.payment, payment->method);
  if (prepaid || payment->method == "NP後払い") o.Text(c.receipt, std::string("A").append(Digits(r, 10)));
  o.Text(c.reply_wide, shipped ? "済" : "");
  o.Text(c.reply_ascii, shipped ? "済" : "");
  const int customer_no = customer ? customer->no : 0;
  o.Int(c.customer_bango, customer_no);
  o.Int(c.customer_no, customer_no);
  o.Int(c.tanto, customer ? customer->tanto : r.Between(1, static_cast<int>(std::size(kStaff))));

  o.Text(c.company, who.company);
  o.Text(c.department, who.department);
  o.Text(c.name, who.name);
  o.Text(c.kana, who.kana);
  o.Text(c.postcode, who.postcode);
  o.Text(c.address, who.address);
  o.Text(c.email, who.email);
  if (!who.phone.empty()) {
    o.Text(c.phone, who.phone);
    o.Text(c.phone_search, who.phone_digits);
  }
  const Person billing = r.Percent(15) ? MakePerson(r, 80) : who;
  o.Text(c.bill_company, billing.company);
  o.Text(c.bill_department, billing.department);
  o.Text(c.bill_name, billing.name);
  o.Text(c.bill_postcode, billing.postcode);
  o.Text(c.bill_address, billing.address);
  o.Text(c.bill_phone, billing.phone);
  o.Text(c.bill_phone_search, billing.phone_digits);

  const bool gift = r.Percent(15);
  std::string_view noshi;
  if (gift) {
    const Person to = MakePerson(r, 15);
    o.Text(c.gift_company, to.company);
    o.Text(c.gift_department, to.department);
    o.Text(c.gift_name, to.name);
    o.Text(c.gift_postcode, to.postcode);
    o.Text(c.gift_address, to.address);
    o.Text(c.gift_phone, to.phone);
    if (r.Percent(60)) noshi = r.Pick(kNoshi);
  } else {
    for (int column : {c.gift_company, c.gift_department, c.gift_name, c.gift_postcode, c.gift_address, c.gift_phone}) {
      o.Text(column, "");
    }
  }
  o.Text(c.noshi, noshi);
  o.Text(c.noshi_comment, !noshi.empty() && r.Percent(40) ? "名入れ：" + who.name : std::string());
  for (int k = 0; k < 10; ++k) {
    o.Text(c.noshi_n[static_cast<std::size_t>(k)],
           !noshi.empty() && k < static_cast<int>(order_lines.size()) && r.Percent(50) ? noshi : "");
    o.Text(c.remark_n[static_cast<std::size_t>(k)], r.Percent(8) ? r.Pick(kRemarks) : "");
  }
  o.Text(c.opinion, r.Percent(15) ? r.Pick(kOpinions) : "");
  o.Text(c.memo, r.Percent(10) ? (r.Percent(50) ? "電話確認済み" : "再送分") : "");
  o.Text(c.memo2, r.Percent(3) ? "要確認：住所不備" : "");
  o.Text(c.memo3, "");
  o.Int(c.goods, goods);
  o.Int(c.postage, postage);
  o.Int(c.fee, fee);
  o.Int(c.tax, tax);
  o.Int(c.billed, billed);
  o.Int(c.points, points);
  o.Int(c.points10, points - points8);
  o.Int(c.points8, points8);
  o.Text(c.shop_id, shop.id);
  o.Text(c.shop_name, shop.name);
  o.Text(c.shop_postcode, shop.postcode);
  o.Text(c.shop_address, shop.address);
  o.Text(c.shop_phone, shop.phone);
  o.Text(c.shop_fax, shop.fax);
  o.Text(c.shop_url, shop.url);
  o.Text(c.shop_order_mail, shop.order_mail);
  o.Text(c.shop_inquiry_mail, shop.inquiry_mail);
  o.Int(c.taxrate, normal);

  // Slots past the last line: empty texts in some rows, NULL in others.
  const bool empty_as_text = r.Percent(50);
  for (int n = 0; n < entry::kChumonSlots; ++n) {
    const auto s = static_cast<std::size_t>(n);
    if (n >= static_cast<int>(order_lines.size())) {
      for (int column : {c.item_id[s], c.item_name[s], c.color[s], c.size[s]}) {
        if (empty_as_text) {
          o.Text(column, "");
        } else {
          o.Omit(column);
        }
      }
      for (int column : {c.unit_price[s], c.qty[s], c.subtotal[s], c.tax_kbn[s]}) o.Omit(column);
      continue;
    }
    const Line& line = order_lines[s];
    o.Text(c.item_id[s], line.id);
    o.Text(c.item_name[s], line.name);
    o.Text(c.color[s], line.color);
    o.Text(c.size[s], line.size);
    o.Int(c.unit_price[s], line.unit_price);
    o.Int(c.qty[s], line.qty);
    o.Int(c.subtotal[s], line.amount);
    o.Int(c.tax_kbn[s], line.included ? 1 : 0);

    SqlRow& d = line_row;
    d.Reset();
    d.Int(lc.id, id);
    d.Int(lc.item_no, n + 1);
    d.Text(lc.item_id, line.id);
    d.Text(lc.name, line.name);
    d.Text(lc.color, line.color);
    d.Text(lc.size, line.size);
    d.Int(lc.unit_price, line.unit_price);
    d.Int(lc.cost, line.cost);
    d.Int(lc.amount, line.amount);
    d.Int(lc.qty, line.qty);
    d.Int(lc.tax_mode, line.included ? 2 : 1);
    d.Int(lc.reduced, line.reduced);
    d.Int(lc.rate, line.rate);
    d.Int(lc.shipped, shipped ? 1 : 0);
    d.Text(lc.ship_day, DateText(shipped ? ship_day : planned));
    lines.Add(d);
  }
  orders.Add(o);

  if (customer) {
    customer->last_day = std::max(customer->last_day, day);
    const int year = FiscalYear(day) - entry::kFirstSalesYear;
    if (year >= 0 && year < static_cast<int>(customer->sales.size())) {
      customer->sales[static_cast<std::size_t>(year)] += billed;
    }
  }
}

OrderWriter::OrderWriter(db::Connection& connection, Random& random, std::vector<DemoCustomer>& customers)
    : impl_(std::make_unique<Impl>(connection, random, customers)) {}
OrderWriter::~OrderWriter() = default;

void OrderWriter::Add(int id, int day, int first_time) { impl_->Add(id, day, first_time); }

void OrderWriter::Flush() {
  impl_->orders.Flush();
  impl_->lines.Flush();
}

long OrderWriter::Lines() const { return impl_->lines.RowsWritten(); }

void WriteCustomers(db::Connection& connection, const std::vector<DemoCustomer>& customers) {
  const entry::TableDef& table = *entry::FindTable("CUSTOMER");
  SqlRow row(table);
  const int no = row.Index("顧客NO"), company = row.Index("顧客会社名"), department = row.Index("顧客所属"),
            name = row.Index("顧客名"), postcode = row.Index("郵便番号"), address = row.Index("住所"),
            tel = row.Index("TEL番号"), tel_search = row.Index("検索用TEL番号"), phone = row.Index("顧客電話番号"),
            branch = row.Index("顧客電話番号枝番"), kbn = row.Index("顧客区分"), last = row.Index("最終取引日"),
            tanto = row.Index("担当者コード"), first_sales = row.Index("年度純売上額" + std::to_string(entry::kFirstSalesYear)),
            first_dm = row.Index("DM区分1");
  InsertBatch batch(connection, table, 200);
  for (const auto& c : customers) {
    row.Reset();
    row.Int(no, c.no);
    row.Text(company, c.person.company);
    row.Text(department, c.person.department);
    row.Text(name, c.person.name);
    row.Text(postcode, c.person.postcode);
    row.Text(address, c.person.address);
    row.Text(tel, c.person.phone);
    row.Text(tel_search, c.person.phone_digits);
    row.Text(phone, c.person.phone_digits);
    row.Text(branch, c.branch);
    row.Int(kbn, c.kbn);
    if (c.last_day >= 0) row.Text(last, DateText(c.last_day));
    row.Int(tanto, c.tanto);
    for (std::size_t y = 0; y < c.sales.size(); ++y) row.Int(first_sales + static_cast<int>(y), c.sales[y]);
    for (std::size_t k = 0; k < c.dm.size(); ++k) row.Int(first_dm + static_cast<int>(k), c.dm[k] ? 1 : 0);
    batch.Add(row);
  }
  batch.Flush();
}

}  // namespace lupin::demo
