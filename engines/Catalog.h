#pragma once

#include <map>
#include <memory>
#include <optional>

#include "engines/Driver.h"

namespace ovalia::engines {

// The tables' definitions, read from the engine when first asked for and again when a definition has changed.
class Catalog {
 public:
  explicit Catalog(Driver& driver) : driver_(driver) {}

  // Nothing for a table or view that does not exist. The definition stays valid as long as somebody holds it.
  std::shared_ptr<const TableInfo> table(TextView name);

  // Another number whenever definitions have been read again.
  std::uint64_t generation();

  void forget();  // after a statement that may have changed definitions

 private:
  void refresh();

  Driver& driver_;
  std::optional<std::uint64_t> dataVersion_;
  std::optional<std::uint64_t> schemaVersion_;
  std::uint64_t generation_ = 0;
  std::map<Text, std::shared_ptr<const TableInfo>, NameLess> tables_;
};

}  // namespace ovalia::engines
