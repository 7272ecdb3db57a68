#pragma once
// The time-of-day boxes of a carrier's form: which box gets a ring for the delivery time band the
// operator typed. Every form reads the typed text the same way; the forms differ only in their
// boxes, so each form is a table.
#include <string>
#include <string_view>
#include <vector>

namespace lupin::reports {

// What the operator typed, read once for every form.
struct TimeBand {
  enum class Kind {
    None,          // empty, or a text that names no band
    Morning,       // "午前中", "a-12" with a above 0, "AM9-12"
    NoPreference,  // "指定なし", "指定無し", "希望なし", "希望無し"
    Hours,         // "14-16", "１４～１６", "14時～16時"
    Afternoon,     // "PM2-4", "PM2-PM4"
  };
  Kind kind = Kind::None;
  double from = 0, to = 0;  // the numbers of Hours and Afternoon
};

// Blanks of either width are ignored, the text is narrowed and upper-cased, and the separator is
// the first hyphen, else the first wave dash.
TimeBand ReadTimeBand(std::string_view typed);

// One form's boxes. A control name of "" means the form has no box for it.
struct TimeSlotTable {
  struct Slot {
    double from, to;
    std::string mark;
  };
  std::string morning;
  std::string no_preference;
  std::vector<Slot> hours;
  std::vector<Slot> afternoon;

  // The shape to ring for the typed band, or "" for none.
  std::string MarkFor(std::string_view typed) const;
};

}  // namespace lupin::reports
