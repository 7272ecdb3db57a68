#pragma once
// Values as the old runtime handled them: numeric conversion, dates as serial numbers, Format.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "common/currency.h"

namespace lupin::vb {

// Leading number of a text ("12abc" → 12, "&H1F" → 31, "" → 0); blanks are skipped wherever they
// stand, and full-width digits read as half-width ones.
double Val(std::string_view text);
bool IsNumeric(std::string_view text);

// A date: days since 1899-12-30, the fraction the time of day. The lowest date is -657434 (100-01-01).
using DateSerial = double;
constexpr DateSerial kLowestDate = -657434;
DateSerial DateSerialOf(int year, int month, int day);  // month and day may overflow, as DateSerial does
void SplitDate(DateSerial date, int& year, int& month, int& day);
// The date forms the data holds: "YYYY/MM/DD", "YYYY/M/D", "YYYY-MM-DD", "YYYY年M月D日", with an
// optional time; not "YYYYMMDD".
bool IsDate(std::string_view text);
std::optional<DateSerial> CDate(std::string_view text);
DateSerial DateAdd(std::string_view interval, int number, DateSerial date);  // "d", "ww", "m", "yyyy"
int Weekday(DateSerial date);                                                // Sunday = 1
DateSerial Today();
DateSerial Now();
// The time of day of a serial, rounded to the second as the old runtime shows it.
void SplitTime(DateSerial date, int& hour, int& minute, int& second);
DateSerial TimeSerialOf(int hour, int minute, int second);
// A date text as "YYYY/MM/DD", the form the order tables hold.
std::string DateText(DateSerial date);

// Whole-number conversions with banker's rounding; raise OverflowError outside the range.
std::int32_t CLng(double value);
std::int16_t CInt(double value);
double Int(double value);  // towards minus infinity
double Fix(double value);  // towards zero

// Format with the pictures the system uses: numbers ("#,##0", "0.00", "0000000000", "" general),
// dates ("YYYY/MM/DD", "yyyymmdd", "mm   dd", "HH:NN:SS"), "@" character masks, "0000/00/00".
std::string Format(double value, std::string_view picture = "");
std::string FormatDate(DateSerial date, std::string_view picture);
// Format of a text value: a numeric text formats as its number, a date text as its date, and
// "@"/digit masks apply to the characters; otherwise the text is returned unchanged.
std::string FormatText(std::string_view text, std::string_view picture);
// The value of a text that IsNumeric accepts ("1,234", " 12 ", "(5)", "¥500"); nothing otherwise.
std::optional<double> NumericValue(std::string_view text);

}  // namespace lupin::vb
