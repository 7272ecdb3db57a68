#pragma once
// The frame every carrier slip runs on: one preprinted form per staged order. It reads the
// orders, sizes the paper, and for each record fills the recipient, the sender, the date and
// time-of-day boxes and the goods as the carrier's SlipSpec says; a carrier adds its telephone,
// amount, stamp and account boxes in FillCarrierExtras.
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/text_measure.h"
#include "layout/report_frame.h"
#include "reports/slips/insert_crlf.h"
#include "reports/slips/slip_form_data.h"

namespace lupin::reports {

// The shop of the last order a slip formatted. It lives for the process: a customer run prints
// it as the sender.
struct SlipShopMembers {
  std::string name, postcode, address, tel;
  bool Empty() const { return name.empty() && postcode.empty() && address.empty() && tel.empty(); }
};

// One side of a slip as the record gives it.
struct SlipParty {
  std::string postcode, tel, address, company, department, name;
};

// Who receives and who sends this record's parcel.
struct SlipParties {
  SlipParty recipient, sender;
  bool gift = false;
  bool orderer_sends = false;
};

class SlipFrame : public layout::ReportFrame {
 public:
  SlipFrame(entry::Context& context, SlipSpec spec, engine::TextMeasurer& measurer);

  // The statement of the run, exactly as it is sent.
  virtual std::string Query() const;
  // The records the run read, noted at its data initialisation: the length of the waybill series.
  int RecordCount() const { return record_count_; }
  const SlipSpec& Spec() const { return spec_; }

  int platform_id = kPlatformOther;

 protected:
  void ActiveReport_DataInitialize() override;
  void Detail_Format();

  // What a carrier's form adds once a run, after the sender block and before the format file.
  virtual void InitialiseCarrierExtras() {}
  // What a carrier's form adds to each record: telephone boxes, amounts, stamps.
  virtual void FillCarrierExtras(const SlipParties& parties) { (void)parties; }
  // Customer slips (Yamato 29 and 30) take the recipient from the customer and the sender from
  // the shop members.
  virtual bool CustomerMode() const { return false; }
  virtual SlipParties CustomerParties();

  // A label's caption or a bound field's text.
  void SetText(std::string_view control, std::string text);
  // One character of text a box into prefix1 … prefix<boxes> of the Detail.
  void SetBoxes(std::string_view prefix, int boxes, std::string_view text);
  // The whole-number value of a column.
  std::int64_t WholeField(std::string_view column) const;
  bool HasDetailControl(std::string_view name);
  engine::TextMeasurer& Measurer() { return measurer_; }

  SlipSpec spec_;
  // Only the Yamato slips keep the shop of the last order; null for the other carriers.
  std::shared_ptr<SlipShopMembers> shop_;

 private:
  void SetPaper();
  void SetSenderBlock(bool printed);
  SlipParties OrderParties();
  void FillDates(bool customers);
  void FillRecipient(const SlipParty& party, bool break_name);
  void FillCompanyBlock(std::string company, std::string department);
  void FillSender(const SlipParties& parties);
  void FillSenderName(const SlipParty& sender, bool orderer);
  void FillPostcode(const PostcodeSpec& spec, std::string_view postcode);
  void FillTel(const TelSpec& spec, std::string_view tel);
  std::string BreakAddress(engine::Control& box, std::string_view address);
  std::string BreakName(engine::Control& box, std::string_view name);
  std::uint8_t Atena(const std::string& shop_id);
  std::string Items(const std::string& id);
  void MarkTime(std::string_view time_band);

  engine::TextMeasurer& measurer_;
  InsertCrLf crlf_;
  int record_count_ = 0;
  // SHOP does not change during a run: one lookup per shop.
  std::map<std::string, std::uint8_t> atena_;
  std::vector<engine::Control*> time_marks_;
};

}  // namespace lupin::reports
