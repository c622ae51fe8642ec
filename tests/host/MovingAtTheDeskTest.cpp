// Notes moved to another record from its card's page: real windows, files and trash.
#include <gmock/gmock.h>

#include <QApplication>
#include <QDir>
#include <QStatusBar>

#include "desktop/DesktopShell.h"
#include "desktop/LivelyFiles.h"
#include "desktop/QtText.h"
#include "tests/host/AtTheDesk.h"

namespace ovalia::host {

using deskkit::enter;
using deskkit::escape;
using deskkit::letters;
using deskkit::press;
using deskkit::types;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class MovingAtTheDesk : public AtTheDesk {
 protected:
  MovingAtTheDesk() {
    here.platform.files = &files;
    here.platform.shell = &shell;
    folder.putFolder("data");
    qputenv("XDG_DATA_HOME", (folder.path() / "data").c_str());
    for (std::int32_t* property : {&from, &to}) *property = addProperty();
    database().Execute(
        u"UPDATE Inmueble SET Referencia = 'V-DESTINO', Direccion = 'Calle Colón', "
        u"IdPropietario = 3 WHERE IdInm = " +
        toText(to));
  }
  void TearDown() override {
    here.platform.files = &here.files;
    here.platform.shell = &here.shell;
    AtTheDesk::TearDown();
  }

  // Notes of the first property, the first one on top of its list, each with so many documents.
  void makeNotes(int count, int documents) {
    int number = 0;
    for (int i = 0; i < count; ++i) {
      const std::int32_t note = addNote(from, u"Nota " + toText(i + 1), Date{45292.0 - i});
      for (int d = 0; d < documents; ++d, ++number) {
        const Text stored = toText(from) + u"F" + (number < 10 ? u"0" : u"") + toText(number) + u".txt";
        folder.putFile("agencia-documentos/" + folderOf(from) + toUtf8(stored),
                       "documento " + toUtf8(stored));
        database().Execute(u"INSERT INTO DocuNotaIP (Id, IdAgencia, IdNota, NombreOrg, NombreArch) VALUES (" +
                           toText(from) + u", 1, " + toText(note) + u", '" + stored + u"', '" + stored +
                           u"')");
      }
      database().Execute(u"UPDATE NotaIP SET NArchivos = " + toText(documents) + u" WHERE IdNota = " +
                         toText(note));
    }
  }
  static std::string folderOf(std::int32_t property) {
    std::string digits = std::to_string(property), path;
    digits.back() = '0';
    for (const char digit : digits) path += std::string("Doc") + digit + '/';
    return path;
  }
  QStringList filesOf(std::int32_t property) const {
    const auto all = QDir(QString::fromStdString(folder.path() / "agencia-documentos" / folderOf(property)))
                         .entryList(QDir::Files, QDir::Name);
    return all.filter(QString::number(property) + u'F');
  }

  std::int32_t notesOf(std::int32_t property) {
    return one(u"SELECT Count(*) FROM NotaIP WHERE IdInm = " + toText(property)).toLong();
  }
  std::vector<std::string> subjectsOf(std::int32_t property) {
    std::vector<std::string> subjects;
    const auto rows = database().OpenRecordset(
        u"SELECT Asunto FROM NotaIP WHERE IdInm = " + toText(property) + u" ORDER BY FechaAlta DESC",
        dao::dbOpenSnapshot);
    for (; !rows->isEOF(); rows->MoveNext()) subjects.push_back(toUtf8(rows->value(u"Asunto").text()));
    return subjects;
  }
  std::string status() {
    const ObjectRef bar = objectAt(desk.frmBase, {u"StatusBar1"});
    return toUtf8(getMember(getMember(bar, u"Panels", {std::int32_t(1)}).toObject(), u"Text").text());
  }

  // The list of records that comes up: its title is told, and the record is looked for and taken.
  void chooses(const QString& wanted) {
    prepared.add([this, wanted] {
      title = QApplication::activeModalWidget()->windowTitle().toStdString();
      letters("B");
      types(wanted);
      enter();
    });
  }
  static void move() { press(Qt::Key_M, Qt::ControlModifier); }

  desktop::LivelyFiles files;
  desktop::DesktopShell shell;
  std::int32_t from = 0, to = 0;
  std::string title;
};

TEST_F(MovingAtTheDesk, the_marked_notes_move_with_their_documents_to_the_record_that_is_chosen) {
  makeNotes(3, 2);
  ListPane& target = pane(u"grdNota", to);
  EXPECT_EQ(target.grid().rows().rowCount(), 0);
  ListPane& source = pane(u"grdNota", from);
  press(Qt::Key_Down, Qt::ShiftModifier);
  chooses("v-destino");
  move();
  EXPECT_EQ(title, "Mover las 2 notas marcadas a");
  EXPECT_THAT(subjectsOf(to), ElementsAre("Nota 1", "Nota 2"));
  EXPECT_THAT(subjectsOf(from), ElementsAre("Nota 3"));
  EXPECT_EQ(one(u"SELECT Min(IdCliente) FROM NotaIP WHERE IdInm = " + toText(to)).toLong(), 3);
  EXPECT_EQ(source.grid().rows().rowCount(), 1);
  EXPECT_EQ(target.list().count(), 2) << "and the other card's list knows";
  EXPECT_EQ(filesOf(from).size(), 2);
  EXPECT_EQ(filesOf(to).size(), 4);
  EXPECT_EQ(QDir(QString::fromStdString(folder.path() / "data/Trash/files")).entryList(QDir::Files).size(),
            4);
  EXPECT_EQ(status(), "2 notas movidas a V-DESTINO · Calle Colón");
}

TEST_F(MovingAtTheDesk, is_in_the_menu_and_nothing_moves_when_the_user_goes_back) {
  makeNotes(1, 1);
  pane(u"grdNota", from);
  prepared.add([this] {
    title = QApplication::activeModalWidget()->windowTitle().toStdString();
    escape();
  });
  letters("FM");
  EXPECT_EQ(title, "Mover la nota marcada a");
  EXPECT_EQ(notesOf(from), 1);
  EXPECT_EQ(filesOf(from).size(), 1);
}

TEST_F(MovingAtTheDesk, without_a_marked_note_the_user_is_told_and_asked_for_nothing) {
  pane(u"grdNota", from);
  expectBox(u"Por favor, marque las notas que quiere mover.", 16, u"", 1);
  move();
}

TEST_F(MovingAtTheDesk, is_not_for_cards_on_whose_records_no_notes_hang) {
  const Text why =
      u"Las notas se mueven desde la ficha de la que cuelgan: abra la de un inmueble, un expediente o un "
      u"proyecto, y marque en su lista las que quiera mover.";
  for (const bool card : {false, true}) {
    if (card) window->openCard(hostForm(u"FichaUsuario"), 1);
    expectBox(why, 48, u"Mover notas", 1);
    move();
  }
}

TEST_F(MovingAtTheDesk, a_hundred_notes_with_three_hundred_files_show_how_far_they_are) {
  constexpr int notes = 100, documents = 3;
  makeNotes(notes, documents);
  pane(u"grdNota", from);
  press(Qt::Key_A, Qt::ControlModifier);
  QStringList told;
  QTimer watch;
  watch.callOnTimeout([&] {
    const QString text = window->statusBar()->currentMessage();
    if (!text.isEmpty()) told << text;
  });
  watch.start(1);
  chooses("v-destino");
  move();
  watch.stop();
  EXPECT_EQ(title, "Mover las 100 notas marcadas a");
  ASSERT_FALSE(told.isEmpty());
  EXPECT_THAT(told.back().toStdString(), testing::MatchesRegex("Copiando documento [0-9]+ de 300"));
  EXPECT_EQ(notesOf(to), notes);
  EXPECT_EQ(notesOf(from), 0);
  EXPECT_EQ(filesOf(to).size(), notes * documents);
  EXPECT_THAT(filesOf(from), IsEmpty());
  EXPECT_EQ(one(u"SELECT Count(*) FROM DocuNotaIP WHERE Id = " + toText(to)).toLong(), notes * documents);
  EXPECT_THAT(status(), StartsWith("100 notas movidas a V-DESTINO"));
  EXPECT_TRUE(deskkit::eventually([&] { return window->statusBar()->currentMessage().isEmpty(); }));
}

}  // namespace ovalia::host
