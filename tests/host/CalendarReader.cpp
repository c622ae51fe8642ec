#include "tests/host/CalendarReader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <regex>
#include <set>

namespace ovalia::host {

namespace {

// What must stand in a piece once, and what may.
struct PieceRule {
  std::set<std::string> required, allowed, several;
};
const std::map<std::string, PieceRule>& rules() {
  static const std::map<std::string, PieceRule> all = {
      {"VCALENDAR", {{"VERSION", "PRODID"}, {"CALSCALE"}, {}}},
      {"VTIMEZONE", {{"TZID"}, {}, {}}},
      {"DAYLIGHT", {{"DTSTART", "TZOFFSETFROM", "TZOFFSETTO"}, {"TZNAME", "RRULE"}, {}}},
      {"STANDARD", {{"DTSTART", "TZOFFSETFROM", "TZOFFSETTO"}, {"TZNAME", "RRULE"}, {}}},
      {"VEVENT",
       {{"UID", "DTSTAMP", "DTSTART"},
        {"DTEND", "SUMMARY", "LOCATION", "DESCRIPTION", "STATUS", "LAST-MODIFIED"},
        {"CONTACT"}}},
      {"VALARM", {{"ACTION", "TRIGGER", "DESCRIPTION"}, {}, {}}},
  };
  return all;
}

// How the value of a line must look; all others are texts.
const std::map<std::string, std::regex>& shapes() {
  static const std::map<std::string, std::regex> all = {
      {"VERSION", std::regex("2\\.0")},
      {"CALSCALE", std::regex("GREGORIAN")},
      {"DTSTAMP", std::regex("\\d{8}T\\d{6}Z")},
      {"LAST-MODIFIED", std::regex("\\d{8}T\\d{6}Z")},
      {"DTSTART", std::regex("\\d{8}T\\d{6}")},
      {"DTEND", std::regex("\\d{8}T\\d{6}")},
      {"TZOFFSETFROM", std::regex("[+-]\\d{4}")},
      {"TZOFFSETTO", std::regex("[+-]\\d{4}")},
      {"TZID", std::regex("[A-Za-z/_]+")},
      {"RRULE", std::regex("FREQ=YEARLY;BYMONTH=\\d+;BYDAY=-1SU")},
      {"STATUS", std::regex("TENTATIVE|CONFIRMED|CANCELLED")},
      {"ACTION", std::regex("DISPLAY")},
      {"TRIGGER", std::regex("-PT\\d+M")},
  };
  return all;
}
// A backslash before what it may stand before, and neither ";" nor "," without one.
const std::regex& textShape() {
  static const std::regex shape("(?:[^\\\\;,]|\\\\[\\\\;,nN])*");
  return shape;
}

bool isContinued(unsigned char octet) { return (octet & 0xC0) == 0x80; }

std::vector<std::string> physicalLines(const std::string& bytes) {
  std::vector<std::string> lines;
  std::size_t from = 0;
  for (std::size_t end; (end = bytes.find("\r\n", from)) != std::string::npos; from = end + 2)
    lines.push_back(bytes.substr(from, end - from));
  EXPECT_EQ(from, bytes.size()) << "the last line has no end";
  return lines;
}

std::vector<std::string> unfolded(const std::string& bytes) {
  std::vector<std::string> lines;
  for (const std::string& line : physicalLines(bytes)) {
    EXPECT_LE(line.size(), 75u) << line;
    for (const char c : line)
      EXPECT_TRUE(static_cast<unsigned char>(c) >= ' ' || c == '\t') << "control character in " << line;
    const bool goesOn = line.starts_with(' ') && !lines.empty();
    EXPECT_FALSE(isContinued(static_cast<unsigned char>(line[goesOn ? 1 : 0]))) << "cut within a character";
    if (goesOn)
      lines.back() += line.substr(1);
    else
      lines.push_back(line);
  }
  return lines;
}

CalendarPiece::Line parted(const std::string& line) {
  std::smatch parts;
  const std::regex shape("([A-Z-]+)((?:;[A-Z-]+=[^\";:,]+)*):([\\s\\S]*)");
  if (!std::regex_match(line, parts, shape)) {
    ADD_FAILURE() << "no line of a calendar: " << line;
    return {};
  }
  const std::string parameters = parts[2];
  return {parts[1], parameters.empty() ? "" : parameters.substr(1), parts[3]};
}

void checkValue(const CalendarPiece::Line& line) {
  const auto shape = shapes().find(line.name);
  // The library's own expressions are recursive: long texts are looked at piece by piece.
  if (shape != shapes().end()) {
    EXPECT_TRUE(std::regex_match(line.value, shape->second)) << line.name << ": " << line.value;
    return;
  }
  for (std::size_t from = 0; from < line.value.size();) {
    std::size_t size = std::min<std::size_t>(500, line.value.size() - from);
    while (size > 1 && from + size < line.value.size() && line.value[from + size - 1] == '\\') --size;
    EXPECT_TRUE(std::regex_match(line.value.substr(from, size), textShape())) << line.value;
    from += size;
  }
}

void checkPiece(const CalendarPiece& piece) {
  const auto rule = rules().find(piece.name);
  ASSERT_NE(rule, rules().end()) << piece.name;
  for (const std::string& name : rule->second.required) EXPECT_EQ(piece.count(name), 1u) << name;
  for (const CalendarPiece::Line& line : piece.lines) {
    const auto& [required, allowed, several] = rule->second;
    EXPECT_TRUE(required.contains(line.name) || allowed.contains(line.name) || several.contains(line.name))
        << line.name << " in " << piece.name;
    if (!several.contains(line.name)) {
      EXPECT_EQ(piece.count(line.name), 1u) << line.name;
    }
    checkValue(line);
  }
}

CalendarPiece readPiece(const std::vector<std::string>& lines, std::size_t& at) {
  CalendarPiece piece;
  piece.name = parted(lines[at++]).value;
  for (; at < lines.size(); ++at) {
    const auto line = parted(lines[at]);
    if (line.name == "END") {
      EXPECT_EQ(line.value, piece.name);
      ++at;
      checkPiece(piece);
      return piece;
    }
    if (line.name != "BEGIN") {
      EXPECT_TRUE(piece.pieces.empty() || piece.name == "VEVENT") << "lines stand before pieces";
      piece.lines.push_back(line);
      continue;
    }
    piece.pieces.push_back(readPiece(lines, at));
    --at;
  }
  ADD_FAILURE() << piece.name << " has no end";
  return piece;
}

const CalendarPiece::Line& onlyLine(const CalendarPiece& piece, const std::string& name) {
  static const CalendarPiece::Line none;
  EXPECT_EQ(piece.count(name), 1u) << name << " in " << piece.name;
  for (const auto& line : piece.lines)
    if (line.name == name) return line;
  return none;
}

std::string plain(const std::string& value) {
  std::string made;
  for (std::size_t i = 0; i < value.size(); ++i) {
    const bool set = value[i] == '\\' && i + 1 < value.size();
    if (set) ++i;
    made += set && (value[i] == 'n' || value[i] == 'N') ? '\n' : value[i];
  }
  return made;
}

}  // namespace

std::size_t CalendarPiece::count(const std::string& line) const {
  return static_cast<std::size_t>(std::ranges::count(lines, line, &Line::name));
}
std::string CalendarPiece::value(const std::string& line) const { return onlyLine(*this, line).value; }
std::string CalendarPiece::parameters(const std::string& line) const {
  return onlyLine(*this, line).parameters;
}
std::string CalendarPiece::text(const std::string& line) const { return plain(value(line)); }

std::vector<std::string> CalendarPiece::texts(const std::string& line) const {
  std::vector<std::string> all;
  for (const Line& each : lines)
    if (each.name == line) all.push_back(plain(each.value));
  return all;
}

const CalendarPiece& CalendarPiece::only(const std::string& piece) const {
  static const CalendarPiece none;
  EXPECT_EQ(std::ranges::count(pieces, piece, &CalendarPiece::name), 1) << piece << " in " << name;
  const auto found = std::ranges::find(pieces, piece, &CalendarPiece::name);
  return found == pieces.end() ? none : *found;
}

CalendarPiece readCalendar(const std::string& bytes) {
  const auto lines = unfolded(bytes);
  std::size_t at = 0;
  if (lines.empty() || lines[0] != "BEGIN:VCALENDAR") {
    ADD_FAILURE() << "no calendar";
    return {};
  }
  CalendarPiece calendar = readPiece(lines, at);
  EXPECT_EQ(at, lines.size()) << "something stands behind the calendar";
  return calendar;
}

}  // namespace ovalia::host
