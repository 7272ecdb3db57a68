#include "reports/documents/seikyu_ocr.h"

#include "common/text.h"
#include "common/vb.h"

namespace lupin::reports {

namespace {

std::string Last(std::string_view text, int count) { return text::CharRight(text, count); }

std::string TrimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return "";
  return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

}  // namespace

std::string SlipAccount::Member() const { return symbol + Last("000000" + number, 6); }

SlipAccount ParseSlipAccount(std::string_view settings_text) {
  std::string text(settings_text);
  if (const std::size_t blank = text.find(' '); blank != std::string::npos) text.resize(blank);
  std::string plain;
  for (const char c : text)
    if (c != '-') plain += c;
  SlipAccount account;
  account.text = plain;
  account.check = "0";
  if (plain.empty()) return account;
  account.symbol = text::CharLeft(plain, 5);
  account.check = text::CharMid(plain, 6, 1);
  if (account.check.empty()) account.check = "0";
  account.number = TrimBlanks(text::CharMid(plain, 7));
  return account;
}

int OcrBlockSum(std::string_view block) {
  int sum = 0;
  for (std::size_t i = 0; i < block.size() && i < 12; ++i) {
    const int digit = block[i] >= '0' && block[i] <= '9' ? block[i] - '0' : 0;
    sum += (i % 2 == 1) ? 3 * digit : digit;  // place i + 1: even places weigh three
  }
  return sum;
}

OcrLine MakeOcrLine(const SlipAccount& account, std::string_view order_id, std::string_view count, long amount) {
  OcrLine line;
  const std::string member = account.Member();
  line.block5 = "5" + text::CharLeft(member + "00000000000", 11);
  line.block6 = "6" + account.check + Last("000000000" + std::string(order_id), 9) + Last(count, 1);
  line.block8 = "8" + Last("99999" + text::CharMid(account.text, 4), 5) + Last("000000" + std::to_string(amount), 6);
  const int sum = OcrBlockSum(line.block5) + OcrBlockSum(line.block6) + OcrBlockSum(line.block8);
  line.block7 = "7" + member + std::to_string((10 - sum % 10) % 10);
  return line;
}

}  // namespace lupin::reports
