#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace ovalia::host {

// A piece of an RTF document by its place in the document's bytes. Line ends between pieces mean nothing
// there and belong to none.
struct RtfToken {
  enum class Kind {
    open,    // of a group
    close,   // of a group
    word,    // "\par", "\fs24 ": with the blank that ends it
    symbol,  // "\~"
    hex,     // "\'f3"
    text,    // bytes as they are
    binary,  // "\bin" and its bytes
  };
  Kind kind;
  std::size_t begin, end;
  std::string_view name = {};  // of a word
  bool numbered = false;       // a word with a number
  int number = 0;              // that number; the byte of a symbol or a hex
  std::size_t partner = 0;     // index of an open or a close: that of the other end of the group
};

// The whole document in pieces. A document that is not RTF, or not whole, is a TemplateFailure. The names
// point into `document`.
std::vector<RtfToken> rtfTokens(std::string_view document);

}  // namespace ovalia::host
