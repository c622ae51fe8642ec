// Models that are deleted from their list in the real windows, and those whose documents are gone.
#include "tests/host/ChoosingModels.h"

namespace ovalia::host {

using deskkit::enter;
using deskkit::escape;
using deskkit::press;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(ChoosingModels, several_are_deleted_after_a_question_with_their_documents_in_the_trash) {
  onList([&] {
    press(Qt::Key_Space, Qt::NoModifier, " ");
    press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_THAT(marked(), ElementsAre(0, 1));
    asksToDelete(several, 7);
    press(Qt::Key_Delete);
    EXPECT_THAT(marked(), ElementsAre(0, 1));
    EXPECT_EQ(models(), 4);
    EXPECT_TRUE(isThere(u"Contrato de arras.rtf"));
    asksToDelete(several, 6);
    press(Qt::Key_Delete);
    EXPECT_THAT(names(), ElementsAre("Petición de nota simple.rtf", "Recibí de llaves.rtf"));
    EXPECT_THAT(marked(), IsEmpty());
    EXPECT_EQ(focused(), u"grdPlantilla");
    press(Qt::Key_Space, Qt::NoModifier, " ");
    asksToDelete(u"¿Desea borrar el modelo marcado?", 6);
    press(Qt::Key_Delete);
    EXPECT_EQ(names().size(), 1u);
    escape();
  });
  EXPECT_EQ(models(), 1);
  EXPECT_EQ(trash().size(), 3);
  EXPECT_FALSE(isThere(u"Contrato de arras.rtf"));
  EXPECT_FALSE(isThere(u"Encargo de venta.rtf"));
}

TEST_F(ChoosingModels, nothing_is_deleted_where_nothing_is_marked) {
  onList([&] {
    EXPECT_THAT(marked(), IsEmpty());
    press(Qt::Key_Delete);
    EXPECT_EQ(names().size(), 4u);
    escape();
  });
  EXPECT_EQ(models(), 4);
}

TEST_F(ChoosingModels, from_the_list_of_a_subject_nothing_can_be_deleted_until_the_filter_is_on) {
  onList([&] {
    write(u"txtMateria", "Civil");
    deskkit::tab();
    const auto deletes = [] {
      tabTo(u"grdPlantilla");
      press(Qt::Key_Space, Qt::NoModifier, " ");
      press(Qt::Key_Delete);
    };
    asksToDelete(u"¿Desea borrar el modelo marcado?", 6);
    reported(u"AntesBorrarPlantilla2 de ListaModelos", failure::typeMismatch);
    deletes();
    EXPECT_EQ(models(), 4);
    EXPECT_TRUE(isThere(u"Contrato de arras.rtf"));
    clicksSelect();
    asksToDelete(u"¿Desea borrar el modelo marcado?", 6);
    deletes();
    EXPECT_EQ(models(), 3);
    escape();
  });
  EXPECT_FALSE(isThere(u"Contrato de arras.rtf"));
}

TEST_F(ChoosingModels, a_model_whose_document_is_gone_is_deleted_all_the_same) {
  std::filesystem::remove(place() / "Contrato de arras.rtf");
  onList([&] {
    press(Qt::Key_Space, Qt::NoModifier, " ");
    asksToDelete(u"¿Desea borrar el modelo marcado?", 6);
    expectBox(u"Error devuelto: 2, 2", 0, u"");
    press(Qt::Key_Delete);
    EXPECT_EQ(names().size(), 3u);
    escape();
  });
  EXPECT_EQ(modelsCalled(u"Contrato de arras.rtf"), 0);
}

// A trash that has no room for one document.
class FullTrash : public desktop::DesktopShell {
 public:
  RecycleResult recycle(TextView path) override {
    if (path.ends_with(refused)) return {.code = 5, .lastError = 13};
    return DesktopShell::recycle(path);
  }
  Text refused;
};

TEST_F(ChoosingModels, of_three_the_one_whose_document_stays_is_kept_and_stays_marked) {
  FullTrash full;
  full.refused = u"Encargo de venta.rtf";
  here.platform.shell = &full;
  onList([&] {
    press(Qt::Key_Space, Qt::NoModifier, " ");
    press(Qt::Key_Down, Qt::ShiftModifier);
    press(Qt::Key_Down, Qt::ShiftModifier);
    asksToDelete(several, 6);
    asked(u"Error devuelto: 5, 13", 0, u"", 1, [] { enter(); });
    asked(u"No se pudo borrar el archivo [" + logicPath(fromUtf8(place().native())) +
              u"\\Encargo de venta.rtf].",
          0, u"", 1, [] { enter(); });
    press(Qt::Key_Delete);
    EXPECT_THAT(names(), ElementsAre("Encargo de venta.rtf", "Recibí de llaves.rtf"));
    EXPECT_THAT(marked(), ElementsAre(0));
    escape();
  });
  here.platform.shell = &shell;
  EXPECT_EQ(models(), 2);
  EXPECT_TRUE(isThere(u"Encargo de venta.rtf"));
}

TEST_F(ChoosingModels, one_whose_document_is_gone_is_kept_or_its_row_deleted_and_nothing_is_attached) {
  std::filesystem::remove(place() / "Contrato de arras.rtf");
  onList([&] {
    asksForReference(7);
    accepts();
    EXPECT_TRUE(isUp(u"ListaModelos"));
    EXPECT_EQ(models(), 4);
    asksForReference(6);
    accepts();
    EXPECT_THAT(names(),
                ElementsAre("Encargo de venta.rtf", "Petición de nota simple.rtf", "Recibí de llaves.rtf"));
    tabTo(u"cmdCancelar");
    press(Qt::Key_Space, Qt::NoModifier, " ");
    EXPECT_FALSE(isUp(u"ListaModelos"));
  });
  EXPECT_EQ(models(), 3);
  EXPECT_EQ(rows(), 0);
  EXPECT_TRUE(keyed.opened.empty());
}

TEST_F(ChoosingModels, a_choice_that_was_refused_stands_where_the_window_is_closed_and_cannot_be_copied) {
  std::filesystem::remove(place() / "Contrato de arras.rtf");
  onNote({}, [&] {
    choosing([&] {
      asksForReference(7);
      accepts();
      reported(u"AdjuntarModelo de CNota", failure::fileNotFound);
      QApplication::activeModalWidget()->close();
    });
    EXPECT_THAT(listed(), IsEmpty());
    choosing([] {
      press(Qt::Key_Down);
      accepts();
    });
    EXPECT_THAT(listed(), ElementsAre("Encargo de venta.rtf")) << "the card goes on";
  });
  EXPECT_EQ(rows(), 1);
}

TEST_F(ChoosingModels, of_two_of_one_name_the_second_loses_its_document_with_the_first) {
  addRow(u"Encargo de venta.rtf", u"El segundo");
  onNote({}, [&] {
    choosing([&] {
      EXPECT_THAT(names(),
                  ElementsAre("Contrato de arras.rtf", "Encargo de venta.rtf", "Encargo de venta.rtf",
                              "Petición de nota simple.rtf", "Recibí de llaves.rtf"));
      press(Qt::Key_Down);
      press(Qt::Key_Down);
      accepts();
      EXPECT_FALSE(isUp(u"ListaModelos"));
    });
    EXPECT_THAT(listed(), ElementsAre("Encargo de venta.rtf"));
    choosing([&] {
      press(Qt::Key_Down);
      asksToDelete(u"¿Desea borrar el modelo marcado?", 6);
      press(Qt::Key_Delete);
      EXPECT_EQ(modelsCalled(u"Encargo de venta.rtf"), 1);
      EXPECT_EQ(names().size(), 4u);
      press(Qt::Key_Home);
      press(Qt::Key_Down);
      ASSERT_EQ(cell(view().currentIndex().row(), 1), "Encargo de venta.rtf");
      asksForReference(6);
      accepts();
      EXPECT_EQ(names().size(), 3u);
      escape();
    });
    EXPECT_THAT(listed(), ElementsAre("Encargo de venta.rtf")) << "the copy on the card is its own";
  });
  EXPECT_EQ(modelsCalled(u"Encargo de venta.rtf"), 0);
  EXPECT_NE(attached(), "(no está)");
}

TEST_F(ChoosingModels, a_model_that_another_user_deletes_meanwhile_is_told_and_the_card_goes_on) {
  onNote({}, [&] {
    choosing([&] {
      press(Qt::Key_Down);
      database().Execute(u"DELETE FROM Plantilla WHERE Nombre = 'Encargo de venta.rtf'");
      asked(u"La ficha acaba de ser borrada por otro usuario y\r\nno se volverá a visualizar.", 4144,
            u"Error", 1, [] { enter(); });
      here.expectLogEntry(u"Evento de ListaModelos", failure::noSuchMember);
      accepts();
      EXPECT_TRUE(isUp(u"ListaModelos"));
      press(Qt::Key_Escape, Qt::NoModifier, QStringLiteral("\x1b"));
    });
    choosing([] {
      EXPECT_EQ(names().size(), 3u);
      accepts();
    });
    EXPECT_THAT(listed(), ElementsAre("Contrato de arras.rtf"));
  });
}

}  // namespace ovalia::host
