#pragma once

#include "engines/BaseRecordset.h"
#include "engines/DynasetPlan.h"
#include "engines/PlaceSet.h"

namespace ovalia::engines {

// The keys of its rows as they were when it was opened; each row is read when it is needed and written by
// key.
class Dynaset : public BaseRecordset {
 public:
  Dynaset(std::shared_ptr<Database> database, Text sql, std::unique_ptr<DynasetPlan> plan);
  ~Dynaset() override;

  void Edit() override;
  void Update(int type, bool force) override;
  void CancelUpdate() override;
  void Delete() override;
  bool editing() const override { return editing_; }

  std::size_t keyBytes() const { return keys_.bytes(); }

 protected:
  Place rows() const override { return static_cast<Place>(keys_.size()); }
  void arrive() override;
  void dropEdit() override;
  void reopen() override;
  void forget() override;
  Place search(TextView criterion, Place from, Direction direction) override;
  Text nameOf(Place place) const override;
  Place placeOf(TextView name) const override;

  Variant fieldValue(std::size_t position) override;
  void setFieldValue(std::size_t position, const Variant& value) override;

 private:
  static constexpr Place nowhere = -1;

  void load(std::unique_ptr<DynasetPlan> plan);
  static KeySet readKeys(DynasetPlan& plan);
  void start(KeySet keys);
  void followColumns();
  const Rows::Cell& cell(std::size_t field) const;  // of the row at hand: 3265 where its column is gone
  void freshRow();            // reads the current row unless it is at hand as it stands now: 3167
  bool readRow(Place place);  // false when it is gone
  std::vector<Stored> keysAt(Place place) const;
  Place searchKey(std::int64_t key, Place from, Direction direction);
  const PlaceSet& matches(const Criterion& criterion);
  std::vector<std::int64_t> fewKeys() const;
  Statement& findStatement(const Criterion& criterion);
  Statement& updateStatement(const std::vector<std::size_t>& changed);
  std::vector<std::size_t> changedFields() const;
  Text written(TextView name) const;

  const KeyQuery& query() const { return plan_->query; }

  std::unique_ptr<DynasetPlan> plan_;
  KeySet keys_;

  Rows row_;
  Place rowPlace_ = nowhere;  // of the row at hand
  bool rowThere_ = false;
  std::uint64_t rowVersion_ = 0;
  std::uint64_t columnsVersion_ = 0;                // of the row's statement when places_ was made
  std::vector<std::optional<std::size_t>> places_;  // of the fields in a row, where not one after the other

  bool editing_ = false;
  std::vector<std::optional<Stored>> edits_;  // by field
  std::vector<std::size_t> updateFields_;
  std::unique_ptr<Statement> updateStatement_;

  Text findSql_;  // the last search that was made ready: the next may only be for another text
  std::unique_ptr<Statement> findStatement_;
  std::optional<Criterion> searched_;  // the last one, and where its rows are as long as nothing changes
  std::uint64_t searchedVersion_ = 0;
  PlaceSet found_;
};

}  // namespace ovalia::engines
