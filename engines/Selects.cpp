#include <algorithm>
#include <array>
#include <utility>

#include "engines/Names.h"
#include "engines/SentenceTranslator.h"

namespace ovalia::engines {
namespace {

constexpr std::array<TextView, 12> joinWords{u"LEFT", u"RIGHT",   u"INNER", u"OUTER", u"FULL", u"CROSS",
                                             u"JOIN", u"NATURAL", u"ON",    u"USING", u"AS",   u"WHERE"};

bool isOne(const Token& token, std::span<const TextView> words) {
  return std::any_of(words.begin(), words.end(), [&](TextView word) { return token.is(word); });
}

}  // namespace

std::size_t SentenceTranslator::find(std::size_t begin, std::size_t end,
                                     std::initializer_list<TextView> words) const {
  for (std::size_t i = begin; i < end; ++i) {
    if (sentence_[i].symbol(u"(")) {
      i = closing(i);
      continue;
    }
    // A qualified name may be spelled like a keyword.
    if (i > begin && (sentence_[i - 1].symbol(u".") || sentence_[i - 1].symbol(u"!"))) continue;
    if (isOne(sentence_[i], {words.begin(), words.size()})) return i;
  }
  return end;
}

SelectShape SentenceTranslator::select(std::size_t begin, std::size_t end, const Scope* outer) {
  const Level level(*this);
  SelectShape shape;
  const std::size_t next = find(begin, end, {u"UNION", u"INTERSECT", u"EXCEPT"});
  const std::size_t after =
      next == end ? end : std::min(end, next + (next + 1 < end && sentence_[next + 1].is(u"ALL") ? 2 : 1));
  const std::size_t order = find(begin, next, {u"ORDER"});
  const std::size_t limit = find(std::min(order, next), next, {u"LIMIT", u"WITH"});
  const std::size_t grouped = find(begin, std::min(order, limit), {u"GROUP"});
  const std::size_t having = find(std::min(begin, grouped), std::min(order, limit), {u"HAVING"});
  const std::size_t where = find(begin, std::min({grouped, having, order, limit}), {u"WHERE"});
  const std::size_t from = find(begin, where, {u"FROM"});
  const std::size_t bodyEnd = std::min({where, grouped, having, order, limit, next});

  Scope scope{shape, outer};
  const bool outerAggregate = std::exchange(aggregate_, false);
  std::vector<JoinedColumns>* const outerJoins = std::exchange(joins_, nullptr);

  std::size_t first = begin + 1, distinct = end;
  shape.rowsOfTables = next == end && grouped >= std::min(order, limit) && having >= std::min(order, limit);
  for (; first < from; ++first) {
    const Token& word = sentence_[first];
    if (word.is(u"DISTINCT")) {
      shape.rowsOfTables = false;
      distinct = first;
    } else if (word.is(u"DISTINCTROW")) {
      sentence_.drop(first);
    } else if (word.is(u"TOP") && first + 1 < from && sentence_[first + 1].kind == Token::Kind::Number) {
      shape.limit = u" LIMIT " + sentence_[first + 1].value;
      sentence_.drop(first, first + 2);
      ++first;
    } else if (!word.is(u"ALL")) {
      break;
    }
  }
  if (from < bodyEnd) fromClause(from + 1, bodyEnd, scope, shape);
  items(first, from, scope, shape);
  shape.rowsOfTables = shape.rowsOfTables && !aggregate_;
  shape.items = sentence_.text(first, from);
  if (from < bodyEnd) shape.from = sentence_.text(from + 1, bodyEnd);
  scope.outputs = true;
  if (where < next) {
    const std::size_t whereEnd = std::min({grouped, having, order, limit, next});
    at_ = where + 1;
    all(scope, whereEnd);
    shape.where = sentence_.text(std::min(where + 1, whereEnd), whereEnd);
  }
  if (grouped < std::min(order, limit))
    orderTerms(std::min(grouped + 2, std::min(having, next)), std::min({having, order, limit, next}), scope,
               shape, false);
  if (distinct < end && grouped >= std::min(order, limit) && !aggregate_)
    groupInstead(distinct, std::min({having, order, limit, next}), shape);
  if (having < std::min({order, limit, next})) {
    at_ = having + 1;
    all(scope, std::min({order, limit, next}));
  }
  if (order < next) {
    const std::size_t orderBegin = std::min(order + 2, std::min(limit, next));
    orderTerms(orderBegin, std::min(limit, next), scope, shape, true);
  }
  if (limit < next) {
    if (sentence_[limit].is(u"LIMIT"))
      shape.limit = u" " + sentence_.text(limit, next);
    else
      sentence_.drop(limit, next);  // WITH OWNERACCESS OPTION
  } else if (!shape.limit.empty() && next > begin) {
    sentence_.after(next - 1, shape.limit);
  }
  aggregate_ = outerAggregate;
  joins_ = outerJoins;
  if (after < end) {
    at_ = after;
    select(after, end, outer);
  }
  at_ = end;
  return shape;
}

// Tables first, then the conditions, since a condition may name a table that stands further right.
void SentenceTranslator::fromClause(std::size_t begin, std::size_t end, const Scope& scope,
                                    SelectShape& shape) {
  struct Range {
    std::size_t begin, end;
  };
  std::vector<Range> conditions;
  bool expectsTable = true;
  for (std::size_t i = begin; i < end; ++i) {
    const Token& token = sentence_[i];
    if (expectsTable && token.symbol(u"(") && i + 1 < end && sentence_[i + 1].is(u"SELECT")) {
      const std::size_t close = std::min(closing(i), end);
      auto derived = std::make_shared<TableInfo>();
      for (const OutputColumn& output : select(i + 1, close, scope.outer).outputs) {
        ColumnInfo column{output.name, std::nullopt, false, false};
        if (output.type) column.type = ColumnType{*output.type, 0};
        derived->columns.push_back(std::move(column));
      }
      i = close;
      if (i + 1 < end && sentence_[i + 1].is(u"AS")) ++i;
      Text alias;
      if (i + 1 < end && sentence_[i + 1].name() && !isOne(sentence_[i + 1], joinWords))
        alias = sentence_[++i].value;
      shape.tables.push_back({u"", alias, derived});
      expectsTable = false;
    } else if (token.is(u"ON")) {
      std::size_t stop = i + 1;
      for (; stop < end; ++stop) {
        if (sentence_[stop].symbol(u"("))
          stop = std::min(closing(stop), end - 1);
        else if (sentence_[stop].symbol(u")") || sentence_[stop].symbol(u","))
          break;
        else if (isOne(sentence_[stop], std::span(joinWords).first(9)) &&
                 !(stop + 1 < end && sentence_[stop + 1].symbol(u"(")))
          break;
      }
      conditions.push_back({i + 1, stop});
      i = stop - 1;
    } else if (token.is(u"JOIN") || token.symbol(u",")) {
      expectsTable = true;
    } else if (token.is(u"LEFT") || token.is(u"RIGHT") || token.is(u"FULL")) {
      shape.outerJoins = true;
      shape.rightJoins = shape.rightJoins || !token.is(u"LEFT");
    } else if (expectsTable && token.name() && !isOne(token, joinWords)) {
      std::size_t name = i;
      while (name + 2 < end && sentence_[name + 1].symbol(u".") && sentence_[name + 2].name()) name += 2;
      const auto definition = catalog_.table(sentence_[name].value);
      SourceTable table{sentence_[name].value, sentence_[name].value, definition};
      if (definition) spell(name, definition->name);
      i = name;
      std::size_t alias = name + 1;
      if (alias < end && sentence_[alias].is(u"AS")) ++alias;
      if (alias < end && sentence_[alias].name() && !isOne(sentence_[alias], joinWords)) {
        table.alias = sentence_[alias].value;
        i = alias;
      } else if (definition) {
        table.alias = definition->name;
      }
      shape.tables.push_back(std::move(table));
      expectsTable = false;
    }
  }
  for (const Range& condition : conditions) {
    at_ = condition.begin;
    bool certain = true;
    for (std::size_t i = condition.begin; i < condition.end; ++i)
      certain = certain && !sentence_[i].is(u"OR") && !sentence_[i].is(u"NOT") && !sentence_[i].is(u"XOR");
    joins_ = certain ? &shape.joins : nullptr;
    all(scope, condition.end);
  }
  joins_ = nullptr;
}

void SentenceTranslator::items(std::size_t begin, std::size_t end, const Scope& scope, SelectShape& shape) {
  list(begin, end, [&](std::size_t first, std::size_t last) {
    if (first == last) return;
    if (sentence_[first].symbol(u"*")) return star(shape.tables.size(), shape);
    if (last - first == 3 && sentence_[last - 1].symbol(u"*")) {
      const auto table = scope.tableNamed(sentence_[first].value);
      if (table) spell(first, shape.tables[*table].alias);
      sentence_.replace(first + 1, u".");
      return star(table.value_or(shape.tables.size() + 1), shape);
    }
    at_ = first;
    Operand value = expression(scope, last, 1);
    OutputColumn output;
    output.type = value.number && !value.truth ? std::nullopt : value.type;
    if (at_ < last && sentence_[at_].is(u"AS")) ++at_;
    if (at_ + 1 == last && sentence_[at_].name()) {
      output.name = sentence_[at_].value;
      if (sentence_[at_].kind == Token::Kind::Word) spell(at_, output.name);
      ++at_;
    } else if (value.column) {
      output.name = value.column->column->name;
    } else if (at_ == last && last - first >= 3 && sentence_[last - 1].name() &&
               sentence_[last - 2].symbol(u".")) {
      output.name = sentence_[last - 1].value;
    }
    output.sql = sentence_.text(value.first, value.end);
    if (value.column) {
      output.table = value.column->table;
      output.column = value.column->column->name;
    }
    all(scope, last);
    shape.outputs.push_back(std::move(output));
  });
}

// DISTINCT would tell texts apart that are the same to a comparison; groups by every column do not.
void SentenceTranslator::groupInstead(std::size_t distinct, std::size_t end, const SelectShape& shape) {
  Text terms;
  for (const OutputColumn& output : shape.outputs) {
    if (!output.table) return;
    terms.append(terms.empty() ? u" GROUP BY " : u", ").append(output.sql);
    if (output.type && isText(*output.type)) terms.append(facts_.collate);
  }
  sentence_.drop(distinct);
  sentence_.after(end - 1, terms);
}

// Columns of all tables, or of one where `only` is its position.
void SentenceTranslator::star(std::size_t only, SelectShape& shape) const {
  for (std::size_t table = 0; table < shape.tables.size(); ++table) {
    const SourceTable& source = shape.tables[table];
    if ((only != shape.tables.size() && only != table) || !source.definition) continue;
    for (const ColumnInfo& column : source.definition->columns) {
      OutputColumn output;
      output.name = output.column = column.name;
      output.sql = (source.alias.empty() ? Text() : writtenName(source.alias, facts_) + u".") +
                   writtenName(column.name, facts_);
      if (column.type) output.type = column.type->type;
      output.table = table;
      shape.outputs.push_back(std::move(output));
    }
  }
}

// Terms of ORDER BY, or of GROUP BY where it does not sort.
void SentenceTranslator::orderTerms(std::size_t begin, std::size_t end, const Scope& scope,
                                    SelectShape& shape, bool sorts) {
  list(begin, end, [&](std::size_t first, std::size_t last) {
    if (first == last) return;
    at_ = first;
    const Operand term = expression(scope, last, 1);
    std::optional<dao::DataType> type = term.type;
    Text written;
    const auto position = static_cast<std::size_t>(term.number.value_or(0));
    if (term.number && position >= 1 && position <= shape.outputs.size()) {
      type = shape.outputs[position - 1].type;
      written = shape.outputs[position - 1].sql;
    }
    const bool texts = !type || isText(*type);
    if (texts) collate(term);
    if (sorts) {
      if (!written.empty() && texts) written += facts_.collate;
      const bool falling = at_ < last && sentence_[at_].is(u"DESC");
      const TextView nulls = falling ? facts_.descendingNulls : facts_.ascendingNulls;
      sentence_.after(last - 1, nulls);
      if (written.empty())
        written = sentence_.text(first, last);
      else
        written.append(falling ? u" DESC" : u"").append(nulls);
      shape.order.append(shape.order.empty() ? u"" : u", ").append(written);
    }
    all(scope, last);
  });
}

}  // namespace ovalia::engines
