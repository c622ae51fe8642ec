#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "component/CNota.h"
#include "tests/cardkit/AgencyStatements.h"
#include "tests/cardkit/CardTest.h"
#include "tests/cardkit/ModelTables.h"
#include "tests/component/HeldNota.h"

namespace ovalia {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// What a host has made of an annotation without a card being open: its grid of notes has the focus.
class OutputMembers : private HeldNota, public kit::AgencyTest {
 protected:
  OutputMembers() : AgencyTest(*held) {}
  void SetUp() override {
    AgencyTest::SetUp();
    kit::putModelTables(*database);
    documents = kit::attachmentTable(*database, u"DocuNotaIP");
    for (const TextView name : {u"Oferta.dot", u"Nota\\Ficha.dot"}) here.files.putFile(models + Text(name));
    givenList(u"Nota");
    const auto data = std::make_shared<kit::FakeObject>();
    data->with(u"Recordset", held->crs);
    host.FichaInm->with(u"datNota", data);
    here.objects.add(u"Perlaz.CPerlaz", [this] { return chooser; });
    chooser->with(u"NomFich", u"").with(u"QueImprimir", u"\\Datos\\Agencia\\Plantillas\\Oferta.dot");
    chooser->giving(u"Mostrar", true);
  }
  void TearDown() override {
    held.reset();
    AgencyTest::TearDown();
  }

  using HeldNota::nota;
  const Text models = u"\\Datos\\Agencia\\Plantillas\\", leaf = u"\\Datos\\Agencia\\Doc1\\Doc2\\Doc0\\";
  kit::FakeTableRef documents;
  std::shared_ptr<kit::FakeObject> chooser = std::make_shared<kit::FakeObject>();
};

TEST_F(OutputMembers, attach_a_template_with_its_row_unless_told_otherwise) {
  const Text made =
      u"NuevoDoc(\\Datos\\Agencia\\Doc1\\Doc2\\Doc0\\120F00.doc, \\Datos\\Agencia\\Plantillas\\Oferta.dot)";
  nota.AdjuntarPlantilla(false);
  EXPECT_THAT(documents->rows, IsEmpty());
  nota.AdjuntarPlantilla();
  EXPECT_EQ(documents->rows.size(), 1u);
  EXPECT_THAT(host.events, ElementsAre(made, u"PasaDatosaDoc()", made, u"PasaDatosaDoc()"));
}

TEST_F(OutputMembers, print_with_a_template_of_the_kind) {
  nota.ImprimirNota();
  EXPECT_THAT(host.events,
              ElementsAre(u"NuevoDoc(\\Datos\\Agencia\\Plantillas\\Oferta.dot)", u"PasaDatosaDoc()"));
  EXPECT_THAT(documents->rows, IsEmpty());
}

TEST_F(OutputMembers, mail) {
  nota.EMailNota();
  EXPECT_THAT(host.events, ElementsAre(u"PasaDatosEMail()"));
}

TEST_F(OutputMembers, make_a_model_of_a_stored_name_and_speak_of_the_shown_one) {
  givenList(u"Nota", {{{u"NArchivos", 1}}});
  Text stored = u"120F07.doc", shown = u"Plano";
  expectBox(u"El documento adjunto (Plano) no existe.", 48, u"Modelo");
  nota.CrearModelo(stored, shown);
  here.files.putFile(u"\\Datos\\Agencia\\Doc1\\Doc2\\Doc0\\120F07.doc");
  // The file is there: the form comes next, and asks the host for a subject.
  host.shows(nullptr);
  expectReport(u"CrearModelo de CNota", failure::objectNotSet);
  nota.CrearModelo(stored, shown);
}

TEST_F(OutputMembers, make_a_model_that_the_user_names) {
  givenList(u"Nota", {{{u"NArchivos", 1}}});
  here.files.putFile(leaf + u"120F07.doc", u"texto de la carta");
  const auto noBoxes = std::make_shared<kit::FakeObject>();
  noBoxes->failing(u"", failure::noSuchControl);
  host.FichaInm->with(u"Controls", noBoxes);
  Text stored = u"120F07.doc", shown = u"Carta.doc";
  desk.whileShown([&] {
    user.types(u"txtNotas", u"Para vendedores");
    user.clicks(u"cmdAceptar");
  });
  nota.CrearModelo(stored, shown);
  EXPECT_EQ(here.files.content(models + u"Carta.doc"), u"texto de la carta");
  EXPECT_THAT(kit::models(*database), ElementsAre(u"1: Carta.doc < Para vendedores, Null, Null"));
  EXPECT_EQ(host.panel->property(u"Text").text(), u"Listo");
}

TEST_F(OutputMembers, attach_a_model_with_its_row_unless_told_otherwise) {
  here.files.putFile(models + u"Contrato.pdf", u"el modelo");
  kit::putModel(*database, u"Contrato.pdf");
  const auto take = [&] { user.clicks(u"cmdAceptar"); };
  desk.whileShown(take).whileShown(take);
  nota.AdjuntarModelo(false);
  EXPECT_EQ(here.files.content(leaf + u"120F00.pdf"), u"el modelo");
  EXPECT_THAT(documents->rows, IsEmpty());
  nota.AdjuntarModelo();
  EXPECT_EQ(here.files.content(leaf + u"120F01.pdf"), u"el modelo");
  ASSERT_EQ(documents->rows.size(), 1u);
  EXPECT_EQ(documents->at(0, u"NombreOrg").text(), u"Contrato.pdf");
  EXPECT_EQ(documents->at(0, u"NombreArch").text(), u"120F01.pdf");
  EXPECT_EQ(stored(u"NArchivos").toLong(), 1);
  EXPECT_THAT(host.events, ElementsAre(join(u"AbrirDoc(", leaf, u"120F00.pdf)"),
                                       join(u"AbrirDoc(", leaf, u"120F01.pdf)")));
}

TEST_F(OutputMembers, of_a_component_that_was_given_nothing_tell_it_and_raise_nothing) {
  CNota bare;
  bare.AppDirUser = u"\\Datos\\Nadie";
  for (int i = 0; i < 2; ++i) expectBox(u"Plantillas inexistentes.", 64, u"Plantillas");
  expectReport(u"AdjuntarModelo de CNota", failure::objectNotSet);
  expectReport(u"Pasa_Datos_Dlg de CNota", failure::objectNotSet);
  bare.AdjuntarPlantilla();
  bare.ImprimirNota();
  bare.AdjuntarModelo();
  bare.EMailNota();
}

}  // namespace
}  // namespace ovalia
