#include "exchange/deferred_payment_values.h"

#include "common/text.h"
#include "common/vb.h"
#include "exchange/field_text.h"

namespace lupin::exchange {

std::string CompactText(std::string_view text) {
  return RemoveAll(ReplaceCrLf(TrimBlanks(text), ""), kWideSpace);
}

std::string CompactText(std::string_view text, int chars) { return text::CharLeft(CompactText(text), chars); }

std::string OrderDate(std::string_view text) {
  const std::string trimmed = TrimBlanks(text);
  if (vb::IsDate(trimmed) || !vb::IsNumeric(trimmed)) return trimmed;
  return vb::Format(vb::Val(trimmed), "0000/00/00");
}

std::string WholeNumber(double value) { return vb::Format(value, "0"); }

std::string Quantity(double value) { return vb::Format(value); }

}  // namespace lupin::exchange
