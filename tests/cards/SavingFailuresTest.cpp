#include <gtest/gtest.h>

#include <algorithm>

#include "cards/CardToRecord.h"
#include "cards/Navigation.h"
#include "cards/Saving.h"
#include "tests/cardkit/FailingCard.h"

namespace ovalia {
namespace {

using kit::allKinds;
using kit::RecordingScreen;

const Text goneBox = u"La ficha acaba de ser borrada por otro usuario y\r\nno se volverá a visualizar.";

// Saving while something around the component fails.
class SavingFailures : public kit::FailingCardTest {
 protected:
  int failEachCallIn(TextView kind, std::int32_t number, const std::function<void()>& statement,
                     const std::function<void(const RecordingScreen&)>& check) {
    return FailingCardTest::failEachCallIn(kind, number,
                                           {.before =
                                                [this] {
                                                  change({{u"txtNotas", typed}});
                                                },
                                            .statement = statement,
                                            .check = check});
  }
};

TEST_F(SavingFailures, a_write_that_fails_anywhere_leaves_the_row_as_it_was_and_can_be_tried_again) {
  for (const TextView kind : allKinds) {
    bool result = false;
    std::vector<Variant> before;
    const int runs = failEachCallIn(
        kind, dao::failure::locked,
        [&] {
          before = rowNow(2);
          result = GrabaRegistro(instance);
        },
        [&](const RecordingScreen& screen) {
          const std::vector<Text> names = reporters(screen);
          ASSERT_EQ(names.size(), 1u);
          EXPECT_EQ(state(), modificada);
          EXPECT_EQ(card(u"txtNotas"), typed);
          if (result) {
            EXPECT_TRUE(names[0].starts_with(u"FechayHora de CNota (")) << toUtf8(names[0]);
            EXPECT_EQ(at(2, u"Notas").text(), typed);
            return;
          }
          EXPECT_EQ(names[0], u"GrabaRegistro de CNota");
          EXPECT_TRUE(same(rowNow(2), before));
          EXPECT_TRUE(GrabaRegistro(instance));
          EXPECT_EQ(at(2, u"Notas").text(), typed);
        });
    EXPECT_GE(runs, 7) << toUtf8(kind);
  }
}

TEST_F(SavingFailures, after_a_failed_write_the_edit_stays_pending_with_the_fields_written_so_far) {
  openOn(u"Nota", [&] {
    change({{u"txtAsunto", u"Llaves"}, {u"txtNotas", typed}});
    here.faults.failNext("Recordset.Update", dao::failure::locked);
    expectReport(u"GrabaRegistro de CNota", dao::failure::locked);
    EXPECT_FALSE(AvisoCambio(instance, u"NoPreguntar", u"Save"));
    EXPECT_EQ(state(), modificada);
    EXPECT_TRUE(crs().editing());
    EXPECT_EQ(crs().value(u"Asunto").text(), u"Llaves");
    EXPECT_EQ(at(2, u"Asunto").text(), u"Llaves en portería");
    EXPECT_EQ(card(u"lblActualizacion"), u"09/03/2026 10:20:30");
    EXPECT_EQ(here.screen.pointer, 0);
    EXPECT_EQ(tag(u"txtNotas"), u"HacerAlgo");
  });
}

TEST_F(SavingFailures, after_a_failed_write_the_command_can_be_given_again) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", typed}});
    here.faults.failNext("Recordset.Update", dao::failure::locked);
    expectReport(u"GrabaRegistro de CNota", dao::failure::locked);
    Guardar(instance, u"NoPreguntar");
    EXPECT_EQ(state(), modificada);
    here.clock.time.second += 5;
    Guardar(instance, u"NoPreguntar");
    EXPECT_EQ(state(), limpia);
    EXPECT_EQ(at(2, u"Notas").text(), typed);
    EXPECT_EQ(card(u"lblActualizacion"), u"09/03/2026 10:20:35");
  });
}

TEST_F(SavingFailures, after_a_failed_write_undo_shows_what_is_pending_until_the_list_moves) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", typed}});
    here.faults.failNext("Recordset.Update", dao::failure::locked);
    expectReport(u"GrabaRegistro de CNota", dao::failure::locked);
    Guardar(instance, u"NoPreguntar");
    put(u"txtNotas", u"Todavía otro");
    DeshacerCambios(instance);
    EXPECT_EQ(card(u"txtNotas"), typed);
    EXPECT_EQ(state(), limpia);
    Siguiente(instance);
    Anterior(instance);
    EXPECT_EQ(card(u"txtNotas"), u"Texto 2");
  });
}

TEST_F(SavingFailures, a_new_annotation_whose_write_failed_stays_new) {
  openOn(u"Nota", [&] {
    put(u"txtNotas", typed);
    instance.EstadoFicha = nueva;
    here.faults.failNext("Recordset.Update", dao::failure::required);
    expectReport(u"GrabaRegistro de CNota", dao::failure::required);
    EXPECT_FALSE(AvisoCambio(instance, u"NoPreguntar", u"Save"));
    EXPECT_EQ(state(), nueva);
  });
}

TEST_F(SavingFailures, whatever_fails_in_a_save_what_was_typed_is_not_lost) {
  for (const TextView kind : allKinds) {
    for (const std::int32_t number : {dao::failure::locked, dao::failure::commitWithoutBegin}) {
      std::vector<Variant> before;
      const int runs = failEachCallIn(
          kind, number,
          [&] {
            before = rowNow(2);
            Guardar(instance, u"NoPreguntar");
          },
          [&](const RecordingScreen&) {
            EXPECT_LE(crs().updates, 1);
            if (state() == limpia) {
              EXPECT_EQ(at(2, u"Notas").text(), typed);
            }
            expectNothingLost(before);
          });
      EXPECT_GT(runs, 10);
    }
  }
}

TEST_F(SavingFailures, whatever_fails_around_the_question_what_was_typed_is_not_lost) {
  std::vector<Variant> before;
  bool result = false;
  const int runs = failEachCallIn(
      u"Nota", dao::failure::locked,
      [&] {
        before = rowNow(2);
        result = AvisoCambio(instance, u"Preguntar", u"UnLoad");
      },
      [&](const RecordingScreen&) {
        EXPECT_LE(crs().updates, 1);
        if (result || state() == limpia) {
          EXPECT_EQ(at(2, u"Notas").text(), typed);
        }
        expectNothingLost(before);
      });
  EXPECT_GT(runs, 10);
}

// After a row that is gone the screen's active form is asked to load its records again. A card cannot, and
// that failure is the one that comes to the next trap.

TEST_F(SavingFailures, every_call_that_meets_a_deleted_row_reaches_the_next_trap_and_nothing_is_lost) {
  for (const TextView kind : allKinds) {
    std::vector<Variant> before;
    std::vector<Text> enclosing;
    failEachCallIn(
        kind, dao::failure::recordDeleted,
        [&] {
          before = rowNow(2);
          command(u"Fichas", u"ID_Guardar");
        },
        [&](const RecordingScreen& screen) {
          const std::vector<Text> names = reporters(screen);
          ASSERT_EQ(screen.boxes.size(), 2u);
          ASSERT_EQ(names.size(), 1u);
          EXPECT_EQ(screen.boxes[0], goneBox);
          EXPECT_NE(screen.boxes[1].find(u"Número del error: 438"), Text::npos);
          if (enclosing.empty() || enclosing.back() != names[0]) enclosing.push_back(names[0]);
          expectNothingLost(before);
          EXPECT_TRUE(host.events.empty());
        });
    // The stamp in the command; the write and its dates; the stamp, the title and the tools of the question.
    EXPECT_EQ(enclosing.front(), u"dNota_Menu de CNota");
    for (const TextView name : {u"AvisoCambio de CNota", u"GrabaRegistro de CNota", u"Guardar de CNota"})
      EXPECT_NE(std::ranges::find(enclosing, name), enclosing.end()) << toUtf8(name);
    for (const Text& name : enclosing)
      EXPECT_TRUE(name == u"dNota_Menu de CNota" || name == u"AvisoCambio de CNota" ||
                  name == u"GrabaRegistro de CNota" || name == u"Guardar de CNota")
          << toUtf8(name);
  }
}

TEST_F(SavingFailures, the_save_command_on_a_row_that_is_gone_ends_at_the_card_that_cannot_reload) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", typed}});
    form().toolbars().tool(u"ID_Guardar")->setEnabled(true);
    list->vanish(1);
    expectBox(goneBox, 4144, u"Error");
    expectReport(u"dNota_Menu de CNota", failure::noSuchMember);
    user.clicks(u"ID_Guardar");
    EXPECT_EQ(state(), modificada);
    EXPECT_EQ(card(u"txtNotas"), typed);
    EXPECT_EQ(crs().AbsolutePosition(), 1);
    EXPECT_EQ(crs().updates, 0);
    EXPECT_TRUE(here.screen.pointers.empty());
  });
}

// Failures that the question treats itself.

TEST_F(SavingFailures, a_stamp_that_has_no_current_row_takes_the_list_to_its_first_and_goes_on) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", typed}});
    crs().MoveLast();
    crs().MoveNext();
    expectReport(u"GrabaRegistro de CNota", dao::failure::noCurrentRecord);
    EXPECT_FALSE(AvisoCambio(instance, u"NoPreguntar", u"Save"));
    EXPECT_EQ(standsOn(), 501);
    EXPECT_EQ(caption(), u"Inmueble 120 - Nota: 1/3");
    EXPECT_EQ(tag(u"txtNotas"), u"HacerAlgo");
    EXPECT_EQ(state(), modificada);
    EXPECT_EQ(here.screen.pointers, (std::vector<int>{11, 0}));
    EXPECT_TRUE(form().Visible());
    EXPECT_EQ(at(1, u"Notas").text(), u"Texto 1");
  });
}

TEST_F(SavingFailures, a_row_lost_right_after_the_write_counts_as_saved) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", typed}});
    here.faults.onNext("Recordset.Update",
                       [&] { here.faults.failNext("Field.Value", dao::failure::noCurrentRecord); });
    EXPECT_TRUE(AvisoCambio(instance, u"NoPreguntar", u"Save"));
    EXPECT_EQ(at(2, u"Notas").text(), typed);
    EXPECT_EQ(state(), limpia);
    EXPECT_EQ(standsOn(), 501);
    EXPECT_EQ(card(u"lblActualizacion"), u"05/03/2026 18:30:15");
    EXPECT_EQ(caption(), u"Inmueble 120 - Nota: 1/3");
  });
}

TEST_F(SavingFailures, on_a_list_without_any_row_the_question_goes_on_to_its_end) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", typed}});
    list->rows.clear();
    crs().Requery();
    expectReport(u"GrabaRegistro de CNota", dao::failure::noCurrentRecord);
    expectReport(u"RefrescoCaption de CNota", dao::failure::noCurrentRecord);
    EXPECT_FALSE(AvisoCambio(instance, u"NoPreguntar", u"Save"));
    EXPECT_EQ(state(), limpia);
    EXPECT_FALSE(form().Visible());
    EXPECT_EQ(here.screen.pointers, (std::vector<int>{11, 0}));
  });
}

TEST_F(SavingFailures, a_commit_without_a_beginning_is_passed_over) {
  for (const int nth : {1, 2}) {
    openOn(u"Nota", [&] {
      change({{u"txtNotas", typed}});
      here.faults.failNth("Screen.setMousePointer", nth, dao::failure::commitWithoutBegin);
      EXPECT_TRUE(AvisoCambio(instance, u"NoPreguntar", u"Save"));
      EXPECT_EQ(state(), limpia);
      EXPECT_EQ(at(2, u"Notas").text(), typed);
      EXPECT_FALSE(enabled(u"ID_Guardar"));
      here.screen.pointer = 0;
    });
  }
}

TEST_F(SavingFailures, any_other_failure_ends_the_question_with_the_hourglass_on_and_the_result_it_held) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", typed}});
    here.faults.onNext("Recordset.Update",
                       [&] { here.faults.failNext("Field.Value", dao::failure::locked); });
    expectReport(u"AvisoCambio de CNota", dao::failure::locked);
    EXPECT_TRUE(AvisoCambio(instance, u"NoPreguntar", u"Save"));
    EXPECT_EQ(at(2, u"Notas").text(), typed);
    EXPECT_EQ(state(), modificada);
    EXPECT_EQ(card(u"lblActualizacion"), u"05/03/2026 18:30:15");
    EXPECT_EQ(here.screen.pointer, 11);
    here.screen.pointer = 0;
  });
}

TEST_F(SavingFailures, a_title_that_cannot_be_composed_does_not_undo_the_save) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", typed}});
    host.FichaInm->failing(u"Ajuste_N_Notas", failure::noSuchMember);
    expectReport(u"RefrescoCaption de CNota", failure::noSuchMember);
    EXPECT_TRUE(AvisoCambio(instance, u"NoPreguntar", u"Save"));
    EXPECT_EQ(state(), limpia);
  });
}

TEST_F(SavingFailures, a_row_that_is_gone_tells_so_and_ends_the_question_at_the_card_that_cannot_reload) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", typed}});
    list->vanish(1);
    expectBox(goneBox, 4144, u"Error");
    expectReport(u"AvisoCambio de CNota", failure::noSuchMember);
    EXPECT_FALSE(AvisoCambio(instance, u"NoPreguntar", u"Save"));
    EXPECT_EQ(state(), modificada);
    EXPECT_EQ(card(u"txtNotas"), typed);
    EXPECT_EQ(here.screen.pointer, 11);
    here.screen.pointer = 0;
  });
}

TEST_F(SavingFailures, a_question_that_cannot_be_shown_counts_as_cancelled) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", typed}});
    here.faults.failNext("Screen.messageBox", failure::internalError);
    expectReport(u"MostrarMensaje() de RutinasErr", failure::internalError);
    EXPECT_FALSE(AvisoCambio(instance, u"Preguntar", u"Save"));
    EXPECT_EQ(state(), modificada);
    EXPECT_EQ(crs().updates, 0);
  });
}

// The commands' own failures.

TEST_F(SavingFailures, a_stamp_that_cannot_be_read_keeps_the_card_from_being_saved) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", typed}});
    here.faults.failNext("Field.Value", dao::failure::locked);
    expectReport(u"Guardar de CNota", dao::failure::locked);
    Guardar(instance, u"NoPreguntar");
    EXPECT_EQ(state(), modificada);
    EXPECT_EQ(crs().updates, 0);
    EXPECT_EQ(card(u"txtNotas"), typed);
  });
}

TEST_F(SavingFailures, without_a_list_each_is_reported) {
  instance.EstadoFicha = modificada;
  expectReport(u"Guardar de CNota", failure::objectNotSet);
  Guardar(instance, u"NoPreguntar");
  expectReport(u"DeshacerCambios de CNota", failure::objectNotSet);
  DeshacerCambios(instance);
  expectReport(u"GrabaRegistro de CNota", failure::objectNotSet);
  expectReport(u"AvisoCambio de CNota", failure::objectNotSet);
  EXPECT_FALSE(AvisoCambio(instance, u"NoPreguntar", u"Save"));
  EXPECT_EQ(state(), modificada);
  here.screen.pointer = 0;
}

}  // namespace
}  // namespace ovalia
