#include <gtest/gtest.h>

#include "cards/RecordToCard.h"
#include "cards/Saving.h"
#include "cards/Validation.h"
#include "tests/cardkit/OpenCard.h"

namespace ovalia {
namespace {

// What a user, or a host's answer, may have put on a card that no field is made for.
class BadInput : public kit::OpenCardTest {
 protected:
  // The days of an advertisement, typed and with the focus still on them.
  void withDays(const Text& typed, const std::function<void()>& then) {
    openOn(u"Anuncio", [&] {
      ASSERT_TRUE(user.enters(u"txtNDias"));
      change({{u"txtNDias", typed}, {u"txtNotas", u"Nuevo texto"}});
      then();
    });
  }
  void save() { Guardar(instance, u"NoPreguntar"); }
};

TEST_F(BadInput, numbers_of_days_in_every_spelling_are_saved_as_the_number_they_name) {
  const struct {
    Text typed;
    std::int32_t stored;
  } rows[] = {{u"+5", 5},
              {u" 12 ", 12},
              {u"1,5", 2},
              {u"2,5", 2},
              {u"254,5", 254},
              {u"-0", 0},
              {u"-0,4", 0},
              {u"2.5", 25},
              {u"1e2", 100},
              {u"1e-5", 0},
              {u"&HFF", 255},
              {u"&O377", 255},
              {u"00007", 7},
              {u"   ", 15},
              {u"255,4", 255},
              {u"1e002", 100},
              {Text(100'000, u'0') + u"7", 7}};
  for (const auto& row : rows)
    withDays(row.typed, [&] {
      save();
      EXPECT_EQ(at(2, u"NDias").toLong(), row.stored) << toUtf8(row.typed.substr(0, 20));
      EXPECT_EQ(state(), limpia);
    });
}

TEST_F(BadInput, numbers_of_days_that_are_none_or_do_not_fit_keep_the_card_unsaved) {
  for (const Text& typed : {Text(u"256"),   Text(u"-1"),     Text(u"255,5"),      Text(u"12.000"),
                            Text(u"&H100"), Text(u"&HFFFF"), Text(u"--5"),        Text(u"5 6 x"),
                            Text(u"1e"),    Text(u","),      Text(u"nan"),        Text(u"inf"),
                            Text(u"٣"),     Text(u"１２"),   Text(u"12\t\u00A0"), Text(u"1') OR ('1'='1"),
                            Text(1, u'\0'), Text(u"😀"),      Text(100'000, u'-'), Text(100'000, u'x')})
    withDays(typed, [&] {
      expectBox(u"Introduzca un número entre 0 y 255.", 48, u"Error");
      save();
      EXPECT_EQ(card(u"txtNDias"), typed);
      EXPECT_EQ(form().as<forms::TextBox>(u"txtNDias")->SelLength(), static_cast<int>(typed.size()));
      EXPECT_EQ(at(2, u"Notas").text(), u"Texto 2");
      EXPECT_FALSE(crs().editing());
      EXPECT_EQ(state(), modificada);
      put(u"txtNDias", u"12");
      save();
      EXPECT_EQ(at(2, u"NDias").toLong(), 12);
      EXPECT_EQ(at(2, u"Notas").text(), u"Nuevo texto");
    });
}

// The check lets them pass, for its own conversion fails; the field does not take them.
TEST_F(BadInput, numbers_of_days_beyond_all_bounds_keep_the_card_unsaved) {
  for (const Text& typed : {Text(u"99999999999"), Text(u"-99999999999"), Text(u"1e400"), Text(100'000, u'9')})
    withDays(typed, [&] {
      expectReport(u"ComprobarByte() de RutinasErr", failure::overflow);
      expectReport(u"GrabaRegistro de CNota", dao::failure::conversion);
      save();
      EXPECT_EQ(card(u"txtNDias"), typed);
      EXPECT_EQ(at(2, u"NDias").toLong(), 15);
      EXPECT_EQ(at(2, u"Notas").text(), u"Texto 2");
      EXPECT_EQ(state(), modificada);
      put(u"txtNDias", u"12");
      save();
      EXPECT_EQ(at(2, u"NDias").toLong(), 12);
      EXPECT_EQ(state(), limpia);
    });
}

TEST_F(BadInput, numbers_of_days_that_were_left_unchecked_meet_the_field_alone) {
  openOn(u"Anuncio", [&] {
    change({{u"txtNDias", u"256"}});
    expectReport(u"GrabaRegistro de CNota", dao::failure::conversion);
    save();
    EXPECT_EQ(at(2, u"NDias").toLong(), 15);
    EXPECT_EQ(state(), modificada);
  });
}

TEST_F(BadInput, lead_times_are_read_as_far_as_they_are_numbers) {
  const struct {
    TextView typed, shown, stored;
  } rows[] = {{u"1.5 horas", u"2 horas", u"2:00:00"},
              {u"3,7 horas", u"3 horas", u"3:00:00"},
              {u"1 5 minutos", u"15 minutos", u"0:15:00"},
              {u"1e2", u"1 hora", u"1:00:00"},
              {u"&H10 minutos", u"16 minutos", u"0:16:00"},
              {u"-5 minutos", u"23 horas", u"23:00:00"},
              {u"32 días", u"1 día", u"31/12/1899"},
              {u"31 días", u"", u"0:00:00"},
              {u"' OR 1=1 --", u"", u"0:00:00"},
              {u"😀 minutos", u"", u"0:00:00"}};
  for (const auto& row : rows)
    openOn(u"Visita", [&] {
      ASSERT_TRUE(user.enters(u"cboTiempoAviso"));
      change({{u"cboTiempoAviso", row.typed}});
      save();
      EXPECT_EQ(card(u"cboTiempoAviso"), row.shown) << toUtf8(row.typed);
      EXPECT_EQ(at(2, u"TiempoAviso").text(), row.stored) << toUtf8(row.typed);
    });
}

TEST_F(BadInput, a_lead_time_beyond_all_bounds_is_reported_and_none) {
  for (const Text& typed : {Text(u"32768 minutos"), Text(u"-99999 días"), Text(100'000, u'9')})
    openOn(u"Visita", [&] {
      ASSERT_TRUE(user.enters(u"cboTiempoAviso"));
      change({{u"cboTiempoAviso", typed}});
      expectReport(u"Tiempo() de RutinasErr", failure::overflow);
      save();
      EXPECT_EQ(card(u"cboTiempoAviso"), u"");
      EXPECT_EQ(at(2, u"TiempoAviso").toDouble(), 0);
      EXPECT_EQ(state(), limpia);
    });
}

TEST_F(BadInput, dates_that_do_not_exist_are_reported_and_leave_their_field) {
  listOf(u"Nota");
  nota.crs->Edit();
  for (const TextView impossible :
       {u"31/02/2026", u"29/02/2025", u"00/00/2026", u"32/01/2026", u"31/04/26", u"01/01/10000",
        u"01/01/0099", u"10/10/2026 24:00:00", u"10/10/2026 10:60", u"10/10/2026 10:00:60",
        u"10/10/2026 tarde", u"10/10-2026", u"10//2026", u"#10/10/2026#", u"'", u"|", u"😀"}) {
    expectReport(join(u"FechayHora de CNota (FechaAlta, ", impossible, u") "), failure::typeMismatch);
    FechayHora(instance, u"FechaAlta", impossible);
    EXPECT_EQ(nota.crs->value(u"FechaAlta").text(), u"02/03/2026 10:15:00") << toUtf8(impossible);
  }
}

TEST_F(BadInput, dates_at_the_ends_of_the_calendar_are_saved) {
  for (const Date end :
       {kit::on(100, 1, 1), kit::on(9999, 12, 31), kit::on(1899, 12, 29), kit::on(1899, 12, 31)})
    openOn(u"Anuncio", [&] {
      change({{u"dtpFechaInicio", end}, {u"dtpFechaAlta", end}, {u"dtpHoraAlta", u"23:59:59"}});
      save();
      EXPECT_EQ(at(2, u"FechaInicio").toDate(), end);
      const DateParts day = partsOf(end);
      EXPECT_EQ(at(2, u"FechaAlta").toDate(), kit::on(day.year, day.month, day.day, 23, 59, 59));
    });
}

TEST_F(BadInput, a_date_behind_the_end_of_the_calendar_is_reported_and_the_rest_is_saved) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", u"Nuevo texto"}, {u"dtpFechaAviso", Date{kit::on(9999, 12, 31).days + 1}}});
    expectReport(u"FechayHora de CNota (FechaAviso, 01/01/10000) ", failure::typeMismatch);
    save();
    EXPECT_EQ(at(2, u"FechaAviso").text(), u"12/03/2026");
    EXPECT_EQ(at(2, u"Notas").text(), u"Nuevo texto");
    EXPECT_EQ(state(), limpia);
  });
}

}  // namespace
}  // namespace ovalia
