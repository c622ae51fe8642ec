#pragma once

#include "engines/Driver.h"
#include "platform/dao.h"

namespace ovalia::engines {

// What is known of a column of a recordset or of a table.
struct FieldInfo {
  Text name;
  Text table;  // real names of where it comes from; "" for an expression
  Text column;
  std::optional<ColumnType> type;  // nothing: its values are delivered as the engine keeps them
  bool autoIncrement = false;
  bool updatable = false;

  friend bool operator==(const FieldInfo&, const FieldInfo&) = default;
};

using FieldInfos = std::shared_ptr<const std::vector<FieldInfo>>;

// What a field asks of the recordset or the definition that it belongs to.
class FieldOwner {
 public:
  virtual ~FieldOwner() = default;
  virtual Variant fieldValue(std::size_t position) = 0;
  virtual void setFieldValue(std::size_t position, const Variant& value) = 0;
  virtual std::shared_ptr<dao::Database> fieldDatabase() const = 0;
  virtual void checkOpen() const = 0;  // 91 when it is closed
  virtual std::shared_ptr<void> keepAlive() = 0;
};

// The fields of an owner, which outlives them: each reference to a field keeps it alive. When the owner's
// columns become others it has new fields, and those that somebody still holds stand for the new ones of
// their names.
class RecordFields : public dao::Fields {
 public:
  RecordFields(FieldOwner& owner, FieldInfos infos);

  std::size_t count() const override { return fields_.size(); }
  std::shared_ptr<dao::Field> at(std::size_t position) override;
  std::shared_ptr<dao::Field> item(TextView name) override;
  bool contains(TextView name) override;

  const FieldInfo& info(std::size_t position) const { return (*infos_)[position]; }

  bool describes(const FieldInfos& infos) const { return infos_ == infos || *infos_ == *infos; }

  void giveWayTo(const RecordFields& successor) { successor_ = &successor; }

  // The position of a name; nothing where there is none. The first of several.
  std::optional<std::size_t> position(TextView name) const;

 private:
  class Field : public dao::Field {
   public:
    Field(const RecordFields& fields, std::size_t position, const FieldInfo& info)
        : info_(info), fields_(fields), position_(position) {}

    Text Name() const override { return info_.name; }
    Text SourceTable() const override { return info_.table; }
    dao::DataType Type() const override;
    std::int32_t Attributes() const override { return info_.autoIncrement ? dao::dbAutoIncrField : 0; }
    Variant Value() const override { return fields_.owner_.fieldValue(present()); }
    void setValue(const Variant& value) override { fields_.owner_.setFieldValue(present(), value); }
    std::shared_ptr<dao::Database> database() const override { return fields_.owner_.fieldDatabase(); }

   private:
    std::size_t present() const;  // its position now: 3265 when there is none

    const FieldInfo& info_;
    const RecordFields& fields_;
    std::size_t position_;
  };

  FieldOwner& owner_;
  FieldInfos infos_;
  std::vector<std::uint32_t> signatures_;  // of the names, for a quick look
  std::vector<Field> fields_;
  const RecordFields* successor_ = nullptr;
};

}  // namespace ovalia::engines
