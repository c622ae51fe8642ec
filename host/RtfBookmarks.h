#pragma once

#include <cstddef>
#include <vector>

#include "host/RtfTokens.h"
#include "platform/Text.h"

namespace ovalia::host {

// One end of a bookmark: a group of its own in the document.
struct RtfBookmarkEnd {
  Text name;
  bool begins = false;  // else it ends
  // The group's tokens; one that begins among the instructions of a field closes before the field.
  std::size_t open = 0, close = 0;
  int flow = 0;  // the run of text it stands in: body, a header, a text box; no two have the same number
  bool hidden = false;  // stands in what is no text at all, or ends in the instructions of a field
};

// All ends, in the order of the document. Names are read in the document's code page; one that cannot be
// written in it stands twice in its group, and the one for new readers counts.
std::vector<RtfBookmarkEnd> rtfBookmarkEnds(std::string_view document, const std::vector<RtfToken>& tokens);

// What a group within a text is. `open` is its first token.
enum class RtfGroup {
  text,    // a run of text with its looks
  object,  // something of its own - a field, a picture, a note, a text that was struck out - to be taken
           // whole
  frame,   // holds the text together: the end of a bookmark, the sign of a list, the row of a table
};
RtfGroup rtfGroup(const std::vector<RtfToken>& tokens, std::size_t open);

}  // namespace ovalia::host
