#include "cards/RecordToCard.h"
#include "tests/cards/Moves.h"

namespace ovalia {
namespace {

using kit::MoveCase;
using kit::moves;
using kit::RecordingScreen;
using Lines = std::vector<Text>;

// Moves while something around the component fails.
class NavigationFailures : public kit::Moving {
 protected:
  // Fails every call of a move on a clean card. The move's own statements leave what is given, in their
  // order; those of the fill report for themselves, and the list is on `target` then.
  void expectEachFailing(TextView kind, const MoveCase& move, std::int32_t number, const Lines& own,
                         const Lines& events, std::ptrdiff_t target, const std::function<void()>& stand) {
    Lines seen;
    failEachCallIn(kind, number,
                   {.before =
                        [&] {
                          stand();
                          keep();
                          host.events.clear();
                        },
                    .statement = [&] { move.run(instance); },
                    .check =
                        [&](const RecordingScreen& screen) {
                          if (isOwn(screen, move, number)) {
                            seen.push_back(left(screen));
                            EXPECT_EQ(host.events, events);
                          } else {
                            EXPECT_EQ(crs().AbsolutePosition() + 1, target);
                            EXPECT_TRUE(host.events.empty());
                            expectFillReported(screen, move, number);
                          }
                        }});
    EXPECT_EQ(seen, own) << toUtf8(move.name) << " " << number;
  }

 private:
  static bool isOwn(const RecordingScreen& screen, const MoveCase& move, std::int32_t number) {
    if (number != dao::failure::locked) return screen.boxes.empty();
    return reporters(screen) == Lines{Text(move.name)};
  }

  // After a row that is gone the screen's active form is asked to load its records again; a card cannot, and
  // that failure is the one that comes to the next trap.
  void expectFillReported(const RecordingScreen& screen, const MoveCase& move, std::int32_t number) {
    const Lines names = reporters(screen);
    ASSERT_EQ(names.size(), 1u);
    const bool gone = number == dao::failure::recordDeleted;
    if (gone) {
      EXPECT_TRUE(screen.boxes[0].starts_with(u"La ficha acaba de ser borrada"));
    }
    const bool fill = names[0] == (gone ? move.name : u"RefrescoFicha de CNota");
    const bool part = gone && names[0] == u"RefrescoFicha de CNota";
    EXPECT_EQ(screen.boxes.size(), gone ? 2u : 1u);
    EXPECT_EQ(screen.pointer, fill && gone && move.run == Primero ? 11 : 0);
    if (fill) {
      EXPECT_EQ(state(), cargando);
    } else if (!part) {
      EXPECT_EQ(state(), limpia);
      EXPECT_EQ(left(screen).substr(3, 6), u"filled");
    }
  }
};

// Every call in turn.

TEST_F(NavigationFailures, of_each_call_leave_what_was_reached) {
  struct {
    const MoveCase& move;
    Lines reported, recovered;
  } const cases[] = {
      // BOF, the hourglass, the step, the key, the pointer
      {moves[0],
       {u"2, kept, 0, 0", u"2, kept, 0, 0", u"2, kept, 0, 11", u"1, kept, 0, 11", u"1, filled, 0, 11"},
       {u"1, kept, 0, 0", u"1, kept, 0, 0", u"1, kept, 0, 11", u"1, kept, 0, 11", u"1, filled, 0, 11"}},
      // BOF, the key, the step, BOF
      {moves[1],
       {u"2, kept, 0, 0", u"2, kept, 0, 0", u"2, kept, 0, 0", u"1, kept, 0, 0"},
       {u"no row, kept, 0, 0", u"no row, kept, 0, 0", u"1, kept, 0, 0", u"1, kept, 0, 0"}},
      // EOF, the key, the step, EOF
      {moves[2],
       {u"2, kept, 0, 0", u"2, kept, 0, 0", u"2, kept, 0, 0", u"3, kept, 0, 0"},
       {u"2, kept, 0, 0", u"2, kept, 0, 0", u"3, kept, 0, 0", u"3, kept, 0, 0"}},
      // EOF, the step, the key
      {moves[3],
       {u"2, kept, 0, 0", u"2, kept, 0, 0", u"3, kept, 0, 0"},
       {u"3, kept, 0, 0", u"3, kept, 0, 0", u"3, kept, 0, 0"}},
  };
  const Lines asked = {u"CargaRegistros(Nota, NotaIP)"};
  for (const auto& expected : cases) {
    const auto second = [] {};
    const auto each = [&](TextView kind, std::int32_t number, const Lines& own, const Lines& events) {
      expectEachFailing(kind, expected.move, number, own, events, expected.move.target, second);
    };
    for (const TextView kind : {u"Nota", u"Visita"}) each(kind, dao::failure::locked, expected.reported, {});
    each(u"Nota", dao::failure::cancelledByObject, expected.reported, {});
    each(u"Nota", dao::failure::recordDeleted, expected.recovered, asked);
  }
}

TEST_F(NavigationFailures, past_the_edge_leave_what_was_reached) {
  struct {
    const MoveCase& move;
    int row;
    Lines reported;
  } const cases[] = {
      // the edge, the key, the step, the edge, the beep, the step back, the key
      {moves[1],
       1,
       {u"1, kept, 0, 0", u"1, kept, 0, 0", u"1, kept, 0, 0", u"no row, kept, 0, 0", u"no row, kept, 0, 0",
        u"no row, kept, 0, 0", u"1, kept, 0, 0"}},
      {moves[2],
       3,
       {u"3, kept, 0, 0", u"3, kept, 0, 0", u"3, kept, 0, 0", u"no row, kept, 0, 0", u"no row, kept, 0, 0",
        u"no row, kept, 0, 0", u"3, kept, 0, 0"}},
  };
  for (const auto& expected : cases)
    for (const std::int32_t number : {dao::failure::locked, dao::failure::cancelledByObject})
      expectEachFailing(u"Nota", expected.move, number, expected.reported, {}, expected.row, [&] {
        standOn(expected.row);
        RefrescoFicha(instance, u"");
      });
}

TEST_F(NavigationFailures, whatever_fails_what_was_typed_is_not_lost) {
  for (const MoveCase& move : moves) {
    for (const std::int32_t number :
         {dao::failure::locked, dao::failure::cancelledByObject, dao::failure::recordDeleted}) {
      std::vector<Variant> before;
      const int runs = failEachCallIn(u"Nota", number,
                                      {.before =
                                           [&] {
                                             change({{u"txtNotas", typed}});
                                           },
                                       .statement =
                                           [&] {
                                             before = rowNow(2);
                                             move.run(instance);
                                           },
                                       .check =
                                           [&](const RecordingScreen&) {
                                             expectNothingLost(before);
                                             if (state() == modificada && host.events.empty()) {
                                               EXPECT_EQ(standsOn(), 502);
                                             }
                                             if (number != dao::failure::recordDeleted) {
                                               EXPECT_TRUE(host.events.empty());
                                             }
                                           }});
      EXPECT_GT(runs, 20);
    }
  }
}

TEST_F(NavigationFailures, whatever_fails_changes_that_are_not_wanted_are_not_written) {
  for (const MoveCase& move : moves) {
    for (const std::int32_t number :
         {dao::failure::locked, dao::failure::cancelledByObject, dao::failure::recordDeleted}) {
      failEachCallIn(u"Nota", number,
                     {.before =
                          [&] {
                            change({{u"txtNotas", typed}});
                          },
                      .statement = [&] { move.run(instance); },
                      .check =
                          [&](const RecordingScreen&) {
                            EXPECT_EQ(at(2, u"Notas").text(), u"Texto 2");
                            EXPECT_EQ(crs().updates, 0);
                            if (state() != modificada || !host.events.empty()) return;
                            EXPECT_EQ(standsOn(), 502);
                            EXPECT_EQ(card(u"txtNotas"), typed);
                          },
                      .saveAnswer = no});
    }
  }
}

// Before the move.

TEST_F(NavigationFailures, of_the_write_stop_a_move) {
  for (const MoveCase& move : moves) {
    openOn(u"Nota", [&] {
      change({{u"txtNotas", typed}});
      expectQuestion(changedNote, yes);
      here.faults.failNext("Recordset.Update", dao::failure::locked);
      expectReport(u"GrabaRegistro de CNota", dao::failure::locked);
      move.run(instance);
      EXPECT_EQ(standsOn(), 502);
      EXPECT_EQ(state(), modificada);
      EXPECT_EQ(card(u"txtNotas"), typed);
      EXPECT_EQ(at(2, u"Notas").text(), u"Texto 2");
      EXPECT_EQ(here.screen.pointers, (std::vector<int>{11, 0}));
    });
  }
}

TEST_F(NavigationFailures, of_a_deletion_that_races_the_question_make_the_write_fail_and_stop_the_move) {
  for (const MoveCase& move : moves) {
    openOn(u"Nota", [&] {
      change({{u"txtNotas", typed}});
      expectQuestion(changedNote, yes).whileUp([&] { list->vanish(1); });
      expectBox(u"La ficha acaba de ser borrada por otro usuario y\r\nno se volverá a visualizar.", 4144,
                u"Error");
      expectReport(u"AvisoCambio de CNota", failure::noSuchMember);
      user.clicks(move.tool);
      EXPECT_EQ(crs().AbsolutePosition(), 1);
      EXPECT_EQ(state(), modificada);
      EXPECT_EQ(card(u"txtNotas"), typed);
      EXPECT_TRUE(host.events.empty());
      EXPECT_EQ(here.screen.pointer, 11);
      here.screen.pointer = 0;
    });
  }
}

TEST_F(NavigationFailures, of_a_list_that_ran_out_over_a_new_card_are_reported) {
  for (const MoveCase& move : moves) {
    listOf(u"Nota", 1);
    open(1, [&] {
      keep();
      instance.EstadoFicha = nueva;
      expectQuestion(u"¿Desea guardar la nueva nota?", no).whileUp([&] { crs().Delete(); });
      expectBox(u"Error: No hay ningún registro activo.", 4144);
      expectReport(Text(move.name), dao::failure::noCurrentRecord);
      move.run(instance);
      EXPECT_EQ(state(), limpia);
      EXPECT_EQ(card(u"txtNotas"), kept);
      EXPECT_EQ(here.screen.pointer, move.run == Primero ? 11 : 0);
      here.screen.pointer = 0;
    });
  }
}

TEST_F(NavigationFailures, beyond_an_edge_a_neighbour_has_no_row_to_start_from) {
  struct {
    bool behind;
    const MoveCase& move;
  } const cases[] = {{true, moves[1]}, {false, moves[2]}};
  for (const auto& edge : cases) {
    openOn(u"Nota", [&] {
      keep();
      edge.behind ? crs().MoveLast() : crs().MoveFirst();
      edge.behind ? crs().MoveNext() : crs().MovePrevious();
      expectReport(Text(edge.move.name), dao::failure::noCurrentRecord);
      edge.move.run(instance);
      EXPECT_TRUE(edge.behind ? crs().isEOF() : crs().isBOF());
      EXPECT_EQ(card(u"txtNotas"), kept);
      EXPECT_EQ(state(), limpia);
    });
  }
}

TEST_F(NavigationFailures, without_a_list_are_reported) {
  for (const MoveCase& move : moves) {
    expectReport(Text(move.name), failure::objectNotSet);
    move.run(instance);
  }
}

}  // namespace
}  // namespace ovalia
