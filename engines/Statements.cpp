#include "engines/Names.h"
#include "engines/SentenceTranslator.h"

namespace ovalia::engines {

// The one table that a statement writes, named by the token.
SelectShape SentenceTranslator::writtenTable(std::size_t at) {
  SelectShape written;
  if (at >= sentence_.size() || !sentence_[at].name()) return written;
  const auto definition = catalog_.table(sentence_[at].value);
  written.tables.push_back(
      {sentence_[at].value, definition ? definition->name : sentence_[at].value, definition});
  if (definition) spell(at, definition->name);
  return written;
}

void SentenceTranslator::insert(Translation& result) {
  const std::size_t end = sentence_.size();
  std::size_t at = 1;
  if (at < end && sentence_[at].is(u"INTO")) ++at;
  const SelectShape written = writtenTable(at);
  const Scope scope{written};
  const bool known = !written.tables.empty() && written.tables[0].definition;
  std::vector<const ColumnInfo*> columns;
  if (known)
    for (const ColumnInfo& column : written.tables[0].definition->columns) columns.push_back(&column);
  ++at;
  if (at < end && sentence_[at].symbol(u"(")) {
    columns.clear();
    const std::size_t close = std::min(closing(at), end);
    list(at + 1, close, [&](std::size_t first, std::size_t last) {
      if (last - first == 3 && sentence_[first + 1].symbol(u".")) sentence_.drop(first, first + 2);
      const auto column = last > first ? scope.column(sentence_[last - 1].value) : std::nullopt;
      if (column) spell(last - 1, column->column->name);
      columns.push_back(column ? column->column : nullptr);
    });
    at = close + 1;
  }
  if (at >= end) return;
  if (sentence_[at].is(u"VALUES")) {
    for (++at; at < end; ++at) {
      if (!sentence_[at].symbol(u"(")) continue;
      const std::size_t close = std::min(closing(at), end);
      values(at + 1, close, columns, Scope{SelectShape()});
      at = close;
    }
  } else if (sentence_[at].is(u"SELECT")) {
    result.select = select(at, end, nullptr);
  } else {
    at_ = at;
    all(scope, end);
  }
}

void SentenceTranslator::values(std::size_t begin, std::size_t end,
                                const std::vector<const ColumnInfo*>& columns, const Scope& scope) {
  std::size_t position = 0;
  list(begin, end, [&](std::size_t first, std::size_t last) {
    const ColumnInfo* const column = position < columns.size() ? columns[position] : nullptr;
    ++position;
    if (first == last) return;
    at_ = first;
    const Operand value = expression(scope, last, 1);
    if (column && value.end == last) assign(*column, value);
    all(scope, last);
  });
}

void SentenceTranslator::update(Translation&) {
  const std::size_t end = sentence_.size();
  const SelectShape written = writtenTable(1);
  const Scope scope{written};
  const std::size_t set = find(1, end, {u"SET"});
  if (set == end) return;
  const std::size_t where = find(set, end, {u"WHERE"});
  list(set + 1, where, [&](std::size_t first, std::size_t last) {
    if (last - first > 3 && sentence_[first + 1].symbol(u".")) {
      sentence_.drop(first, first + 2);
      first += 2;
    }
    if (last - first < 3 || !sentence_[first].name() || !sentence_[first + 1].symbol(u"=")) return;
    const auto column = scope.column(sentence_[first].value);
    if (column) spell(first, column->column->name);
    at_ = first + 2;
    const Operand value = expression(scope, last, 1);
    if (column && value.end == last) assign(*column->column, value);
    all(scope, last);
  });
  at_ = std::min(where + 1, end);
  all(scope, end);
}

void SentenceTranslator::erase(Translation&) {
  const std::size_t end = sentence_.size();
  const std::size_t from = find(1, end, {u"FROM"});
  if (from == end) return;
  if (from > 1 && sentence_[from - 1].symbol(u"*")) sentence_.drop(1, from);
  const SelectShape written = writtenTable(from + 1);
  const Scope scope{written};
  const std::size_t where = find(from, end, {u"WHERE"});
  at_ = std::min(where + 1, end);
  all(scope, end);
}

}  // namespace ovalia::engines
