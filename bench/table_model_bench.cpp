#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlQueryModel>
#include <string>

#include "bench/HostAgency.h"

// What one would pick instead of the dynaset: the toolkit's own table model on the same list, read to its end
// so that the number of rows is known.
namespace {

constexpr const char* connectionName = "bench";

std::size_t residentBytes() {
  long pages = 0, resident = 0;
  if (FILE* file = std::fopen("/proc/self/statm", "r")) {
    if (std::fscanf(file, "%ld %ld", &pages, &resident) != 2) resident = 0;
    std::fclose(file);
  }
  return static_cast<std::size_t>(resident) * 4096;
}

void openModel(benchmark::State& state) {
  static int argc = 1;
  static char name[] = "bench";
  static char* argv[] = {name, nullptr};
  if (!QCoreApplication::instance()) new QCoreApplication(argc, argv);
  auto database = QSqlDatabase::addDatabase("QSQLITE", connectionName);
  database.setDatabaseName(
      QString::fromStdString(ovalia::bench::hostAgencyFile(static_cast<int>(state.range(0)))));
  database.open();
  double bytesARow = 0;
  for (auto _ : state) {
    const std::size_t before = residentBytes();
    QSqlQueryModel model;
    model.setQuery(QSqlQuery("SELECT * FROM NotaIP ORDER BY FechaAlta DESC, IdNota DESC", database));
    if (model.lastError().isValid()) state.SkipWithError(model.lastError().text().toUtf8().constData());
    while (model.canFetchMore()) model.fetchMore();
    benchmark::DoNotOptimize(model.rowCount());
    if (model.rowCount() > 0 && residentBytes() > before)
      bytesARow = static_cast<double>(residentBytes() - before) / model.rowCount();
  }
  state.counters["bytes/row"] = bytesARow;
  // Nobody may hold a connection that is taken away.
  database = {};
  QSqlDatabase::removeDatabase(connectionName);
}

BENCHMARK(openModel)
    ->Name("list/open_qt_table_model")
    ->Arg(1000)
    ->Arg(1000000)
    ->Unit(benchmark::kMillisecond);

}  // namespace
