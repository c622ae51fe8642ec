#include "engines/Sentence.h"

#include <algorithm>

#include "engines/DateLiteral.h"
#include "engines/Failures.h"
#include "engines/Names.h"

namespace ovalia::engines {
namespace {

Text doubled(TextView text, char16_t mark) {
  Text all(1, mark);
  for (const char16_t c : text) {
    if (c == mark) all += mark;
    all += c;
  }
  all += mark;
  return all;
}

bool wordCharacter(char16_t c) {
  return (c >= u'0' && c <= u'9') || ((c | 0x20) >= u'a' && (c | 0x20) <= u'z') || c == u'_' || c > 0x7F;
}

bool sticks(char16_t before, char16_t after) {
  return (before == u'-' && after == u'-') || (before == u'/' && after == u'*') ||
         (wordCharacter(before) && wordCharacter(after));
}

bool plainName(TextView name) {
  if (name.empty() || (name.front() >= u'0' && name.front() <= u'9')) return false;
  return std::all_of(name.begin(), name.end(), wordCharacter);
}

}  // namespace

Text quotedName(TextView name) { return doubled(name, u'"'); }

Text quotedText(TextView value, const DialectFacts& facts) {
  const std::size_t nul = value.find(u'\0');
  if (nul == TextView::npos || facts.nul.empty()) return doubled(value, u'\'');
  Text all = u"(";
  for (std::size_t at = nul; at != TextView::npos; at = value.find(u'\0')) {
    all.append(doubled(value.substr(0, at), u'\'')).append(facts.join).append(facts.nul).append(facts.join);
    value.remove_prefix(at + 1);
  }
  return all.append(doubled(value, u'\'')).append(u")");
}

Text writtenName(TextView name, const DialectFacts& facts) {
  const bool reserved = std::any_of(facts.reserved.begin(), facts.reserved.end(),
                                    [&](TextView word) { return sameAscii(word, name); });
  return reserved || !plainName(name) ? quotedName(name) : Text(name);
}

Sentence::Sentence(TextView sql, const DialectFacts& facts) : Sentence(sql, tokenize(sql), facts) {}

Sentence::Sentence(TextView sql, std::vector<Token> tokens, const DialectFacts& facts)
    : sql_(sql), facts_(facts), tokens_(std::move(tokens)) {
  while (!tokens_.empty() && tokens_.back().symbol(u";")) tokens_.pop_back();
  edits_.resize(tokens_.size());
}

void Sentence::drop(std::size_t first, std::size_t end) {
  for (; first < end; ++first) drop(first);
}

Text Sentence::constant(TextView value) {
  if (!parameters_) return quotedText(value, facts_);
  texts_.emplace_back(value);
  return Text(facts_.parameter) + toText(static_cast<std::int64_t>(*parameters_ + texts_.size()));
}

Text Sentence::plain(const Token& token) {
  switch (token.kind) {
    case Token::Kind::TextLiteral:
      return constant(token.value);
    case Token::Kind::Name:
      return quotedName(token.value);
    case Token::Kind::DateLiteral:
      if (const auto date = dateFromLiteral(token.value)) return facts_.date(*date);
      throw databaseFailure(dao::failure::syntax, sql_.substr(token.begin, token.end - token.begin));
    default:
      return token.value;
  }
}

Text Sentence::text(std::size_t first, std::size_t end) {
  Text all;
  for (std::size_t at = first; at < end; ++at) {
    const Edit& edit = edits_[at];
    const Token& token = tokens_[at];
    if (edit.dropped) {
      all.append(edit.after);  // what follows an expression may have been hung on a token of it that is gone
      continue;
    }
    if (!all.empty()) all.append(sql_.substr(token.gap, token.begin - token.gap));
    all.append(edit.before);
    const Text own = edit.instead ? *edit.instead : edit.value ? constant(*edit.value) : plain(token);
    // Two words would run together where one between them is gone; two signs would begin a comment, which the
    // dialect does not know.
    if (!all.empty() && !own.empty() && sticks(all.back(), own.front())) all += u' ';
    all.append(own).append(edit.after);
  }
  return all;
}

}  // namespace ovalia::engines
