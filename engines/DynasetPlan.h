#pragma once

#include <memory>

#include "engines/Catalog.h"
#include "engines/KeyQuery.h"
#include "engines/RecordFields.h"

namespace ovalia::engines {

// A dynaset's statements made ready. One dynaset uses it at a time; the next of the same text takes it over.
struct DynasetPlan {
  KeyQuery query;
  FieldInfos fields;
  std::vector<ResultColumn> columns;  // of a row, as they were when it was made
  std::unique_ptr<Statement> keys, row;
  std::uint64_t definitions = 0;  // of the catalog when it was made
  int year = 0;                   // that two-digit years were read in

  // Failures: 3061, 3075, 3078, 3260.
  static std::unique_ptr<DynasetPlan> make(KeyQuery query, Driver& driver, Catalog& catalog);

  bool stillGood(Catalog& catalog) const;
};

// The plans of the last few lists that were closed.
class PlanShelf {
 public:
  void put(Text sql, std::unique_ptr<DynasetPlan> plan);
  std::unique_ptr<DynasetPlan> take(TextView sql,
                                    Catalog& catalog);  // nothing where there is none that is good
  void clear() { plans_.clear(); }

 private:
  static constexpr std::size_t capacity = 8;
  struct Entry {
    Text sql;
    std::unique_ptr<DynasetPlan> plan;
  };
  std::vector<Entry> plans_;  // the oldest first
};

}  // namespace ovalia::engines
