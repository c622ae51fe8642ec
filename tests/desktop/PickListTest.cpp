#include "desktop/PickList.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>

#include "desktop/PickListDialog.h"
#include "tests/desktop/Desk.h"
#include "tests/kit/FakeDatabase.h"

namespace ovalia::desktop {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Pick : public kit::LogicTest {
 protected:
  void SetUp() override {
    const std::vector<kit::FakeColumn> columns = {
        {u"IdMateria", dao::dbLong, dao::dbAutoIncrField, u"Materia"},
        {u"Nombre", dao::dbText, 0, u"Materia"}};
    rows = database->table(u"Materia", columns);
    names = database->answers(u"SELECT IdMateria, Nombre FROM Materia ORDER BY Nombre", columns,
                              {{1, u"Ático"}, {2, u"Chalé"}, {3, u"Ñora"}, {4, u"Piso"}, {5, Null}});
    const auto definition = database->TableDefs(u"Materia");
    list = makePickList();
    const auto set = [&](TextView name, const Variant& value) { putMember(list, name, value); };
    set(u"TipoLista", 0);
    set(u"TituloForm", u"Materias");
    set(u"tabla", u"Materia");
    set(u"BDatos", u"");
    set(u"Campo", definition->Fields().item(u"Nombre"));
    set(u"IdCampo", definition->Fields().item(u"IdMateria"));
    set(u"Seleccionar", u"piso");
    set(u"NuevoElemento", u"piso");
    set(u"NuevoId", true);
    set(u"Op_Nuevo", true);
    set(u"Op_Borrar", true);
    set(u"Op_Modificar", true);
    set(u"Op_Todos", false);
    set(u"anchura", std::int16_t(2500));
    set(u"glIdSolicitud", 0);
  }

  bool show(const std::function<void()>& actions) {
    QTimer::singleShot(0, [&] {
      dialog = dynamic_cast<PickListDialog*>(QApplication::activeModalWidget());
      ASSERT_TRUE(dialog);
      QApplication::setActiveWindow(dialog);
      search = dialog->findChild<QLineEdit*>("buscar");
      view = dialog->findChild<QListWidget*>("lista");
      actions();
      if (dialog->isVisible()) dialog->reject();
    });
    return callMember(list, u"mtdMostrar").toBoolean();
  }
  QStringList shown() {
    QStringList texts;
    for (int i = 0; i < view->count(); ++i) texts << view->item(i)->text();
    return texts;
  }
  QString current() { return view->currentItem() ? view->currentItem()->text() : QString(); }
  void press(const char* text) {
    for (QPushButton* button : dialog->findChildren<QPushButton*>())
      if (button->text() == QString::fromUtf8(text)) return button->click();
    ADD_FAILURE() << "no button " << text;
  }
  Text answer(TextView name) { return getMember(list, name).text(); }

  std::shared_ptr<kit::FakeDatabase> database = std::make_shared<kit::FakeDatabase>(here.faults);
  kit::FakeTableRef rows, names;
  ObjectRef list;
  PickListDialog* dialog = nullptr;
  QLineEdit* search = nullptr;
  QListWidget* view = nullptr;
};

TEST_F(Pick, shows_the_names_under_its_title_with_the_present_one_selected) {
  EXPECT_FALSE(show([&] {
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Materias"));
    EXPECT_EQ(shown(), (QStringList{"Ático", "Chalé", "Ñora", "Piso"}));
    EXPECT_EQ(current(), QStringLiteral("Piso"));
    EXPECT_TRUE(search->hasFocus());
    EXPECT_GE(view->width(), 2500 / 15);
  }));
  EXPECT_EQ(answer(u"Seleccionar"), u"piso");
}

TEST_F(Pick, enter_chooses_what_the_search_left) {
  EXPECT_TRUE(show([&] {
    typeText(search, QStringLiteral("CHALE"));
    EXPECT_EQ(shown(), (QStringList{"Chalé"}));
    key(search, Qt::Key_Return, {}, "\r");
  }));
  EXPECT_EQ(answer(u"Seleccionar"), u"Chalé");
  EXPECT_EQ(answer(u"NuevoElemento"), u"piso");
}

TEST_F(Pick, arrows_in_the_search_box_walk_the_list) {
  EXPECT_TRUE(show([&] {
    key(search, Qt::Key_Up);
    key(search, Qt::Key_Up);
    EXPECT_EQ(current(), QStringLiteral("Chalé"));
    key(search, Qt::Key_Enter, {}, "\r");
  }));
  EXPECT_EQ(answer(u"Seleccionar"), u"Chalé");
}

TEST_F(Pick, a_double_click_chooses) {
  EXPECT_TRUE(show([&] {
    const QPoint place = view->visualItemRect(view->item(0)).center();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, place);
  }));
  EXPECT_EQ(answer(u"Seleccionar"), u"Ático");
}

TEST_F(Pick, escape_chooses_nothing) {
  EXPECT_FALSE(show([&] {
    view->setCurrentRow(0);
    key(search, Qt::Key_Escape, {}, "\x1b");
    EXPECT_FALSE(dialog->isVisible());
  }));
  EXPECT_EQ(answer(u"Seleccionar"), u"piso");
}

TEST_F(Pick, nothing_can_be_chosen_when_nothing_is_left) {
  EXPECT_FALSE(show([&] {
    typeText(search, QStringLiteral("zzz"));
    EXPECT_THAT(shown(), IsEmpty());
    key(search, Qt::Key_Return, {}, "\r");
    EXPECT_TRUE(dialog->isVisible());
  }));
}

TEST_F(Pick, a_new_name_is_inserted_shown_and_given_back) {
  here.expectInput(u"Nombre del nuevo elemento:", u"Materias", u"", u" L'Olla ");
  database->onExecute = [&](TextView) {
    names->add({6, u"L'Olla"});
    return 1;
  };
  EXPECT_FALSE(show([&] {
    press("&Nuevo...");
    EXPECT_EQ(current(), QStringLiteral("L'Olla"));
  }));
  EXPECT_THAT(database->executed, ElementsAre(u"INSERT INTO Materia (Nombre) VALUES ('L''Olla')"));
  EXPECT_EQ(answer(u"NuevoElemento"), u"L'Olla");
  EXPECT_EQ(answer(u"Seleccionar"), u"piso");
}

TEST_F(Pick, a_table_that_does_not_number_its_rows_gets_the_next_key) {
  putMember(list, u"NuevoId", false);
  database->answers(u"SELECT Max(IdMateria) AS Ultimo FROM Materia", {{u"Ultimo", dao::dbLong}}, {{41}});
  here.expectInput(u"Nombre del nuevo elemento:", u"Materias", u"", u"Local");
  show([&] { key(search, Qt::Key_Insert); });
  EXPECT_THAT(database->executed,
              ElementsAre(u"INSERT INTO Materia (Nombre, IdMateria) VALUES ('Local', 42)"));
}

TEST_F(Pick, a_name_that_is_there_is_not_added_again) {
  here.expectInput(u"Nombre del nuevo elemento:", u"Materias", u"", u"ÁTICO");
  here.expectBox(u"Ya existe «ÁTICO» en la lista.", 48, u"Materias");
  show([&] { press("&Nuevo..."); });
  EXPECT_THAT(database->executed, IsEmpty());
}

TEST_F(Pick, an_insert_that_counts_nothing_is_told) {
  here.expectInput(u"Nombre del nuevo elemento:", u"Materias", u"", u"Local");
  here.expectBox(u"Ya existe «Local» en la lista.", 48, u"Materias");
  database->onExecute = [](TextView) { return 0; };
  show([&] { press("&Nuevo..."); });
}

TEST_F(Pick, a_name_is_changed_in_its_row) {
  const auto row =
      database->answers(u"SELECT IdMateria, Nombre FROM Materia WHERE IdMateria = 2",
                        {{u"IdMateria", dao::dbLong}, {u"Nombre", dao::dbText}}, {{2, u"Chalé"}});
  here.expectInput(u"Nuevo nombre:", u"Materias", u"Chalé", u"Chalet");
  show([&] {
    view->setCurrentRow(1);
    key(search, Qt::Key_F2);
  });
  EXPECT_EQ(row->at(0, u"Nombre").text(), u"Chalet");
}

TEST_F(Pick, a_row_is_deleted_after_a_question) {
  const auto row =
      database->answers(u"SELECT IdMateria, Nombre FROM Materia WHERE IdMateria = 1",
                        {{u"IdMateria", dao::dbLong}, {u"Nombre", dao::dbText}}, {{1, u"Ático"}});
  here.expectBox(u"¿Desea borrar «Ático» de la lista?", 292, u"Materias", 7);
  here.expectBox(u"¿Desea borrar «Ático» de la lista?", 292, u"Materias", 6);
  show([&] {
    view->setCurrentRow(0);
    press("B&orrar");
    EXPECT_FALSE(row->rows.empty());
    press("B&orrar");
  });
  EXPECT_TRUE(row->rows.empty() || row->rows[0]->gone);
}

TEST_F(Pick, a_row_in_use_stays_and_the_user_is_told_why) {
  database->answers(u"SELECT IdMateria, Nombre FROM Materia WHERE IdMateria = 1",
                    {{u"IdMateria", dao::dbLong}, {u"Nombre", dao::dbText}}, {{1, u"Ático"}});
  here.faults.failNext("Recordset.Delete", dao::failure::referenced);
  here.expectBox(u"¿Desea borrar «Ático» de la lista?", 292, u"Materias", 6);
  here.expectBox(u"No se puede borrar «Ático»: hay fichas que lo utilizan.", 48, u"Materias");
  show([&] {
    view->setCurrentRow(0);
    press("B&orrar");
    EXPECT_EQ(current(), QStringLiteral("Ático"));
  });
}

TEST_F(Pick, a_row_that_another_user_deleted_is_told) {
  database->answers(u"SELECT IdMateria, Nombre FROM Materia WHERE IdMateria = 1",
                    {{u"IdMateria", dao::dbLong}, {u"Nombre", dao::dbText}});
  here.expectInput(u"Nuevo nombre:", u"Materias", u"Ático", u"Áticos");
  here.expectBox(u"«Áticos» ya ha sido borrado por otro usuario.", 48, u"Materias");
  show([&] {
    view->setCurrentRow(0);
    press("&Modificar...");
  });
}

TEST_F(Pick, switches_that_are_off_leave_buttons_and_keys_out) {
  for (const TextView off : {u"Op_Nuevo", u"Op_Borrar", u"Op_Modificar"}) putMember(list, off, false);
  show([&] {
    for (const QPushButton* button : dialog->findChildren<QPushButton*>())
      EXPECT_EQ(button->isVisible(), button->text() == "&Aceptar" || button->text() == "&Cancelar")
          << button->text().toStdString();
    for (const int code : {Qt::Key_Insert, Qt::Key_F2}) key(search, code);
    view->setFocus();
    key(view, Qt::Key_Delete);
  });
}

TEST_F(Pick, delete_in_the_search_box_deletes_a_letter_and_no_row) {
  show([&] {
    search->setText(QStringLiteral("pisox"));
    search->setCursorPosition(4);
    key(search, Qt::Key_Delete);
    EXPECT_EQ(search->text(), QStringLiteral("piso"));
    search->setCursorPosition(4);
    key(search, Qt::Key_Delete);
  });
}

TEST_F(Pick, a_statement_of_its_own_lists_and_all_may_be_offered) {
  database->answers(u"SELECT Nombre FROM Otra", {{u"Nombre", dao::dbText}}, {{u"Uno"}});
  putMember(list, u"SQLSentencia", u"SELECT Nombre FROM Otra");
  putMember(list, u"Op_Todos", true);
  EXPECT_TRUE(show([&] {
    EXPECT_EQ(shown(), (QStringList{"(Todos)", "Uno"}));
    view->setCurrentRow(0);
    key(search, Qt::Key_Return, {}, "\r");
  }));
  EXPECT_EQ(answer(u"Seleccionar"), u"");
}

TEST_F(Pick, without_its_fields_it_fails) {
  putMember(list, u"Campo", Variant());
  EXPECT_THROW(callMember(list, u"mtdMostrar"), Failure);
  EXPECT_THROW(putMember(list, u"NoHay", 1), Failure);
}

TEST_F(Pick, a_table_that_is_not_there_fails_before_anything_shows) {
  here.faults.failNext("Database.OpenRecordset", dao::failure::unknownTable);
  EXPECT_THROW(callMember(list, u"mtdMostrar"), Failure);
}

}  // namespace

}  // namespace ovalia::desktop
