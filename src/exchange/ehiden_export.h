#pragma once
// The Sagawa e-飛伝 exports: the checked orders of the print list as one Shift-JIS CSV file for
// the carrier's shipping software, in three generations (reports 91, 96 and 104).
#include <cstdint>
#include <memory>
#include <string>

#include "common/grid.h"
#include "entry/context.h"
#include "exchange/checked_order_export.h"
#include "exchange/ehiden_generation.h"
#include "exchange/ehiden_order.h"
#include "exchange/shop_atena.h"

namespace lupin::exchange {

// A missing name ends a Sagawa export with code 3 (address and telephone with 5).
inline constexpr std::int16_t kEhidenNameMissing = 3;

// What an export needs besides the grid, from the context: the report's free texts, the option
// file (generations II and III), hinmei.txt's line and the name column's caption.
EhidenSetup EhidenSetupOf(const entry::Context& context, const common::Grid& grid, EhidenGeneration generation);

// One generation's export.
class EhidenCsvWriter : public CheckedOrderExport {
 public:
  explicit EhidenCsvWriter(EhidenGeneration generation) : generation_(generation) {}
  EhidenGeneration Generation() const { return generation_; }

 protected:
  std::string NoPathMessage() const override;
  std::string NotWrittenMessage() const override;
  void Begin(entry::Context& context, entry::Ui& ui, const common::Grid& grid) override;
  void AppendHead(std::string& out) const override;
  RowFailure Line(const CheckedOrder& order, db::Connection& db, std::string& out) override;

 private:
  EhidenGeneration generation_;
  EhidenSetup setup_;
  ShopAtena atena_;
};

class modEhidenCsv final : public EhidenCsvWriter {
 public:
  modEhidenCsv() : EhidenCsvWriter(EhidenGeneration::I) {}
};

class modEhiden2Csv final : public EhidenCsvWriter {
 public:
  modEhiden2Csv() : EhidenCsvWriter(EhidenGeneration::II) {}
};

class modEhiden3Csv final : public EhidenCsvWriter {
 public:
  modEhiden3Csv() : EhidenCsvWriter(EhidenGeneration::III) {}
};

}  // namespace lupin::exchange
