#include "engines/sqlite/SqliteDialect.h"

#include <array>
#include <charconv>

namespace ovalia::engines::sqlite {
namespace {

Text dayCount(Date date) {
  std::array<char, 40> digits{};
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), date.days, std::chars_format::fixed).ptr;
  Text text(digits.data(), end);
  if (text.find(u'.') == Text::npos) text += u".0";
  return text;
}

constexpr std::array functions{
    FunctionFact{u"LEN", u"length", dao::dbLong},      FunctionFact{u"MID", u"substr", dao::dbText},
    FunctionFact{u"LEFT", u"jet_left", dao::dbText},   FunctionFact{u"RIGHT", u"jet_right", dao::dbText},
    FunctionFact{u"UCASE", u"jet_ucase", dao::dbText}, FunctionFact{u"LCASE", u"jet_lcase", dao::dbText},
    FunctionFact{u"CHR", u"char", dao::dbText},        FunctionFact{u"NZ", u"ifnull", std::nullopt},
    FunctionFact{u"NOW", u"jet_now", dao::dbDate},     FunctionFact{u"DATE", u"jet_date", dao::dbDate},
    FunctionFact{u"TIME", u"jet_time", dao::dbDate},   FunctionFact{u"YEAR", u"jet_year", dao::dbLong},
    FunctionFact{u"MONTH", u"jet_month", dao::dbLong}, FunctionFact{u"DAY", u"jet_day", dao::dbLong},
};

// Words that may well be columns of an agency's tables and are no names to SQLite.
constexpr std::array<TextView, 45> reserved{
    u"ADD",        u"ALL",    u"ALTER",   u"AUTOINCREMENT", u"CHECK",     u"COLLATE", u"COMMIT",
    u"CONSTRAINT", u"CREATE", u"DEFAULT", u"DEFERRABLE",    u"DELETE",    u"DROP",    u"ELSE",
    u"ESCAPE",     u"EXISTS", u"FOREIGN", u"FROM",          u"GROUP",     u"HAVING",  u"INDEX",
    u"INSERT",     u"INTO",   u"ISNULL",  u"JOIN",          u"LIMIT",     u"NOTNULL", u"NOTHING",
    u"NULL",       u"ORDER",  u"PRIMARY", u"REFERENCES",    u"RETURNING", u"SELECT",  u"SET",
    u"TABLE",      u"THEN",   u"TO",      u"TRANSACTION",   u"UNION",     u"UNIQUE",  u"UPDATE",
    u"USING",      u"VALUES", u"WHERE",
};

}  // namespace

const DialectFacts dialect{
    .collate = u" COLLATE es",
    .like = u"LIKE",
    .likePattern = nullptr,
    .join = u"||",
    .nul = u"char(0)",
    .trueText = u"-1",
    .falseText = u"0",
    .numericBooleans = true,
    .date = dayCount,
    .datesByRange = true,
    .ascendingNulls = u"",
    .descendingNulls = u"",
    .parameter = u"?",
    .sameOrBothNull = u"IS",
    .begin = u"BEGIN IMMEDIATE",
    .checksLengths = false,
    .functions = functions,
    .reserved = reserved,
};

}  // namespace ovalia::engines::sqlite
