// One user deletes rows of the list through which the other one moves, in two processes.
#include "tests/host/TwoDesks.h"

namespace ovalia::host {
namespace {

struct Move {
  std::string command;
  int target;  // from the third of four
};
const Move moves[] = {
    {"tool ID_Primero", 1}, {"tool ID_Anterior", 2}, {"tool ID_Siguiente", 4}, {"tool ID_Ultimo", 4}};
const Move &toFirst = moves[0], &toPrevious = moves[1], &toNext = moves[2], &toLast = moves[3];

const std::string deletion = "box Borrar: ¿Desea borrar la ficha activa?";
const std::string yes = "press Sí", no = "press No", cancel = "press Cancelar";

// Begoña moves, Luis deletes.
class TwoDesksDeletion : public TwoDesks {
 protected:
  void luisDeletes(int place) {
    does(luis, "key F5");
    EXPECT_THAT(luis.answerTo("open grdNota " + std::to_string(key(place))), testing::StartsWith("card "));
    EXPECT_EQ(luis.answerTo("tool ID_Borrar"), deletion);
    does(luis, yes);
    does(luis, "close");
    EXPECT_EQ(one("SELECT Count(*) FROM NotaIP WHERE IdNota = " + std::to_string(key(place))), "0");
  }

  // What Begoña's card shows, and where the list behind it stands: "2/3", "before/3", "behind/3", and its
  // key.
  void expectCard(int place, const std::string& notes, bool changed) {
    EXPECT_EQ(begona.answerTo("tell shown txtNotas"), "is " + notes);
    EXPECT_EQ(begona.answerTo("tell caption"), "is " + title(place));
    EXPECT_EQ(begona.answerTo("tell enabled ID_Guardar"), changed ? "is yes" : "is no");
  }
  void expectList(const std::string& place, int row) {
    EXPECT_EQ(begona.answerTo("tell place"), "is " + place);
    EXPECT_EQ(begona.answerTo("tell row"), "is " + std::to_string(row));
  }
  void expectPointer(int pointer) {
    EXPECT_EQ(begona.answerTo("tell pointer"), "is " + std::to_string(pointer));
  }

  // The box that a gone row is told with, and the report that follows: a card cannot load its records again.
  void expectGone(const std::string& answer, const std::string& trap) {
    EXPECT_EQ(answer, rowGone);
    expectReported(begona, begona.answerTo("press Aceptar"), trap, failure::noSuchMember);
  }

  void closeUnsaved() {
    EXPECT_EQ(begona.answerTo("close"), changedNote);
    does(begona, no);
  }

  // Each part on the four notes anew.
  template <class Cases, class Part>
  void forEach(const Cases& cases, const Part& part) {
    for (const auto& each : cases) {
      part(each);
      makeNotes();
    }
  }
};

// The row to which the card is moved.

struct Onto {
  const Move& move;
  int from, gone;
  std::string place;  // of the list afterwards
  int row;
};
const Onto ontoCases[] = {{toNext, 2, 3, "3/3", 4},
                          {toPrevious, 3, 2, "1/3", 1},
                          {toLast, 2, 4, "3/3", 3},
                          {toFirst, 3, 1, "1/3", 2}};  // leaves the hourglass on

TEST_F(TwoDesksDeletion, onto_a_deleted_row_the_list_is_read_again_without_a_word_and_the_card_stays) {
  forEach(ontoCases, [&](const Onto& each) {
    SCOPED_TRACE(each.move.command);
    open(begona, each.from);
    luisDeletes(each.gone);
    does(begona, each.move.command);
    expectCard(each.from, text(each.from), false);
    expectList(each.place, key(each.row));
    expectPointer(&each.move == &toFirst ? 11 : 0);
    does(begona, "close");
    EXPECT_EQ(listed(), 3);
  });
}

TEST_F(TwoDesksDeletion, onto_a_deleted_row_the_answer_to_the_question_stands) {
  for (const std::string& answer : {yes, no})
    forEach(ontoCases, [&](const Onto& each) {
      SCOPED_TRACE(each.move.command + ", " + answer);
      open(begona, each.from);
      does(begona, "type txtNotas de Begoña");
      luisDeletes(each.gone);
      EXPECT_EQ(begona.answerTo(each.move.command), changedNote);
      does(begona, answer);
      EXPECT_EQ(begona.answerTo("tell shown txtNotas"), "is de Begoña");
      expectList(each.place, key(each.row));
      EXPECT_EQ(stored(each.from), answer == yes ? "de Begoña" : text(each.from));
      does(begona, "close");
    });
}

TEST_F(TwoDesksDeletion, past_a_deleted_last_row_the_list_is_left_behind_its_end_until_a_move_to_the_first) {
  open(begona, 3);
  luisDeletes(4);
  does(begona, toNext.command);
  expectCard(3, text(3), false);
  expectList("behind/3", 0);
  does(begona, toFirst.command);
  EXPECT_EQ(begona.answerTo("tell caption"), "is " + title(1, 3));
  expectList("1/3", key(1));
  does(begona, "close");
}

TEST_F(TwoDesksDeletion, after_that_the_card_goes_on_from_the_row_that_the_list_stands_on) {
  open(begona, 2);
  luisDeletes(3);
  does(begona, toNext.command);
  expectList("3/3", key(4));
  does(begona, toPrevious.command);
  EXPECT_EQ(begona.answerTo("tell caption"), "is " + title(2, 3));
  EXPECT_EQ(begona.answerTo("tell shown txtNotas"), "is " + text(2));
  does(begona, "close");
}

// The row from which it is moved.

TEST_F(TwoDesksDeletion, from_a_deleted_row_the_ends_are_reached_all_the_same) {
  forEach(std::initializer_list<Move>{toFirst, toLast}, [&](const Move& move) {
    open(begona, 3);
    luisDeletes(3);
    does(begona, move.command);
    expectCard(move.target, text(move.target), false);
    expectList(std::to_string(move.target) + "/4", key(move.target));
    expectPointer(0);
    does(begona, "close");
  });
}

TEST_F(TwoDesksDeletion, from_a_deleted_row_a_neighbour_is_looked_for_from_the_first_of_the_list_read_again) {
  struct Case {
    const Move& move;
    std::string place;
    int row;
  };
  forEach(std::initializer_list<Case>{{toPrevious, "before/3", 0}, {toNext, "2/3", 2}},
          [&](const Case& each) {
            open(begona, 3);
            luisDeletes(3);
            does(begona, each.move.command);
            expectCard(3, text(3), false);
            expectList(each.place, each.row ? key(each.row) : 0);
            does(begona, "close");
          });
}

TEST_F(TwoDesksDeletion, a_changed_card_whose_row_is_gone_is_not_moved_when_it_is_to_be_saved) {
  forEach(moves, [&](const Move& move) {
    SCOPED_TRACE(move.command);
    open(begona, 3);
    does(begona, "type txtNotas de Begoña");
    luisDeletes(3);
    EXPECT_EQ(begona.answerTo(move.command), changedNote);
    expectGone(begona.answerTo(yes), "AvisoCambio de CNota");
    expectCard(3, "de Begoña", true);
    expectList("3/4", 0);
    expectPointer(11);
    closeUnsaved();
  });
}

TEST_F(TwoDesksDeletion, a_row_that_goes_while_the_question_is_up_is_as_good_as_gone_before) {
  forEach(moves, [&](const Move& move) {
    SCOPED_TRACE(move.command);
    open(begona, 3);
    does(begona, "type txtNotas de Begoña");
    EXPECT_EQ(begona.answerTo(move.command), changedNote);
    luisDeletes(3);
    expectGone(begona.answerTo(yes), "AvisoCambio de CNota");
    expectCard(3, "de Begoña", true);
    expectList("3/4", 0);
    closeUnsaved();
  });
}

TEST_F(TwoDesksDeletion, a_changed_card_whose_row_is_gone_stays_when_the_question_is_cancelled) {
  forEach(moves, [&](const Move& move) {
    SCOPED_TRACE(move.command);
    open(begona, 3);
    does(begona, "type txtNotas de Begoña");
    luisDeletes(3);
    EXPECT_EQ(begona.answerTo(move.command), changedNote);
    does(begona, cancel);
    expectCard(3, "de Begoña", true);
    expectList("3/4", 0);
    expectPointer(0);
    closeUnsaved();
  });
}

TEST_F(TwoDesksDeletion, a_changed_card_whose_row_is_gone_is_moved_when_it_is_not_to_be_saved) {
  struct Case {
    const Move& move;
    std::string place;
    int row;
  };
  forEach(
      std::initializer_list<Case>{
          {toFirst, "1/4", 1}, {toPrevious, "before/3", 0}, {toNext, "2/3", 2}, {toLast, "4/4", 4}},
      [&](const Case& each) {
        SCOPED_TRACE(each.move.command);
        open(begona, 3);
        does(begona, "type txtNotas de Begoña");
        luisDeletes(3);
        EXPECT_EQ(begona.answerTo(each.move.command), changedNote);
        does(begona, no);
        expectList(each.place, each.row ? key(each.row) : 0);
        does(begona, "close");
      });
}

// A save.

TEST_F(TwoDesksDeletion, a_save_tells_that_the_row_is_gone_and_leaves_what_was_typed_on_the_card) {
  open(begona, 3);
  does(begona, "type txtNotas de Begoña");
  luisDeletes(3);
  for (int attempt = 0; attempt < 2; ++attempt) {
    expectGone(begona.answerTo("tool ID_Guardar"), "dNota_Menu de CNota");
    expectCard(3, "de Begoña", true);
    expectList("3/4", 0);
    expectPointer(0);
  }
  closeUnsaved();
  EXPECT_EQ(listed(), 3);
}

TEST_F(TwoDesksDeletion, closing_a_changed_card_whose_row_is_gone_keeps_it_open_when_it_is_to_be_saved) {
  open(begona, 3);
  does(begona, "type txtNotas de Begoña");
  luisDeletes(3);
  EXPECT_EQ(begona.answerTo("close"), changedNote);
  expectGone(begona.answerTo(yes), "AvisoCambio de CNota");
  expectCard(3, "de Begoña", true);
  closeUnsaved();
}

TEST_F(TwoDesksDeletion, undoing_changes_of_a_gone_row_tells_so_and_leaves_the_card_half_filled) {
  open(begona, 3);
  does(begona, "type txtNotas de Begoña");
  luisDeletes(3);
  expectGone(begona.answerTo("tool ID_DeshacerCambios"), "DeshacerCambios de CNota");
  EXPECT_EQ(begona.answerTo("tell shown txtNotas"), "is de Begoña");
  does(begona, "close");
}

TEST_F(TwoDesksDeletion, typing_over_a_gone_row_tells_so_and_counts_as_no_change) {
  open(begona, 3);
  luisDeletes(3);
  expectGone(begona.answerTo("type txtNotas x"), "dNota_Cambio de CNota");
  expectCard(3, "x", false);
  expectPointer(0);
  does(begona, "close");
}

// Another deletion.

TEST_F(TwoDesksDeletion, deleting_a_row_that_is_gone_already_tells_so_and_leaves_the_card) {
  open(begona, 3);
  luisDeletes(3);
  EXPECT_EQ(begona.answerTo("tool ID_Borrar"), deletion);
  expectGone(begona.answerTo(yes), "Borrar de CNota ");
  expectCard(3, text(3), false);
  expectList("3/4", 0);
  EXPECT_EQ(listed(), 3);
  does(begona, "close");
}

TEST_F(TwoDesksDeletion, the_row_that_goes_while_the_question_about_deleting_it_is_up_is_told_as_well) {
  open(begona, 3);
  EXPECT_EQ(begona.answerTo("tool ID_Borrar"), deletion);
  luisDeletes(3);
  expectGone(begona.answerTo(yes), "Borrar de CNota ");
  EXPECT_EQ(listed(), 3);
  does(begona, "close");
}

// The neighbour to show next is looked for first.
TEST_F(TwoDesksDeletion, deleting_beside_a_gone_row_tells_so_and_deletes_nothing) {
  open(begona, 3);
  luisDeletes(4);
  EXPECT_EQ(begona.answerTo("tool ID_Borrar"), deletion);
  expectGone(begona.answerTo(yes), "Borrar de CNota ");
  expectCard(3, text(3), false);
  expectList("4/4", 0);
  EXPECT_EQ(stored(3), text(3));
  does(begona, "close");
}

TEST_F(TwoDesksDeletion, deleting_where_no_neighbour_is_gone_goes_on_to_the_next_row_that_is_left) {
  open(begona, 2);
  luisDeletes(4);
  EXPECT_EQ(begona.answerTo("tool ID_Borrar"), deletion);
  does(begona, yes);
  EXPECT_EQ(begona.answerTo("tell shown txtNotas"), "is " + text(3));
  EXPECT_EQ(listed(), 2);
  does(begona, "close");
}

TEST_F(TwoDesksDeletion, a_new_note_that_is_given_up_is_gone_under_the_one_who_has_come_upon_it) {
  EXPECT_THAT(luis.answerTo("new grdNota"), testing::EndsWith("Nueva Nota"));
  const std::string made = one("SELECT Max(IdNota) FROM NotaIP");
  does(begona, "key F5");
  EXPECT_EQ(begona.answerTo("open grdNota " + made), "card " + title(1, 5));
  does(begona, "type txtNotas de Begoña");
  EXPECT_EQ(luis.answerTo("close"), "box Guardar: ¿Desea guardar la nueva nota?");
  does(luis, no);
  EXPECT_EQ(listed(), 4);
  expectGone(begona.answerTo("tool ID_Guardar"), "dNota_Menu de CNota");
  closeUnsaved();
}

// A search.

class TwoDesksSearch : public TwoDesksDeletion {
 protected:
  void openSearch() { EXPECT_EQ(begona.answerTo("tool ID_Buscar"), "dialog Buscar"); }
  void closeSearch() { does(begona, "key Escape"); }
};

TEST_F(TwoDesksSearch, from_a_gone_row_tells_so_and_finds_nothing) {
  for (const std::string changes : {"", "de Begoña"}) {
    open(begona, 3);
    if (!changes.empty()) does(begona, "type txtNotas " + changes);
    openSearch();
    luisDeletes(3);
    expectGone(begona.answerTo("find Asunto Primera"), "BuscarElemento de frmNota");
    EXPECT_EQ(begona.answerTo("tell message"), "is No se ha encontrado en ninguna ficha de la lista.");
    expectList("3/4", 0);
    expectPointer(11);
    closeSearch();
    expectCard(3, changes.empty() ? text(3) : changes, !changes.empty());
    changes.empty() ? does(begona, "close") : closeUnsaved();
    makeNotes();
  }
}

TEST_F(TwoDesksSearch, for_a_gone_row_finds_nothing_and_stays) {
  open(begona, 3);
  openSearch();
  luisDeletes(2);
  does(begona, "find Asunto Segunda");
  EXPECT_EQ(begona.answerTo("tell message"), "is No se ha encontrado en ninguna ficha de la lista.");
  closeSearch();
  expectCard(3, text(3), false);
  expectList("3/4", key(3));
  does(begona, "close");
}

// The way back to the row of the search leads over the first one.
TEST_F(TwoDesksSearch, that_finds_nothing_tells_that_the_first_row_is_gone_and_ends_there) {
  open(begona, 3);
  openSearch();
  luisDeletes(1);
  expectGone(begona.answerTo("find Asunto Primera"), "BuscarElemento de frmNota");
  EXPECT_EQ(begona.answerTo("tell message"), "is No se ha encontrado en ninguna ficha de la lista.");
  closeSearch();
  expectCard(3, text(3), false);
  expectList("1/4", 0);
  expectPointer(11);
  does(begona, "close");
}

TEST_F(TwoDesksSearch, steps_over_a_gone_row_to_the_next_hit) {
  open(begona, 1);
  openSearch();
  does(begona, "find Notas texto");
  luisDeletes(2);
  does(begona, "key F3");
  EXPECT_EQ(begona.answerTo("tell message"), "is La ficha muestra una coincidencia.");
  closeSearch();
  expectCard(3, text(3), false);
  does(begona, "close");
}

}  // namespace
}  // namespace ovalia::host
