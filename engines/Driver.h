#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "engines/DialectFacts.h"
#include "engines/Failures.h"
#include "engines/KeySet.h"
#include "engines/Values.h"

namespace ovalia::engines {

struct ColumnInfo {
  Text name;
  std::optional<ColumnType> type;  // nothing where the declaration names no type of the model
  bool autoIncrement = false;
  bool onlyKey = false;  // the table's whole primary key
};

struct TableInfo {
  Text name;
  std::vector<ColumnInfo> columns;

  // Column by which a row is found again: the whole-number primary key, or what the engine has in its place.
  // "" where a row cannot be named, as in a view.
  Text key;
};

// A column of a statement's result.
struct ResultColumn {
  Text name;
  Text table;  // of the column it comes from; both "" for an expression
  Text column;

  friend bool operator==(const ResultColumn&, const ResultColumn&) = default;
};

// A statement made ready. Each of the four ways to run it runs it to its end and lets go of the database
// before returning, so that no read stays open and hides what others commit. They fail with the model's
// numbers.
class Statement {
 public:
  virtual ~Statement() = default;

  virtual std::vector<ResultColumn> columns() const = 0;

  // Another number whenever its columns may have become others, because tables were changed while it is in
  // use. Cheap: asked at every row.
  virtual std::uint64_t columnsVersion() const = 0;

  // Parameters 1, 2, ...; values beyond the last that the statement uses are passed over.
  virtual void bind(std::span<const Stored> values) = 0;

  virtual bool readFirst(Rows& into) = 0;  // appends the first row; false when there is none
  virtual void readAll(Rows& into) = 0;
  virtual bool readUpTo(Rows& into, std::size_t rows) = 0;  // the first rows; false when there are no more
  virtual void readKeys(KeySet& into) = 0;                  // the first columns, as many as the set is wide
  virtual std::int64_t run() = 0;                           // rows that it changed itself
};

// A long result that is read piece by piece, as it was at one moment. It lives beside the connection, whose
// own reads go on seeing what others commit.
class RowStream {
 public:
  virtual ~RowStream() = default;
  virtual bool readSome(Rows& into, std::size_t rows) = 0;  // false when there are no more
};

// A connection to an engine. The only part that differs from engine to engine beside its facts.
class Driver {
 public:
  virtual ~Driver() = default;

  virtual const DialectFacts& facts() const = 0;
  virtual bool readOnly() const = 0;
  virtual Text name() const = 0;  // the file or the address, without a password

  // `kind` chooses the numbers of failures. More than one statement in the text is a syntax failure.
  virtual std::unique_ptr<Statement> prepare(TextView sql, StatementKind kind) = 0;

  // Nothing where a result can only be read at once.
  virtual std::unique_ptr<RowStream> stream(TextView sql) = 0;

  virtual std::vector<Text> tableNames() = 0;

  // Nothing for a table or view that does not exist. The name matches without regard to case.
  virtual std::optional<TableInfo> describe(TextView table) = 0;

  // A number that is another one whenever anyone may have changed data since it was last asked, this
  // connection included. Cheap: asked at every field read.
  virtual std::uint64_t dataVersion() = 0;

  // The same for the tables' definitions. May cost a short read.
  virtual std::uint64_t schemaVersion() = 0;

  // To be called after a statement in the engine's own words: it may have changed the connection's settings.
  virtual void settingsChanged() {}
};

}  // namespace ovalia::engines
