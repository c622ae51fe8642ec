#include "engines/RecordFields.h"

#include <algorithm>
#include <array>

#include "engines/Names.h"

namespace ovalia::engines {
namespace {

struct TypeOfValue {
  VarType value;
  dao::DataType type;
};

constexpr std::array typesOfValues{
    TypeOfValue{VarType::Boolean, dao::dbBoolean},   TypeOfValue{VarType::Byte, dao::dbByte},
    TypeOfValue{VarType::Integer, dao::dbInteger},   TypeOfValue{VarType::Long, dao::dbLong},
    TypeOfValue{VarType::Currency, dao::dbCurrency}, TypeOfValue{VarType::Single, dao::dbSingle},
    TypeOfValue{VarType::Double, dao::dbDouble},     TypeOfValue{VarType::Date, dao::dbDate},
};

}  // namespace

RecordFields::RecordFields(FieldOwner& owner, std::vector<FieldInfo> infos) : owner_(owner) {
  fields_.reserve(infos.size());
  for (FieldInfo& info : infos) fields_.emplace_back(owner, fields_.size(), std::move(info));
}

std::shared_ptr<dao::Field> RecordFields::at(std::size_t position) {
  owner_.checkOpen();
  if (position >= fields_.size())
    throw databaseFailure(dao::failure::notInCollection, toText(static_cast<std::int64_t>(position)));
  return {owner_.keepAlive(), &fields_[position]};
}

std::shared_ptr<dao::Field> RecordFields::item(TextView name) {
  owner_.checkOpen();
  const auto found = position(name);
  if (!found) throw databaseFailure(dao::failure::notInCollection, name);
  return {owner_.keepAlive(), &fields_[*found]};
}

bool RecordFields::contains(TextView name) { return position(name).has_value(); }

bool RecordFields::describes(const std::vector<FieldInfo>& infos) const {
  return std::equal(fields_.begin(), fields_.end(), infos.begin(), infos.end(),
                    [](const Field& field, const FieldInfo& info) { return field.info == info; });
}

std::optional<std::size_t> RecordFields::position(TextView name) const {
  for (std::size_t i = 0; i < fields_.size(); ++i)
    if (sameColumn(fields_[i].info.name, name)) return i;
  return std::nullopt;
}

// An expression has the type of its present value.
dao::DataType RecordFields::Field::Type() const {
  if (info.type) return info.type->type;
  try {
    const VarType value = Value().type();
    for (const TypeOfValue& row : typesOfValues)
      if (row.value == value) return row.type;
  } catch (const Failure&) {
    // Without a row a text is as good as any.
  }
  return dao::dbText;
}

}  // namespace ovalia::engines
