#include "routines/Reminder.h"

#include <gtest/gtest.h>

#include "platform/Regional.h"
#include "tests/kit/TestPlatform.h"

namespace ovalia {
namespace {

struct Row {
  TextView text;
  DateParts date;
};

class Interval : public kit::LogicTest, public testing::WithParamInterface<Row> {};

TEST_P(Interval, is_a_date_that_far_behind_day_zero) {
  EXPECT_EQ(partsOf(Tiempo(GetParam().text)), GetParam().date) << toUtf8(GetParam().text);
}

constexpr DateParts after(int days, int hours, int minutes) {
  return days == 0 ? DateParts{1899, 12, 30, hours, minutes, 0}
                   : DateParts{1900, 1, days - 1, hours, minutes, 0};
}
constexpr DateParts nextDay{1899, 12, 31, 0, 0, 0};

INSTANTIATE_TEST_SUITE_P(
    Tiempo, Interval,
    testing::Values(
        Row{u"15 minutos", after(0, 0, 15)}, Row{u"1 minuto", after(0, 0, 1)},
        Row{u"2 horas", after(0, 2, 0)}, Row{u"1 hora", after(0, 1, 0)}, Row{u"1 día", nextDay},
        Row{u"1 dia", nextDay}, Row{u"1 DÍA", nextDay}, Row{u"3 días", after(3, 0, 0)},
        Row{u"36 horas", {1899, 12, 31, 12, 0, 0}}, Row{u"90 MINUTOS", after(0, 1, 30)},
        Row{u"1440 minutos", nextDay},
        // Without a unit the number counts minutes.
        Row{u"45", after(0, 0, 45)}, Row{u" 4 5 x", after(0, 0, 45)},
        // No number is none.
        Row{u"", after(0, 0, 0)}, Row{u"Minutos", after(0, 0, 0)}, Row{u"0 minutos", after(0, 0, 0)},
        Row{u"una hora", after(0, 0, 0)},
        // The unit searched first wins wherever it stands, and the number ends at the first letter: one
        // minute is meant.
        Row{u"1 hora 30 minutos", after(0, 0, 1)}, Row{u"2 días 3 horas", after(0, 2, 0)},
        // The point is the decimal sign, a comma ends the number; halves go to the even neighbour.
        Row{u"1,9 horas", after(0, 1, 0)}, Row{u"1.9 horas", after(0, 2, 0)},
        Row{u"2.5 horas", after(0, 2, 0)}, Row{u"3.5 horas", after(0, 4, 0)},
        // Before day zero the time of day counts forwards too.
        Row{u"-15 minutos", {1899, 12, 29, 23, 45, 0}}));

TEST_F(Interval, of_nothing_is_day_zero_itself) { EXPECT_EQ(Tiempo(u"0 minutos").days, 0.0); }

TEST_F(Interval, of_a_day_is_exactly_one) { EXPECT_EQ(Tiempo(u"1 día").days, 1.0); }

TEST_F(Interval, beyond_16_bits_is_reported_and_gives_day_zero) {
  expectReport(u"Tiempo() de RutinasErr", 6);
  EXPECT_EQ(Tiempo(u"40000 minutos").days, 0.0);
}

TEST_F(Interval, the_largest_16_bit_number_passes) {
  EXPECT_EQ(partsOf(Tiempo(u"32767 minutos")), (DateParts{1900, 1, 21, 18, 7, 0}));
}

}  // namespace
}  // namespace ovalia
