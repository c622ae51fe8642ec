#include "host/BulkFile.h"

#include <sqlite3.h>

#include <fstream>
#include <memory>
#include <optional>
#include <vector>

#include "engines/Values.h"
#include "host/SampleData.h"
#include "host/Schema.h"
#include "platform/dao.h"

namespace ovalia::host {

namespace fs = std::filesystem;

namespace {

dao::DataType storedType(ColumnType type) {
  switch (type) {
    case ColumnType::Key:
    case ColumnType::Long:
      return dao::dbLong;
    case ColumnType::Short:
      return dao::dbInteger;
    case ColumnType::Byte:
      return dao::dbByte;
    case ColumnType::Boolean:
      return dao::dbBoolean;
    case ColumnType::Money:
      return dao::dbCurrency;
    case ColumnType::DateTime:
      return dao::dbDate;
    case ColumnType::VarChar:
      return dao::dbText;
    case ColumnType::Memo:
      return dao::dbMemo;
  }
  return dao::dbText;
}

struct Closer {
  void operator()(sqlite3* database) const { sqlite3_close(database); }
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Connection = std::unique_ptr<sqlite3, Closer>;
using Prepared = std::unique_ptr<sqlite3_stmt, Closer>;

void check(sqlite3* database, int code) {
  if (code == SQLITE_OK || code == SQLITE_DONE) return;
  const int number = code == SQLITE_FULL ? failure::diskFull : failure::pathFileAccess;
  throw Failure(number, u"No se ha podido crear la base de datos: " + fromUtf8(sqlite3_errmsg(database)));
}

void run(sqlite3* database, const char* sql) {
  check(database, sqlite3_exec(database, sql, nullptr, nullptr, nullptr));
}

// Rows through one prepared statement a table.
class BulkSink : public RowSink {
 public:
  explicit BulkSink(sqlite3* database) : database_(database) {}

  void begin(const Table& table) override {
    types_.clear();
    std::string sql = "INSERT INTO " + toUtf8(table.name) + " VALUES (";
    for (const Column& column : table.columns) {
      sql += types_.empty() ? "?" : ",?";
      types_.push_back(storedType(column.type));
    }
    sqlite3_stmt* made = nullptr;
    check(database_, sqlite3_prepare_v2(database_, (sql + ")").c_str(), -1, &made, nullptr));
    insert_.reset(made);
  }

  void add(std::span<const Variant> values) override {
    for (std::size_t i = 0; i < values.size(); ++i) bind(static_cast<int>(i) + 1, values[i], types_[i]);
    check(database_, sqlite3_step(insert_.get()));
    check(database_, sqlite3_reset(insert_.get()));
  }

 private:
  void bind(int place, const Variant& value, dao::DataType type) {
    const engines::Stored stored = engines::toStored(value, type);
    sqlite3_stmt* to = insert_.get();
    if (const auto* whole = std::get_if<std::int64_t>(&stored))
      sqlite3_bind_int64(to, place, *whole);
    else if (const auto* real = std::get_if<double>(&stored))
      sqlite3_bind_double(to, place, *real);
    else if (const auto* text = std::get_if<std::string>(&stored))
      sqlite3_bind_text(to, place, text->data(), static_cast<int>(text->size()), SQLITE_TRANSIENT);
    else
      sqlite3_bind_null(to, place);
  }

  sqlite3* database_;
  Prepared insert_;
  std::vector<dao::DataType> types_;
};

void fill(const fs::path& file, int annotations) {
  sqlite3* opened = nullptr;
  const int code = sqlite3_open(file.c_str(), &opened);
  const Connection connection(opened);
  check(opened, code);
  run(opened, "PRAGMA journal_mode = OFF; PRAGMA synchronous = NORMAL; PRAGMA foreign_keys = OFF; BEGIN");
  std::vector<std::string> indexes;
  for (const Text& statement : createStatements()) {
    if (statement.starts_with(u"CREATE INDEX"))
      indexes.push_back(toUtf8(statement));
    else
      run(opened, toUtf8(statement).c_str());
  }
  {
    BulkSink sink(opened);
    makeSample(sink, annotations);
  }
  for (const std::string& index : indexes) run(opened, index.c_str());
  run(opened, "COMMIT; ANALYZE");
}

[[noreturn]] void failOn(const fs::path& path, const std::error_code& error) {
  const int number =
      error == std::errc::permission_denied ? failure::permissionDenied : failure::pathFileAccess;
  throw Failure(number,
                u"No se puede escribir en " + fromUtf8(path.native()) + u": " + fromUtf8(error.message()));
}

void makeFolder(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) failOn(folder, error);
}

}  // namespace

void makeDatabaseFile(const fs::path& file, int annotations) {
  if (file.has_parent_path()) makeFolder(file.parent_path());
  fs::path unfinished = file;
  unfinished += ".parcial";
  std::error_code error;
  fs::remove(unfinished, error);
  fill(unfinished, annotations);
  fs::rename(unfinished, file, error);
  if (error) failOn(file, error);
}

void makeSampleDocuments(const fs::path& dataFolder) {
  for (const SampleFile& document : sampleFiles()) {
    const fs::path path = dataFolder / toUtf8(replaceAll(document.path, u"\\", u"/"));
    if (fs::exists(path)) continue;
    makeFolder(path.parent_path());
    std::ofstream(path, std::ios::binary) << document.content;
    if (!fs::exists(path)) failOn(path, std::make_error_code(std::errc::permission_denied));
  }
}

}  // namespace ovalia::host
