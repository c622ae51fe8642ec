#include "engines/Tokenizer.h"

#include <array>

#include "engines/Failures.h"
#include "engines/Names.h"

namespace ovalia::engines {
namespace {

constexpr std::array<TextView, 7> longSymbols{u"<>", u"<=", u">=", u"!=", u"||", u"==", u"><"};

bool blank(char16_t c) {
  return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n' || c == u'\f' || c == 0xA0;
}
bool digit(char16_t c) { return c >= u'0' && c <= u'9'; }
bool startsWord(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'_' || c == u'@' ||
         (c > 0x7F && c != 0xA0);
}
bool continuesWord(char16_t c) { return startsWord(c) || digit(c) || c == u'$'; }

class Reader {
 public:
  explicit Reader(TextView sql) : sql_(sql) { tokens_.reserve(sql.size() / 4 + 2); }

  std::vector<Token> all() {
    for (;;) {
      const std::size_t gap = at_;
      while (at_ < sql_.size() && blank(sql_[at_])) ++at_;
      if (at_ == sql_.size()) return std::move(tokens_);
      begin_ = at_;
      Token token = next();
      token.gap = gap;
      token.begin = begin_;
      token.end = at_;
      tokens_.push_back(std::move(token));
    }
  }

 private:
  char16_t peek(std::size_t ahead = 0) const { return at_ + ahead < sql_.size() ? sql_[at_ + ahead] : u'\0'; }

  Token next() {
    const char16_t c = peek();
    if (c == u'\'' || c == u'"') return make(Token::Kind::TextLiteral, quoted(c, true));
    if (c == u'[') return make(Token::Kind::Name, quoted(u']', false));
    if (c == u'`') return make(Token::Kind::Name, quoted(u'`', false));
    if (c == u'#') return make(Token::Kind::DateLiteral, quoted(u'#', false));
    if (digit(c) || (c == u'.' && digit(peek(1)) && !afterName())) return number();
    if (startsWord(c)) {
      while (at_ < sql_.size() && continuesWord(peek())) ++at_;
      return make(Token::Kind::Word, source());
    }
    at_ += 1;
    for (const TextView mark : longSymbols)
      if (sql_.substr(begin_, 2) == mark) at_ = begin_ + 2;
    return make(Token::Kind::Symbol, source());
  }

  Token number() {
    while (digit(peek())) ++at_;
    if (peek() == u'.') {
      ++at_;
      while (digit(peek())) ++at_;
    }
    if (peek() == u'e' || peek() == u'E') {
      const std::size_t sign = peek(1) == u'+' || peek(1) == u'-' ? 1 : 0;
      if (digit(peek(1 + sign))) {
        at_ += 1 + sign;
        while (digit(peek())) ++at_;
      }
    }
    return make(Token::Kind::Number, source());
  }

  Text quoted(char16_t end, bool doubles) {
    Text value;
    for (++at_; at_ < sql_.size(); ++at_) {
      if (peek() != end) {
        value += peek();
      } else if (doubles && peek(1) == end) {
        value += end;
        ++at_;
      } else {
        ++at_;
        return value;
      }
    }
    throw databaseFailure(dao::failure::syntax, sql_.substr(begin_));
  }

  bool afterName() const { return !tokens_.empty() && tokens_.back().name() && tokens_.back().end == begin_; }
  Text source() const { return Text(sql_.substr(begin_, at_ - begin_)); }
  static Token make(Token::Kind kind, Text value) { return {kind, 0, 0, 0, std::move(value)}; }

  TextView sql_;
  std::size_t at_ = 0;
  std::size_t begin_ = 0;
  std::vector<Token> tokens_;
};

}  // namespace

bool Token::is(TextView word) const { return kind == Kind::Word && sameAscii(value, word); }

std::vector<Token> tokenize(TextView sql) { return Reader(sql).all(); }

}  // namespace ovalia::engines
