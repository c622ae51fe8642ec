#include "cards/RecordToCard.h"

#include <gtest/gtest.h>

#include "tests/cardkit/CardTest.h"

namespace ovalia {
namespace {

using kit::Fields;
using kit::on;
using Names = std::vector<Text>;

class RecordToCard : public kit::CardTest {
 protected:
  // Rows for the moves of the tests below.
  void move(int row) {
    standOn(row);
    RefrescoFicha(instance, u"");
  }
};

TEST_F(RecordToCard, a_note_shows_each_field_in_its_control) {
  openCard(u"Nota", {}, [&] {
    EXPECT_EQ(card(u"txtAsunto"), u"Llaves en portería");
    EXPECT_EQ(card(u"cboAcceso"), u"Teléfono");
    EXPECT_EQ(card(u"txtCategorias"), u"Llaves; Urgente");
    EXPECT_EQ(card(u"dtpFechaAlta"), u"02/03/26");
    EXPECT_EQ(card(u"dtpHoraAlta"), u"10:15:00");
    EXPECT_EQ(card(u"chkAvisoNota"), u"1");
    EXPECT_TRUE(enabled(u"dtpFechaAviso"));
    EXPECT_TRUE(enabled(u"lblA"));
    EXPECT_TRUE(enabled(u"cboUsuarioAviso"));
    EXPECT_EQ(card(u"dtpFechaAviso"), u"12/03/26");
    EXPECT_EQ(card(u"cboUsuarioAviso"), u"Benito Gil");
    EXPECT_EQ(card(u"lblActualizacion"), u"05/03/2026 18:30:15");
    EXPECT_EQ(card(u"cboUsuario"), u"Ana Ruiz");
    EXPECT_EQ(card(u"txtNotas"), u"Tiene prisa por vender.");
    EXPECT_EQ(state(), limpia);
    EXPECT_TRUE(form().KeyPreview());
  });
}

TEST_F(RecordToCard, a_visit_shows_each_field_in_its_control) {
  openCard(u"Visita", {}, [&] {
    EXPECT_EQ(card(u"txtAsunto"), u"Llaves en portería");
    EXPECT_EQ(card(u"cboAcceso"), u"Teléfono");
    EXPECT_EQ(card(u"txtCategorias"), u"Llaves; Urgente");
    EXPECT_EQ(card(u"dtpFechaAlta"), u"10/03/26");
    EXPECT_EQ(card(u"dtpHoraAlta"), u"09:30:00");
    EXPECT_EQ(card(u"txtUbicacion"), u"Calle Mayor, 3");
    EXPECT_EQ(card(u"dtpFechaFin"), u"10/03/26");
    EXPECT_EQ(card(u"dtpHoraFin"), u"10:45:00");
    EXPECT_EQ(card(u"txtCliente"), u"Luis Pérez");
    EXPECT_EQ(card(u"txtTfnoCliente"), u"600 111 222");
    EXPECT_EQ(card(u"cboComercial"), u"Benito Gil");
    EXPECT_EQ(card(u"txtOtraAgencia"), u"Casas del Sur");
    EXPECT_EQ(card(u"chkAviso"), u"1");
    EXPECT_TRUE(enabled(u"cboTiempoAviso"));
    EXPECT_EQ(card(u"cboTiempoAviso"), u"15 minutos");
    EXPECT_EQ(card(u"chkConfirmada"), u"1");
    EXPECT_EQ(card(u"chkRealizada"), u"0");
    EXPECT_EQ(card(u"chkAnulada"), u"0");
    EXPECT_EQ(card(u"lblActualizacion"), u"05/03/2026 18:30:15");
    EXPECT_EQ(card(u"cboUsuario"), u"Ana Ruiz");
    EXPECT_EQ(card(u"txtNotas"), u"Tiene prisa por vender.");
  });
}

TEST_F(RecordToCard, an_advertisement_shows_each_field_in_its_control) {
  openCard(u"Anuncio", {}, [&] {
    EXPECT_EQ(card(u"txtDonde"), u"Calle Mayor, 3");
    EXPECT_EQ(card(u"cboAcceso"), u"Teléfono");
    EXPECT_EQ(card(u"txtCategorias"), u"Llaves; Urgente");
    EXPECT_EQ(card(u"dtpFechaAlta"), u"02/03/26");
    EXPECT_EQ(card(u"dtpHoraAlta"), u"10:15:00");
    EXPECT_EQ(card(u"dtpFechaInicio"), u"06/03/26");
    EXPECT_EQ(card(u"txtNDias"), u"15");
    EXPECT_EQ(card(u"dtpFechaEnvio"), u"04/03/26");
    EXPECT_EQ(card(u"dtpHoraEnvio"), u"12:00:30");
    EXPECT_TRUE(enabled(u"dtpHoraEnvio"));
    EXPECT_EQ(card(u"chkEnviar"), u"1");
    EXPECT_EQ(card(u"cboUsuario"), u"Ana Ruiz");
    EXPECT_EQ(card(u"txtNotas"), u"Tiene prisa por vender.");
  });
}

TEST_F(RecordToCard, a_call_shows_its_moment_and_the_common_fields) {
  openCard(u"Llamada", {}, [&] {
    EXPECT_EQ(card(u"dtpFechaAlta"), u"02/03/26");
    EXPECT_EQ(card(u"dtpHoraAlta"), u"10:15:00");
    EXPECT_EQ(card(u"lblActualizacion"), u"05/03/2026 18:30:15");
    EXPECT_EQ(card(u"cboUsuario"), u"Ana Ruiz");
    EXPECT_EQ(card(u"txtNotas"), u"Tiene prisa por vender.");
  });
}

TEST_F(RecordToCard, a_field_without_text_shows_as_empty) {
  const Names texts{u"Asunto", u"TipoAccNota", u"Categorias", u"Donde", u"Cliente", u"Agencia", u"Notas"};
  Fields fields;
  for (const Text& name : texts) fields.emplace_back(name, Null);
  openCard(u"Visita", fields, [&] {
    for (const TextView name : {u"txtAsunto", u"cboAcceso", u"txtCategorias", u"txtUbicacion", u"txtCliente",
                                u"txtOtraAgencia", u"txtNotas"})
      EXPECT_EQ(card(name), u"") << toUtf8(name);
    EXPECT_EQ(state(), limpia);
  });
}

TEST_F(RecordToCard, a_record_never_stamped_has_an_empty_stamp) {
  openCard(u"Llamada", {{u"FechaActualizacion", Null}}, [&] { EXPECT_EQ(card(u"lblActualizacion"), u""); });
}

TEST_F(RecordToCard, a_stamp_at_midnight_has_no_time_in_its_text) {
  openCard(u"Llamada", {{u"FechaActualizacion", on(2026, 3, 5)}},
           [&] { EXPECT_EQ(card(u"lblActualizacion"), u"05/03/2026"); });
}

TEST_F(RecordToCard, a_missing_date_is_day_zero_on_the_pickers) {
  openCard(u"Nota", {{u"FechaAlta", Null}}, [&] {
    EXPECT_EQ(control(u"dtpFechaAlta").value().toDouble(), 0);
    EXPECT_EQ(control(u"dtpHoraAlta").value().toDouble(), 0);
    EXPECT_EQ(form().as<forms::DTPicker>(u"dtpFechaAlta")->text(), u"30-12-99");
    EXPECT_EQ(form().as<forms::DTPicker>(u"dtpHoraAlta")->text(), u"0:00:00");
  });
}

TEST_F(RecordToCard, the_thirtieth_of_december_1999_is_a_day_like_any_other) {
  openCard(u"Visita", {{u"FechaComienzo", on(1999, 12, 30, 10)}, {u"FechaFin", on(1999, 12, 30, 11)}}, [&] {
    EXPECT_EQ(card(u"dtpFechaAlta"), u"30/12/99");
    EXPECT_EQ(card(u"dtpHoraAlta"), u"10:00:00");
    EXPECT_EQ(control(u"dtpFechaAlta").value().toDate(), on(1999, 12, 30));
    EXPECT_EQ(card(u"dtpFechaFin"), u"30/12/99");
  });
}

TEST_F(RecordToCard, a_date_loses_its_century_on_the_card) {
  openCard(u"Anuncio", {{u"FechaInicio", on(1925, 5, 1)}},
           [&] { EXPECT_EQ(control(u"dtpFechaInicio").value().toDate(), on(2025, 5, 1)); });
}

TEST_F(RecordToCard, an_end_that_is_missing_or_day_zero_or_earlier_shows_no_date) {
  for (const Variant& end : {Variant(Null), Variant(Date{0}), Variant(Date{-3.25})}) {
    openCard(u"Visita", {{u"FechaFin", end}}, [&] {
      EXPECT_EQ(control(u"dtpFechaFin").value().toDouble(), 0);
      EXPECT_EQ(control(u"dtpHoraFin").value().toDouble(), 0);
      EXPECT_EQ(state(), limpia);
    });
  }
}

TEST_F(RecordToCard, an_end_on_day_zero_with_an_hour_is_an_end) {
  openCard(u"Visita", {{u"FechaFin", Date{0.5}}}, [&] { EXPECT_EQ(card(u"dtpHoraFin"), u"12:00:00"); });
}

TEST_F(RecordToCard, a_start_on_day_zero_is_shown_as_it_stands) {
  openCard(u"Visita", {{u"FechaComienzo", Date{0.375}}}, [&] {
    EXPECT_EQ(control(u"dtpFechaAlta").value().toDouble(), 0);
    EXPECT_EQ(card(u"dtpHoraAlta"), u"09:00:00");
  });
}

TEST_F(RecordToCard,
       a_visit_whose_end_is_missing_or_before_its_start_is_shown_untouched_and_without_a_message) {
  openCard(u"Visita", {{u"FechaFin", on(2026, 3, 9, 8)}}, [&] {
    EXPECT_EQ(card(u"dtpFechaAlta"), u"10/03/26");
    EXPECT_EQ(card(u"dtpFechaFin"), u"09/03/26");
    EXPECT_EQ(card(u"dtpHoraFin"), u"08:00:00");
  });
}

TEST_F(RecordToCard, a_note_without_a_reminder_shows_today_and_the_user_both_disabled) {
  openCard(u"Nota", {{u"Aviso", false}, {u"FechaAviso", Null}, {u"UsuarioAviso", Null}}, [&] {
    EXPECT_EQ(card(u"chkAvisoNota"), u"0");
    EXPECT_EQ(card(u"dtpFechaAviso"), u"09/03/26");
    EXPECT_EQ(card(u"cboUsuarioAviso"), u"Carmen Soler");
    for (const TextView name : {u"dtpFechaAviso", u"lblA", u"cboUsuarioAviso"})
      EXPECT_FALSE(enabled(name)) << toUtf8(name);
  });
}

TEST_F(RecordToCard, a_reminder_that_is_neither_set_nor_unset_counts_as_unset) {
  openCard(u"Nota", {{u"Aviso", Null}}, [&] {
    EXPECT_EQ(card(u"chkAvisoNota"), u"0");
    EXPECT_FALSE(enabled(u"dtpFechaAviso"));
  });
  openCard(u"Visita", {{u"Aviso", Null}}, [&] {
    EXPECT_EQ(card(u"chkAviso"), u"0");
    EXPECT_FALSE(enabled(u"cboTiempoAviso"));
  });
}

TEST_F(RecordToCard, the_reminders_companions_follow_from_record_to_record) {
  givenList(u"Nota", {{{u"Aviso", false}}, {{u"Aviso", true}}});
  openCard([&] {
    EXPECT_FALSE(enabled(u"cboUsuarioAviso"));
    move(2);
    EXPECT_TRUE(enabled(u"cboUsuarioAviso"));
    move(1);
    EXPECT_FALSE(enabled(u"cboUsuarioAviso"));
  });
}

TEST_F(RecordToCard, a_lead_time_that_is_missing_shows_nothing) {
  openCard(u"Visita", {{u"TiempoAviso", Null}}, [&] { EXPECT_EQ(card(u"cboTiempoAviso"), u""); });
}

TEST_F(RecordToCard, a_list_without_the_cancelled_column_hides_the_box_and_it_stays_hidden) {
  givenList(u"Visita", {{}}, {u"Anulada"});
  openCard([&] {
    EXPECT_FALSE(control(u"chkAnulada").Visible());
    form().Hide();
  });
  givenList(u"Visita", {{{u"Anulada", true}}});
  openCard([&] {
    EXPECT_FALSE(control(u"chkAnulada").Visible());
    EXPECT_EQ(card(u"chkAnulada"), u"1");
  });
}

TEST_F(RecordToCard, a_list_without_the_other_agency_leaves_its_box_as_it_was) {
  givenList(u"Visita", {{{u"Agencia", u"Fincas López"}}});
  openCard([&] { form().Hide(); });
  givenList(u"Visita", {{}}, {u"Agencia"});
  openCard([&] { EXPECT_EQ(card(u"txtOtraAgencia"), u"Fincas López"); });
}

struct Salesperson {
  const char* name;
  bool two;
  Variant id;
  Text first, second;
};

class Salespeople : public RecordToCard, public testing::WithParamInterface<Salesperson> {};

TEST_P(Salespeople, are_looked_up_by_key) {
  nota.DosComerciales = GetParam().two;
  openCard(u"Visita", {{u"IdComercial", GetParam().id}, {u"IdComercial2", GetParam().id}}, [&] {
    EXPECT_EQ(card(u"cboComercial"), GetParam().first);
    EXPECT_EQ(card(u"cboComercial2"), GetParam().second);
    EXPECT_EQ(state(), limpia);
  });
}

INSTANTIATE_TEST_SUITE_P(, Salespeople,
                         testing::Values(Salesperson{"one_known", false, 2, u"Benito Gil", u""},
                                         Salesperson{"one_missing_is_the_user", false, Null, u"Carmen Soler",
                                                     u""},
                                         Salesperson{"one_deleted_is_empty", false, 99, u"", u""},
                                         Salesperson{"two_known", true, 2, u"Benito Gil", u"Benito Gil"},
                                         Salesperson{"two_missing_are_empty", true, Null, u"", u""},
                                         Salesperson{"two_deleted_are_empty", true, 99, u"", u""}),
                         [](const auto& row) { return row.param.name; });

TEST_F(RecordToCard, a_missing_salesperson_clears_the_one_before_where_there_are_two) {
  nota.DosComerciales = true;
  givenList(u"Visita", {{}, {{u"IdComercial", Null}, {u"IdComercial2", Null}}});
  openCard([&] {
    EXPECT_EQ(card(u"cboComercial2"), u"Carmen Soler");
    move(2);
    EXPECT_EQ(card(u"cboComercial"), u"");
    EXPECT_EQ(card(u"cboComercial2"), u"");
  });
}

TEST_F(RecordToCard, a_list_without_the_second_salesperson_is_not_asked_for_one_where_there_is_one) {
  givenList(u"Visita", {{}}, {u"IdComercial2"});
  openCard([&] { EXPECT_EQ(state(), limpia); });
}

TEST_F(RecordToCard, the_telephone_follows_the_client) {
  givenList(u"Visita", {{}, {{u"IdCliente", 22}}, {{u"IdCliente", Null}}, {{u"IdCliente", 0}}});
  openCard([&] {
    move(1);
    EXPECT_EQ(card(u"txtTfnoCliente"), u"600 111 222");
    move(2);
    EXPECT_EQ(card(u"txtTfnoCliente"), u"");
    move(1);
    move(3);
    EXPECT_EQ(card(u"txtTfnoCliente"), u"");
    move(4);
    EXPECT_EQ(card(u"txtTfnoCliente"), u"600 111 222") << "by the client's name";
  });
}

TEST_F(RecordToCard, an_advertisement_that_was_not_sent_has_an_unticked_date_and_no_hour) {
  givenList(u"Anuncio", {{{u"FechaEnvio", Null}}, {}});
  openCard([&] {
    EXPECT_EQ(card(u"dtpFechaEnvio"), u"unticked");
    EXPECT_EQ(card(u"dtpHoraEnvio"), u"00:00:00");
    EXPECT_FALSE(enabled(u"dtpHoraEnvio"));
    move(2);
    EXPECT_TRUE(enabled(u"dtpHoraEnvio"));
    EXPECT_EQ(card(u"dtpHoraEnvio"), u"12:00:30");
    move(1);
    EXPECT_EQ(card(u"dtpFechaEnvio"), u"unticked");
    EXPECT_EQ(card(u"dtpHoraEnvio"), u"00:00:00");
    EXPECT_FALSE(enabled(u"dtpHoraEnvio"));
  });
}

TEST_F(RecordToCard, an_advertisement_without_start_or_days_shows_neither) {
  openCard(u"Anuncio", {{u"FechaInicio", Null}, {u"NDias", Null}, {u"Enviar", Null}}, [&] {
    EXPECT_EQ(control(u"dtpFechaInicio").value().toDouble(), 0);
    EXPECT_EQ(card(u"txtNDias"), u"");
    EXPECT_EQ(card(u"chkEnviar"), u"0");
  });
}

TEST_F(RecordToCard, a_record_without_a_creator_is_the_one_text_that_may_not_be_missing) {
  expectReport(u"RefrescoFicha de CNota", failure::invalidUseOfNull);
  openCard(u"Nota", {{u"Usuario", Null}}, [&] {
    EXPECT_EQ(state(), cargando);
    EXPECT_EQ(card(u"txtAsunto"), u"Llaves en portería") << "what came before is filled";
    EXPECT_EQ(card(u"txtNotas"), u"") << "what comes after is not";
  });
}

TEST_F(RecordToCard, a_creator_whom_the_users_lack_stops_the_fill) {
  expectReport(u"RefrescoFicha de CNota", failure::notInList);
  openCard(u"Llamada", {{u"Usuario", u"Nadie"}}, [&] { EXPECT_EQ(state(), cargando); });
}

TEST_F(RecordToCard, a_creator_in_other_letters_shows_as_the_list_spells_him) {
  givenList(u"Llamada", {{{u"Usuario", u"ANA RUIZ"}}});
  desk.whileShown([&] {
    EXPECT_EQ(card(u"cboUsuario"), u"Ana Ruiz");
    EXPECT_EQ(state(), limpia);
  });
  AbreNota(instance);
}

TEST_F(RecordToCard, an_unknown_person_to_remind_stops_the_fill) {
  expectReport(u"RefrescoFicha de CNota", failure::notInList);
  openCard(u"Nota", {{u"UsuarioAviso", u"Nadie"}}, [&] {
    EXPECT_EQ(state(), cargando);
    EXPECT_EQ(card(u"cboUsuario"), u"");
  });
}

TEST_F(RecordToCard, a_user_whom_the_users_lack_stops_the_fill_of_a_note_without_anyone_to_remind) {
  nota.cUsuario = u"Invitado";
  expectReport(u"RefrescoFicha de CNota", failure::notInList);
  openCard(u"Nota", {{u"UsuarioAviso", Null}}, [&] { EXPECT_EQ(state(), cargando); });
}

TEST_F(RecordToCard, a_fill_goes_in_the_order_of_the_card) {
  const std::pair<TextView, Names> orders[] = {
      {u"Nota",
       {u"txtAsunto", u"cboAcceso", u"txtCategorias", u"dtpFechaAlta", u"dtpHoraAlta", u"chkAvisoNota",
        u"dtpFechaAviso", u"cboUsuarioAviso", u"lblActualizacion", u"cboUsuario", u"txtNotas"}},
      {u"Visita",
       {u"txtAsunto",     u"cboAcceso",    u"txtCategorias",  u"dtpFechaAlta",     u"dtpHoraAlta",
        u"txtUbicacion",  u"dtpFechaFin",  u"dtpHoraFin",     u"txtCliente",       u"txtTfnoCliente",
        u"cboComercial",  u"cboComercial", u"txtOtraAgencia", u"chkAviso",         u"cboTiempoAviso",
        u"chkConfirmada", u"chkRealizada", u"chkAnulada",     u"lblActualizacion", u"cboUsuario",
        u"txtNotas"}},
      {u"Anuncio",
       {u"txtDonde", u"cboAcceso", u"txtCategorias", u"dtpFechaAlta", u"dtpHoraAlta", u"dtpFechaInicio",
        u"txtNDias", u"dtpFechaEnvio", u"dtpHoraEnvio", u"chkEnviar", u"lblActualizacion", u"cboUsuario",
        u"txtNotas"}},
      {u"Llamada", {u"dtpFechaAlta", u"dtpHoraAlta", u"lblActualizacion", u"cboUsuario", u"txtNotas"}}};
  for (const auto& [tipo, expected] : orders) {
    desk.changes.clear();
    Fields fields;
    if (tipo == u"Visita") fields = {{u"Realizada", true}, {u"Anulada", true}};
    Names filled;
    openCard(tipo, fields, [&] {
      for (const auto& [name, what] : desk.changes)
        if (what == forms::Property::Value ||
            (name == u"lblActualizacion" && what == forms::Property::Caption))
          filled.push_back(name);
    });
    EXPECT_EQ(filled, expected) << toUtf8(tipo);
  }
}

TEST_F(RecordToCard, every_assignment_raises_its_change_in_state_3_and_while_filling) {
  givenList(u"Visita", {{}, {{u"Asunto", u"Otra"}, {u"FechaFin", Null}, {u"Confirmada", false}}});
  openCard([&] {
    Names fields;
    form().Cambio.connect([&](forms::ControlRef&, Text& field) {
      fields.push_back(field);
      EXPECT_EQ(state(), cargando);
      EXPECT_TRUE(form().filling());
    });
    move(2);
    EXPECT_EQ(fields,
              (Names{u"Asunto", u"FechaFin", u"FechaFin", u"IdComercial", u"IdComercial", u"Confirmada"}))
        << "the salesperson is first the user, then the one of the visit";
    EXPECT_FALSE(form().filling());
  });
}

TEST_F(RecordToCard, the_control_with_the_focus_loses_its_mark_and_is_marked_again_at_the_end) {
  givenList(u"Nota", {{}, {{u"Asunto", u"Otra"}}});
  openCard([&] {
    user.enters(u"txtCategorias");
    control(u"txtCategorias").Tag = u"HacerNada";
    control(u"txtAsunto").Tag = u"HacerNada";
    form().Cambio.connect([&](forms::ControlRef&, Text&) { EXPECT_EQ(tag(u"txtCategorias"), u""); });
    move(2);
    EXPECT_EQ(tag(u"txtCategorias"), u"HacerAlgo");
    EXPECT_EQ(tag(u"txtAsunto"), u"HacerNada") << "no other control is touched";
  });
}

TEST_F(RecordToCard, an_empty_list_leaves_state_3_with_the_keys_on_and_the_mark_gone) {
  givenList(u"Nota", {{}});
  openCard([&] {
    user.enters(u"txtAsunto");
    control(u"txtAsunto").Tag = u"HacerNada";
    form().setKeyPreview(false);
    list->rows.clear();
    nota.crs->Requery();
    RefrescoFicha(instance, u"");
    EXPECT_EQ(state(), cargando);
    EXPECT_TRUE(form().KeyPreview());
    EXPECT_EQ(tag(u"txtAsunto"), u"");
    EXPECT_FALSE(form().filling());
  });
}

TEST_F(RecordToCard, a_list_behind_its_last_row_counts_as_empty) {
  givenList(u"Nota", {{}});
  nota.crs->MoveNext();
  openCard([&] { EXPECT_EQ(state(), cargando); });
}

TEST_F(RecordToCard, the_card_is_known_by_its_name_and_not_by_the_kind) {
  givenList(u"Nota", {{}, {{u"Asunto", u"Otra"}}});
  openCard([&] {
    nota.Tipo = u"Anuncio";
    move(2);
    EXPECT_EQ(card(u"txtAsunto"), u"Otra");
    EXPECT_EQ(state(), limpia);
    EXPECT_EQ(caption(), u"Inmueble 120 - Anuncio: 2/2");
  });
}

TEST_F(RecordToCard, without_a_card_it_is_reported_and_the_state_is_3) {
  givenList(u"Nota");
  expectReport(u"RefrescoFicha de CNota", failure::objectNotSet);
  RefrescoFicha(instance, u"");
  EXPECT_EQ(state(), cargando);
}

TEST_F(RecordToCard, without_a_list_it_is_reported_and_the_card_is_shown_in_state_3) {
  nota.Tipo = u"Nota";
  expectReport(u"RefrescoFicha de CNota", failure::objectNotSet);
  openCard([&] { EXPECT_EQ(state(), cargando); });
}

// Whatever field cannot be read, the fill ends there; only the title is filled under a trap of its own.
TEST_F(RecordToCard, a_failure_at_any_field_leaves_state_3_and_the_filling_off) {
  for (const TextView tipo : {u"Nota", u"Anuncio", u"Llamada"}) {
    givenList(tipo);
    openCard([&] {
      const int before = here.faults.visits("Field.Value");
      RefrescoFicha(instance, u"");
      const int fields = here.faults.visits("Field.Value") - before;
      ASSERT_GT(fields, 4);
      for (int step = 1; step < fields; ++step) {
        instance.EstadoFicha = limpia;
        here.faults.failNth("Field.Value", step, dao::failure::locked);
        expectReport(u"RefrescoFicha de CNota", dao::failure::locked);
        RefrescoFicha(instance, u"");
        EXPECT_EQ(state(), cargando) << step;
        EXPECT_FALSE(form().filling()) << step;
      }
      here.faults.failNth("Field.Value", fields, dao::failure::locked);
      expectReport(u"RefrescoCaption de CNota", dao::failure::locked);
      RefrescoFicha(instance, u"");
      EXPECT_EQ(state(), limpia);
    });
  }
}

TEST_F(RecordToCard, a_salesperson_who_cannot_be_looked_up_leaves_state_3) {
  givenList(u"Visita");
  openCard([&] {
    here.faults.failNth("Database.OpenRecordset", 2, dao::failure::locked);
    expectReport(u"RefrescoFicha de CNota", dao::failure::locked);
    RefrescoFicha(instance, u"");
    EXPECT_EQ(state(), cargando);
    EXPECT_FALSE(form().filling());
  });
}

TEST_F(RecordToCard, a_telephone_that_cannot_be_looked_up_is_reported_and_the_fill_goes_on) {
  givenList(u"Visita");
  openCard([&] {
    here.faults.failNext("Database.OpenRecordset", dao::failure::locked);
    expectReport(u"TelefonoCliente de CNota", dao::failure::locked);
    RefrescoFicha(instance, u"");
    EXPECT_EQ(card(u"txtTfnoCliente"), u"");
    EXPECT_EQ(state(), limpia);
  });
}

TEST_F(RecordToCard, a_row_that_somebody_deleted_is_told_and_leaves_state_3) {
  givenList(u"Nota", {{}, {}});
  openCard([&] {
    otherUser.deletesTheRow();
    // The card on top has no records to load again: that lands in the trap around the reporter, here none.
    here.expectBox(u"La ficha acaba de ser borrada por otro usuario y\r\nno se volverá a visualizar.", 4144,
                   u"Error");
    EXPECT_THROW(RefrescoFicha(instance, u""), Failure);
    EXPECT_EQ(state(), cargando);
    EXPECT_FALSE(form().filling());
    putAway();
  });
}

}  // namespace
}  // namespace ovalia
