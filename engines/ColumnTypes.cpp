#include "engines/ColumnTypes.h"

#include <array>

#include "engines/Names.h"

namespace ovalia::engines {
namespace {

struct DeclaredType {
  TextView word;
  dao::DataType type;
};

constexpr std::array declaredTypes{
    DeclaredType{u"BOOLEAN", dao::dbBoolean},   DeclaredType{u"BOOL", dao::dbBoolean},
    DeclaredType{u"BIT", dao::dbBoolean},       DeclaredType{u"YESNO", dao::dbBoolean},
    DeclaredType{u"LOGICAL", dao::dbBoolean},   DeclaredType{u"BYTE", dao::dbByte},
    DeclaredType{u"TINYINT", dao::dbByte},      DeclaredType{u"SMALLINT", dao::dbInteger},
    DeclaredType{u"SHORT", dao::dbInteger},     DeclaredType{u"INT2", dao::dbInteger},
    DeclaredType{u"INTEGER", dao::dbLong},      DeclaredType{u"INT", dao::dbLong},
    DeclaredType{u"LONG", dao::dbLong},         DeclaredType{u"INT4", dao::dbLong},
    DeclaredType{u"INT8", dao::dbLong},         DeclaredType{u"BIGINT", dao::dbLong},
    DeclaredType{u"COUNTER", dao::dbLong},      DeclaredType{u"AUTOINCREMENT", dao::dbLong},
    DeclaredType{u"CURRENCY", dao::dbCurrency}, DeclaredType{u"MONEY", dao::dbCurrency},
    DeclaredType{u"SINGLE", dao::dbSingle},     DeclaredType{u"REAL", dao::dbDouble},
    DeclaredType{u"FLOAT", dao::dbDouble},      DeclaredType{u"DOUBLE", dao::dbDouble},
    DeclaredType{u"NUMERIC", dao::dbDouble},    DeclaredType{u"DECIMAL", dao::dbDouble},
    DeclaredType{u"NUMBER", dao::dbDouble},     DeclaredType{u"DATETIME", dao::dbDate},
    DeclaredType{u"DATE", dao::dbDate},         DeclaredType{u"TIMESTAMP", dao::dbDate},
    DeclaredType{u"TIME", dao::dbDate},         DeclaredType{u"TEXT", dao::dbText},
    DeclaredType{u"VARCHAR", dao::dbText},      DeclaredType{u"NVARCHAR", dao::dbText},
    DeclaredType{u"CHAR", dao::dbText},         DeclaredType{u"CHARACTER", dao::dbText},
    DeclaredType{u"NCHAR", dao::dbText},        DeclaredType{u"STRING", dao::dbText},
    DeclaredType{u"MEMO", dao::dbMemo},         DeclaredType{u"LONGTEXT", dao::dbMemo},
    DeclaredType{u"LONGCHAR", dao::dbMemo},     DeclaredType{u"NOTE", dao::dbMemo},
    DeclaredType{u"CLOB", dao::dbMemo},
};

bool letter(char16_t c) { return (c >= u'0' && c <= u'9') || (c | 0x20) >= u'a'; }

std::int32_t sizeIn(TextView declared) {
  std::int32_t size = 0;
  const std::size_t open = declared.find(u'(');
  if (open == TextView::npos) return 0;
  for (const char16_t c : declared.substr(open + 1)) {
    if (c == u' ' && size == 0) continue;
    if (c < u'0' || c > u'9' || size > 100'000'000) break;
    size = size * 10 + (c - u'0');
  }
  return size;
}

}  // namespace

std::optional<ColumnType> columnTypeFrom(TextView declared) {
  while (!declared.empty() && !letter(declared.front())) declared.remove_prefix(1);
  std::size_t end = 0;
  while (end < declared.size() && letter(declared[end])) ++end;
  const TextView word = declared.substr(0, end);
  for (const DeclaredType& row : declaredTypes)
    if (sameAscii(row.word, word)) return ColumnType{row.type, isText(row.type) ? sizeIn(declared) : 0};
  return std::nullopt;
}

}  // namespace ovalia::engines
