#include "engines/Translator.h"

#include <algorithm>
#include <array>

#include "engines/Names.h"
#include "engines/SentenceTranslator.h"

namespace ovalia::engines {
namespace {

constexpr std::array<TextView, 4> translatedVerbs{u"SELECT", u"INSERT", u"UPDATE", u"DELETE"};

bool wordCharacter(char16_t c) {
  return (c >= u'0' && c <= u'9') || ((c | 0x20) >= u'a' && (c | 0x20) <= u'z') || c == u'_' || c > 0xA0;
}

bool isTranslated(TextView sql) {
  const auto begin = std::find_if(sql.begin(), sql.end(), wordCharacter);
  const TextView word(begin, std::find_if_not(begin, sql.end(), wordCharacter));
  return std::any_of(translatedVerbs.begin(), translatedVerbs.end(),
                     [&](TextView verb) { return sameAscii(verb, word); });
}

bool beginsTransaction(TextView sql) {
  const auto inWord = [](char16_t c) { return c != u' ' && c != u';'; };
  const auto last = std::find_if(sql.rbegin(), sql.rend(), inWord).base();
  const TextView words(std::find_if(sql.begin(), last, inWord), last);
  return sameAscii(words, u"BEGIN") || sameAscii(words, u"BEGIN TRANSACTION");
}

// A name alone, in brackets or plain.
bool namesTable(TextView sql) {
  if (sql.size() > 2 && sql.front() == u'[') return sql.find(u']') == sql.size() - 1;
  return !sql.empty() && !isTranslated(sql) && std::all_of(sql.begin(), sql.end(), wordCharacter);
}

bool isWhole(std::optional<dao::DataType> type) {
  return type && *type >= dao::dbByte && *type <= dao::dbLong;
}

// "column = number", which most searches are.
std::optional<Criterion> numberOfColumn(const std::vector<Token>& tokens, const SelectShape& select) {
  if (tokens.size() != 3 || !tokens[0].name() || !tokens[1].symbol(u"=") ||
      tokens[2].kind != Token::Kind::Number)
    return std::nullopt;
  const Scope scope{select, nullptr, true, true};
  const OutputColumn* const output = scope.output(tokens[0].value);
  if (!output || !output->table || !isWhole(output->type)) return std::nullopt;
  Criterion result;
  result.onlyColumn = static_cast<std::size_t>(output - select.outputs.data());
  constexpr std::size_t safeDigits = 18;
  const Text& digits = tokens[2].value;
  if (digits.size() > safeDigits) return std::nullopt;
  for (const char16_t c : digits) {
    if (c < u'0' || c > u'9') return std::nullopt;
    result.onlyNumber = result.onlyNumber * 10 + (c - u'0');
  }
  result.sql = output->sql + u" = " + digits;
  return result;
}

}  // namespace

SentenceTranslator::SentenceTranslator(Sentence& sentence, Catalog& catalog)
    : sentence_(sentence),
      catalog_(catalog),
      facts_(sentence.facts()),
      closing_(sentence.size(), sentence.size()) {
  std::vector<std::size_t> open;
  for (std::size_t i = 0; i < sentence.size(); ++i) {
    if (sentence[i].symbol(u"(")) open.push_back(i);
    if (!sentence[i].symbol(u")")) continue;
    if (open.empty()) {
      closed_ = false;
    } else {
      closing_[open.back()] = i;
      open.pop_back();
    }
  }
  closed_ = closed_ && open.empty();
}

std::size_t SentenceTranslator::closing(std::size_t open) const { return closing_[open]; }

Translation SentenceTranslator::statement() {
  Translation result;
  const std::size_t end = sentence_.size();
  const auto begins = [&](TextView word) { return end > 0 && sentence_[0].is(word); };
  if (begins(u"SELECT")) {
    result.kind = StatementKind::Select;
    result.select = select(0, end, nullptr);
  } else if (begins(u"INSERT")) {
    result.kind = StatementKind::Insert;
    insert(result);
  } else if (begins(u"UPDATE")) {
    result.kind = StatementKind::Update;
    update(result);
  } else if (begins(u"DELETE")) {
    result.kind = StatementKind::Delete;
    erase(result);
  }
  result.sql = sentence_.text(0, end);
  result.refusedForLength = tooLong_ && !facts_.checksLengths;
  return result;
}

Criterion SentenceTranslator::criterion(const SelectShape& select) {
  if (!closed_) throw databaseFailure(dao::failure::criterionSyntax);
  const Scope scope{select, nullptr, true, true};
  const std::size_t end = sentence_.size();
  all(scope, end);
  Criterion result;
  result.sql = sentence_.text(0, end);
  for (const Text& text : sentence_.texts()) result.texts.emplace_back(toUtf8(text));
  if (result.sql.empty()) throw databaseFailure(dao::failure::criterionSyntax);
  return result;
}

Text selectFrom(TextView sqlOrTable) {
  return (namesTable(sqlOrTable) ? u"SELECT * FROM " : u"") + Text(sqlOrTable);
}

Translation translate(TextView sql, Catalog& catalog, const DialectFacts& facts) {
  // Definitions and settings are in the engine's own words.
  if (!isTranslated(sql))
    return {StatementKind::Other, Text(beginsTransaction(sql) ? facts.begin : sql), std::nullopt, false};
  Sentence sentence(sql, facts);
  return SentenceTranslator(sentence, catalog).statement();
}

Criterion translateCriterion(TextView criterion, const SelectShape& select, Catalog& catalog,
                             const DialectFacts& facts, std::size_t used) {
  try {
    std::vector<Token> tokens = tokenize(criterion);
    if (auto simple = numberOfColumn(tokens, select)) return std::move(*simple);
    Sentence sentence(criterion, std::move(tokens), facts);
    sentence.textsAsParameters(used);
    return SentenceTranslator(sentence, catalog).criterion(select);
  } catch (const Failure& failure) {
    if (failure.number() != dao::failure::syntax) throw;
    throw Failure(dao::failure::criterionSyntax, failure.description());
  }
}

}  // namespace ovalia::engines
