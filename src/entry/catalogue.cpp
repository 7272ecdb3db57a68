#include "entry/catalogue.h"

#include <array>

namespace lupin::entry {
namespace {

using O = OutputKind;
using S = SourceRows;
using C = Carrier;

constexpr std::int32_t kLastNumber = 104;

// Numbers that only keep a place: no output, no object, no rows.
constexpr CatalogueEntry Unassigned(std::int32_t n) { return {n, "", O::None, "", S::Nothing, false, C::None}; }

// What every number does. REPORT_NAME comes from the database at run time; the names here are
// those of a fresh installation, where the catalogue quotes one.
constexpr std::array<CatalogueEntry, kLastNumber + 1> BuildTable() {
  std::array<CatalogueEntry, kLastNumber + 1> t{};
  for (std::int32_t n = 0; n <= kLastNumber; ++n) t[static_cast<std::size_t>(n)] = Unassigned(n);
  const auto set = [&t](CatalogueEntry e) { t[static_cast<std::size_t>(e.report_no)] = e; };

  set({0, "納品書", O::Report, "rptNouhin", S::Orders, false, C::None});
  set({1, "郵便振替", O::Report, "rptYubinFurikae", S::Orders, false, C::None});
  // The old Yamato forms lost their report objects but still take waybill numbers.
  set({2, "", O::None, "", S::Orders, true, C::Yamato});
  set({3, "", O::None, "", S::Orders, true, C::Yamato});
  set({4, "注文一覧表", O::Report, "rptList", S::Orders, false, C::None});
  set({5, "出荷一覧表", O::Report, "rptList", S::Orders, false, C::None});
  set({6, "入金一覧表", O::Report, "rptList", S::Orders, false, C::None});
  set({7, "出荷予定一覧表", O::Report, "rptList", S::Orders, false, C::None});
  set({8, "未入金一覧表", O::Report, "rptList", S::Orders, false, C::None});
  set({16, "日通宅配伝票", O::Report, "rptNittu", S::Orders, true, C::NipponExpress});
  set({17, "日通代引き伝票", O::Report, "rptNittu_Colect", S::Orders, true, C::NipponExpress});
  set({18, "佐川宅配伝票", O::Report, "rptSagawa", S::Orders, true, C::Sagawa});
  set({19, "佐川代引き伝票", O::Report, "rptSagawa_Colect", S::Orders, true, C::Sagawa});
  set({20, "郵パック通常", O::Report, "rptYupak", S::Orders, true, C::YuPack});
  set({21, "郵パック代引き", O::Report, "rptYupak_Colect", S::Orders, true, C::YuPack});
  set({22, "宛名ラベル", O::Report, "rptLabel12", S::Orders, false, C::None});
  set({23, "宛名ラベル (顧客情報)", O::Report, "rptLabel12_Mikomi", S::Customers, false, C::None});
  set({25, "ヤマト宅配伝票", O::Report, "rptYamatoNew", S::Orders, true, C::Yamato});
  set({26, "ヤマトコレクト宅配伝票", O::Report, "rptYamato_ColectNew", S::Orders, true, C::Yamato});
  set({28, "", O::Report, "rptList", S::Orders, false, C::None});
  // Slips printed from customer data have no order to carry a waybill number.
  set({29, "", O::Report, "rptYamatoNew", S::Customers, false, C::Yamato});
  set({30, "", O::Report, "rptYamato_ColectNew", S::Customers, false, C::Yamato});
  set({31, "福通宅配伝票", O::Report, "rptFukuyama", S::Orders, false, C::Fukuyama});
  set({32, "福通代引き伝票", O::Report, "rptFukuyama", S::Orders, false, C::Fukuyama});
  set({33, "西濃宅配伝票", O::Report, "rptSeino", S::Orders, false, C::Seino});
  set({34, "西濃代引き伝票", O::Report, "rptSeinoColect", S::Orders, false, C::Seino});
  set({35, "商品別売上集計表", O::Report, "rptItemList", S::ItemAggregation, false, C::None});
  set({36, "WELLNET請求書", O::Report, "rptSeikyuWell", S::Orders, false, C::None});
  set({40, "", O::Report, "rptYupak_ColectNew", S::Orders, true, C::YuPack});
  set({41, "", O::Report, "rptYupak_ColectNewE", S::Orders, true, C::YuPack});
  set({42, "", O::Report, "rptNittuNew", S::Orders, true, C::NipponExpress});
  set({43, "", O::Report, "rptNittu_ColectNew", S::Orders, true, C::NipponExpress});
  set({44, "日別売上集計表", O::Report, "rptUriage", S::SalesAggregation, false, C::None});
  set({45, "週別売上集計表", O::Report, "rptUriage", S::SalesAggregation, false, C::None});
  set({46, "月別売上集計表", O::Report, "rptUriage", S::SalesAggregation, false, C::None});
  set({47, "", O::Report, "rptYupak2010", S::Orders, true, C::YuPack});
  set({48, "", O::Report, "rptYupak_Colect2010", S::Orders, true, C::YuPack});
  set({49, "", O::Report, "rptYupak_ColectE2010", S::Orders, true, C::YuPack});
  set({50, "", O::Report, "rptFukuyamaColectNew", S::Orders, false, C::Fukuyama});
  set({51, "", O::Report, "rptSagawa2010", S::Orders, true, C::Sagawa});
  set({52, "", O::Report, "rptSagawa_Colect2010", S::Orders, true, C::Sagawa});
  set({53, "", O::Report, "rptFukuyamaNew", S::Orders, false, C::Fukuyama});
  set({54, "", O::Report, "rptPickingSyuDate", S::Orders, false, C::None});
  set({55, "", O::Report, "rptPickingSyuYDate", S::Orders, false, C::None});
  set({56, "", O::Report, "rptNouhinInvoice", S::Orders, false, C::None});
  set({89, "", O::File, "modYupackV4", S::Orders, false, C::YuPack});
  set({90, "ヤマトi-CATs", O::File, "modICatsCsv", S::Orders, false, C::Yamato});
  set({91, "e-飛伝", O::File, "modEhidenCsv", S::Orders, false, C::Sagawa});
  set({92, "WELLNETコンペイ君", O::File, "clsWellNet", S::Orders, false, C::None});
  set({93, "NP後払いサービス売上", O::File, "clsNPUriage", S::Orders, false, C::None});
  set({94, "NP後払いサービス出荷", O::File, "clsNPSyukka", S::Orders, false, C::None});
  set({95, "", O::File, "modYupack", S::Orders, false, C::YuPack});
  set({96, "", O::File, "modEhiden2Csv", S::Orders, false, C::Sagawa});
  set({97, "", O::File, "modICatsCsvV6", S::Orders, false, C::Yamato});
  set({98, "", O::File, "clsABUriage", S::Orders, false, C::None});
  set({99, "", O::File, "clsABSyukka", S::Orders, false, C::None});
  set({101, "", O::File, "modAmazonSyukka", S::Orders, false, C::None});
  set({102, "", O::File, "modYupackR", S::Orders, false, C::YuPack});
  set({104, "", O::File, "modEhiden3Csv", S::Orders, false, C::Sagawa});
  return t;
}

constexpr std::array<CatalogueEntry, kLastNumber + 1> kTable = BuildTable();
constexpr CatalogueEntry kOutside = {-1, "", O::None, "", S::Nothing, false, C::None};

// Collect amounts cannot be read off the table: slips and files that carry cash on delivery.
constexpr std::array<std::int32_t, 22> kCollect{3,  17, 19, 21, 26, 32, 34, 40, 41, 43, 48,
                                                49, 50, 52, 89, 90, 91, 95, 96, 97, 102, 104};

}  // namespace

const CatalogueEntry& CatalogueOf(std::int32_t report_no) {
  if (report_no < 0 || report_no > kLastNumber) return kOutside;
  return kTable[static_cast<std::size_t>(report_no)];
}

const CatalogueEntry* CatalogueBegin() { return kTable.data(); }
const CatalogueEntry* CatalogueEnd() { return kTable.data() + kTable.size(); }

bool IsWaybillReport(std::int32_t report_no) { return CatalogueOf(report_no).waybill; }

// Aggregations skip the print list and go straight to the preview.
bool IsDirectReport(std::int32_t report_no) {
  const SourceRows source = CatalogueOf(report_no).source;
  return source == S::ItemAggregation || source == S::SalesAggregation;
}

bool IsSalesSummaryReport(std::int32_t report_no) { return CatalogueOf(report_no).source == S::SalesAggregation; }

bool IsFileReport(std::int32_t report_no) { return CatalogueOf(report_no).output == O::File; }

bool IsCollectReport(std::int32_t report_no) {
  for (std::int32_t n : kCollect)
    if (n == report_no) return true;
  return false;
}

bool IsCustomerReport(std::string_view other_tbl_name) { return other_tbl_name == "CUSTOMER"; }

std::int32_t LedgerReportNo(std::int32_t report_no) {
  switch (report_no) {
    case 89: return 95;
    case 96: case 104: return 91;
    case 97: return 90;
    default: return report_no;
  }
}

bool IsSilentNoneReport(std::int32_t report_no) { return report_no >= 9 && report_no <= 15; }

}  // namespace lupin::entry
