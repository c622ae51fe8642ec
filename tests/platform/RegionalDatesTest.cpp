#include <gtest/gtest.h>

#include <limits>

#include "platform/Regional.h"
#include "tests/platform/Show.h"

namespace ovalia {
namespace {

using test::failureOf;

Regional spanishIn(int year) {
  Regional regional;
  regional.thisYear = year;
  return regional;
}

const Regional spanish = spanishIn(2026);

Date moment(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
  return dateFrom({year, month, day, hour, minute, second}).value();
}

struct Days {
  DateParts parts;
  double days;
};

TEST(DateParts, count_days_from_the_day_zero_in_1899) {
  const Days table[] = {
      {{1899, 12, 30}, 0},        {{1899, 12, 31}, 1},         {{1900, 1, 1}, 2},
      {{1900, 3, 1}, 61},         {{2005, 3, 7}, 38418},       {{2005, 3, 7, 6}, 38418.25},
      {{2000, 2, 29}, 36585},     {{1899, 12, 30, 18}, 0.75},  {{1899, 12, 29}, -1},
      {{1899, 12, 29, 6}, -1.25}, {{1899, 12, 28, 18}, -2.75}, {{100, 1, 1}, -657434},
      {{9999, 12, 31}, 2958465},
  };
  for (const auto& [parts, days] : table) {
    EXPECT_EQ(dateFrom(parts), Date{days}) << days;
    EXPECT_EQ(partsOf(Date{days}), parts) << days;
  }
}

TEST(DateParts, every_second_of_a_day_comes_back_on_both_sides_of_day_zero) {
  for (const int year : {1850, 1899, 2026})
    for (int second = 0; second < 86400; second += 1) {
      const DateParts parts{year, 12, 30, second / 3600, second / 60 % 60, second % 60};
      ASSERT_EQ(partsOf(*dateFrom(parts)), parts);
    }
}

TEST(DateParts, a_negative_fraction_on_day_zero_counts_forwards) {
  EXPECT_EQ(partsOf(Date{-0.25}), (DateParts{1899, 12, 30, 6, 0, 0}));
}

TEST(DateParts, seconds_are_rounded_to_the_nearest_and_carry_into_the_next_day) {
  EXPECT_EQ(partsOf(Date{38418 + 0.4 / 86400}), (DateParts{2005, 3, 7}));
  EXPECT_EQ(partsOf(Date{38418 + 0.6 / 86400}), (DateParts{2005, 3, 7, 0, 0, 1}));
  EXPECT_EQ(partsOf(Date{38418 + 86399.7 / 86400}), (DateParts{2005, 3, 8}));
  EXPECT_EQ(partsOf(Date{-1 - 86399.7 / 86400}), (DateParts{1899, 12, 30}));
}

TEST(DateParts, parts_that_name_no_day_or_time_give_nothing) {
  for (const DateParts& parts :
       {DateParts{2005, 2, 29}, DateParts{2005, 2, 31}, DateParts{2005, 13, 1}, DateParts{2005, 0, 1},
        DateParts{2005, 1, 0}, DateParts{2005, 1, 32}, DateParts{2005, -1, 1}, DateParts{99, 1, 1},
        DateParts{10000, 1, 1}, DateParts{2005, 1, 1, 24}, DateParts{2005, 1, 1, -1},
        DateParts{2005, 1, 1, 0, 60}, DateParts{2005, 1, 1, 0, 0, 60}, DateParts{2005, 257, 1},
        DateParts{2005, 1, 257}})
    EXPECT_EQ(dateFrom(parts), std::nullopt) << parts.year << ' ' << parts.month << ' ' << parts.day;
}

TEST(DateParts, days_beyond_any_calendar_overflow) {
  EXPECT_EQ(failureOf([] { partsOf(Date{1e300}); }), 6);
  EXPECT_EQ(failureOf([] { partsOf(Date{-1e300}); }), 6);
  EXPECT_EQ(failureOf([] { partsOf(Date{std::numeric_limits<double>::quiet_NaN()}); }), 6);
}

struct Century {
  int thisYear, twoDigits, year;
};

TEST(FullYear, lies_in_the_hundred_years_that_end_twenty_years_ahead_and_never_before_2029) {
  const Century table[] = {
      {2025, 45, 2045}, {2025, 46, 1946}, {2026, 46, 2046}, {2026, 47, 1947}, {2026, 0, 2000},
      {2026, 99, 1999}, {2030, 30, 2030}, {2030, 50, 2050}, {2030, 51, 1951}, {2000, 29, 2029},
      {2000, 30, 1930}, {2009, 29, 2029}, {2009, 30, 1930}, {2010, 30, 2030}, {2010, 31, 1931},
      {2085, 5, 2105},  {2085, 6, 2006},  {2080, 0, 2100},  {2080, 1, 2001},  {1980, 29, 2029},
      {1980, 30, 1930},
  };
  for (const auto& [thisYear, twoDigits, year] : table)
    EXPECT_EQ(spanishIn(thisYear).fullYear(twoDigits), year) << thisYear << ' ' << twoDigits;
}

struct DateText {
  Date date;
  const char16_t* text;
};

TEST(DateText, a_whole_day_has_no_time_and_a_time_on_day_zero_no_date) {
  const DateText table[] = {
      {moment(2005, 3, 7, 9, 5), u"07/03/2005 9:05:00"},
      {moment(2005, 3, 7), u"07/03/2005"},
      {moment(1899, 12, 30, 9, 5), u"9:05:00"},
      {Date{0}, u"0:00:00"},
      {moment(2005, 3, 7, 0, 0, 1), u"07/03/2005 0:00:01"},
      {moment(1999, 12, 30), u"30/12/1999"},
      {moment(1999, 12, 30, 10), u"30/12/1999 10:00:00"},
      {moment(1899, 12, 29, 6), u"29/12/1899 6:00:00"},
      {moment(1899, 12, 31), u"31/12/1899"},
      {moment(100, 1, 1), u"01/01/0100"},
      {moment(9999, 12, 31, 23, 59, 59), u"31/12/9999 23:59:59"},
  };
  for (const auto& [date, text] : table) {
    EXPECT_EQ(spanish.dateText(date), text);
    EXPECT_EQ(spanish.dateFromText(text), date) << toUtf8(text);
  }
}

TEST(DateText, has_the_settings_separators) {
  Regional other = spanish;
  other.dateSeparator = u'.';
  other.timeSeparator = u'h';
  EXPECT_EQ(other.dateText(moment(2005, 3, 7, 9, 5)), u"07.03.2005 9h05h00");
  EXPECT_EQ(other.dateFromText(u"07.03.2005 9h05h00"), moment(2005, 3, 7, 9, 5));
}

TEST(DateText, a_fraction_that_rounds_to_midnight_is_the_next_whole_day) {
  EXPECT_EQ(spanish.dateText(Date{38418 + 86399.7 / 86400}), u"08/03/2005");
}

TEST(DateFromText, reads_day_first_with_any_of_the_separators) {
  const DateText table[] = {
      {moment(2005, 3, 7), u"7/3/2005"},
      {moment(2005, 3, 7), u"07-03-2005"},
      {moment(2005, 3, 7), u"07.03.2005"},
      {moment(2005, 3, 7), u"7/3/05"},
      {moment(2005, 3, 7), u"  07/03/05  "},
      {moment(2005, 3, 7, 9, 5), u"07/03/05 9:05"},
      {moment(2005, 3, 7, 9, 5), u"07/03/05   09:05:00"},
      {moment(2005, 3, 7), u"07/03/2005 0:00:00"},
      {moment(2026, 3, 7), u"7/3"},
      {moment(2005, 3, 7), u"2005-03-07"},
      {moment(2005, 12, 31), u"12/31/2005"},
      {moment(2005, 12, 11), u"11/12/2005"},
      {moment(1947, 5, 1), u"01/05/47"},
      {moment(2046, 5, 1), u"01/05/46"},
      {moment(2025, 5, 1), u"01/05/25"},
      {moment(2004, 2, 29), u"29/02/04"},
      {Date{0.75}, u"18:00"},
      {Date{0.75}, u"18:00:00"},
      {Date{0}, u"00:00:00"},
      {Date{0}, u"0:00"},
  };
  for (const auto& [date, text] : table) EXPECT_EQ(spanish.dateFromText(text), date) << toUtf8(text);
}

TEST(DateFromText, with_hyphens_30_12_99_is_day_zero) {
  EXPECT_EQ(spanish.dateFromText(u"30-12-99"), Date{0});
  EXPECT_EQ(spanish.dateFromText(u"30-12-99 00:00:00"), Date{0});
  EXPECT_EQ(spanish.dateFromText(u"30-12-99 0:00:00"), Date{0});
  EXPECT_EQ(spanish.dateFromText(u" 30-12-99 6:00 "), Date{0.25});
}

TEST(DateFromText, a_real_30_december_1999_is_itself) {
  EXPECT_EQ(spanish.dateFromText(u"30/12/99"), moment(1999, 12, 30));
  EXPECT_EQ(spanish.dateFromText(u"30.12.99"), moment(1999, 12, 30));
  EXPECT_EQ(spanish.dateFromText(u"30-12-1999"), moment(1999, 12, 30));
  EXPECT_EQ(spanish.dateFromText(u"30/12/99 10:00:00"), moment(1999, 12, 30, 10));
  EXPECT_EQ(spanish.dateFromText(u"29-12-99"), moment(1999, 12, 29));
  EXPECT_EQ(spanish.dateFromText(u"31-12-99"), moment(1999, 12, 31));
}

TEST(DateFromText, a_text_that_is_no_date_gives_nothing) {
  for (const TextView text : {u"",
                              u" ",
                              u"mañana",
                              u"7",
                              u"31/02/2005",
                              u"29/02/2005",
                              u"32/01/2005",
                              u"00/01/2005",
                              u"13/13/2005",
                              u"7/3/2005/1",
                              u"7/3-2005",
                              u"7//2005",
                              u"/3/2005",
                              u"7/3/",
                              u"7/3/20055",
                              u"07/03/2005 24:00",
                              u"07/03/2005 9",
                              u"07/03/2005 9:60",
                              u"07/03/2005 9:05:60",
                              u"07/03/2005 9:05:00:00",
                              u"07/03/2005x",
                              u"07/03/2005 mañana",
                              u"9:05 07/03/2005",
                              u"24:00",
                              u"9:5:",
                              u":05",
                              u"9:005",
                              u"-7/3/2005",
                              u"7 3 2005",
                              u"07/03/2005 9:05 1",
                              u"30-12-99x",
                              u"30-12-99 24:00",
                              u"1/1/99999999999999"})
    EXPECT_EQ(spanish.dateFromText(text), std::nullopt) << toUtf8(text);
}

struct Formatted {
  const char16_t *pattern, *text;
};

TEST(FormatDate, fills_patterns_without_regard_to_case) {
  const Date date = moment(2005, 3, 7, 9, 5, 8);
  const Formatted table[] = {
      {u"dd/MM/yy", u"07/03/05"},
      {u"dd/mm/yy", u"07/03/05"},
      {u"DD-MM-YY hh:mm:ss", u"07-03-05 09:05:08"},
      {u"hh:mm:ss", u"09:05:08"},
      {u"hh:mm", u"09:05"},
      {u"HH:MM", u"09:05"},
      {u"dd/mm/yy hh:mm", u"07/03/05 09:05"},
      {u"dd/mm/yy hh:mm:ss ", u"07/03/05 09:05:08 "},
      {u"mm/dd/yy hh:mm:ss", u"03/07/05 09:05:08"},
      {u"#mm/dd/yy hh:mm:ss#", u"#03/07/05 09:05:08#"},
      {u"d/m/yyyy", u"7/3/2005"},
      {u"h:m:s", u"9:5:8"},
      {u"hh:nn", u"09:05"},
      {u"nn", u"05"},
      {u"mm:ss", u"03:08"},
      {u"hh dd mm", u"09 07 03"},
      {u"ss mm", u"08 03"},
      {u"hhmmss", u"090508"},
      {u"", u""},
  };
  for (const auto& [pattern, text] : table)
    EXPECT_EQ(formatDate(date, pattern, spanish), text) << toUtf8(pattern);
}

TEST(FormatDate, day_zero_prints_as_30_12_99_at_midnight) {
  EXPECT_EQ(formatDate(Date{0}, u"DD-MM-YY hh:mm:ss", spanish), u"30-12-99 00:00:00");
  EXPECT_EQ(formatDate(moment(1999, 12, 30), u"DD-MM-YY hh:mm:ss", spanish), u"30-12-99 00:00:00");
}

TEST(FormatDate, hours_are_of_24_and_dates_before_day_zero_keep_their_time) {
  EXPECT_EQ(formatDate(moment(2005, 3, 7, 23, 45), u"hh:mm", spanish), u"23:45");
  EXPECT_EQ(formatDate(Date{-1.25}, u"dd/MM/yy hh:mm", spanish), u"29/12/99 06:00");
}

TEST(FormatDate, slashes_and_colons_are_the_settings_separators_and_hyphens_are_not) {
  Regional other;
  other.dateSeparator = u'.';
  other.timeSeparator = u'h';
  EXPECT_EQ(formatDate(moment(2005, 3, 7, 9, 5), u"dd/mm/yy dd-mm hh:mm", other), u"07.03.05 07-03 09h05");
}

}  // namespace
}  // namespace ovalia
