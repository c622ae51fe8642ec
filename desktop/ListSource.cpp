#include "desktop/ListSource.h"

#include <algorithm>
#include <array>

#include "routines/SqlText.h"

namespace ovalia::desktop {

namespace {

bool isText(const Variant& value) { return value.type() == VarType::Text; }

Text literal(const Variant& value) { return isText(value) ? ComillaSQL(value.toText()) : value.toText(); }

struct FailureRow {
  std::int32_t number;
  TextView text;  // "%1" is the row's name
};

constexpr std::array<FailureRow, 8> failureRows{{
    {dao::failure::duplicateKey, u"Ya existe «%1» en la lista."},
    {dao::failure::referenced, u"No se puede borrar «%1»: hay fichas que lo utilizan."},
    {dao::failure::missingRelated, u"No se puede guardar «%1»: falta la ficha de la que depende."},
    {dao::failure::tooLong, u"«%1» es demasiado largo. Escriba un texto más corto."},
    {dao::failure::required, u"Falta un dato obligatorio para guardar «%1»."},
    {dao::failure::recordDeleted, u"«%1» ya ha sido borrado por otro usuario."},
    {dao::failure::locked,
     u"Otro usuario está utilizando los datos. Espere un momento e inténtelo de nuevo."},
    {dao::failure::readOnly, u"La lista es de sólo lectura: no se puede cambiar «%1»."},
}};

}  // namespace

ListSource::ListSource(Table table) : table_(std::move(table)) {
  if (!table_.column || !table_.key) throw Failure(failure::objectNotSet);
  database_ = table_.column->database();
  if (!database_) throw Failure(failure::objectNotSet);
}

std::vector<ListSource::Row> ListSource::rows() const {
  const Text key = table_.key->Name(), column = table_.column->Name();
  const Text select = !table_.select.empty() ? table_.select
                                             : join(u"SELECT ", key, u", ", column, u" FROM ", table_.name,
                                                    u" ORDER BY ", column);
  const dao::RecordsetRef found = database_->OpenRecordset(select, dao::dbOpenSnapshot);
  // A statement of the caller's may give the names alone.
  const bool keyed = found->fields().contains(key);
  std::vector<Row> rows;
  for (; !found->isEOF(); found->MoveNext()) {
    Text name = found->value(column).text();
    if (!name.empty()) rows.push_back({keyed ? found->value(key) : Variant(), std::move(name)});
  }
  found->Close();
  return rows;
}

void ListSource::add(TextView name) {
  const Text key = table_.key->Name(), column = table_.column->Name();
  Text names = column, values = ComillaSQL(Text(name));
  if (!table_.numbersItself) {
    const auto last = database_->OpenRecordset(join(u"SELECT Max(", key, u") AS Ultimo FROM ", table_.name),
                                               dao::dbOpenSnapshot);
    const Variant highest = last->isEOF() ? Variant() : last->value(u"Ultimo");
    last->Close();
    names += u", " + key;
    values += join(u", ", (highest.isNull() || highest.isEmpty() ? 0 : highest.toLong()) + 1);
  }
  database_->Execute(join(u"INSERT INTO ", table_.name, u" (", names, u") VALUES (", values, u")"));
  if (database_->RecordsAffected() == 0) throw Failure(dao::failure::duplicateKey);
}

dao::RecordsetRef ListSource::rowOf(const Variant& id) const {
  const Text key = table_.key->Name();
  auto row = database_->OpenRecordset(join(u"SELECT ", key, u", ", table_.column->Name(), u" FROM ",
                                           table_.name, u" WHERE ", key, u" = ", literal(id)));
  if (row->isEOF()) throw Failure(dao::failure::recordDeleted);
  return row;
}

void ListSource::rename(const Variant& id, TextView name) {
  const auto row = rowOf(id);
  row->Edit();
  row->setValue(table_.column->Name(), name);
  row->Update();
  row->Close();
}

void ListSource::remove(const Variant& id) {
  const auto row = rowOf(id);
  row->Delete();
  row->Close();
}

Text listFailureText(const Failure& failure, TextView name) {
  const auto row = std::find_if(failureRows.begin(), failureRows.end(),
                                [&](const FailureRow& r) { return r.number == failure.number(); });
  return row == failureRows.end() ? failure.description() : replaceAll(row->text, u"%1", name);
}

}  // namespace ovalia::desktop
