#include "engines/Dynaset.h"

#include <algorithm>
#include <charconv>

#include "engines/Names.h"
#include "engines/Sentence.h"

namespace ovalia::engines {

Dynaset::Dynaset(std::shared_ptr<Database> database, Text sql, std::unique_ptr<DynasetPlan> plan)
    : BaseRecordset(std::move(database), std::move(sql)) {
  load(std::move(plan));
}

Dynaset::~Dynaset() { forget(); }

void Dynaset::load(std::unique_ptr<DynasetPlan> plan) {
  KeySet keys = readKeys(*plan);
  setFields(plan->fields);
  plan_ = std::move(plan);
  start(std::move(keys));
}

KeySet Dynaset::readKeys(DynasetPlan& plan) {
  KeySet keys(plan.query.keys.size());
  plan.keys->readKeys(keys);
  keys.shrink();
  return keys;
}

void Dynaset::start(KeySet keys) {
  keys_ = std::move(keys);
  columnsVersion_ = 0;
  places_.clear();
  updateStatement_.reset();
  findStatement_.reset();
  rowPlace_ = nowhere;
  searched_.reset();
}

void Dynaset::reopen() {
  if (plan_->age == PlanAge::now(database().catalog())) return start(readKeys(*plan_));
  const Translation translation = database().translated(sql());
  auto query = KeyQuery::of(*translation.select, database().driver().facts());
  if (!query) {
    database().driver().prepare(translation.sql, StatementKind::Select);  // knows better what is wrong
    throw databaseFailure(dao::failure::readOnly);
  }
  load(DynasetPlan::make(std::move(*query), database().driver(), database().catalog()));
}

void Dynaset::forget() {
  if (plan_) database().dynasetPlans().put(sql(), std::move(plan_));
  updateStatement_.reset();
  findStatement_.reset();
  searched_.reset();
  keys_ = KeySet();
  row_ = {};
  found_ = {};
  editing_ = false;
}

std::vector<Stored> Dynaset::keysAt(Place place) const {
  std::vector<Stored> keys(keys_.width());
  for (std::size_t i = 0; i < keys.size(); ++i) {
    const std::int64_t key = keys_.key(static_cast<std::size_t>(place), i);
    if (keys.size() == 1 || key != KeySet::noKey) keys[i] = key;
  }
  return keys;
}

bool Dynaset::readRow(Place place) {
  rowPlace_ = nowhere;
  rowVersion_ = database().driver().dataVersion();
  row_.clear();
  plan_->row->bind(keysAt(place));
  rowThere_ = plan_->row->readFirst(row_);
  if (plan_->row->columnsVersion() != columnsVersion_) followColumns();
  rowPlace_ = place;
  return rowThere_;
}

// Tables were changed: where the columns lie now that the fields were made from.
void Dynaset::followColumns() {
  columnsVersion_ = plan_->row->columnsVersion();
  places_.clear();
  const std::vector<ResultColumn> now = plan_->row->columns();
  if (now == plan_->columns) return;
  for (const ResultColumn& column : plan_->columns) {
    const auto found = std::find(now.begin(), now.end(), column);
    if (found == now.end())
      places_.push_back(std::nullopt);
    else
      places_.push_back(static_cast<std::size_t>(found - now.begin()));
  }
}

const Rows::Cell& Dynaset::cell(std::size_t field) const {
  const auto place = places_.empty() ? field : places_[field];
  if (!place || *place >= row_.cellCount()) throw databaseFailure(dao::failure::notInCollection);
  return row_.cell(*place);
}

void Dynaset::freshRow() {
  const bool atHand = rowPlace_ == place() && rowVersion_ == database().driver().dataVersion();
  if (!(atHand ? rowThere_ : readRow(place()))) throw databaseFailure(dao::failure::recordDeleted);
}

void Dynaset::arrive() { freshRow(); }

Variant Dynaset::fieldValue(std::size_t position) {
  needRow();
  const auto& type = recordFields().info(position).type;
  const auto delivered = type ? std::optional(type->type) : std::nullopt;
  if (!editing_) freshRow();
  if (!editing_ || !edits_[position]) return toVariant(row_, cell(position), delivered);
  Rows edited;
  struct Adder {
    Rows& rows;
    void operator()(std::monostate) const { rows.addNull(); }
    void operator()(std::int64_t value) const { rows.addInteger(value); }
    void operator()(double value) const { rows.addReal(value); }
    void operator()(const std::string& value) const { rows.addText(value); }
  };
  std::visit(Adder{edited}, *edits_[position]);
  return toVariant(edited, edited.cell(0), delivered);
}

void Dynaset::Edit() {
  needRow();
  dropEdit();
  freshRow();
  if (database().driver().readOnly()) throw databaseFailure(dao::failure::readOnly);
  edits_.assign(recordFields().count(), std::nullopt);
  editing_ = true;
}

void Dynaset::dropEdit() {
  editing_ = false;
  edits_.clear();
}

void Dynaset::CancelUpdate() {
  checkOpen();
  dropEdit();
}

// Every output of the same real column shows what was assigned to one of them.
void Dynaset::setFieldValue(std::size_t position, const Variant& value) {
  checkOpen();
  if (!editing_) throw databaseFailure(dao::failure::updateWithoutEdit);
  const FieldInfo& info = recordFields().info(position);
  if (!info.updatable) throw databaseFailure(dao::failure::readOnly, info.name);
  const Stored stored = toStored(value, info.type ? info.type->type : dao::dbText);
  for (std::size_t i = 0; i < edits_.size(); ++i) {
    const FieldInfo& other = recordFields().info(i);
    if (other.updatable && sameColumn(other.column, info.column)) edits_[i] = stored;
  }
}

// One field for each real column that was assigned.
std::vector<std::size_t> Dynaset::changedFields() const {
  std::vector<std::size_t> changed;
  for (std::size_t i = 0; i < edits_.size(); ++i) {
    const auto same = [&](std::size_t other) {
      return sameColumn(recordFields().info(other).column, recordFields().info(i).column);
    };
    if (edits_[i] && std::none_of(changed.begin(), changed.end(), same)) changed.push_back(i);
  }
  return changed;
}

Text Dynaset::written(TextView name) const { return writtenName(name, database().driver().facts()); }

Statement& Dynaset::updateStatement(const std::vector<std::size_t>& changed) {
  if (updateStatement_ && changed == updateFields_) return *updateStatement_;
  const TextView parameter = database().driver().facts().parameter;
  const TableInfo& table = query().baseTable();
  Text sql = u"UPDATE " + written(table.name) + u" SET ";
  std::int64_t number = 0;
  for (const std::size_t field : changed) {
    if (number > 0) sql += u", ";
    sql.append(written(recordFields().info(field).column))
        .append(u" = ")
        .append(parameter)
        .append(toText(++number));
  }
  sql.append(u" WHERE ").append(written(table.key)).append(u" = ").append(parameter).append(toText(++number));
  updateStatement_ = database().driver().prepare(sql, StatementKind::Update);
  updateFields_ = changed;
  return *updateStatement_;
}

void Dynaset::Update(int, bool) {
  checkOpen();
  if (!editing_) throw databaseFailure(dao::failure::updateWithoutEdit);
  const std::vector<std::size_t> changed = changedFields();
  std::vector<Stored> values;
  for (const std::size_t field : changed) {
    const FieldInfo& info = recordFields().info(field);
    const auto* const text = std::get_if<std::string>(&*edits_[field]);
    if (text && info.type && info.type->size > 0 &&
        wide(*text).size() > static_cast<std::size_t>(info.type->size))
      throw databaseFailure(dao::failure::tooLong, info.name);
    values.push_back(*edits_[field]);
  }
  if (!changed.empty()) {
    values.push_back(keys_.key(static_cast<std::size_t>(place())));
    Statement& statement = updateStatement(changed);
    statement.bind(values);
    if (statement.run() == 0) throw databaseFailure(dao::failure::recordDeleted);
    for (const std::size_t field : changed)
      if (const auto* const key = std::get_if<std::int64_t>(&*edits_[field]);
          key && sameColumn(recordFields().info(field).column, query().baseTable().key))
        keys_.put(static_cast<std::size_t>(place()), *key);
    rowPlace_ = nowhere;
  }
  dropEdit();
}

void Dynaset::Delete() {
  needRow();
  dropEdit();
  if (database().driver().readOnly()) throw databaseFailure(dao::failure::readOnly);
  const TableInfo& table = query().baseTable();
  const auto statement =
      database().driver().prepare(u"DELETE FROM " + written(table.name) + u" WHERE " + written(table.key) +
                                      u" = " + Text(database().driver().facts().parameter) + u"1",
                                  StatementKind::Delete);
  const Stored key = keys_.key(static_cast<std::size_t>(place()));
  statement->bind({&key, 1});
  if (statement->run() == 0) throw databaseFailure(dao::failure::recordDeleted);
  keys_.erase(static_cast<std::size_t>(place()));
  rowPlace_ = nowhere;
  searched_.reset();
  rowTakenOut();
}

BaseRecordset::Place Dynaset::search(TextView criterion, Place from, Direction direction) {
  const Criterion condition =
      translateCriterion(criterion, query().shape, database().catalog(), database().driver().facts());
  if (rows() == 0) return nowhere;
  if (condition.onlyColumn && keys_.width() == 1 &&
      query().isBaseKey(query().shape.outputs[*condition.onlyColumn]))
    return searchKey(condition.onlyNumber, from, direction);
  const PlaceSet& places = matches(condition);
  return direction == Direction::Forward ? places.atOrAfter(from)
                                         : places.atOrBefore(std::min(from, rows() - 1));
}

BaseRecordset::Place Dynaset::searchKey(std::int64_t key, Place from, Direction direction) {
  const auto found = keys_.find({&key, 1});
  if (!found) return nowhere;
  const Place place = static_cast<Place>(*found);
  if (direction == Direction::Forward ? place < from : place > from) return nowhere;
  dropEdit();
  return readRow(place) ? place : nowhere;
}

// The rows of a short list are cheaper named one by one than picked out of all that its tables hold.
std::vector<std::int64_t> Dynaset::fewKeys() const {
  constexpr std::size_t few = 500;
  std::vector<std::int64_t> keys;
  if (query().shape.where.empty() || keys_.width() > 1 || keys_.size() > few) return keys;
  for (std::size_t i = 0; i < keys_.size(); ++i) keys.push_back(keys_.key(i));
  return keys;
}

Statement& Dynaset::findStatement(const Criterion& criterion) {
  Text sql = query().matchesSql(criterion.sql, fewKeys());
  if (!findStatement_ || sql != findSql_) {
    findStatement_ = database().driver().prepare(sql, StatementKind::Criterion);
    findSql_ = std::move(sql);
  }
  findStatement_->bind(criterion.texts);
  return *findStatement_;
}

const PlaceSet& Dynaset::matches(const Criterion& criterion) {
  Driver& driver = database().driver();
  const std::uint64_t version = driver.dataVersion();
  if (searched_ == criterion && searchedVersion_ == version) return found_;
  searched_.reset();
  KeySet met(keys_.width());
  findStatement(criterion).readKeys(met);
  std::vector<std::uint32_t> places;
  std::vector<std::int64_t> keys(met.width());
  for (std::size_t row = 0; row < met.size(); ++row) {
    for (std::size_t i = 0; i < keys.size(); ++i) keys[i] = met.key(row, i);
    if (const auto place = keys_.find(keys)) places.push_back(static_cast<std::uint32_t>(*place));
  }
  found_ = PlaceSet(std::move(places), keys_.size());
  searched_ = criterion;
  searchedVersion_ = version;
  return found_;
}

// The keys, and where the row stood: own deletes can only have moved it towards the front.
Text Dynaset::nameOf(Place place) const {
  Text name;
  for (std::size_t i = 0; i < keys_.width(); ++i)
    name.append(toText(keys_.key(static_cast<std::size_t>(place), i))).append(u",");
  return name.append(toText(place));
}

BaseRecordset::Place Dynaset::placeOf(TextView name) const {
  std::vector<std::int64_t> numbers;
  const std::string digits = toUtf8(name);
  const char* const end = digits.data() + digits.size();
  for (const char* at = digits.data(); at <= end; ++at) {
    std::int64_t number = 0;
    const auto [after, error] = std::from_chars(at, end, number);
    if (error != std::errc() || (after != end && *after != ',')) break;
    numbers.push_back(number);
    at = after;
  }
  if (numbers.size() != keys_.width() + 1) throw databaseFailure(dao::failure::noCurrentRecord);
  const Place hint = std::min(static_cast<Place>(numbers.back()), rows() - 1);
  numbers.pop_back();
  const auto is = [&](Place place) {
    for (std::size_t i = 0; i < numbers.size(); ++i)
      if (keys_.key(static_cast<std::size_t>(place), i) != numbers[i]) return false;
    return true;
  };
  constexpr Place nearby = 64;
  for (Place place = hint; place >= 0 && place > hint - nearby; --place)
    if (is(place)) return place;
  const auto found = keys_.find(numbers);
  return found ? static_cast<Place>(*found) : nowhere;
}

}  // namespace ovalia::engines
