#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <QTest>
#include <chrono>
#include <set>

#include "desktop/QtText.h"
#include "host/BulkFile.h"
#include "host/MainWindow.h"
#include "host/PlaceMemory.h"
#include "tests/host/HostTest.h"
#include "tests/host/Toolkit.h"

namespace ovalia::host {
namespace {

void press(QWidget& widget, int key) {
  QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier);
  QApplication::sendEvent(&widget, &down);
}

}  // namespace

class Grid : public HostTest {
 protected:
  Grid() { application(); }
  dao::RecordsetRef notes() { return database().OpenRecordset(listQuery(list(u"FichaInm", u"grdNota"), 1)); }
  RecordsetModel model{
      {{u"FechaAlta", "Fecha"}, {u"NoHay", "?"}, {u"Asunto", "Asunto"}, {u"NArchivos", "Docs."}}, u"IdAnota"};
};

TEST_F(Grid, shows_the_columns_that_the_rows_have) {
  model.setRecordset(notes());
  EXPECT_EQ(model.columnCount(), 3);
  EXPECT_EQ(model.headerData(1, Qt::Horizontal).toString(), "Asunto");
  EXPECT_EQ(model.rowCount(), notes()->RecordCount());
}

TEST_F(Grid, reads_rows_by_their_place_in_any_order) {
  model.setRecordset(notes());
  const auto rows = notes();
  for (int row : {3, 0, 2}) {
    rows->setAbsolutePosition(row);
    EXPECT_EQ(model.keyAt(row), rows->value(u"IdAnota").toLong());
    EXPECT_EQ(model.data(model.index(row, 1)).toString(), gridText(rows->value(u"Asunto")));
    EXPECT_EQ(model.rowOf(model.keyAt(row)), row);
  }
  EXPECT_EQ(model.keyAt(-1), 0);
  EXPECT_EQ(model.keyAt(100000), 0);
  EXPECT_EQ(model.rowOf(-5), -1);
}

TEST_F(Grid, says_that_a_row_was_deleted_by_another_user) {
  model.setRecordset(notes());
  database().Execute(u"DELETE * FROM DocuNotaIP");
  database().Execute(u"DELETE * FROM NotaIP WHERE IdInm = 1");
  EXPECT_EQ(model.data(model.index(0, 0)).toString(), "(borrada)");
  EXPECT_EQ(model.keyAt(0), 0);
  model.reload();
  EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(Grid, writes_values_as_a_reader_wants_them) {
  EXPECT_EQ(gridText(Date{45292.5}), "01/01/2024 12:00");
  EXPECT_EQ(gridText(Date{45292}), "01/01/2024");
  EXPECT_EQ(gridText(Date{}), "");
  EXPECT_EQ(gridText(Null), "");
  EXPECT_EQ(gridText(true), "Sí");
  EXPECT_EQ(gridText(false), "");
  EXPECT_EQ(gridText(Currency{1234567500}), "123.457");
  EXPECT_EQ(gridText(u"primera\r\nsegunda"), "primera");
}

TEST_F(Grid, puts_numbers_and_their_headings_to_the_right) {
  model.setRecordset(notes());
  const auto right = [&](int column) {
    const auto of = [](const QVariant& alignment) { return (alignment.toInt() & Qt::AlignRight) != 0; };
    const bool heading = of(model.headerData(column, Qt::Horizontal, Qt::TextAlignmentRole));
    EXPECT_EQ(heading, of(model.data(model.index(0, column), Qt::TextAlignmentRole)));
    return heading;
  };
  EXPECT_FALSE(right(0));
  EXPECT_FALSE(right(1));
  EXPECT_TRUE(right(2));
}

TEST_F(Grid, opens_the_current_row_on_enter_and_double_click) {
  GridView grid("grdNota", {{u"Asunto", "Asunto", 20}}, u"IdAnota", false);
  int opened = 0, moved = 0;
  grid.opened = [&] { ++opened; };
  grid.moved = [&] { ++moved; };
  grid.show(notes(), 0);
  EXPECT_EQ(moved, 0);
  press(grid, Qt::Key_Return);
  press(grid, Qt::Key_Enter);
  EXPECT_EQ(opened, 2);
  grid.resize(400, 300);
  grid.show(notes(), 0);
  static_cast<QWidget&>(grid).show();
  const QPointF at = grid.visualRect(grid.model()->index(1, 0)).center();
  QMouseEvent twice(QEvent::MouseButtonDblClick, at, grid.viewport()->mapToGlobal(at), Qt::LeftButton,
                    Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(grid.viewport(), &twice);
  EXPECT_EQ(opened, 3);
}

TEST_F(Grid, tells_when_its_user_moves_and_stays_on_its_row_when_read_again) {
  GridView grid("grdNota", {{u"Asunto", "Asunto", 20}}, u"IdAnota", true);
  grid.show(notes(), 0);
  int moved = 0;
  grid.moved = [&] { ++moved; };
  press(grid, Qt::Key_Down);
  EXPECT_GT(moved, 0);
  const auto key = grid.currentKey();
  EXPECT_NE(key, notes()->value(u"IdAnota").toLong());
  moved = 0;
  grid.reload(key);
  EXPECT_EQ(grid.currentKey(), key);
  EXPECT_EQ(moved, 0);
  EXPECT_EQ(grid.selectedKeys(), std::vector{key});
}

TEST_F(Grid, stays_quick_with_very_many_rows) {
  const kit::TemporaryFolder big;
  makeDatabaseFile(big.path() / "a.db", 200000);
  const Agency agency = openAgency(big.path() / "a.db", u"");
  GridView grid("grdNota", {{u"Asunto", "Asunto", 20}, {u"Usuario", "Usuario", 20}}, u"IdAnota", false);
  grid.resize(600, 400);
  const auto rows = agency.database->OpenRecordset(wholeTableQuery(annotationTable(u"NotaIP")));
  const auto start = std::chrono::steady_clock::now();
  grid.show(rows, 0);
  static_cast<QWidget&>(grid).show();
  QApplication::processEvents();
  press(grid, Qt::Key_End);
  grid.scrollToBottom();
  QApplication::processEvents();
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
  EXPECT_EQ(grid.rows().rowCount(), rows->RecordCount());
  EXPECT_LT(taken.count(), 5.0);
}

class Window : public HostTest {
 protected:
  Window() {
    application();
    here.platform.app.title = u"Agencia";
    window = std::make_unique<MainWindow>(workplace);
    window->show();
  }
  CardPage& open(TextView form, std::int32_t record = 1) { return *window->openCard(hostForm(form), record); }
  std::unique_ptr<MainWindow> window;
};

TEST_F(Window, begins_on_the_list_of_properties) {
  EXPECT_EQ(getMember(window->activeForm(), u"Name").toText(), u"ListaInm");
  EXPECT_EQ(window->listPage(hostForm(u"FichaInm"))->grid().rows().rowCount(), 300);
}

TEST_F(Window, begins_in_the_search_from_which_the_arrows_walk_the_list) {
  window->activateWindow();
  QApplication::processEvents();
  ListPage& page = *window->listPage(hostForm(u"FichaInm"));
  auto* box = page.findChild<QLineEdit*>("txtBuscar");
  EXPECT_EQ(QApplication::focusWidget(), box);
  const std::int32_t first = page.grid().currentKey();
  press(*box, Qt::Key_Down);
  EXPECT_NE(page.grid().currentKey(), first);
  press(*box, Qt::Key_Up);
  EXPECT_EQ(page.grid().currentKey(), first);
  press(*box, Qt::Key_Return);
  EXPECT_EQ(getMember(window->activeForm(), u"Caption").toText(), u"Inmueble V-1001");
}

TEST_F(Window, the_letter_of_a_page_leads_into_its_grid_also_when_it_is_there_already) {
  window->activateWindow();
  CardPage& page = open(u"FichaInm");
  QApplication::processEvents();
  auto* floor = page.findChild<QLineEdit*>("txtPiso");
  floor->setFocus();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  QTest::keyClick(floor, Qt::Key_N, Qt::AltModifier);
  QApplication::processEvents();
  EXPECT_EQ(QApplication::focusWidget(), &page.pane(u"grdNota")->grid());
}

TEST_F(Window, finds_as_one_types_and_opens_the_first_on_enter) {
  ListPage& page = *window->listPage(hostForm(u"FichaInm"));
  auto* box = page.findChild<QLineEdit*>("txtBuscar");
  box->setText("v-1007");
  EXPECT_EQ(page.grid().rows().rowCount(), 1);
  press(*box, Qt::Key_Return);
  EXPECT_EQ(getMember(window->activeForm(), u"Caption").toText(), u"Inmueble V-1007");
  box->setText("nada de esto");
  EXPECT_EQ(page.grid().rows().rowCount(), 0);
}

TEST_F(Window, opens_each_record_once) {
  CardPage& first = open(u"FichaInm", 1);
  open(u"FichaUsuario", 1);
  EXPECT_EQ(&open(u"FichaInm", 1), &first);
  EXPECT_EQ(getMember(window->activeForm(), u"Name").toText(), u"FichaInm");
}

TEST_F(Window, tells_when_a_record_is_gone) {
  EXPECT_EQ(window->openCard(hostForm(u"FichaInm"), 99999), nullptr);
  ASSERT_EQ(dialogs.told.size(), 1u);
  EXPECT_NE(dialogs.told[0].find(u"otro usuario la ha borrado"), Text::npos);
}

TEST_F(Window, closes_the_card_of_a_record_that_another_user_deleted) {
  database().Execute(u"INSERT INTO Inmueble (Referencia) VALUES ('V-9999')");
  const std::int32_t record = one(u"SELECT Max(IdInm) FROM Inmueble").toLong();
  CardPage& page = open(u"FichaInm", record);
  database().Execute(u"DELETE FROM Inmueble WHERE IdInm = " + toText(record));
  page.card().reload();
  ASSERT_EQ(dialogs.told.size(), 1u);
  EXPECT_EQ(dialogs.told[0], u"Inmueble: La ficha ya no existe: otro usuario la ha borrado.");
  EXPECT_EQ(getMember(window->activeForm(), u"Name").toText(), u"ListaInm");
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

TEST_F(Window, tells_what_its_work_lets_escape_and_goes_on) {
  CardPage& page = open(u"FichaInm");
  auto* floor = page.findChild<QLineEdit*>("txtPiso");
  database().Execute(u"PRAGMA foreign_keys = OFF");
  database().Execute(u"DELETE FROM Inmueble WHERE IdInm = 1");
  here.screen.expectBoxLike(u"No se ha podido terminar lo que ha pedido.", u"", 48, u"", 1);
  here.expectLogEntry(u"Agencia", dao::failure::recordDeleted);
  QKeyEvent typed(QEvent::KeyPress, Qt::Key_7, Qt::NoModifier, "7");
  QApplication::sendEvent(floor, &typed);
  EXPECT_TRUE(window->isVisible());
}

TEST_F(Window, comes_back_where_it_was_closed) {
  window->setGeometry(120, 90, 640, 420);
  ASSERT_TRUE(window->close());
  MainWindow again(workplace);
  restorePlace(again);
  EXPECT_EQ(again.size(), QSize(640, 420));
  EXPECT_EQ(again.pos(), window->pos());
  EXPECT_FALSE(again.isMaximized());
}

TEST_F(Window, stays_on_the_screen_whatever_its_settings_say) {
  const QSize first = window->size();
  for (const TextView nonsense : {u"abajo", u"", u"1e99", u"-"}) {
    for (const TextView key : {u"Left", u"Top", u"Width", u"Height", u"Estado"})
      here.settings.save(u"Agencia", u"MainWindow", key, nonsense);
    restorePlace(*window);
    EXPECT_EQ(window->size(), first) << toUtf8(nonsense);
  }
  for (const TextView number : {u"-90000", u"90000"}) {
    for (const TextView key : {u"Left", u"Top", u"Width", u"Height"})
      here.settings.save(u"Agencia", u"MainWindow", key, number);
    restorePlace(*window);
    const QRect room = window->screen()->availableGeometry();
    EXPECT_TRUE(room.contains(window->pos())) << toUtf8(number);
    EXPECT_EQ(window->size().boundedTo(room.size()), window->size()) << toUtf8(number);
  }
}

TEST_F(Window, shows_the_record_and_stores_what_is_typed) {
  CardPage& page = open(u"FichaInm");
  auto* floor = page.findChild<QLineEdit*>("txtPiso");
  EXPECT_EQ(desktop::fromQt(floor->text()), one(u"SELECT Piso FROM Inmueble WHERE IdInm = 1").text());
  floor->setFocus();
  floor->setText("");
  QKeyEvent typed(QEvent::KeyPress, Qt::Key_7, Qt::NoModifier, "7");
  QApplication::sendEvent(floor, &typed);
  EXPECT_EQ(page.card().state(), HostCard::changedByUser);
  EXPECT_TRUE(page.card().save());
  EXPECT_EQ(one(u"SELECT Piso FROM Inmueble WHERE IdInm = 1").text(), u"7");
}

TEST_F(Window, every_list_of_every_card_shows_its_rows) {
  for (const ListDesign& design : lists()) {
    CardPage& page = open(design.form);
    ListPane* pane = page.pane(design.grid);
    ASSERT_NE(pane, nullptr);
    page.showPane(*pane);
    QApplication::processEvents();
    EXPECT_EQ(pane->grid().rows().rowCount(), pane->list().count()) << toUtf8(design.grid);
    EXPECT_NE(pane->grid().currentKey(), 0);
    EXPECT_EQ(pane->grid().currentKey(), pane->list().currentKey());
  }
}

TEST_F(Window, moving_in_a_grid_moves_its_list_and_the_calls_follow_their_advertisement) {
  CardPage& page = open(u"FichaInm");
  ListPane& advertisements = *page.pane(u"grdAnuncio");
  page.showPane(advertisements);
  QApplication::processEvents();
  press(advertisements.grid(), Qt::Key_Down);
  EXPECT_EQ(advertisements.list().currentKey(), advertisements.grid().currentKey());
  EXPECT_EQ(page.card().list(u"grdLlamada")->parent(), advertisements.grid().currentKey());
  ListPane& calls = *page.pane(u"grdLlamada");
  page.showPane(calls);
  QApplication::processEvents();
  EXPECT_EQ(calls.grid().rows().rowCount(), calls.list().count());
}

TEST_F(Window, a_card_and_a_page_chosen_by_its_letter_begin_in_their_grid) {
  window->activateWindow();
  CardPage& page = open(u"FichaInm");
  QApplication::processEvents();
  EXPECT_EQ(QApplication::focusWidget(), &page.pane(u"grdNota")->grid());
  page.showPane(*page.pane(u"grdVisita"));
  EXPECT_EQ(QApplication::focusWidget(), &page.pane(u"grdVisita")->grid());
}

TEST_F(Window, the_active_control_is_the_grid_that_had_the_focus) {
  CardPage& page = open(u"FichaInm");
  window->activateWindow();
  page.pane(u"grdNota")->grid().setFocus();
  QApplication::processEvents();
  const ObjectRef control = getMember(window->activeForm(), u"ActiveControl").toObject();
  ASSERT_NE(control, nullptr);
  EXPECT_EQ(getMember(control, u"Name").toText(), u"grdNota");
}

TEST_F(Window, everything_on_a_card_is_reached_with_tab) {
  CardPage& page = open(u"FichaInm");
  window->activateWindow();
  QApplication::processEvents();
  page.findChild<QLineEdit*>("txtTipoInm")->setFocus();
  std::set<QString> reached;
  for (int i = 0; i < 60; ++i) {
    if (QWidget* focus = QApplication::focusWidget()) reached.insert(focus->objectName());
    if (QWidget* focus = QApplication::focusWidget()) press(*focus, Qt::Key_Tab);
  }
  for (const char* name : {"txtTipoInm", "txtPrecio", "txtObservaciones", "grdNota"})
    EXPECT_TRUE(reached.contains(name)) << name;
}

TEST_F(Window, stays_open_while_its_user_wants_to_go_on_editing) {
  CardPage& page = open(u"FichaInm");
  page.card().userEdits(page.card().form().fields[4], u"sin guardar");
  dialogs.yesNoCancelAnswer = 2;
  EXPECT_FALSE(window->close());
  dialogs.yesNoCancelAnswer = 7;
  EXPECT_TRUE(window->close());
}

TEST_F(Window, the_status_bar_is_the_components_too) {
  const ObjectRef panel =
      getMember(getMember(workplace.frmBase, u"StatusBar1").toObject(), u"Panels", {std::int32_t(1)})
          .toObject();
  EXPECT_EQ(getMember(panel, u"Text").toText(), u"Listo");
  putMember(panel, u"Text", u"Copiando ...");
  EXPECT_EQ(getMember(panel, u"Text").toText(), u"Copiando ...");
}

TEST_F(Window, going_away_leaves_the_contracts_empty_handed) {
  open(u"FichaInm");
  const ObjectRef base = workplace.frmBase, form = window->activeForm();
  window.reset();
  EXPECT_THROW(getMember(base, u"ActiveForm"), Failure);
  EXPECT_THROW(getMember(form, u"Caption"), Failure);
}

}  // namespace ovalia::host
