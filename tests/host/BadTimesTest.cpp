// What goes wrong while the agency is open: each ends in a report or a message, and the program goes on.
#include <QKeyEvent>
#include <QLineEdit>
#include <fstream>

#include "host/MainWindow.h"
#include "tests/host/HostTest.h"
#include "tests/host/Toolkit.h"

namespace ovalia::host {

class BadTimes : public HostTest {
 protected:
  BadTimes() {
    application();
    here.screen.activeFormOf = [this] { return window->activeForm(); };
    CNota::cgDB(workplace.agency.database);
    window = std::make_unique<MainWindow>(workplace);
    window->show();
  }
  ~BadTimes() override { window.reset(); }

  static void type(QWidget& box, char letter) {
    QKeyEvent down(QEvent::KeyPress, letter, Qt::NoModifier, QString(QChar(letter)));
    QApplication::sendEvent(&box, &down);
  }
  QLineEdit& searchBox() {
    return *window->listPage(hostForm(u"FichaInm"))->findChild<QLineEdit*>("txtBuscar");
  }

  // The agency's file from the second page on, and nothing of it kept in memory.
  void tear() {
    database().Execute(u"PRAGMA shrink_memory");
    std::fstream file(workplace.agency.file, std::ios::in | std::ios::out | std::ios::binary);
    const auto size = std::filesystem::file_size(workplace.agency.file);
    file.seekp(4096);
    file << std::string(size - 4096, 'x');
  }

  std::unique_ptr<MainWindow> window;
};

TEST_F(BadTimes, a_file_that_is_damaged_meanwhile_is_told_and_the_list_stays) {
  tear();
  here.screen.expectBoxLike(u"No se ha podido terminar lo que ha pedido.", u"", 48, u"", 1);
  here.expectLogEntry(u"Agencia", dao::failure::damaged);
  type(searchBox(), 'V');
  EXPECT_TRUE(window->isVisible());
  RecordsetModel& rows = window->listPage(hostForm(u"FichaInm"))->grid().rows();
  EXPECT_EQ(rows.rowCount(), 300);
  EXPECT_EQ(rows.data(rows.index(299, 0)).toString(), "(no se puede leer)");
}

TEST_F(BadTimes, a_table_that_is_lost_meanwhile_is_told) {
  database().Execute(u"PRAGMA foreign_keys = OFF");
  database().Execute(u"DROP TABLE ExpVivo");
  here.screen.expectBoxLike(u"No se ha podido terminar lo que ha pedido.", u"", 48, u"", 1);
  here.expectLogEntry(u"Agencia", dao::failure::unknownTable);
  type(*window->listPage(hostForm(u"FichaExpV"))->findChild<QLineEdit*>("txtBuscar"), 'E');
  type(searchBox(), '1');
  EXPECT_GT(window->listPage(hostForm(u"FichaInm"))->grid().rows().rowCount(), 0);
}

TEST_F(BadTimes, a_table_that_the_lists_of_a_card_need_keeps_it_from_opening_and_says_so) {
  database().Execute(u"PRAGMA foreign_keys = OFF");
  database().Execute(u"DROP TABLE TipoAccNota");
  EXPECT_EQ(window->openCard(hostForm(u"FichaInm"), 1), nullptr);
  ASSERT_EQ(dialogs.told.size(), 1u);
  EXPECT_TRUE(dialogs.told[0].starts_with(u"Inmueble: La ficha no se puede abrir. "))
      << toUtf8(dialogs.told[0]);
}

}  // namespace ovalia::host
