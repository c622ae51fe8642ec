#include "host/RtfTokens.h"

#include <algorithm>
#include <charconv>

#include "host/TemplateFailure.h"

namespace ovalia::host {

namespace {

using Kind = RtfToken::Kind;

constexpr std::string_view start = "{\\rtf";

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isLineEnd(char c) { return c == '\r' || c == '\n'; }

[[noreturn]] void damaged(TextView how) {
  throw TemplateFailure(u"La plantilla está dañada: " + Text(how) +
                        u". Ábrala en su procesador de textos y vuelva a guardarla como RTF.");
}

class Reader {
 public:
  explicit Reader(std::string_view document) : all_(document) {}

  std::vector<RtfToken> read() {
    if (!all_.starts_with(start))
      throw TemplateFailure(
          u"La plantilla no es un documento RTF. Ábrala en su procesador de textos y guárdela como RTF.");
    do readPiece();
    while (!open_.empty());
    if (all_.find_first_not_of(std::string_view("\r\n\t \0\x1a", 6), at_) != std::string_view::npos)
      damaged(u"hay texto detrás de su final");
    return std::move(tokens_);
  }

 private:
  void readPiece() {
    while (at_ < all_.size() && isLineEnd(all_[at_])) ++at_;
    if (at_ == all_.size()) damaged(u"le falta el final");
    switch (all_[at_]) {
      case '{':
        open_.push_back(tokens_.size());
        return add(Kind::open, 1);
      case '}':
        return close();
      case '\\':
        return control();
      default:
        add(Kind::text, std::min(all_.find_first_of("{}\\\r\n", at_), all_.size()) - at_);
    }
  }

  RtfToken& added(Kind kind, std::size_t length) {
    tokens_.push_back({.kind = kind, .begin = at_, .end = at_ + length});
    at_ += length;
    return tokens_.back();
  }
  void add(Kind kind, std::size_t length) { added(kind, length); }

  void close() {
    const std::size_t partner = open_.back(), here = tokens_.size();
    open_.pop_back();
    added(Kind::close, 1).partner = partner;
    tokens_[partner].partner = here;
  }

  void control() {
    if (at_ + 1 == all_.size()) damaged(u"le falta el final");
    const char next = all_[at_ + 1];
    if (isLetter(next)) return word();
    if (next == '\'') return hex();
    added(Kind::symbol, 2).number = static_cast<unsigned char>(next);
  }

  void hex() {
    const std::string_view digits = all_.substr(at_ + 2, 2);
    unsigned byte = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), byte, 16);
    if (error != std::errc() || end != digits.data() + 2) damaged(u"tiene un carácter mal escrito");
    added(Kind::hex, 4).number = static_cast<int>(byte);
  }

  void word() {
    std::size_t end = at_ + 1;
    while (end < all_.size() && isLetter(all_[end])) ++end;
    const std::string_view name = all_.substr(at_ + 1, end - at_ - 1);
    const std::size_t digits = end < all_.size() && all_[end] == '-' ? end + 1 : end;
    int number = 0;
    const bool numbered = digits < all_.size() && isDigit(all_[digits]);
    if (numbered) {
      const auto [after, error] = std::from_chars(all_.data() + end, all_.data() + all_.size(), number);
      if (error != std::errc()) damaged(u"tiene un número imposible");
      end = static_cast<std::size_t>(after - all_.data());
    }
    if (end < all_.size() && all_[end] == ' ') ++end;
    const bool bytes = name == "bin" && numbered;
    if (bytes) {
      if (number < 0 || static_cast<std::size_t>(number) > all_.size() - end) damaged(u"le falta el final");
      end += static_cast<std::size_t>(number);
    }
    RtfToken& token = added(bytes ? Kind::binary : Kind::word, end - at_);
    token.name = name;
    token.numbered = numbered;
    token.number = number;
  }

  std::string_view all_;
  std::size_t at_ = 0;
  std::vector<std::size_t> open_;
  std::vector<RtfToken> tokens_;
};

}  // namespace

std::vector<RtfToken> rtfTokens(std::string_view document) { return Reader(document).read(); }

}  // namespace ovalia::host
