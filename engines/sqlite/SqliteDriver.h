#pragma once

#include <sqlite3.h>

#include "engines/Driver.h"
#include "engines/Open.h"
#include "engines/sqlite/ChangeWatch.h"

namespace ovalia::engines::sqlite {

struct CloseConnection {
  void operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }
};

class SqliteDriver : public Driver {
 public:
  // Opens the file and sees that it is a database that can be read. Failures: 3024, 3260, 3343.
  SqliteDriver(TextView file, const OpenOptions& options);

  const DialectFacts& facts() const override;
  bool readOnly() const override { return sqlite3_db_readonly(connection_.get(), "main") == 1; }
  Text name() const override;
  std::unique_ptr<Statement> prepare(TextView sql, StatementKind kind) override;
  std::unique_ptr<RowStream> stream(TextView sql) override;
  std::vector<Text> tableNames() override;
  std::optional<TableInfo> describe(TextView table) override;
  std::uint64_t dataVersion() override { return watch_->version() + statements_ * 0xC2B2AE3D27D4EB4F; }
  std::uint64_t schemaVersion() override;
  void settingsChanged() override;

 private:
  void openFile(const std::string& file, const OpenOptions& options);
  void settle();

  OpenOptions options_;
  std::unique_ptr<sqlite3, CloseConnection> connection_;
  std::unique_ptr<ChangeWatch> watch_;
  std::unique_ptr<Statement> schemaVersion_;
  std::uint64_t statements_ = 0;  // in the engine's own words: one may have taken back rows already seen
};

}  // namespace ovalia::engines::sqlite
