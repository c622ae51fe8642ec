#include <array>
#include <charconv>
#include <utility>

#include "engines/DateLiteral.h"
#include "engines/Names.h"
#include "engines/SentenceTranslator.h"

namespace ovalia::engines {
namespace {

enum Rank { any = 1, conjunction, negation, comparing, joining, adding, modulus, multiplying, sign, power };

struct Operator {
  TextView mark;
  int rank;
};

constexpr std::array operators{
    Operator{u"OR", any},        Operator{u"XOR", any},       Operator{u"AND", conjunction},
    Operator{u"=", comparing},   Operator{u"==", comparing},  Operator{u"<>", comparing},
    Operator{u"!=", comparing},  Operator{u"<", comparing},   Operator{u">", comparing},
    Operator{u"<=", comparing},  Operator{u">=", comparing},  Operator{u"LIKE", comparing},
    Operator{u"IN", comparing},  Operator{u"IS", comparing},  Operator{u"BETWEEN", comparing},
    Operator{u"NOT", comparing}, Operator{u"&", joining},     Operator{u"||", joining},
    Operator{u"+", adding},      Operator{u"-", adding},      Operator{u"MOD", modulus},
    Operator{u"*", multiplying}, Operator{u"/", multiplying},
};

struct TruthWord {
  TextView word;
  bool value;
};
constexpr std::array truthWords{TruthWord{u"TRUE", true}, TruthWord{u"YES", true},
                                TruthWord{u"ON", true},   TruthWord{u"FALSE", false},
                                TruthWord{u"NO", false},  TruthWord{u"OFF", false}};

enum class Gives { Argument, WholeNumber, Number };
struct Aggregate {
  TextView name;
  Gives gives;
};
constexpr std::array aggregates{
    Aggregate{u"COUNT", Gives::WholeNumber},    Aggregate{u"MAX", Gives::Argument},
    Aggregate{u"MIN", Gives::Argument},         Aggregate{u"SUM", Gives::Argument},
    Aggregate{u"AVG", Gives::Number},           Aggregate{u"TOTAL", Gives::Number},
    Aggregate{u"GROUP_CONCAT", Gives::Argument}};

int rankOf(const Token& token) {
  if (token.kind != Token::Kind::Word && token.kind != Token::Kind::Symbol) return 0;
  for (const Operator& row : operators)
    if (token.kind == Token::Kind::Word ? token.is(row.mark) : token.value == row.mark) return row.rank;
  return 0;
}

}  // namespace

void SentenceTranslator::all(const Scope& scope, std::size_t end) {
  while (at_ < end) expression(scope, end, any);
}

Operand SentenceTranslator::expression(const Scope& scope, std::size_t end, int rank) {
  const Level level(*this);
  Operand left;
  if (sentence_[at_].is(u"NOT")) {
    const std::size_t first = at_++;
    if (at_ < end) left = expression(scope, end, negation);
    left = Operand{.first = first, .end = at_, .type = dao::dbBoolean, .simple = false};
  } else {
    left = operand(scope, end);
  }
  return infix(std::move(left), scope, end, rank);
}

Operand SentenceTranslator::infix(Operand left, const Scope& scope, std::size_t end, int rank) {
  bool folded = false;  // constants have been joined that the sentence still holds one by one
  const auto settle = [&] {
    if (std::exchange(folded, false)) putConstant(left);
  };
  while (at_ < end) {
    const Token& token = sentence_[at_];
    const int own = rankOf(token);
    if (own == 0 || own < rank || at_ + 1 == end) break;
    if (own == comparing) {
      settle();
      left = comparison(std::move(left), scope, end);
      continue;
    }
    const std::size_t mark = at_++;
    Operand right = expression(scope, end, own + 1);
    const bool texts = (left.type && isText(*left.type)) || (right.type && isText(*right.type));
    const auto joins = [](const Operand& side) { return !side.type || isText(*side.type); };
    const bool makesText = token.symbol(u"&") || (token.symbol(u"+") && texts && joins(left) && joins(right));
    if (makesText && left.text && right.text) {
      left.text->append(*right.text);
      left.end = right.end;
      left.simple = folded = true;
      left.column.reset();
      continue;
    }
    settle();
    if (makesText) {
      left = joined(left, mark, right, token.symbol(u"&"));
    } else {
      if (token.is(u"MOD")) sentence_.replace(mark, u"%");
      std::optional<dao::DataType> type = left.type ? left.type : right.type;
      if (own <= conjunction) type = dao::dbBoolean;
      left = Operand{.first = left.first, .end = right.end, .type = type, .simple = false};
    }
  }
  settle();
  return left;
}

Operand SentenceTranslator::comparison(Operand left, const Scope& scope, std::size_t end) {
  std::size_t word = at_;
  if (sentence_[word].is(u"NOT")) ++word;
  if (word >= end) {
    ++at_;
    return left;
  }
  if (sentence_[word].is(u"LIKE")) return pattern(std::move(left), scope, end);
  if (sentence_[word].is(u"BETWEEN")) return between(std::move(left), scope, end);
  if (sentence_[word].is(u"IN")) return among(std::move(left), scope, end);
  const std::size_t mark = at_++;
  if (sentence_[mark].is(u"IS") && at_ < end && sentence_[at_].is(u"NOT")) ++at_;
  if (at_ >= end) return left;
  const Operand right = expression(scope, end, joining);
  if (sentence_[mark].kind == Token::Kind::Symbol) compare(left, mark, right);
  return Operand{.first = left.first, .end = right.end, .type = dao::dbBoolean, .simple = false};
}

Operand SentenceTranslator::pattern(Operand left, const Scope& scope, std::size_t end) {
  if (sentence_[at_].is(u"NOT")) ++at_;
  const std::size_t word = at_++;
  if (at_ >= end) return left;
  if (facts_.like != u"LIKE") sentence_.replace(word, Text(facts_.like));
  const Operand right = expression(scope, end, joining);
  if (right.text && facts_.likePattern) {
    sentence_.drop(right.first + 1, right.end);
    sentence_.putText(right.first, facts_.likePattern(*right.text));
  }
  return Operand{.first = left.first, .end = right.end, .type = dao::dbBoolean, .simple = false};
}

Operand SentenceTranslator::between(Operand left, const Scope& scope, std::size_t end) {
  if (sentence_[at_].is(u"NOT")) ++at_;
  ++at_;
  if (at_ >= end) return left;
  const Operand low = expression(scope, end, joining);
  if (at_ + 1 >= end || !sentence_[at_].is(u"AND")) return left;
  ++at_;
  const Operand high = expression(scope, end, joining);
  if (facts_.datesByRange && low.date) sentence_.replace(low.first, facts_.date(edge(*low.date, -1)));
  if (facts_.datesByRange && high.date) sentence_.replace(high.first, facts_.date(edge(*high.date, 1)));
  if (comparesText(left, low) || comparesText(left, high)) collate(left);
  return Operand{.first = left.first, .end = high.end, .type = dao::dbBoolean, .simple = false};
}

Operand SentenceTranslator::among(Operand left, const Scope& scope, std::size_t end) {
  if (sentence_[at_].is(u"NOT")) ++at_;
  ++at_;
  if (at_ >= end || !sentence_[at_].symbol(u"(")) return left;
  const std::size_t close = std::min(closing(at_), end);
  bool texts = left.type && isText(*left.type);
  ++at_;
  if (at_ < close && sentence_[at_].is(u"SELECT")) {
    select(at_, close, &scope);
  } else {
    while (at_ < close) {
      if (sentence_[at_].symbol(u",")) {
        ++at_;
        continue;
      }
      const Operand choice = expression(scope, close, any);
      texts = texts || comparesText(left, choice);
    }
  }
  if (texts) collate(left);
  at_ = std::min(close + 1, end);
  return Operand{.first = left.first, .end = at_, .type = dao::dbBoolean, .simple = false};
}

Operand SentenceTranslator::operand(const Scope& scope, std::size_t end) {
  const Token& token = sentence_[at_];
  if (token.symbol(u"(")) return parenthesis(scope, end);
  if ((token.symbol(u"-") || token.symbol(u"+")) && at_ + 1 < end) {
    const std::size_t first = at_++;
    Operand inner = expression(scope, end, sign);
    inner.first = first;
    inner.simple = false;
    inner.column.reset();
    inner.text.reset();
    inner.date.reset();
    if (inner.number && token.symbol(u"-")) inner.number = -*inner.number;
    return inner;
  }
  if (token.name()) {
    if (at_ + 1 < end && sentence_[at_ + 1].symbol(u"(") && token.kind == Token::Kind::Word)
      return function(scope, end);
    return columnName(scope, end);
  }
  return constant();
}

Operand SentenceTranslator::constant() {
  const Token& token = sentence_[at_];
  Operand result{.first = at_, .end = at_ + 1};
  ++at_;
  if (token.kind == Token::Kind::TextLiteral) {
    result.type = dao::dbText;
    result.text = token.value;
  } else if (token.kind == Token::Kind::DateLiteral) {
    result.type = dao::dbDate;
    result.date = dateFromLiteral(token.value);
    if (!result.date) throw databaseFailure(dao::failure::syntax, u"#" + token.value + u"#");
  } else if (token.kind == Token::Kind::Number) {
    const std::string digits = toUtf8(token.value);
    double number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    result.number = number;
    result.type = dao::dbDouble;
  }
  return result;
}

Operand SentenceTranslator::parenthesis(const Scope& scope, std::size_t end) {
  const std::size_t open = at_++;
  const std::size_t close = std::min(closing(open), end);
  Operand inner;
  if (at_ < close && sentence_[at_].is(u"SELECT")) {
    const SelectShape shape = select(at_, close, &scope);
    if (!shape.outputs.empty()) inner.type = shape.outputs.front().type;
  } else {
    if (at_ < close) inner = expression(scope, close, any);
    if (at_ < close) inner = Operand{};
    all(scope, close);
    inner.date.reset();
    inner.number.reset();
    inner.column.reset();
  }
  at_ = std::min(close + 1, end);
  inner.first = open;
  inner.end = at_;
  inner.simple = true;
  return inner;
}

Operand SentenceTranslator::function(const Scope& scope, std::size_t end) {
  const std::size_t first = at_;
  const Token& name = sentence_[first];
  const std::size_t open = first + 1;
  const std::size_t close = std::min(closing(open), end);
  std::vector<Operand> arguments;
  at_ = open + 1;
  while (at_ < close) {
    if (sentence_[at_].symbol(u",")) {
      ++at_;
    } else if (sentence_[at_].is(u"SELECT")) {
      select(at_, close, &scope);
      at_ = close;
    } else {
      arguments.push_back(expression(scope, close, any));
    }
  }
  at_ = std::min(close + 1, end);
  Operand result{.first = first, .end = at_};
  for (const Aggregate& row : aggregates) {
    if (!name.is(row.name)) continue;
    aggregate_ = true;
    if (row.gives == Gives::WholeNumber) result.type = dao::dbLong;
    if (row.gives == Gives::Number) result.type = dao::dbDouble;
    if (row.gives == Gives::Argument && arguments.size() == 1) {
      result.type = arguments[0].type;
      if (result.type && isText(*result.type)) collate(arguments[0]);
    }
    return result;
  }
  if ((name.is(u"chr") || name.is(u"chr$")) && arguments.size() == 1 && arguments[0].number &&
      *arguments[0].number >= 1 && *arguments[0].number < 0x10000) {
    result.text = Text(1, static_cast<char16_t>(*arguments[0].number));
    result.type = dao::dbText;
    sentence_.drop(first + 1, result.end);
    sentence_.putText(first, *result.text);
    return result;
  }
  for (const FunctionFact& row : facts_.functions) {
    if (!name.is(row.jet)) continue;
    sentence_.replace(first, Text(row.engine));
    result.type = row.gives;
    return result;
  }
  if (name.is(u"IIF") && arguments.size() == 3 && arguments[1].type == arguments[2].type)
    result.type = arguments[1].type;
  return result;
}

Operand SentenceTranslator::columnName(const Scope& scope, std::size_t end) {
  Operand result{.first = at_, .end = at_ + 1};
  const Token& token = sentence_[at_++];
  if (at_ + 1 < end && (sentence_[at_].symbol(u".") || sentence_[at_].symbol(u"!")) &&
      sentence_[at_ + 1].name()) {
    sentence_.replace(at_, u".");
    const Token& columnToken = sentence_[at_ + 1];
    result.end = at_ + 2;
    for (const Scope* around = &scope; around; around = around->outer) {
      const auto table = around->tableNamed(token.value);
      if (!table) continue;
      const SourceTable& source = around->shape.tables[*table];
      spell(result.first, source.alias);
      if (!source.definition) break;
      for (const ColumnInfo& column : source.definition->columns) {
        if (!sameColumn(column.name, columnToken.value)) continue;
        spell(at_ + 1, column.name);
        if (column.type) result.type = column.type->type;
        if (around == &scope) result.column = ResolvedColumn{*table, &column, false};
        break;
      }
      break;
    }
    at_ += 2;
    return result;
  }
  for (const Scope* around = &scope; around; around = around->outer) {
    const OutputColumn* output = around->output(token.value);
    const auto column = around->column(token.value);
    if (output && (around->outputsFirst || !column)) {
      sentence_.replace(result.first, output->table ? output->sql : u"(" + output->sql + u")");
      result.type = output->type;
      return result;
    }
    if (column) {
      spell(result.first, column->column->name);
      if (column->several)
        sentence_.before(result.first, writtenName(around->shape.tables[column->table].alias, facts_) + u".");
      if (column->column->type) result.type = column->column->type->type;
      if (around == &scope) result.column = column;
      return result;
    }
  }
  if (token.kind == Token::Kind::Word)
    for (const TruthWord& row : truthWords) {
      if (!token.is(row.word)) continue;
      sentence_.replace(result.first, Text(row.value ? facts_.trueText : facts_.falseText));
      result.number = row.value ? -1 : 0;
      result.truth = true;
      result.type = dao::dbBoolean;
    }
  return result;
}

// Writes a name as the definition spells it where the engine would not know it otherwise.
void SentenceTranslator::spell(std::size_t at, TextView name) {
  const Token& token = sentence_[at];
  if (token.kind == Token::Kind::Name) {
    if (!sameAscii(token.value, name)) sentence_.replace(at, quotedName(name));
  } else if (const Text written = writtenName(name, facts_); !sameAscii(written, token.value)) {
    sentence_.replace(at, written);
  }
}

}  // namespace ovalia::engines
