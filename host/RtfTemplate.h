#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Text.h"

// Documents in RTF with bookmarks to fill. A document is its bytes; one that is damaged is a TemplateFailure.
namespace ovalia::host {

// The names of a document's bookmarks, each once, in the order in which they begin; those in headers, footers
// and text boxes too.
std::vector<Text> rtfBookmarks(std::string_view document);

// What a bookmark is to hold; nothing for a bookmark that stays as it is.
using BookmarkText = std::function<std::optional<Text>(TextView name)>;

// The document with those texts in place of what the bookmarks held; each takes the looks of the text that it
// replaces, and the bookmarks stay. Line ends and tabs of a text are such in the document. A name may stand
// at several places. TemplateFailure, which names the bookmark, where one that is to be filled has only a
// beginning or an end, begins in one part of the document and ends in another, or reaches into another one.
std::string filledRtf(std::string_view document, const BookmarkText& textOf);

// A text as it stands inside an RTF document.
std::string rtfText(TextView text);

}  // namespace ovalia::host
