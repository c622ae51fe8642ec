#pragma once

#include <utility>

#include "engines/Scope.h"
#include "engines/Sentence.h"

namespace ovalia::engines {

// What is known of a part of an expression once it has been read.
struct Operand {
  std::size_t first = 0, end = 0;  // its tokens
  std::optional<dao::DataType> type = {};
  bool simple = true;                         // needs no parentheses beside another operator
  std::optional<ResolvedColumn> column = {};  // where it is a plain column
  std::optional<Text> text = {};              // where it is a constant
  std::optional<Date> date = {};
  std::optional<double> number = {};
  bool truth = false;   // the constant is True or False
  bool filled = false;  // is never Null
};

// The moment half a second before or after a date, in hundred-millionths of a day.
Date edge(Date date, int side);

// Reads a statement once, from the left, and notes in its sentence what must be written otherwise.
class SentenceTranslator {
 public:
  SentenceTranslator(Sentence& sentence, Catalog& catalog);

  Translation statement();
  Criterion criterion(const SelectShape& select);

 private:
  // One level of nesting; beyond what anybody writes it is a syntax failure, not the end of the stack.
  class Level {
   public:
    explicit Level(SentenceTranslator& translator) : depth_(translator.depth_) {
      if (depth_ == deepest) throw databaseFailure(dao::failure::syntax);
      ++depth_;
    }
    ~Level() { --depth_; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;

   private:
    static constexpr int deepest = 300;
    int& depth_;
  };

  // Expressions.cpp: the operators by rank, from `at_` up to `end` at most.
  Operand expression(const Scope& scope, std::size_t end, int rank);
  Operand operand(const Scope& scope, std::size_t end);
  Operand infix(Operand left, const Scope& scope, std::size_t end, int rank);
  Operand comparison(Operand left, const Scope& scope, std::size_t end);
  Operand between(Operand left, const Scope& scope, std::size_t end);
  Operand among(Operand left, const Scope& scope, std::size_t end);
  Operand pattern(Operand left, const Scope& scope, std::size_t end);
  Operand parenthesis(const Scope& scope, std::size_t end);
  Operand function(const Scope& scope, std::size_t end);
  Operand columnName(const Scope& scope, std::size_t end);
  Operand constant();
  void all(const Scope& scope, std::size_t end);  // one expression after the other; what is unknown passes

  // Comparisons.cpp: texts joined and compared, dates and truth values compared, constants stored.
  Operand joined(const Operand& left, std::size_t mark, const Operand& right, bool nullIsNothing);
  void putConstant(const Operand& text);
  void compare(const Operand& left, std::size_t mark, const Operand& right);
  bool compareDates(const Operand& left, std::size_t mark, const Operand& right);
  bool compareTruth(const Operand& left, std::size_t mark, const Operand& right);
  bool comparesText(const Operand& left, const Operand& right) const;
  void collate(const Operand& operand);
  void assign(const ColumnInfo& column, const Operand& value);

  // Selects.cpp
  SelectShape select(std::size_t begin, std::size_t end, const Scope* outer);
  void fromClause(std::size_t begin, std::size_t end, const Scope& scope, SelectShape& shape);
  void items(std::size_t begin, std::size_t end, const Scope& scope, SelectShape& shape);
  void orderTerms(std::size_t begin, std::size_t end, const Scope& scope, SelectShape& shape, bool sorts);
  void groupInstead(std::size_t distinct, std::size_t end, const SelectShape& shape);
  void star(std::size_t only, SelectShape& shape) const;
  void noteJoin(const Operand& left, const Operand& right);

  // Statements.cpp
  void insert(Translation& result);
  void update(Translation& result);
  void erase(Translation& result);
  void values(std::size_t begin, std::size_t end, const std::vector<const ColumnInfo*>& columns,
              const Scope& scope);
  SelectShape writtenTable(std::size_t at);
  void spell(std::size_t at, TextView name);

  std::size_t closing(std::size_t open) const;  // of a parenthesis; the end where it has none
  std::size_t find(std::size_t begin, std::size_t end, std::initializer_list<TextView> words) const;
  template <class Visitor>
  void list(std::size_t begin, std::size_t end, Visitor visit) const;

  Sentence& sentence_;
  Catalog& catalog_;
  const DialectFacts& facts_;
  std::vector<std::size_t> closing_;
  std::size_t at_ = 0;
  int depth_ = 0;
  bool closed_ = true;  // every parenthesis has its partner
  bool aggregate_ = false;
  bool tooLong_ = false;
  std::vector<JoinedColumns>* joins_ = nullptr;
};

// Calls visit(begin, end) for each part between commas that stand in no parenthesis.
template <class Visitor>
void SentenceTranslator::list(std::size_t begin, std::size_t end, Visitor visit) const {
  std::size_t start = begin;
  for (std::size_t i = begin; i < end; ++i) {
    if (sentence_[i].symbol(u"(")) {
      i = closing(i);
    } else if (sentence_[i].symbol(u",")) {
      visit(start, i);
      start = i + 1;
    }
  }
  if (start < end) visit(start, end);
}

}  // namespace ovalia::engines
