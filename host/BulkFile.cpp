#include "host/BulkFile.h"

#include <sqlite3.h>

#include <fstream>
#include <memory>
#include <optional>
#include <vector>

#include "engines/Values.h"
#include "engines/sqlite/Collation.h"
#include "host/SampleData.h"
#include "host/Schema.h"
#include "platform/dao.h"

namespace ovalia::host {

namespace fs = std::filesystem;

namespace {

struct Closer {
  void operator()(sqlite3* database) const { sqlite3_close(database); }
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Connection = std::unique_ptr<sqlite3, Closer>;
using Prepared = std::unique_ptr<sqlite3_stmt, Closer>;

struct EngineCause {
  int code;
  std::int32_t number;
  TextView words;
};
constexpr EngineCause engineCauses[] = {
    {SQLITE_FULL, failure::diskFull, u"el disco está lleno"},
    {SQLITE_READONLY, failure::permissionDenied, u"no se puede escribir en el fichero"},
    {SQLITE_PERM, failure::permissionDenied, u"no tiene permiso"},
    {SQLITE_CANTOPEN, failure::pathFileAccess, u"no se puede abrir el fichero"},
    {SQLITE_IOERR, failure::pathFileAccess, u"el disco no responde bien"},
    {SQLITE_BUSY, failure::permissionDenied, u"otro programa la tiene bloqueada"},
    {SQLITE_CORRUPT, failure::pathFileAccess, u"el fichero está dañado"},
};

void check(sqlite3* database, int code) {
  if (code == SQLITE_OK || code == SQLITE_DONE) return;
  const Text start = u"No se ha podido crear la base de datos: ";
  for (const EngineCause& cause : engineCauses)
    if (cause.code == (code & 0xFF)) throw Failure(cause.number, start + Text(cause.words) + u".");
  throw Failure(failure::pathFileAccess, start + fromUtf8(sqlite3_errmsg(database)));
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

Connection opened(const fs::path& file) {
  sqlite3* made = nullptr;
  const int code = sqlite3_open(file.c_str(), &made);
  Connection connection(made);
  check(made, code);
  return connection;
}

void fill(const fs::path& file, int annotations) {
  const Connection connection = opened(file);
  sqlite3* const database = connection.get();
  engines::sqlite::addCollation(database);
  run(database, "PRAGMA journal_mode = OFF; PRAGMA synchronous = NORMAL; PRAGMA foreign_keys = OFF; BEGIN");
  std::vector<std::string> indexes;
  for (const Text& statement : createStatements()) {
    if (statement.starts_with(u"CREATE INDEX"))
      indexes.push_back(toUtf8(statement));
    else
      run(database, toUtf8(statement).c_str());
  }
  {
    BulkSink sink(database);
    makeSample(sink, annotations);
  }
  for (const std::string& index : indexes) run(database, index.c_str());
  // Few documents are there at first, and many come: who planned for few would walk through all of them.
  run(database, "COMMIT; ANALYZE; DELETE FROM sqlite_stat1 WHERE tbl GLOB 'Docu*'");
}

struct SystemCause {
  std::errc error;
  std::int32_t number;
  TextView words;
};
constexpr SystemCause systemCauses[] = {
    {std::errc::permission_denied, failure::permissionDenied, u"no tiene permiso"},
    {std::errc::read_only_file_system, failure::permissionDenied, u"el disco es de sólo lectura"},
    {std::errc::no_space_on_device, failure::diskFull, u"el disco está lleno"},
    {std::errc::not_a_directory, failure::pathFileAccess, u"una parte de la ruta no es una carpeta"},
    {std::errc::is_a_directory, failure::pathFileAccess, u"es una carpeta"},
    {std::errc::no_such_file_or_directory, failure::pathFileAccess, u"falta una carpeta de la ruta"},
};

[[noreturn]] void failOn(const fs::path& path, const std::error_code& error) {
  const Text start = u"No se puede escribir en " + fromUtf8(path.native()) + u": ";
  for (const SystemCause& cause : systemCauses)
    if (error == cause.error) throw Failure(cause.number, start + Text(cause.words) + u".");
  throw Failure(failure::pathFileAccess, start + u"el sistema no lo permite.");
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

void copyDatabaseFile(const fs::path& from, const fs::path& to) {
  makeFolder(to.parent_path());
  std::error_code error;
  for (const char* companion : {"", "-wal", "-shm"}) fs::remove(to.native() + companion, error);
  const Connection source = opened(from), target = opened(to);
  sqlite3_backup* copying = sqlite3_backup_init(target.get(), "main", source.get(), "main");
  if (copying) sqlite3_backup_step(copying, -1);
  sqlite3_backup_finish(copying);
  check(target.get(), sqlite3_errcode(target.get()));
}

void copyFolder(const fs::path& from, const fs::path& to) {
  std::error_code error;
  if (!fs::is_directory(from, error)) return;
  makeFolder(to);
  fs::copy(from, to, fs::copy_options::recursive | fs::copy_options::overwrite_existing, error);
  if (error) failOn(to, error);
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
