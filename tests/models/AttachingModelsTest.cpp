#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "commands/CommandRouting.h"
#include "models/Templates.h"
#include "tests/cardkit/Attachments.h"
#include "tests/cardkit/ModelTables.h"
#include "tests/exchange/PassedMarks.h"

namespace ovalia {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class AttachingModels : public kit::AttachmentsTest {
 protected:
  void SetUp() override {
    AttachmentsTest::SetUp();
    kit::putModelTables(*database);
    offer(u"Contrato.doc");
  }

  // A model of that name, the only one there is, and its file.
  void offer(TextView name) {
    here.files.putFile(join(nota.AppDirUser, u"\\Plantillas\\", name), u"el modelo");
    offerWithoutFile(name);
  }
  void offerWithoutFile(TextView name) {
    database->tableNamed(u"Plantilla")->rows.clear();
    kit::putModel(*database, name);
  }

  // The list comes up, and the user takes the model; or does as the test says.
  void attach(bool saved = true) {
    attachBy([&] { user.clicks(u"cmdAceptar"); }, saved);
  }
  void attachBy(kit::Desk::Script script, bool saved = true) {
    desk.whileShown(std::move(script));
    attachWithoutList(saved);
  }
  void attachWithoutList(bool saved = true) { AdjuntarModelo(instance, saved); }

  // The user takes a model whose file is not there, keeps its row and closes the window: the choice stands.
  void attachMissing(std::int32_t reported) {
    attachBy([&, reported] {
      expectBox(u"El modelo seleccionado no existe.\r\n\r\n¿Desea borrar la referencia?", 52, u"Modelo", 7);
      expectReport(reporter, reported);
      user.clicks(u"cmdAceptar");
    });
  }

  // The subject and the sub-matter that the list comes up with.
  Text proposed() {
    Text found;
    attachBy([&] {
      const auto text = [&](TextView box) { return desk.top().control(box)->value().text(); };
      EXPECT_EQ(desk.top().Name(), u"ListaModelos");
      found = join(text(u"txtMateria"), u", ", text(u"txtTMateria"));
    });
    return found;
  }

  // A form of the host with a controller of its own; its list shows subjects.
  std::shared_ptr<kit::FakeObject> showsList(TextView name, Variant subject, Variant subMatter) {
    const auto form = kit::named(name, u"Lista"), controller = std::make_shared<kit::FakeObject>();
    controller->with(u"cEstado", 0).with(u"NumNuevo", 0).with(u"IdRegistro", 120);
    controller->answering(u"Registros", [=](Arguments field) -> Variant {
      const Text asked = field[0].toText();
      if (asked == u"Materia") return subject;
      if (asked == u"TMateria") return subMatter;
      return 120;
    });
    form->with(u"vClase", controller);
    host.shows(form);
    return form;
  }

  const Text reporter = u"AdjuntarModelo de CNota";
};

TEST_F(AttachingModels, copies_it_into_the_tree_writes_its_row_and_has_it_opened) {
  attach();
  EXPECT_EQ(here.files.content(leaf + u"120F00.doc"), u"el modelo");
  EXPECT_EQ(here.files.content(agencyFolder + u"\\Plantillas\\Contrato.doc"), u"el modelo");
  EXPECT_THAT(rows(), ElementsAre(u"1: 120 1 501 Contrato.doc < 120F00.doc"));
  EXPECT_EQ(counter(), 1);
  EXPECT_THAT(host.events, ElementsAre(u"AbrirDoc(\\Datos\\Agencia\\Doc1\\Doc2\\Doc0\\120F00.doc)"));
  EXPECT_EQ(instance.FormActiva, ObjectRef(host.FichaInm));
}

TEST_F(AttachingModels, keeps_an_extension_of_three_letters_alone) {
  const std::pair<TextView, TextView> names[] = {
      {u"Plano.pdf", u"120F00.pdf"},      {u"Contrato.docx", u"120F00.doc"}, {u"Nota", u"120F00.doc"},
      {u"v1.2 final.txt", u"120F00.txt"}, {u"Carta.", u"120F00.doc"},        {u".dot", u"120F00.dot"},
      {u"Carta.md", u"120F00.doc"},
  };
  for (const auto& [name, stored] : names) {
    SCOPED_TRACE(toUtf8(name));
    documents->rows.clear();
    nota.AppDirUser = join(u"\\Datos\\", name);
    offer(name);
    attach();
    EXPECT_EQ(documents->at(0, u"NombreOrg").text(), name);
    EXPECT_EQ(documents->at(0, u"NombreArch").text(), stored);
    EXPECT_EQ(here.files.content(join(nota.AppDirUser, u"\\Doc1\\Doc2\\Doc0\\", stored)), u"el modelo");
  }
}

TEST_F(AttachingModels, of_an_annotation_not_saved_yet_writes_no_row) {
  attach(false);
  EXPECT_THAT(rows(), IsEmpty());
  EXPECT_EQ(counter(), 0);
  EXPECT_TRUE(here.files.exists(leaf + u"120F00.doc"));
  EXPECT_THAT(host.events, SizeIs(1));
}

TEST_F(AttachingModels, cancelled_does_nothing_without_a_word) {
  attachBy([&] { user.clicks(u"cmdCancelar"); });
  attachBy([] {});
  EXPECT_THAT(tree(), ElementsAre(u"Plantillas\\Contrato.doc"));
  EXPECT_THAT(rows(), IsEmpty());
  EXPECT_THAT(host.events, IsEmpty());
  EXPECT_EQ(instance.FormActiva, nullptr);
}

TEST_F(AttachingModels, lets_the_list_go) {
  attachBy([&] {
    EXPECT_NE(instance.dlgListaModelos, nullptr);
    user.clicks(u"cmdAceptar");
  });
  EXPECT_EQ(instance.dlgListaModelos, nullptr);
}

TEST_F(AttachingModels, goes_into_the_folder_of_the_record_shown_or_being_added) {
  host.vClase().with(u"NumNuevo", 4073).with(u"cEstado", 2);
  attach();
  EXPECT_THAT(tree(), Contains(u"Doc1\\Doc2\\Doc0\\120F00.doc"));
  host.vClase().with(u"cEstado", 1);
  attach();
  EXPECT_THAT(tree(), Contains(u"Doc4\\Doc0\\Doc7\\Doc0\\4073F00.doc"));
}

TEST_F(AttachingModels, lists_it_on_the_card_and_leaves_the_rest_of_it_alone) {
  openCard([&] {
    user.types(u"txtNotas", u"Sin guardar");
    attach();
    EXPECT_THAT(form().as<forms::ListView>(u"LsvDocu")->items(), SizeIs(1));
    EXPECT_EQ(state(), modificada);
    EXPECT_EQ(card(u"txtNotas"), u"Sin guardar");
    putAway();
  });
}

TEST_F(AttachingModels, is_a_command_that_writes_the_row) {
  openCard([&] {
    desk.whileShown([&] { user.clicks(u"cmdAceptar"); });
    dNota_Menu(instance, u"Documentos", u"ID_Modelo");
    EXPECT_THAT(rows(), ElementsAre(u"1: 120 1 501 Contrato.doc < 120F00.doc"));
    EXPECT_THAT(host.events, Contains(u"AbrirDoc(\\Datos\\Agencia\\Doc1\\Doc2\\Doc0\\120F00.doc)"));
  });
}

TEST_F(AttachingModels, asks_the_engine_no_more_than_this_once_the_list_is_closed) {
  attachBy([&] {
    database->opened.clear();
    user.clicks(u"cmdAceptar");
  });
  EXPECT_THAT(database->opened,
              ElementsAre(u"SELECT Id, NombreArch FROM DocuNotaIP WHERE Id = 120",
                          u"SELECT NombreOrg FROM DocuNotaIP WHERE NombreArch='Contrato.doc'"));
  EXPECT_THAT(database->executed, SizeIs(1));
}

// The subject that is proposed.

TEST_F(AttachingModels, proposes_no_subject_on_a_card_of_the_host) { EXPECT_EQ(proposed(), u", "); }

TEST_F(AttachingModels, proposes_the_subject_of_a_hosts_list) {
  showsList(u"ListaExpV", u"Ventas", u"Oferta");
  EXPECT_EQ(proposed(), u"Ventas, Oferta");
  showsList(u"Lista", Null, Null);
  EXPECT_EQ(proposed(), u", ");
}

TEST_F(AttachingModels, proposes_nothing_on_a_form_that_is_only_called_alike) {
  for (const TextView name : {u"listaExpV", u"MiLista", u"List", u""}) {
    showsList(name, u"Ventas", u"Oferta");
    EXPECT_EQ(proposed(), u", ") << toUtf8(name);
  }
}

TEST_F(AttachingModels, proposes_the_sub_matter_alone_on_a_case_file) {
  const auto subject = kit::named(u"txtMateria"), subMatter = kit::named(u"txtTMateria");
  subject->with(u"Text", u"Ventas");
  subMatter->with(u"Text", u"Oferta");
  host.FichaExpV->with(u"txtMateria", subject).with(u"txtTMateria", subMatter);
  host.shows(host.FichaExpV);
  EXPECT_EQ(proposed(), u", Oferta");
  EXPECT_THAT(subject->reads, ElementsAre(u"Text"));
}

TEST_F(AttachingModels, understands_a_data_folder_in_the_systems_form) {
  nota.AppDirUser = u"/Datos/Agencia";
  attach();
  EXPECT_THAT(host.events, ElementsAre(u"AbrirDoc(\\Datos\\Agencia\\Doc1\\Doc2\\Doc0\\120F00.doc)"));
}

// What goes wrong.

TEST_F(AttachingModels, reports_what_is_missing_at_the_host_and_asks_nothing) {
  const struct {
    const char* what;
    std::int32_t number;
    std::function<void()> arrange;
  } cases[] = {
      {"no main form", failure::objectNotSet, [&] { nota.frmBase = nullptr; }},
      {"no form on top", failure::objectNotSet, [&] { host.shows(nullptr); }},
      {"a list without a controller", failure::noSuchMember, [&] { host.shows(kit::named(u"ListaInm")); }},
      {"a list without a subject", dao::failure::notInCollection,
       [&] {
         showsList(u"ListaInm", u"", u"");
         host.vClase().failing(u"Registros", dao::failure::notInCollection);
       }},
      {"a case file without a box", failure::noSuchMember, [&] { host.shows(host.FichaExpV); }},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.what);
    row.arrange();
    expectReport(reporter, row.number);
    attachWithoutList();
    host.shows(host.FichaInm);
    nota.frmBase = host.frmBase;
  }
}

TEST_F(AttachingModels, without_the_records_number_copies_nothing) {
  host.vClase().failing(u"Registros", dao::failure::noCurrentRecord);
  expectReport(reporter, dao::failure::noCurrentRecord);
  attach();
  EXPECT_THAT(tree(), SizeIs(1));
  EXPECT_THAT(host.events, IsEmpty());
}

TEST_F(AttachingModels, of_a_name_that_leads_elsewhere_copies_nothing) {
  here.files.putFile(agencyFolder + u"\\secreto.doc", u"secreto");
  here.files.putFile(agencyFolder + u"\\Plantillas\\Nota\\Ficha.dot", u"una plantilla");
  for (const TextView name : {u"..\\secreto.doc", u"../secreto.doc", u"Nota\\Ficha.dot", u"..", u"."}) {
    offerWithoutFile(name);
    attachMissing(failure::pathNotFound);
  }
  EXPECT_FALSE(here.files.exists(leaf + u"120F00.doc"));
  EXPECT_THAT(rows(), IsEmpty());
  EXPECT_THAT(host.events, IsEmpty());
}

TEST_F(AttachingModels, of_a_model_that_is_missing_leaves_neither_row_nor_event) {
  offerWithoutFile(u"Nada.doc");
  attachMissing(failure::fileNotFound);
  EXPECT_THAT(rows(), IsEmpty());
  EXPECT_THAT(host.events, IsEmpty());
}

TEST_F(AttachingModels, without_a_folder_of_models_leaves_neither_row_nor_event) {
  nota.AppDirUser = u"\\Datos\\Otra";
  here.files.putFolder(nota.AppDirUser);
  attachMissing(failure::pathNotFound);
  EXPECT_THAT(rows(), IsEmpty());
  EXPECT_THAT(host.events, IsEmpty());
}

TEST_F(AttachingModels, that_cannot_be_copied_leaves_neither_row_nor_event) {
  here.faults.failNext("Files.copy", failure::diskFull);
  expectReport(reporter, failure::diskFull);
  attach();
  EXPECT_THAT(rows(), IsEmpty());
  EXPECT_THAT(host.events, IsEmpty());
}

TEST_F(AttachingModels, without_a_name_for_it_copies_nothing) {
  expectReport(u"CreaNombreDoc de CNota", dao::failure::locked);
  expectReport(reporter, failure::pathNotFound);
  attachBy([&] {
    here.faults.failNext("Database.OpenRecordset", dao::failure::locked);
    user.clicks(u"cmdAceptar");
  });
  EXPECT_THAT(tree(), SizeIs(1));
  EXPECT_THAT(host.events, IsEmpty());
}

TEST_F(AttachingModels, that_lost_its_place_to_another_user_replaces_nothing) {
  here.faults.onNext("Files.copy", [&] { here.files.putFile(leaf + u"120F00.doc", u"de otro"); });
  expectReport(reporter, failure::fileAlreadyExists);
  attach();
  EXPECT_EQ(here.files.content(leaf + u"120F00.doc"), u"de otro");
  EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(AttachingModels, whose_row_cannot_be_written_keeps_the_copy_and_is_opened) {
  here.faults.failNext("Database.Execute", dao::failure::readOnly);
  expectReport(u"AniadirArch de CNota", dao::failure::readOnly);
  attach();
  EXPECT_EQ(here.files.content(leaf + u"120F00.doc"), u"el modelo");
  EXPECT_THAT(rows(), IsEmpty());
  EXPECT_THAT(host.events, SizeIs(1));
}

TEST_F(AttachingModels, that_the_host_cannot_open_stays_attached) {
  host.answers.AbrirDoc = [](Text&) { throw Failure(failure::internalError); };
  expectReport(reporter, failure::internalError);
  attach();
  EXPECT_THAT(rows(), SizeIs(1));
}

// The list fails in ways of its own; none leads to more than a choice.
TEST_F(AttachingModels, survives_any_failure_and_can_be_done_again) {
  int folder = 0;
  bool waiting = false;  // for a list that has not come up
  const auto take = [&] {
    if (!std::exchange(waiting, true))
      desk.whileShown([&] {
        waiting = false;
        user.clicks(u"cmdAceptar");
      });
    attachWithoutList();
  };
  const auto before = [&] {
    nota.AppDirUser = join(u"\\Datos\\", folder++);
    offer(u"Contrato.doc");
    documents->rows.clear();
    list->at(0, u"NArchivos") = 0;
    host.events.clear();
  };
  const auto check = [&](const kit::RecordingScreen& screen) {
    const Text file = nota.AppDirUser + u"\\Doc1\\Doc2\\Doc0\\120F00.doc";
    const bool copied = here.files.exists(file);
    if (copied) {
      EXPECT_EQ(here.files.content(file), u"el modelo");
    }
    EXPECT_EQ(here.files.content(nota.AppDirUser + u"\\Plantillas\\Contrato.doc"), u"el modelo");
    EXPECT_LE(rows().size(), copied ? 1u : 0u);
    EXPECT_LE(counter(), std::int32_t(rows().size()));
    EXPECT_LE(host.events.size(), copied ? 1u : 0u);
    EXPECT_FALSE(screen.boxes.empty());
    here.platform.screen = &here.screen;
    const std::size_t rowsBefore = rows().size();
    take();
    EXPECT_EQ(rows().size(), rowsBefore + 1);
  };
  for (const std::int32_t number : {dao::failure::locked, failure::diskFull})
    EXPECT_GE(failEachCall(here, number, before, take, check), 25);
}

}  // namespace
}  // namespace ovalia
