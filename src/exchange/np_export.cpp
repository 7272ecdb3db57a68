#include "exchange/np_export.h"

#include <vector>

#include "common/text.h"
#include "common/vb.h"
#include "exchange/csv_line.h"
#include "exchange/deferred_payment_values.h"
#include "exchange/field_text.h"

namespace lupin::exchange {
namespace {

std::vector<std::string> SplitAt(std::string_view text, char mark) {
  std::vector<std::string> parts;
  for (;;) {
    const std::size_t at = text.find(mark);
    parts.emplace_back(text.substr(0, at));
    if (at == std::string_view::npos) return parts;
    text.remove_prefix(at + 1);
  }
}

// "12/2027" → "27/12": year, "/", month, a four-digit year keeping its last two digits.
std::string Expiry(std::string_view text) {
  const std::size_t slash = text.find('/');
  if (slash == std::string_view::npos) return std::string(text);
  std::string_view year = text.substr(slash + 1);
  if (year.size() == 4) year.remove_prefix(2);
  return std::string(year) + "/" + std::string(text.substr(0, slash));
}

}  // namespace

std::int16_t PayCountOf(std::string_view text) {
  if (text == "一括払い") return 0;
  if (text == "ボーナス払い") return 80;
  if (text == "リボ払い") return 90;
  std::string digits;
  for (const char c : text::ToNarrow(text))
    if (c >= '0' && c <= '9' && digits.size() < 4) digits += c;
  const int count = digits.empty() ? 0 : std::stoi(digits);
  return count > 0 ? static_cast<std::int16_t>(count) : 0;
}

CardInfo CardInfoOf(std::string_view memo) {
  const auto parts = SplitAt(memo, ':');
  const auto part = [&](std::size_t k) { return k < parts.size() ? parts[k] : std::string(); };
  CardInfo info;
  const auto pieces = SplitAt(part(3), '-');
  const bool long_layout = parts.size() >= 4 && pieces.size() == 3 &&
                           !pieces[0].empty() && !pieces[1].empty() && !pieces[2].empty();
  if (long_layout) {
    info.number = part(3);
    info.expiry = Expiry(part(4));
    info.pay_count = PayCountOf(part(5));
  } else if (parts.size() > 2) {
    info.number = part(2);
    info.expiry = Expiry(part(3));
    if (parts.size() > 6) info.pay_count = PayCountOf(part(6));
  }
  return info;
}

void clsNPUriage::SetOrder(const db::Recordset& o) {
  const auto f = [&](std::string_view name) { return o[name].Text(); };
  id_ = vb::CLng(o["ID"].Number());
  OrdYMD = OrderDate(f("受注日"));
  Company = CompactText(f("会社名"), 30);
  Division = CompactText(f("所属"), 30);
  Simei = CompactText(f("氏名"), 15);
  Kana = CompactText(f("氏名カナ"), 25);
  Yubin = CompactText(f("郵便番号"));
  Jusyo = CompactText(f("住所"), 50);
  Tel = CompactText(f("電話番号"), 15);
  EMail = CompactText(f("メールアドレス"), 100);
  ZCompany = CompactText(f("贈答先会社名"), 30);
  ZDivision = CompactText(f("贈答先所属"), 30);
  ZSimei = CompactText(f("贈答先氏名"), 15);
  ZYubin = CompactText(f("贈答先郵便番号"));
  ZJusyo = CompactText(f("贈答先住所"), 50);
  ZTel = CompactText(f("贈答先電話番号"), 15);
  const bool card = text::TextInStr(f("支払方法"), CreditPayment) == 1;
  Payment = card ? 1 : 0;
  card_ = card ? CardInfoOf(f("メモ")) : CardInfo();
  SeiGaku = vb::CLng(o["請求額"].Number());
}

void clsNPUriage::SetItem(std::string_view item_name, double tanka, double suryo) {
  ItemName = CompactText(item_name);
  Tanka = vb::CLng(tanka);
  Suryo = suryo;
}

void clsNPUriage::Output(std::string& out) const {
  CsvLine line(out);
  line.Add(std::to_string(id_), Quote::None);
  for (const std::string* text : {&OrdYMD, &Company, &Division, &Simei, &Kana, &Yubin, &Jusyo, &Tel, &EMail,
                                  &ZCompany, &ZDivision, &ZSimei})
    line.Add(*text);
  line.Add("");
  for (const std::string* text : {&ZYubin, &ZJusyo, &ZTel}) line.Add(*text);
  const bool card = Payment == 1;
  line.Add(std::to_string(Payment), Quote::None);
  line.Add(card ? std::to_string(card_.pay_count) : std::string(), Quote::None);
  line.Add(card ? card_.number : std::string());
  line.Add(card ? card_.expiry : std::string());
  line.Add(std::to_string(SeiGaku), Quote::None);
  line.Add(ItemName);
  line.Add(std::to_string(Tanka), Quote::None);
  line.Add(Quantity(Suryo), Quote::None);
  line.End();
}

void clsNPSyukka::SetOrder(const db::Recordset& o) {
  const auto f = [&](std::string_view name) { return o[name].Text(); };
  Transfer = RemoveAll(CompactText(f("宅配業者")), " ");
  if (Transfer.find("クロネコ") != std::string::npos || Transfer.find("ヤマト") != std::string::npos) Transfer = "12";
  DenNo = CompactText(f("出荷伝票番号"), 20);
  OrdYMD = OrderDate(f("受注日"));
  id_ = vb::CLng(o["ID"].Number());
  Simei = CompactText(f("氏名"), 15);
  // The parts are joined with a full-width space, which the property then removes with the others.
  const auto join = [](std::string text, std::string_view more) {
    return more.empty() ? text : text + std::string(kWideSpace) + std::string(more);
  };
  if (TrimBlanks(f("贈答先氏名")).empty()) {
    ZSimei = CompactText(f("氏名"), 15);
    ZJusyo = CompactText(join(join(f("住所"), f("会社名")), f("所属")), 50);
  } else {
    ZSimei = CompactText(f("贈答先氏名"), 15);
    ZJusyo = CompactText(join(f("贈答先住所"), f("贈答先所属")), 50);
  }
}

void clsNPSyukka::Output(std::string& out) const {
  CsvLine(out)
      .Add(Transfer)
      .Add(DenNo)
      .Add(OrdYMD)
      .Add(std::to_string(id_), Quote::None)
      .Add(Simei)
      .Add("1")
      .Add(ZSimei)
      .Add(ZJusyo)
      .End();
}

RowFailure NPUriageExport::Line(const CheckedOrder& o, db::Connection&, std::string& out) {
  clsNPUriage row;
  const auto put = [&](std::string_view name, double tanka, double suryo) {
    row.Clear();
    row.SetOrder(o.order);
    row.SetItem(name, tanka, suryo);
    row.Output(out);
  };
  ForEachItemSlot(o.order, [&](const BilledItem& item) { put(item.name, item.unit_price, item.quantity); });
  for (const std::string_view word : {"送料", "決済手数料", "消費税"}) {
    const double amount = o.order[word].Number();
    if (amount != 0) put(word, amount, 1);
  }
  const double points = o.order["ポイント利用"].Number();
  if (points != 0) put("ポイント利用分", -points, 1);
  return {};
}

RowFailure NPSyukkaExport::Line(const CheckedOrder& o, db::Connection&, std::string& out) {
  clsNPSyukka row;
  row.SetOrder(o.order);
  row.Output(out);
  return {};
}

}  // namespace lupin::exchange
