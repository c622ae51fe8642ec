#include "platform/Regional.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/platform/Show.h"

namespace ovalia {
namespace {

using test::failureOf;

const Regional spanish;

struct Written {
  double number;
  const char16_t* text;
};

TEST(NumberText, is_the_shortest_that_reads_back) {
  const Written numbers[] = {
      {0, u"0"},
      {-0.0, u"0"},
      {1, u"1"},
      {-1, u"-1"},
      {100, u"100"},
      {1.5, u"1,5"},
      {-0.25, u"-0,25"},
      {0.1, u"0,1"},
      {0.1 + 0.2, u"0,30000000000000004"},
      {166.386, u"166,386"},
      {1234567.89, u"1234567,89"},
      {0.0000001, u"0,0000001"},
      {0.00000001, u"1E-08"},
      {1.25e-10, u"1,25E-10"},
      {123456789012345, u"123456789012345"},
      {1e15, u"1E+15"},
      {-1.5e20, u"-1,5E+20"},
      {1e100, u"1E+100"},
  };
  for (const auto& [number, text] : numbers) {
    EXPECT_EQ(spanish.numberText(number), text) << number;
    EXPECT_EQ(spanish.numberFromText(text), number);
  }
}

TEST(NumberText, of_a_number_that_is_none_overflows) {
  EXPECT_EQ(failureOf([] { spanish.numberText(std::numeric_limits<double>::infinity()); }), 6);
  EXPECT_EQ(failureOf([] { spanish.numberText(std::nan("")); }), 6);
}

TEST(NumberText, of_an_amount_has_its_decimals_and_no_more) {
  EXPECT_EQ(spanish.numberText(Currency{0}), u"0");
  EXPECT_EQ(spanish.numberText(Currency{10000}), u"1");
  EXPECT_EQ(spanish.numberText(Currency{-12500}), u"-1,25");
  EXPECT_EQ(spanish.numberText(Currency{1}), u"0,0001");
  EXPECT_EQ(spanish.numberText(Currency{-1}), u"-0,0001");
  EXPECT_EQ(spanish.numberText(Currency{1201200000}), u"120120");
}

TEST(NumberFromText, reads_what_counts_as_a_number) {
  const Written numbers[] = {
      {1.5, u"1,5"},    {100, u"1e2"},   {100, u"1E+2"},       {0.015, u"1,5d-2"},
      {16, u"&H10"},    {12, u" 12 "},   {12, u"\t12\t"},      {-3, u"-3"},
      {-3, u" - 3"},    {4, u"+4"},      {.5, u",5"},          {5, u"5,"},
      {1234, u"1.234"}, {15, u"1.5"},    {1234.5, u"1.234,5"}, {1234567, u"1.234.567"},
      {7, u"007"},      {-1, u"&HFFFF"}, {65535, u"&HFFFF&"},  {-16, u"-&H10"},
      {8, u"&o10"},     {0, u"1e-400"},
  };
  for (const auto& [number, text] : numbers) EXPECT_EQ(spanish.numberFromText(text), number) << toUtf8(text);
}

TEST(NumberFromText, refuses_everything_else) {
  for (const TextView text :
       {u"",           u" ",     u"abc",       u"12a",  u"1 2",   u"1e",          u"e2",
        u",",          u".",     u"-",         u"--1",  u"1,2,3", u"1,5.0",       u".5",
        u"1-",         u"&H",    u"&HG",       u"&H1G", u"&O8",   u"&H1FFFFFFFF", u"1,5e2,5",
        u"07/03/2005", u"10:00", u"Verdadero", u"12€",  u"NaN",   u"inf",         u"0x10"})
    EXPECT_EQ(spanish.numberFromText(text), std::nullopt) << toUtf8(text);
}

TEST(NumberFromText, beyond_doubles_is_infinite) {
  EXPECT_EQ(spanish.numberFromText(u"1e400"), std::numeric_limits<double>::infinity());
  EXPECT_EQ(spanish.numberFromText(u"-1e99999999999"), -std::numeric_limits<double>::infinity());
  EXPECT_EQ(spanish.numberFromText(u"0e99999999999"), 0);
}

TEST(NumberFromText, goes_by_the_settings) {
  Regional english;
  english.decimal = u'.';
  english.grouping = u',';
  EXPECT_EQ(english.numberFromText(u"1,234.5"), 1234.5);
  EXPECT_EQ(english.numberText(1234.5), u"1234.5");
  EXPECT_EQ(english.numberText(Currency{15000}), u"1.5");
}

TEST(AmountFromText, is_exact_to_the_fourth_decimal) {
  EXPECT_EQ(spanish.amountFromText(u"922337203685477,5807"), Currency{INT64_MAX});
  EXPECT_EQ(spanish.amountFromText(u"-922337203685477,5808"), Currency{INT64_MIN});
  EXPECT_EQ(spanish.amountFromText(u"120.120,05"), Currency{1201200500});
  EXPECT_EQ(spanish.amountFromText(u"1,23445"), Currency{12344});
  EXPECT_EQ(spanish.amountFromText(u"1,23455"), Currency{12346});
  EXPECT_EQ(spanish.amountFromText(u"1,234450000000000000000001"), Currency{12345});
  EXPECT_EQ(spanish.amountFromText(u"0,00001"), Currency{0});
  EXPECT_EQ(spanish.amountFromText(u"0,00009"), Currency{1});
  EXPECT_EQ(spanish.amountFromText(u"0,0000099"), Currency{0});
  EXPECT_EQ(spanish.amountFromText(u"1e3"), Currency{10000000});
  EXPECT_EQ(spanish.amountFromText(u"&H10"), Currency{160000});
  EXPECT_EQ(spanish.amountFromText(u"0"), Currency{0});
  EXPECT_EQ(spanish.amountFromText(u"mil"), std::nullopt);
}

TEST(AmountFromText, beyond_the_range_of_amounts_overflows) {
  for (const TextView text : {u"922337203685477,5808", u"-922337203685477,5809", u"1e15", u"1e400"})
    EXPECT_EQ(failureOf([&] { spanish.amountFromText(text); }), 6) << toUtf8(text);
}

TEST(FormatGrouped, has_no_decimals_and_groups_thousands) {
  EXPECT_EQ(formatGrouped(0, spanish), u"0");
  EXPECT_EQ(formatGrouped(999, spanish), u"999");
  EXPECT_EQ(formatGrouped(1000, spanish), u"1.000");
  EXPECT_EQ(formatGrouped(166386, spanish), u"166.386");
  EXPECT_EQ(formatGrouped(1234567.4, spanish), u"1.234.567");
  EXPECT_EQ(formatGrouped(-1234567, spanish), u"-1.234.567");
  EXPECT_EQ(formatGrouped(1e15, spanish), u"1.000.000.000.000.000");
}

TEST(FormatGrouped, rounds_half_away_from_zero) {
  EXPECT_EQ(formatGrouped(0.5, spanish), u"1");
  EXPECT_EQ(formatGrouped(2.5, spanish), u"3");
  EXPECT_EQ(formatGrouped(-2.5, spanish), u"-3");
  EXPECT_EQ(formatGrouped(2.49, spanish), u"2");
  EXPECT_EQ(formatGrouped(999.5, spanish), u"1.000");
  EXPECT_EQ(formatGrouped(-0.4, spanish), u"0");
}

TEST(FormatGrouped, takes_the_settings_grouping_and_refuses_what_is_no_number) {
  Regional english;
  english.grouping = u',';
  EXPECT_EQ(formatGrouped(1234, english), u"1,234");
  EXPECT_EQ(failureOf([] { formatGrouped(std::nan(""), spanish); }), 6);
}

}  // namespace
}  // namespace ovalia
