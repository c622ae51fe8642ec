#include "cards/Navigation.h"

#include <gtest/gtest.h>

#include "tests/cardkit/OpenCard.h"

namespace ovalia {
namespace {

struct MoveCase {
  TextView tool, name;
  void (*run)(Instance& nota);
  int target;  // from the second of three
};

constexpr MoveCase moves[] = {
    {u"ID_Primero", u"Primero de CNota", Primero, 1},
    {u"ID_Anterior", u"Anterior de CNota", Anterior, 1},
    {u"ID_Siguiente", u"Siguiente de CNota", Siguiente, 3},
    {u"ID_Ultimo", u"Ultimo de CNota", Ultimo, 3},
};

const Text changedNote = u"¿Desea guardar los cambios realizados en la nota?";

class Navigation : public kit::OpenCardTest {
 protected:
  Text textOf(int row) { return u"Texto " + toText(row); }

  void expectOn(int row) {
    EXPECT_EQ(standsOn(), 500 + row);
    EXPECT_EQ(card(u"txtNotas"), textOf(row));
    EXPECT_EQ(state(), limpia);
  }
};

// The moves.

TEST_F(Navigation, every_move_goes_to_its_row_and_fills_the_card_again) {
  for (const TextView kind : kit::allKinds) {
    for (const MoveCase& move : moves) {
      openOn(kind, [&] {
        move.run(instance);
        expectOn(move.target);
        EXPECT_EQ(here.screen.beeps, 0);
      });
    }
  }
}

TEST_F(Navigation, after_a_move_the_tools_follow_the_place) {
  openOn(u"Nota", [&] {
    Siguiente(instance);
    EXPECT_TRUE(enabled(u"ID_Primero"));
    EXPECT_FALSE(enabled(u"ID_Siguiente"));
    EXPECT_TRUE(enabled(u"ID_Imprimir"));
    EXPECT_EQ(caption(), u"Inmueble 120 - Nota: 3/3");
  });
}

TEST_F(Navigation, only_the_move_to_the_first_shows_the_hourglass) {
  for (const MoveCase& move : moves) {
    openOn(u"Nota", [&] {
      move.run(instance);
      EXPECT_EQ(here.screen.pointers, move.run == Primero ? (std::vector<int>{11, 0}) : std::vector<int>{});
    });
  }
}

TEST_F(Navigation, past_the_edge_it_beeps_and_shows_the_last_row_there_is_again) {
  struct {
    void (*run)(Instance& nota);
    int from;
  } const cases[] = {{Siguiente, 3}, {Anterior, 1}};
  for (const auto& edge : cases) {
    here.screen.beeps = 0;
    listOf(u"Nota");
    open(edge.from, [&] {
      put(u"txtNotas", u"Otra cosa");
      edge.run(instance);
      expectOn(edge.from);
      EXPECT_EQ(here.screen.beeps, 1);
      EXPECT_FALSE(crs().isEOF() || crs().isBOF());
    });
  }
}

TEST_F(Navigation, past_the_edge_the_question_was_asked_before) {
  listOf(u"Nota");
  open(3, [&] {
    change({{u"txtNotas", u"Nuevo texto"}});
    expectQuestion(changedNote, yes);
    Siguiente(instance);
    EXPECT_EQ(at(3, u"Notas").text(), u"Nuevo texto");
    EXPECT_EQ(here.screen.beeps, 1);
    EXPECT_EQ(standsOn(), 503);
  });
}

TEST_F(Navigation, on_an_empty_list_nothing_happens) {
  for (const MoveCase& move : moves) {
    openOn(u"Nota", [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      list->rows.clear();
      crs().Requery();
      move.run(instance);
      EXPECT_EQ(state(), modificada);
      EXPECT_EQ(card(u"txtNotas"), u"Nuevo texto");
      EXPECT_EQ(here.screen.beeps, 0);
    });
  }
}

TEST_F(Navigation, at_the_edge_itself_only_the_moves_that_way_do_nothing) {
  struct {
    bool behind;  // the last row, else before the first
    void (*stuck[2])(Instance& nota);
    void (*free)(Instance& nota);
    int target;
  } const cases[] = {{true, {Siguiente, Ultimo}, Primero, 1}, {false, {Primero, Anterior}, Ultimo, 3}};
  for (const auto& edge : cases) {
    openOn(u"Nota", [&] {
      if (edge.behind) {
        crs().MoveLast();
        crs().MoveNext();
      } else {
        crs().MoveFirst();
        crs().MovePrevious();
      }
      for (const auto move : edge.stuck) move(instance);
      EXPECT_EQ(card(u"txtNotas"), u"Texto 2");
      edge.free(instance);
      expectOn(edge.target);
    });
  }
}

TEST_F(Navigation, a_value_that_is_refused_keeps_the_card_where_it_is) {
  for (const MoveCase& move : moves) {
    openOn(u"Anuncio", [&] {
      ASSERT_TRUE(user.enters(u"txtNDias"));
      change({{u"txtNDias", u"300"}});
      expectBox(u"Introduzca un número entre 0 y 255.", 48, u"Error");
      move.run(instance);
      EXPECT_EQ(standsOn(), 502);
      EXPECT_EQ(state(), modificada);
      EXPECT_EQ(card(u"txtNDias"), u"300");
    });
  }
}

TEST_F(Navigation, answered_yes_the_row_is_written_and_left) {
  for (const MoveCase& move : moves) {
    openOn(u"Nota", [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      expectQuestion(changedNote, yes);
      move.run(instance);
      EXPECT_EQ(at(2, u"Notas").text(), u"Nuevo texto");
      expectOn(move.target);
    });
  }
}

TEST_F(Navigation, answered_no_the_changes_are_dropped_and_the_row_is_left) {
  for (const MoveCase& move : moves) {
    openOn(u"Nota", [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      expectQuestion(changedNote, no);
      move.run(instance);
      EXPECT_EQ(at(2, u"Notas").text(), u"Texto 2");
      expectOn(move.target);
    });
  }
}

TEST_F(Navigation, answered_cancel_the_list_does_not_move) {
  for (const MoveCase& move : moves) {
    openOn(u"Nota", [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      expectQuestion(changedNote, cancel);
      move.run(instance);
      EXPECT_EQ(standsOn(), 502);
      EXPECT_EQ(state(), modificada);
      EXPECT_EQ(card(u"txtNotas"), u"Nuevo texto");
    });
  }
}

// A row that another user has deleted.

TEST_F(Navigation, onto_a_deleted_row_the_host_reads_its_list_again_and_the_card_stays) {
  struct {
    void (*run)(Instance& nota);
    int gone, from;
    std::int32_t standsOn;  // afterwards: a key
    std::vector<Text> criteria;
  } const cases[] = {
      {Primero, 1, 3, 502, {}},
      {Siguiente, 3, 2, 504, {u"IdAnota = 502"}},
      {Anterior, 2, 3, 501, {u"IdAnota = 503"}},
      {Ultimo, 4, 2, 503, {}},
  };
  for (const auto& expected : cases) {
    listOf(u"Nota", 4);
    open(expected.from, [&] {
      put(u"txtNotas", u"Lo que había");
      list->vanish(static_cast<std::size_t>(expected.gone) - 1);
      expected.run(instance);
      EXPECT_EQ(host.events, std::vector<Text>{u"CargaRegistros(Nota, NotaIP)"});
      EXPECT_EQ(crs().criteria, expected.criteria);
      EXPECT_EQ(standsOn(), expected.standsOn);
      EXPECT_EQ(card(u"txtNotas"), u"Lo que había");
      EXPECT_EQ(state(), limpia);
    });
  }
}

TEST_F(Navigation, the_host_may_put_another_list_in_its_place) {
  openOn(u"Nota", [&] {
    host.answers.CargaRegistros = [&](Text&, Text&) { nota.crs = database->OpenRecordset(u"NotaIP"); };
    list->vanish(2);
    const auto before = nota.crs;
    Siguiente(instance);
    EXPECT_NE(nota.crs, before);
    EXPECT_EQ(crs().criteria, std::vector<Text>{u"IdAnota = 502"});
    EXPECT_TRUE(crs().isEOF());
  });
}

TEST_F(Navigation, a_recovery_past_the_last_row_leaves_the_list_behind_it) {
  openOn(u"Nota", [&] {
    list->vanish(2);
    Siguiente(instance);
    EXPECT_TRUE(crs().isEOF());
    EXPECT_EQ(card(u"txtNotas"), u"Texto 2");
  });
}

TEST_F(Navigation, a_recovery_before_the_first_row_leaves_the_list_before_it) {
  openOn(u"Nota", [&] {
    list->vanish(0);
    Anterior(instance);
    EXPECT_TRUE(crs().isBOF());
    EXPECT_EQ(card(u"txtNotas"), u"Texto 2");
  });
}

TEST_F(Navigation, a_current_row_that_is_gone_is_recovered_without_a_word) {
  for (const MoveCase& move : {moves[1], moves[2]}) {
    openOn(u"Nota", [&] {
      list->vanish(1);
      move.run(instance);
      EXPECT_EQ(host.events, std::vector<Text>{u"CargaRegistros(Nota, NotaIP)"});
      EXPECT_EQ(crs().criteria, std::vector<Text>{u"IdAnota = 0"});
    });
  }
}

TEST_F(Navigation, what_fails_in_the_recovery_reaches_the_command) {
  for (const MoveCase& move : moves) {
    openOn(u"Nota", [&] {
      host.answers.CargaRegistros = [&](Text&, Text&) { throw Failure(failure::typeMismatch); };
      list->vanish(static_cast<std::size_t>(move.target) - 1);
      expectReport(u"dNota_Menu de CNota", failure::typeMismatch);
      command(u"Navegacion", move.tool);
    });
  }
}

TEST_F(Navigation, a_failing_step_of_the_recovery_reaches_the_command) {
  struct {
    TextView tool;
    int gone;
    std::string_view operation;
  } const cases[] = {{u"ID_Siguiente", 3, "Recordset.Find"},
                     {u"ID_Anterior", 1, "Recordset.Find"},
                     {u"ID_Ultimo", 3, "Recordset.MoveLast"}};
  for (const auto& expected : cases) {
    openOn(u"Nota", [&] {
      host.answers.CargaRegistros = [&](Text&, Text&) {
        nota.crs->Requery();
        here.faults.failNext(expected.operation, dao::failure::locked);
      };
      list->vanish(static_cast<std::size_t>(expected.gone) - 1);
      expectReport(u"dNota_Menu de CNota", dao::failure::locked);
      command(u"Orden", expected.tool);
    });
  }
}

TEST_F(Navigation, a_move_that_an_associated_object_cancels_ends_without_a_word) {
  struct {
    void (*run)(Instance& nota);
    std::string_view operation;
  } const cases[] = {{Primero, "Recordset.MoveFirst"},
                     {Siguiente, "Recordset.MoveNext"},
                     {Anterior, "Recordset.MovePrevious"},
                     {Ultimo, "Recordset.MoveLast"}};
  for (const auto& expected : cases) {
    openOn(u"Nota", [&] {
      put(u"txtNotas", u"Lo que había");
      here.faults.failNext(expected.operation, dao::failure::cancelledByObject);
      expected.run(instance);
      EXPECT_EQ(standsOn(), 502);
      EXPECT_EQ(card(u"txtNotas"), u"Lo que había");
      EXPECT_TRUE(host.events.empty());
    });
  }
}

TEST_F(Navigation, any_other_failure_is_reported_and_the_card_is_not_filled) {
  for (const MoveCase& move : moves) {
    openOn(u"Nota", [&] {
      put(u"txtNotas", u"Lo que había");
      here.faults.failNth("Field.Value", 1, dao::failure::locked);
      expectReport(Text(move.name), dao::failure::locked);
      move.run(instance);
      EXPECT_EQ(card(u"txtNotas"), u"Lo que había");
      EXPECT_EQ(here.screen.pointer, move.run == Primero ? 11 : 0);
      here.screen.pointer = 0;
    });
  }
}

TEST_F(Navigation, without_a_list_a_move_is_reported) {
  for (const MoveCase& move : moves) {
    expectReport(Text(move.name), failure::objectNotSet);
    move.run(instance);
  }
}

TEST_F(Navigation, a_deletion_that_races_the_question_makes_the_write_fail_and_the_move_is_not_made) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", u"Nuevo texto"}});
    expectQuestion(changedNote, yes).whileUp([&] { list->vanish(1); });
    expectBox(u"La ficha acaba de ser borrada por otro usuario y\r\nno se volverá a visualizar.", 4144,
              u"Error");
    expectReport(u"AvisoCambio de CNota", failure::noSuchMember);
    user.clicks(u"ID_Siguiente");
    EXPECT_EQ(state(), modificada);
    EXPECT_EQ(card(u"txtNotas"), u"Nuevo texto");
    EXPECT_EQ(here.screen.pointer, 11);
    here.screen.pointer = 0;
  });
}

}  // namespace
}  // namespace ovalia
