#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <vector>

#include "platform/Failure.h"
#include "platform/Regional.h"

namespace ovalia {

namespace {

using std::chrono::sys_days;

constexpr sys_days dayZero = std::chrono::year(1899) / 12 / 30;
constexpr int firstYear = 100, lastYear = 9999;
constexpr int secondsPerDay = 86'400;

// The date part that stands for "no date", as a picker without one shows it.
constexpr TextView noDate = u"30-12-99";

Text padded(int number, std::size_t width) {
  const Text digits = toText(number);
  return Text(width - std::min(width, digits.size()), u'0') + digits;
}

bool isDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

// Runs of one to four digits and the single signs between them; nothing for any other text.
struct SplitNumbers {
  std::vector<Text> numbers;
  Text signs;
};

std::optional<SplitNumbers> splitNumbers(TextView text) {
  SplitNumbers split{{Text()}, {}};
  for (const char16_t c : text) {
    if (isDigit(c)) {
      split.numbers.back() += c;
    } else {
      split.signs += c;
      split.numbers.emplace_back();
    }
  }
  const bool sound = std::all_of(split.numbers.begin(), split.numbers.end(),
                                 [](const Text& run) { return !run.empty() && run.size() <= 4; });
  return sound ? std::optional(split) : std::nullopt;
}

int valueOf(const Text& digits) {
  int value = 0;
  for (const char16_t c : digits) value = value * 10 + (c - u'0');
  return value;
}

bool readDay(TextView text, const Regional& regional, DateParts& parts) {
  const auto split = splitNumbers(text);
  if (!split || split->numbers.size() < 2 || split->numbers.size() > 3) return false;
  const Text separators = Text(u"/-.") + regional.dateSeparator;
  const char16_t separator = split->signs[0];
  if (separators.find(separator) == Text::npos || split->signs.find_first_not_of(separator) != Text::npos)
    return false;

  std::vector<Text> numbers = split->numbers;
  if (numbers.size() == 3 && numbers[0].size() > 2) std::swap(numbers[0], numbers[2]);
  parts.year = numbers.size() == 2 ? regional.thisYear : valueOf(numbers[2]);
  if (numbers.size() == 3 && numbers[2].size() <= 2) parts.year = regional.fullYear(parts.year);

  parts.day = valueOf(numbers[0]);
  parts.month = valueOf(numbers[1]);
  if (!dateFrom(parts)) std::swap(parts.day, parts.month);
  return dateFrom(parts).has_value();
}

bool readTime(TextView text, const Regional& regional, DateParts& parts) {
  const auto split = splitNumbers(text);
  if (!split || split->numbers.size() < 2 || split->numbers.size() > 3) return false;
  for (const char16_t sign : split->signs)
    if (sign != u':' && sign != regional.timeSeparator) return false;
  for (const Text& number : split->numbers)
    if (number.size() > 2) return false;
  parts.hour = valueOf(split->numbers[0]);
  parts.minute = valueOf(split->numbers[1]);
  parts.second = split->numbers.size() == 3 ? valueOf(split->numbers[2]) : 0;
  return dateFrom(parts).has_value();
}

// The number that a run of one pattern letter stands for.
Text formatField(char16_t letter, std::size_t length, const DateParts& parts) {
  const std::size_t width = length > 1 ? 2 : 1;
  switch (letter) {
    case u'd':
      return padded(parts.day, width);
    case u'm':
      return padded(parts.month, width);
    case u'y':
      return length > 2 ? padded(parts.year, 4) : padded(parts.year % 100, 2);
    case u'h':
      return padded(parts.hour, width);
    case u'n':
      return padded(parts.minute, width);
    default:
      return padded(parts.second, width);
  }
}

}  // namespace

DateParts partsOf(Date date) {
  const double span = 3'000'000;
  if (!(std::fabs(date.days) < span)) throw Failure(failure::overflow);
  const double whole = std::trunc(date.days);
  int seconds = int(std::lround(std::fabs(date.days - whole) * secondsPerDay));
  int days = int(whole);
  if (seconds == secondsPerDay) {
    ++days;
    seconds = 0;
  }
  const std::chrono::year_month_day day(dayZero + std::chrono::days(days));
  return {int(day.year()), int(unsigned(day.month())), int(unsigned(day.day())),
          seconds / 3'600, seconds / 60 % 60,          seconds % 60};
}

std::optional<Date> dateFrom(const DateParts& parts) {
  if (parts.year < firstYear || parts.year > lastYear || parts.month < 1 || parts.day < 1)
    return std::nullopt;
  const auto day = std::chrono::year(parts.year) / parts.month / parts.day;
  const bool timeExists = parts.hour >= 0 && parts.hour < 24 && parts.minute >= 0 && parts.minute < 60 &&
                          parts.second >= 0 && parts.second < 60;
  if (parts.month > 12 || parts.day > 31 || !day.ok() || !timeExists) return std::nullopt;
  const int days = int((sys_days(day) - dayZero).count());
  const double time = (parts.hour * 3'600 + parts.minute * 60 + parts.second) / double(secondsPerDay);
  return Date{days < 0 ? days - time : days + time};
}

int Regional::fullYear(int twoDigits) const {
  const int last = std::max(thisYear + 20, 2029);
  const int year = last - last % 100 + twoDigits;
  return year > last ? year - 100 : year;
}

Text Regional::dateText(Date date) const {
  const DateParts parts = partsOf(date);
  const bool hasTime = parts.hour || parts.minute || parts.second;
  const bool hasDay = DateParts{parts.year, parts.month, parts.day} != DateParts{};
  Text text;
  if (hasDay) {
    text +=
        padded(parts.day, 2) + dateSeparator + padded(parts.month, 2) + dateSeparator + padded(parts.year, 4);
    if (hasTime) text += u' ';
  }
  if (hasTime || !hasDay)
    text += toText(parts.hour) + timeSeparator + padded(parts.minute, 2) + timeSeparator +
            padded(parts.second, 2);
  return text;
}

std::optional<Date> Regional::dateFromText(TextView text) const {
  const Text trimmed = trimBlanks(text);
  const std::size_t blank = std::min(trimmed.find(u' '), trimmed.size());
  const Text first = trimmed.substr(0, blank), second = trimBlanks(TextView(trimmed).substr(blank));
  DateParts parts;
  if (second.empty() && readTime(first, *this, parts)) return dateFrom(parts);
  if (first != noDate && !readDay(first, *this, parts)) return std::nullopt;
  if (!second.empty() && !readTime(second, *this, parts)) return std::nullopt;
  return dateFrom(parts);
}

Text formatDate(Date date, TextView pattern, const Regional& regional) {
  constexpr TextView letters = u"dmyhns";
  const DateParts parts = partsOf(date);
  Text text;
  char16_t before = 0;
  for (std::size_t at = 0; at < pattern.size();) {
    char16_t letter = lowerCase(pattern.substr(at, 1))[0];
    std::size_t end = at + 1;
    if (letters.find(letter) == TextView::npos) {
      text += pattern[at] == u'/'   ? regional.dateSeparator
              : pattern[at] == u':' ? regional.timeSeparator
                                    : pattern[at];
    } else {
      while (end < pattern.size() && lowerCase(pattern.substr(end, 1))[0] == letter) ++end;
      if (letter == u'm' && before == u'h') letter = u'n';
      text += formatField(letter, end - at, parts);
      before = letter;
    }
    at = end;
  }
  return text;
}

}  // namespace ovalia
