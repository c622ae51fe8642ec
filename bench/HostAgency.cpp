#include "bench/HostAgency.h"

#include <filesystem>

#include "host/BulkFile.h"

namespace ovalia::bench {
namespace {

std::filesystem::path named(const char* name, int annotations) {
  return std::filesystem::path(OVALIA_BENCH_DATA) / (name + std::to_string(annotations) + ".db");
}

}  // namespace

std::string hostAgencyFile(int annotations) {
  const auto file = named("muestra-", annotations);
  if (!std::filesystem::exists(file)) host::makeDatabaseFile(file, annotations);
  return file.string();
}

std::string writableHostAgency(int annotations) {
  const auto copy = named("escrita-", annotations);
  host::copyDatabaseFile(hostAgencyFile(annotations), copy);
  return copy.string();
}

}  // namespace ovalia::bench
