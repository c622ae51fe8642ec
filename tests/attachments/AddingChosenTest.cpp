#include "attachments/AddingAttachments.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/cardkit/Attachments.h"

namespace ovalia {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AddingChosen : public kit::AttachmentsTest {
 protected:
  static Text several(std::initializer_list<TextView> parts) {
    Text all;
    for (const TextView part : parts) all += (all.empty() ? Text() : Text(1, u'\0')) + Text(part);
    return all;
  }
  void add(bool saved = true) { AdjuntarDocumento(instance, saved); }
};

TEST_F(AddingChosen, asks_with_the_main_forms_dialog) {
  here.settings.put(u"Agencia", u"Settings", u"DirDocumentos", u"\\home\\ana\\");
  userChooses(u"");
  add();
  EXPECT_THAT(host.dlgfrmbase->journal,
              ElementsAre(u"DialogTitle = Captura de documentos", u"Filter = Documentos (*.*)|*.*",
                          u"fileName = ", u"InitDir = \\home\\ana\\", u"FLAGS = 524804",
                          u"CancelError = " + Variant(true).text(), u"MaxFileSize = 1024", u"ShowOpen()"));
}

TEST_F(AddingChosen, starts_in_the_default_folder_at_first) {
  userChooses(u"");
  add();
  EXPECT_EQ(host.dlgfrmbase->property(u"InitDir").text(), u"C:\\");
}

TEST_F(AddingChosen, a_single_file_comes_by_its_path) {
  userChooses(source(u"plano.pdf"));
  add();
  EXPECT_THAT(rows(), ElementsAre(u"1: 120 1 501 plano.pdf < 120F00.pdf"));
  EXPECT_THAT(here.settings.saved, ElementsAre(u"Settings|DirDocumentos=\\home\\ana\\"));
  EXPECT_EQ(host.panel->property(u"Text").text(), u"Listo");
  EXPECT_EQ(instance.FormActiva, ObjectRef(host.FichaInm));
}

TEST_F(AddingChosen, several_come_by_their_folder_and_names) {
  source(u"plano.pdf");
  source(u"carta.doc");
  source(u"foto.jpg");
  userChooses(several({u"\\home\\ana", u"plano.pdf", u"carta.doc", u"foto.jpg"}));
  add();
  EXPECT_THAT(rows(),
              ElementsAre(u"1: 120 1 501 plano.pdf < 120F00.pdf", u"2: 120 1 501 carta.doc < 120F01.doc",
                          u"3: 120 1 501 foto.jpg < 120F02.jpg"));
  EXPECT_EQ(counter(), 3);
  EXPECT_THAT(here.settings.saved, ElementsAre(u"Settings|DirDocumentos=\\home\\ana"));
}

TEST_F(AddingChosen, several_from_a_root_are_joined_by_one_separator) {
  here.files.putFile(u"\\uno.pdf", u"1");
  here.files.putFile(u"\\dos.pdf", u"2");
  userChooses(several({u"\\", u"uno.pdf", u"dos.pdf"}));
  add();
  EXPECT_EQ(rows().size(), 2u);
}

// A list of two elements is treated as a single file, whose path is the first of them.
TEST_F(AddingChosen, a_folder_and_one_name_are_taken_for_a_path) {
  source(u"plano.pdf");
  userChooses(several({u"\\home\\ana", u"plano.pdf"}));
  expectReport(u"AdjuntarFichero de CNota, ruta:\\home\\ana", failure::pathFileAccess);
  add();
  EXPECT_THAT(rows(), IsEmpty());
  EXPECT_THAT(here.settings.saved, ElementsAre(u"Settings|DirDocumentos=\\home\\"));
  EXPECT_EQ(host.panel->property(u"Text").text(), u"Listo");
}

TEST_F(AddingChosen, one_that_fails_does_not_hinder_the_others) {
  source(u"plano.pdf");
  source(u"foto.jpg");
  userChooses(several({u"\\home\\ana", u"plano.pdf", u"nada.doc", u"foto.jpg"}));
  expectReport(u"AdjuntarFichero de CNota, ruta:\\home\\ana\\nada.doc", failure::fileNotFound);
  add();
  EXPECT_THAT(rows(),
              ElementsAre(u"1: 120 1 501 plano.pdf < 120F00.pdf", u"2: 120 1 501 foto.jpg < 120F01.jpg"));
  EXPECT_EQ(host.panel->property(u"Text").text(), u"Listo");
}

TEST_F(AddingChosen, a_path_in_the_systems_form_is_understood) {
  source(u"plano.pdf");
  userChooses(u"/home/ana/plano.pdf");
  add();
  EXPECT_THAT(rows(), ElementsAre(u"1: 120 1 501 plano.pdf < 120F00.pdf"));
}

TEST_F(AddingChosen, the_folder_used_last_is_not_stored_again) {
  here.settings.put(u"Agencia", u"Settings", u"DirDocumentos", u"\\home\\ana\\");
  userChooses(source(u"plano.pdf"));
  add();
  EXPECT_THAT(here.settings.saved, IsEmpty());
}

TEST_F(AddingChosen, nothing_chosen_only_says_that_all_is_ready) {
  instance.FormActiva = nullptr;
  userChooses(u"");
  add();
  EXPECT_EQ(host.panel->property(u"Text").text(), u"Listo");
  EXPECT_EQ(instance.FormActiva, nullptr);
  EXPECT_THAT(host.vClase().reads, IsEmpty());
  EXPECT_THAT(here.settings.saved, IsEmpty());
}

TEST_F(AddingChosen, cancelling_says_nothing_at_all) {
  dialogFails(failure::dialogCancelled);
  add();
  EXPECT_EQ(host.panel->property(u"Text").text(), u"");
  EXPECT_THAT(here.settings.saved, IsEmpty());
  EXPECT_THAT(tree(), IsEmpty());
}

TEST_F(AddingChosen, a_dialog_that_fails_is_reported) {
  dialogFails(failure::internalError);
  expectReport(u"AdjuntarDocumento de CNota", failure::internalError);
  add();
  EXPECT_EQ(host.panel->property(u"Text").text(), u"");
}

TEST_F(AddingChosen, a_note_not_saved_yet_gets_the_file_and_no_row) {
  userChooses(source(u"plano.pdf"));
  add(false);
  EXPECT_EQ(tree().size(), 1u);
  EXPECT_THAT(rows(), IsEmpty());
  EXPECT_EQ(counter(), 0);
}

TEST_F(AddingChosen, goes_into_the_folder_of_the_record_shown_or_being_added) {
  host.vClase().with(u"NumNuevo", 4073).with(u"cEstado", 2);
  userChooses(source(u"plano.pdf"));
  add();
  EXPECT_THAT(tree(), ElementsAre(u"Doc1\\Doc2\\Doc0\\120F00.pdf"));
  host.vClase().with(u"cEstado", 1);
  add();
  EXPECT_EQ(tree().back(), u"Doc4\\Doc0\\Doc7\\Doc0\\4073F00.pdf");
}

TEST_F(AddingChosen, asks_for_both_numbers_whichever_is_chosen) {
  userChooses(source(u"plano.pdf"));
  for (const std::int32_t state : {0, 1}) {
    host.vClase().with(u"cEstado", state).reads.clear();
    add();
    EXPECT_THAT(host.vClase().reads, ElementsAre(u"cEstado", u"NumNuevo", u"Registros"));
  }
}

TEST_F(AddingChosen, a_record_whose_key_cannot_be_read_gets_nothing_even_where_it_is_not_needed) {
  host.vClase().with(u"cEstado", 1).with(u"NumNuevo", 4073);
  host.vClase().failing(u"Registros", dao::failure::noCurrentRecord);
  userChooses(source(u"plano.pdf"));
  expectReport(u"AdjuntarDocumento de CNota", dao::failure::noCurrentRecord);
  add();
  EXPECT_THAT(tree(), IsEmpty());
  EXPECT_EQ(host.panel->property(u"Text").text(), u"");
}

TEST_F(AddingChosen, the_number_that_is_not_chosen_may_be_empty) {
  host.vClase().with(u"NumNuevo", Null);
  userChooses(source(u"plano.pdf"));
  add();
  EXPECT_EQ(rows().size(), 1u);
}

TEST_F(AddingChosen, changes_neither_card_nor_state) {
  openCard([&] {
    user.types(u"txtNotas", u"Sin guardar");
    const std::int32_t before = state();
    userChooses(source(u"plano.pdf"));
    user.clicks(u"ID_BAdjuntar");
    EXPECT_EQ(rows().size(), 1u);
    EXPECT_EQ(counter(), 1);
    EXPECT_EQ(state(), before);
    EXPECT_EQ(card(u"txtNotas"), u"Sin guardar");
    EXPECT_EQ(stored(u"Notas").text(), u"Tiene prisa por vender.");
    putAway();
  });
}

}  // namespace
}  // namespace ovalia
