#include "cards/CardLists.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "cards/EditTracking.h"
#include "tests/cardkit/CardTest.h"

namespace ovalia {
namespace {

// One list of the host's: its control, the question, and how the test answers it.
struct HostList {
  TextView tipo;
  TextView control;
  void (*open)(Instance& nota);
  Text question;
  TextView report;
  TextView choice;
};

const std::vector<HostList>& hostLists() {
  static const std::vector<HostList> rows = {
      {u"Nota", u"txtCategorias", ListaCategorias, u"VerListadoMx(Llaves; Urgente, TipoCatNota, Categorías)",
       u"ListaCategorias de CNota", u"Otra"},
      {u"Anuncio", u"txtDonde", ListaMedioPubli,
       u"VerListadoMx(Calle Mayor, 3, TipoMedioPubli, Medios de publicidad)", u"ListaMedioPubli de CNota",
       u"El Diario"},
      {u"Visita", u"txtCliente", ListaCliente, u"VerClientes(Luis Pérez)", u"ListaCliente de CNota",
       u"Eva Núñez"},
      {u"Visita", u"txtOtraAgencia", ListaAgencia, u"VerAgencias(Casas del Sur)", u"ListaAgencia de CNota",
       u"Fincas López"},
      {u"Nota", u"cboUsuario", ListaUsuario, u"VerUsuarios(Ana Ruiz)", u"ListaUsuario de CNota",
       u"Benito Gil"},
  };
  return rows;
}

class CardLists : public kit::CardTest {
 protected:
  void with(TextView tipo, const std::function<void()>& script) {
    openCard(tipo, {}, [&] {
      script();
      putAway();
    });
  }

  // Whichever list is opened, the host gives this.
  void hostChooses(
      TextView choice, std::function<void()> meanwhile = [] {}) {
    const auto chooses = [choice = Text(choice), meanwhile](const Text&, Text& chosen) {
      EXPECT_EQ(chosen, u"");
      meanwhile();
      chosen = choice;
    };
    host.answers.VerClientes = host.answers.VerAgencias = host.answers.VerUsuarios = chooses;
    host.answers.VerListadoMx = [chooses](Text& chosen, const Text& value, const Text&, const Text&) {
      chooses(value, chosen);
    };
  }

  // In which order the focus and the changes come.
  std::vector<Text> orderOf(void (*list)(Instance& nota)) {
    std::vector<Text> order;
    const auto focus = form().CogerFoco.connect([&](forms::ControlRef&) { order.push_back(u"focus"); });
    const auto change = form().Cambio.connect([&](forms::ControlRef&, Text&) { order.push_back(u"change"); });
    list(instance);
    form().CogerFoco.disconnect(focus);
    form().Cambio.disconnect(change);
    return order;
  }

  Text focused() const { return form().ActiveControl()->Name(); }
};

TEST_F(CardLists, the_hosts_choice_is_written_into_the_control_and_the_control_has_the_focus) {
  for (const HostList& row : hostLists()) {
    SCOPED_TRACE(toUtf8(row.report));
    hostChooses(row.choice);
    host.events.clear();
    with(row.tipo, [&] {
      row.open(instance);
      EXPECT_EQ(host.events, std::vector<Text>{row.question});
      EXPECT_EQ(card(row.control), row.choice);
      EXPECT_EQ(focused(), row.control);
      EXPECT_EQ(state(), modificada);
    });
  }
}

TEST_F(CardLists, a_cancelled_dialog_has_to_give_the_old_text_back) {
  for (const HostList& row : hostLists()) {
    SCOPED_TRACE(toUtf8(row.report));
    hostChooses(u"");
    with(row.tipo, [&] {
      row.open(instance);
      EXPECT_EQ(card(row.control), u"") << "the answer counts as it stands";
      EXPECT_EQ(state(), modificada);
    });
  }
}

TEST_F(CardLists, a_host_that_gives_the_old_text_back_leaves_the_card_clean) {
  for (const HostList& row : hostLists()) {
    with(row.tipo, [&] {
      const Text before = card(row.control);
      row.open(instance);
      EXPECT_EQ(card(row.control), before) << toUtf8(row.report);
      EXPECT_EQ(state(), limpia) << toUtf8(row.report);
    });
  }
}

TEST_F(CardLists, the_control_is_tracked_by_the_state_of_the_card_before_the_host_is_asked) {
  struct Row {
    std::int32_t state;
    TextView before, during;
  };
  const std::vector<Row> tags = {
      {limpia, u"", HacerAlgo},           {limpia, HacerNada, HacerAlgo},
      {modificada, u"", HacerNada},       {modificada, HacerNada, HacerNada},
      {modificada, HacerAlgo, HacerAlgo}, {nueva, u"", u""},
      {nueva, HacerNada, HacerNada},      {cargando, u"", u""},
      {cargando, HacerNada, HacerNada},   {cargando, HacerAlgo, HacerAlgo},
  };
  for (const HostList& row : hostLists()) {
    for (const Row& expected : tags) {
      bool asked = false;
      with(row.tipo, [&] {
        user.enters(u"txtNotas");
        hostChooses(card(row.control), [&] {
          asked = true;
          EXPECT_EQ(tag(row.control), expected.during)
              << toUtf8(row.report) << " " << expected.state << " " << toUtf8(expected.before);
        });
        instance.EstadoFicha = expected.state;
        control(row.control).Tag = expected.before;
        row.open(instance);
      });
      EXPECT_TRUE(asked);
    }
  }
}

TEST_F(CardLists, the_focus_comes_before_the_answer_is_written) {
  for (const HostList& row : hostLists()) {
    if (row.open == ListaUsuario) continue;
    hostChooses(row.choice);
    with(row.tipo, [&] {
      user.enters(u"txtNotas");
      EXPECT_EQ(orderOf(row.open), (std::vector<Text>{u"focus", u"change"})) << toUtf8(row.report);
    });
  }
}

TEST_F(CardLists, the_user_is_written_before_the_focus_comes) {
  hostChooses(u"Benito Gil");
  with(u"Nota", [&] {
    user.enters(u"txtNotas");
    EXPECT_EQ(orderOf(ListaUsuario), (std::vector<Text>{u"change", u"focus"}));
  });
}

TEST_F(CardLists, a_control_that_is_left_for_the_list_and_refused_keeps_the_focus) {
  hostChooses(u"Eva Núñez");
  host.answers.ChkListadoMx = [](bool& ok, ObjectRef, const Text&, const Text&) { ok = false; };
  with(u"Visita", [&] {
    user.types(u"txtCategorias", u"Inventada");
    ListaCliente(instance);
    EXPECT_EQ(focused(), u"txtCategorias");
    EXPECT_EQ(card(u"txtCliente"), u"Eva Núñez");
  });
}

TEST_F(CardLists, a_chosen_client_brings_its_telephone) {
  hostChooses(u"Eva Núñez");
  with(u"Visita", [&] {
    EXPECT_EQ(card(u"txtTfnoCliente"), u"600 111 222");
    ListaCliente(instance);
    EXPECT_EQ(card(u"txtTfnoCliente"), u"");
    EXPECT_EQ(database->opened.back(), u"SELECT Tfno1 FROM Cliente WHERE Alias='Eva Núñez'");
    hostChooses(u"Luis Pérez");
    ListaCliente(instance);
    EXPECT_EQ(card(u"txtTfnoCliente"), u"600 111 222");
  });
}

TEST_F(CardLists, a_user_that_the_list_lacks_is_reported_and_the_focus_stays) {
  hostChooses(u"Nadie");
  with(u"Nota", [&] {
    user.enters(u"txtNotas");
    expectReport(u"ListaUsuario de CNota", failure::notInList);
    ListaUsuario(instance);
    EXPECT_EQ(card(u"cboUsuario"), u"Ana Ruiz");
    EXPECT_EQ(focused(), u"txtNotas");
  });
}

// Access types.

TEST_F(CardLists, an_access_type_that_the_host_makes_is_listed_and_taken) {
  with(u"Nota", [&] {
    user.enters(u"txtNotas");
    host.answers.ChkTipoAccNota = [&](bool& ok, const Text& old, Text& name) {
      EXPECT_FALSE(ok);
      EXPECT_EQ(name, u"");
      EXPECT_EQ(old, u"Teléfono");
      EXPECT_EQ(tag(u"cboAcceso"), HacerAlgo);
      database->tableNamed(u"TipoAccNota")->add({4, u"Carta"});
      name = u"Carta";
      ok = true;
    };
    ListaAcceso(instance);
    EXPECT_EQ(card(u"cboAcceso"), u"Carta");
    EXPECT_EQ(control(u"cboAcceso").get(u"ListCount").toLong(), 4);
    EXPECT_EQ(form().as<forms::ComboBox>(u"cboAcceso")->entries().front().text, u"Carta");
    EXPECT_EQ(focused(), u"cboAcceso");
    EXPECT_EQ(state(), modificada);
  });
}

TEST_F(CardLists, a_declined_dialog_loses_no_typed_access_type_and_raises_nothing) {
  with(u"Nota", [&] {
    user.types(u"cboAcceso", u"Cart");
    host.answers.ChkTipoAccNota = [](bool&, const Text&, Text& name) { name = u"Carta"; };
    EXPECT_EQ(orderOf(ListaAcceso), std::vector<Text>{});
    EXPECT_EQ(card(u"cboAcceso"), u"Cart");
    EXPECT_EQ(control(u"cboAcceso").get(u"ListCount").toLong(), 3) << "reloaded, not doubled";
    EXPECT_EQ(focused(), u"cboAcceso");
  });
}

TEST_F(CardLists, access_types_are_listed_from_the_table_that_the_host_names) {
  database->table(u"AccesosAnuncio", {{u"IdTipoAccNota", dao::dbLong}, {u"Nombre"}}, {{1, u"Portal"}});
  with(u"Nota", [&] {
    nota.TipoAccNota = u"AccesosAnuncio";
    host.answers.ChkTipoAccNota = {};
    ListaAcceso(instance);
    const auto combo = form().as<forms::ComboBox>(u"cboAcceso");
    ASSERT_EQ(combo->entries().size(), 1u);
    EXPECT_EQ(combo->entries().front().text, u"Portal");
    EXPECT_EQ(database->opened.back(), u"SELECT Nombre FROM AccesosAnuncio  ORDER BY Nombre ASC;");
  });
}

TEST_F(CardLists, the_access_type_is_written_before_the_focus_comes) {
  with(u"Nota", [&] {
    user.enters(u"txtNotas");
    host.answers.ChkTipoAccNota = [](bool& ok, const Text&, Text& name) {
      name = u"Correo";
      ok = true;
    };
    EXPECT_EQ(orderOf(ListaAcceso), (std::vector<Text>{u"change", u"focus"}));
  });
}

TEST_F(CardLists, an_access_table_that_is_missing_is_reported_with_the_list_emptied_and_the_text_kept) {
  with(u"Nota", [&] {
    nota.TipoAccNota = u"NoExiste";
    expectReport(u"ListaAcceso de CNota", dao::failure::notInCollection);
    ListaAcceso(instance);
    EXPECT_EQ(card(u"cboAcceso"), u"Teléfono");
    EXPECT_EQ(control(u"cboAcceso").get(u"ListCount").toLong(), 0);
  });
}

// Which list belongs to what.

TEST_F(CardLists, the_control_with_the_focus_decides_which_list_is_opened) {
  struct Row {
    TextView tipo, control, question;
  };
  const std::vector<Row> rows = {
      {u"Nota", u"txtCategorias", u"VerListadoMx"},
      {u"Nota", u"cmdCategorias", u"VerListadoMx"},
      {u"Anuncio", u"cmdMedioPubli", u"VerListadoMx"},
      {u"Anuncio", u"txtDonde", u"VerListadoMx"},
      {u"Visita", u"txtCliente", u"VerClientes"},
      {u"Visita", u"txtOtraAgencia", u"VerAgencias"},
      {u"Nota", u"cboAcceso", u"ChkTipoAccNota"},
      {u"Nota", u"cboUsuario", u"VerUsuarios"},
      {u"Nota", u"cboUsuarioAviso", u""},
      {u"Nota", u"txtAsunto", u""},
      {u"Visita", u"cboComercial", u""},
  };
  for (const Row& row : rows) {
    with(row.tipo, [&] {
      user.enters(row.control);
      host.events.clear();
      dNota_VerLista(instance);
      const Text asked = host.events.empty() ? Text() : host.events.front();
      EXPECT_EQ(asked.substr(0, asked.find(u'(')), row.question) << toUtf8(row.control);
      EXPECT_LE(host.events.size(), 1u);
    });
  }
}

TEST_F(CardLists, the_button_beside_the_categories_opens_their_list_and_hands_the_focus_on) {
  hostChooses(u"Otra");
  with(u"Nota", [&] {
    user.clicks(u"cmdCategorias");
    EXPECT_EQ(card(u"txtCategorias"), u"Otra");
    EXPECT_EQ(focused(), u"txtCategorias");
    EXPECT_EQ(tag(u"txtCategorias"), HacerAlgo);
    EXPECT_EQ(state(), modificada);
  });
}

TEST_F(CardLists, the_button_beside_the_medium_opens_its_list) {
  hostChooses(u"El Diario");
  with(u"Anuncio", [&] {
    user.clicks(u"cmdMedioPubli");
    EXPECT_EQ(card(u"txtDonde"), u"El Diario");
    EXPECT_EQ(focused(), u"txtDonde");
  });
}

TEST_F(CardLists, shift_and_enter_open_the_list_and_so_does_a_double_click_on_the_client) {
  hostChooses(u"Eva Núñez");
  with(u"Visita", [&] {
    user.enters(u"txtCliente");
    user.presses(kit::User::enter, kit::User::shiftKey);
    EXPECT_EQ(card(u"txtCliente"), u"Eva Núñez");
    hostChooses(u"Luis Pérez");
    user.doubleClicks(u"txtCliente");
    EXPECT_EQ(card(u"txtCliente"), u"Luis Pérez");
  });
}

TEST_F(CardLists, shift_and_enter_on_the_user_to_remind_open_nothing) {
  with(u"Nota", [&] {
    user.enters(u"cboUsuarioAviso");
    user.presses(kit::User::enter, kit::User::shiftKey);
    EXPECT_TRUE(host.events.empty());
  });
}

TEST_F(CardLists, a_list_opened_on_a_changed_card_does_not_track_its_control) {
  hostChooses(u"Otra");
  with(u"Nota", [&] {
    user.types(u"txtAsunto", u"Otro");
    user.clicks(u"cmdCategorias");
    EXPECT_EQ(tag(u"txtCategorias"), HacerNada);
    EXPECT_EQ(state(), modificada);
  });
}

// Failures.

TEST_F(CardLists, a_list_that_fails_is_reported_under_its_own_name_and_the_control_stays) {
  for (const HostList& row : hostLists()) {
    hostChooses(row.choice, [] { throw Failure(failure::outOfMemory); });
    with(row.tipo, [&] {
      const Text before = card(row.control);
      expectReport(Text(row.report), failure::outOfMemory);
      row.open(instance);
      EXPECT_EQ(card(row.control), before);
    });
  }
}

TEST_F(CardLists, a_control_that_cannot_take_the_focus_keeps_the_answer_out) {
  for (const HostList& row : hostLists()) {
    hostChooses(row.choice);
    with(row.tipo, [&] {
      const Text before = card(row.control);
      control(row.control).setEnabled(false);
      expectReport(Text(row.report), failure::badArgument);
      row.open(instance);
      EXPECT_EQ(card(row.control), row.open == ListaUsuario ? Text(row.choice) : before)
          << "the user is written first";
    });
  }
}

TEST_F(CardLists, without_a_card_each_list_is_reported) {
  for (const HostList& row : hostLists()) {
    expectReport(Text(row.report), failure::objectNotSet);
    row.open(instance);
  }
  expectReport(u"ListaAcceso de CNota", failure::objectNotSet);
  ListaAcceso(instance);
}

TEST_F(CardLists, a_list_that_the_card_has_no_control_for_is_reported) {
  with(u"Llamada", [&] {
    for (const HostList& row : hostLists()) {
      if (row.open == ListaUsuario) continue;
      expectReport(Text(row.report), failure::noSuchControl);
      row.open(instance);
    }
  });
}

TEST_F(CardLists, opening_a_list_with_nothing_on_screen_fails_to_the_caller) {
  try {
    dNota_VerLista(instance);
    FAIL() << "it has no trap of its own";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.number(), failure::objectNotSet);
  }
}

}  // namespace
}  // namespace ovalia
