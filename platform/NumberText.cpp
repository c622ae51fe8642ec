#include "platform/NumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace ovalia {

namespace {

// Keeps sums of exponents far from the limits of int; no double has as large a one.
constexpr int exponentLimit = 100'000;

bool isDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

// The signed digits behind an exponent letter; `at` stays when there are none.
int readExponent(TextView text, std::size_t& at) {
  constexpr TextView letters = u"eEdD";
  if (at == text.size() || letters.find(text[at]) == TextView::npos) return 0;
  std::size_t next = at + 1;
  const bool negative = next < text.size() && text[next] == u'-';
  if (negative || (next < text.size() && text[next] == u'+')) ++next;
  if (next == text.size() || !isDigit(text[next])) return 0;
  int exponent = 0;
  for (; next < text.size() && isDigit(text[next]); ++next)
    exponent = std::min(exponent * 10 + (text[next] - u'0'), exponentLimit);
  at = next;
  return negative ? -exponent : exponent;
}

int digitValue(char16_t c) {
  if (isDigit(c)) return c - u'0';
  if (c >= u'a' && c <= u'f') return c - u'a' + 10;
  if (c >= u'A' && c <= u'F') return c - u'A' + 10;
  return 16;
}

}  // namespace

double DecimalText::toDouble() const {
  const std::string written = digits + "e" + std::to_string(exponent);
  double value = 0;
  const auto [end, error] = std::from_chars(written.data(), written.data() + written.size(), value);
  if (error == std::errc::result_out_of_range) {
    const std::size_t leading = digits.find_first_not_of('0');
    const bool beyond = leading != std::string::npos && int(digits.size() - leading) + exponent > 0;
    value = beyond ? std::numeric_limits<double>::infinity() : 0.0;
  }
  return negative ? -value : value;
}

std::optional<Currency> DecimalText::toCurrency() const {
  constexpr std::size_t mostDigits = 19;
  std::string whole = digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
  if (whole.empty()) return Currency{};
  const long shift = long(exponent) + 4;
  if (long(whole.size()) + shift > long(mostDigits)) return std::nullopt;

  bool up = false;
  if (shift >= 0) {
    whole.append(shift, '0');
  } else if (const long kept = long(whole.size()) + shift; kept < 0) {
    return Currency{};
  } else {
    const std::string rest = whole.substr(kept);
    whole.resize(kept);
    const bool half = rest[0] == '5' && rest.find_first_not_of('0', 1) == std::string::npos;
    up = half ? !whole.empty() && (whole.back() - '0') % 2 == 1 : rest[0] >= '5';
  }

  const std::uint64_t magnitude = (whole.empty() ? 0 : std::stoull(whole)) + (up ? 1 : 0);
  const std::uint64_t most = std::uint64_t(std::numeric_limits<std::int64_t>::max()) + (negative ? 1 : 0);
  if (magnitude > most) return std::nullopt;
  return Currency{std::int64_t(negative ? 0 - magnitude : magnitude)};
}

std::optional<DecimalText> readDecimal(TextView text, std::size_t& at, NumberSigns signs) {
  DecimalText number;
  std::size_t next = at;
  for (; next < text.size(); ++next) {
    if (isDigit(text[next]))
      number.digits += char(text[next]);
    else if (number.digits.empty() || !signs.grouping || text[next] != signs.grouping)
      break;
  }
  if (next < text.size() && text[next] == signs.decimal) {
    for (++next; next < text.size() && isDigit(text[next]); ++next) {
      number.digits += char(text[next]);
      --number.exponent;
    }
  }
  if (number.digits.empty()) return std::nullopt;
  number.exponent += readExponent(text, next);
  at = next;
  return number;
}

std::optional<std::int32_t> readRadixNumber(TextView text, std::size_t& at) {
  if (text.size() < at + 3 || text[at] != u'&') return std::nullopt;
  const char16_t letter = text[at + 1];
  const bool hex = letter == u'H' || letter == u'h';
  if (!hex && letter != u'O' && letter != u'o') return std::nullopt;

  const int bits = hex ? 4 : 3;
  std::uint64_t value = 0;
  std::size_t next = at + 2;
  for (; next < text.size() && digitValue(text[next]) < (1 << bits); ++next) {
    value = (value << bits) | std::uint64_t(digitValue(text[next]));
    if (value > 0xFFFFFFFF) return std::nullopt;
  }
  if (next == at + 2) return std::nullopt;
  const bool asLong = next < text.size() && text[next] == u'&';
  at = next + (asLong ? 1 : 0);
  return value <= 0xFFFF && !asLong ? std::int32_t(std::int16_t(value)) : std::int32_t(std::uint32_t(value));
}

}  // namespace ovalia
