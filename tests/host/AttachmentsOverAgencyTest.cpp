#include <gmock/gmock.h>

#include "platform/Platform.h"
#include "routines/Collection.h"
#include "tests/host/CardsOverAgency.h"

namespace ovalia::host {

// Files attached to the agency's annotations, with its own lists, tables and engine.
class AttachmentsOverAgency : public CardsOverAgency {
 protected:
  AttachmentsOverAgency() {
    here.files.putFolder(documents.substr(0, documents.rfind(u'\\')));
    here.files.putFile(u"\\home\\ana\\plano.pdf", u"el plano");
    here.files.putFile(u"\\home\\ana\\carta.docx", u"la carta");
  }

  std::int32_t rowsOf(TextView table, std::int32_t annotation) {
    return one(u"SELECT COUNT(*) FROM " + Text(table) + u" WHERE IdNota = " + toText(annotation)).toLong();
  }
  // Of the row written last.
  Text newestRow(TextView table) {
    const auto rows = database().OpenRecordset(u"SELECT * FROM " + Text(table) + u" ORDER BY IdDocu DESC",
                                               dao::dbOpenSnapshot);
    return join(rows->value(u"Id"), u" ", rows->value(u"IdNota"), u" ", rows->value(u"NombreOrg"), u" < ",
                rows->value(u"NombreArch"));
  }
  // The files in the tree that have such contents.
  std::size_t filesHolding(TextView content) {
    std::size_t count = 0;
    for (const Text& path : here.files.filesBelow(documents))
      count += here.files.content(documents + u"\\" + path) == content;
    return count;
  }
  static ObjectRef dragged(TextView path) {
    auto files = std::make_shared<Collection>();
    files->add(path);
    auto data = std::make_shared<MemberTable>();
    data->method(u"GetFormat", [](Arguments) -> Variant { return true; });
    data->property(u"Files", [files](Arguments place) -> Variant {
      return place.empty() ? Variant(files) : files->get(u"", place);
    });
    return data;
  }

  const Text documents = logicPath(fromUtf8(workplace.agency.documents.native()));
};

TEST_F(AttachmentsOverAgency, files_chosen_on_a_card_with_unsaved_changes_are_counted_on_its_row) {
  open(u"FichaInm");
  AnnotationList& notes = list(u"grdNota");
  const std::int32_t key = notes.currentKey();
  const std::int32_t before = stored(u"NotaIP", u"NArchivos", key).toLong();
  const Text notesBefore = stored(u"NotaIP", u"Notas", key).text();
  dialogs.files = {{u"\\home\\ana\\plano.pdf", u"\\home\\ana\\carta.docx"}};
  desk.whileShown([&] {
    user.types(u"txtNotas", u"Sin guardar");
    user.clicks(u"ID_BAdjuntar");
    EXPECT_EQ(stored(u"NotaIP", u"NArchivos", key).toLong(), before + 2);
    EXPECT_EQ(stored(u"NotaIP", u"Notas", key).text(), notesBefore);
    EXPECT_EQ(shown(u"txtNotas"), u"Sin guardar");
    user.clicks(u"ID_Guardar");
  });
  notes.openCard();
  EXPECT_EQ(stored(u"NotaIP", u"NArchivos", key).toLong(), before + 2) << "the save takes nothing back";
  EXPECT_EQ(stored(u"NotaIP", u"Notas", key).text(), u"Sin guardar");
  EXPECT_TRUE(newestRow(u"DocuNotaIP").starts_with(join(1, u" ", key, u" carta.docx < 1F")));
  EXPECT_TRUE(newestRow(u"DocuNotaIP").ends_with(u".doc"));
  EXPECT_EQ(filesHolding(u"el plano"), 1u);
  EXPECT_EQ(filesHolding(u"la carta"), 1u);
  EXPECT_EQ(here.settings.stored(u"Agencia", u"Settings", u"DirDocumentos"), u"\\home\\ana");
}

TEST_F(AttachmentsOverAgency, a_file_dropped_on_a_card_of_each_kind_is_attached_where_the_list_keeps_them) {
  struct Row {
    TextView grid, table, attachments;
  };
  constexpr Row rows[] = {{u"grdNota", u"NotaIP", u"DocuNotaIP"},
                          {u"grdVisita", u"VisitaIP", u"DocuVisitaIP"},
                          {u"grdAnuncio", u"AnuncioIP", u"DocuAnuncioIP"},
                          {u"grdLlamada", u"LlamadaAIP", u""}};
  std::size_t attached = 0;
  for (const Row& row : rows) {
    open(u"FichaInm");
    AnnotationList& annotations = list(row.grid);
    const std::int32_t key = annotations.currentKey();
    desk.whileShown([&] {
      forms::Form& form = desk.top();
      std::int32_t effect = 9;
      form.userDragsOver(*form.control(u"LsvDocu"), dragged(u"\\home\\ana\\plano.pdf"), effect);
      EXPECT_EQ(effect, row.attachments.empty() ? 0 : 1);
      form.userDrops(*form.control(u"LsvDocu"), dragged(u"\\home\\ana\\plano.pdf"));
      if (row.attachments.empty()) return;
      EXPECT_TRUE(newestRow(row.attachments).starts_with(join(1, u" ", key, u" plano.pdf < 1F")));
      ++attached;
    });
    annotations.openCard();
    EXPECT_EQ(filesHolding(u"el plano"), attached);
  }
  EXPECT_EQ(attached, 3u);
}

// The archived lists are no part of a card of this host: the component's object works on one of its own.
TEST_F(AttachmentsOverAgency, an_archives_row_takes_a_key_that_the_live_table_never_gives_again) {
  open(u"FichaInm");
  CNota& nota = list(u"grdNota").nota();
  nota.Nota = u"NotaIArch";
  nota.DocuAsoc = u"DocuNotaIArch";
  nota.crs = database().OpenRecordset(
      u"SELECT NotaIArch.IdNota, NotaIArch.IdInm AS Id, NotaIArch.IdNota AS IdAnota, NArchivos FROM "
      u"NotaIArch",
      dao::dbOpenDynaset);
  const std::int32_t key = nota.crs->value(u"IdAnota").toLong();
  const std::int32_t counted = nota.crs->value(u"NArchivos").toLong();
  const std::int32_t live = one(u"SELECT COUNT(*) FROM DocuNotaIP").toLong();

  const std::int32_t before = rowsOf(u"DocuNotaIArch", key);
  EXPECT_TRUE(nota.AniadirArch(u"\\home\\ana\\l'Hospitalet|1.pdf", u"9F00.pdf"));
  const std::int32_t first = one(u"SELECT Max(IdDocu) FROM DocuNotaIArch").toLong();
  EXPECT_TRUE(nota.AniadirArch(u"\\home\\ana\\plano.pdf", u"9F01.pdf"));
  const std::int32_t second = one(u"SELECT Max(IdDocu) FROM DocuNotaIArch").toLong();
  EXPECT_GT(second, first);
  EXPECT_EQ(rowsOf(u"DocuNotaIArch", key), before + 2);
  EXPECT_EQ(one(u"SELECT COUNT(*) FROM DocuNotaIP").toLong(), live) << "what was lent is given back";
  EXPECT_EQ(one(join(u"SELECT NombreOrg FROM DocuNotaIArch WHERE IdDocu = ", first)).text(),
            u"l'Hospitalet|1.pdf");
  EXPECT_EQ(nota.crs->value(u"NArchivos").toLong(), counted + 2);

  database().Execute(
      u"INSERT INTO DocuNotaIP (Id, IdAgencia, IdNota, NombreOrg, NombreArch) "
      u"SELECT Id, IdAgencia, IdNota, NombreOrg, NombreArch FROM DocuNotaIP WHERE IdDocu = 1");
  EXPECT_GT(one(u"SELECT Max(IdDocu) FROM DocuNotaIP").toLong(), second);
}

TEST_F(AttachmentsOverAgency, a_row_that_the_engine_refuses_leaves_the_file_and_is_told) {
  open(u"FichaInm");
  CNota& nota = list(u"grdNota").nota();
  const std::int32_t before = nota.crs->value(u"NArchivos").toLong();
  database().Execute(u"CREATE UNIQUE INDEX solo_uno ON DocuNotaIP (NombreArch)");
  EXPECT_TRUE(nota.AniadirArch(u"plano.pdf", u"1F900.pdf"));
  expectBox(u"RecordsAffected = 0", 16, u"AniadirArch");
  EXPECT_FALSE(nota.AniadirArch(u"carta.pdf", u"1F900.pdf"));
  EXPECT_EQ(nota.crs->value(u"NArchivos").toLong(), before + 1);
}

}  // namespace ovalia::host
