#include "host/Schema.h"

#include <algorithm>

#include "platform/dao.h"

namespace ovalia::host {

namespace {

using enum ColumnType;

struct PlainTable {
  TextView name;
  std::vector<Column> columns;
};

const std::vector<PlainTable>& plainTables() {
  static const std::vector<PlainTable> tables = {
      {u"Usuario",
       {{u"IdUsuario", Key},
        {u"Nombre", VarChar, 50, {}, true},
        {u"Cargo", VarChar, 50},
        {u"Tfno", VarChar, 20},
        {u"Correo", VarChar, 80},
        {u"FechaAlta", DateTime},
        {u"Notas", Memo}}},
      {u"Cliente",
       {{u"IdCliente", Key},
        {u"Alias", VarChar, 80, {}, true},
        {u"Tfno1", VarChar, 20},
        {u"Tfno2", VarChar, 20},
        {u"Correo", VarChar, 80},
        {u"Notas", Memo}}},
      {u"Agencia",
       {{u"IdAgencia", Key},
        {u"Alias", VarChar, 80, {}, true},
        {u"Tfno", VarChar, 20},
        {u"Poblacion", VarChar, 50}}},
      {u"TipoAccNota", {{u"IdTipoAccNota", Key}, {u"Nombre", VarChar, 50, {}, true}}},
      {u"TipoCatNota", {{u"IdTipoCatNota", Key}, {u"Nombre", VarChar, 50, {}, true}}},
      {u"TipoMedioPubli", {{u"IdTipoMedioPubli", Key}, {u"Nombre", VarChar, 50, {}, true}}},
      {u"Materia", {{u"IdMateria", Key}, {u"Nombre", VarChar, 50, {}, true}}},
      {u"TipoMateria",
       {{u"IdTipoMateria", Key},
        {u"Nombre", VarChar, 50, {}, true},
        {u"IdMateria", Long, 0, u"Materia", true}}},
      {u"Plantilla",
       {{u"IdPlantilla", Key},
        {u"Nombre", VarChar, 255, {}, true},
        {u"Notas", Memo},
        {u"IdMateria", Long, 0, u"Materia"},
        {u"IdTipoMateria", Long, 0, u"TipoMateria"}}},
      {u"Inmueble",
       {{u"IdInm", Key},
        {u"Referencia", VarChar, 12, {}, true},
        {u"TipoInm", VarChar, 30},
        {u"Direccion", VarChar, 100},
        {u"Numero", VarChar, 10},
        {u"Piso", VarChar, 20},
        {u"CodPostal", VarChar, 5},
        {u"Poblacion", VarChar, 50},
        {u"Superficie", Short},
        {u"Precio", Money},
        {u"GastosComu", Money},
        {u"IdPropietario", Long, 0, u"Cliente"},
        {u"IdUsuario", Long, 0, u"Usuario"},
        {u"FechaAlta", DateTime},
        {u"Notas", Memo}}},
      {u"ExpVivo",
       {{u"IdExpVivo", Key},
        {u"Referencia", VarChar, 12, {}, true},
        {u"Titulo", VarChar, 100},
        {u"IdCliente", Long, 0, u"Cliente"},
        {u"IdMateria", Long, 0, u"Materia"},
        {u"IdTipoMateria", Long, 0, u"TipoMateria"},
        {u"IdUsuario", Long, 0, u"Usuario"},
        {u"FechaAlta", DateTime},
        {u"Notas", Memo}}},
      {u"Proyecto",
       {{u"IdPrincipal", Key},
        {u"Nombre", VarChar, 100, {}, true},
        {u"Poblacion", VarChar, 50},
        {u"FechaAlta", DateTime},
        {u"Notas", Memo}}},
  };
  return tables;
}

constexpr AnnotationTable annotations[] = {
    {u"NotaIP", Kind::Nota, u"IdInm", u"Inmueble", u"DocuNotaIP"},
    {u"VisitaIP", Kind::Visita, u"IdInm", u"Inmueble", u"DocuVisitaIP"},
    {u"AnuncioIP", Kind::Anuncio, u"IdInm", u"Inmueble", u"DocuAnuncioIP"},
    {u"LlamadaAIP", Kind::Llamada, u"IdAnuncio", u"AnuncioIP", u""},
    {u"NotaIArch", Kind::Nota, u"IdInm", u"Inmueble", u"DocuNotaIArch"},
    {u"AnuncioIArch", Kind::Anuncio, u"IdInm", u"Inmueble", u"DocuAnuncioIArch"},
    {u"NotaExp", Kind::Nota, u"IdExpVivo", u"ExpVivo", u"DocuNotaExp"},
    {u"VisitaExp", Kind::Visita, u"IdExpVivo", u"ExpVivo", u"DocuVisitaExp"},
    {u"NotaExpArch", Kind::Nota, u"IdExpVivo", u"ExpVivo", u"DocuNotaExpArch"},
    {u"NotaProy", Kind::Nota, u"IdPrincipal", u"Proyecto", u"DocuNotaProy"},
    {u"NotaProyArch", Kind::Nota, u"IdPrincipal", u"Proyecto", u"DocuNotaProyArch"},
};

struct KindRow {
  Kind kind;
  TextView name, key;
};
constexpr KindRow kinds[] = {
    {Kind::Nota, u"Nota", u"IdNota"},
    {Kind::Visita, u"Visita", u"IdVisita"},
    {Kind::Anuncio, u"Anuncio", u"IdAnuncio"},
    {Kind::Llamada, u"Llamada", u"IdLlamada"},
};

struct KindColumn {
  unsigned kinds;  // bits
  Column column;
};
constexpr unsigned bit(Kind kind) { return 1u << static_cast<unsigned>(kind); }
constexpr unsigned N = bit(Kind::Nota), V = bit(Kind::Visita), A = bit(Kind::Anuncio), L = bit(Kind::Llamada);

constexpr KindColumn kindColumns[] = {
    {N | V, {u"Asunto", VarChar, 100}},
    {V | A, {u"Donde", VarChar, 100}},
    {N | V | A, {u"IdTipoAccNota", Long, 0, u"TipoAccNota"}},
    {N | V | A, {u"Categorias", VarChar, 255}},
    {V, {u"FechaComienzo", DateTime}},
    {V, {u"FechaFin", DateTime}},
    {A, {u"FechaInicio", DateTime}},
    {A, {u"NDias", Byte}},
    {A, {u"FechaEnvio", DateTime}},
    {A, {u"Enviar", Boolean, 0, {}, false, u"0"}},
    {N | V, {u"Aviso", Boolean, 0, {}, false, u"0"}},
    {N, {u"FechaAviso", DateTime}},
    {N, {u"IdUsuarioAviso", Long, 0, u"Usuario"}},
    {V, {u"TiempoAviso", DateTime}},
    {V, {u"IdCliente", Long, 0, u"Cliente"}},
    {N | A, {u"IdCliente", Long}},
    {V, {u"IdComercial", Long}},
    {V, {u"IdComercial2", Long}},
    {V, {u"IdOtraAgencia", Long, 0, u"Agencia"}},
    {V, {u"Confirmada", Boolean, 0, {}, false, u"0"}},
    {V, {u"Realizada", Boolean, 0, {}, false, u"0"}},
    {V, {u"Anulada", Boolean, 0, {}, false, u"0"}},
    {N | V | A, {u"IdAgencia", Long}},
    {N | V | A, {u"NAgencia", Long}},
    {N | V | A | L, {u"IdUsuario", Long, 0, u"Usuario"}},
    {N | V | A | L, {u"FechaAlta", DateTime}},
    {N | V | A | L, {u"FechaActualizacion", DateTime}},
    {N | V | A | L, {u"Notas", Memo}},
    {N | V | A, {u"NArchivos", Short, 0, {}, false, u"0"}},
};

Table annotationTableDesign(const AnnotationTable& annotation) {
  Table made{annotation.name, {{kindKey(annotation.kind), Key}}};
  made.columns.push_back({annotation.parentColumn, Long, 0, annotation.parentTable});
  // In whose diary a visit stands; one of neither a property nor a diary is an appointment of the office.
  if (annotation.name == u"VisitaIP") made.columns.push_back({u"IdUsu", Long, 0, u"Usuario"});
  for (const KindColumn& row : kindColumns)
    if (row.kinds & bit(annotation.kind)) made.columns.push_back(row.column);
  return made;
}

Table attachmentTableDesign(const AnnotationTable& annotation) {
  return {annotation.attachments,
          {{u"IdDocu", Key},
           {u"Id", Long},
           {u"IdAgencia", Long},
           {u"IdNota", Long, 0, annotation.name, true},
           {u"NombreOrg", VarChar, 255},
           {u"NombreArch", VarChar, 255}}};
}

Text typeText(const Column& column) {
  switch (column.type) {
    case Key:
      return u"INTEGER PRIMARY KEY AUTOINCREMENT";
    case Long:
      return u"INTEGER";
    case Short:
      return u"SMALLINT";
    case Byte:
      return u"BYTE";
    case Boolean:
      return u"BOOLEAN";
    case Money:
      return u"CURRENCY";
    case DateTime:
      return u"DATETIME";
    case VarChar:
      return u"VARCHAR(" + toText(column.size) + u")";
    case Memo:
      return u"MEMO TEXT";
  }
  return {};
}

Text createTable(const Table& made) {
  Text sql = u"CREATE TABLE " + Text(made.name) + u" (";
  for (const Column& column : made.columns) {
    if (&column != &made.columns.front()) sql += u", ";
    sql.append(column.name) += u" " + typeText(column);
    if (column.required) sql += u" NOT NULL";
    if (!column.initial.empty()) (sql += u" DEFAULT ").append(column.initial);
    if (!column.references.empty()) {
      (sql += u" REFERENCES ").append(column.references);
      (sql += u"(").append(table(column.references).columns.front().name) += u")";
    }
  }
  return sql + u")";
}

// Texts are compared by the user's alphabet, which an index of them has to be in to be used.
Text createIndex(TextView tableName, std::initializer_list<TextView> columns, TextView order = {}) {
  Text name = Text(tableName), list;
  for (TextView column : columns) {
    name.append(column);
    if (!list.empty()) list += u", ";
    list.append(column).append(order);
  }
  return u"CREATE INDEX " + name + u" ON " + Text(tableName) + u" (" + list + u")";
}

}  // namespace

TextView kindName(Kind kind) { return kinds[static_cast<std::size_t>(kind)].name; }
TextView kindKey(Kind kind) { return kinds[static_cast<std::size_t>(kind)].key; }

dao::DataType storedType(ColumnType type) {
  switch (type) {
    case ColumnType::Key:
    case ColumnType::Long:
      return dao::dbLong;
    case ColumnType::Short:
      return dao::dbInteger;
    case ColumnType::Byte:
      return dao::dbByte;
    case ColumnType::Boolean:
      return dao::dbBoolean;
    case ColumnType::Money:
      return dao::dbCurrency;
    case ColumnType::DateTime:
      return dao::dbDate;
    case ColumnType::VarChar:
      return dao::dbText;
    case ColumnType::Memo:
      return dao::dbMemo;
  }
  return dao::dbText;
}

std::span<const AnnotationTable> annotationTables() { return annotations; }

const AnnotationTable& annotationTable(TextView name) {
  for (const AnnotationTable& row : annotations)
    if (sameName(row.name, name)) return row;
  throw Failure(dao::failure::notInCollection);
}

std::size_t Table::position(TextView column) const {
  const auto found =
      std::find_if(columns.begin(), columns.end(), [&](const Column& c) { return sameName(c.name, column); });
  if (found == columns.end()) throw Failure(dao::failure::notInCollection);
  return static_cast<std::size_t>(found - columns.begin());
}

const std::vector<Table>& schema() {
  static const std::vector<Table> all = [] {
    std::vector<Table> made;
    for (const PlainTable& plain : plainTables()) made.push_back({plain.name, plain.columns});
    for (const AnnotationTable& row : annotations) made.push_back(annotationTableDesign(row));
    for (const AnnotationTable& row : annotations)
      if (!row.attachments.empty()) made.push_back(attachmentTableDesign(row));
    return made;
  }();
  return all;
}

const Table& table(TextView name) {
  for (const Table& made : schema())
    if (sameName(made.name, name)) return made;
  throw Failure(dao::failure::notInCollection);
}

std::vector<Text> createStatements() {
  std::vector<Text> statements;
  for (const Table& made : schema()) statements.push_back(createTable(made));
  for (const AnnotationTable& row : annotations) {
    statements.push_back(createIndex(
        row.name, {row.parentColumn, row.kind == Kind::Visita ? u"FechaComienzo" : u"FechaAlta"}));
    if (row.kind == Kind::Visita) statements.push_back(createIndex(row.name, {u"IdComercial"}));
    if (row.attachments.empty()) continue;
    statements.push_back(createIndex(row.attachments, {u"IdNota"}));
    statements.push_back(createIndex(row.attachments, {u"Id"}));
    statements.push_back(createIndex(row.attachments, {u"NombreArch"}, u" COLLATE es"));
  }
  statements.push_back(createIndex(u"VisitaIP", {u"IdUsu"}));
  statements.push_back(createIndex(u"NotaIP", {u"IdUsuarioAviso"}));
  return statements;
}

}  // namespace ovalia::host
