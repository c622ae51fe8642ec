// The engine against the bare SQLite interface doing the same on the same file. Both sides of a pair are
// named alike; what counts is their proportion.

#include <benchmark/benchmark.h>

#include <memory>

#include "bench/BenchAgency.h"
#include "engines/Dynaset.h"
#include "engines/Open.h"

namespace ovalia::bench {
namespace {

constexpr int stride = 7919;  // prime, so that a walk by it meets every row

struct Bare {
  explicit Bare(benchmark::State& state)
      : connection(agencyFile(static_cast<int>(state.range(0)))),
        row(connection.prepare(bareRow)),
        keys(connection.prepare(bareKeys)) {}

  std::vector<std::int32_t> readKeys() { return bench::readKeys(keys.get()); }

  std::int64_t show(std::int32_t key) { return readRow(row.get(), key); }

  BareConnection connection;
  BareStatement row, keys;
};

dao::DatabaseRef openEngine(benchmark::State& state) {
  return engines::open(fromUtf8(agencyFile(static_cast<int>(state.range(0)))));
}

void OpenList_Bare(benchmark::State& state) {
  Bare bare(state);
  for (auto _ : state) benchmark::DoNotOptimize(bare.readKeys());
}

void OpenList_Engine(benchmark::State& state) {
  const auto database = openEngine(state);
  for (auto _ : state) {
    const auto set = database->OpenRecordset(listOfNotes);
    benchmark::DoNotOptimize(set->RecordCount());
    state.PauseTiming();
    state.counters["bytes/row"] =
        static_cast<double>(static_cast<engines::Dynaset&>(*set).keyBytes()) / set->RecordCount();
    state.ResumeTiming();
  }
}

void MoveAndRead_Bare(benchmark::State& state) {
  Bare bare(state);
  const std::vector<std::int32_t> keys = bare.readKeys();
  std::size_t place = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(bare.show(keys[place]));
    if (++place == keys.size()) place = 0;
  }
}

void MoveAndRead_Engine(benchmark::State& state) {
  const auto database = openEngine(state);
  const auto set = database->OpenRecordset(listOfNotes);
  std::vector<std::shared_ptr<dao::Field>> fields;
  for (std::size_t i = 0; i < set->fields().count(); ++i) fields.push_back(set->fields().at(i));
  for (auto _ : state) {
    for (const auto& field : fields) benchmark::DoNotOptimize(field->Value());
    set->MoveNext();
    if (set->isEOF()) set->MoveFirst();
  }
}

// As the logic reads: every field by its name.
void MoveAndReadByName_Engine(benchmark::State& state) {
  const auto database = openEngine(state);
  const auto set = database->OpenRecordset(listOfNotes);
  std::vector<Text> names;
  for (std::size_t i = 0; i < set->fields().count(); ++i) names.push_back(set->fields().at(i)->Name());
  for (auto _ : state) {
    for (const Text& name : names) benchmark::DoNotOptimize(set->value(name));
    set->MoveNext();
    if (set->isEOF()) set->MoveFirst();
  }
}

void FindByKey_Bare(benchmark::State& state) {
  Bare bare(state);
  const std::int64_t count = state.range(0);
  std::int64_t key = 0;
  for (auto _ : state) {
    key = (key + stride) % count;
    benchmark::DoNotOptimize(bare.show(static_cast<std::int32_t>(key) + 1));
  }
}

void FindByKey_Engine(benchmark::State& state) {
  const auto database = openEngine(state);
  const auto set = database->OpenRecordset(listOfNotes);
  set->FindFirst(u"IdAnota = 1");  // learns where the keys are
  state.counters["bytes/row"] =
      static_cast<double>(static_cast<engines::Dynaset&>(*set).keyBytes()) / set->RecordCount();
  std::vector<std::shared_ptr<dao::Field>> fields;
  for (std::size_t i = 0; i < set->fields().count(); ++i) fields.push_back(set->fields().at(i));
  const std::int64_t count = state.range(0);
  std::int64_t key = 0;
  for (auto _ : state) {
    key = (key + stride) % count;
    set->FindFirst(u"IdAnota = " + toText(key + 1));
    for (const auto& field : fields) benchmark::DoNotOptimize(field->Value());
    if (set->NoMatch()) state.SkipWithError("a key was not found");
  }
}

void FirstFindByKey_Engine(benchmark::State& state) {
  const auto database = openEngine(state);
  for (auto _ : state) {
    state.PauseTiming();
    const auto set = database->OpenRecordset(listOfNotes);
    state.ResumeTiming();
    set->FindFirst(u"IdAnota = 1");
  }
}

// A text that no note holds, so that every row is looked at.
void Contains_Bare(benchmark::State& state) {
  Bare bare(state);
  const BareStatement count =
      bare.connection.prepare("SELECT Count(*) FROM NotaIP WHERE Notas LIKE '%zaguán%'");
  for (auto _ : state) {
    sqlite3_step(count.get());
    sqlite3_reset(count.get());
  }
}

void Contains_Engine(benchmark::State& state) {
  const auto database = openEngine(state);
  for (auto _ : state)
    benchmark::DoNotOptimize(database->OpenRecordset(
        u"SELECT Count(*) FROM NotaIP WHERE Notas Like '*zaguán*'", dao::dbOpenSnapshot));
}

// The same as a search of the list, another text each time as people search.
void FindContains_Bare(benchmark::State& state) {
  Bare bare(state);
  const BareStatement find = bare.connection.prepare(bareContains);
  int number = 0;
  for (auto _ : state) {
    const std::string pattern = "%zaguán " + std::to_string(++number) + "%";
    sqlite3_bind_text(find.get(), 1, pattern.c_str(), -1, SQLITE_TRANSIENT);
    if (sqlite3_step(find.get()) == SQLITE_ROW) state.SkipWithError("a text was found that is not there");
    sqlite3_reset(find.get());
  }
}

void FindContains_Engine(benchmark::State& state) {
  const auto database = openEngine(state);
  const auto set = database->OpenRecordset(listOfNotes);
  int number = 0;
  for (auto _ : state) {
    set->FindFirst(u"Notas Like '*zaguán " + toText(++number) + u"*'");
    if (!set->NoMatch()) state.SkipWithError("a text was found that is not there");
  }
}

// The same on the list of one property, some twenty notes, which is what a card searches: it must not cost
// more where the table is longer.
void FindContainsOfProperty_Bare(benchmark::State& state) {
  Bare bare(state);
  const BareStatement find =
      bare.connection.prepare("SELECT IdNotaIP FROM NotaIP WHERE IdInm = 7 AND Notas LIKE ?1");
  int number = 0;
  for (auto _ : state) {
    const std::string pattern = "%zaguán " + std::to_string(++number) + "%";
    sqlite3_bind_text(find.get(), 1, pattern.c_str(), -1, SQLITE_TRANSIENT);
    if (sqlite3_step(find.get()) == SQLITE_ROW) state.SkipWithError("a text was found that is not there");
    sqlite3_reset(find.get());
  }
}

void FindContainsOfProperty_Engine(benchmark::State& state) {
  const auto database = openEngine(state);
  const Text list(listOfNotes);
  const std::size_t order = list.rfind(u" ORDER BY");
  const auto set =
      database->OpenRecordset(list.substr(0, order) + u" WHERE NotaIP.IdInm = 7" + list.substr(order));
  int number = 0;
  for (auto _ : state) {
    set->FindFirst(u"Notas Like '*zaguán " + toText(++number) + u"*'");
    if (!set->NoMatch()) state.SkipWithError("a text was found that is not there");
  }
  state.counters["rows"] = set->RecordCount();
}

// On with the search just made.
void FindNextContains_Engine(benchmark::State& state) {
  const auto database = openEngine(state);
  const auto set = database->OpenRecordset(listOfNotes);
  set->FindFirst(u"Notas Like '*ático*'");
  for (auto _ : state) {
    set->FindNext(u"Notas Like '*ático*'");
    if (set->NoMatch()) set->MoveFirst();
  }
}

#define OVALIA_SIZES(name) BENCHMARK(name)->Arg(1'000)->Arg(1'000'000)
OVALIA_SIZES(OpenList_Bare)->Unit(benchmark::kMicrosecond);
OVALIA_SIZES(OpenList_Engine)->Unit(benchmark::kMicrosecond);
OVALIA_SIZES(MoveAndRead_Bare);
OVALIA_SIZES(MoveAndRead_Engine);
OVALIA_SIZES(MoveAndReadByName_Engine);
OVALIA_SIZES(FindByKey_Bare);
OVALIA_SIZES(FindByKey_Engine);
OVALIA_SIZES(FirstFindByKey_Engine)->Unit(benchmark::kMicrosecond);
OVALIA_SIZES(Contains_Bare)->Unit(benchmark::kMicrosecond);
OVALIA_SIZES(Contains_Engine)->Unit(benchmark::kMicrosecond);
OVALIA_SIZES(FindContains_Bare)->Unit(benchmark::kMicrosecond);
OVALIA_SIZES(FindContains_Engine)->Unit(benchmark::kMicrosecond);
OVALIA_SIZES(FindContainsOfProperty_Bare)->Unit(benchmark::kMicrosecond);
OVALIA_SIZES(FindContainsOfProperty_Engine)->Unit(benchmark::kMicrosecond);
OVALIA_SIZES(FindNextContains_Engine)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace ovalia::bench
