#pragma once

#include "tests/kit/FakeDatabase.h"

namespace ovalia::kit {

// Makes a database answer the statements of one table that the component forms about attachments, over the
// rows of its tables: SELECT of columns, of `*` and of Max(column) AS name; INSERT with named columns;
// DELETE *; UPDATE. Conditions are comparisons with a literal, joined by AND; texts compare without regard to
// case. A column that numbers itself does not give a number twice.
//
// Failures are those of an engine: 3075 for a SELECT that it does not understand, 3134 an INSERT, 3144 an
// UPDATE (a value that is a hole, for one), 3078 a table and 3061 a column that is not there. Everything that
// was announced to the database is answered first.
void answersAttachments(FakeDatabase& database);

// A table of attachments, empty, by the name that `DocuAsoc` has.
FakeTableRef attachmentTable(FakeDatabase& database, Text name);

}  // namespace ovalia::kit
