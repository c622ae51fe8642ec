#include <benchmark/benchmark.h>

#include <filesystem>

#include "bench/QuietPlatform.h"
#include "cards/RecordToCard.h"
#include "component/EventRouting.h"
#include "engines/Open.h"
#include "host/BulkFile.h"
#include "host/Queries.h"
#include "instance/Kinds.h"
#include "routines/ModuleValues.h"

// What showing a card costs, without a window: the fill of every control, the title and the counters, on
// lists of different lengths. The statements are the same ones, so the figure must not grow with the list.
namespace ovalia {

namespace {

std::filesystem::path agencyOf(int annotations) {
  const std::filesystem::path folder = "build/bench-data";
  std::filesystem::create_directories(folder);
  const auto file = folder / ("agencia-" + std::to_string(annotations) + ".db");
  if (!std::filesystem::exists(file)) host::makeDatabaseFile(file, annotations);
  return file;
}

struct OpenCard {
  OpenCard(const std::filesystem::path& file, const Kind& kind, TextView table) {
    const auto database = engines::open(fromUtf8(file.string()));
    moduleValues().cgDB = database;
    auto app = std::make_shared<MemberTable>();
    app->value(u"title", u"Ovalia");
    surface.cApp = app;
    surface.Tipo = kind.tipo;
    surface.cUsuario = Text();
    const auto users = database->OpenRecordset(u"SELECT Nombre FROM Usuario", dao::dbOpenSnapshot);
    surface.cUsuario = users->value(u"Nombre").text();
    surface.TipoAccNota = u"TipoAccNota";
    surface.crs = database->OpenRecordset(host::wholeTableQuery(host::annotationTable(table)));
    surface.crs->MoveFirst();
    nota.dNota = std::make_shared<forms::CardForm>(kind.design());
    connectCard(nota, *nota.dNota);
  }
  ~OpenCard() {
    nota.dNota.reset();
    moduleValues() = {};
  }
  bench::QuietPlatform platform;
  NotaSurface surface;
  Instance nota{surface};
};

void show(benchmark::State& state, const Kind& kind, TextView table) {
  OpenCard open(agencyOf(static_cast<int>(state.range(0))), kind, table);
  dao::Recordset& list = *open.surface.crs;
  for (auto _ : state) {
    list.MoveNext();
    if (list.isEOF()) list.MoveFirst();
    RefrescoFicha(open.nota, u"");
    if (open.nota.EstadoFicha != limpia) state.SkipWithError("the card was not filled");
  }
  state.counters["rows"] = list.RecordCount();
}

void nextNote(benchmark::State& state) { show(state, *kindOf(u"Nota"), u"NotaIP"); }
void nextVisit(benchmark::State& state) { show(state, *kindOf(u"Visita"), u"VisitaIP"); }

BENCHMARK(nextNote)->Name("card/RefrescoFicha_note")->Arg(1000)->Arg(1000000);
BENCHMARK(nextVisit)->Name("card/RefrescoFicha_visit")->Arg(1000)->Arg(1000000);

}  // namespace

}  // namespace ovalia
