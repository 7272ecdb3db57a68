#pragma once
// Filling a designed form: digit boxes, the company pair, captions copied to the second and third
// copies, and the shop's ATENA flag. Documents and slips share these.
#include <cstdint>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>

#include "db/connection.h"
#include "engine/section.h"

namespace lupin::layout {

// A control of the section that the designer holds; a missing one is a fault of the report object.
engine::Control& FormControl(engine::Section& section, std::string_view name);

// One character of text per box, in prefix+first .. prefix+last: telephone numbers, postcodes,
// amounts and account digits. A blank or a missing character leaves its box empty; characters
// beyond the last box are dropped.
void FillBoxes(engine::Section& section, std::string_view prefix, int first, int last, std::string_view text);
// The last `width` characters of (width blanks + text): a figure right-aligned in its boxes, an
// amount too long for them losing its highest digits.
std::string RightAligned(std::string_view text, int width);
// The text right-aligned with blanks in `width` characters; a longer text keeps its leftmost
// characters, as the old RSet did.
std::string RSet(std::string_view text, int width);

// The caption of `from` in each of `to`: the second and third copies repeat the first.
void CopyCaption(engine::Section& section, std::string_view from, std::initializer_list<std::string_view> to);
// A caption or a field's text, whichever the control prints.
void SetShownText(engine::Control& control, std::string text);

// The company above, the department below, both shown unless a format hid them; both hidden when
// the two are empty. The caller has fitted the pair to the boxes already.
void FillCompanyPair(engine::Control& upper, engine::Control& lower, const std::string& company,
                     const std::string& department);

// The ATENA flag of a shop: set, a gift's recipient is the addressee of the shop's papers. SHOP
// does not change during a run, so each shop is read once per object.
// The shop's ATENA flag as a byte: banker's rounding, and what does not fit counts as no flag.
std::uint8_t AtenaByte(std::string_view atena);

class ShopAtena {
 public:
  // 0 for a shop that is not there or a value that does not read as a byte.
  std::uint8_t Of(db::Connection& connection, const std::string& shop_id);
  void Clear() { known_.clear(); }
  // Statements sent so far, for the benchmarks.
  int Queries() const { return queries_; }

 private:
  std::map<std::string, std::uint8_t> known_;
  int queries_ = 0;
};

}  // namespace lupin::layout
