#include <gmock/gmock.h>

#include "host/SampleData.h"
#include "platform/Platform.h"
#include "tests/host/CardsOverAgency.h"

namespace ovalia::host {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {
constexpr int yes = 6, no = 7;
}

// Annotations and their documents deleted and moved in the agency's own tables, with its own engine. The
// first note of the first property has two documents, its first visit and its first advertisement one each.
class DeletionOverAgency : public CardsOverAgency {
 protected:
  DeletionOverAgency() {
    for (const SampleFile& file : sampleFiles())
      here.files.putFile(documents + u"\\" + file.path, fromUtf8(file.content));
    here.files.putFile(u"\\home\\ana\\plano.pdf", u"el plano");
  }

  std::int32_t rowsIn(TextView table) { return one(u"SELECT COUNT(*) FROM " + Text(table)).toLong(); }
  std::int32_t rowsWhere(TextView table, Text condition) {
    return one(join(u"SELECT COUNT(*) FROM ", table, u" WHERE ", condition)).toLong();
  }
  std::vector<Text> tree() { return here.files.filesBelow(documents); }
  Text stored(TextView name) const { return documents + u"\\Doc0\\" + Text(name); }

  // The list standing on an annotation.
  AnnotationList& listOn(TextView grid, std::int32_t key) {
    AnnotationList& annotations = list(grid);
    EXPECT_TRUE(annotations.goTo(key));
    return annotations;
  }
  std::vector<Text> listed() {
    std::vector<Text> names;
    for (const forms::ListItem& item : desk.top().as<forms::ListView>(u"LsvDocu")->items())
      names.push_back(item.text);
    return names;
  }

  const Text documents = logicPath(fromUtf8(workplace.agency.documents.native()));
};

TEST_F(DeletionOverAgency, a_new_annotation_that_is_not_wanted_leaves_nothing) {
  struct Row {
    TextView grid, table;
    Text question;
  };
  const Row rows[] = {{u"grdNota", u"NotaIP", u"¿Desea guardar la nueva nota?"},
                      {u"grdVisita", u"VisitaIP", u"¿Desea guardar la nueva visita?"},
                      {u"grdAnuncio", u"AnuncioIP", u"¿Desea guardar el nuevo anuncio?"},
                      {u"grdLlamada", u"LlamadaAIP", u"¿Desea guardar la nueva llamada?"}};
  const std::vector<Text> treeBefore = tree();
  for (const Row& row : rows) {
    open(u"FichaInm");
    AnnotationList& annotations = list(row.grid);
    const std::int32_t inTable = rowsIn(row.table), inList = annotations.count(),
                       newestBefore = newest(row.table);
    desk.whileShown([&] {
      EXPECT_EQ(rowsIn(row.table), inTable + 1);
      user.types(u"txtNotas", u"Pensándolo bien, no");
      expectBox(row.question, 35, u"Guardar", no);
    });
    annotations.createCard();
    EXPECT_EQ(rowsIn(row.table), inTable) << toUtf8(row.table);
    EXPECT_EQ(annotations.count(), inList);
    EXPECT_EQ(newest(row.table), newestBefore);
    EXPECT_EQ(rowsWhere(row.table, u"Notas = 'Pensándolo bien, no'"), 0);
  }
  EXPECT_EQ(tree(), treeBefore);
}

TEST_F(DeletionOverAgency,
       a_new_annotation_that_is_not_wanted_is_asked_for_its_documents_and_leaves_nothing) {
  open(u"FichaInm");
  const std::vector<Text> treeBefore = tree();
  const std::int32_t notes = rowsIn(u"NotaIP"), attached = rowsIn(u"DocuNotaIP");
  dialogs.files = {{u"\\home\\ana\\plano.pdf"}};
  desk.whileShown([&] {
    user.clicks(u"ID_BAdjuntar");
    EXPECT_EQ(rowsIn(u"DocuNotaIP"), attached + 1);
    EXPECT_EQ(tree().size(), treeBefore.size() + 1);
    EXPECT_THAT(listed(), ElementsAre(u"plano.pdf"));
    expectBox(u"¿Desea guardar la nueva nota?", 35, u"Guardar", no);
    expectBox(u"El documento adjunto se borrará.\r\n\r\n¿Desea continuar?", 36, u"Borrar", yes);
  });
  list(u"grdNota").createCard();
  EXPECT_EQ(rowsIn(u"NotaIP"), notes);
  EXPECT_EQ(rowsIn(u"DocuNotaIP"), attached);
  EXPECT_EQ(tree(), treeBefore);
  EXPECT_EQ(here.shell.recycled.size(), 1u);
  EXPECT_TRUE(here.files.exists(u"\\home\\ana\\plano.pdf"));
}

TEST_F(DeletionOverAgency, a_note_goes_with_its_documents_and_its_neighbour_comes_up) {
  open(u"FichaInm");
  AnnotationList& notes = listOn(u"grdNota", 1);
  const std::int32_t before = notes.count(), place = notes.recordset()->AbsolutePosition();
  desk.whileShown([&] {
    EXPECT_THAT(listed(), ElementsAre(u"Nota simple.txt", u"Plano del ático.txt"));
    expectBox(u"¿Desea borrar la ficha activa?", 36, u"Borrar", yes);
    expectBox(u"Los documentos adjuntos se borrarán.\r\n\r\n¿Desea continuar?", 36, u"Borrar", yes);
    user.clicks(u"ID_Borrar");
    EXPECT_TRUE(desk.top().Visible());
    EXPECT_TRUE(desk.top().Caption().ends_with(join(std::min(place + 1, before - 1), u"/", before - 1)))
        << toUtf8(desk.top().Caption());
  });
  notes.openCard();
  EXPECT_EQ(notes.count(), before - 1);
  EXPECT_EQ(rowsWhere(u"NotaIP", u"IdNota = 1"), 0);
  EXPECT_EQ(rowsWhere(u"DocuNotaIP", u"IdNota = 1"), 0);
  EXPECT_THAT(here.shell.recycled, ElementsAre(stored(u"1F01.txt"), stored(u"1F00.txt")));
  EXPECT_TRUE(here.files.exists(stored(u"1F02.txt"))) << "of a visit to the same property";
}

TEST_F(DeletionOverAgency, one_after_another_goes_until_the_list_is_empty_and_the_card_hidden) {
  open(u"FichaInm");
  AnnotationList& calls = list(u"grdLlamada");
  const std::int32_t before = rowsIn(u"LlamadaAIP"), count = calls.count();
  ASSERT_GT(count, 1);
  calls.recordset()->MoveLast();
  desk.whileShown([&] {
    for (std::int32_t left = count - 1; left >= 0; --left) {
      expectBox(u"¿Desea borrar la ficha activa?", 36, u"Borrar", yes);
      user.clicks(u"ID_Borrar");
      EXPECT_EQ(desk.top().Visible(), left > 0);
      if (left > 0) {
        EXPECT_TRUE(desk.top().Caption().ends_with(join(left, u"/", left)));
      }
    }
  });
  calls.openCard();
  EXPECT_EQ(rowsIn(u"LlamadaAIP"), before - count);
  EXPECT_EQ(calls.count(), 0);
}

TEST_F(DeletionOverAgency, an_advertisement_with_calls_stays_and_its_documents_are_gone) {
  ASSERT_GT(rowsWhere(u"LlamadaAIP", u"IdAnuncio = 1"), 0);
  open(u"FichaInm");
  AnnotationList& advertisements = listOn(u"grdAnuncio", 1);
  desk.whileShown([&] {
    expectBox(u"¿Desea borrar la ficha activa?", 36, u"Borrar", yes);
    expectBox(u"El documento adjunto se borrará.\r\n\r\n¿Desea continuar?", 36, u"Borrar", yes);
    expectBox(u"Imposible eliminar el dato ya que está siendo utilizado por otras fichas.", 64, u"Borrar");
    user.clicks(u"ID_Borrar");
    EXPECT_TRUE(desk.top().Visible());
    EXPECT_EQ(shown(u"txtNotas"), CardsOverAgency::stored(u"AnuncioIP", u"Notas", 1).text());
    EXPECT_THAT(listed(), IsEmpty());
  });
  advertisements.openCard();
  EXPECT_EQ(advertisements.currentKey(), 1);
  EXPECT_EQ(rowsWhere(u"AnuncioIP", u"IdAnuncio = 1"), 1);
  EXPECT_EQ(rowsWhere(u"DocuAnuncioIP", u"IdNota = 1"), 0);
  EXPECT_EQ(CardsOverAgency::stored(u"AnuncioIP", u"NArchivos", 1).toLong(), 0);
  EXPECT_THAT(here.shell.recycled, ElementsAre(stored(u"1F03.txt")));
}

TEST_F(DeletionOverAgency, documents_are_opened_renamed_saved_elsewhere_copied_and_deleted_from_the_card) {
  open(u"FichaInm");
  AnnotationList& notes = listOn(u"grdNota", 1);
  here.files.putFile(u"\\home\\ana\\copia.txt", u"lo de antes");
  dialogs.files = {{u"\\home\\ana\\copia"}};
  desk.whileShown([&] {
    user.doubleClicksItem(1);
    EXPECT_THAT(dialogs.opened, ElementsAre(nativePath(stored(u"1F00.txt"))));
    user.clicksItem(1);
    user.renamesItem(u"L'Hospital | \"nota\".txt");
    EXPECT_EQ(one(u"SELECT NombreOrg FROM DocuNotaIP WHERE NombreArch = '1f00.TXT'").text(),
              u"L'Hospital | \"nota\".txt");
    user.opensMenu(u"ID_mnuDocumentos");
    user.clicks(u"ID_Copiar");
    EXPECT_THAT(here.clipboard.fileList, ElementsAre(stored(u"1F00.txt")));
    user.clicks(u"ID_Guardarcomo");
    EXPECT_EQ(dialogs.question.name, u"LHospital  nota.txt");
    expectBox(u"El documento adjunto a la nota se borrará.\r\n\r\n¿Desea continuar?", 68, u"Borrar", yes);
    user.clicks(u"ID_Quitar");
    EXPECT_THAT(listed(), ElementsAre(u"Plano del ático.txt"));
    EXPECT_EQ(notes.recordset()->value(u"NArchivos").toLong(), 1);
  });
  notes.openCard();
  EXPECT_EQ(here.files.content(u"\\home\\ana\\copia.txt"), u"Nota simple informativa de la finca.\r\n");
  EXPECT_THAT(here.shell.recycled, ElementsAre(u"\\home\\ana\\copia.txt", stored(u"1F00.txt")));
  EXPECT_EQ(CardsOverAgency::stored(u"NotaIP", u"NArchivos", 1).toLong(), 1);
}

TEST_F(DeletionOverAgency, marked_notes_move_to_another_property_with_their_documents) {
  open(u"FichaInm");
  AnnotationList& notes = list(u"grdNota");
  const std::int32_t other = notes.currentKey() == 1
                                 ? one(u"SELECT Max(IdNota) FROM NotaIP WHERE IdInm = 1").toLong()
                                 : notes.currentKey();
  card->marked = [&](TextView grid) {
    EXPECT_EQ(grid, u"grdNota");
    return std::vector<std::int32_t>{1, other};
  };
  const std::int32_t before = rowsWhere(u"NotaIP", u"IdInm = 2");
  std::int32_t property = 2, client = 3;
  notes.nota().TrasladaNotas(property, client);
  EXPECT_EQ(rowsWhere(u"NotaIP", u"IdInm = 2"), before + 2);
  EXPECT_EQ(CardsOverAgency::stored(u"NotaIP", u"IdCliente", 1).toLong(), 3);
  EXPECT_EQ(rowsWhere(u"DocuNotaIP", u"IdNota = 1 AND Id = 2"), 2);
  EXPECT_EQ(here.files.content(stored(u"2F00.txt")), u"Nota simple informativa de la finca.\r\n");
  EXPECT_EQ(here.files.content(stored(u"2F01.txt")), u"Plano: salón, cocina, dos habitaciones, baño.\r\n");
  EXPECT_THAT(here.shell.recycled, ElementsAre(stored(u"1F00.txt"), stored(u"1F01.txt")));

  open(u"FichaInm", 2);
  desk.whileShown([&] {
    EXPECT_THAT(listed(), ElementsAre(u"Nota simple.txt", u"Plano del ático.txt"));
    user.doubleClicksItem(2);
  });
  listOn(u"grdNota", 1).openCard();
  EXPECT_THAT(dialogs.opened, ElementsAre(nativePath(stored(u"2F01.txt"))));
}

}  // namespace ovalia::host
