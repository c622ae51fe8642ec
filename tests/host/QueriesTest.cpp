#include "host/Queries.h"

#include "tests/host/HostTest.h"

namespace ovalia::host {
namespace {

// What the component reads and writes by kind.
const std::vector<TextView>& fieldsOf(Kind kind) {
  static const std::map<Kind, std::vector<TextView>> fields = {
      {Kind::Nota,
       {u"Id", u"Asunto", u"TipoAccNota", u"IdTipoAccNota", u"Categorias", u"Aviso", u"FechaAviso",
        u"UsuarioAviso", u"IdUsuarioAviso", u"IdAgencia", u"NAgencia", u"NArchivos", u"IdCliente"}},
      {Kind::Visita,
       {u"Id",       u"Asunto",        u"TipoAccNota", u"IdTipoAccNota", u"Categorias",  u"FechaComienzo",
        u"FechaFin", u"Donde",         u"Cliente",     u"IdCliente",     u"IdComercial", u"IdComercial2",
        u"Agencia",  u"IdOtraAgencia", u"Aviso",       u"TiempoAviso",   u"Confirmada",  u"Realizada",
        u"Anulada",  u"IdAgencia",     u"NAgencia",    u"NArchivos"}},
      {Kind::Anuncio,
       {u"Id", u"Donde", u"TipoAccNota", u"IdTipoAccNota", u"Categorias", u"FechaInicio", u"NDias",
        u"FechaEnvio", u"Enviar", u"IdAgencia", u"NAgencia", u"NArchivos", u"IdCliente"}},
      {Kind::Llamada, {u"IdAnuncio"}}};
  return fields.at(kind);
}

}  // namespace

class Queries : public HostTest {
 protected:
  dao::RecordsetRef open(const ListDesign& design, std::int32_t parent = 1) {
    return database().OpenRecordset(listQuery(design, parent), dao::dbOpenDynaset);
  }
};

TEST_F(Queries, every_list_has_rows_for_the_first_parent) {
  for (const ListDesign& design : lists())
    EXPECT_GT(open(design)->RecordCount(), 0) << toUtf8(design.form) << " " << toUtf8(design.grid);
}

TEST_F(Queries, every_list_delivers_what_the_component_reads) {
  for (const ListDesign& design : lists()) {
    const auto rows = open(design);
    const Kind kind = annotationTable(design.table).kind;
    EXPECT_EQ(rows->fields().at(0)->Name(), kindKey(kind));
    for (TextView field :
         {u"IdAnota", u"IdUsuario", u"Usuario", u"FechaAlta", u"FechaActualizacion", u"Notas"})
      EXPECT_TRUE(rows->fields().contains(field)) << toUtf8(design.table) << " " << toUtf8(field);
    for (TextView field : fieldsOf(kind))
      EXPECT_TRUE(rows->fields().contains(field)) << toUtf8(design.table) << " " << toUtf8(field);
  }
}

TEST_F(Queries, calls_have_no_parent_column_and_no_attachments) {
  const auto rows = open(list(u"FichaInm", u"grdLlamada"));
  EXPECT_FALSE(rows->fields().contains(u"Id"));
  EXPECT_FALSE(rows->fields().contains(u"NArchivos"));
}

TEST_F(Queries, only_lists_of_properties_name_the_property) {
  EXPECT_TRUE(open(list(u"FichaInm", u"grdVisita"))->fields().contains(u"IdInm"));
  EXPECT_FALSE(open(list(u"FichaUsuario", u"grdVisita"))->fields().contains(u"IdInm"));
  EXPECT_TRUE(open(list(u"FichaUsuario", u"grdVisitaInm"))->fields().contains(u"IdInm"));
  EXPECT_FALSE(open(list(u"FichaExpV", u"grdNota"))->fields().contains(u"IdInm"));
}

TEST_F(Queries, every_list_is_an_updatable_dynaset) {
  for (const ListDesign& design : lists()) {
    const auto rows = open(design);
    const auto key = rows->value(u"IdAnota").toLong();
    rows->Edit();
    rows->setValue(u"Notas", u"escrito por la prueba");
    rows->setValue(u"FechaActualizacion", Date{46000.5});
    rows->setValue(u"IdUsuario", std::int32_t(2));
    ASSERT_NO_THROW(rows->Update()) << toUtf8(design.table);
    EXPECT_EQ(one(u"SELECT Notas FROM " + Text(design.table) + u" WHERE " +
                  Text(kindKey(annotationTable(design.table).kind)) + u" = " + toText(key))
                  .text(),
              u"escrito por la prueba");
  }
}

TEST_F(Queries, the_parent_is_written_through_its_common_name) {
  database().Execute(u"INSERT INTO VisitaIP (IdComercial) VALUES (3)");
  const ListDesign& diary = list(u"FichaUsuario", u"grdVisita");
  const auto rows = open(diary, 3);
  rows->FindFirst(u"Id Is Null AND FechaAlta Is Null");
  ASSERT_FALSE(rows->NoMatch());
  const auto key = rows->value(u"IdAnota").toLong();
  rows->Edit();
  rows->setValue(u"Id", std::int32_t(3));
  rows->Update();
  EXPECT_EQ(one(u"SELECT IdUsu FROM VisitaIP WHERE IdVisita = " + toText(key)).toLong(), 3);
}

TEST_F(Queries, a_row_is_found_by_parent_author_and_moment) {
  for (const ListDesign& design : lists()) {
    if (design.grid == u"grdLlamada") continue;
    const auto rows = open(design);
    rows->MoveLast();
    while (rows->value(u"FechaAlta").isNull() || rows->value(u"Id").isNull()) rows->MovePrevious();
    const Date made = rows->value(u"FechaAlta").toDate();
    const auto key = rows->value(u"IdAnota").toLong();
    const Text moment =
        formatDate(made, u"mm/dd/yy", Regional()) + u" " + formatDate(made, u"hh:nn:ss", Regional());
    rows->FindFirst(u"Id = " + rows->value(u"Id").text() + u" AND IdUsuario = " +
                    rows->value(u"IdUsuario").text() + u" AND FechaAlta = #" + moment + u"#");
    ASSERT_FALSE(rows->NoMatch()) << toUtf8(design.table);
    EXPECT_EQ(rows->value(u"IdAnota").toLong(), key) << toUtf8(design.table);
  }
}

TEST_F(Queries, lists_begin_with_the_newest) {
  const auto rows = open(list(u"FichaInm", u"grdNota"));
  double last = rows->value(u"FechaAlta").toDate().days;
  for (rows->MoveNext(); !rows->isEOF(); rows->MoveNext()) {
    const Variant date = rows->value(u"FechaAlta");
    const double days = date.isNull() ? -1 : date.toDate().days;
    EXPECT_LE(days, last);
    last = days;
  }
}

TEST_F(Queries, each_appointment_and_visit_of_a_user_is_in_one_list_under_what_it_hangs_on) {
  const auto appointments = open(list(u"FichaUsuario", u"grdVisita"), 3);
  EXPECT_GT(appointments->RecordCount(), 0);
  appointments->FindFirst(u"Id <> 3");
  EXPECT_TRUE(appointments->NoMatch());
  const auto visits = open(list(u"FichaUsuario", u"grdVisitaInm"), 3);
  EXPECT_GT(visits->RecordCount(), 0);
  visits->FindFirst(u"Id Is Null Or Id <> IdInm Or IdComercial <> 3");
  EXPECT_TRUE(visits->NoMatch());
  const auto others = open(list(u"FichaUsuario", u"grdCita"), 3);
  EXPECT_GT(others->RecordCount(), 0);
  others->FindFirst(u"Id Is Null Or Id = 3 Or IdComercial <> 3");
  EXPECT_TRUE(others->NoMatch());
  EXPECT_EQ(appointments->RecordCount() + visits->RecordCount() + others->RecordCount(),
            one(u"SELECT Count(*) FROM VisitaIP WHERE IdComercial = 3 OR IdUsu = 3").toLong());
}

TEST_F(Queries, deleting_takes_the_annotation_and_leaves_the_people) {
  const auto rows = open(list(u"FichaInm", u"grdVisita"));
  const auto before = rows->RecordCount();
  rows->MoveLast();
  rows->Delete();
  EXPECT_EQ(open(list(u"FichaInm", u"grdVisita"))->RecordCount(), before - 1);
  EXPECT_EQ(one(u"SELECT Count(*) FROM Usuario").toLong(), 8);
}

TEST_F(Queries, whole_tables_open_in_the_same_shape) {
  for (const AnnotationTable& annotation : annotationTables())
    EXPECT_EQ(database().OpenRecordset(wholeTableQuery(annotation))->RecordCount(),
              one(u"SELECT Count(*) FROM " + Text(annotation.name)).toLong());
}

TEST_F(Queries, grids_show_fields_that_their_lists_have) {
  for (const ListDesign& design : lists())
    for (const GridColumn& column : gridColumns(annotationTable(design.table).kind))
      EXPECT_TRUE(open(design)->fields().contains(column.field)) << toUtf8(column.field);
}

TEST(QueryTexts, a_literal_doubles_its_quotes) { EXPECT_EQ(literal(u"O'Donnell"), u"'O''Donnell'"); }

TEST(QueryTexts, what_is_looked_for_holds_no_wildcards) {
  EXPECT_EQ(containing(u"50% [a*b]?#'"), u"'*50% [[]a[*]b][?][#]''*'");
}

TEST_F(Queries, a_search_takes_its_text_to_the_letter) {
  database().Execute(u"INSERT INTO Cliente (Alias) VALUES ('a*b')");
  database().Execute(u"INSERT INTO Cliente (Alias) VALUES ('axb')");
  EXPECT_EQ(one(u"SELECT Count(*) FROM Cliente WHERE Alias Like " + containing(u"A*B")).toLong(), 1);
}

}  // namespace ovalia::host
