#include "tests/cards/Moves.h"

namespace ovalia {
namespace {

using kit::MoveCase;
using kit::moves;
using Lines = std::vector<Text>;

// Moves in a list in which another user deletes.
class NavigationRecovery : public kit::Moving {
 protected:
  void expectGoneBox() {
    expectBox(u"La ficha acaba de ser borrada por otro usuario y\r\nno se volverá a visualizar.", 4144,
              u"Error");
  }
};

// The row to which the card is moved, or from which.

TEST_F(NavigationRecovery, onto_a_deleted_row_the_host_reads_its_list_again_and_the_card_stays) {
  struct {
    void (*run)(Instance& nota);
    int gone, from;
    std::int32_t standsOn;  // afterwards: a key
    Lines criteria;
  } const cases[] = {
      {Primero, 1, 3, 502, {}},
      {Siguiente, 3, 2, 504, {u"IdAnota = 502"}},
      {Anterior, 2, 3, 501, {u"IdAnota = 503"}},
      {Ultimo, 4, 2, 503, {}},
  };
  for (const auto& expected : cases) {
    listOf(u"Nota", 4);
    open(expected.from, [&] {
      keep();
      const Text title = caption();
      list->vanish(static_cast<std::size_t>(expected.gone) - 1);
      expected.run(instance);
      EXPECT_EQ(host.events, Lines{u"CargaRegistros(Nota, NotaIP)"});
      EXPECT_EQ(crs().criteria, expected.criteria);
      EXPECT_EQ(standsOn(), expected.standsOn);
      EXPECT_EQ(card(u"txtNotas"), kept);
      EXPECT_EQ(caption(), title);
      EXPECT_EQ(state(), limpia);
      EXPECT_EQ(here.screen.pointer, expected.run == Primero ? 11 : 0);
      EXPECT_EQ(here.screen.beeps, 0);
      here.screen.pointer = 0;
    });
  }
}

TEST_F(NavigationRecovery, onto_a_deleted_row_the_answer_to_the_question_stands) {
  for (const MoveCase& move : moves) {
    for (const int answer : {yes, no}) {
      openOn(u"Nota", [&] {
        change({{u"txtNotas", typed}});
        const auto left = list->rows[1];
        list->vanish(static_cast<std::size_t>(move.target) - 1);
        expectQuestion(changedNote, answer);
        move.run(instance);
        EXPECT_EQ(host.events, Lines{u"CargaRegistros(Nota, NotaIP)"});
        EXPECT_EQ(left->values[list->column(u"Notas")].text(), answer == yes ? typed : u"Texto 2");
        EXPECT_EQ(card(u"txtNotas"), typed) << "card and list differ from now on";
        EXPECT_EQ(state(), limpia);
        here.screen.pointer = 0;
      });
    }
  }
}

TEST_F(NavigationRecovery, the_host_may_put_another_list_in_its_place) {
  openOn(u"Nota", [&] {
    host.answers.CargaRegistros = [&](Text&, Text&) { nota.crs = database->OpenRecordset(u"NotaIP"); };
    list->vanish(2);
    const auto before = nota.crs;
    Siguiente(instance);
    EXPECT_NE(nota.crs, before);
    EXPECT_EQ(crs().criteria, Lines{u"IdAnota = 502"});
    EXPECT_TRUE(crs().isEOF());
  });
}

TEST_F(NavigationRecovery, past_the_last_row_it_leaves_the_list_behind_it) {
  openOn(u"Nota", [&] {
    list->vanish(2);
    Siguiente(instance);
    EXPECT_TRUE(crs().isEOF());
    EXPECT_EQ(card(u"txtNotas"), u"Texto 2");
    EXPECT_EQ(here.screen.beeps, 0);
  });
}

TEST_F(NavigationRecovery, before_the_first_row_it_leaves_the_list_before_it) {
  openOn(u"Nota", [&] {
    list->vanish(0);
    Anterior(instance);
    EXPECT_TRUE(crs().isBOF());
    EXPECT_EQ(card(u"txtNotas"), u"Texto 2");
    EXPECT_EQ(here.screen.beeps, 0);
  });
}

TEST_F(NavigationRecovery, from_a_row_that_is_gone_a_neighbour_is_looked_for_by_no_key) {
  struct {
    void (*run)(Instance& nota);
    std::int32_t position;  // from 0; the list was read anew and stands on its first row
  } const cases[] = {{Anterior, -1}, {Siguiente, 1}};
  for (const auto& expected : cases) {
    openOn(u"Nota", [&] {
      keep();
      list->vanish(1);
      expected.run(instance);
      EXPECT_EQ(host.events, Lines{u"CargaRegistros(Nota, NotaIP)"});
      EXPECT_EQ(crs().criteria, Lines{u"IdAnota = 0"});
      EXPECT_EQ(crs().AbsolutePosition(), expected.position);
      EXPECT_EQ(card(u"txtNotas"), kept);
      EXPECT_EQ(state(), limpia);
    });
  }
}

TEST_F(NavigationRecovery, from_a_row_that_is_gone_the_ends_are_reached_all_the_same) {
  for (const MoveCase& move : {moves[0], moves[3]}) {
    openOn(u"Nota", [&] {
      list->vanish(1);
      move.run(instance);
      expectOn(move.target);
      EXPECT_TRUE(host.events.empty());
    });
  }
}

TEST_F(NavigationRecovery, a_row_that_goes_while_it_is_shown_is_told_and_leaves_the_card_half_filled) {
  for (const MoveCase& move : moves) {
    openOn(u"Nota", [&] {
      keep();
      // The fill begins with a look at the list's start, which the moves back have at their own beginning
      // too.
      const int looks = move.target == 1 ? (move.run == Anterior ? 3 : 2) : 1;
      here.faults.onNth("Recordset.BOF", looks,
                        [&] { list->vanish(static_cast<std::size_t>(move.target) - 1); });
      expectGoneBox();
      expectReport(Text(move.name), failure::noSuchMember);
      move.run(instance);
      EXPECT_EQ(crs().AbsolutePosition() + 1, move.target);
      EXPECT_EQ(state(), cargando);
      EXPECT_EQ(card(u"txtNotas"), kept);
      EXPECT_TRUE(host.events.empty());
      EXPECT_EQ(here.screen.pointer, move.run == Primero ? 11 : 0);
      here.screen.pointer = 0;
    });
  }
}

// What fails meanwhile.

TEST_F(NavigationRecovery, a_host_that_fails_to_read_its_list_again_reaches_the_command) {
  for (const MoveCase& move : moves) {
    openOn(u"Nota", [&] {
      keep();
      host.answers.CargaRegistros = [&](Text&, Text&) { throw Failure(failure::typeMismatch); };
      list->vanish(static_cast<std::size_t>(move.target) - 1);
      expectReport(u"dNota_Menu de CNota", failure::typeMismatch);
      command(u"Navegacion", move.tool);
      EXPECT_TRUE(crs().criteria.empty());
      EXPECT_EQ(card(u"txtNotas"), kept);
      EXPECT_EQ(state(), limpia);
      here.screen.pointer = 0;
    });
  }
}

TEST_F(NavigationRecovery, a_step_that_fails_reaches_the_command) {
  struct {
    const MoveCase& move;
    std::string_view operation;
    std::int32_t position;
  } const cases[] = {{moves[1], "Recordset.Find", 0},
                     {moves[2], "Recordset.Find", 0},
                     {moves[1], "Recordset.MovePrevious", 0},
                     {moves[2], "Recordset.MoveNext", 1},
                     {moves[3], "Recordset.MoveLast", 0}};
  for (const auto& expected : cases) {
    openOn(u"Nota", [&] {
      keep();
      host.answers.CargaRegistros = [&](Text&, Text&) {
        nota.crs->Requery();
        here.faults.failNext(expected.operation, dao::failure::locked);
      };
      list->vanish(static_cast<std::size_t>(expected.move.target) - 1);
      expectReport(u"dNota_Menu de CNota", dao::failure::locked);
      command(u"Orden", expected.move.tool);
      EXPECT_EQ(crs().AbsolutePosition(), expected.position);
      EXPECT_EQ(card(u"txtNotas"), kept);
      EXPECT_EQ(state(), limpia);
    });
  }
}

TEST_F(NavigationRecovery, what_fails_reaches_the_key_by_which_the_card_was_moved) {
  struct {
    const MoveCase& move;
    int key;
  } const cases[] = {{moves[1], kit::User::comma}, {moves[2], kit::User::fullStop}};
  for (const auto& expected : cases) {
    openOn(u"Nota", [&] {
      host.answers.CargaRegistros = [&](Text&, Text&) { nota.crs.reset(); };
      list->vanish(static_cast<std::size_t>(expected.move.target) - 1);
      const auto held = nota.crs;
      expectReport(u"dNota_KeyDown de CNota", failure::objectNotSet);
      user.presses(expected.key, kit::User::ctrlKey);
      nota.crs = held;
    });
  }
}

TEST_F(NavigationRecovery, meeting_another_deleted_row_it_ends_at_the_card_that_cannot_reload) {
  listOf(u"Nota", 4);
  open(1, [&] {
    list->vanish(1);
    host.answers.CargaRegistros = [&](Text&, Text&) {
      nota.crs->Requery();
      list->vanish(1);
    };
    expectGoneBox();
    here.expectLogEntry(u"Evento de frmNota", failure::noSuchMember);
    user.clicks(u"ID_Siguiente");
    EXPECT_EQ(crs().AbsolutePosition(), 1);
    EXPECT_EQ(card(u"txtNotas"), u"Texto 1");
    EXPECT_EQ(state(), limpia);
  });
}

}  // namespace
}  // namespace ovalia
