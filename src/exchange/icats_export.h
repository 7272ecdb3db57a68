#pragma once
// The Yamato files: I-CATS (report 90, 47 fields) and B2 (report 97, 71 fields), no header, every
// field quoted. Both stop at the first order that lacks what the carrier requires.
#include <array>
#include <string>

#include "exchange/checked_order_export.h"
#include "exchange/shop_atena.h"

namespace lupin::exchange {

// What stays the same for every order of one export.
struct ICatsSetup {
  std::array<std::string, 5> fld_txt;        // the report's free texts, trimmed
  std::array<std::string, 3> carrier_codes;  // FLD_TXT4 split at ",": customer, class, freight
  std::string item_name;                     // first line of hinmei.txt
  std::string ship_date_caption, name_caption, amount_caption;
  std::string box_caption;                   // title of the postcode warning
};

class ICatsCsvWriter : public CheckedOrderExport {
 public:
  enum class Form { ICats, B2 };
  explicit ICatsCsvWriter(Form form) : form_(form) {}
  Form FileForm() const { return form_; }

 protected:
  void Begin(entry::Context& context, entry::Ui& ui, const common::Grid& grid) override;
  RowFailure Line(const CheckedOrder& order, db::Connection& db, std::string& out) override;

 private:
  Form form_;
  ICatsSetup setup_;
  ShopAtena atena_;
  entry::Ui* ui_ = nullptr;
};

class modICatsCsv final : public ICatsCsvWriter {
 public:
  modICatsCsv() : ICatsCsvWriter(Form::ICats) {}
};

class modICatsCsvV6 final : public ICatsCsvWriter {
 public:
  modICatsCsvV6() : ICatsCsvWriter(Form::B2) {}
};

// "2" cash on delivery, "6" express mail (B2 only), "3" mail, "7" small parcel, else "0".
std::string YamatoSlipKind(std::string_view carrier, bool is_cod, bool b2);
// The time code of both files: "0812" … "2021", or "".
std::string YamatoTimeCode(std::string_view delivery_time);

}  // namespace lupin::exchange
