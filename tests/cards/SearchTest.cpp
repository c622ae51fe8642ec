#include "cards/Search.h"

#include "routines/ModuleValues.h"
#include "tests/cards/Steps.h"

namespace ovalia {
namespace {

using Table = std::vector<std::vector<Text>>;

class Search : public kit::Searching {
 protected:
  // The field table that the dialog was given.
  Table fieldTable() {
    const ObjectRef array = dialog->property(u"BuscarEn").toObject();
    EXPECT_EQ(getMember(array, u"UBound", {1}).toLong(), 2);
    EXPECT_EQ(getMember(array, u"UBound", {2}).toLong(), 4);
    Table table;
    for (std::int32_t row = 0; row < 3; ++row) {
      table.emplace_back();
      for (std::int32_t column = 0; column < 5; ++column)
        table.back().push_back(getMember(array, u"", {row, column}).toText());
    }
    return table;
  }
};

// The dialog.

TEST_F(Search, the_dialog_is_given_the_log_the_card_and_the_fields_and_then_shown) {
  openOn(u"Nota", [&] {
    moduleValues().ErrLogPath = u"\\datos\\errores.txt";
    Buscar_Nota(instance);
    EXPECT_EQ(dialog->journal,
              (std::vector<Text>{u"ErrLogPath = \\datos\\errores.txt", u"VentanaJefa = <object>",
                                 u"BuscarEn = <object>", u"Mostrar()"}));
    EXPECT_EQ(dialog->property(u"VentanaJefa").toObject(), instance.dNota);
  });
}

TEST_F(Search, each_kind_offers_its_fields) {
  const Table common = {{u"Asunto", u"Categorias", u"Fecha Alta", u"Fecha Actualización", u"Notas"},
                        {u"Asunto", u"Categorias", u"FechaAlta", u"FechaActualizacion", u"Notas"},
                        {u"Texto", u"Texto", u"Fecha", u"Fecha", u"Texto"}};
  const struct {
    TextView kind;
    Table table;
  } cases[] = {
      {u"Nota", common},
      {u"Visita", common},
      {u"Anuncio",
       {{u"Donde", u"Categorias", u"Fecha Alta", u"Fecha Actualización", u"Notas"},
        {u"Donde", u"Categorias", u"FechaAlta", u"FechaActualizacion", u"Notas"},
        {u"Texto", u"Texto", u"Fecha", u"Fecha", u"Texto"}}},
      {u"Llamada",
       {{u"Fecha Alta", u"Fecha Actualización", u"Notas", u"", u""},
        {u"FechaAlta", u"FechaActualizacion", u"Notas", u"FechaActualizacion", u"Notas"},
        {u"Fecha", u"Fecha", u"Texto", u"Fecha", u"Texto"}}},
  };
  for (const auto& expected : cases) {
    openOn(expected.kind, [&] {
      Buscar_Nota(instance);
      EXPECT_EQ(fieldTable(), expected.table) << toUtf8(expected.kind);
    });
  }
}

TEST_F(Search, the_fields_go_by_the_form_and_not_by_the_kind_that_the_host_has_set) {
  openOn(u"Anuncio", [&] {
    nota.Tipo = u"Nota";
    Buscar_Nota(instance);
    EXPECT_EQ(fieldTable()[0][0], u"Donde");
  });
}

TEST_F(Search, the_dialog_searches_through_the_card) {
  openOn(u"Nota", [&] {
    bool found = false, other = true;
    dialog->answering(u"Mostrar", [&](Arguments) -> Variant {
      const ObjectRef window = dialog->property(u"VentanaJefa").toObject();
      found = callMember(window, u"BuscarElemento", {1, u"Notas = 'Texto 3'"}).toBoolean();
      other = callMember(window, u"BuscarElemento", {2, u"Notas = 'Texto 1'"}).toBoolean();
      return {};
    });
    Buscar_Nota(instance);
    EXPECT_TRUE(found);
    EXPECT_FALSE(other);
    expectOn(3);
  });
}

TEST_F(Search, the_dialog_is_let_go_when_it_has_closed) {
  openOn(u"Nota", [&] {
    std::weak_ptr<kit::FakeObject> made;
    here.objects.add(u"Mosken.CMosken", [&] {
      const auto fresh = std::make_shared<kit::FakeObject>();
      fresh->answering(u"Mostrar", [&](Arguments) -> Variant {
        EXPECT_FALSE(made.expired());
        return {};
      });
      made = fresh;
      return fresh;
    });
    Buscar_Nota(instance);
    EXPECT_TRUE(made.expired());
  });
}

TEST_F(Search, a_host_form_without_unsaved_work_is_not_asked) {
  openOn(u"Nota", [&] {
    for (const int state : {0, 3}) {
      host.vClase().with(u"cEstado", state);
      dialog->journal.clear();
      Buscar_Nota(instance);
      EXPECT_EQ(host.calls(*host.FichaInm, u"ComprobarCambio"), 0);
      EXPECT_EQ(host.calls(host.vClase(), u"AvisoCambio"), 0);
      EXPECT_EQ(host.calls(*dialog, u"Mostrar"), 1);
    }
  });
}

TEST_F(Search, unsaved_work_of_the_host_is_settled_first) {
  struct {
    int state;
    bool passes, mayGoOn, asked, searched;
  } const cases[] = {
      {1, true, true, true, true},   {2, true, true, true, true},   {1, true, false, true, false},
      {2, true, false, true, false}, {1, false, true, false, true}, {2, false, false, false, true},
  };
  for (const auto& expected : cases) {
    openOn(u"Nota", [&] {
      host.vClase().with(u"cEstado", expected.state).giving(u"AvisoCambio", expected.mayGoOn);
      host.vClase().journal.clear();
      host.FichaInm->giving(u"ComprobarCambio", expected.passes);
      dialog->journal.clear();
      Buscar_Nota(instance);
      EXPECT_EQ(host.vClase().journal,
                expected.asked ? std::vector<Text>{u"AvisoCambio(Preguntar)"} : std::vector<Text>{});
      EXPECT_EQ(host.calls(*dialog, u"Mostrar"), expected.searched ? 1 : 0);
    });
  }
}

TEST_F(Search, the_form_that_is_on_top_after_the_check_is_the_one_that_settles_its_work) {
  openOn(u"Nota", [&] {
    host.vClase().with(u"cEstado", 2);
    host.FichaInm->answering(u"ComprobarCambio", [&](Arguments) {
      host.shows(host.FichaUsuario);
      return Variant(true);
    });
    Buscar_Nota(instance);
    EXPECT_EQ(host.calls(host.vClase(), u"AvisoCambio"), 1);
    host.shows(host.FichaInm);
    EXPECT_EQ(host.calls(host.vClase(), u"AvisoCambio"), 0);
    EXPECT_EQ(host.calls(*dialog, u"Mostrar"), 1);
  });
}

TEST_F(Search, without_a_host_form_nobody_is_asked) {
  openOn(u"Nota", [&] {
    host.shows(nullptr);
    Buscar_Nota(instance);
    EXPECT_EQ(host.calls(*dialog, u"Mostrar"), 1);
  });
}

TEST_F(Search, unsaved_changes_of_the_card_are_not_asked_about) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", u"Nuevo texto"}});
    Buscar_Nota(instance);
    EXPECT_EQ(host.calls(*dialog, u"Mostrar"), 1);
    EXPECT_EQ(state(), modificada);
    EXPECT_EQ(card(u"txtNotas"), u"Nuevo texto");
  });
}

// A step.

TEST_F(Search, a_match_is_shown) {
  struct {
    std::int16_t mode;
    TextView criterion;
    int from, to;
  } const cases[] = {{1, u"Id = 120", 3, 1}, {2, u"Id = 120", 2, 3}, {3, u"Id = 120", 2, 1}};
  for (const auto& expected : cases) {
    listOf(u"Nota");
    open(expected.from, [&] {
      EXPECT_TRUE(search(expected.mode, expected.criterion));
      expectOn(expected.to);
      EXPECT_EQ(crs().criteria, std::vector<Text>{Text(expected.criterion)});
      EXPECT_EQ(here.screen.pointers, (std::vector<int>{11, 0}));
    });
  }
}

TEST_F(Search, without_a_match_the_row_it_started_from_is_shown_again) {
  for (const std::int16_t mode : {1, 2, 3}) {
    openOn(u"Nota", [&] {
      put(u"txtNotas", u"Otra cosa");
      EXPECT_FALSE(search(mode, u"Notas = 'Nada'"));
      expectOn(2);
      EXPECT_EQ(crs().criteria, (std::vector<Text>{u"Notas = 'Nada'", u"IdAnota = 502"}));
      EXPECT_EQ(here.screen.pointers, (std::vector<int>{11, 0}));
    });
  }
}

TEST_F(Search, a_step_back_from_the_first_match_finds_nothing) {
  openOn(u"Nota", [&] {
    EXPECT_FALSE(search(3, u"Notas = 'Texto 3'"));
    expectOn(2);
  });
}

TEST_F(Search, any_other_mode_searches_nothing_and_tells_of_the_last_search) {
  for (const std::int16_t mode : {0, 4, -1}) {
    openOn(u"Nota", [&] {
      EXPECT_TRUE(search(mode, u"Notas = 'Texto 3'"));
      expectOn(2);
      EXPECT_TRUE(crs().criteria.empty());
      EXPECT_FALSE(search(1, u"Notas = 'Nada'"));
      EXPECT_TRUE(search(mode, u"Notas = 'Texto 3'"));
    });
  }
}

TEST_F(Search, after_a_step_the_tools_are_those_of_a_saved_card_at_its_place) {
  for (const TextView criterion : {u"Notas = 'Texto 3'", u"Notas = 'Nada'"}) {
    openOn(u"Nota", [&] {
      for (const TextView tool : {u"ID_Imprimir", u"ID_Borrar", u"ID_Buscar"})
        form().toolbars().tool(tool)->setEnabled(false);
      form().toolbars().tool(u"ID_Guardar")->setEnabled(true);
      const bool found = search(1, criterion);
      for (const TextView tool : {u"ID_Imprimir", u"ID_Borrar", u"ID_Buscar"}) EXPECT_TRUE(enabled(tool));
      EXPECT_FALSE(enabled(u"ID_Guardar"));
      EXPECT_TRUE(enabled(u"ID_Primero"));
      EXPECT_EQ(enabled(u"ID_Siguiente"), !found);
    });
  }
}

TEST_F(Search, unsaved_changes_are_filled_over) {
  for (const TextView criterion : {u"Notas = 'Texto 3'", u"Notas = 'Nada'"}) {
    openOn(u"Nota", [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      search(1, criterion);
      EXPECT_NE(card(u"txtNotas"), u"Nuevo texto");
      EXPECT_EQ(state(), limpia);
      EXPECT_EQ(at(2, u"Notas").text(), u"Texto 2");
    });
  }
}

TEST_F(Search, an_empty_list_or_criterion_does_nothing) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", u"Nuevo texto"}});
    EXPECT_FALSE(search(1, u""));
    list->rows.clear();
    crs().Requery();
    EXPECT_FALSE(search(1, u"Id = 120"));
    EXPECT_EQ(card(u"txtNotas"), u"Nuevo texto");
    EXPECT_EQ(state(), modificada);
    EXPECT_TRUE(crs().criteria.empty());
    EXPECT_TRUE(here.screen.pointers.empty());
  });
}

}  // namespace
}  // namespace ovalia
