#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "platform/Platform.h"
#include "platform/Variant.h"
#include "tests/platform/Show.h"

namespace ovalia {
namespace {

using test::outcome;

// What reading a value in each way gives; "!6" is failure 6. Numbers are written with a point, amounts in
// ten-thousandths, dates in days, texts between quotes.
struct Conversions {
  const char* name;
  Variant value;
  const char *boolean, *byte, *integer, *long_, *double_, *currency, *date, *text, *joined;
  const char *numeric, *holds, *object;
};

ObjectRef withDefault(Variant value) {
  auto table = std::make_shared<MemberTable>();
  table->value(u"", std::move(value));
  return table;
}

// Its default member is itself.
struct Endless : Object, std::enable_shared_from_this<Endless> {
  Variant get(TextView, Arguments) override { return Variant(shared_from_this()); }
  void put(TextView, const Variant&, Arguments) override {}
  Variant call(TextView, Arguments) override { return {}; }
};

constexpr std::int64_t mostAmount = std::numeric_limits<std::int64_t>::max();

// clang-format off
const Conversions table[] = {
// name                value                        Boolean  Byte   Integer   Long           Double                  Currency                 Date              CStr                      &                         IsNumeric If       Object
{"empty",              Variant(),                   "false", "0",   "0",      "0",           "0",                    "0",                     "0",              "''",                     "''",                     "true",  "false", "!13"},
{"null",               Null,                        "!94",   "!94", "!94",    "!94",         "!94",                  "!94",                   "!94",            "!94",                    "''",                     "false", "false", "!13"},
{"true",               true,                        "true",  "255", "-1",     "-1",          "-1",                   "-10000",                "-1",             "'Verdadero'",            "'Verdadero'",            "true",  "true",  "!13"},
{"false",              false,                       "false", "0",   "0",      "0",           "0",                    "0",                     "0",              "'Falso'",                "'Falso'",                "true",  "false", "!13"},
{"byte",               std::uint8_t(200),           "true",  "200", "200",    "200",         "200",                  "2000000",               "200",            "'200'",                  "'200'",                  "true",  "true",  "!13"},
{"integer_below_zero", std::int16_t(-3),            "true",  "!6",  "-3",     "-3",          "-3",                   "-30000",                "-3",             "'-3'",                   "'-3'",                   "true",  "true",  "!13"},
{"integer_over_byte",  std::int16_t(256),           "true",  "!6",  "256",    "256",         "256",                  "2560000",               "256",            "'256'",                  "'256'",                  "true",  "true",  "!13"},
{"long_over_integer",  32768,                       "true",  "!6",  "!6",     "32768",       "32768",                "327680000",             "32768",          "'32768'",                "'32768'",                "true",  "true",  "!13"},
{"long_under_integer", -32769,                      "true",  "!6",  "!6",     "-32769",      "-32769",               "-327690000",            "-32769",         "'-32769'",               "'-32769'",               "true",  "true",  "!13"},
{"long_last_date",     2958465,                     "true",  "!6",  "!6",     "2958465",     "2958465",              "29584650000",           "2958465",        "'2958465'",              "'2958465'",              "true",  "true",  "!13"},
{"long_past_dates",    2958466,                     "true",  "!6",  "!6",     "2958466",     "2958466",              "29584660000",           "!6",             "'2958466'",              "'2958466'",              "true",  "true",  "!13"},
{"long_first_date",    -657434,                     "true",  "!6",  "!6",     "-657434",     "-657434",              "-6574340000",           "-657434",        "'-657434'",              "'-657434'",              "true",  "true",  "!13"},
{"long_before_dates",  -657435,                     "true",  "!6",  "!6",     "-657435",     "-657435",              "-6574350000",           "!6",             "'-657435'",              "'-657435'",              "true",  "true",  "!13"},
{"long_smallest",      std::int32_t(-2147483647-1), "true",  "!6",  "!6",     "-2147483648", "-2147483648",          "-21474836480000",       "!6",             "'-2147483648'",          "'-2147483648'",          "true",  "true",  "!13"},
{"single_half",        2.5F,                        "true",  "2",   "2",      "2",           "2.5",                  "25000",                 "2.5",            "'2,5'",                  "'2,5'",                  "true",  "true",  "!13"},
{"single_tenth",       0.1F,                        "true",  "0",   "0",      "0",           "0.10000000149011612",  "1000",                  "0.10000000149011612", "'0,1'",             "'0,1'",                  "true",  "true",  "!13"},
{"double_zero",        0.0,                         "false", "0",   "0",      "0",           "0",                    "0",                     "0",              "'0'",                    "'0'",                    "true",  "false", "!13"},
{"double_half",        0.5,                         "true",  "0",   "0",      "0",           "0.5",                  "5000",                  "0.5",            "'0,5'",                  "'0,5'",                  "true",  "true",  "!13"},
{"double_half_odd",    1.5,                         "true",  "2",   "2",      "2",           "1.5",                  "15000",                 "1.5",            "'1,5'",                  "'1,5'",                  "true",  "true",  "!13"},
{"double_half_even",   2.5,                         "true",  "2",   "2",      "2",           "2.5",                  "25000",                 "2.5",            "'2,5'",                  "'2,5'",                  "true",  "true",  "!13"},
{"double_half_below",  -2.5,                        "true",  "!6",  "-2",     "-2",          "-2.5",                 "-25000",                "-2.5",           "'-2,5'",                 "'-2,5'",                 "true",  "true",  "!13"},
{"double_minus_half",  -0.5,                        "true",  "0",   "0",      "0",           "-0.5",                 "-5000",                 "-0.5",           "'-0,5'",                 "'-0,5'",                 "true",  "true",  "!13"},
{"double_byte_edge",   255.5,                       "true",  "!6",  "256",    "256",         "255.5",                "2555000",               "255.5",          "'255,5'",                "'255,5'",                "true",  "true",  "!13"},
{"double_byte_inside", 255.25,                      "true",  "255", "255",    "255",         "255.25",               "2552500",               "255.25",         "'255,25'",               "'255,25'",               "true",  "true",  "!13"},
{"double_long_edge",   2147483647.5,                "true",  "!6",  "!6",     "!6",          "2147483647.5",         "21474836475000",        "!6",             "'2147483647,5'",         "'2147483647,5'",         "true",  "true",  "!13"},
{"double_large",       1e15,                        "true",  "!6",  "!6",     "!6",          "1E+15",                "!6",                    "!6",             "'1E+15'",                "'1E+15'",                "true",  "true",  "!13"},
{"double_past_amounts",1e300,                       "true",  "!6",  "!6",     "!6",          "1E+300",               "!6",                    "!6",             "'1E+300'",               "'1E+300'",               "true",  "true",  "!13"},
{"double_small",       1e-9,                        "true",  "0",   "0",      "0",           "1E-09",                "0",                     "1E-09",          "'1E-09'",                "'1E-09'",                "true",  "true",  "!13"},
{"amount",             Currency{123456},            "true",  "12",  "12",     "12",          "12.3456",              "123456",                "12.3456",        "'12,3456'",              "'12,3456'",              "true",  "true",  "!13"},
{"amount_half_even",   Currency{25000},             "true",  "2",   "2",      "2",           "2.5",                  "25000",                 "2.5",            "'2,5'",                  "'2,5'",                  "true",  "true",  "!13"},
{"amount_half_odd",    Currency{-35000},            "true",  "!6",  "-4",     "-4",          "-3.5",                 "-35000",                "-3.5",           "'-3,5'",                 "'-3,5'",                 "true",  "true",  "!13"},
{"amount_above_half",  Currency{25001},             "true",  "3",   "3",      "3",           "2.5001",               "25001",                 "2.5001",         "'2,5001'",               "'2,5001'",               "true",  "true",  "!13"},
{"amount_largest",     Currency{mostAmount},        "true",  "!6",  "!6",     "!6",          "922337203685477.6",    "9223372036854775807",   "!6",             "'922337203685477,5807'", "'922337203685477,5807'", "true",  "true",  "!13"},
{"amount_smallest",    Currency{-mostAmount - 1},   "true",  "!6",  "!6",     "!6",          "-922337203685477.6",   "-9223372036854775808",  "!6",             "'-922337203685477,5808'","'-922337203685477,5808'","true",  "true",  "!13"},
{"amount_cents",       Currency{-500},              "true",  "0",   "0",      "0",           "-0.05",                "-500",                  "-0.05",          "'-0,05'",                "'-0,05'",                "true",  "true",  "!13"},
{"day_zero",           Date{0},                     "false", "0",   "0",      "0",           "0",                    "0",                     "0",              "'0:00:00'",              "'0:00:00'",              "false", "false", "!13"},
{"time_of_day",        Date{0.5},                   "true",  "0",   "0",      "0",           "0.5",                  "5000",                  "0.5",            "'12:00:00'",             "'12:00:00'",             "false", "true",  "!13"},
{"whole_day",          Date{38418},                 "true",  "!6",  "!6",     "38418",       "38418",                "384180000",             "38418",          "'07/03/2005'",           "'07/03/2005'",           "false", "true",  "!13"},
{"day_and_time",       Date{38418.25},              "true",  "!6",  "!6",     "38418",       "38418.25",             "384182500",             "38418.25",       "'07/03/2005 6:00:00'",   "'07/03/2005 6:00:00'",   "false", "true",  "!13"},
{"empty_text",         u"",                         "!13",   "!13", "!13",    "!13",         "!13",                  "!13",                   "!13",            "''",                     "''",                     "false", "!13",   "!13"},
{"blank_text",         u" ",                        "!13",   "!13", "!13",    "!13",         "!13",                  "!13",                   "!13",            "' '",                    "' '",                    "false", "!13",   "!13"},
{"word",               u"mañana",                   "!13",   "!13", "!13",    "!13",         "!13",                  "!13",                   "!13",            "'mañana'",               "'mañana'",               "false", "!13",   "!13"},
{"text_of_number",     u"12",                       "true",  "12",  "12",     "12",          "12",                   "120000",                "12",             "'12'",                   "'12'",                   "true",  "true",  "!13"},
{"text_of_zero",       u"0",                        "false", "0",   "0",      "0",           "0",                    "0",                     "0",              "'0'",                    "'0'",                    "true",  "false", "!13"},
{"decimal_comma",      u"1,5",                      "true",  "2",   "2",      "2",           "1.5",                  "15000",                 "1.5",            "'1,5'",                  "'1,5'",                  "true",  "true",  "!13"},
{"blanks_around",      u" 12 ",                     "true",  "12",  "12",     "12",          "12",                   "120000",                "12",             "' 12 '",                 "' 12 '",                 "true",  "true",  "!13"},
{"exponent",           u"1e2",                      "true",  "100", "100",    "100",         "100",                  "1000000",               "100",            "'1e2'",                  "'1e2'",                  "true",  "true",  "!13"},
{"hexadecimal",        u"&H10",                     "true",  "16",  "16",     "16",          "16",                   "160000",                "16",             "'&H10'",                 "'&H10'",                 "true",  "true",  "!13"},
{"octal",              u"&o17",                     "true",  "15",  "15",     "15",          "15",                   "150000",                "15",             "'&o17'",                 "'&o17'",                 "true",  "true",  "!13"},
{"grouped",            u"1.234,5",                  "true",  "!6",  "1234",   "1234",        "1234.5",               "12345000",              "1234.5",         "'1.234,5'",              "'1.234,5'",              "true",  "true",  "!13"},
{"text_over_byte",     u"256",                      "true",  "!6",  "256",    "256",         "256",                  "2560000",               "256",            "'256'",                  "'256'",                  "true",  "true",  "!13"},
{"text_below_zero",    u"-1",                       "true",  "!6",  "-1",     "-1",          "-1",                   "-10000",                "-1",             "'-1'",                   "'-1'",                   "true",  "true",  "!13"},
{"text_over_integer",  u"32768",                    "true",  "!6",  "!6",     "32768",       "32768",                "327680000",             "32768",          "'32768'",                "'32768'",                "true",  "true",  "!13"},
{"text_over_long",     u"2147483648",               "true",  "!6",  "!6",     "!6",          "2147483648",           "21474836480000",        "!6",             "'2147483648'",           "'2147483648'",           "true",  "true",  "!13"},
{"text_past_doubles",  u"1e400",                    "!6",    "!6",  "!6",     "!6",          "!6",                   "!6",                    "!6",             "'1e400'",                "'1e400'",                "true",  "!6",    "!13"},
{"text_exact_amount",  u"922337203685477,5807",     "true",  "!6",  "!6",     "!6",          "922337203685477.6",    "9223372036854775807",   "!6",             "'922337203685477,5807'", "'922337203685477,5807'", "true",  "true",  "!13"},
{"text_of_date",       u"07/03/2005",               "!13",   "!13", "!13",    "!13",         "!13",                  "!13",                   "38418",          "'07/03/2005'",           "'07/03/2005'",           "false", "!13",   "!13"},
{"text_of_moment",     u"07/03/2005 6:00:00",       "!13",   "!13", "!13",    "!13",         "!13",                  "!13",                   "38418.25",       "'07/03/2005 6:00:00'",   "'07/03/2005 6:00:00'",   "false", "!13",   "!13"},
{"text_of_time",       u"18:00",                    "!13",   "!13", "!13",    "!13",         "!13",                  "!13",                   "0.75",           "'18:00'",                "'18:00'",                "false", "!13",   "!13"},
{"text_of_no_date",    u"30-12-99",                 "!13",   "!13", "!13",    "!13",         "!13",                  "!13",                   "0",              "'30-12-99'",             "'30-12-99'",             "false", "!13",   "!13"},
{"spanish_true",       u"verdadero",                "true",  "!13", "!13",    "!13",         "!13",                  "!13",                   "!13",            "'verdadero'",            "'verdadero'",            "false", "true",  "!13"},
{"spanish_false",      u"Falso",                    "false", "!13", "!13",    "!13",         "!13",                  "!13",                   "!13",            "'Falso'",                "'Falso'",                "false", "false", "!13"},
{"english_true",       u"True",                     "true",  "!13", "!13",    "!13",         "!13",                  "!13",                   "!13",            "'True'",                 "'True'",                 "false", "true",  "!13"},
{"english_false",      u"false",                    "false", "!13", "!13",    "!13",         "!13",                  "!13",                   "!13",            "'false'",                "'false'",                "false", "false", "!13"},
{"object_with_number", withDefault(std::int16_t(7)),"true",  "7",   "7",      "7",           "7",                    "70000",                 "7",              "'7'",                    "'7'",                    "true",  "true",  "object"},
{"object_with_amount", withDefault(Currency{15000}),"true",  "2",   "2",      "2",           "1.5",                  "15000",                 "1.5",            "'1,5'",                  "'1,5'",                  "true",  "true",  "object"},
{"object_with_null",   withDefault(Null),           "!94",   "!94", "!94",    "!94",         "!94",                  "!94",                   "!94",            "!94",                    "''",                     "false", "false", "object"},
{"object_of_object",   withDefault(withDefault(u"5")), "true", "5", "5",      "5",           "5",                    "50000",                 "5",              "'5'",                    "'5'",                    "true",  "true",  "object"},
{"object_without",     ObjectRef(std::make_shared<MemberTable>()), "!438", "!438", "!438", "!438", "!438",           "!438",                  "!438",           "!438",                   "!438",                   "!438",  "!438",  "object"},
{"object_of_itself",   ObjectRef(std::make_shared<Endless>()), "!13", "!13", "!13", "!13",   "!13",                  "!13",                   "!13",            "!13",                    "!13",                    "!13",   "!13",   "object"},
{"nothing",            ObjectRef(),                 "!91",   "!91", "!91",    "!91",         "!91",                  "!91",                   "!91",            "!91",                    "!91",                    "false", "!91",   "nothing"},
};
// clang-format on

class VariantConversions : public testing::TestWithParam<Conversions> {};

TEST_P(VariantConversions, give_the_value_or_the_failure_of_the_table) {
  const Conversions& row = GetParam();
  const Variant& value = row.value;
  EXPECT_EQ(outcome([&] { return value.toBoolean(); }), row.boolean);
  EXPECT_EQ(outcome([&] { return std::int32_t(value.toByte()); }), row.byte);
  EXPECT_EQ(outcome([&] { return std::int32_t(value.toInteger()); }), row.integer);
  EXPECT_EQ(outcome([&] { return value.toLong(); }), row.long_);
  EXPECT_EQ(outcome([&] { return value.toDouble(); }), row.double_);
  EXPECT_EQ(outcome([&] { return value.toCurrency(); }), row.currency);
  EXPECT_EQ(outcome([&] { return value.toDate(); }), row.date);
  EXPECT_EQ(outcome([&] { return value.toText(); }), row.text);
  EXPECT_EQ(outcome([&] { return value.text(); }), row.joined);
  EXPECT_EQ(outcome([&] { return value.isNumeric(); }), row.numeric);
  EXPECT_EQ(outcome([&] { return value.holds(); }), row.holds);
  EXPECT_EQ(outcome([&] { return value.toObject(); }), row.object);
}

INSTANTIATE_TEST_SUITE_P(Each, VariantConversions, testing::ValuesIn(table),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(VariantConversions, the_table_has_every_type) {
  for (const VarType type :
       {VarType::Empty, VarType::Null, VarType::Integer, VarType::Long, VarType::Single, VarType::Double,
        VarType::Currency, VarType::Date, VarType::Text, VarType::Object, VarType::Boolean, VarType::Byte})
    EXPECT_TRUE(std::any_of(std::begin(table), std::end(table), [=](const Conversions& row) {
      return row.value.type() == type;
    })) << int(type);
}

TEST(VariantConversions, type_numbers_are_those_of_the_classic_runtime) {
  EXPECT_EQ(int(Variant().type()), 0);
  EXPECT_EQ(int(Variant(Null).type()), 1);
  EXPECT_EQ(int(Variant(std::int16_t(1)).type()), 2);
  EXPECT_EQ(int(Variant(1).type()), 3);
  EXPECT_EQ(int(Variant(1.0F).type()), 4);
  EXPECT_EQ(int(Variant(1.0).type()), 5);
  EXPECT_EQ(int(Variant(Currency{1}).type()), 6);
  EXPECT_EQ(int(Variant(Date{1}).type()), 7);
  EXPECT_EQ(int(Variant(u"a").type()), 8);
  EXPECT_EQ(int(Variant(ObjectRef()).type()), 9);
  EXPECT_EQ(int(Variant(true).type()), 11);
  EXPECT_EQ(int(Variant(std::uint8_t(1)).type()), 17);
}

TEST(VariantConversions, an_infinite_double_is_out_of_range_for_text_and_numbers) {
  const Variant infinite(std::numeric_limits<double>::infinity());
  EXPECT_EQ(outcome([&] { return infinite.toText(); }), "!6");
  EXPECT_EQ(outcome([&] { return infinite.toLong(); }), "!6");
  EXPECT_EQ(outcome([&] { return infinite.toCurrency(); }), "!6");
  EXPECT_EQ(outcome([&] { return infinite.toDate(); }), "!6");
  EXPECT_EQ(outcome([&] { return Variant(std::numeric_limits<float>::infinity()).toText(); }), "!6");
}

TEST(VariantConversions, follow_the_regional_settings_of_the_installed_platform) {
  Platform english;
  english.regional.decimal = u'.';
  english.regional.grouping = u',';
  english.regional.trueWord = u"True";
  const PlatformInstallation installation(english);
  EXPECT_EQ(Variant(1.5).toText(), u"1.5");
  EXPECT_EQ(Variant(u"1,234.5").toDouble(), 1234.5);
  EXPECT_EQ(Variant(true).toText(), u"True");
}

TEST(VariantConversions, an_amount_is_rounded_half_to_even_at_the_fourth_decimal) {
  EXPECT_EQ(Variant(0.03125).toCurrency(), Currency{312});
  EXPECT_EQ(Variant(0.09375).toCurrency(), Currency{938});
  EXPECT_EQ(Variant(-0.09375).toCurrency(), Currency{-938});
  EXPECT_EQ(Variant(12.34).toCurrency(), Currency{123400});
  EXPECT_EQ(Variant(u"0,00005").toCurrency(), Currency{0});
  EXPECT_EQ(Variant(u"0,00015").toCurrency(), Currency{2});
  EXPECT_EQ(Variant(u"0,000150001").toCurrency(), Currency{2});
  EXPECT_EQ(Variant(u"0,00025").toCurrency(), Currency{2});
  EXPECT_EQ(Variant(u"-0,000250001").toCurrency(), Currency{-3});
}

}  // namespace
}  // namespace ovalia
