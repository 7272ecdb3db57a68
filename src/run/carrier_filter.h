#pragma once
// The carrier words of the print list: a slip or file of one carrier lists only the orders whose
// free-text carrier names that carrier.
#include <cstdint>
#include <span>
#include <string_view>

namespace lupin::run {

// The words of the report's carrier class; empty when the report has no carrier filter.
std::span<const std::string_view> CarrierWords(std::int32_t report_no);
// True when the report has no filter or the carrier text contains one of its words.
bool CarrierMatches(std::int32_t report_no, std::string_view carrier_text);

}  // namespace lupin::run
