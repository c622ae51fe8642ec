#include "cards/Navigation.h"

#include "tests/cards/Moves.h"

namespace ovalia {
namespace {

using kit::MoveCase;
using kit::moves;

class Navigation : public kit::Moving {};

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

TEST_F(Navigation, after_a_move_the_tools_are_those_of_a_saved_card_at_its_place) {
  for (const MoveCase& move : moves) {
    openOn(u"Nota", [&] {
      for (const TextView tool : {u"ID_Imprimir", u"ID_Borrar", u"ID_Buscar"})
        form().toolbars().tool(tool)->setEnabled(false);
      form().toolbars().tool(u"ID_Guardar")->setEnabled(true);
      move.run(instance);
      for (const TextView tool : {u"ID_Imprimir", u"ID_Borrar", u"ID_Buscar"}) EXPECT_TRUE(enabled(tool));
      EXPECT_FALSE(enabled(u"ID_Guardar"));
      EXPECT_EQ(enabled(u"ID_Primero"), move.target == 3);
      EXPECT_EQ(enabled(u"ID_Siguiente"), move.target == 1);
      EXPECT_EQ(caption(), u"Inmueble 120 - Nota: " + toText(move.target) + u"/3");
    });
  }
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
      EXPECT_TRUE(here.screen.pointers.empty());
      EXPECT_TRUE(host.events.empty());
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
      change({{u"txtNotas", u"Nuevo texto"}});
      for (const auto move : edge.stuck) move(instance);
      EXPECT_EQ(card(u"txtNotas"), u"Nuevo texto");
      EXPECT_EQ(state(), modificada);
      EXPECT_EQ(crs().AbsolutePosition(), -1);
      instance.EstadoFicha = limpia;
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
      EXPECT_TRUE(here.screen.pointers.empty());
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
      EXPECT_TRUE(here.screen.pointers.empty());
    });
  }
}

TEST_F(Navigation, a_card_that_was_half_filled_moves_on_without_a_question) {
  for (const MoveCase& move : moves) {
    openOn(u"Nota", [&] {
      keep();
      instance.EstadoFicha = cargando;
      move.run(instance);
      expectOn(move.target);
      EXPECT_EQ(at(2, u"Notas").text(), u"Texto 2");
    });
  }
}

// A card that was never saved.

const Text newNote = u"¿Desea guardar la nueva nota?";

TEST_F(Navigation, a_new_card_is_saved_and_left_or_kept) {
  for (const MoveCase& move : moves) {
    for (const int answer : {yes, cancel}) {
      openOn(u"Nota", [&] {
        put(u"txtNotas", typed);
        instance.EstadoFicha = nueva;
        expectQuestion(newNote, answer);
        move.run(instance);
        EXPECT_EQ(at(2, u"Notas").text(), answer == yes ? typed : u"Texto 2");
        if (answer == yes) return expectOn(move.target);
        EXPECT_EQ(standsOn(), 502);
        EXPECT_EQ(state(), nueva);
        EXPECT_EQ(card(u"txtNotas"), typed);
      });
    }
  }
}

TEST_F(Navigation, a_new_card_that_is_not_wanted_is_left_from_wherever_the_list_stands_then) {
  struct {
    void (*run)(Instance& nota);
    int target;
  } const cases[] = {{Primero, 1}, {Anterior, 1}, {Siguiente, 4}, {Ultimo, 5}};
  for (const auto& expected : cases) {
    listOf(u"Nota", 5);
    open(2, [&] {
      instance.EstadoFicha = nueva;
      expectQuestion(newNote, no);
      expected.run(instance);
      EXPECT_EQ(crs().deletes, 1);
      expectOn(expected.target);
    });
  }
}

}  // namespace
}  // namespace ovalia
