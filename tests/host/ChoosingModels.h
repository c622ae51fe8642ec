#pragma once

#include <gmock/gmock.h>

#include <QHeaderView>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include "tests/host/ModelsAtTheDesk.h"

namespace ovalia::host {

// The list of models over the card of a note.
class ChoosingModels : public ModelsAtTheDesk {
 protected:
  // In the list of models, from a note's menu.
  static void choosing(const Keys& keys) {
    onForm(u"ListaModelos", keys, [] { deskkit::letters("DDM"); });
  }
  // On a note without documents, in the list of models.
  void onList(const Keys& keys) {
    onNote({}, [&] {
      choosing(keys);
      EXPECT_EQ(QApplication::activeModalWidget(), deskkit::windowOf(card()));
    });
  }
  static QTableView& view() { return dynamic_cast<QTableView&>(*deskkit::widgetOf(card(), u"grdPlantilla")); }
  static std::string cell(int row, int column) {
    return view().model()->index(row, column).data().toString().toStdString();
  }
  static std::vector<std::string> column(int column) {
    std::vector<std::string> texts;
    for (int row = 0; row < view().model()->rowCount(); ++row) texts.push_back(cell(row, column));
    return texts;
  }
  static std::vector<std::string> names() { return column(1); }
  static std::vector<int> marked() {
    std::vector<int> rows;
    for (const QModelIndex& index : view().selectionModel()->selectedRows(1)) rows.push_back(index.row());
    std::ranges::sort(rows);
    return rows;
  }
  static std::string caption(TextView button) {
    return dynamic_cast<QPushButton&>(*deskkit::widgetOf(card(), button)).text().toStdString();
  }
  static void clickHeading(int column) {
    const QHeaderView& heads = *view().horizontalHeader();
    QTest::mouseClick(
        heads.viewport(), Qt::LeftButton, {},
        {heads.sectionViewportPosition(column) + heads.sectionSize(column) / 2, heads.height() / 2});
  }
  // Goes back from the list, past no box that has something to check.
  static void presses(TextView button) {
    for (int i = 0; i < 3 && focused() != button; ++i) deskkit::tab(false);
    ASSERT_EQ(focused(), button);
    deskkit::press(Qt::Key_Space, Qt::NoModifier, " ");
    QApplication::processEvents();
  }
  static void accepts() { presses(u"cmdAceptar"); }
  static void clicksSelect() {
    tabTo(u"cmdSel");
    deskkit::press(Qt::Key_Space, Qt::NoModifier, " ");
  }
  // A report of a failure, left without sending it.
  void reported(TextView procedure, std::int32_t number) {
    expectReport(Text(procedure), number);
    prepared.add([] { deskkit::letters("N"); });
  }
  void asksToDelete(TextView question, int answer) {
    asked(Text(question), 68, u"Borrar", answer, [=] { deskkit::letters(answer == 6 ? "S" : "N"); });
  }
  void asksForReference(int answer) {
    asked(join(u"El modelo seleccionado no existe.", CRLF, CRLF, u"¿Desea borrar la referencia?"), 52,
          u"Modelo", answer, [=] { deskkit::letters(answer == 6 ? "S" : "N"); });
  }
  QStringList trash() const { return QDir(home() + "/data/Trash/files").entryList(QDir::Files); }
  std::string attached() {
    const Text stored = one(u"SELECT NombreArch FROM DocuNotaIP WHERE IdNota = " + toText(note)).text();
    for (const auto& path : filesBelow(workplace.agency.documents))
      if (path.filename() == toUtf8(stored)) return contentOf(path);
    return "(no está)";
  }
  static constexpr TextView several =
      u"Ha seleccionado varios modelos.\r\n\r\n¿Desea borrar los modelos marcados?";
};

}  // namespace ovalia::host
