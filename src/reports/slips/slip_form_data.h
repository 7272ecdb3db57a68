#pragma once
// What one carrier's slip designer varies, as data: its paper, who sends, which controls hold the
// recipient and the sender, the date boxes, the time-of-day boxes and the item block. The slip
// frame reads it and runs the same steps for every carrier.
#include <cstdint>
#include <string>
#include <vector>

#include "reports/slips/slip_item_block.h"
#include "reports/slips/slip_time_slots.h"

namespace lupin::reports {

// Win32 platform ids: the NT family lets the driver keep the slip paper, any other platform has
// the report size it. This platform is not of the NT family.
inline constexpr int kPlatformNt = 2;
inline constexpr int kPlatformOther = 1;

struct SlipPaper {
  enum class Rule {
    None,             // the paper comes from the print settings alone
    UserDefinedSize,  // sized only when the report's paper size code is 256 (user-defined)
    Always,           // sized whenever the platform is not of the NT family
  };
  Rule rule = Rule::None;
  std::int32_t portrait_width = 0, portrait_height = 0;
  // In any other orientation; a width of 0 leaves the printer's width untouched.
  std::int32_t other_width = 0, other_height = 0;
};

// Without a gift the shop always sends. With one, the orderer sends, unless the sender rule asks
// the shop's ATENA value and that is not 0.
enum class SenderRule { GiftOrdererSends, AtenaDecides };

struct PostcodeSpec {
  enum class Style {
    None,
    Boxes,       // one character a box, hyphens removed: control is the prefix of boxes 1 to 7
    DigitBoxes,  // the same with only the digits, narrowed
    Text,        // the postcode as stored, in one control
    Mask,        // the digits through "@  @  @    @  @  @  @", from the first place
  };
  Style style = Style::None;
  std::string control;
};

struct TelSpec {
  enum class Style { Text, Boxes };  // Boxes: control is the prefix of the 13 boxes
  Style style = Style::Text;
  std::string control;
};

struct RecipientControls {
  PostcodeSpec postcode;
  TelSpec tel;
  std::string address, company_upper, company_lower, name;
};

struct SenderControls {
  PostcodeSpec postcode;
  TelSpec tel;
  std::string address;
  std::string name;
  // Set: the name takes two lines, the upper holding the orderer's company or the first line of
  // a long name. Empty: one control, and the orderer's company goes to `company`.
  std::string name_upper;
  std::string company;
  // Copies of the sender elsewhere on the form: {copy, original}.
  std::vector<std::pair<std::string, std::string>> copies;
};

struct DateBox {
  std::string control;
  std::string column;   // 配達日 or 出荷日
  std::string picture;  // "mm   dd", "yy" …
};

struct ItemBlockSpec {
  std::string control;  // "" for a form without an item block
  ItemColumns columns;
  bool hinmei_override = false;  // the first line of hinmei.txt replaces the goods
};

struct SlipSpec {
  std::string designer;
  SlipPaper paper;
  SenderRule sender_rule = SenderRule::GiftOrdererSends;
  RecipientControls recipient;
  SenderControls sender;
  // Company, department and name of an orderer from 会社名, 所属 and 氏名 of the order instead of
  // the staged Company and Simei.
  bool names_from_order = false;
  std::vector<DateBox> dates;
  TimeSlotTable time_slots;
  // A caption shown only while the bound time-of-day field has text: {caption, field}.
  std::string time_caption, time_field;
  ItemBlockSpec items;
  // Hidden on a form that has the sender printed on it already (paper type not 0).
  std::vector<std::string> sender_printed_hides;
  // The report fields FLD_TXT1 and FLD_TXT2 in lblMemo1 to lblMemo3 on plain paper.
  bool memo_fields = false;
};

// "prefix1" … "prefixN": a numbered run of controls.
std::vector<std::string> Numbered(const std::string& prefix, int count);

}  // namespace lupin::reports
