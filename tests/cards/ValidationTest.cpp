#include "cards/Validation.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "cards/EditTracking.h"
#include "tests/cardkit/CardTest.h"

namespace ovalia {
namespace {

class Validation : public kit::CardTest {
 protected:
  // Opens a card with the focus on a control, counts it as changed, and puts it away afterwards.
  void in(TextView tipo, TextView control, const std::function<void()>& script, kit::Fields fields = {}) {
    openCard(tipo, std::move(fields), [&] {
      user.enters(control);
      instance.EstadoFicha = modificada;
      host.events.clear();
      database->opened.clear();
      script();
      putAway();
    });
  }

  // What stands in a control, without the focus or any comparison.
  void put(TextView name, TextView value) {
    const std::int32_t before = std::exchange(instance.EstadoFicha, cargando);
    control(name).setValue(value);
    instance.EstadoFicha = before;
  }

  bool check(bool ask = true) { return ComprobarCambio(instance, ask); }
};

TEST_F(Validation, a_clean_card_is_not_checked) {
  host.answers.ChkListadoMx = [](bool& ok, ObjectRef, const Text&, const Text&) { ok = false; };
  in(u"Nota", u"txtCategorias", [&] {
    instance.EstadoFicha = limpia;
    put(u"txtCategorias", u"  Otra ");
    EXPECT_TRUE(check());
    EXPECT_EQ(card(u"txtCategorias"), u"  Otra ");
    EXPECT_TRUE(host.events.empty());
  });
}

TEST_F(Validation, every_other_state_is_checked) {
  host.answers.ChkListadoMx = [](bool& ok, ObjectRef, const Text&, const Text&) { ok = false; };
  in(u"Nota", u"txtCategorias", [&] {
    for (const std::int32_t any : {nueva, modificada, cargando}) {
      instance.EstadoFicha = any;
      EXPECT_FALSE(check()) << any;
    }
  });
}

TEST_F(Validation, without_an_active_control_there_is_nothing_to_check) {
  givenList(u"Nota");
  openCard();
  form().control(u"txtAsunto");
  instance.EstadoFicha = modificada;
  EXPECT_TRUE(check());
  putAway();
}

TEST_F(Validation, without_a_card_it_is_reported_and_passes) {
  instance.EstadoFicha = modificada;
  expectReport(u"ComprobarCambio de CNota", failure::objectNotSet);
  EXPECT_TRUE(check());
}

TEST_F(Validation, a_text_box_is_trimmed_a_combo_is_not) {
  in(u"Nota", u"txtAsunto", [&] {
    put(u"txtAsunto", u"  Llaves del ático ");
    EXPECT_TRUE(check());
    EXPECT_EQ(card(u"txtAsunto"), u"Llaves del ático");
  });
  in(u"Nota", u"txtNotas", [&] {
    put(u"txtNotas", u" \r\nTexto\r\n ");
    EXPECT_TRUE(check());
    EXPECT_EQ(card(u"txtNotas"), u"\r\nTexto\r\n");
  });
  in(u"Nota", u"cboAcceso", [&] {
    put(u"cboAcceso", u" Correo ");
    EXPECT_FALSE(check(false));
    EXPECT_EQ(card(u"cboAcceso"), u" Correo ");
  });
}

TEST_F(Validation, controls_without_a_check_pass_as_they_are) {
  for (const TextView name : {u"txtAsunto", u"cboUsuario", u"dtpFechaAlta", u"chkAvisoNota", u"txtNotas",
                              u"cmdCategorias", u"dtpFechaAviso", u"cboUsuarioAviso"})
    in(u"Nota", name, [&] {
      EXPECT_TRUE(check()) << toUtf8(name);
      EXPECT_TRUE(host.events.empty()) << toUtf8(name);
    });
  for (const TextView name : {u"txtUbicacion", u"txtTfnoCliente", u"dtpHoraFin", u"chkAnulada"})
    in(u"Visita", name, [&] { EXPECT_TRUE(check()) << toUtf8(name); });
}

TEST_F(Validation, the_list_of_documents_passes) {
  openCard(u"Nota", {}, [&] {
    control(u"LsvDocu").setVisible(true);
    ASSERT_TRUE(user.enters(u"LsvDocu"));
    instance.EstadoFicha = modificada;
    EXPECT_TRUE(check());
    EXPECT_TRUE(host.events.empty());
    putAway();
  });
}

TEST_F(Validation, categories_and_media_are_the_hosts_to_judge) {
  struct Row {
    TextView tipo, control;
    Text question;
  };
  const std::vector<Row> rows = {
      {u"Nota", u"txtCategorias", u"ChkListadoMx(txtCategorias, TipoCatNota, Categorías)"},
      {u"Visita", u"txtCategorias", u"ChkListadoMx(txtCategorias, TipoCatNota, Categorías)"},
      {u"Anuncio", u"txtCategorias", u"ChkListadoMx(txtCategorias, TipoCatNota, Categorías)"},
      {u"Anuncio", u"txtDonde", u"ChkListadoMx(txtDonde, TipoMedioPubli, Medios de publicidad)"},
  };
  for (const Row& row : rows) {
    for (const bool accepts : {true, false}) {
      host.answers.ChkListadoMx = [&](bool& ok, ObjectRef box, const Text&, const Text&) {
        EXPECT_FALSE(ok);
        putMember(box, u"Text", u"reescrito");
        ok = accepts;
      };
      in(row.tipo, row.control, [&] {
        EXPECT_EQ(check(), accepts) << toUtf8(row.question);
        EXPECT_EQ(host.events, std::vector<Text>{row.question});
        EXPECT_EQ(card(row.control), u"reescrito") << "the control itself is handed over";
      });
    }
  }
}

TEST_F(Validation, a_refused_client_keeps_the_proposal_and_the_telephone_follows_all_the_same) {
  host.answers.ChkClientes = [](const Text&, Text& proposal, bool& ok) {
    proposal = u"Luis Pérez";
    ok = false;
  };
  in(u"Visita", u"txtCliente",
     [&] {
       put(u"txtCliente", u" Luis ");
       EXPECT_FALSE(check());
       EXPECT_EQ(host.events, std::vector<Text>{u"ChkClientes(Luis)"});
       EXPECT_EQ(card(u"txtCliente"), u"Luis Pérez");
       EXPECT_EQ(card(u"txtTfnoCliente"), u"600 111 222");
     },
     {{u"Cliente", u"Eva Núñez"}, {u"IdCliente", 22}});
}

TEST_F(Validation, an_accepted_client_takes_its_telephone_by_name) {
  in(u"Visita", u"txtCliente", [&] {
    put(u"txtCliente", u"Eva Núñez");
    EXPECT_TRUE(check());
    EXPECT_EQ(card(u"txtTfnoCliente"), u"");
    EXPECT_EQ(database->opened.back(), u"SELECT Tfno1 FROM Cliente WHERE Alias='Eva Núñez'");
  });
}

TEST_F(Validation, a_client_that_was_not_changed_is_not_asked_about_but_its_telephone_is_read_again) {
  in(u"Visita", u"txtCliente", [&] {
    put(u"txtTfnoCliente", u"");
    EXPECT_TRUE(check());
    EXPECT_TRUE(host.events.empty());
    EXPECT_EQ(card(u"txtTfnoCliente"), u"600 111 222");
  });
}

TEST_F(Validation, a_client_that_was_cleared_is_the_hosts_to_judge) {
  for (const bool accepts : {true, false}) {
    host.answers.ChkClientes = [=](const Text&, Text&, bool& ok) { ok = accepts; };
    in(u"Visita", u"txtCliente", [&] {
      put(u"txtCliente", u"");
      EXPECT_EQ(check(), accepts);
      EXPECT_EQ(host.events, std::vector<Text>{u"ChkClientes()"});
    });
  }
}

TEST_F(Validation, an_agency_is_the_hosts_to_judge) {
  host.answers.ChkAgencias = [](const Text&, Text& proposal, bool& ok) {
    proposal = u"Fincas López";
    ok = false;
  };
  in(u"Visita", u"txtOtraAgencia", [&] {
    put(u"txtOtraAgencia", u"Fincas");
    EXPECT_FALSE(check());
    EXPECT_EQ(host.events, std::vector<Text>{u"ChkAgencias(Fincas)"});
    EXPECT_EQ(card(u"txtOtraAgencia"), u"Fincas López");
    EXPECT_TRUE(database->opened.empty()) << "no telephone of an agency";
    host.answers.ChkAgencias = [](const Text&, Text&, bool& ok) { ok = true; };
    EXPECT_TRUE(check());
  });
}

TEST_F(Validation, no_access_type_passes_without_a_query) {
  in(u"Nota", u"cboAcceso", [&] {
    put(u"cboAcceso", u"");
    EXPECT_TRUE(check());
    EXPECT_TRUE(database->opened.empty());
  });
}

TEST_F(Validation, an_access_type_is_looked_up_in_the_table_of_that_name) {
  in(u"Nota", u"cboAcceso", [&] {
    nota.TipoAccNota = u"OtraTabla";
    put(u"cboAcceso", u"correo");
    EXPECT_TRUE(check());
    EXPECT_EQ(database->opened.back(), u"SELECT IdTipoAccNota FROM TipoAccNota WHERE Nombre = 'correo'");
    EXPECT_EQ(card(u"cboAcceso"), u"correo") << "the spelling is not taken over";
    EXPECT_TRUE(host.events.empty());
  });
}

TEST_F(Validation, an_unknown_access_type_is_offered_to_the_host_and_refused_even_when_it_makes_one) {
  in(u"Nota", u"cboAcceso", [&] {
    host.answers.ChkTipoAccNota = [&](bool& ok, const Text&, Text& name) {
      EXPECT_FALSE(ok);
      database->tableNamed(u"TipoAccNota")->add({4, u"Carta certificada"});
      name = u"Carta certificada";
      ok = true;
    };
    put(u"cboAcceso", u"Carta");
    EXPECT_FALSE(check());
    EXPECT_EQ(host.events, std::vector<Text>{u"ChkTipoAccNota(Carta)"});
    EXPECT_EQ(card(u"cboAcceso"), u"Carta certificada");
    EXPECT_TRUE(check()) << "the next check finds it";
    EXPECT_EQ(host.events.size(), 1u);
  });
}

TEST_F(Validation, an_unknown_access_type_that_the_host_declines_stays) {
  in(u"Nota", u"cboAcceso", [&] {
    host.answers.ChkTipoAccNota = [](bool&, const Text&, Text& name) { name = u"Carta certificada"; };
    put(u"cboAcceso", u"Carta");
    EXPECT_FALSE(check());
    EXPECT_EQ(card(u"cboAcceso"), u"Carta");
  });
}

TEST_F(Validation, without_asking_an_unknown_access_type_is_simply_refused) {
  in(u"Nota", u"cboAcceso", [&] {
    put(u"cboAcceso", u"Carta");
    EXPECT_FALSE(check(false));
    EXPECT_TRUE(host.events.empty());
  });
}

TEST_F(Validation, asking_or_not_makes_no_other_difference) {
  in(u"Nota", u"txtCategorias", [&] {
    EXPECT_TRUE(check(false));
    EXPECT_EQ(host.events.size(), 1u);
  });
  in(u"Visita", u"txtCliente", [&] {
    put(u"txtCliente", u"Eva Núñez");
    EXPECT_TRUE(check(false));
    EXPECT_EQ(host.events.size(), 1u);
  });
  in(u"Visita", u"cboComercial", [&] {
    put(u"cboComercial", u"Nadie");
    expectBox(u"Introduzca una persona de la lista.", 64, u"Comercial");
    EXPECT_FALSE(check(false));
  });
}

TEST_F(Validation, a_lead_time_is_put_into_its_normal_form_and_never_refused) {
  struct Row {
    TextView typed, shown;
  };
  const std::vector<Row> rows = {
      {u"15", u"15 minutos"},
      {u"1 MINUTO", u"1 minuto"},
      {u"90 minutos", u"1 hora"},
      {u"1 hora 30 minutos", u"1 minuto"},
      {u"1 dia", u"1 día"},
      {u"2 días", u""},
      {u"nunca", u""},
      {u"", u""},
      {u"120", u"2 horas"},
  };
  for (const Row& row : rows)
    in(u"Visita", u"cboTiempoAviso", [&] {
      put(u"cboTiempoAviso", row.typed);
      EXPECT_TRUE(check());
      EXPECT_EQ(card(u"cboTiempoAviso"), row.shown) << toUtf8(row.typed);
    });
}

TEST_F(Validation, salespeople_take_the_spelling_of_the_table_or_are_refused) {
  nota.DosComerciales = true;
  for (const TextView combo : {u"cboComercial", u"cboComercial2"}) {
    in(u"Visita", combo, [&] {
      put(combo, u"ANA RUIZ");
      EXPECT_TRUE(check());
      EXPECT_EQ(card(combo), u"Ana Ruiz");
      put(combo, u"Nadie");
      expectBox(u"Introduzca una persona de la lista.", 64, u"Comercial");
      EXPECT_FALSE(check());
      EXPECT_EQ(card(combo), u"Nadie");
      put(combo, u"");
      EXPECT_TRUE(check());
    });
  }
}

TEST_F(Validation, a_number_of_days_fits_a_byte_or_is_refused_with_its_text_selected) {
  for (const TextView good : {u"0", u"255", u" 12 ", u"1,5", u"1e2", u"&HFF", u"255,4", u""})
    in(u"Anuncio", u"txtNDias", [&] {
      put(u"txtNDias", good);
      EXPECT_TRUE(check()) << toUtf8(good);
    });
  for (const TextView bad : {u"256", u"-1", u"quince", u"1 2 x"})
    in(u"Anuncio", u"txtNDias", [&] {
      put(u"txtNDias", bad);
      expectBox(u"Introduzca un número entre 0 y 255.", 48, u"Error");
      EXPECT_FALSE(check()) << toUtf8(bad);
      const auto box = form().as<forms::TextBox>(u"txtNDias");
      EXPECT_EQ(box->SelStart(), 0);
      EXPECT_EQ(box->SelLength(), static_cast<int>(bad.size()));
    });
}

TEST_F(Validation, a_number_of_days_beyond_all_bounds_is_reported_and_passes) {
  in(u"Anuncio", u"txtNDias", [&] {
    put(u"txtNDias", u"99999999999");
    expectReport(u"ComprobarByte() de RutinasErr", failure::overflow);
    EXPECT_TRUE(check());
  });
}

TEST_F(Validation, a_check_that_fails_is_reported_and_counts_as_good) {
  host.answers.ChkListadoMx = [](bool& ok, ObjectRef, const Text&, const Text&) {
    ok = false;
    throw Failure(failure::outOfMemory);
  };
  in(u"Nota", u"txtCategorias", [&] {
    expectReport(u"ComprobarCambio de CNota", failure::outOfMemory);
    EXPECT_TRUE(check());
  });
  in(u"Nota", u"cboAcceso", [&] {
    here.faults.failNext("Database.OpenRecordset", dao::failure::locked);
    expectReport(u"ComprobarCambio de CNota", dao::failure::locked);
    EXPECT_TRUE(check());
  });
}

TEST_F(Validation, a_failure_after_a_refusal_leaves_the_refusal) {
  in(u"Nota", u"cboAcceso", [&] {
    host.answers.ChkTipoAccNota = [](bool&, const Text&, Text&) { throw Failure(failure::outOfMemory); };
    put(u"cboAcceso", u"Carta");
    expectReport(u"ComprobarCambio de CNota", failure::outOfMemory);
    EXPECT_FALSE(check());
  });
}

TEST_F(Validation, a_telephone_that_cannot_be_read_is_emptied_and_the_client_stands) {
  in(u"Visita", u"txtCliente", [&] {
    here.faults.failNext("Database.OpenRecordset", dao::failure::locked);
    expectReport(u"TelefonoCliente de CNota", dao::failure::locked);
    EXPECT_TRUE(check());
    EXPECT_EQ(card(u"txtTfnoCliente"), u"");
  });
}

// The same on the way out of a control.

TEST_F(Validation, leaving_a_control_of_a_clean_card_asks_nobody_and_clears_its_tag) {
  openCard(u"Nota", {}, [&] {
    user.enters(u"txtCategorias");
    EXPECT_EQ(tag(u"txtCategorias"), HacerAlgo);
    EXPECT_TRUE(user.enters(u"txtNotas"));
    EXPECT_EQ(tag(u"txtCategorias"), u"");
    EXPECT_TRUE(host.events.empty());
  });
}

TEST_F(Validation, a_control_that_is_refused_keeps_the_focus_and_its_tag) {
  host.answers.ChkListadoMx = [](bool& ok, ObjectRef, const Text&, const Text&) { ok = false; };
  openCard(u"Nota", {}, [&] {
    user.types(u"txtCategorias", u"Inventada");
    EXPECT_FALSE(user.enters(u"txtNotas"));
    EXPECT_EQ(form().ActiveControl()->Name(), u"txtCategorias");
    EXPECT_EQ(tag(u"txtCategorias"), HacerAlgo);
    putAway();
  });
}

TEST_F(Validation, leaving_a_new_access_type_takes_two_attempts) {
  openCard(u"Nota", {}, [&] {
    host.answers.ChkTipoAccNota = [&](bool& ok, const Text& typed, Text& name) {
      database->tableNamed(u"TipoAccNota")->add({4, typed});
      name = typed;
      ok = true;
    };
    user.types(u"cboAcceso", u"Carta");
    EXPECT_FALSE(user.enters(u"txtNotas"));
    EXPECT_TRUE(user.enters(u"txtNotas"));
    putAway();
  });
}

TEST_F(Validation, a_half_filled_card_can_be_kept_open_by_the_host) {
  openCard(u"Nota", {}, [&] {
    user.enters(u"txtCategorias");
    instance.EstadoFicha = cargando;
    host.answers.ChkListadoMx = [](bool& ok, ObjectRef, const Text&, const Text&) { ok = false; };
    EXPECT_FALSE(user.closes());
    EXPECT_TRUE(form().Visible());
    host.answers.ChkListadoMx = [](bool& ok, ObjectRef, const Text&, const Text&) { ok = true; };
    EXPECT_TRUE(user.closes());
  });
}

TEST_F(Validation, a_check_box_that_is_left_clears_its_own_tag_and_checks_nothing_of_the_next_control) {
  openCard(u"Nota", {}, [&] {
    user.unticks(u"chkAvisoNota");
    EXPECT_EQ(state(), modificada);
    host.events.clear();
    EXPECT_TRUE(user.enters(u"txtCategorias"));
    EXPECT_EQ(tag(u"chkAvisoNota"), u"");
    EXPECT_TRUE(host.events.empty());
    putAway();
  });
}

}  // namespace
}  // namespace ovalia
