#include "cards/EditTracking.h"

#include <gtest/gtest.h>

#include "tests/cards/TrackedCard.h"

namespace ovalia {
namespace {

// Controls that are tied to another one.
using TiedControls = kit::TrackedCard;

// Companions of a reminder.

TEST_F(TiedControls, the_reminder_of_a_note_enables_its_date_and_its_user) {
  with(u"Nota", {{u"Aviso", false}}, [&] {
    for (const bool on : {true, false}) {
      on ? user.ticks(u"chkAvisoNota") : user.unticks(u"chkAvisoNota");
      for (const TextView companion : {u"dtpFechaAviso", u"lblA", u"cboUsuarioAviso"})
        EXPECT_EQ(enabled(companion), on) << toUtf8(companion);
    }
  });
}

TEST_F(TiedControls, the_reminder_of_a_visit_enables_its_lead_time) {
  with(u"Visita", {{u"Aviso", false}}, [&] {
    user.ticks(u"chkAviso");
    EXPECT_TRUE(enabled(u"cboTiempoAviso"));
    user.unticks(u"chkAviso");
    EXPECT_FALSE(enabled(u"cboTiempoAviso"));
  });
}

TEST_F(TiedControls, companions_follow_whatever_the_tag_and_on_a_new_card) {
  with(u"Visita", {}, [&] {
    user.enters(u"chkAviso");
    for (const TextView anyTag : {TextView(u""), HacerNada}) {
      for (const std::int32_t anyState : {nueva, modificada}) {
        control(u"chkAviso").Tag = anyTag;
        setState(anyState);
        const bool before = enabled(u"cboTiempoAviso");
        user.clicks(u"chkAviso");
        EXPECT_EQ(enabled(u"cboTiempoAviso"), !before);
        EXPECT_EQ(state(), anyState);
      }
    }
  });
}

TEST_F(TiedControls, companions_and_pickers_are_those_of_the_form_that_the_user_is_on) {
  auto elsewhere = std::make_shared<forms::CardForm>(forms::frmVisita());
  elsewhere->control(u"cboTiempoAviso")->setEnabled(true);
  with(u"Visita", {}, [&] {
    const auto own = here.screen.activeFormOf;
    here.screen.activeFormOf = [&] { return elsewhere; };
    user.unticks(u"chkAviso");
    EXPECT_FALSE(elsewhere->control(u"cboTiempoAviso")->Enabled());
    EXPECT_TRUE(enabled(u"cboTiempoAviso"));
    track(u"dtpFechaFin");
    dNota_Cambio(instance, ref(u"dtpFechaFin"), u"FechaFin");
    EXPECT_EQ(state(), modificada) << "the other form's pickers show no date";
    track(u"dtpFechaFin");
    dNota_CogerFoco(instance, ref(u"dtpFechaFin"));
    EXPECT_EQ(state(), modificada);
    here.screen.activeFormOf = own;
  });
}

// A visit's times, as the user meets them on the card.

TEST_F(TiedControls, the_end_on_the_start_date_with_an_earlier_hour_is_refused_once_and_corrected) {
  with(u"Visita", {{u"FechaFin", kit::on(2026, 3, 11, 8, 0)}}, [&] {
    expectBox(u"La fecha de finalización indicada es anterior a la fecha de comienzo.", 64);
    user.sets(u"dtpFechaFin", u"10/03/2026");
    EXPECT_EQ(card(u"dtpFechaFin"), u"10/03/26");
    EXPECT_EQ(card(u"dtpHoraFin"), u"10:00:00");
    EXPECT_EQ(state(), modificada);
  });
}

TEST_F(TiedControls, a_visit_without_an_end_or_ending_before_it_begins_is_shown_untouched) {
  with(u"Visita", {{u"FechaFin", Null}}, [&] {
    EXPECT_EQ(card(u"dtpFechaFin"), u"-");
    EXPECT_EQ(card(u"dtpHoraFin"), u"00:00:00");
    EXPECT_FALSE(form().filling());
  });
  with(u"Visita", {{u"FechaFin", kit::on(2026, 3, 1, 8, 0)}}, [&] {
    EXPECT_EQ(card(u"dtpFechaFin"), u"01/03/26");
    EXPECT_EQ(card(u"dtpHoraFin"), u"08:00:00");
  });
}

TEST_F(TiedControls, the_end_that_the_start_drags_along_is_compared_by_the_start_pickers) {
  with(u"Visita", {{u"FechaAlta", kit::on(2026, 3, 10, 9, 30)}}, [&] {
    focus(u"dtpFechaAlta");
    EXPECT_EQ(state(), limpia);
    otherUser.writes(u"FechaFin", kit::on(2026, 3, 12, 9, 30));
    user.sets(u"dtpFechaAlta", u"12/03/2026");
    EXPECT_EQ(card(u"dtpFechaFin"), u"12/03/26");
    EXPECT_EQ(state(), limpia) << "the start, 12 March 9:30, against the field of the end";
  });
}

}  // namespace
}  // namespace ovalia
