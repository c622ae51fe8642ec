#include "host/Queries.h"

#include <algorithm>

#include "platform/dao.h"

namespace ovalia::host {

namespace {

constexpr GridColumn noteColumns[] = {
    {u"FechaAlta", u"Fecha", 18},    {u"Asunto", u"Asunto", 32},         {u"Usuario", u"Usuario", 18},
    {u"TipoAccNota", u"Acceso", 14}, {u"Categorias", u"Categorías", 22}, {u"NArchivos", u"Docs.", 6},
    {u"Notas", u"Notas", 50}};
constexpr GridColumn visitColumns[] = {
    {u"FechaComienzo", u"Comienzo", 18}, {u"FechaFin", u"Fin", 18},    {u"Asunto", u"Asunto", 28},
    {u"Cliente", u"Visitante", 26},      {u"Donde", u"Ubicación", 22}, {u"Confirmada", u"Confirmada", 11},
    {u"Realizada", u"Realizada", 11},    {u"Anulada", u"Anulada", 11}};
constexpr GridColumn advertColumns[] = {{u"FechaAlta", u"Fecha", 18},    {u"Donde", u"Donde", 22},
                                        {u"FechaInicio", u"Inicio", 12}, {u"NDias", u"Días", 6},
                                        {u"FechaEnvio", u"Enviado", 18}, {u"Usuario", u"Usuario", 18},
                                        {u"NArchivos", u"Docs.", 6},     {u"Notas", u"Notas", 40}};
constexpr GridColumn callColumns[] = {
    {u"FechaAlta", u"Atendida", 18}, {u"Usuario", u"Usuario", 18}, {u"Notas", u"Notas", 70}};

struct NameJoin {
  unsigned kinds;
  TextView column;  // of the annotation
  TextView table, key, alias;
  TextView name;  // column of the table
  TextView output;
};
constexpr unsigned bit(Kind kind) { return 1u << static_cast<unsigned>(kind); }
constexpr unsigned N = bit(Kind::Nota), V = bit(Kind::Visita), A = bit(Kind::Anuncio), L = bit(Kind::Llamada);
constexpr NameJoin joins[] = {
    {N | V | A | L, u"IdUsuario", u"Usuario", u"IdUsuario", u"Autor", u"Nombre", u"Usuario"},
    {N | V | A, u"IdTipoAccNota", u"TipoAccNota", u"IdTipoAccNota", u"Acceso", u"Nombre", u"TipoAccNota"},
    {N, u"IdUsuarioAviso", u"Usuario", u"IdUsuario", u"Avisado", u"Nombre", u"UsuarioAviso"},
    {V, u"IdCliente", u"Cliente", u"IdCliente", u"Visitante", u"Alias", u"Cliente"},
    {V, u"IdOtraAgencia", u"Agencia", u"IdAgencia", u"Otra", u"Alias", u"Agencia"},
};

constexpr ListDesign designs[] = {
    {u"FichaInm", u"grdNota", u"datNota", u"NotaIP", u"&Notas", u"IdInm", u"NotaIP.IdInm = %", true},
    {u"FichaInm", u"grdVisita", u"datVisita", u"VisitaIP", u"&Visitas", u"IdInm", u"VisitaIP.IdInm = %",
     true},
    {u"FichaInm", u"grdAnuncio", u"datAnuncio", u"AnuncioIP", u"&Anuncios", u"IdInm", u"AnuncioIP.IdInm = %",
     true},
    {u"FichaInm", u"grdLlamada", u"datLlamada", u"LlamadaAIP", u"&Llamadas", u"IdAnuncio",
     u"LlamadaAIP.IdAnuncio = %", true},
    {u"FichaInm", u"grdHistorico", u"datHistorico", u"NotaIArch", u"&Histórico", u"IdInm",
     u"NotaIArch.IdInm = %", false},
    {u"FichaUsuario", u"grdVisita", u"datVisita", u"VisitaIP", u"&Agenda", u"IdUsu",
     u"VisitaIP.IdInm Is Null AND (VisitaIP.IdUsu = % OR VisitaIP.IdUsu Is Null AND VisitaIP.IdComercial = "
     u"%)",
     true},
    {u"FichaUsuario", u"grdVisitaInm", u"datVisitaInm", u"VisitaIP", u"&Visitas", u"IdInm",
     u"VisitaIP.IdInm Is Not Null AND VisitaIP.IdComercial = %", false, u"FichaInm"},
    {u"FichaUsuario", u"grdCita", u"datCita", u"VisitaIP", u"Citas aje&nas", u"IdUsu",
     u"VisitaIP.IdInm Is Null AND VisitaIP.IdUsu <> % AND VisitaIP.IdComercial = %", false, u"FichaUsuario"},
    {u"FichaUsuario", u"grdNota", u"datNota", u"NotaIP", u"Recor&datorios", u"IdInm",
     u"NotaIP.IdUsuarioAviso = %", false, u"FichaInm"},
    {u"FichaExpV", u"grdNota", u"datNota", u"NotaExp", u"&Notas", u"IdExpVivo", u"NotaExp.IdExpVivo = %",
     true},
    {u"FichaExpV", u"grdVisita", u"datVisita", u"VisitaExp", u"&Visitas", u"IdExpVivo",
     u"VisitaExp.IdExpVivo = %", true},
    {u"FichaExpV", u"grdHistorico", u"datHistorico", u"NotaExpArch", u"&Histórico", u"IdExpVivo",
     u"NotaExpArch.IdExpVivo = %", false},
    {u"FichaProy", u"grdNota", u"datNota", u"NotaProy", u"&Notas", u"IdPrincipal",
     u"NotaProy.IdPrincipal = %", true},
    {u"FichaProy", u"grdHistorico", u"datHistorico", u"NotaProyArch", u"&Histórico", u"IdPrincipal",
     u"NotaProyArch.IdPrincipal = %", false},
};

Text column(TextView tableName, TextView name) { return Text(tableName) + u"." + Text(name); }

Text selectFrom(const AnnotationTable& annotation, TextView idColumn) {
  const Table& design = table(annotation.name);
  const TextView key = design.columns.front().name;
  Text fields = column(annotation.name, key), from(annotation.name);
  if (annotation.kind != Kind::Llamada) fields += u", " + column(annotation.name, idColumn) + u" AS Id";
  fields += u", " + column(annotation.name, key) + u" AS IdAnota";
  // The property's data go into documents, so only lists of properties name it.
  for (std::size_t i = 1; i < design.columns.size(); ++i) {
    const TextView name = design.columns[i].name;
    if (name != u"IdUsu" && (name != u"IdInm" || idColumn == u"IdInm"))
      fields += u", " + column(annotation.name, name);
  }
  for (const NameJoin& join : joins) {
    if (!(join.kinds & bit(annotation.kind))) continue;
    fields += u", " + column(join.alias, join.name) + u" AS " + Text(join.output);
    from = u"(" + from + u" LEFT JOIN " + Text(join.table) + u" AS " + Text(join.alias) + u" ON " +
           column(annotation.name, join.column) + u" = " + column(join.alias, join.key) + u")";
  }
  return u"SELECT " + fields + u" FROM " + from;
}

Text newestFirst(const AnnotationTable& annotation) {
  const TextView date = annotation.kind == Kind::Visita ? u"FechaComienzo" : u"FechaAlta";
  return u" ORDER BY " + column(annotation.name, date) + u" DESC, " +
         column(annotation.name, kindKey(annotation.kind)) + u" DESC";
}

}  // namespace

std::span<const GridColumn> gridColumns(Kind kind) {
  switch (kind) {
    case Kind::Nota:
      return noteColumns;
    case Kind::Visita:
      return visitColumns;
    case Kind::Anuncio:
      return advertColumns;
    case Kind::Llamada:
      return callColumns;
  }
  return {};
}

std::span<const ListDesign> lists() { return designs; }

const ListDesign& list(TextView form, TextView grid) {
  for (const ListDesign& design : designs)
    if (design.form == form && design.grid == grid) return design;
  throw Failure(dao::failure::notInCollection);
}

Text listQuery(const ListDesign& list, std::int32_t parent) {
  const AnnotationTable& annotation = annotationTable(list.table);
  return selectFrom(annotation, list.idColumn) + u" WHERE " +
         replaceAll(list.condition, u"%", toText(parent)) + newestFirst(annotation);
}

Text wholeTableQuery(const AnnotationTable& table) {
  return selectFrom(table, table.parentColumn) + newestFirst(table);
}

Text rowQuery(const AnnotationTable& table, std::int32_t key) {
  return selectFrom(table, table.parentColumn) + u" WHERE " + column(table.name, kindKey(table.kind)) +
         u" = " + toText(key);
}

Text literal(TextView text) { return u"'" + replaceAll(text, u"'", u"''") + u"'"; }

Text containing(TextView text) {
  Text pattern;
  for (char16_t c : text) {
    const bool special = c == u'*' || c == u'?' || c == u'#' || c == u'[';
    pattern += special ? Text{u'[', c, u']'} : Text{c};
  }
  return literal(u"*" + pattern + u"*");
}

}  // namespace ovalia::host
