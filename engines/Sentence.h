#pragma once

#include <optional>
#include <vector>

#include "engines/DialectFacts.h"
#include "engines/Tokenizer.h"

namespace ovalia::engines {

// A statement's tokens with what the translation puts in their place, before them and behind them. What is
// not touched is written as it came, its blanks too; literals and bracketed names in the engine's form.
class Sentence {
 public:
  Sentence(TextView sql, const DialectFacts& facts);
  Sentence(TextView sql, std::vector<Token> tokens, const DialectFacts& facts);  // of that very text

  std::size_t size() const { return tokens_.size(); }
  const Token& operator[](std::size_t at) const { return tokens_[at]; }

  void replace(std::size_t at, Text with) { edits_[at].instead = std::move(with); }
  void putText(std::size_t at, Text value) { edits_[at].value = std::move(value); }  // a text constant
  void drop(std::size_t at) { edits_[at].dropped = true; }
  void drop(std::size_t first, std::size_t end);
  void before(std::size_t at, TextView text) { edits_[at].before.insert(0, text); }
  void after(std::size_t at, TextView text) { edits_[at].after.append(text); }

  // From now on text constants are written as parameters, numbered from the one behind `used` on: each
  // writing of a constant adds its value to `texts`.
  void textsAsParameters(std::size_t used) { parameters_ = used; }
  const std::vector<Text>& texts() const { return texts_; }

  // The translation of the tokens from first up to end.
  Text text(std::size_t first, std::size_t end);

  const DialectFacts& facts() const { return facts_; }

 private:
  struct Edit {
    std::optional<Text> instead, value;
    Text before, after;
    bool dropped = false;
  };
  Text plain(const Token& token);
  Text constant(TextView value);

  TextView sql_;
  const DialectFacts& facts_;
  std::vector<Token> tokens_;
  std::vector<Edit> edits_;
  std::optional<std::size_t> parameters_;
  std::vector<Text> texts_;
};

Text quotedName(TextView name);
Text quotedText(TextView value, const DialectFacts& facts);

// A name as it must be written to be understood as this very name: quoted where it is reserved or not plain.
Text writtenName(TextView name, const DialectFacts& facts);

}  // namespace ovalia::engines
