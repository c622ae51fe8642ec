#include "engines/Open.h"

#include <array>

#include "engines/Database.h"
#include "engines/sqlite/SqliteDriver.h"

namespace ovalia::engines {
namespace {

using DriverFactory = std::unique_ptr<Driver> (*)(TextView, const OpenOptions&);

struct Engine {
  TextView prefix;  // of its addresses
  DriverFactory connect;
};

// The first whose prefix fits; the last takes every path.
constexpr std::array engines{
    Engine{u"",
           [](TextView file, const OpenOptions& options) -> std::unique_ptr<Driver> {
             return std::make_unique<sqlite::SqliteDriver>(file, options);
           }},
};

}  // namespace

dao::DatabaseRef open(TextView fileOrAddress, const OpenOptions& options) {
  for (const Engine& engine : engines)
    if (fileOrAddress.starts_with(engine.prefix))
      return std::make_shared<Database>(engine.connect(fileOrAddress, options));
  throw databaseFailure(dao::failure::cannotOpen, fileOrAddress);
}

}  // namespace ovalia::engines
