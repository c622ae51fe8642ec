#include <gtest/gtest.h>

#include <ostream>

#include "routines/Trap.h"
#include "tests/attachments/DeletingAttachments.h"
#include "tests/cardkit/RecordingScreen.h"

namespace ovalia {
namespace {

constexpr int yes = 6;

// Failures: what becomes of file, counter and row, and what the result is.

struct Outcome {
  const char* what;
  void (*arrange)(DeletingAttachments& test);
  bool result;
  bool file;
  std::int32_t counter;
  bool row;
};

void PrintTo(const Outcome& row, std::ostream* out) { *out << row.what; }

class OutcomeOfDeletion : public DeletingAttachments, public testing::WithParamInterface<Outcome> {};

TEST_P(OutcomeOfDeletion, is_this) {
  const Outcome& expected = GetParam();
  onCard([&] {
    instance.EstadoFicha = modificada;
    expected.arrange(*this);
    EXPECT_EQ(remove(name), expected.result);
    EXPECT_EQ(state(), modificada);
    here.faults.heal();
    putAway();
  });
  EXPECT_EQ(here.files.exists(path), expected.file);
  EXPECT_EQ(counter(), expected.counter);
  EXPECT_EQ(hasRow(), expected.row);
  EXPECT_TRUE(here.files.exists(leaf + u"120F01.pdf"));
}

using Test = DeletingAttachments;

template <std::int32_t number>
void failsNext(Test& t, const char* operation) {
  t.here.faults.failNext(operation, number);
}

// The file stays and the counter cannot be lowered.
template <std::int32_t number>
void updateFailsWithTheFileThere(Test& t) {
  t.binRefuses();
  failsNext<number>(t, "Recordset.Update");
  t.expectInUse();
}

// The file is in the bin and the counter cannot be lowered.
template <std::int32_t number>
void updateFailsWithTheFileGone(Test& t) {
  failsNext<number>(t, "Recordset.Update");
  t.expectGone();
}

template <std::int32_t number>
void reportedAt(Test& t, const char* operation) {
  failsNext<number>(t, operation);
  t.expectReport(u"BorrarDocNota de CNota", number);
}

constexpr std::int32_t locked = dao::failure::locked;
constexpr bool there = true, gone = false, kept = true, deleted = false;

constexpr Outcome outcomes[] = {
    {"the parent's number cannot be read", [](Test& t) { reportedAt<locked>(t, "Field.Value"); }, true, there,
     2, kept},
    {"the counter cannot be read",
     [](Test& t) {
       t.here.faults.failNth("Field.Value", 2, locked);
       t.expectReport(u"BorrarDocNota de CNota", locked);
     },
     true, there, 2, kept},
    {"the row cannot be edited", [](Test& t) { reportedAt<locked>(t, "Recordset.Edit"); }, true, gone, 2,
     kept},
    {"the counter cannot be written", [](Test& t) { reportedAt<locked>(t, "Field.setValue"); }, true, gone, 2,
     kept},
    {"the counter cannot be stored", [](Test& t) { reportedAt<locked>(t, "Recordset.Update"); }, true, gone,
     2, kept},
    {"the row cannot be deleted", [](Test& t) { reportedAt<locked>(t, "Database.Execute"); }, true, gone, 1,
     kept},
    {"53 with the file there", updateFailsWithTheFileThere<failure::fileNotFound>, false, there, 2, kept},
    {"75 with the file there", updateFailsWithTheFileThere<failure::pathFileAccess>, false, there, 2, kept},
    {"70 with the file there", updateFailsWithTheFileThere<failure::permissionDenied>, false, there, 2, kept},
    {"53 with the file gone", updateFailsWithTheFileGone<failure::fileNotFound>, true, gone, 2, deleted},
    {"75 with the file gone", updateFailsWithTheFileGone<failure::pathFileAccess>, true, gone, 2, deleted},
    {"70 with the file gone",
     [](Test& t) {
       failsNext<failure::permissionDenied>(t, "Recordset.Update");
       t.expectInUse();
     },
     false, gone, 2, kept},
    // The next statement then misses the edit.
    {"53 when the row is to be edited",
     [](Test& t) {
       failsNext<failure::fileNotFound>(t, "Recordset.Edit");
       t.expectGone();
       t.expectReport(u"BorrarDocNota de CNota", dao::failure::updateWithoutEdit);
     },
     true, gone, 2, kept},
    {"75 when the row is to be deleted",
     [](Test& t) {
       failsNext<failure::pathFileAccess>(t, "Database.Execute");
       t.expectGone();
       // The count is still that of an earlier statement.
       t.expectBox(u"Problemas al borra en Archivo.");
     },
     true, gone, 1, kept},
    {"70 when the counter is read",
     [](Test& t) {
       t.here.faults.failNth("Field.Value", 2, failure::permissionDenied);
       t.expectInUse();
     },
     false, there, 2, kept},
    {"75 when the counter is read, with the file there",
     [](Test& t) {
       t.here.faults.failNth("Field.Value", 2, failure::pathFileAccess);
       t.expectInUse();
     },
     false, there, 2, kept},
    {"53 when the counter is read, with the file gone",
     [](Test& t) {
       t.here.files.remove(t.path);
       t.here.faults.failNth("Field.Value", 2, failure::fileNotFound);
       t.expectGone();
       t.expectBox(u"Error devuelto: 2, 2");
     },
     true, gone, 1, deleted},
    // Before the document's path is known.
    {"70 when the parent's number is read",
     [](Test& t) {
       failsNext<failure::permissionDenied>(t, "Field.Value");
       t.expectBox(u"El documento adjunto () está abierto en Word;\r\nciérrelo y vuelva a intentarlo.", 48,
                   u"Borrar");
     },
     false, there, 2, kept},
    {"75 when the parent's number is read",
     [](Test& t) {
       failsNext<failure::pathFileAccess>(t, "Field.Value");
       t.expectGone(u"");
       t.expectReport(u"BorrarDocNota de CNota", failure::pathNotFound);
     },
     false, there, 2, kept},
    {"76 when the counter is to be stored",
     [](Test& t) { reportedAt<failure::pathNotFound>(t, "Recordset.Update"); }, false, gone, 2, kept},
};

INSTANTIATE_TEST_SUITE_P(DeletingAttachments, OutcomeOfDeletion, testing::ValuesIn(outcomes));

TEST_F(DeletingAttachments, a_name_spelt_otherwise_on_disk_counts_as_there_when_the_file_is_looked_for) {
  here.files.remove(path);
  here.files.putFile(leaf + u"120F00.PDF");
  onCard([&] {
    updateFailsWithTheFileThere<failure::pathFileAccess>(*this);
    EXPECT_FALSE(remove(name));
  });
}

TEST_F(DeletingAttachments, a_file_that_cannot_even_be_looked_for_goes_to_the_caller) {
  onCard([&] {
    user.clicksItem(1);
    const auto lookFails = [&] {
      here.faults.failNext("Recordset.Edit", failure::pathFileAccess);
      here.faults.failNext("Files.firstMatch", failure::diskFull);
    };
    lookFails();
    EXPECT_THROW(remove(name), Failure);
    here.shell.recycled.clear();
    expectQuestion(yes);
    lookFails();
    expectBox(u"Error devuelto: 2, 2");
    expectReport(u"dNota_Menu de CNota", failure::diskFull);
    user.opensMenu(u"ID_mnuDocumentos");
    user.clicks(u"ID_Quitar");
  });
  EXPECT_EQ(counter(), 2);
  EXPECT_TRUE(hasRow());
}

TEST_F(DeletingAttachments, a_question_that_cannot_be_shown_is_a_no) {
  onCard([&] {
    here.faults.failNext("Screen.messageBox", failure::internalError);
    expectReport(u"MostrarMensaje() de RutinasErr", failure::internalError);
    EXPECT_FALSE(remove(name, true));
  });
  expectNothingTouched();
}

TEST_F(DeletingAttachments, whatever_call_fails_no_row_goes_while_its_file_is_not_in_the_bin_or_told_of) {
  for (const std::int32_t number : {locked, failure::permissionDenied, failure::pathFileAccess}) {
    for (int nth = 1;; ++nth) {
      ASSERT_LT(nth, 200);
      bool met = false;
      documents->rows.clear();
      list->at(0, u"NArchivos") = 0;
      here.shell.recycled.clear();
      attached(name, u"plano.pdf");
      attached(u"120F01.pdf", u"otro.pdf");
      onCard([&] {
        kit::RecordingScreen screen(here.faults, here.screen);
        here.platform.screen = &screen;
        here.faults.failNth("", nth, number);
        const std::int32_t before = state();
        resumeNext([&] { remove(name); });
        met = here.faults.unmet().empty();
        here.faults.heal();
        here.platform.screen = &here.screen;
        here.files.appended.clear();
        SCOPED_TRACE("call " + std::to_string(nth) + " fails with " + std::to_string(number));
        EXPECT_EQ(state(), before);
        EXPECT_LE(counter(), 2);
        EXPECT_GE(counter(), 1);
        EXPECT_TRUE(here.files.exists(leaf + u"120F01.pdf"));
        if (here.files.exists(path) && !hasRow()) {
          EXPECT_FALSE(screen.boxes.empty());
        }
        if (met && !here.files.exists(path) && hasRow()) {
          EXPECT_FALSE(screen.boxes.empty());
        }
      });
      if (!met) break;
    }
  }
}

}  // namespace
}  // namespace ovalia
