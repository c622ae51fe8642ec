#include "cards/NewAnnotation.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "cards/Saving.h"
#include "tests/cards/NewRows.h"

namespace ovalia {
namespace {

using NewAnnotation = kit::NewRows;

const Text notFound = u"Por favor, guarde los cambios antes de generar una nueva anotación.";
const Text noneInserted = u"Error en nueva nota.";

TEST_F(NewAnnotation, the_card_comes_up_blank_on_the_new_row) {
  givenNewRows(u"Nota");
  create(true, [&] {
    EXPECT_EQ(state(), nueva);
    EXPECT_EQ(nota.crs->AbsolutePosition(), 1);
    EXPECT_EQ(caption(), u"Inmueble 120 - Nueva Nota");
    EXPECT_EQ(card(u"txtNotas"), u"");
    EXPECT_TRUE(enabled(u"ID_Guardar"));
    EXPECT_TRUE(enabled(u"ID_DeshacerCambios"));
    EXPECT_TRUE(enabled(u"ID_Primero"));
    EXPECT_FALSE(enabled(u"ID_Ultimo"));
  });
}

TEST_F(NewAnnotation, the_tools_of_a_saved_record_are_left_as_they_are) {
  givenNewRows(u"Nota");
  openCard([&] {
    for (const bool before : {true, false}) {
      for (const TextView tool : {u"ID_Imprimir", u"ID_Aniadir", u"ID_Borrar", u"ID_Buscar"})
        form().toolbars().tool(tool)->setEnabled(before);
      instance.EstadoFicha = limpia;
      EXPECT_TRUE(Nuevo(instance));
      for (const TextView tool : {u"ID_Imprimir", u"ID_Aniadir", u"ID_Borrar", u"ID_Buscar"})
        EXPECT_EQ(enabled(tool), before) << toUtf8(tool);
    }
    putAway();
  });
}

TEST_F(NewAnnotation, the_card_is_in_the_state_of_filling_while_it_is_blanked) {
  givenNewRows(u"Nota");
  openCard([&] {
    std::vector<std::int32_t> states;
    const auto heard = form().Cambio.connect([&](forms::ControlRef&, Text&) { states.push_back(state()); });
    EXPECT_TRUE(Nuevo(instance));
    form().Cambio.disconnect(heard);
    EXPECT_GT(states.size(), 4u);
    EXPECT_EQ(states, std::vector<std::int32_t>(states.size(), cargando));
    putAway();
  });
}

TEST_F(NewAnnotation, the_host_form_on_top_is_remembered) {
  givenNewRows(u"Nota");
  openCard([&] {
    host.FichaUsuario->property(u"vClase").toObject()->put(u"IdRegistro", 99);
    host.shows(host.FichaUsuario);
    EXPECT_TRUE(Nuevo(instance));
    EXPECT_EQ(instance.FormActiva, host.FichaUsuario);
    EXPECT_NE(database->executed.at(0).find(u"VALUES (99,"), Text::npos);
    putAway();
  });
}

TEST_F(NewAnnotation, the_host_is_asked_to_reload_and_then_to_complete_the_new_row) {
  givenNewRows(u"Visita");
  host.answers.CompletarNueva = [&](Text&, dao::RecordsetRef& rows) {
    EXPECT_EQ(rows->AbsolutePosition(), 1);
    EXPECT_EQ(state(), limpia);
    rows->Edit();
    rows->setValue(u"Asunto", u"Segunda visita");
    rows->setValue(u"Donde", u"En la oficina");
    rows->Update();
  };
  create(true, [&] {
    EXPECT_EQ(host.events,
              (std::vector<Text>{u"CargaRegistros(Visita, VisitaIP)", u"CompletarNueva(Visita)"}));
    EXPECT_EQ(card(u"txtAsunto"), u"Segunda visita");
    EXPECT_EQ(card(u"txtUbicacion"), u"En la oficina");
  });
}

TEST_F(NewAnnotation, the_first_save_writes_every_control_over_what_the_host_completed) {
  const auto completes = [&](const kit::Fields& fields) {
    host.answers.CompletarNueva = [fields](Text&, dao::RecordsetRef& rows) {
      rows->Edit();
      for (const auto& [name, value] : fields) rows->setValue(name, value);
      rows->Update();
    };
  };
  givenNewRows(u"Visita");
  completes({{u"Asunto", u"Segunda visita"},
             {u"Donde", u"En la oficina"},
             {u"Categorias", u"Del host"},
             {u"Notas", u"Del host"},
             {u"IdCliente", 22},
             {u"IdComercial", 1}});
  create(true, [&] {
    Guardar(instance, u"NoPreguntar");
    EXPECT_EQ(stored(u"Asunto", 2).text(), u"Segunda visita");
    EXPECT_EQ(stored(u"Donde", 2).text(), u"En la oficina");
    EXPECT_EQ(stored(u"Categorias", 2).text(), u"");
    EXPECT_EQ(stored(u"Notas", 2).text(), u"");
    EXPECT_TRUE(stored(u"IdCliente", 2).isNull());
    EXPECT_EQ(stored(u"IdComercial", 2).toLong(), 3) << "the user who works";
  });
  givenNewRows(u"Nota");
  completes(
      {{u"Asunto", u"Del host"}, {u"Categorias", u"Del host"}, {u"Notas", u"Del host"}, {u"NAgencia", 7}});
  create(true, [&] {
    Guardar(instance, u"NoPreguntar");
    for (const TextView lost : {u"Asunto", u"Categorias", u"Notas"})
      EXPECT_EQ(stored(Text(lost), 2).text(), u"") << toUtf8(lost);
    EXPECT_EQ(stored(u"NAgencia", 2).toLong(), 7) << "no card shows it";
  });
}

TEST_F(NewAnnotation, a_recordset_that_the_host_puts_in_its_place_is_searched) {
  givenNewRows(u"Nota");
  const dao::RecordsetRef before = nota.crs;
  host.answers.CargaRegistros = [&](Text&, Text&) {
    nota.crs = database->OpenRecordset(u"NotaIP");
    recognise(nota.crs);
  };
  create(true, [&] {
    EXPECT_NE(nota.crs, before);
    EXPECT_EQ(nota.crs->AbsolutePosition(), 1);
  });
}

TEST_F(NewAnnotation, a_host_that_does_not_reload_leaves_the_card_on_its_row_and_an_orphan_in_the_table) {
  givenNewRows(u"Nota");
  host.answers.CargaRegistros = [](Text&, Text&) {};
  expectBox(notFound, 64);
  create(false, [&] {
    EXPECT_EQ(state(), limpia);
    EXPECT_EQ(nota.crs->AbsolutePosition(), 0);
    EXPECT_EQ(card(u"txtAsunto"), u"Llaves en portería");
    EXPECT_TRUE(rowInserted());
    EXPECT_EQ(host.events, std::vector<Text>{u"CargaRegistros(Nota, NotaIP)"});
  });
}

TEST_F(NewAnnotation, a_host_that_reloads_without_the_new_row_leaves_the_list_on_another_row_than_the_card) {
  givenList(u"Nota", {{{u"Notas", u"Texto 1"}}, {{u"Notas", u"Texto 2"}}});
  standOn(2);
  recognise(nota.crs);
  openCard([&] {
    expectBox(notFound, 64);
    EXPECT_FALSE(Nuevo(instance));
    EXPECT_EQ(state(), limpia);
    EXPECT_EQ(card(u"txtNotas"), u"Texto 2");
    EXPECT_EQ(nota.crs->AbsolutePosition(), 0);
    user.types(u"txtNotas", u"Texto 2 y más");
    Guardar(instance, u"NoPreguntar");
    EXPECT_EQ(stored(u"Notas", 1).text(), u"Texto 2 y más") << "nothing guards the other row";
    EXPECT_EQ(stored(u"Notas", 2).text(), u"Texto 2");
  });
}

TEST_F(NewAnnotation, a_row_that_is_not_found_leaves_the_state_as_it_was) {
  host.answers.ChkListadoMx = [](bool& ok, ObjectRef, const Text&, const Text&) { ok = false; };
  for (const std::int32_t before : {limpia, nueva, modificada, cargando}) {
    givenNewRows(u"Nota");
    host.answers.CargaRegistros = [](Text&, Text&) {};
    openCard([&] {
      user.enters(u"txtCategorias");  // which fails its check, so that nothing is asked
      instance.EstadoFicha = before;
      expectBox(notFound, 64);
      EXPECT_FALSE(Nuevo(instance));
      EXPECT_EQ(state(), before);
      EXPECT_TRUE(rowInserted());
      putAway();
    });
  }
}

TEST_F(NewAnnotation, a_row_that_was_refused_is_told_and_searched_all_the_same) {
  givenNewRows(u"Nota");
  database->onExecute = [](TextView) { return 0; };
  expectBox(noneInserted, 16);
  expectBox(notFound, 64);
  create(false, [&] { EXPECT_EQ(state(), limpia); });
}

TEST_F(NewAnnotation, a_count_of_none_does_not_matter_when_the_row_is_found) {
  givenNewRows(u"Nota");
  const auto insert = database->onExecute;
  database->onExecute = [=](TextView sql) { return insert(sql), 0; };
  expectBox(noneInserted, 16);
  create(true, [&] { EXPECT_EQ(state(), nueva); });
}

TEST_F(NewAnnotation, of_two_rows_alike_the_first_is_taken) {
  givenNewRows(u"Nota");
  list->add(kit::annotation(u"Nota", list->columns, 1,
                            {{u"FechaAlta", kit::on(2026, 3, 9, 10, 20, 30)}, {u"Notas", u"la otra"}}));
  create(true, [&] { EXPECT_EQ(nota.crs->value(u"Notas").text(), u"la otra"); });
}

TEST_F(NewAnnotation, unsaved_changes_are_asked_about_first) {
  const Text question = u"¿Desea guardar los cambios realizados en la nota?";
  givenNewRows(u"Nota");
  openCard([&] {
    user.types(u"txtAsunto", u"Llaves del ático");
    expectBox(question, 35, u"Guardar", 2);
    EXPECT_FALSE(Nuevo(instance)) << "cancelled";
    EXPECT_EQ(state(), modificada);
    EXPECT_TRUE(database->executed.empty());

    expectBox(question, 35, u"Guardar", 7);
    EXPECT_TRUE(Nuevo(instance)) << "declined";
    EXPECT_EQ(stored(u"Asunto").text(), u"Llaves en portería");
    EXPECT_TRUE(rowInserted());
    putAway();
  });
}

TEST_F(NewAnnotation, changes_are_saved_before_the_new_row_is_made) {
  givenNewRows(u"Nota");
  openCard([&] {
    user.types(u"txtAsunto", u"Llaves del ático");
    expectBox(u"¿Desea guardar los cambios realizados en la nota?", 35, u"Guardar", 6).whileUp([&] {
      EXPECT_TRUE(database->executed.empty());
    });
    EXPECT_TRUE(Nuevo(instance));
    EXPECT_EQ(stored(u"Asunto", 1).text(), u"Llaves del ático");
    EXPECT_EQ(nota.crs->AbsolutePosition(), 1);
    putAway();
  });
}

TEST_F(NewAnnotation, a_save_that_fails_stops_the_creation) {
  givenNewRows(u"Nota");
  openCard([&] {
    user.types(u"txtAsunto", u"Llaves del ático");
    expectBox(u"¿Desea guardar los cambios realizados en la nota?", 35, u"Guardar", 6);
    here.faults.failNext("Recordset.Update", dao::failure::locked);
    expectReport(u"GrabaRegistro de CNota", dao::failure::locked);
    EXPECT_FALSE(Nuevo(instance));
    EXPECT_EQ(state(), modificada);
    EXPECT_TRUE(database->executed.empty());
    putAway();
  });
}

TEST_F(NewAnnotation, from_a_new_card_it_asks_and_then_inserts_a_second_row) {
  givenNewRows(u"Nota");
  openCard([&] {
    EXPECT_TRUE(Nuevo(instance));
    expectBox(u"¿Desea guardar la nueva nota?", 35, u"Guardar", 6);
    here.clock.time.minute = 25;
    host.answers.CargaRegistros = [&](Text&, Text&) { nota.crs->Requery(); };
    EXPECT_TRUE(Nuevo(instance));
    EXPECT_EQ(list->rows.size(), 3u);
    EXPECT_EQ(state(), nueva);
    putAway();
  });
}

TEST_F(NewAnnotation, a_control_that_fails_its_check_does_not_stop_it_and_nothing_is_asked) {
  givenNewRows(u"Nota");
  host.answers.ChkListadoMx = [](bool& ok, ObjectRef, const Text&, const Text&) { ok = false; };
  openCard([&] {
    user.types(u"txtCategorias", u"Inventada");
    EXPECT_EQ(state(), modificada);
    EXPECT_TRUE(Nuevo(instance));
    EXPECT_EQ(state(), nueva);
    EXPECT_EQ(stored(u"Categorias", 1).text(), u"Llaves; Urgente");
    putAway();
  });
}

TEST_F(NewAnnotation, a_card_that_is_being_filled_is_not_asked_about) {
  givenNewRows(u"Nota");
  openCard([&] {
    instance.EstadoFicha = cargando;
    EXPECT_TRUE(Nuevo(instance));
    putAway();
  });
}

TEST_F(NewAnnotation, the_database_is_asked_for_what_a_creation_needs_and_each_once) {
  givenNewRows(u"Nota", {u"NArchivos"});
  openCard([&] {
    constexpr const char* once[] = {"Database.OpenRecordset",     "Field.Value",          "Database.Execute",
                                    "Recordset.Requery",          "Recordset.Find",       "Recordset.NoMatch",
                                    "Recordset.AbsolutePosition", "Recordset.RecordCount"};
    std::vector<int> before;
    for (const char* operation : once) before.push_back(here.faults.visits(operation));
    const int all = here.faults.visits("");
    EXPECT_TRUE(Nuevo(instance));
    for (std::size_t i = 0; i < std::size(once); ++i)
      EXPECT_EQ(here.faults.visits(once[i]) - before[i], 1) << once[i];
    EXPECT_EQ(here.faults.visits("") - all, int(std::size(once)));
    putAway();
  });
}

}  // namespace
}  // namespace ovalia
