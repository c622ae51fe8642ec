#include <gtest/gtest.h>

#include "cards/Saving.h"
#include "tests/cardkit/FailingCard.h"

namespace ovalia {
namespace {

using kit::allKinds;
using kit::RecordingScreen;

// So many calls in a row that leave the same behind when they fail.
struct Run {
  int calls;
  Text left;
  friend bool operator==(const Run&, const Run&) = default;
};
using Runs = std::vector<Run>;

void PrintTo(const Run& run, std::ostream* out) { *out << "\n  " << run.calls << " x " << toUtf8(run.left); }

// Every call that the saving procedures make of their surroundings, failing in turn.
class SavingCalls : public kit::FailingCardTest {
 protected:
  static constexpr TextView oldStamp = u"05/03/2026 18:30:15", newStamp = u"09/03/2026 10:20:30";

  // The question about a note in that state, put with an answer before an action.
  struct Question {
    int answer;
    TextView action;
    std::int32_t state;
  };

  // What each failing call leaves: "reporter: result, state, row, stamp, pointer". Whatever it is, the card
  // keeps what was typed and stays on screen, and a card with unsaved changes can be saved afterwards.
  Runs failingIn(const Question& question, std::int32_t number) {
    Runs runs;
    bool result = false;
    std::vector<Variant> before;
    failEachCallIn(u"Nota", number,
                   {.before =
                        [&] {
                          change({{u"txtNotas", typed}});
                          instance.EstadoFicha = question.state;
                          before = rowNow(2);
                        },
                    .statement = [&] { result = AvisoCambio(instance, u"Preguntar", question.action); },
                    .check =
                        [&](const RecordingScreen& screen) {
                          const Text line = outcome(screen, result, before);
                          if (runs.empty() || runs.back().left != line) runs.push_back({0, line});
                          ++runs.back().calls;
                          EXPECT_EQ(card(u"txtNotas"), typed);
                          EXPECT_TRUE(form().Visible());
                          EXPECT_EQ(standsOn(), 502);
                          expectSavedNextTime();
                        },
                    .saveAnswer = question.answer});
    return runs;
  }

  Text outcome(const RecordingScreen& screen, bool result, const std::vector<Variant>& before) {
    Text names;
    for (const Text& name : reporters(screen)) names += name.substr(0, name.find_first_of(u" ("));
    const bool written = at(2, u"Notas").text() == typed;
    EXPECT_TRUE(written || same(rowNow(2), before));
    const Text label = card(u"lblActualizacion");
    EXPECT_TRUE(label == oldStamp || label == newStamp) << toUtf8(label);
    return join(names.empty() ? Text(u"nobody") : names, u": ", result, u", ", state(), u", ",
                written           ? u"written"
                : crs().editing() ? u"pending"
                                  : u"as before",
                u", ", label == oldStamp ? u"old" : u"new", u", ", screen.pointer);
  }

  // A card whose stamp could not be read after the write takes that write for another user's.
  void expectSavedNextTime() {
    if (state() == limpia) return;
    if (state() == modificada && at(2, u"FechaActualizacion").text() == newStamp)
      expectBox(
          u"La ficha acaba de ser modificada por otro usuario.\r\n"
          u"Sus cambios son cancelados y se visualiza la última modificación.",
          48, u"Guardar");
    Guardar(instance, u"NoPreguntar");
    EXPECT_EQ(at(2, u"Notas").text(), typed);
    EXPECT_EQ(state(), limpia);
  }
};

// The question, the hourglass; Edit, the subject, the access type (three of its look-up, and its field), the
// categories; the day; the reminder; its date; from its user to the moment of the write; from the user to the
// Update; the stamp; the title; the pointer; the end of the list; the tools.

TEST_F(SavingCalls, answered_yes_leave_what_was_reached) {
  for (const std::int32_t unsaved : {nueva, modificada}) {
    const Text s = toText(unsaved);
    for (const TextView action : {u"Save", u"Move", u"UnLoad"})
      EXPECT_EQ(failingIn({yes, action, unsaved}, dao::failure::locked),
                (Runs{{1, u"MostrarMensaje: Falso, " + s + u", as before, old, 0"},
                      {1, u"AvisoCambio: Falso, " + s + u", as before, old, 0"},
                      {1, u"GrabaRegistro: Falso, " + s + u", as before, old, 0"},
                      {6, u"GrabaRegistro: Falso, " + s + u", pending, old, 0"},
                      {1, u"FechayHora: Verdadero, 0, written, new, 0"},
                      {1, u"GrabaRegistro: Falso, " + s + u", pending, old, 0"},
                      {1, u"FechayHora: Verdadero, 0, written, new, 0"},
                      {2, u"GrabaRegistro: Falso, " + s + u", pending, old, 0"},
                      {5, u"GrabaRegistro: Falso, " + s + u", pending, new, 0"},
                      {1, u"AvisoCambio: Verdadero, " + s + u", written, old, 11"},
                      {3, u"RefrescoCaption: Verdadero, 0, written, new, 0"},
                      {1, u"AvisoCambio: Verdadero, 0, written, new, 11"},
                      {1, u"AvisoCambio: Verdadero, 0, written, new, 0"},
                      {2, u"CambiarMenu: Verdadero, 0, written, new, 0"}}));
  }
}

TEST_F(SavingCalls, answered_yes_pass_over_a_commit_without_a_beginning) {
  EXPECT_EQ(failingIn({yes, u"UnLoad", modificada}, dao::failure::commitWithoutBegin),
            (Runs{{1, u"MostrarMensaje: Falso, 2, as before, old, 0"},
                  {1, u"nobody: Verdadero, 0, written, new, 0"},
                  {1, u"GrabaRegistro: Falso, 2, as before, old, 0"},
                  {6, u"GrabaRegistro: Falso, 2, pending, old, 0"},
                  {1, u"FechayHora: Verdadero, 0, written, new, 0"},
                  {1, u"GrabaRegistro: Falso, 2, pending, old, 0"},
                  {1, u"FechayHora: Verdadero, 0, written, new, 0"},
                  {2, u"GrabaRegistro: Falso, 2, pending, old, 0"},
                  {5, u"GrabaRegistro: Falso, 2, pending, new, 0"},
                  {1, u"nobody: Verdadero, 0, written, old, 0"},
                  {3, u"RefrescoCaption: Verdadero, 0, written, new, 0"},
                  {1, u"nobody: Verdadero, 0, written, new, 11"},
                  {1, u"nobody: Verdadero, 0, written, new, 0"},
                  {2, u"CambiarMenu: Verdadero, 0, written, new, 0"}}));
}

TEST_F(SavingCalls, answered_no_leave_the_row_alone) {
  for (const TextView action : {u"Save", u"UnLoad"})
    EXPECT_EQ(failingIn({no, action, modificada}, dao::failure::locked),
              (Runs{{1, u"MostrarMensaje: Falso, 2, as before, old, 0"},
                    {1, u"AvisoCambio: Falso, 2, as before, old, 0"},
                    {1, u"AvisoCambio: Verdadero, 0, as before, old, 11"},
                    {1, u"AvisoCambio: Verdadero, 0, as before, old, 0"},
                    {2, u"CambiarMenu: Verdadero, 0, as before, old, 0"}}));
  EXPECT_EQ(failingIn({no, u"Move", modificada}, dao::failure::locked),
            (Runs{{1, u"MostrarMensaje: Falso, 2, as before, old, 0"},
                  {1, u"AvisoCambio: Falso, 2, as before, old, 0"},
                  {1, u"AvisoCambio: Verdadero, 0, as before, old, 11"}}));
  EXPECT_EQ(failingIn({no, u"Move", modificada}, dao::failure::commitWithoutBegin),
            (Runs{{1, u"MostrarMensaje: Falso, 2, as before, old, 0"},
                  {1, u"nobody: Verdadero, 0, as before, old, 0"},
                  {1, u"nobody: Verdadero, 0, as before, old, 11"}}));
}

TEST_F(SavingCalls, cancelled_keep_everything) {
  for (const std::int32_t unsaved : {nueva, modificada}) {
    const Text s = toText(unsaved);
    EXPECT_EQ(failingIn({cancel, u"UnLoad", unsaved}, dao::failure::locked),
              (Runs{{1, u"MostrarMensaje: Falso, " + s + u", as before, old, 0"},
                    {1, u"AvisoCambio: Falso, " + s + u", as before, old, 0"}}));
  }
}

TEST_F(SavingCalls, a_list_that_has_no_current_row_at_the_end_is_taken_to_its_first_one) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", typed}});
    form().toolbars().tool(u"ID_Guardar")->setEnabled(true);
    here.faults.onNext("Recordset.Update",
                       [&] { here.faults.failNext("Recordset.EOF", dao::failure::noCurrentRecord); });
    EXPECT_TRUE(AvisoCambio(instance, u"NoPreguntar", u"Save"));
    EXPECT_EQ(standsOn(), 501);
    EXPECT_EQ(at(2, u"Notas").text(), typed);
    EXPECT_FALSE(enabled(u"ID_Guardar"));
    EXPECT_TRUE(form().Visible());
  });
}

// The save command that finds another user's write: the comparison, the box, the fill.

TEST_F(SavingCalls, of_a_stale_card_write_nothing_over_the_other_user) {
  for (const TextView kind : allKinds) {
    int compared = 0, told = 0, filled = 0;
    failEachCallIn(kind, dao::failure::locked,
                   {.before =
                        [&] {
                          change({{u"txtNotas", typed}});
                          at(2, u"FechaActualizacion") = kit::on(2026, 3, 9, 10, 0, 0);
                          at(2, u"Notas") = u"De otro";
                        },
                    .statement = [&] { Guardar(instance, u"NoPreguntar"); },
                    .check =
                        [&](const RecordingScreen& screen) {
                          EXPECT_EQ(crs().updates, 0);
                          EXPECT_FALSE(crs().editing());
                          EXPECT_EQ(at(2, u"Notas").text(), u"De otro");
                          const std::vector<Text> names = reporters(screen);
                          ASSERT_EQ(names.size(), 1u);
                          if (names[0] == u"Guardar de CNota") {
                            ++compared;
                            EXPECT_EQ(state(), modificada);
                            EXPECT_EQ(card(u"txtNotas"), typed);
                          } else if (names[0] == u"RefrescoFicha de CNota") {
                            ++filled;
                            EXPECT_EQ(state(), cargando);
                          } else {
                            told += names[0] == u"MostrarMensaje() de RutinasErr";
                            EXPECT_EQ(state(), limpia);
                            EXPECT_EQ(card(u"txtNotas"), u"De otro");
                          }
                        }});
    EXPECT_EQ(compared, 1);
    EXPECT_EQ(told, 1);
    EXPECT_GT(filled, 5);
  }
}

// The undo command: the count, the fill.

TEST_F(SavingCalls, of_the_undo_command_write_nothing) {
  for (const TextView kind : allKinds) {
    std::vector<Variant> before;
    int counted = 0, filled = 0;
    failEachCallIn(kind, dao::failure::locked,
                   {.before =
                        [&] {
                          change({{u"txtNotas", typed}});
                          before = rowNow(2);
                        },
                    .statement = [&] { DeshacerCambios(instance); },
                    .check =
                        [&](const RecordingScreen& screen) {
                          EXPECT_EQ(crs().updates, 0);
                          EXPECT_TRUE(same(rowNow(2), before));
                          EXPECT_TRUE(form().Visible());
                          const std::vector<Text> names = reporters(screen);
                          ASSERT_EQ(names.size(), 1u);
                          if (names[0] == u"DeshacerCambios de CNota") {
                            ++counted;
                            EXPECT_EQ(state(), modificada);
                            EXPECT_EQ(card(u"txtNotas"), typed);
                          } else if (names[0] == u"RefrescoFicha de CNota") {
                            ++filled;
                            EXPECT_EQ(state(), cargando);
                          } else {
                            EXPECT_EQ(state(), limpia) << toUtf8(names[0]);
                            EXPECT_EQ(card(u"txtNotas"), u"Texto 2");
                          }
                        }});
    EXPECT_EQ(counted, 1);
    EXPECT_GT(filled, 5);
  }
}

}  // namespace
}  // namespace ovalia
