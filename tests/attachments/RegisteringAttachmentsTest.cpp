#include "attachments/RegisteringAttachments.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/cardkit/Attachments.h"

namespace ovalia {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Registering : public kit::AttachmentsTest {};

TEST_F(Registering, a_file_writes_its_row_and_counts_it) {
  nota.IdAgencia = 4;
  EXPECT_TRUE(AniadirArch(instance, u"\\home\\ana\\plano.pdf", u"120F00.pdf"));
  EXPECT_THAT(rows(), ElementsAre(u"1: 120 4 501 plano.pdf < 120F00.pdf"));
  EXPECT_EQ(counter(), 1);
  EXPECT_TRUE(AniadirArch(instance, u"carta.doc", u"120F01.doc"));
  EXPECT_EQ(rows().back(), u"2: 120 4 501 carta.doc < 120F01.doc");
  EXPECT_EQ(counter(), 2);
}

TEST_F(Registering, uses_these_statements) {
  AniadirArch(instance, u"\\home\\ana\\plano.pdf", u"120F00.pdf");
  EXPECT_THAT(database->opened,
              ElementsAre(u"NotaIP", u"SELECT NombreOrg FROM DocuNotaIP WHERE NombreArch='plano.pdf'"));
  EXPECT_THAT(database->executed,
              ElementsAre(u"INSERT INTO DocuNotaIP (Id, IdAgencia, IdNota, NombreOrg, NombreArch) VALUES "
                          u"(120,1,501,'plano.pdf','120F00.pdf')"));
}

TEST_F(Registering, takes_parent_and_annotation_from_the_current_row) {
  givenList(u"Nota", {{}, {{u"Id", 777}}});
  standOn(2);
  AniadirArch(instance, u"plano.pdf", u"777F00.pdf");
  EXPECT_THAT(rows(), ElementsAre(u"1: 777 1 502 plano.pdf < 777F00.pdf"));
  EXPECT_EQ(counter(1), 0);
  EXPECT_EQ(counter(2), 1);
}

TEST_F(Registering, a_name_is_kept_to_the_letter) {
  for (const Text& name : {Text(u"l'Hospitalet|2º.pdf"), Text(u"Señal 😀.doc"), Text(u"dos\nlíneas.txt"),
                           Text(u"  "), Text(200, u'ñ') + u".pdf"}) {
    documents->rows.clear();
    EXPECT_TRUE(AniadirArch(instance, u"\\home\\ana\\" + name, u"120F00.doc"));
    ASSERT_EQ(documents->rows.size(), 1u);
    EXPECT_EQ(documents->at(0, u"NombreOrg").toText(), name);
  }
}

TEST_F(Registering, the_same_file_twice_gives_two_rows_with_one_name) {
  AniadirArch(instance, u"plano.pdf", u"120F00.pdf");
  AniadirArch(instance, u"plano.pdf", u"120F01.pdf");
  EXPECT_THAT(rows(),
              ElementsAre(u"1: 120 1 501 plano.pdf < 120F00.pdf", u"2: 120 1 501 plano.pdf < 120F01.pdf"));
}

TEST_F(Registering, a_file_named_like_a_stored_one_is_shown_as_a_copy_of_that) {
  attached(u"120F00.pdf", u"plano.pdf");
  AniadirArch(instance, u"\\Datos\\Agencia\\Doc1\\Doc2\\Doc0\\120F00.pdf", u"120F01.pdf");
  AniadirArch(instance, u"120F00.PDF", u"120F02.pdf");
  EXPECT_THAT(rows(), ElementsAre(u"1: 120 1 501 plano.pdf < 120F00.pdf",
                                  u"2: 120 1 501 Copia de plano.pdf < 120F01.pdf",
                                  u"3: 120 1 501 Copia(2) de plano.pdf < 120F02.pdf"));
}

TEST_F(Registering, a_name_that_cannot_be_made_a_copy_of_is_shown_empty) {
  attached(u"120F00.pdf", u"Copia(2 de plano.pdf");
  expectReport(u"GenerarNombreCopia de CNota", failure::badArgument);
  EXPECT_TRUE(AniadirArch(instance, u"120F00.pdf", u"120F01.pdf"));
  EXPECT_EQ(rows().back(), u"2: 120 1 501  < 120F01.pdf");
}

TEST_F(Registering, an_empty_counter_stays_empty) {
  list->at(0, u"NArchivos") = Null;
  EXPECT_TRUE(AniadirArch(instance, u"plano.pdf", u"120F00.pdf"));
  EXPECT_TRUE(stored(u"NArchivos").isNull());
}

TEST_F(Registering, a_row_that_is_refused_is_told_and_counts_nothing) {
  database->onExecute = [](TextView) { return 0; };
  expectBox(u"RecordsAffected = 0", 16, u"AniadirArch");
  EXPECT_FALSE(AniadirArch(instance, u"plano.pdf", u"120F00.pdf"));
  EXPECT_EQ(counter(), 0);
}

TEST_F(Registering, drops_an_edit_that_was_pending) {
  nota.crs->Edit();
  nota.crs->setValue(u"Asunto", u"Sin guardar");
  EXPECT_TRUE(AniadirArch(instance, u"plano.pdf", u"120F00.pdf"));
  EXPECT_EQ(stored(u"Asunto").text(), u"Llaves en portería");
  EXPECT_EQ(counter(), 1);
}

TEST_F(Registering, changes_neither_stamp_nor_state) {
  const Variant stamp = stored(u"FechaActualizacion");
  instance.EstadoFicha = modificada;
  AniadirArch(instance, u"plano.pdf", u"120F00.pdf");
  EXPECT_EQ(stored(u"FechaActualizacion").toDate(), stamp.toDate());
  EXPECT_EQ(instance.EstadoFicha, modificada);
}

TEST_F(Registering, asks_for_the_list_of_a_card_again_only_while_it_is_visible) {
  const Text listing = u"SELECT * FROM DocuNotaIP WHERE IdNota = 501";
  openCard([&] {
    database->opened.clear();
    EXPECT_TRUE(AniadirArch(instance, u"plano.pdf", u"120F00.pdf"));
    EXPECT_THAT(database->opened, testing::Contains(listing));
    form().Hide();
    database->opened.clear();
    EXPECT_TRUE(AniadirArch(instance, u"carta.doc", u"120F01.doc"));
    EXPECT_THAT(database->opened, testing::Not(testing::Contains(listing)));
  });
}

TEST_F(Registering, on_a_list_without_the_parents_number_is_reported) {
  givenList(u"Llamada");
  nota.DocuAsoc = u"DocuNotaIP";
  expectReport(u"AniadirArch de CNota", dao::failure::notInCollection);
  EXPECT_FALSE(AniadirArch(instance, u"plano.pdf", u"77F00.pdf"));
  EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(Registering, an_empty_parents_number_leaves_a_hole_in_the_statement) {
  list->at(0, u"Id") = Null;
  expectReport(u"AniadirArch de CNota", dao::failure::insertSyntax);
  EXPECT_FALSE(AniadirArch(instance, u"plano.pdf", u"120F00.pdf"));
}

TEST_F(Registering, a_counter_that_cannot_be_raised_leaves_the_row_and_gives_false) {
  for (const char* step : {"Recordset.Edit", "Field.setValue", "Recordset.Update"}) {
    documents->rows.clear();
    here.faults.failNext(step, dao::failure::locked);
    expectReport(u"AniadirArch de CNota", dao::failure::locked);
    EXPECT_FALSE(AniadirArch(instance, u"plano.pdf", u"120F00.pdf")) << step;
    EXPECT_EQ(rows().size(), 1u);
    EXPECT_EQ(counter(), 0);
  }
}

// An archive of notes: two live notes, of which the first lends its number, and archived ones of record 120.
class RegisteringInArchive : public kit::AttachmentsTest {
 protected:
  void SetUp() override {
    AttachmentsTest::SetUp();
    archive = kit::attachmentTable(*database, u"DocuNotaIArch");
    live =
        database->table(u"NotaIP", {{u"IdNota", dao::dbLong}, {u"IdInm", dao::dbLong}}, {{31, 9}, {32, 10}});
    documents->add({7, 9, 1, 31, u"suyo.doc", u"9F00.doc"});
    nota.Nota = u"NotaIArch";
    nota.DocuAsoc = u"DocuNotaIArch";
  }

  // Statements that begin so do not find the row that they should.
  void countsNothing(Text beginning) {
    database->onExecute = [=, before = database->onExecute](TextView sql) {
      return sql.starts_with(beginning) ? 0 : before(sql);
    };
  }

  static constexpr TextView liveRow = u"7: 9 1 31 suyo.doc < 9F00.doc";
  kit::FakeTableRef archive, live;
};

TEST_F(RegisteringInArchive, takes_a_key_that_the_live_table_has_given_and_will_not_give_again) {
  EXPECT_TRUE(AniadirArch(instance, u"\\home\\ana\\plano.pdf", u"120F00.pdf"));
  EXPECT_TRUE(AniadirArch(instance, u"plano.pdf", u"120F01.pdf"));
  EXPECT_THAT(rows(u"DocuNotaIArch"),
              ElementsAre(u"8: 120 1 501 plano.pdf < 120F00.pdf", u"9: 120 1 501 plano.pdf < 120F01.pdf"));
  EXPECT_THAT(rows(), ElementsAre(liveRow)) << "the row that was lent is gone";
  EXPECT_EQ(counter(), 2);
}

TEST_F(RegisteringInArchive, uses_these_statements) {
  database->opened.clear();
  AniadirArch(instance, u"plano.pdf", u"120F00.pdf");
  EXPECT_THAT(database->opened, ElementsAre(u"SELECT * FROM NotaIP",
                                            u"SELECT Max(IdDocu) AS N FROM DocuNotaIP WHERE Id = 9 AND "
                                            u"IdNota = 31 AND NombreArch = '120F00.pdf'"));
  EXPECT_THAT(database->executed,
              ElementsAre(u"INSERT INTO DocuNotaIP (Id, IdAgencia, IdNota, NombreOrg, NombreArch) VALUES "
                          u"(9,1,31,'plano.pdf','120F00.pdf')",
                          u"DELETE * FROM DocuNotaIP WHERE IdDocu = 8",
                          u"INSERT INTO DocuNotaIArch (IdDocu, Id, IdAgencia, IdNota, NombreOrg, NombreArch) "
                          u"VALUES (8,120,1,501,'plano.pdf','120F00.pdf')"));
}

TEST_F(RegisteringInArchive, finds_the_live_tables_of_any_archive) {
  struct {
    TextView docuAsoc, nota, donor, column, borrowed;
  } const families[] = {{u"DocuAnuncioIArch", u"AnuncioIArch", u"AnuncioIP", u"IdInm", u"DocuAnuncioIP"},
                        {u"DocuNotaProyArch", u"NotaProyArch", u"NotaProy", u"IdPrincipal", u"DocuNotaProy"},
                        {u"DocuNotaExpArch", u"NotaExpArch", u"NotaExp", u"IdExpVivo", u"DocuNotaExp"}};
  for (const auto& family : families) {
    kit::attachmentTable(*database, Text(family.docuAsoc));
    kit::attachmentTable(*database, Text(family.borrowed));
    database->table(Text(family.donor), {{u"IdNota", dao::dbLong}, {Text(family.column), dao::dbLong}},
                    {{31, 9}});
    nota.DocuAsoc = family.docuAsoc;
    nota.Nota = family.nota;
    EXPECT_TRUE(AniadirArch(instance, u"plano.pdf", u"120F00.pdf"));
    EXPECT_THAT(rows(family.docuAsoc), ElementsAre(u"1: 120 1 501 plano.pdf < 120F00.pdf"));
    EXPECT_THAT(rows(family.borrowed), IsEmpty());
  }
}

TEST_F(RegisteringInArchive, never_shows_a_copys_name) {
  archive->add({3, 120, 1, 501, u"plano.pdf", u"120F00.pdf"});
  EXPECT_TRUE(AniadirArch(instance, u"120F00.pdf", u"120F01.pdf"));
  EXPECT_EQ(rows(u"DocuNotaIArch").back(), u"8: 120 1 501 120F00.pdf < 120F01.pdf");
}

TEST_F(RegisteringInArchive, without_a_live_note_to_borrow_from_writes_nothing) {
  live->rows.clear();
  expectBox(u"Imposible añadir archivos adjuntos.\r\n(No existen notas en Inmuebles sin archivar...)", 0,
            u"Notas");
  EXPECT_FALSE(AniadirArch(instance, u"plano.pdf", u"120F00.pdf"));
  EXPECT_THAT(database->executed, IsEmpty());
  EXPECT_EQ(counter(), 0);
}

TEST_F(RegisteringInArchive, without_a_live_note_leaves_the_list_of_a_card_and_fills_it_after_a_refusal) {
  archive->add({3, 120, 1, 501, u"otro.pdf", u"120F09.pdf"});
  list->at(0, u"NArchivos") = 1;
  const auto listing = testing::Contains(u"SELECT * FROM DocuNotaIArch WHERE IdNota = 501");
  openCard([&] {
    live->rows.clear();
    database->opened.clear();
    expectBox(u"Imposible añadir archivos adjuntos.\r\n(No existen notas en Inmuebles sin archivar...)", 0,
              u"Notas");
    EXPECT_FALSE(AniadirArch(instance, u"plano.pdf", u"120F00.pdf"));
    EXPECT_THAT(database->opened, testing::Not(listing));
    live->add({31, 9});
    countsNothing(u"INSERT INTO DocuNotaIP");
    expectBox(u"Error al añadir archivo(1).");
    expectBox(u"RecordsAffected = 0", 16, u"AniadirArch");
    EXPECT_FALSE(AniadirArch(instance, u"plano.pdf", u"120F00.pdf"));
    EXPECT_THAT(database->opened, listing);
  });
}

TEST_F(RegisteringInArchive, a_live_row_that_is_refused_is_told_twice) {
  countsNothing(u"INSERT INTO DocuNotaIP");
  expectBox(u"Error al añadir archivo(1).");
  expectBox(u"RecordsAffected = 0", 16, u"AniadirArch");
  EXPECT_FALSE(AniadirArch(instance, u"plano.pdf", u"120F00.pdf"));
  EXPECT_THAT(rows(u"DocuNotaIArch"), IsEmpty());
  EXPECT_EQ(counter(), 0);
}

TEST_F(RegisteringInArchive, a_key_that_cannot_be_read_again_is_told_and_yet_counts_as_done) {
  database->onExecute = [=, this, before = database->onExecute](TextView sql) {
    const std::int32_t count = before(sql);
    documents->rows.back()->values[5] = u"otro.pdf";  // so that no row of the name is found
    return count;
  };
  expectBox(u"Error al añadir archivo(2).");
  EXPECT_TRUE(AniadirArch(instance, u"plano.pdf", u"120F00.pdf"));
  EXPECT_THAT(rows(), ElementsAre(liveRow, u"8: 9 1 31 plano.pdf < otro.pdf")) << "it stays on the donor";
  EXPECT_THAT(rows(u"DocuNotaIArch"), IsEmpty());
  EXPECT_EQ(counter(), 1);
}

TEST_F(RegisteringInArchive, a_refused_last_row_leaves_none_anywhere) {
  countsNothing(u"INSERT INTO DocuNotaIArch");
  expectBox(u"RecordsAffected = 0", 16, u"AniadirArch");
  EXPECT_FALSE(AniadirArch(instance, u"plano.pdf", u"120F00.pdf"));
  EXPECT_THAT(rows(), ElementsAre(liveRow));
  EXPECT_THAT(rows(u"DocuNotaIArch"), IsEmpty());
  EXPECT_EQ(counter(), 0);
}

TEST_F(RegisteringInArchive, a_failure_between_the_two_leaves_no_row_anywhere) {
  here.faults.failNth("Database.Execute", 3, dao::failure::locked);
  expectReport(u"AniadirArch de CNota", dao::failure::locked);
  EXPECT_FALSE(AniadirArch(instance, u"plano.pdf", u"120F00.pdf"));
  EXPECT_THAT(rows(), ElementsAre(liveRow));
  EXPECT_THAT(rows(u"DocuNotaIArch"), IsEmpty());
  EXPECT_EQ(counter(), 0);
}

TEST_F(RegisteringInArchive, a_failed_deletion_leaves_the_row_that_was_lent) {
  here.faults.failNth("Database.Execute", 2, dao::failure::locked);
  expectReport(u"AniadirArch de CNota", dao::failure::locked);
  EXPECT_FALSE(AniadirArch(instance, u"plano.pdf", u"120F00.pdf"));
  EXPECT_THAT(rows(), ElementsAre(liveRow, u"8: 9 1 31 plano.pdf < 120F00.pdf"));
  EXPECT_THAT(rows(u"DocuNotaIArch"), IsEmpty());
}

TEST_F(RegisteringInArchive, a_name_too_short_for_a_live_one_is_reported) {
  nota.DocuAsoc = u"Arch";
  nota.Nota = u"Nta";
  expectReport(u"AniadirArch de CNota", failure::badArgument);
  EXPECT_FALSE(AniadirArch(instance, u"plano.pdf", u"120F00.pdf"));
}

}  // namespace
}  // namespace ovalia
