#include "tests/cardkit/ModelTables.h"

#include "tests/cardkit/AgencyStatements.h"

namespace ovalia::kit {
namespace {

using namespace dao;

FakeColumn key(TextView name) { return {Text(name), dbLong, dbAutoIncrField}; }

// The name that a key has in another table; Null for none.
Variant nameOf(const FakeDatabase& database, TextView table, const Variant& wanted) {
  if (wanted.isNull()) return Null;
  for (const FakeRowRef& row : database.tableNamed(table)->rows)
    if (row->values[0].toLong() == wanted.toLong()) return row->values[1];
  return Null;
}

FakeTableRef wholeList(const FakeDatabase& database) {
  const FakeTableRef models = database.tableNamed(u"Plantilla");
  if (!models) throw Failure(dao::failure::unknownTable, u"Plantilla");
  auto list = std::make_shared<FakeTable>();
  list->columns = {{u"IdPlantilla", dbLong}, {u"Nombre"}, {u"Notas", dbMemo}, {u"Materia"}, {u"TipoMateria"}};
  for (const FakeRowRef& row : models->rows) {
    const auto& v = row->values;
    list->add({v[0], v[1], v[2], nameOf(database, u"Materia", v[3]), nameOf(database, u"TipoMateria", v[4])});
  }
  return list;
}

// "Select Count(IdMateria) As N From Materia  Where ...": how many rows the same without counting gives.
FakeTableRef count(const FakeDatabase& database, TextView sql, TextView column) {
  const Text beginning = join(u"Select Count(", column, u") As N ");
  if (!sql.starts_with(beginning)) return nullptr;
  const FakeTableRef counted =
      database.otherwise(join(u"SELECT ", column, u" ", sql.substr(beginning.size())));
  auto result = std::make_shared<FakeTable>();
  result->columns = {{u"N", dbLong}};
  result->add({static_cast<std::int32_t>(counted->rows.size())});
  return result;
}

}  // namespace

void putModelTables(FakeDatabase& database) {
  database.table(u"Materia", {key(u"IdMateria"), {u"Nombre"}},
                 {{1, u"Ventas"}, {2, u"Alquiler"}, {3, u"D'Ors"}});
  database.table(u"TipoMateria", {key(u"IdTipoMateria"), {u"Nombre"}, {u"IdMateria", dbLong}},
                 {{11, u"Oferta", 1}, {12, u"Fianza", 2}, {13, u"Oferta", 2}});
  database.table(u"Plantilla", {key(u"IdPlantilla"),
                                {u"Nombre"},
                                {u"Notas", dbMemo},
                                {u"IdMateria", dbLong},
                                {u"IdTipoMateria", dbLong}});
  answersAttachments(database);
  database.otherwise = [self = &database, before = database.otherwise](TextView sql) {
    if (sql.starts_with(u"SELECT IdPlantilla, Plantilla.Nombre, ")) return wholeList(*self);
    for (const TextView column : {u"IdMateria", u"IdTipoMateria"})
      if (const FakeTableRef counted = count(*self, sql, column)) return counted;
    return before(sql);
  };
}

void putModel(FakeDatabase& database, Variant name, Variant notes, Variant subject, Variant part) {
  const FakeTableRef table = database.tableNamed(u"Plantilla");
  table->add({static_cast<std::int32_t>(table->rows.size()) + 1, std::move(name), std::move(notes),
              std::move(subject), std::move(part)});
}

std::vector<Text> models(const FakeDatabase& database) {
  std::vector<Text> lines;
  const auto shown = [](const Variant& value) { return value.isNull() ? Text(u"Null") : value.text(); };
  for (const FakeRowRef& row : database.tableNamed(u"Plantilla")->rows) {
    const auto& v = row->values;
    lines.push_back(
        join(v[0], u": ", shown(v[1]), u" < ", shown(v[2]), u", ", shown(v[3]), u", ", shown(v[4])));
  }
  return lines;
}

}  // namespace ovalia::kit
