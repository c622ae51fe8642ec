#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/attachments/DeletingAttachments.h"

namespace ovalia {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int yes = 6, no = 7;

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

// The list is filled again whatever was answered.
TEST_F(DeletingAttachments, declined_shows_what_others_have_done_to_the_documents_meanwhile) {
  onCard([&] {
    user.clicksItem(1);
    user.opensMenu(u"ID_mnuDocumentos");
    expectQuestion(no).whileUp([&] { documents->add({9, 120, 1, 501, u"suyo.pdf", u"120F02.pdf"}); });
    user.clicks(u"ID_Quitar");
    EXPECT_THAT(shown(), ElementsAre(name, u"120F01.pdf", u"120F02.pdf"));
    form().Hide();
    documents->vanish(2);
    expectQuestion(no);
    EXPECT_FALSE(remove(name, true));
    EXPECT_THAT(shown(), testing::SizeIs(3)) << "a card that nobody sees is not";
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

// The documents of other records lie in folders below this one.
TEST_F(DeletingAttachments, a_name_that_is_a_folder_never_takes_what_lies_in_it_along) {
  const Text other = leaf + u"Doc0\\1200F00.pdf";
  here.files.putFile(other, u"de otra ficha");
  documents->rows.clear();
  documents->add({1, 120, 1, 501, u"plano.pdf", u"Doc0"});
  list->at(0, u"NArchivos") = 1;
  onCard([&] {
    expectBox(u"Error devuelto: 2, 2");
    EXPECT_TRUE(remove(u"Doc0"));
  });
  EXPECT_EQ(here.files.content(other), u"de otra ficha");
  EXPECT_THAT(rows(), IsEmpty());
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

// The question that nobody asks.

class Associated : public DeletingAttachments {
 protected:
  kit::FakeScreen::Expectation& expectAssociatedQuestion(int answer) {
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
    here.faults.failNext("Recordset.Update", failure::permissionDenied);
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
