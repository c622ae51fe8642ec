#pragma once

#include <span>
#include <vector>

#include "platform/dao.h"

// The agency's tables as data. Names and types are those of the database object model; `createStatements`
// turns them into an engine's text.
namespace ovalia::host {

enum class ColumnType { Key, Long, Short, Byte, Boolean, Money, DateTime, VarChar, Memo };

// What the object model calls the type.
dao::DataType storedType(ColumnType type);

struct Column {
  TextView name;
  ColumnType type;
  int size = 0;              // of a VarChar, in characters
  TextView references = {};  // table whose key the values are; Null is allowed
  bool required = false;
  TextView initial = {};  // default, as it stands in SQL
};

enum class Kind { Nota, Visita, Anuncio, Llamada };

// "Nota", "Visita" ... as the component calls them.
TextView kindName(Kind kind);

// The key column of a kind's tables: IdNota, IdVisita ...
TextView kindKey(Kind kind);

// One table of annotations. Its attachments hang on it by IdNota, whatever the kind; an empty name means that
// the annotations have none. A table whose attachment table's name holds "Arch" is an archive.
struct AnnotationTable {
  TextView name;
  Kind kind;
  TextView parentColumn;
  TextView parentTable;
  TextView attachments;
};

std::span<const AnnotationTable> annotationTables();
const AnnotationTable& annotationTable(TextView name);

struct Table {
  TextView name;
  std::vector<Column> columns;  // the key first

  // The place of a column; fails with 3265 when there is none.
  std::size_t position(TextView column) const;
};

// All tables; a table stands behind those that it refers to.
const std::vector<Table>& schema();
const Table& table(TextView name);

// CREATE TABLE and CREATE INDEX statements for SQLite, in the order in which they can run. They need the
// engine's collation, as every connection does that writes rows of attachments. A key is never given twice.
// People who attended a visit are not references: a salesperson may be deleted and the visit stays.
std::vector<Text> createStatements();

}  // namespace ovalia::host
