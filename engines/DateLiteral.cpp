#include "engines/DateLiteral.h"

#include <vector>

#include "engines/Names.h"
#include "platform/Platform.h"

namespace ovalia::engines {
namespace {

struct Piece {
  int number;
  std::size_t digits;
  char16_t before;  // the mark in front of it, a blank where there is none
};

struct Pieces {
  std::vector<Piece> date, time;
  bool afternoon = false, morning = false;
};

bool digit(char16_t c) { return c >= u'0' && c <= u'9'; }

std::optional<Pieces> cut(TextView text) {
  Pieces pieces;
  std::vector<Piece> numbers;
  char16_t mark = u' ';
  for (std::size_t at = 0; at < text.size();) {
    const char16_t c = text[at];
    if (digit(c)) {
      Piece piece{0, 0, mark};
      for (; at < text.size() && digit(text[at]) && piece.digits < 5; ++at, ++piece.digits)
        piece.number = piece.number * 10 + (text[at] - u'0');
      numbers.push_back(piece);
      mark = u' ';
    } else if (sameAscii(text.substr(at), u"am") || sameAscii(text.substr(at), u"pm")) {
      (c == u'a' || c == u'A' ? pieces.morning : pieces.afternoon) = true;
      at = text.size();
    } else if (c == u' ') {
      ++at;
    } else if ((c == u'/' || c == u'-' || c == u':') && mark == u' ' && !numbers.empty()) {
      mark = c;
      ++at;
    } else {
      return std::nullopt;
    }
  }
  if (mark != u' ') return std::nullopt;
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const bool clock = numbers[i].before == u':' || (i + 1 < numbers.size() && numbers[i + 1].before == u':');
    (clock ? pieces.time : pieces.date).push_back(numbers[i]);
  }
  return pieces;
}

bool setTime(const Pieces& pieces, DateParts& parts) {
  const auto& time = pieces.time;
  if (time.empty()) return !pieces.morning && !pieces.afternoon;
  if (time.size() > 3) return false;
  parts.hour = time[0].number;
  parts.minute = time[1].number;
  parts.second = time.size() == 3 ? time[2].number : 0;
  if (pieces.morning || pieces.afternoon) {
    if (parts.hour < 1 || parts.hour > 12) return false;
    parts.hour = parts.hour % 12 + (pieces.afternoon ? 12 : 0);
  }
  return true;
}

int fullYear(const Piece& year) {
  return year.digits <= 2 ? regionalNow().fullYear(year.number) : year.number;
}

}  // namespace

std::optional<Date> dateFromLiteral(TextView text) {
  const auto pieces = cut(trimBlanks(text));
  if (!pieces) return std::nullopt;
  DateParts parts;
  if (!setTime(*pieces, parts)) return std::nullopt;
  const auto& date = pieces->date;
  if (date.empty()) return pieces->time.empty() ? std::nullopt : dateFrom(parts);
  if (date.size() != 3 || date[1].before == u' ' || date[2].before == u' ') return std::nullopt;
  if (date[0].digits > 2) {
    parts.year = date[0].number;
    parts.month = date[1].number;
    parts.day = date[2].number;
    return dateFrom(parts);
  }
  parts.year = fullYear(date[2]);
  parts.month = date[0].number;
  parts.day = date[1].number;
  if (const auto found = dateFrom(parts)) return found;
  std::swap(parts.month, parts.day);
  return dateFrom(parts);
}

}  // namespace ovalia::engines
