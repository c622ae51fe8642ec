#include "tests/kit/FakeRecordset.h"

#include <optional>

namespace ovalia::kit {

// Where a recordset stands, and what it has in its edit buffer.
struct FakeCursor {
  FakeTableRef table;
  std::shared_ptr<dao::Database> database;
  FaultPanel* faults = nullptr;
  std::vector<FakeRowRef> keys;
  std::ptrdiff_t position = 0;  // -1 before the first, keys.size() behind the last
  bool hole = false;            // the current row was deleted here
  bool noMatch = false;
  bool closed = false;
  std::optional<std::vector<std::optional<Variant>>> buffer;  // while editing: what was assigned

  void open() {
    keys = table->rows;
    position = keys.empty() ? -1 : 0;
    hole = false;
    buffer.reset();
  }
  void visit(std::string_view operation) {
    if (faults) faults->visit(operation);
    checkOpen();
  }
  void checkOpen() const {
    if (closed) throw Failure(failure::objectNotSet);
  }
  bool beforeFirst() const { return keys.empty() || (position < 0 && !hole); }
  bool behindLast() const { return keys.empty() || (position >= std::ssize(keys) && !hole); }
  FakeRow& row() const {
    if (hole) throw Failure(dao::failure::recordDeleted);
    if (position < 0 || position >= std::ssize(keys)) throw Failure(dao::failure::noCurrentRecord);
    if (keys[position]->gone) throw Failure(dao::failure::recordDeleted);
    return *keys[position];
  }
};

namespace {

using CursorRef = std::shared_ptr<FakeCursor>;

Variant converted(const Variant& value, dao::DataType type) {
  if (value.isNull()) return value;
  try {
    switch (type) {
      case dao::dbBoolean:
        return value.toBoolean();
      case dao::dbByte:
        return value.toByte();
      case dao::dbInteger:
        return value.toInteger();
      case dao::dbLong:
        return value.toLong();
      case dao::dbCurrency:
        return value.toCurrency();
      case dao::dbSingle:
      case dao::dbDouble:
        return value.toDouble();
      case dao::dbDate:
        return value.toDate();
      case dao::dbText:
      case dao::dbMemo:
        return value.toText();
    }
  } catch (const Failure&) {
  }
  throw Failure(dao::failure::conversion);
}

class FakeField : public dao::Field {
 public:
  FakeField(CursorRef cursor, std::size_t column) : cursor_(std::move(cursor)), column_(column) {}

  Text Name() const override { return definition().name; }
  Text SourceTable() const override { return definition().sourceTable; }
  dao::DataType Type() const override { return definition().type; }
  std::int32_t Attributes() const override { return definition().attributes; }
  std::shared_ptr<dao::Database> database() const override { return cursor_->database; }

  Variant Value() const override {
    cursor_->visit("Field.Value");
    if (cursor_->buffer && cursor_->buffer->at(column_)) return *cursor_->buffer->at(column_);
    return cursor_->row().values.at(column_);
  }

  void setValue(const Variant& value) override {
    cursor_->visit("Field.setValue");
    if (!cursor_->buffer) throw Failure(dao::failure::updateWithoutEdit);
    cursor_->buffer->at(column_) = converted(value, Type());
  }

 private:
  const FakeColumn& definition() const { return cursor_->table->columns.at(column_); }

  CursorRef cursor_;
  std::size_t column_;
};

class FakeFields : public dao::Fields {
 public:
  explicit FakeFields(CursorRef cursor) : cursor_(std::move(cursor)) {}

  std::size_t count() const override { return cursor_->table->columns.size(); }
  std::shared_ptr<dao::Field> at(std::size_t position) override {
    cursor_->checkOpen();
    if (position >= count()) throw Failure(dao::failure::notInCollection);
    return std::make_shared<FakeField>(cursor_, position);
  }
  std::shared_ptr<dao::Field> item(TextView name) override { return at(cursor_->table->column(name)); }
  bool contains(TextView name) override {
    for (const FakeColumn& column : cursor_->table->columns)
      if (sameName(column.name, name)) return true;
    return false;
  }

 private:
  CursorRef cursor_;
};

// The literal of "column = literal".
Variant literal(Text text) {
  text = trimBlanks(text);
  if (text.size() > 1 && text.starts_with(u'\''))
    return replaceAll(TextView(text).substr(1, text.size() - 2), u"''", u"'");
  if (sameName(text, u"Null")) return Null;
  return val(text);
}

bool equal(const Variant& a, const Variant& b) {
  if (a.isNull() || b.isNull()) return a.isNull() && b.isNull();
  if (a.type() == VarType::Text && b.type() == VarType::Text) return sameName(a.toText(), b.toText());
  return compareEqual(a, b).holds();
}

// A criterion cut at " AND ", outside of text literals.
std::vector<Text> conjuncts(TextView criterion) {
  std::vector<Text> parts{Text{}};
  bool quoted = false;
  for (std::size_t i = 0; i < criterion.size(); ++i) {
    if (criterion[i] == u'\'') quoted = !quoted;
    if (!quoted && sameName(criterion.substr(i, 5), u" and ")) {
      parts.emplace_back();
      i += 4;
    } else {
      parts.back() += criterion[i];
    }
  }
  return parts;
}

}  // namespace

FakeRecordset::FakeRecordset(FakeTableRef table, std::shared_ptr<dao::Database> database, FaultPanel& faults)
    : cursor_(std::make_shared<FakeCursor>()) {
  cursor_->table = std::move(table);
  cursor_->database = std::move(database);
  cursor_->faults = &faults;
  cursor_->open();
  fields_ = std::make_unique<FakeFields>(cursor_);
}

FakeRecordset::~FakeRecordset() = default;

bool FakeRecordset::isBOF() const {
  cursor_->visit("Recordset.BOF");
  return cursor_->beforeFirst();
}

bool FakeRecordset::isEOF() const {
  cursor_->visit("Recordset.EOF");
  return cursor_->behindLast();
}

bool FakeRecordset::NoMatch() const {
  cursor_->visit("Recordset.NoMatch");
  return cursor_->noMatch;
}

std::int32_t FakeRecordset::AbsolutePosition() const {
  cursor_->visit("Recordset.AbsolutePosition");
  if (cursor_->hole || cursor_->beforeFirst() || cursor_->behindLast()) return -1;
  return static_cast<std::int32_t>(cursor_->position);
}

std::int32_t FakeRecordset::RecordCount() const {
  cursor_->visit("Recordset.RecordCount");
  return static_cast<std::int32_t>(cursor_->keys.size());
}

void FakeRecordset::setAbsolutePosition(std::int32_t position) {
  cursor_->visit("Recordset.setAbsolutePosition");
  if (position < 0 || position >= std::ssize(cursor_->keys)) throw Failure(dao::failure::noCurrentRecord);
  moveTo(position);
  cursor_->row();
}

void FakeRecordset::MoveFirst() {
  cursor_->visit("Recordset.MoveFirst");
  if (cursor_->keys.empty()) throw Failure(dao::failure::noCurrentRecord);
  moveTo(0);
}

void FakeRecordset::MoveLast() {
  cursor_->visit("Recordset.MoveLast");
  if (cursor_->keys.empty()) throw Failure(dao::failure::noCurrentRecord);
  moveTo(std::ssize(cursor_->keys) - 1);
}

void FakeRecordset::MoveNext() {
  cursor_->visit("Recordset.MoveNext");
  if (cursor_->behindLast()) throw Failure(dao::failure::noCurrentRecord);
  moveTo(cursor_->hole ? cursor_->position : cursor_->position + 1);
  if (!cursor_->behindLast()) cursor_->row();
}

void FakeRecordset::MovePrevious() {
  cursor_->visit("Recordset.MovePrevious");
  if (cursor_->beforeFirst()) throw Failure(dao::failure::noCurrentRecord);
  moveTo(cursor_->position - 1);
  if (!cursor_->beforeFirst()) cursor_->row();
}

void FakeRecordset::moveTo(std::ptrdiff_t wanted) {
  cursor_->buffer.reset();
  cursor_->hole = false;
  cursor_->position = wanted;
}

void FakeRecordset::FindFirst(TextView criterion) { find(criterion, 0, 1); }
void FakeRecordset::FindLast(TextView criterion) { find(criterion, std::ssize(cursor_->keys) - 1, -1); }
void FakeRecordset::FindNext(TextView criterion) {
  find(criterion, cursor_->hole ? cursor_->position : cursor_->position + 1, 1);
}
void FakeRecordset::FindPrevious(TextView criterion) { find(criterion, cursor_->position - 1, -1); }

void FakeRecordset::find(TextView criterion, std::ptrdiff_t start, std::ptrdiff_t step) {
  cursor_->visit("Recordset.Find");
  criteria.emplace_back(criterion);
  cursor_->buffer.reset();
  cursor_->noMatch = true;
  for (auto place = start; place >= 0 && place < std::ssize(cursor_->keys); place += step) {
    if (cursor_->keys[place]->gone || !matches(criterion, *cursor_->keys[place])) continue;
    moveTo(place);
    cursor_->noMatch = false;
    return;
  }
}

bool FakeRecordset::matches(TextView criterion, const FakeRow& row) const {
  if (matcher) return matcher(criterion, row);
  for (const Text& part : conjuncts(criterion)) {
    const auto sign = part.find(u'=');
    if (sign == Text::npos) throw Failure(dao::failure::criterionSyntax);
    const auto column = cursor_->table->column(trimBlanks(TextView(part).substr(0, sign)));
    if (!equal(row.values.at(column), literal(part.substr(sign + 1)))) return false;
  }
  return true;
}

void FakeRecordset::Edit() {
  cursor_->visit("Recordset.Edit");
  cursor_->row();
  cursor_->buffer.emplace(cursor_->table->columns.size());
}

void FakeRecordset::Update(int type, bool force) {
  updateArguments.emplace_back(type, force);
  cursor_->visit("Recordset.Update");
  if (!cursor_->buffer) throw Failure(dao::failure::updateWithoutEdit);
  FakeRow& row = cursor_->row();
  for (std::size_t i = 0; i < row.values.size(); ++i)
    if (const auto& assigned = cursor_->buffer->at(i)) row.values[i] = *assigned;
  cursor_->buffer.reset();
  ++updates;
}

void FakeRecordset::CancelUpdate() {
  cursor_->visit("Recordset.CancelUpdate");
  cursor_->buffer.reset();
}

void FakeRecordset::Delete() {
  cursor_->visit("Recordset.Delete");
  FakeRow& row = cursor_->row();
  row.gone = true;
  std::erase_if(cursor_->table->rows, [&](const FakeRowRef& held) { return held.get() == &row; });
  cursor_->keys.erase(cursor_->keys.begin() + cursor_->position);
  cursor_->buffer.reset();
  cursor_->hole = !cursor_->keys.empty();
  ++deletes;
}

bool FakeRecordset::editing() const { return cursor_->buffer.has_value(); }

Text FakeRecordset::Bookmark() const {
  cursor_->checkOpen();
  cursor_->row();
  return toText(reinterpret_cast<std::intptr_t>(cursor_->keys[cursor_->position].get()));
}

void FakeRecordset::setBookmark(TextView bookmark) {
  cursor_->visit("Recordset.setBookmark");
  for (std::size_t i = 0; i < cursor_->keys.size(); ++i) {
    if (toText(reinterpret_cast<std::intptr_t>(cursor_->keys[i].get())) != bookmark) continue;
    moveTo(static_cast<std::ptrdiff_t>(i));
    cursor_->row();
    return;
  }
  throw Failure(dao::failure::noCurrentRecord);
}

void FakeRecordset::Requery() {
  cursor_->visit("Recordset.Requery");
  cursor_->open();
}

void FakeRecordset::Close() {
  cursor_->visit("Recordset.Close");
  cursor_->closed = true;
}

dao::Fields& FakeRecordset::fields() {
  cursor_->checkOpen();
  return *fields_;
}

std::unique_ptr<dao::Fields> definitionFields(FakeTableRef table, std::shared_ptr<dao::Database> database) {
  auto cursor = std::make_shared<FakeCursor>();
  cursor->table = std::move(table);
  cursor->database = std::move(database);
  cursor->position = -1;
  return std::make_unique<FakeFields>(cursor);
}

}  // namespace ovalia::kit
