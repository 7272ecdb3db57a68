#pragma once
// The delivery note: one A4 page per form with three copies (the customer's note, the billing
// copy, the shop's copy), five line slots each. An order of up to twenty lines takes up to four
// forms; each form is one record of the query. rptNouhinInvoice adds the shop's registration
// number and prints the tax of each rate.
#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "engine/report_registry.h"
#include "engine/text_measure.h"
#include "layout/form_fill.h"
#include "layout/report_frame.h"
#include "money/tax_summary_run.h"
#include "money/zei_info.h"
#include "reports/slips/insert_crlf.h"

namespace lupin::reports {

inline constexpr int kNouhinSlots = 5;
inline constexpr int kNouhinMaxLines = 20;

// The reduced-rate figures of one order, as CHUMON_T or the calculation gives them.
struct RateSummary {
  std::array<std::string, 3> rate;     // Zeirate1..3 as text ("0.1")
  std::array<std::int32_t, 3> komikin{};
  std::array<std::int32_t, 3> zeikin{};
};

// The summary line under the order lines. invoice: each rate with its tax, and the heading always.
std::string ReducedSummaryText(const RateSummary& summary, bool invoice);

// Statements a run has sent besides its own query, by purpose; the benchmark reports them.
struct NouhinQueryCounts {
  int page_marks = 0, units = 0, tax_dates = 0, reduced_flags = 0, summaries = 0;
  int Total() const { return page_marks + units + tax_dates + reduced_flags + summaries; }
};

class NouhinReport : public layout::ReportFrame {
 public:
  NouhinReport(entry::Context& context, std::string_view designer_name, engine::TextMeasurer& measurer, bool invoice);

  // The statement of the run, exactly as it is sent.
  std::string Query() const;
  NouhinQueryCounts Counts() const;

 protected:
  void ActiveReport_DataInitialize() override;
  void ActiveReport_ReportEnd() override {}
  void Detail_Format();

 private:
  std::string Block(int ord) const;
  // Copies and fills that follow from the record; each step of the form in its own routine.
  void PageMark(const std::string& id, int ord);
  void CompanyBlock(const char* upper, const char* lower, std::string company, std::string department);
  void Address(const char* control, std::string_view address);
  void Lines(int ord);
  void Totals();
  void TaxBox(bool no_tax);
  void Gift(bool addressed_to_recipient);
  void ZeroLines();
  void Suffixes(bool no_tax);
  void BillingBox();
  void ReducedRate(const std::string& id, int ord);
  void InvoiceNumber();
  void HideDrawnParts();

  std::string Unit(const std::string& item, const std::string& shop);
  const std::array<bool, kNouhinMaxLines>& ReducedFlags(const std::string& id);
  const RateSummary& Summary(const std::string& id);
  money::TaxSummaryRun& TaxRun();
  bool ReducedRateApplies(vb::DateSerial date);

  engine::TextMeasurer& measurer_;
  bool invoice_;
  InsertCrLf crlf_;
  money::clsZeiInfo zei_info_;
  bool is_last_form_ = true;
  bool old_arithmetic_ = false;  // "-nohinoldver": the points are not taken off the total

  // Lookups whose answer cannot change within a run, kept per key.
  layout::ShopAtena atena_;
  std::map<std::string, int> page_marks_;  // order → its forms, 0 for one form without a mark
  std::map<std::pair<std::string, std::string>, std::string> units_;
  std::map<vb::DateSerial, bool> reduced_by_date_;
  std::string flags_id_, summary_id_;
  std::array<bool, kNouhinMaxLines> flags_{};
  RateSummary summary_;
  // The CHUMON_T rows of the run's orders, read (and, when missing, calculated) a batch at a time.
  std::unique_ptr<money::TaxSummaryRun> tax_run_;
  NouhinQueryCounts counts_;
};

class rptNouhin : public NouhinReport {
 public:
  rptNouhin(entry::Context& context, engine::TextMeasurer& measurer)
      : NouhinReport(context, "rptNouhin", measurer, false) {}
};

class rptNouhinInvoice : public NouhinReport {
 public:
  rptNouhinInvoice(entry::Context& context, engine::TextMeasurer& measurer)
      : NouhinReport(context, "rptNouhinInvoice", measurer, true) {}
};

// measurer: null measures with the renderers' fonts, made at the first note.
void RegisterNouhinReports(engine::ReportRegistry& registry, std::shared_ptr<engine::TextMeasurer> measurer = nullptr);

}  // namespace lupin::reports
