#pragma once

#include <cstddef>
#include <vector>

#include "platform/Text.h"

namespace ovalia::engines {

// A token of a statement in the Jet dialect.
struct Token {
  enum class Kind {
    Word,         // a keyword or a plain name
    Name,         // [a name in brackets] or `in backquotes`
    TextLiteral,  // 'text' or "text", quotes inside doubled
    DateLiteral,  // #3/7/2005 9:05:00#
    Number,
    Symbol,  // an operator or a mark
  };

  Kind kind;
  std::size_t gap;    // where the blanks in front of it begin
  std::size_t begin;  // of the token itself, in the source
  std::size_t end;
  Text value;  // a literal or a bracketed name without its marks; else the source's text

  bool is(TextView word) const;  // a word, without regard to case
  bool symbol(TextView mark) const { return kind == Kind::Symbol && value == mark; }
  bool name() const { return kind == Kind::Word || kind == Kind::Name; }
};

// The tokens of a statement. A literal that does not end is failure 3075.
std::vector<Token> tokenize(TextView sql);

}  // namespace ovalia::engines
