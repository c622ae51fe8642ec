#include "cards/FieldComparison.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/Regional.h"
#include "tests/kit/TestPlatform.h"

namespace ovalia {
namespace {

class FieldComparison : public kit::LogicTest {};

constexpr std::optional<bool> notCompared = std::nullopt;

Date moment(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
  return dateFrom({year, month, day, hour, minute, second}).value();
}

struct Row {
  std::string what;
  Variant shown;
  Variant field;
  std::optional<bool> differs;
};

void expect(const std::vector<Row>& rows) {
  for (const Row& row : rows) EXPECT_EQ(differs(row.shown, row.field), row.differs) << row.what;
}

TEST_F(FieldComparison, a_null_field_differs_from_any_text_but_blanks) {
  expect({
      {"empty text", u"", Null, false},
      {"blanks are trimmed", u"   ", Null, false},
      {"text", u"Llaves", Null, true},
      {"a tab is no blank", u"\t", Null, true},
      {"an unticked box is the text 0", std::int16_t(0), Null, true},
      {"a ticked box", std::int16_t(1), Null, true},
      {"a date", moment(2005, 3, 7), Null, true},
      {"an empty date picker pair", u"30-12-99 0:00:00", Null, true},
      {"a picker without a date", Null, Null, false},
  });
}

TEST_F(FieldComparison, texts_are_compared_trimmed_and_to_the_letter) {
  expect({
      {"same", u"Llaves", u"Llaves", false},
      {"blanks behind what is typed", u"Llaves  ", u"Llaves", false},
      {"blanks around the field", u"Llaves", u"  Llaves ", false},
      {"case", u"llaves", u"Llaves", true},
      {"accent", u"atico", u"ático", true},
      {"empty against empty", u"", u"", false},
      {"blanks inside", u"Llaves  del ático", u"Llaves del ático", true},
      {"a number typed against a text of digits", u"05", u"5", true},
  });
}

TEST_F(FieldComparison, numbers_are_compared_by_value_and_text_that_is_none_differs) {
  for (const Variant& five : {Variant(std::int16_t(5)), Variant(std::int32_t(5)), Variant(std::uint8_t(5)),
                              Variant(Currency{50'000})}) {
    expect({
        {"same digits", u"5", five, false},
        {"with decimals", u"5,0", five, false},
        {"with blanks", u" 5 ", five, false},
        {"another number", u"6", five, true},
        {"no number", u"cinco", five, true},
        {"nothing typed", u"", five, true},
        {"a number", std::int32_t(5), five, false},
        {"another", std::int32_t(6), five, true},
        {"beyond all numbers", u"1e999", five, true},
    });
  }
  expect({{"an amount has four exact decimals", u"0,1", Currency{1'000}, false},
          {"name of the second salesperson against a key", u"Ana Ruiz", std::int32_t(3), true},
          {"no value at all", Null, std::int32_t(3), false}});
}

TEST_F(FieldComparison, a_ticked_box_differs_from_true) {
  expect({
      {"ticked, true", std::int16_t(1), true, true},
      {"unticked, true", std::int16_t(0), true, true},
      {"ticked, false", std::int16_t(1), false, true},
      {"unticked, false", std::int16_t(0), false, false},
      {"text that is no number", u"quizá", true, true},
      {"the word is no number either", u"Verdadero", true, true},
  });
}

TEST_F(FieldComparison, dates_are_compared_as_texts) {
  const Variant morning = moment(2005, 3, 7, 9, 5);
  const Variant midnight = moment(2005, 3, 7);
  expect({
      {"pickers on the same moment", u"07/03/2005 9:05:00", morning, false},
      {"another spelling of it", u"07/03/05 09:05:00", morning, true},
      {"another second", u"07/03/2005 9:05:01", morning, true},
      {"a field at midnight has no time in its text", u"07/03/2005 0:00:00", midnight, true},
      {"a picker's own date against it", midnight, midnight, false},
      {"the hour alone, of an unsent advertisement", u" 0:00:00", morning, true},
  });
}

TEST_F(FieldComparison, a_date_not_after_day_zero_counts_as_empty) {
  expect({
      {"day zero, nothing shown", u"", Date{}, false},
      {"day zero, blanks", u"  ", Date{}, false},
      {"day zero, empty pickers", u"30-12-99 0:00:00", Date{}, true},
      {"before day zero", u"", Date{-2}, false},
      {"a time on day zero is after it", u"", moment(1899, 12, 30, 0, 15), true},
      {"a lead time against its words", u"15 minutos", moment(1899, 12, 30, 0, 15), true},
      {"the last-but-one day of 1999 is a date", u"", moment(1999, 12, 30), true},
  });
}

TEST_F(FieldComparison, fields_of_other_types_are_never_compared) {
  expect({
      {"Single", u"7", 5.0f, notCompared},
      {"Double", u"7", 5.0, notCompared},
      {"Empty", u"7", Variant(), notCompared},
  });
}

}  // namespace
}  // namespace ovalia
