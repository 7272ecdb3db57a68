#pragma once
// rptLabel12 and rptLabel12_Mikomi: address labels, twelve to a sheet, from staged orders or from
// prospects (customers). Printing starts at a chosen place so a half-used sheet can be used up;
// a place skipped prints blank and consumes no record. Duplicates by name and telephone can be
// dropped. Under the address stands the customer barcode of the postcode and address.
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "engine/report_registry.h"
#include "engine/text_measure.h"
#include "layout/report_frame.h"
#include "reports/slips/insert_crlf.h"

namespace lupin::reports {

// The pairs (name, telephone) already labelled in a run.
class SeenPairs {
 public:
  // True when the pair was seen before; otherwise remembers it. Both empty is never seen.
  bool CheckAndAdd(const std::string& name, const std::string& tel);
  void Clear() { pairs_.clear(); }

 private:
  std::vector<std::pair<std::string, std::string>> pairs_;
};

class AddressLabelReport : public layout::ReportFrame {
 public:
  AddressLabelReport(entry::Context& context, std::string_view designer_name, engine::TextMeasurer& measurer,
                     bool prospects);

  std::string Query() const;

 protected:
  void ActiveReport_ReportStart() override;
  void ActiveReport_DataInitialize() override;
  void ActiveReport_FetchData(bool& eof) override;
  void ActiveReport_ReportEnd() override;

 private:
  void Detail_Format();
  void Detail_AfterPrint();
  void BlankLabel();
  void FillCompanyBlock(std::string company, std::string department);
  void FillName(const std::string& name);
  // The first of the columns that the recordset holds, as text.
  std::string FirstField(std::initializer_list<std::string_view> names) const;

  engine::TextMeasurer& measurer_;
  bool prospects_;
  InsertCrLf crlf_;
  int skipped_ = 0;  // places of the first sheet left blank so far
  SeenPairs seen_;
};

class rptLabel12 : public AddressLabelReport {
 public:
  rptLabel12(entry::Context& context, engine::TextMeasurer& measurer)
      : AddressLabelReport(context, "rptLabel12", measurer, false) {}
};

class rptLabel12_Mikomi : public AddressLabelReport {
 public:
  rptLabel12_Mikomi(entry::Context& context, engine::TextMeasurer& measurer)
      : AddressLabelReport(context, "rptLabel12_Mikomi", measurer, true) {}
};

// Without a measurer the Pango one is made when the first label report is.
void RegisterAddressLabelReports(engine::ReportRegistry& registry, std::shared_ptr<engine::TextMeasurer> measurer = nullptr);

}  // namespace lupin::reports
