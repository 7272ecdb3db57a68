#pragma once
// The second deferred-payment service's files: sales (report 98, clsABUriage, one line per billed
// item, the site id of the shop from siteid.txt) and shipments (report 99, clsABSyukka). The sales
// file takes the order's tax from CHUMON_T and computes that row when it is missing.
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "exchange/np_export.h"
#include "money/tax_summary_run.h"

namespace lupin::exchange {

// siteid.txt: "shop id,site id" per line; nothing when the file is missing.
std::vector<std::string> ReadSiteIds(const std::filesystem::path& file);
// The site id of the first line that begins with shop id + ","; "" when none.
std::string FindSiteId(const std::vector<std::string>& lines, std::string_view shop_id);
// The order's tax over its rates, from CHUMON_T; an order without a row is calculated, and so gets one.
std::int32_t GetOrderTax(entry::Context& context, db::Connection& db, std::int32_t id);
// The carrier's name as the service knows it ("クロネコヤマト", "佐川急便" …); unknown texts stay.
std::string ABTransfer(std::string_view carrier);

class clsABUriage {
 public:
  // The service requires an e-mail address; the buyer's is not handed over.
  static constexpr std::string_view EmptyAddress = "nomail@example.invalid";

  void Output(std::string& out) const;

  std::string OrdYMD, Yubin, Jusyo, Simei, Kana, Tel, EMail, Job;
  std::string ZYubin, ZJusyo, ZSimei, ZKana, ZTel, ItemName;
  std::int32_t Tanka = 0;
  double Suryo = 0;
  std::int32_t Shipping = 0, Handling = 0, SeiGaku = 0;
  std::string SiteID;
  std::int32_t id = 0;
  std::string Biko;
};

class clsABSyukka {
 public:
  void Output(std::string& out) const;

  std::string Transfer, DenNo, OrdYMD, Simei, Tel;
  std::int32_t SeiGaku = 0;
  std::string ZJusyo;
  std::int32_t id = 0;
};

class ABUriageExport final : public DeferredPaymentExport {
 protected:
  void Begin(entry::Context& context, entry::Ui& ui, const common::Grid& grid) override;
  RowFailure Line(const CheckedOrder& order, db::Connection& db, std::string& out) override;

 private:
  // GetOrderTax for the checked orders, their CHUMON_T rows read a batch at a time.
  std::int32_t OrderTax(db::Connection& db, std::int32_t id);

  entry::Context* context_ = nullptr;
  std::vector<std::string> site_ids_;
  std::unique_ptr<money::TaxSummaryRun> tax_run_;
};

class ABSyukkaExport final : public DeferredPaymentExport {
 protected:
  RowFailure Line(const CheckedOrder& order, db::Connection& db, std::string& out) override;
};

}  // namespace lupin::exchange
