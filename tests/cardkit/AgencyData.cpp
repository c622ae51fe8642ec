#include "tests/cardkit/AgencyData.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <regex>

#include "platform/Regional.h"

namespace ovalia::kit {
namespace {

using namespace dao;

struct Delivered {
  TextView kinds;  // initials: N, V, A, L
  TextView column;
  DataType type;
  Variant value;  // of the believable annotation
};

const std::vector<Delivered>& delivered() {
  static const std::vector<Delivered> table = {
      {u"N", u"IdNota", dbLong, {}},
      {u"V", u"IdVisita", dbLong, {}},
      {u"A", u"IdAnuncio", dbLong, {}},
      {u"L", u"IdLlamada", dbLong, {}},
      {u"NVA", u"Id", dbLong, 120},
      {u"L", u"IdAnuncio", dbLong, 77},
      {u"NVAL", u"IdAnota", dbLong, {}},
      {u"NVAL", u"IdUsuario", dbLong, 1},
      {u"NVAL", u"Usuario", dbText, u"Ana Ruiz"},
      {u"NVAL", u"FechaAlta", dbDate, on(2026, 3, 2, 10, 15, 0)},
      {u"NVAL", u"FechaActualizacion", dbDate, on(2026, 3, 5, 18, 30, 15)},
      {u"NVAL", u"Notas", dbMemo, u"Tiene prisa por vender."},
      {u"NVAL", u"IdAgencia", dbLong, 1},
      {u"NVAL", u"NAgencia", dbLong, 4},
      {u"NVA", u"NArchivos", dbInteger, 0},
      {u"NV", u"Asunto", dbText, u"Llaves en portería"},
      {u"VA", u"Donde", dbText, u"Calle Mayor, 3"},
      {u"NVA", u"TipoAccNota", dbText, u"Teléfono"},
      {u"NVA", u"IdTipoAccNota", dbLong, 2},
      {u"NVA", u"Categorias", dbText, u"Llaves; Urgente"},
      {u"NV", u"Aviso", dbBoolean, true},
      {u"N", u"FechaAviso", dbDate, on(2026, 3, 12)},
      {u"N", u"UsuarioAviso", dbText, u"Benito Gil"},
      {u"N", u"IdUsuarioAviso", dbLong, 2},
      {u"V", u"FechaComienzo", dbDate, on(2026, 3, 10, 9, 30, 0)},
      {u"V", u"FechaFin", dbDate, on(2026, 3, 10, 10, 45, 0)},
      {u"V", u"Cliente", dbText, u"Luis Pérez"},
      {u"V", u"IdCliente", dbLong, 21},
      {u"V", u"IdComercial", dbLong, 2},
      {u"V", u"IdComercial2", dbLong, 3},
      {u"V", u"Agencia", dbText, u"Casas del Sur"},
      {u"V", u"IdOtraAgencia", dbLong, 31},
      {u"V", u"TiempoAviso", dbDate, Date{0.25 / 24}},
      {u"V", u"Confirmada", dbBoolean, true},
      {u"V", u"Realizada", dbBoolean, false},
      {u"V", u"Anulada", dbBoolean, false},
      {u"A", u"FechaInicio", dbDate, on(2026, 3, 6)},
      {u"A", u"NDias", dbByte, 15},
      {u"A", u"FechaEnvio", dbDate, on(2026, 3, 4, 12, 0, 30)},
      {u"A", u"Enviar", dbBoolean, true},
  };
  return table;
}

bool holds(const std::string& literal, const Variant& value) {
  if (value.isNull()) return false;
  if (literal.front() != '\'') return value.toDouble() == std::stod(literal);
  const Text inside = fromUtf8(literal.substr(1, literal.size() - 2));
  return sameName(replaceAll(inside, u"''", u"'"), value.text());
}

bool before(const Variant& a, const Variant& b) {
  if (a.isNull() || b.isNull()) return a.isNull() && !b.isNull();
  if (a.type() == VarType::Text) return lowerCase(a.toText()) < lowerCase(b.toText());
  return compareLess(a, b).holds();
}

// SELECT a, b FROM table WHERE column = literal ORDER BY column ASC;
FakeTableRef select(const FakeDatabase& database, TextView sql) {
  static const std::regex shape(
      R"(SELECT (\w+(?:, *\w+)*) FROM (\w+)(?:\s+WHERE (\w+)\s*=\s*('(?:[^']|'')*'|-?\d+))?)"
      R"((?:\s+ORDER BY (\w+)(?: ASC)?)?\s*;?)",
      std::regex::icase);
  std::smatch part;
  const std::string statement = toUtf8(sql);
  if (!std::regex_match(statement, part, shape)) return nullptr;
  const FakeTableRef table = database.tableNamed(fromUtf8(part.str(2)));
  if (!table) return nullptr;
  const auto columnOf = [&](int group) { return table->column(fromUtf8(part.str(group))); };

  std::vector<FakeRowRef> rows;
  for (const FakeRowRef& row : table->rows)
    if (!part[3].matched || holds(part.str(4), row->values.at(columnOf(3)))) rows.push_back(row);
  if (part[5].matched)
    std::ranges::stable_sort(rows, [&, at = columnOf(5)](const FakeRowRef& a, const FakeRowRef& b) {
      return before(a->values.at(at), b->values.at(at));
    });

  auto result = std::make_shared<FakeTable>();
  std::vector<std::size_t> chosen;
  static const std::regex word(R"(\w+)");
  const std::string columns = part.str(1);
  for (std::sregex_iterator name(columns.begin(), columns.end(), word), end; name != end; ++name)
    chosen.push_back(table->column(fromUtf8(name->str())));
  for (const std::size_t column : chosen) result->columns.push_back(table->columns.at(column));
  for (const FakeRowRef& row : rows) {
    std::vector<Variant> values;
    for (const std::size_t column : chosen) values.push_back(row->values.at(column));
    result->add(std::move(values));
  }
  return result;
}

FakeColumn key(TextView name) { return {Text(name), dbLong, dbAutoIncrField}; }

}  // namespace

Date on(int year, int month, int day, int hour, int minute, int second) {
  return dateFrom({year, month, day, hour, minute, second}).value();
}

std::shared_ptr<FakeDatabase> agencyDatabase(FaultPanel& faults) {
  auto database = std::make_shared<FakeDatabase>(faults);
  database->table(u"Usuario", {key(u"IdUsuario"), {u"Nombre"}},
                  {{1, u"Ana Ruiz"}, {2, u"Benito Gil"}, {3, u"Carmen Soler"}});
  database->table(u"Cliente", {key(u"IdCliente"), {u"Alias"}, {u"Tfno1"}, {u"Tfno2"}},
                  {{21, u"Luis Pérez", u"600 111 222", u"910 000 111"}, {22, u"Eva Núñez", Null, Null}});
  database->table(u"Agencia", {key(u"IdAgencia"), {u"Alias"}},
                  {{31, u"Casas del Sur"}, {32, u"Fincas López"}});
  database->table(u"TipoAccNota", {key(u"IdTipoAccNota"), {u"Nombre"}},
                  {{1, u"Correo"}, {2, u"Teléfono"}, {3, u"Visita"}});
  database->otherwise = [self = database.get()](TextView sql) { return select(*self, sql); };
  return database;
}

std::vector<FakeColumn> listColumns(TextView tipo) {
  std::vector<FakeColumn> columns;
  for (const Delivered& row : delivered())
    if (row.kinds.find(tipo.front()) != TextView::npos)
      columns.push_back({Text(row.column), row.type, columns.empty() ? dbAutoIncrField : 0});
  return columns;
}

std::vector<Variant> annotation(TextView tipo, const std::vector<FakeColumn>& columns, int place,
                                const Fields& given) {
  std::map<Text, Variant, NameLess> values;
  for (const Delivered& row : delivered())
    if (row.kinds.find(tipo.front()) != TextView::npos)
      values.emplace(row.column, row.value.isEmpty() ? Variant(501 + place) : row.value);
  for (const auto& [name, value] : given) {
    EXPECT_TRUE(std::ranges::any_of(
        columns, [&, &name = name](const FakeColumn& column) { return sameName(column.name, name); }))
        << "the list has no column " << toUtf8(name);
    values[name] = value;
  }
  std::vector<Variant> row;
  for (const FakeColumn& column : columns) row.push_back(values.at(column.name));
  return row;
}

}  // namespace ovalia::kit
