#include <gtest/gtest.h>

#include "cards/RecordToCard.h"
#include "tests/cardkit/CardTest.h"

namespace ovalia {
namespace {

using kit::Fields;
using Names = std::vector<Text>;

// How a card is filled: its order, its marks and events, and what stops it.
class Fill : public kit::CardTest {
 protected:
  void move(int row) {
    standOn(row);
    RefrescoFicha(instance, u"");
  }
};

TEST_F(Fill, a_record_without_a_creator_is_the_one_text_that_may_not_be_missing) {
  expectReport(u"RefrescoFicha de CNota", failure::invalidUseOfNull);
  openCard(u"Nota", {{u"Usuario", Null}}, [&] {
    EXPECT_EQ(state(), cargando);
    EXPECT_EQ(card(u"txtAsunto"), u"Llaves en portería") << "what came before is filled";
    EXPECT_EQ(card(u"txtNotas"), u"") << "what comes after is not";
  });
}

TEST_F(Fill, a_creator_whom_the_users_lack_stops_the_fill) {
  expectReport(u"RefrescoFicha de CNota", failure::notInList);
  openCard(u"Llamada", {{u"Usuario", u"Nadie"}}, [&] { EXPECT_EQ(state(), cargando); });
}

TEST_F(Fill, a_creator_in_other_letters_shows_as_the_list_spells_him) {
  givenList(u"Llamada", {{{u"Usuario", u"ANA RUIZ"}}});
  desk.whileShown([&] {
    EXPECT_EQ(card(u"cboUsuario"), u"Ana Ruiz");
    EXPECT_EQ(state(), limpia);
  });
  AbreNota(instance);
}

TEST_F(Fill, an_unknown_person_to_remind_stops_the_fill) {
  expectReport(u"RefrescoFicha de CNota", failure::notInList);
  openCard(u"Nota", {{u"UsuarioAviso", u"Nadie"}}, [&] {
    EXPECT_EQ(state(), cargando);
    EXPECT_EQ(card(u"cboUsuario"), u"");
  });
}

TEST_F(Fill, a_user_whom_the_users_lack_stops_the_fill_of_a_note_without_anyone_to_remind) {
  nota.cUsuario = u"Invitado";
  expectReport(u"RefrescoFicha de CNota", failure::notInList);
  openCard(u"Nota", {{u"UsuarioAviso", Null}}, [&] { EXPECT_EQ(state(), cargando); });
}

TEST_F(Fill, a_fill_goes_in_the_order_of_the_card) {
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

TEST_F(Fill, every_assignment_raises_its_change_in_state_3_and_while_filling) {
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

TEST_F(Fill, the_control_with_the_focus_loses_its_mark_and_is_marked_again_at_the_end) {
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

TEST_F(Fill, an_empty_list_leaves_state_3_with_the_keys_on_and_the_mark_gone) {
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

TEST_F(Fill, an_empty_list_blanks_the_card_and_leaves_the_tools_as_they_were) {
  for (const TextView tipo : {u"Nota", u"Anuncio"}) {
    givenList(tipo, {{}, {}});
    openCard([&] {
      list->rows.clear();
      nota.crs->Requery();
      desk.tools.clear();
      RefrescoFicha(instance, u"Guardar");
      EXPECT_EQ(card(u"txtNotas"), u"");
      EXPECT_EQ(card(u"lblActualizacion"), u"");
      EXPECT_EQ(card(u"dtpFechaAlta"), u"09/03/26");
      EXPECT_TRUE(desk.tools.empty()) << "the moves are still those of two";
      EXPECT_TRUE(enabled(u"ID_Siguiente"));
    });
  }
}

TEST_F(Fill, a_list_behind_its_last_row_counts_as_empty) {
  givenList(u"Nota", {{}});
  nota.crs->MoveNext();
  openCard([&] { EXPECT_EQ(state(), cargando); });
}

TEST_F(Fill, the_card_is_known_by_its_name_and_not_by_the_kind) {
  givenList(u"Nota", {{}, {{u"Asunto", u"Otra"}}});
  openCard([&] {
    nota.Tipo = u"Anuncio";
    move(2);
    EXPECT_EQ(card(u"txtAsunto"), u"Otra");
    EXPECT_EQ(state(), limpia);
    EXPECT_EQ(caption(), u"Inmueble 120 - Anuncio: 2/2");
  });
}

TEST_F(Fill, without_a_card_it_is_reported_and_the_state_is_3) {
  givenList(u"Nota");
  expectReport(u"RefrescoFicha de CNota", failure::objectNotSet);
  RefrescoFicha(instance, u"");
  EXPECT_EQ(state(), cargando);
}

TEST_F(Fill, without_a_list_it_is_reported_and_the_card_is_shown_in_state_3) {
  nota.Tipo = u"Nota";
  expectReport(u"RefrescoFicha de CNota", failure::objectNotSet);
  openCard([&] { EXPECT_EQ(state(), cargando); });
}

// Whatever field cannot be read, the fill ends there; only the title and the list of documents, which come
// last, are filled under traps of their own.
TEST_F(Fill, a_failure_at_any_field_leaves_state_3_and_the_filling_off) {
  for (const TextView tipo : {u"Nota", u"Anuncio", u"Llamada"}) {
    givenList(tipo);
    openCard([&] {
      const int before = here.faults.visits("Field.Value");
      RefrescoFicha(instance, u"");
      const int fields = here.faults.visits("Field.Value") - before;
      ASSERT_GT(fields, 4);
      std::vector<Text> trapped{u"RefrescoCaption de CNota"};
      if (tipo != u"Llamada") trapped.push_back(u"RefrescoDocs de CNota");
      const int untrapped = fields - static_cast<int>(trapped.size());
      for (int step = 1; step <= untrapped; ++step) {
        instance.EstadoFicha = limpia;
        here.faults.failNth("Field.Value", step, dao::failure::locked);
        expectReport(u"RefrescoFicha de CNota", dao::failure::locked);
        RefrescoFicha(instance, u"");
        EXPECT_EQ(state(), cargando) << step;
        EXPECT_FALSE(form().filling()) << step;
      }
      for (std::size_t i = 0; i < trapped.size(); ++i) {
        here.faults.failNth("Field.Value", untrapped + static_cast<int>(i) + 1, dao::failure::locked);
        expectReport(trapped[i], dao::failure::locked);
        RefrescoFicha(instance, u"");
        EXPECT_EQ(state(), limpia);
      }
    });
  }
}

TEST_F(Fill, a_salesperson_who_cannot_be_looked_up_leaves_state_3) {
  givenList(u"Visita");
  openCard([&] {
    here.faults.failNth("Database.OpenRecordset", 2, dao::failure::locked);
    expectReport(u"RefrescoFicha de CNota", dao::failure::locked);
    RefrescoFicha(instance, u"");
    EXPECT_EQ(state(), cargando);
    EXPECT_FALSE(form().filling());
  });
}

TEST_F(Fill, a_telephone_that_cannot_be_looked_up_is_reported_and_the_fill_goes_on) {
  givenList(u"Visita");
  openCard([&] {
    here.faults.failNext("Database.OpenRecordset", dao::failure::locked);
    expectReport(u"TelefonoCliente de CNota", dao::failure::locked);
    RefrescoFicha(instance, u"");
    EXPECT_EQ(card(u"txtTfnoCliente"), u"");
    EXPECT_EQ(state(), limpia);
  });
}

TEST_F(Fill, a_row_that_somebody_deleted_is_told_and_leaves_state_3) {
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
