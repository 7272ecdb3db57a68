#pragma once
// Waybill number series for the carriers' preprinted slip pads: the last digit of every number is
// a check digit, the rest of the number modulo 7. One rule for all carriers.
#include <string>
#include <string_view>
#include <vector>

namespace lupin::reports {

// 1-based character positions of every hyphen in the typed number ("－" counts too); a single 0
// when it has none, which suppresses the re-insertion.
std::vector<int> RecordHyphens(std::string_view number);

// The state of one assignment run: the series and the hyphen positions of the typed start number.
class DenNoSeries {
 public:
  void PrepareDenNo(std::string_view start_number);
  // Fills `count` numbers from the start number: its last character is dropped and recomputed,
  // and from the second number on the body is the previous body plus one in plain number form,
  // so leading zeros of the typed number are lost there.
  void MakeDenNoSeries(std::string_view start_number, int count);
  void ClearDenNo();

  const std::vector<std::string>& Series() const { return series_; }
  const std::vector<int>& HyphenPositions() const { return hyphens_; }

 private:
  std::vector<std::string> series_;
  std::vector<int> hyphens_;
};

// The check digit of a number body: body − 7 × Int(body / 7), in floating point as always.
int DenNoCheckDigit(double body);

}  // namespace lupin::reports
