#include "platform/dao.h"

#include <algorithm>
#include <functional>
#include <iterator>

namespace ovalia::dao {

namespace {

[[noreturn]] void missingMember(TextView name) {
  constexpr auto number = ovalia::failure::noSuchMember;
  throw Failure(number, failureText(number) + u" (" + Text(name) + u")");
}

void expectCount(Arguments arguments, std::size_t least, std::size_t most) {
  if (arguments.size() < least || arguments.size() > most) throw Failure(ovalia::failure::wrongArguments);
}

// The row of a table of members that carries the name; 438 when none does.
template <class Table>
const auto& named(const Table& table, TextView name) {
  const auto found = std::find_if(std::begin(table), std::end(table),
                                  [=](const auto& row) { return sameName(row.name, name); });
  if (found == std::end(table)) missingMember(name);
  return *found;
}

struct FieldProperty {
  TextView name;
  Variant (*read)(const Field&);
};

constexpr FieldProperty fieldProperties[] = {
    {u"", [](const Field& field) { return field.Value(); }},
    {u"Value", [](const Field& field) { return field.Value(); }},
    {u"Name", [](const Field& field) { return Variant(field.Name()); }},
    {u"SourceTable", [](const Field& field) { return Variant(field.SourceTable()); }},
    {u"Type", [](const Field& field) { return Variant(std::int16_t(field.Type())); }},
    {u"Attributes", [](const Field& field) { return Variant(field.Attributes()); }},
};

// By a text's name, else by position.
std::shared_ptr<Field> chosen(Fields& fields, Arguments arguments) {
  expectCount(arguments, 1, 1);
  const Variant choice = arguments[0].plain();
  if (choice.type() == VarType::Text) return fields.item(choice.toText());
  const std::int32_t position = choice.toLong();
  if (position < 0) throw Failure(failure::notInCollection);
  return fields.at(std::size_t(position));
}

// A view of the fields that keeps their recordset alive, where it is held by shared references at all.
ObjectRef fieldsOf(Recordset& set) { return ObjectRef(set.weak_from_this().lock(), &set.fields()); }

struct RecordsetProperty {
  TextView name;
  Variant (*read)(Recordset&);
};

constexpr RecordsetProperty recordsetProperties[] = {
    {u"BOF", [](Recordset& set) { return Variant(set.isBOF()); }},
    {u"EOF", [](Recordset& set) { return Variant(set.isEOF()); }},
    {u"NoMatch", [](Recordset& set) { return Variant(set.NoMatch()); }},
    {u"AbsolutePosition", [](Recordset& set) { return Variant(set.AbsolutePosition()); }},
    {u"RecordCount", [](Recordset& set) { return Variant(set.RecordCount()); }},
    {u"Bookmark", [](Recordset& set) { return Variant(set.Bookmark()); }},
    {u"Fields", [](Recordset& set) { return Variant(fieldsOf(set)); }},
};

struct RecordsetMethod {
  TextView name;
  std::size_t least, most;  // arguments
  void (*run)(Recordset&, Arguments);
};

void update(Recordset& set, Arguments arguments) {
  const int type = arguments.empty() ? 1 : arguments[0].toLong();
  set.Update(type, arguments.size() > 1 && arguments[1].toBoolean());
}

constexpr RecordsetMethod recordsetMethods[] = {
    {u"MoveFirst", 0, 0, [](Recordset& set, Arguments) { set.MoveFirst(); }},
    {u"MoveLast", 0, 0, [](Recordset& set, Arguments) { set.MoveLast(); }},
    {u"MoveNext", 0, 0, [](Recordset& set, Arguments) { set.MoveNext(); }},
    {u"MovePrevious", 0, 0, [](Recordset& set, Arguments) { set.MovePrevious(); }},
    {u"FindFirst", 1, 1, [](Recordset& set, Arguments given) { set.FindFirst(given[0].toText()); }},
    {u"FindLast", 1, 1, [](Recordset& set, Arguments given) { set.FindLast(given[0].toText()); }},
    {u"FindNext", 1, 1, [](Recordset& set, Arguments given) { set.FindNext(given[0].toText()); }},
    {u"FindPrevious", 1, 1, [](Recordset& set, Arguments given) { set.FindPrevious(given[0].toText()); }},
    {u"Edit", 0, 0, [](Recordset& set, Arguments) { set.Edit(); }},
    {u"Update", 0, 2, update},
    {u"CancelUpdate", 0, 0, [](Recordset& set, Arguments) { set.CancelUpdate(); }},
    {u"Delete", 0, 0, [](Recordset& set, Arguments) { set.Delete(); }},
    {u"Requery", 0, 0, [](Recordset& set, Arguments) { set.Requery(); }},
    {u"Close", 0, 0, [](Recordset& set, Arguments) { set.Close(); }},
};

bool isMethod(TextView member) {
  return std::any_of(std::begin(recordsetMethods), std::end(recordsetMethods),
                     [=](const RecordsetMethod& method) { return sameName(method.name, member); });
}

// A field reached through the set itself or its collection.
bool namesField(TextView member, Arguments arguments) {
  return member.empty() || (sameName(member, u"Fields") && !arguments.empty());
}

}  // namespace

Variant Field::get(TextView member, Arguments arguments) {
  const FieldProperty& property = named(fieldProperties, member);
  expectCount(arguments, 0, 0);
  return property.read(*this);
}

void Field::put(TextView member, const Variant& value, Arguments arguments) {
  if (!member.empty() && !sameName(member, u"Value")) missingMember(member);
  expectCount(arguments, 0, 0);
  setValue(value.plain());
}

Variant Field::call(TextView member, Arguments arguments) { return get(member, arguments); }

Variant Fields::get(TextView member, Arguments arguments) {
  if (member.empty() || sameName(member, u"Item")) return chosen(*this, arguments);
  if (!sameName(member, u"Count")) missingMember(member);
  expectCount(arguments, 0, 0);
  return std::int32_t(count());
}

void Fields::put(TextView member, const Variant& value, Arguments arguments) {
  if (!member.empty() && !sameName(member, u"Item")) missingMember(member);
  chosen(*this, arguments)->setValue(value.plain());
}

Variant Fields::call(TextView member, Arguments arguments) { return get(member, arguments); }

Variant Recordset::get(TextView member, Arguments arguments) {
  if (isMethod(member)) return call(member, arguments);
  if (namesField(member, arguments)) return chosen(fields(), arguments);
  const RecordsetProperty& property = named(recordsetProperties, member);
  expectCount(arguments, 0, 0);
  return property.read(*this);
}

void Recordset::put(TextView member, const Variant& value, Arguments arguments) {
  if (namesField(member, arguments)) {
    chosen(fields(), arguments)->setValue(value.plain());
  } else if (sameName(member, u"Bookmark")) {
    expectCount(arguments, 0, 0);
    setBookmark(value.toText());
  } else {
    missingMember(member);
  }
}

Variant Recordset::call(TextView member, Arguments arguments) {
  if (!isMethod(member)) return get(member, arguments);
  const RecordsetMethod& method = named(recordsetMethods, member);
  expectCount(arguments, method.least, method.most);
  method.run(*this, arguments);
  return {};
}

}  // namespace ovalia::dao
