#include "engines/sqlite/SqliteDriver.h"

#include <algorithm>
#include <filesystem>

#include "engines/Names.h"
#include "engines/Sentence.h"
#include "engines/sqlite/Collation.h"
#include "engines/sqlite/Functions.h"
#include "engines/sqlite/SqliteDialect.h"
#include "engines/sqlite/SqliteFailures.h"
#include "engines/sqlite/SqliteStatement.h"

namespace ovalia::engines::sqlite {
namespace {

constexpr int generatedHidden = 1;  // of a virtual table: not part of "*"

// Columns of PRAGMA table_xinfo.
enum InfoColumn { Position, Name, Type, NotNull, Default, KeyPart, Hidden, infoColumns };

Text textAt(const Rows& rows, std::size_t row, InfoColumn column) {
  const Rows::Cell& cell = rows.cell(row * infoColumns + column);
  return cell.kind == Rows::Kind::Text ? wide(rows.text(cell)) : Text();
}
std::int64_t numberAt(const Rows& rows, std::size_t row, InfoColumn column) {
  return rows.cell(row * infoColumns + column).integer;
}

std::string uriOf(const std::string& file) {
  // Two slashes at the beginning would name a server.
  std::string uri = file.starts_with('/') ? "file://" : "file:";
  for (const char c : file) {
    if (c == '?' || c == '#' || c == '%') {
      constexpr char digits[] = "0123456789ABCDEF";
      uri += '%';
      uri += digits[static_cast<unsigned char>(c) >> 4];
      uri += digits[static_cast<unsigned char>(c) & 15];
    } else {
      uri += c;
    }
  }
  return uri;
}

}  // namespace

SqliteDriver::SqliteDriver(TextView file, const OpenOptions& options) : options_(options) {
  openFile(toUtf8(file), options);
  settle();
}

void SqliteDriver::openFile(const std::string& file, const OpenOptions& options) {
  const auto attempt = [&](const std::string& uri, int flags) {
    sqlite3* opened = nullptr;
    const int code =
        sqlite3_open_v2(uri.c_str(), &opened, flags | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX, nullptr);
    connection_.reset(opened);
    if (code != SQLITE_OK) return code;
    sqlite3_extended_result_codes(opened, 1);
    sqlite3_busy_timeout(opened, options.busyMilliseconds);
    sqlite3_db_config(opened, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(opened, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    // Reads the file's head, so that what is no database is known at once.
    return sqlite3_exec(opened, "SELECT 1 FROM sqlite_schema LIMIT 1", nullptr, nullptr, nullptr);
  };
  const int flags = options.readOnly ? SQLITE_OPEN_READONLY
                                     : SQLITE_OPEN_READWRITE | (options.create ? SQLITE_OPEN_CREATE : 0);
  const std::string uri = file == ":memory:" ? "file::memory:" : uriOf(file);
  int code = attempt(uri, flags);
  // A logged file in a folder that cannot be written is read as it lies, unless a log is left beside it.
  std::error_code ignored;
  const bool foldersFault = (code & 0xFF) == SQLITE_CANTOPEN || (code & 0xFF) == SQLITE_READONLY;
  if (foldersFault && std::filesystem::exists(file, ignored) &&
      !std::filesystem::exists(file + "-wal", ignored))
    code = attempt(uri + "?immutable=1", SQLITE_OPEN_READONLY);
  if (code == SQLITE_OK) return;
  if ((code & 0xFF) == SQLITE_IOERR) code = SQLITE_CANTOPEN;  // a folder, a device that does not answer
  const std::string words = connection_ ? sqlite3_errmsg(connection_.get()) : sqlite3_errstr(code);
  fail(code, file + ": " + words, StatementKind::Other);
}

void SqliteDriver::settle() {
  addCollation(connection_.get());
  addFunctions(connection_.get());
  const auto pragma = [this](TextView sql) {
    Rows answer;
    prepare(sql, StatementKind::Other)->readAll(answer);
  };
  if (!readOnly()) pragma(u"PRAGMA journal_mode = WAL");
  pragma(u"PRAGMA synchronous = FULL");
  pragma(u"PRAGMA foreign_keys = ON");
  pragma(u"PRAGMA trusted_schema = OFF");
  schemaVersion_ = prepare(u"PRAGMA schema_version", StatementKind::Other);
  schemaVersion();  // the log's shared index is there once something has been read
  settingsChanged();
}

void SqliteDriver::settingsChanged() {
  watch_ = watchChanges(connection_.get(), *this);
  ++statements_;
}

const DialectFacts& SqliteDriver::facts() const { return dialect; }

Text SqliteDriver::name() const {
  const char* const file = sqlite3_db_filename(connection_.get(), "main");
  return file ? wide(file) : Text();
}

std::unique_ptr<Statement> SqliteDriver::prepare(TextView sql, StatementKind kind) {
  return std::make_unique<SqliteStatement>(connection_.get(), toUtf8(sql), kind);
}

// A connection of its own holds the moment in the log.
class SideStream : public RowStream {
 public:
  SideStream(TextView file, const OpenOptions& options, TextView sql)
      : driver_(file, options), statement_(driver_.prepare(sql, StatementKind::Select)) {}
  bool readSome(Rows& into, std::size_t rows) override {
    return static_cast<SqliteStatement&>(*statement_).readOn(into, rows);
  }

 private:
  SqliteDriver driver_;
  std::unique_ptr<Statement> statement_;
};

// What this connection has not committed yet another would not see; without a log a reader would stop
// writers.
std::unique_ptr<RowStream> SqliteDriver::stream(TextView sql) {
  if (!watch_->logged() || sqlite3_get_autocommit(connection_.get()) == 0) return nullptr;
  OpenOptions reading = options_;
  reading.create = false;
  reading.readOnly = true;
  return std::make_unique<SideStream>(name(), reading, sql);
}

std::vector<Text> SqliteDriver::tableNames() {
  Rows rows;
  prepare(u"SELECT name FROM sqlite_schema WHERE type = 'table' AND name NOT GLOB 'sqlite_*' ORDER BY name",
          StatementKind::Other)
      ->readAll(rows);
  std::vector<Text> names;
  for (std::size_t i = 0; i < rows.cellCount(); ++i) names.push_back(wide(rows.text(rows.cell(i))));
  return names;
}

std::uint64_t SqliteDriver::schemaVersion() {
  Rows row;
  schemaVersion_->readFirst(row);
  return static_cast<std::uint64_t>(row.cell(0).integer);
}

std::optional<TableInfo> SqliteDriver::describe(TextView table) {
  Rows names;
  prepare(u"SELECT name, type, sql FROM sqlite_schema WHERE type IN ('table', 'view')", StatementKind::Other)
      ->readAll(names);
  TableInfo info;
  bool view = false, withoutRowid = false;
  for (std::size_t i = 0; i < names.cellCount(); i += 3) {
    const Text name = wide(names.text(names.cell(i)));
    if (!sameColumn(name, table)) continue;
    info.name = name;
    view = names.text(names.cell(i + 1)) == "view";
    const std::string_view sql = names.text(names.cell(i + 2));
    // The words stand behind the last parenthesis of the definition.
    const Text tail = lowerCase(wide(sql.substr(std::min(sql.size(), sql.rfind(')') + 1))));
    withoutRowid = tail.find(u"rowid") != Text::npos;
    break;
  }
  if (info.name.empty()) return std::nullopt;

  Rows columns;
  prepare(u"PRAGMA table_xinfo(" + quotedName(info.name) + u")", StatementKind::Other)->readAll(columns);
  const std::size_t count = columns.cellCount() / infoColumns;
  std::size_t keyParts = 0;
  for (std::size_t i = 0; i < count; ++i) keyParts += numberAt(columns, i, KeyPart) > 0;
  const auto named = [&](TextView name) {
    return std::any_of(info.columns.begin(), info.columns.end(),
                       [&](const ColumnInfo& column) { return sameColumn(column.name, name); });
  };
  for (std::size_t i = 0; i < count; ++i) {
    if (numberAt(columns, i, Hidden) == generatedHidden) continue;
    const Text declared = textAt(columns, i, Type);
    ColumnInfo column{textAt(columns, i, Name), columnTypeFrom(declared), false, false};
    column.onlyKey = keyParts == 1 && numberAt(columns, i, KeyPart) > 0;
    column.autoIncrement = column.onlyKey && sameAscii(declared, u"INTEGER") && !withoutRowid;
    const bool whole = column.type && column.type->type >= dao::dbByte && column.type->type <= dao::dbLong;
    if (column.autoIncrement || (withoutRowid && column.onlyKey && whole)) info.key = column.name;
    info.columns.push_back(std::move(column));
  }
  if (info.key.empty() && !view && !withoutRowid)
    for (const TextView rowid : {u"rowid", u"_rowid_", u"oid"})
      if (!named(rowid)) {
        info.key = rowid;
        break;
      }
  return info;
}

}  // namespace ovalia::engines::sqlite
