#include "engines/sqlite/ChangeWatch.h"

namespace ovalia::engines::sqlite {
namespace {

// The index's header: 32-bit words, the second the commits counted, the fourth the last valid frame of the
// log.
class SharedIndexWatch : public ChangeWatch {
 public:
  explicit SharedIndexWatch(const std::uint32_t* header) : header_(header) {}
  std::uint64_t version() override {
    const std::uint64_t commits = __atomic_load_n(header_ + 2, __ATOMIC_ACQUIRE);
    return commits << 32 | __atomic_load_n(header_ + 4, __ATOMIC_ACQUIRE);
  }

 private:
  const std::uint32_t* header_;
};

class PragmaWatch : public ChangeWatch {
 public:
  PragmaWatch(sqlite3* connection, Driver& driver)
      : connection_(connection), pragma_(driver.prepare(u"PRAGMA data_version", StatementKind::Other)) {}
  std::uint64_t version() override {
    row_.clear();
    pragma_->readFirst(row_);
    return static_cast<std::uint64_t>(row_.cell(0).integer) << 40 ^
           static_cast<std::uint64_t>(sqlite3_total_changes64(connection_));
  }

 private:
  sqlite3* connection_;
  std::unique_ptr<Statement> pragma_;
  Rows row_;
};

const std::uint32_t* sharedIndex(sqlite3* connection) {
  constexpr int regionSize = 32 * 1024;
  sqlite3_file* file = nullptr;
  if (sqlite3_file_control(connection, "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK || !file ||
      !file->pMethods || file->pMethods->iVersion < 2)
    return nullptr;
  void volatile* region = nullptr;
  if (file->pMethods->xShmMap(file, 0, regionSize, 0, &region) != SQLITE_OK) return nullptr;
  return static_cast<const std::uint32_t*>(const_cast<void*>(region));
}

bool logged(Driver& driver) {
  Rows row;
  const auto pragma = driver.prepare(u"PRAGMA journal_mode", StatementKind::Other);
  return pragma->readFirst(row) && row.cell(0).kind == Rows::Kind::Text && row.text(row.cell(0)) == "wal";
}

}  // namespace

std::unique_ptr<ChangeWatch> watchChanges(sqlite3* connection, Driver& driver) {
  if (logged(driver))
    if (const std::uint32_t* const header = sharedIndex(connection))
      return std::make_unique<SharedIndexWatch>(header);
  return std::make_unique<PragmaWatch>(connection, driver);
}

}  // namespace ovalia::engines::sqlite
