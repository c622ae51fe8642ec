#include "desktop/SearchCriterion.h"

#include <array>
#include <cmath>
#include <utility>

#include "platform/Regional.h"
#include "routines/SqlText.h"

namespace ovalia::desktop {

namespace {

// Letters that count as one when accents do not count.
constexpr std::array<TextView, 7> sameLetters{u"aáàâäãå", u"cç",    u"eéèêë", u"iíìîï",
                                              u"oóòôöõ",  u"uúùûü", u"yýÿ"};

// A closing bracket outside a set is an ordinary character.
constexpr TextView wildcards = u"*?#[";

constexpr double lastDay = 2'958'465;  // 31 December 9999

bool has(TextView letters, char16_t letter) { return letters.find(letter) != TextView::npos; }

Text patternOf(TextView wanted, bool anyAccents) {
  Text pattern;
  for (const char16_t c : wanted) {
    TextView set = has(wildcards, c) ? TextView(&c, 1) : TextView();
    if (anyAccents)
      for (const TextView letters : sameLetters)
        if (has(letters, lowerCase({&c, 1})[0])) set = letters;
    if (set.empty())
      pattern += c;
    else
      pattern.append(u"[").append(set).append(u"]");
  }
  return pattern;
}

// The first moment of a moment's day. Before day zero too the time of day counts forward.
double dayOf(Date moment) { return std::trunc(moment.days); }

// Four digits of the year leave no doubt about the century.
Text literal(double day) { return join(u"#", formatDate(Date{day}, u"mm/dd/yyyy", Regional()), u"#"); }

}  // namespace

Text textCriterion(TextView field, TextView wanted, bool wholeField, bool anyAccents) {
  if (wanted.empty()) return {};
  const TextView rest = wholeField ? u"" : u"*";
  const Text pattern = join(rest, patternOf(wanted, anyAccents), rest);
  return join(u"[", field, u"] Like ", ComillaSQL(pattern));
}

Text dateCriterion(TextView field, std::optional<Date> from, std::optional<Date> to) {
  if (from && to && dayOf(*from) > dayOf(*to)) std::swap(from, to);
  Text criterion;
  const auto demand = [&](const Text& condition) {
    criterion += join(criterion.empty() ? u"" : u" And ", u"[", field, u"] ", condition);
  };
  if (from) demand(u">= " + literal(dayOf(*from)));
  if (to) {
    const double end = dayOf(*to) + 1;
    demand(end <= lastDay ? u"< " + literal(end) : u"Is Not Null");
  }
  return criterion;
}

}  // namespace ovalia::desktop
