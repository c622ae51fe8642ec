#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

#include "cards/Deletion.h"
#include "routines/Trap.h"
#include "tests/cardkit/RecordingScreen.h"
#include "tests/cards/DocumentedNotes.h"

namespace ovalia {
namespace {

// Deleting while something around the component fails: what is left of annotation, attachments, place, card
// and state.
class DeletionFailures : public kit::DocumentedNotes {
 public:
  using DocumentedNotes::expectBox;
  using DocumentedNotes::expectReport;
  using DocumentedNotes::here;
};

struct Outcome {
  const char* what;
  void (*arrange)(DeletionFailures& test);
  bool deleted;
  std::int32_t standsOn;  // 0: none
  std::int32_t state;     // it starts as changed
  bool visible;
};

void PrintTo(const Outcome& row, std::ostream* out) { *out << row.what; }

class OutcomeOfDeletion : public DeletionFailures, public testing::WithParamInterface<Outcome> {};

TEST_P(OutcomeOfDeletion, is_this) {
  const Outcome& expected = GetParam();
  openOn(u"Nota", [&] {
    instance.EstadoFicha = modificada;
    expected.arrange(*this);
    Borrar(instance, false, u"");
    here.faults.heal();
    EXPECT_EQ(list->rows.size(), expected.deleted ? 2u : 3u);
    if (expected.standsOn) {
      EXPECT_EQ(standsOn(), expected.standsOn);
    } else {
      EXPECT_EQ(crs().AbsolutePosition(), -1);
      crs().MoveFirst();
    }
    EXPECT_EQ(state(), expected.state);
    EXPECT_EQ(form().Visible(), expected.visible);
  });
}

using Test = DeletionFailures;
constexpr std::int32_t locked = dao::failure::locked;

void reports(Test& t, const char* operation, int nth = 1) {
  t.here.faults.failNth(operation, nth, locked);
  t.expectReport(u"BorrarUno de CNota", locked);
}

constexpr Outcome outcomes[] = {
    {"the key cannot be read", [](Test& t) { reports(t, "Field.Value"); }, false, 502, modificada, true},
    {"the next row cannot be reached", [](Test& t) { reports(t, "Recordset.MoveNext"); }, false, 502,
     modificada, true},
    // The walk has left the row: the card shows one annotation, the list stands on another.
    {"the next row's key cannot be read", [](Test& t) { reports(t, "Field.Value", 2); }, false, 503,
     modificada, true},
    {"the row cannot be found again", [](Test& t) { reports(t, "Recordset.Find"); }, false, 503, modificada,
     true},
    {"the row is used elsewhere",
     [](Test& t) {
       t.here.faults.failNext("Recordset.Delete", dao::failure::referenced);
       t.expectBox(u"Imposible eliminar el dato ya que está siendo utilizado por otras fichas.", 64,
                   u"Borrar");
     },
     false, 502, modificada, true},
    // Any other failure counts as done.
    {"the row cannot be deleted", [](Test& t) { t.here.faults.failNext("Recordset.Delete", locked); }, false,
     503, limpia, true},
    {"the neighbour cannot be found",
     [](Test& t) {
       t.here.faults.failNth("Recordset.Find", 2, locked);
       // No row is current: the one on top of the screen is a card and has no list to read again.
       t.expectBox(u"La ficha acaba de ser borrada por otro usuario y\r\nno se volverá a visualizar.", 4144,
                   u"Error");
     },
     true, 0, limpia, true},
    {"the neighbour cannot be shown",
     [](Test& t) {
       t.here.faults.onNth("Recordset.Find", 2, [&t] { t.here.faults.failNext("Field.Value", locked); });
       t.expectReport(u"RefrescoFicha de CNota", locked);
     },
     true, 503, limpia, true},
};

INSTANTIATE_TEST_SUITE_P(Deletion, OutcomeOfDeletion, testing::ValuesIn(outcomes));

TEST_F(DeletionFailures, a_neighbour_that_somebody_has_deleted_stops_it_at_the_card_that_cannot_reload) {
  openOn(u"Nota", [&] {
    list->vanish(2);
    expectBox(u"La ficha acaba de ser borrada por otro usuario y\r\nno se volverá a visualizar.", 4144,
              u"Error");
    expectReport(u"Borrar de CNota ", failure::noSuchMember);
    Borrar(instance, false, u"");
    EXPECT_EQ(keys(), (std::vector<std::int32_t>{501, 502}));
    EXPECT_EQ(state(), limpia);
    crs().MoveFirst();
  });
}

TEST_F(DeletionFailures, an_annotation_that_somebody_has_deleted_is_told_and_deletes_no_other) {
  openOn(u"Nota", [&] {
    list->vanish(1);
    expectBox(u"La ficha acaba de ser borrada por otro usuario y\r\nno se volverá a visualizar.", 4144,
              u"Error");
    expectReport(u"Borrar de CNota ", failure::noSuchMember);
    Borrar(instance, false, u"");
    EXPECT_EQ(keys(), (std::vector<std::int32_t>{501, 503}));
    EXPECT_TRUE(form().Visible());
    crs().MoveFirst();
  });
}

TEST_F(DeletionFailures, a_first_row_that_cannot_be_reached_while_the_card_closes_is_passed_over) {
  openOn(u"Nota", [&] {
    here.faults.failNext("Recordset.MoveFirst", locked);
    Borrar(instance, false, u"UnLoad");
    EXPECT_EQ(list->rows.size(), 2u);
    EXPECT_FALSE(form().Visible());
    EXPECT_EQ(state(), limpia);
    crs().MoveFirst();
  });
}

TEST_F(DeletionFailures, a_question_that_cannot_be_shown_is_a_no) {
  openOn(u"Nota", [&] {
    here.faults.failNext("Screen.messageBox", failure::internalError);
    expectReport(u"MostrarMensaje() de RutinasErr", failure::internalError);
    Borrar(instance, true, u"");
    EXPECT_EQ(list->rows.size(), 3u);
  });
  documented({0, 1, 0});
  open(2, [&] {
    here.faults.failNext("Screen.messageBox", failure::internalError);
    expectReport(u"MostrarMensaje() de RutinasErr", failure::internalError);
    Borrar(instance, false, u"");
    EXPECT_EQ(list->rows.size(), 3u);
    EXPECT_EQ(attachmentsOf(502).size(), 1u);
  });
}

// A report that fails itself with that number is the only way in which one reaches the procedure.
TEST_F(DeletionFailures, a_row_that_is_lost_in_a_report_takes_the_list_to_its_first) {
  openOn(u"Nota", [&] {
    here.faults.failNext("Recordset.MoveNext", locked);
    here.faults.failNext("Screen.messageBox", dao::failure::noCurrentRecord);
    Borrar(instance, false, u"");
    EXPECT_EQ(standsOn(), 501);
    EXPECT_EQ(list->rows.size(), 3u);
  });
}

TEST_F(DeletionFailures, any_other_failure_of_a_report_is_reported_with_the_blank_at_the_end_of_the_name) {
  openOn(u"Nota", [&] {
    here.faults.failNext("Recordset.MoveNext", locked);
    here.faults.failNext("Screen.messageBox", failure::internalError);
    expectReport(u"Borrar de CNota ", failure::internalError);
    Borrar(instance, false, u"");
    EXPECT_EQ(list->rows.size(), 3u);
  });
}

TEST_F(DeletionFailures, attachments_whose_folder_cannot_be_reached_keep_the_annotation) {
  documented({0, 2, 0});
  open(2, [&] {
    nota.AppDirUser = u"\\Red\\Agencia";
    expectSeveralQuestion(yes);
    expectReport(u"CreaPathDoc de CNota", failure::pathNotFound);
    expectReport(u"BorrarDocNota de CNota", failure::pathNotFound);
    Borrar(instance, false, u"");
    EXPECT_EQ(list->rows.size(), 3u);
    EXPECT_EQ(attachmentsOf(502).size(), 2u);
    EXPECT_EQ(standsOn(), 502);
    EXPECT_EQ(state(), limpia);
  });
}

// Any call at all.

TEST_F(DeletionFailures, whatever_call_fails_no_other_annotation_and_no_other_file_is_touched) {
  for (const std::int32_t number : {locked, dao::failure::recordDeleted, failure::permissionDenied}) {
    for (const TextView action : {u"", u"UnLoad"}) {
      int runs = 0;
      for (bool met = true; met; ++runs) {
        ASSERT_LT(runs, 400);
        documented({1, 2, 1});
        open(2, [&] {
          kit::RecordingScreen screen(here.faults, here.screen);
          screen.deletionAnswer = yes;
          here.platform.screen = &screen;
          here.faults.failNth("", runs + 1, number);
          resumeNext([&] { Borrar(instance, true, action); });
          met = here.faults.unmet().empty();
          here.faults.heal();
          here.platform.screen = &here.screen;
          here.files.appended.clear();
          SCOPED_TRACE("call " + std::to_string(runs + 1) + " fails with " + std::to_string(number));
          for (const std::int32_t other : {501, 503}) {
            EXPECT_THAT(keys(), testing::Contains(other));
            EXPECT_EQ(attachmentsOf(other).size(), 1u);
            EXPECT_TRUE(here.files.exists(fileOf(other, 0)));
          }
          EXPECT_EQ(at(1, u"NArchivos").toLong(), 1);
          EXPECT_EQ(state(), limpia);
          resumeNext([&] { crs().MoveFirst(); });
          here.screen.pointer = 0;
        });
      }
      EXPECT_GT(runs, 30);
    }
  }
}

}  // namespace
}  // namespace ovalia
