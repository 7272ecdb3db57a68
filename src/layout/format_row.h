#pragma once
// One control of a format file, as parsed: what to move, resize, hide or restyle.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace lupin::layout {

class clsRptFmtRow {
 public:
  std::string Section;           // the section it stood in (applying ignores it)
  std::string title;             // for the format editor only
  std::string Name;              // the control
  std::string Text;              // caption of a label the format adds
  bool Visible = true;
  std::string FontName;          // empty: keep the control's font
  bool FontSizeEnabled = true;   // reserved
  std::int16_t FontSize = 9;     // points; the default resets a listed control to 9
  float Width = 0;               // millimetres; 0 keeps
  bool HeightEnabled = true;     // reserved
  float Height = 0;              // millimetres; 0 keeps
  float Left = 0;                // millimetres from the section's left edge
  float Top = 0;                 // millimetres from the section's top edge
  std::int16_t Alignment = 0;    // reserved: an alignment attribute arrives as a free pair

  // Index of the last free name and value pair; -1 when there are none.
  std::int16_t OtherUBound() const { return static_cast<std::int16_t>(others_[0].size()) - 1; }
  // Appends a pair, after the earlier ones; a repeated name gives a second pair.
  void SetOther(std::string name, std::string value);
  // kind 0 gives the pair's name, 1 its value; "" for an index or kind out of range.
  std::string GetOther(int kind, int index) const;

 private:
  std::array<std::vector<std::string>, 2> others_;
};

}  // namespace lupin::layout
