#include "cards/LeadTime.h"

#include <gtest/gtest.h>

#include "routines/Reminder.h"
#include "tests/cardkit/CardTest.h"

namespace ovalia {
namespace {

class LeadTime : public kit::CardTest {};

constexpr double minute = 1.0 / (24 * 60);

struct Words {
  const char* name;
  double days;
  Text words;
};

class InWords : public LeadTime, public testing::WithParamInterface<Words> {};

TEST_P(InWords, reads_days_or_hours_or_minutes) {
  EXPECT_EQ(MuestraTiempo(Date{GetParam().days}), GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(
    , InWords,
    testing::Values(Words{"zero_is_nothing", 0, u""}, Words{"seconds_are_nothing", minute / 2, u""},
                    Words{"one_minute", minute, u"1 minuto"}, Words{"five_minutes", 5 * minute, u"5 minutos"},
                    Words{"fifty_nine_minutes", 59 * minute, u"59 minutos"},
                    Words{"one_hour", 60 * minute, u"1 hora"},
                    Words{"minutes_beside_an_hour_are_left_out", 90 * minute, u"1 hora"},
                    Words{"two_hours", 120 * minute, u"2 horas"},
                    Words{"twenty_three_hours", 23 * 60 * minute, u"23 horas"}, Words{"one_day", 1, u"1 día"},
                    Words{"hours_beside_a_day_are_left_out", 1.25, u"1 día"},
                    Words{"two_days_fall_on_the_first_and_are_nothing", 2, u""},
                    Words{"two_days_and_hours_are_the_hours", 2.125, u"3 horas"},
                    Words{"a_base_in_1999_reads_alike", 36524 + 15 * minute, u"15 minutos"},
                    Words{"a_base_in_1999_reads_a_day_alike", 36525, u"1 día"}),
    [](const auto& row) { return row.param.name; });

TEST_F(LeadTime, reads_back_every_entry_of_the_list_but_nothing_and_two_days) {
  for (const TextView entry : {u"5 minutos", u"10 minutos", u"15 minutos", u"30 minutos", u"1 hora",
                               u"2 horas", u"3 horas", u"12 horas", u"1 día"})
    EXPECT_EQ(MuestraTiempo(Tiempo(entry)), entry);
  EXPECT_EQ(MuestraTiempo(Tiempo(u"0 minutos")), u"");
  EXPECT_EQ(MuestraTiempo(Tiempo(u"2 días")), u"");
}

TEST_F(LeadTime, of_a_duration_beyond_all_dates_is_reported_and_nothing) {
  expectReport(u"MuestraTiempo de CNota", failure::overflow);
  EXPECT_EQ(MuestraTiempo(Date{3'000'000}), u"");
}

class TimesOfDay : public LeadTime {
 protected:
  std::vector<Text> filled(std::int16_t step) {
    std::vector<Text> texts;
    openCard(u"Visita", {}, [&] {
      forms::ComboBox& combo = *form().as<forms::ComboBox>(u"cboTiempoAviso");
      LlenarHoras(combo, step);
      for (const auto& entry : combo.entries()) texts.push_back(entry.text);
    });
    return texts;
  }
};

TEST_F(TimesOfDay, take_the_place_of_the_list_from_midnight_on) {
  EXPECT_EQ(filled(360), (std::vector<Text>{u"00:00", u"06:00", u"12:00", u"18:00"}));
}

TEST_F(TimesOfDay, end_before_the_next_day) {
  const auto times = filled(7);
  EXPECT_EQ(times.size(), 206u);
  EXPECT_EQ(times.back(), u"23:55");
}

TEST_F(TimesOfDay, stand_alone_where_the_step_is_a_day_or_more) {
  EXPECT_EQ(filled(1440), std::vector<Text>{u"00:00"});
}

TEST_F(TimesOfDay, need_a_step_forwards) {
  expectReport(u"LlenarHoras de CNota", failure::badArgument);
  EXPECT_EQ(filled(0).size(), 19u) << "the list stays";
}

}  // namespace
}  // namespace ovalia
