#include "attachments/AddingAttachments.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/cardkit/Attachments.h"

namespace ovalia {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AddingFile : public kit::AttachmentsTest {
 protected:
  void add(TextView path, bool registers = true) { AdjuntarFichero(instance, path, 120, registers); }
  Text reporter(TextView path) { return join(u"AdjuntarFichero de CNota, ruta:", path); }
};

TEST_F(AddingFile, copies_it_into_the_records_folder_and_writes_its_row) {
  const Text path = source(u"plano.pdf", u"el plano");
  add(path);
  EXPECT_THAT(tree(), ElementsAre(u"Doc1\\Doc2\\Doc0\\120F00.pdf"));
  EXPECT_EQ(here.files.content(leaf + u"120F00.pdf"), u"el plano");
  EXPECT_EQ(here.files.content(path), u"el plano") << "the source is left where it is";
  EXPECT_THAT(rows(), ElementsAre(u"1: 120 1 501 plano.pdf < 120F00.pdf"));
  EXPECT_EQ(counter(), 1);
}

TEST_F(AddingFile, takes_folder_and_number_from_the_hosts_record_and_the_row_from_the_list) {
  AdjuntarFichero(instance, source(u"plano.pdf"), 4073, true);
  AdjuntarFichero(instance, source(u"carta.doc"), 4073, true);
  EXPECT_THAT(tree(),
              ElementsAre(u"Doc4\\Doc0\\Doc7\\Doc0\\4073F00.doc", u"Doc4\\Doc0\\Doc7\\Doc0\\4073F00.pdf"))
      << "the rows of record 120 do not count for record 4073";
  EXPECT_EQ(rows().back(), u"2: 120 1 501 carta.doc < 4073F00.doc");
}

TEST_F(AddingFile, one_after_the_other_get_numbers_one_after_the_other) {
  add(source(u"plano.pdf"));
  add(source(u"carta.doc"));
  EXPECT_THAT(tree(), ElementsAre(u"Doc1\\Doc2\\Doc0\\120F00.pdf", u"Doc1\\Doc2\\Doc0\\120F01.doc"));
}

TEST_F(AddingFile, the_same_twice_gives_two_files_and_two_rows_with_one_name) {
  const Text path = source(u"plano.pdf");
  add(path);
  add(path);
  EXPECT_THAT(rows(),
              ElementsAre(u"1: 120 1 501 plano.pdf < 120F00.pdf", u"2: 120 1 501 plano.pdf < 120F01.pdf"));
  EXPECT_EQ(tree().size(), 2u);
}

TEST_F(AddingFile, without_registering_leaves_it_in_the_tree_unknown_to_the_table) {
  add(source(u"plano.pdf"), false);
  EXPECT_EQ(tree().size(), 1u);
  EXPECT_THAT(rows(), IsEmpty());
  EXPECT_EQ(counter(), 0);
  add(source(u"carta.pdf"));
  EXPECT_EQ(rows().back(), u"1: 120 1 501 carta.pdf < 120F01.pdf") << "later adds step over it";
}

struct Named {
  TextView name, stored;
};

constexpr Named named[] = {
    {u"informe.docx", u"120F00.doc"},
    {u"informe.jpeg", u"120F00.doc"},
    {u"LEEME", u"120F00.doc"},
    {u"a.c", u"120F00.doc"},
    {u".b.c", u"120F00.b.c"},
    {u".git", u"120F00.git"},
    {u"Señal y árbol.pdf", u"120F00.pdf"},
    {u"  .pdf", u"120F00.pdf"},
    {u"dos\nlíneas.txt", u"120F00.txt"},
    {u"fin.a\nb", u"120F00.a\nb"},
    {u"plano 😀.pdf", u"120F00.pdf"},
    {u"plano.d😀", u"120F00.d😀"},
    {u"l'Hospitalet|2.p'f", u"120F00.p'f"},
    {u"PLANO.PDF", u"120F00.PDF"},
    {u"120F00.", u"120F00.doc"},
};

TEST_F(AddingFile, keeps_the_true_name_for_the_user_and_stores_it_by_an_extension_of_four) {
  for (const Named& row : named) {
    documents->rows.clear();
    add(source(row.name, u"suyo"));
    ASSERT_EQ(documents->rows.size(), 1u) << toUtf8(row.name);
    EXPECT_EQ(documents->at(0, u"NombreOrg").toText(), row.name);
    EXPECT_EQ(documents->at(0, u"NombreArch").toText(), row.stored);
    EXPECT_EQ(here.files.content(leaf + Text(row.stored)), u"suyo");
    here.files.remove(leaf + Text(row.stored));
  }
}

TEST_F(AddingFile, a_path_shorter_than_an_extension_is_stored_as_doc) {
  here.files.putFile(u"\\ab", u"corto");
  add(u"\\ab");
  EXPECT_EQ(here.files.content(leaf + u"120F00.doc"), u"corto");
}

TEST_F(AddingFile, a_name_of_two_hundred_characters_is_kept_whole) {
  const Text name = Text(196, u'ñ') + u".pdf";
  add(source(name));
  EXPECT_EQ(documents->at(0, u"NombreOrg").toText(), name);
}

TEST_F(AddingFile, dragged_out_of_the_tree_itself_is_shown_as_a_copy) {
  attached(u"120F00.pdf", u"plano.pdf", u"el plano");
  add(leaf + u"120F00.pdf");
  EXPECT_EQ(rows().back(), u"2: 120 1 501 Copia de plano.pdf < 120F01.pdf");
  EXPECT_EQ(here.files.content(leaf + u"120F00.pdf"), u"el plano");
  EXPECT_EQ(here.files.content(leaf + u"120F01.pdf"), u"el plano");
}

TEST_F(AddingFile, never_replaces_one_that_appears_at_the_last_moment) {
  here.faults.onNext("Files.copy", [&] { here.files.putFile(leaf + u"120F00.pdf", u"de otro"); });
  const Text path = source(u"plano.pdf");
  expectReport(reporter(path), failure::fileAlreadyExists);
  add(path);
  EXPECT_EQ(here.files.content(leaf + u"120F00.pdf"), u"de otro");
  EXPECT_THAT(rows(), IsEmpty());
  EXPECT_EQ(counter(), 0);
  add(path);
  EXPECT_THAT(rows(), ElementsAre(u"1: 120 1 501 plano.pdf < 120F01.pdf")) << "the next try steps over it";
}

TEST_F(AddingFile, into_the_place_of_a_folder_is_refused) {
  here.files.putFolder(leaf + u"120F00.pdf");
  const Text path = source(u"plano.pdf");
  expectReport(reporter(path), failure::pathFileAccess);
  add(path);
  EXPECT_THAT(tree(), IsEmpty());
  EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(AddingFile, that_is_a_folder_missing_or_no_path_is_reported_with_it) {
  here.files.putFolder(u"\\home\\ana\\Planos.pdf");
  struct {
    Text path;
    std::int32_t number;
  } const rowsOf[] = {{u"\\home\\ana\\Planos.pdf", failure::pathFileAccess},
                      {u"\\home\\ana\\nada.pdf", failure::fileNotFound},
                      {u"\\home\\nadie\\nada.pdf", failure::pathNotFound},
                      {u"\\home\\ana\\plano.pdf\\", failure::fileNotFound},
                      {u"plano.pdf", failure::pathNotFound},
                      {u"C:\\plano.pdf", failure::pathNotFound},
                      {u"", failure::pathNotFound}};
  for (const auto& row : rowsOf) {
    expectReport(reporter(row.path), row.number);
    add(row.path);
  }
  EXPECT_THAT(tree(), IsEmpty());
  EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(AddingFile, that_vanishes_before_it_is_copied_is_reported) {
  const Text path = source(u"plano.pdf");
  here.faults.onNext("Files.copy", [&] { here.files.remove(path); });
  expectReport(reporter(path), failure::fileNotFound);
  add(path);
  EXPECT_THAT(tree(), IsEmpty());
}

// The last four characters of the path are all that decides, even where they reach into the folder.
TEST_F(AddingFile, whose_extension_would_lead_elsewhere_is_reported_and_goes_nowhere) {
  here.files.putFile(u"\\home\\ana\\planos.d\\a", u"corto");
  here.files.putFolder(leaf + u"120F00.d");
  expectReport(u"AdjuntarFichero de CNota, ruta:\\home\\ana\\planos.d\\a", failure::pathNotFound);
  add(u"\\home\\ana\\planos.d\\a");
  EXPECT_THAT(tree(), IsEmpty());
  EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(AddingFile, without_a_name_to_store_it_by_goes_nowhere) {
  documents->add({Null, 120, 1, 501, u"x", u"120F32767.pdf"});
  const Text path = source(u"plano.pdf");
  expectReport(u"CreaNombreDoc de CNota", failure::overflow);
  expectReport(reporter(path), failure::pathNotFound);
  add(path);
  EXPECT_THAT(tree(), IsEmpty());
  EXPECT_EQ(rows().size(), 1u);
}

TEST_F(AddingFile, without_a_folder_does_not_go_into_the_data_folder_instead) {
  here.files.putFile(agencyFolder + u"\\Doc1", u"un fichero");
  const Text path = source(u"plano.pdf");
  expectReport(u"CreaPathDoc de CNota", failure::pathFileAccess);
  expectReport(u"CreaPathDoc de CNota", failure::pathFileAccess);
  expectReport(reporter(path), failure::pathNotFound);
  add(path);
  EXPECT_THAT(tree(), ElementsAre(u"Doc1"));
  EXPECT_THAT(rows(), IsEmpty());
}

}  // namespace
}  // namespace ovalia
