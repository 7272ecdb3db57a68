#pragma once
// The Amazon order-fulfilment upload (report 101, modAmazonSyukka): Amazon's three template lines,
// then one tab-separated line per order with the ship date, the carrier and the tracking number.
#include <string>
#include <string_view>

#include "exchange/checked_order_export.h"

namespace lupin::exchange {

class modAmazonSyukka final : public CheckedOrderExport {
 protected:
  void Begin(entry::Context& context, entry::Ui& ui, const common::Grid& grid) override;
  void AppendHead(std::string& out) const override;
  // The head goes out only together with lines.
  bool HeadAlone() const override { return false; }
  RowFailure Line(const CheckedOrder& order, db::Connection& db, std::string& out) override;

 private:
  std::string date_caption_;
};

// "FedEx", "DFL", "NipponExpress" or "Other", ignoring case and width.
std::string AmazonCarrierCode(std::string_view carrier);

}  // namespace lupin::exchange
