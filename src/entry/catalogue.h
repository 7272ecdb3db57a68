#pragma once
// The report catalogue: what each REPORT_NO does, and the named sets the whole component keys on.
#include <cstdint>
#include <string_view>

namespace lupin::entry {

enum class OutputKind { None, Report, File };
enum class SourceRows { Orders, Customers, ItemAggregation, SalesAggregation, Nothing };
enum class Carrier { None, Yamato, Sagawa, NipponExpress, YuPack, Fukuyama, Seino };

struct CatalogueEntry {
  std::int32_t report_no;
  std::string_view delivery_name;  // REPORT_NAME at delivery
  OutputKind output;
  std::string_view object;         // report object or writer: "rptNouhin", "modEhidenCsv"; "" for none
  SourceRows source;
  bool waybill;
  Carrier carrier;
};

// The entry of a number; numbers outside the table are OutputKind::None with no object.
const CatalogueEntry& CatalogueOf(std::int32_t report_no);
// Every number from 0 to 104 with its entry, in order.
const CatalogueEntry* CatalogueBegin();
const CatalogueEntry* CatalogueEnd();

bool IsWaybillReport(std::int32_t report_no);
bool IsDirectReport(std::int32_t report_no);
bool IsSalesSummaryReport(std::int32_t report_no);
bool IsFileReport(std::int32_t report_no);
bool IsCollectReport(std::int32_t report_no);
// Customer reports are decided by the definition's OTHER_TBL_NAME, not by the number.
bool IsCustomerReport(std::string_view other_tbl_name);
// The query builder and the print list switch to customers on any OTHER_TBL_NAME, not only on
// "CUSTOMER": the name works as a switch, and CUSTOMER is read whatever it names.
inline bool ListsCustomers(std::string_view other_tbl_name) { return !other_tbl_name.empty(); }
// The ledger stores file numbers mapped: 89 → 95, 96 and 104 → 91, 97 → 90.
std::int32_t LedgerReportNo(std::int32_t report_no);
// 9-15: mail texts; they yield no report object and no message.
bool IsSilentNoneReport(std::int32_t report_no);

}  // namespace lupin::entry
