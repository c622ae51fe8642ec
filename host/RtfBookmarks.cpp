#include "host/RtfBookmarks.h"

#include <algorithm>
#include <string>
#include <utility>

#include "host/CodePage.h"

namespace ovalia::host {

namespace {

using Kind = RtfToken::Kind;

// Groups that hold a text of their own.
constexpr std::string_view flows[] = {"header",  "headerl", "headerr",  "headerf",    "footer", "footerl",
                                      "footerr", "footerf", "footnote", "annotation", "shptxt", "dptxbxtext"};

// Groups that hold no text, where no "\*" says so.
constexpr std::string_view tables[] = {"fonttbl", "colortbl", "stylesheet", "info", "pict", "fldinst"};

// Groups that are one thing in the text, whatever they hold.
constexpr std::string_view objects[] = {"field",      "pict",       "object", "shp", "shpgrp", "footnote",
                                        "annotation", "nonshppict", "do",     "xe",  "tc"};

// Groups that a text stands in or behind; the instructions of a field where only a part of it is taken.
constexpr std::string_view frames[] = {"listtext",       "pntext",       "pn",
                                       "nesttableprops", "nonesttables", "fldinst"};

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

bool isBookmarkEnd(const std::vector<RtfToken>& tokens, std::size_t open) {
  const std::string_view word = purposeOf(tokens, open).word;
  return word == "bkmkstart" || word == "bkmkend";
}

// The next group that begins behind a token, before `end`; `end` where there is none.
std::size_t nextGroup(const std::vector<RtfToken>& tokens, std::size_t behind, std::size_t end) {
  std::size_t i = behind + 1;
  while (i < end && tokens[i].kind != Kind::open) ++i;
  return i;
}

// The group that holds the name of a bookmark's end: the one that begins there, or that for new readers in
// it. 0 where it is no such end.
std::size_t nameGroup(const std::vector<RtfToken>& tokens, std::size_t open) {
  if (isBookmarkEnd(tokens, open)) return open;
  if (purposeOf(tokens, open).word != "upr") return 0;
  const std::size_t end = tokens[open].partner;
  for (std::size_t i = nextGroup(tokens, open, end); i < end; i = nextGroup(tokens, tokens[i].partner, end)) {
    if (purposeOf(tokens, i).word != "ud") continue;
    const std::size_t inner = nextGroup(tokens, i, tokens[i].partner);
    return inner < tokens[i].partner && isBookmarkEnd(tokens, inner) ? inner : 0;
  }
  return 0;
}

// A struck-out text says so before anything of it.
bool isStruckOut(const std::vector<RtfToken>& tokens, std::size_t open) {
  for (std::size_t i = open + 1; tokens[i].kind == Kind::word; ++i)
    if (tokens[i].name == "deleted") return !tokens[i].numbered || tokens[i].number != 0;
  return false;
}

// The code pages that words of a document's beginning name.
constexpr struct {
  std::string_view word;
  int codePage;
} codePageWords[] = {{"ansi", 1252}, {"mac", 10000}, {"pc", 437}, {"pca", 850}};

int codePageAfter(const RtfToken& word, int before) {
  if (word.name == "ansicpg") return word.number;
  for (const auto& row : codePageWords)
    if (row.word == word.name) return row.codePage;
  return before;
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
    name += fromCodePage(codePage, std::exchange(bytes, {}));
    name += static_cast<char16_t>(token.number);
    skip = standIns;
  }
  return trimBlanks(name + fromCodePage(codePage, std::move(bytes)));
}

struct Group {
  std::size_t open = 0;
  std::size_t standIns = 1;
  int flow = 0;
  bool hidden = false;
  // The field whose instructions it stands in, 0 for none, and where that is.
  std::size_t field = 0;
  int fieldFlow = 0;
  bool fieldHidden = false;
};

Group groupIn(const Group& around, const std::vector<RtfToken>& tokens, std::size_t open, int& flowCount) {
  const Purpose purpose = purposeOf(tokens, open);
  Group group = around;
  group.open = open;
  if (isOneOf(purpose.word, flows)) {
    group.flow = ++flowCount;
    group.hidden = false;
    group.field = 0;
  } else if (purpose.starred || isOneOf(purpose.word, tables)) {
    group.flow = ++flowCount;
    group.hidden = true;
  }
  if (purpose.word == "fldinst") {
    group.field = around.open;
    group.fieldFlow = around.flow;
    group.fieldHidden = around.hidden;
  }
  return group;
}

// A form's field has the beginning of its bookmark among its instructions: the bookmark begins with the
// field.
RtfBookmarkEnd withField(RtfBookmarkEnd beginning, const Group& around) {
  if (around.field == 0) return beginning;
  beginning.close = around.field - 1;
  beginning.flow = around.fieldFlow;
  beginning.hidden = around.fieldHidden;
  return beginning;
}

}  // namespace

RtfGroup rtfGroup(const std::vector<RtfToken>& tokens, std::size_t open) {
  const Purpose purpose = purposeOf(tokens, open);
  if (isOneOf(purpose.word, frames) || nameGroup(tokens, open)) return RtfGroup::frame;
  const bool whole = purpose.starred || isOneOf(purpose.word, objects) || isStruckOut(tokens, open);
  return whole ? RtfGroup::object : RtfGroup::text;
}

std::vector<RtfBookmarkEnd> rtfBookmarkEnds(std::string_view document, const std::vector<RtfToken>& tokens) {
  std::vector<Group> groups{Group()};
  std::vector<RtfBookmarkEnd> ends;
  int codePage = 1252, flowCount = 0;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const RtfToken& token = tokens[i];
    if (token.kind == Kind::close) groups.pop_back();
    if (token.kind == Kind::word && token.name == "uc")
      groups.back().standIns = static_cast<std::size_t>(std::max(token.number, 0));
    if (token.kind == Kind::word) codePage = codePageAfter(token, codePage);
    if (token.kind != Kind::open) continue;
    const Group& around = groups.back();
    if (const std::size_t named = nameGroup(tokens, i)) {
      RtfBookmarkEnd end{.name = nameIn(document, tokens, named, around.standIns, codePage),
                         .begins = purposeOf(tokens, named).word == "bkmkstart",
                         .open = i,
                         .close = token.partner,
                         .flow = around.flow,
                         .hidden = around.hidden};
      ends.push_back(end.begins ? withField(std::move(end), around) : std::move(end));
      i = token.partner;
      continue;
    }
    groups.push_back(groupIn(around, tokens, i, flowCount));
  }
  return ends;
}

}  // namespace ovalia::host
