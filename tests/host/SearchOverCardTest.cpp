// The search dialog over a card of the agency, with both in use.
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <algorithm>

#include "desktop/QtText.h"
#include "desktop/SearchDialog.h"
#include "tests/host/AtTheDesk.h"

namespace ovalia::host {

using deskkit::enter;
using deskkit::escape;
using deskkit::letters;
using deskkit::meanwhile;
using deskkit::press;
using deskkit::types;

namespace {

constexpr TextView changedNote = u"¿Desea guardar los cambios realizados en la nota?";
constexpr int yesNoCancelQuestion = 35, yesNoQuestion = 36;
constexpr int cancel = 2, yes = 6, no = 7;

void turn() { press(Qt::Key_F6); }
void goOn() { press(Qt::Key_F3); }

}  // namespace

class SearchOverCard : public AtTheDesk {
 protected:
  // Opens the first of the notes and the dialog over it, and plays while both are up. The card is closed
  // afterwards where the keys have left it open.
  void searching(const std::vector<Text>& subjects, const Keys& keys) {
    property = addProperty();
    for (auto it = subjects.rbegin(); it != subjects.rend(); ++it)
      this->keys.insert(this->keys.begin(), addNote(property, *it));
    notes = &pane(u"grdNota", property);
    onCard(*notes, [&] {
      letters("F");
      meanwhile([&] {
        dialog = dynamic_cast<desktop::SearchDialog*>(QApplication::activeWindow());
        ASSERT_NE(dialog, nullptr);
        keys();
        if (dialog->isVisible()) dialog->reject();
      });
      letters("U");
      EXPECT_FALSE(dialog);
      if (forms::Runtime::current().activeForm()) escape();
    });
  }
  void find(const QString& wanted) {
    types(wanted);
    enter();
  }
  std::string told() { return dialog->findChild<QLabel*>("mensaje")->text().toStdString(); }
  bool warned() { return dialog->findChild<QLabel*>("aviso")->isVisible(); }
  bool inDialog() { return QApplication::activeWindow() == dialog; }

  // Turns to the card and adds to its text.
  void write(const QString& text) {
    turn();
    tabTo(u"txtNotas");
    press(Qt::Key_End, Qt::ControlModifier);
    types(text);
  }
  Text notesOf(std::size_t place) { return stored(u"NotaIP", u"Notas", keys.at(place)).text(); }

  std::int32_t property = 0;
  std::vector<std::int32_t> keys;  // of the notes, as they are listed
  ListPane* notes = nullptr;
  QPointer<desktop::SearchDialog> dialog;
};

TEST_F(SearchOverCard, walks_the_card_through_its_hits_and_leaves_it_on_the_last) {
  searching({u"Llaves", u"Camión", u"Agua", u"El camion", u"Gas"}, [&] {
    find("camion");
    EXPECT_EQ(shown(u"txtAsunto"), "Camión");
    enter();
    EXPECT_EQ(shown(u"txtAsunto"), "El camion");
    EXPECT_EQ(told(), "La ficha muestra una coincidencia.");
    enter();
    EXPECT_EQ(shown(u"txtAsunto"), "El camion");
    EXPECT_EQ(told(), "No hay más hacia delante: la ficha es la misma.");
    escape();
    EXPECT_TRUE(card().Visible());
  });
  EXPECT_EQ(notes->list().currentKey(), keys[3]);
}

TEST_F(SearchOverCard, a_hit_is_worked_on_and_saved_before_the_next_one) {
  searching({u"Llaves 1", u"Agua", u"Llaves 2"}, [&] {
    find("llaves");
    write("Señal de 3.000 €\nvista");
    EXPECT_TRUE(enabled(u"ID_Guardar"));
    letters("FG");
    EXPECT_FALSE(enabled(u"ID_Guardar"));
    turn();
    goOn();
    EXPECT_EQ(shown(u"txtAsunto"), "Llaves 2");
    EXPECT_EQ(shown(u"txtNotas"), "");
    write("otra");
    letters("FG");
  });
  EXPECT_EQ(notesOf(0), u"Señal de 3.000 €\r\nvista");
  EXPECT_EQ(notesOf(2), u"otra");
}

TEST_F(SearchOverCard, the_card_moves_by_itself_and_the_search_goes_on_from_there) {
  searching({u"uno x", u"dos", u"tres x", u"cuatro x"}, [&] {
    find("x");
    turn();
    press(Qt::Key_Period, Qt::ControlModifier);
    EXPECT_EQ(shown(u"txtAsunto"), "dos");
    press(Qt::Key_Period, Qt::ControlModifier);
    EXPECT_EQ(shown(u"txtAsunto"), "tres x");
    turn();
    goOn();
    EXPECT_EQ(shown(u"txtAsunto"), "cuatro x");
    turn();
    press(Qt::Key_Comma, Qt::ControlModifier);
    turn();
    press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(shown(u"txtAsunto"), "uno x");
  });
}

TEST_F(SearchOverCard, a_move_of_the_card_asks_about_changes_and_the_dialog_stays_whatever_the_answer) {
  searching({u"uno", u"dos", u"tres", u"cuatro"}, [&] {
    write("a");
    asked(Text(changedNote), yesNoCancelQuestion, u"Guardar", cancel, [&] {
      EXPECT_FALSE(inDialog());
      letters("C");
    });
    press(Qt::Key_Period, Qt::ControlModifier);
    EXPECT_EQ(shown(u"txtAsunto"), "uno");
    asked(Text(changedNote), yesNoCancelQuestion, u"Guardar", no, [] { letters("N"); });
    press(Qt::Key_Period, Qt::ControlModifier);
    EXPECT_EQ(shown(u"txtAsunto"), "dos");
    types("b");
    asked(Text(changedNote), yesNoCancelQuestion, u"Guardar", yes, [] { letters("S"); });
    press(Qt::Key_Period, Qt::ControlModifier);
    EXPECT_EQ(shown(u"txtAsunto"), "tres");
    EXPECT_TRUE(dialog->isVisible());
  });
  EXPECT_EQ(notesOf(0), u"");
  EXPECT_EQ(notesOf(1), u"b");
}

TEST_F(SearchOverCard, a_step_takes_changes_with_it_without_asking_and_the_dialog_has_said_so) {
  searching({u"Llaves 1", u"Llaves 2"}, [&] {
    find("llaves");
    EXPECT_FALSE(warned());
    write("se pierde");
    EXPECT_TRUE(warned());
    turn();
    goOn();
    EXPECT_EQ(shown(u"txtAsunto"), "Llaves 2");
    EXPECT_FALSE(warned());
    EXPECT_FALSE(enabled(u"ID_Guardar"));
  });
  EXPECT_EQ(notesOf(0), u"");
  EXPECT_EQ(notesOf(1), u"");
}

TEST_F(SearchOverCard, changes_are_undone_under_the_dialog) {
  searching({u"uno", u"dos"}, [&] {
    write("a");
    letters("FD");
    EXPECT_EQ(shown(u"txtNotas"), "");
    EXPECT_FALSE(warned());
    EXPECT_TRUE(dialog->isVisible());
  });
}

TEST_F(SearchOverCard, a_new_note_is_written_under_the_dialog_and_found_by_it) {
  searching({u"uno", u"dos"}, [&] {
    turn();
    letters("FN");
    EXPECT_TRUE(warned());
    types("Señal recibida");
    letters("FG");
    EXPECT_FALSE(warned());
    press(Qt::Key_Comma, Qt::ControlModifier);
    turn();
    find("senal");
    EXPECT_EQ(shown(u"txtAsunto"), "Señal recibida");
  });
  EXPECT_EQ(notes->list().count(), 3);
}

TEST_F(SearchOverCard, deleting_the_only_note_closes_card_and_search_and_the_next_search_starts_clear) {
  searching({u"Llaves"}, [&] {
    find("llaves");
    EXPECT_EQ(told(), "La ficha muestra una coincidencia.");
    turn();
    asked(u"¿Desea borrar la ficha activa?", yesNoQuestion, u"Borrar", yes, [] { letters("S"); });
    letters("FB");
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_FALSE(card().Visible());
  });
  EXPECT_EQ(notes->list().count(), 0);
  EXPECT_EQ(notes->grid().model()->rowCount(), 0);
  EXPECT_EQ(one(u"SELECT COUNT(*) FROM NotaIP WHERE IdNota = " + toText(keys[0])).toLong(), 0);
  EXPECT_EQ(QApplication::activeWindow(), window.get());

  keys.clear();
  searching({u"Agua", u"Llaves"}, [&] {
    EXPECT_EQ(told(), "");
    EXPECT_FALSE(warned());
    EXPECT_EQ(dialog->findChild<QLineEdit*>("texto")->text(), "llaves") << "what was looked for last";
    enter();
    EXPECT_EQ(shown(u"txtAsunto"), "Llaves");
  });
}

TEST_F(SearchOverCard, a_new_note_is_undone_under_the_dialog_and_the_search_goes_on_from_its_neighbour) {
  searching({u"uno x", u"dos", u"tres x"}, [&] {
    turn();
    press(Qt::Key_Period, Qt::ControlModifier);
    letters("FN");
    EXPECT_EQ(notes->list().count(), 4);
    EXPECT_TRUE(warned());
    types("Pensándolo bien, no");
    letters("FD");
    EXPECT_EQ(notes->list().count(), 3);
    EXPECT_EQ(shown(u"txtAsunto"), "uno x");
    EXPECT_FALSE(enabled(u"ID_Guardar"));
    EXPECT_FALSE(warned());
    EXPECT_TRUE(dialog->isVisible());
    turn();
    find("x");
    EXPECT_EQ(told(), "La ficha muestra una coincidencia.");
    enter();
    EXPECT_EQ(shown(u"txtAsunto"), "tres x");
  });
  EXPECT_EQ(notes->list().currentKey(), keys[2]);
}

TEST_F(SearchOverCard, closing_the_card_closes_the_search_with_it) {
  const Keys ways[] = {[] { turn(), escape(); }, [] { turn(), letters("AS"); },
                       [] { deskkit::windowOf(card())->close(); }};
  for (const Keys& close : ways) {
    keys.clear();
    searching({u"uno", u"dos"}, [&] {
      find("dos");
      close();
      EXPECT_FALSE(dialog->isVisible());
    });
    EXPECT_EQ(notes->list().currentKey(), keys[1]);
  }
}

TEST_F(SearchOverCard, a_card_that_its_user_keeps_open_keeps_its_search) {
  searching({u"uno", u"dos"}, [&] {
    write("a");
    asked(Text(changedNote), yesNoCancelQuestion, u"Guardar", cancel, [] { escape(); });
    escape();
    EXPECT_TRUE(card().Visible());
    EXPECT_TRUE(dialog->isVisible());
    asked(Text(changedNote), yesNoCancelQuestion, u"Guardar", yes, [] { letters("S"); });
    escape();
    EXPECT_FALSE(dialog->isVisible());
  });
  EXPECT_EQ(notesOf(0), u"a");
}

TEST_F(SearchOverCard, the_search_command_on_its_card_turns_to_the_dialog_that_is_up) {
  searching({u"uno", u"dos"}, [&] {
    find("dos");
    turn();
    letters("FU");
    EXPECT_TRUE(inDialog());
    EXPECT_EQ(deskkit::windowOf(card())->findChildren<QDialog*>("buscador").size(), 1);
    EXPECT_EQ(dialog->findChild<QLineEdit*>("texto")->text(), "dos");
    escape();
    EXPECT_TRUE(card().Visible());
    EXPECT_FALSE(dialog->isVisible());
  });
}

TEST_F(SearchOverCard, a_box_over_the_card_or_the_dialog_leaves_both_in_use) {
  searching({u"uno", u"dos", u"tres"}, [&] {
    write("a");
    database().Execute(u"UPDATE NotaIP SET FechaActualizacion = #01/02/2026# WHERE IdNota = " +
                       toText(keys[0]));
    asked(join(u"La ficha acaba de ser modificada por otro usuario.", CRLF,
               u"Sus cambios son cancelados y se visualiza la última modificación."),
          48, u"Guardar", 1, [] {
            EXPECT_EQ(QApplication::activeModalWidget()->parentWidget(), deskkit::windowOf(card()));
            letters("A");
          });
    letters("FG");
    turn();
    EXPECT_TRUE(inDialog());
    database().Execute(u"DELETE * FROM NotaIP WHERE IdNota = " + toText(keys[0]));
    expectBox(join(u"La ficha acaba de ser borrada por otro usuario y", CRLF, u"no se volverá a visualizar."),
              4144, u"Error", 1);
    expectReport(u"BuscarElemento de frmNota", failure::noSuchMember);
    for (const char* answer : {"A", "N"})
      prepared.add([=, this] {
        EXPECT_EQ(QApplication::activeModalWidget()->parentWidget(), dialog);
        letters(answer);
      });
    find("dos");
    EXPECT_TRUE(inDialog());
  });
}

TEST_F(SearchOverCard, the_agency_below_stays_blocked) {
  searching({u"uno", u"dos"}, [&] {
    GridView& grid = notes->grid();
    const QModelIndex second = grid.model()->index(1, 0);
    const QPoint at = grid.viewport()->mapTo(window.get(), grid.visualRect(second).center());
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, at);
    QTest::sendKeyEvent(QTest::Click, window->windowHandle(), Qt::Key_Down, QString(), Qt::NoModifier);
    EXPECT_EQ(grid.currentIndex().row(), 0);
    EXPECT_EQ(QApplication::activeModalWidget(), deskkit::windowOf(card()));
  });
  QTest::sendKeyEvent(QTest::Click, window->windowHandle(), Qt::Key_Down, QString(), Qt::NoModifier);
  EXPECT_EQ(notes->grid().currentIndex().row(), 1);
}

}  // namespace ovalia::host
