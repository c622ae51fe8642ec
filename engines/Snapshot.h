#pragma once

#include "engines/BaseRecordset.h"

namespace ovalia::engines {

// Rows read once, when it is opened, and never written. Also what a dynaset falls back to where rows cannot
// be named one by one: groups, unions, tables without a key.
class Snapshot : public BaseRecordset {
 public:
  Snapshot(std::shared_ptr<Database> database, Text sql, const Translation& translation);

  void Edit() override;
  void Update(int type, bool force) override;
  void CancelUpdate() override;
  void Delete() override;
  bool editing() const override { return false; }

 protected:
  Place rows() const override;
  void arrive() override {}
  void dropEdit() override {}
  void reopen() override;
  void forget() override { rows_ = {}; }
  Place search(TextView criterion, Place from, Direction direction) override;
  Text nameOf(Place place) const override;
  Place placeOf(TextView name) const override;

  Variant fieldValue(std::size_t position) override;
  void setFieldValue(std::size_t position, const Variant& value) override;

 private:
  void read(const Translation& translation);
  const Rows::Cell& cell(Place row, std::size_t column) const;

  Rows rows_;
  std::size_t columns_ = 0;
};

}  // namespace ovalia::engines
