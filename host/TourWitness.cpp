#include "host/TourWitness.h"

#include "engines/Open.h"
#include "host/Queries.h"
#include "platform/Platform.h"
#include "routines/SqlText.h"

namespace ovalia::host {

namespace {

constexpr std::size_t longest = 60;

Text keyOf(TextView table) { return Text(kindKey(annotationTable(table).kind)); }

Text written(const Variant& value) {
  if (value.isNull()) return u"(nulo)";
  if (value.type() == VarType::Date)
    return u"«" + formatDate(value.toDate(), u"dd/MM/yyyy hh:nn:ss", regionalNow()) + u"»";
  const Text text = replaceAll(value.text(), CRLF, u"⏎");
  return u"«" + (text.size() > longest ? text.substr(0, longest - 1) + u"…" : text) + u"»";
}

}  // namespace

TourWitness::TourWitness(const std::filesystem::path& file)
    : database_(engines::open(fromUtf8(file.native()))) {}

std::int32_t TourWitness::count(TextView query) {
  return database_->OpenRecordset(query, dao::dbOpenDynaset)->RecordCount();
}

std::int32_t TourWitness::newest(TextView table) {
  const auto rows = database_->OpenRecordset(u"SELECT Max(" + keyOf(table) + u") AS N FROM " + Text(table),
                                             dao::dbOpenSnapshot);
  const Variant highest = rows->value(u"N");
  return highest.isNull() ? 0 : highest.toLong();
}

dao::RecordsetRef TourWitness::rowOf(TextView table, std::int32_t key) {
  return database_->OpenRecordset(
      u"SELECT * FROM " + Text(table) + u" WHERE " + keyOf(table) + u" = " + toText(key),
      dao::dbOpenSnapshot);
}

bool TourWitness::has(TextView table, std::int32_t key) { return !rowOf(table, key)->isEOF(); }

Text TourWitness::value(TextView table, std::int32_t key, TextView field) {
  const auto row = rowOf(table, key);
  return row->isEOF() ? Text() : row->value(field).text();
}

Variant TourWitness::answer(TextView query) {
  const auto rows = database_->OpenRecordset(query, dao::dbOpenSnapshot);
  return rows->isEOF() ? Null : rows->fields().at(0)->Value();
}

Text TourWitness::row(TextView table, std::int32_t key, std::span<const TextView> fields) {
  const auto row = rowOf(table, key);
  Text all = Text(table) + u" " + toText(key) + u": ";
  if (row->isEOF()) return all + u"no existe";
  TextView separator = u"";
  for (const TextView field : fields) {
    all.append(separator).append(field).append(u" ").append(written(row->value(field)));
    separator = u", ";
  }
  return all;
}

std::vector<Text> TourWitness::attachments(TextView table, std::int32_t annotation) {
  std::vector<Text> all;
  const auto rows = database_->OpenRecordset(
      u"SELECT * FROM " + Text(table) + u" WHERE IdNota = " + toText(annotation) + u" ORDER BY IdDocu",
      dao::dbOpenSnapshot);
  for (; !rows->isEOF(); rows->MoveNext())
    all.push_back(u"IdDocu " + rows->value(u"IdDocu").text() + u": Id " + rows->value(u"Id").text() + u", «" +
                  rows->value(u"NombreOrg").text() + u"», fichero " + rows->value(u"NombreArch").text());
  return all;
}

void TourWitness::write(TextView table, std::int32_t key, TextView field, TextView text, Date stamp) {
  database_->Execute(u"UPDATE " + Text(table) + u" SET " + Text(field) + u" = " + literal(text) +
                     u", FechaActualizacion = " + VDate(stamp, false) + u" WHERE " + keyOf(table) + u" = " +
                     toText(key));
}

}  // namespace ovalia::host
