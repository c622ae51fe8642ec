#include "bench/BenchAgency.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <stdexcept>

namespace ovalia::bench {
namespace {

constexpr const char* schema =
    "CREATE TABLE Usuario (IdUsuario INTEGER PRIMARY KEY AUTOINCREMENT, Nombre VARCHAR(30) NOT NULL);"
    "CREATE TABLE TipoAccNota (IdTipoAccNota INTEGER PRIMARY KEY AUTOINCREMENT, Nombre VARCHAR(30));"
    "CREATE TABLE NotaIP (IdNotaIP INTEGER PRIMARY KEY AUTOINCREMENT, IdInm INTEGER, IdUsuario INTEGER "
    "REFERENCES Usuario,"
    " IdTipoAccNota INTEGER REFERENCES TipoAccNota, Asunto VARCHAR(80), Notas MEMO TEXT, Categorias "
    "VARCHAR(80),"
    " FechaAlta DATETIME, FechaActualizacion DATETIME, Aviso BOOLEAN, FechaAviso DATETIME, Narchivos "
    "SMALLINT DEFAULT 0);"
    "CREATE INDEX NotaIP_IdInm ON NotaIP (IdInm);"
    "CREATE INDEX NotaIP_FechaAlta ON NotaIP (FechaAlta);";

constexpr const char* words[] = {"llamada", "del",    "propietario", "visita", "señalada", "ático",
                                 "calle",   "con",    "llaves",      "oferta", "rebajada", "piso",
                                 "Peña",    "garaje", "cliente",     "espera"};

// A small generator of its own, so that the rows are the same everywhere.
class Chance {
 public:
  std::uint32_t below(std::uint32_t limit) {
    state_ = state_ * 6364136223846793005ULL + 1442695040888963407ULL;
    return static_cast<std::uint32_t>(state_ >> 33) % limit;
  }
  std::string text(std::uint32_t count) {
    std::string all;
    while (count-- > 0) all.append(words[below(16)]).append(count > 0 ? " " : "");
    return all;
  }

 private:
  std::uint64_t state_ = 20050307;
};

void fill(BareConnection& connection, int annotations) {
  Chance chance;
  connection.run("BEGIN");
  for (int i = 1; i <= 40; ++i)
    connection.run(
        ("INSERT INTO Usuario VALUES (" + std::to_string(i) + ", 'Usuario " + std::to_string(i) + "')")
            .c_str());
  for (int i = 1; i <= 6; ++i)
    connection.run(
        ("INSERT INTO TipoAccNota VALUES (" + std::to_string(i) + ", 'Acceso " + std::to_string(i) + "')")
            .c_str());
  const BareStatement statement =
      connection.prepare("INSERT INTO NotaIP VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
  sqlite3_stmt* const insert = statement.get();
  for (int i = 1; i <= annotations; ++i) {
    const std::string subject = chance.text(2 + chance.below(6));
    const std::string notes = chance.text(chance.below(10) == 0 ? 60 : chance.below(12));
    const std::string categories = chance.below(3) == 0 ? chance.text(2) : "";
    // Mostly in order of time, as people write, with some entered later.
    const double added = 38'000 + i * 0.004 + (chance.below(20) == 0 ? chance.below(400) : 0);
    const double second = static_cast<double>(static_cast<std::int64_t>(added * 86'400)) / 86'400;
    sqlite3_bind_int(insert, 1, i);
    sqlite3_bind_int(insert, 2,
                     static_cast<int>(1 + chance.below(static_cast<std::uint32_t>(annotations / 20 + 1))));
    sqlite3_bind_int(insert, 3, static_cast<int>(1 + chance.below(40)));
    sqlite3_bind_int(insert, 4, static_cast<int>(1 + chance.below(6)));
    sqlite3_bind_text(insert, 5, subject.c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_text(insert, 6, notes.c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_text(insert, 7, categories.c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_double(insert, 8, second);
    sqlite3_bind_double(insert, 9, second + chance.below(100));
    sqlite3_bind_int(insert, 10, chance.below(2) == 0 ? 0 : -1);
    sqlite3_bind_double(insert, 11, second + 7);
    sqlite3_bind_int(insert, 12, static_cast<int>(chance.below(4)));
    if (sqlite3_step(insert) != SQLITE_DONE) throw std::runtime_error("cannot fill the agency");
    sqlite3_reset(insert);
  }
  connection.run("COMMIT");
}

}  // namespace

std::string agencyFile(int annotations) {
  const std::filesystem::path folder = OVALIA_BENCH_DATA;
  const std::filesystem::path file = folder / ("agencia-" + std::to_string(annotations) + ".db");
  if (std::filesystem::exists(file)) return file;
  std::filesystem::create_directories(folder);
  const std::filesystem::path unfinished = file.string() + ".part";
  std::filesystem::remove(unfinished);
  {
    BareConnection connection(unfinished);
    connection.run("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF");
    connection.run(schema);
    fill(connection, annotations);
    connection.run("PRAGMA journal_mode = WAL");
  }
  std::filesystem::rename(unfinished, file);
  return file;
}

}  // namespace ovalia::bench
