#pragma once

#include <memory>
#include <vector>

#include "platform/dao.h"

namespace ovalia::desktop {

// The rows of a pick list and what can be done to them: a table, its column of names and its key.
class ListSource {
 public:
  struct Row {
    Variant id;
    Text name;
  };
  struct Table {
    Text name;
    std::shared_ptr<dao::Field> column;
    std::shared_ptr<dao::Field> key;
    Text select;         // "" lists the table by name
    bool numbersItself;  // the table gives new rows their key
  };

  // Failure 91 when a field or its connection is missing.
  explicit ListSource(Table table);

  // All with a name, in the order of the statement. Every function below may fail with the database's
  // numbers.
  std::vector<Row> rows() const;
  void add(TextView name);
  void rename(const Variant& id, TextView name);
  void remove(const Variant& id);

 private:
  dao::RecordsetRef rowOf(const Variant& id) const;

  Table table_;
  dao::DatabaseRef database_;
};

// What to tell the user when it fails. `name` is the row concerned.
Text listFailureText(const Failure& failure, TextView name);

}  // namespace ovalia::desktop
