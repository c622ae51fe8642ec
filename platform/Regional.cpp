#include "platform/Regional.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "platform/Failure.h"
#include "platform/NumberText.h"

namespace ovalia {

namespace {

// Below, and from this many digits before the decimal sign on, a number is written with an exponent.
constexpr int leastPlainExponent = -7;
constexpr int mostPlainDigits = 15;

// The shortest digits that read back, "d.ddde[+-]xx" taken apart.
struct Scientific {
  bool negative;
  std::string digits;
  int exponent;  // of the first digit
};

Scientific shortestDigits(double number) {
  char written[40];
  const auto end =
      std::to_chars(written, written + sizeof written, number, std::chars_format::scientific).ptr;
  const std::string all(written, end);
  const std::size_t letter = all.find('e');
  Scientific taken{all[0] == '-', {}, std::stoi(all.substr(letter + 1))};
  std::copy_if(all.begin(), all.begin() + letter, std::back_inserter(taken.digits),
               [](char c) { return c >= '0' && c <= '9'; });
  return taken;
}

Text widened(const std::string& digits) { return Text(digits.begin(), digits.end()); }

Text withExponent(const Scientific& number, char16_t decimal) {
  Text text = widened(number.digits.substr(0, 1));
  if (number.digits.size() > 1) text += decimal + widened(number.digits.substr(1));
  const Text size = toText(std::abs(number.exponent));
  return text + (number.exponent < 0 ? u"E-" : u"E+") + (size.size() < 2 ? u"0" : u"") + size;
}

Text plain(const Scientific& number, char16_t decimal) {
  const int before = number.exponent + 1;
  const int count = int(number.digits.size());
  if (before <= 0) return Text(u"0") + decimal + Text(-before, u'0') + widened(number.digits);
  if (before >= count) return widened(number.digits) + Text(before - count, u'0');
  return widened(number.digits.substr(0, before)) + decimal + widened(number.digits.substr(before));
}

// Where a number's text stands between surrounding blanks and behind its sign.
struct SignedText {
  bool negative;
  TextView rest;
};

SignedText takeSign(TextView text) {
  const auto cutBlanks = [&] { text.remove_prefix(std::min(text.find_first_not_of(u" \t"), text.size())); };
  cutBlanks();
  while (!text.empty() && (text.back() == u' ' || text.back() == u'\t')) text.remove_suffix(1);
  const bool negative = !text.empty() && text[0] == u'-';
  if (negative || (!text.empty() && text[0] == u'+')) {
    text.remove_prefix(1);
    cutBlanks();
  }
  return {negative, text};
}

std::optional<DecimalText> wholeDecimal(TextView text, const Regional& regional) {
  const SignedText taken = takeSign(text);
  std::size_t at = 0;
  auto number = readDecimal(taken.rest, at, {regional.decimal, regional.grouping});
  if (!number || at != taken.rest.size()) return std::nullopt;
  number->negative = taken.negative;
  return number;
}

std::optional<double> wholeRadixNumber(TextView text) {
  const SignedText taken = takeSign(text);
  std::size_t at = 0;
  const auto number = readRadixNumber(taken.rest, at);
  if (!number || at != taken.rest.size()) return std::nullopt;
  return taken.negative ? -double(*number) : double(*number);
}

}  // namespace

Text Regional::numberText(double number) const {
  if (number == 0) return u"0";
  if (!std::isfinite(number)) throw Failure(failure::overflow);
  const Scientific taken = shortestDigits(number);
  const bool needsExponent = taken.exponent < leastPlainExponent || taken.exponent >= mostPlainDigits;
  return (taken.negative ? u"-" : u"") +
         (needsExponent ? withExponent(taken, decimal) : plain(taken, decimal));
}

Text Regional::numberText(Currency amount) const {
  const bool negative = amount.tenThousandths < 0;
  const std::uint64_t magnitude =
      negative ? 0 - std::uint64_t(amount.tenThousandths) : std::uint64_t(amount.tenThousandths);
  Text text = (negative ? u"-" : u"") + toText(std::int64_t(magnitude / 10'000));
  std::string decimals = std::to_string(10'000 + magnitude % 10'000).substr(1);
  decimals.erase(decimals.find_last_not_of('0') + 1);
  return decimals.empty() ? text : text + this->decimal + widened(decimals);
}

std::optional<double> Regional::numberFromText(TextView text) const {
  if (const auto number = wholeDecimal(text, *this)) return number->toDouble();
  return wholeRadixNumber(text);
}

std::optional<Currency> Regional::amountFromText(TextView text) const {
  constexpr double perUnit = 10'000;
  if (const auto number = wholeDecimal(text, *this)) {
    if (const auto amount = number->toCurrency()) return amount;
    throw Failure(failure::overflow);
  }
  const auto number = wholeRadixNumber(text);
  return number ? std::optional(Currency{std::int64_t(*number * perUnit)}) : std::nullopt;
}

Text formatGrouped(double number, const Regional& regional) {
  const double rounded = std::round(number);
  if (!std::isfinite(rounded)) throw Failure(failure::overflow);
  char written[400];
  const auto end =
      std::to_chars(written, written + sizeof written, std::fabs(rounded), std::chars_format::fixed, 0).ptr;
  const std::string digits(written, end);
  Text text;
  if (rounded < 0) text += u'-';
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % 3 == 0) text += regional.grouping;
    text += char16_t(digits[i]);
  }
  return text;
}

}  // namespace ovalia
