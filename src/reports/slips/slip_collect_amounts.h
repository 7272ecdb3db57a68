#pragma once
// The money rows of the collect forms that list goods (Nippon Express, Seino): each line's amount
// with its consumption tax, and the row of postage and fees.
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "common/currency.h"
#include "common/vb.h"
#include "entry/context.h"

namespace lupin::reports {

// "#,##0"
std::string Yen(std::int64_t amount);

class CollectAmounts {
 public:
  // field: a column of the current record, as text.
  using Field = std::function<std::string(std::string_view column)>;
  CollectAmounts(const entry::Context& context, Field field) : context_(context), field_(std::move(field)) {}

  // Reads the record's tax rate and the shop's tax kinds; called once per record.
  void Start();
  // Line n's amount: 小計n with its tax added when 消費税区分n is 0; nothing for an empty line.
  std::optional<std::int64_t> Line(int n) const;
  // 送料 and 決済手数料, each with tax when its kind says so, less ポイント利用.
  std::int64_t PostageAndFees() const;
  std::int64_t Whole(std::string_view column) const;

 private:
  struct ShopTaxKinds {
    int shipping = 0, handling = 0, calculation = 0;
  };
  std::int32_t WithTax(std::int64_t amount) const;

  const entry::Context& context_;
  Field field_;
  vb::Currency rate_percent_;
  ShopTaxKinds kinds_;
  // SHOP and TAX do not change during a run.
  std::map<std::string, ShopTaxKinds> shops_;
  std::map<vb::DateSerial, vb::Currency> rates_;
};

}  // namespace lupin::reports
