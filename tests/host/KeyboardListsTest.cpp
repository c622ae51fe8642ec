// A day at the keyboard: lists that are chosen from.
#include <gmock/gmock.h>

#include <QApplication>
#include <QTest>

#include "desktop/QtText.h"
#include "tests/host/AtTheDesk.h"

namespace ovalia::host {

using deskkit::enter;
using deskkit::escape;
using deskkit::letters;
using deskkit::press;
using deskkit::types;

class KeyboardLists : public AtTheDesk {
 protected:
  static void openList() { enter(Qt::ShiftModifier); }
  // Long enough for the next letters to begin another name.
  static void pause() { QTest::qWait(QApplication::keyboardInputInterval() + 50); }
  static void space() { press(Qt::Key_Space, Qt::NoModifier, QStringLiteral(" ")); }

  // Opens the list of that control and plays in it.
  void fromList(TextView control, const char* title, const Keys& doing) {
    tabTo(control);
    prepared.add([=] {
      EXPECT_EQ(QApplication::activeModalWidget()->windowTitle(), title);
      doing();
    });
    openList();
    EXPECT_EQ(QApplication::activeModalWidget(), deskkit::windowOf(card())) << "the list is still open";
    EXPECT_EQ(focused(), control);
  }
  static void close() {
    if (enabled(u"ID_DeshacerCambios")) letters("FD");
    escape();
  }
};

TEST_F(KeyboardLists, one_name_is_taken_by_its_letters_and_enter) {
  onCard(pane(u"grdVisita"), [&] {
    fromList(u"cboAcceso", "Acceso", [] { types("Com"), enter(); });
    EXPECT_EQ(shown(u"cboAcceso"), "Comerciales");
    fromList(u"txtCliente", "Clientes", [] { types("O'Do"), enter(); });
    EXPECT_EQ(shown(u"txtCliente"), "O'Donnell, Patricia");
    fromList(u"txtOtraAgencia", "Agencias", [] { types("Grupo"), enter(); });
    EXPECT_EQ(shown(u"txtOtraAgencia"), "Grupo Ensanche");
    close();
  });
  onCard(pane(u"grdNota"), [&] {
    fromList(u"cboUsuario", "Usuarios", [] { types("Ósc"), enter(); });
    EXPECT_EQ(shown(u"cboUsuario"), "Óscar Güell");
    close();
  });
}

TEST_F(KeyboardLists, several_names_are_ticked_with_the_space_bar) {
  ListPane& notes = pane(u"grdNota");
  database().Execute(u"UPDATE NotaIP SET Categorias = Null WHERE IdNota = " +
                     toText(notes.list().currentKey()));
  onCard(notes, [&] {
    fromList(u"txtCategorias", "Categorías", [] {
      types("Año");
      space();
      pause();
      types("Urg");
      space();
      enter();
    });
    EXPECT_EQ(shown(u"txtCategorias"), "Año nuevo, Urgente");
    letters("FG");
    escape();
  });
  EXPECT_EQ(stored(u"NotaIP", u"Categorias", notes.list().currentKey()).text(), u"Año nuevo, Urgente");
  onCard(pane(u"grdAnuncio"), [&] {
    fromList(u"txtDonde", "Medios de publicidad", [] {
      press(Qt::Key_End);
      space();
      enter();
    });
    EXPECT_THAT(shown(u"txtDonde").toStdString(), testing::HasSubstr("Revista D'Hogar"));
    close();
  });
}

TEST_F(KeyboardLists, the_search_box_of_a_list_is_reached_by_its_letter) {
  onCard(pane(u"grdVisita"), [&] {
    fromList(u"txtCliente", "Clientes", [] {
      letters("B");
      types("LAMOS\"");
      enter();
    });
    EXPECT_EQ(shown(u"txtCliente"), "Comunidad \"Los Álamos\"");
    close();
  });
}

TEST_F(KeyboardLists, a_list_that_is_left_by_escape_changes_nothing_and_leaves_the_card_open) {
  onCard(pane(u"grdVisita"), [&] {
    const QString before = shown(u"txtCliente");
    fromList(u"txtCliente", "Clientes", [] { types("O'Do"), escape(); });
    EXPECT_EQ(shown(u"txtCliente"), before);
    fromList(u"txtCliente", "Clientes", [] { letters("C"); });
    EXPECT_EQ(shown(u"txtCliente"), before);
    EXPECT_TRUE(card().Visible());
    close();
  });
}

TEST_F(KeyboardLists, a_button_opens_its_list_by_its_letter) {
  onCard(pane(u"grdNota"), [&] {
    tabTo(u"dtpFechaAlta");
    bool opened = false;
    prepared.add([&] {
      opened = true;
      escape();
    });
    letters("C");
    EXPECT_TRUE(deskkit::eventually([&] { return opened; }));
    EXPECT_EQ(focused(), u"txtCategorias");
    close();
  });
}

TEST_F(KeyboardLists, where_there_is_no_list_shift_with_enter_opens_none) {
  onCard(pane(u"grdVisita"), [&] {
    for (const TextView control : {u"cboUsuario", u"cboComercial", u"txtUbicacion"}) {
      tabTo(control);
      openList();
    }
    close();
  });
  onCard(pane(u"grdLlamada"), [&] {
    tabTo(u"cboUsuario");
    openList();
    close();
  });
}

}  // namespace ovalia::host
