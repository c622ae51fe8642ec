#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/cardkit/AgencyStatements.h"
#include "tests/cardkit/CardTest.h"
#include "tests/component/HeldNota.h"

namespace ovalia {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int yes = 6, no = 7;

// What a host deletes and moves by the component's members.
class DeletionMembers : private HeldNota, public kit::AgencyTest {
 protected:
  DeletionMembers() : AgencyTest(*held) {}
  void SetUp() override {
    AgencyTest::SetUp();
    kit::answersAttachments(*database);
    documents = kit::attachmentTable(*database, u"DocuNotaIP");
    documents->add({1, 120, 1, 502, u"plano.pdf", u"120F00.pdf"});
    here.files.putFile(path);
    givenList(u"Nota", {{}, {{u"NArchivos", 1}}, {}});
    standOn(2);
  }
  void TearDown() override {
    held.reset();
    AgencyTest::TearDown();
  }

  std::vector<std::int32_t> keys() const {
    std::vector<std::int32_t> all;
    for (const kit::FakeRowRef& row : list->rows) all.push_back(row->values[0].toLong());
    return all;
  }
  void expectOneQuestion(int answer) {
    expectBox(u"El documento adjunto se borrará.\r\n\r\n¿Desea continuar?", 36, u"Borrar", answer);
  }

  using HeldNota::nota;
  const Text path = u"\\Datos\\Agencia\\Doc1\\Doc2\\Doc0\\120F00.pdf";
  kit::FakeTableRef documents;
};

TEST_F(DeletionMembers, delete_the_annotation_on_the_card_after_asking) {
  desk.whileShown([&] {
    expectBox(u"¿Desea borrar la ficha activa?", 36, u"Borrar", no);
    nota.Borrar();
    EXPECT_EQ(keys().size(), 3u);
    expectBox(u"¿Desea borrar la ficha activa?", 36, u"Borrar", yes);
    expectOneQuestion(yes);
    nota.Borrar();
    EXPECT_THAT(keys(), ElementsAre(501, 503));
    nota.Borrar(false);
    EXPECT_THAT(keys(), ElementsAre(501));
    nota.Borrar(false, u"UnLoad");
    EXPECT_THAT(keys(), IsEmpty());
    EXPECT_FALSE(desk.top().Visible());
  });
  nota.AbreNota();
  EXPECT_FALSE(here.files.exists(path));
}

TEST_F(DeletionMembers, delete_the_current_annotation_or_a_given_one) {
  standOn(1);
  desk.whileShown([&] {
    std::int32_t key = 503;
    nota.BorrarUno(key);
    EXPECT_EQ(key, 503);
    EXPECT_THAT(keys(), ElementsAre(501, 502));
    expectOneQuestion(yes);
    nota.BorrarUno();
    EXPECT_THAT(keys(), ElementsAre(501));
  });
  nota.AbreNota();
}

TEST_F(DeletionMembers, delete_one_attachment_after_asking_unless_told_otherwise) {
  Text stored = u"120F00.pdf";
  expectBox(u"El documento adjunto a la nota se borrará.\r\n\r\n¿Desea continuar?", 68, u"Borrar", no);
  EXPECT_FALSE(nota.BorrarDocNota(stored));
  EXPECT_TRUE(here.files.exists(path));
  bool ask = false;
  EXPECT_TRUE(nota.BorrarDocNota(stored, ask));
  EXPECT_FALSE(here.files.exists(path));
  EXPECT_THAT(documents->rows, IsEmpty());
  EXPECT_EQ(this->stored(u"NArchivos", 2).toLong(), 0);
  EXPECT_EQ(stored, u"120F00.pdf");
  EXPECT_FALSE(ask);
}

TEST_F(DeletionMembers, do_the_steps_around_a_deletion_by_themselves) {
  desk.whileShown([&] {
    expectOneQuestion(no);
    EXPECT_FALSE(nota.SemiBorrar(502));
    expectOneQuestion(yes);
    EXPECT_TRUE(nota.SemiBorrar(502));
    nota.AfterBorrar(502);
  });
  nota.AbreNota();
  EXPECT_EQ(keys().size(), 3u);
  EXPECT_THAT(documents->rows, IsEmpty());
}

TEST_F(DeletionMembers, list_the_attachments_again) {
  desk.whileShown([&] {
    const auto shown = desk.top().as<forms::ListView>(u"LsvDocu");
    EXPECT_EQ(shown->items().size(), 1u);
    documents->at(0, u"NombreOrg") = u"otro nombre.zip";
    nota.RefrescoDocs();
    EXPECT_EQ(shown->item(1).text, u"otro nombre.zip");
    EXPECT_EQ(shown->item(1).icon, u"zip");
  });
  nota.AbreNota();
}

TEST_F(DeletionMembers, move_what_is_marked_in_the_hosts_grid) {
  const auto grid = kit::named(u"grdNota"), column = std::make_shared<kit::FakeObject>(),
             marks = std::make_shared<kit::FakeObject>();
  marks->with(u"Count", 1);
  grid->answering(u"SelBookmarks",
                  [marks](Arguments place) { return place.empty() ? Variant(marks) : Variant(u"m"); });
  column->giving(u"CellText", u"502");
  grid->giving(u"Columns", column);
  host.FichaInm->with(u"grdNota", grid);
  const auto notes = database->table(
      u"NotaIP", {{u"IdNota", dao::dbLong}, {u"IdInm", dao::dbLong}, {u"IdCliente", dao::dbLong}},
      {{502, 120, 21}});
  std::int32_t record = 4073, client = 22;
  nota.TrasladaNotas(record, client);
  EXPECT_EQ(notes->at(0, u"IdInm").toLong(), 4073);
  EXPECT_EQ(notes->at(0, u"IdCliente").toLong(), 22);
  EXPECT_EQ(documents->at(0, u"NombreArch").text(), u"4073F00.pdf");
  EXPECT_TRUE(here.files.exists(u"\\Datos\\Agencia\\Doc4\\Doc0\\Doc7\\Doc0\\4073F00.pdf"));
}

}  // namespace
}  // namespace ovalia
