#include "attachments/DeletingAttachments.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

#include "attachments/AttachmentList.h"
#include "routines/Trap.h"
#include "tests/cardkit/Attachments.h"
#include "tests/cardkit/RecordingScreen.h"
#include "tests/kit/FakeRecordset.h"

namespace ovalia {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using kit::FakeScreen;

constexpr int yes = 6, no = 7;

class DeletingAttachments : public kit::AttachmentsTest {
 public:
  using AttachmentsTest::expectBox;
  using AttachmentsTest::expectReport;
  using AttachmentsTest::here;

  const Text name = u"120F00.pdf";
  const Text path = leaf + name;

  void expectInUse() {
    expectBox(
        u"El documento adjunto (" + path + u") está abierto en Word;\r\nciérrelo y vuelva a intentarlo.", 48,
        u"Borrar");
  }
  void expectGone(const Text& shownPath) {
    expectBox(u"El documento adjunto (" + shownPath + u") no existe.", 48, u"Borrar");
  }
  void expectGone() { expectGone(path); }

  // The bin leaves the file where it is.
  void binRefuses() {
    here.shell.nextRecycle = Shell::RecycleResult{.code = 5, .lastError = 5};
    expectBox(u"Error devuelto: 5, 5");
  }

 protected:
  void SetUp() override {
    AttachmentsTest::SetUp();
    attached(name, u"plano.pdf");
    attached(u"120F01.pdf", u"otro.pdf");
  }

  FakeScreen::Expectation& expectQuestion(int answer) {
    return expectBox(u"El documento adjunto a la nota se borrará.\r\n\r\n¿Desea continuar?", 68, u"Borrar",
                     answer);
  }

  void onCard(const std::function<void()>& script) { openCard(script); }

  bool remove(TextView stored, bool ask = false) { return BorrarDocNota(instance, stored, ask); }

  std::vector<Text> shown() const {
    std::vector<Text> keys;
    for (const forms::ListItem& item : form().as<forms::ListView>(u"LsvDocu")->items())
      keys.push_back(item.key);
    return keys;
  }
  bool hasRow() const { return rows().size() == 2; }
  kit::FakeRecordset& crs() const { return dynamic_cast<kit::FakeRecordset&>(*nota.crs); }

  void expectNothingTouched() {
    EXPECT_TRUE(here.files.exists(path));
    EXPECT_THAT(here.shell.recycled, IsEmpty());
    EXPECT_EQ(counter(), 2);
    EXPECT_TRUE(hasRow());
  }
};

TEST_F(DeletingAttachments, sends_the_file_to_the_bin_and_takes_counter_row_and_item_along) {
  onCard([&] {
    expectQuestion(yes);
    EXPECT_TRUE(remove(name, true));
    EXPECT_THAT(shown(), ElementsAre(u"120F01.pdf"));
    EXPECT_EQ(state(), limpia);
  });
  EXPECT_THAT(here.shell.recycled, ElementsAre(path));
  EXPECT_FALSE(here.files.exists(path));
  EXPECT_EQ(counter(), 1);
  EXPECT_THAT(rows(), ElementsAre(u"2: 120 1 501 otro.pdf < 120F01.pdf"));
  EXPECT_THAT(database->executed,
              ElementsAre(u"DELETE * FROM DocuNotaIP WHERE NombreArch = '120F00.pdf' AND IdNota = 501"));
}

TEST_F(DeletingAttachments, takes_file_then_counter_then_row) {
  onCard([&] {
    here.faults.onNext("Shell.recycle", [&] { EXPECT_EQ(counter(), 2); });
    here.faults.onNext("Recordset.Update", [&] {
      EXPECT_FALSE(here.files.exists(path));
      EXPECT_TRUE(hasRow());
    });
    here.faults.onNext("Database.Execute", [&] {
      EXPECT_EQ(counter(), 1);
      EXPECT_TRUE(hasRow());
    });
    EXPECT_TRUE(remove(name));
  });
}

TEST_F(DeletingAttachments, declined_touches_nothing) {
  onCard([&] {
    expectQuestion(no);
    EXPECT_FALSE(remove(name, true));
    EXPECT_THAT(shown(), ElementsAre(name, u"120F01.pdf"));
  });
  expectNothingTouched();
}

TEST_F(DeletingAttachments, is_what_the_tool_does_after_asking) {
  onCard([&] {
    user.clicksItem(2);
    user.opensMenu(u"ID_mnuDocumentos");
    expectQuestion(yes);
    user.clicks(u"ID_Quitar");
    EXPECT_THAT(shown(), ElementsAre(name));
  });
  EXPECT_THAT(here.shell.recycled, ElementsAre(leaf + u"120F01.pdf"));
}

TEST_F(DeletingAttachments, the_last_one_closes_the_pane) {
  onCard([&] {
    EXPECT_TRUE(remove(name));
    EXPECT_TRUE(control(u"LsvDocu").Visible());
    EXPECT_TRUE(remove(u"120F01.pdf"));
    EXPECT_FALSE(control(u"LsvDocu").Visible());
  });
  EXPECT_EQ(counter(), 0);
  EXPECT_THAT(rows(), IsEmpty());
  EXPECT_THAT(tree(), IsEmpty());
}

TEST_F(DeletingAttachments, leaves_rows_of_other_annotations_with_that_stored_name) {
  documents->add({9, 120, 1, 777, u"plano.pdf", name});
  onCard([&] { EXPECT_TRUE(remove(name)); });
  EXPECT_THAT(rows(),
              ElementsAre(u"2: 120 1 501 otro.pdf < 120F01.pdf", u"9: 120 1 777 plano.pdf < 120F00.pdf"));
}

TEST_F(DeletingAttachments, keeps_to_the_table_of_the_list_archived_or_not) {
  kit::attachmentTable(*database, u"DocuNotaIArch")->add({1, 120, 1, 501, u"plano.pdf", name});
  nota.DocuAsoc = u"DocuNotaIArch";
  onCard([&] { EXPECT_TRUE(remove(name)); });
  EXPECT_THAT(rows(u"DocuNotaIArch"), IsEmpty());
  EXPECT_TRUE(hasRow());
}

TEST_F(DeletingAttachments, a_quote_in_the_name_is_doubled_in_the_statement) {
  attached(u"120F0'2.pdf", u"plano.pdf");
  onCard([&] { EXPECT_TRUE(remove(u"120F0'2.pdf")); });
  EXPECT_THAT(rows(), testing::SizeIs(2));
}

// Where nothing is done.

TEST_F(DeletingAttachments, without_a_counter_above_0_it_leaves_at_once_with_true) {
  onCard([&] {
    for (const Variant& any : {Variant(0), Variant(-1), Variant(Null)}) {
      list->at(0, u"NArchivos") = any;
      EXPECT_TRUE(remove(name, true));
      EXPECT_THAT(shown(), ElementsAre(name, u"120F01.pdf")) << "not filled again";
    }
  });
  EXPECT_THAT(here.shell.recycled, IsEmpty());
  EXPECT_TRUE(hasRow());
}

TEST_F(DeletingAttachments, without_a_name_it_leaves_at_once_with_true) {
  onCard([&] { EXPECT_TRUE(remove(u"", true)); });
  expectNothingTouched();
}

TEST_F(DeletingAttachments, a_name_that_no_row_has_is_told_and_the_counter_stays_lowered) {
  here.files.putFile(leaf + u"120F09.pdf");
  onCard([&] {
    expectBox(u"Problemas al borra en Archivo.");
    EXPECT_TRUE(remove(u"120F09.pdf"));
  });
  EXPECT_EQ(counter(), 1);
  EXPECT_TRUE(hasRow());
  EXPECT_THAT(here.shell.recycled, ElementsAre(leaf + u"120F09.pdf"));
}

// The file.

TEST_F(DeletingAttachments, a_file_that_is_missing_is_told_and_loses_its_row_and_its_count) {
  here.files.remove(path);
  onCard([&] {
    expectBox(u"Error devuelto: 2, 2");
    EXPECT_TRUE(remove(name));
    EXPECT_THAT(shown(), ElementsAre(u"120F01.pdf"));
  });
  EXPECT_EQ(counter(), 1);
  EXPECT_FALSE(hasRow());
}

TEST_F(DeletingAttachments, a_file_that_the_bin_does_not_take_stays_and_loses_its_row_and_its_count) {
  onCard([&] {
    binRefuses();
    EXPECT_TRUE(remove(name));
  });
  EXPECT_TRUE(here.files.exists(path));
  EXPECT_EQ(counter(), 1);
  EXPECT_FALSE(hasRow());
}

TEST_F(DeletingAttachments, a_bin_that_fails_is_reported_for_itself_and_the_row_goes) {
  onCard([&] {
    here.faults.failNext("Shell.recycle", failure::permissionDenied);
    expectReport(u"EnviarAPapelera() de RutinasErr", failure::permissionDenied);
    EXPECT_TRUE(remove(name));
  });
  EXPECT_FALSE(hasRow());
  EXPECT_EQ(counter(), 1);
}

TEST_F(DeletingAttachments, a_name_out_of_a_damaged_table_never_leads_outside_and_can_be_got_rid_of) {
  here.files.putFile(u"\\secreto.doc", u"secreto");
  here.files.putFile(u"\\Datos\\Agencia\\Doc1\\120F07.pdf", u"de otra ficha");
  for (const TextView damaged : {u"..\\..\\..\\..\\..\\secreto.doc", u"../../../../../secreto.doc",
                                 u"..\\..\\120F07.pdf", u"\\secreto.doc", u"Sub\\x.pdf", u".", u".."}) {
    documents->rows.clear();
    documents->add({1, 120, 1, 501, u"plano.pdf", damaged});
    list->at(0, u"NArchivos") = 1;
    onCard([&] {
      expectGone(leaf + Text(damaged));
      EXPECT_TRUE(remove(damaged));
    });
    EXPECT_THAT(here.shell.recycled, IsEmpty()) << toUtf8(damaged);
    EXPECT_THAT(rows(), IsEmpty());
    EXPECT_EQ(counter(), 0);
  }
  EXPECT_EQ(here.files.content(u"\\secreto.doc"), u"secreto");
  EXPECT_EQ(here.files.content(u"\\Datos\\Agencia\\Doc1\\120F07.pdf"), u"de otra ficha");
}

TEST_F(DeletingAttachments, a_folder_that_cannot_be_reached_is_reported_and_nothing_is_touched) {
  onCard([&] {
    nota.AppDirUser = u"\\Red\\Agencia";
    expectReport(u"CreaPathDoc de CNota", failure::pathNotFound);
    expectReport(u"BorrarDocNota de CNota", failure::pathNotFound);
    EXPECT_FALSE(remove(name));
  });
  expectNothingTouched();
}

// The card.

TEST_F(DeletingAttachments, a_card_that_is_not_visible_is_not_filled_again) {
  onCard([&] {
    form().Hide();
    EXPECT_TRUE(remove(name));
    EXPECT_THAT(shown(), ElementsAre(name, u"120F01.pdf"));
  });
  EXPECT_FALSE(hasRow());
}

TEST_F(DeletingAttachments, no_card_is_needed) {
  EXPECT_TRUE(remove(name));
  EXPECT_FALSE(hasRow());
  EXPECT_EQ(counter(), 1);
}

TEST_F(DeletingAttachments, keeps_what_was_typed_the_state_and_the_stamp) {
  const Text stamp = stored(u"FechaActualizacion").text();
  onCard([&] {
    user.types(u"txtAsunto", u"Llaves del ático");
    for (const std::int32_t any : {nueva, modificada}) {
      instance.EstadoFicha = any;
      EXPECT_TRUE(remove(any == nueva ? name : Text(u"120F01.pdf")));
      EXPECT_EQ(state(), any);
      EXPECT_EQ(card(u"txtAsunto"), u"Llaves del ático");
    }
    putAway();
  });
  EXPECT_EQ(stored(u"Asunto").text(), u"Llaves en portería");
  EXPECT_EQ(stored(u"FechaActualizacion").text(), stamp);
}

TEST_F(DeletingAttachments, drops_an_edit_that_a_failed_save_has_left_pending) {
  onCard([&] {
    crs().Edit();
    crs().setValue(u"Asunto", u"a medias");
    EXPECT_TRUE(remove(name));
    EXPECT_FALSE(crs().editing());
  });
  EXPECT_EQ(stored(u"Asunto").text(), u"Llaves en portería");
  EXPECT_EQ(counter(), 1);
}

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

// The question that nobody asks.

class Associated : public DeletingAttachments {
 protected:
  FakeScreen::Expectation& expectAssociatedQuestion(int answer) {
    return expectBox(
        u"La anotación seleccionada contiene un documento asociado.\r\n\r\n¿Desea borrarlo y continuar?", 68,
        u"Anotacion", answer);
  }
};

TEST_F(Associated, answered_yes_deletes_the_selected_attachment) {
  onCard([&] {
    user.clicksItem(2);
    expectAssociatedQuestion(yes);
    EXPECT_TRUE(TestDocAsociado(instance));
  });
  EXPECT_THAT(rows(), ElementsAre(u"1: 120 1 501 plano.pdf < 120F00.pdf"));
}

TEST_F(Associated, answered_no_lets_nobody_go_on) {
  onCard([&] {
    user.clicksItem(1);
    expectAssociatedQuestion(no);
    EXPECT_FALSE(TestDocAsociado(instance));
  });
  expectNothingTouched();
}

TEST_F(Associated, the_result_is_that_of_the_deletion) {
  onCard([&] {
    user.clicksItem(1);
    expectAssociatedQuestion(yes);
    failsNext<failure::permissionDenied>(*this, "Recordset.Update");
    expectInUse();
    EXPECT_FALSE(TestDocAsociado(instance));
  });
}

TEST_F(Associated, without_attachments_there_is_no_question) {
  onCard([&] {
    for (const Variant& any : {Variant(0), Variant(Null)}) {
      list->at(0, u"NArchivos") = any;
      EXPECT_TRUE(TestDocAsociado(instance));
    }
  });
}

TEST_F(Associated, a_counter_below_0_is_not_0) {
  onCard([&] {
    user.clicksItem(1);
    list->at(0, u"NArchivos") = -1;
    expectAssociatedQuestion(yes);
    EXPECT_TRUE(TestDocAsociado(instance));
  });
  EXPECT_TRUE(hasRow());
}

TEST_F(Associated, without_a_selection_it_is_reported_and_the_result_stays_true) {
  onCard([&] {
    expectAssociatedQuestion(yes);
    expectReport(u"TestDocAsociado de CNota", failure::objectNotSet);
    EXPECT_TRUE(TestDocAsociado(instance));
  });
}

TEST_F(Associated, without_a_list_it_is_reported_and_the_result_stays_true) {
  nota.crs.reset();
  expectReport(u"TestDocAsociado de CNota", failure::objectNotSet);
  EXPECT_TRUE(TestDocAsociado(instance));
}

}  // namespace
}  // namespace ovalia
