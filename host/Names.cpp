#include "host/Names.h"

#include <algorithm>
#include <numeric>

#include "host/Queries.h"

namespace ovalia::host {

namespace {

char16_t withoutAccent(char16_t letter) {
  constexpr TextView accented = u"áàâäéèêëíìîïóòôöúùûüñç";
  constexpr TextView plain = u"aaaaeeeeiiiioooouuuunc";
  static_assert(accented.size() == plain.size());
  const auto found = accented.find(letter);
  return found == TextView::npos ? letter : plain[found];
}

Text folded(TextView text) {
  Text plain = lowerCase(trimBlanks(text));
  std::ranges::transform(plain, plain.begin(), withoutAccent);
  return plain;
}

// How many letters must be put in, taken out or changed.
std::size_t distance(TextView a, TextView b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t above = row[j];
      row[j] = std::min({above + 1, row[j - 1] + 1, diagonal + (a[i - 1] == b[j - 1] ? 0 : 1)});
      diagonal = above;
    }
  }
  return row.back();
}

}  // namespace

std::vector<Text> namesOf(dao::Database& database, TextView from, TextView column) {
  const Text name(column);
  const auto rows = database.OpenRecordset(u"SELECT " + name + u" FROM " + Text(from) + u" ORDER BY " + name,
                                           dao::dbOpenSnapshot);
  std::vector<Text> names;
  for (; !rows->isEOF(); rows->MoveNext())
    if (Text value = rows->value(column).text(); !value.empty()) names.push_back(std::move(value));
  rows->Close();
  return names;
}

std::optional<Text> spelling(dao::Database& database, TextView table, TextView column, TextView name) {
  const Text field(column);
  const auto rows = database.OpenRecordset(
      u"SELECT " + field + u" FROM " + Text(table) + u" WHERE " + field + u" = " + literal(name),
      dao::dbOpenSnapshot);
  std::optional<Text> found;
  if (!rows->isEOF()) found = rows->value(column).text();
  rows->Close();
  return found;
}

std::optional<Text> nearest(std::span<const Text> names, TextView typed) {
  const Text wanted = folded(typed);
  if (wanted.empty()) return {};
  const Text* best = nullptr;
  std::size_t least = std::max<std::size_t>(wanted.size() / 3 + 1, 2);
  for (const Text& name : names) {
    const Text candidate = folded(name);
    // A text pasted into a box of names may be as long as it likes.
    if (wanted.size() >= candidate.size() + least) continue;
    const std::size_t apart =
        candidate != wanted && candidate.starts_with(wanted) ? 1 : distance(wanted, candidate);
    if (apart < least) best = &name, least = apart;
  }
  if (!best) return {};
  return *best;
}

std::vector<Text> splitValues(TextView text) {
  std::vector<Text> values;
  while (true) {
    const auto comma = text.find(u',');
    if (Text value = trimBlanks(text.substr(0, comma)); !value.empty()) values.push_back(std::move(value));
    if (comma == TextView::npos) return values;
    text.remove_prefix(comma + 1);
  }
}

Text joinValues(std::span<const Text> values) {
  Text all;
  for (const Text& value : values) {
    if (!all.empty()) all += u", ";
    all += value;
  }
  return all;
}

}  // namespace ovalia::host
