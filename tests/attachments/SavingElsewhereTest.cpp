#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

#include "attachments/AttachmentOperations.h"
#include "tests/cardkit/Attachments.h"

namespace ovalia {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A document of the card is saved under a path that the user chooses.
class SavingElsewhere : public kit::AttachmentsTest {
 protected:
  void SetUp() override {
    AttachmentsTest::SetUp();
    attached(u"120F00.pdf", u"plano.pdf", u"el plano");
    here.files.putFolder(u"\\home\\ana");
  }

  // Saves the one attachment of the card.
  void save() {
    openCard([&] {
      user.clicksItem(1);
      host.dlgfrmbase->journal.clear();
      GuardarComo(instance);
      EXPECT_EQ(state(), limpia);
    });
  }

  // The same with something else in the list, as a damaged table gives it.
  void saveStoredAs(TextView stored) {
    openCard([&] {
      const auto documentList = form().as<forms::ListView>(u"LsvDocu");
      documentList->Clear();
      documentList->Add({Text(stored), u"plano.pdf", u"win"});
      documentList->select(1);
      GuardarComo(instance);
    });
  }

  Text statusText() const { return host.panel->property(u"Text").text(); }
  std::optional<Text> remembered() const {
    return here.settings.stored(u"Agencia", u"Settings", u"DirGuardarComo");
  }
  Text fileNameInDialog() const { return host.dlgfrmbase->property(u"fileName").text(); }

  // As if nothing had been asked.
  void expectNothingDone() {
    EXPECT_THAT(here.shell.recycled, IsEmpty());
    EXPECT_EQ(statusText(), u"");
    EXPECT_FALSE(remembered());
    EXPECT_EQ(here.files.content(leaf + u"120F00.pdf"), u"el plano");
  }

  const Text target = u"\\home\\ana\\copia.pdf";
};

TEST_F(SavingElsewhere, copies_the_document_to_where_the_user_chose) {
  userSavesAs(target);
  save();
  EXPECT_EQ(here.files.content(target), u"el plano");
  EXPECT_EQ(here.files.content(leaf + u"120F00.pdf"), u"el plano");
  EXPECT_EQ(statusText(), u"Listo");
  EXPECT_EQ(instance.FormActiva, host.FichaInm);
  EXPECT_THAT(here.shell.recycled, IsEmpty());
  EXPECT_THAT(rows(), ElementsAre(u"1: 120 1 501 plano.pdf < 120F00.pdf"));
  EXPECT_EQ(counter(), 1);
}

TEST_F(SavingElsewhere, prepares_the_dialog_step_by_step) {
  documents->at(0, u"NombreOrg") = u"a/b: \"el plano\"?.pdf";
  here.settings.put(u"Agencia", u"Settings", u"DirGuardarComo", u"\\home\\ana\\");
  userSavesAs(target);
  save();
  EXPECT_THAT(
      host.dlgfrmbase->journal,
      ElementsAre(u"DialogTitle = Guardar como", u"Filter = Documentos (*.*)|*.*",
                  u"fileName = ab el plano.pdf", u"FLAGS = 34820", u"CancelError = " + Variant(true).text(),
                  u"InitDir = \\home\\ana\\", u"ShowSave()"));
}

TEST_F(SavingElsewhere, starts_on_the_first_disk_until_a_folder_is_remembered) {
  userSavesAs(target);
  save();
  EXPECT_EQ(host.dlgfrmbase->property(u"InitDir").text(), u"C:\\");
  EXPECT_EQ(remembered(), u"\\home\\ana\\");
  here.settings.saved.clear();
  save();
  EXPECT_EQ(host.dlgfrmbase->property(u"InitDir").text(), u"\\home\\ana\\");
  for (const Text& line : here.settings.saved) EXPECT_EQ(line.find(u"DirGuardarComo"), Text::npos);
}

TEST_F(SavingElsewhere, remembers_the_folder_under_the_hosts_title) {
  host.cApp->with(u"title", u"Otra");
  userSavesAs(target);
  save();
  EXPECT_EQ(here.settings.stored(u"Otra", u"Settings", u"DirGuardarComo"), u"\\home\\ana\\");
}

TEST_F(SavingElsewhere, takes_the_path_in_the_systems_form) {
  userSavesAs(u"/home/ana/copia.pdf");
  save();
  EXPECT_EQ(here.files.content(target), u"el plano");
  EXPECT_EQ(remembered(), u"\\home\\ana\\");
}

// The number that gives the folder.

TEST_F(SavingElsewhere, the_folder_is_that_of_the_record_that_the_host_shows) {
  const auto record = std::make_shared<kit::FakeObject>();
  record->answering(u"", [](Arguments) -> Variant { return 4073; });
  host.vClase().answering(u"Registros", [record](Arguments field) -> Variant {
    return field.empty() ? Variant(record) : record->get(u"", field);
  });
  here.files.putFile(agencyFolder + u"\\Doc4\\Doc0\\Doc7\\Doc0\\120F00.pdf", u"de la otra ficha");
  userSavesAs(target);
  save();
  EXPECT_EQ(here.files.content(target), u"de la otra ficha");
}

TEST_F(SavingElsewhere, the_folder_is_that_of_the_record_that_the_host_is_adding) {
  host.vClase().with(u"cEstado", 1).with(u"NumNuevo", 4073);
  here.files.putFile(agencyFolder + u"\\Doc4\\Doc0\\Doc7\\Doc0\\120F00.pdf", u"de la nueva");
  userSavesAs(target);
  save();
  EXPECT_EQ(here.files.content(target), u"de la nueva");
}

TEST_F(SavingElsewhere, the_key_of_the_record_is_asked_for_whichever_number_is_taken) {
  host.vClase().with(u"cEstado", 1).with(u"NumNuevo", 120);
  host.vClase().failing(u"Registros", dao::failure::noCurrentRecord);
  userSavesAs(target);
  expectReport(u"GuardarComo de CNota", dao::failure::noCurrentRecord);
  save();
  EXPECT_FALSE(here.files.exists(target));
  expectNothingDone();
}

// The extension.

TEST_F(SavingElsewhere, a_name_without_an_extension_gets_the_stored_one) {
  struct {
    TextView chosen, stored, completed;
  } const cases[] = {
      {u"\\home\\ana\\informe", u"120F00.pdf", u"\\home\\ana\\informe.pdf"},
      {u"\\home\\ana\\informe.txt", u"120F00.pdf", u"\\home\\ana\\informe.txt"},
      {u"\\home\\ana\\informe.b.c", u"120F00.pdf", u"\\home\\ana\\informe.b.c"},
      {u"\\home\\ana\\informe.docx", u"120F00.pdf", u"\\home\\ana\\informe.docx.pdf"},
      {u"\\home\\ana\\informe.gz", u"120F00.pdf", u"\\home\\ana\\informe.gz.pdf"},
      {u"\\home\\ana\\a", u"120F00.pdf", u"\\home\\ana\\a.pdf"},
      {u"\\home\\ana\\informe", u"120F00", u"\\home\\ana\\informe"},
      {u"\\home\\ana\\informe", u"120F00.jpeg", u"\\home\\ana\\informe"},
  };
  for (const auto& row : cases) {
    here.files.putFile(leaf + Text(row.stored), row.completed.data());
    userSavesAs(Text(row.chosen));
    saveStoredAs(row.stored);
    EXPECT_EQ(here.files.content(row.completed), row.completed);
    EXPECT_EQ(fileNameInDialog(), row.completed);
  }
}

TEST_F(SavingElsewhere, the_completed_name_is_told_to_the_dialog_as_it_was_chosen) {
  userSavesAs(u"/home/ana/informe");
  save();
  EXPECT_EQ(fileNameInDialog(), u"/home/ana/informe.pdf");
  EXPECT_TRUE(here.files.exists(u"\\home\\ana\\informe.pdf"));
}

// What is there already.

TEST_F(SavingElsewhere, a_file_that_is_there_goes_to_the_recycle_bin_and_is_replaced_without_a_question) {
  here.files.putFile(target, u"lo de antes");
  here.faults.onNext("Files.copy", [&] {
    EXPECT_THAT(here.shell.recycled, ElementsAre(target)) << "first";
    EXPECT_FALSE(here.files.exists(target));
  });
  userSavesAs(target);
  save();
  EXPECT_EQ(here.files.content(target), u"el plano");
  EXPECT_EQ(statusText(), u"Listo");
}

TEST_F(SavingElsewhere, the_file_replaced_is_the_one_with_the_completed_name) {
  here.files.putFile(u"\\home\\ana\\informe", u"otra cosa");
  here.files.putFile(u"\\home\\ana\\informe.pdf", u"lo de antes");
  userSavesAs(u"\\home\\ana\\informe");
  save();
  EXPECT_THAT(here.shell.recycled, ElementsAre(u"\\home\\ana\\informe.pdf"));
  EXPECT_EQ(here.files.content(u"\\home\\ana\\informe"), u"otra cosa");
  EXPECT_EQ(here.files.content(u"\\home\\ana\\informe.pdf"), u"el plano");
}

TEST_F(SavingElsewhere, a_file_that_the_bin_does_not_take_is_replaced_without_a_word) {
  for (const bool fails : {false, true}) {
    here.files.putFile(target, u"lo de antes");
    if (fails)
      here.faults.failNext("Shell.recycle", failure::permissionDenied);
    else
      here.shell.nextRecycle = Shell::RecycleResult{.code = 31, .lastError = 31};
    userSavesAs(target);
    save();
    EXPECT_EQ(here.files.content(target), u"el plano") << fails;
    EXPECT_EQ(statusText(), u"Listo");
  }
}

TEST_F(SavingElsewhere, a_document_that_is_missing_replaces_nothing) {
  here.files.remove(leaf + u"120F00.pdf");
  here.files.putFile(target, u"lo de antes");
  userSavesAs(target);
  expectReport(u"GuardarComo de CNota", failure::fileNotFound);
  save();
  EXPECT_EQ(here.files.content(target), u"lo de antes");
  EXPECT_THAT(here.shell.recycled, IsEmpty());
  EXPECT_EQ(statusText(), u"");
  EXPECT_FALSE(remembered());
}

TEST_F(SavingElsewhere, a_document_does_not_replace_itself) {
  for (const Text& itself : {leaf + u"120F00.pdf", leaf + u"120f00.PDF", leaf + u"\\120F00.pdf"}) {
    userSavesAs(itself);
    expectReport(u"GuardarComo de CNota", failure::permissionDenied);
    save();
    expectNothingDone();
  }
}

TEST_F(SavingElsewhere, a_folder_for_a_target_is_left_alone) {
  here.files.putFile(u"\\home\\ana\\carpeta.pdf\\dentro.txt", u"mío");
  userSavesAs(u"\\home\\ana\\carpeta.pdf");
  expectReport(u"GuardarComo de CNota", failure::pathFileAccess);
  save();
  EXPECT_EQ(here.files.content(u"\\home\\ana\\carpeta.pdf\\dentro.txt"), u"mío");
  expectNothingDone();
}

TEST_F(SavingElsewhere, wildcards_in_the_chosen_name_send_no_other_file_to_the_bin) {
  here.files.putFile(u"\\home\\ana\\carta.pdf", u"mía");
  userSavesAs(u"\\home\\ana\\*.pdf");
  save();
  EXPECT_THAT(here.shell.recycled, IsEmpty());
  EXPECT_EQ(here.files.content(u"\\home\\ana\\carta.pdf"), u"mía");
}

// Ends without a word.

TEST_F(SavingElsewhere, a_cancelled_dialog_ends_it_without_a_word) {
  host.dlgfrmbase->failing(u"ShowSave", failure::dialogCancelled);
  save();
  expectNothingDone();
}

TEST_F(SavingElsewhere, nothing_chosen_ends_it_without_a_word) {
  userSavesAs(u"");
  save();
  expectNothingDone();
}

// Failures.

TEST_F(SavingElsewhere, a_copy_that_fails_leaves_what_it_was_to_replace_in_the_bin) {
  for (const std::int32_t number : {failure::diskFull, failure::permissionDenied, failure::pathFileAccess}) {
    here.files.putFile(target, u"lo de antes");
    here.shell.recycled.clear();
    here.faults.failNext("Files.copy", number);
    userSavesAs(target);
    expectReport(u"GuardarComo de CNota", number);
    save();
    EXPECT_THAT(here.shell.recycled, ElementsAre(target));
    EXPECT_EQ(statusText(), u"");
    EXPECT_FALSE(remembered());
    EXPECT_EQ(here.files.content(leaf + u"120F00.pdf"), u"el plano");
  }
}

TEST_F(SavingElsewhere, a_path_that_leads_nowhere_is_reported) {
  for (const TextView nowhere : {u"copia.pdf", u"C:\\copia.pdf", u"\\no\\existe\\copia.pdf"}) {
    userSavesAs(Text(nowhere));
    expectReport(u"GuardarComo de CNota", failure::pathNotFound);
    save();
    expectNothingDone();
  }
}

TEST_F(SavingElsewhere, a_name_out_of_a_damaged_table_is_refused_and_replaces_nothing) {
  here.files.putFile(u"\\secreto.doc", u"secreto");
  here.files.putFile(target, u"lo de antes");
  for (const TextView name : {u"..\\..\\..\\..\\..\\secreto.doc", u"../../secreto.doc", u"..", u"."}) {
    userSavesAs(target);
    expectReport(u"GuardarComo de CNota", failure::pathNotFound);
    saveStoredAs(name);
    EXPECT_EQ(here.files.content(target), u"lo de antes");
    EXPECT_THAT(here.shell.recycled, IsEmpty());
  }
}

TEST_F(SavingElsewhere, a_name_that_is_a_folder_is_refused_and_replaces_nothing) {
  here.files.putFile(leaf + u"Doc0\\1200F00.pdf", u"de otra ficha");
  here.files.putFile(target, u"lo de antes");
  userSavesAs(target);
  expectReport(u"GuardarComo de CNota", failure::pathFileAccess);
  saveStoredAs(u"Doc0");
  EXPECT_EQ(here.files.content(target), u"lo de antes");
  EXPECT_THAT(here.shell.recycled, IsEmpty());
}

TEST_F(SavingElsewhere, a_folder_that_cannot_be_made_is_reported_and_replaces_nothing) {
  host.vClase().with(u"cEstado", 1).with(u"NumNuevo", 4073);
  here.files.putFile(target, u"lo de antes");
  userSavesAs(target);
  openCard([&] {
    user.clicksItem(1);
    here.files.putFolder(here.files.temporary + u"Brenox");
    here.faults.failAlways("Files.makeDirectory", failure::permissionDenied);
    expectReport(u"CreaPathDoc de CNota", failure::permissionDenied);
    expectReport(u"GuardarComo de CNota", failure::pathNotFound);
    GuardarComo(instance);
  });
  EXPECT_EQ(here.files.content(target), u"lo de antes");
}

TEST_F(SavingElsewhere, a_dialog_that_fails_is_reported) {
  host.dlgfrmbase->failing(u"ShowSave", failure::internalError);
  expectReport(u"GuardarComo de CNota", failure::internalError);
  save();
  expectNothingDone();
}

struct Missing {
  const char* member;
  kit::FakeObject& (*object)(kit::AgencyHost& host);
};

void PrintTo(const Missing& row, std::ostream* out) { *out << row.member; }

class MissingMember : public SavingElsewhere, public testing::WithParamInterface<Missing> {};

TEST_P(MissingMember, of_the_host_is_reported_and_nothing_is_saved) {
  userSavesAs(target);
  openCard([&] {
    user.clicksItem(1);
    GetParam().object(host).failing(fromUtf8(GetParam().member), failure::noSuchMember);
    expectReport(u"GuardarComo de CNota", failure::noSuchMember);
    GuardarComo(instance);
  });
  EXPECT_FALSE(here.files.exists(target));
  expectNothingDone();
}

constexpr Missing missing[] = {
    {"dlgfrmbase", [](kit::AgencyHost& host) -> kit::FakeObject& { return *host.frmBase; }},
    {"FLAGS", [](kit::AgencyHost& host) -> kit::FakeObject& { return *host.dlgfrmbase; }},
    {"ShowSave", [](kit::AgencyHost& host) -> kit::FakeObject& { return *host.dlgfrmbase; }},
    {"ActiveForm", [](kit::AgencyHost& host) -> kit::FakeObject& { return *host.frmBase; }},
    {"vClase", [](kit::AgencyHost& host) -> kit::FakeObject& { return *host.FichaInm; }},
    {"cEstado", [](kit::AgencyHost& host) -> kit::FakeObject& { return host.vClase(); }},
    {"NumNuevo", [](kit::AgencyHost& host) -> kit::FakeObject& { return host.vClase(); }},
    {"Registros", [](kit::AgencyHost& host) -> kit::FakeObject& { return host.vClase(); }},
};

INSTANTIATE_TEST_SUITE_P(SavingElsewhere, MissingMember, testing::ValuesIn(missing));

TEST_F(SavingElsewhere, a_remembered_folder_that_cannot_be_read_is_reported) {
  userSavesAs(target);
  openCard([&] {
    user.clicksItem(1);
    here.faults.failNext("Settings.get", failure::permissionDenied);
    expectReport(u"GuardarComo de CNota", failure::permissionDenied);
    GuardarComo(instance);
  });
  expectNothingDone();
}

TEST_F(SavingElsewhere, a_status_bar_that_fails_is_reported_after_the_copy) {
  host.frmBase->failing(u"StatusBar1", failure::noSuchMember);
  userSavesAs(target);
  expectReport(u"GuardarComo de CNota", failure::noSuchMember);
  save();
  EXPECT_EQ(here.files.content(target), u"el plano");
  EXPECT_EQ(remembered(), u"\\home\\ana\\");
}

TEST_F(SavingElsewhere, a_folder_that_cannot_be_remembered_is_reported_after_the_copy) {
  here.faults.onNext("Files.copy", [&] { here.faults.failNext("Settings.save", failure::permissionDenied); });
  userSavesAs(target);
  expectReport(u"GuardarComo de CNota", failure::permissionDenied);
  save();
  EXPECT_EQ(here.files.content(target), u"el plano");
  EXPECT_EQ(statusText(), u"");
}

}  // namespace
}  // namespace ovalia
