#pragma once

#include "engines/BaseRecordset.h"

namespace ovalia::engines {

// Rows as they were when it was opened, never written. A long result is read as far as somebody goes. Also
// what a dynaset falls back to where rows cannot be named one by one: groups, unions, tables without a key.
class Snapshot : public BaseRecordset {
 public:
  Snapshot(std::shared_ptr<Database> database, Text sql, std::unique_ptr<SnapshotPlan> plan);

  void Edit() override;
  void Update(int type, bool force) override;
  void CancelUpdate() override;
  void Delete() override;
  bool editing() const override { return false; }

 protected:
  Place rows() const override;
  Place allRows() const override;
  void arrive() override {}
  void dropEdit() override {}
  void reopen() override;
  void forget() override;
  Place search(TextView criterion, Place from, Direction direction) override;
  Text nameOf(Place place) const override;
  Place placeOf(TextView name) const override;

  Variant fieldValue(std::size_t position) override;
  void setFieldValue(std::size_t position, const Variant& value) override;

 private:
  void read(std::unique_ptr<SnapshotPlan> plan);
  const Rows::Cell& cell(Place row, std::size_t column) const;

  static constexpr std::size_t atOnce = 1'000;  // rows
  void readOn() const;

  mutable Rows rows_;
  mutable std::unique_ptr<RowStream> rest_;  // nothing once all has been read
  std::size_t columns_ = 0;
};

}  // namespace ovalia::engines
