#pragma once
// The NP deferred-payment files: sales (report 93, clsNPUriage, one line per billed item) and
// shipments (report 94, clsNPSyukka, one line per order). Texts quoted, numbers bare, as the
// runtime writes a record.
#include <cstdint>
#include <string>

#include "exchange/checked_order_export.h"

namespace lupin::exchange {

// The memo's card details of a card payment.
struct CardInfo {
  std::string number, expiry;
  std::int16_t pay_count = 0;
};
// The memo split at ":": "…:…:…:1234-5678-9012:12/2027:リボ払い" (long) or "…:…:number:expiry:…:…:count".
CardInfo CardInfoOf(std::string_view memo);
// "一括払い" 0, "ボーナス払い" 80, "リボ払い" 90, otherwise the digits of the text.
std::int16_t PayCountOf(std::string_view text);

// One line of the sales file; every set normalises its value.
class clsNPUriage {
 public:
  static constexpr std::string_view CreditPayment = "クレジットカード";

  void Clear() { *this = clsNPUriage(); }
  void SetOrder(const db::Recordset& order);  // every field but the item's
  void SetItem(std::string_view item_name, double tanka, double suryo);
  void Output(std::string& out) const;

 private:
  std::int32_t id_ = 0;
  std::string OrdYMD, Company, Division, Simei, Kana, Yubin, Jusyo, Tel, EMail;
  std::string ZCompany, ZDivision, ZSimei, ZYubin, ZJusyo, ZTel;
  std::int16_t Payment = 0;
  CardInfo card_;
  std::int32_t SeiGaku = 0;
  std::string ItemName;
  std::int32_t Tanka = 0;
  double Suryo = 0;
};

// One line of the shipment file.
class clsNPSyukka {
 public:
  void Clear() { *this = clsNPSyukka(); }
  void SetOrder(const db::Recordset& order);
  void Output(std::string& out) const;

 private:
  std::string Transfer, DenNo, OrdYMD;
  std::int32_t id_ = 0;
  std::string Simei, ZSimei, ZJusyo;
};

// The drivers of the deferred-payment files: the file is opened for output before the first order,
// so even an empty selection replaces it.
class DeferredPaymentExport : public CheckedOrderExport {
 protected:
  bool ReplacesWhenEmpty() const override { return true; }
  std::string NoPathMessage() const override { return "ファイルを開く事が出来ません"; }
  std::string NotWrittenMessage() const override { return "ファイルを開く事が出来ません"; }
};

class NPUriageExport final : public DeferredPaymentExport {
 protected:
  void AppendHead(std::string& out) const override { out += "\r\n\r\n\r\n\r\n"; }
  RowFailure Line(const CheckedOrder& order, db::Connection& db, std::string& out) override;
};

class NPSyukkaExport final : public DeferredPaymentExport {
 protected:
  void AppendHead(std::string& out) const override { out += "\r\n"; }
  RowFailure Line(const CheckedOrder& order, db::Connection& db, std::string& out) override;
};

}  // namespace lupin::exchange
