// Two users who work at the same moment, in two processes, and one whose process is ended.
#include <chrono>
#include <thread>

#include "tests/host/TwoDesks.h"

namespace ovalia::host {
namespace {

class TwoDesksAtOnce : public TwoDesks {
 protected:
  // Notes down every text that is stored with a note, in the order in which they are.
  void keepDiary() {
    execute("CREATE TABLE Diario (Id INTEGER PRIMARY KEY AUTOINCREMENT, IdNota INTEGER, Texto TEXT)");
    execute(
        "CREATE TRIGGER Anotar AFTER UPDATE OF Notas ON NotaIP BEGIN "
        "INSERT INTO Diario (IdNota, Texto) VALUES (new.IdNota, new.Notas); END");
  }
  struct Entry {
    int note;
    std::string text;
  };
  std::vector<Entry> diary() {
    std::vector<Entry> entries;
    const auto rows =
        witness->OpenRecordset(u"SELECT IdNota, Texto FROM Diario ORDER BY Id", dao::dbOpenSnapshot);
    for (; !rows->isEOF(); rows->MoveNext())
      entries.push_back({rows->value(u"IdNota").toLong(), toUtf8(rows->value(u"Texto").text())});
    return entries;
  }

  // A save of a changed text, begun and seen done.
  static void beginSave(DeskProcess& desk, const std::string& text) {
    desk.begins("type txtNotas " + text);
    desk.begins("tool ID_Guardar");
  }
  static void expectSaved(DeskProcess& desk) {
    ASSERT_EQ(desk.answer(), "done");
    ASSERT_EQ(desk.answer(), "done");
  }

  std::string newCard() const { return "card Inmueble: " + std::to_string(property) + " - Nueva Nota"; }
};

TEST_F(TwoDesksAtOnce, saves_of_different_notes_lose_nothing) {
  constexpr int saves = 200;
  keepDiary();
  open(begona, 1);
  open(luis, 2);
  const auto text = [](const char* who, int number) {
    return std::string(who) + ' ' + std::to_string(number);
  };
  for (int i = 0; i < saves; ++i) {
    beginSave(begona, text("Begoña", i));
    beginSave(luis, text("Luis", i));
  }
  for (int i = 0; i < saves; ++i) {
    expectSaved(begona);
    expectSaved(luis);
  }
  int of[2] = {0, 0}, turns = 0, before = 0;
  for (const Entry& entry : diary()) {
    const bool hers = entry.note == key(1);
    EXPECT_EQ(entry.note, key(hers ? 1 : 2));
    EXPECT_EQ(entry.text, text(hers ? "Begoña" : "Luis", of[hers]++));
    turns += std::exchange(before, entry.note) != entry.note;
  }
  EXPECT_EQ(of[0], saves);
  EXPECT_EQ(of[1], saves);
  EXPECT_GT(turns, 4) << "the two did not save at the same time";
  for (DeskProcess* desk : {&begona, &luis}) does(*desk, "close");
  expectWhole();
}

// Insertions.

TEST_F(TwoDesksAtOnce, a_new_note_is_in_the_others_list_when_that_is_read_again_and_not_before) {
  open(luis, 3);
  EXPECT_EQ(begona.answerTo("new grdNota"), newCard());
  EXPECT_EQ(listed(), 5);
  does(luis, "tool ID_Ultimo");
  EXPECT_EQ(luis.answerTo("tell caption"), "is " + title(4));
  does(begona, "type txtAsunto Nueva de Begoña");
  does(begona, "type dtpFechaAlta 02/01/2020");
  does(begona, "tool ID_Guardar");
  does(luis, "tool ID_Primero");
  EXPECT_EQ(luis.answerTo("tell shown txtAsunto"), "is Primera");
  does(luis, "tool ID_Ultimo");
  EXPECT_EQ(luis.answerTo("tell caption"), "is " + title(4));
  EXPECT_EQ(luis.answerTo("tell shown txtAsunto"), "is Cuarta");
  does(luis, "key Ctrl+.");
  EXPECT_EQ(luis.answerTo("tell beeps"), "is 1");
  EXPECT_EQ(luis.answerTo("tell shown txtAsunto"), "is Cuarta");
  does(luis, "close");
  EXPECT_EQ(luis.answerTo("open grdNota " + std::to_string(key(4))), "card " + title(4, 5));
  does(luis, "tool ID_Ultimo");
  EXPECT_EQ(luis.answerTo("tell caption"), "is " + title(5, 5));
  EXPECT_EQ(luis.answerTo("tell shown txtAsunto"), "is Nueva de Begoña");
  for (DeskProcess* desk : {&begona, &luis}) does(*desk, "close");
}

TEST_F(TwoDesksAtOnce, one_creates_notes_while_the_other_moves_from_end_to_end) {
  constexpr int notes = 3, journeys = 60;
  open(begona, 1);
  open(luis, 1);
  for (int i = 0; i < journeys; ++i)
    for (const char* move : {"tool ID_Ultimo", "tell caption", "tool ID_Primero", "tell caption"})
      luis.begins(move);
  for (int i = 1; i <= notes; ++i) {
    waitForNextSecond();  // one user's notes of one second are not told apart
    does(begona, "tool ID_Aniadir");
    does(begona, "type txtNotas Nueva " + std::to_string(i));
    does(begona, "tool ID_Guardar");
  }
  for (int i = 0; i < journeys; ++i)
    for (const std::string& answer :
         {std::string("done"), "is " + title(4), std::string("done"), "is " + title(1)})
      ASSERT_EQ(luis.answer(), answer);
  for (int i = 1; i <= notes; ++i)
    EXPECT_EQ(one("SELECT Count(*) FROM NotaIP WHERE Notas = 'Nueva " + std::to_string(i) + "'"), "1");
  EXPECT_EQ(listed(), 4 + notes);
  for (DeskProcess* desk : {&begona, &luis}) does(*desk, "close");
  expectWhole();
}

TEST_F(TwoDesksAtOnce, notes_that_both_create_in_the_same_second_are_each_ones_own) {
  constexpr int notes = 3;
  open(begona, 1);
  open(luis, 1);
  for (int i = 1; i <= notes; ++i) {
    waitForNextSecond();
    for (DeskProcess* desk : {&begona, &luis}) desk->begins("tool ID_Aniadir");
    beginSave(begona, "de Begoña " + std::to_string(i));
    beginSave(luis, "de Luis " + std::to_string(i));
    for (DeskProcess* desk : {&begona, &luis}) {
      ASSERT_EQ(desk->answer(), "done");
      expectSaved(*desk);
    }
  }
  for (const auto& [who, name] : {std::pair("Begoña", begonaName), std::pair("Luis", luisName)})
    for (int i = 1; i <= notes; ++i)
      EXPECT_EQ(
          one("SELECT Nombre FROM NotaIP INNER JOIN Usuario ON NotaIP.IdUsuario = Usuario.IdUsuario WHERE "
              "Notas = 'de " +
              std::string(who) + ' ' + std::to_string(i) + "'"),
          name);
  EXPECT_EQ(listed(), 4 + 2 * notes);
  for (DeskProcess* desk : {&begona, &luis}) does(*desk, "close");
}

// The end of a process.

class TwoDesksKilled : public TwoDesksAtOnce {
 protected:
  // Luis works on, on the very note that Begoña was saving.
  void expectLuisGoesOn(int place, const std::string& shown) {
    open(luis, place);
    EXPECT_EQ(luis.answerTo("tell shown txtNotas"), "is " + shown);
    does(luis, "type txtNotas Luis sigue");
    does(luis, "tool ID_Guardar");
    EXPECT_EQ(stored(place), "Luis sigue");
    does(luis, "tool ID_Primero");
    does(luis, "close");
    expectWhole();
  }

  // Another one at Begoña's desk.
  void expectNewDeskWorks(int place) {
    DeskProcess again(file, begonaName);
    does(again, "property " + std::to_string(property));
    open(again, place);
    EXPECT_EQ(again.answerTo("tell shown txtNotas"), "is Luis sigue");
    does(again, "type txtNotas Begoña ha vuelto");
    does(again, "tool ID_Guardar");
    does(again, "close");
    EXPECT_EQ(again.leave(), "");
    EXPECT_EQ(stored(place), "Begoña ha vuelto");
  }
};

TEST_F(TwoDesksKilled, in_a_save_that_waits_for_another_one_leaves_the_row_as_it_was) {
  open(begona, 2);
  does(begona, "type txtNotas no llega");
  witness->Execute(u"BEGIN IMMEDIATE");
  begona.begins("tool ID_Guardar");
  EXPECT_FALSE(begona.answersWithin(500));
  begona.kill();
  witness->Execute(u"ROLLBACK");
  EXPECT_EQ(stored(2), text(2));
  expectLuisGoesOn(2, text(2));
  expectNewDeskWorks(2);
}

TEST_F(TwoDesksKilled, in_the_middle_of_writing_leaves_the_row_as_it_was_and_nothing_locked) {
  // A write of such a text would go on for many seconds and pages.
  execute("CREATE TABLE Relleno (Datos BLOB)");
  execute(
      "CREATE TRIGGER Lento AFTER UPDATE OF Notas ON NotaIP WHEN new.Notas GLOB 'lento*' BEGIN "
      "INSERT INTO Relleno SELECT randomblob(4000 + 0 * length(hex(zeroblob(200000)))) "
      "FROM NotaIP AS a, NotaIP AS b LIMIT 50000; END");
  const std::filesystem::path log = file.string() + "-wal";
  open(begona, 2);
  open(luis, 3);
  does(begona, "type txtNotas lento, no llega");
  const auto before = std::filesystem::file_size(log);
  constexpr std::uintmax_t some = 1'000'000;  // bytes
  begona.begins("tool ID_Guardar");
  while (std::filesystem::file_size(log) < before + some)
    ASSERT_FALSE(begona.answersWithin(1)) << "it was over too soon";
  // Luis comes to wait for her.
  does(luis, "type txtNotas de Luis");
  luis.begins("tool ID_Guardar");
  EXPECT_FALSE(luis.answersWithin(100));
  begona.kill();
  EXPECT_EQ(luis.answer(), "done");
  does(luis, "close");
  EXPECT_EQ(stored(3), "de Luis");
  EXPECT_EQ(stored(2), text(2));
  EXPECT_EQ(one("SELECT Count(*) FROM Relleno"), "0");
  expectLuisGoesOn(2, text(2));
  expectNewDeskWorks(2);
}

// At moments as they come, while both save as fast as they can.
TEST_F(TwoDesksKilled, at_any_moment_leaves_the_last_text_that_was_saved_or_the_next) {
  keepDiary();
  int round = 0;
  for (const int wait : {0, 3, 7, 12, 20}) {
    ++round;
    const auto text = [&](int number) { return std::to_string(round) + '-' + std::to_string(number); };
    SCOPED_TRACE(wait);
    constexpr int saves = 40, seen = 5, never = 200;
    DeskProcess eva(file, begonaName);
    does(eva, "property " + std::to_string(property));
    open(eva, 1);
    open(luis, 2);
    for (int i = 0; i < never; ++i) {
      beginSave(eva, text(i));
      if (i < saves) beginSave(luis, text(i));
    }
    for (int i = 0; i < seen; ++i) expectSaved(eva);
    std::this_thread::sleep_for(std::chrono::milliseconds(wait));
    eva.kill();
    int answered = 2 * seen;
    for (; eva.answersWithin(0); ++answered) EXPECT_EQ(eva.answer(), "done");
    for (int i = 0; i < saves; ++i) expectSaved(luis);

    const auto entries = diary();
    const auto written = std::ranges::count(entries, key(1), &Entry::note);
    const auto saved = answered / 2;
    EXPECT_TRUE(written == saved || written == saved + 1) << written << " written, " << saved << " told";
    EXPECT_LT(written, never);
    EXPECT_EQ(stored(1), text(int(written) - 1));
    EXPECT_EQ(std::ranges::count(entries, key(2), &Entry::note), saves);
    does(luis, "close");
    expectWhole();
    execute("DELETE FROM Diario");
  }
}

}  // namespace
}  // namespace ovalia::host
