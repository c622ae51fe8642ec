#include "cards/BlankCard.h"

#include <gtest/gtest.h>

#include <vector>

#include "cards/Saving.h"
#include "tests/cards/BlankedCard.h"

namespace ovalia {
namespace {

using BlankCard = kit::BlankedCard;
using kit::Shown;

TEST_F(BlankCard, a_note_takes_the_present_moment_and_the_user) {
  openCard(u"Nota", {}, [&] {
    blank();
    expectOnCard({
        {u"cboAcceso", u""},
        {u"dtpFechaAlta", u"09/03/26"},
        {u"dtpHoraAlta", u"10:20:30"},
        {u"chkAvisoNota", u"0"},
        {u"dtpFechaAviso", u"09/03/26"},
        {u"cboUsuarioAviso", u"Carmen Soler"},
        {u"lblActualizacion", u""},
        {u"cboUsuario", u"Carmen Soler"},
    });
  });
}

TEST_F(BlankCard, a_visit_begins_now_and_ends_half_an_hour_later) {
  const Date hour{1.0 / 24};
  openCard(u"Visita", {{u"Realizada", true}, {u"Anulada", true}, {u"TiempoAviso", hour}}, [&] {
    EXPECT_EQ(card(u"cboTiempoAviso"), u"1 hora");
    blank();
    expectOnCard({
        {u"cboAcceso", u""},
        {u"dtpFechaAlta", u"09/03/26"},
        {u"dtpHoraAlta", u"10:20:30"},
        {u"dtpFechaFin", u"09/03/26"},
        {u"dtpHoraFin", u"10:50:30"},
        {u"cboComercial", u"Carmen Soler"},
        {u"chkAviso", u"0"},
        {u"cboTiempoAviso", u"15 minutos"},
        {u"chkConfirmada", u"0"},
        {u"chkRealizada", u"0"},
        {u"chkAnulada", u"0"},
        {u"lblActualizacion", u""},
        {u"cboUsuario", u"Carmen Soler"},
    });
    EXPECT_FALSE(enabled(u"cboTiempoAviso"));
    EXPECT_TRUE(control(u"chkAnulada").Visible());
  });
}

TEST_F(BlankCard, an_advertisement_runs_one_day_from_today_and_is_not_sent) {
  openCard(u"Anuncio", {}, [&] {
    blank();
    expectOnCard({
        {u"cboAcceso", u""},
        {u"dtpFechaAlta", u"09/03/26"},
        {u"dtpHoraAlta", u"10:20:30"},
        {u"dtpFechaInicio", u"09/03/26"},
        {u"txtNDias", u"1"},
        {u"dtpFechaEnvio", u"unticked"},
        {u"dtpHoraEnvio", u"00:00:00"},
        {u"chkEnviar", u"0"},
        {u"lblActualizacion", u""},
        {u"cboUsuario", u"Carmen Soler"},
    });
    EXPECT_FALSE(enabled(u"dtpHoraEnvio"));
    control(u"dtpHoraEnvio").setEnabled(true);
    blank();
    EXPECT_FALSE(enabled(u"dtpHoraEnvio")) << "also where the date was unticked already";
  });
}

TEST_F(BlankCard, a_call_takes_the_present_moment_and_the_user) {
  openCard(u"Llamada", {}, [&] {
    blank();
    expectOnCard({
        {u"dtpFechaAlta", u"09/03/26"},
        {u"dtpHoraAlta", u"10:20:30"},
        {u"lblActualizacion", u""},
        {u"cboUsuario", u"Carmen Soler"},
    });
  });
}

TEST_F(BlankCard, every_text_box_is_emptied_but_those_that_are_given_a_value) {
  for (const TextView tipo : {u"Nota", u"Visita", u"Anuncio", u"Llamada"}) {
    openCard(tipo, {}, [&] {
      blank();
      for (const Text& box : textBoxes()) {
        const bool kept =
            box == u"txtNDias" || (tipo == u"Visita" && (box == u"txtAsunto" || box == u"txtUbicacion"));
        EXPECT_EQ(card(box).empty(), !kept) << toUtf8(tipo) << ": " << toUtf8(box);
      }
    });
  }
}

TEST_F(BlankCard, emptying_the_texts_touches_no_other_control) {
  openCard(u"Visita", {}, [&] {
    instance.EstadoFicha = cargando;
    LimpiarTextos(form());
    instance.EstadoFicha = limpia;
    for (const Text& box : textBoxes()) EXPECT_EQ(card(box), u"") << toUtf8(box);
    expectOnCard({
        {u"cboAcceso", u"Teléfono"},
        {u"dtpFechaAlta", u"10/03/26"},
        {u"cboComercial", u"Benito Gil"},
        {u"chkConfirmada", u"1"},
        {u"cboUsuario", u"Ana Ruiz"},
        {u"lblActualizacion", u"05/03/2026 18:30:15"},
    });
  });
}

TEST_F(BlankCard, the_subject_and_place_that_the_host_wrote_stay_on_a_visit) {
  openCard(u"Visita", {{u"Asunto", u"Segunda visita"}, {u"Donde", u"En la oficina"}}, [&] {
    blank();
    expectOnCard({{u"txtAsunto", u"Segunda visita"}, {u"txtUbicacion", u"En la oficina"}});
  });
  openCard(u"Visita", {{u"Asunto", Null}, {u"Donde", Null}}, [&] {
    blank();
    expectOnCard({{u"txtAsunto", u""}, {u"txtUbicacion", u""}});
  });
}

TEST_F(BlankCard, the_subject_that_the_host_wrote_is_not_shown_on_a_note) {
  openCard(u"Nota", {{u"Asunto", u"Segunda nota"}}, [&] {
    blank();
    EXPECT_EQ(card(u"txtAsunto"), u"");
  });
}

TEST_F(BlankCard, a_list_without_the_column_hides_the_box_for_cancelled_visits) {
  givenList(u"Visita", {{}}, {u"Anulada"});
  openCard([&] {
    control(u"chkAnulada").setVisible(true);
    blank();
    EXPECT_FALSE(control(u"chkAnulada").Visible());
  });
}

TEST_F(BlankCard, the_second_salesperson_is_emptied_only_where_there_are_two) {
  nota.DosComerciales = true;
  openCard(u"Visita", {}, [&] {
    EXPECT_EQ(card(u"cboComercial2"), u"Carmen Soler");
    blank();
    EXPECT_EQ(card(u"cboComercial2"), u"");
    EXPECT_EQ(card(u"cboComercial"), u"Carmen Soler");
    instance.EstadoFicha = cargando;
    control(u"cboComercial2").setValue(u"Ana Ruiz");
    nota.DosComerciales = false;
    blank();
    EXPECT_EQ(card(u"cboComercial2"), u"Ana Ruiz");
  });
}

TEST_F(BlankCard, a_note_keeps_its_reminder_companions_as_they_were) {
  for (const bool reminder : {true, false}) {
    openCard(u"Nota", {{u"Aviso", reminder}}, [&] {
      blank();
      for (const TextView companion : {u"dtpFechaAviso", u"lblA", u"cboUsuarioAviso"})
        EXPECT_EQ(enabled(companion), reminder) << toUtf8(companion);
    });
  }
}

TEST_F(BlankCard, a_visit_made_near_midnight_ends_before_it_begins_on_the_card) {
  here.clock.time = {2026, 3, 9, 23, 45, 0};
  openCard(u"Visita", {}, [&] {
    blank();
    expectOnCard({{u"dtpFechaAlta", u"09/03/26"},
                  {u"dtpHoraAlta", u"23:45:00"},
                  {u"dtpFechaFin", u"09/03/26"},
                  {u"dtpHoraFin", u"00:15:00"}});
    EXPECT_EQ(control(u"dtpHoraFin").value().toDate(), kit::on(1899, 12, 31, 0, 15, 0));
  });
}

TEST_F(BlankCard, the_rules_of_a_visits_times_do_not_run) {
  openCard(u"Visita",
           {{u"FechaComienzo", kit::on(2026, 3, 12, 7, 0)}, {u"FechaFin", kit::on(2026, 3, 12, 7, 15)}}, [&] {
             blank();  // on the way, the visit would end today at 7:15, before it begins
             EXPECT_EQ(card(u"dtpFechaFin"), u"09/03/26");
             EXPECT_EQ(card(u"dtpHoraFin"), u"10:50:30");
           });
}

TEST_F(BlankCard, the_clock_is_asked_anew_for_each_control) {
  const auto goOn = [&](const Text& field, const DateParts& later) {
    return form().Cambio.connect([this, field, later](forms::ControlRef&, Text& changed) {
      if (changed == field) here.clock.time = later;
    });
  };
  openCard(u"Nota", {}, [&] {
    here.clock.time = {2026, 3, 9, 23, 59, 59};
    const auto heard = goOn(u"FechaAlta", {2026, 3, 10, 0, 0, 1});
    blank();
    form().Cambio.disconnect(heard);
    expectOnCard(
        {{u"dtpFechaAlta", u"09/03/26"}, {u"dtpHoraAlta", u"00:00:01"}, {u"dtpFechaAviso", u"10/03/26"}});
  });
  openCard(u"Visita", {}, [&] {
    here.clock.time = {2026, 3, 9, 23, 0, 0};
    const auto heard = goOn(u"FechaComienzo", {2026, 3, 10, 0, 0, 1});
    blank();
    form().Cambio.disconnect(heard);
    expectOnCard({{u"dtpFechaAlta", u"09/03/26"}, {u"dtpHoraAlta", u"00:00:01"}});
    expectOnCard({{u"dtpFechaFin", u"10/03/26"}, {u"dtpHoraFin", u"00:30:01"}});
  });
  openCard(u"Anuncio", {}, [&] {
    here.clock.time = {2026, 3, 9, 23, 59, 59};
    const auto heard = goOn(u"FechaAlta", {2026, 3, 10, 0, 0, 1});
    blank();
    form().Cambio.disconnect(heard);
    expectOnCard({{u"dtpHoraAlta", u"00:00:01"}, {u"dtpFechaInicio", u"10/03/26"}});
  });
}

TEST_F(BlankCard, the_card_counts_as_being_filled_until_the_end_whatever_happens) {
  openCard(u"Visita", {}, [&] {
    std::vector<bool> filling;
    const auto heard =
        form().Cambio.connect([&](forms::ControlRef&, Text&) { filling.push_back(form().filling()); });
    blank();
    form().Cambio.disconnect(heard);
    EXPECT_GT(filling.size(), 8u);
    EXPECT_EQ(filling, std::vector<bool>(filling.size(), true));
    nota.cUsuario = u"Nadie";
    expectReport(u"FichaLimpia de CNota", failure::notInList);
    blank();
    EXPECT_FALSE(form().filling());
  });
}

TEST_F(BlankCard, the_title_announces_a_new_annotation_of_the_parent) {
  const std::vector<Shown> titles = {
      {u"Nota", u"Inmueble 120 - Nueva Nota"},
      {u"Visita", u"Inmueble 120 - Nueva Visita"},
      {u"Anuncio", u"Inmueble 120 - Nuevo Anuncio"},
      {u"Llamada", u"Anuncio: 77 - Nueva Llamada"},
  };
  for (const Shown& title : titles) {
    openCard(title.control, {}, [&] {
      blank();
      EXPECT_EQ(caption(), title.value);
    });
  }
}

TEST_F(BlankCard, a_parent_that_is_new_itself_is_named_by_its_provisional_number) {
  host.vClase().with(u"cEstado", 1).with(u"NumNuevo", 9001);
  openCard(u"Nota", {}, [&] {
    blank();
    EXPECT_EQ(caption(), u"Inmueble 9001 - Nueva Nota");
    for (const Variant& estado : {Variant(0), Variant(2), Variant(3), Variant(Null)}) {
      host.vClase().with(u"cEstado", estado);
      blank();
      EXPECT_EQ(caption(), u"Inmueble 120 - Nueva Nota") << toUtf8(estado.text());
    }
  });
}

TEST_F(BlankCard, only_the_number_that_is_shown_is_asked_for) {
  openCard(u"Nota", {}, [&] {
    host.vClase().failing(u"NumNuevo", failure::noSuchMember);
    blank();
    EXPECT_EQ(caption(), u"Inmueble 120 - Nueva Nota");
  });
}

TEST_F(BlankCard, another_kind_keeps_the_title_and_blanks_the_card) {
  openCard(u"Nota", {}, [&] {
    nota.Tipo = u"nota";
    const Text before = caption();
    blank();
    EXPECT_EQ(caption(), before);
    EXPECT_EQ(card(u"txtNotas"), u"");
  });
}

TEST_F(BlankCard, neither_the_state_nor_the_row_is_touched) {
  openCard(u"Nota", {}, [&] {
    for (const std::int32_t before : {nueva, cargando}) {
      instance.EstadoFicha = before;
      FichaLimpia(instance);
      EXPECT_EQ(state(), before);
    }
    EXPECT_TRUE(database->executed.empty());
    EXPECT_FALSE(nota.crs->editing());
    EXPECT_EQ(stored(u"Asunto").text(), u"Llaves en portería");
    putAway();
  });
}

TEST_F(BlankCard, blanking_a_card_that_shows_a_record_counts_as_an_edit) {
  openCard(u"Nota", {}, [&] {
    EXPECT_EQ(form().ActiveControl()->Name(), u"txtAsunto");
    FichaLimpia(instance);
    EXPECT_EQ(state(), modificada);
    putAway();
  });
}

TEST_F(BlankCard, saving_a_record_that_was_blanked_over_speaks_of_another_user_and_shows_it_again) {
  openCard(u"Nota", {}, [&] {
    FichaLimpia(instance);
    expectBox(
        u"La ficha acaba de ser modificada por otro usuario.\r\nSus cambios son cancelados y se visualiza "
        u"la última modificación.",
        48, u"Guardar");
    Guardar(instance, u"NoPreguntar");
    EXPECT_EQ(card(u"txtAsunto"), u"Llaves en portería");
    EXPECT_EQ(state(), limpia);
  });
}

TEST_F(BlankCard, an_empty_list_of_notes_or_advertisements_shows_a_blank_card) {
  for (const TextView tipo : {u"Nota", u"Anuncio"}) {
    givenList(tipo, {});
    openCard([&] {
      EXPECT_EQ(state(), cargando);
      EXPECT_EQ(card(u"cboUsuario"), u"Carmen Soler");
      EXPECT_TRUE(caption().starts_with(u"Inmueble 120 - Nuev")) << toUtf8(caption());
      putAway();
    });
  }
}

}  // namespace
}  // namespace ovalia
