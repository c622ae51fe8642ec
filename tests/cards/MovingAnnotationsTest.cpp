#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/cards/MarkedNotes.h"

namespace ovalia {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST_F(MovingAnnotations, without_a_marked_row_only_tells_so) {
  mark({});
  expectBox(u"Por favor, marque las notas que quiere mover.", 16);
  move();
  EXPECT_THAT(database->opened, IsEmpty());
  EXPECT_THAT(database->executed, IsEmpty());
}

TEST_F(MovingAnnotations, an_annotation_without_attachments_is_linked_and_nothing_else) {
  move();
  EXPECT_THAT(database->executed,
              ElementsAre(u"UPDATE NotaIP SET IdInm = 4073, IdCliente=22 WHERE IdNota = 501"));
  EXPECT_TRUE(moved(501));
  EXPECT_EQ(linkOf(502), u"120 21");
}

TEST_F(MovingAnnotations, the_statement_names_the_hosts_table_and_columns_and_the_key_by_the_kind) {
  nota.Tipo = u"Visita";
  nota.Nota = u"VisitaIP";
  nota.IdPr = u"IdUsu";
  database->onExecute = [](TextView) { return 1; };
  moveTo(-7, -8);
  EXPECT_THAT(database->executed,
              ElementsAre(u"UPDATE VisitaIP SET IdUsu = -7, IdCliente=-8 WHERE IdVisita = 501"));
}

TEST_F(MovingAnnotations, attachments_follow_into_the_new_folder_under_new_names) {
  document(501, u"120F00.pdf", u"el plano");
  document(501, u"120F01.doc", u"el contrato");
  move();
  EXPECT_EQ(here.files.content(newLeaf + u"4073F00.pdf"), u"el plano");
  EXPECT_EQ(here.files.content(newLeaf + u"4073F00.doc"), u"el contrato");
  EXPECT_THAT(here.shell.recycled, ElementsAre(leaf + u"120F00.pdf", leaf + u"120F01.doc"));
  EXPECT_THAT(tree(), SizeIs(2));
  EXPECT_THAT(rows(),
              ElementsAre(u"1: 4073 1 501 plano < 4073F00.pdf", u"2: 4073 1 501 plano < 4073F00.doc"));
  EXPECT_TRUE(moved(501));
}

TEST_F(MovingAnnotations, the_statements_are_these) {
  document(501, u"120F00.pdf", u"el plano");
  document(501, u"120F01.doc", Null);
  expectMissing();
  expectNotCopied(u"120F01.doc");
  move();
  EXPECT_THAT(database->opened, ElementsAre(u"SELECT * FROM DocuNotaIP WHERE IdNota = 501",
                                            u"SELECT Id, NombreArch FROM DocuNotaIP WHERE Id = 4073",
                                            u"SELECT Id, NombreArch FROM DocuNotaIP WHERE Id = 4073"));
  EXPECT_THAT(database->executed,
              ElementsAre(u"DELETE * FROM DocuNotaIP WHERE IdDocu = 2",
                          u"UPDATE NotaIP SET IdInm = 4073, IdCliente=22 WHERE IdNota = 501",
                          u"UPDATE DocuNotaIP SET  NombreArch='4073F00.pdf', Id=4073 WHERE IdDocu = 1"));
}

TEST_F(MovingAnnotations,
       all_are_copied_then_the_annotation_is_linked_then_each_old_file_goes_before_its_row) {
  document(501, u"120F00.pdf", u"el plano");
  document(501, u"120F01.pdf", u"el contrato");
  std::vector<std::string> steps;
  const auto watch = [&](const char* operation, std::string step) {
    for (const int nth : {1, 2}) here.faults.onNth(operation, nth, [&steps, step] { steps.push_back(step); });
  };
  watch("Files.copy", "copy");
  watch("Shell.recycle", "recycle");
  for (const int nth : {1, 2, 3})
    here.faults.onNth("Database.Execute", nth, [&] { steps.push_back("statement"); });
  move();
  EXPECT_THAT(steps,
              ElementsAre("copy", "copy", "statement", "recycle", "statement", "recycle", "statement"));
}

TEST_F(MovingAnnotations, two_attachments_with_one_extension_get_two_names) {
  document(501, u"120F00.pdf", u"el plano");
  document(501, u"120F01.pdf", u"el contrato");
  move();
  EXPECT_EQ(here.files.content(newLeaf + u"4073F00.pdf"), u"el plano");
  EXPECT_EQ(here.files.content(newLeaf + u"4073F01.pdf"), u"el contrato");
  EXPECT_THAT(rows(),
              ElementsAre(u"1: 4073 1 501 plano < 4073F00.pdf", u"2: 4073 1 501 plano < 4073F01.pdf"));
}

TEST_F(MovingAnnotations, new_names_count_on_from_the_new_parents_own_and_replace_no_file) {
  documents->add({50, 4073, 1, 900, u"suyo", u"4073F06.pdf"});
  here.files.putFile(newLeaf + u"4073F07.pdf", u"sin fila");
  document(501, u"120F00.pdf", u"el plano");
  move();
  EXPECT_EQ(here.files.content(newLeaf + u"4073F07.pdf"), u"sin fila");
  EXPECT_EQ(here.files.content(newLeaf + u"4073F08.pdf"), u"el plano");
}

TEST_F(MovingAnnotations, a_new_name_that_appears_at_the_last_moment_replaces_no_file_and_ends_it) {
  document(501, u"120F00.pdf", u"el plano");
  here.faults.onNext("Files.copy", [&] { here.files.putFile(newLeaf + u"4073F00.pdf", u"de otro"); });
  expectReport(u"TrasladaNotas de CNota", failure::fileAlreadyExists);
  move();
  EXPECT_EQ(here.files.content(newLeaf + u"4073F00.pdf"), u"de otro");
  EXPECT_EQ(here.files.content(leaf + u"120F00.pdf"), u"el plano");
  EXPECT_THAT(rows(), ElementsAre(u"1: 120 1 501 plano < 120F00.pdf"));
  EXPECT_FALSE(moved(501));
  move();
  EXPECT_EQ(here.files.content(newLeaf + u"4073F01.pdf"), u"el plano") << "the next try steps over it";
}

TEST_F(MovingAnnotations, an_extension_that_is_none_becomes_doc) {
  document(501, u"120F00", u"el plano");
  move();
  EXPECT_EQ(here.files.content(newLeaf + u"4073F00.doc"), u"el plano");
}

TEST_F(MovingAnnotations, every_marked_annotation_moves_in_the_order_of_the_marks) {
  document(501, u"120F00.pdf", u"uno");
  document(503, u"120F01.pdf", u"tres");
  mark({503, 501});
  move();
  EXPECT_EQ(here.files.content(newLeaf + u"4073F00.pdf"), u"tres");
  EXPECT_EQ(here.files.content(newLeaf + u"4073F01.pdf"), u"uno");
  EXPECT_TRUE(moved(501) && moved(503));
  EXPECT_EQ(linkOf(502), u"120 21");
}

TEST_F(MovingAnnotations, the_new_folder_is_made) {
  document(501, u"120F00.pdf", u"el plano");
  moveTo(88);
  EXPECT_EQ(here.files.content(agencyFolder + u"\\Doc8\\Doc0\\88F00.pdf"), u"el plano");
}

TEST_F(MovingAnnotations, to_the_same_parent_gives_new_names_and_disposes_of_the_old) {
  document(501, u"120F00.pdf", u"el plano");
  document(501, u"120F01.pdf", u"el contrato");
  moveTo(120);
  EXPECT_THAT(rows(), ElementsAre(u"1: 120 1 501 plano < 120F02.pdf", u"2: 120 1 501 plano < 120F03.pdf"));
  EXPECT_EQ(here.files.content(leaf + u"120F02.pdf"), u"el plano");
  EXPECT_EQ(here.files.content(leaf + u"120F03.pdf"), u"el contrato");
  EXPECT_THAT(here.shell.recycled, ElementsAre(leaf + u"120F00.pdf", leaf + u"120F01.pdf"));
}

TEST_F(MovingAnnotations, list_card_and_counters_are_not_touched) {
  document(501, u"120F00.pdf", u"el plano");
  openCard([&] {
    const int before = here.faults.visits("Recordset.Edit") + here.faults.visits("Recordset.Find");
    instance.EstadoFicha = modificada;
    move();
    EXPECT_EQ(here.faults.visits("Recordset.Edit") + here.faults.visits("Recordset.Find"), before);
    EXPECT_EQ(state(), modificada);
    EXPECT_EQ(nota.crs->AbsolutePosition(), 0);
    putAway();
  });
  EXPECT_EQ(counter(), 0);
  EXPECT_THAT(host.events, IsEmpty());
}

// Files that are not what the table says.

TEST_F(MovingAnnotations, a_missing_file_loses_its_row_and_is_told_twice) {
  document(501, u"120F00.pdf", Null);
  document(501, u"120F01.doc", u"el contrato");
  expectMissing();
  expectNotCopied(u"120F00.pdf");
  move();
  EXPECT_THAT(rows(), ElementsAre(u"2: 4073 1 501 plano < 4073F00.doc"));
  EXPECT_EQ(here.files.content(newLeaf + u"4073F00.doc"), u"el contrato");
  EXPECT_TRUE(moved(501));
}

// The name that the missing file was to take is free still, and counts as its copy once another has taken it.
TEST_F(MovingAnnotations, a_missing_file_is_told_once_where_the_next_takes_its_new_name) {
  document(501, u"120F00.pdf", Null);
  document(501, u"120F01.pdf", u"el contrato");
  expectMissing();
  move();
  EXPECT_THAT(rows(), ElementsAre(u"2: 4073 1 501 plano < 4073F00.pdf"));
  EXPECT_EQ(here.files.content(newLeaf + u"4073F00.pdf"), u"el contrato");
}

TEST_F(MovingAnnotations, a_file_spelt_otherwise_counts_as_missing_and_stays) {
  here.files.putFile(leaf + u"120f00.PDF", u"el plano");
  document(501, u"120F00.pdf", Null);
  expectMissing();
  expectNotCopied(u"120F00.pdf");
  move();
  EXPECT_THAT(rows(), IsEmpty());
  EXPECT_EQ(here.files.content(leaf + u"120f00.PDF"), u"el plano");
}

TEST_F(MovingAnnotations, a_name_out_of_a_damaged_table_never_leads_outside) {
  here.files.putFile(u"\\secreto.doc", u"secreto");
  here.files.putFile(agencyFolder + u"\\Doc1\\120F00.pdf", u"de otra ficha");
  for (const TextView name : {u"..\\..\\..\\..\\..\\secreto.doc", u"../../../../../secreto.doc",
                              u"..\\..\\120F00.pdf", u".", u"..", u"", u"Sub\\x.pdf"}) {
    documents->rows.clear();
    document(501, u"120F00.pdf", Null);
    documents->at(0, u"NombreArch") = name;
    expectMissing();
    expectNotCopied(name);
    move();
    EXPECT_THAT(documents->rows, IsEmpty()) << toUtf8(name);
    EXPECT_THAT(here.shell.recycled, IsEmpty());
  }
  EXPECT_EQ(here.files.content(u"\\secreto.doc"), u"secreto");
  EXPECT_EQ(here.files.content(agencyFolder + u"\\Doc1\\120F00.pdf"), u"de otra ficha");
  EXPECT_THAT(tree(), SizeIs(1));
}

// The documents of other records lie in folders below this one.
TEST_F(MovingAnnotations, a_name_that_is_a_folder_never_takes_what_lies_in_it_along) {
  here.files.putFile(leaf + u"Doc0\\1200F00.pdf", u"de otra ficha");
  document(501, u"120F00.pdf", Null);
  documents->at(0, u"NombreArch") = u"Doc0";
  expectMissing();
  expectNotCopied(u"Doc0");
  move();
  EXPECT_EQ(here.files.content(leaf + u"Doc0\\1200F00.pdf"), u"de otra ficha");
  EXPECT_THAT(here.shell.recycled, IsEmpty());
}

TEST_F(MovingAnnotations, a_copy_that_is_not_there_afterwards_is_told_and_the_rest_goes_on) {
  document(501, u"120F00.pdf", u"el plano");
  here.faults.onNext("Database.Execute", [&] { here.files.remove(newLeaf + u"4073F00.pdf"); });
  expectNotCopied(u"120F00.pdf");
  move();
  EXPECT_THAT(here.shell.recycled, ElementsAre(leaf + u"120F00.pdf"));
  EXPECT_THAT(rows(), ElementsAre(u"1: 4073 1 501 plano < 4073F00.pdf"));
}

TEST_F(MovingAnnotations, an_old_file_that_the_bin_does_not_take_stays_behind_and_its_row_moves) {
  document(501, u"120F00.pdf", u"el plano");
  here.shell.nextRecycle = Shell::RecycleResult{.code = 5, .lastError = 5};
  expectBox(u"Error devuelto: 5, 5");
  move();
  EXPECT_EQ(here.files.content(leaf + u"120F00.pdf"), u"el plano");
  EXPECT_EQ(here.files.content(newLeaf + u"4073F00.pdf"), u"el plano");
  EXPECT_THAT(rows(), ElementsAre(u"1: 4073 1 501 plano < 4073F00.pdf"));
}

TEST_F(MovingAnnotations, a_bin_that_fails_is_reported_for_itself_and_the_row_moves) {
  document(501, u"120F00.pdf", u"el plano");
  here.faults.failNext("Shell.recycle", failure::permissionDenied);
  expectReport(u"EnviarAPapelera() de RutinasErr", failure::permissionDenied);
  move();
  EXPECT_THAT(rows(), ElementsAre(u"1: 4073 1 501 plano < 4073F00.pdf"));
}

TEST_F(MovingAnnotations, a_bin_whose_report_fails_is_passed_over) {
  document(501, u"120F00.pdf", u"el plano");
  here.faults.failNext("Shell.recycle", failure::permissionDenied);
  here.faults.failNext("Screen.messageBox", failure::internalError);
  move();
  EXPECT_THAT(rows(), ElementsAre(u"1: 4073 1 501 plano < 4073F00.pdf"));
}

}  // namespace
}  // namespace ovalia
