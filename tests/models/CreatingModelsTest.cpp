#include "models/CreatingModels.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "commands/CommandRouting.h"
#include "forms/Form.h"
#include "routines/Trap.h"
#include "tests/cardkit/Attachments.h"
#include "tests/cardkit/ModelTables.h"
#include "tests/cardkit/RecordingScreen.h"

namespace ovalia {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr int yes = 6, no = 7;

// The note has one document, stored as "120F00.doc" and shown as "Carta.doc"; the folder of the models is
// there.
class CreatingModels : public kit::AttachmentsTest {
 protected:
  void SetUp() override {
    AttachmentsTest::SetUp();
    kit::putModelTables(*database);
    attached(u"120F00.doc", u"Carta.doc", u"texto de la carta");
    here.files.putFolder(models);
    host.FichaInm->with(u"Controls", controlsOf({}));
  }

  // A late-bound collection of text boxes.
  static ObjectRef controlsOf(std::vector<std::pair<Text, Text>> boxes) {
    auto controls = std::make_shared<kit::FakeObject>();
    controls->answering(u"", [boxes](Arguments name) -> Variant {
      for (const auto& [box, text] : boxes) {
        if (box != name[0].toText()) continue;
        auto control = kit::named(box);
        control->with(u"Text", text);
        return ObjectRef(control);
      }
      throw Failure(failure::noSuchControl);
    });
    return controls;
  }

  void create(const std::function<void()>& script) {
    desk.whileShown(script);
    CrearModelo(instance, u"120F00.doc", u"Carta.doc");
  }

  Text text(TextView control) const { return desk.top().control(control)->value().text(); }
  Text ready() const { return host.panel->property(u"Text").text(); }
  std::vector<Text> modelRows() const { return kit::models(*database); }
  std::vector<Text> modelFiles() const { return here.files.filesBelow(models); }

  void expectTaken() {
    expectBox(u"Existe un modelo con dicho nombre.\r\n\r\nIntroduzca otro nombre.", 68, u"Modelo", no);
  }

  const Text models = agencyFolder + u"\\Plantillas";
};

TEST_F(CreatingModels, the_form_proposes_the_shown_name_and_keeps_the_stored_one) {
  create([&] {
    EXPECT_EQ(desk.top().Name(), u"frmModelo");
    EXPECT_EQ(desk.top().Caption(), u"Crear Modelo");
    EXPECT_EQ(desk.top().owner(), host.frmBase);
    EXPECT_EQ(instance.dlgModelo.get(), &desk.top());
    EXPECT_EQ(text(u"txtNombre"), u"Carta.doc");
    EXPECT_EQ(desk.top().control(u"txtNombre")->Tag, u"120F00.doc");
    for (const TextView empty : {u"txtNotas", u"txtMateria", u"txtSubMateria"}) EXPECT_EQ(text(empty), u"");
    EXPECT_EQ(ready(), u"") << "the status bar waits for the end";
    EXPECT_EQ(instance.EstadoFicha, limpia);
  });
  EXPECT_EQ(ready(), u"Listo");
  EXPECT_FALSE(instance.dlgModelo);
  EXPECT_THAT(modelRows(), IsEmpty());
  EXPECT_THAT(modelFiles(), IsEmpty());
}

TEST_F(CreatingModels, a_host_form_with_the_boxes_proposes_its_own_subject) {
  host.FichaInm->with(u"Controls", controlsOf({{u"txtMateria", u"Alquiler"}, {u"txtTMateria", u"Fianza"}}));
  create([&] {
    EXPECT_EQ(text(u"txtMateria"), u"Alquiler");
    EXPECT_EQ(text(u"txtSubMateria"), u"Fianza");
  });
  host.FichaInm->with(u"Controls", controlsOf({{u"txtTMateria", u"Fianza"}}));
  create([&] {
    EXPECT_EQ(text(u"txtMateria"), u"");
    EXPECT_EQ(text(u"txtSubMateria"), u"Fianza");
  });
}

TEST_F(CreatingModels, without_documents_the_message_speaks_of_documents_and_the_bar_is_ready) {
  for (const Variant& counter : {Variant(0), Variant(-1), Variant(Null)}) {
    list->at(0, u"NArchivos") = counter;
    host.panel->with(u"Text", u"");
    expectBox(u"No existen documentos adjuntos.", 64, u"Documento");
    CrearModelo(instance, u"120F00.doc", u"Carta.doc");
    EXPECT_EQ(ready(), u"Listo");
  }
}

TEST_F(CreatingModels, a_missing_source_stops_before_the_form_and_leaves_the_bar_alone) {
  for (const TextView stored : {u"120F01.doc", u"120F00.DOC", u"*.doc", u"..\\120F00.doc", u""}) {
    expectBox(u"El documento adjunto (Plano) no existe.", 48, u"Modelo");
    CrearModelo(instance, stored, u"Plano");
  }
  EXPECT_EQ(ready(), u"");
  EXPECT_FALSE(instance.dlgModelo);
}

TEST_F(CreatingModels, a_host_without_a_form_on_top_is_reported) {
  host.shows(nullptr);
  expectReport(u"CrearModelo de CNota", failure::objectNotSet);
  CrearModelo(instance, u"120F00.doc", u"Carta.doc");
  EXPECT_EQ(ready(), u"");
}

TEST_F(CreatingModels, accepting_copies_the_document_and_writes_the_row) {
  create([&] {
    user.types(u"txtNombre", u"Carta de oferta.doc");
    user.types(u"txtNotas", u"Para vendedores");
    user.clicks(u"cmdAceptar");
    EXPECT_FALSE(desk.top().loaded());
  });
  EXPECT_THAT(modelFiles(), ElementsAre(u"Carta de oferta.doc"));
  EXPECT_EQ(here.files.content(models + u"\\Carta de oferta.doc"), u"texto de la carta");
  EXPECT_EQ(here.files.content(leaf + u"120F00.doc"), u"texto de la carta") << "the attachment stays";
  EXPECT_THAT(modelRows(), ElementsAre(u"1: Carta de oferta.doc < Para vendedores, Null, Null"));
  EXPECT_EQ(counter(), 1);
  EXPECT_EQ(ready(), u"Listo");
}

TEST_F(CreatingModels, the_statement_names_the_keys_that_were_found) {
  const struct {
    TextView subject, part, tail;
  } rows[] = {
      {u"", u"", u"(Nombre,Notas) VALUES ('Carta.doc', 'n')"},
      {u"nada", u"tampoco", u"(Nombre,Notas) VALUES ('Carta.doc', 'n')"},
      {u"", u"Fianza", u"(Nombre,Notas,IdTipoMateria) VALUES ('Carta.doc', 'n', 12)"},
      {u"ventas", u"nada", u"(Nombre,Notas,IdMateria) VALUES ('Carta.doc', 'n', 1)"},
      {u"Alquiler", u"Fianza", u"(Nombre,Notas,IdMateria,IdTipoMateria) VALUES ('Carta.doc', 'n', 2, 12)"},
      // The sub-matter belongs to whichever subject has one of that name first.
      {u"Alquiler", u"Oferta", u"(Nombre,Notas,IdMateria,IdTipoMateria) VALUES ('Carta.doc', 'n', 2, 11)"},
      {u"D'Ors", u"", u"(Nombre,Notas,IdMateria) VALUES ('Carta.doc', 'n', 3)"},
  };
  for (const auto& row : rows) {
    database->executed.clear();
    create([&] {
      user.types(u"txtNotas", u"n");
      if (!row.subject.empty()) user.types(u"txtMateria", row.subject);
      if (!row.part.empty()) user.types(u"txtSubMateria", row.part);
      user.clicks(u"cmdAceptar");
    });
    EXPECT_EQ(database->executed, std::vector<Text>{u"INSERT INTO Plantilla " + Text(row.tail)});
    here.files.remove(models + u"\\Carta.doc");
  }
}

TEST_F(CreatingModels, the_subjects_are_looked_up_by_name) {
  database->opened.clear();
  create([&] {
    user.types(u"txtMateria", u"D'Ors|x");
    user.clicks(u"cmdAceptar");
  });
  EXPECT_THAT(database->opened,
              ElementsAre(u"SELECT IdMateria FROM Materia WHERE Nombre = 'D''Ors' + chr(124) + 'x'",
                          u"SELECT IdTipoMateria FROM TipoMateria WHERE Nombre = ''"));
}

TEST_F(CreatingModels, a_name_is_cleaned_before_the_disk_and_the_row_see_it) {
  const struct {
    TextView typed, stored;
  } rows[] = {
      {u"a/b\\c:d*e?f\"g'h|i<j>k.doc", u"abcdefghijk.doc"},
      {u"..\\..\\fuera.doc", u"....fuera.doc"},
      {u"Año [1] ñ 100%.doc", u"Año [1] ñ 100%.doc"},
      {u"sin extensión", u"sin extensión"},
  };
  for (const auto& row : rows) {
    create([&] {
      user.types(u"txtNombre", row.typed);
      user.clicks(u"cmdAceptar");
    });
    EXPECT_TRUE(here.files.exists(models + u"\\" + Text(row.stored))) << toUtf8(row.stored);
    EXPECT_THAT(toUtf8(modelRows().back()), HasSubstr(": " + toUtf8(row.stored) + " < "));
  }
}

TEST_F(CreatingModels, quotes_and_bars_in_notes_reach_the_row) {
  create([&] {
    user.types(u"txtNotas", u"d'Ors | y \"más\"\r\nlínea");
    user.clicks(u"cmdAceptar");
  });
  EXPECT_THAT(modelRows(), ElementsAre(u"1: Carta.doc < d'Ors | y \"más\"\r\nlínea, Null, Null"));
}

TEST_F(CreatingModels, a_name_that_is_none_is_refused_and_the_form_stays) {
  for (const TextView name : {u"", u"*?", u".", u".."}) {
    create([&] {
      user.types(u"txtNombre", name);
      expectReport(u"dlgModelo_Aceptar de CNota", failure::pathNotFound);
      user.clicks(u"cmdAceptar");
      EXPECT_TRUE(desk.top().Visible());
    });
  }
  EXPECT_THAT(modelRows(), IsEmpty());
  EXPECT_THAT(modelFiles(), IsEmpty());
}

TEST_F(CreatingModels, a_name_that_is_taken_asks_for_another_whichever_button_answers) {
  here.files.putFile(models + u"\\Carta.doc", u"el primero");
  create([&] {
    for (const int answer : {yes, no}) {
      expectBox(u"Existe un modelo con dicho nombre.\r\n\r\nIntroduzca otro nombre.", 68, u"Modelo", answer);
      user.clicks(u"cmdAceptar");
      EXPECT_EQ(desk.top().ActiveControl()->Name(), u"txtNombre");
      EXPECT_EQ(desk.top().as<forms::TextBox>(u"txtNombre")->SelLength(), 9);
    }
    user.types(u"txtNombre", u"Carta 2.doc");
    user.clicks(u"cmdAceptar");
  });
  EXPECT_EQ(here.files.content(models + u"\\Carta.doc"), u"el primero");
  EXPECT_THAT(modelRows(), ElementsAre(u"1: Carta 2.doc < , Null, Null"));
}

TEST_F(CreatingModels, a_file_whose_name_differs_in_case_is_not_replaced_either) {
  here.files.putFile(models + u"\\CARTA.DOC", u"el primero");
  create([&] {
    expectReport(u"dlgModelo_Aceptar de CNota", failure::fileAlreadyExists);
    user.clicks(u"cmdAceptar");
    EXPECT_TRUE(desk.top().Visible());
  });
  EXPECT_EQ(here.files.content(models + u"\\CARTA.DOC"), u"el primero");
  EXPECT_THAT(modelRows(), IsEmpty());
}

TEST_F(CreatingModels, a_missing_folder_is_made_when_the_user_wants_it) {
  nota.AppDirUser = u"\\Datos\\Otra";
  here.files.putFile(u"\\Datos\\Otra\\Doc1\\Doc2\\Doc0\\120F00.doc");
  const Text folder = u"\\Datos\\Otra\\Plantillas";
  const Text question = join(u"El directorio ", folder, u"\\ no existe.\r\n\r\n¿Desea crearlo?");
  create([&] {
    expectBox(question, 68, u"", no);
    expectReport(u"dlgModelo_Aceptar de CNota", failure::pathNotFound);
    user.clicks(u"cmdAceptar");
    EXPECT_TRUE(desk.top().Visible());
    EXPECT_FALSE(here.files.exists(folder));
    EXPECT_THAT(modelRows(), IsEmpty());

    expectBox(question, 68, u"", yes);
    user.clicks(u"cmdAceptar");
  });
  EXPECT_TRUE(here.files.exists(folder + u"\\Carta.doc"));
  EXPECT_EQ(modelRows().size(), 1u);
}

TEST_F(CreatingModels, a_data_folder_in_the_systems_form_is_understood) {
  nota.AppDirUser = u"/Datos/Agencia";
  create([&] { user.clicks(u"cmdAceptar"); });
  EXPECT_THAT(modelFiles(), ElementsAre(u"Carta.doc"));
}

TEST_F(CreatingModels, cancelling_writes_nothing) {
  for (const auto& cancel : std::vector<std::function<void()>>{[&] { user.clicks(u"cmdCancelar"); },
                                                               [&] { user.presses(kit::User::escape); }}) {
    create([&] {
      user.types(u"txtNombre", u"Otro.doc");
      cancel();
      EXPECT_FALSE(desk.top().loaded());
    });
  }
  EXPECT_THAT(modelRows(), IsEmpty());
  EXPECT_THAT(modelFiles(), IsEmpty());
}

TEST_F(CreatingModels, enter_accepts_but_in_the_notes_where_it_is_a_line) {
  create([&] {
    user.enters(u"txtNotas");
    user.presses(kit::User::enter);
    EXPECT_TRUE(desk.top().Visible());
    user.enters(u"txtNombre");
    user.presses(kit::User::enter);
    EXPECT_FALSE(desk.top().loaded());
  });
  EXPECT_EQ(modelRows().size(), 1u);
}

TEST_F(CreatingModels, the_host_chooses_subject_and_sub_matter) {
  host.answers.VerMateria = [](bool& ok, const Text&, Text& chosen) { ok = true, chosen = u"Alquiler"; };
  host.answers.VerTMateria = [](bool& ok, const Variant&, const Text&, Text& chosen) {
    ok = true, chosen = u"Fianza";
  };
  create([&] {
    user.types(u"txtMateria", u"alq");
    user.types(u"txtSubMateria", u"fi");
    user.clicks(u"cmdMateria");
    EXPECT_EQ(text(u"txtMateria"), u"Alquiler");
    user.clicks(u"cmdSubMateria");
    EXPECT_EQ(text(u"txtSubMateria"), u"Fianza");
    user.enters(u"txtMateria");
    user.presses(kit::User::enter, kit::User::shiftKey);
    user.enters(u"txtSubMateria");
    user.presses(kit::User::enter, kit::User::shiftKey);
    user.enters(u"txtNombre");
    user.presses(kit::User::enter, kit::User::shiftKey);
  });
  EXPECT_THAT(host.events, ElementsAre(u"VerMateria(alq)", u"VerTMateria(Alquiler, fi)",
                                       u"VerMateria(Alquiler)", u"VerTMateria(Alquiler, Fianza)"));
}

TEST_F(CreatingModels, what_the_host_does_not_confirm_changes_nothing) {
  host.answers.VerMateria = [](bool&, const Text&, Text& chosen) { chosen = u"Alquiler"; };
  host.answers.VerTMateria = [](bool&, const Variant&, const Text&, Text& chosen) { chosen = u"Fianza"; };
  create([&] {
    user.types(u"txtMateria", u"alq");
    user.clicks(u"cmdMateria");
    user.clicks(u"cmdSubMateria");
    EXPECT_EQ(text(u"txtMateria"), u"alq");
    EXPECT_EQ(text(u"txtSubMateria"), u"");
  });
}

TEST_F(CreatingModels, a_host_that_fails_is_reported_and_the_form_stays) {
  host.answers.VerMateria = [](bool&, const Text&, Text&) { throw Failure(failure::typeMismatch); };
  host.answers.VerTMateria = [](bool&, const Variant&, const Text&, Text&) {
    throw Failure(failure::typeMismatch);
  };
  create([&] {
    for (const auto& [button, box] :
         {std::pair{u"cmdMateria", u"txtMateria"}, std::pair{u"cmdSubMateria", u"txtSubMateria"}}) {
      expectReport(join(button, u"_Click de frmModelo"), failure::typeMismatch);
      user.clicks(button);
      user.enters(box);
      expectReport(join(box, u"_KeyDown de frmModelo"), failure::typeMismatch);
      user.presses(kit::User::enter, kit::User::shiftKey);
    }
    EXPECT_TRUE(desk.top().Visible());
  });
}

TEST_F(CreatingModels, name_and_subjects_are_selected_on_entering_and_notes_are_not) {
  create([&] {
    for (const TextView name : {u"txtNotas", u"txtMateria", u"txtSubMateria", u"txtNombre"})
      user.types(name, u"doce letras.");
    const auto selected = [&](TextView name) {
      desk.top().as<forms::TextBox>(name)->userSelects(0, 0);
      user.enters(name);
      return desk.top().as<forms::TextBox>(name)->SelLength();
    };
    EXPECT_EQ(selected(u"txtNotas"), 0);
    for (const TextView name : {u"txtMateria", u"txtSubMateria", u"txtNombre"})
      EXPECT_EQ(selected(name), 12) << toUtf8(name);
  });
}

// The command.

TEST_F(CreatingModels, the_command_takes_the_selected_document_and_its_shown_name) {
  openCard([&] {
    form().as<forms::ListView>(u"LsvDocu")->select(1);
    desk.whileShown([&] {
      EXPECT_EQ(text(u"txtNombre"), u"Carta.doc");
      EXPECT_EQ(desk.top().control(u"txtNombre")->Tag, u"120F00.doc");
      user.clicks(u"cmdAceptar");
    });
    dNota_Menu(instance, u"Documentos", u"ID_CrearModelo");
    EXPECT_EQ(state(), limpia);
  });
  EXPECT_THAT(modelRows(), ElementsAre(u"1: Carta.doc < , Null, Null"));
}

TEST_F(CreatingModels, the_command_asks_the_screens_form_for_the_document) {
  openCard([&] {
    const auto other = kit::named(u"Otra"), itsList = kit::named(u"LsvDocu"), itsItem = kit::named(u"");
    itsItem->with(u"Key", u"77F00.doc").with(u"Text", u"Otro.doc");
    itsList->with(u"SelectedItem", itsItem);
    other->with(u"LsvDocu", itsList);
    here.screen.activeFormOf = [&]() -> ObjectRef { return other; };
    expectBox(u"El documento adjunto (Otro.doc) no existe.", 48, u"Modelo");
    dNota_Menu(instance, u"Documentos", u"ID_CrearModelo");
  });
}

TEST_F(CreatingModels, the_command_fails_without_a_selected_document) {
  openCard([&] {
    expectReport(u"dNota_Menu de CNota", failure::objectNotSet);
    dNota_Menu(instance, u"Documentos", u"ID_CrearModelo");
  });
}

// What survives when something fails.

TEST_F(CreatingModels, a_copy_that_fails_writes_no_row_and_the_form_stays) {
  create([&] {
    here.faults.failNext("Files.copy", failure::diskFull);
    expectReport(u"dlgModelo_Aceptar de CNota", failure::diskFull);
    user.clicks(u"cmdAceptar");
    EXPECT_TRUE(desk.top().Visible());
  });
  EXPECT_THAT(modelRows(), IsEmpty());
}

// 3167 asks the form on top to load its records, which this one cannot: the failure is that of the next
// procedure out.
TEST_F(CreatingModels, an_annotation_that_another_user_deletes_meanwhile_makes_no_model) {
  create([&] {
    otherUser.deletesTheRow();
    expectBox(u"La ficha acaba de ser borrada por otro usuario y\r\nno se volverá a visualizar.", 4144,
              u"Error");
    expectReport(u"cmdAceptar_Click de frmModelo", failure::noSuchMember);
    user.clicks(u"cmdAceptar");
    EXPECT_TRUE(desk.top().Visible());
  });
  EXPECT_THAT(modelRows(), IsEmpty());
  EXPECT_THAT(modelFiles(), IsEmpty());
}

TEST_F(CreatingModels, a_row_that_is_refused_leaves_the_file_and_the_name_is_taken) {
  database->onExecute = [](TextView) { return 0; };
  create([&] {
    expectBox(u"Error registrando el modelo.");
    user.clicks(u"cmdAceptar");
    EXPECT_FALSE(desk.top().loaded()) << "the form closes all the same";
  });
  EXPECT_THAT(modelFiles(), ElementsAre(u"Carta.doc"));
  create([&] {
    expectTaken();
    user.clicks(u"cmdAceptar");
  });
}

TEST_F(CreatingModels, a_statement_that_fails_leaves_the_file_and_the_form) {
  create([&] {
    here.faults.failNext("Database.Execute", dao::failure::locked);
    expectReport(u"dlgModelo_Aceptar de CNota", dao::failure::locked);
    user.clicks(u"cmdAceptar");
    EXPECT_TRUE(desk.top().Visible());
    expectTaken();
    user.clicks(u"cmdAceptar");
  });
  EXPECT_THAT(modelFiles(), ElementsAre(u"Carta.doc"));
  EXPECT_THAT(modelRows(), IsEmpty());
}

TEST_F(CreatingModels, without_the_tables_of_subjects_the_file_stays_without_a_row) {
  database->otherwise = [](TextView) -> kit::FakeTableRef { throw Failure(dao::failure::unknownTable); };
  create([&] {
    expectReport(u"dlgModelo_Aceptar de CNota", dao::failure::unknownTable);
    user.clicks(u"cmdAceptar");
  });
  EXPECT_THAT(modelFiles(), ElementsAre(u"Carta.doc"));
  EXPECT_THAT(modelRows(), IsEmpty());
}

TEST_F(CreatingModels, a_list_without_the_counter_or_the_parent_is_reported) {
  for (const TextView column : {u"NArchivos", u"Id"}) {
    givenList(u"Nota", {column == u"Id" ? kit::Fields{{u"NArchivos", 1}} : kit::Fields{}}, {Text(column)});
    expectReport(u"CrearModelo de CNota", dao::failure::notInCollection);
    CrearModelo(instance, u"120F00.doc", u"Carta.doc");
    EXPECT_EQ(ready(), u"");
  }
}

TEST_F(CreatingModels, accepting_fails_at_each_call_without_a_row_before_its_file) {
  int failing = 0;
  for (bool met = true; met; failing += met) {
    ASSERT_LT(failing, 100);
    here.files.appended.clear();
    create([&] {
      user.types(u"txtNombre", u"Intento " + toText(failing) + u".doc");
      kit::RecordingScreen screen(here.faults, here.screen);
      here.platform.screen = &screen;
      here.faults.failNth("", failing + 1, failure::permissionDenied);
      user.clicks(u"cmdAceptar");
      met = here.faults.unmet().empty();
      here.faults.heal();
      here.platform.screen = &here.screen;
    });
    here.files.appended.clear();
    for (const kit::FakeRowRef& row : database->tableNamed(u"Plantilla")->rows)
      EXPECT_TRUE(here.files.exists(models + u"\\" + row->values[1].text())) << failing;
    EXPECT_EQ(here.files.content(leaf + u"120F00.doc"), u"texto de la carta");
  }
  EXPECT_GT(failing, 8);
}

}  // namespace
}  // namespace ovalia
