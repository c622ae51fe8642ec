#pragma once

#include <string>
#include <vector>

// A strict reader of iCalendar, as other programs have one: what breaks the rules of the format fails the
// test.
namespace ovalia::host {

struct CalendarPiece {
  struct Line {
    std::string name, parameters, value;
  };

  std::string name;
  std::vector<Line> lines;
  std::vector<CalendarPiece> pieces;

  std::size_t count(const std::string& line) const;

  // Of the one line of that name; fails the test where there are none or several.
  std::string value(const std::string& line) const;
  std::string parameters(const std::string& line) const;
  std::string text(const std::string& line) const;  // without the format's signs; "\n" between lines

  std::vector<std::string> texts(const std::string& line) const;

  // The one piece of that name within it.
  const CalendarPiece& only(const std::string& piece) const;
};

// The calendar that the bytes are. Lines end in CRLF, none is longer than 75 octets or cut within a
// character, every piece ends and has what the format requires of its kind and nothing twice that may stand
// once.
CalendarPiece readCalendar(const std::string& bytes);

}  // namespace ovalia::host
