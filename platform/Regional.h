#pragma once

#include <optional>

#include "platform/Text.h"
#include "platform/Variant.h"

namespace ovalia {

// A date taken apart, in the proleptic Gregorian calendar; the time in whole seconds.
struct DateParts {
  int year = 1899, month = 12, day = 30;
  int hour = 0, minute = 0, second = 0;
  friend bool operator==(const DateParts&, const DateParts&) = default;
};

// Days below zero count their time of day forwards too, as the classic date type does: -1.25 is six in the
// morning of the day before day zero. Seconds are rounded to the nearest whole one.
DateParts partsOf(Date date);

// Nothing when the parts name no day or time (31 February, hour 24). Years 100 to 9999.
std::optional<Date> dateFrom(const DateParts& parts);

// The regional settings by which numbers and dates become text and back. Spanish unless a field is changed.
struct Regional {
  char16_t dateSeparator = u'/';
  char16_t timeSeparator = u':';
  char16_t decimal = u',';
  char16_t grouping = u'.';
  Text trueWord = u"Verdadero";
  Text falseWord = u"Falso";
  int thisYear = 2025;  // of the platform's clock; decides the century of two-digit years

  // The full year of a two-digit one: of the hundred years that end twenty years after `thisYear`, and never
  // before 2029.
  int fullYear(int twoDigits) const;

  // "dd/MM/yyyy H:mm:ss"; a whole day has no time in its text, a time on day zero no date.
  Text dateText(Date date) const;

  // Day first; separators "/", "-", "."; the time is optional, a time alone is on day zero. The date part
  // "30-12-99" with hyphens is day zero. Nothing when the text is no date. Where day-month order names no
  // date and month-day does, it is month-day.
  std::optional<Date> dateFromText(TextView text) const;

  // Shortest text that reads back, decimal comma, no grouping.
  Text numberText(double number) const;
  Text numberText(Currency amount) const;

  // Regional decimal sign and grouping, surrounding blanks, exponent, &H and &O; nothing when it is no
  // number. Grouping signs are passed over wherever they stand among the whole digits: "1.5" is fifteen in
  // Spanish. A number beyond the range of doubles comes out infinite.
  std::optional<double> numberFromText(TextView text) const;

  // The same to the exact amount, half to even at the fourth decimal; failure 6 beyond the range of amounts.
  std::optional<Currency> amountFromText(TextView text) const;
};

// Format(date, pattern) for patterns of d, M/m, y, h, n, s runs in either case ("m" right after hours is
// minutes): "dd/MM/yy", "hh:mm:ss", "DD-MM-YY hh:mm:ss". "/" and ":" give the regional separators, any other
// character itself.
Text formatDate(Date date, TextView pattern, const Regional& regional);

// Format(number, "#,0"): no decimals, half away from zero, grouped in thousands.
Text formatGrouped(double number, const Regional& regional);

}  // namespace ovalia
