#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/Failure.h"
#include "platform/Object.h"
#include "platform/Text.h"
#include "platform/Variant.h"

// The database object model as the logic sees it. Names of tables, columns and fields match without regard to
// case. Statements and criteria are in the Jet dialect. Everything works on the user-interface thread.
namespace ovalia::dao {

enum RecordsetType { dbOpenDynaset = 2, dbOpenSnapshot = 4 };

enum DataType {
  dbBoolean = 1,
  dbByte = 2,
  dbInteger = 3,
  dbLong = 4,
  dbCurrency = 5,
  dbSingle = 6,
  dbDouble = 7,
  dbDate = 8,
  dbText = 10,
  dbMemo = 12,
};

inline constexpr std::int32_t dbAutoIncrField = 16;  // bit of Field::Attributes

namespace failure {
inline constexpr std::int32_t updateWithoutEdit = 3020;
inline constexpr std::int32_t noCurrentRecord = 3021;
inline constexpr std::int32_t duplicateKey = 3022;
inline constexpr std::int32_t readOnly = 3027;
inline constexpr std::int32_t commitWithoutBegin = 3034;
inline constexpr std::int32_t unknownColumn = 3061;
inline constexpr std::int32_t syntax = 3075;
inline constexpr std::int32_t criterionSyntax = 3077;
inline constexpr std::int32_t unknownTable = 3078;
inline constexpr std::int32_t insertSyntax = 3134;
inline constexpr std::int32_t updateSyntax = 3144;
inline constexpr std::int32_t tooLong = 3163;
inline constexpr std::int32_t recordDeleted = 3167;
inline constexpr std::int32_t locked = 3260;
inline constexpr std::int32_t referenced = 3200;
inline constexpr std::int32_t missingRelated = 3201;
inline constexpr std::int32_t notInCollection = 3265;
inline constexpr std::int32_t required = 3314;
inline constexpr std::int32_t zeroLength = 3315;
inline constexpr std::int32_t damaged = 3343;
inline constexpr std::int32_t cannotOpen = 3024;
inline constexpr std::int32_t conversion = 3421;
inline constexpr std::int32_t cancelledByObject = 3426;
}  // namespace failure

class Database;

// A column, of a recordset's current row or of a table's definition. Belongs to its collection; a shared
// reference keeps the collection's owner alive.
class Field : public Object {
 public:
  virtual Text Name() const = 0;         // as the query exposes it
  virtual Text SourceTable() const = 0;  // "" where the column comes from no table
  virtual DataType Type() const = 0;
  virtual std::int32_t Attributes() const = 0;

  // Live: base columns of the current row are read again when the row may be stale; between Edit and Update
  // the buffer. Failures: 3021 no current row, 3167 row gone.
  virtual Variant Value() const = 0;

  // Into the edit buffer. Failures: 3020 without Edit, 3421 no conversion, 3027 not updatable. A field of a
  // table's definition has no value (3021 on reading).
  virtual void setValue(const Variant& value) = 0;

  // The connection behind it, for an outside component that is given the field alone.
  virtual std::shared_ptr<Database> database() const = 0;

  Variant get(TextView member, Arguments arguments = {}) override;
  void put(TextView member, const Variant& value, Arguments arguments = {}) override;
  Variant call(TextView member, Arguments arguments = {}) override;
};

// The fields in their order. As a late-bound object its default member takes a name or a position from 0.
class Fields : public Object {
 public:
  virtual std::size_t count() const = 0;
  virtual std::shared_ptr<Field> at(std::size_t position) = 0;  // 3265 out of range
  virtual std::shared_ptr<Field> item(TextView name) = 0;       // 3265 when unknown
  virtual bool contains(TextView name) = 0;                     // cheap, silent

  Variant get(TextView member, Arguments arguments = {}) override;
  void put(TextView member, const Variant& value, Arguments arguments = {}) override;
  Variant call(TextView member, Arguments arguments = {}) override;
};

// A set of rows with a current one. A dynaset holds the keys as they were when it was opened (new rows of
// others do not appear) and reads each row when it is needed; a snapshot is a copy. Derived classes have its
// shared_from_this and bring none of their own.
class Recordset : public Object, public std::enable_shared_from_this<Recordset> {
 public:
  virtual bool isBOF() const = 0;
  virtual bool isEOF() const = 0;
  virtual bool NoMatch() const = 0;
  virtual std::int32_t AbsolutePosition() const = 0;  // from 0; -1 without a current row
  virtual std::int32_t RecordCount() const = 0;       // full as soon as it is opened

  // Goes to a row by its place: 3021 where there is none, 3167 on a row that is gone. This one walks; a set
  // that knows its rows by place does better.
  virtual void setAbsolutePosition(std::int32_t position) {
    if (position < 0 || position >= RecordCount()) throw Failure(failure::noCurrentRecord);
    for (MoveFirst(); AbsolutePosition() < position;) MoveNext();
  }

  // First and last fail with 3021 on an empty set; next and previous fail with 3021 when at the edge already,
  // and with 3167, standing there, on a row that is gone. All drop a pending edit.
  virtual void MoveFirst() = 0;
  virtual void MoveLast() = 0;
  virtual void MoveNext() = 0;
  virtual void MovePrevious() = 0;

  // By output names. Without a match NoMatch is true and the position stays; so on an empty set.
  virtual void FindFirst(TextView criterion) = 0;
  virtual void FindLast(TextView criterion) = 0;
  virtual void FindNext(TextView criterion) = 0;
  virtual void FindPrevious(TextView criterion) = 0;

  // Edit: 3021, 3167, 3027. Update writes the fields assigned since, no others, whoever wrote meanwhile:
  // 3020, 3022, 3201, 3314, 3163, 3260, 3167. A failed Update leaves the edit pending. Delete: 3200;
  // afterwards there is no current row until a move or find.
  virtual void Edit() = 0;
  virtual void Update(int type = 1, bool force = false) = 0;
  virtual void CancelUpdate() = 0;
  virtual void Delete() = 0;
  virtual bool editing() const = 0;

  // An opaque text that names a row of this set until it is closed; survives deletes of other rows. Going to
  // one that is gone is 3167, to one of no row 3021.
  virtual Text Bookmark() const = 0;
  virtual void setBookmark(TextView bookmark) = 0;

  virtual void Requery() = 0;  // opens it again by the same statement, on the first row
  virtual void Close() = 0;    // 91 on any use afterwards

  virtual Fields& fields() = 0;

  Variant value(TextView name) { return fields().item(name)->Value(); }
  void setValue(TextView name, const Variant& value) { fields().item(name)->setValue(value); }

  // Members by name: the above, "BOF", "EOF", "Fields", and the default member, a field by name or position.
  Variant get(TextView member, Arguments arguments = {}) override;
  void put(TextView member, const Variant& value, Arguments arguments = {}) override;
  Variant call(TextView member, Arguments arguments = {}) override;
};

using RecordsetRef = std::shared_ptr<Recordset>;

class TableDef {
 public:
  virtual ~TableDef() = default;
  virtual Text Name() const = 0;
  virtual dao::Fields& Fields() = 0;
};

// One connection. Every statement stands alone.
class Database {
 public:
  virtual ~Database() = default;

  // Text of a SELECT or the name of a table. Failures: 3061, 3075, 3078, 3260.
  virtual RecordsetRef OpenRecordset(TextView sql, RecordsetType type = dbOpenDynaset) = 0;

  // A row that a constraint refuses counts 0 and is no failure; syntax, unknown names, conversion, a locked
  // or read-only database are.
  virtual void Execute(TextView sql) = 0;

  // Of the last Execute, whatever recordsets did since.
  virtual std::int32_t RecordsAffected() const = 0;

  virtual std::shared_ptr<TableDef> TableDefs(TextView name) = 0;  // 3265 when unknown
  virtual std::vector<Text> tableNames() = 0;

  virtual Text Name() const = 0;  // the file or the server's address, without a password
  virtual void Close() = 0;
};

using DatabaseRef = std::shared_ptr<Database>;

}  // namespace ovalia::dao
