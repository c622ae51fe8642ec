// A day at the keyboard: from card to card, back from changes, out of the card, and the questions on the way.
#include <QApplication>
#include <QPushButton>

#include "desktop/QtText.h"
#include "tests/host/AtTheDesk.h"

namespace ovalia::host {

using deskkit::choose;
using deskkit::enter;
using deskkit::escape;
using deskkit::letters;
using deskkit::press;
using deskkit::tab;
using deskkit::types;

namespace {

constexpr TextView changedNote = u"¿Desea guardar los cambios realizados en la nota?";
constexpr int yesNoCancelQuestion = 35, yesNoQuestion = 36;
constexpr int cancel = 2, yes = 6, no = 7;

void toNext() { press(Qt::Key_Period, Qt::ControlModifier); }
void toPrevious() { press(Qt::Key_Comma, Qt::ControlModifier); }

}  // namespace

class KeyboardMoves : public AtTheDesk {
 protected:
  // On the first of five notes, "uno" to "cinco", of a property of their own.
  void onNotes(const Keys& doing) {
    property = addProperty();
    keys.clear();
    for (const TextView subject : {u"cinco", u"cuatro", u"tres", u"dos", u"uno"})
      keys.insert(keys.begin(), addNote(property, subject));
    ListPane& notes = pane(u"grdNota", property);
    onCard(notes, [&] {
      doing();
      if (forms::Runtime::current().activeForm()) escape();
    });
    last = notes.list().currentKey();
  }
  void question(int answer, Keys by) {
    asked(Text(changedNote), yesNoCancelQuestion, u"Guardar", answer, std::move(by));
  }
  Text notesOf(std::size_t place) { return stored(u"NotaIP", u"Notas", keys.at(place)).text(); }
  static void expectOn(const char* subject) { EXPECT_EQ(shown(u"txtAsunto"), subject); }
  static bool closed() { return !forms::Runtime::current().activeForm(); }

  std::int32_t property = 0;
  std::vector<std::int32_t> keys;  // of the notes
  std::int32_t last = 0;           // the one that the card was left on
};

TEST_F(KeyboardMoves, ctrl_with_full_stop_and_comma_go_to_the_neighbours_and_beep_at_the_ends) {
  onNotes([&] {
    toPrevious();
    expectOn("uno");
    EXPECT_EQ(here.screen.beeps, 1);
    toNext();
    toNext();
    expectOn("tres");
    toPrevious();
    expectOn("dos");
    for (int i = 0; i < 4; ++i) toNext();
    expectOn("cinco");
    EXPECT_EQ(here.screen.beeps, 2);
  });
  EXPECT_EQ(last, keys[4]);
}

TEST_F(KeyboardMoves, the_menu_leads_to_the_first_and_the_last_and_the_neighbours) {
  onNotes([&] {
    choose('V', "Ultimo");
    expectOn("cinco");
    choose('V', "Anterior");
    expectOn("cuatro");
    choose('V', "Primero");
    expectOn("uno");
    choose('V', "Siguiente");
    expectOn("dos");
    EXPECT_EQ(focused(), u"txtAsunto");
  });
}

TEST_F(KeyboardMoves, a_comma_and_a_full_stop_alone_are_written) {
  onNotes([&] {
    write(u"txtNotas", "3.000, 4.000");
    EXPECT_EQ(shown(u"txtNotas"), "3.000, 4.000");
    question(no, [] { letters("N"); });
  });
}

TEST_F(KeyboardMoves, every_letter_and_every_other_key_of_the_question_brings_its_answer) {
  struct Row {
    Keys by;
    int answer;
  };
  const Row rows[] = {
      {[] { letters("S"); }, yes},    {[] { types("s"); }, yes},    {[] { enter(); }, yes},
      {[] { letters("N"); }, no},     {[] { types("n"); }, no},     {[] { tab(), enter(); }, no},
      {[] { letters("C"); }, cancel}, {[] { types("c"); }, cancel}, {[] { escape(); }, cancel}};
  for (const Row& row : rows) {
    SCOPED_TRACE(&row - rows);
    onNotes([&] {
      write(u"txtNotas", "escrito");
      question(row.answer, row.by);
      toNext();
      expectOn(row.answer == cancel ? "uno" : "dos");
      EXPECT_EQ(enabled(u"ID_Guardar"), row.answer == cancel);
      if (row.answer == cancel) letters("FD");
    });
    EXPECT_EQ(notesOf(0), row.answer == yes ? u"escrito" : u"");
  }
}

TEST_F(KeyboardMoves, escape_closes_a_clean_card_and_asks_about_a_changed_one) {
  onNotes([&] {
    write(u"txtNotas", "a");
    question(cancel, [] { letters("C"); });
    escape();
    ASSERT_FALSE(closed());
    EXPECT_EQ(shown(u"txtNotas"), "a");
    question(yes, [] { letters("S"); });
    escape();
    EXPECT_TRUE(closed());
  });
  EXPECT_EQ(notesOf(0), u"a");
  onNotes([&] {
    write(u"txtNotas", "b");
    question(no, [] { letters("N"); });
    escape();
    EXPECT_TRUE(closed());
  });
  EXPECT_EQ(notesOf(0), u"");
  onNotes([&] {
    escape();
    EXPECT_TRUE(closed());
  });
}

TEST_F(KeyboardMoves, salir_leaves_a_card_as_escape_does) {
  onNotes([&] {
    write(u"txtNotas", "a");
    question(cancel, [] { letters("C"); });
    letters("AS");
    EXPECT_FALSE(closed());
    question(yes, [] { letters("S"); });
    letters("AS");
    EXPECT_TRUE(closed());
  });
  EXPECT_EQ(notesOf(0), u"a");
}

TEST_F(KeyboardMoves, changes_are_undone_and_nothing_is_asked_any_more) {
  onNotes([&] {
    write(u"txtAsunto", "otra cosa");
    write(u"txtNotas", "otra más");
    EXPECT_TRUE(enabled(u"ID_DeshacerCambios"));
    letters("FD");
    expectOn("uno");
    EXPECT_EQ(shown(u"txtNotas"), "");
    EXPECT_FALSE(enabled(u"ID_DeshacerCambios"));
    toNext();
    expectOn("dos");
  });
}

TEST_F(KeyboardMoves, what_is_half_typed_counts_before_a_key_leads_away) {
  onNotes([&] {
    write(u"dtpFechaAlta", "5/3");
    question(yes, [] { letters("S"); });
    toNext();
    expectOn("dos");
  });
  EXPECT_EQ(stored(u"NotaIP", u"FechaAlta", keys[0]).toDate(), *dateFrom({2026, 3, 5}));
}

TEST_F(KeyboardMoves, a_card_made_from_the_agency_takes_no_keys_until_it_is_left_and_come_back_to) {
  property = addProperty();
  addNote(property, u"uno");
  ListPane& notes = pane(u"grdNota", property);
  onCard(
      notes,
      [&] {
        types("Recién hecha");
        toNext();
        escape();
        EXPECT_FALSE(closed());
        expectOn("Recién hecha");
        letters("FG");
        choose('V', "Ultimo");
        expectOn("uno");
        toPrevious();
        expectOn("Recién hecha");
        escape();
        EXPECT_TRUE(closed());
      },
      [&] {
        for (QPushButton* button : notes.findChildren<QPushButton*>())
          if (button->text() == "Añadi&r") button->setFocus();
        press(Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
      });
}

TEST_F(KeyboardMoves, a_number_out_of_range_is_told_and_holds_the_user_there) {
  onCard(pane(u"grdAnuncio"), [&] {
    write(u"txtNDias", "300");
    asked(u"Introduzca un número entre 0 y 255.", 48, u"Error", 1, [] { enter(); });
    tab();
    EXPECT_EQ(focused(), u"txtNDias");
    asked(u"Introduzca un número entre 0 y 255.", 48, u"Error", 1, [] { letters("A"); });
    toNext();
    EXPECT_EQ(focused(), u"txtNDias");
    write(u"txtNDias", "30");
    tab();
    EXPECT_EQ(focused(), u"dtpFechaEnvio");
    letters("FD");
    escape();
  });
}

TEST_F(KeyboardMoves, an_unknown_access_is_made_on_a_yes) {
  onNotes([&] {
    write(u"cboAcceso", "Señoría");
    asked(u"El acceso «Señoría» no existe. ¿Desea crearlo?", yesNoQuestion, u"Acceso", yes,
          [] { letters("S"); });
    tab();
    EXPECT_EQ(focused(), u"cboAcceso");
    tab();
    EXPECT_EQ(focused(), u"cmdCategorias");
    letters("FG");
  });
  EXPECT_EQ(one(u"SELECT Nombre FROM TipoAccNota WHERE IdTipoAccNota = " +
                stored(u"NotaIP", u"IdTipoAccNota", keys[0]).text())
                .text(),
            u"Señoría");
}

// All of it, one thing after the other.
TEST_F(KeyboardMoves, a_morning) {
  onNotes([&] {
    write(u"txtAsunto", "Llaves del ático");
    write(u"txtNotas", "Las tiene el portero");
    letters("FG");
    toNext();
    write(u"txtAsunto", "Señal dos");
    question(yes, [] { letters("S"); });
    toNext();
    expectOn("tres");
    letters("F");
    deskkit::meanwhile([&] {
      types("señal");
      enter();
      expectOn("Señal dos");
      press(Qt::Key_F6);
      write(u"txtNotas", "3.000 €");
      letters("FG");
      press(Qt::Key_F6);
      escape();
    });
    letters("U");
    expectOn("Señal dos");
    letters("FN");
    write(u"txtAsunto", "Llamar a Íñigo");
    letters("FG");
    letters("AS");
    EXPECT_TRUE(closed());
  });
  EXPECT_EQ(notesOf(0), u"Las tiene el portero");
  EXPECT_EQ(stored(u"NotaIP", u"Asunto", keys[1]).text(), u"Señal dos");
  EXPECT_EQ(notesOf(1), u"3.000 €");
  EXPECT_EQ(stored(u"NotaIP", u"Asunto", last).text(), u"Llamar a Íñigo");
}

}  // namespace ovalia::host
