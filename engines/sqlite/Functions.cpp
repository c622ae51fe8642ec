#include "engines/sqlite/Functions.h"

#include <unicode/ustring.h>

#include <array>
#include <cmath>
#include <ctime>
#include <memory>

#include "engines/Values.h"
#include "engines/sqlite/Like.h"
#include "engines/sqlite/SqliteFailures.h"
#include "engines/sqlite/SqliteText.h"
#include "platform/Platform.h"

namespace ovalia::engines::sqlite {
namespace {

bool anyNull(int count, sqlite3_value** values) {
  for (int i = 0; i < count; ++i)
    if (sqlite3_value_type(values[i]) == SQLITE_NULL) return true;
  return false;
}

void giveText(sqlite3_context* context, TextView text) {
  const std::string bytes = toUtf8(text);
  sqlite3_result_text64(context, bytes.data(), bytes.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

// `text LIKE pattern` calls like(pattern, text). A pattern is read once a statement.
void like(sqlite3_context* context, int, sqlite3_value** values) {
  if (sqlite3_value_type(values[1]) == SQLITE_NULL) return;
  if (const auto* const known = static_cast<LikePattern*>(sqlite3_get_auxdata(context, 0)))
    return sqlite3_result_int(context, known->matches(textOf(values[1])));
  if (sqlite3_value_type(values[0]) == SQLITE_NULL) return;
  auto made = std::make_unique<LikePattern>(textOf(values[0]));
  sqlite3_result_int(context, made->matches(textOf(values[1])));
  sqlite3_set_auxdata(context, 0, made.release(), [](void* old) { delete static_cast<LikePattern*>(old); });
}

void left(sqlite3_context* context, int count, sqlite3_value** values) {
  if (anyNull(count, values)) return;
  const Text text = wide(textOf(values[0]));
  giveText(context,
           TextView(text).substr(0, static_cast<std::size_t>(std::max(0, sqlite3_value_int(values[1])))));
}

void right(sqlite3_context* context, int count, sqlite3_value** values) {
  if (anyNull(count, values)) return;
  const Text text = wide(textOf(values[0]));
  const auto wanted = static_cast<std::size_t>(std::max(0, sqlite3_value_int(values[1])));
  giveText(context, TextView(text).substr(text.size() - std::min(text.size(), wanted)));
}

void lower(sqlite3_context* context, int count, sqlite3_value** values) {
  if (!anyNull(count, values)) giveText(context, lowerCase(wide(textOf(values[0]))));
}

void upper(sqlite3_context* context, int count, sqlite3_value** values) {
  if (anyNull(count, values)) return;
  const Text text = wide(textOf(values[0]));
  Text all(text.size() * 3 + 1, u'\0');
  UErrorCode status = U_ZERO_ERROR;
  const std::int32_t size = u_strToUpper(all.data(), static_cast<std::int32_t>(all.size()), text.data(),
                                         static_cast<std::int32_t>(text.size()), "es", &status);
  all.resize(static_cast<std::size_t>(size));
  giveText(context, all);
}

Date presentMoment() {
  if (Platform::installed() && Platform::current().clock) return Platform::current().clock->now();
  const std::time_t seconds = std::time(nullptr);
  std::tm local{};
  localtime_r(&seconds, &local);
  return dateFrom({local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min,
                   std::min(local.tm_sec, 59)})
      .value_or(Date{});
}

void now(sqlite3_context* context, int, sqlite3_value**) {
  sqlite3_result_double(context, presentMoment().days);
}
void today(sqlite3_context* context, int, sqlite3_value**) {
  sqlite3_result_double(context, std::floor(presentMoment().days));
}
void timeOfDay(sqlite3_context* context, int, sqlite3_value**) {
  const Date moment = presentMoment();
  sqlite3_result_double(context, wholeSecond({moment.days - std::floor(moment.days)}).days);
}

template <int DateParts::*Part>
void part(sqlite3_context* context, int count, sqlite3_value** values) {
  if (!anyNull(count, values)) sqlite3_result_int(context, partsOf({sqlite3_value_double(values[0])}).*Part);
}

using Function = void (*)(sqlite3_context*, int, sqlite3_value**);

struct FunctionRow {
  const char* name;
  int arguments;
  bool constant;  // gives the same for the same arguments
  Function run;
};

constexpr std::array rows{
    FunctionRow{"like", 2, true, like},
    FunctionRow{"jet_left", 2, true, left},
    FunctionRow{"jet_right", 2, true, right},
    FunctionRow{"jet_lcase", 1, true, lower},
    FunctionRow{"jet_ucase", 1, true, upper},
    FunctionRow{"jet_now", 0, false, now},
    FunctionRow{"jet_date", 0, false, today},
    FunctionRow{"jet_time", 0, false, timeOfDay},
    FunctionRow{"jet_year", 1, true, part<&DateParts::year>},
    FunctionRow{"jet_month", 1, true, part<&DateParts::month>},
    FunctionRow{"jet_day", 1, true, part<&DateParts::day>},
};

// A failure inside a function becomes the statement's.
template <std::size_t Row>
void guarded(sqlite3_context* context, int count, sqlite3_value** values) {
  try {
    rows[Row].run(context, count, values);
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  } catch (const std::exception& failure) {
    sqlite3_result_error(context, failure.what(), -1);
  }
}

template <std::size_t... Row>
constexpr auto guardedRows(std::index_sequence<Row...>) {
  return std::array<Function, sizeof...(Row)>{guarded<Row>...};
}

}  // namespace

void addFunctions(sqlite3* connection) {
  constexpr auto guards = guardedRows(std::make_index_sequence<rows.size()>());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const int flags = SQLITE_UTF8 | SQLITE_INNOCUOUS | (rows[i].constant ? SQLITE_DETERMINISTIC : 0);
    const int code = sqlite3_create_function_v2(connection, rows[i].name, rows[i].arguments, flags, nullptr,
                                                guards[i], nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) fail(connection, code, StatementKind::Other);
  }
}

}  // namespace ovalia::engines::sqlite
