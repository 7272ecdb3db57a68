#pragma once
// The Yu-Pack files for Japan Post's printing software: modYupack (report 95) and modYupackV4
// (report 89) write a line of commas and positional lines, modYupackR (report 102) a named header
// of 119 columns. No row is validated: empty values go out as they are.
#include <string>
#include <string_view>

#include "exchange/checked_order_export.h"

namespace lupin::exchange {

class YupackWriter : public CheckedOrderExport {
 public:
  enum class Form { Classic, V4, R };
  explicit YupackWriter(Form form) : form_(form) {}
  Form FileForm() const { return form_; }

 protected:
  void AppendHead(std::string& out) const override;
  RowFailure Line(const CheckedOrder& order, db::Connection& db, std::string& out) override;

 private:
  Form form_;
};

class modYupack final : public YupackWriter {
 public:
  modYupack() : YupackWriter(Form::Classic) {}
};

class modYupackV4 final : public YupackWriter {
 public:
  modYupackV4() : YupackWriter(Form::V4) {}
};

class modYupackR final : public YupackWriter {
 public:
  modYupackR() : YupackWriter(Form::R) {}
};

// Fields of a line: 84 in modYupack, 132 in modYupackV4, 119 in modYupackR.
int YupackFieldCount(YupackWriter::Form form);
// The digits of a text, one "." and a leading "-"; "0" when nothing is left.
std::string DigitsOnly(std::string_view text);
// An address in three fields, placed by its length in 16-bit characters and cut in Shift-JIS bytes.
std::array<std::string, 3> YupackAddress(std::string_view address);
// The time code of each form.
std::string YupackTimeCode(std::string_view delivery_time, YupackWriter::Form form);

}  // namespace lupin::exchange
