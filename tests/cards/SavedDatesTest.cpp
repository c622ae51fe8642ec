#include <gtest/gtest.h>

#include "cards/RecordToCard.h"
#include "tests/cards/SavedFields.h"

namespace ovalia {
namespace {

class SavedDates : public kit::SavedFieldsTest {};

TEST_F(SavedDates, a_picker_on_day_zero_is_written_as_day_zero) {
  save(u"Visita", {{u"dtpFechaFin", u"30-12-99"}, {u"dtpHoraFin", u"00:00:00"}});
  EXPECT_EQ(written(u"FechaFin").toDouble(), 0);
}

TEST_F(SavedDates, a_visit_without_an_end_is_written_with_day_zero_and_shown_empty_again) {
  listOf(u"Visita");
  at(2, u"FechaFin") = Null;
  open(2, [&] {
    write({});
    EXPECT_FALSE(written(u"FechaFin").isNull());
    EXPECT_EQ(written(u"FechaFin").toDouble(), 0);
  });
  open(2, [&] { EXPECT_EQ(form().as<forms::DTPicker>(u"dtpFechaFin")->text(), u"30-12-99"); });
}

TEST_F(SavedDates, dates_that_were_not_touched_come_back_as_they_were) {
  const Date untouched[] = {kit::on(2005, 3, 7, 9, 5, 0), kit::on(2005, 3, 7), Date{},
                            kit::on(1999, 12, 30, 10, 0, 0)};
  for (const Date date : untouched) {
    listOf(u"Visita");
    at(2, u"FechaComienzo") = date;
    open(2, [&] {
      write({});
      EXPECT_EQ(written(u"FechaComienzo").toDouble(), date.days);
    });
  }
}

TEST_F(SavedDates, a_century_that_two_digits_do_not_tell_is_lost) {
  listOf(u"Nota");
  at(2, u"FechaAlta") = kit::on(1925, 5, 1, 10, 0, 0);
  open(2, [&] {
    write({});
    EXPECT_EQ(written(u"FechaAlta").text(), u"01/05/2025 10:00:00");
  });
}

TEST_F(SavedDates, an_hour_that_ran_past_midnight_is_written_by_its_time_alone) {
  save(u"Visita", {{u"dtpFechaFin", u"08/04/26"}, {u"dtpHoraFin", Date{1 + 15.0 / (24 * 60)}}});
  EXPECT_EQ(written(u"FechaFin").text(), u"08/04/2026 0:15:00");
}

TEST_F(SavedDates, an_unticked_sending_date_is_written_as_null) {
  save(u"Anuncio", {{u"dtpFechaEnvio", Null}});
  EXPECT_TRUE(written(u"FechaEnvio").isNull());
}

TEST_F(SavedDates, a_blank_date_keeps_the_field) {
  openOn(u"Nota", [&] {
    crs().Edit();
    for (const TextView blank : {u"", u"  "}) FechayHora(instance, u"FechaAviso", blank);
    crs().Update();
    EXPECT_EQ(written(u"FechaAviso").text(), u"12/03/2026");
  });
}

TEST_F(SavedDates, a_reminder_date_taken_back_to_day_zero_is_written_so) {
  save(u"Nota", {{u"dtpFechaAviso", Date{}}});
  EXPECT_EQ(written(u"FechaAviso").toDouble(), 0);
}

TEST_F(SavedDates, an_emptied_number_of_days_keeps_the_old_one) {
  save(u"Anuncio", {{u"txtNDias", u""}});
  EXPECT_EQ(written(u"NDias").toLong(), 15);
}

TEST_F(SavedDates, a_lead_time_is_always_written_day_zero_for_none) {
  struct {
    TextView words;
    TextView stored;
  } const cases[] = {{u"", u"0:00:00"},
                     {u"0 minutos", u"0:00:00"},
                     {u"30 minutos", u"0:30:00"},
                     {u"2 horas", u"2:00:00"},
                     {u"1 día", u"31/12/1899"},
                     {u"2 días", u"01/01/1900"},
                     {u"1 hora 30 minutos", u"0:01:00"}};
  for (const auto& expected : cases) {
    save(u"Visita", {{u"cboTiempoAviso", expected.words}});
    EXPECT_EQ(written(u"TiempoAviso").text(), expected.stored) << toUtf8(expected.words);
  }
}

}  // namespace
}  // namespace ovalia
