#include <gtest/gtest.h>

#include "platform/Variant.h"
#include "tests/platform/Show.h"

namespace ovalia {
namespace {

using test::failureOf;
using test::outcome;

ObjectRef withDefault(Variant value) {
  auto table = std::make_shared<MemberTable>();
  table->value(u"", std::move(value));
  return table;
}

struct Pair {
  Variant a, b;
  const char *equal, *less;
};

// clang-format off
const Pair comparisons[] = {
    {1, 1.0,                                        "Boolean true",  "Boolean false"},
    {std::uint8_t(3), std::int16_t(4),              "Boolean false", "Boolean true"},
    {true, std::int16_t(-1),                        "Boolean true",  "Boolean false"},
    {true, std::int16_t(1),                         "Boolean false", "Boolean true"},
    {false, std::int16_t(0),                        "Boolean true",  "Boolean false"},
    {Currency{15000}, 1.5,                          "Boolean true",  "Boolean false"},
    {Currency{INT64_MAX - 1}, Currency{INT64_MAX},  "Boolean false", "Boolean true"},
    {0.1F, 0.1,                                     "Boolean true",  "Boolean false"},
    {Date{38418}, 38418,                            "Boolean true",  "Boolean false"},
    {Date{38418}, Date{38418.25},                   "Boolean false", "Boolean true"},
    {Date{0}, std::int16_t(0),                      "Boolean true",  "Boolean false"},
    {u"a", u"a",                                    "Boolean true",  "Boolean false"},
    {u"a", u"A",                                    "Boolean false", "Boolean false"},
    {u"Z", u"a",                                    "Boolean false", "Boolean true"},
    {u"z", u"á",                                    "Boolean false", "Boolean true"},
    {u"Llaves", u"Llaves ",                         "Boolean false", "Boolean true"},
    {u"10", u"9",                                   "Boolean false", "Boolean true"},
    {u"1,50", 1.5,                                  "Boolean true",  "Boolean false"},
    {2, u"10",                                      "Boolean false", "Boolean true"},
    {u"abc", 1,                                     "!13",           "!13"},
    {1, u"",                                        "!13",           "!13"},
    {u"07/03/2005", Date{38418},                    "Boolean true",  "Boolean false"},
    {u"mañana", Date{38418},                        "!13",           "!13"},
    {u"Verdadero", true,                            "Boolean true",  "Boolean false"},
    {u"1", true,                                    "Boolean false", "Boolean false"},
    {u"-1", true,                                   "Boolean true",  "Boolean false"},
    {Variant(), Variant(),                          "Boolean true",  "Boolean false"},
    {Variant(), u"",                                "Boolean true",  "Boolean false"},
    {Variant(), u"a",                               "Boolean false", "Boolean true"},
    {Variant(), 0,                                  "Boolean true",  "Boolean false"},
    {Variant(), 5,                                  "Boolean false", "Boolean true"},
    {Null, Null,                                    "Null",          "Null"},
    {Null, 1,                                       "Null",          "Null"},
    {u"", Null,                                     "Null",          "Null"},
    {withDefault(5), 5,                             "Boolean true",  "Boolean false"},
    {withDefault(Null), 5,                          "Null",          "Null"},
    {ObjectRef(), 5,                                "!91",           "!91"},
};
// clang-format on

TEST(VariantComparison, goes_by_value_between_numbers_and_by_code_unit_between_texts) {
  for (const Pair& pair : comparisons) {
    SCOPED_TRACE(test::shown(pair.a) + " with " + test::shown(pair.b));
    EXPECT_EQ(outcome([&] { return compareEqual(pair.a, pair.b); }), pair.equal);
    EXPECT_EQ(outcome([&] { return compareEqual(pair.b, pair.a); }), pair.equal);
    EXPECT_EQ(outcome([&] { return compareLess(pair.a, pair.b); }), pair.less);
  }
}

TEST(VariantComparison, a_condition_on_an_unknown_outcome_is_not_met) {
  EXPECT_FALSE(compareEqual(Null, Null).holds());
  EXPECT_FALSE(compareLess(0, Null).holds());
  EXPECT_TRUE(compareEqual(1, 1).holds());
}

struct Sum {
  Variant a, b;
  const char* result;
};

// clang-format off
const Sum sums[] = {
    {std::uint8_t(200), std::uint8_t(55),           "Byte 255"},
    {std::uint8_t(200), std::uint8_t(56),           "Integer 256"},
    {std::int16_t(1), std::int16_t(2),              "Integer 3"},
    {std::int16_t(32767), std::int16_t(1),          "Long 32768"},
    {std::int16_t(1), 2,                            "Long 3"},
    {2147483647, 1,                                 "Double 2147483648"},
    {true, true,                                    "Integer -2"},
    {1.5F, std::int16_t(1),                         "Single 2.5"},
    {1.5F, 1,                                       "Double 2.5"},
    {1.5F, 1.0,                                     "Double 2.5"},
    {0x1p127F, 0x1p127F,                          "Double 3.402823669209385E+38"},
    {1e308, 1e308,                                  "!6"},
    {Currency{10001}, 1,                            "Currency 20001"},
    {Currency{10001}, 0.5,                          "Currency 15001"},
    {Currency{INT64_MAX}, Currency{1},              "!6"},
    {Date{38418}, 1,                                "Date 38419"},
    {1, Date{0.5},                                  "Date 1.5"},
    {Date{2958465}, 1,                              "!6"},
    {u"7", u"8",                                    "'78'"},
    {u"1,5", 1,                                     "Double 2.5"},
    {u"x", 1,                                       "!13"},
    {Variant(), Variant(),                          "Integer 0"},
    {Variant(), u"a",                               "'a'"},
    {2, Variant(),                                  "Long 2"},
    {Null, 1,                                       "Null"},
    {u"a", Null,                                    "Null"},
    {Null, Null,                                    "Null"},
    {withDefault(2), 3,                             "Long 5"},
    {ObjectRef(), 3,                                "!91"},
};
// clang-format on

TEST(VariantSum, takes_the_wider_type_spreads_null_and_joins_texts) {
  for (const Sum& sum : sums) {
    SCOPED_TRACE(test::shown(sum.a) + " + " + test::shown(sum.b));
    EXPECT_EQ(outcome([&] { return add(sum.a, sum.b); }), sum.result);
  }
}

TEST(VariantJoin, counts_null_and_empty_as_nothing) {
  EXPECT_EQ(join(u"a", Null, Variant(), u"b"), u"ab");
  EXPECT_EQ(join(), u"");
}

TEST(VariantJoin, writes_numbers_dates_and_booleans_by_the_regional_settings) {
  EXPECT_EQ(join(u"", 1.5, u" ", -3, u" ", true, u" ", Date{38418}, u" ", Currency{25000}),
            u"1,5 -3 Verdadero 07/03/2005 2,5");
}

TEST(VariantJoin, takes_the_default_member_of_an_object) {
  EXPECT_EQ(join(u"<", withDefault(u"Ibáñez"), withDefault(Null), u">"), u"<Ibáñez>");
  EXPECT_EQ(failureOf([] { join(u"<", ObjectRef()); }), 91);
}

struct Beginning {
  const char16_t* text;
  double number;
};

TEST(Val, reads_the_number_at_the_beginning_of_a_text) {
  const Beginning beginnings[] = {
      {u"", 0},        {u"abc", 0},         {u"12", 12},         {u"  12", 12},       {u"1 2 3", 123},
      {u"12abc", 12},  {u"1.5", 1.5},       {u"1,5", 1},         {u"-3", -3},         {u"- 3", -3},
      {u"+4", 4},      {u"1e2", 100},       {u"1E-2", 0.01},     {u"1d2", 100},       {u"1e", 1},
      {u"1 e 2", 100}, {u"2 días", 2},      {u"15 minutos", 15}, {u".5", .5},         {u"-.5x", -.5},
      {u"5.", 5},      {u"1.2.3", 1.2},     {u"&H10", 16},       {u"&h1F", 31},       {u"&O17", 15},
      {u"&HFFFF", -1}, {u"&HFFFF&", 65535}, {u"&H10000", 65536}, {u"&HFFFFFFFF", -1}, {u"&", 0},
      {u"&H", 0},      {u"-", 0},           {u".", 0},           {u"4073", 4073},     {u"\t7", 0},
      {u"1.000", 1},   {u"--1", 0},
  };
  for (const auto& [text, number] : beginnings) {
    SCOPED_TRACE(toUtf8(text));
    EXPECT_DOUBLE_EQ(val(text), number);
  }
}

TEST(Val, a_number_beyond_doubles_overflows) {
  EXPECT_EQ(failureOf([] { val(u"1e400"); }), 6);
  EXPECT_EQ(val(u"1e-400"), 0);
}

}  // namespace
}  // namespace ovalia
