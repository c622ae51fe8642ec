#include "engines/Snapshot.h"

#include <algorithm>
#include <charconv>

#include "engines/Translator.h"

namespace ovalia::engines {

Snapshot::Snapshot(std::shared_ptr<Database> database, Text sql, std::unique_ptr<SnapshotPlan> plan)
    : BaseRecordset(std::move(database), std::move(sql)) {
  read(std::move(plan));
}

void Snapshot::reopen() {
  auto plan = database().snapshotPlans().take(sql(), database().catalog());
  if (!plan)
    plan = SnapshotPlan::make(database().translated(sql()), database().driver(), database().catalog());
  read(std::move(plan));
}

void Snapshot::read(std::unique_ptr<SnapshotPlan> plan) {
  Rows fresh;
  std::unique_ptr<RowStream> rest;
  if (plan->statement->readUpTo(fresh, atOnce)) {
    // All of one moment: the rows read so far are read again.
    fresh.clear();
    rest = database().driver().stream(plan->sql);
    if (!rest)
      plan->statement->readAll(fresh);
    else if (!rest->readSome(fresh, atOnce))
      rest.reset();
  }
  plan->followColumns(database().catalog());
  rest_ = std::move(rest);
  rows_ = std::move(fresh);
  columns_ = plan->fields->size();
  setFields(plan->fields);
  database().snapshotPlans().put(sql(), std::move(plan));
}

// As many as are known of: at least one behind the current row where there is one.
BaseRecordset::Place Snapshot::rows() const {
  const auto known = [this] { return columns_ == 0 ? 0 : static_cast<Place>(rows_.cellCount() / columns_); };
  while (rest_ && known() < place() + 2) readOn();
  return known();
}

BaseRecordset::Place Snapshot::allRows() const {
  while (rest_) readOn();
  return rows();
}

void Snapshot::readOn() const {
  if (!rest_->readSome(rows_, atOnce)) rest_.reset();
}

void Snapshot::forget() {
  rows_ = {};
  rest_.reset();
}

const Rows::Cell& Snapshot::cell(Place row, std::size_t column) const {
  return rows_.cell(static_cast<std::size_t>(row) * columns_ + column);
}

Variant Snapshot::fieldValue(std::size_t position) {
  needRow();
  const auto& type = recordFields().info(position).type;
  return toVariant(rows_, cell(place(), position), type ? std::optional(type->type) : std::nullopt);
}

void Snapshot::setFieldValue(std::size_t, const Variant&) {
  checkOpen();
  throw databaseFailure(dao::failure::updateWithoutEdit);
}

void Snapshot::Edit() {
  needRow();
  throw databaseFailure(dao::failure::readOnly);
}

void Snapshot::Update(int, bool) {
  checkOpen();
  throw databaseFailure(dao::failure::updateWithoutEdit);
}

void Snapshot::CancelUpdate() { checkOpen(); }

void Snapshot::Delete() {
  needRow();
  throw databaseFailure(dao::failure::readOnly);
}

// The engine judges the criterion over the values read: each column is a parameter.
BaseRecordset::Place Snapshot::search(TextView criterion, Place from, Direction direction) {
  const DialectFacts& facts = database().driver().facts();
  SelectShape shape;
  for (std::size_t i = 0; i < columns_; ++i) {
    const FieldInfo& info = recordFields().info(i);
    OutputColumn output;
    output.name = info.name;
    output.sql = Text(facts.parameter) + toText(static_cast<std::int64_t>(i) + 1);
    if (info.type) output.type = info.type->type;
    shape.outputs.push_back(std::move(output));
  }
  const Criterion condition = translateCriterion(criterion, shape, database().catalog(), facts, columns_);
  const auto statement =
      database().driver().prepare(u"SELECT 1 WHERE " + condition.sql, StatementKind::Criterion);
  std::vector<Stored> values(columns_);
  values.insert(values.end(), condition.texts.begin(), condition.texts.end());
  Rows met;
  const Place step = direction == Direction::Forward ? 1 : -1;
  for (Place row = std::clamp<Place>(from, -1, allRows()); row >= 0 && row < rows(); row += step) {
    for (std::size_t i = 0; i < columns_; ++i) {
      const Rows::Cell& value = cell(row, i);
      switch (value.kind) {
        case Rows::Kind::Null:
          values[i] = std::monostate{};
          break;
        case Rows::Kind::Integer:
          values[i] = value.integer;
          break;
        case Rows::Kind::Real:
          values[i] = value.real;
          break;
        case Rows::Kind::Text:
          values[i] = std::string(rows_.text(value));
          break;
      }
    }
    statement->bind(values);
    if (statement->readFirst(met)) return row;
  }
  return -1;
}

Text Snapshot::nameOf(Place place) const { return toText(place); }

BaseRecordset::Place Snapshot::placeOf(TextView name) const {
  const std::string digits = toUtf8(name);
  Place place = -1;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), place);
  if (error != std::errc() || end != digits.data() + digits.size() || place < 0 || place >= allRows())
    throw databaseFailure(dao::failure::noCurrentRecord);
  return place;
}

}  // namespace ovalia::engines
