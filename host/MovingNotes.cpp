#include "host/MovingNotes.h"

#include <algorithm>
#include <set>

#include "desktop/Progress.h"

namespace ovalia::host {

namespace {

constexpr TextView notesGrid = u"grdNota";
constexpr std::int32_t noClient = 0;

struct Choice {
  Text name;
  std::int32_t record, client;
};

// All records but the card's own, each under a name of its own.
std::vector<Choice> choicesFor(const HostCard& card, dao::Database& database) {
  const HostForm& form = card.form();
  std::vector<Choice> choices;
  std::set<Text> taken;
  const auto rows = database.OpenRecordset(searchQuery(form, u""), dao::dbOpenSnapshot);
  for (; !rows->isEOF(); rows->MoveNext()) {
    const std::int32_t record = rows->value(u"Id").toLong();
    if (record == card.record()) continue;
    Text name = rows->value(form.titleField).text();
    if (const Text more = rows->value(form.subtitleField).text(); !more.empty()) name += u" · " + more;
    if (!taken.insert(name).second) name += u" (" + toText(record) + u")";
    const Variant client = form.client.empty() ? Null : rows->value(form.client);
    choices.push_back({name, record, client.isNull() ? noClient : client.toLong()});
  }
  return choices;
}

std::optional<Choice> chosen(const HostCard& card, Workplace& workplace, std::size_t notes) {
  const auto choices = choicesFor(card, *workplace.agency.database);
  std::vector<Text> names;
  for (const Choice& choice : choices) names.push_back(choice.name);
  const Text title = notes == 1 ? Text(u"Mover la nota marcada a")
                                : u"Mover las " + toText(std::int32_t(notes)) + u" notas marcadas a";
  const auto name = workplace.dialogs.pickOne(title, names, u"");
  const auto found = name ? std::ranges::find(choices, *name, &Choice::name) : choices.end();
  if (found == choices.end()) return {};
  return *found;
}

// "12,15,16"
Text listed(std::span<const std::int32_t> keys) {
  Text all;
  for (const std::int32_t key : keys) all += (all.empty() ? u"" : u",") + toText(key);
  return all;
}

std::int32_t countWhere(dao::Database& database, TextView table, const Text& condition) {
  const auto rows = database.OpenRecordset(
      u"SELECT Count(*) AS N FROM " + Text(table) + u" WHERE " + condition, dao::dbOpenSnapshot);
  return rows->value(u"N").toLong();
}

}  // namespace

AnnotationList* movableNotes(HostCard& card) {
  AnnotationList* notes = card.list(notesGrid);
  return notes && notes->annotations().parentTable == card.form().table ? notes : nullptr;
}

MovedNotes moveMarkedNotes(HostCard& card, Workplace& workplace) {
  AnnotationList& notes = *movableNotes(card);
  dao::Database& database = *workplace.agency.database;
  const std::vector<std::int32_t> keys = card.marked(notesGrid);
  std::int32_t record = card.record(), client = noClient;
  if (keys.empty()) {
    notes.nota().TrasladaNotas(record, client);
    return {};
  }
  const auto target = chosen(card, workplace, keys.size());
  if (!target) return {};
  const AnnotationTable& table = notes.annotations();
  const Text marked = listed(keys);
  desktop::Progress::current().expect(
      std::size_t(countWhere(database, table.attachments, u"IdNota IN (" + marked + u")")));
  record = target->record;
  client = target->client;
  notes.nota().TrasladaNotas(record, client);
  return {target->record, target->name,
          countWhere(database, table.name,
                     Text(kindKey(table.kind)) + u" IN (" + marked + u") AND " + Text(table.parentColumn) +
                         u" = " + toText(target->record))};
}

}  // namespace ovalia::host
