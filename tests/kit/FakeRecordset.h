#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "platform/dao.h"
#include "tests/kit/FakeTable.h"
#include "tests/kit/FaultPanel.h"

namespace ovalia::kit {

struct FakeCursor;

// A dynaset over a FakeTable, by the rules of the port: the rows as they were when it was opened, read live,
// with an edit buffer. Faults: "Recordset.BOF", "Recordset.NoMatch", "Recordset.MoveFirst" and so on, of
// every Find "Recordset.Find"; "Field.Value", "Field.setValue".
//
// Criteria are conjunctions of `column = literal` (a number, 'text', Null); a test that needs more sets
// `matcher`.
class FakeRecordset : public dao::Recordset {
 public:
  using Matcher = std::function<bool(TextView criterion, const FakeRow& row)>;

  FakeRecordset(FakeTableRef table, std::shared_ptr<dao::Database> database, FaultPanel& faults);
  ~FakeRecordset() override;

  Matcher matcher;
  std::vector<Text> criteria;  // of the Finds, in order
  int updates = 0, deletes = 0;
  std::vector<std::pair<int, bool>> updateArguments;  // of every Update that was asked for

  bool isBOF() const override;
  bool isEOF() const override;
  bool NoMatch() const override;
  std::int32_t AbsolutePosition() const override;
  std::int32_t RecordCount() const override;
  void setAbsolutePosition(std::int32_t position) override;
  void MoveFirst() override;
  void MoveLast() override;
  void MoveNext() override;
  void MovePrevious() override;
  void FindFirst(TextView criterion) override;
  void FindLast(TextView criterion) override;
  void FindNext(TextView criterion) override;
  void FindPrevious(TextView criterion) override;
  void Edit() override;
  void Update(int type = 1, bool force = false) override;
  void CancelUpdate() override;
  void Delete() override;
  bool editing() const override;
  Text Bookmark() const override;
  void setBookmark(TextView bookmark) override;
  void Requery() override;
  void Close() override;
  dao::Fields& fields() override;

 private:
  void moveTo(std::ptrdiff_t wanted);
  void find(TextView criterion, std::ptrdiff_t start, std::ptrdiff_t step);
  bool matches(TextView criterion, const FakeRow& row) const;

  std::shared_ptr<FakeCursor> cursor_;  // shared with the fields, which may outlive the recordset
  std::unique_ptr<dao::Fields> fields_;
};

// Fields without a recordset: those of a table's definition.
std::unique_ptr<dao::Fields> definitionFields(FakeTableRef table, std::shared_ptr<dao::Database> database);

}  // namespace ovalia::kit
