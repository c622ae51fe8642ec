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

}  // namespace
}  // namespace ovalia
