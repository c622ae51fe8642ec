#include "host/RtfBookmarks.h"

#include <algorithm>
#include <array>

namespace ovalia::host {

namespace {

using Kind = RtfToken::Kind;

// Groups that hold a text of their own.
constexpr std::string_view flows[] = {"header",  "headerl", "headerr",  "headerf",    "footer", "footerl",
                                      "footerr", "footerf", "footnote", "annotation", "shptxt", "fldrslt"};

// Groups that hold no text, where no "\*" says so.
constexpr std::string_view tables[] = {"fonttbl", "colortbl", "stylesheet", "info", "pict", "fldinst"};

// Groups that are one thing in the text, whatever they hold.
constexpr std::string_view objects[] = {"field",      "pict",       "object", "shp", "shpgrp", "footnote",
                                        "annotation", "nonshppict", "do",     "xe",  "tc"};

bool isOneOf(std::string_view name, const auto& names) {
  return std::ranges::find(names, name) != std::end(names);
}

// The word that says what a group is, and whether "\*" stands before it.
struct Purpose {
  std::string_view word;
  bool starred = false;
};

Purpose purposeOf(const std::vector<RtfToken>& tokens, std::size_t open) {
  Purpose purpose;
  std::size_t at = open + 1;
  if (tokens[at].kind == Kind::symbol && tokens[at].number == '*') {
    purpose.starred = true;
    ++at;
  }
  if (tokens[at].kind == Kind::word) purpose.word = tokens[at].name;
  return purpose;
}

// Code page 1252, 0x80 to 0x9F; the bytes from 0xA0 on are their own code.
constexpr std::array<char16_t, 32> upperHalf = {
    u'\u20AC', u'\uFFFD', u'\u201A', u'\u0192', u'\u201E', u'\u2026', u'\u2020', u'\u2021',
    u'\u02C6', u'\u2030', u'\u0160', u'\u2039', u'\u0152', u'\uFFFD', u'\u017D', u'\uFFFD',
    u'\uFFFD', u'\u2018', u'\u2019', u'\u201C', u'\u201D', u'\u2022', u'\u2013', u'\u2014',
    u'\u02DC', u'\u2122', u'\u0161', u'\u203A', u'\u0153', u'\uFFFD', u'\u017E', u'\u0178'};

Text decoded(std::string_view bytes, int codePage) {
  constexpr int utf8 = 65001;
  if (codePage == utf8) return fromUtf8(bytes);
  Text text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    text += byte >= 0x80 && byte < 0xA0 ? upperHalf[byte - 0x80u] : char16_t(byte);
  }
  return text;
}

// A name in its group: plain bytes, bytes in hexadecimal, units with stand-ins behind them for old readers.
Text nameIn(std::string_view document, const std::vector<RtfToken>& tokens, std::size_t open,
            std::size_t standIns, int codePage) {
  Text name;
  std::string bytes;
  std::size_t skip = 0;
  const auto take = [&](std::string_view more) {
    const std::size_t left = std::min(skip, more.size());
    skip -= left;
    bytes += more.substr(left);
  };
  for (std::size_t i = open + 1; i < tokens[open].partner; ++i) {
    const RtfToken& token = tokens[i];
    if (token.kind == Kind::text) take(document.substr(token.begin, token.end - token.begin));
    if (token.kind == Kind::hex) take(std::string(1, static_cast<char>(token.number)));
    if (token.kind != Kind::word) continue;
    if (token.name == "uc") standIns = static_cast<std::size_t>(std::max(token.number, 0));
    if (token.name != "u") continue;
    name += decoded(bytes, codePage);
    bytes.clear();
    name += static_cast<char16_t>(token.number);
    skip = standIns;
  }
  return trimBlanks(name + decoded(bytes, codePage));
}

}  // namespace

bool isRtfObject(const std::vector<RtfToken>& tokens, std::size_t open) {
  const Purpose purpose = purposeOf(tokens, open);
  return purpose.starred || isOneOf(purpose.word, objects);
}

std::vector<RtfBookmarkEnd> rtfBookmarkEnds(std::string_view document, const std::vector<RtfToken>& tokens) {
  struct Group {
    std::size_t standIns = 1;
    int flow = 0;
    bool hidden = false;
  };
  std::vector<Group> groups{Group()};
  std::vector<RtfBookmarkEnd> ends;
  int codePage = 1252, flowCount = 0;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const RtfToken& token = tokens[i];
    if (token.kind == Kind::close) groups.pop_back();
    if (token.kind == Kind::word && token.name == "uc")
      groups.back().standIns = static_cast<std::size_t>(std::max(token.number, 0));
    if (token.kind == Kind::word && token.name == "ansicpg") codePage = token.number;
    if (token.kind != Kind::open) continue;
    const Purpose purpose = purposeOf(tokens, i);
    Group group = groups.back();
    if (purpose.word == "bkmkstart" || purpose.word == "bkmkend") {
      ends.push_back({.name = nameIn(document, tokens, i, group.standIns, codePage),
                      .begins = purpose.word == "bkmkstart",
                      .open = i,
                      .close = token.partner,
                      .flow = group.flow,
                      .hidden = group.hidden});
      i = token.partner;
      continue;
    }
    if (isOneOf(purpose.word, flows)) {
      group.flow = ++flowCount;
      group.hidden = false;
    } else if (purpose.starred || isOneOf(purpose.word, tables)) {
      group.flow = ++flowCount;
      group.hidden = true;
    }
    groups.push_back(group);
  }
  return ends;
}

}  // namespace ovalia::host
