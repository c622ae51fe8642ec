#include "host/RtfTemplate.h"

#include <algorithm>
#include <cstdint>

#include "host/RtfBookmarks.h"
#include "host/TemplateFailure.h"

namespace ovalia::host {

namespace {

using Kind = RtfToken::Kind;

// Words that stand for text; all others say how it looks or hold a table together.
constexpr std::string_view textWords[] = {
    "u",       "par",     "line",   "tab",    "page",   "column",    "lbr",       "softline",
    "emdash",  "endash",  "bullet", "lquote", "rquote", "ldblquote", "rdblquote", "emspace",
    "enspace", "qmspace", "zwj",    "zwnj",   "zwbo",   "zwnbo",     "ltrmark",   "rtlmark",
    "chdate",  "chdpl",   "chdpa",  "chtime", "chpgn",  "sectnum",   "chftn",     "chatn"};

// A bookmark that is to be filled, by the tokens between its two ends.
struct Range {
  const Text* name;
  std::size_t first, last;  // `last` is the one behind
  Text text;
};

struct Edit {
  std::size_t begin, end;  // of the document's bytes
  std::string with;
};

[[noreturn]] void refuse(TextView bookmark, TextView how) {
  throw TemplateFailure(u"El marcador «" + Text(bookmark) + u"» de la plantilla " + Text(how) +
                        u". Bórrelo en su procesador de textos y vuelva a ponerlo.");
}

bool isText(const RtfToken& token) {
  switch (token.kind) {
    case Kind::text:
    case Kind::hex:
      return true;
    case Kind::symbol:
      return token.number != '*';
    case Kind::word:
      return std::ranges::find(textWords, token.name) != std::end(textWords);
    default:
      return false;
  }
}

bool endsParagraph(const RtfToken& token) {
  const bool lineEnd = token.kind == Kind::symbol && (token.number == '\r' || token.number == '\n');
  return lineEnd || (token.kind == Kind::word && token.name == "par");
}

// Pairs beginnings with ends. Of several beginnings before an end the first counts: LibreOffice writes
// another one into the last paragraph of a bookmark over several.
class Pairing {
 public:
  Pairing(const std::vector<RtfBookmarkEnd>& ends, const BookmarkText& textOf) {
    for (const RtfBookmarkEnd& end : ends)
      if (auto text = textOf(end.name)) take(end, std::move(*text));
    if (!begun_.empty()) refuse(begun_.front()->name, u"no tiene final");
    checkApart();
  }

  std::vector<Range> take() { return std::move(ranges_); }

 private:
  void take(const RtfBookmarkEnd& end, Text text) {
    const auto same = [&](const RtfBookmarkEnd* begun) { return sameName(begun->name, end.name); };
    const auto begun = std::ranges::find_if(begun_, same);
    if (end.hidden) refuse(end.name, u"está dentro de un campo");
    if (end.begins) {
      if (begun == begun_.end()) begun_.push_back(&end);
      return;
    }
    if (begun == begun_.end()) refuse(end.name, u"termina sin haber empezado");
    if ((*begun)->flow != end.flow) refuse(end.name, u"empieza en una parte del documento y termina en otra");
    ranges_.push_back({&end.name, (*begun)->close + 1, end.open, std::move(text)});
    begun_.erase(begun);
  }

  void checkApart() {
    std::ranges::sort(ranges_, {}, &Range::first);
    for (std::size_t i = 1; i < ranges_.size(); ++i)
      if (ranges_[i].first <= ranges_[i - 1].last)
        refuse(*ranges_[i].name,
               u"está dentro del marcador «" + *ranges_[i - 1].name + u"» o se cruza con él");
  }

  std::vector<const RtfBookmarkEnd*> begun_;
  std::vector<Range> ranges_;
};

// Takes the text out of one range and puts the new one where the first of it was. Groups that reach over an
// end of the range, looks and cells stay; the paragraph that ends the range stays ended.
class Replacing {
 public:
  Replacing(const std::vector<RtfToken>& tokens, const Range& range, std::vector<Edit>& edits)
      : tokens_(tokens), range_(range), edits_(edits) {
    for (std::size_t i = range.first; i < range.last; ++i) i = step(i);
    keepLastParagraphEnd();
    put();
  }

 private:
  // Gives the last token that it has dealt with.
  std::size_t step(std::size_t i) {
    const RtfToken& token = tokens_[i];
    const bool wholeGroup = token.kind == Kind::open && token.partner < range_.last;
    const RtfGroup group = wholeGroup ? rtfGroup(tokens_, i) : RtfGroup::text;
    if (group == RtfGroup::object) removed_.push_back({i, token.partner});
    if (group != RtfGroup::text) return token.partner;
    if (isText(token) || token.kind == Kind::binary) removed_.push_back({i, i});
    return i;
  }

  void keepLastParagraphEnd() {
    if (removed_.empty() || !endsParagraph(tokens_[removed_.back().first])) return;
    if (removed_.size() == 1) place_ = tokens_[removed_.back().first].begin;
    removed_.pop_back();
  }

  void put() {
    const std::size_t start = tokens_[range_.first - 1].end;
    if (!removed_.empty()) place_ = tokens_[removed_.front().first].begin;
    if (place_ == 0) place_ = start;
    if (!range_.text.empty()) edits_.push_back({place_, place_, "{\\uc1 " + rtfText(range_.text) + "}"});
    for (const Piece& piece : removed_)
      edits_.push_back({tokens_[piece.first].begin, tokens_[piece.last].end, {}});
  }

  struct Piece {
    std::size_t first, last;
  };

  const std::vector<RtfToken>& tokens_;
  const Range& range_;
  std::vector<Edit>& edits_;
  std::vector<Piece> removed_;
  std::size_t place_ = 0;  // of the new text; 0 is not known yet
};

std::string edited(std::string_view document, const std::vector<Edit>& edits) {
  std::string result;
  std::size_t at = 0;
  for (const Edit& edit : edits) {
    result.append(document, at, edit.begin - at).append(edit.with);
    at = edit.end;
  }
  return result.append(document, at);
}

}  // namespace

std::vector<Text> rtfBookmarks(std::string_view document) {
  std::vector<Text> names;
  for (const RtfBookmarkEnd& end : rtfBookmarkEnds(document, rtfTokens(document))) {
    const auto same = [&](const Text& name) { return sameName(name, end.name); };
    if (end.begins && std::ranges::none_of(names, same)) names.push_back(end.name);
  }
  return names;
}

std::string filledRtf(std::string_view document, const BookmarkText& textOf) {
  const std::vector<RtfToken> tokens = rtfTokens(document);
  const std::vector<RtfBookmarkEnd> ends = rtfBookmarkEnds(document, tokens);
  std::vector<Edit> edits;
  for (const Range& range : Pairing(ends, textOf).take()) Replacing(tokens, range, edits);
  return edited(document, edits);
}

std::string rtfText(TextView text) {
  std::string written;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t c = text[i];
    const bool lineEnd = c == u'\n' || c == u'\v' || c == u'\u2028' || c == u'\u2029' ||
                         (c == u'\r' && (i + 1 == text.size() || text[i + 1] != u'\n'));
    if (c == u'\\' || c == u'{' || c == u'}')
      written.append({'\\', static_cast<char>(c)});
    else if (lineEnd)
      written += "\\line ";
    else if (c == u'\t')
      written += "\\tab ";
    else if (c >= 0x80)
      written += "\\u" + std::to_string(static_cast<std::int16_t>(c)) + "?";
    else if (c >= 0x20)
      written += static_cast<char>(c);
  }
  return written;
}

}  // namespace ovalia::host
