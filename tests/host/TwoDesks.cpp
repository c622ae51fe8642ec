#include "tests/host/TwoDesks.h"

#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <thread>

#include "engines/Open.h"

namespace ovalia::host {

TwoDesks::TwoDesks() : witness(engines::open(fromUtf8(file.string()))) {
  execute("INSERT INTO Inmueble (Referencia) VALUES ('V-DOS')");
  property = std::stoi(one("SELECT Max(IdInm) FROM Inmueble"));
  for (DeskProcess* desk : {&begona, &luis}) does(*desk, "property " + std::to_string(property));
  makeNotes();
}

void TwoDesks::makeNotes() {
  constexpr int newest = 45296;  // days; the lists begin with it
  execute("DELETE FROM NotaIP WHERE IdInm = " + std::to_string(property));
  keys.clear();
  for (const std::string subject : {"Primera", "Segunda", "Tercera", "Cuarta"}) {
    const int place = int(keys.size()) + 1;
    const std::string day = std::to_string(newest - place) + ".5";
    execute("INSERT INTO NotaIP (IdInm, IdUsuario, Asunto, Notas, FechaAlta, FechaActualizacion) VALUES (" +
            std::to_string(property) + ", 3, '" + subject + "', '" + text(place) + "', " + day + ", " + day +
            ")");
    keys.push_back(std::stoi(one("SELECT Max(IdNota) FROM NotaIP")));
  }
  for (DeskProcess* desk : {&begona, &luis}) does(*desk, "key F5");
}

void TwoDesks::TearDown() {
  for (DeskProcess* desk : {&begona, &luis}) EXPECT_EQ(desk->leave(), "");
  std::istringstream log(folder.content("ErrLog[_].txt"));
  for (std::string line; std::getline(log, line);) {
    if (line.starts_with("    Formularios: ")) continue;
    const auto found = std::ranges::find_if(
        logged_, [&](const std::string& entry) { return line.find(entry) != std::string::npos; });
    if (found == logged_.end())
      ADD_FAILURE() << "logged and not announced: " << line;
    else
      logged_.erase(found);
  }
  for (const std::string& entry : logged_) ADD_FAILURE() << "announced and never logged: " << entry;
  kit::LogicTest::TearDown();
}

void TwoDesks::does(DeskProcess& desk, const std::string& command, const char* file, int line) {
  const std::string answer = desk.answerTo(command);
  if (answer != "done") ADD_FAILURE_AT(file, line) << command << " was answered by: " << answer;
}

std::string TwoDesks::title(int place, int of) const {
  return "Inmueble: " + std::to_string(property) + " - Nota: " + std::to_string(place) + '/' +
         std::to_string(of);
}

void TwoDesks::open(DeskProcess& desk, int place) {
  ASSERT_EQ(desk.answerTo("open grdNota " + std::to_string(key(place))), "card " + title(place));
}

std::string TwoDesks::one(const std::string& sql) {
  const auto rows = witness->OpenRecordset(fromUtf8(sql), dao::dbOpenSnapshot);
  return toUtf8(rows->fields().at(0)->Value().text());
}

std::string TwoDesks::stored(int place, const std::string& column) {
  return one("SELECT " + column + " FROM NotaIP WHERE IdNota = " + std::to_string(key(place)));
}

int TwoDesks::listed() {
  return std::stoi(one("SELECT Count(*) FROM NotaIP WHERE IdInm = " + std::to_string(property)));
}

void TwoDesks::expectWhole() {
  EXPECT_EQ(one("PRAGMA integrity_check"), "ok");
  EXPECT_TRUE(witness->OpenRecordset(u"PRAGMA foreign_key_check", dao::dbOpenSnapshot)->isEOF());
}

void TwoDesks::execute(const std::string& sql) {
  sqlite3* opened = nullptr;
  ASSERT_EQ(sqlite3_open(file.c_str(), &opened), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(opened, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
      << sqlite3_errmsg(opened);
  sqlite3_close(opened);
}

void TwoDesks::expectReported(DeskProcess& desk, const std::string& answer, const std::string& routine,
                              int number) {
  EXPECT_THAT(answer, testing::StartsWith("box Error. - Versión: "));
  EXPECT_THAT(answer, testing::HasSubstr(": Error en la rutina: " + routine + "⏎"));
  EXPECT_THAT(answer, testing::HasSubstr("⏎Número del error: " + std::to_string(number) + "⏎"));
  does(desk, "press No");
  expectLogged(routine, number);
}

void TwoDesks::expectLogged(const std::string& routine, int number) {
  logged_.push_back(" [" + std::to_string(number) + "] " + routine + " (");
}

void TwoDesks::waitForNextSecond() {
  using namespace std::chrono;
  const auto now = system_clock::now();
  std::this_thread::sleep_until(ceil<seconds>(now + milliseconds(1)) + milliseconds(20));
}

}  // namespace ovalia::host
