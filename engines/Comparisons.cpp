#include <array>
#include <cmath>

#include "engines/SentenceTranslator.h"
#include "engines/Values.h"
#include "platform/Platform.h"

namespace ovalia::engines {
namespace {

// What a comparison of a column with a date constant becomes: the side of the constant's second to compare
// with, when the constant stands on the right and on the left.
struct DateComparison {
  TextView mark;
  int right, left;
};
constexpr std::array dateComparisons{DateComparison{u"<", -1, 1}, DateComparison{u"<=", 1, -1},
                                     DateComparison{u">", 1, -1}, DateComparison{u">=", -1, 1}};

struct WholeType {
  dao::DataType type;
  double lowest, highest;
};
constexpr std::array wholeTypes{WholeType{dao::dbByte, 0, 255}, WholeType{dao::dbInteger, -32'768, 32'767},
                                WholeType{dao::dbLong, -2'147'483'648.0, 2'147'483'647}};

bool equality(const Token& mark) { return mark.symbol(u"=") || mark.symbol(u"=="); }
bool inequality(const Token& mark) { return mark.symbol(u"<>") || mark.symbol(u"!="); }
bool isDate(const Operand& operand) { return !operand.type || *operand.type == dao::dbDate; }
bool isConstant(const Operand& operand) { return operand.text || operand.date || operand.number; }

Text numberText(double number) {
  Regional plain;
  plain.decimal = u'.';
  return plain.numberText(number);
}

}  // namespace

Date edge(Date date, int side) {
  constexpr double halfSecond = 0.5 / 86'400, unit = 1e8;
  return {std::round((date.days + side * halfSecond) * unit) / unit};
}

void SentenceTranslator::putConstant(const Operand& text) {
  sentence_.drop(text.first + 1, text.end);
  sentence_.putText(text.first, *text.text);
}

Operand SentenceTranslator::joined(const Operand& left, std::size_t mark, const Operand& right,
                                   bool nullIsNothing) {
  Operand result{.first = left.first, .end = right.end, .type = dao::dbText, .simple = false};
  result.filled = nullIsNothing;
  if (!sentence_[mark].symbol(facts_.join)) sentence_.replace(mark, Text(facts_.join));
  for (const Operand* side : {&left, &right}) {
    if (side->filled) continue;
    if (nullIsNothing && !isConstant(*side)) {
      sentence_.before(side->first, u"COALESCE(");
      sentence_.after(side->end - 1, u", '')");
    } else if (!side->simple) {
      sentence_.before(side->first, u"(");
      sentence_.after(side->end - 1, u")");
    }
  }
  return result;
}

bool SentenceTranslator::comparesText(const Operand& left, const Operand& right) const {
  const auto text = [](const Operand& side) { return side.type && isText(*side.type); };
  const auto perhaps = [&](const Operand& side) { return !side.type || text(side); };
  return (text(left) || text(right)) && perhaps(left) && perhaps(right);
}

void SentenceTranslator::collate(const Operand& operand) { sentence_.after(operand.end - 1, facts_.collate); }

void SentenceTranslator::compare(const Operand& left, std::size_t mark, const Operand& right) {
  if (equality(sentence_[mark])) noteJoin(left, right);
  if (compareDates(left, mark, right) || compareTruth(left, mark, right)) return;
  if (comparesText(left, right)) collate(left);
}

void SentenceTranslator::noteJoin(const Operand& left, const Operand& right) {
  if (joins_ && left.column && right.column)
    joins_->push_back(
        {left.column->table, right.column->table, left.column->column->name, right.column->column->name});
}

bool SentenceTranslator::compareDates(const Operand& left, std::size_t mark, const Operand& right) {
  const bool constantRight = right.date.has_value();
  if (!facts_.datesByRange || constantRight == left.date.has_value()) return false;
  const Operand& constantSide = constantRight ? right : left;
  const Operand& other = constantRight ? left : right;
  if (!isDate(other)) return false;
  const Date date = *constantSide.date;
  const Token& token = sentence_[mark];
  if (equality(token) || inequality(token)) {
    const Text range = (inequality(token) ? u" NOT BETWEEN " : u" BETWEEN ") + facts_.date(edge(date, -1)) +
                       u" AND " + facts_.date(edge(date, 1));
    sentence_.drop(mark);
    sentence_.drop(constantSide.first, constantSide.end);
    sentence_.after(other.end - 1, range);
    return true;
  }
  for (const DateComparison& row : dateComparisons)
    if (token.symbol(row.mark))
      sentence_.replace(constantSide.first, facts_.date(edge(date, constantRight ? row.right : row.left)));
  return true;
}

bool SentenceTranslator::compareTruth(const Operand& left, std::size_t mark, const Operand& right) {
  const auto truthColumn = [](const Operand& side) { return side.type == dao::dbBoolean && !side.number; };
  const bool leftColumn = truthColumn(left);
  const Operand& value = leftColumn ? right : left;
  if (leftColumn == truthColumn(right) || !value.number) return false;
  const double number = *value.number;
  const bool equal = equality(sentence_[mark]);
  if ((number != 0 && number != 1 && number != -1) || (!equal && !inequality(sentence_[mark]))) return false;
  sentence_.drop(value.first + 1, value.end);
  if (facts_.numericBooleans) {
    sentence_.replace(mark, equal == (number == 0) ? u"=" : u"<>");
    sentence_.replace(value.first, u"0");
  } else {
    sentence_.replace(value.first, Text(number == 0 ? facts_.falseText : facts_.trueText));
  }
  return true;
}

// A constant as its column keeps it; what the column cannot take is a failure or a refusal of the row.
void SentenceTranslator::assign(const ColumnInfo& column, const Operand& value) {
  if (!column.type) return;
  const ColumnType& type = *column.type;
  const auto put = [&](Text text) {
    sentence_.drop(value.first + 1, value.end);
    sentence_.replace(value.first, std::move(text));
  };
  const auto refuse = [&] { throw databaseFailure(dao::failure::conversion, column.name); };
  if (isText(type.type)) {
    if (value.date) put(quotedText(regionalNow().dateText(*value.date), facts_));
    if (value.text && type.size > 0 && value.text->size() > static_cast<std::size_t>(type.size))
      tooLong_ = true;
    return;
  }
  if (value.text) {
    if (type.type == dao::dbDate) {
      const auto date = regionalNow().dateFromText(*value.text);
      if (!date) refuse();
      return put(facts_.date(wholeSecond(*date)));
    }
    const auto number = regionalNow().numberFromText(*value.text);
    if (!number) refuse();
    return put(numberText(*number));
  }
  if (type.type == dao::dbBoolean && value.number && !facts_.numericBooleans)
    return put(Text(*value.number == 0 ? facts_.falseText : facts_.trueText));
  if (!value.number) return;
  for (const WholeType& row : wholeTypes) {
    if (row.type != type.type) continue;
    const double whole = std::nearbyint(*value.number);
    if (whole < row.lowest || whole > row.highest) refuse();
    if (whole != *value.number) put(numberText(whole));
  }
}

}  // namespace ovalia::engines
