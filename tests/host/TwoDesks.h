#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/host/DeskProcess.h"
#include "tests/host/HostTest.h"

namespace ovalia::host {

// Boxes of which several tests speak.
inline const std::string writtenByAnother =
    "box Guardar: La ficha acaba de ser modificada por otro usuario.⏎"
    "Sus cambios son cancelados y se visualiza la última modificación.";
inline const std::string rowGone =
    "box Error: La ficha acaba de ser borrada por otro usuario y⏎no se volverá a visualizar.";
inline const std::string changedNote = "box Guardar: ¿Desea guardar los cambios realizados en la nota?";

// Two users, each in a process of their own, on one new agency. Both work on the notes of a property that has
// four of them, "Primera", "Segunda", "Tercera" and "Cuarta" as they are listed, with the texts "Texto 1" to
// "Texto 4". What a desk logs has to be announced, as everything that a window or a box says is an answer.
class TwoDesks : public kit::LogicTest {
 protected:
  TwoDesks();
  void TearDown() override;

  int key(int place) const { return keys.at(static_cast<std::size_t>(place) - 1); }
  static std::string text(int place) { return "Texto " + std::to_string(place); }

  // The title of the card of the note that is at that place of so many.
  std::string title(int place, int of = 4) const;

  // The property gets its four notes anew; the desks, which must be on no card, read their lists again.
  void makeNotes();

  // Has a desk do something that no window answers.
  static void does(DeskProcess& desk, const std::string& command, const char* file = __builtin_FILE(),
                   int line = __builtin_LINE());

  // Has a desk open the card of the note at that place of the list.
  void open(DeskProcess& desk, int place);

  // What the file holds: the one value of a statement, a column of a note, the number of the property's
  // notes.
  std::string one(const std::string& sql);
  std::string stored(int place, const std::string& column = "Notas");
  int listed();
  void expectWhole();

  // Runs a statement as it stands, past the model, for what no model offers.
  void execute(const std::string& sql);

  // The answer is the report's box, which is put away; a desk logs the failure then.
  void expectReported(DeskProcess& desk, const std::string& answer, const std::string& routine, int number);
  void expectLogged(const std::string& routine, int number);

  // Stamps are told apart by seconds.
  static void waitForNextSecond();

  kit::TemporaryFolder folder;
  std::filesystem::path file = sampleFile(folder.path(), 2500);
  dao::DatabaseRef witness;
  std::vector<int> keys;
  int property = 0;
  const std::string begonaName = "Begoña Núñez", luisName = "José Luis Peña";
  DeskProcess begona{file, begonaName}, luis{file, luisName};

 private:
  std::vector<std::string> logged_;
};

}  // namespace ovalia::host
