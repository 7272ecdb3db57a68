#include "reports/slips/slip_collect_amounts.h"

#include <cmath>

#include "common/sql.h"
#include "common/vb.h"
#include "money/add_tax.h"
#include "money/tax_date.h"

namespace lupin::reports {

namespace {

constexpr int kOrderLines = 20;

}  // namespace

std::string Yen(std::int64_t amount) { return vb::Format(static_cast<double>(amount), "#,##0"); }

void CollectAmounts::Start() {
  const vb::DateSerial date =
      money::GetTaxDate(context_.settings, field_("受注日"), field_("出荷予定日"), field_("出荷日"), field_("請求日"));
  auto rate = rates_.find(date);
  if (rate == rates_.end())
    rate = rates_.emplace(date, money::GetNormalTaxRate(context_, date) * vb::Currency::FromDouble(100)).first;
  rate_percent_ = rate->second;

  // The order rows carry no tax kinds; they are the shop's.
  const std::string shop = field_("ショップID");
  auto found = shops_.find(shop);
  if (found == shops_.end()) {
    ShopTaxKinds kinds;
    db::Recordset rs = context_.Db().Open("SELECT [SHIPPING_TAXKBN],[HANDLING_TAXKBN],[TAX_CALKBN] FROM [SHOP] WHERE [SHOP_ID] = '" +
                                          sql::SqlQuote(shop) + "'");
    if (!rs.Eof()) {
      kinds = {static_cast<int>(vb::Val(rs["SHIPPING_TAXKBN"].Text())), static_cast<int>(vb::Val(rs["HANDLING_TAXKBN"].Text())),
               static_cast<int>(vb::Val(rs["TAX_CALKBN"].Text()))};
    }
    found = shops_.emplace(shop, kinds).first;
  }
  kinds_ = found->second;
}

std::int64_t CollectAmounts::Whole(std::string_view column) const {
  return static_cast<std::int64_t>(std::trunc(vb::Val(field_(column))));
}

std::int32_t CollectAmounts::WithTax(std::int64_t amount) const {
  return money::AddTax(static_cast<std::int32_t>(amount), rate_percent_, kinds_.calculation);
}

std::optional<std::int64_t> CollectAmounts::Line(int n) const {
  const std::string s = std::to_string(n);
  if (n > kOrderLines || field_("商品ID" + s).empty()) return std::nullopt;
  if (Whole("消費税区分" + s) == 0) return WithTax(Whole("小計" + s));
  return Whole("小計" + s);
}

std::int64_t CollectAmounts::PostageAndFees() const {
  const std::int64_t postage = kinds_.shipping == 0 ? WithTax(Whole("送料")) : Whole("送料");
  const std::int64_t fee = kinds_.handling == 0 ? WithTax(Whole("決済手数料")) : Whole("決済手数料");
  return postage + fee - Whole("ポイント利用");
}

}  // namespace lupin::reports
