#include "component/CardLoad.h"

#include "routines/ModuleValues.h"
#include "tests/cardkit/CardTest.h"

namespace ovalia {
namespace {

using Names = std::vector<Text>;

class CardLoad : public kit::CardTest {
 protected:
  Names entries(TextView combo) const {
    Names texts;
    for (const auto& entry : form().as<forms::ComboBox>(combo)->entries()) texts.push_back(entry.text);
    return texts;
  }
  const Names users{u"Ana Ruiz", u"Benito Gil", u"Carmen Soler"};
};

TEST_F(CardLoad, fills_the_lists_of_each_form_from_their_tables) {
  openCard(u"Nota", {}, [&] {
    EXPECT_EQ(entries(u"cboAcceso"), (Names{u"Correo", u"Teléfono", u"Visita"}));
    EXPECT_EQ(entries(u"cboUsuario"), users);
    EXPECT_EQ(entries(u"cboUsuarioAviso"), users);
  });
  openCard(u"Visita", {}, [&] {
    EXPECT_EQ(entries(u"cboAcceso").size(), 3u);
    EXPECT_EQ(entries(u"cboUsuario"), users);
    EXPECT_EQ(entries(u"cboComercial"), users);
  });
  openCard(u"Anuncio", {}, [&] {
    EXPECT_EQ(entries(u"cboAcceso").size(), 3u);
    EXPECT_EQ(entries(u"cboUsuario"), users);
  });
  openCard(u"Llamada", {}, [&] { EXPECT_EQ(entries(u"cboUsuario"), users); });
}

TEST_F(CardLoad, goes_in_its_order) {
  givenList(u"Nota");
  database->opened.clear();
  openCard([&] {
    EXPECT_EQ(here.settings.asked, (Names{u"Estado", u"Top", u"Left", u"Width", u"Height", u"DocsWidth"}));
    ASSERT_GE(database->opened.size(), 3u);
    EXPECT_EQ(database->opened[0], u"SELECT Nombre FROM TipoAccNota  ORDER BY Nombre ASC;");
    EXPECT_EQ(database->opened[1], u"SELECT Nombre FROM Usuario  ORDER BY Nombre ASC;");
    Names lists;
    for (const auto& [name, what] : desk.changes)
      if (what == forms::Property::List && (lists.empty() || lists.back() != name)) lists.push_back(name);
    EXPECT_EQ(lists, (Names{u"cboAcceso", u"cboUsuario", u"cboUsuarioAviso"}));
  });
}

TEST_F(CardLoad, takes_the_access_types_from_the_table_that_the_host_names) {
  database->table(u"TipoAccExp", {{u"IdTipoAccExp", dao::dbLong}, {u"Nombre"}}, {{1, u"Juzgado"}});
  nota.TipoAccNota = u"TipoAccExp";
  openCard(u"Nota", {}, [&] { EXPECT_EQ(entries(u"cboAcceso"), Names{u"Juzgado"}); });
}

TEST_F(CardLoad, offers_nineteen_lead_times) {
  openCard(u"Visita", {}, [&] {
    EXPECT_EQ(entries(u"cboTiempoAviso"),
              (Names{u"0 minutos", u"5 minutos", u"10 minutos", u"15 minutos", u"30 minutos", u"1 hora",
                     u"2 horas", u"3 horas", u"4 horas", u"5 horas", u"6 horas", u"7 horas", u"8 horas",
                     u"9 horas", u"10 horas", u"11 horas", u"12 horas", u"1 día", u"2 días"}));
  });
}

TEST_F(CardLoad, with_one_salesperson_shows_the_other_agency) {
  openCard(u"Visita", {}, [&] {
    EXPECT_EQ(entries(u"cboComercial"), users);
    EXPECT_TRUE(entries(u"cboComercial2").empty());
    EXPECT_EQ(control(u"lblAgencia").Caption(), u"Otra Agencia");
    EXPECT_FALSE(control(u"cboComercial2").Visible());
    EXPECT_TRUE(control(u"txtOtraAgencia").Visible());
  });
}

TEST_F(CardLoad, with_two_salespeople_shows_the_second_in_its_place) {
  nota.DosComerciales = true;
  openCard(u"Visita", {}, [&] {
    EXPECT_EQ(entries(u"cboComercial"), users);
    EXPECT_EQ(entries(u"cboComercial2"), users);
    EXPECT_EQ(control(u"lblAgencia").Caption(), u"2º Comercial");
    EXPECT_TRUE(control(u"cboComercial2").Visible());
    EXPECT_FALSE(control(u"txtOtraAgencia").Visible());
  });
}

TEST_F(CardLoad, two_salespeople_are_no_matter_to_the_other_cards) {
  nota.DosComerciales = true;
  for (const TextView tipo : {u"Nota", u"Anuncio", u"Llamada"})
    openCard(tipo, {}, [&] { EXPECT_EQ(state(), limpia); });
}

TEST_F(CardLoad, hides_the_document_tools_where_the_list_counts_none) {
  givenList(u"Nota", {{}}, {u"NArchivos"});
  openCard([&] {
    for (const TextView id : {u"ID_BAdjuntar", u"ID_mnuDocumentos"})
      EXPECT_FALSE(form().toolbars().tool(id)->Visible()) << toUtf8(id);
    EXPECT_TRUE(form().toolbars().tool(u"ID_mnuAdjuntar")->Visible());
  });
  givenList(u"Nota");
  openCard([&] { EXPECT_TRUE(form().toolbars().tool(u"ID_BAdjuntar")->Visible()); });
}

TEST_F(CardLoad, without_a_list_leaves_the_document_tools) {
  nota.Tipo = u"Nota";
  expectReport(u"RefrescoFicha de CNota", failure::objectNotSet);
  openCard([&] {
    EXPECT_TRUE(form().toolbars().tool(u"ID_BAdjuntar")->Visible());
    EXPECT_TRUE(form().toolbars().tool(u"ID_mnuDocumentos")->Visible());
  });
}

TEST_F(CardLoad, enables_the_new_tool_by_the_leave_to_create) {
  openCard(u"Nota", {}, [&] { EXPECT_TRUE(enabled(u"ID_Aniadir")); });
  nota.bPermitirCreacion = false;
  openCard(u"Nota", {}, [&] { EXPECT_FALSE(enabled(u"ID_Aniadir")); });
}

TEST_F(CardLoad, leaves_the_keys_off_until_a_record_is_shown) {
  openCard(u"Nota", {});
  bool keys = true;
  form().Load.connect([&] { keys = form().KeyPreview(); });
  openCard(u"Nota", {}, [&] { EXPECT_TRUE(form().KeyPreview()); });
  EXPECT_FALSE(keys);
}

TEST_F(CardLoad, turns_the_keys_off_wherever_they_stood) {
  openCard(u"Nota", {}, [&] {
    ASSERT_TRUE(form().KeyPreview());
    dNota_Load(instance);
    EXPECT_FALSE(form().KeyPreview());
  });
}

TEST_F(CardLoad, does_not_touch_the_state) {
  openCard(u"Nota", {});
  instance.EstadoFicha = nueva;
  form().Caption();
  EXPECT_TRUE(form().loaded());
  EXPECT_EQ(state(), nueva);
  putAway();
}

TEST_F(CardLoad, puts_the_window_where_it_was) {
  for (const auto& [key, value] : {std::pair<TextView, TextView>{u"Top", u"700"},
                                   {u"Left", u"800"},
                                   {u"Width", u"9000"},
                                   {u"Height", u"6000"},
                                   {u"Estado", u"2"}})
    here.settings.put(u"Agencia", u"frmLlamada", key, value);
  openCard(u"Llamada", {}, [&] {
    EXPECT_EQ(form().Top(), 700);
    EXPECT_EQ(form().Left(), 800);
    EXPECT_EQ(form().Width(), 9000);
    EXPECT_EQ(form().Height(), 6000);
    EXPECT_EQ(form().WindowState(), 2);
    EXPECT_EQ(control(u"cboUsuario").Left(), 5040 + 9000 - 6795);
  });
}

TEST_F(CardLoad, lays_the_card_out_for_its_first_size_before_a_record_is_shown) {
  openCard(u"Nota", {});
  double width = 0;
  form().Load.connect([&] { width = control(u"splitDocumentos").Width(); });
  openCard(u"Nota", {}, [&] { EXPECT_EQ(form().Width(), 8250); });
  EXPECT_EQ(width, 6375 + 8250 - 6745);
}

TEST_F(CardLoad, recalls_the_pane_width_without_applying_it) {
  here.settings.put(u"Agencia", u"frmNota", u"DocsWidth", u"3100");
  givenList(u"Nota", {{}}, {u"NArchivos"});
  openCard([&] {
    EXPECT_EQ(tag(u"splitDocumentos"), u"3100");
    EXPECT_EQ(form().as<forms::Splitter>(u"splitDocumentos")->PaneWidth(), 2200);
  });
}

TEST_F(CardLoad, without_a_stored_pane_width_takes_the_designed_one) {
  openCard(u"Nota", {}, [&] { EXPECT_EQ(tag(u"splitDocumentos"), u"2200"); });
}

TEST_F(CardLoad, reads_the_pane_width_under_the_hosts_title) {
  host.cApp->with(u"title", u"Otra");
  here.settings.put(u"Agencia", u"frmNota", u"DocsWidth", u"1");
  here.settings.put(u"Otra", u"frmNota", u"DocsWidth", u"2");
  givenList(u"Nota", {{}}, {u"NArchivos"});
  openCard([&] { EXPECT_EQ(tag(u"splitDocumentos"), u"2"); });
}

// Failures.

TEST_F(CardLoad, ends_at_a_missing_table_of_access_types_and_the_card_opens_in_state_3) {
  nota.TipoAccNota = u"NoExiste";
  givenList(u"Nota");
  expectReport(u"dNota_Load de CNota", dao::failure::notInCollection);
  expectReport(u"RefrescoFicha de CNota", failure::notInList);
  openCard([&] {
    EXPECT_EQ(state(), cargando);
    EXPECT_TRUE(entries(u"cboUsuario").empty()) << "the steps behind it are undone";
    EXPECT_EQ(tag(u"splitDocumentos"), u"2200") << "those before it are done";
    EXPECT_TRUE(form().Visible());
  });
}

TEST_F(CardLoad, of_a_call_does_not_need_the_access_types) {
  nota.TipoAccNota = u"NoExiste";
  openCard(u"Llamada", {}, [&] { EXPECT_EQ(state(), limpia); });
}

TEST_F(CardLoad, ends_without_the_hosts_application) {
  nota.cApp.reset();
  givenList(u"Llamada");
  expectReport(u"dNota_Load de CNota", failure::objectNotSet);
  expectReport(u"RefrescoFicha de CNota", failure::notInList);
  openCard([&] {
    EXPECT_TRUE(entries(u"cboUsuario").empty());
    expectReport(u"dNota_UnLoad de CNota", failure::objectNotSet);
  });
}

TEST_F(CardLoad, ends_without_a_connection) {
  givenList(u"Llamada");
  moduleValues().cgDB.reset();
  expectReport(u"dNota_Load de CNota", failure::objectNotSet);
  expectReport(u"RefrescoFicha de CNota", failure::notInList);
  openCard();
}

TEST_F(CardLoad, at_each_list_that_fails_keeps_the_lists_before_it) {
  givenList(u"Nota");
  for (int list = 1; list <= 3; ++list) {
    here.faults.failNth("Database.TableDefs", list, dao::failure::locked);
    expectReport(u"dNota_Load de CNota", dao::failure::locked);
    expectReport(u"RefrescoFicha de CNota", failure::notInList);
    openCard([&] {
      EXPECT_EQ(entries(u"cboAcceso").empty(), list < 2);
      EXPECT_EQ(entries(u"cboUsuario").empty(), list < 3);
      EXPECT_TRUE(entries(u"cboUsuarioAviso").empty());
      EXPECT_EQ(state(), cargando);
    });
  }
}

TEST_F(CardLoad, goes_on_after_a_place_that_cannot_be_read) {
  givenList(u"Nota");
  here.settings.put(u"Agencia", u"frmNota", u"Top", u"arriba");
  expectReport(u"RestaurarVentana() de RutinasErr", failure::typeMismatch);
  openCard([&] { EXPECT_EQ(state(), limpia); });
}

}  // namespace
}  // namespace ovalia
