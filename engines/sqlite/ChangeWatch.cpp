#include "engines/sqlite/ChangeWatch.h"

namespace ovalia::engines::sqlite {
namespace {

// What this connection has done itself, which no other can see before it is committed: the rows it changed,
// and whether it is inside a transaction, since a rollback takes them back.
std::uint64_t ownVersion(sqlite3* connection) {
  const auto changes = static_cast<std::uint64_t>(sqlite3_total_changes64(connection));
  return changes << 1 | static_cast<std::uint64_t>(sqlite3_get_autocommit(connection) != 0);
}

constexpr std::uint64_t spread = 0x9E3779B97F4A7C15;  // keeps sums of two counts from meeting

// The index's header: 32-bit words, the third the commits counted, the fifth the last valid frame of the log.
class SharedIndexWatch : public ChangeWatch {
 public:
  SharedIndexWatch(sqlite3* connection, const std::uint32_t* header)
      : connection_(connection), header_(header) {}
  std::uint64_t version() override {
    const std::uint64_t commits = __atomic_load_n(header_ + 2, __ATOMIC_ACQUIRE);
    const std::uint64_t frames = __atomic_load_n(header_ + 4, __ATOMIC_ACQUIRE);
    return (commits << 32 | frames) + ownVersion(connection_) * spread;
  }
  bool logged() const override { return true; }

 private:
  sqlite3* connection_;
  const std::uint32_t* header_;
};

class PragmaWatch : public ChangeWatch {
 public:
  PragmaWatch(sqlite3* connection, Driver& driver)
      : connection_(connection), pragma_(driver.prepare(u"PRAGMA data_version", StatementKind::Other)) {}
  std::uint64_t version() override {
    row_.clear();
    pragma_->readFirst(row_);
    return static_cast<std::uint64_t>(row_.cell(0).integer) + ownVersion(connection_) * spread;
  }
  bool logged() const override { return false; }

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
      return std::make_unique<SharedIndexWatch>(connection, header);
  return std::make_unique<PragmaWatch>(connection, driver);
}

}  // namespace ovalia::engines::sqlite
