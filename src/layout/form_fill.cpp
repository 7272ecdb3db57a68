#include "layout/form_fill.h"

#include <cmath>

#include "common/sql.h"
#include "common/text.h"
#include "common/vb.h"
#include "engine/report.h"
#include "layout/format_apply.h"

namespace lupin::layout {

engine::Control& FormControl(engine::Section& section, std::string_view name) {
  engine::Control* control = section.Controls().Item(name);
  if (control == nullptr)
    throw engine::ReportFault(engine::kFaultGeneral, section.Name + ": コントロール " + std::string(name) + " がありません。");
  return *control;
}

void FillBoxes(engine::Section& section, std::string_view prefix, int first, int last, std::string_view text) {
  for (int box = first; box <= last; ++box) {
    std::string one = text::CharMid(text, box - first + 1, 1);
    if (one == " ") one.clear();
    FormControl(section, std::string(prefix) + std::to_string(box)).Caption = std::move(one);
  }
}

std::string RightAligned(std::string_view text, int width) {
  const std::string padded = std::string(static_cast<std::size_t>(width), ' ') + std::string(text);
  return text::CharRight(padded, width);
}

std::string RSet(std::string_view text, int width) {
  const int length = text::CharLen(text);
  if (length >= width) return text::CharLeft(text, width);
  return std::string(static_cast<std::size_t>(width - length), ' ') + std::string(text);
}

void SetShownText(engine::Control& control, std::string text) {
  if (control.Kind() == engine::ControlKind::TextField)
    control.Text = std::move(text);
  else
    control.Caption = std::move(text);
}

void CopyCaption(engine::Section& section, std::string_view from, std::initializer_list<std::string_view> to) {
  const std::string text = FormControl(section, from).PrintedText();
  for (const std::string_view name : to) SetShownText(FormControl(section, name), text);
}

void FillCompanyPair(engine::Control& upper, engine::Control& lower, const std::string& company,
                     const std::string& department) {
  if (company.empty() && department.empty()) {
    upper.Visible = false;
    lower.Visible = false;
    return;
  }
  upper.Caption = company;
  lower.Caption = department;
  ShowUnlessHidden(upper, true);
  ShowUnlessHidden(lower, true);
}

std::uint8_t AtenaByte(std::string_view atena) {
  // CByte: banker's rounding, and an overflow that the lookup's handler turns into 0.
  const double value = std::nearbyint(vb::Val(atena));
  if (value < 0 || value > 255) return 0;
  return static_cast<std::uint8_t>(value);
}

std::uint8_t ShopAtena::Of(db::Connection& connection, const std::string& shop_id) {
  if (const auto found = known_.find(shop_id); found != known_.end()) return found->second;
  std::uint8_t atena = 0;
  try {
    ++queries_;
    db::Recordset shop = connection.Open("SELECT [ATENA] FROM [SHOP] WHERE [SHOP_ID] = '" + sql::SqlQuote(shop_id) + "'");
    if (!shop.Eof()) atena = AtenaByte(shop["ATENA"].Text());
  } catch (const std::exception&) {
    atena = 0;
  }
  known_.emplace(shop_id, atena);
  return atena;
}

}  // namespace lupin::layout
