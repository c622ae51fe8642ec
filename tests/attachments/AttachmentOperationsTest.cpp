#include "attachments/AttachmentOperations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "attachments/AttachmentList.h"
#include "tests/cardkit/Attachments.h"
#include "tests/kit/FakeRecordset.h"

namespace ovalia {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A document of the card that is opened, copied to the clipboard, renamed.
class AttachmentOperations : public kit::AttachmentsTest {
 protected:
  // A card on the note with one attachment, which is selected.
  void withSelected(TextView stored, const std::function<void()>& script) {
    openCard([&] {
      form().as<forms::ListView>(u"LsvDocu")->Clear();
      form().as<forms::ListView>(u"LsvDocu")->Add({Text(stored), u"plano.pdf", u"win"});
      form().as<forms::ListView>(u"LsvDocu")->select(1);
      script();
    });
  }

  void expectNotThere(TextView verb) {
    expectBox(u"El documento que intenta " + Text(verb) + u" no existe.", 64, u"Documento");
  }

  const Text stored = u"120F00.pdf";
};

// What can be in a table without being the name of a file in a folder.
constexpr TextView noNames[] = {
    u"..\\..\\..\\..\\secreto.doc",
    u"../../../../secreto.doc",
    u"..\\120F00.pdf",
    u"\\secreto.doc",
    u"Sub\\120F00.pdf",
    u".",
    u"..",
    u"120F00.pdf\\",
};

TEST_F(AttachmentOperations, opening_hands_the_full_path_to_the_host) {
  attached(stored, u"plano.pdf");
  withSelected(stored, [&] { AbrirDocNota(instance); });
  EXPECT_THAT(host.events, ElementsAre(u"AbrirDoc(\\Datos\\Agencia\\Doc1\\Doc2\\Doc0\\120F00.pdf)"));
}

TEST_F(AttachmentOperations, opening_is_what_a_double_click_and_the_tool_do) {
  for (const TextView kind : {u"Nota", u"Anuncio"}) {
    givenList(kind, {{{u"NArchivos", 1}}});
    kit::attachmentTable(*database, u"Docu" + Text(kind) + u"IP")
        ->add({1, 120, 1, 501, u"plano.pdf", stored});
    here.files.putFile(leaf + stored);
    openCard([&] {
      host.events.clear();
      user.doubleClicksItem(1);
      EXPECT_EQ(host.events.size(), 1u);
      user.opensMenu(u"ID_mnuDocumentos");
      user.clicks(u"ID_Abrir");
      EXPECT_EQ(host.events.size(), 2u);
      EXPECT_EQ(host.events[0], host.events[1]);
      EXPECT_EQ(host.events[0], u"AbrirDoc(" + leaf + stored + u")");
    });
  }
}

TEST_F(AttachmentOperations, opening_takes_the_data_folder_in_the_systems_form) {
  attached(stored, u"plano.pdf");
  nota.AppDirUser = u"/Datos/Agencia";
  withSelected(stored, [&] { AbrirDocNota(instance); });
  EXPECT_THAT(host.events, ElementsAre(u"AbrirDoc(" + leaf + stored + u")"));
}

TEST_F(AttachmentOperations, the_folder_is_that_of_the_annotations_parent_whatever_the_host_shows) {
  givenList(u"Nota", {{{u"Id", 4073}}});
  here.files.putFile(agencyFolder + u"\\Doc4\\Doc0\\Doc7\\Doc0\\4073F00.pdf");
  withSelected(u"4073F00.pdf", [&] { AbrirDocNota(instance); });
  EXPECT_THAT(host.events, ElementsAre(u"AbrirDoc(\\Datos\\Agencia\\Doc4\\Doc0\\Doc7\\Doc0\\4073F00.pdf)"));
}

TEST_F(AttachmentOperations, a_document_that_is_not_there_is_told_and_nothing_opens_or_is_copied) {
  withSelected(stored, [&] {
    expectNotThere(u"abrir");
    AbrirDocNota(instance);
    expectNotThere(u"copiar");
    CopiarAPortapapeles(instance);
    EXPECT_EQ(state(), limpia);
  });
  EXPECT_THAT(host.events, IsEmpty());
  EXPECT_THAT(here.clipboard.steps, IsEmpty());
}

TEST_F(AttachmentOperations, a_name_spelt_otherwise_on_disk_counts_as_missing) {
  here.files.putFile(leaf + u"120F00.PDF");
  withSelected(stored, [&] {
    expectNotThere(u"abrir");
    AbrirDocNota(instance);
    expectNotThere(u"copiar");
    CopiarAPortapapeles(instance);
  });
}

TEST_F(AttachmentOperations, a_folder_of_that_name_is_no_document) {
  here.files.putFolder(leaf + stored);
  withSelected(stored, [&] {
    expectNotThere(u"abrir");
    AbrirDocNota(instance);
  });
}

TEST_F(AttachmentOperations, a_name_out_of_a_damaged_table_leads_nowhere) {
  here.files.putFile(u"\\secreto.doc");
  here.files.putFile(u"\\Datos\\Agencia\\Doc1\\Doc2\\120F00.pdf");
  for (const TextView name : noNames)
    withSelected(name, [&] {
      const int looks = here.faults.visits("Files.firstMatch");
      expectNotThere(u"abrir");
      AbrirDocNota(instance);
      expectNotThere(u"copiar");
      CopiarAPortapapeles(instance);
      EXPECT_EQ(here.faults.visits("Files.firstMatch"), looks) << toUtf8(name) << " is not looked for";
    });
  EXPECT_THAT(host.events, IsEmpty());
}

TEST_F(AttachmentOperations, a_mask_for_a_name_opens_no_other_document) {
  attached(stored, u"plano.pdf");
  withSelected(u"*.pdf", [&] {
    expectNotThere(u"abrir");
    AbrirDocNota(instance);
  });
}

TEST_F(AttachmentOperations, where_the_folder_cannot_be_made_the_document_counts_as_missing) {
  withSelected(stored, [&] {
    here.files.putFolder(here.files.temporary + u"Brenox");
    here.faults.failAlways("Files.makeDirectory", failure::pathFileAccess);
    expectReport(u"CreaPathDoc de CNota", failure::pathFileAccess);
    expectNotThere(u"abrir");
    AbrirDocNota(instance);
  });
}

TEST_F(AttachmentOperations, copying_puts_the_file_alone_on_the_clipboard) {
  attached(stored, u"plano.pdf");
  attached(u"120F01.pdf", u"otro.pdf");
  here.clipboard.fileList = {u"\\viejo.txt"};
  withSelected(stored, [&] { CopiarAPortapapeles(instance); });
  EXPECT_THAT(here.clipboard.fileList, ElementsAre(leaf + stored));
  EXPECT_THAT(here.clipboard.steps, ElementsAre("open", "empty", "setFiles", "setDropEffect 1", "close"));
  EXPECT_THAT(host.events, IsEmpty());
}

TEST_F(AttachmentOperations, a_clipboard_that_does_not_open_is_passed_over) {
  attached(stored, u"plano.pdf");
  here.clipboard.refusesToOpen = true;
  withSelected(stored, [&] { CopiarAPortapapeles(instance); });
}

TEST_F(AttachmentOperations, a_clipboard_that_fails_is_reported_by_the_clipboards_routine) {
  attached(stored, u"plano.pdf");
  withSelected(stored, [&] {
    here.faults.failNext("Clipboard.setFiles", failure::outOfMemory);
    expectReport(u"ClipboardCopyFiles() de RutinasErr", failure::outOfMemory);
    CopiarAPortapapeles(instance);
  });
}

// Renaming.

TEST_F(AttachmentOperations, an_edited_label_becomes_the_name_shown_and_the_file_keeps_its_own) {
  attached(stored, u"plano.pdf");
  attached(u"120F01.pdf", u"otro.pdf");
  openCard([&] {
    user.clicksItem(1);
    user.renamesItem(u"Plano de D'Ors.pdf");
    EXPECT_EQ(selectedAttachment(instance).text, u"Plano de D'Ors.pdf");
    EXPECT_EQ(selectedAttachment(instance).key, stored);
    EXPECT_EQ(state(), limpia);
  });
  EXPECT_THAT(database->executed,
              ElementsAre(u"UPDATE DocuNotaIP SET NombreOrg = 'Plano de D''Ors.pdf' WHERE NombreArch = "
                          u"'120F00.pdf'"));
  EXPECT_THAT(rows(), ElementsAre(u"1: 120 1 501 Plano de D'Ors.pdf < 120F00.pdf",
                                  u"2: 120 1 501 otro.pdf < 120F01.pdf"));
  EXPECT_TRUE(here.files.exists(leaf + stored));
}

TEST_F(AttachmentOperations, a_new_name_goes_to_every_row_of_the_table_with_that_stored_name) {
  attached(stored, u"plano.pdf");
  documents->add({8, 4073, 2, 900, u"de otra ficha.pdf", u"120f00.PDF"});
  withSelected(stored, [&] { dlgNota_ActualizaDocs(instance, u"Plano"); });
  EXPECT_THAT(rows(), ElementsAre(u"1: 120 1 501 Plano < 120F00.pdf", u"8: 4073 2 900 Plano < 120f00.PDF"));
}

TEST_F(AttachmentOperations, a_new_name_that_another_has_already_is_taken) {
  attached(stored, u"plano.pdf");
  attached(u"120F01.pdf", u"otro.pdf");
  withSelected(stored, [&] { dlgNota_ActualizaDocs(instance, u"otro.pdf"); });
  EXPECT_THAT(rows(),
              ElementsAre(u"1: 120 1 501 otro.pdf < 120F00.pdf", u"2: 120 1 501 otro.pdf < 120F01.pdf"));
}

TEST_F(AttachmentOperations, a_new_name_that_meets_no_row_is_no_matter) {
  withSelected(stored, [&] { dlgNota_ActualizaDocs(instance, u"Plano"); });
}

TEST_F(AttachmentOperations, a_renaming_that_fails_is_reported_and_the_row_stays) {
  attached(stored, u"plano.pdf");
  openCard([&] {
    user.clicksItem(1);
    here.faults.failNext("Database.Execute", dao::failure::readOnly);
    expectReport(u"dlgNota_ActualizaDocs de CNota", dao::failure::readOnly);
    user.renamesItem(u"Plano");
    EXPECT_EQ(state(), limpia);
  });
  EXPECT_THAT(rows(), ElementsAre(u"1: 120 1 501 plano.pdf < 120F00.pdf"));
}

// Failures.

struct Operation {
  TextView name;
  void (*run)(Instance&);
};

constexpr Operation operations[] = {
    {u"AbrirDocNota de CNota", AbrirDocNota},
    {u"CopiarAPortapapeles de CNota", CopiarAPortapapeles},
    {u"GuardarComo de CNota", GuardarComo},
    {u"dlgNota_ActualizaDocs de CNota", [](Instance& nota) { dlgNota_ActualizaDocs(nota, u"x"); }},
};

TEST_F(AttachmentOperations, without_a_selection_each_is_reported) {
  attached(stored, u"plano.pdf");
  openCard([&] {
    for (const Operation& operation : operations) {
      expectReport(Text(operation.name), failure::objectNotSet);
      operation.run(instance);
    }
  });
  EXPECT_THAT(rows(), ElementsAre(u"1: 120 1 501 plano.pdf < 120F00.pdf"));
  EXPECT_EQ(kit::AgencyHost::calls(*host.dlgfrmbase, u"ShowSave"), 0);
}

TEST_F(AttachmentOperations, without_a_card_each_is_reported) {
  for (const Operation& operation : operations) {
    expectReport(Text(operation.name), failure::objectNotSet);
    operation.run(instance);
  }
}

TEST_F(AttachmentOperations, a_list_without_the_parents_number_opens_and_copies_nothing) {
  attached(stored, u"plano.pdf");
  withSelected(stored, [&] {
    for (const std::int32_t number : {dao::failure::notInCollection, dao::failure::recordDeleted + 1}) {
      for (const Operation& operation : {operations[0], operations[1]}) {
        here.faults.failNext("Field.Value", number);
        expectReport(Text(operation.name), number);
        operation.run(instance);
      }
    }
    list->at(0, u"Id") = Null;
    expectReport(u"AbrirDocNota de CNota", failure::invalidUseOfNull);
    AbrirDocNota(instance);
  });
  EXPECT_THAT(host.events, IsEmpty());
}

TEST_F(AttachmentOperations, a_probe_that_fails_is_reported) {
  attached(stored, u"plano.pdf");
  withSelected(stored, [&] {
    for (const Operation& operation : {operations[0], operations[1]}) {
      here.faults.failNext("Files.firstMatch", failure::permissionDenied);
      expectReport(Text(operation.name), failure::permissionDenied);
      operation.run(instance);
    }
  });
}

TEST_F(AttachmentOperations, a_host_that_cannot_open_the_document_is_reported) {
  attached(stored, u"plano.pdf");
  host.answers.AbrirDoc = [](Text&) { throw Failure(failure::fileNotFound); };
  withSelected(stored, [&] {
    expectReport(u"AbrirDocNota de CNota", failure::fileNotFound);
    AbrirDocNota(instance);
  });
}

}  // namespace
}  // namespace ovalia
