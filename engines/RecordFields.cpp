#include "engines/RecordFields.h"

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

// Length, first and last letter without case; 0 for a name that is not all ASCII, which only a full
// comparison can tell from another.
std::uint32_t signatureOf(TextView name) {
  char16_t all = 0;
  for (const char16_t c : name) all |= c;
  if (name.empty() || all > 0x7F) return 0;
  return static_cast<std::uint32_t>(name.size()) << 16 |
         static_cast<std::uint32_t>(name.front() | 0x20) << 8 |
         static_cast<std::uint32_t>(name.back() | 0x20);
}

}  // namespace

RecordFields::RecordFields(FieldOwner& owner, FieldInfos infos) : owner_(owner), infos_(std::move(infos)) {
  fields_.reserve(infos_->size());
  signatures_.reserve(infos_->size());
  for (const FieldInfo& info : *infos_) {
    fields_.emplace_back(*this, fields_.size(), info);
    signatures_.push_back(signatureOf(info.name));
  }
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

std::optional<std::size_t> RecordFields::position(TextView name) const {
  const std::uint32_t signature = signatureOf(name);
  for (std::size_t i = 0; i < signatures_.size(); ++i) {
    const bool perhaps = signature == signatures_[i] || signature == 0 || signatures_[i] == 0;
    if (perhaps && sameColumn((*infos_)[i].name, name)) return i;
  }
  return std::nullopt;
}

std::size_t RecordFields::Field::present() const {
  if (!fields_.successor_) return position_;
  fields_.owner_.checkOpen();
  const auto position = fields_.successor_->position(info_.name);
  if (!position) throw databaseFailure(dao::failure::notInCollection, info_.name);
  return *position;
}

// An expression has the type of its present value.
dao::DataType RecordFields::Field::Type() const {
  if (info_.type) return info_.type->type;
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
