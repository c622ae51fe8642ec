#include "tests/cardkit/AgencyStatements.h"

#include <algorithm>
#include <map>
#include <memory>
#include <optional>

namespace ovalia::kit {
namespace {

using namespace dao;

bool isNameLetter(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') || c == u'_';
}

// Reads a statement from the left. What is not there as wanted is the failure given at the beginning.
class Reader {
 public:
  Reader(TextView statement, std::int32_t failure) : rest_(statement), failure_(failure) {}

  bool takes(TextView wanted) {
    skipBlanks();
    if (!sameName(rest_.substr(0, wanted.size()), wanted)) return false;
    rest_.remove_prefix(wanted.size());
    return true;
  }
  void needs(TextView wanted) {
    if (!takes(wanted)) fail();
  }
  Text name() {
    skipBlanks();
    const auto end = std::ranges::find_if_not(rest_, isNameLetter) - rest_.begin();
    if (end == 0) fail();
    const Text word(rest_.substr(0, static_cast<std::size_t>(end)));
    rest_.remove_prefix(word.size());
    return word;
  }
  std::vector<Text> names() {
    std::vector<Text> list{name()};
    while (takes(u",")) list.push_back(name());
    return list;
  }
  Variant literal() {
    skipBlanks();
    if (rest_.starts_with(u'\'')) return text();
    if (takes(u"Null")) return Null;
    const auto end = std::min(rest_.find_first_not_of(u"-0123456789"), rest_.size());
    if (end == 0) fail();
    const Variant number{Text(rest_.substr(0, end))};
    rest_.remove_prefix(end);
    return number.toLong();
  }
  void ends() {
    skipBlanks();
    if (!rest_.empty()) fail();
  }
  bool atEnd() {
    skipBlanks();
    return rest_.empty();
  }

 private:
  // 'it''s' and what is joined to it by "+ chr(124) +".
  Text text() {
    Text all = quoted();
    while (takes(u"+")) {
      if (takes(u"chr(124)"))
        all += u'|';
      else
        all += quoted();
    }
    return all;
  }
  Text quoted() {
    needs(u"'");
    Text inside;
    for (;;) {
      const auto end = rest_.find(u'\'');
      if (end == TextView::npos) fail();
      inside += rest_.substr(0, end);
      rest_.remove_prefix(end + 1);
      if (!rest_.starts_with(u'\'')) return inside;
      inside += u'\'';
      rest_.remove_prefix(1);
    }
  }
  void skipBlanks() {
    while (rest_.starts_with(u' ')) rest_.remove_prefix(1);
  }
  [[noreturn]] void fail() const { throw Failure(failure_, join(u"not understood: ", rest_)); }

  TextView rest_;
  std::int32_t failure_;
};

bool equal(const Variant& a, const Variant& b) {
  if (a.isNull() || b.isNull()) return false;
  if (b.type() == VarType::Text) return sameName(a.text(), b.toText());
  return a.toLong() == b.toLong();
}

class Statements {
 public:
  explicit Statements(const FakeDatabase& database) : database_(database) {}

  FakeTableRef select(TextView sql) const {
    Reader read(sql, dao::failure::syntax);
    read.needs(u"SELECT ");
    std::vector<Text> wanted;
    Text greatest, alias;
    if (read.takes(u"Max(")) {
      greatest = read.name();
      read.needs(u") AS ");
      alias = read.name();
    } else if (!read.takes(u"*")) {
      wanted = read.names();
    }
    read.needs(u"FROM ");
    const FakeTable& table = tableOf(read.name());
    const std::vector<FakeRowRef> rows = conditions(read, table);
    return alias.empty() ? projected(table, wanted, rows) : maximum(table, greatest, alias, rows);
  }

  std::int32_t execute(TextView sql) {
    if (Reader(sql, 0).takes(u"INSERT")) return insert(sql);
    if (Reader(sql, 0).takes(u"DELETE")) return remove(sql);
    return update(sql);
  }

 private:
  FakeTable& tableOf(const Text& name) const {
    const FakeTableRef table = database_.tableNamed(name);
    if (!table) throw Failure(dao::failure::unknownTable, name);
    return *table;
  }

  static std::size_t columnOf(const FakeTable& table, const Text& name) {
    for (std::size_t i = 0; i < table.columns.size(); ++i)
      if (sameName(table.columns[i].name, name)) return i;
    throw Failure(dao::failure::unknownColumn, name);
  }

  // Reads WHERE to the end; the rows that meet it.
  static std::vector<FakeRowRef> conditions(Reader& read, const FakeTable& table) {
    std::vector<FakeRowRef> rows = table.rows;
    if (!read.atEnd()) {
      read.needs(u"WHERE ");
      do {
        const std::size_t column = columnOf(table, read.name());
        read.needs(u"=");
        const Variant value = read.literal();
        std::erase_if(rows, [&](const FakeRowRef& row) { return !equal(row->values.at(column), value); });
      } while (read.takes(u"AND "));
      read.ends();
    }
    return rows;
  }

  static FakeTableRef projected(const FakeTable& table, const std::vector<Text>& names,
                                const std::vector<FakeRowRef>& rows) {
    auto result = std::make_shared<FakeTable>();
    std::vector<std::size_t> chosen;
    for (const Text& name : names) chosen.push_back(columnOf(table, name));
    if (names.empty())
      for (std::size_t i = 0; i < table.columns.size(); ++i) chosen.push_back(i);
    for (const std::size_t column : chosen) result->columns.push_back(table.columns[column]);
    for (const FakeRowRef& row : rows) {
      std::vector<Variant> values;
      for (const std::size_t column : chosen) values.push_back(row->values.at(column));
      result->add(std::move(values));
    }
    return result;
  }

  static FakeTableRef maximum(const FakeTable& table, const Text& name, const Text& alias,
                              const std::vector<FakeRowRef>& rows) {
    const std::size_t column = columnOf(table, name);
    Variant greatest = Null;
    for (const FakeRowRef& row : rows)
      if (greatest.isNull() || row->values[column].toLong() > greatest.toLong())
        greatest = row->values[column];
    auto result = std::make_shared<FakeTable>();
    result->columns = {{alias, dbLong}};
    result->add({greatest});
    return result;
  }

  std::int32_t insert(TextView sql) {
    Reader read(sql, dao::failure::insertSyntax);
    read.needs(u"INSERT INTO ");
    FakeTable& table = tableOf(read.name());
    read.needs(u"(");
    const std::vector<Text> names = read.names();
    read.needs(u") VALUES (");
    std::vector<Variant> values(table.columns.size(), Null);
    for (std::size_t i = 0; i < names.size(); ++i) {
      if (i > 0) read.needs(u",");
      values[columnOf(table, names[i])] = read.literal();
    }
    read.needs(u")");
    read.ends();
    for (std::size_t i = 0; i < values.size(); ++i)
      if (table.columns[i].attributes & dbAutoIncrField) number(table, i, values[i]);
    table.add(std::move(values));
    return 1;
  }

  void number(const FakeTable& table, std::size_t column, Variant& key) {
    std::int32_t& highest = highest_[&table];
    for (const FakeRowRef& row : table.rows) highest = std::max(highest, row->values[column].toLong());
    highest = key.isNull() ? highest + 1 : std::max(highest, key.toLong());
    if (key.isNull()) key = highest;
  }

  std::int32_t remove(TextView sql) {
    Reader read(sql, dao::failure::syntax);
    read.needs(u"DELETE * FROM ");
    FakeTable& table = tableOf(read.name());
    // So that the highest key is known when its row is gone.
    for (std::size_t i = 0; i < table.columns.size(); ++i)
      for (const FakeRowRef& row : table.rows)
        if (table.columns[i].attributes & dbAutoIncrField)
          highest_[&table] = std::max(highest_[&table], row->values[i].toLong());
    const auto gone = conditions(read, table);
    for (const FakeRowRef& row : gone) {
      row->gone = true;
      std::erase(table.rows, row);
    }
    return static_cast<std::int32_t>(gone.size());
  }

  std::int32_t update(TextView sql) {
    Reader read(sql, dao::failure::updateSyntax);
    read.needs(u"UPDATE ");
    FakeTable& table = tableOf(read.name());
    read.needs(u"SET ");
    std::vector<std::pair<std::size_t, Variant>> assigned;
    do {
      const std::size_t column = columnOf(table, read.name());
      read.needs(u"=");
      assigned.emplace_back(column, read.literal());
    } while (read.takes(u","));
    const auto rows = conditions(read, table);
    for (const FakeRowRef& row : rows)
      for (const auto& [column, value] : assigned) row->values[column] = value;
    return static_cast<std::int32_t>(rows.size());
  }

  const FakeDatabase& database_;
  std::map<const FakeTable*, std::int32_t> highest_;
};

}  // namespace

void answersAttachments(FakeDatabase& database) {
  const auto statements = std::make_shared<Statements>(database);
  database.otherwise = [statements, before = database.otherwise](TextView sql) {
    const FakeTableRef answer = before(sql);
    return answer ? answer : statements->select(sql);
  };
  database.onExecute = [statements](TextView sql) { return statements->execute(sql); };
}

FakeTableRef attachmentTable(FakeDatabase& database, Text name) {
  return database.table(std::move(name), {{u"IdDocu", dbLong, dbAutoIncrField},
                                          {u"Id", dbLong},
                                          {u"IdAgencia", dbLong},
                                          {u"IdNota", dbLong},
                                          {u"NombreOrg"},
                                          {u"NombreArch"}});
}

}  // namespace ovalia::kit
