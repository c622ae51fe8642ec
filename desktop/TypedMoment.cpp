#include "desktop/TypedMoment.h"

#include <algorithm>
#include <vector>

namespace ovalia::desktop {

namespace {

using Groups = std::vector<Text>;

// The runs of digits, or nothing when there is anything but digits, blanks and the separators between them.
std::optional<Groups> digitGroups(TextView text, TextView separators) {
  Groups groups;
  bool open = false;
  for (const char16_t c : trimBlanks(text)) {
    const bool digit = c >= u'0' && c <= u'9';
    if (!digit && separators.find(c) == TextView::npos) return {};
    if (digit && !open) groups.emplace_back();
    if (digit) groups.back() += c;
    open = digit;
  }
  if (groups.empty()) return {};
  return groups;
}

// Digits typed without separators, cut in twos; what is longer goes to the last.
void split(Groups& groups, std::size_t last) {
  if (groups.size() != 1 || groups[0].size() <= 2) return;
  Text digits = groups[0];
  if (digits.size() % 2) digits.insert(digits.begin(), u'0');
  groups.clear();
  for (std::size_t at = 0; at < digits.size(); at += 2) {
    const bool rest = groups.size() + 1 == last;
    groups.push_back(digits.substr(at, rest ? Text::npos : 2));
    if (rest) return;
  }
}

int number(const Text& digits) {
  int value = 0;
  for (const char16_t c : digits) value = value * 10 + (c - u'0');
  return value;
}

constexpr std::size_t longest = 4;
constexpr TextView daySeparators = u"/-. ";
constexpr TextView timeSeparators = u":. ";

std::optional<Groups> parts(TextView text, TextView separators) {
  auto groups = digitGroups(text, separators);
  if (!groups) return {};
  split(*groups, 3);
  if (groups->size() > 3) return {};
  if (std::any_of(groups->begin(), groups->end(), [](const Text& g) { return g.size() > longest; }))
    return {};
  return groups;
}

}  // namespace

std::optional<Date> typedDay(TextView text, Date today, const Regional& regional) {
  const auto groups = parts(text, daySeparators);
  if (!groups) return {};
  DateParts day = partsOf(today);
  day.hour = day.minute = day.second = 0;
  day.day = number((*groups)[0]);
  if (groups->size() > 1) day.month = number((*groups)[1]);
  if (groups->size() > 2) {
    const Text& year = (*groups)[2];
    if (year.size() == 3) return {};
    day.year = year.size() <= 2 ? regional.fullYear(number(year)) : number(year);
  }
  return dateFrom(day);
}

std::optional<Date> typedTime(TextView text) {
  const auto groups = parts(text, timeSeparators);
  if (!groups) return {};
  DateParts time;
  time.hour = number((*groups)[0]);
  if (groups->size() > 1) time.minute = number((*groups)[1]);
  if (groups->size() > 2) time.second = number((*groups)[2]);
  return dateFrom(time);
}

bool wholeDay(TextView text) {
  const auto groups = digitGroups(text, daySeparators);
  if (!groups || groups->size() != 3) return false;
  const Text& year = groups->back();
  if (year.size() == 2) return year != u"19" && year != u"20";
  return year.size() == 4;
}

bool wholeTime(TextView text) {
  const auto groups = digitGroups(text, timeSeparators);
  return groups && groups->size() >= 2 && groups->size() <= 3 && groups->back().size() == 2 &&
         text.back() != u':';
}

}  // namespace ovalia::desktop
