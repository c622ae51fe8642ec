#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ovalia {

// All text of the logic is UTF-16; positions, lengths and cuts count UTF-16 units. UTF-8 stands only at the
// edges: file names, the log, the engines' client libraries.
using Text = std::u16string;
using TextView = std::u16string_view;

// The line end of every message, log line and stored text.
inline constexpr TextView CRLF = u"\r\n";

// A lone surrogate becomes U+FFFD.
std::string toUtf8(TextView text);

// A byte sequence that is not UTF-8 becomes U+FFFD, one for each offending byte; never fails.
Text fromUtf8(std::string_view bytes);

// Simple lower case of the whole of Unicode, one code point to one; no locale takes part.
Text lowerCase(TextView text);

// Whether two names (members, controls, columns) are the same without regard to case.
bool sameName(TextView a, TextView b);

// Order of names without regard to case, for maps keyed by name.
struct NameLess {
  using is_transparent = void;
  bool operator()(TextView a, TextView b) const;
};

// Blanks (U+0020) only, both ends; tabs and line ends stay.
Text trimBlanks(TextView text);

// Every occurrence, from the left, by code unit; an empty `what` changes nothing.
Text replaceAll(TextView text, TextView what, TextView with);

// Decimal digits with a leading minus where negative, no grouping, no blank in front.
Text toText(std::int64_t number);

}  // namespace ovalia
