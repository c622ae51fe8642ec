// What a card costs, without a window: filled from its record, moved on, typed into and saved, over lists of
// different lengths. What does not touch the whole list must not grow with it.

#include <benchmark/benchmark.h>

#include <unordered_set>

#include "bench/Bare.h"
#include "bench/HostAgency.h"
#include "bench/OpenCard.h"
#include "bench/QuietWindow.h"
#include "cards/Navigation.h"
#include "cards/Saving.h"

namespace ovalia::bench {
namespace {

void expectState(benchmark::State& state, const OpenCard& open, std::int32_t wanted) {
  if (open.nota.EstadoFicha != wanted) state.SkipWithError("the card is not in the state that was wanted");
}

void RefrescoFicha_Card(benchmark::State& state, const CardRow& row) {
  OpenCard open(hostAgencyFile(static_cast<int>(state.range(0))), row);
  for (auto _ : state) {
    open.list().MoveNext();
    if (open.list().isEOF()) open.list().MoveFirst();
    RefrescoFicha(open.nota, u"");
    expectState(state, open, limpia);
  }
  state.counters["rows"] = open.list().RecordCount();
}

// The user's step to the next record: checks, the move, the fill.
void Siguiente_Card(benchmark::State& state, const CardRow& row) {
  OpenCard open(hostAgencyFile(static_cast<int>(state.range(0))), row);
  RefrescoFicha(open.nota, u"");
  for (auto _ : state) {
    if (open.list().AbsolutePosition() + 1 == open.list().RecordCount()) open.list().MoveFirst();
    Siguiente(open.nota);
    expectState(state, open, limpia);
  }
}

// The statements alone: the next key's row, the look-ups and, where the row counts some, its attachments.
void Siguiente_Bare(benchmark::State& state, const CardRow& row) {
  BareConnection connection(hostAgencyFile(static_cast<int>(state.range(0))));
  const Text list = listOf(row);
  const Text from = list.substr(0, list.find(u" ORDER BY"));
  const Text key = Text(row.table) + u"." + Text(row.key);
  const BareStatement read = connection.prepare(toUtf8(from + u" WHERE " + key + u" = ?1"));
  const std::vector<std::int32_t> keys =
      readKeys(connection.prepare(toUtf8(u"SELECT " + key + list.substr(list.find(u" FROM ")))).get());
  const std::vector<std::int32_t> counting = readKeys(
      connection
          .prepare(toUtf8(u"SELECT " + Text(row.key) + u" FROM " + Text(row.table) + u" WHERE NArchivos > 0"))
          .get());
  const std::unordered_set<std::int32_t> documented(counting.begin(), counting.end());
  const BareStatement attachments =
      connection.prepare(toUtf8(u"SELECT * FROM " + Text(row.attachments()) + u" WHERE IdNota = ?1"));
  std::vector<BareStatement> lookups;
  for (const std::string& sql : row.lookups) lookups.push_back(connection.prepare(sql));
  std::size_t place = 0;
  for (auto _ : state) {
    if (++place == keys.size()) place = 0;
    benchmark::DoNotOptimize(readRow(read.get(), keys[place]));
    for (const BareStatement& lookup : lookups) benchmark::DoNotOptimize(readRow(lookup.get(), 1));
    if (documented.contains(keys[place])) benchmark::DoNotOptimize(readRow(attachments.get(), keys[place]));
  }
}

// From a key's press in the text box to the state and the tools that follow from it.
void Keystroke_Card(benchmark::State& state) {
  OpenCard open(hostAgencyFile(static_cast<int>(state.range(0))), notes());
  const QuietWindow window([&] {
    forms::TextBox& box = *open.nota.card().as<forms::TextBox>(u"txtNotas");
    const Text typed[] = {box.text() + u"x", box.text() + u"xy"};
    open.nota.card().userFocuses(box);
    std::size_t keys = 0;
    for (auto _ : state) {
      box.userTypes(typed[++keys % 2]);
      expectState(state, open, modificada);
    }
  });
  open.show();
}

void Guardar_Card(benchmark::State& state) {
  OpenCard open(writableHostAgency(static_cast<int>(state.range(0))), notes());
  const QuietWindow window([&] {
    forms::TextBox& box = *open.nota.card().as<forms::TextBox>(u"txtNotas");
    const Text typed[] = {u"Guardada una vez", u"Guardada otra vez"};
    std::size_t saves = 0;
    for (auto _ : state) {
      state.PauseTiming();
      box.userTypes(typed[++saves % 2]);
      if (open.nota.EstadoFicha != modificada) std::abort();
      state.ResumeTiming();
      Guardar(open.nota, u"");
      expectState(state, open, limpia);
    }
  });
  open.show();
}

// The statement that a save of the same card ends in, on the same row, and its commit.
void Guardar_Bare(benchmark::State& state) {
  const std::string file = writableHostAgency(static_cast<int>(state.range(0)));
  const auto database = engines::open(fromUtf8(file));
  const std::int32_t key = database->OpenRecordset(listOf(notes()))->fields().at(0)->Value().toLong();
  database->Close();
  BareConnection connection(file);
  const BareStatement row = connection.prepare(
      "SELECT Asunto, IdTipoAccNota, Categorias, Aviso, FechaAviso, FechaAlta FROM NotaIP WHERE IdNota = ?1");
  const BareStatement update = connection.prepare(
      "UPDATE NotaIP SET Asunto = ?1, IdTipoAccNota = ?2, Categorias = ?3, Aviso = ?4, FechaAviso = ?5, "
      "FechaAlta = ?6, FechaActualizacion = ?7, Notas = ?8 WHERE IdNota = ?9");
  sqlite3_bind_int(row.get(), 1, key);
  if (sqlite3_step(row.get()) != SQLITE_ROW) return state.SkipWithError("there is no such row");
  for (int i = 0; i < sqlite3_column_count(row.get()); ++i)
    sqlite3_bind_value(update.get(), i + 1, sqlite3_column_value(row.get(), i));
  sqlite3_reset(row.get());
  const char* const typed[] = {"Guardada una vez", "Guardada otra vez"};
  std::size_t saves = 0;
  for (auto _ : state) {
    sqlite3_bind_double(update.get(), 7, 46'000 + static_cast<double>(++saves) / 86'400);
    sqlite3_bind_text(update.get(), 8, typed[saves % 2], -1, SQLITE_TRANSIENT);
    sqlite3_bind_int(update.get(), 9, key);
    if (sqlite3_step(update.get()) != SQLITE_DONE) state.SkipWithError("the row was not written");
    sqlite3_reset(update.get());
  }
}

void RefrescoFicha_Note(benchmark::State& state) { RefrescoFicha_Card(state, notes()); }
void RefrescoFicha_Visit(benchmark::State& state) { RefrescoFicha_Card(state, visits()); }
void Siguiente_Note(benchmark::State& state) { Siguiente_Card(state, notes()); }
void Siguiente_Visit(benchmark::State& state) { Siguiente_Card(state, visits()); }
void Siguiente_NoteBare(benchmark::State& state) { Siguiente_Bare(state, notes()); }
void Siguiente_VisitBare(benchmark::State& state) { Siguiente_Bare(state, visits()); }

#define OVALIA_CARD(name) BENCHMARK(name)->Name("card/" #name)->Arg(1'000)->Arg(1'000'000)
OVALIA_CARD(RefrescoFicha_Note);
OVALIA_CARD(RefrescoFicha_Visit);
OVALIA_CARD(Siguiente_NoteBare);
OVALIA_CARD(Siguiente_Note);
OVALIA_CARD(Siguiente_VisitBare);
OVALIA_CARD(Siguiente_Visit);
OVALIA_CARD(Keystroke_Card);
// Most of a save is waiting for the disk.
OVALIA_CARD(Guardar_Bare)->UseRealTime();
OVALIA_CARD(Guardar_Card)->UseRealTime();

}  // namespace
}  // namespace ovalia::bench
