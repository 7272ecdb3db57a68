#pragma once
// The Yamato slips: one preprinted form per order (25, collect 26) or per customer (29, collect
// 30). Recipient, sender, delivery date, time-of-day ring, goods and, on the collect form, the
// amount to collect.
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "engine/report_registry.h"
#include "engine/text_measure.h"
#include "layout/report_frame.h"
#include "reports/slips/insert_crlf.h"

namespace lupin::reports {

// The shop of the last order a slip formatted. It outlives a run: a customer run prints it as
// the sender, so it is empty until an order run has happened on the same registration.
struct YamatoShopMembers {
  std::string name, postcode, address, tel;
};

// Win32 platform ids: the NT family lets the driver keep the slip paper, any other platform has
// the report size it. This platform is not of the NT family.
inline constexpr int kPlatformNt = 2;
inline constexpr int kPlatformOther = 1;
// The slip paper in twips, portrait.
inline constexpr std::int32_t kSlipPaperWidth = 11397;
inline constexpr std::int32_t kSlipPaperHeight = 6481;

class YamatoSlip : public layout::ReportFrame {
 public:
  YamatoSlip(entry::Context& context, std::string_view designer_name, std::shared_ptr<YamatoShopMembers> shop,
             engine::TextMeasurer& measurer, bool collect);

  // The statement of the run for the current report number, exactly as it is sent.
  std::string Query() const;
  // 29 and 30 print customers, every other number orders.
  bool CustomerMode() const;
  // The records the run read, noted at its data initialisation: the length of the waybill series.
  int RecordCount() const { return record_count_; }

  int platform_id = kPlatformOther;

 protected:
  void ActiveReport_DataInitialize() override;
  void Detail_Format();

 private:
  struct Party {
    std::string postcode, tel, address, company, department, name;
  };

  void SetPaper();
  void SetSenderBlock(bool printed);
  // break_name: the orderer's name is line-broken, a gift name is printed as it stands.
  void FillRecipient(Party party, bool break_name);
  void FillCompanyBlock(std::string company, std::string department);
  void FillSender(const std::string& postcode, const std::string& tel, const std::string& address,
                  const std::string& name);
  void FillPostcode(const char* prefix, std::string_view postcode);
  std::string BreakAddress(engine::Control& box, std::string_view address);
  std::uint8_t Atena(const std::string& shop_id);
  std::string Items(const std::string& id);
  void MarkTime(std::string_view time_band);

  std::shared_ptr<YamatoShopMembers> shop_;
  engine::TextMeasurer& measurer_;
  bool collect_;
  InsertCrLf crlf_;
  int record_count_ = 0;
  // SHOP does not change during a run: one lookup per shop.
  std::map<std::string, std::uint8_t> atena_;
};

class rptYamatoNew : public YamatoSlip {
 public:
  rptYamatoNew(entry::Context& context, std::shared_ptr<YamatoShopMembers> shop, engine::TextMeasurer& measurer)
      : YamatoSlip(context, "rptYamatoNew", std::move(shop), measurer, false) {}
};

class rptYamato_ColectNew : public YamatoSlip {
 public:
  rptYamato_ColectNew(entry::Context& context, std::shared_ptr<YamatoShopMembers> shop,
                      engine::TextMeasurer& measurer)
      : YamatoSlip(context, "rptYamato_ColectNew", std::move(shop), measurer, true) {}
};

// Registers both objects. They share the shop members and the measurer for the registry's life,
// as the one designer instance of each slip did for the process. measurer: null measures with the
// renderers' fonts, created at the first slip.
void RegisterYamatoReports(engine::ReportRegistry& registry, std::shared_ptr<engine::TextMeasurer> measurer = nullptr);

}  // namespace lupin::reports
