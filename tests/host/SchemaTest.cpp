#include "host/Schema.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/host/HostTest.h"

namespace ovalia::host {

TEST(Schema, a_table_stands_behind_those_it_refers_to) {
  std::set<Text> before;
  for (const Table& design : schema()) {
    for (const Column& column : design.columns) {
      const bool settled = column.references.empty() || before.contains(Text(column.references));
      EXPECT_TRUE(settled) << toUtf8(design.name) << "." << toUtf8(column.name);
    }
    before.emplace(design.name);
  }
}

TEST(Schema, every_table_begins_with_its_only_key) {
  for (const Table& design : schema())
    for (const Column& column : design.columns)
      EXPECT_EQ(column.type == ColumnType::Key, &column == &design.columns.front()) << toUtf8(design.name);
}

TEST(Schema, every_table_that_can_be_moved_has_a_client) {
  for (const AnnotationTable& annotation : annotationTables()) {
    if (annotation.kind == Kind::Llamada) continue;
    EXPECT_NO_THROW(table(annotation.name).position(u"IdCliente")) << toUtf8(annotation.name);
  }
}

TEST(Schema, the_key_of_annotations_is_named_after_their_kind) {
  for (const AnnotationTable& annotation : annotationTables())
    EXPECT_EQ(table(annotation.name).columns.front().name, u"Id" + Text(kindName(annotation.kind)));
}

TEST(Schema, archives_have_the_live_tables_that_attachments_borrow_their_keys_from) {
  struct Archive {
    TextView attachments, liveAttachments, liveAnnotations, parent;
  };
  constexpr Archive archives[] = {{u"DocuNotaIArch", u"DocuNotaIP", u"NotaIP", u"IdInm"},
                                  {u"DocuAnuncioIArch", u"DocuAnuncioIP", u"AnuncioIP", u"IdInm"},
                                  {u"DocuNotaProyArch", u"DocuNotaProy", u"NotaProy", u"IdPrincipal"},
                                  {u"DocuNotaExpArch", u"DocuNotaExp", u"NotaExp", u"IdExpVivo"}};
  for (const Archive& archive : archives) {
    EXPECT_NO_THROW(table(archive.attachments));
    EXPECT_NO_THROW(table(archive.liveAttachments).position(u"IdDocu"));
    EXPECT_NO_THROW(table(archive.liveAnnotations).position(archive.parent));
  }
}

TEST(Schema, people_at_a_visit_may_be_gone_so_they_are_no_references) {
  const Table& visits = table(u"VisitaIP");
  EXPECT_TRUE(visits.columns[visits.position(u"IdComercial")].references.empty());
  EXPECT_TRUE(visits.columns[visits.position(u"IdComercial2")].references.empty());
}

TEST(Schema, an_unknown_table_or_column_is_not_in_the_collection) {
  EXPECT_THROW(table(u"NoHay"), Failure);
  EXPECT_THROW(table(u"Usuario").position(u"NoHay"), Failure);
  EXPECT_THROW(annotationTable(u"Usuario"), Failure);
}

class SchemaInTheFile : public HostTest {};

TEST_F(SchemaInTheFile, every_table_opens_with_its_columns_in_order) {
  for (const Table& design : schema()) {
    const auto rows = database().OpenRecordset(design.name);
    ASSERT_EQ(rows->fields().count(), design.columns.size()) << toUtf8(design.name);
    for (std::size_t i = 0; i < design.columns.size(); ++i)
      EXPECT_EQ(rows->fields().at(i)->Name(), design.columns[i].name);
  }
}

TEST_F(SchemaInTheFile, columns_are_delivered_in_the_types_of_the_model) {
  struct Expected {
    TextView table, column;
    dao::DataType type;
  };
  constexpr Expected rows[] = {
      {u"NotaIP", u"IdNota", dao::dbLong},       {u"NotaIP", u"Asunto", dao::dbText},
      {u"NotaIP", u"Notas", dao::dbMemo},        {u"NotaIP", u"Aviso", dao::dbBoolean},
      {u"NotaIP", u"FechaAlta", dao::dbDate},    {u"NotaIP", u"NArchivos", dao::dbInteger},
      {u"AnuncioIP", u"NDias", dao::dbByte},     {u"Inmueble", u"Precio", dao::dbCurrency},
      {u"VisitaIP", u"TiempoAviso", dao::dbDate}};
  for (const Expected& row : rows)
    EXPECT_EQ(database().TableDefs(row.table)->Fields().item(row.column)->Type(), row.type)
        << toUtf8(row.column);
}

TEST_F(SchemaInTheFile, keys_number_themselves_and_are_never_given_twice) {
  database().Execute(u"INSERT INTO NotaIP (IdInm) VALUES (1)");
  const auto key = one(u"SELECT Max(IdNota) FROM NotaIP").toLong();
  database().Execute(u"DELETE * FROM NotaIP WHERE IdNota = " + toText(key));
  database().Execute(u"INSERT INTO NotaIP (IdInm) VALUES (1)");
  EXPECT_EQ(one(u"SELECT Max(IdNota) FROM NotaIP").toLong(), key + 1);
}

TEST_F(SchemaInTheFile, a_new_row_has_no_attachments_yet) {
  database().Execute(u"INSERT INTO NotaIP (IdInm, Asunto) VALUES (1, 'recién puesta')");
  EXPECT_EQ(one(u"SELECT NArchivos FROM NotaIP WHERE Asunto = 'recién puesta'").toLong(), 0);
}

TEST_F(SchemaInTheFile, a_row_of_no_parent_is_refused_but_a_visit_may_have_none) {
  database().Execute(u"INSERT INTO NotaIP (IdInm) VALUES (999999)");
  EXPECT_EQ(database().RecordsAffected(), 0);
  database().Execute(u"INSERT INTO VisitaIP (IdInm, IdComercial) VALUES (Null, 99)");
  EXPECT_EQ(database().RecordsAffected(), 1);
}

TEST_F(SchemaInTheFile, an_advertisement_with_calls_cannot_be_deleted) {
  const auto rows = database().OpenRecordset(
      u"SELECT * FROM AnuncioIP WHERE IdAnuncio IN (SELECT IdAnuncio FROM LlamadaAIP)");
  try {
    rows->Delete();
    FAIL() << "deleted";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.number(), dao::failure::referenced);
  }
}

}  // namespace ovalia::host
