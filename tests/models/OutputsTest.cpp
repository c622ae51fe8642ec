#include "models/Outputs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/models/PlayedChooser.h"

namespace ovalia {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class Printing : public TemplatesTest {
 protected:
  ObjectRegistry noObjects;

  void SetUp() override {
    TemplatesTest::SetUp();
    putTemplate(u"Nota\\Ficha.dot");
    chooser->with(u"QueImprimir", folder + u"Nota\\Ficha.dot");
    focusOnNotes();
  }
  void print() { ImprimirNota(instance); }
};

TEST_F(Printing, has_a_document_made_that_is_not_kept) {
  Text document = u"?", from;
  host.answers.NuevoDoc = [&](Text& doc, Text& dot, ObjectRef&) {
    document = doc;
    from = dot;
  };
  print();
  EXPECT_EQ(document, u"");
  EXPECT_EQ(from, u"\\Datos\\Agencia\\Plantillas\\Nota\\Ficha.dot");
  EXPECT_EQ(host.events.back(), u"PasaDatosaDoc()");
  EXPECT_THAT(rows(), IsEmpty());
  EXPECT_THAT(tree(), ElementsAre(u"Plantillas\\Nota\\Ficha.dot"));
  EXPECT_THAT(database->executed, IsEmpty());
  EXPECT_EQ(counter(), 0);
  EXPECT_EQ(instance.FormActiva, ObjectRef(host.FichaInm));
}

TEST_F(Printing, asks_the_chooser_for_the_templates_of_the_kind) {
  print();
  EXPECT_THAT(chooser->journal,
              ElementsAre(u"HayDonde = " + Variant(true).text(), u"HayCual = " + Variant(false).text(),
                          u"Mostrar(\\Datos\\Agencia\\Plantillas\\Nota\\*.dot)"));
  EXPECT_THAT(chooser->reads, ElementsAre(u"NomFich", u"QueImprimir"));
  EXPECT_EQ(chooser.use_count(), 1);
}

TEST_F(Printing, keeps_the_chooser_until_the_document_is_filled) {
  std::vector<long> held;
  host.answers.NuevoDoc = [&](Text&, Text&, ObjectRef&) { held.push_back(chooser.use_count()); };
  host.answers.PasaDatosaDoc = [&](Variant&, Variant&, ObjectRef&) { held.push_back(chooser.use_count()); };
  print();
  EXPECT_THAT(held, ElementsAre(2, 2));
}

TEST_F(Printing, fills_the_document_with_the_notes) {
  print();
  ASSERT_THAT(passed, SizeIs(1));
  EXPECT_EQ(passed[0].word, word);
  EXPECT_EQ(at(8), u"Notas: Tiene prisa por vender.");
}

TEST_F(Printing, of_a_card_takes_its_kinds_templates_and_its_marks) {
  putTemplate(u"Visita\\Parte.dot");
  givenList(u"Visita");
  openCard([&] {
    print();
    EXPECT_THAT(chooser->journal, Contains(u"Mostrar(\\Datos\\Agencia\\Plantillas\\Visita\\*.dot)"));
    EXPECT_EQ(at(9), u"Fin: 10/03/26 - 10:45");
  });
}

TEST_F(Printing, looks_in_the_folder_of_the_kind_alone) {
  putTemplate(u"Oferta.dot");
  nota.Tipo = u"Visita";
  expectBox(u"Plantillas inexistentes.", 64, u"Plantillas");
  print();
  here.files.putFolder(folder + u"Visita");
  expectBox(u"Plantillas inexistentes.", 64, u"Plantillas");
  print();
  EXPECT_EQ(choosersMade, 0);
  EXPECT_THAT(host.events, IsEmpty());
}

TEST_F(Printing, does_nothing_when_the_user_cancels) {
  chooser->giving(u"Mostrar", false);
  print();
  EXPECT_THAT(host.events, IsEmpty());
  EXPECT_EQ(instance.FormActiva, nullptr);
}

TEST_F(Printing, reports_what_fails) {
  const struct {
    const char* what;
    std::int32_t number;
    std::function<void()> arrange;
  } cases[] = {
      {"no form on top", failure::objectNotSet, [&] { host.shows(nullptr); }},
      {"the chooser fails", failure::internalError,
       [&] { chooser->failing(u"Mostrar", failure::internalError); }},
      {"the chooser has no choice", failure::noSuchMember,
       [&] { chooser->failing(u"QueImprimir", failure::noSuchMember); }},
      {"the folder cannot be read", failure::pathNotFound,
       [&] { here.faults.failNext("Files.firstMatch", failure::pathNotFound); }},
      {"the chooser is not there", failure::classCannotBeCreated,
       [&] { here.platform.objects = &noObjects; }},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.what);
    chooser = std::make_shared<kit::FakeObject>();
    chooser->with(u"NomFich", u"").with(u"QueImprimir", folder + u"Nota\\Ficha.dot");
    chooser->giving(u"Mostrar", true);
    row.arrange();
    // Without a form on top the marks of the record cannot be told either.
    const bool passing = row.number == failure::objectNotSet;
    expectReport(passing ? u"Pasa_Datos_Dlg de CNota" : u"ImprimirNota de CNota", row.number);
    print();
    EXPECT_THAT(passed, IsEmpty());
    host.shows(host.FichaInm);
    here.platform.objects = &here.objects;
  }
}

class Mailing : public PassedMarks {};

TEST_F(Mailing, hands_over_the_marks_of_the_card_with_the_notes) {
  openCard([&] {
    EMailNota(instance);
    EXPECT_EQ(at(7), u"Notas: Tiene prisa por vender.");
  });
  EXPECT_THAT(host.events, ElementsAre(u"PasaDatosEMail()"));
}

TEST_F(Mailing, hands_over_the_marks_of_the_row_in_focus_without_a_card) {
  focusOnNotes();
  EMailNota(instance);
  EXPECT_EQ(at(26), u"Id: 120");
  EXPECT_THAT(host.events, ElementsAre(u"PasaDatosEMail()"));
}

// 3167 asks the form on top to load its records, which a card cannot: the failure is that of the next
// procedure out.
TEST_F(Mailing, of_a_note_that_another_user_has_deleted_is_reported_and_hands_over_nothing) {
  openCard([&] {
    otherUser.deletesTheRow();
    expectBox(u"La ficha acaba de ser borrada por otro usuario y\r\nno se volverá a visualizar.", 4144,
              u"Error");
    expectReport(u"EMailNota de CNota", failure::noSuchMember);
    EMailNota(instance);
    EXPECT_THAT(passed, IsEmpty());
    putAway();
  });
}

class Exporting : public kit::CardTest {
 protected:
  // Both exports of a note's list, the second as if the note were a visit.
  static constexpr struct {
    void (*run)(Instance& nota);
    TextView reporter, event;
  } exports[] = {
      {ExportarNota, u"ExportarNota de CNota", u"ExportarNotas(501)"},
      {ExportarVisita, u"ExportarVisita de CNota", u"ExportarVisitas(501)"},
  };
  static constexpr int yes = 6, no = 7, cancel = 2;

  void expectQuestion(int answer) {
    expectBox(u"¿Desea guardar los cambios realizados en la nota?", 35, u"Guardar", answer);
  }
  // Exports a changed card, the question being answered so, and puts the card away.
  void exportChanged(void (*run)(Instance& nota), int answer, const std::function<void()>& then) {
    openCard(u"Nota", {}, [&] {
      user.types(u"txtNotas", u"Nuevo texto");
      host.events.clear();
      expectQuestion(answer);
      run(instance);
      then();
      putAway();
    });
  }
};

TEST_F(Exporting, hands_over_the_key_of_the_current_row_without_a_card) {
  givenList(u"Nota", {{}, {}, {}});
  standOn(3);
  ExportarNota(instance);
  ExportarVisita(instance);
  EXPECT_THAT(host.events, ElementsAre(u"ExportarNotas(503)", u"ExportarVisitas(503)"));
}

TEST_F(Exporting, of_a_clean_card_asks_nothing) {
  for (const auto& row : exports) {
    host.events.clear();
    openCard(u"Nota", {}, [&] { row.run(instance); });
    EXPECT_THAT(host.events, ElementsAre(Text(row.event)));
  }
}

TEST_F(Exporting, of_a_changed_card_saves_it_first_if_wanted) {
  for (const auto& row : exports)
    exportChanged(row.run, yes, [&] {
      EXPECT_EQ(stored(u"Notas").text(), u"Nuevo texto");
      EXPECT_EQ(state(), limpia);
      EXPECT_THAT(host.events, ElementsAre(Text(row.event)));
    });
}

TEST_F(Exporting, of_a_changed_card_goes_on_without_saving_if_wanted) {
  for (const auto& row : exports)
    exportChanged(row.run, no, [&] {
      EXPECT_EQ(stored(u"Notas").text(), u"Tiene prisa por vender.");
      EXPECT_THAT(host.events, ElementsAre(Text(row.event)));
    });
}

TEST_F(Exporting, of_a_changed_card_is_given_up_if_wanted) {
  for (const auto& row : exports)
    exportChanged(row.run, cancel, [&] {
      EXPECT_EQ(state(), modificada);
      EXPECT_THAT(host.events, IsEmpty());
    });
}

TEST_F(Exporting, of_a_changed_card_that_cannot_be_saved_is_given_up) {
  for (const auto& row : exports) {
    here.faults.failNext("Recordset.Update", dao::failure::locked);
    openCard(u"Nota", {}, [&] {
      user.types(u"txtNotas", u"Nuevo texto");
      host.events.clear();
      expectQuestion(yes);
      expectReport(u"GrabaRegistro de CNota", dao::failure::locked);
      row.run(instance);
      EXPECT_THAT(host.events, IsEmpty());
      putAway();
    });
  }
}

TEST_F(Exporting, of_a_new_card_asks_about_it) {
  for (const auto& row : exports)
    openCard(u"Nota", {}, [&] {
      instance.EstadoFicha = nueva;
      host.events.clear();
      expectBox(u"¿Desea guardar la nueva nota?", 35, u"Guardar", yes);
      row.run(instance);
      EXPECT_THAT(host.events, ElementsAre(Text(row.event)));
      putAway();
    });
}

TEST_F(Exporting, of_a_card_that_is_being_filled_asks_nothing) {
  for (const auto& row : exports)
    openCard(u"Nota", {}, [&] {
      instance.EstadoFicha = cargando;
      row.run(instance);
      EXPECT_THAT(host.events, Contains(Text(row.event)));
      putAway();
    });
}

TEST_F(Exporting, of_a_card_whose_control_is_refused_goes_on_unsaved_and_unasked) {
  for (const auto& row : exports)
    openCard(u"Nota", {}, [&] {
      user.types(u"cboAcceso", u"Telegrama");
      host.events.clear();
      host.answers.ChkTipoAccNota = [](bool& ok, const Text&, Text&) { ok = false; };
      row.run(instance);
      EXPECT_THAT(host.events, Contains(Text(row.event)));
      EXPECT_EQ(state(), modificada);
      putAway();
    });
}

TEST_F(Exporting, of_an_empty_list_is_reported_for_notes_and_silent_for_visits) {
  givenList(u"Nota", {});
  expectReport(u"ExportarNota de CNota", dao::failure::noCurrentRecord);
  ExportarNota(instance);
  ExportarVisita(instance);
  EXPECT_THAT(host.events, IsEmpty());
}

TEST_F(Exporting, without_a_list_is_reported) {
  for (const auto& row : exports) {
    expectReport(Text(row.reporter), failure::objectNotSet);
    row.run(instance);
  }
}

TEST_F(Exporting, of_a_key_that_is_none_is_reported) {
  for (const auto& row : exports) {
    givenList(u"Nota");
    list->at(0, u"IdNota") = Null;
    expectReport(Text(row.reporter), failure::invalidUseOfNull);
    row.run(instance);
    EXPECT_THAT(host.events, IsEmpty());
  }
}

TEST_F(Exporting, reports_what_the_hosts_answer_lets_escape) {
  givenList(u"Nota");
  host.answers.ExportarNotas =
      host.answers.ExportarVisitas = [](std::int32_t) { throw Failure(failure::diskFull); };
  for (const auto& row : exports) {
    expectReport(Text(row.reporter), failure::diskFull);
    row.run(instance);
  }
}

}  // namespace
}  // namespace ovalia
