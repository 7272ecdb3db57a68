// Number pictures: "0" and "#" digits, "." point, "," thousands or thousands scaling, "%",
// "E+00" exponents, and anything else as a literal that stands where it is written.
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "common/format_picture.h"

namespace lupin::vb {

namespace {

struct Token {
  enum Kind { kZero, kHash, kPoint, kComma, kPercent, kExponent, kLiteral } kind;
  std::string literal;
  bool exponent_plus = false;
  int exponent_digits = 0;
};

bool IsDigitToken(const Token& token) { return token.kind == Token::kZero || token.kind == Token::kHash; }

std::vector<Token> Tokenize(std::string_view picture) {
  std::vector<Token> tokens;
  bool seen_point = false;
  for (std::size_t i = 0; i < picture.size(); ++i) {
    const char c = picture[i];
    if (c == '"') {
      const std::size_t close = picture.find('"', i + 1);
      const std::size_t end = close == std::string_view::npos ? picture.size() : close;
      tokens.push_back({Token::kLiteral, std::string(picture.substr(i + 1, end - i - 1))});
      i = end;
    } else if (c == '\\' && i + 1 < picture.size()) {
      tokens.push_back({Token::kLiteral, std::string(1, picture[++i])});
    } else if (c == '0') {
      tokens.push_back({Token::kZero, {}});
    } else if (c == '#') {
      tokens.push_back({Token::kHash, {}});
    } else if (c == '.' && !seen_point) {
      seen_point = true;
      tokens.push_back({Token::kPoint, {}});
    } else if (c == ',') {
      tokens.push_back({Token::kComma, {}});
    } else if (c == '%') {
      tokens.push_back({Token::kPercent, {}});
    } else if ((c == 'E' || c == 'e') && i + 2 < picture.size() && (picture[i + 1] == '+' || picture[i + 1] == '-') &&
               (picture[i + 2] == '0' || picture[i + 2] == '#')) {
      Token token{Token::kExponent, std::string(1, c)};
      token.exponent_plus = picture[i + 1] == '+';
      i += 2;
      while (i < picture.size() && (picture[i] == '0' || picture[i] == '#')) token.exponent_digits += picture[i++] == '0';
      --i;
      tokens.push_back(token);
    } else {
      tokens.push_back({Token::kLiteral, std::string(1, c)});
    }
  }
  return tokens;
}

std::string Group(const std::string& digits) {
  std::string out;
  const std::size_t n = digits.size();
  for (std::size_t i = 0; i < n; ++i) {
    if (i > 0 && (n - i) % 3 == 0) out += ',';
    out += digits[i];
  }
  return out;
}

class SectionFormatter {
 public:
  explicit SectionFormatter(std::string_view picture) : tokens_(Tokenize(picture)) {
    point_ = tokens_.size();
    for (std::size_t i = 0; i < tokens_.size(); ++i) {
      if (tokens_[i].kind == Token::kPoint) point_ = std::min(point_, i);
      if (tokens_[i].kind == Token::kPercent) ++percents_;
      if (tokens_[i].kind == Token::kExponent) exponent_ = i;
    }
    const std::size_t integer_end = std::min(point_, exponent_);
    for (std::size_t i = 0; i < integer_end; ++i) {
      if (!IsDigitToken(tokens_[i])) continue;
      if (first_digit_ == npos) first_digit_ = i;
      last_digit_ = i;
      ++integer_digits_;
      if (tokens_[i].kind == Token::kZero && first_zero_ == npos) first_zero_ = integer_digits_ - 1;
    }
    // Commas among the whole digits group by thousands; commas right after them scale.
    for (std::size_t i = 0; i < integer_end; ++i) {
      if (tokens_[i].kind != Token::kComma) continue;
      if (first_digit_ != npos && i > first_digit_ && i < last_digit_) grouping_ = true;
      else if (last_digit_ != npos && i > last_digit_) ++scales_;
    }
    for (std::size_t i = point_; i < std::min(tokens_.size(), exponent_); ++i) {
      if (IsDigitToken(tokens_[i])) decimal_kinds_.push_back(tokens_[i].kind);
    }
  }

  std::string Format(double magnitude) const {
    double v = magnitude * std::pow(100.0, percents_) / std::pow(1000.0, scales_);
    const int decimals = static_cast<int>(decimal_kinds_.size());
    Decimal d = DecimalOf(v);
    int exponent_value = 0;
    if (exponent_ != npos) {
      const int whole = std::max(integer_digits_, 1);
      if (!d.digits.empty()) {
        exponent_value = d.exponent - whole;
        d.exponent = whole;
        d = RoundDecimal(d, decimals);
        if (d.exponent > whole) {
          d.exponent = whole;
          ++exponent_value;
        }
      }
    } else {
      d = RoundDecimal(d, decimals);
    }
    std::string whole_digits;
    if (d.exponent > 0) {
      whole_digits = d.digits.substr(0, std::min<std::size_t>(d.digits.size(), static_cast<std::size_t>(d.exponent)));
      whole_digits.append(static_cast<std::size_t>(d.exponent) - whole_digits.size(), '0');
    }
    std::string fraction;
    for (int k = 0; k < decimals; ++k) {
      const int index = d.exponent + k;
      fraction += (index >= 0 && index < static_cast<int>(d.digits.size())) ? d.digits[static_cast<std::size_t>(index)] : '0';
    }
    return WholePart(whole_digits) + FractionPart(fraction) + ExponentPart(exponent_value);
  }

 private:
  static constexpr std::size_t npos = static_cast<std::size_t>(-1);

  std::string WholePart(std::string digits) const {
    const std::size_t end = std::min(point_, std::min(exponent_, tokens_.size()));
    if (integer_digits_ == 0) {
      std::string out;
      for (std::size_t i = 0; i < end; ++i) out += Literal(tokens_[i]);
      return out + digits;
    }
    if (first_zero_ != npos) {
      const std::size_t required = static_cast<std::size_t>(integer_digits_ - first_zero_);
      if (digits.size() < required) digits.insert(0, required - digits.size(), '0');
    }
    if (grouping_) {
      std::string out;
      for (std::size_t i = 0; i < first_digit_; ++i) out += Literal(tokens_[i]);
      out += Group(digits);
      for (std::size_t i = last_digit_ + 1; i < end; ++i) out += Literal(tokens_[i]);
      return out;
    }
    // Digits fill the placeholders from the right; the leftmost takes all that remain.
    std::vector<std::string> pieces;
    std::size_t remaining = digits.size();
    for (std::size_t i = end; i-- > 0;) {
      const Token& token = tokens_[i];
      if (!IsDigitToken(token)) {
        pieces.push_back(Literal(token));
      } else if (i == first_digit_) {
        pieces.push_back(digits.substr(0, remaining));
        remaining = 0;
      } else if (remaining > 0) {
        pieces.push_back(std::string(1, digits[--remaining]));
      }
    }
    std::string out;
    for (auto it = pieces.rbegin(); it != pieces.rend(); ++it) out += *it;
    return out;
  }

  std::string FractionPart(const std::string& fraction) const {
    if (point_ >= tokens_.size()) return {};
    // Trailing "#" places drop their zeros.
    std::size_t shown = fraction.size();
    while (shown > 0 && decimal_kinds_[shown - 1] == Token::kHash && fraction[shown - 1] == '0') --shown;
    std::string out = ".";
    std::size_t next = 0;
    for (std::size_t i = point_ + 1; i < std::min(tokens_.size(), exponent_); ++i) {
      if (IsDigitToken(tokens_[i])) {
        if (next < shown) out += fraction[next];
        ++next;
      } else {
        out += Literal(tokens_[i]);
      }
    }
    return out;
  }

  std::string ExponentPart(int value) const {
    if (exponent_ == npos) return {};
    const Token& token = tokens_[exponent_];
    std::string out = token.literal;
    if (value < 0) out += '-';
    else if (token.exponent_plus) out += '+';
    std::string digits = std::to_string(std::abs(value));
    if (static_cast<int>(digits.size()) < token.exponent_digits) {
      digits.insert(0, static_cast<std::size_t>(token.exponent_digits) - digits.size(), '0');
    }
    out += digits;
    for (std::size_t i = exponent_ + 1; i < tokens_.size(); ++i) out += Literal(tokens_[i]);
    return out;
  }

  static std::string Literal(const Token& token) {
    switch (token.kind) {
      case Token::kLiteral: return token.literal;
      case Token::kPercent: return "%";
      default: return {};
    }
  }

  std::vector<Token> tokens_;
  std::size_t point_ = 0;
  std::size_t exponent_ = npos;
  std::size_t first_digit_ = npos;
  std::size_t last_digit_ = npos;
  int integer_digits_ = 0;
  std::size_t first_zero_ = npos;  // index among the whole digits of the first "0"
  bool grouping_ = false;
  int percents_ = 0;
  int scales_ = 0;
  std::vector<Token::Kind> decimal_kinds_;
};

}  // namespace

std::string FormatNumber(double value, std::string_view picture) {
  const std::vector<std::string> sections = SplitSections(picture);
  if (sections.size() >= 3 && value == 0 && !sections[2].empty()) return SectionFormatter(sections[2]).Format(0);
  if (sections.size() >= 2 && value < 0 && !sections[1].empty()) return SectionFormatter(sections[1]).Format(-value);
  if (sections[0].empty()) return GeneralNumber(value);
  // The sign follows the value, not the rounded digits: -0.4 in "0" shows "-0", as it always did.
  const std::string body = SectionFormatter(sections[0]).Format(std::fabs(value));
  return value < 0 ? "-" + body : body;
}

}  // namespace lupin::vb
