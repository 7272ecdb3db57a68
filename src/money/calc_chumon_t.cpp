#include "money/calc_chumon_t.h"

#include <array>
#include <optional>
#include <string>

#include "common/vb.h"
#include "money/errors.h"
#include "money/round_tax.h"
#include "money/tax_date.h"

namespace lupin::money {

namespace {

using vb::Currency;

constexpr std::size_t kNormal = 0;
constexpr std::size_t kReduced = 1;
constexpr std::size_t kOld = 2;

// 32-bit additions overflow as the old Long arithmetic did.
std::int32_t Add(std::int32_t a, std::int32_t b) {
  std::int32_t sum = 0;
  if (__builtin_add_overflow(a, b, &sum)) throw vb::OverflowError();
  return sum;
}

std::int32_t Sub(std::int32_t a, std::int32_t b) {
  std::int32_t diff = 0;
  if (__builtin_sub_overflow(a, b, &diff)) throw vb::OverflowError();
  return diff;
}

// NULL and non-numeric text count as 0; halves round to even.
std::int32_t ReadLong(const db::Recordset& rs, std::string_view name) { return vb::CLng(rs[name].Number()); }
std::int16_t ReadFlag(const db::Recordset& rs, std::string_view name) { return vb::CInt(rs[name].Number()); }

struct OrderLevel {
  std::int32_t postage = 0;       // 送料
  std::int32_t fee = 0;           // 決済手数料
  std::int32_t points_8 = 0;      // ポイント利用８％, at the reduced rate
  std::int32_t points_10 = 0;     // ポイント利用１０％, at the normal rate
  std::int16_t includes_declared = 0;
  std::int16_t shipping_taxkbn = 0;
  std::int16_t handling_taxkbn = 0;
  std::int16_t tax_calkbn = 0;
};

OrderLevel ReadOrderLevel(const db::Recordset& rs) {
  OrderLevel o;
  o.postage = ReadLong(rs, "送料");
  o.fee = ReadLong(rs, "決済手数料");
  o.points_8 = ReadLong(rs, "ポイント利用８％");
  o.points_10 = ReadLong(rs, "ポイント利用１０％");
  o.includes_declared = ReadFlag(rs, "TAX_INCLUDES_DECLARED");
  o.shipping_taxkbn = ReadFlag(rs, "SHIPPING_TAXKBN");
  o.handling_taxkbn = ReadFlag(rs, "HANDLING_TAXKBN");
  o.tax_calkbn = ReadFlag(rs, "TAX_CALKBN");
  return o;
}

Currency SlotRate(const clsZeiInfo& info, std::size_t slot) {
  switch (slot) {
    case kReduced: return info.ReducedRate();
    case kOld: return info.OldNormalRate();
    default: return info.NormalRate();
  }
}

// The tax contained in a tax-included amount, with the rate made a whole percentage first.
Currency InnerTaxQuotient(std::int32_t included, Currency rate) {
  const Currency hundred = Currency::FromLong(100);
  const Currency percent = rate * hundred;
  const double numerator = (percent * Currency::FromLong(included)).ToDouble();
  const double denominator = (percent + hundred).ToDouble();
  if (denominator == 0) {
    // The runtime's 0 / 0 is an overflow, any other quotient by zero a division fault.
    if (numerator == 0) throw vb::OverflowError();
    throw DivisionByZeroError();
  }
  return Currency::FromDouble(numerator / denominator);
}

}  // namespace

clsCalcChumonT::clsCalcChumonT() : clsCalcChumonT(settings::Settings(settings::StorePaths::Default())) {}

clsCalcChumonT::clsCalcChumonT(settings::Settings settings) : settings_(std::move(settings)) {}

void clsCalcChumonT::SetDb(db::Connection& connection, int dialect) {
  connection_ = &connection;
  zei_info_.SetDb(connection, dialect);
}

void clsCalcChumonT::Calc() {
  if (connection_ == nullptr) throw db::DbError("clsCalcChumonT: SetDb が呼ばれていません。");
  db::Recordset rs = connection_->Open(
      std::string("SELECT") + " [受注日]" + ",[出荷予定日]" + ",[出荷日]" + ",[請求日]" + ",[送料]" +
      ",[決済手数料]" + ",[ポイント利用８％]" + ",[ポイント利用１０％]" + ",[SHIPPING_TAXKBN]" +
      ",[HANDLING_TAXKBN]" + ",[TAX_CALKBN]" + ",[TAX_INCLUDES_DECLARED]" + ",[ITEM_PRICE]" +
      ",[CHUMON_D].[REDUCEDKBN]" + ",[ITEM_TAX]" + " FROM ([CHUMON]" + " LEFT OUTER JOIN [SHOP]" +
      " ON [SHOP].[SHOP_ID] = [CHUMON].[ショップID])" + " LEFT OUTER JOIN [CHUMON_D]" +
      " ON [CHUMON_D].[ID] = [CHUMON].[ID]" + " WHERE [CHUMON].[ID] = " + std::to_string(id_));

  // The date that decides the rates; no row at all gives the lowest date.
  if (rs.Eof()) {
    zei_info_.SetKijyun(vb::kLowestDate);
  } else {
    zei_info_.SetKijyun(GetTaxDate(settings_, rs["受注日"].Text(), rs["出荷予定日"].Text(),
                                   rs["出荷日"].Text(), rs["請求日"].Text()));
  }
  zei_info_.GetData();

  // A missing order fails here with the end-of-data error, before CHUMON_T is touched.
  const OrderLevel order = ReadOrderLevel(rs);

  std::array<std::int32_t, 3> included{};
  std::array<std::int32_t, 3> excluded{};
  std::array<std::int32_t, 3> outer_tax{};
  std::array<std::int32_t, 3> inner_tax{};
  std::array<Currency, 3> rate{};

  // The lines; an order without lines is one row of NULLs, adding 0 to the normal slot.
  for (; !rs.Eof(); rs.MoveNext()) {
    const std::int32_t price = ReadLong(rs, "ITEM_PRICE");
    std::int16_t reduced_kbn = ReadFlag(rs, "REDUCEDKBN");
    if (reduced_kbn < 0) reduced_kbn = 0;
    const double item_tax = rs["ITEM_TAX"].Number();
    const std::size_t slot = reduced_kbn == 1 ? kReduced : reduced_kbn == 2 ? kOld : kNormal;
    rate[slot] = SlotRate(zei_info_, slot);
    if (item_tax == 2) {
      included[slot] = Add(included[slot], price);
    } else {
      excluded[slot] = Add(excluded[slot], price);
    }
  }
  rs.Close();

  // Points always come off a tax-included amount; so do postage and fee that contain their tax.
  const bool old_exists = Add(included[kOld], excluded[kOld]) != 0;
  auto add_included_charges = [&](std::size_t slot) {
    if (order.shipping_taxkbn != 0) included[slot] = Add(included[slot], order.postage);
    if (order.handling_taxkbn != 0) included[slot] = Add(included[slot], order.fee);
  };
  if (zei_info_.IsExistReduced() && !old_exists) {
    included[kNormal] = Sub(included[kNormal], order.points_10);
    add_included_charges(kNormal);
    included[kReduced] = Sub(included[kReduced], order.points_8);
  } else if (zei_info_.IsExistReduced()) {
    included[kOld] = Sub(Sub(included[kOld], order.points_8), order.points_10);
    add_included_charges(kOld);
  } else {
    included[kNormal] = Sub(Sub(included[kNormal], order.points_8), order.points_10);
    add_included_charges(kNormal);
  }

  // Postage and fee without their tax. The target follows old_exists alone, so without a
  // reduced generation an old-rate order has its included postage in slot 1 and this in slot 3.
  // With TAX_INCLUDES_DECLARED a charge flagged 0 enters no slot at all.
  if (order.includes_declared == 0) {
    const std::size_t target = old_exists ? kOld : kNormal;
    if (order.shipping_taxkbn == 0) excluded[target] = Add(excluded[target], order.postage);
    if (order.handling_taxkbn == 0) excluded[target] = Add(excluded[target], order.fee);
  }

  // The rate is taken again from the tax information, not from rate[].
  for (std::size_t i = 0; i < 3; ++i) {
    const Currency product = Currency::FromLong(excluded[i]) * SlotRate(zei_info_, i);
    outer_tax[i] = RoundTaxAmount(product, 0, order.tax_calkbn).ToLong();
  }
  for (std::size_t i = 0; i < 3; ++i) {
    const Currency quotient = InnerTaxQuotient(included[i], SlotRate(zei_info_, i));
    inner_tax[i] = RoundTaxAmount(quotient, 0, order.tax_calkbn).ToLong();
  }

  // A slot touched by postage or points shows its rate; lines summing to zero keep theirs.
  std::array<std::int32_t, 3> komikin{};
  std::array<std::int32_t, 3> zeikin{};
  for (std::size_t i = 0; i < 3; ++i) {
    komikin[i] = Add(Add(included[i], excluded[i]), outer_tax[i]);
    zeikin[i] = Add(inner_tax[i], outer_tax[i]);
    if (komikin[i] != 0) rate[i] = SlotRate(zei_info_, i);
  }

  // Only a run that got this far replaces the results.
  for (std::size_t i = 0; i < 3; ++i) {
    zeirate_[i] = rate[i];
    komikin_[i] = komikin[i];
    zeikin_[i] = zeikin[i];
  }
  RewriteChumonT();
}

void clsCalcChumonT::RewriteChumonT() {
  // On its own the pair runs as one transaction: the order never stands without its row (a crash
  // between the two), and the pair travels in one round trip. A caller's transaction holds it as is.
  std::optional<db::Transaction> own;
  if (!connection_->InTransaction()) own.emplace(*connection_);
  const std::string id = std::to_string(id_);
  connection_->Execute("DELETE FROM [CHUMON_T] WHERE [ID] = " + id);
  std::string statement = std::string("INSERT INTO [CHUMON_T](") + " [ID]" + ",[ZEIRATE1]" +
                          ",[ZEIRATE1KIN]" + ",[ZEIRATE1ZEI]" + ",[ZEIRATE2]" + ",[ZEIRATE2KIN]" +
                          ",[ZEIRATE2ZEI]" + ",[ZEIRATE3]" + ",[ZEIRATE3KIN]" + ",[ZEIRATE3ZEI]" +
                          ")VALUES(" + id;
  for (std::size_t i = 0; i < 3; ++i) {
    for (const std::string& value :
         {zeirate_[i].ToString(), std::to_string(komikin_[i]), std::to_string(zeikin_[i])}) {
      statement.append(",").append(value);
    }
  }
  statement += ")";
  connection_->Execute(statement);
  if (own) own->Commit();
}

}  // namespace lupin::money
