#pragma once

#include "engines/Database.h"
#include "engines/RecordFields.h"

namespace ovalia::engines {

// Where the current row stands among the rows, and the moves. What a row holds is the derived class's matter.
class BaseRecordset : public dao::Recordset, public FieldOwner {
 public:
  BaseRecordset(std::shared_ptr<Database> database, Text sql);
  ~BaseRecordset() override;

  bool isBOF() const override;
  bool isEOF() const override;
  bool NoMatch() const override;
  std::int32_t AbsolutePosition() const override;
  void setAbsolutePosition(std::int32_t position) override;
  std::int32_t RecordCount() const override;

  void MoveFirst() override;
  void MoveLast() override;
  void MoveNext() override;
  void MovePrevious() override;
  void FindFirst(TextView criterion) override;
  void FindLast(TextView criterion) override;
  void FindNext(TextView criterion) override;
  void FindPrevious(TextView criterion) override;
  Text Bookmark() const override;
  void setBookmark(TextView bookmark) override;

  void Requery() override;
  void Close() override;
  dao::Fields& fields() override;

  void shut();  // closed with its database

 protected:
  using Place = std::ptrdiff_t;

  virtual Place rows() const = 0;  // may leave out those well behind the current one
  virtual Place allRows() const { return rows(); }
  virtual void arrive() = 0;  // reads the current row: 3167 when it is gone
  virtual void dropEdit() = 0;
  virtual void reopen() = 0;  // the rows again
  virtual void forget() = 0;  // lets go of all it holds of the engine

  enum class Direction { Forward, Backward };
  // The first place from `from` on in the direction whose row meets the criterion; -1 when there is none.
  virtual Place search(TextView criterion, Place from, Direction direction) = 0;

  // A row's name that survives deletes of others, and its place; -1 for one that is gone from the set.
  virtual Text nameOf(Place place) const = 0;
  virtual Place placeOf(TextView name) const = 0;

  bool onRow() const { return !hole_ && place_ >= 0 && place_ < rows(); }
  Place place() const { return place_; }
  void rowTakenOut();    // of the current row: the next one stands in its place
  void needRow() const;  // 3021 without a current row, 3167 where it was just deleted
  void setFields(FieldInfos infos);
  void open();  // on the first row
  const RecordFields& recordFields() const { return *fields_; }
  Database& database() const { return *database_; }
  const Text& sql() const { return sql_; }

  void checkOpen() const override;
  std::shared_ptr<void> keepAlive() override { return shared_from_this(); }
  std::shared_ptr<dao::Database> fieldDatabase() const override { return database_; }

 private:
  void goTo(Place place);
  void find(TextView criterion, Place from, Direction direction);

  std::shared_ptr<Database> database_;
  Text sql_;
  std::unique_ptr<RecordFields> fields_;
  std::vector<std::unique_ptr<RecordFields>>
      retired_;        // of a table that has changed: somebody may hold a field
  Place place_ = 0;    // -1 before the first row, the count behind the last
  bool hole_ = false;  // the row that was current has been deleted: place_ is the next one's
  bool noMatch_ = false;
  bool closed_ = false;
};

}  // namespace ovalia::engines
