// A day at the keyboard: cards of each kind opened, walked through, filled and saved without a mouse.
#include <QApplication>
#include <algorithm>

#include "desktop/QtText.h"
#include "tests/host/AtTheDesk.h"

namespace ovalia::host {

using deskkit::enter;
using deskkit::escape;
using deskkit::letters;
using deskkit::press;
using deskkit::types;

class KeyboardFill : public AtTheDesk {
 protected:
  static void tick(TextView control) {
    tabTo(control);
    press(Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
  }
  // Opens the list, goes to the entry by its letters and takes it.
  static void pick(TextView control, const QString& entry) {
    tabTo(control);
    press(Qt::Key_Down, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    types(entry);
    enter();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(shown(control), entry);
  }
  static void saves() {
    EXPECT_TRUE(enabled(u"ID_Guardar"));
    letters("FG");
    EXPECT_FALSE(enabled(u"ID_Guardar"));
  }
  static void closes() {
    escape();
    EXPECT_EQ(forms::Runtime::current().activeForm(), nullptr);
  }

  Text text(TextView table, TextView column, std::int32_t key) { return stored(table, column, key).text(); }
  Date moment(TextView table, TextView column, std::int32_t key) {
    return stored(table, column, key).toDate();
  }
  // The name that a number of a row stands for.
  Text named(TextView table, TextView column, std::int32_t key, TextView names, TextView name = u"Nombre") {
    return one(u"SELECT " + Text(name) + u" FROM " + Text(names) + u" WHERE Id" + Text(names) + u" = " +
               text(table, column, key))
        .text();
  }

  // The controls that Tab reaches from the first one on, until it comes round.
  static std::vector<std::string> tabOrder(bool forward) {
    std::vector<std::string> order;
    const Text first = focused();
    do {
      order.push_back(toUtf8(focused()));
      deskkit::tab(forward);
    } while (focused() != first && order.size() < 40);
    return order;
  }
};

TEST_F(KeyboardFill, the_agency_is_left_for_a_card_of_each_kind_and_come_back_to) {
  struct Row {
    const char* page;
    TextView grid, form;
  };
  pane(u"grdHistorico");
  for (const Row& row : {Row{"N", u"grdNota", u"frmNota"}, Row{"V", u"grdVisita", u"frmVisita"},
                         Row{"A", u"grdAnuncio", u"frmAnuncio"}, Row{"L", u"grdLlamada", u"frmLlamada"}}) {
    letters(row.page);
    ListPane& shownPane = *dynamic_cast<ListPane*>(QApplication::focusWidget()->parentWidget());
    EXPECT_EQ(shownPane.list().design().grid, row.grid);
    onCard(shownPane, [&] {
      EXPECT_EQ(card().Name(), row.form);
      closes();
    });
  }
}

TEST_F(KeyboardFill, tab_goes_through_the_whole_card_and_out_of_the_text_and_back) {
  struct Row {
    TextView grid;
    // A visit's start is held against its creation, a day against the text of a moment: to pass is to change.
    bool changed;
    std::vector<std::string> order;
  };
  const Row rows[] = {
      {u"grdNota",
       false,
       {"txtAsunto", "cboAcceso", "cmdCategorias", "txtCategorias", "dtpFechaAlta", "dtpHoraAlta",
        "cboUsuario", "chkAvisoNota", "dtpFechaAviso", "cboUsuarioAviso", "txtNotas", "LsvDocu"}},
      {u"grdVisita", true, {"txtAsunto",      "cboAcceso",      "cmdCategorias", "txtCategorias",
                            "dtpFechaAlta",   "dtpHoraAlta",    "dtpFechaFin",   "dtpHoraFin",
                            "cboUsuario",     "txtUbicacion",   "txtCliente",    "cboComercial",
                            "txtTfnoCliente", "txtOtraAgencia", "chkAviso",      "cboTiempoAviso",
                            "chkConfirmada",  "chkRealizada",   "chkAnulada",    "cmdCreaDemanda",
                            "txtNotas",       "LsvDocu"}},
      {u"grdAnuncio",
       true,
       {"txtDonde", "cmdMedioPubli", "cboAcceso", "cmdCategorias", "txtCategorias", "dtpFechaAlta",
        "dtpHoraAlta", "cboUsuario", "dtpFechaInicio", "txtNDias", "dtpFechaEnvio", "dtpHoraEnvio",
        "chkEnviar", "txtNotas", "LsvDocu"}},
      {u"grdLlamada", false, {"txtNotas", "LsvDocu", "dtpFechaAlta", "dtpHoraAlta", "cboUsuario"}}};
  const auto settle = [&](TextView table, TextView change) {
    database().Execute(u"UPDATE " + Text(table) + u" SET " + Text(change));
  };
  settle(u"NotaIP", u"Aviso = True, FechaAviso = #01/02/2026#");
  settle(u"VisitaIP", u"Aviso = True");
  settle(u"AnuncioIP", u"FechaEnvio = #01/02/2026#");
  for (const Row& row : rows) {
    onCard(pane(row.grid), [&] {
      std::vector<std::string> expected = row.order;
      if (!card().control(u"LsvDocu")->Visible()) std::erase(expected, "LsvDocu");
      EXPECT_EQ(tabOrder(true), expected);
      std::reverse(expected.begin() + 1, expected.end());
      EXPECT_EQ(tabOrder(false), expected);
      EXPECT_EQ(enabled(u"ID_Guardar"), row.changed);
      if (row.changed) letters("FD");
      closes();
    });
  }
}

TEST_F(KeyboardFill, a_note_is_filled_and_saved) {
  ListPane& notes = pane(u"grdNota");
  const std::int32_t key = notes.list().currentKey();
  database().Execute(u"UPDATE NotaIP SET Aviso = False WHERE IdNota = " + toText(key));
  onCard(notes, [&] {
    write(u"txtAsunto", "Señal | 3.000 € del «ático» L'Eixample");
    write(u"cboAcceso", "Sólo dirección");
    write(u"txtCategorias", "Año nuevo, Llaves");
    write(u"dtpFechaAlta", "05/03/25");
    write(u"dtpHoraAlta", "09:15:30");
    pick(u"cboUsuario", "Óscar Güell");
    tick(u"chkAvisoNota");
    write(u"dtpFechaAviso", "24/12/26");
    pick(u"cboUsuarioAviso", "Nuria Castaño");
    write(u"txtNotas", "Línea uno\nlínea dos: ¿sí? ¡no!");
    saves();
    closes();
  });
  EXPECT_EQ(text(u"NotaIP", u"Asunto", key), u"Señal | 3.000 € del «ático» L'Eixample");
  EXPECT_EQ(named(u"NotaIP", u"IdTipoAccNota", key, u"TipoAccNota"), u"Sólo dirección");
  EXPECT_EQ(text(u"NotaIP", u"Categorias", key), u"Año nuevo, Llaves");
  EXPECT_EQ(moment(u"NotaIP", u"FechaAlta", key), *dateFrom({2025, 3, 5, 9, 15, 30}));
  EXPECT_EQ(named(u"NotaIP", u"IdUsuario", key, u"Usuario"), u"Óscar Güell");
  EXPECT_TRUE(stored(u"NotaIP", u"Aviso", key).toBoolean());
  EXPECT_EQ(moment(u"NotaIP", u"FechaAviso", key), *dateFrom({2026, 12, 24}));
  EXPECT_EQ(named(u"NotaIP", u"IdUsuarioAviso", key, u"Usuario"), u"Nuria Castaño");
  EXPECT_EQ(text(u"NotaIP", u"Notas", key), u"Línea uno\r\nlínea dos: ¿sí? ¡no!");
}

TEST_F(KeyboardFill, a_visit_is_filled_and_saved) {
  ListPane& visits = pane(u"grdVisita");
  const std::int32_t key = visits.list().currentKey();
  database().Execute(
      u"UPDATE VisitaIP SET Aviso = False, Confirmada = False, Realizada = True, Anulada = False WHERE "
      u"IdVisita = " +
      toText(key));
  onCard(visits, [&] {
    write(u"txtAsunto", "Segunda visita");
    write(u"dtpFechaAlta", "06/04/26");
    write(u"dtpHoraAlta", "17:30:00");
    write(u"dtpFechaFin", "06/04/26");
    write(u"dtpHoraFin", "18:15:00");
    write(u"txtUbicacion", "Café L'Art");
    write(u"txtCliente", "O'Donnell, Patricia");
    write(u"cboComercial", "Begoña Núñez");
    write(u"txtOtraAgencia", "Levante | Hogar");
    tick(u"chkAviso");
    pick(u"cboTiempoAviso", "2 horas");
    tick(u"chkConfirmada");
    tick(u"chkRealizada");
    EXPECT_TRUE(ticked(u"chkConfirmada"));
    EXPECT_FALSE(ticked(u"chkRealizada"));
    write(u"txtNotas", "Traerá a su señora");
    saves();
    closes();
  });
  EXPECT_EQ(text(u"VisitaIP", u"Asunto", key), u"Segunda visita");
  EXPECT_EQ(moment(u"VisitaIP", u"FechaComienzo", key), *dateFrom({2026, 4, 6, 17, 30}));
  EXPECT_EQ(moment(u"VisitaIP", u"FechaFin", key), *dateFrom({2026, 4, 6, 18, 15}));
  EXPECT_EQ(text(u"VisitaIP", u"Donde", key), u"Café L'Art");
  EXPECT_EQ(named(u"VisitaIP", u"IdCliente", key, u"Cliente", u"Alias"), u"O'Donnell, Patricia");
  EXPECT_EQ(named(u"VisitaIP", u"IdComercial", key, u"Usuario"), u"Begoña Núñez");
  EXPECT_EQ(named(u"VisitaIP", u"IdOtraAgencia", key, u"Agencia", u"Alias"), u"Levante | Hogar");
  EXPECT_TRUE(stored(u"VisitaIP", u"Aviso", key).toBoolean());
  EXPECT_EQ(moment(u"VisitaIP", u"TiempoAviso", key), *dateFrom({1899, 12, 30, 2}));
  EXPECT_TRUE(stored(u"VisitaIP", u"Confirmada", key).toBoolean());
  EXPECT_FALSE(stored(u"VisitaIP", u"Realizada", key).toBoolean());
  EXPECT_FALSE(stored(u"VisitaIP", u"Anulada", key).toBoolean());
  EXPECT_EQ(text(u"VisitaIP", u"Notas", key), u"Traerá a su señora");
}

TEST_F(KeyboardFill, an_advertisement_is_filled_and_saved) {
  ListPane& advertisements = pane(u"grdAnuncio");
  const std::int32_t key = advertisements.list().currentKey();
  database().Execute(u"UPDATE AnuncioIP SET FechaEnvio = Null, Enviar = False WHERE IdAnuncio = " +
                     toText(key));
  onCard(advertisements, [&] {
    write(u"txtDonde", "Las Provincias");
    write(u"dtpFechaInicio", "1/5/26");
    write(u"txtNDias", "15");
    EXPECT_FALSE(card().control(u"dtpHoraEnvio")->Enabled());
    tick(u"dtpFechaEnvio");
    write(u"dtpFechaEnvio", "30/04/26");
    write(u"dtpHoraEnvio", "08:05:00");
    tick(u"chkEnviar");
    write(u"txtNotas", "A dos columnas");
    saves();
    closes();
  });
  EXPECT_EQ(text(u"AnuncioIP", u"Donde", key), u"Las Provincias");
  EXPECT_EQ(moment(u"AnuncioIP", u"FechaInicio", key), *dateFrom({2026, 5, 1}));
  EXPECT_EQ(text(u"AnuncioIP", u"NDias", key), u"15");
  EXPECT_EQ(moment(u"AnuncioIP", u"FechaEnvio", key), *dateFrom({2026, 4, 30, 8, 5}));
  EXPECT_TRUE(stored(u"AnuncioIP", u"Enviar", key).toBoolean());
  EXPECT_EQ(text(u"AnuncioIP", u"Notas", key), u"A dos columnas");
}

TEST_F(KeyboardFill, a_call_is_filled_and_saved) {
  ListPane& calls = pane(u"grdLlamada");
  const std::int32_t key = calls.list().currentKey();
  onCard(calls, [&] {
    EXPECT_EQ(focused(), u"txtNotas");
    write(u"txtNotas", "Preguntó por el ático");
    write(u"dtpFechaAlta", "28/02/26");
    write(u"dtpHoraAlta", "23:59:59");
    pick(u"cboUsuario", "Begoña Núñez");
    saves();
    closes();
  });
  EXPECT_EQ(text(u"LlamadaAIP", u"Notas", key), u"Preguntó por el ático");
  EXPECT_EQ(moment(u"LlamadaAIP", u"FechaAlta", key), *dateFrom({2026, 2, 28, 23, 59, 59}));
  EXPECT_EQ(named(u"LlamadaAIP", u"IdUsuario", key, u"Usuario"), u"Begoña Núñez");
}

TEST_F(KeyboardFill, a_day_is_chosen_by_its_keys_and_from_the_calendar) {
  ListPane& notes = pane(u"grdNota");
  onCard(notes, [&] {
    tabTo(u"dtpFechaAlta");
    types("h");
    EXPECT_EQ(shown(u"dtpFechaAlta"), "09/03/26");
    types("++");
    press(Qt::Key_Up);
    EXPECT_EQ(shown(u"dtpFechaAlta"), "12/03/26");
    types("-");
    press(Qt::Key_PageUp);
    EXPECT_EQ(shown(u"dtpFechaAlta"), "11/04/26");
    press(Qt::Key_Down, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    press(Qt::Key_Right);
    press(Qt::Key_Down);
    enter();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(shown(u"dtpFechaAlta"), "19/04/26");
    EXPECT_EQ(focused(), u"dtpFechaAlta");
    press(Qt::Key_F4);
    escape();
    EXPECT_EQ(shown(u"dtpFechaAlta"), "19/04/26");
    EXPECT_TRUE(card().Visible());
    saves();
    closes();
  });
}

TEST_F(KeyboardFill, an_annotation_of_each_kind_is_made_from_the_agency_and_from_its_card) {
  struct Row {
    TextView grid, table;
  };
  // The calls first: they are those of the advertisement that the page is on.
  constexpr Row rows[] = {{u"grdLlamada", u"LlamadaAIP"},
                          {u"grdNota", u"NotaIP"},
                          {u"grdVisita", u"VisitaIP"},
                          {u"grdAnuncio", u"AnuncioIP"}};
  for (const Row& row : rows) {
    SCOPED_TRACE(toUtf8(row.grid));
    ListPane& made = pane(row.grid);
    const std::int32_t before = made.list().count();
    const auto newest = [&] {
      return one(u"SELECT Max(" + Text(kindKey(annotationTable(row.table).kind)) + u") FROM " +
                 Text(row.table))
          .toLong();
    };
    std::int32_t first = 0;
    onCard(made, [&] {
      letters("FN");
      first = newest();
      write(u"txtNotas", "Desde la ficha");
      letters("FG");
      ++here.clock.time.minute;  // a row is known by its second
      letters("FN");
      write(u"txtNotas", "Otra más");
      letters("FG");
      letters("AS");
    });
    EXPECT_EQ(made.list().count(), before + 2);
    EXPECT_EQ(text(row.table, u"Notas", first), u"Desde la ficha");
    EXPECT_EQ(text(row.table, u"Notas", newest()), u"Otra más");
  }
}

}  // namespace ovalia::host
