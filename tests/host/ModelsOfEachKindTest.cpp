// Models made from the cards of each kind, and attached to them.
#include <gmock/gmock.h>

#include "tests/host/KindsAtTheDesk.h"

namespace ovalia::host {

using deskkit::enter;
using deskkit::press;
using deskkit::types;
using testing::ElementsAre;

class ModelsOfEachKind : public KindsAtTheDesk {
 protected:
  ModelsOfEachKind() {
    database().Execute(u"DELETE FROM Plantilla");
    std::filesystem::create_directories(workplace.agency.documents / "Plantillas");
  }

  static void making(const QString& name) {
    onForm(
        u"frmModelo",
        [&] {
          types(name);
          enter();
        },
        [] { fromDocuments("C"); });
  }
};

TEST_F(ModelsOfEachKind, a_document_of_each_becomes_a_model_and_comes_back_as_another_document) {
  int made = 0;
  for (const KindAtTheDesk& kind : kindsAtTheDesk) {
    if (kind.documents.empty()) continue;
    const QString name = QStringLiteral("%1 de %2.txt").arg(8 - made).arg(desktop::toQt(kind.table));
    onKind(kind, {file("Año «1».txt", kind.print)}, [&] {
      tabTo(u"LsvDocu");
      press(Qt::Key_Down);
      making(name);
      attachingModel();
      EXPECT_THAT(listed(), ElementsAre("Año «1».txt", name));
    });
    EXPECT_EQ(one(u"SELECT COUNT(*) FROM Plantilla").toLong(), ++made);
    EXPECT_EQ(stored(kind.table, u"NArchivos", keyOf(kind)).toLong(), 2);
    ASSERT_EQ(keyed.opened.size(), std::size_t(made));
    QFile copy(desktop::toQt(keyed.opened.back()));
    ASSERT_TRUE(copy.open(QFile::ReadOnly));
    EXPECT_EQ(copy.readAll(), kind.print);
    EXPECT_EQ(one(join(u"SELECT COUNT(*) FROM ", kind.documents, u" WHERE IdNota = ", keyOf(kind),
                       u" AND NombreOrg = ", ComillaSQL(desktop::fromQt(name))))
                  .toLong(),
              1);
  }
  EXPECT_EQ(made, 3);
}

TEST_F(ModelsOfEachKind, a_call_keeps_no_documents_and_has_no_menu_of_them) {
  onKind(callKind, {}, [] { EXPECT_FALSE(card().toolbars().tool(u"ID_mnuDocumentos")->Visible()); });
}

}  // namespace ovalia::host
