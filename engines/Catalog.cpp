#include "engines/Catalog.h"

namespace ovalia::engines {

std::shared_ptr<const TableInfo> Catalog::table(TextView name) {
  refresh();
  if (const auto found = tables_.find(name); found != tables_.end()) return found->second;
  std::shared_ptr<const TableInfo> definition;
  if (auto described = driver_.describe(name))
    definition = std::make_shared<TableInfo>(std::move(*described));
  if (definition) tables_.emplace(Text(name), definition);
  return definition;
}

std::uint64_t Catalog::generation() {
  refresh();
  return generation_;
}

void Catalog::forget() {
  tables_.clear();
  dataVersion_.reset();
  ++generation_;
}

void Catalog::refresh() {
  const std::uint64_t data = driver_.dataVersion();
  if (data == dataVersion_) return;
  const std::uint64_t schema = driver_.schemaVersion();
  if (schema != schemaVersion_) forget();
  schemaVersion_ = schema;
  dataVersion_ = data;
}

}  // namespace ovalia::engines
