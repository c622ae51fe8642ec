#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "commands/CommandRouting.h"
#include "models/Templates.h"
#include "tests/models/PlayedChooser.h"

namespace ovalia {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class AttachingTemplates : public TemplatesTest {
 protected:
  void SetUp() override {
    TemplatesTest::SetUp();
    putTemplate(u"Oferta.dot");
    focusOnNotes();
  }
  void attach(bool saved = true) { AdjuntarPlantilla(instance, saved); }

  const Text reporter = u"AdjuntarPlantilla de CNota";
};

TEST_F(AttachingTemplates, sets_a_name_aside_and_has_the_document_made_there) {
  attach();
  EXPECT_THAT(host.events, ElementsAre(u"NuevoDoc(\\Datos\\Agencia\\Doc1\\Doc2\\Doc0\\120F00.doc, "
                                       u"\\Datos\\Agencia\\Plantillas\\Oferta.dot)",
                                       u"PasaDatosaDoc()"));
  EXPECT_THAT(rows(), ElementsAre(u"1: 120 1 501 Oferta.doc < 120F00.doc"));
  EXPECT_EQ(counter(), 1);
  EXPECT_EQ(instance.FormActiva, ObjectRef(host.FichaInm));
}

TEST_F(AttachingTemplates, asks_the_chooser_for_the_templates_of_the_folder) {
  attach();
  EXPECT_THAT(chooser->journal,
              ElementsAre(u"HayDonde = " + Variant(false).text(), u"HayCual = " + Variant(false).text(),
                          u"Mostrar(\\Datos\\Agencia\\Plantillas\\*.dot)"));
  EXPECT_THAT(chooser->reads, ElementsAre(u"NomFich", u"QueImprimir"));
}

TEST_F(AttachingTemplates, makes_a_chooser_each_time_and_keeps_none) {
  attach();
  attach();
  EXPECT_EQ(choosersMade, 2);
  EXPECT_EQ(chooser.use_count(), 1);
}

TEST_F(AttachingTemplates, keeps_the_chooser_until_the_document_is_filled) {
  std::vector<long> held;
  host.answers.NuevoDoc = [&](Text&, Text&, ObjectRef&) { held.push_back(chooser.use_count()); };
  host.answers.PasaDatosaDoc = [&](Variant&, Variant&, ObjectRef&) { held.push_back(chooser.use_count()); };
  attach();
  EXPECT_THAT(held, ElementsAre(2, 2));
}

TEST_F(AttachingTemplates, fills_the_document_without_the_notes) {
  attach();
  ASSERT_THAT(passed, SizeIs(1));
  EXPECT_EQ(passed[0].word, word);
  EXPECT_EQ(at(8), u"Notas: ");
  EXPECT_EQ(at(0), u"Asunto: Llaves en portería");
}

TEST_F(AttachingTemplates, lists_it_on_the_card_before_it_is_made) {
  openCard([&] {
    host.answers.NuevoDoc = [&](Text&, Text&, ObjectRef&) {
      EXPECT_THAT(form().as<forms::ListView>(u"LsvDocu")->items(), SizeIs(1));
      EXPECT_FALSE(here.files.exists(leaf + u"120F00.doc"));
    };
    attach();
    EXPECT_EQ(at(5), u"Adjunto: Oferta.doc.");
  });
}

TEST_F(AttachingTemplates, is_a_command_that_writes_the_row) {
  openCard([&] {
    dNota_Menu(instance, u"Documentos", u"ID_Plantilla");
    EXPECT_THAT(rows(), ElementsAre(u"1: 120 1 501 Oferta.doc < 120F00.doc"));
  });
}

TEST_F(AttachingTemplates, without_templates_says_so) {
  for (const bool emptyFolder : {true, false}) {
    nota.AppDirUser = join(u"\\Datos\\Otra", emptyFolder);
    if (emptyFolder) here.files.putFolder(nota.AppDirUser + u"\\Plantillas");
    expectNoTemplates();
    attach();
  }
  EXPECT_THAT(host.events, IsEmpty());
  EXPECT_EQ(choosersMade, 0);
  EXPECT_EQ(instance.FormActiva, nullptr);
}

TEST_F(AttachingTemplates, with_other_documents_alone_says_that_there_are_none) {
  nota.AppDirUser = u"\\Datos\\Otra";
  for (const TextView name : {u"carta.doc", u"carta.dotx", u"Nota\\carta.dot"})
    here.files.putFile(join(u"\\Datos\\Otra\\Plantillas\\", name));
  expectNoTemplates();
  attach();
}

TEST_F(AttachingTemplates, does_nothing_when_the_user_cancels) {
  chooser->giving(u"Mostrar", false);
  attach();
  EXPECT_THAT(host.events, IsEmpty());
  EXPECT_THAT(rows(), IsEmpty());
  EXPECT_THAT(chooser->reads, IsEmpty());
  EXPECT_EQ(instance.FormActiva, nullptr);
}

TEST_F(AttachingTemplates, goes_on_with_an_accepted_choice_that_names_no_file) {
  for (const Variant& nothing : {Variant(u""), Variant(Null)}) {
    documents->rows.clear();
    host.events.clear();
    chooser->with(u"QueImprimir", nothing);
    attach();
    EXPECT_THAT(host.events, ElementsAre(u"NuevoDoc(\\Datos\\Agencia\\Doc1\\Doc2\\Doc0\\120F00.doc, )",
                                         u"PasaDatosaDoc()"));
    ASSERT_THAT(rows(), SizeIs(1));
    EXPECT_TRUE(rows()[0].ends_with(u": 120 1 501  < 120F00.doc"));
  }
}

TEST_F(AttachingTemplates, understands_a_choice_in_the_systems_form) {
  chooser->with(u"QueImprimir", u"/Datos/Agencia/Plantillas/Oferta.dot");
  attach();
  EXPECT_THAT(rows(), ElementsAre(u"1: 120 1 501 Oferta.doc < 120F00.doc"));
}

TEST_F(AttachingTemplates, shows_the_template_by_its_name_as_a_document) {
  const std::pair<TextView, TextView> names[] = {
      {u"Oferta.dot", u"Oferta.doc"},
      {u"Oferta.DOT", u"Oferta.DOT"},
      {u"Oferta.dotx", u"Oferta.docx"},
      {u"de.dot.en.dot", u"de.doc.en.doc"},
  };
  for (const auto& [name, shown] : names) {
    documents->rows.clear();
    chooser->with(u"QueImprimir", folder + Text(name));
    attach();
    EXPECT_EQ(documents->at(0, u"NombreOrg").text(), shown);
    EXPECT_THAT(host.events, Contains(join(u"NuevoDoc(\\Datos\\Agencia\\Doc1\\Doc2\\Doc0\\120F00.doc, ",
                                           folder, name, u")")));
  }
}

TEST_F(AttachingTemplates, stores_it_as_a_document_whatever_the_forms_title_but_for_one_like_an_extension) {
  const std::pair<TextView, TextView> titles[] = {{u"Inmueble 120", u"120F00.doc"},
                                                  {u"Piso", u"120F00.doc"},
                                                  {u"", u"120F00.doc"},
                                                  {u".rtf", u"120F00.rtf"}};
  for (const auto& [title, name] : titles) {
    documents->rows.clear();
    host.FichaInm->with(u"Caption", title);
    attach();
    EXPECT_EQ(documents->at(0, u"NombreArch").text(), name);
  }
}

TEST_F(AttachingTemplates, goes_by_the_number_of_the_record_shown) {
  host.vClase().with(u"IdRegistro", 4073).with(u"NumNuevo", 9).with(u"cEstado", 1);
  attach();
  EXPECT_EQ(host.events.front(),
            u"NuevoDoc(\\Datos\\Agencia\\Doc4\\Doc0\\Doc7\\Doc0\\4073F00.doc, "
            u"\\Datos\\Agencia\\Plantillas\\Oferta.dot)");
}

TEST_F(AttachingTemplates, of_an_annotation_not_saved_yet_writes_no_row_and_gives_the_name_again) {
  attach(false);
  attach(false);
  EXPECT_THAT(rows(), IsEmpty());
  EXPECT_EQ(counter(), 0);
  ASSERT_THAT(host.events, SizeIs(4));
  EXPECT_EQ(host.events[0], host.events[2]);
  here.files.putFile(leaf + u"120F00.doc");
  attach(false);
  EXPECT_EQ(host.events[4],
            u"NuevoDoc(\\Datos\\Agencia\\Doc1\\Doc2\\Doc0\\120F01.doc, "
            u"\\Datos\\Agencia\\Plantillas\\Oferta.dot)");
}

TEST_F(AttachingTemplates, passes_over_names_that_rows_and_files_have) {
  attached(u"120F04.doc", u"Contrato.doc");
  here.files.putFile(leaf + u"120F05.doc");
  attach();
  EXPECT_EQ(rows().back(), u"2: 120 1 501 Oferta.doc < 120F06.doc");
}

TEST_F(AttachingTemplates, leaves_the_state_of_the_card_alone) {
  openCard([&] {
    user.types(u"txtNotas", u"Sin guardar");
    attach();
    EXPECT_EQ(state(), modificada);
    EXPECT_EQ(card(u"txtNotas"), u"Sin guardar");
    putAway();
  });
}

TEST_F(AttachingTemplates, asks_the_engine_no_more_than_this) {
  database->opened.clear();
  attach();
  EXPECT_EQ(database->opened.size(), 3u);  // the name, whether it is a copy, the attachments' marks
  EXPECT_EQ(database->executed.size(), 1u);
}

// What goes wrong.

TEST_F(AttachingTemplates, without_a_chooser_is_reported) {
  ObjectRegistry noObjects;
  here.platform.objects = &noObjects;
  expectReport(reporter, failure::classCannotBeCreated);
  attach();
  here.platform.objects = &here.objects;
  EXPECT_THAT(host.events, IsEmpty());
}

TEST_F(AttachingTemplates, reports_what_is_missing_at_the_host_and_writes_nothing) {
  const struct {
    const char* what;
    std::int32_t number;
    std::function<void()> arrange;
  } cases[] = {
      {"no form on top", failure::objectNotSet, [&] { host.shows(nullptr); }},
      {"no controller", failure::noSuchMember, [&] { host.shows(kit::named(u"Otra", u"Otra")); }},
      {"no number", failure::noSuchMember,
       [&] { host.vClase().failing(u"IdRegistro", failure::noSuchMember); }},
      {"no main form", failure::objectNotSet, [&] { nota.frmBase = nullptr; }},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.what);
    row.arrange();
    expectReport(reporter, row.number);
    attach();
    EXPECT_THAT(host.events, IsEmpty());
    EXPECT_THAT(rows(), IsEmpty());
    host.shows(host.FichaInm);
    nota.frmBase = host.frmBase;
  }
}

TEST_F(AttachingTemplates, without_a_name_for_it_writes_no_row) {
  here.faults.failNext("Database.OpenRecordset", dao::failure::locked);
  expectReport(u"CreaNombreDoc de CNota", dao::failure::locked);
  expectReport(reporter, failure::pathNotFound);
  attach();
  EXPECT_THAT(rows(), IsEmpty());
  EXPECT_THAT(host.events, IsEmpty());
}

TEST_F(AttachingTemplates, has_the_document_made_also_where_its_row_cannot_be_written) {
  here.faults.failNext("Database.Execute", dao::failure::readOnly);
  expectReport(u"AniadirArch de CNota", dao::failure::readOnly);
  attach();
  EXPECT_THAT(rows(), IsEmpty());
  EXPECT_THAT(host.events, SizeIs(2));
}

TEST_F(AttachingTemplates, keeps_the_row_of_a_document_that_the_host_could_not_make) {
  host.answers.NuevoDoc = [](Text&, Text&, ObjectRef&) { throw Failure(failure::diskFull); };
  expectReport(reporter, failure::diskFull);
  attach();
  EXPECT_THAT(rows(), SizeIs(1));
  EXPECT_THAT(passed, IsEmpty());
}

TEST_F(AttachingTemplates, survives_any_failure_and_can_be_done_again) {
  int done = 0;
  Text made;
  host.answers.NuevoDoc = [&](Text& doc, Text&, ObjectRef&) {
    made = doc;
    EXPECT_FALSE(here.files.exists(doc));
  };
  const auto before = [&] {
    nota.AppDirUser = join(u"\\Datos\\", done++);
    here.files.putFile(nota.AppDirUser + u"\\Plantillas\\Oferta.dot");
    documents->rows.clear();
    list->at(0, u"NArchivos") = 0;
    made.clear();
  };
  const auto check = [&](const kit::RecordingScreen& screen) {
    EXPECT_FALSE(screen.boxes.empty());
    EXPECT_LE(rows().size(), 1u);
    EXPECT_LE(counter(), std::int32_t(rows().size()));
    for (const Text& row : rows()) EXPECT_TRUE(row.ends_with(u": 120 1 501 Oferta.doc < 120F00.doc"));
    if (!made.empty()) {
      EXPECT_TRUE(made.ends_with(u"\\Doc1\\Doc2\\Doc0\\120F00.doc"));
    }
    here.platform.screen = &here.screen;
    const std::size_t rowsBefore = rows().size();
    attach();
    EXPECT_EQ(rows().size(), rowsBefore + 1);
  };
  for (const std::int32_t number : {dao::failure::locked, failure::diskFull})
    EXPECT_GE(failEachCall(
                  here, number, before, [&] { attach(); }, check),
              30);
}

}  // namespace
}  // namespace ovalia
